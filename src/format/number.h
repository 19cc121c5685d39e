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
        integer,     // written without fraction and exponent
        wideInteger, // the same, beyond 32 bits
        real
    };

    // Of a real one, and only as good as its use wants it: as a 32-bit float, and held against
    // `largestFloat`, it is what the double nearest to the written number would be.
    double toDouble() const;

    Kind kind;
    bool isNegative;
    std::int32_t integer;
    const char* end; // behind the last character

    // Of a real one: its first digits, the power of ten of the last of them, and all that is written.
    std::uint64_t digits;
    std::int64_t exponent;
    Decimal decimal;
};

// The text ends with a NUL, at `textEnd`. False when it begins with no number by the letter of the grammar, and for
// one that is too large for a double.
bool readNumber(const char* text, const char* textEnd, Number& number);

} // namespace Korvel::CANTORIS::PLX::format
