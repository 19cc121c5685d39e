#include "roll/layout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "columns.h"

namespace plxclip::roll {

namespace {

constexpr double mostPixelsPerQuarter = 150;
constexpr double fewestPixelsPerQuarter = 30;
constexpr double plentyOfPixels =
    100; // per quarter note: lyrics that still do not fit are squeezed

std::int64_t barAt(std::int64_t tick, std::int64_t ticksPerBar)
{
    const std::int64_t bar = tick / ticksPerBar;
    return tick % ticksPerBar < 0 ? bar - 1 : bar;
}

// Leaves an empty row above and below. A part without notes shows the octave of middle C.
void setRows(Layout& layout, const std::vector<Note>& notes)
{
    if (notes.empty()) {
        layout.lowest = 60;
        layout.highest = 72;
        return;
    }
    const auto [low, high] =
        std::minmax_element(notes.begin(), notes.end(),
                            [](const Note& a, const Note& b) { return a.number < b.number; });
    layout.lowest = low->number > 1 ? low->number - 2 : 0;
    layout.highest = std::min<std::uint32_t>(high->number + 2, 127);
}

// Lyrics that are squeezed a little are still easy to read.
bool wordsFit(const Note& note, std::int64_t ticks, double pixelsPerTick)
{
    constexpr double squeezed = 0.8;
    const double room = static_cast<double>(ticks) * pixelsPerTick - 4;
    return squeezed * textWidth(note.lyric, lyricSize) <= room &&
           squeezed * textWidth(note.phoneme, phonemeSize) <= room;
}

// One syllable that is far too long for its note must not stretch the whole picture.
bool mostWordsFit(const std::vector<Note>& notes, double pixelsPerTick)
{
    const std::vector<std::int64_t> ticks = wordTicks(notes);
    std::size_t misfits = 0;
    for (std::size_t i = 0; i < notes.size(); ++i) {
        misfits += wordsFit(notes[i], ticks[i], pixelsPerTick) ? 0 : 1;
    }
    return misfits * 25 <= notes.size();
}

void divide(Layout& layout, std::int64_t bars)
{
    const double room = layout.view.width - 2 * margin - gutter;
    const auto ticks = static_cast<double>(bars * layout.view.ticksPerBar());
    const double most = mostPixelsPerQuarter / static_cast<double>(layout.view.ticksPerQuarter);
    layout.barsPerLine = bars;
    layout.pixelsPerTick = std::min(room / ticks, most);
}

void setScale(Layout& layout, const std::vector<Note>& notes)
{
    const std::int64_t all = (layout.end - layout.begin) / layout.view.ticksPerBar();
    for (const std::int64_t bars : {16, 8, 4, 2, 1}) {
        divide(layout, std::min(bars, all));
        const double quarter =
            layout.pixelsPerTick * static_cast<double>(layout.view.ticksPerQuarter);
        if (quarter >= plentyOfPixels ||
            (quarter >= fewestPixelsPerQuarter && mostWordsFit(notes, layout.pixelsPerTick))) {
            return;
        }
    }
}

} // namespace

std::pair<std::int64_t, std::int64_t> barsOf(const MidiPart& part, const View& view)
{
    std::int64_t begin = 0;
    std::int64_t end = std::max<std::int64_t>(part.duration, 1);
    for (const Note& note : part.notes) {
        begin = std::min<std::int64_t>(begin, note.pos);
        end = std::max(end, endOf(note));
    }
    return {barAt(begin, view.ticksPerBar()) + 1, barAt(end - 1, view.ticksPerBar()) + 1};
}

double textWidth(std::string_view text, double fontSize)
{
    return 0.6 * fontSize * static_cast<double>(displayWidth(text));
}

std::vector<std::int64_t> wordTicks(const std::vector<Note>& notes)
{
    std::vector<std::int64_t> ticks;
    for (std::size_t i = 0; i < notes.size(); ++i) {
        const std::int64_t own = notes[i].duration;
        const std::int64_t next =
            i + 1 < notes.size() ? std::int64_t{notes[i + 1].pos} - notes[i].pos : own;
        // Notes at the same position cannot lend each other room.
        ticks.push_back(next > 0 ? std::max(own, next) : own);
    }
    return ticks;
}

double Layout::x(const Line& line, std::int64_t tick) const
{
    return left() + static_cast<double>(tick - line.begin) * pixelsPerTick;
}

double Layout::rowTop(const Line& line, std::uint32_t number) const
{
    return rollTop(line) + rowHeight * (static_cast<double>(highest) - number);
}

double Layout::rollBottom(const Line& line) const
{
    return rowTop(line, lowest) + rowHeight;
}

double Layout::laneTop(const Line& line, std::size_t lane) const
{
    return rollBottom(line) + laneGap + static_cast<double>(lane) * (laneHeight + laneGap);
}

double Layout::lineHeight() const
{
    return barNumberHeight + rowHeight * (static_cast<double>(highest - lowest) + 1) +
           static_cast<double>(lanes) * (laneHeight + laneGap);
}

std::vector<Line> Layout::lines() const
{
    std::vector<Line> lines;
    const std::int64_t length = barsPerLine * view.ticksPerBar();
    double top = headHeight;
    for (std::int64_t tick = begin; tick < end; tick += length) {
        lines.push_back({tick, std::min(tick + length, end), top});
        top += lineHeight() + lineGap;
    }
    return lines;
}

double Layout::width() const
{
    const auto ticks = static_cast<double>(barsPerLine * view.ticksPerBar());
    return std::max(480.0, left() + ticks * pixelsPerTick + margin);
}

double Layout::height() const
{
    return headHeight + static_cast<double>(lines().size()) * (lineHeight() + lineGap);
}

Layout makeLayout(const MidiPart& part, const View& view)
{
    Layout layout;
    layout.view = view;
    const auto [first, last] = view.bars.value_or(barsOf(part, view));
    layout.begin = (first - 1) * view.ticksPerBar();
    layout.end = last * view.ticksPerBar();
    layout.lanes = static_cast<std::size_t>(
        std::count_if(part.lanes.begin(), part.lanes.end(),
                      [](const Lane& lane) { return !lane.events.empty(); }));
    setRows(layout, part.notes);
    setScale(layout, part.notes);
    return layout;
}

} // namespace plxclip::roll
