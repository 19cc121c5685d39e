// Converts the bytes of a document, in any Unicode encoding, to UTF-8.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace Korvel::CANTORIS::PLX::format {

enum class Encoding { utf8, utf16LittleEndian, utf16BigEndian, utf32LittleEndian, utf32BigEndian };

struct DetectedEncoding {
    Encoding encoding;
    std::size_t markLength; // bytes of the byte-order mark
};

// Detects it by the byte-order mark or, without one, by the zeros among the first four bytes.
DetectedEncoding detectEncoding(std::string_view bytes);

// The number of bytes in a unit.
std::size_t widthOf(Encoding encoding);

// One blank in that encoding.
std::string blankIn(Encoding encoding);

// The first unit of a document, after its mark, that is not white space; none if there is none yet.
std::optional<char32_t> firstUnit(std::string_view bytes);

// Converts the bytes to UTF-8 without a mark. False when they are not valid in their encoding: then
// only what comes before the first invalid place is converted.
bool makeUtf8(std::string& bytes);

// Converts a place in the UTF-8 that makeUtf8() makes of a document to the place in its original
// bytes, counted with the mark. The bytes must be valid up to there.
std::size_t placeInFile(std::string_view bytes, std::size_t place);

} // namespace Korvel::CANTORIS::PLX::format
