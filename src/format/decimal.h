// Decimal numbers, exactly as they are written.
#pragma once

#include <cstdint>

namespace Korvel::CANTORIS::PLX::format {

// The digits, with or without a point among them, and the power of ten of the last one.
struct Decimal {
    const char* begin;
    const char* end;
    std::int64_t exponent;
};

inline unsigned digitOf(char letter)
{
    return static_cast<unsigned>(letter - '0');
}

// The double nearest to the decimal, as far as it matters for a border that lies within a few units of
// its last place: the border, or else a double on the decimal's side of it. The border lies in the
// middle of two 32-bit floats, or is `largestFloat`.
double besideBorder(const Decimal& decimal, double border);

} // namespace Korvel::CANTORIS::PLX::format
