// A line of notes in words.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace plxclip {

struct MelodyNote {
    std::int32_t pos;
    std::int32_t duration;
    std::uint32_t number;
    std::string lyric;
};

struct Melody {
    std::vector<MelodyNote> notes;
    std::int32_t duration = 0; // up to the end of the last note or rest
};

// "C4:1 do D4:0.5 re R:1": the pitch or R for a rest, its length in beats of so many ticks, and what is
// sung, or "la" without it. Throws a Failure that names what is wrong.
Melody melodyOf(const std::string& text, std::int32_t ticksToTheBeat);

} // namespace plxclip
