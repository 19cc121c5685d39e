// The positions of everything in the picture.
#pragma once

#include <string>
#include <vector>

#include "roll/keys.h"
#include "roll/roll.h"
#include "roll/svg.h"

namespace plxclip::roll {

inline constexpr double margin = 16;
inline constexpr double gutter = 92; // width for the keys and the names of the lanes
inline constexpr double keyWidth = 40;
inline constexpr double headHeight = 58;
inline constexpr double barNumberHeight = 16;
inline constexpr double rowHeight = 18;
inline constexpr double foldHeight = 12; // in place of the keys between two ranges
inline constexpr double laneHeight = 44;
inline constexpr double laneGap = 8;
inline constexpr double flatHeight = 14; // of a lane that is folded to a line of text
inline constexpr double flatGap = 3;
inline constexpr double lineGap = 26;

// A lane and where it stands below the keys of a line. Flat ones are folded.
struct LanePlace {
    const Lane* lane;
    double top;
    bool isFlat;
};

// A line of the picture, from a tick to a tick, with keys of its own.
struct Line {
    std::int64_t begin;
    std::int64_t end;
    double top;
    std::vector<KeyRange> keys; // from high to low
    std::vector<LanePlace> lanes;

    bool shows(std::uint32_t number) const;
    double rollTop() const { return top + barNumberHeight; }
    double rollBottom() const;
    double rowTop(std::uint32_t number) const; // the line shows the number
    double bottom() const;
};

// Points into the part, which must live longer.
struct Layout {
    View view;
    std::int64_t begin = 0;
    std::int64_t end = 0;
    std::int64_t barsPerLine = 1;
    double pixelsPerTick = 0;
    std::vector<Line> lines;
    std::vector<const Lane*> flatLanes; // those that are flat all the time

    double left() const { return margin + gutter; }
    double x(const Line& line, std::int64_t tick) const;
    double right(const Line& line) const { return x(line, line.end); }
    double width() const;
    double bottom() const { return lines.back().bottom(); }

    void moveDown(double distance);
};

// Puts as many bars on a line as leave room for the lyrics.
Layout makeLayout(const MidiPart& part, const View& view);

inline std::int64_t endOf(const Note& note)
{
    return std::int64_t{note.pos} + note.duration;
}

inline bool sounds(const Note& note, std::int64_t begin, std::int64_t end)
{
    return endOf(note) > begin && note.pos < end;
}

// The bar of a tick, from 0, and the tick's place in its bar. Bars before the beginning are below 0.
std::int64_t barAt(std::int64_t tick, std::int64_t ticksPerBar);
std::int64_t tickInBar(std::int64_t tick, std::int64_t ticksPerBar);

// A value holds until the next event; before the first there is none. Returns the points from one tick
// to another, beginning with the value that holds at the first.
std::vector<Point> eventsIn(const Lane& lane, std::int64_t begin, std::int64_t end);

// True if there is at most one value.
bool isFlat(const std::vector<Point>& events);

// The greatest width of a text in a font of this size.
double textWidth(std::string_view text, double fontSize);

// As much of the text as fits.
std::string shortenedTo(std::string_view text, double fontSize, double room);

inline constexpr double lyricSize = 11;
inline constexpr double phonemeSize = 8.5;

// The room for the lyric of each note, from its start up to the next note's start.
std::vector<std::int64_t> wordTicks(const std::vector<Note>& notes);

} // namespace plxclip::roll
