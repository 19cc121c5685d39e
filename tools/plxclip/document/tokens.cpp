#include "document/tokens.h"

#include <algorithm>

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace plxclip::document {

namespace {

constexpr std::string_view whiteSpace = " \t\r\n";
constexpr std::string_view endsScalar = " \t\r\n{}[],:\"";
constexpr std::string_view decimals = "0123456789";

// The length of the string at the beginning, with both quotation marks; 0 if it does not end.
std::size_t lengthOfString(std::string_view text)
{
    std::size_t end = 1;
    while (end < text.size() && text[end] != '"') {
        end += text[end] == '\\' ? 2 : 1;
    }
    return end < text.size() ? end + 1 : 0;
}

Kind kindOfScalar(std::string_view text)
{
    if (text == "true" || text == "false" || text == "null") {
        return Kind::word;
    }
    return isNumber(text) ? Kind::number : Kind::other;
}

Kind kindOfSign(char sign)
{
    switch (sign) {
    case '{':
    case '[':
        return Kind::open;
    case '}':
    case ']':
        return Kind::close;
    case ',':
        return Kind::comma;
    default:
        return Kind::colon;
    }
}

struct Piece {
    Kind kind;
    std::size_t length;
};

Piece pieceAt(std::string_view text)
{
    const std::size_t white = text.find_first_not_of(whiteSpace);
    if (white != 0) {
        return {Kind::white, std::min(white, text.size())};
    }
    if (text.front() == '"') {
        const std::size_t length = lengthOfString(text);
        return length == 0 ? Piece{Kind::other, text.size()} : Piece{Kind::text, length};
    }
    const std::size_t scalar = std::min(text.find_first_of(endsScalar), text.size());
    return scalar == 0 ? Piece{kindOfSign(text.front()), 1}
                       : Piece{kindOfScalar(text.substr(0, scalar)), scalar};
}

// Removes the letters of a set from the front, and tells whether there were any.
bool skip(std::string_view& text, std::string_view letters)
{
    const std::size_t length = std::min(text.find_first_not_of(letters), text.size());
    text.remove_prefix(length);
    return length > 0;
}

bool skipOne(std::string_view& text, std::string_view letters)
{
    const bool isThere = !text.empty() && letters.find(text.front()) != std::string_view::npos;
    text.remove_prefix(isThere ? 1 : 0);
    return isThere;
}

} // namespace

Tokens tokensOf(std::string_view text)
{
    Tokens tokens;
    for (std::size_t place = 0; place < text.size();) {
        const Piece piece = pieceAt(text.substr(place));
        tokens.push_back({piece.kind, std::string(text.substr(place, piece.length)), place});
        place += piece.length;
    }
    return tokens;
}

bool isNumber(std::string_view text)
{
    skipOne(text, "-");
    if (!skipOne(text, "0") && !skip(text, decimals)) {
        return false;
    }
    if (skipOne(text, ".") && !skip(text, decimals)) {
        return false;
    }
    if (skipOne(text, "eE")) {
        skipOne(text, "+-");
        return skip(text, decimals) && text.empty();
    }
    return text.empty();
}

std::string quote(std::string_view text)
{
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
    return {buffer.GetString(), buffer.GetSize()};
}

std::string unquote(const std::string& token)
{
    rapidjson::Document value;
    value.Parse(token.data(), token.size());
    return !value.HasParseError() && value.IsString()
               ? std::string(value.GetString(), value.GetStringLength())
               : std::string();
}

} // namespace plxclip::document
