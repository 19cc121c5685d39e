// The positions of everything in the picture.
#pragma once

#include <vector>

#include "roll/roll.h"
#include "roll/svg.h"

namespace plxclip::roll {

inline constexpr double margin = 16;
inline constexpr double gutter = 92; // width for the keys and the names of the lanes
inline constexpr double keyWidth = 40;
inline constexpr double headHeight = 58;
inline constexpr double barNumberHeight = 16;
inline constexpr double rowHeight = 16;
inline constexpr double laneHeight = 44;
inline constexpr double laneGap = 8;
inline constexpr double lineGap = 26;

// A line of the picture, from a tick to a tick.
struct Line {
    std::int64_t begin;
    std::int64_t end;
    double top;
};

struct Layout {
    View view;
    std::int64_t begin = 0;
    std::int64_t end = 0;
    std::int64_t barsPerLine = 1;
    double pixelsPerTick = 0;
    std::uint32_t lowest = 0; // the rows, both included
    std::uint32_t highest = 0;
    std::size_t lanes = 0;

    double left() const { return margin + gutter; }
    double x(const Line& line, std::int64_t tick) const;
    double right(const Line& line) const { return x(line, line.end); }

    double rollTop(const Line& line) const { return line.top + barNumberHeight; }
    double rowTop(const Line& line, std::uint32_t number) const;
    double rollBottom(const Line& line) const;
    double laneTop(const Line& line, std::size_t lane) const;
    double lineHeight() const;

    std::vector<Line> lines() const;
    double width() const;
    double height() const;
};

// Puts as many bars on a line as leave room for the lyrics.
Layout makeLayout(const MidiPart& part, const View& view);

inline std::int64_t endOf(const Note& note)
{
    return std::int64_t{note.pos} + note.duration;
}

// The greatest width of a text in a font of this size.
double textWidth(std::string_view text, double fontSize);

inline constexpr double lyricSize = 11;
inline constexpr double phonemeSize = 8.5;

// The room for the lyric of each note, from its start up to the next note's start.
std::vector<std::int64_t> wordTicks(const std::vector<Note>& notes);

} // namespace plxclip::roll
