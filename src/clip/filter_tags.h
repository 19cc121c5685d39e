// The tags of a catalogue clip, which are read from a document all at once.
#pragma once

#include <vector>

#include "clip/tag_lists.h"
#include "clip/text_list.h"

namespace Korvel::CANTORIS::PLX {

class FilterTags : public TagLists<TextList> {
public:
    // Appends, in order, the texts that the list accepts and does not contain yet. The time is
    // nearly linear in their number, because a document may contain any number.
    void addAll(Tag tag, const std::vector<StringView>& texts);
    void addAllLanguages(const Languages& numbers);

    // Swaps one list as a whole.
    void exchange(Tag tag, TextList& texts) noexcept { list(tag).swap(texts); }
};

} // namespace Korvel::CANTORIS::PLX
