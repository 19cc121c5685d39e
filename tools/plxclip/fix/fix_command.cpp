#include <algorithm>
#include <iterator>
#include <map>
#include <memory>
#include <set>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "catalogue.h"
#include "check/clip_check.h"
#include "commands.h"
#include "console.h"
#include "fix/clip_plan.h"
#include "fix/fix_report.h"
#include "fix/originals.h"
#include "format/limits.h"
#include "format/rewrite.h"
#include "options.h"
#include "paths.h"

namespace plxclip {

namespace {

namespace fs = std::filesystem;
namespace own = Korvel::CANTORIS::PLX;
using fix::ClipPlan;
using fix::DocumentPlan;

struct FixOptions {
    std::vector<std::string> folders;
    std::vector<std::string> userFolders;
    fix::Given given;
    std::optional<std::string> originals;
    bool keepsNoOriginals = false;
    bool isDryRun = false;
    bool isJson = false;
    bool isAgreed = false;

    bool mayAsk() const { return !isAgreed && !isDryRun && !isJson && isInputTerminal(); }
};

// What only the names and the whole catalogue show.
std::vector<check::ClipReport> checkedClips(const Folders& folders)
{
    const Catalogue catalogue(folders);
    return check::checkClips(catalogue.clips(), folders, [](std::size_t, std::size_t) {});
}

// Why a file cannot be read as a clip, whatever is in it; null if it can.
const check::Finding* obstacleOf(const check::ClipReport& clip)
{
    const auto found = std::ranges::find_if(clip.findings, [](const check::Finding& finding) {
        return finding.effect == check::effect::passedOver &&
               finding.reason != check::reason::duplicate &&
               finding.reason != check::reason::unexplained;
    });
    return found == clip.findings.end() ? nullptr : &*found;
}

// Where capital letters are not told from small ones, both names are those of one file, and to rename it
// from one to the other may do nothing. So it gets a third name in between.
bool renameOneFile(const fs::path& from, const fs::path& to)
{
    std::error_code error;
    fs::path between = to;
    between += "-renamed";
    if (!fs::equivalent(from, to, error) || fs::exists(between, error)) {
        return false;
    }
    fs::rename(from, between, error);
    if (error) {
        return false;
    }
    fs::rename(between, to, error);
    const bool isDone = !error;
    if (!isDone) {
        fs::rename(between, from, error);
    }
    return isDone;
}

// Never takes the place of another file.
bool renameFile(const fs::path& from, const fs::path& to)
{
    std::error_code error;
    if (fs::exists(to, error)) {
        return renameOneFile(from, to);
    }
    fs::rename(from, to, error);
    return !error;
}

// Writes what was planned, clip by clip.
class Fixing {
public:
    Fixing(const FixOptions& chosen, Folders clipFolders)
        : options(chosen), folders(std::move(clipFolders)), clips(checkedClips(folders)),
          report(options.isJson, options.isDryRun)
    {
        for (const check::ClipReport& clip : clips) {
            ++filesIn[pathOf(clip.path).parent_path()];
        }
        if (!options.keepsNoOriginals && !options.isDryRun) {
            originals.emplace(options.originals, folders);
        }
    }

    ExitStatus run()
    {
        fix::Planner planner(
            options.given, [this](const std::string& question) { return isWanted(question); },
            listedIds());
        for (const check::ClipReport& clip : clips) {
            const fs::path file = pathOf(clip.path);
            ClipPlan plan = planner.plan(file, obstacleOf(clip), filesIn[file.parent_path()] > 1);
            addDuplicate(clip, plan);
            report.begin(plan);
            if (plan.hasChanges() && !options.isDryRun) {
                write(plan);
            }
            report.end(std::move(plan));
        }
        report.finish(originals ? originals->folder() : std::string());
        return report.isAllFine() ? exitDone : exitProblem;
    }

private:
    bool isWanted(const std::string& question) const
    {
        return options.isAgreed || (options.mayAsk() && confirm(question));
    }

    std::set<std::string> listedIds() const
    {
        std::set<std::string> ids;
        for (const check::ClipReport& clip : clips) {
            ids.insert(clip.id);
        }
        return ids;
    }

    static void addDuplicate(const check::ClipReport& clip, ClipPlan& plan)
    {
        std::ranges::copy_if(clip.findings, std::back_inserter(plan.left), [](const auto& finding) {
            return finding.reason == check::reason::duplicate;
        });
    }

    void write(const ClipPlan& plan)
    {
        for (const DocumentPlan& document : plan.documents) {
            if (document.isToBeWritten() && !write(document)) {
                return;
            }
        }
    }

    bool write(const DocumentPlan& document)
    {
        const auto fail = [&](std::string_view why) {
            report.fail(fmt::format("{}: {}", textOf(document.former), why));
            return false;
        };
        if (fix::contentOf(document.former, own::format::dataDocumentLimit) != document.bytes) {
            return fail("was changed meanwhile, and stays as it is");
        }
        const bool isNewText = document.bytes != document.after;
        if (isNewText && document.bytes &&
            document.bytes->size() > own::format::propertyDocumentLimit) {
            return fail("is too large to be written safely, and stays as it is");
        }
        if (isNewText && document.bytes && originals &&
            !originals->keep(document.former, *document.bytes)) {
            return fail("stays as it is, because the original cannot be kept; see --originals");
        }
        if (document.former != document.file && !renameFile(document.former, document.file)) {
            return fail("cannot get another name");
        }
        if (isNewText &&
            !own::format::rewriteDocument(libraryPath(textOf(document.file)), document.after)) {
            return fail("cannot be written; see whether you may write to it, and whether the disk "
                        "is full");
        }
        return true;
    }

    const FixOptions& options;
    Folders folders;
    std::vector<check::ClipReport> clips;
    std::map<fs::path, std::size_t> filesIn; // of each folder
    fix::Report report;
    std::optional<fix::Originals> originals;
};

ExitStatus runFix(const FixOptions& options)
{
    return Fixing(options, foldersOf(options.folders, options.userFolders)).run();
}

void addFixOptions(CLI::App& command, FixOptions& options)
{
    addFolders(command, options.folders, options.userFolders);
    command.add_flag("--dry-run", options.isDryRun,
                     "Show what would be changed, and change nothing");
    command.add_flag("--yes", options.isAgreed,
                     "Rename keys that are like those of the library, without asking");
    command.add_option("--id", options.given.id, "The ID of a clip that has none")
        ->check(notEmpty());
    command.add_option("--name", options.given.name, "The name of clips that have none")
        ->check(notEmpty());
    command.add_option("--vendor", options.given.vendor,
                       "The vendor of clips that get a new property.json and tell none");
    command
        .add_option(
            "--originals", options.originals,
            "Keep the documents as they were in this folder, which must not be among the clips")
        ->type_name("DIR")
        ->check(notEmpty());
    command.add_flag("--no-originals", options.keepsNoOriginals,
                     "Do not keep the documents as they were");
    command.add_flag("--json", options.isJson, "Write JSON, for other programs; does not ask");
    excludeEachOther(command, "--originals", "--no-originals");
}

} // namespace

void addFix(CLI::App& app, Work& chosen)
{
    CLI::App* const command = app.add_subcommand(
        "fix", "Mend what \"check\" names, as far as that can be decided, and name the rest");
    const auto options = std::make_shared<FixOptions>();
    addFixOptions(*command, *options);
    command->footer(
        "The originals go to plxclip/originals in the folder XDG_STATE_HOME, which usually is\n"
        "~/.local/state; on Windows in %LOCALAPPDATA%.\n"
        "Exit status: 0 nothing is damaged any more; 1 something is; 2 the command line makes\n"
        "no sense.\n\n"
        "Examples:\n"
        "  plxclip fix my-clips --dry-run\n"
        "  plxclip fix my-clips --yes --originals before");
    command->callback([options, &chosen] { chosen = [options] { return runFix(*options); }; });
}

} // namespace plxclip
