#include <algorithm>
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
        ->check(notEmpty())
        ->group(group);
    command.add_option("--png", options.pngFile, "The same as PNG, if librsvg is installed")
        ->type_name("FILE")
        ->check(notEmpty())
        ->group(group);
    command.add_option("--pdf", options.pdfFile, "The same as PDF, if librsvg is installed")
        ->type_name("FILE")
        ->check(notEmpty())
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
        ->check(between(480, 20000))
        ->capture_default_str()
        ->group(group);
    for (const char* const name : {"--svg", "--png", "--pdf", "--names"}) {
        excludeEachOther(command, "--json", name);
    }
}

void requirePicture(const CLI::App& command, const ShowOptions& options)
{
    for (const char* const name : {"--meter", "--bars", "--ticks", "--width"}) {
        if (!options.draws() && command.count(name) > 0) {
            throw CLI::ValidationError(name, "does nothing without --svg, --png or --pdf");
        }
    }
}

// All bars of the part, or those of them that are wanted.
std::pair<std::int64_t, std::int64_t> barsToDraw(const MidiPart& part, const roll::View& view)
{
    const auto all = roll::barsOf(part, view);
    if (!view.bars) {
        return all;
    }
    if (view.bars->first > all.second) {
        throw Failure(fmt::format("--bars: the clip ends with bar {}", all.second), exitUsage);
    }
    return {view.bars->first, std::min(view.bars->second, all.second)};
}

roll::Picture pictureOf(const Properties& clip, const MidiPart& part, const roll::View& wanted)
{
    roll::View view = roll::withMeter(wanted, part);
    const auto [first, last] = barsToDraw(part, view);
    if (last - first >= roll::mostBars) {
        throw Failure(fmt::format("{} bars are too many for a picture; choose some, such as "
                                  "--bars 1-{}",
                                  last - first + 1, roll::mostBars));
    }
    view.bars = {first, last};
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
    const std::size_t width = outputWidth();
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
    addUserFolders(*command, options->userFolders);
    command->add_flag("--json", options->isJson, "Write JSON, for other programs");
    command->add_flag("--names", options->view.namesNumbers,
                      "Name keys and languages as in the example clips");
    addPicture(*command, *options);
    command->footer("Examples:\n"
                    "  plxclip show examples/library さくらさくら\n"
                    "  plxclip show examples/library \"An die Freude\" --svg freude.svg");
    command->callback([command, options, &chosen] {
        requirePicture(*command, *options);
        chosen = [options] { return show(*options); };
    });
}

} // namespace plxclip
