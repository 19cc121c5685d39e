#include "clip/text_list.h"

#include <algorithm>
#include <limits>
#include <new>

namespace Korvel::CANTORIS::PLX {

namespace {

// The words before the units: the number of texts, their starts and the end.
constexpr std::size_t wordCount(std::size_t texts)
{
    return texts + 2;
}

std::uint32_t asWord(std::size_t number)
{
    if (number > std::numeric_limits<std::uint32_t>::max()) {
        throw std::bad_alloc();
    }
    return static_cast<std::uint32_t>(number);
}

} // namespace

TextList::TextList(const std::vector<StringView>& texts)
{
    if (texts.empty()) {
        return;
    }
    std::size_t unitCount = 0;
    for (const StringView text : texts) {
        unitCount += text.size() + 1;
    }
    const std::size_t wordBytes = wordCount(texts.size()) * sizeof(std::uint32_t);
    block_ = std::make_unique_for_overwrite<std::byte[]>(wordBytes + unitCount * sizeof(Char));
    auto* word = reinterpret_cast<std::uint32_t*>(block_.get());
    auto* const units = reinterpret_cast<Char*>(block_.get() + wordBytes);
    Char* unit = units;
    *word++ = asWord(texts.size());
    for (const StringView text : texts) {
        *word++ = asWord(static_cast<std::size_t>(unit - units));
        unit = std::copy(text.begin(), text.end(), unit);
        *unit++ = Char{};
    }
    *word = asWord(unitCount);
}

const std::uint32_t* TextList::words() const
{
    return reinterpret_cast<const std::uint32_t*>(block_.get());
}

const Char* TextList::units() const
{
    return reinterpret_cast<const Char*>(words() + wordCount(size()));
}

std::size_t TextList::size() const
{
    return block_ == nullptr ? 0 : *words();
}

StringView TextList::operator[](std::size_t index) const
{
    const std::uint32_t* const starts = words() + 1;
    return {units() + starts[index], starts[index + 1] - starts[index] - 1};
}

std::vector<StringView> TextList::views() const
{
    std::vector<StringView> views;
    views.reserve(size());
    for (std::size_t index = 0; index < size(); ++index) {
        views.push_back((*this)[index]);
    }
    return views;
}

} // namespace Korvel::CANTORIS::PLX
