// One work, done by several contestants in turn, round after round, so that whatever else happens
// on the machine meets all of them alike.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "support/clock.h"
#include "support/table.h"

namespace bench {

struct Contestant {
    std::string name;
    std::function<void()> run;
    // Around each run, outside the measurement.
    std::function<void()> before = [] {};
    std::function<void()> after = [] {};
    // What the library may take at most, as a multiple of what this contestant takes.
    std::optional<Target> target = std::nullopt;
    // The figure is divided by this: how many things one run does, for a figure per thing.
    double things = 1;
};

// The first contestant is the one that the others are compared with: the library.
class Contest {
public:
    Contest(std::string work, std::size_t rounds) : work_(std::move(work)), rounds_(rounds) {}

    void add(Contestant contestant);

    // Also runs each contestant once beforehand, unmeasured, to warm the caches.
    void run(Clock clock, Table& table);

private:
    struct Entry {
        Contestant contestant;
        std::vector<double> samples;
    };

    void runRound(std::size_t first, Clock clock);
    [[nodiscard]] Row rowOf(const Entry& entry) const;

    std::string work_;
    std::size_t rounds_;
    std::vector<Entry> entries_;
};

} // namespace bench
