// The one table that a run prints: what each contestant of each work took, and how many times that
// of the library it is.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

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

class Table {
public:
    void add(Row row) { rows_.push_back(std::move(row)); }

    // As a table of Markdown.
    void print(std::ostream& out) const;

    [[nodiscard]] int missedTargets() const;

private:
    std::vector<Row> rows_;
};

} // namespace bench
