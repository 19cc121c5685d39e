#include "filters.h"

#include <map>

#include "naming.h"
#include "options.h"

namespace plxclip {

namespace {

const std::map<std::string, PartType> partNames = {
    {"audio", PartType::audio}, {"midiAi", PartType::midiAi}, {"midi", PartType::midi}};

} // namespace

void addFilters(CLI::App& command, Search& search, const std::string& prefix)
{
    const std::string group =
        "Which clips (all of those given must hold; a TEXT is a part of what the "
        "clip has, or \"=\" and all of it; accents and capital letters do not "
        "matter)";
    const auto add = [&](const char* name, auto& value, const char* help) {
        command.add_option(prefix + name, value, help)
            ->type_name("TEXT")
            ->check(notEmpty())
            ->group(group);
    };
    addWordOption(command, prefix + "part", search.part, partNames, "Its part")->group(group);
    add("type", search.type, "A type tag, such as Melody");
    add("genre", search.genre, "A genre tag");
    add("vendor", search.vendor, "Its vendor");
    add("singer-group", search.singerGroup, "A singer group tag");
    add("name", search.name, "Its name");
    addNumberOption(command, prefix + "language", search.language, findLanguage,
                    "A language tag: its number, or its name as in the example clips",
                    languageValues)
        ->group(group);
    addNumberOption(command, prefix + "key", search.key, findKey,
                    "Its key: the number, or the name as in the example clips", keyValues)
        ->group(group);
    command
        .add_option_function<std::string>(
            prefix + "tempo",
            [&search](const std::string& text) { search.tempo = parseTempoRange(text); },
            "Its tempo in beats a minute, such as 100 or 90-120")
        ->type_name("BPM")
        ->group(group);
}

} // namespace plxclip
