// The words of the documents, in the order in which they are written.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "model/part.h"

namespace bench::keys {

inline constexpr std::array<const char*, aiValueCount> aiValues{
    "pitchFine",          "pitchDriftStart",      "pitchDriftEnd",      "pitchScalingCenter",
    "pitchScalingOrigin", "pitchTransitionStart", "pitchTransitionEnd", "amplitudeWhole",
    "amplitudeStart",     "amplitudeEnd",         "formantWhole",       "formantStart",
    "formantEnd"};

inline constexpr std::array<const char*, 12> controllers{
    "dynamics",  "portamento", "pitchBendSens", "pitchBend", "breathiness", "brightness",
    "clearness", "voiceBlend", "growl",         "exciter",   "air",         "character"};

inline constexpr std::array<const char*, 3> partTypes{"audio", "midiAi", "midi"};

// The place of a word in its list; the length of the list for a word that is not in it.
template <std::size_t N>
std::uint32_t indexOf(const std::array<const char*, N>& words, std::string_view word)
{
    const auto* const found = std::find(words.begin(), words.end(), word);
    return static_cast<std::uint32_t>(found - words.begin());
}

} // namespace bench::keys
