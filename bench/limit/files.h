// The least that reading files can cost: nothing is kept, nothing is understood.
#pragma once

#include <cstddef>
#include <vector>

#include "data/folder.h"

namespace bench {

// Lists everything below the folders, and opens, reads and closes every "property.json". Returns how
// many bytes those held.
std::size_t walkBare(const std::vector<Path>& folders);

// Opens, reads and closes the file. Returns how many bytes it held.
std::size_t readBare(const Path& file);

} // namespace bench
