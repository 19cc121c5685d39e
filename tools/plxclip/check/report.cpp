#include "check/report.h"

#include <algorithm>

#include <fmt/format.h>

#include "console.h"
#include "json_writer.h"

namespace plxclip::check {

namespace {

struct Summary {
    std::size_t files = 0;
    std::size_t listed = 0;
    std::size_t unreadParts = 0; // of listed clips
    std::size_t losses = 0;      // elements and values that are not taken
    std::size_t noted = 0;       // what loses nothing
    std::size_t unexplained = 0;
};

Summary summaryOf(const std::vector<ClipReport>& clips)
{
    Summary summary{.files = clips.size()};
    for (const ClipReport& clip : clips) {
        summary.listed += clip.isListed ? 1U : 0U;
        summary.unreadParts += clip.isListed && !clip.partReads ? 1U : 0U;
        for (const Finding& finding : clip.findings) {
            const bool isLoss =
                finding.effect == effect::dropped || finding.effect == effect::ignored;
            summary.losses += isLoss ? 1U : 0U;
            summary.unexplained += finding.reason == reason::unexplained ? 1U : 0U;
            summary.noted += finding.effect == effect::noted ? 1U : 0U;
        }
    }
    return summary;
}

// --- For people -----------------------------------------------------------------------------------------

std::string statusOf(const ClipReport& clip)
{
    if (!clip.isListed) {
        return styled(Style::bad, "not listed");
    }
    const std::string text =
        clip.isWhole ? "listed from the clip file itself, without key and tempo" : "listed";
    return clip.partReads ? text : text + ", " + styled(Style::bad, "but its part cannot be read");
}

std::string lineOf(const ClipReport& clip, const Finding& finding)
{
    std::string place =
        finding.document.empty() ? clip.path.substr(clip.path.rfind('/') + 1) : finding.document;
    if (finding.position.line != 0) {
        place += fmt::format(":{}:{}", finding.position.line, finding.position.column);
    }
    return fmt::format("    {}: {}{}{}\n", styled(Style::dim, place), finding.pointer,
                       finding.pointer.empty() ? "" : " ", finding.message);
}

std::string textOf(const ClipReport& clip)
{
    std::string text = styled(Style::heading, clip.path) + "\n  " + statusOf(clip) + '\n';
    for (const Finding& finding : clip.findings) {
        text += lineOf(clip, finding);
    }
    return text + '\n';
}

std::string countOf(std::size_t number, std::string_view one, std::string_view many)
{
    return fmt::format("{} {}", number, number == 1 ? one : many);
}

std::string textOf(const Summary& summary)
{
    std::string text = fmt::format(
        "{}: {} listed, {} not listed; {}; {}\n", countOf(summary.files, "clip file", "clip files"),
        summary.listed, summary.files - summary.listed,
        countOf(summary.unreadParts, "part of a listed clip cannot be read",
                "parts of listed clips cannot be read"),
        countOf(summary.losses, "thing is not taken", "things are not taken"));
    if (summary.noted > 0) {
        text += countOf(summary.noted, "place that loses nothing", "places that lose nothing") +
                " to look at again\n";
    }
    if (summary.unexplained > 0) {
        text += countOf(summary.unexplained, "place", "places") +
                " where the library and this check differ\n";
    }
    return text;
}

// --- For programs ---------------------------------------------------------------------------------------

void writeFinding(Json& json, const Finding& finding)
{
    json.member("effect", finding.effect);
    json.member("reason", finding.reason);
    json.member("document", std::string_view(finding.document.empty() ? "clip" : finding.document));
    json.member("pointer", finding.pointer);
    if (finding.position.line != 0) {
        json.member("line", finding.position.line);
        json.member("column", finding.position.column);
    }
    json.member("message", finding.message);
}

void writeClip(Json& json, const ClipReport& clip)
{
    json.member("path", clip.path);
    json.member("kind", std::string_view(clip.isUserClip ? "user" : "system"));
    json.member("listed", clip.isListed);
    if (clip.isListed) {
        json.member("partReads", clip.partReads);
        json.member("id", clip.id);
        json.member("name", clip.name);
    }
    json.key("findings");
    json.array(clip.findings,
               [&](const Finding& finding) { json.object([&] { writeFinding(json, finding); }); });
}

void writeSummary(Json& json, const Summary& summary)
{
    json.member("files", summary.files);
    json.member("listed", summary.listed);
    json.member("notListed", summary.files - summary.listed);
    json.member("unreadParts", summary.unreadParts);
    json.member("losses", summary.losses);
    json.member("noted", summary.noted);
    json.member("unexplained", summary.unexplained);
}

} // namespace

bool isFine(const std::vector<ClipReport>& clips)
{
    return std::ranges::all_of(clips, [](const ClipReport& clip) {
        return std::ranges::all_of(
            clip.findings, [](const Finding& finding) { return finding.effect == effect::noted; });
    });
}

std::string textOf(const std::vector<ClipReport>& clips, bool isQuiet)
{
    std::string text;
    for (const ClipReport& clip : clips) {
        text += isQuiet || clip.findings.empty() ? "" : textOf(clip);
    }
    return text + textOf(summaryOf(clips));
}

std::string jsonOf(const std::vector<ClipReport>& clips)
{
    Json json;
    json.object([&] {
        json.key("clips");
        json.array(clips,
                   [&](const ClipReport& clip) { json.object([&] { writeClip(json, clip); }); });
        json.key("summary");
        json.object([&] { writeSummary(json, summaryOf(clips)); });
    });
    return json.text();
}

} // namespace plxclip::check
