#include "check/decoding.h"

#include <array>
#include <cstdint>

namespace plxclip::check {

namespace {

struct Form {
    std::string_view name;
    std::string_view mark;
    unsigned zeros; // one bit a byte of the first four, set where it is not zero, first byte lowest
    std::size_t width;
    bool littleEndian;
};

using namespace std::string_view_literals;

// The four-byte marks come before the two-byte ones: one of them begins with one of these.
constexpr std::array<Form, 5> forms = {{
    {"UTF-32LE", "\xFF\xFE\x00\x00"sv, 0b0001, 4, true},
    {"UTF-32BE", "\x00\x00\xFE\xFF"sv, 0b1000, 4, false},
    {"UTF-16LE", "\xFF\xFE"sv, 0b0101, 2, true},
    {"UTF-16BE", "\xFE\xFF"sv, 0b1010, 2, false},
    {"UTF-8", "\xEF\xBB\xBF"sv, 0b1111, 1, true},
}};

unsigned zerosOf(std::string_view bytes)
{
    unsigned zeros = 0;
    for (unsigned place = 0; place < 4; ++place) {
        zeros |= bytes[place] != '\0' ? 1U << place : 0U;
    }
    return zeros;
}

// The form, and how many bytes its mark takes.
std::pair<Form, std::size_t> formOf(std::string_view bytes)
{
    for (const Form& form : forms) {
        if (bytes.starts_with(form.mark)) {
            return {form, form.mark.size()};
        }
    }
    const unsigned zeros = bytes.size() < 4 ? 0b1111 : zerosOf(bytes);
    for (const Form& form : forms) {
        if (form.zeros == zeros) {
            return {form, 0};
        }
    }
    return {forms.back(), 0};
}

char tail(char32_t point, unsigned shift)
{
    return static_cast<char>(0x80 | ((point >> shift) & 0x3F));
}

void append(std::string& utf8, char32_t point)
{
    if (point < 0x80) {
        utf8 += static_cast<char>(point);
    } else if (point < 0x800) {
        utf8 += {static_cast<char>(0xC0 | (point >> 6)), tail(point, 0)};
    } else if (point < 0x10000) {
        utf8 += {static_cast<char>(0xE0 | (point >> 12)), tail(point, 6), tail(point, 0)};
    } else {
        utf8 += {static_cast<char>(0xF0 | (point >> 18)), tail(point, 12), tail(point, 6),
                 tail(point, 0)};
    }
}

bool isIn(char32_t value, char32_t low, char32_t high)
{
    return low <= value && value <= high;
}

// The bytes of a document as units of two or four bytes.
class Units {
public:
    Units(std::string_view bytes, const Form& form) : source(bytes), shape(form) {}

    bool hasUnit() const { return source.size() - place >= shape.width; }
    bool atEnd() const { return place == source.size(); }
    std::size_t position() const { return place; }

    char32_t take()
    {
        char32_t unit = 0;
        for (std::size_t byte = 0; byte < shape.width; ++byte) {
            const std::size_t shift = 8 * (shape.littleEndian ? byte : shape.width - 1 - byte);
            unit |= static_cast<char32_t>(static_cast<unsigned char>(source[place + byte]))
                    << shift;
        }
        place += shape.width;
        return unit;
    }

    // None where the bytes are no code point.
    std::optional<char32_t> takePoint()
    {
        if (!hasUnit()) {
            return std::nullopt;
        }
        const char32_t first = take();
        if (!isIn(first, 0xD800, 0xDFFF)) {
            return first <= 0x10FFFF ? std::optional(first) : std::nullopt;
        }
        if (shape.width == 4 || first >= 0xDC00 || !hasUnit()) {
            return std::nullopt;
        }
        const char32_t second = take();
        return isIn(second, 0xDC00, 0xDFFF)
                   ? std::optional(0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00))
                   : std::nullopt;
    }

private:
    std::string_view source;
    Form shape;
    std::size_t place = 0;
};

Decoded decodeUnits(std::string_view bytes, const Form& form, std::size_t markLength)
{
    Decoded result{.utf8 = {}, .encoding = form.name, .badByte = {}};
    result.utf8.reserve(bytes.size());
    Units units(bytes, form);
    while (!units.atEnd()) {
        const std::size_t start = units.position();
        const auto point = units.takePoint();
        if (!point) {
            result.badByte = markLength + start;
            break;
        }
        append(result.utf8, *point);
    }
    return result;
}

// How many bytes a code point at the front takes; 0 when there is none.
std::size_t sequenceLength(std::string_view bytes)
{
    const auto byte = [bytes](std::size_t index) -> char32_t {
        return index < bytes.size() ? static_cast<unsigned char>(bytes[index]) : 0;
    };
    const auto follow = [&](std::size_t from, std::size_t to) {
        for (std::size_t index = from; index < to; ++index) {
            if (!isIn(byte(index), 0x80, 0xBF)) {
                return std::size_t{0};
            }
        }
        return to;
    };
    const char32_t first = byte(0);
    if (first < 0x80) {
        return 1;
    }
    if (isIn(first, 0xC2, 0xDF)) {
        return follow(1, 2);
    }
    if (isIn(first, 0xE0, 0xEF)) {
        const bool good = isIn(byte(1), first == 0xE0 ? 0xA0 : 0x80, first == 0xED ? 0x9F : 0xBF);
        return good ? follow(2, 3) : 0;
    }
    if (isIn(first, 0xF0, 0xF4)) {
        const bool good = isIn(byte(1), first == 0xF0 ? 0x90 : 0x80, first == 0xF4 ? 0x8F : 0xBF);
        return good ? follow(2, 4) : 0;
    }
    return 0;
}

} // namespace

Decoded decode(std::string_view bytes)
{
    const auto [form, markLength] = formOf(bytes);
    bytes.remove_prefix(markLength);
    if (form.width > 1) {
        return decodeUnits(bytes, form, markLength);
    }
    Decoded result{.utf8 = std::string(bytes), .encoding = form.name, .badByte = {}};
    const std::size_t length = validUtf8Length(bytes);
    if (length < bytes.size()) {
        result.badByte = markLength + length;
        result.utf8.resize(length);
    }
    return result;
}

std::size_t utf16Length(std::string_view utf8)
{
    std::size_t length = 0;
    for (const char byte : utf8) {
        const auto value = static_cast<unsigned char>(byte);
        length += (value & 0xC0U) == 0x80U ? 0U : (value >= 0xF0U ? 2U : 1U);
    }
    return length;
}

std::size_t validUtf8Length(std::string_view bytes)
{
    std::size_t place = 0;
    while (place < bytes.size()) {
        const std::size_t length = sequenceLength(bytes.substr(place));
        if (length == 0) {
            break;
        }
        place += length;
    }
    return place;
}

} // namespace plxclip::check
