#include "roll/meter.h"

#include <algorithm>
#include <array>
#include <functional>
#include <tuple>

#include "roll/layout.h"

namespace plxclip::roll {

namespace {

constexpr std::int64_t fewestBars = 4;
constexpr std::size_t fewestNotes = 8;
constexpr double leastFit = 0.8;
constexpr double leastLead = 0.15; // before the next meter

// Where notes begin, each place once; ascending.
std::vector<std::int64_t> onsetsOf(const std::vector<Note>& notes)
{
    std::vector<std::int64_t> onsets;
    for (const Note& note : notes) {
        onsets.push_back(note.pos);
    }
    std::ranges::sort(onsets);
    onsets.erase(std::unique(onsets.begin(), onsets.end()), onsets.end());
    return onsets;
}

// How many places stand at this tick of a bar.
std::int64_t countAt(const std::vector<std::int64_t>& onsets, std::int64_t tick, std::int64_t bar)
{
    return std::ranges::count_if(onsets,
                                 [&](std::int64_t onset) { return tickInBar(onset, bar) == tick; });
}

bool crossesBar(const Note& note, std::int64_t bar)
{
    return tickInBar(note.pos, bar) + note.duration > bar;
}

std::int64_t barsIn(const std::vector<Note>& notes, std::int64_t first, std::int64_t bar)
{
    std::int64_t last = first;
    for (const Note& note : notes) {
        last = std::max(last, endOf(note));
    }
    return barAt(last - 1, bar) - barAt(first - 1, bar);
}

// The share of bars with which a note begins, less the share of notes that cross into another bar: at
// most 1. Too few bars fit nothing.
double fitOf(const std::vector<Note>& notes, const std::vector<std::int64_t>& onsets,
             std::int64_t bar)
{
    const std::int64_t bars = barsIn(notes, onsets.front(), bar);
    if (bars < fewestBars) {
        return 0;
    }
    const auto crossing =
        std::ranges::count_if(notes, [bar](const Note& note) { return crossesBar(note, bar); });
    return static_cast<double>(countAt(onsets, 0, bar)) / static_cast<double>(bars) -
           static_cast<double>(crossing) / static_cast<double>(notes.size());
}

struct Candidate {
    Meter meter;
    double fit;
};

// Both have bars of the same length. In 6/8 the second beat is the fourth eighth, in 3/4 the third
// beat is the fifth.
Meter threeQuartersOrSixEighths(const std::vector<std::int64_t>& onsets, std::int64_t quarter)
{
    const std::int64_t bar = 3 * quarter;
    const bool isInTwo = 2 * countAt(onsets, bar / 2, bar) > 3 * countAt(onsets, 2 * quarter, bar);
    return isInTwo ? Meter{6, 8} : Meter{3, 4};
}

} // namespace

std::optional<Meter> guessMeter(const std::vector<Note>& notes, std::int64_t ticksPerQuarter)
{
    if (notes.size() < fewestNotes) {
        return std::nullopt;
    }
    const std::vector<std::int64_t> onsets = onsetsOf(notes);
    std::array<Candidate, 4> candidates = {{{{4, 4}, 0}, {{3, 4}, 0}, {{5, 4}, 0}, {{7, 8}, 0}}};
    for (Candidate& candidate : candidates) {
        const auto [beats, unit] = candidate.meter;
        candidate.fit = fitOf(notes, onsets, ticksPerQuarter * 4 / unit * beats);
    }
    std::ranges::sort(candidates, std::ranges::greater(), &Candidate::fit);
    const auto& [best, second] = std::tie(candidates[0], candidates[1]);
    if (best.fit < leastFit || best.fit - second.fit < leastLead) {
        return std::nullopt;
    }
    return best.meter == Meter{3, 4} ? threeQuartersOrSixEighths(onsets, ticksPerQuarter)
                                     : best.meter;
}

} // namespace plxclip::roll
