#include "letters.h"

#include <numeric>
#include <utility>
#include <vector>

namespace plxclip {

namespace {

// How many letters must be changed, inserted, removed or exchanged with the next one to make one of
// the other.
std::size_t distanceOf(const std::string& one, const std::string& other)
{
    std::vector<std::size_t> last;
    std::vector<std::size_t> row;
    std::vector<std::size_t> next(other.size() + 1);
    std::iota(next.begin(), next.end(), 0);
    for (std::size_t i = 0; i < one.size(); ++i) {
        last = std::exchange(row, next);
        next[0] = i + 1;
        for (std::size_t j = 0; j < other.size(); ++j) {
            const std::size_t changed = row[j] + (one[i] == other[j] ? 0 : 1);
            next[j + 1] = std::min({changed, row[j + 1] + 1, next[j] + 1});
            if (i > 0 && j > 0 && one[i] == other[j - 1] && one[i - 1] == other[j]) {
                next[j + 1] = std::min(next[j + 1], last[j - 1] + 1);
            }
        }
    }
    return next.back();
}

} // namespace

std::string_view nearestWord(std::span<const std::string_view> known, std::string_view word)
{
    constexpr std::size_t longest = 64; // no word that is known is nearly as long
    std::string_view nearest;
    std::size_t least = std::max<std::size_t>(word.size() / 3, 1) + 1;
    for (const std::string_view each : word.size() > longest ? decltype(known)() : known) {
        const std::size_t distance =
            distanceOf(lowerCase(std::string(word)), lowerCase(std::string(each)));
        if (distance < least && distance < each.size()) {
            least = distance;
            nearest = each;
        }
    }
    return nearest;
}

} // namespace plxclip
