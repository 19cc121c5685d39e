// The text of a document, and where in it everything stands.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace plxclip::check {

struct Position {
    std::size_t line = 0; // from 1; 0 when there is none
    std::size_t column = 0;

    bool operator==(const Position&) const = default;
};

enum class Kind : std::uint8_t { null, flag, integer, real, text, list, object };

class Text {
public:
    explicit Text(std::string utf8) : source(std::move(utf8)) {}

    const std::string& utf8() const { return source; }

    // Of a byte. Lines and columns are counted in characters. Quick for places in ascending order.
    Position positionOf(std::size_t place);

    // Of the value that begins there; the document is valid JSON.
    Kind kindAt(std::size_t place) const;
    // As it is written, cut when it is long; empty for an object and a list, whose beginning tells little.
    std::string excerptAt(std::size_t place) const;
    std::string_view scalarAt(std::size_t place) const;

private:
    std::string source;
    std::size_t lastPlace = 0;
    Position lastPosition{1, 1};
};

} // namespace plxclip::check
