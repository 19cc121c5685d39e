// Options that several commands have.
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>

#include "letters.h"

namespace plxclip {

// The folders to read, and --user.
void addFolders(CLI::App& command, std::vector<std::string>& folders,
                std::vector<std::string>& userFolders);

// --user alone.
void addUserFolders(CLI::App& command, std::vector<std::string>& userFolders);

// The folder and the clip of a command that handles a single clip.
void addClip(CLI::App& command, std::string& folder, std::string& clip);

// An option whose value is a number or a name; `values` describes them in an error.
template <typename Number>
CLI::Option* addNumberOption(CLI::App& command, const std::string& name,
                             std::optional<Number>& number,
                             std::optional<Number> (*find)(std::string_view),
                             const std::string& help, const std::string& values)
{
    return command
        .add_option_function<std::string>(
            name,
            [&number, find, name, values](const std::string& text) {
                number = find(text);
                if (!number) {
                    throw CLI::ValidationError(name, "\"" + text + "\" is not " + values);
                }
            },
            help)
        ->type_name("NUMBER");
}

inline constexpr const char* keyValues = "a key: 0 to 30, or a name such as \"A minor\"";
inline constexpr const char* languageValues =
    "a language: a number from 0 on, or a name such as \"Japanese\"";

inline constexpr const char* noteLanguageValues =
    "a language of notes: 0 to 127, or a name such as \"Japanese\"";
inline constexpr const char* targetHelp =
    "The folder of user clips to save into; it is made if there is none. Of one that has the "
    "folders \"system\" and \"user\" in it, the folder \"user\" is meant";

// An option whose value is one of some words. (CLI11's own way shows the words' numbers, too.)
template <typename Value, typename Target>
CLI::Option* addWordOption(CLI::App& command, const std::string& name, Target& target,
                           const std::map<std::string, Value>& words, const std::string& help)
{
    std::string known;
    for (const auto& word : words) {
        known += (known.empty() ? "" : ", ") + word.first;
    }
    return command
        .add_option_function<std::string>(
            name,
            [&target, &words, name, known](const std::string& text) {
                const auto found = std::ranges::find_if(words, [&text](const auto& word) {
                    return lowerCase(word.first) == lowerCase(text);
                });
                if (found == words.end()) {
                    throw CLI::ValidationError(name, "\"" + text + "\" is none of " + known);
                }
                target = found->second;
            },
            help + ": " + known)
        ->type_name("WORD");
}

// All commands, whether they were given or not.
std::vector<const CLI::App*> commandsOf(const CLI::App& app);

// False for a flag.
bool takesValue(const CLI::Option& option);

// The words that such an option takes, which are at the end of its description; none for another one.
std::vector<std::string> wordsOf(const CLI::Option& option);

// Hundredths of a beat a minute from text such as "112.5". The library keeps two decimal places; a
// number with more is an error.
std::uint32_t parseTempo(const std::string& text);

// The same for a clip. A tempo that the library would refuse is an error in the command line.
std::uint32_t tempoToSet(const std::string& text);

// The same as parseTempo() from "112.5" or "90-120"; both ends are included. The first must not be
// above the second.
std::pair<std::uint32_t, std::uint32_t> parseTempoRange(const std::string& text);

// The two must not be given together.
void excludeEachOther(CLI::App& command, const std::string& one, const std::string& other);

// For a text that must not be empty.
CLI::Validator notEmpty();

// For a whole number from `least` to `most`, both included.
CLI::Validator between(long long least, long long most);

} // namespace plxclip
