#include <algorithm>

#include "roll/pieces.h"

namespace plxclip::roll {

namespace {

constexpr double valueSize = 8;
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

double valueWidth(const Point& event)
{
    return textWidth(std::to_string(event.value), valueSize);
}

// Numbers beside their events and inside the lane, never on each other, and none twice.
class Values {
public:
    Values(const Sheet& pictureSheet, const Scale& laneScale)
        : sheet(pictureSheet), scale(laneScale)
    {
    }

    // At the right of the event, or at its left when there is no room; above it, or below it if there
    // is no room or that is wanted.
    void draw(const Point& event, std::string_view styleClass, bool isBelow = false)
    {
        if (std::ranges::count(written, event.pos) > 0) {
            return;
        }
        const Place place = placeOf(event);
        const double width = valueWidth(event);
        const bool hasRoomBelow = place.y + 11 < scale.top + laneHeight;
        const double y =
            place.y + (place.y < scale.top + 14 || (isBelow && hasRoomBelow) ? 9.0 : -3.5);
        for (const double left : {place.x + 3, place.x - 3 - width}) {
            const Box box = {left, y - valueSize, width, valueSize + 2};
            if (isInside(box) && std::ranges::none_of(taken, [&](const Box& other) {
                    return overlap(box, other);
                })) {
                taken.push_back(box);
                written.push_back(event.pos);
                sheet.svg.text({left, y}, styleClass, std::to_string(event.value));
                return;
            }
        }
    }

    Place placeOf(const Point& event) const
    {
        const std::int64_t pos = std::max<std::int64_t>(event.pos, sheet.line.begin);
        return {sheet.layout.x(sheet.line, pos), scale.y(event.value)};
    }

private:
    bool isInside(const Box& box) const
    {
        return box.x >= sheet.layout.left() && box.x + box.width <= sheet.layout.right(sheet.line);
    }

    const Sheet& sheet;
    const Scale& scale;
    std::vector<Box> taken;
    std::vector<std::int32_t> written; // the places of their events
};

// The first of the highest and of the lowest values.
void drawExtremes(Values& values, const std::vector<Point>& events)
{
    const auto byValue = [](const Point& a, const Point& b) { return a.value < b.value; };
    values.draw(*std::ranges::max_element(events, byValue), "event-value extreme");
    values.draw(*std::ranges::min_element(events, byValue), "event-value extreme", true);
}

// Other numbers stand only where the curve stays level long enough for them.
void drawLevels(const Sheet& sheet, Values& values, const std::vector<Point>& events)
{
    for (std::size_t i = 0; i < events.size(); ++i) {
        const double end = i + 1 < events.size() ? sheet.layout.x(sheet.line, events[i + 1].pos)
                                                 : sheet.layout.right(sheet.line);
        if (events[i].pos >= sheet.line.begin &&
            values.placeOf(events[i]).x + valueWidth(events[i]) + 4 < end) {
            values.draw(events[i], "event-value");
        }
    }
}

void drawEvents(const Sheet& sheet, const std::vector<Point>& events, const Scale& scale)
{
    Values values(sheet, scale);
    for (const Point& event : events) {
        if (event.pos >= sheet.line.begin) {
            drawEvent(sheet, event, values.placeOf(event));
        }
    }
    drawExtremes(values, events);
    drawLevels(sheet, values, events);
}

std::string flatText(const std::vector<Point>& events, std::int64_t begin)
{
    if (events.empty()) {
        return "no events";
    }
    const Point& first = events.front();
    return first.pos <= begin ? fmt::format("{} throughout", first.value)
                              : fmt::format("{} from tick {}", first.value, first.pos);
}

} // namespace

void drawLane(const Sheet& sheet, const LanePlace& place)
{
    const Lane& lane = *place.lane;
    const double top = sheet.line.rollBottom() + place.top;
    if (place.isFlat) {
        drawFlatLane(sheet, lane, top, sheet.line.begin, sheet.line.end);
        return;
    }
    const Scale scale = {top, static_cast<double>(lane.least), static_cast<double>(lane.most)};
    const std::vector<Point> events = eventsIn(lane, sheet.line.begin, sheet.line.end);
    sheet.svg.openGroup("controller");
    drawFrame(sheet, lane, scale);
    drawCurve(sheet, stepsOf(sheet, events, scale), scale);
    drawEvents(sheet, events, scale);
    sheet.svg.closeGroup();
}

void drawFlatLane(const Sheet& sheet, const Lane& lane, double top, std::int64_t begin,
                  std::int64_t end)
{
    const double left = sheet.layout.left();
    sheet.svg.openGroup("flat", fmt::format("data-lane=\"{}\"", laneName(lane.type)));
    sheet.svg.rectangle({left, top, sheet.layout.right(sheet.line) - left, flatHeight}, "lane");
    sheet.svg.text({left - 6, top + flatHeight - 4}, "lane-name", laneName(lane.type));
    sheet.svg.text({left + 5, top + flatHeight - 4}, "flat-value",
                   flatText(eventsIn(lane, begin, end), begin));
    sheet.svg.closeGroup();
}

} // namespace plxclip::roll
