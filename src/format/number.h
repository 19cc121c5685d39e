// Reading the numbers of a document, independently of the locale.
#pragma once

#include <cstdint>

#include "format/decimal.h"

namespace Korvel::CANTORIS::PLX::format {

// Doubles beyond this, in either direction, do not fit into a float. It is a little below the
// largest float.
inline constexpr double largestFloat = 3.4028234e38;

// A number in a document.
struct Number {
    enum class Kind : std::uint8_t {
        integer,     // written without fraction and exponent
        wideInteger, // the same, beyond 32 bits
        real
    };

    // The value of a real number, exact enough for its use: converted to a 32-bit float, or
    // compared with `largestFloat`, it gives the same as the double nearest to the written number.
    double toDouble() const;

    Kind kind;
    bool isNegative;
    std::int32_t integer;
    const char* end; // after the last character

    // Of a real number: its first digits, the power of ten of the last of them, and all digits as
    // written.
    std::uint64_t digits;
    std::int64_t exponent;
    Decimal decimal;
};

// The text ends with a NUL, at `textEnd`. False when it does not begin with a number of JSON's
// grammar; then `end` is the first wrong character. False also for a number that is too large for a
// double; then `end` is its first character.
bool readNumber(const char* text, const char* textEnd, Number& number);

} // namespace Korvel::CANTORIS::PLX::format
