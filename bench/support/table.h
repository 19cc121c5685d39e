// The one table that a run prints: what each contestant of each work took, and how many times that
// of the library it is.
#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "support/statistics.h"

namespace bench {

enum class Unit { seconds, bytes, count };

// How large a ratio, or a figure itself, may be.
struct Target {
    double most = 0;
    bool isBelow = false; // the bound itself is too large
};

struct Row {
    std::string work;
    std::string contestant;
    Unit unit = Unit::seconds;
    Summary figure;
    // The library's median divided by this contestant's, and the spread of that round by round.
    std::optional<double> ratio = std::nullopt;
    std::optional<Summary> ratioSpread = std::nullopt;
    // Holds for the ratio where there is one, else for the figure.
    std::optional<Target> target = std::nullopt;
};

// Prints itself as a table of Markdown, row by row, as they come.
class Table {
public:
    explicit Table(std::ostream& out) : out_(out) {}

    void add(const Row& row);

    [[nodiscard]] int missedTargets() const { return missedTargets_; }

private:
    std::ostream& out_;
    bool isEmpty_ = true;
    int missedTargets_ = 0;
};

} // namespace bench
