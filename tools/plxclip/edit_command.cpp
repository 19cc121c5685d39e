#include <algorithm>
#include <memory>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "catalogue.h"
#include "clip_names.h"
#include "clip_text.h"
#include "columns.h"
#include "commands.h"
#include "console.h"
#include "document/tokens.h"
#include "edit/tag_change.h"
#include "filters.h"
#include "fix/clip_plan.h"
#include "fix/difference.h"
#include "format/encoding.h"
#include "format/limits.h"
#include "format/read.h"
#include "format/rewrite.h"
#include "naming.h"
#include "options.h"
#include "paths.h"
#include "reading.h"

namespace plxclip {

namespace plx = korvel::plx;
namespace format = Korvel::CANTORIS::PLX::format;

namespace {

struct EditOptions {
    std::string folder;
    std::vector<std::string> clips;
    Search search;
    bool isAll = false;
    bool isDryRun = false;
    editing::Changes changes;
};

// --- The clips ---

std::vector<plx::UserClip> chosenClips(const Catalogue& catalogue, const EditOptions& options)
{
    std::vector<plx::UserClip> all;
    for (const std::string& clip : options.clips) {
        all.push_back(catalogue.findUserClip(clip));
    }
    if (options.clips.empty()) {
        for (const plx::UserClip clip : catalogue.manager().userClips()) {
            all.push_back(clip);
        }
    }
    std::vector<plx::UserClip> chosen;
    for (const plx::UserClip clip : all) {
        const bool isNew = std::ranges::none_of(
            options.clips.empty() ? std::span<const plx::UserClip>() : std::span(chosen),
            [clip](plx::UserClip other) { return other.raw() == clip.raw(); });
        if (isNew && matches(propertiesOf(clip), options.search)) {
            chosen.push_back(clip);
        }
    }
    return chosen;
}

// --- Names by a pattern ---

bool isPattern(const std::string& name)
{
    return name.find("{name}") != std::string::npos || name.find("{id}") != std::string::npos ||
           name.find("{number}") != std::string::npos;
}

std::string filledIn(std::string_view pattern, const Properties& clip, std::size_t number)
{
    const std::vector<std::pair<std::string_view, std::string>> values = {
        {"{name}", clip.name},
        {"{id}", clip.id},
        {"{vendor}", clip.vendor},
        {"{number}", std::to_string(number)}};
    std::string text;
    while (!pattern.empty()) {
        const auto found = std::ranges::find_if(
            values, [&](const auto& value) { return pattern.starts_with(value.first); });
        text += found == values.end() ? std::string(1, pattern.front()) : found->second;
        pattern.remove_prefix(found == values.end() ? 1 : found->first.size());
    }
    return text;
}

// --- The documents ---

std::vector<std::string> tagsOf(const Tags& tags, std::string_view key)
{
    if (key == "languages") {
        std::vector<std::string> texts;
        for (const std::int32_t language : tags.languages) {
            texts.push_back(std::to_string(language));
        }
        return texts;
    }
    return key == "types"          ? tags.types
           : key == "genres"       ? tags.genres
           : key == "singerGroups" ? tags.singerGroups
                                   : tags.singerIDs;
}

class Editor {
public:
    explicit Editor(const EditOptions& chosen)
        : options(chosen), planner({}, [](const std::string&) { return false; }, {})
    {
    }

    void edit(plx::UserClip clip, bool isAlone)
    {
        ++number;
        const Properties properties = propertiesOf(clip);
        const std::filesystem::path file = pathOf(pathText(clip.path()));
        const std::filesystem::path place = file.parent_path() / propertyName;
        requireUse(properties, isAlone);
        const std::string before = documentOf(file, place);
        std::vector<std::string> missing;
        const auto after = editing::changed(before, options.changes, nameFor(properties), missing);
        if (isAlone && !missing.empty()) {
            failForTag(properties, missing.front());
        }
        if (!after || !isGood(*after)) {
            throw Failure(fmt::format("\"{}\" cannot be changed so; \"plxclip check\" may tell why",
                                      properties.name));
        }
        if (*after == before && fix::contentOf(place, format::propertyDocumentLimit)) {
            return;
        }
        options.isDryRun ? show(before, *after, place) : write(*after, place, properties);
        ++changed;
    }

    std::size_t numberOfChanged() const { return changed; }

private:
    // Among many clips, one with nothing to change is no mistake.
    void requireUse(const Properties& clip, bool isAlone) const
    {
        const editing::Changes& changes = options.changes;
        if (isAlone && clip.partType == PartType::audio && (changes.key || changes.tempo)) {
            throw Failure(
                fmt::format("\"{}\" is an audio clip, which has neither key nor tempo", clip.name));
        }
    }

    std::optional<std::string> nameFor(const Properties& clip) const
    {
        return options.changes.name ? std::optional(filledIn(*options.changes.name, clip, number))
                                    : std::nullopt;
    }

    bool isGood(std::string text)
    {
        Korvel::CANTORIS::PLX::ClipProperties properties;
        return text.size() <= format::propertyDocumentLimit &&
               reader.readProperties(text, properties);
    }

    // As it is, if a host uses it, or as it would have to be.
    std::string documentOf(const std::filesystem::path& file, const std::filesystem::path& place)
    {
        auto text = fix::contentOf(place, format::propertyDocumentLimit);
        if (text && format::makeUtf8(*text) && isGood(*text)) {
            return *text;
        }
        for (const fix::DocumentPlan& plan : planner.plan(file, nullptr, false).documents) {
            if (plan.name == propertyName) {
                return plan.after;
            }
        }
        return {};
    }

    [[noreturn]] void failForTag(const Properties& clip, const std::string& tag) const
    {
        for (const editing::TagChange& change : options.changes.tags) {
            if (std::ranges::find(change.removed, tag) != change.removed.end()) {
                const auto tags = tagsOf(clip.tags, change.key);
                throw Failure(
                    fmt::format("the clip has no {} among its {}; it has: {}", tag, change.key,
                                tags.empty() ? "none" : fmt::format("{}", fmt::join(tags, ", "))));
            }
        }
        throw Failure("the clip has no such tag");
    }

    static void show(const std::string& before, const std::string& after,
                     const std::filesystem::path& place)
    {
        print(fix::differenceOf(before, after, textOf(place)));
    }

    static void write(const std::string& text, const std::filesystem::path& place,
                      const Properties& clip)
    {
        if (!format::rewriteDocument(libraryPath(textOf(place)), text)) {
            throw Failure(fmt::format("the properties of \"{}\" are not saved; see whether you may "
                                      "write to the property.json beside {}",
                                      clip.name, clip.path));
        }
    }

    const EditOptions& options;
    fix::Planner planner;
    format::DocumentReader reader;
    std::size_t number = 0;
    std::size_t changed = 0;
};

// --- The command ---

void requireChoice(const EditOptions& options)
{
    if (options.changes.isEmpty()) {
        throw Failure("nothing to change; give --name, --key, --tempo or another of the options "
                      "that \"plxclip edit --help\" shows",
                      exitUsage);
    }
    if (options.clips.empty() && options.search == Search() && !options.isAll) {
        throw Failure("no clip chosen; name clips, or choose them by --only-genre and the like, or "
                      "give --all",
                      exitUsage);
    }
}

void requireNames(const EditOptions& options, std::size_t clips)
{
    if (clips > 1 && options.changes.name && !isPattern(*options.changes.name)) {
        throw Failure(fmt::format("{} clips would get one name; put {{name}}, {{id}} or {{number}} "
                                  "into it",
                                  clips),
                      exitUsage);
    }
}

ExitStatus editAll(Editor& editor, const std::vector<plx::UserClip>& clips, bool isDryRun)
{
    std::size_t failures = 0;
    for (const plx::UserClip clip : clips) {
        try {
            editor.edit(clip, false);
        } catch (const Failure& failure) {
            printError(printable(failure.what(), true) + "\n");
            ++failures;
        }
    }
    print(fmt::format("{} of {} clips {}\n", editor.numberOfChanged(), clips.size(),
                      isDryRun ? "would be changed" : "changed"));
    return failures == 0 ? exitDone : exitProblem;
}

ExitStatus edit(const EditOptions& options)
{
    requireChoice(options);
    const Catalogue catalogue(foldersToChange(options.folder));
    const std::vector<plx::UserClip> clips = chosenClips(catalogue, options);
    requireNames(options, clips.size());
    Editor editor(options);
    if (options.clips.size() != 1 || clips.size() != 1) {
        return editAll(editor, clips, options.isDryRun);
    }
    const std::string id = plx::toUtf8(clips.front().id());
    editor.edit(clips.front(), true);
    if (!options.isDryRun) {
        catalogue.manager().readUserClipFiles();
        print(describe(propertiesOf(catalogue.find(id)), Numbers::plain));
    }
    return exitDone;
}

std::string tagAsJson(const std::string& option, std::string_view key, const std::string& text)
{
    if (text.empty()) {
        throw CLI::ValidationError(option, "a tag cannot be empty");
    }
    if (key != "languages") {
        return document::quote(text);
    }
    const auto language = findLanguage(text);
    if (!language) {
        throw CLI::ValidationError(option, "\"" + text + "\" is not " + languageValues);
    }
    return std::to_string(*language);
}

void addTagOption(CLI::App& command, const std::string& name, std::string_view key,
                  std::vector<std::string>& tags, const std::string& help)
{
    command
        .add_option_function<std::vector<std::string>>(
            name,
            [&tags, name, key](const std::vector<std::string>& texts) {
                for (const std::string& text : texts) {
                    tags.push_back(tagAsJson(name, key, text));
                }
            },
            help)
        ->type_name("TAG")
        ->allow_extra_args(false);
}

void addTagOptions(CLI::App& command, const std::string& what, editing::TagChange& change)
{
    addTagOption(command, "--add-" + what, change.key, change.added, "Give it this " + what);
    addTagOption(command, "--remove-" + what, change.key, change.removed,
                 "Take this " + what + " from it; accents and capital letters do not matter");
    command
        .add_flag("--clear-" + what + "s", change.isCleared, "Take all " + what + "s from it first")
        ->excludes(command.get_option("--remove-" + what));
}

void addClips(CLI::App& command, EditOptions& options)
{
    command
        .add_option("DIR", options.folder,
                    "The folder of the clips. One that has the folders \"system\" and \"user\" in "
                    "it stands for these")
        ->type_name("")
        ->required();
    command.add_option("CLIP", options.clips, "Clips: their IDs, or names that no others have")
        ->type_name("")
        ->check(notEmpty());
    command.add_flag("--all", options.isAll, "All user clips")
        ->excludes(command.get_option("CLIP"));
    addFilters(command, options.search, "--only-");
}

void addChanges(CLI::App& command, editing::Changes& changes)
{
    command
        .add_option("--name", changes.name,
                    "Its new name, in which {name}, {id}, {vendor} and {number} stand for what the "
                    "clip has, and for its place among the chosen clips")
        ->check(notEmpty());
    command.add_option("--vendor", changes.vendor, "Its vendor");
    addNumberOption(command, "--key", changes.key, findKey,
                    "Its key: the number, or the name as in the example clips", keyValues);
    command
        .add_option_function<std::string>(
            "--tempo", [&changes](const std::string& text) { changes.tempo = tempoToSet(text); },
            "Its tempo: 20 to 300 beats a minute, or 0 for none")
        ->type_name("BPM");
    const std::vector<std::string> words = {"type", "genre", "singer-group", "language",
                                            "voice-id"};
    for (std::size_t index = 0; index < words.size(); ++index) {
        addTagOptions(command, words[index], changes.tags[index]);
    }
}

} // namespace

void addEdit(CLI::App& app, Work& chosen)
{
    CLI::App* const command = app.add_subcommand(
        "edit", "Change what the catalogue shows of user clips, one or many; the rest stays");
    const auto options = std::make_shared<EditOptions>();
    addClips(*command, *options);
    addChanges(*command, options->changes);
    command->add_flag("--dry-run", options->isDryRun,
                      "Show what would be changed, and change nothing");
    command->footer(
        "DIR is a folder of user clips, or one that has \"system\" and \"user\" in it.\n"
        "An audio clip has neither key nor tempo.\n"
        "Examples:\n"
        "  plxclip edit my-clips Freude --name \"Freude 2\" --tempo 126 --add-genre Hymn\n"
        "  plxclip edit my-clips --only-genre Carol --name \"{name} (carol)\" --dry-run");
    command->callback([options, &chosen] { chosen = [options] { return edit(*options); }; });
}

} // namespace plxclip
