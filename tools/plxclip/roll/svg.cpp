#include "roll/svg.h"

namespace plxclip::roll {

namespace {

// Viewers without these fonts use others; the widths leave room for that.
constexpr std::string_view styleSheet = R"(<style>
text { font-family: "Noto Sans", "DejaVu Sans", "Noto Sans CJK JP", "Yu Gothic", sans-serif;
       fill: #1d2430; }
.paper { fill: #ffffff; }
.name { font-size: 18px; font-weight: bold; }
.about { font-size: 11px; fill: #5b6675; }
.row { fill: #ffffff; }
.row.black { fill: #f0f2f6; }
.key { fill: #ffffff; stroke: #aeb6c2; stroke-width: 0.6; }
.key.black { fill: #3a4250; }
.pitch { font-size: 9px; fill: #5b6675; text-anchor: end; }
.black.pitch { fill: #ffffff; }
.c.pitch { fill: #1d2430; font-weight: bold; }
.octave { stroke: #c3cad5; stroke-width: 0.8; }
.beat { stroke: #dfe3ea; stroke-width: 0.8; }
.bar { stroke: #8e99a8; stroke-width: 1; }
.bar-number { font-size: 10px; fill: #5b6675; }
.end { fill: #5b6675; fill-opacity: 0.07; }
.fold { fill: #e4e8ee; stroke: #aeb6c2; stroke-width: 0.6; stroke-dasharray: 3 2; }
.fold-text { font-size: 8.5px; fill: #5b6675; text-anchor: end; }
.note, .shade { fill: #84b4f7; stroke: #2f62b5; stroke-width: 1; }
.lyric { font-size: 11px; }
.lyric.continued { font-style: italic; fill: #4a5565; }
.phoneme { font-size: 8.5px; fill: #6a4a1f; }
.vibrato, .vibrato-sample { fill: none; stroke: #c2255c; stroke-width: 1.3; stroke-linejoin: round; }
.mark { fill: #8a1242; }
.lane { fill: #fbfcfd; stroke: #c3cad5; stroke-width: 0.8; }
.zero { stroke: #c3cad5; stroke-width: 0.8; stroke-dasharray: 3 3; }
.lane-name { font-size: 10px; font-weight: bold; text-anchor: end; }
.lane-value { font-size: 8.5px; fill: #5b6675; text-anchor: end; }
.area { fill: #2b8a6e; fill-opacity: 0.18; }
.curve { fill: none; stroke: #2b8a6e; stroke-width: 1.4; }
.event { fill: #2b8a6e; }
.event-value { font-size: 8px; fill: #1c5f4b; }
.extreme { font-weight: bold; }
.flat-value, .seconds { font-size: 9px; fill: #5b6675; }
.legend-text { font-size: 9.5px; fill: #5b6675; }
.wave { fill: #2b8a6e; stroke: #2b8a6e; stroke-width: 0.6; }
</style>
)";

bool isForbidden(unsigned char byte)
{
    return byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r';
}

std::string_view entityOf(char letter)
{
    switch (letter) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    default:
        return {};
    }
}

// The noncharacters U+FFFE and U+FFFF are three bytes in UTF-8.
bool isNoncharacter(std::string_view rest)
{
    return rest.starts_with("\xEF\xBF\xBE") || rest.starts_with("\xEF\xBF\xBF");
}

std::string pathData(const std::vector<Place>& points, bool isClosed)
{
    std::string data;
    for (const Place& point : points) {
        fmt::format_to(std::back_inserter(data), "{}{:.1f} {:.1f}", data.empty() ? "M" : "L",
                       point.x, point.y);
    }
    return isClosed ? data + "Z" : data;
}

} // namespace

std::string escaped(std::string_view text)
{
    std::string result;
    while (!text.empty()) {
        if (isNoncharacter(text)) {
            result += "\xEF\xBF\xBD";
            text.remove_prefix(3);
            continue;
        }
        const std::string_view entity = entityOf(text.front());
        if (isForbidden(static_cast<unsigned char>(text.front()))) {
            result += "\xEF\xBF\xBD";
        } else if (entity.empty()) {
            result += text.front();
        } else {
            result += entity;
        }
        text.remove_prefix(1);
    }
    return result;
}

Svg::Svg(double pictureWidth, double pictureHeight)
    : width(pictureWidth), height(pictureHeight),
      output(fmt::format("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                         "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"{0:.0f}\" "
                         "height=\"{1:.0f}\" viewBox=\"0 0 {0:.0f} {1:.0f}\">\n",
                         width, height))
{
    output += styleSheet;
    rectangle({0, 0, width, height}, "paper");
}

void Svg::rectangle(const Box& box, std::string_view styleClass, std::string_view attributes)
{
    fmt::format_to(std::back_inserter(output),
                   "<rect class=\"{}\" x=\"{:.2f}\" y=\"{:.2f}\" width=\"{:.2f}\" "
                   "height=\"{:.2f}\"{}{}/>\n",
                   styleClass, box.x, box.y, box.width, box.height, attributes.empty() ? "" : " ",
                   attributes);
}

void Svg::line(Place from, Place to, std::string_view styleClass)
{
    fmt::format_to(std::back_inserter(output),
                   "<line class=\"{}\" x1=\"{:.2f}\" y1=\"{:.2f}\" x2=\"{:.2f}\" y2=\"{:.2f}\"/>\n",
                   styleClass, from.x, from.y, to.x, to.y);
}

void Svg::path(const std::vector<Place>& points, std::string_view styleClass, bool isClosed)
{
    fmt::format_to(std::back_inserter(output), "<path class=\"{}\" d=\"{}\"/>\n", styleClass,
                   pathData(points, isClosed));
}

void Svg::text(Place place, std::string_view styleClass, std::string_view content,
               std::string_view attributes)
{
    fmt::format_to(std::back_inserter(output),
                   "<text class=\"{}\" x=\"{:.1f}\" y=\"{:.1f}\"{}{}>{}</text>\n", styleClass,
                   place.x, place.y, attributes.empty() ? "" : " ", attributes, escaped(content));
}

void Svg::openGroup(std::string_view styleClass, std::string_view attributes)
{
    fmt::format_to(std::back_inserter(output), "<g class=\"{}\"{}{}>\n", styleClass,
                   attributes.empty() ? "" : " ", attributes);
}

void Svg::closeGroup()
{
    output += "</g>\n";
}

void Svg::title(std::string_view content)
{
    fmt::format_to(std::back_inserter(output), "<title>{}</title>\n", escaped(content));
}

Picture Svg::finish()
{
    return {output + "</svg>\n", width, height};
}

} // namespace plxclip::roll
