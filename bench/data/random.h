// Numbers that look random and are the same on every machine and with every standard library.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace bench {

// The splitmix64 generator.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next()
    {
        std::uint64_t mixed = state_ += 0x9E3779B97F4A7C15U;
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31U);
    }

    // From 0 up to, but not including, the limit.
    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(next() % limit); }

    // Both bounds included.
    std::int32_t between(std::int32_t least, std::int32_t most)
    {
        return least + static_cast<std::int32_t>(below(static_cast<std::size_t>(most - least) + 1));
    }

    std::uint32_t value(std::int32_t least, std::int32_t most)
    {
        return static_cast<std::uint32_t>(between(least, most));
    }

    bool oneIn(std::size_t count) { return below(count) == 0; }

    template <class T, std::size_t N>
    const T& oneOf(const std::array<T, N>& choices)
    {
        return choices[below(N)];
    }

    template <class T>
    void shuffle(std::vector<T>& items)
    {
        for (std::size_t i = items.size(); i > 1; --i) {
            std::swap(items[i - 1], items[below(i)]);
        }
    }

private:
    std::uint64_t state_;
};

} // namespace bench
