// The text of a document as tokens. Nothing is left out: put together they are the text again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <string_view>

namespace plxclip::document {

enum class Kind : std::uint8_t {
    white,
    open,  // of an object or a list
    close, // of either
    comma,
    colon,
    text, // with its quotation marks
    number,
    word,  // true, false or null
    other, // what JSON does not have
};

struct Token {
    static constexpr std::size_t nowhere = static_cast<std::size_t>(-1);

    Kind kind;
    std::string text;            // as it is written
    std::size_t place = nowhere; // in the text that was read; nowhere if it was added later
};

using Tokens = std::list<Token>;

Tokens tokensOf(std::string_view text);

// Whether the text is a number by JSON's grammar.
bool isNumber(std::string_view text);

// A text as JSON, with its quotation marks; and a JSON string without them, its escapes resolved. One that
// is no JSON string is empty.
std::string quote(std::string_view text);
std::string unquote(const std::string& token);

} // namespace plxclip::document
