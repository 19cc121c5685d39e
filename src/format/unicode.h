// From the bytes of a document, in any Unicode encoding, to UTF-8; and between UTF-8 and the UTF-16
// of the model.
#pragma once

#include <string>
#include <string_view>

#include "text.h"

namespace Korvel::CANTORIS::PLX::format {

enum class Encoding { utf8, utf16LittleEndian, utf16BigEndian, utf32LittleEndian, utf32BigEndian };

struct DetectedEncoding {
    Encoding encoding;
    std::size_t markLength; // bytes of the byte-order mark
};

// By the byte-order mark, or else by the places of the zero bytes among the first four.
DetectedEncoding detectEncoding(std::string_view bytes);

// Turns the bytes into UTF-8 without a mark. False when they do not decode: overlong forms,
// surrogates that stand alone, code points beyond the last, a unit cut short.
bool makeUtf8(std::string& bytes);

// The text up to its first NUL, where every text of the model ends. The input is valid UTF-8.
String toUtf16(std::string_view utf8);

// Appends the text as UTF-8. False, with part of it appended, at a surrogate that stands alone.
bool appendUtf8(std::string& utf8, StringView text);

} // namespace Korvel::CANTORIS::PLX::format
