#include <memory>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "catalogue.h"
#include "commands.h"
#include "console.h"
#include "melody.h"
#include "naming.h"
#include "options.h"
#include "paths.h"
#include "schema_reference.h"

namespace plxclip {

namespace plx = korvel::plx;

namespace {

struct NewOptions {
    std::string target;
    std::string name;
    std::string notes;
    std::string voice;
    std::string vendor;
    std::optional<std::uint32_t> language;
    std::optional<std::uint32_t> key;
    std::optional<std::uint32_t> tempo;
    std::vector<std::string> types;
    std::vector<std::string> genres;
    std::int32_t ticks = 480;
    bool isForAi = false;
    bool hasNoSchema = false;
};

[[noreturn]] void failToMake(const NewOptions& options, const std::string& why)
{
    throw Failure(fmt::format("\"{}\" is not made: {}", options.name, why));
}

Folders foldersOfNew(const NewOptions& options)
{
    Folders folders;
    folders.user.push_back(folderToSaveInto(options.target));
    return folders;
}

void setProperties(plx::MutableClip clip, const NewOptions& options)
{
    clip.setVendorName(plx::fromUtf8(options.vendor));
    clip.setPartKey(options.key.value_or(0));
    clip.setPartTempo(options.tempo.value_or(0));
    clip.filter().addLanguage(static_cast<std::int32_t>(*options.language));
    for (const std::string& type : options.types) {
        clip.filter().addType(plx::fromUtf8(type));
    }
    for (const std::string& genre : options.genres) {
        clip.filter().addGenre(plx::fromUtf8(genre));
    }
}

void addPart(plx::MutableClip clip, const Melody& melody, const NewOptions& options)
{
    const std::uint32_t language = *options.language;
    const plx::String voice = plx::fromUtf8(options.voice);
    const plx::MutableMidiPart part =
        options.isForAi ? clip.createMidiAiPart() : clip.createMidiPart();
    const bool hasVoice = options.isForAi
                              ? part.setAiVoiceBankID(voice) && part.addAiLangID(language)
                              : part.setVoiceBankID(voice) && part.setLangID(language);
    bool isDone = part && hasVoice && part.setDuration(melody.duration);
    for (const MelodyNote& note : melody.notes) {
        const plx::MutableNote made =
            part.insertNote(note.pos, note.duration, plx::fromUtf8(note.lyric),
                            plx::fromUtf8(note.lyric), language);
        isDone = isDone && made && made.setNumber(note.number);
    }
    if (!isDone) {
        failToMake(options, "the voice or the notes are not accepted");
    }
}

ExitStatus make(const NewOptions& options)
{
    const Melody melody = melodyOf(options.notes, options.ticks);
    const Catalogue catalogue(foldersOfNew(options));
    const plx::MutableClip clip = catalogue.manager().createMutableClip();
    setProperties(clip, options);
    addPart(clip, melody, options);
    const plx::SaveResult saved = clip.save(plx::fromUtf8(options.name), true);
    if (!saved) {
        failToMake(options, std::string(plx::textOf(saved.code)));
    }
    if (!options.hasNoSchema && !referToSchemas(pathOf(pathText(saved.clip.path())))) {
        throw Failure(fmt::format("\"{}\" is saved, but \"$schema\" cannot be written into its "
                                  "documents; see whether the disk is full: {}",
                                  options.name, pathText(saved.clip.path())));
    }
    print(fmt::format("{} {}\n{}\n", styled(Style::good, "Saved"), plx::toUtf8(saved.clip.id()),
                      pathText(saved.clip.path())));
    return exitDone;
}

std::string voiceId(const std::string& text)
{
    constexpr std::size_t length = 16; // in UTF-16, as the library counts
    const std::size_t given = plx::fromUtf8(text).size();
    return given == length ? std::string()
                           : fmt::format("\"{}\" has {} characters; the ID of a voice has {}", text,
                                         given, length);
}

void addDescription(CLI::App& command, NewOptions& options)
{
    command.add_option("--name", options.name, "Its name")->required()->check(notEmpty());
    command
        .add_option("--notes", options.notes, "The notes: pitch:beats and what is sung, for each")
        ->required();
    command.add_option("--voice", options.voice, "The ID of its voice, which has 16 characters")
        ->required()
        ->check(voiceId);
    command.add_flag("--ai", options.isForAi, "The voice is an AI voice");
    command.add_option("--vendor", options.vendor, "Its vendor");
    addNumberOption(command, "--language", options.language, findNoteLanguage,
                    "The language of its notes: the number, or the name as in the example clips; 1 "
                    "without this",
                    noteLanguageValues);
    addNumberOption(command, "--key", options.key, findKey,
                    "Its key: the number, or the name as in the example clips", keyValues);
    command
        .add_option_function<std::string>(
            "--tempo", [&options](const std::string& text) { options.tempo = tempoToSet(text); },
            "Its tempo: 20 to 300 beats a minute, or 0 for none")
        ->type_name("BPM");
    command.add_option("--ticks", options.ticks, "Ticks to the beat")
        ->check(between(1, 100000))
        ->capture_default_str();
    command.add_flag("--no-schema", options.hasNoSchema,
                     "Do not name the JSON Schemas, which editors of text use, in its documents");
    for (const auto& [name, tags] :
         {std::pair("--add-type", &options.types), std::pair("--add-genre", &options.genres)}) {
        command.add_option(name, *tags, "Give it this tag")
            ->type_name("TAG")
            ->allow_extra_args(false)
            ->check(notEmpty());
    }
}

} // namespace

void addNew(CLI::App& app, Work& chosen)
{
    CLI::App* const command = app.add_subcommand("new", "Make a user clip of a line of notes");
    const auto options = std::make_shared<NewOptions>();
    command->add_option("TARGET", options->target, targetHelp)
        ->type_name("")
        ->required()
        ->check(notEmpty());
    addDescription(*command, *options);
    command->footer(
        "A note is its pitch, a colon, its length in beats, and then what is sung; without\n"
        "that it is \"la\". The pitch is a name, such as C4 (the number 60), F#3 or Bb5, or a\n"
        "number from 0 to 127, or R for a rest. What is sung is also its phonemes.\n\n"
        "Example:\n"
        "  plxclip new my-clips --name Scale --voice voralin-alto-001 \\\n"
        "      --notes \"C4:1 do D4:1 re R:0.5 E4:1.5 mi\"");
    command->callback([options, &chosen] {
        options->language = options->language.value_or(1);
        chosen = [options] { return make(*options); };
    });
}

} // namespace plxclip
