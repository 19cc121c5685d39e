#include "unicode.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace Korvel::CANTORIS::PLX {

namespace {

// What follows each kind of lead byte, and the lowest code point that may be written that way.
struct Form {
    unsigned char mask;
    unsigned char lead;
    unsigned char tails;
    char32_t least;
};
constexpr std::array<Form, 3> forms = {
    {{0xE0, 0xC0, 1, 0x80}, {0xF0, 0xE0, 2, 0x800}, {0xF8, 0xF0, 3, 0x10000}}};

// Reads the code point that starts at `at`, which is not an ASCII byte. Null for an invalid one.
const unsigned char* takeMultibyte(const Form& form, const unsigned char* at,
                                   const unsigned char* end, char32_t& point)
{
    if (end - at <= form.tails) {
        return nullptr;
    }
    point = *at & static_cast<unsigned char>(~form.mask);
    for (unsigned tail = 1; tail <= form.tails; ++tail) {
        if ((at[tail] & 0xC0) != 0x80) {
            return nullptr;
        }
        point = (point << 6) | (at[tail] & 0x3F);
    }
    const bool valid = point >= form.least && point <= lastCodePoint && !isSurrogate(point);
    return valid ? at + form.tails + 1 : nullptr;
}

const unsigned char* takeMultibyte(const unsigned char* at, const unsigned char* end,
                                   char32_t& point)
{
    for (const Form& form : forms) {
        if ((*at & form.mask) == form.lead) {
            return takeMultibyte(form, at, end, point);
        }
    }
    return nullptr;
}

// Texts are mostly ASCII, which is read eight bytes at a time.
constexpr std::ptrdiff_t blockSize = 8;

bool isAsciiBlock(const unsigned char* at)
{
    constexpr std::uint64_t highBits = 0x8080808080808080;
    std::uint64_t block = 0;
    std::memcpy(&block, at, sizeof block);
    return (block & highBits) == 0;
}

const unsigned char* skipAscii(const unsigned char* at, const unsigned char* end)
{
    while (end - at >= blockSize && isAsciiBlock(at)) {
        at += blockSize;
    }
    while (at != end && *at < 0x80) {
        ++at;
    }
    return at;
}

// Through arrays of its own, since the compiler cannot know that the two texts do not overlap.
Char* widenBlock(const unsigned char* at, Char* units)
{
    std::array<unsigned char, blockSize> bytes;
    std::array<Char, blockSize> wide;
    std::memcpy(bytes.data(), at, sizeof bytes);
    std::copy(bytes.begin(), bytes.end(), wide.begin());
    std::memcpy(units, wide.data(), sizeof wide);
    return units + blockSize;
}

// Writes the units of valid text to `units`, and returns where they end.
Char* decode(const unsigned char* at, const unsigned char* end, Char* units)
{
    while (at != end) {
        if (end - at >= blockSize && isAsciiBlock(at)) {
            units = widenBlock(at, units);
            at += blockSize;
            continue;
        }
        if (*at < 0x80) {
            *units++ = static_cast<Char>(*at++);
            continue;
        }
        char32_t point = 0;
        at = takeMultibyte(at, end, point);
        if (point < 0x10000) {
            *units++ = static_cast<Char>(point);
        } else {
            *units++ = static_cast<Char>(0xD7C0 + (point >> 10));
            *units++ = static_cast<Char>(0xDC00 + (point & 0x3FF));
        }
    }
    return units;
}

} // namespace

std::size_t validUtf8Length(std::string_view bytes)
{
    const auto* const begin = reinterpret_cast<const unsigned char*>(bytes.data());
    const auto* const end = begin + bytes.size();
    const auto* at = begin;
    char32_t point = 0;
    while ((at = skipAscii(at, end)) != end) {
        const auto* const next = takeMultibyte(at, end, point);
        if (next == nullptr) {
            break;
        }
        at = next;
    }
    return static_cast<std::size_t>(at - begin);
}

bool appendUtf16(String& text, std::string_view utf8)
{
    const bool isValid = isValidUtf8(utf8);
    if (isValid) {
        appendValidUtf16(text, utf8);
    }
    return isValid;
}

void appendValidUtf16(String& text, std::string_view utf8)
{
    const auto* const at = reinterpret_cast<const unsigned char*>(utf8.data());
    const std::size_t before = text.size();
    text.resize(before + utf8.size()); // UTF-16 never has more units than UTF-8 has bytes
    const Char* const end = decode(at, at + utf8.size(), text.data() + before);
    text.resize(static_cast<std::size_t>(end - text.data()));
}

bool appendUtf8(std::string& utf8, StringView text)
{
    const std::size_t before = utf8.size();
    const auto unitAt = [text](std::size_t index) -> char32_t {
        return index < text.size() ? text[index] : 0;
    };
    for (std::size_t index = 0; index < text.size();) {
        char32_t point = 0;
        if (!takeCodePoint(unitAt, index, point)) {
            utf8.resize(before);
            return false;
        }
        std::array<char, 4> bytes;
        utf8.append(bytes.data(), encodeUtf8(point, bytes.data()));
    }
    return true;
}

} // namespace Korvel::CANTORIS::PLX
