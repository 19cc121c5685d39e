#include "format/unicode.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <optional>

namespace Korvel::CANTORIS::PLX::format {

namespace {

constexpr char32_t lastCodePoint = 0x10FFFF;

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

struct Mark {
    std::string_view bytes;
    Encoding encoding;
};

// The four-byte marks come first: one of them begins with a two-byte one.
constexpr std::array<Mark, 5> marks = {{
    {{"\xFF\xFE\x00\x00", 4}, Encoding::utf32LittleEndian},
    {{"\x00\x00\xFE\xFF", 4}, Encoding::utf32BigEndian},
    {{"\xEF\xBB\xBF", 3}, Encoding::utf8},
    {{"\xFF\xFE", 2}, Encoding::utf16LittleEndian},
    {{"\xFE\xFF", 2}, Encoding::utf16BigEndian},
}};

// One bit a byte of the first four, set where it is not zero, first byte lowest.
Encoding encodingByZeros(std::string_view bytes)
{
    unsigned pattern = 0;
    for (unsigned place = 0; place < 4; ++place) {
        pattern |= bytes[place] != '\0' ? 1U << place : 0U;
    }
    switch (pattern) {
    case 0b1000:
        return Encoding::utf32BigEndian;
    case 0b0001:
        return Encoding::utf32LittleEndian;
    case 0b1010:
        return Encoding::utf16BigEndian;
    case 0b0101:
        return Encoding::utf16LittleEndian;
    default:
        return Encoding::utf8;
    }
}

void appendCodePoint(std::string& utf8, char32_t point)
{
    const auto tail = [point](unsigned shift) {
        return static_cast<char>(0x80 | ((point >> shift) & 0x3F));
    };
    if (point < 0x80) {
        utf8.push_back(static_cast<char>(point));
    } else if (point < 0x800) {
        utf8.append({static_cast<char>(0xC0 | (point >> 6)), tail(0)});
    } else if (point < 0x10000) {
        utf8.append({static_cast<char>(0xE0 | (point >> 12)), tail(6), tail(0)});
    } else {
        utf8.append({static_cast<char>(0xF0 | (point >> 18)), tail(12), tail(6), tail(0)});
    }
}

// The number that `Width` bytes at `at` make.
template <std::size_t Width, bool LittleEndian>
char32_t unitAt(const char* at)
{
    char32_t unit = 0;
    for (std::size_t place = 0; place < Width; ++place) {
        const std::size_t shift = 8 * (LittleEndian ? place : Width - 1 - place);
        unit |= static_cast<char32_t>(static_cast<unsigned char>(at[place])) << shift;
    }
    return unit;
}

template <bool LittleEndian>
std::optional<std::string> fromUtf16(std::string_view bytes)
{
    if (bytes.size() % 2 != 0) {
        return std::nullopt;
    }
    std::string utf8;
    utf8.reserve(bytes.size());
    const char* const end = bytes.data() + bytes.size();
    for (const char* at = bytes.data(); at != end; at += 2) {
        char32_t point = unitAt<2, LittleEndian>(at);
        if (isSurrogate(point)) {
            const char32_t next = at + 2 != end ? unitAt<2, LittleEndian>(at + 2) : 0;
            if (!isHighSurrogate(point) || !isLowSurrogate(next)) {
                return std::nullopt;
            }
            point = joinSurrogates(point, next);
            at += 2;
        }
        appendCodePoint(utf8, point);
    }
    return utf8;
}

template <bool LittleEndian>
std::optional<std::string> fromUtf32(std::string_view bytes)
{
    if (bytes.size() % 4 != 0) {
        return std::nullopt;
    }
    std::string utf8;
    utf8.reserve(bytes.size() / 2);
    const char* const end = bytes.data() + bytes.size();
    for (const char* at = bytes.data(); at != end; at += 4) {
        const char32_t point = unitAt<4, LittleEndian>(at);
        if (isSurrogate(point) || point > lastCodePoint) {
            return std::nullopt;
        }
        appendCodePoint(utf8, point);
    }
    return utf8;
}

// The code point that starts at `at`, which is no ASCII byte, and the place behind it; no value when
// the bytes are not the one right form of it.
struct Decoded {
    char32_t point;
    const unsigned char* next;
};

std::optional<Decoded> decodeMultibyte(const unsigned char* at, const unsigned char* end)
{
    struct Form {
        unsigned char mask, lead;
        std::ptrdiff_t tails;
        char32_t least;
    };
    constexpr std::array<Form, 3> forms = {
        {{0xE0, 0xC0, 1, 0x80}, {0xF0, 0xE0, 2, 0x800}, {0xF8, 0xF0, 3, 0x10000}}};
    for (const Form& form : forms) {
        if ((*at & form.mask) != form.lead) {
            continue;
        }
        if (end - at <= form.tails) {
            return std::nullopt;
        }
        char32_t point = *at & static_cast<unsigned char>(~form.mask);
        for (std::ptrdiff_t tail = 1; tail <= form.tails; ++tail) {
            if ((at[tail] & 0xC0) != 0x80) {
                return std::nullopt;
            }
            point = (point << 6) | (at[tail] & 0x3F);
        }
        if (point < form.least || point > lastCodePoint || isSurrogate(point)) {
            return std::nullopt;
        }
        return Decoded{point, at + form.tails + 1};
    }
    return std::nullopt;
}

// Documents are mostly ASCII: eight bytes at a time.
const unsigned char* skipAscii(const unsigned char* at, const unsigned char* end)
{
    constexpr std::uint64_t highBits = 0x8080808080808080;
    while (end - at >= 8) {
        std::uint64_t block = 0;
        std::memcpy(&block, at, sizeof block);
        if ((block & highBits) != 0) {
            break;
        }
        at += 8;
    }
    while (at != end && *at < 0x80) {
        ++at;
    }
    return at;
}

bool isValidUtf8(std::string_view bytes)
{
    const auto* at = reinterpret_cast<const unsigned char*>(bytes.data());
    const auto* const end = at + bytes.size();
    while ((at = skipAscii(at, end)) != end) {
        const auto decoded = decodeMultibyte(at, end);
        if (!decoded) {
            return false;
        }
        at = decoded->next;
    }
    return true;
}

// Counted beforehand, so that a short text stays within the string object and a long one fits.
std::size_t utf16Length(std::string_view utf8)
{
    std::size_t units = 0;
    for (const char byte : utf8) {
        const auto value = static_cast<unsigned char>(byte);
        units += ((value & 0xC0) != 0x80 ? 1U : 0U) + (value >= 0xF0 ? 1U : 0U);
    }
    return units;
}

std::optional<std::string> transcode(std::string_view bytes, Encoding encoding)
{
    switch (encoding) {
    case Encoding::utf16LittleEndian:
        return fromUtf16<true>(bytes);
    case Encoding::utf16BigEndian:
        return fromUtf16<false>(bytes);
    case Encoding::utf32LittleEndian:
        return fromUtf32<true>(bytes);
    case Encoding::utf32BigEndian:
        return fromUtf32<false>(bytes);
    default:
        return std::nullopt;
    }
}

} // namespace

DetectedEncoding detectEncoding(std::string_view bytes)
{
    for (const Mark& mark : marks) {
        if (bytes.starts_with(mark.bytes)) {
            return {mark.encoding, mark.bytes.size()};
        }
    }
    return {bytes.size() < 4 ? Encoding::utf8 : encodingByZeros(bytes), 0};
}

bool makeUtf8(std::string& bytes)
{
    const DetectedEncoding detected = detectEncoding(bytes);
    if (detected.encoding == Encoding::utf8) {
        bytes.erase(0, detected.markLength);
        return isValidUtf8(bytes);
    }
    auto utf8 = transcode(std::string_view(bytes).substr(detected.markLength), detected.encoding);
    if (!utf8) {
        return false;
    }
    bytes = std::move(*utf8);
    return true;
}

String toUtf16(std::string_view utf8)
{
    utf8 = utf8.substr(0, utf8.find('\0'));
    String text;
    text.reserve(utf16Length(utf8));
    const auto* at = reinterpret_cast<const unsigned char*>(utf8.data());
    const auto* const end = at + utf8.size();
    while (at != end) {
        if (*at < 0x80) {
            text.push_back(static_cast<Char>(*at++));
            continue;
        }
        const auto decoded = decodeMultibyte(at, end);
        if (!decoded) {
            break;
        }
        if (decoded->point < 0x10000) {
            text.push_back(static_cast<Char>(decoded->point));
        } else {
            text.push_back(static_cast<Char>(0xD7C0 + (decoded->point >> 10)));
            text.push_back(static_cast<Char>(0xDC00 + (decoded->point & 0x3FF)));
        }
        at = decoded->next;
    }
    return text;
}

bool appendUtf8(std::string& utf8, StringView text)
{
    for (std::size_t index = 0; index < text.size(); ++index) {
        char32_t point = text[index];
        if (isSurrogate(point)) {
            const char32_t next = index + 1 < text.size() ? text[index + 1] : 0;
            if (!isHighSurrogate(point) || !isLowSurrogate(next)) {
                return false;
            }
            point = joinSurrogates(point, next);
            ++index;
        }
        appendCodePoint(utf8, point);
    }
    return true;
}

} // namespace Korvel::CANTORIS::PLX::format
