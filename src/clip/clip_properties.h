// The catalogue properties of a clip: the content of its property document.
#pragma once

#include <cstdint>

#include "clip/filter_tags.h"
#include "model/assign.h"
#include "model/codes.h"
#include "text.h"

namespace Korvel::CANTORIS::PLX {

// What clips from disk and clips being built share.
struct ClipBaseProperties {
    String vendorName;
    std::uint32_t partKey = field::partKey.initial;
    std::uint32_t partTempo = field::partTempo.initial;

    bool assignPartKey(std::uint32_t value) { return assign(partKey, field::partKey, value); }
    bool assignPartTempo(std::uint32_t value)
    {
        constexpr std::uint32_t none = 0;
        if (value != none) {
            return assign(partTempo, field::partTempo, value);
        }
        partTempo = none;
        return true;
    }
};

struct ClipProperties : ClipBaseProperties {
    String id;
    String name;
    std::uint32_t partType = KRT_PLX_PART_NONE;
    FilterTags filter;
};

} // namespace Korvel::CANTORIS::PLX
