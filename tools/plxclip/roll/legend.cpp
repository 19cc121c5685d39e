#include <algorithm>
#include <array>
#include <cmath>

#include "roll/marks.h"
#include "roll/pieces.h"

namespace plxclip::roll {

namespace {

constexpr double symbolWidth = 40;
constexpr double symbolGap = 5;
constexpr double itemGap = 18;
constexpr double itemHeight = 20;
constexpr double legendSize = 9.5;

// Each draws what is explained, into a box of the symbol's width and the height of a row.
void drawShades(Svg& svg, Place at)
{
    double x = at.x;
    for (const std::uint32_t velocity : {1U, 64U, 127U}) {
        svg.rectangle({x, at.y, 12, 13}, "shade",
                      fmt::format("fill-opacity=\"{:.2f}\"", shadeOf(velocity)));
        x += 14;
    }
}

void drawWaves(Svg& svg, Place at)
{
    std::vector<Place> points;
    for (double x = 0; x <= symbolWidth; x += 1) {
        points.push_back({at.x + x, at.y + 6.5 - 2.6 * std::sin(x * 0.7)});
    }
    svg.path(points, "vibrato-sample");
}

struct Item {
    std::string_view name;
    std::string_view text;
    double width;
    void (*draw)(Svg& svg, Place at);
    bool (*isOn)(const Note& note);
};

constexpr std::array<Item, 5> items = {{
    {"velocity", "velocity 1, 64, 127", symbolWidth, drawShades, [](const Note&) { return true; }},
    {"vibrato", "vibrato: higher is deeper, shorter is faster", symbolWidth, drawWaves, hasVibrato},
    {"attack", "attack", 5, drawAttack, hasAttack},
    {"release", "release", 5, drawRelease, hasRelease},
    {"skill", "singing skill", 5, drawSkill, hasSkill},
}};

double widthOf(const Item& item)
{
    return item.width + symbolGap + textWidth(item.text, legendSize);
}

bool isUsed(const Item& item, const Layout& layout, const std::vector<Note>& notes)
{
    return std::ranges::any_of(notes, [&](const Note& note) {
        return sounds(note, layout.begin, layout.end) && item.isOn(note);
    });
}

struct Placed {
    const Item* item;
    Place at; // below the top of the legend
};

// Beside each other as far as there is room.
std::vector<Placed> place(const Layout& layout, const std::vector<Note>& notes)
{
    std::vector<Placed> placed;
    Place at = {margin, 0};
    for (const Item& item : items) {
        if (!isUsed(item, layout, notes)) {
            continue;
        }
        if (at.x > margin && at.x + widthOf(item) > layout.width() - margin) {
            at = {margin, at.y + itemHeight};
        }
        placed.push_back({&item, at});
        at.x += widthOf(item) + itemGap;
    }
    return placed;
}

void drawItem(Svg& svg, const Item& item, Place at)
{
    svg.openGroup("legend", fmt::format("data-mark=\"{}\"", item.name));
    item.draw(svg, {at.x, at.y + (item.width < symbolWidth ? 3 : 0)});
    svg.text({at.x + item.width + symbolGap, at.y + 10}, "legend-text", item.text);
    svg.closeGroup();
}

} // namespace

double legendHeight(const Layout& layout, const std::vector<Note>& notes)
{
    const std::vector<Placed> placed = place(layout, notes);
    return placed.empty() ? 0 : placed.back().at.y + itemHeight;
}

void drawLegend(Svg& svg, const Layout& layout, const std::vector<Note>& notes, double top)
{
    for (const Placed& each : place(layout, notes)) {
        drawItem(svg, *each.item, {each.at.x, top + each.at.y});
    }
}

} // namespace plxclip::roll
