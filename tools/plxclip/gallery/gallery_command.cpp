#include <filesystem>
#include <map>
#include <memory>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "catalogue.h"
#include "check/clip_check.h"
#include "commands.h"
#include "console.h"
#include "gallery/page.h"
#include "options.h"
#include "paths.h"
#include "reading.h"
#include "roll/view_options.h"
#include "safe_file.h"

namespace plxclip {

namespace {

using gallery::Contents;

struct GalleryOptions {
    std::vector<std::string> folders;
    std::vector<std::string> userFolders;
    std::string output;
    std::string title = "Clips";
    roll::View view;
    bool namesNumbers = false;
};

std::filesystem::path folderOf(const std::string& file)
{
    std::error_code error;
    const std::filesystem::path path = std::filesystem::weakly_canonical(pathOf(file), error);
    if (error) {
        throw Failure(
            fmt::format("\"{}\" is no place for a file; see whether its folder is there", file));
    }
    return path.has_parent_path() ? path.parent_path() : std::filesystem::current_path();
}

// What was found in the files of the listed clips, by ID: these are all different.
std::map<std::string, std::vector<check::Finding>> takeFindings(std::vector<check::ClipReport> all,
                                                                Contents& contents)
{
    std::map<std::string, std::vector<check::Finding>> findings;
    for (check::ClipReport& report : all) {
        if (report.isListed) {
            findings[report.id] = std::move(report.findings);
        } else {
            contents.notListed.push_back(std::move(report));
        }
    }
    return findings;
}

// The check has read the parts already.
void readClips(const Folders& folders, Contents& contents)
{
    const Catalogue catalogue(folders);
    const std::vector<korvel::plx::Clip> clips = catalogue.clips();
    auto findings =
        takeFindings(check::checkClips(clips, folders, [](std::size_t, std::size_t) {}), contents);
    for (const korvel::plx::Clip clip : clips) {
        Properties properties = propertiesOf(clip);
        std::vector<check::Finding> found = std::move(findings[properties.id]);
        contents.clips.push_back({std::move(properties), partOf(clip), std::move(found)});
    }
}

std::string countOfClips(std::size_t number)
{
    return fmt::format("{} {}", number, number == 1 ? "clip" : "clips");
}

ExitStatus makeGallery(const GalleryOptions& options)
{
    Contents contents{
        options.title, folderOf(options.output), options.view, options.namesNumbers, {}, {}};
    readClips(foldersOf(options.folders, options.userFolders), contents);
    writeWholeFile(options.output, gallery::pageOf(contents));
    print(fmt::format("{} in {}\n", countOfClips(contents.clips.size()), options.output));
    if (!contents.notListed.empty()) {
        const std::size_t number = contents.notListed.size();
        print(
            fmt::format("{} not listed; the page says why\n",
                        number == 1 ? "1 clip file is" : fmt::format("{} clip files are", number)));
    }
    return exitDone;
}

} // namespace

void addGallery(CLI::App& app, Work& chosen)
{
    CLI::App* const command = app.add_subcommand(
        "gallery", "Make a page of clips to search, look at and listen to, in any browser");
    const auto options = std::make_shared<GalleryOptions>();
    addFolders(*command, options->folders, options->userFolders);
    command->add_option("--output", options->output, "The HTML file; it replaces one of that name")
        ->type_name("FILE")
        ->required()
        ->check(notEmpty())
        ->check([](const std::string& file) {
            return file == "-" ? std::string("the page is not printed; name a file")
                               : std::string();
        });
    command->add_option("--title", options->title, "Of the page")
        ->type_name("TEXT")
        ->check(notEmpty())
        ->capture_default_str();
    command->add_flag("--names", options->namesNumbers,
                      "Name keys and languages as in the example clips");
    roll::addMeter(*command, options->view);
    roll::addTicks(*command, options->view);
    command->footer(
        "The page needs no network. It links to the wave files of audio clips, by their\n"
        "places seen from the page.\n\n"
        "Examples:\n"
        "  plxclip gallery examples/library --names --output gallery.html\n"
        "  plxclip gallery factory --user my-clips --output clips/index.html");
    command->callback([options, &chosen] { chosen = [options] { return makeGallery(*options); }; });
}

} // namespace plxclip
