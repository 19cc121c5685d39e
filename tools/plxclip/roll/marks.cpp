#include <array>

#include "roll/marks.h"
#include "roll/pieces.h"

namespace plxclip::roll {

namespace {

constexpr double markWidth = 6;
constexpr double markHeight = 7;
constexpr double markTop = 3; // below the top of the note

double widthOf(const Sheet& sheet, const Note& note)
{
    return static_cast<double>(note.duration) * sheet.layout.pixelsPerTick;
}

bool beginsHere(const Sheet& sheet, const Note& note)
{
    return note.pos >= sheet.line.begin;
}

bool endsHere(const Sheet& sheet, const Note& note)
{
    return endOf(note) <= sheet.line.end;
}

// A mark is left out where its note is too short for it.
bool hasRoomFor(const Sheet& sheet, const Note& note, int marks)
{
    return widthOf(sheet, note) >= marks * markWidth + 2;
}

bool showsAttack(const Sheet& sheet, const Note& note)
{
    return hasAttack(note) && beginsHere(sheet, note) && hasRoomFor(sheet, note, 1);
}

bool showsSkill(const Sheet& sheet, const Note& note)
{
    return hasSkill(note) && beginsHere(sheet, note) &&
           hasRoomFor(sheet, note, hasAttack(note) ? 2 : 1);
}

bool showsRelease(const Sheet& sheet, const Note& note)
{
    const int before = (hasAttack(note) ? 1 : 0) + (hasSkill(note) ? 1 : 0);
    return hasRelease(note) && endsHere(sheet, note) && hasRoomFor(sheet, note, before + 1);
}

} // namespace

void drawAttack(Svg& svg, Place at)
{
    svg.path({at, {at.x + 4.5, at.y + markHeight / 2}, {at.x, at.y + markHeight}}, "mark attack",
             true);
}

void drawSkill(Svg& svg, Place at)
{
    const double middle = at.y + markHeight / 2;
    svg.path(
        {{at.x, middle}, {at.x + 2.5, at.y}, {at.x + 5, middle}, {at.x + 2.5, at.y + markHeight}},
        "mark skill", true);
}

void drawRelease(Svg& svg, Place at)
{
    svg.path({{at.x + 4.5, at.y}, {at.x, at.y + markHeight / 2}, {at.x + 4.5, at.y + markHeight}},
             "mark release", true);
}

double leadingMarks(const Sheet& sheet, const Note& note)
{
    return (showsAttack(sheet, note) ? markWidth : 0) + (showsSkill(sheet, note) ? markWidth : 0);
}

double closingMark(const Sheet& sheet, const Note& note)
{
    return showsRelease(sheet, note) ? markWidth + 1 : 0;
}

void drawMarks(const Sheet& sheet, const Note& note)
{
    const double top = sheet.line.rowTop(note.number) + markTop;
    const double left = sheet.layout.x(sheet.line, note.pos) + 2;
    if (showsAttack(sheet, note)) {
        drawAttack(sheet.svg, {left, top});
    }
    if (showsSkill(sheet, note)) {
        drawSkill(sheet.svg, {left + (showsAttack(sheet, note) ? markWidth : 0), top});
    }
    if (showsRelease(sheet, note)) {
        drawRelease(sheet.svg, {sheet.layout.x(sheet.line, endOf(note)) - markWidth, top});
    }
}

} // namespace plxclip::roll
