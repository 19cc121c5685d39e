// The outermost numbers that an argument can have.
#pragma once

#include <cstdint>
#include <limits>

namespace support {

inline constexpr std::int32_t smallest = std::numeric_limits<std::int32_t>::min();
inline constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
inline constexpr std::uint32_t largestUnsigned = std::numeric_limits<std::uint32_t>::max();
inline constexpr std::uint64_t farAway = std::numeric_limits<std::uint64_t>::max(); // as an index

} // namespace support
