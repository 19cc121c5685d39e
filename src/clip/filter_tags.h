// The six tag lists of a filter and the rules by which tags enter and leave them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "clip/text_list.h"
#include "text.h"

namespace Korvel::CANTORIS::PLX {

enum class Tag : std::uint8_t { singerGroup, vendor, singerID, type, genre };
inline constexpr std::size_t textTagCount = 5;

class FilterTags {
public:
    using Languages = std::vector<std::int32_t>;

    const TextList& texts(Tag tag) const { return texts_[static_cast<std::size_t>(tag)]; }
    const Languages& languages() const { return languages_; }

    // Appends the text unless an equal one is there. False when this list takes no such text: null,
    // and, but for vendors, the empty text.
    bool add(Tag tag, const Char* text);

    // Appends the number unless it is there. False for a negative one.
    bool addLanguage(std::int32_t number);

    // Erases the equal element. False when there is none.
    bool remove(Tag tag, const Char* text);
    bool removeLanguage(std::int32_t number);

    // As adding one by one, in order, but near-linear in their number: for documents, which may hold
    // any amount. What a list would not take is left out.
    void addAll(Tag tag, const std::vector<StringView>& texts);
    void addAllLanguages(const Languages& numbers);

    // Swaps one list as a whole.
    void exchange(Tag tag, TextList& texts) noexcept { list(tag).swap(texts); }

private:
    TextList& list(Tag tag) { return texts_[static_cast<std::size_t>(tag)]; }

    std::array<TextList, textTagCount> texts_;
    Languages languages_;
};

} // namespace Korvel::CANTORIS::PLX
