#include <algorithm>
#include <array>

#include "roll/pieces.h"

namespace plxclip::roll {

namespace {

constexpr double waveHeight = 180;
constexpr double secondsHeight = 18;
constexpr double largestPeak = 127;

double yOf(double top, double peak)
{
    return top + waveHeight / 2 * (1 - 0.94 * peak / largestPeak);
}

// The highest samples from left to right, then the lowest back.
std::vector<Place> outlineOf(const std::vector<std::int32_t>& peaks, const Box& box)
{
    std::vector<Place> upper;
    std::vector<Place> lower;
    const double step = box.width / (static_cast<double>(peaks.size()) / 2);
    for (std::size_t i = 0; i + 1 < peaks.size(); i += 2) {
        const double x = box.x + (static_cast<double>(i) / 2 + 0.5) * step;
        lower.push_back({x, yOf(box.y, peaks[i])});
        upper.push_back({x, yOf(box.y, peaks[i + 1])});
    }
    upper.insert(upper.end(), lower.rbegin(), lower.rend());
    return upper;
}

// The smallest round number of seconds for which there is room.
double secondsStep(double seconds, double width)
{
    constexpr std::array<double, 14> steps = {0.01, 0.02, 0.05, 0.1, 0.2, 0.5, 1,
                                              2,    5,    10,   30,  60,  300, 3600};
    constexpr double room = 60;
    const auto found =
        std::ranges::find_if(steps, [&](double step) { return step / seconds * width >= room; });
    return found == steps.end() ? seconds : *found;
}

void drawSeconds(Svg& svg, const Box& box, double seconds)
{
    const double step = secondsStep(seconds, box.width);
    const double bottom = box.y + box.height;
    for (double second = 0; second < seconds; second += step) {
        const double x = box.x + second / seconds * box.width;
        svg.line({x, box.y}, {x, bottom}, "beat");
        svg.text({x + 2, bottom + 11}, "seconds", fmt::format("{:.4g} s", second));
    }
}

std::vector<std::string> aboutOf(const Properties& clip, const Wave& wave)
{
    std::vector<std::string> about = aboutClip(clip);
    about.push_back(fmt::format("{:.4g} seconds", wave.seconds));
    about.push_back(wave.channels == 1   ? "mono"
                    : wave.channels == 2 ? "stereo"
                                         : fmt::format("{} channels", wave.channels));
    about.push_back(fmt::format("{} samples a second", wave.rate));
    return about;
}

} // namespace

Picture drawWave(const Properties& clip, const Wave& wave, const View& view)
{
    const double width = view.width;
    const std::vector<std::string> about = aboutOf(clip, wave);
    const double top = headHeight + headOverhang(about, width);
    const Box box = {margin, top, width - 2 * margin, waveHeight};
    Svg svg(width, top + waveHeight + secondsHeight + margin);
    drawHead(svg, clip, about, width);
    svg.rectangle(box, "lane");
    drawSeconds(svg, box, wave.seconds);
    svg.line({box.x, yOf(top, 0)}, {box.x + box.width, yOf(top, 0)}, "zero");
    if (!wave.peaks.empty()) {
        svg.path(outlineOf(wave.peaks, box), "wave", true);
    }
    return svg.finish();
}

} // namespace plxclip::roll
