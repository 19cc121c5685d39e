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

    // A list of the same texts in the same memory. Lists that share it belong to one manager, which
    // is used by one thread at a time.
    TextList share() const noexcept;

private:
    // The last list that uses the block deletes it.
    struct Release {
        void operator()(std::byte* block) const noexcept;
    };

    // How many lists use the block, the number of texts, then where each text starts among the
    // units and where the last one ends, then the units of all texts, each text with its NUL.
    std::uint32_t* words() const;
    const Char* units() const;

    std::unique_ptr<std::byte[], Release> block_;
};

} // namespace Korvel::CANTORIS::PLX
