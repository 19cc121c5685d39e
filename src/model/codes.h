// The words that documents use for the codes of part types and controllers, and the values of each
// controller.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

#include "korvel/plx/controller.h"

namespace Korvel::CANTORIS::PLX {

namespace part_type {

struct Type {
    KRT_PLX_PartType code;
    std::string_view name;
};

inline constexpr std::array<Type, 3> types = {{
    {KRT_PLX_PART_AUDIO, "audio"},
    {KRT_PLX_PART_MIDI_AI, "midiAi"},
    {KRT_PLX_PART_MIDI, "midi"},
}};

// Empty for a code that no document can hold.
constexpr std::string_view name(std::uint32_t code)
{
    for (const Type& type : types) {
        if (type.code == code) {
            return type.name;
        }
    }
    return {};
}

constexpr KRT_PLX_PartType fromName(std::string_view name)
{
    for (const Type& type : types) {
        if (type.name == name) {
            return type.code;
        }
    }
    return KRT_PLX_PART_NONE;
}

constexpr bool isMidi(std::uint32_t code)
{
    return code == KRT_PLX_PART_MIDI_AI || code == KRT_PLX_PART_MIDI;
}

} // namespace part_type

namespace controller {

struct Type {
    KRT_PLX_ControllerType code;
    std::string_view name;
    std::int32_t minimum;
    std::int32_t maximum;

    constexpr bool accepts(std::int32_t value) const
    {
        return minimum <= value && value <= maximum;
    }
};

// Indexed by code.
inline constexpr std::array<Type, 12> types = {{
    {KRT_PLX_CONTROLLER_DYNAMICS, "dynamics", 0, 127},
    {KRT_PLX_CONTROLLER_PORTAMENTO, "portamento", 0, 127},
    {KRT_PLX_CONTROLLER_PITCH_BEND_SENS, "pitchBendSens", 0, 24},
    {KRT_PLX_CONTROLLER_PITCH_BEND, "pitchBend", -8192, 8191},
    {KRT_PLX_CONTROLLER_BREATHINESS, "breathiness", 0, 127},
    {KRT_PLX_CONTROLLER_BRIGHTNESS, "brightness", 0, 127},
    {KRT_PLX_CONTROLLER_CLEARNESS, "clearness", 0, 127},
    {KRT_PLX_CONTROLLER_VOICE_BLEND, "voiceBlend", 0, 127},
    {KRT_PLX_CONTROLLER_GROWL, "growl", 0, 127},
    {KRT_PLX_CONTROLLER_EXCITER, "exciter", -64, 63},
    {KRT_PLX_CONTROLLER_AIR, "air", 0, 127},
    {KRT_PLX_CONTROLLER_CHARACTER, "character", -64, 63},
}};

static_assert(types.size() == KRT_PLX_CONTROLLER_NONE);
static_assert([] {
    std::uint32_t code = 0;
    return std::ranges::all_of(types, [&](const Type& type) { return type.code == code++; });
}());

// An unknown controller has no name and accepts no value at all.
inline constexpr Type unknownType = {KRT_PLX_CONTROLLER_NONE, "",
                                     std::numeric_limits<std::int32_t>::max(),
                                     std::numeric_limits<std::int32_t>::min()};

constexpr const Type& type(std::uint32_t code)
{
    return code < types.size() ? types[code] : unknownType;
}

constexpr KRT_PLX_ControllerType fromName(std::string_view name)
{
    for (const Type& type : types) {
        if (type.name == name) {
            return type.code;
        }
    }
    return KRT_PLX_CONTROLLER_NONE;
}

} // namespace controller
} // namespace Korvel::CANTORIS::PLX
