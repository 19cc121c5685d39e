// Paths as the user writes them, as the system has them and as the library has them.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include <korvel/plx.hpp>

namespace plxclip {

std::filesystem::path pathOf(std::string_view utf8);

// In UTF-8; bytes that are not text are replaced.
std::string textOfBytes(std::string_view bytes);

// In UTF-8 and with slashes; bytes of a name that are not text are replaced.
std::string textOf(const std::filesystem::path& path);

// Converts a path of the library to the form of this system, and back.
std::string pathText(korvel::plx::StringView path);
korvel::plx::String libraryPath(const std::string& path);

} // namespace plxclip
