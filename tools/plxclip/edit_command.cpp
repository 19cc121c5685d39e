#include <algorithm>
#include <memory>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "catalogue.h"
#include "clip_text.h"
#include "commands.h"
#include "console.h"
#include "naming.h"
#include "options.h"
#include "paths.h"
#include "reading.h"

namespace plxclip {

namespace plx = korvel::plx;

namespace {

struct TagChange {
    std::vector<std::string> added;
    std::vector<std::string> removed;
    bool isCleared = false;

    bool isEmpty() const { return added.empty() && removed.empty() && !isCleared; }
};

struct EditOptions {
    std::string folder;
    std::string clip;
    std::optional<std::string> name;
    std::optional<std::uint32_t> key;
    std::optional<std::uint32_t> tempo;
    TagChange types;
    TagChange genres;

    bool isEmpty() const { return !name && !key && !tempo && types.isEmpty() && genres.isEmpty(); }
};

std::vector<std::string> changed(std::vector<std::string> tags, const TagChange& change,
                                 std::string_view what)
{
    if (change.isCleared) {
        tags.clear();
    }
    for (const std::string& tag : change.removed) {
        const auto place = std::find(tags.begin(), tags.end(), tag);
        if (place == tags.end()) {
            throw Failure(
                fmt::format("the clip has no {} \"{}\"; it has: {}", what, tag,
                            tags.empty() ? "none" : fmt::format("{}", fmt::join(tags, ", "))));
        }
        tags.erase(place);
    }
    for (const std::string& tag : change.added) {
        if (std::find(tags.begin(), tags.end(), tag) == tags.end()) {
            tags.push_back(tag);
        }
    }
    return tags;
}

// The clip's properties after the edit.
Properties edited(Properties clip, const EditOptions& options)
{
    clip.name = options.name.value_or(clip.name);
    clip.key = options.key.value_or(clip.key);
    clip.tempo = options.tempo.value_or(clip.tempo);
    clip.tags.types = changed(clip.tags.types, options.types, "type");
    clip.tags.genres = changed(clip.tags.genres, options.genres, "genre");
    return clip;
}

// An editor starts empty, so unchanged properties must be set as well.
bool save(plx::UserClip clip, const Properties& wanted)
{
    const plx::PropertyEditor editor = clip.createPropertyEditor();
    editor.setClipName(plx::fromUtf8(wanted.name));
    editor.setPartKey(wanted.key);
    editor.setPartTempo(wanted.tempo);
    for (const std::string& type : wanted.tags.types) {
        editor.addFilterType(plx::fromUtf8(type));
    }
    for (const std::string& genre : wanted.tags.genres) {
        editor.addFilterGenre(plx::fromUtf8(genre));
    }
    const bool isSaved = editor.save();
    clip.destroyPropertyEditor(editor);
    return isSaved;
}

ExitStatus edit(const EditOptions& options)
{
    if (options.isEmpty()) {
        throw Failure("nothing to change; give --name, --key, --tempo or a tag option", exitUsage);
    }
    const Catalogue catalogue(foldersToChange(options.folder));
    const plx::UserClip clip = catalogue.findUserClip(options.clip);
    if (!save(clip, edited(propertiesOf(clip), options))) {
        throw Failure(fmt::format("the properties of \"{}\" are not saved; see whether you may "
                                  "write to the property.json beside {}",
                                  options.clip, pathText(clip.path())));
    }
    print(describe(propertiesOf(clip), Numbers::plain));
    return exitDone;
}

// A tempo that the library would refuse is an error in the command line.
std::uint32_t tempoToSet(const std::string& text)
{
    const std::uint32_t tempo = parseTempo(text);
    if (tempo != 0 && (tempo < 2000 || tempo > 30000)) {
        throw CLI::ValidationError("--tempo", "a clip's tempo is 20 to 300, or 0 for none");
    }
    return tempo;
}

void addTagOptions(CLI::App& command, const std::string& what, TagChange& change)
{
    command.add_option("--add-" + what, change.added, "Give it this " + what)
        ->type_name("TAG")
        ->allow_extra_args(false);
    command.add_option("--remove-" + what, change.removed, "Take this " + what + " from it")
        ->type_name("TAG")
        ->allow_extra_args(false);
    command.add_flag("--clear-" + what + "s", change.isCleared,
                     "Take all " + what + "s from it first");
}

} // namespace

void addEdit(CLI::App& app, Work& chosen)
{
    CLI::App* const command = app.add_subcommand(
        "edit", "Change name, key, tempo, types and genres of a user clip; the rest stays");
    const auto options = std::make_shared<EditOptions>();
    addClip(*command, options->folder, options->clip);
    command->add_option("--name", options->name, "Its new name")
        ->check([](const std::string& name) {
            return name.empty() ? std::string("a name cannot be empty") : std::string();
        });
    addNumberOption(*command, "--key", options->key, findKey,
                    "Its key: the number, or the name as in the example clips", keyValues);
    command
        ->add_option_function<std::string>(
            "--tempo", [options](const std::string& text) { options->tempo = tempoToSet(text); },
            "Its tempo: 20 to 300 beats a minute, or 0 for none")
        ->type_name("BPM");
    addTagOptions(*command, "type", options->types);
    addTagOptions(*command, "genre", options->genres);
    command->footer(
        "DIR is a folder of user clips, or one that has \"system\" and \"user\" in it.\n"
        "Example:\n"
        "  plxclip edit my-clips Freude --name \"Freude 2\" --tempo 126 --add-genre Hymn");
    command->callback([options, &chosen] { chosen = [options] { return edit(*options); }; });
}

} // namespace plxclip
