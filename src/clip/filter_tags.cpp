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

template <class List, class Value>
bool contains(const List& list, const Value& value)
{
    return std::find(list.begin(), list.end(), value) != list.end();
}

template <class List, class Value>
bool eraseFirst(List& list, const Value& value)
{
    const auto found = std::find(list.begin(), list.end(), value);
    if (found == list.end()) {
        return false;
    }
    list.erase(found);
    return true;
}

// Appends what `accepts` lets in and is not there yet. `Key` is what the index compares.
template <class Key, class List, class Items, class Accepts>
void appendDistinct(List& list, Items&& items, Accepts accepts)
{
    list.reserve(list.size() + items.size()); // the index refers into the list
    const bool scans = list.size() + items.size() <= scanLimit;
    std::set<Key> index;
    if (!scans) {
        index.insert(list.begin(), list.end());
    }
    for (auto& item : items) {
        if (!accepts(item) || (scans ? contains(list, item) : index.contains(Key(item)))) {
            continue;
        }
        list.push_back(std::move(item));
        if (!scans) {
            index.insert(Key(list.back()));
        }
    }
}

} // namespace

bool FilterTags::add(Tag tag, const Char* text)
{
    if (text == nullptr || !takes(tag, text)) {
        return false;
    }
    const StringView wanted = text;
    if (!contains(list(tag), wanted)) {
        list(tag).push_back(String(wanted)); // a copy first: the text may be an element's own
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
    return text != nullptr && eraseFirst(list(tag), StringView(text));
}

bool FilterTags::removeLanguage(std::int32_t number)
{
    return eraseFirst(languages_, number);
}

void FilterTags::addAll(Tag tag, Texts&& texts)
{
    appendDistinct<StringView>(list(tag), std::move(texts),
                               [tag](const String& text) { return takes(tag, text); });
}

void FilterTags::addAllLanguages(const Languages& numbers)
{
    appendDistinct<std::int32_t>(languages_, numbers,
                                 [](std::int32_t number) { return number >= 0; });
}

} // namespace Korvel::CANTORIS::PLX
