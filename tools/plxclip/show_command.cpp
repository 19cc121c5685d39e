#include <filesystem>
#include <fstream>
#include <memory>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "catalogue.h"
#include "clip_text.h"
#include "commands.h"
#include "console.h"
#include "json.h"
#include "options.h"
#include "reading.h"
#include "roll/view_options.h"

namespace plxclip {

namespace {

struct ShowOptions {
    std::string folder;
    std::string clip;
    std::vector<std::string> userFolders;
    std::string svgFile;
    roll::View view;
    bool isJson = false;
    bool namesNumbers = false;
};

void setBars(roll::View& view, const std::string& text)
{
    const auto [first, last] = roll::parsePair("--bars", text, '-');
    if (first < 1 || last < first || last > 1'000'000'000) {
        throw CLI::ValidationError("--bars", "the first bar is 1, and the last not before it");
    }
    view.bars = {first, last};
}

void addPicture(CLI::App& command, ShowOptions& options)
{
    const std::string group = "The picture (a clip holds neither meter nor time unit)";
    command
        .add_option("--svg", options.svgFile, "Draw the piano roll into this file; \"-\" prints it")
        ->type_name("FILE")
        ->group(group);
    roll::addMeter(command, options.view)->group(group);
    command
        .add_option_function<std::string>(
            "--bars", [&options](const std::string& text) { setBars(options.view, text); },
            "Only these bars")
        ->type_name("FIRST-LAST")
        ->group(group);
    roll::addTicks(command, options.view)->group(group);
    command.add_option("--width", options.view.width, "Of the picture")
        ->check(CLI::Range(480, 20000))
        ->capture_default_str()
        ->group(group);
}

void writeFile(const std::string& file, const std::string& text)
{
    const std::filesystem::path path(std::u8string(file.begin(), file.end()));
    std::ofstream stream(path, std::ios::binary);
    stream << text;
    stream.close();
    if (!stream) {
        throw Failure(fmt::format("\"{}\" cannot be written; see whether its folder is there and "
                                  "may be written to",
                                  file));
    }
}

void drawRoll(const Properties& clip, const Part& part, const ShowOptions& options)
{
    const auto* const midi = std::get_if<MidiPart>(&part);
    if (midi == nullptr) {
        throw Failure("an audio clip has no notes to draw; leave out --svg");
    }
    const auto [first, last] = options.view.bars.value_or(roll::barsOf(*midi, options.view));
    if (last - first >= roll::mostBars) {
        throw Failure(fmt::format("{} bars are too many for a picture; choose some, such as "
                                  "--bars 1-{}",
                                  last - first + 1, roll::mostBars));
    }
    const std::string picture = roll::draw(clip, *midi, options.view);
    options.svgFile == "-" ? void(print(picture)) : writeFile(options.svgFile, picture);
}

void printClip(const Properties& clip, const Part& part, const ShowOptions& options)
{
    if (options.isJson) {
        print(clipJson(clip, part));
        return;
    }
    const Numbers numbers = options.namesNumbers ? Numbers::named : Numbers::plain;
    const std::size_t width = isTerminal(Stream::output) ? terminalWidth() : 0;
    print(describe(clip, numbers) + describe(part, numbers, width));
}

ExitStatus show(const ShowOptions& options)
{
    const Catalogue catalogue(foldersOf({options.folder}, options.userFolders));
    const korvel::plx::Clip clip = catalogue.find(options.clip);
    const bool isRead = clip.readPart();
    const Properties properties = propertiesOf(clip);
    const Part part = isRead ? partOf(clip) : Part();
    if (options.svgFile.empty()) {
        printClip(properties, part, options);
    }
    if (!isRead) {
        throw Failure(
            fmt::format("the part of \"{}\" does not read; \"plxclip check\" tells why: {}",
                        properties.name, properties.path));
    }
    if (!options.svgFile.empty()) {
        drawRoll(properties, part, options);
    }
    return exitDone;
}

} // namespace

void addShow(CLI::App& app, Work& chosen)
{
    CLI::App* const command = app.add_subcommand("show", "Show all that a clip holds, or draw it");
    const auto options = std::make_shared<ShowOptions>();
    addClip(*command, options->folder, options->clip);
    command->add_option("--user", options->userFolders, "A folder to be read as user clips")
        ->type_name("DIR")
        ->allow_extra_args(false);
    command->add_flag("--json", options->isJson, "Write JSON, for other programs");
    command->add_flag("--names", options->namesNumbers,
                      "Name keys and languages as in the example clips");
    addPicture(*command, *options);
    command->footer("Examples:\n"
                    "  plxclip show examples/library さくらさくら\n"
                    "  plxclip show examples/library \"An die Freude\" --svg freude.svg");
    command->callback([options, &chosen] { chosen = [options] { return show(*options); }; });
}

} // namespace plxclip
