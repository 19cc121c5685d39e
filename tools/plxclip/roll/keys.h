// Which keys a picture shows: those near its notes. Keys far from all notes are folded.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "snapshot.h"

namespace plxclip::roll {

// Both keys are included.
struct KeyRange {
    std::uint32_t lowest;
    std::uint32_t highest;

    std::uint32_t size() const { return highest - lowest + 1; }
};

// True for each key that is wanted.
using KeySet = std::array<bool, 128>;

// The ranges from the highest to the lowest, with two keys above and below the wanted ones. Where no
// key is wanted for more than an octave, a range ends. Without any key it is the octave of middle C.
std::vector<KeyRange> keyRanges(const KeySet& wanted);

// The same for all notes of a clip.
std::vector<KeyRange> keyRanges(const std::vector<Note>& notes);

} // namespace plxclip::roll
