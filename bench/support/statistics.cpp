#include "support/statistics.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace bench {

namespace {

// Between two samples where the place falls between them.
double quantile(const std::vector<double>& sorted, double fraction)
{
    const double place = fraction * static_cast<double>(sorted.size() - 1);
    const auto below = static_cast<std::size_t>(std::floor(place));
    const std::size_t above = std::min(below + 1, sorted.size() - 1);
    const double weight = place - static_cast<double>(below);
    return sorted[below] * (1 - weight) + sorted[above] * weight;
}

} // namespace

Summary summarize(std::vector<double> samples)
{
    if (samples.empty()) {
        return {};
    }
    std::sort(samples.begin(), samples.end());
    return {samples.front(), quantile(samples, 0.25), quantile(samples, 0.5),
            quantile(samples, 0.75), samples.back()};
}

std::vector<double> ratios(const std::vector<double>& samples, const std::vector<double>& bases)
{
    std::vector<double> result;
    for (std::size_t i = 0; i < std::min(samples.size(), bases.size()); ++i) {
        result.push_back(samples[i] / bases[i]);
    }
    return result;
}

} // namespace bench
