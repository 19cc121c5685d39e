// The tags of a catalogue clip, which are read from a document all at once.
#pragma once

#include <utility>
#include <vector>

#include "clip/tag_lists.h"
#include "clip/text_list.h"

namespace Korvel::CANTORIS::PLX {

class FilterTags : public TagLists<TextList> {
public:
    // The texts or numbers that a list accepts, without repetitions, in order. The time is nearly
    // linear in their number, because a document may contain any number.
    static TextList distinct(Tag tag, const std::vector<StringView>& texts);
    static Languages distinct(const Languages& numbers);

    void set(Tag tag, TextList texts) { list(tag) = std::move(texts); }
    void setLanguages(Languages numbers) { languageList() = std::move(numbers); }

    // Swaps one list as a whole.
    void exchange(Tag tag, TextList& texts) noexcept { list(tag).swap(texts); }
};

} // namespace Korvel::CANTORIS::PLX
