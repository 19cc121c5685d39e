// The text of a document, and where in it everything stands.
#pragma once

#include <string>
#include <string_view>

#include "check/finding.h"

namespace plxclip::check {

// The kinds of JSON values, as they are called in a sentence.
namespace kind {
inline constexpr std::string_view null = "null";
inline constexpr std::string_view flag = "true or false";
inline constexpr std::string_view integer = "an integer";
inline constexpr std::string_view real = "a float";
inline constexpr std::string_view text = "a string";
inline constexpr std::string_view list = "an array";
inline constexpr std::string_view object = "an object";
} // namespace kind

class Text {
public:
    explicit Text(std::string utf8) : source(std::move(utf8)) {}

    const std::string& utf8() const { return source; }

    // Of a byte. Lines and columns are counted in characters. Fast for places in ascending order.
    Position positionOf(std::size_t place);

    // The following are for a value that begins there, in valid JSON.
    std::string_view kindAt(std::size_t place) const;
    std::string_view scalarAt(std::size_t place) const;
    // The value as it is written, cut if it is long; empty for an object or a list.
    std::string excerptAt(std::size_t place) const;

private:
    std::string source;
    std::size_t lastPlace = 0;
    Position lastPosition{1, 1};
};

} // namespace plxclip::check
