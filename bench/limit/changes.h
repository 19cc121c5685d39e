// The least that changing files can cost.
#pragma once

#include <string_view>

#include "data/folder.h"

namespace bench {

// Opens, empties, writes and closes the file. Whether all of it was written.
bool rewriteBare(const Path& file, std::string_view content);

// Removes the files and then the folder.
bool removeBare(const Path& folder, const std::vector<Path>& files);

} // namespace bench
