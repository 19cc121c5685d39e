// Choices for tests that try many things: the same ones for the same seed, on every system.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>

namespace support {

class Random {
public:
    explicit Random(std::uint32_t seed) : engine_(seed) {}

    // 0 to bound - 1.
    std::uint32_t below(std::size_t bound) { return static_cast<std::uint32_t>(engine_() % bound); }

    // Both bounds included.
    std::int32_t between(std::int32_t low, std::int32_t high)
    {
        return low + static_cast<std::int32_t>(below(static_cast<std::size_t>(high - low) + 1));
    }

    bool oneIn(std::size_t bound) { return below(bound) == 0; }

    template <class List>
    auto& oneOf(List& list)
    {
        return *std::next(std::begin(list), static_cast<std::ptrdiff_t>(below(std::size(list))));
    }

private:
    std::mt19937 engine_;
};

} // namespace support
