#include "options.h"

#include <algorithm>
#include <charconv>

#include <fmt/format.h>

namespace plxclip {

void addFolders(CLI::App& command, std::vector<std::string>& folders,
                std::vector<std::string>& userFolders)
{
    command
        .add_option("DIR", folders,
                    "Folders with clips at any depth. One that has the folders \"system\" and "
                    "\"user\" in it stands for these; any other has user clips, or system clips if "
                    "--user is given")
        ->type_name("");
    addUserFolders(command, userFolders);
}

void addUserFolders(CLI::App& command, std::vector<std::string>& userFolders)
{
    command
        .add_option(
            "--user", userFolders,
            "A folder with user clips; then DIR has system clips, unless it has the folders "
            "\"system\" and \"user\" in it")
        ->type_name("DIR")
        ->allow_extra_args(false);
}

void addClip(CLI::App& command, std::string& folder, std::string& clip)
{
    command
        .add_option("DIR", folder,
                    "The folder of the clips. One that has the folders \"system\" and \"user\" in "
                    "it stands for these")
        ->type_name("")
        ->required();
    command.add_option("CLIP", clip, "The clip: its ID, or its name if no other has it")
        ->type_name("")
        ->required()
        ->check(notEmpty());
}

std::vector<const CLI::App*> commandsOf(const CLI::App& app)
{
    return app.get_subcommands([](const CLI::App*) { return true; });
}

bool takesValue(const CLI::Option& option)
{
    return option.get_items_expected_max() > 0;
}

std::vector<std::string> wordsOf(const CLI::Option& option)
{
    const std::string& description = option.get_description();
    const std::size_t colon = description.rfind(": ");
    if (option.get_type_name() != "WORD" || colon == std::string::npos) {
        return {};
    }
    std::vector<std::string> words = CLI::detail::split(description.substr(colon + 2), ',');
    for (std::string& word : words) {
        CLI::detail::trim(word);
    }
    return words;
}

namespace {

[[noreturn]] void failForTempo(const std::string& text, const std::string& why)
{
    throw CLI::ValidationError("--tempo", fmt::format("\"{}\" {}", text, why));
}

bool isNumber(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

} // namespace

std::uint32_t parseTempo(const std::string& text)
{
    constexpr std::size_t places = 2;
    constexpr std::size_t longest = 4; // digits before the point
    const std::size_t point = std::min(text.find('.'), text.size());
    const std::string whole = text.substr(0, point);
    std::string fraction = text.substr(std::min(point + 1, text.size()));
    if (!isNumber(whole) || whole.size() > longest ||
        (point < text.size() && !isNumber(fraction))) {
        failForTempo(text, "is no tempo in beats a minute");
    }
    fraction.erase(fraction.find_last_not_of('0') + 1);
    if (fraction.size() > places) {
        failForTempo(text, "has too many places; a tempo has two, such as 126.55");
    }
    fraction.resize(places, '0');
    return static_cast<std::uint32_t>(std::stoul(whole + fraction));
}

std::uint32_t tempoToSet(const std::string& text)
{
    const std::uint32_t tempo = parseTempo(text);
    if (tempo != 0 && (tempo < 2000 || tempo > 30000)) {
        throw CLI::ValidationError("--tempo", "a clip's tempo is 20 to 300, or 0 for none");
    }
    return tempo;
}

std::pair<std::uint32_t, std::uint32_t> parseTempoRange(const std::string& text)
{
    const std::size_t dash = std::min(text.find('-'), text.size());
    const std::string first = text.substr(0, dash);
    const std::string last = dash == text.size() ? first : text.substr(dash + 1);
    const std::pair range(parseTempo(first), parseTempo(last));
    if (range.first > range.second) {
        failForTempo(text, fmt::format("goes down; write {}-{}", last, first));
    }
    return range;
}

void excludeEachOther(CLI::App& command, const std::string& one, const std::string& other)
{
    command.get_option(one)->excludes(command.get_option(other));
}

CLI::Validator notEmpty()
{
    return {[](const std::string& text) {
                return text.empty() ? std::string("this cannot be empty") : std::string();
            },
            ""};
}

CLI::Validator between(long long least, long long most)
{
    const std::string range = fmt::format("{} to {}", least, most);
    return {[=](const std::string& text) {
                long long number = 0;
                const char* const end = text.data() + text.size();
                const auto [rest, error] = std::from_chars(text.data(), end, number);
                const bool isGood =
                    error == std::errc() && rest == end && number >= least && number <= most;
                return isGood ? std::string()
                              : fmt::format("\"{}\" is not a whole number from {}", text, range);
            },
            range};
}

} // namespace plxclip
