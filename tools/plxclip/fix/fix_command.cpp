#include <map>
#include <memory>

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

check::Files filesOf(const Folders& folders)
{
    check::Files files;
    for (const std::string& folder : folders.system) {
        check::addFiles(pathOf(folder), false, files);
    }
    for (const std::string& folder : folders.user) {
        check::addFiles(pathOf(folder), true, files);
    }
    return files;
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
        : options(chosen), folders(std::move(clipFolders)), files(filesOf(folders)),
          report(options.isJson, options.isDryRun)
    {
        for (const auto& [file, found] : files) {
            ++filesIn[file.parent_path()];
        }
        if (!options.keepsNoOriginals && !options.isDryRun) {
            originals.emplace(options.originals, folders);
        }
    }

    ExitStatus run()
    {
        learnFromCheck();
        fix::Planner planner(
            options.given, [this](const std::string& question) { return isWanted(question); },
            listedIds);
        for (const auto& [file, found] : files) {
            ClipPlan plan = planner.plan(file, found, sharesFolder(file));
            addDuplicate(plan);
            report.begin(plan);
            if (plan.hasChanges() && !options.isDryRun) {
                write(plan);
            }
            report.end(plan);
        }
        report.finish(originals ? originals->folder() : std::string());
        return report.isAllFine() ? exitDone : exitProblem;
    }

private:
    bool isWanted(const std::string& question) const
    {
        return options.isAgreed || (options.mayAsk() && confirm(question));
    }

    // What only the whole catalogue shows: which IDs there are, and which of them twice.
    void learnFromCheck()
    {
        const Catalogue catalogue(folders);
        const auto reports =
            check::checkClips(catalogue.manager(), folders, [](std::size_t, std::size_t) {});
        for (const check::ClipReport& clip : reports) {
            if (clip.isListed) {
                listedIds.insert(clip.id);
            }
            for (const check::Finding& finding : clip.findings) {
                if (finding.reason == check::reason::duplicate) {
                    duplicates.emplace(clip.path, finding);
                }
            }
        }
    }

    void addDuplicate(ClipPlan& plan) const
    {
        const auto found = duplicates.find(textOf(plan.file));
        if (found != duplicates.end()) {
            plan.left.push_back(found->second);
        }
    }

    bool sharesFolder(const fs::path& file) const { return filesIn.at(file.parent_path()) > 1; }

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
    check::Files files;
    std::map<fs::path, std::size_t> filesIn; // of each folder
    fix::Report report;
    std::optional<fix::Originals> originals;
    std::set<std::string> listedIds;
    std::map<std::string, check::Finding> duplicates; // by the paths of their clips
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
    command.add_option("--id", options.given.id, "The ID of a clip that has none");
    command.add_option("--name", options.given.name, "The name of clips that have none");
    command.add_option("--vendor", options.given.vendor,
                       "The vendor of clips that get a new property.json and tell none");
    command
        .add_option(
            "--originals", options.originals,
            "Keep the documents as they were in this folder, which must not be among the clips")
        ->type_name("DIR");
    command.add_flag("--no-originals", options.keepsNoOriginals,
                     "Do not keep the documents as they were");
    command.add_flag("--json", options.isJson, "Write JSON, for other programs; does not ask");
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
