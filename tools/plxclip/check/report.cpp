#include "check/report.h"

#include <fmt/format.h>

#include "console.h"

namespace plxclip::check {

namespace {

std::string countOf(std::size_t number, std::string_view one, std::string_view many)
{
    return fmt::format("{} {}", number, number == 1 ? one : many);
}

std::string statusOf(const ClipReport& clip)
{
    if (!clip.isListed) {
        return styled(Style::bad, "not listed");
    }
    std::string text = "listed";
    if (clip.isWhole) {
        text += " from the clip file itself, without key and tempo";
    }
    if (!clip.partReads) {
        return text + ", " + styled(Style::bad, "but its part cannot be read");
    }
    return text;
}

std::string fileNameOf(const std::string& path)
{
    return path.substr(path.rfind('/') + 1);
}

std::string placeOf(const ClipReport& clip, const Finding& finding)
{
    std::string place = finding.document.empty() ? fileNameOf(clip.path) : finding.document;
    if (finding.position.line != 0) {
        place += fmt::format(":{}:{}", finding.position.line, finding.position.column);
    }
    return place;
}

std::string lineOf(const ClipReport& clip, const Finding& finding)
{
    const std::string place = styled(Style::dim, placeOf(clip, finding));
    const std::string pointer = finding.pointer.empty() ? "" : finding.pointer + " ";
    return fmt::format("    {}: {}{}\n", place, pointer, finding.message);
}

} // namespace

std::string textOf(const ClipReport& clip)
{
    if (clip.findings.empty()) {
        return {};
    }
    std::string text = styled(Style::heading, clip.path) + '\n';
    text += "  " + statusOf(clip) + '\n';
    for (const Finding& finding : clip.findings) {
        text += lineOf(clip, finding);
    }
    return text + '\n';
}

std::string textOf(const Summary& summary)
{
    std::string text = fmt::format(
        "{}: {} listed, {} not listed; {}; {}\n", countOf(summary.files, "clip file", "clip files"),
        summary.listed, summary.notListed,
        countOf(summary.unreadParts, "part of a listed clip cannot be read",
                "parts of listed clips cannot be read"),
        countOf(summary.losses, "thing is not taken", "things are not taken"));
    if (summary.noted > 0) {
        text +=
            fmt::format("{} to look at again\n", countOf(summary.noted, "place that loses nothing",
                                                         "places that lose nothing"));
    }
    if (summary.unexplained > 0) {
        text += fmt::format("{} where the library and this check differ\n",
                            countOf(summary.unexplained, "place", "places"));
    }
    return text;
}

} // namespace plxclip::check
