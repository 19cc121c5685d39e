#include "data/json_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <stdexcept>

namespace bench {

namespace {

bool needsEscape(char c)
{
    return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\';
}

template <class Number>
std::string shortest(Number value)
{
    std::array<char, 32> digits{};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    return {digits.data(), result.ptr};
}

} // namespace

JsonText& JsonText::key(std::string_view name)
{
    separate();
    quote(name);
    text_ += ':';
    needsComma_ = false;
    return *this;
}

void JsonText::string(std::string_view text)
{
    separate();
    quote(text);
}

void JsonText::integer(std::int64_t value)
{
    separate();
    text_ += shortest(value);
}

void JsonText::real(double value)
{
    separate();
    const std::string digits = shortest(value);
    text_ += digits;
    if (digits.find_first_of(".e") == std::string::npos) {
        text_ += ".0";
    }
}

void JsonText::boolean(bool value)
{
    separate();
    text_ += value ? "true" : "false";
}

void JsonText::open(char bracket)
{
    separate();
    text_ += bracket;
    needsComma_ = false;
}

void JsonText::close(char bracket)
{
    text_ += bracket;
    needsComma_ = true;
}

void JsonText::separate()
{
    if (needsComma_) {
        text_ += ',';
    }
    needsComma_ = true;
}

void JsonText::quote(std::string_view text)
{
    if (std::any_of(text.begin(), text.end(), needsEscape)) {
        throw std::invalid_argument("a text of the benchmark needs an escape");
    }
    text_ += '"';
    text_ += text;
    text_ += '"';
}

} // namespace bench
