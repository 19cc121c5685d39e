#include "roll/roll.h"

#include "naming.h"
#include "roll/pieces.h"

namespace plxclip::roll {

namespace {

std::vector<std::string> aboutOf(const Properties& clip, const MidiPart& part, const View& view)
{
    std::vector<std::string> about = aboutClip(clip);
    about.push_back(fmt::format("{} notes", part.notes.size()));
    about.push_back(view.namesNumbers ? std::string(keyName(clip.key).value_or("no key"))
                                      : fmt::format("key {}", clip.key));
    if (clip.tempo > 0) {
        about.push_back(fmt::format("{} beats a minute", tempoText(clip.tempo)));
    }
    if (!part.styleName.empty()) {
        about.push_back(part.styleName);
    }
    about.push_back(meterText(view));
    about.push_back(fmt::format("{} ticks to the quarter note", view.ticksPerQuarter));
    return about;
}

void drawLine(const Sheet& sheet, const MidiPart& part)
{
    sheet.svg.openGroup("line");
    drawGrid(sheet);
    drawEnd(sheet, part.duration);
    drawNotes(sheet, part.notes);
    for (const LanePlace& place : sheet.line.lanes) {
        drawLane(sheet, place);
    }
    sheet.svg.closeGroup();
}

// Lanes that are flat all the time stand once, below all lines.
void drawFlatLanes(Svg& svg, const Layout& layout, double top)
{
    const Sheet sheet = {svg, layout, layout.lines.front()};
    for (const Lane* const lane : layout.flatLanes) {
        drawFlatLane(sheet, *lane, top, layout.begin, layout.end);
        top += flatHeight + flatGap;
    }
}

double flatLanesHeight(const Layout& layout)
{
    return static_cast<double>(layout.flatLanes.size()) * (flatHeight + flatGap);
}

} // namespace

View withMeter(View view, const MidiPart& part)
{
    if (view.meterFrom == MeterFrom::option) {
        return view;
    }
    if (const auto meter = guessMeter(part.notes, view.ticksPerQuarter)) {
        view.beats = meter->beats;
        view.beatUnit = meter->beatUnit;
        view.meterFrom = MeterFrom::notes;
    }
    return view;
}

std::string meterText(const View& view)
{
    const std::string_view source = view.meterFrom == MeterFrom::notes ? ", guessed from the notes"
                                    : view.meterFrom == MeterFrom::nothing
                                        ? ", as the notes fit no meter clearly"
                                        : "";
    return fmt::format("{}/{}{}", view.beats, view.beatUnit, source);
}

Picture draw(const Properties& clip, const MidiPart& part, const View& view)
{
    Layout layout = makeLayout(part, view);
    const std::vector<std::string> about = aboutOf(clip, part, view);
    layout.moveDown(headOverhang(about, layout.width()));
    const double flatTop = layout.bottom() + lineGap;
    const double legendTop = flatTop + flatLanesHeight(layout) + 4;
    Svg svg(layout.width(), legendTop + legendHeight(layout, part.notes) + 4);
    drawHead(svg, clip, about, layout.width());
    for (const Line& line : layout.lines) {
        drawLine({svg, layout, line}, part);
    }
    drawFlatLanes(svg, layout, flatTop);
    drawLegend(svg, layout, part.notes, legendTop);
    return svg.finish();
}

} // namespace plxclip::roll
