// Decimal numbers, exactly as written.
#pragma once

#include <cstdint>

namespace Korvel::CANTORIS::PLX::format {

// The digits, possibly with a point among them, and the power of ten of the last one.
struct Decimal {
    const char* begin;
    const char* end;
    std::int64_t exponent;
};

inline unsigned digitOf(char letter)
{
    return static_cast<unsigned>(letter - '0');
}

// For a decimal within a few units of the last place of a border. If the decimal is the border
// itself, returns the border, otherwise a double on the same side of the border as the decimal. The
// border is half-way between two 32-bit floats, or is `largestFloat`.
double besideBorder(const Decimal& decimal, double border);

} // namespace Korvel::CANTORIS::PLX::format
