#include "fix/numbers.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace plxclip::fix {

namespace {

bool isIn(const keys::Range& range, double value)
{
    return (range.takesZero && value == 0) || (range.minimum <= value && value <= range.maximum);
}

template <class Number>
std::optional<Number> parse(std::string_view text)
{
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && rest == end ? std::optional(number) : std::nullopt;
}

// The digits of a number, and the power of ten of the last one.
struct Decimal {
    std::string digits;
    int power;
};

std::optional<Decimal> decimalOf(std::string_view number)
{
    const std::size_t letter = std::min(number.find_first_of("eE"), number.size());
    std::string digits(number.substr(0, letter));
    std::string_view exponent = number.substr(std::min(letter + 1, number.size()));
    exponent.remove_prefix(exponent.starts_with('+') ? 1 : 0);
    const std::size_t point = digits.find('.');
    const std::size_t fraction = point == std::string::npos ? 0 : digits.size() - point - 1;
    std::erase(digits, '.');
    const auto power =
        exponent.empty() ? std::optional<std::int16_t>(0) : parse<std::int16_t>(exponent);
    if (!power || fraction > 1000) {
        return std::nullopt;
    }
    return Decimal{digits, *power - static_cast<int>(fraction)};
}

} // namespace

std::optional<std::string> wholeIn(const keys::Range& range, std::string_view number, int power)
{
    constexpr int mostZeros = 10; // no integer of 32 bits has more
    const bool isNegative = number.starts_with('-');
    std::optional<Decimal> decimal = decimalOf(number.substr(isNegative ? 1 : 0));
    if (!decimal) {
        return std::nullopt;
    }
    std::string& digits = decimal->digits;
    int zeros = decimal->power + power;
    for (; digits.ends_with('0'); ++zeros) {
        digits.pop_back();
    }
    digits.erase(0, digits.find_first_not_of('0'));
    if (digits.empty()) {
        return isIn(range, 0) ? std::optional<std::string>("0") : std::nullopt;
    }
    if (zeros < 0 || zeros > mostZeros) {
        return std::nullopt;
    }
    const std::string whole =
        (isNegative ? "-" : "") + digits + std::string(static_cast<std::size_t>(zeros), '0');
    const auto value = parse<std::int32_t>(whole);
    return value && isIn(range, *value) ? std::optional(whole) : std::nullopt;
}

std::optional<std::string> realIn(const keys::Range& range, std::string_view integer)
{
    const auto value = parse<std::int32_t>(integer);
    return value && isIn(range, *value) ? std::optional(std::string(integer) + ".0") : std::nullopt;
}

} // namespace plxclip::fix
