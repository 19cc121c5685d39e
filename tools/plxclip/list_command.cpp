#include <memory>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "catalogue.h"
#include "clip_text.h"
#include "columns.h"
#include "commands.h"
#include "console.h"
#include "filters.h"
#include "json.h"
#include "naming.h"
#include "options.h"
#include "reading.h"
#include "search.h"

namespace plxclip {

namespace {

struct ListOptions {
    std::vector<std::string> folders;
    std::vector<std::string> userFolders;
    Search search;
    Order order = Order::found;
    bool isReversed = false;
    std::optional<Tag> count;
    bool isJson = false;
    bool isLong = false;
    bool namesNumbers = false;

    Numbers numbers() const { return namesNumbers ? Numbers::named : Numbers::plain; }
};

const std::map<std::string, Order> orderNames = {{"found", Order::found},   {"name", Order::name},
                                                 {"vendor", Order::vendor}, {"part", Order::part},
                                                 {"key", Order::key},       {"tempo", Order::tempo},
                                                 {"id", Order::id}};

const std::map<std::string, Tag> tagNames = {{"type", Tag::type},
                                             {"genre", Tag::genre},
                                             {"language", Tag::language},
                                             {"vendor", Tag::vendor},
                                             {"singer-group", Tag::singerGroup},
                                             {"part", Tag::part},
                                             {"key", Tag::key}};

std::string nameOf(Tag tag)
{
    return std::find_if(tagNames.begin(), tagNames.end(),
                        [tag](const auto& name) { return name.second == tag; })
        ->first;
}

void addOutput(CLI::App& command, ListOptions& options)
{
    addWordOption(command, "--sort", options.order, orderNames, "The order");
    command.add_flag("--reverse", options.isReversed, "The other way round");
    addWordOption(command, "--count", options.count, tagNames,
                  "How many clips have each of these, instead of the clips");
    command.add_flag("--json", options.isJson, "Write JSON, for other programs");
    command.add_flag("--long", options.isLong, "Show ID, kind and file as well");
    command.add_flag("--names", options.namesNumbers,
                     "Name keys and languages as in the example clips");
    for (const char* const name : {"--sort", "--reverse", "--long"}) {
        excludeEachOther(command, name, "--count");
    }
    excludeEachOther(command, "--json", "--long");
    excludeEachOther(command, "--json", "--names");
}

std::vector<std::string> cellsOf(const Properties& clip, const ListOptions& options)
{
    std::vector<std::string> cells = {clip.name,
                                      clip.vendor.empty() ? "-" : clip.vendor,
                                      std::string(nameOf(clip.partType)),
                                      keyText(clip, options.numbers()),
                                      tempoText(clip.tempo),
                                      tagsText(clip.tags, options.numbers())};
    if (options.isLong) {
        cells.insert(cells.end(), {clip.isUserClip ? "user" : "system", clip.id, clip.path});
    }
    return cells;
}

void printTable(const std::vector<Properties>& clips, std::size_t total, const ListOptions& options)
{
    std::vector<std::string> headings = {"Name", "Vendor", "Part", "Key", "BPM", "Tags"};
    if (options.isLong) {
        headings.insert(headings.end(), {"Kind", "ID", "File"});
    }
    Table table(headings);
    table.alignRight(4);
    for (const Properties& clip : clips) {
        table.add(cellsOf(clip, options));
    }
    if (!clips.empty()) {
        print(table.text(outputWidth()));
    }
    const std::string_view unit = total == 1 ? "clip" : "clips";
    print(clips.size() == total ? fmt::format("{} {}\n", total, unit)
                                : fmt::format("{} of {} {}\n", clips.size(), total, unit));
}

std::string countedName(const std::string& tag, const ListOptions& options)
{
    if (options.numbers() == Numbers::plain) {
        return tag.empty() ? "-" : tag;
    }
    if (options.count == Tag::language) {
        return languageText(std::stoi(tag), Numbers::named);
    }
    if (options.count == Tag::key) {
        return std::string(keyName(static_cast<std::uint32_t>(std::stoul(tag))).value_or("-"));
    }
    return tag.empty() ? "-" : tag;
}

void printCounts(const std::vector<TagCount>& counts, const ListOptions& options)
{
    if (options.isJson) {
        print(countsJson(nameOf(*options.count), counts));
        return;
    }
    Table table({"Clips", nameOf(*options.count)});
    table.alignRight(0);
    for (const TagCount& count : counts) {
        table.add({std::to_string(count.clips), countedName(count.tag, options)});
    }
    print(table.text(outputWidth()));
}

ExitStatus list(const ListOptions& options)
{
    const Catalogue catalogue(foldersOf(options.folders, options.userFolders));
    std::vector<Properties> clips;
    const std::vector<korvel::plx::Clip> all = catalogue.clips();
    for (const korvel::plx::Clip clip : all) {
        Properties properties = propertiesOf(clip);
        if (matches(properties, options.search)) {
            clips.push_back(std::move(properties));
        }
    }
    sortClips(clips, options.order, options.isReversed);
    if (options.count) {
        printCounts(countTags(clips, *options.count), options);
    } else if (options.isJson) {
        print(listJson(clips, all.size()));
    } else {
        printTable(clips, all.size(), options);
    }
    return exitDone;
}

} // namespace

void addList(CLI::App& app, Work& chosen)
{
    CLI::App* const command =
        app.add_subcommand("list", "Show the catalogue of clip folders as a host sees it");
    const auto options = std::make_shared<ListOptions>();
    addFolders(*command, options->folders, options->userFolders);
    addFilters(*command, options->search);
    addOutput(*command, *options);
    command->footer("Examples:\n"
                    "  plxclip list examples/library --names --sort name\n"
                    "  plxclip list examples/library --language Japanese --tempo 60-80 --json\n"
                    "  plxclip list examples/library --count genre");
    command->callback([options, &chosen] { chosen = [options] { return list(*options); }; });
}

} // namespace plxclip
