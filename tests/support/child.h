// Programs that a test starts, and waits for.
#pragma once

#include <chrono>
#include <optional>
#include <vector>

#include "support/files.h"

namespace support {

// Runs the program to its end and returns its exit code. None when it could not be started, was ended
// by a signal or an exception, or did not end in time; then it is ended by force.
std::optional<int> runProgram(const Path& program, const std::vector<Path>& arguments,
                              std::chrono::seconds limit);

} // namespace support
