// How the numbers of a document are read. No locale has a part in it.
#pragma once

#include <cstdint>

#include "format/decimal.h"

namespace Korvel::CANTORIS::PLX::format {

// Doubles beyond this in either direction are no floats. It lies a little below the largest one.
inline constexpr double largestFloat = 3.4028234e38;

// A number as it stands in a document.
struct Number {
    enum class Kind : std::uint8_t {
        none,        // no number by the letter of the grammar, or too large for a double
        integer,     // written without fraction and exponent
        wideInteger, // the same, beyond 32 bits
        real
    };

    // Of a real one, and only as good as its use wants it: as a 32-bit float, and held against
    // `largestFloat`, it is what the double nearest to the written number would be.
    double toDouble() const;

    Kind kind = Kind::none;
    bool isNegative = false;
    std::int32_t integer = 0;
    const char* end = nullptr; // behind the last character

    // Of a real one: its first digits, the power of ten of the last of them, and all that is written.
    std::uint64_t digits = 0;
    std::int64_t exponent = 0;
    Decimal decimal = {};
};

// The text ends with a NUL.
Number readNumber(const char* text);

} // namespace Korvel::CANTORIS::PLX::format
