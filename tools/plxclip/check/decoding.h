// From the bytes of a document, in any Unicode encoding, to UTF-8, and where that fails.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace plxclip::check {

struct Decoded {
    std::string utf8;          // without a mark; as far as the bytes decode
    std::string_view encoding; // its usual name
    std::optional<std::size_t> badByte;
};

Decoded decode(std::string_view bytes);

// How many UTF-16 units the text has.
std::size_t utf16Length(std::string_view utf8);

// How many bytes at the front are good UTF-8.
std::size_t validUtf8Length(std::string_view bytes);

} // namespace plxclip::check
