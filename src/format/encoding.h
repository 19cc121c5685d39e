// From the bytes of a document, in any Unicode encoding, to UTF-8.
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

// By the byte-order mark, or else by the places of the zero bytes among the first four.
DetectedEncoding detectEncoding(std::string_view bytes);

// How many bytes a unit has.
std::size_t widthOf(Encoding encoding);

// One blank in that encoding.
std::string blankIn(Encoding encoding);

// The first unit of a document, behind its mark, that is no white space; none as long as there is none.
std::optional<char32_t> firstUnit(std::string_view bytes);

// Turns the bytes into UTF-8 without a mark. False when they do not decode.
bool makeUtf8(std::string& bytes);

// Where in the bytes of a document stands what stands at `place` of the UTF-8 that makeUtf8() makes of
// them: a count of bytes, the mark included. The bytes decode.
std::size_t placeInFile(std::string_view bytes, std::size_t place);

} // namespace Korvel::CANTORIS::PLX::format
