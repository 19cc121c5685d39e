// Small files, read and written whole.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace bench {

// Both throw when that fails.
std::string readFile(const std::filesystem::path& file);
void writeFile(const std::filesystem::path& file, std::string_view content);

// Gives the file a second name, or copies it where the file system has no such thing. A file that
// has the name already is replaced.
void linkFile(const std::filesystem::path& file, const std::filesystem::path& name);

} // namespace bench
