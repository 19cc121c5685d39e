// The interface of the editor of a user clip's catalogue properties.
#pragma once

#include <cstdint>

#include "model/interface.h"
#include "text.h"

namespace Korvel::CANTORIS::PLX {

class PropertyEditor : private Interface {
public:
    virtual bool setClipName(const Char* text) = 0;
    virtual bool addFilterType(const Char* text) = 0;
    virtual bool addFilterGenre(const Char* text) = 0;
    virtual bool setPartKey(std::uint32_t value) noexcept = 0;
    virtual bool setPartTempo(std::uint32_t value) noexcept = 0;
    virtual bool save() = 0;
    virtual ~PropertyEditor() = default;
};

} // namespace Korvel::CANTORIS::PLX
