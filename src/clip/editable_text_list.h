// The texts that a host adds and removes one by one, in any number and of any length. No text is in
// the list twice, and they are in the order in which they were added.
#pragma once

#include <cstddef>
#include <memory>
#include <unordered_set>
#include <vector>

#include "text.h"

namespace Korvel::CANTORIS::PLX {

class EditableTextList {
public:
    std::size_t size() const { return texts_.size(); }

    // NUL-terminated; valid until the text is removed.
    StringView operator[](std::size_t index) const { return *texts_[index]; }

    // Appends the text unless the list has it already.
    void add(StringView text);

    // False when the text is not there.
    bool remove(StringView text);

private:
    using Texts = std::vector<std::unique_ptr<const String>>;
    using Index = std::unordered_set<StringView>;

    Texts::const_iterator find(StringView text) const;
    bool has(StringView text) const;
    void indexAll();

    Texts texts_;
    Index index_; // of all texts, or empty: a list gets an index when it is too long to be searched
};

} // namespace Korvel::CANTORIS::PLX
