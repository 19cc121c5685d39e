// How much there is in a part: what this check counts in the document, and what a host gets.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace plxclip::check {

struct Contents {
    std::size_t notes = 0;
    std::size_t vibratoPoints = 0;
    std::size_t levelNames = 0;
    std::size_t lanes = 0;
    std::size_t events = 0;
    std::size_t audioEffects = 0;
    std::size_t midiEffects = 0;
    std::size_t parameters = 0;
    std::size_t aiLanguages = 0;
    // All numbers of the notes with what hangs on them, and of the events, added up in millionths:
    // whoever takes a number that the other does not has another sum. It may wrap.
    std::uint64_t values = 0;

    bool operator==(const Contents&) const = default;
};

inline constexpr std::int64_t millionths = 1'000'000;

inline std::int64_t inMillionths(float number)
{
    return std::llround(static_cast<double>(number) * static_cast<double>(millionths));
}

} // namespace plxclip::check
