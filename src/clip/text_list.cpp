#include "clip/text_list.h"

#include <algorithm>
#include <limits>
#include <new>

namespace Korvel::CANTORIS::PLX {

namespace {

// The words before those of the texts: how many lists use the block, and the number of texts.
constexpr std::size_t headWords = 2;

// The words before the units: those of the head, the starts of the texts and the end.
constexpr std::size_t wordCount(std::size_t texts)
{
    return headWords + texts + 1;
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
    block_.reset(new std::byte[wordBytes + unitCount * sizeof(Char)]);
    auto* const units = reinterpret_cast<Char*>(block_.get() + wordBytes);
    std::uint32_t* word = words();
    Char* unit = units;
    *word++ = 1;
    *word++ = asWord(texts.size());
    for (const StringView text : texts) {
        *word++ = asWord(static_cast<std::size_t>(unit - units));
        unit = std::copy(text.begin(), text.end(), unit);
        *unit++ = Char{};
    }
    *word = asWord(unitCount);
}

void TextList::Release::operator()(std::byte* block) const noexcept
{
    auto& users = *reinterpret_cast<std::uint32_t*>(block);
    if (--users == 0) {
        delete[] block;
    }
}

TextList TextList::share() const noexcept
{
    TextList other;
    if (block_ != nullptr) {
        ++*words();
        other.block_.reset(block_.get());
    }
    return other;
}

std::uint32_t* TextList::words() const
{
    return reinterpret_cast<std::uint32_t*>(block_.get());
}

const Char* TextList::units() const
{
    return reinterpret_cast<const Char*>(words() + wordCount(size()));
}

std::size_t TextList::size() const
{
    return block_ == nullptr ? 0 : words()[1];
}

StringView TextList::operator[](std::size_t index) const
{
    const std::uint32_t* const starts = words() + headWords;
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
