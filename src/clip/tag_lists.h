// Reading the six tag lists of a filter, however their texts are stored.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "text.h"

namespace Korvel::CANTORIS::PLX {

enum class Tag : std::uint8_t { singerGroup, vendor, singerID, type, genre };
inline constexpr std::size_t textTagCount = 5;

// Which texts a list accepts: all except the empty one, which only the list of vendors accepts.
inline bool takesText(Tag tag, StringView text)
{
    return tag == Tag::vendor || !text.empty();
}

inline bool takesLanguage(std::int32_t number)
{
    return number >= 0;
}

template <class TextList>
class TagLists {
public:
    using Languages = std::vector<std::int32_t>;

    const TextList& texts(Tag tag) const { return texts_[static_cast<std::size_t>(tag)]; }
    const Languages& languages() const { return languages_; }

protected:
    TextList& list(Tag tag) { return texts_[static_cast<std::size_t>(tag)]; }
    Languages& languageList() { return languages_; }

private:
    std::array<TextList, textTagCount> texts_;
    Languages languages_;
};

} // namespace Korvel::CANTORIS::PLX
