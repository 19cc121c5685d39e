// Options that choose clips by what a catalogue shows of them.
#pragma once

#include <string>

#include <CLI/CLI.hpp>

#include "search.h"

namespace plxclip {

// Adds --genre and the like, or --only-genre and the like if the prefix is "--only-".
void addFilters(CLI::App& command, Search& search, const std::string& prefix = "--");

} // namespace plxclip
