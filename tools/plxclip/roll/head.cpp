#include "naming.h"
#include "roll/pieces.h"

namespace plxclip::roll {

namespace {

constexpr double nameSize = 18;
constexpr double aboutSize = 11;
constexpr double aboutHeight = 15;
constexpr std::string_view betweenPieces = " · ";

// As many pieces on a line as fit.
std::vector<std::string> linesOf(const std::vector<std::string>& pieces, double room)
{
    std::vector<std::string> lines;
    for (const std::string& piece : pieces) {
        if (!lines.empty() &&
            textWidth(lines.back() + std::string(betweenPieces) + piece, aboutSize) <= room) {
            lines.back().append(betweenPieces).append(piece);
        } else {
            lines.push_back(piece);
        }
    }
    return lines;
}

} // namespace

std::vector<std::string> aboutClip(const Properties& clip)
{
    std::vector<std::string> about;
    if (!clip.vendor.empty()) {
        about.push_back(clip.vendor);
    }
    about.emplace_back(nameOf(clip.partType));
    return about;
}

double headOverhang(const std::vector<std::string>& about, double width)
{
    return aboutHeight * (static_cast<double>(linesOf(about, width - 2 * margin).size()) - 1);
}

void drawHead(Svg& svg, const Properties& clip, const std::vector<std::string>& about, double width)
{
    const double room = width - 2 * margin;
    svg.title(clip.name);
    svg.text({margin, 26}, "name", shortenedTo(clip.name, nameSize, room));
    double y = 43;
    for (const std::string& line : linesOf(about, room)) {
        svg.text({margin, y}, "about", shortenedTo(line, aboutSize, room));
        y += aboutHeight;
    }
}

} // namespace plxclip::roll
