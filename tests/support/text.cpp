#include "support/text.h"

#include <cstddef>
#include <cstdint>
#include <stdexcept>

namespace support {
namespace {

constexpr char32_t highSurrogate = 0xD800;
constexpr char32_t lowSurrogate = 0xDC00;
constexpr char32_t endOfSurrogates = 0xE000;
constexpr char32_t firstSupplementary = 0x10000;

bool isHighSurrogate(char32_t unit)
{
    return unit >= highSurrogate && unit < lowSurrogate;
}

bool isLowSurrogate(char32_t unit)
{
    return unit >= lowSurrogate && unit < endOfSurrogates;
}

std::size_t followingBytes(unsigned char lead)
{
    if (lead < 0x80) {
        return 0;
    }
    if (lead >= 0xC2 && lead < 0xE0) {
        return 1;
    }
    if (lead >= 0xE0 && lead < 0xF0) {
        return 2;
    }
    if (lead >= 0xF0 && lead < 0xF5) {
        return 3;
    }
    throw std::invalid_argument("no UTF-8 in a test");
}

char32_t nextCodePoint(std::string_view& rest)
{
    const auto lead = static_cast<unsigned char>(rest.front());
    const std::size_t following = followingBytes(lead);
    if (rest.size() <= following) {
        throw std::invalid_argument("cut UTF-8 in a test");
    }
    char32_t point = following == 0 ? lead : lead & (0x3Fu >> following);
    for (std::size_t i = 1; i <= following; ++i) {
        point = point << 6 | (static_cast<unsigned char>(rest[i]) & 0x3Fu);
    }
    rest.remove_prefix(following + 1);
    return point;
}

std::u32string codePoints(std::string_view utf8)
{
    std::u32string points;
    while (!utf8.empty()) {
        points += nextCodePoint(utf8);
    }
    return points;
}

template <typename Unit>
void appendUtf16(std::basic_string<Unit>& units, char32_t point)
{
    if (point < firstSupplementary) {
        units += static_cast<Unit>(point);
        return;
    }
    const char32_t offset = point - firstSupplementary;
    units += static_cast<Unit>(highSurrogate + (offset >> 10));
    units += static_cast<Unit>(lowSurrogate + (offset & 0x3FF));
}

void appendUtf8(std::string& bytes, char32_t point)
{
    const std::size_t following = point < 0x80 ? 0 : point < 0x800 ? 1 : point < 0x10000 ? 2 : 3;
    constexpr unsigned leads[] = {0, 0xC0, 0xE0, 0xF0};
    bytes += static_cast<char>(leads[following] | point >> (6 * following));
    for (std::size_t i = following; i-- > 0;) {
        bytes += static_cast<char>(0x80 | ((point >> (6 * i)) & 0x3F));
    }
}

void appendBytes(std::string& bytes, char32_t unit, std::size_t width, bool bigEndian)
{
    for (std::size_t i = 0; i < width; ++i) {
        const std::size_t place = bigEndian ? width - 1 - i : i;
        bytes += static_cast<char>(unit >> (8 * place) & 0xFF);
    }
}

std::u32string units(const std::u32string& points, Encoding encoding)
{
    if (encoding == Encoding::utf32LittleEndian || encoding == Encoding::utf32BigEndian) {
        return points;
    }
    std::u32string result;
    for (const char32_t point : points) {
        appendUtf16(result, point);
    }
    return result;
}

} // namespace

Text text(std::string_view utf8)
{
    Text result;
    for (const char32_t point : codePoints(utf8)) {
        appendUtf16(result, point);
    }
    return result;
}

std::string utf8(const KRT_PLX_Char* text)
{
    if (text == nullptr) {
        return "<null>";
    }
    std::string bytes;
    while (*text != KRT_PLX_Char{}) {
        char32_t point = static_cast<char16_t>(*text++);
        if (isHighSurrogate(point) && isLowSurrogate(static_cast<char16_t>(*text))) {
            const char32_t low = static_cast<char16_t>(*text++);
            point = firstSupplementary + ((point - highSurrogate) << 10) + (low - lowSurrogate);
        }
        appendUtf8(bytes, point);
    }
    return bytes;
}

std::string utf8(const Text& text)
{
    return utf8(text.c_str());
}

std::string encode(std::string_view utf8, Encoding encoding, ByteOrderMark mark)
{
    std::string marked(mark == ByteOrderMark::with ? "\xEF\xBB\xBF" : "");
    marked += utf8;
    if (encoding == Encoding::utf8) {
        return marked;
    }
    const bool wide =
        encoding == Encoding::utf32LittleEndian || encoding == Encoding::utf32BigEndian;
    const bool bigEndian =
        encoding == Encoding::utf16BigEndian || encoding == Encoding::utf32BigEndian;
    std::string bytes;
    for (const char32_t unit : units(codePoints(marked), encoding)) {
        appendBytes(bytes, unit, wide ? 4 : 2, bigEndian);
    }
    return bytes;
}

} // namespace support
