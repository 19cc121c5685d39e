// How the numbers of a document are read. No locale has a part in it.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "format/decimal.h"
#include "reference/tree.h"
#include "reference/values.h"

namespace Korvel::CANTORIS::PLX::reference {

namespace {

// Any number of this many digits fits into 64 bits.
constexpr std::ptrdiff_t mostDigits = 19;
constexpr std::uint64_t leastOfMostDigits = 1'000'000'000'000'000'000;

struct Number {
    enum class Kind : std::uint8_t {
        none,        // no number by the letter of the grammar, or too large for a double
        integer,     // written without fraction and exponent
        wideInteger, // the same, beyond 32 bits
        real
    };

    Kind kind = Kind::none;
    std::int32_t integer = 0;
    // Only as good as its use wants it: as a 32-bit float, and held against `largestFloat`, it is what
    // the double nearest to the written number would be.
    double real = 0;
    const char* end = nullptr; // behind the last character
};

bool isDigit(char letter)
{
    return '0' <= letter && letter <= '9';
}

// The guess is good to some units of its last place. That is enough for a float, except where the
// guess could lie on either side of a border between two.
double settled(const Decimal& decimal, double guess)
{
    constexpr double doubt = 0x1p-50;
    const double least = guess * (1 - doubt);
    const double most = guess * (1 + doubt);
    if (most >= largestFloat) {
        return least > largestFloat ? guess : besideBorder(decimal, largestFloat);
    }
    const auto below = static_cast<float>(least);
    const auto above = static_cast<float>(most);
    if (below == above) {
        return guess;
    }
    return besideBorder(decimal, (static_cast<double>(below) + static_cast<double>(above)) / 2);
}

// --- Fractions and exponents --------------------------------------------------------------------------

// Whether digits x 10^exponent is beyond what rounds to the largest double.
bool isTooLarge(std::uint64_t digits, std::int64_t exponent)
{
    constexpr std::uint64_t largestDigits = 1'797'693'134'862'315'807;
    constexpr std::int64_t largestExponent = 290;
    for (; digits < leastOfMostDigits; digits *= 10) {
        --exponent;
    }
    return exponent > largestExponent || (exponent == largestExponent && digits > largestDigits);
}

// The first digits of a decimal that has more than fit, and the power of ten of the last one of them.
std::uint64_t firstDigits(const Decimal& decimal, std::int64_t& exponent)
{
    std::uint64_t digits = 0;
    for (const char* at = decimal.begin; at != decimal.end; ++at) {
        if (*at == '.') {
            continue;
        }
        if (digits < leastOfMostDigits) {
            digits = digits * 10 + digitOf(*at);
        } else {
            ++exponent;
        }
    }
    return digits;
}

// False when the decimal is too large. The digits are all of it, if they fit.
bool convert(const Decimal& decimal, std::uint64_t digits, double& real)
{
    // Ten to this power, times any digits, is nearer to zero than to the least float.
    constexpr std::int64_t leastExponent = -64;
    constexpr std::int64_t mostExponent = 308;
    std::int64_t exponent = decimal.exponent;
    if (decimal.end - decimal.begin > mostDigits) {
        digits = firstDigits(decimal, exponent);
    }
    if (digits == 0 || exponent < leastExponent) {
        real = 0;
        return true;
    }
    if (exponent > mostExponent - mostDigits && isTooLarge(digits, exponent)) {
        return false;
    }
    real = settled(decimal, json::internal::StrtodNormalPrecision(static_cast<double>(digits),
                                                                  static_cast<int>(exponent)));
    return true;
}

// Takes what digits stand there, which go on the value. It means nothing when they were too many.
std::uint64_t takeDigits(const char*& at, std::uint64_t value)
{
    for (; isDigit(*at); ++at) {
        value = value * 10 + digitOf(*at);
    }
    return value;
}

// No exponent in a document is so large that the digits before it could make up for this.
std::int64_t takeExponent(const char*& at)
{
    constexpr std::int64_t enough = 1'000'000'000'000'000;
    std::int64_t exponent = 0;
    for (; isDigit(*at); ++at) {
        exponent = std::min(exponent * 10 + digitOf(*at), enough);
    }
    return exponent;
}

// The rest of a number that has a fraction or an exponent, from its point or its E.
Number readReal(const char* begin, const char* at, std::uint64_t digits)
{
    Decimal decimal{begin, at, 0};
    if (*at == '.') {
        const char* const point = at++;
        digits = takeDigits(at, digits);
        decimal = {begin, at, point + 1 - at};
        if (decimal.exponent == 0) {
            return {};
        }
    }
    if (*at == 'e' || *at == 'E') {
        ++at;
        const bool isNegative = *at == '-';
        at += isNegative || *at == '+' ? 1 : 0;
        if (!isDigit(*at)) {
            return {};
        }
        const std::int64_t exponent = takeExponent(at);
        decimal.exponent += isNegative ? -exponent : exponent;
    }
    Number number{.kind = Number::Kind::real, .end = at};
    return convert(decimal, digits, number.real) ? number : Number{};
}

// --- Integers -----------------------------------------------------------------------------------------

Number integer(std::uint64_t magnitude, bool isNegative, std::ptrdiff_t length, const char* end)
{
    constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();
    if (length > mostDigits || magnitude > static_cast<std::uint64_t>(largest + isNegative)) {
        return {.kind = Number::Kind::wideInteger, .end = end};
    }
    const auto value = static_cast<std::int64_t>(magnitude);
    return {.kind = Number::Kind::integer,
            .integer = static_cast<std::int32_t>(isNegative ? -value : value),
            .end = end};
}

// The text ends with a NUL.
Number readNumber(const char* text)
{
    const bool isNegative = *text == '-';
    const char* const begin = text + (isNegative ? 1 : 0);
    const char* at = begin;
    const std::uint64_t digits = takeDigits(at, 0);
    if (at == begin || (*begin == '0' && at - begin > 1)) {
        return {};
    }
    if (*at != '.' && *at != 'e' && *at != 'E') {
        return integer(digits, isNegative, at - begin, at);
    }
    Number number = readReal(begin, at, digits);
    number.real = isNegative ? -number.real : number.real;
    return number;
}

} // namespace

} // namespace Korvel::CANTORIS::PLX::reference

namespace Korvel::CANTORIS::PLX::format::json {

using reference::Number;
using reference::readNumber;

template <>
template <>
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): named for what they are here
void GenericReader<CheckedUtf8, CheckedUtf8, ThrowingAllocator>::ParseNumber<parseFlags>(Text& text,
                                                                                         reference::Tree& tree)
{
    const Number number = readNumber(text.src_);
    switch (number.kind) {
    case Number::Kind::integer:
        tree.Int(number.integer);
        break;
    case Number::Kind::wideInteger: // one stands for all: no key takes any
        tree.Uint64(std::numeric_limits<std::uint64_t>::max());
        break;
    case Number::Kind::real:
        tree.Double(number.real);
        break;
    default:
        SetParseError(kParseErrorValueInvalid, text.Tell());
        return;
    }
    text.src_ += number.end - text.src_;
}

} // namespace Korvel::CANTORIS::PLX::format::json
