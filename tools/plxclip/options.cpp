#include "options.h"

#include <cmath>
#include <cstdlib>

namespace plxclip {

void addFolders(CLI::App& command, std::vector<std::string>& folders,
                std::vector<std::string>& userFolders)
{
    command
        .add_option("DIR", folders,
                    "Folders with clips at any depth. One that has the folders \"system\" and "
                    "\"user\" in it stands for these; any other is read as system clips")
        ->type_name("");
    command.add_option("--user", userFolders, "A folder to be read as user clips")
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
        ->required();
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

std::uint32_t parseTempo(const std::string& text)
{
    char* end = nullptr;
    const double tempo = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0' || !(tempo >= 0 && tempo <= 1000)) {
        throw CLI::ValidationError("--tempo", "\"" + text + "\" is no tempo in beats a minute");
    }
    return static_cast<std::uint32_t>(std::lround(tempo * 100));
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
    const std::size_t dash = text.find('-');
    if (dash == std::string::npos) {
        return {parseTempo(text), parseTempo(text)};
    }
    return {parseTempo(text.substr(0, dash)), parseTempo(text.substr(dash + 1))};
}

} // namespace plxclip
