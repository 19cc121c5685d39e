// The clip files below a folder, and what looks like one but is none.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace plxclip::check {

enum class FileKind : std::uint8_t {
    clip,
    otherExtension, // one that differs in capital letters or in what comes after it
    noPlainFile,    // a link that leads nowhere, a pipe or the like
    unusableName,   // no library can ask for it, because of its own name or that of a folder
    closedFolder    // a folder that cannot be listed
};

struct FoundFile {
    std::filesystem::path path;
    FileKind kind;
};

// Goes through the folder as a host does, following links once.
void forEachFile(const std::filesystem::path& folder,
                 const std::function<void(const FoundFile& file)>& visit);

std::filesystem::path pathOf(std::string_view utf8);

// In UTF-8 and with slashes; what is no text in the name is replaced.
std::string textOf(const std::filesystem::path& path);

// In small letters, as far as they are ASCII.
std::string lowerCase(std::string text);

// The same for every spelling of a path that the library and this check may have for one file.
std::string keyOf(std::string_view path);

enum class ReadResult : std::uint8_t { read, unreadable, tooLarge };

// The bytes of a plain file, if these are no more than the limit.
ReadResult readFile(const std::filesystem::path& path, std::uintmax_t limit, std::string& bytes);

} // namespace plxclip::check
