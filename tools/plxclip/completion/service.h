// What the files for shells and the build ask this program. It is not for people, so --help does not show
// it, and an answer to a shell never contains an error.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "commands.h"

namespace plxclip::completion {

// The arguments are those of the program, its name first:
//
//   plxclip __complete =CURRENT WORD...    what can become of CURRENT behind these words. The first line is
//                                          "words", "files" or "folders"; each further one is a word, a tab
//                                          and a description, which may be empty
//   plxclip __man-pages DIR                writes the manual pages into a folder, which has to be there
//
// No value if it is neither of these.
std::optional<ExitStatus> serve(const CLI::App& app, const std::vector<std::string>& arguments);

} // namespace plxclip::completion
