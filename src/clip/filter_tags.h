// The tags of a catalogue clip, which come from a document all at once.
#pragma once

#include <vector>

#include "clip/tag_lists.h"
#include "clip/text_list.h"

namespace Korvel::CANTORIS::PLX {

class FilterTags : public TagLists<TextList> {
public:
    // Appends, in order, what the list takes and does not hold yet. Near-linear in their number: a
    // document may hold any amount.
    void addAll(Tag tag, const std::vector<StringView>& texts);
    void addAllLanguages(const Languages& numbers);

    // Swaps one list as a whole.
    void exchange(Tag tag, TextList& texts) noexcept { list(tag).swap(texts); }
};

} // namespace Korvel::CANTORIS::PLX
