// Converts between UTF-8, the encoding of documents and of some systems' file names, and the
// library's UTF-16. Both are read strictly: no overlong sequences, no lone surrogates, nothing
// beyond the last code point.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "text.h"

namespace Korvel::CANTORIS::PLX {

inline constexpr char32_t lastCodePoint = 0x10FFFF;

constexpr bool isHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool isLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

constexpr bool isSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDFFF;
}

constexpr char32_t joinSurrogates(char32_t high, char32_t low)
{
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

// Reads the code point at `index` of UTF-16 text and moves `index` past it. False for a lone
// surrogate. `unitAt(i)` returns a unit, and 0 beyond the end.
template <class UnitAt>
bool takeCodePoint(const UnitAt& unitAt, std::size_t& index, char32_t& point)
{
    point = unitAt(index++);
    if (!isSurrogate(point)) {
        return true;
    }
    const char32_t next = unitAt(index);
    if (!isHighSurrogate(point) || !isLowSurrogate(next)) {
        return false;
    }
    point = joinSurrogates(point, next);
    ++index;
    return true;
}

// Writes the code point to `bytes`, which has room for four, and returns how many bytes it wrote.
inline std::size_t encodeUtf8(char32_t point, char* bytes)
{
    const auto tail = [point](unsigned shift) {
        return static_cast<char>(0x80 | ((point >> shift) & 0x3F));
    };
    if (point < 0x80) {
        bytes[0] = static_cast<char>(point);
        return 1;
    }
    if (point < 0x800) {
        bytes[0] = static_cast<char>(0xC0 | (point >> 6));
        bytes[1] = tail(0);
        return 2;
    }
    if (point < 0x10000) {
        bytes[0] = static_cast<char>(0xE0 | (point >> 12));
        bytes[1] = tail(6);
        bytes[2] = tail(0);
        return 3;
    }
    bytes[0] = static_cast<char>(0xF0 | (point >> 18));
    bytes[1] = tail(12);
    bytes[2] = tail(6);
    bytes[3] = tail(0);
    return 4;
}

// How many bytes at the beginning are valid UTF-8.
std::size_t validUtf8Length(std::string_view bytes);

inline bool isValidUtf8(std::string_view bytes)
{
    return validUtf8Length(bytes) == bytes.size();
}

// Appends the text in the other encoding. False, and nothing appended, when it is not valid.
bool appendUtf16(String& text, std::string_view utf8);
bool appendUtf8(std::string& utf8, StringView text);

// The same for text that is known to be valid.
void appendValidUtf16(String& text, std::string_view utf8);

} // namespace Korvel::CANTORIS::PLX
