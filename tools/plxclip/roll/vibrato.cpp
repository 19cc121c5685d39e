#include <algorithm>
#include <cmath>
#include <numbers>

#include "roll/pieces.h"

namespace plxclip::roll {

namespace {

constexpr double most = 127; // of a depth or a rate
constexpr double usual = 64; // for a curve without points

// A curve runs straight from point to point.
double valueAt(const std::vector<Point>& points, double pos)
{
    if (points.empty()) {
        return usual;
    }
    const auto next = std::find_if(points.begin(), points.end(),
                                   [pos](const Point& point) { return point.pos > pos; });
    if (next == points.begin() || next == points.end()) {
        return (next == points.end() ? points.back() : *next).value;
    }
    const Point& last = *(next - 1);
    const double share = (pos - last.pos) / (next->pos - last.pos);
    return last.value + share * (next->value - last.value);
}

// Deeper waves are higher, faster ones shorter. None leaves its note, where another one may be.
double heightOf(double depth)
{
    return 0.6 + 2.2 * depth / most;
}

double lengthOf(double rate)
{
    return 15 - 10 * rate / most;
}

} // namespace

// The vibrato is the last part of its note; its line runs along the lower edge, below the lyric.
void drawVibrato(const Sheet& sheet, const Note& note)
{
    constexpr double step = 1;
    const Vibrato& vibrato = note.vibrato;
    const std::int64_t end = endOf(note);
    const double origin = sheet.layout.x(sheet.line, end - vibrato.duration);
    const double middle = sheet.line.rowTop(note.number) + rowHeight - 3.8;
    std::vector<Place> points;
    double phase = 0;
    for (double x = origin; x <= sheet.layout.x(sheet.line, end); x += step) {
        const double pos = (x - origin) / sheet.layout.pixelsPerTick;
        if (x >= sheet.layout.left() && x <= sheet.layout.right(sheet.line)) {
            points.push_back(
                {x, middle - heightOf(valueAt(vibrato.depths, pos)) * std::sin(phase)});
        }
        phase += 2 * std::numbers::pi * step / lengthOf(valueAt(vibrato.rates, pos));
    }
    if (vibrato.duration > 0 && points.size() > 1) {
        sheet.svg.path(points, "vibrato");
    }
}

} // namespace plxclip::roll
