#include "clip/filter_tags.h"

#include <algorithm>
#include <set>

namespace Korvel::CANTORIS::PLX {

namespace {

// Up to this many elements a scan of the list is quicker than an index.
constexpr std::size_t scanLimit = 16;

bool takes(Tag tag, StringView text)
{
    return tag == Tag::vendor || !text.empty();
}

template <class Value>
bool contains(const std::vector<Value>& list, const Value& value)
{
    return std::find(list.begin(), list.end(), value) != list.end();
}

// Appends the items that `accepts` lets in and that are not there yet.
template <class Value, class Accepts>
void appendDistinct(std::vector<Value>& list, const std::vector<Value>& items, Accepts accepts)
{
    const bool scans = list.size() + items.size() <= scanLimit;
    std::set<Value> index;
    if (!scans) {
        index.insert(list.begin(), list.end());
    }
    list.reserve(list.size() + items.size());
    for (const Value& item : items) {
        if (accepts(item) && (scans ? !contains(list, item) : index.insert(item).second)) {
            list.push_back(item);
        }
    }
}

} // namespace

bool FilterTags::add(Tag tag, const Char* text)
{
    if (text == nullptr || !takes(tag, text)) {
        return false;
    }
    if (list(tag).find(text) == list(tag).size()) {
        list(tag).append(text);
    }
    return true;
}

bool FilterTags::addLanguage(std::int32_t number)
{
    if (number < 0) {
        return false;
    }
    if (!contains(languages_, number)) {
        languages_.push_back(number);
    }
    return true;
}

bool FilterTags::remove(Tag tag, const Char* text)
{
    const std::size_t index = text == nullptr ? list(tag).size() : list(tag).find(text);
    if (index == list(tag).size()) {
        return false;
    }
    list(tag).erase(index);
    return true;
}

bool FilterTags::removeLanguage(std::int32_t number)
{
    const auto found = std::find(languages_.begin(), languages_.end(), number);
    if (found == languages_.end()) {
        return false;
    }
    languages_.erase(found);
    return true;
}

void FilterTags::addAll(Tag tag, const std::vector<StringView>& texts)
{
    auto all = list(tag).views();
    appendDistinct(all, texts, [tag](StringView text) { return takes(tag, text); });
    TextList(all).swap(list(tag));
}

void FilterTags::addAllLanguages(const Languages& numbers)
{
    appendDistinct(languages_, numbers, [](std::int32_t number) { return number >= 0; });
}

} // namespace Korvel::CANTORIS::PLX
