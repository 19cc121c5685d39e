#include "clip/editable_text_list.h"

#include <algorithm>
#include <utility>

namespace Korvel::CANTORIS::PLX {

namespace {

// Tag lists are short. An index pays only where a search through all texts takes microseconds.
constexpr std::size_t searchLimit = 1024;

} // namespace

void EditableTextList::add(StringView text)
{
    if (has(text)) {
        return;
    }
    auto copy = std::make_unique<const String>(text);
    // Allocations, which can fail, come before the first change.
    if (texts_.size() == texts_.capacity()) {
        texts_.reserve(texts_.size() * 2 + 1);
    }
    if (index_.empty() && texts_.size() >= searchLimit) {
        indexAll();
    }
    if (!index_.empty()) {
        index_.insert(*copy);
    }
    texts_.push_back(std::move(copy));
}

bool EditableTextList::remove(StringView text)
{
    const auto found = find(text);
    if (found == texts_.end()) {
        return false;
    }
    index_.erase(text);
    texts_.erase(found);
    return true;
}

EditableTextList::Texts::const_iterator EditableTextList::find(StringView text) const
{
    return std::find_if(texts_.begin(), texts_.end(),
                        [text](const auto& own) { return *own == text; });
}

bool EditableTextList::has(StringView text) const
{
    return index_.empty() ? find(text) != texts_.end() : index_.contains(text);
}

void EditableTextList::indexAll()
{
    Index index;
    for (const auto& text : texts_) {
        index.insert(*text);
    }
    index_.swap(index);
}

} // namespace Korvel::CANTORIS::PLX
