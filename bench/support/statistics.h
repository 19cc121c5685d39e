#pragma once

#include <vector>

namespace bench {

// The middle value, the bounds of the middle half, and the extremes.
struct Summary {
    double least = 0;
    double lower = 0;
    double median = 0;
    double upper = 0;
    double most = 0;
};

Summary summarize(std::vector<double> samples);

// Sample by sample: those of one round belong together.
std::vector<double> ratios(const std::vector<double>& samples, const std::vector<double>& bases);

} // namespace bench
