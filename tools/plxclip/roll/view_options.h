// Options of the commands that draw.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include <CLI/CLI.hpp>

#include "roll/roll.h"

namespace plxclip::roll {

// Two numbers such as "3/4" or "1-8".
std::pair<std::int64_t, std::int64_t> parsePair(const std::string& option, const std::string& text,
                                                char separator);

// A clip contains neither meter nor time unit: --meter and --ticks.
CLI::Option* addMeter(CLI::App& command, View& view);
CLI::Option* addTicks(CLI::App& command, View& view);

} // namespace plxclip::roll
