#include <algorithm>

#include "roll/pieces.h"

namespace plxclip::roll {

namespace {

constexpr double inset = 3; // so that a curve at a bound is not drawn on the frame

// Converts the values of a lane to heights.
struct Scale {
    double top;
    double least;
    double most;

    double y(double value) const
    {
        return top + inset + (laneHeight - 2 * inset) * (most - value) / (most - least);
    }

    bool hasZeroInside() const { return least < 0 && most > 0; }
};

Box frameOf(const Sheet& sheet, double top)
{
    const double left = sheet.layout.left();
    return {left, top, sheet.layout.right(sheet.line) - left, laneHeight};
}

void drawFrame(const Sheet& sheet, const Lane& lane, const Scale& scale)
{
    const double left = sheet.layout.left();
    sheet.svg.rectangle(frameOf(sheet, scale.top), "lane",
                        fmt::format("data-lane=\"{}\"", laneName(lane.type)));
    const double middle = scale.y(scale.hasZeroInside() ? 0 : (scale.least + scale.most) / 2);
    sheet.svg.line({left, middle}, {sheet.layout.right(sheet.line), middle}, "zero");
    sheet.svg.text({left - 6, scale.top + laneHeight / 2 + 3.5}, "lane-name", laneName(lane.type));
    sheet.svg.text({left - 6, scale.y(scale.most) + 6}, "lane-value", std::to_string(lane.most));
    sheet.svg.text({left - 6, scale.y(scale.least) + 1}, "lane-value", std::to_string(lane.least));
}

// A value holds until the next event; before the first there is none. Returns the points in this
// line, beginning with the value that holds at its start.
std::vector<Point> eventsIn(const Line& line, const Lane& lane)
{
    std::vector<Point> events;
    for (const Point& event : lane.events) {
        if (event.pos >= line.end) {
            break;
        }
        if (event.pos <= line.begin) {
            events.clear();
        }
        events.push_back(event);
    }
    return events;
}

std::vector<Place> stepsOf(const Sheet& sheet, const std::vector<Point>& events, const Scale& scale)
{
    std::vector<Place> steps;
    for (const Point& event : events) {
        const double x =
            sheet.layout.x(sheet.line, std::max<std::int64_t>(event.pos, sheet.line.begin));
        if (!steps.empty()) {
            steps.push_back({x, steps.back().y});
        }
        steps.push_back({x, scale.y(event.value)});
    }
    steps.push_back({sheet.layout.right(sheet.line), steps.back().y});
    return steps;
}

void drawCurve(const Sheet& sheet, const std::vector<Place>& steps, const Scale& scale)
{
    const double base = scale.hasZeroInside() ? scale.y(0) : scale.top + laneHeight;
    std::vector<Place> area = steps;
    area.push_back({steps.back().x, base});
    area.push_back({steps.front().x, base});
    sheet.svg.path(area, "area", true);
    sheet.svg.path(steps, "curve");
}

void drawEvent(const Sheet& sheet, const Point& event, Place place)
{
    sheet.svg.rectangle({place.x - 1.5, place.y - 1.5, 3, 3}, "event",
                        fmt::format("data-pos=\"{}\" data-value=\"{}\"", event.pos, event.value));
}

void drawValue(const Sheet& sheet, const Point& event, Place place, const Scale& scale)
{
    const bool isHigh = place.y < scale.top + 14;
    sheet.svg.text({place.x + 3, place.y + (isHigh ? 9.0 : -3.5)}, "event-value",
                   std::to_string(event.value));
}

// Writes numbers only where the curve stays level long enough for them.
void drawEvents(const Sheet& sheet, const std::vector<Point>& events, const Scale& scale)
{
    for (std::size_t i = 0; i < events.size(); ++i) {
        const Point& event = events[i];
        if (event.pos < sheet.line.begin) {
            continue;
        }
        const Place place = {sheet.layout.x(sheet.line, event.pos), scale.y(event.value)};
        const double end = i + 1 < events.size() ? sheet.layout.x(sheet.line, events[i + 1].pos)
                                                 : sheet.layout.right(sheet.line);
        drawEvent(sheet, event, place);
        if (place.x + textWidth(std::to_string(event.value), 8) + 4 < end) {
            drawValue(sheet, event, place, scale);
        }
    }
}

} // namespace

void drawLane(const Sheet& sheet, const Lane& lane, std::size_t place)
{
    const Scale scale = {sheet.layout.laneTop(sheet.line, place), static_cast<double>(lane.least),
                         static_cast<double>(lane.most)};
    sheet.svg.openGroup("controller");
    drawFrame(sheet, lane, scale);
    const std::vector<Point> events = eventsIn(sheet.line, lane);
    if (!events.empty()) {
        drawCurve(sheet, stepsOf(sheet, events, scale), scale);
        drawEvents(sheet, events, scale);
    }
    sheet.svg.closeGroup();
}

} // namespace plxclip::roll
