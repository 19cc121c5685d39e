/**
 * @file text.hpp
 * Texts of the C++ face: UTF-16 in and out, and the way from and to UTF-8.
 */
#ifndef KORVEL_FACE_TEXT_HPP
#define KORVEL_FACE_TEXT_HPP

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include <korvel/plx/common.h>

namespace korvel::plx {

/** One UTF-16 unit: `wchar_t` on Windows, `char16_t` elsewhere. */
using Char = KRT_PLX_Char;
/** `std::wstring` on Windows, `std::u16string` elsewhere. */
using String = std::basic_string<Char>;
/** `std::wstring_view` on Windows, `std::u16string_view` elsewhere. A view that the library
 *  returned lives as long as the C header says of the text, and a NUL stands behind it. */
using StringView = std::basic_string_view<Char>;

namespace detail {

/** Where the C function returned NULL, the view is empty and its data() is null. */
inline StringView view(const Char* text) noexcept
{
    return text != nullptr ? StringView(text) : StringView();
}

/** A text that has its NUL already and is not copied. */
struct BorrowedText {
    const Char* text;
    [[nodiscard]] constexpr const Char* c_str() const noexcept { return text; }
};

constexpr BorrowedText terminated(const Char* text) noexcept
{
    return {text};
}

inline BorrowedText terminated(const String& text) noexcept
{
    return {text.c_str()};
}

/** Nothing says that a NUL stands behind a view: it is copied. */
inline String terminated(StringView text)
{
    return String(text);
}

/** Whether a text argument is passed on without a copy: all but a view are. */
template <typename Text>
inline constexpr bool isBorrowed = noexcept(terminated(std::declval<const Text&>()));

inline constexpr char32_t replacement = 0xFFFD;

constexpr bool isHighSurrogate(char32_t unit) noexcept
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

constexpr bool isLowSurrogate(char32_t unit) noexcept
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

constexpr bool isSurrogate(char32_t point) noexcept
{
    return point >= 0xD800 && point <= 0xDFFF;
}

/** Takes one code point off the front of a text that is not empty. */
inline char32_t takePoint(StringView& text) noexcept
{
    const char32_t first = static_cast<char16_t>(text[0]);
    text.remove_prefix(1);
    if (!isSurrogate(first)) {
        return first;
    }
    const char32_t second = text.empty() ? 0 : static_cast<char16_t>(text[0]);
    if (!isHighSurrogate(first) || !isLowSurrogate(second)) {
        return replacement;
    }
    text.remove_prefix(1);
    return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
}

inline void appendByte(std::string& utf8, char32_t byte)
{
    utf8.push_back(static_cast<char>(static_cast<unsigned char>(byte)));
}

inline void appendPoint(std::string& utf8, char32_t point)
{
    if (point < 0x80) {
        appendByte(utf8, point);
        return;
    }
    if (point < 0x800) {
        appendByte(utf8, 0xC0 | (point >> 6));
    } else {
        if (point < 0x10000) {
            appendByte(utf8, 0xE0 | (point >> 12));
        } else {
            appendByte(utf8, 0xF0 | (point >> 18));
            appendByte(utf8, 0x80 | ((point >> 12) & 0x3F));
        }
        appendByte(utf8, 0x80 | ((point >> 6) & 0x3F));
    }
    appendByte(utf8, 0x80 | (point & 0x3F));
}

/** The first byte of a sequence: how many bytes follow, and what the first of them may be, by which
 *  overlong forms, surrogates and numbers above 0x10FFFF are refused. */
struct LeadByte {
    unsigned followers;
    char32_t bits;
    char32_t lowest;
    char32_t highest;
};

constexpr LeadByte leadByte(char32_t byte) noexcept
{
    if (byte >= 0xC2 && byte <= 0xDF) {
        return {1, byte & 0x1F, 0x80, 0xBF};
    }
    if (byte >= 0xE0 && byte <= 0xEF) {
        return {2, byte & 0x0F, byte == 0xE0 ? 0xA0U : 0x80U, byte == 0xED ? 0x9FU : 0xBFU};
    }
    if (byte >= 0xF0 && byte <= 0xF4) {
        return {3, byte & 0x07, byte == 0xF0 ? 0x90U : 0x80U, byte == 0xF4 ? 0x8FU : 0xBFU};
    }
    return {0, replacement, 0, 0};
}

/** Takes one code point off the front of UTF-8 that is not empty. What is none gives one
 *  replacement character for each sequence that breaks off, and one for each other byte. */
inline char32_t takePoint(std::string_view& utf8) noexcept
{
    const auto byteAt = [&](std::size_t index) -> char32_t {
        return static_cast<unsigned char>(utf8[index]);
    };
    const char32_t first = byteAt(0);
    LeadByte lead = first < 0x80 ? LeadByte{0, first, 0, 0} : leadByte(first);
    std::size_t length = 1;
    for (; length <= lead.followers; ++length) {
        if (length == utf8.size() || byteAt(length) < lead.lowest ||
            byteAt(length) > lead.highest) {
            lead.bits = replacement;
            break;
        }
        lead.bits = lead.bits << 6 | (byteAt(length) & 0x3F);
        lead.lowest = 0x80;
        lead.highest = 0xBF;
    }
    utf8.remove_prefix(length);
    return lead.bits;
}

inline void appendPoint(String& text, char32_t point)
{
    if (point >= 0x10000) {
        text.push_back(static_cast<Char>(0xD800 + ((point - 0x10000) >> 10)));
        text.push_back(static_cast<Char>(0xDC00 + ((point - 0x10000) & 0x3FF)));
    } else {
        text.push_back(static_cast<Char>(point));
    }
}

} // namespace detail

/** A text of the library as UTF-8; each lone surrogate becomes U+FFFD. */
inline std::string toUtf8(StringView text)
{
    std::string utf8;
    utf8.reserve(text.size());
    while (!text.empty()) {
        detail::appendPoint(utf8, detail::takePoint(text));
    }
    return utf8;
}

/** UTF-8 as the library takes it; what is no UTF-8 becomes U+FFFD. */
inline String fromUtf8(std::string_view utf8)
{
    String text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        detail::appendPoint(text, detail::takePoint(utf8));
    }
    return text;
}

} // namespace korvel::plx

#endif
