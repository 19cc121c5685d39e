// From the bytes of a document, in any Unicode encoding, to UTF-8.
#pragma once

#include <cstddef>
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

// Turns the bytes into UTF-8 without a mark. False when they do not decode.
bool makeUtf8(std::string& bytes);

} // namespace Korvel::CANTORIS::PLX::format
