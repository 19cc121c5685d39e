#include "support/contest.h"

#include <iostream>

namespace bench {

namespace {

// A work that takes very long is not repeated as often as the others: a median of three will do.
constexpr double patience = 40;
constexpr std::size_t fewestRounds = 3;

} // namespace

void Contest::add(Contestant contestant)
{
    entries_.push_back({std::move(contestant), {}});
}

void Contest::run(Clock clock, Table& table)
{
    std::cerr << work_ << '\n';
    runRound(0, clock);
    for (Entry& entry : entries_) {
        entry.samples.clear();
    }
    const double begin = seconds(Clock::wall);
    for (std::size_t round = 0; round < rounds_; ++round) {
        if (round >= fewestRounds && seconds(Clock::wall) - begin > patience) {
            break;
        }
        runRound(round, clock);
    }
    for (const Entry& entry : entries_) {
        table.add(rowOf(entry));
    }
}

// Another one begins each time: none always follows the same one.
void Contest::runRound(std::size_t first, Clock clock)
{
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        Entry& entry = entries_[(first + i) % entries_.size()];
        entry.contestant.before();
        const double begin = seconds(clock);
        entry.contestant.run();
        const double end = seconds(clock);
        entry.contestant.after();
        entry.samples.push_back((end - begin) / entry.contestant.things);
    }
}

Row Contest::rowOf(const Entry& entry) const
{
    Row row{work_, entry.contestant.name, Unit::seconds, summarize(entry.samples)};
    const Entry& first = entries_.front();
    if (&entry != &first) {
        row.ratio = summarize(first.samples).median / row.figure.median;
        row.ratioSpread = summarize(ratios(first.samples, entry.samples));
    }
    row.target = entry.contestant.target;
    return row;
}

} // namespace bench
