// The tags of an editable clip, and the rules by which a host adds and removes them.
#pragma once

#include "clip/editable_text_list.h"
#include "clip/tag_lists.h"

namespace Korvel::CANTORIS::PLX {

class EditableTags : public TagLists<EditableTextList> {
public:
    // Appends the text unless the list has it already. False when the list does not accept the
    // text, and for null.
    bool add(Tag tag, const Char* text);

    // Appends the number unless the list has it already. False for a negative one.
    bool addLanguage(std::int32_t number);

    // Erases the equal element. False when there is none, and for null.
    bool remove(Tag tag, const Char* text);
    bool removeLanguage(std::int32_t number);
};

} // namespace Korvel::CANTORIS::PLX
