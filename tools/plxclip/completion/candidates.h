// What can stand at the end of a command line that is being typed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <CLI/CLI.hpp>

namespace plxclip::completion {

struct Candidate {
    std::string text;        // the whole word, as the program has to get it
    std::string description; // may be empty
};

enum class Kind { words, files, folders };

struct Answer {
    Kind kind = Kind::words; // the shell completes the names of files and folders by itself
    std::vector<Candidate> candidates = {};
};

// `words` stand before the word that is being typed, without the program's name; `current` is that word as
// far as it is there. Never throws for a line that makes no sense: then there is nothing to complete.
Answer answerFor(const CLI::App& app, const std::vector<std::string>& words,
                 const std::string& current);

} // namespace plxclip::completion
