#include <functional>
#include <memory>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "catalogue.h"
#include "check/clip_check.h"
#include "commands.h"
#include "console.h"
#include "json_writer.h"
#include "options.h"
#include "progress.h"

namespace plxclip {

namespace effect = check::effect;
namespace reason = check::reason;
using check::ClipReport;
using check::Finding;

namespace {

struct Summary {
    std::size_t files = 0;
    std::size_t listed = 0;
    std::size_t unreadParts = 0; // of listed clips
    std::size_t losses = 0;      // elements and values that are not taken
    std::size_t noted = 0;       // what loses nothing
    std::size_t unexplained = 0;
    bool isFine = true; // nothing is lost, whatever else was noted
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
            summary.isFine = summary.isFine && finding.effect == effect::noted;
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
    json.objects("findings", clip.findings, writeFinding);
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

// --- All of it ------------------------------------------------------------------------------------------

std::string textOf(const std::vector<ClipReport>& clips, const Summary& summary, bool isQuiet)
{
    std::string text;
    for (const ClipReport& clip : clips) {
        text += isQuiet || clip.findings.empty() ? "" : textOf(clip);
    }
    return text + textOf(summary);
}

std::string jsonOf(const std::vector<ClipReport>& clips, const Summary& summary)
{
    Json json;
    json.object([&] {
        json.objects("clips", clips, writeClip);
        json.object("summary", [&] { writeSummary(json, summary); });
    });
    return json.text();
}

// --- The command ----------------------------------------------------------------------------------------

struct CheckOptions {
    std::vector<std::string> folders;
    std::vector<std::string> userFolders;
    bool isJson = false;
    bool isQuiet = false;
};

std::vector<ClipReport> checkAll(const Folders& folders)
{
    const Catalogue catalogue(folders);
    ProgressLine progress("checked {} of {} files");
    return check::checkClips(catalogue.clips(), folders, std::ref(progress));
}

ExitStatus runCheck(const CheckOptions& options)
{
    const auto clips = checkAll(foldersOf(options.folders, options.userFolders));
    const Summary summary = summaryOf(clips);
    print(options.isJson ? jsonOf(clips, summary) : textOf(clips, summary, options.isQuiet));
    return summary.isFine ? exitDone : exitProblem;
}

} // namespace

void addCheck(CLI::App& app, Work& chosen)
{
    CLI::App* const command = app.add_subcommand(
        "check",
        "Say which clip files a host does not list, and what it does not take from others");
    const auto options = std::make_shared<CheckOptions>();
    addFolders(*command, options->folders, options->userFolders);
    command->add_flag("--json", options->isJson, "Write JSON, with the clips that are fine too");
    command->add_flag("--quiet", options->isQuiet, "Show the figures alone");
    excludeEachOther(*command, "--quiet", "--json");
    command->footer("Places are FILE:LINE:COLUMN, with the JSON pointer of the value.\n"
                    "Exit status: 0 nothing is lost; 1 something is; 2 the command line makes no\n"
                    "sense.\n\n"
                    "Examples:\n"
                    "  plxclip check examples/library\n"
                    "  plxclip check factory --user my-clips --json");
    command->callback([options, &chosen] { chosen = [options] { return runCheck(*options); }; });
}

} // namespace plxclip
