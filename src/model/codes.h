// The codes of part types and controller types, and the words that documents use for them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

namespace Korvel::CANTORIS::PLX {

namespace part_type {

inline constexpr std::uint32_t audio = 1;
inline constexpr std::uint32_t midiAi = 2;
inline constexpr std::uint32_t midi = 3;
inline constexpr std::uint32_t none = 4;

// Indexed by code; the empty text stands for a code that documents cannot contain.
inline constexpr std::array<std::string_view, 4> names = {"", "audio", "midiAi", "midi"};

constexpr std::string_view name(std::uint32_t code)
{
    return code < names.size() ? names[code] : std::string_view{};
}

constexpr std::uint32_t fromName(std::string_view name)
{
    for (std::uint32_t code = audio; code < names.size(); ++code) {
        if (names[code] == name) {
            return code;
        }
    }
    return none;
}

constexpr bool isMidi(std::uint32_t code)
{
    return code == midiAi || code == midi;
}

} // namespace part_type

namespace controller {

struct Type {
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
    {"dynamics", 0, 127},
    {"portamento", 0, 127},
    {"pitchBendSens", 0, 24},
    {"pitchBend", -8192, 8191},
    {"breathiness", 0, 127},
    {"brightness", 0, 127},
    {"clearness", 0, 127},
    {"voiceBlend", 0, 127},
    {"growl", 0, 127},
    {"exciter", -64, 63},
    {"air", 0, 127},
    {"character", -64, 63},
}};

inline constexpr std::uint32_t unknown = types.size();

// An unknown controller has no name and accepts no value at all.
inline constexpr Type unknownType = {"", std::numeric_limits<std::int32_t>::max(),
                                     std::numeric_limits<std::int32_t>::min()};

constexpr const Type& type(std::uint32_t code)
{
    return code < types.size() ? types[code] : unknownType;
}

constexpr std::uint32_t fromName(std::string_view name)
{
    for (std::uint32_t code = 0; code < types.size(); ++code) {
        if (types[code].name == name) {
            return code;
        }
    }
    return unknown;
}

} // namespace controller
} // namespace Korvel::CANTORIS::PLX
