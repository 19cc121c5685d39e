#pragma once

#include "data/folder.h"

namespace bench {

// Writes everything that the works read, unless a former run has left it complete.
void generate(const DataFolder& data);

// Clips as the library saves them, in folders named by their IDs. Those that are complete are
// written again all the same.
void writeUserClip(const DataFolder& data, std::size_t index);

} // namespace bench
