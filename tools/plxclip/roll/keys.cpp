#include "roll/keys.h"

#include <algorithm>

namespace plxclip::roll {

namespace {

constexpr std::uint32_t beside = 2; // keys above and below the notes
constexpr std::uint32_t octave = 12;

KeyRange withNeighbours(const KeyRange& range)
{
    return {range.lowest - std::min(range.lowest, beside), std::min(range.highest + beside, 127U)};
}

} // namespace

std::vector<KeyRange> keyRanges(const KeySet& wanted)
{
    std::vector<KeyRange> ranges;
    for (std::uint32_t key = 0; key < wanted.size(); ++key) {
        if (!wanted[key]) {
            continue;
        }
        if (ranges.empty() || key - ranges.back().highest > octave) {
            ranges.push_back({key, key});
        }
        ranges.back().highest = key;
    }
    if (ranges.empty()) {
        return {{60, 72}};
    }
    std::ranges::transform(ranges, ranges.begin(), withNeighbours);
    std::ranges::reverse(ranges);
    return ranges;
}

std::vector<KeyRange> keyRanges(const std::vector<Note>& notes)
{
    KeySet wanted = {};
    for (const Note& note : notes) {
        wanted[std::min(note.number, 127U)] = true;
    }
    return keyRanges(wanted);
}

} // namespace plxclip::roll
