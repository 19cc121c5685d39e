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
#include "roll/image.h"
#include "roll/view_options.h"
#include "safe_file.h"

namespace plxclip {

namespace {

struct ShowOptions {
    std::string folder;
    std::string clip;
    std::vector<std::string> userFolders;
    std::string svgFile;
    std::string pngFile;
    std::string pdfFile;
    roll::View view;
    bool isJson = false;

    bool draws() const { return !svgFile.empty() || !pngFile.empty() || !pdfFile.empty(); }
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
        .add_option("--svg", options.svgFile,
                    "Draw the piano roll or the waveform into this file; \"-\" prints it")
        ->type_name("FILE")
        ->group(group);
    command.add_option("--png", options.pngFile, "The same as PNG, if librsvg is installed")
        ->type_name("FILE")
        ->group(group);
    command.add_option("--pdf", options.pdfFile, "The same as PDF, if librsvg is installed")
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

roll::Picture pictureOf(const Properties& clip, const MidiPart& part, const roll::View& wanted)
{
    const roll::View view = roll::withMeter(wanted, part);
    const auto [first, last] = view.bars.value_or(roll::barsOf(part, view));
    if (last - first >= roll::mostBars) {
        throw Failure(fmt::format("{} bars are too many for a picture; choose some, such as "
                                  "--bars 1-{}",
                                  last - first + 1, roll::mostBars));
    }
    return roll::draw(clip, part, view);
}

roll::Picture pictureOf(const Properties& clip, const AudioPart& part, const roll::View& view)
{
    if (view.bars) {
        throw Failure("an audio clip has no bars; leave out --bars");
    }
    const Wave wave = readWave(part.wavePath);
    if (!wave.problem.empty()) {
        throw Failure(fmt::format("{} It is \"{}\"", wave.problem, part.wavePath));
    }
    return roll::drawWave(clip, wave, view);
}

// A part that does not read has been refused before.
roll::Picture pictureOf(const Properties& clip, const Part& part, const roll::View& view)
{
    const auto* const midi = std::get_if<MidiPart>(&part);
    return midi != nullptr ? pictureOf(clip, *midi, view)
                           : pictureOf(clip, std::get<AudioPart>(part), view);
}

void drawClip(const Properties& clip, const Part& part, const ShowOptions& options)
{
    const roll::Picture picture = pictureOf(clip, part, options.view);
    if (!options.pngFile.empty()) {
        writeWholeFile(options.pngFile, roll::pngOf(picture));
    }
    if (!options.pdfFile.empty()) {
        writeWholeFile(options.pdfFile, roll::pdfOf(picture));
    }
    if (options.svgFile == "-") {
        print(picture.svg);
    } else if (!options.svgFile.empty()) {
        writeWholeFile(options.svgFile, picture.svg);
    }
}

void printClip(const Properties& clip, const Part& part, const ShowOptions& options)
{
    if (options.isJson) {
        print(clipJson(clip, part));
        return;
    }
    const Numbers numbers = options.view.namesNumbers ? Numbers::named : Numbers::plain;
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
    if (!options.draws()) {
        printClip(properties, part, options);
    }
    if (!isRead) {
        throw Failure(
            fmt::format("the part of \"{}\" does not read; \"plxclip check\" tells why: {}",
                        properties.name, properties.path));
    }
    if (options.draws()) {
        drawClip(properties, part, options);
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
    command->add_flag("--names", options->view.namesNumbers,
                      "Name keys and languages as in the example clips");
    addPicture(*command, *options);
    command->footer("Examples:\n"
                    "  plxclip show examples/library さくらさくら\n"
                    "  plxclip show examples/library \"An die Freude\" --svg freude.svg");
    command->callback([options, &chosen] { chosen = [options] { return show(*options); }; });
}

} // namespace plxclip
