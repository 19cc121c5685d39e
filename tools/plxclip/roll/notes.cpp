#include <algorithm>

#include "naming.h"
#include "roll/pieces.h"

namespace plxclip::roll {

namespace {

std::string hintOf(const Note& note)
{
    return fmt::format("{} [{}] {}, at {}, {} ticks, velocity {}", note.lyric, note.phoneme,
                       pitchName(note.number), note.pos, note.duration, note.velocity);
}

// Lyrics that are too long for their note are drawn smaller, so that they do not cover the next
// ones; those that would be too small to read are also drawn narrower, where a viewer supports
// that.
std::string squeeze(std::string_view text, double fontSize, double room)
{
    constexpr double smallest = 0.6;
    const double share = room / textWidth(text, fontSize);
    if (share >= 1) {
        return {};
    }
    std::string attributes =
        fmt::format("style=\"font-size: {:.1f}px\"", fontSize * std::max(share, smallest));
    if (share < smallest) {
        attributes += fmt::format(" textLength=\"{:.1f}\" lengthAdjust=\"spacingAndGlyphs\"",
                                  std::max(room, 4.0));
    }
    return attributes;
}

void drawBody(const Sheet& sheet, const Note& note)
{
    const std::int64_t begin = std::max<std::int64_t>(note.pos, sheet.line.begin);
    const std::int64_t end = std::min(endOf(note), sheet.line.end);
    const double left = sheet.layout.x(sheet.line, begin);
    const double width = std::max(sheet.layout.x(sheet.line, end) - left, 1.0);
    const bool isStart = note.pos >= sheet.line.begin;
    sheet.svg.rectangle(
        {left, sheet.layout.rowTop(sheet.line, note.number), width, rowHeight},
        isStart ? "note" : "note continued",
        fmt::format("rx=\"2.5\" data-number=\"{}\" data-pos=\"{}\"", note.number, note.pos));
}

void drawWords(const Sheet& sheet, const Note& note, std::int64_t ticks)
{
    const double left = sheet.layout.x(sheet.line, note.pos) + 3;
    const std::int64_t end = std::min(note.pos + ticks, sheet.line.end);
    const double room = sheet.layout.x(sheet.line, end) - left - 1;
    const double top = sheet.layout.rowTop(sheet.line, note.number);
    sheet.svg.text({left, top + rowHeight - 4.2}, "lyric", note.lyric,
                   squeeze(note.lyric, lyricSize, room));
    sheet.svg.text({left, top + rowHeight + 9}, "phoneme", note.phoneme,
                   squeeze(note.phoneme, phonemeSize, room));
}

} // namespace

void drawNotes(const Sheet& sheet, const std::vector<Note>& notes)
{
    const std::vector<std::int64_t> ticks = wordTicks(notes);
    for (std::size_t i = 0; i < notes.size(); ++i) {
        const Note& note = notes[i];
        if (endOf(note) <= sheet.line.begin || note.pos >= sheet.line.end) {
            continue;
        }
        sheet.svg.openGroup("sung");
        sheet.svg.title(hintOf(note));
        drawBody(sheet, note);
        if (note.pos >= sheet.line.begin) {
            drawWords(sheet, note, ticks[i]);
        }
        drawVibrato(sheet, note);
        sheet.svg.closeGroup();
    }
}

} // namespace plxclip::roll
