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

// The notes that sound in the line, with lyrics, phonemes, vibrato and marks.
void drawNotes(const Sheet& sheet, const std::vector<Note>& notes);

// What is drawn on a note's body; each draws only what is in the line.
void drawVibrato(const Sheet& sheet, const Note& note);
void drawMarks(const Sheet& sheet, const Note& note);

// The width of the marks before the lyric, and of the one at the end of the note.
double leadingMarks(const Sheet& sheet, const Note& note);
double closingMark(const Sheet& sheet, const Note& note);

// The lane below the keys, and one that is folded to a line of text with its top here.
void drawLane(const Sheet& sheet, const LanePlace& place);
void drawFlatLane(const Sheet& sheet, const Lane& lane, double top, std::int64_t begin,
                  std::int64_t end);

// How strong a note's colour is.
double shadeOf(std::uint32_t velocity);

// What the marks mean that are in the picture. It stands below this height.
double legendHeight(const Layout& layout, const std::vector<Note>& notes);
void drawLegend(Svg& svg, const Layout& layout, const std::vector<Note>& notes, double top);

// Name and properties of the clip, and the height by which they are more than usual.
void drawHead(Svg& svg, const Properties& clip, const std::vector<std::string>& about,
              double width);
double headOverhang(const std::vector<std::string>& about, double width);

// The part of the head that all clips have.
std::vector<std::string> aboutClip(const Properties& clip);

} // namespace plxclip::roll
