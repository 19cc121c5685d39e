#include <algorithm>

#include "clip_text.h"
#include "naming.h"
#include "roll/pieces.h"
#include "roll/words.h"

namespace plxclip::roll {

namespace {

constexpr double wordInset = 3; // from the edge of a note to its words

std::string hintOf(const Note& note)
{
    const std::string remarks = remarksText(note);
    return fmt::format("{} [{}] {}, at {}, {} ticks, velocity {}{}{}", note.lyric, note.phoneme,
                       pitchName(note.number), note.pos, note.duration, note.velocity,
                       remarks.empty() ? "" : ", ", remarks);
}

bool startsIn(const Sheet& sheet, const Note& note)
{
    return note.pos >= sheet.line.begin;
}

// Where the note begins and ends in the line.
double leftOf(const Sheet& sheet, const Note& note)
{
    return sheet.layout.x(sheet.line, std::max<std::int64_t>(note.pos, sheet.line.begin));
}

double rightOf(const Sheet& sheet, const Note& note)
{
    return sheet.layout.x(sheet.line, std::min(endOf(note), sheet.line.end));
}

void drawBody(const Sheet& sheet, const Note& note)
{
    const double left = leftOf(sheet, note);
    const double width = std::max(rightOf(sheet, note) - left, 1.0);
    sheet.svg.rectangle({left, sheet.line.rowTop(note.number), width, rowHeight},
                        startsIn(sheet, note) ? "note" : "note continued",
                        fmt::format("rx=\"2.5\" fill-opacity=\"{:.2f}\" data-number=\"{}\" "
                                    "data-pos=\"{}\" data-velocity=\"{}\"",
                                    shadeOf(note.velocity), note.number, note.pos, note.velocity));
}

void drawText(const Sheet& sheet, Place place, std::string_view styleClass, const Text& text,
              double usualSize)
{
    sheet.svg.text(place, styleClass, text.content,
                   text.size < usualSize ? fmt::format("style=\"font-size: {:.1f}px\"", text.size)
                                         : std::string());
}

// A note that has begun in an earlier line has its lyric here too.
void drawLyric(const Sheet& sheet, Words& words, const Note& note, std::int64_t ticks)
{
    const double left = leftOf(sheet, note) + wordInset + leadingMarks(sheet, note);
    const std::int64_t end = std::min(note.pos + ticks, sheet.line.end);
    const double closing = closingMark(sheet, note);
    const double right =
        closing > 0 ? rightOf(sheet, note) - closing : sheet.layout.x(sheet.line, end) - 1;
    if (const auto text = words.placeLyric(note, left, right)) {
        drawText(sheet, {left, sheet.line.rowTop(note.number) + 10.5},
                 startsIn(sheet, note) ? "lyric" : "lyric continued", *text, lyricSize);
    }
}

void drawPhoneme(const Sheet& sheet, Words& words, const Note& note)
{
    const double left = leftOf(sheet, note) + wordInset;
    if (!startsIn(sheet, note)) {
        return;
    }
    if (const auto text = words.placePhoneme(note, left, rightOf(sheet, note))) {
        drawText(sheet, {left, sheet.line.rowTop(note.number) + rowHeight + 9}, "phoneme", *text,
                 phonemeSize);
    }
}

} // namespace

double shadeOf(std::uint32_t velocity)
{
    return 0.2 + 0.8 * velocity / 127;
}

void drawNotes(const Sheet& sheet, const std::vector<Note>& notes)
{
    const std::vector<std::int64_t> ticks = wordTicks(notes);
    Words words(sheet.layout, sheet.line, notes);
    for (std::size_t i = 0; i < notes.size(); ++i) {
        const Note& note = notes[i];
        if (!sounds(note, sheet.line.begin, sheet.line.end)) {
            continue;
        }
        sheet.svg.openGroup("sung");
        sheet.svg.title(hintOf(note));
        drawBody(sheet, note);
        drawVibrato(sheet, note);
        drawMarks(sheet, note);
        drawLyric(sheet, words, note, ticks[i]);
        drawPhoneme(sheet, words, note);
        sheet.svg.closeGroup();
    }
}

} // namespace plxclip::roll
