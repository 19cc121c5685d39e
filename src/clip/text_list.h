// A short list of texts in one block of memory: a catalogue holds hundreds of thousands of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "text.h"

namespace Korvel::CANTORIS::PLX {

class TextList {
public:
    TextList() = default;
    explicit TextList(const std::vector<StringView>& texts);

    std::size_t size() const;

    // NUL-terminated; valid as long as the list.
    StringView operator[](std::size_t index) const;

    std::vector<StringView> views() const;
    void swap(TextList& other) noexcept { block_.swap(other.block_); }

private:
    // The number of texts, then where each one starts among the units and where the last one ends,
    // then the units of all texts, each text with its NUL.
    const std::uint32_t* words() const;
    const Char* units() const;

    std::unique_ptr<std::byte[]> block_;
};

} // namespace Korvel::CANTORIS::PLX
