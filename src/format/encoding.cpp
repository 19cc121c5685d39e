#include "format/encoding.h"

#include <array>
#include <cstdint>
#include <optional>

#include "unicode.h"

namespace Korvel::CANTORIS::PLX::format {

namespace {

struct Mark {
    std::string_view bytes;
    Encoding encoding;
};

// The four-byte marks come first, because one of them begins with a two-byte one.
constexpr std::array<Mark, 5> marks = {{
    {{"\xFF\xFE\x00\x00", 4}, Encoding::utf32LittleEndian},
    {{"\x00\x00\xFE\xFF", 4}, Encoding::utf32BigEndian},
    {{"\xEF\xBB\xBF", 3}, Encoding::utf8},
    {{"\xFF\xFE", 2}, Encoding::utf16LittleEndian},
    {{"\xFE\xFF", 2}, Encoding::utf16BigEndian},
}};

// One bit for each of the first four bytes, set if the byte is not zero; the first byte is the
// lowest bit.
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
    std::array<char, 4> bytes;
    utf8.append(bytes.data(), encodeUtf8(point, bytes.data()));
}

// The number in the `Width` bytes at `at`.
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

// Appends what decodes. False when that is not all.
template <bool LittleEndian>
bool fromUtf16(std::string_view bytes, std::string& utf8)
{
    const std::size_t size = bytes.size() / 2;
    const auto unit = [bytes, size](std::size_t index) {
        return index < size ? unitAt<2, LittleEndian>(bytes.data() + 2 * index) : 0;
    };
    utf8.reserve(bytes.size());
    for (std::size_t index = 0; index < size;) {
        char32_t point = 0;
        if (!takeCodePoint(unit, index, point)) {
            return false;
        }
        appendCodePoint(utf8, point);
    }
    return bytes.size() % 2 == 0;
}

template <bool LittleEndian>
bool fromUtf32(std::string_view bytes, std::string& utf8)
{
    utf8.reserve(bytes.size() / 2);
    for (std::size_t place = 0; place + 4 <= bytes.size(); place += 4) {
        const char32_t point = unitAt<4, LittleEndian>(bytes.data() + place);
        if (isSurrogate(point) || point > lastCodePoint) {
            return false;
        }
        appendCodePoint(utf8, point);
    }
    return bytes.size() % 4 == 0;
}

char32_t unitOf(const char* at, Encoding encoding)
{
    switch (encoding) {
    case Encoding::utf16LittleEndian:
        return unitAt<2, true>(at);
    case Encoding::utf16BigEndian:
        return unitAt<2, false>(at);
    case Encoding::utf32LittleEndian:
        return unitAt<4, true>(at);
    case Encoding::utf32BigEndian:
        return unitAt<4, false>(at);
    default:
        return unitAt<1, true>(at);
    }
}

bool isJsonWhiteSpace(char32_t unit)
{
    return unit == U' ' || unit == U'\t' || unit == U'\n' || unit == U'\r';
}

bool transcode(std::string_view bytes, Encoding encoding, std::string& utf8)
{
    switch (encoding) {
    case Encoding::utf16LittleEndian:
        return fromUtf16<true>(bytes, utf8);
    case Encoding::utf16BigEndian:
        return fromUtf16<false>(bytes, utf8);
    case Encoding::utf32LittleEndian:
        return fromUtf32<true>(bytes, utf8);
    case Encoding::utf32BigEndian:
        return fromUtf32<false>(bytes, utf8);
    default:
        return false;
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

std::size_t widthOf(Encoding encoding)
{
    switch (encoding) {
    case Encoding::utf16LittleEndian:
    case Encoding::utf16BigEndian:
        return 2;
    case Encoding::utf32LittleEndian:
    case Encoding::utf32BigEndian:
        return 4;
    default:
        return 1;
    }
}

std::string blankIn(Encoding encoding)
{
    std::string blank(widthOf(encoding), '\0');
    const bool isLittleEndian =
        encoding != Encoding::utf16BigEndian && encoding != Encoding::utf32BigEndian;
    (isLittleEndian ? blank.front() : blank.back()) = ' ';
    return blank;
}

std::optional<char32_t> firstUnit(std::string_view bytes)
{
    const DetectedEncoding detected = detectEncoding(bytes);
    const std::size_t width = widthOf(detected.encoding);
    for (std::size_t place = detected.markLength; place + width <= bytes.size(); place += width) {
        const char32_t unit = unitOf(bytes.data() + place, detected.encoding);
        if (!isJsonWhiteSpace(unit)) {
            return unit;
        }
    }
    return std::nullopt;
}

bool makeUtf8(std::string& bytes)
{
    const DetectedEncoding detected = detectEncoding(bytes);
    if (detected.encoding == Encoding::utf8) {
        bytes.erase(0, detected.markLength);
        const std::size_t valid = validUtf8Length(bytes);
        const bool isValid = valid == bytes.size();
        if (!isValid) {
            bytes.resize(valid);
        }
        return isValid;
    }
    const auto encoded = std::string_view(bytes).substr(detected.markLength);
    std::string utf8;
    const bool isValid = transcode(encoded, detected.encoding, utf8);
    bytes = std::move(utf8);
    return isValid;
}

std::size_t placeInFile(std::string_view bytes, std::size_t place)
{
    const DetectedEncoding detected = detectEncoding(bytes);
    const std::size_t width = widthOf(detected.encoding);
    std::size_t at = detected.markLength;
    if (width == 1) {
        return at + place;
    }
    const auto unitAt = [&](std::size_t index) {
        const std::size_t start = detected.markLength + index * width;
        return start < bytes.size() ? unitOf(bytes.data() + start, detected.encoding) : 0;
    };
    std::size_t index = 0;
    for (std::size_t length = 0; length < place && at < bytes.size();) {
        char32_t point = unitAt(index);
        if (width == 2) {
            takeCodePoint(unitAt, index, point);
        } else {
            ++index;
        }
        std::array<char, 4> utf8; // NOLINT(cppcoreguidelines-pro-type-member-init)
        length += encodeUtf8(point, utf8.data());
        at = detected.markLength + index * width;
    }
    return at;
}

} // namespace Korvel::CANTORIS::PLX::format
