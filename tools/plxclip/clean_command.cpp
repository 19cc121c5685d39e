#include <algorithm>
#include <chrono>
#include <filesystem>
#include <memory>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "catalogue.h"
#include "clip_names.h"
#include "commands.h"
#include "console.h"
#include "fs/fs.h"
#include "options.h"
#include "paths.h"

namespace plxclip {

namespace {

namespace fs = std::filesystem;

struct CleanOptions {
    std::vector<std::string> folders;
    bool isAgreed = false;
    bool isDryRun = false;
};

// Another program may be about to complete what is younger.
constexpr std::chrono::hours oldEnough{1};

// Saved clips have such folders, and nobody makes them by hand.
bool isUuid(const std::string& name)
{
    constexpr std::string_view pattern = "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx";
    const auto fits = [](char letter, char wanted) {
        constexpr std::string_view digits = "0123456789abcdef";
        return wanted == '-' ? letter == '-' : digits.find(letter) != std::string_view::npos;
    };
    return name.size() == pattern.size() && std::ranges::equal(name, pattern, fits);
}

bool isOld(const fs::path& path)
{
    std::error_code error;
    const auto time = fs::last_write_time(path, error);
    return !error && fs::file_time_type::clock::now() - time > oldEnough;
}

// Only plain files, all of them old.
bool holdsOldFiles(const fs::path& folder)
{
    std::error_code error;
    fs::directory_iterator entries(folder, error);
    for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
        if (entries->is_symlink(error) || !entries->is_regular_file(error) ||
            !isOld(entries->path())) {
            return false;
        }
    }
    return !error;
}

// Of a property document or the wave file of a clip, and nothing else.
bool isLeftover(const fs::directory_entry& entry)
{
    std::error_code error;
    if (!isOld(entry.path()) || entry.is_symlink(error)) {
        return false;
    }
    const std::string name = textOf(entry.path().filename());
    return (name == propertyName && entry.is_regular_file(error)) ||
           (name == audioName && entry.is_directory(error) && holdsOldFiles(entry.path()));
}

// What a save or a removal that was interrupted leaves: the folder of a clip that has no clip file.
bool isLeftFolder(const fs::directory_entry& folder)
{
    std::error_code error;
    if (!isUuid(textOf(folder.path().filename())) || folder.is_symlink(error) ||
        !folder.is_directory(error) || !isOld(folder.path())) {
        return false;
    }
    fs::directory_iterator entries(folder.path(), error);
    for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
        if (!isLeftover(*entries)) {
            return false;
        }
    }
    return !error;
}

std::vector<fs::path> leftFolders(const std::vector<std::string>& folders)
{
    std::vector<fs::path> found;
    for (const std::string& folder : folders) {
        std::error_code error;
        fs::directory_iterator entries(pathOf(folder), error);
        for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
            if (isLeftFolder(*entries)) {
                found.push_back(entries->path());
            }
        }
    }
    std::ranges::sort(found);
    return found;
}

// Looks again, because a program may have saved a clip there meanwhile.
bool removeFolder(const fs::path& folder)
{
    namespace own = Korvel::CANTORIS::PLX;
    std::error_code error;
    if (!isLeftFolder(fs::directory_entry(folder, error))) {
        return false;
    }
    const auto outer = own::fs::Folder::open(libraryPath(textOf(folder.parent_path())));
    return outer.isOpen() && outer.removeTree(libraryPath(textOf(folder.filename()))) &&
           outer.sync();
}

std::size_t removeAll(const std::vector<fs::path>& found)
{
    std::size_t removed = 0;
    for (const fs::path& folder : found) {
        const bool isRemoved = removeFolder(folder);
        removed += isRemoved ? 1 : 0;
        if (!isRemoved) {
            printError(
                fmt::format("{} is not removed; see whether you may delete it\n", textOf(folder)));
        }
    }
    return removed;
}

std::string countText(std::size_t count)
{
    return fmt::format("{} {}", count, count == 1 ? "folder" : "folders");
}

ExitStatus clean(const CleanOptions& options)
{
    std::vector<std::string> folders;
    for (const std::string& folder : options.folders) {
        const Folders meant = foldersToChange(folder);
        folders.insert(folders.end(), meant.user.begin(), meant.user.end());
    }
    const std::vector<fs::path> found = leftFolders(folders);
    for (const fs::path& folder : found) {
        print(textOf(folder) + '\n');
    }
    if (found.empty() || options.isDryRun) {
        print(fmt::format("{} without a clip\n", countText(found.size())));
        return exitDone;
    }
    if (!options.isAgreed &&
        !confirm(fmt::format("Delete {} from disk? [y/N] ", countText(found.size())))) {
        throw Failure("nothing is deleted; answer \"y\", or give --yes, to delete");
    }
    const std::size_t removed = removeAll(found);
    print(fmt::format("{} {}\n", styled(Style::good, "Removed"), countText(removed)));
    return removed == found.size() ? exitDone : exitProblem;
}

} // namespace

void addClean(CLI::App& app, Work& chosen)
{
    CLI::App* const command = app.add_subcommand(
        "clean", "Find what interrupted saves and removals have left, and delete it after asking");
    const auto options = std::make_shared<CleanOptions>();
    command
        ->add_option(
            "DIR", options->folders,
            "Folders of user clips. Of one that has the folders \"system\" and \"user\" in "
            "it, the folder \"user\" is meant")
        ->type_name("")
        ->required();
    command->add_flag("--yes", options->isAgreed, "Do not ask");
    command->add_flag("--dry-run", options->isDryRun, "Only show what would be deleted");
    excludeEachOther(*command, "--yes", "--dry-run");
    command->footer(
        "It finds folders directly in DIR that are named by a UUID, as those of saved clips\n"
        "are, and hold no clip file and nothing else but property.json and audio. What was\n"
        "changed within the last hour stays.");
    command->callback([options, &chosen] { chosen = [options] { return clean(*options); }; });
}

} // namespace plxclip
