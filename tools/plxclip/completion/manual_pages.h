// Manual pages for "man", made from the description of the command line, as --help is.
#pragma once

#include <map>
#include <string>

#include <CLI/CLI.hpp>

namespace plxclip::completion {

// Their texts, by the names of their files: one for the program and one for each command.
std::map<std::string, std::string> manualPagesOf(const CLI::App& app);

} // namespace plxclip::completion
