#include "roll/layout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "columns.h"

namespace plxclip::roll {

namespace {

constexpr double letterWidth = 0.6; // of the font's size
constexpr double mostPixelsPerQuarter = 150;
constexpr double fewestPixelsPerQuarter = 30;
constexpr double plentyOfPixels =
    100; // per quarter note: lyrics that still do not fit are squeezed

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

// The keys of the notes that sound in the line. In a line of rests it is the key of the note before it,
// or of the first note.
std::vector<KeyRange> keysOf(const Line& line, const std::vector<Note>& notes)
{
    KeySet wanted = {};
    const Note* nearest = notes.empty() ? nullptr : &notes.front();
    bool isSilent = true;
    for (const Note& note : notes) {
        nearest = note.pos < line.begin ? &note : nearest;
        if (sounds(note, line.begin, line.end)) {
            wanted[std::min(note.number, 127U)] = true;
            isSilent = false;
        }
    }
    if (isSilent && nearest != nullptr) {
        wanted[std::min(nearest->number, 127U)] = true;
    }
    return keyRanges(wanted);
}

void placeLanes(Line& line, const Layout& layout, const std::vector<Lane>& lanes)
{
    double top = laneGap;
    for (const Lane& lane : lanes) {
        if (std::ranges::count(layout.flatLanes, &lane) == 0) {
            const bool isFolded = isFlat(eventsIn(lane, line.begin, line.end));
            line.lanes.push_back({&lane, top, isFolded});
            top += isFolded ? flatHeight + flatGap : laneHeight + laneGap;
        }
    }
}

void setLines(Layout& layout, const MidiPart& part)
{
    for (const Lane& lane : part.lanes) {
        if (isFlat(eventsIn(lane, layout.begin, layout.end))) {
            layout.flatLanes.push_back(&lane);
        }
    }
    const std::int64_t length = layout.barsPerLine * layout.view.ticksPerBar();
    double top = headHeight;
    for (std::int64_t tick = layout.begin; tick < layout.end; tick += length) {
        Line line = {tick, std::min(tick + length, layout.end), top, {}, {}};
        line.keys = keysOf(line, part.notes);
        placeLanes(line, layout, part.lanes);
        top = line.bottom() + lineGap;
        layout.lines.push_back(std::move(line));
    }
}

} // namespace

std::int64_t barAt(std::int64_t tick, std::int64_t ticksPerBar)
{
    const std::int64_t bar = tick / ticksPerBar;
    return tick % ticksPerBar < 0 ? bar - 1 : bar;
}

std::int64_t tickInBar(std::int64_t tick, std::int64_t ticksPerBar)
{
    return tick - barAt(tick, ticksPerBar) * ticksPerBar;
}

std::vector<Point> eventsIn(const Lane& lane, std::int64_t begin, std::int64_t end)
{
    std::vector<Point> events;
    for (const Point& event : lane.events) {
        if (event.pos >= end) {
            break;
        }
        if (event.pos <= begin) {
            events.clear();
        }
        events.push_back(event);
    }
    return events;
}

bool isFlat(const std::vector<Point>& events)
{
    return std::ranges::all_of(
        events, [&](const Point& event) { return event.value == events.front().value; });
}

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
    return letterWidth * fontSize * static_cast<double>(displayWidth(text));
}

std::string shortenedTo(std::string_view text, double fontSize, double room)
{
    const double columns = room / (letterWidth * fontSize);
    return columns < 2 ? std::string() : shortened(text, static_cast<std::size_t>(columns));
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

bool Line::shows(std::uint32_t number) const
{
    return std::ranges::any_of(keys, [number](const KeyRange& range) {
        return number >= range.lowest && number <= range.highest;
    });
}

double Line::rowTop(std::uint32_t number) const
{
    double y = rollTop();
    for (const KeyRange& range : keys) {
        if (number >= range.lowest) {
            return y + rowHeight * (static_cast<double>(range.highest) - number);
        }
        y += rowHeight * range.size() + foldHeight;
    }
    return y;
}

double Line::rollBottom() const
{
    return rowTop(keys.back().lowest) + rowHeight;
}

double Line::bottom() const
{
    return lanes.empty()
               ? rollBottom()
               : rollBottom() + lanes.back().top + (lanes.back().isFlat ? flatHeight : laneHeight);
}

double Layout::width() const
{
    const auto ticks = static_cast<double>(barsPerLine * view.ticksPerBar());
    return std::max(480.0, left() + ticks * pixelsPerTick + margin);
}

void Layout::moveDown(double distance)
{
    for (Line& line : lines) {
        line.top += distance;
    }
}

Layout makeLayout(const MidiPart& part, const View& view)
{
    Layout layout;
    layout.view = view;
    const auto [first, last] = view.bars.value_or(barsOf(part, view));
    layout.begin = (first - 1) * view.ticksPerBar();
    layout.end = last * view.ticksPerBar();
    setScale(layout, part.notes);
    setLines(layout, part);
    return layout;
}

} // namespace plxclip::roll
