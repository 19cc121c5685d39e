#include "check/text.h"

#include <algorithm>

namespace plxclip::check {

namespace {

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

} // namespace

Position Text::positionOf(std::size_t place)
{
    place = std::min(place, source.size());
    if (place < lastPlace) {
        lastPlace = 0;
        lastPosition = {1, 1};
    }
    for (; lastPlace < place; ++lastPlace) {
        if (source[lastPlace] == '\n') {
            ++lastPosition.line;
            lastPosition.column = 1;
        } else if (!isContinuation(source[lastPlace])) {
            ++lastPosition.column;
        }
    }
    return lastPosition;
}

std::string_view Text::kindAt(std::size_t place) const
{
    switch (source.at(place)) {
    case '{':
        return kind::object;
    case '[':
        return kind::list;
    case '"':
        return kind::text;
    case 'n':
        return kind::null;
    case 't':
    case 'f':
        return kind::flag;
    default:
        return scalarAt(place).find_first_of(".eE") == std::string_view::npos ? kind::integer
                                                                              : kind::real;
    }
}

std::string_view Text::scalarAt(std::size_t place) const
{
    const std::string_view rest = std::string_view(source).substr(place);
    if (rest.front() != '"') {
        return rest.substr(0, rest.find_first_of(" \t\r\n,]}"));
    }
    std::size_t end = 1;
    while (end < rest.size() && rest[end] != '"') {
        end += rest[end] == '\\' ? 2 : 1;
    }
    return rest.substr(0, end + 1);
}

std::string Text::excerptAt(std::size_t place) const
{
    constexpr std::size_t longest = 40;
    if (kindAt(place) == kind::object || kindAt(place) == kind::list) {
        return {};
    }
    const std::string_view text = scalarAt(place);
    if (text.size() <= longest) {
        return std::string(text);
    }
    std::size_t length = longest;
    while (isContinuation(text[length])) {
        --length;
    }
    return std::string(text.substr(0, length)) + "...";
}

} // namespace plxclip::check
