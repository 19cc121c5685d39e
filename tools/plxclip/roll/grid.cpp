#include "naming.h"
#include "roll/pieces.h"

namespace plxclip::roll {

namespace {

void drawRow(const Sheet& sheet, std::uint32_t number)
{
    const double top = sheet.layout.rowTop(sheet.line, number);
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
    const double top = sheet.layout.rowTop(sheet.line, number);
    const double left = sheet.layout.left() - keyWidth;
    const bool isBlack = isBlackKey(number);
    sheet.svg.rectangle({left, top, keyWidth, rowHeight}, isBlack ? "key black" : "key");
    sheet.svg.text({left + keyWidth - 5, top + rowHeight - 4.8},
                   isBlack            ? "black pitch"
                   : number % 12 == 0 ? "c pitch"
                                      : "pitch",
                   pitchName(number));
}

void drawUpright(const Sheet& sheet, std::int64_t tick, std::string_view styleClass)
{
    const double x = sheet.layout.x(sheet.line, tick);
    sheet.svg.line({x, sheet.layout.rollTop(sheet.line)}, {x, sheet.layout.rollBottom(sheet.line)},
                   styleClass);
}

void drawBar(const Sheet& sheet, std::int64_t tick)
{
    const View& view = sheet.layout.view;
    for (int beat = 1; beat < view.beats; ++beat) {
        drawUpright(sheet, tick + beat * view.ticksPerBeat(), "beat");
    }
    drawUpright(sheet, tick, "bar");
    const std::int64_t number = tick / view.ticksPerBar() + (tick < 0 ? 0 : 1);
    sheet.svg.text({sheet.layout.x(sheet.line, tick) + 3, sheet.layout.rollTop(sheet.line) - 4},
                   "bar-number", std::to_string(number));
}

} // namespace

void drawGrid(const Sheet& sheet)
{
    for (std::uint32_t number = sheet.layout.lowest; number <= sheet.layout.highest; ++number) {
        drawRow(sheet, number);
        drawKey(sheet, number);
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
    const double top = sheet.layout.rollTop(sheet.line);
    sheet.svg.rectangle({left, top, sheet.layout.right(sheet.line) - left,
                         sheet.layout.rollBottom(sheet.line) - top},
                        "end");
}

} // namespace plxclip::roll
