#include <chrono>
#include <memory>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "catalogue.h"
#include "check/clip_check.h"
#include "check/report.h"
#include "commands.h"
#include "console.h"
#include "options.h"

namespace plxclip {

namespace {

struct CheckOptions {
    std::vector<std::string> folders;
    std::vector<std::string> userFolders;
    bool isJson = false;
    bool isQuiet = false;
};

// A line on the terminal that is written again and again while the work is long, and then goes.
class ProgressLine {
public:
    ~ProgressLine()
    {
        if (isShown) {
            printError("\r\x1B[K");
        }
    }

    void show(std::size_t done, std::size_t all)
    {
        const auto now = std::chrono::steady_clock::now();
        if (!isTerminal(Stream::error) || now - last < std::chrono::milliseconds(200)) {
            return;
        }
        printError(fmt::format("\rchecked {} of {} files", done, all));
        last = now;
        isShown = true;
    }

private:
    std::chrono::steady_clock::time_point last = std::chrono::steady_clock::now();
    bool isShown = false;
};

std::vector<check::ClipReport> checkAll(const Folders& folders)
{
    const Catalogue catalogue(folders);
    ProgressLine progress;
    return check::checkClips(
        catalogue.manager(), folders,
        [&progress](std::size_t done, std::size_t all) { progress.show(done, all); });
}

ExitStatus runCheck(const CheckOptions& options)
{
    const auto clips = checkAll(foldersOf(options.folders, options.userFolders));
    print(options.isJson ? check::jsonOf(clips) : check::textOf(clips, options.isQuiet));
    return check::isFine(clips) ? exitDone : exitProblem;
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
    command->footer("Places are FILE:LINE:COLUMN, with the JSON pointer of the value.\n"
                    "Exit status: 0 nothing is lost; 1 something is; 2 the command line makes no\n"
                    "sense.\n\n"
                    "Examples:\n"
                    "  plxclip check examples/library\n"
                    "  plxclip check factory --user my-clips --json");
    command->callback([options, &chosen] { chosen = [options] { return runCheck(*options); }; });
}

} // namespace plxclip
