#pragma once

#include "commands.h"

namespace plxclip {

// Adds "check" to the command line; when the user names it, `chosen` becomes its work.
void addCheck(CLI::App& app, Work& chosen);

} // namespace plxclip
