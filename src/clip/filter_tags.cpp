#include "clip/filter_tags.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <tuple>
#include <utility>

namespace Korvel::CANTORIS::PLX {

namespace {

// Up to this many elements a scan of the list is quicker than sorting.
constexpr std::size_t scanLimit = 16;

// Marks the elements that repeat an earlier one. Sorting compares hashes first, which is faster
// than comparing texts. Elements with equal hashes are compared themselves, so that a document full
// of texts with the same hash makes this no slower than sorting by the texts.
template <class Value>
std::vector<bool> repetitions(const std::vector<Value>& list)
{
    std::vector<std::pair<std::size_t, std::size_t>> order; // hash and place
    order.reserve(list.size());
    for (std::size_t place = 0; place < list.size(); ++place) {
        order.emplace_back(std::hash<Value>{}(list[place]), place);
    }
    std::sort(order.begin(), order.end(), [&list](const auto& a, const auto& b) {
        return std::tie(a.first, list[a.second], a.second) <
               std::tie(b.first, list[b.second], b.second);
    });
    std::vector<bool> repeated(list.size());
    for (std::size_t i = 1; i < order.size(); ++i) {
        const std::size_t place = order[i].second;
        repeated[place] = list[order[i - 1].second] == list[place];
    }
    return repeated;
}

// Keeps the first of equal elements.
template <class Value>
void removeRepetitions(std::vector<Value>& list)
{
    const bool scans = list.size() <= scanLimit;
    const std::vector<bool> repeated = scans ? std::vector<bool>() : repetitions(list);
    auto end = list.begin();
    for (std::size_t place = 0; place < list.size(); ++place) {
        const Value value = list[place];
        if (scans ? std::find(list.begin(), end, value) == end : !repeated[place]) {
            *end++ = value;
        }
    }
    list.erase(end, list.end());
}

// The items that `accepts` allows, each once.
template <class Value, class Accepts>
std::vector<Value> distinctOf(const std::vector<Value>& items, Accepts accepts)
{
    std::vector<Value> list;
    list.reserve(items.size());
    std::copy_if(items.begin(), items.end(), std::back_inserter(list), accepts);
    removeRepetitions(list);
    return list;
}

} // namespace

TextList FilterTags::distinct(Tag tag, const std::vector<StringView>& texts)
{
    return TextList(distinctOf(texts, [tag](StringView text) { return takesText(tag, text); }));
}

FilterTags::Languages FilterTags::distinct(const Languages& numbers)
{
    return distinctOf(numbers, takesLanguage);
}

} // namespace Korvel::CANTORIS::PLX
