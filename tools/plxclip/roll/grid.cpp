#include "naming.h"
#include "roll/pieces.h"

namespace plxclip::roll {

namespace {

void drawRow(const Sheet& sheet, std::uint32_t number)
{
    const double top = sheet.line.rowTop(number);
    const double left = sheet.layout.left();
    const char* const rowClass = isBlackKey(number) ? "row black" : "row";
    sheet.svg.rectangle({left, top, sheet.layout.right(sheet.line) - left, rowHeight}, rowClass,
                        fmt::format("data-number=\"{}\"", number));
    if (number % 12 == 0) {
        const double bottom = top + rowHeight;
        sheet.svg.line({left, bottom}, {sheet.layout.right(sheet.line), bottom}, "octave");
    }
}

void drawKey(const Sheet& sheet, std::uint32_t number)
{
    const double top = sheet.line.rowTop(number);
    const double left = sheet.layout.left() - keyWidth;
    const bool isBlack = isBlackKey(number);
    sheet.svg.rectangle({left, top, keyWidth, rowHeight}, isBlack ? "key black" : "key");
    sheet.svg.text({left + keyWidth - 5, top + rowHeight - 4.8},
                   isBlack            ? "black pitch"
                   : number % 12 == 0 ? "c pitch"
                                      : "pitch",
                   pitchName(number));
}

void drawRows(const Sheet& sheet, const KeyRange& range)
{
    for (std::uint32_t number = range.lowest; number <= range.highest; ++number) {
        drawRow(sheet, number);
        drawKey(sheet, number);
    }
}

// In place of the keys between two ranges.
void drawFold(const Sheet& sheet, const KeyRange& upper, const KeyRange& lower)
{
    const std::uint32_t keys = upper.lowest - lower.highest - 1;
    const double left = sheet.layout.left() - keyWidth;
    const double top = sheet.line.rowTop(upper.lowest) + rowHeight;
    sheet.svg.rectangle({left, top, sheet.layout.right(sheet.line) - left, foldHeight}, "fold",
                        fmt::format("data-keys=\"{}\"", keys));
    sheet.svg.text({left - 4, top + foldHeight - 3}, "fold-text", fmt::format("{} keys", keys));
}

void drawUpright(const Sheet& sheet, std::int64_t tick, std::string_view styleClass)
{
    const double x = sheet.layout.x(sheet.line, tick);
    sheet.svg.line({x, sheet.line.rollTop()}, {x, sheet.line.rollBottom()}, styleClass);
}

void drawBar(const Sheet& sheet, std::int64_t tick)
{
    const View& view = sheet.layout.view;
    for (int beat = 1; beat < view.beats; ++beat) {
        drawUpright(sheet, tick + beat * view.ticksPerBeat(), "beat");
    }
    drawUpright(sheet, tick, "bar");
    const std::int64_t number = tick / view.ticksPerBar() + (tick < 0 ? 0 : 1);
    sheet.svg.text({sheet.layout.x(sheet.line, tick) + 3, sheet.line.rollTop() - 4}, "bar-number",
                   std::to_string(number));
}

} // namespace

void drawGrid(const Sheet& sheet)
{
    for (std::size_t i = 0; i < sheet.line.keys.size(); ++i) {
        drawRows(sheet, sheet.line.keys[i]);
        if (i > 0) {
            drawFold(sheet, sheet.line.keys[i - 1], sheet.line.keys[i]);
        }
    }
    const std::int64_t bar = sheet.layout.view.ticksPerBar();
    for (std::int64_t tick = sheet.line.begin; tick < sheet.line.end; tick += bar) {
        drawBar(sheet, tick);
    }
    drawUpright(sheet, sheet.line.end, "bar");
}

void drawEnd(const Sheet& sheet, std::int64_t duration)
{
    const std::int64_t begin = std::max(duration, sheet.line.begin);
    if (begin >= sheet.line.end) {
        return;
    }
    const double left = sheet.layout.x(sheet.line, begin);
    const double top = sheet.line.rollTop();
    sheet.svg.rectangle(
        {left, top, sheet.layout.right(sheet.line) - left, sheet.line.rollBottom() - top}, "end");
}

} // namespace plxclip::roll
