#include "support/table.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace bench {

namespace {

struct Scale {
    double factor;
    const char* name;
};

constexpr std::array timeScales{Scale{1, "s"}, Scale{1e-3, "ms"}, Scale{1e-6, "µs"},
                                Scale{1e-9, "ns"}};
constexpr std::array byteScales{Scale{1048576, "MB"}, Scale{1024, "KB"}, Scale{1, "B"}};
constexpr std::array countScales{Scale{1, ""}};

template <std::size_t N>
Scale suitable(const std::array<Scale, N>& scales, double value)
{
    const auto fits = [&](const Scale& scale) { return std::abs(value) >= scale.factor; };
    const auto* const found = std::find_if(scales.begin(), scales.end(), fits);
    return found == scales.end() ? scales.back() : *found;
}

Scale scaleOf(Unit unit, double value)
{
    switch (unit) {
    case Unit::seconds:
        return suitable(timeScales, value);
    case Unit::bytes:
        return suitable(byteScales, value);
    case Unit::count:
        break;
    }
    return countScales.front();
}

// Three significant digits.
std::string number(double value)
{
    const int decimals = std::abs(value) >= 100 ? 0 : std::abs(value) >= 10 ? 1 : 2;
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    return text.data();
}

std::string range(const Summary& summary, double factor)
{
    return number(summary.lower / factor) + "–" + number(summary.upper / factor);
}

double measured(const Row& row)
{
    return row.ratio.value_or(row.figure.median);
}

bool isMet(const Row& row)
{
    return row.target->isBelow ? measured(row) < row.target->most
                               : measured(row) <= row.target->most;
}

std::string targetText(const Row& row)
{
    if (!row.target) {
        return "";
    }
    const Scale scale = row.ratio ? countScales.front() : scaleOf(row.unit, row.target->most);
    return std::string(row.target->isBelow ? "< " : "≤ ") +
           number(row.target->most / scale.factor) + " " + scale.name;
}

void printRow(std::ostream& out, const Row& row)
{
    const Scale scale = scaleOf(row.unit, row.figure.median);
    const bool varies = row.figure.least != row.figure.most;
    out << "| " << row.work << " | " << row.contestant << " | "
        << number(row.figure.median / scale.factor) << ' ' << scale.name << " | "
        << (varies ? range(row.figure, scale.factor) : "") << " | "
        << (row.ratio ? number(*row.ratio) : "") << " | "
        << (row.ratioSpread ? range(*row.ratioSpread, 1) : "") << " | " << targetText(row) << " | "
        << (row.target ? (isMet(row) ? "yes" : "**no**") : "") << " |\n";
}

} // namespace

void Table::add(const Row& row)
{
    if (isEmpty_) {
        out_
            << "| work | contestant | median | middle half | library ÷ it | middle half | target | "
               "met |\n|---|---|--:|--:|--:|--:|---|---|\n";
        isEmpty_ = false;
    }
    printRow(out_, row);
    out_.flush();
    missedTargets_ += row.target && !isMet(row) ? 1 : 0;
}

} // namespace bench
