#pragma once

#include "clip/clip_base.h"
#include "clip/clip_properties.h"

namespace Korvel::CANTORIS::PLX {

class ClipBaseImpl : public virtual ClipBase {
public:
    explicit ClipBaseImpl(Manager* manager) : manager_(manager) {}

    Manager* parent() const noexcept override { return manager_; }
    const Char* vendorName() const noexcept override { return base_.vendorName.c_str(); }
    std::uint32_t partKey() const noexcept override { return base_.partKey; }
    std::uint32_t partTempo() const noexcept override { return base_.partTempo; }

    const ClipBaseProperties& base() const { return base_; }
    ClipBaseProperties& base() { return base_; }

private:
    Manager* manager_;
    ClipBaseProperties base_;
};

} // namespace Korvel::CANTORIS::PLX
