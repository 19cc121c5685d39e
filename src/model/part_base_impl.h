#pragma once

#include <cstdint>

#include "model/codes.h"
#include "model/part.h"

namespace Korvel::CANTORIS::PLX {

// What all parts share. The code that makes a part sets its type.
class PartBaseImpl : public virtual PartBase {
public:
    std::uint32_t type() const noexcept override { return type_; }
    void setType(std::uint32_t code) override { type_ = code; }

private:
    std::uint32_t type_ = KRT_PLX_PART_NONE;
};

} // namespace Korvel::CANTORIS::PLX
