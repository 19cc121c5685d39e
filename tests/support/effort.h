// How much the tests try where every step takes several times as long, under Wine and in sanitized
// builds. The other builds run the same tests in full.
#pragma once

namespace support {

#if defined(KRT_PLX_TESTS_SANITIZED)
inline constexpr bool isSanitized = true; // the library, if not the tests
#else
inline constexpr bool isSanitized = false;
#endif

#if defined(_WIN32)
inline constexpr bool isSlow = true;
#else
inline constexpr bool isSlow = isSanitized;
#endif

// How many random clips or sequences.
constexpr unsigned seeds(unsigned number)
{
    return isSlow ? (number + 2) / 3 : number;
}

} // namespace support
