// The pieces of a line of the picture.
#pragma once

#include "roll/layout.h"

namespace plxclip::roll {

// A line of the picture that is being drawn.
struct Sheet {
    Svg& svg;
    const Layout& layout;
    const Line& line;
};

// Rows, keys, beats and bars.
void drawGrid(const Sheet& sheet);
void drawEnd(const Sheet& sheet, std::int64_t duration);

// The notes that sound in the line, with lyrics and vibrato. A lyric is where its note begins.
void drawNotes(const Sheet& sheet, const std::vector<Note>& notes);
void drawVibrato(const Sheet& sheet, const Note& note);

// The lane at this index below the roll.
void drawLane(const Sheet& sheet, const Lane& lane, std::size_t place);

} // namespace plxclip::roll
