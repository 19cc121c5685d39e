#include "format/number.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>
#include <limits>
#include <optional>

#include "format/rapidjson.h"

namespace Korvel::CANTORIS::PLX::format {

namespace {

// Any number of this many digits fits into 64 bits.
constexpr std::ptrdiff_t mostDigits = 19;
constexpr std::uint64_t leastOfMostDigits = 1'000'000'000'000'000'000;

bool isDigit(char letter)
{
    return '0' <= letter && letter <= '9';
}

// The guess is exact to a few units of its last place. That is enough for a float, except where the
// decimal and the guess could be on different sides of a border between two floats.
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

// Whether digits x 10^exponent is too large to be rounded to a double.
bool isTooLarge(std::uint64_t digits, std::int64_t exponent)
{
    constexpr std::uint64_t largestDigits = 1'797'693'134'862'315'807;
    constexpr std::int64_t largestExponent = 290;
    for (; digits < leastOfMostDigits; digits *= 10) {
        --exponent;
    }
    return exponent > largestExponent || (exponent == largestExponent && digits > largestDigits);
}

// The first digits of a decimal with more digits than fit, and the power of ten of the last of
// these.
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

// Ten to this power, times any digits, is nearer to zero than to the smallest positive float.
constexpr std::int64_t leastExponent = -64;

bool isZero(const Number& number)
{
    return number.digits == 0 || number.exponent < leastExponent;
}

// Keeps only as many digits of a real number as matter. False when it is too large.
bool settle(Number& number)
{
    constexpr std::int64_t mostExponent = 308;
    number.exponent = number.decimal.exponent;
    if (number.decimal.end - number.decimal.begin > mostDigits) {
        number.digits = firstDigits(number.decimal, number.exponent);
    }
    const bool canBeTooLarge = !isZero(number) && number.exponent > mostExponent - mostDigits;
    return !canBeTooLarge || !isTooLarge(number.digits, number.exponent);
}

// The value of eight digits, the first one in the lowest byte; nothing when not all bytes are
// digits.
std::optional<std::uint64_t> valueOfEight(std::uint64_t bytes)
{
    constexpr std::uint64_t zeros = 0x3030303030303030;
    constexpr std::uint64_t highHalves = 0xF0F0F0F0F0F0F0F0;
    const bool areDigits =
        (bytes & highHalves) == zeros && ((bytes + 0x0606060606060606) & highHalves) == zeros;
    if (!areDigits) {
        return std::nullopt;
    }
    const std::uint64_t digits = bytes - zeros;
    const std::uint64_t pairs = (digits * 10 + (digits >> 8)) & 0x00FF00FF00FF00FF;
    const std::uint64_t fours = (pairs * 100 + (pairs >> 16)) & 0x0000FFFF0000FFFF;
    return (fours * 10000 + (fours >> 32)) & 0xFFFFFFFF;
}

// Reads the digits at this place, which continue the value. With too many digits the value is
// meaningless.
std::uint64_t takeDigits(const char*& at, const char* textEnd, std::uint64_t value)
{
    if constexpr (std::endian::native == std::endian::little) {
        for (std::uint64_t bytes = 0; textEnd - at >= 8; at += 8) {
            std::memcpy(&bytes, at, sizeof bytes);
            const auto eight = valueOfEight(bytes);
            if (!eight) {
                break;
            }
            value = value * 100'000'000 + *eight;
        }
    }
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

// The exponent, from its E. False without one.
bool readExponent(const char*& at, std::int64_t& exponent)
{
    ++at;
    const bool isNegative = *at == '-';
    at += isNegative || *at == '+' ? 1 : 0;
    if (!isDigit(*at)) {
        return false;
    }
    const std::int64_t magnitude = takeExponent(at);
    exponent += isNegative ? -magnitude : magnitude;
    return true;
}

bool endsWrong(const char* at, Number& number)
{
    number.end = at;
    return false;
}

// The rest of a number that has a fraction or an exponent, from its point or its E.
bool readReal(const char* begin, const char* at, const char* textEnd, Number& number)
{
    number.decimal = {begin, at, 0};
    if (*at == '.') {
        const char* const point = at++;
        number.digits = takeDigits(at, textEnd, number.digits);
        number.decimal = {begin, at, point + 1 - at};
        if (number.decimal.exponent == 0) {
            return endsWrong(at, number);
        }
    }
    if ((*at == 'e' || *at == 'E') && !readExponent(at, number.decimal.exponent)) {
        return endsWrong(at, number);
    }
    number.kind = Number::Kind::real;
    number.end = at;
    return settle(number) || endsWrong(begin - (number.isNegative ? 1 : 0), number);
}

// --- Integers -----------------------------------------------------------------------------------------

void putInteger(std::uint64_t magnitude, std::ptrdiff_t length, Number& number)
{
    constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();
    if (length > mostDigits ||
        magnitude > static_cast<std::uint64_t>(largest + number.isNegative)) {
        number.kind = Number::Kind::wideInteger;
        return;
    }
    const auto value = static_cast<std::int64_t>(magnitude);
    number.kind = Number::Kind::integer;
    number.integer = static_cast<std::int32_t>(number.isNegative ? -value : value);
}

} // namespace

double Number::toDouble() const
{
    if (isZero(*this)) {
        return isNegative ? -0.0 : 0.0;
    }
    const double magnitude =
        settled(decimal, json::internal::StrtodNormalPrecision(static_cast<double>(digits),
                                                               static_cast<int>(exponent)));
    return isNegative ? -magnitude : magnitude;
}

bool readNumber(const char* text, const char* textEnd, Number& number)
{
    number.isNegative = *text == '-';
    const char* const begin = text + (number.isNegative ? 1 : 0);
    const char* at = begin;
    number.digits = 0;
    for (; isDigit(*at); ++at) { // mostly few
        number.digits = number.digits * 10 + digitOf(*at);
    }
    if (at == begin || (*begin == '0' && at - begin > 1)) {
        return endsWrong(at == begin ? at : begin + 1, number);
    }
    if (*at == '.' || *at == 'e' || *at == 'E') {
        return readReal(begin, at, textEnd, number);
    }
    putInteger(number.digits, at - begin, number);
    number.end = at;
    return true;
}

} // namespace Korvel::CANTORIS::PLX::format
