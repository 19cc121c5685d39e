// Text between a test, which is written in UTF-8, and the library, which takes UTF-16.
#pragma once

#include <string>
#include <string_view>

#include <korvel/plx.h>

namespace support {

using Text = std::basic_string<KRT_PLX_Char>;

// UTF-8 as the library takes it: KRT_PLX_Clip_...(clip, text("さくら").c_str()).
// Throws std::invalid_argument for bytes that are no UTF-8.
Text text(std::string_view utf8);

// What the library returned, as UTF-8. Null reads as "<null>", which no test uses as a text; a lone
// surrogate reads as the three bytes of its code point.
std::string utf8(const KRT_PLX_Char* text);
std::string utf8(const Text& text);

// The forms in which a document may be stored.
enum class Encoding { utf8, utf16LittleEndian, utf16BigEndian, utf32LittleEndian, utf32BigEndian };
enum class ByteOrderMark { without, with };

// The bytes of a document in that form.
std::string encode(std::string_view utf8, Encoding encoding,
                   ByteOrderMark mark = ByteOrderMark::without);

} // namespace support
