// Places in a document as an editor shows them.
#pragma once

#include <cstddef>
#include <string_view>

namespace plxclip::document {

struct Position {
    std::size_t line = 0; // from 1; 0 when there is none
    std::size_t column = 0;
};

// The position behind a text that begins at the given one. Columns are counted in characters.
Position behind(std::string_view text, Position position = {1, 1});

} // namespace plxclip::document
