// The least that changing files can cost.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/folder.h"

namespace bench {

// Opens, empties, writes and closes the file. Whether all of it was written.
bool rewriteBare(const Path& file, std::string_view content);

struct BareFile {
    std::string_view name;
    std::string_view content;
};

// Makes a folder with files, and waits until the disk has the files, the folder and its entry.
bool makeBare(const Path& parent, const std::string& name, const std::vector<BareFile>& files);

// Removes the files and then the folder.
bool removeBare(const Path& folder, const std::vector<Path>& files);

} // namespace bench
