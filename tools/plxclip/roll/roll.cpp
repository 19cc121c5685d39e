#include "roll/roll.h"

#include "naming.h"
#include "roll/pieces.h"

namespace plxclip::roll {

namespace {

std::string aboutText(const Properties& clip, const MidiPart& part, const View& view)
{
    std::string text = clip.vendor.empty() ? "" : clip.vendor + " · ";
    text +=
        fmt::format("{} · {} notes · key {}", nameOf(clip.partType), part.notes.size(), clip.key);
    text += clip.tempo > 0 ? fmt::format(" · {} beats a minute", tempoText(clip.tempo)) : "";
    text += part.styleName.empty() ? "" : " · " + part.styleName;
    return text + fmt::format(" · drawn in {}/{} with {} ticks to the quarter note", view.beats,
                              view.beatUnit, view.ticksPerQuarter);
}

void drawHead(Svg& svg, const Properties& clip, const MidiPart& part, const View& view)
{
    svg.title(clip.name);
    svg.text({margin, 26}, "name", clip.name);
    svg.text({margin, 43}, "about", aboutText(clip, part, view));
}

void drawLanes(const Sheet& sheet, const std::vector<Lane>& lanes)
{
    std::size_t place = 0;
    for (const Lane& lane : lanes) {
        if (!lane.events.empty()) {
            drawLane(sheet, lane, place);
            ++place;
        }
    }
}

} // namespace

std::string draw(const Properties& clip, const MidiPart& part, const View& view)
{
    const Layout layout = makeLayout(part, view);
    Svg svg(layout.width(), layout.height());
    drawHead(svg, clip, part, view);
    for (const Line& line : layout.lines()) {
        const Sheet sheet = {svg, layout, line};
        svg.openGroup("line");
        drawGrid(sheet);
        drawEnd(sheet, part.duration);
        drawNotes(sheet, part.notes);
        drawLanes(sheet, part.lanes);
        svg.closeGroup();
    }
    return svg.finish();
}

} // namespace plxclip::roll
