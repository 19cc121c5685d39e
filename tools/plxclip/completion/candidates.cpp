#include "completion/candidates.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <utility>

#include "completion/catalogue_words.h"
#include "naming.h"
#include "options.h"

namespace plxclip::completion {

namespace {

std::vector<const CLI::Option*> optionsOf(const CLI::App& app)
{
    return app.get_options([](const CLI::Option*) { return true; });
}

// --- What stands on the line --------------------------------------------------------------------------

struct Line {
    const CLI::App* command = nullptr;     // null before there is one
    const CLI::Option* awaiting = nullptr; // an option whose value comes next
    bool isBeyondOptions = false;          // behind "--"
    bool makesSense = true;
    std::vector<std::string> positionals = {};
    std::vector<std::string> userFolders = {};
};

const CLI::Option* optionNamed(const CLI::App& app, const std::string& name)
{
    for (const CLI::Option* const option : optionsOf(app)) {
        if (!option->get_positional() && option->check_name(name)) {
            return option;
        }
    }
    return nullptr;
}

void takeValue(Line& line, const CLI::Option& option, const std::string& value)
{
    if (option.check_name("--user")) {
        line.userFolders.push_back(value);
    }
}

void takeOption(Line& line, const CLI::App& app, const std::string& word)
{
    const std::size_t equals = std::min(word.find('='), word.size());
    const CLI::Option* const option = optionNamed(app, word.substr(0, equals));
    if (option == nullptr) {
        return;
    }
    if (equals < word.size()) {
        takeValue(line, *option, word.substr(equals + 1));
    } else if (takesValue(*option)) {
        line.awaiting = option;
    }
}

void takeCommand(Line& line, const CLI::App& app, const std::string& word)
{
    const auto commands = commandsOf(app);
    const auto found = std::ranges::find_if(
        commands, [&word](const CLI::App* command) { return command->get_name() == word; });
    line.makesSense = found != commands.end();
    line.command = line.makesSense ? *found : nullptr;
}

void take(Line& line, const CLI::App& app, const std::string& word)
{
    if (line.awaiting != nullptr) {
        takeValue(line, *std::exchange(line.awaiting, nullptr), word);
    } else if (!line.isBeyondOptions && word == "--") {
        line.isBeyondOptions = true;
    } else if (!line.isBeyondOptions && word.starts_with('-') && word != "-") {
        takeOption(line, line.command == nullptr ? app : *line.command, word);
    } else if (line.command == nullptr) {
        takeCommand(line, app, word);
    } else {
        line.positionals.push_back(word);
    }
}

Line lineOf(const CLI::App& app, const std::vector<std::string>& words)
{
    Line line;
    for (const std::string& word : words) {
        take(line, app, word);
    }
    return line;
}

// --- What a value can be ------------------------------------------------------------------------------

template <typename NameOf>
std::vector<Candidate> namedNumbers(NameOf nameOf)
{
    constexpr std::uint32_t mostNames = 128;
    std::vector<Candidate> candidates;
    for (std::uint32_t number = 0; number < mostNames; ++number) {
        if (const auto name = nameOf(number)) {
            candidates.push_back({std::string(*name), std::to_string(number)});
        }
    }
    return candidates;
}

std::vector<Candidate> plainWords(const std::vector<std::string>& words)
{
    std::vector<Candidate> candidates;
    for (const std::string& word : words) {
        candidates.push_back({word, ""});
    }
    return candidates;
}

std::vector<Candidate> commandNames(const CLI::App& app)
{
    std::vector<Candidate> candidates;
    for (const CLI::App* const command : commandsOf(app)) {
        candidates.push_back({command->get_name(), command->get_description()});
    }
    return candidates;
}

// The tag that options such as --genre, --only-genre and --add-genre are about.
std::optional<Tag> tagOf(const std::string& name)
{
    constexpr std::array tags = {std::pair("type", Tag::type), std::pair("genre", Tag::genre),
                                 std::pair("singer-group", Tag::singerGroup),
                                 std::pair("vendor", Tag::vendor)};
    for (const auto& [word, tag] : tags) {
        if (name.ends_with(word)) {
            return tag;
        }
    }
    return std::nullopt;
}

Place placeOf(const Line& line)
{
    const std::string& command = line.command->get_name();
    return {line.positionals.empty() ? "" : line.positionals.front(), line.userFolders,
            command == "edit" || command == "remove"};
}

Answer clipNames(const Line& line, const std::string& current)
{
    return {Kind::words, clipsIn(placeOf(line), current)};
}

Answer valuesOf(const CLI::App& app, const Line& line, const CLI::Option& option,
                const std::string& current)
{
    const std::string name = option.get_name(true);
    const std::string type = option.get_type_name();
    if (type.starts_with("FILE")) {
        return {Kind::files};
    }
    if (type.starts_with("DIR") || name == "DIR" || name == "TARGET") {
        return {Kind::folders};
    }
    if (name == "CLIP") {
        return clipNames(line, current);
    }
    if (name == "COMMAND") {
        return {Kind::words, commandNames(app)};
    }
    if (const auto words = wordsOf(option); !words.empty()) {
        return {Kind::words, plainWords(words)};
    }
    const std::string longName = option.get_name();
    if (longName.ends_with("key")) {
        return {Kind::words, namedNumbers(keyName)};
    }
    if (longName.ends_with("language")) {
        return {Kind::words, namedNumbers(languageName)};
    }
    const auto tag = tagOf(longName);
    return tag && line.command != nullptr ? Answer{Kind::words, tagsIn(placeOf(line), *tag)}
                                          : Answer{};
}

// --- The last word ------------------------------------------------------------------------------------

const CLI::Option* positionalOf(const Line& line)
{
    std::vector<const CLI::Option*> positionals;
    for (const CLI::Option* const option : optionsOf(*line.command)) {
        if (option->get_positional()) {
            positionals.push_back(option);
        }
    }
    const std::size_t place = line.positionals.size();
    if (place < positionals.size()) {
        return positionals[place];
    }
    const bool repeats = !positionals.empty() && positionals.back()->get_items_expected_max() > 1;
    return repeats ? positionals.back() : nullptr;
}

Answer optionNames(const CLI::App& command)
{
    Answer answer;
    for (const CLI::Option* const option : optionsOf(command)) {
        for (const std::string& name :
             option->get_group().empty() ? std::vector<std::string>() : option->get_lnames()) {
            answer.candidates.push_back({"--" + name, option->get_description()});
        }
    }
    return answer;
}

// For "--option=" and the beginning of its value: the candidates have both.
Answer valuesBehindEquals(const CLI::App& app, const Line& line, const CLI::App& command,
                          const std::string& current)
{
    const std::size_t begin = current.find('=') + 1;
    const CLI::Option* const option = optionNamed(command, current.substr(0, begin - 1));
    if (option == nullptr || !takesValue(*option)) {
        return {};
    }
    Answer answer = valuesOf(app, line, *option, current.substr(begin));
    for (Candidate& candidate : answer.candidates) {
        candidate.text.insert(0, current, 0, begin);
    }
    return answer;
}

Answer allFor(const CLI::App& app, const Line& line, const std::string& current)
{
    if (line.awaiting != nullptr) {
        return valuesOf(app, line, *line.awaiting, current);
    }
    const CLI::App& command = line.command == nullptr ? app : *line.command;
    if (!line.isBeyondOptions && current.starts_with('-')) {
        return current.starts_with("--") && current.find('=') != std::string::npos
                   ? valuesBehindEquals(app, line, command, current)
                   : optionNames(command);
    }
    if (line.command == nullptr) {
        return {Kind::words, commandNames(app)};
    }
    const CLI::Option* const positional = positionalOf(line);
    return positional == nullptr ? Answer{} : valuesOf(app, line, *positional, current);
}

} // namespace

Answer answerFor(const CLI::App& app, const std::vector<std::string>& words,
                 const std::string& current)
{
    const Line line = lineOf(app, words);
    Answer answer = line.makesSense ? allFor(app, line, current) : Answer{};
    std::erase_if(answer.candidates, [&current](const Candidate& candidate) {
        return !candidate.text.starts_with(current);
    });
    return answer;
}

} // namespace plxclip::completion
