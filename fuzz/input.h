// The bytes of a fuzzer as the values that a harness asks for. Past the end they are zeros.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

#include "harness.h"

namespace fuzz {

class Input {
public:
    explicit Input(Bytes bytes) : rest_(bytes) {}

    [[nodiscard]] bool atEnd() const { return rest_.empty(); }

    // A number with all its bits from the input.
    template <class Number>
    Number number()
    {
        static_assert(std::is_trivially_copyable_v<Number>);
        Number value{};
        const std::size_t size = std::min(sizeof value, rest_.size());
        if (size != 0) {
            std::memcpy(&value, rest_.data(), size);
        }
        rest_ = rest_.subspan(size);
        return value;
    }

    // 0 to bound - 1, from a byte.
    std::size_t below(std::size_t bound) { return number<std::uint8_t>() % bound; }

    template <class List>
    const auto& oneOf(const List& list)
    {
        return list[below(std::size(list))];
    }

    // All that is left.
    std::string_view rest()
    {
        const std::string_view text(reinterpret_cast<const char*>(rest_.data()), rest_.size());
        rest_ = {};
        return text;
    }

private:
    Bytes rest_;
};

} // namespace fuzz
