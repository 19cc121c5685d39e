// Folders, files, links and pipes for tests that name them as the library does: UTF-16 with
// backslashes.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "support/claim.h"
#include "support/text.h"

namespace support {

using TextView = std::basic_string_view<KRT_PLX_Char>;

// The path for calls of the standard library.
std::filesystem::path hostPath(TextView path);

// A fresh folder, removed with everything in it at the end.
class TempDir {
public:
    TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    ~TempDir();

    const Text& path() const { return path_; }

    // A path below the folder.
    Text operator/(TextView relative) const;
    Text operator/(std::string_view relative) const { return *this / text(relative); }

private:
    Text path_;
    Claim claim_;
};

// These throw when they fail.
void makeFolder(const Text& path);                           // with its ancestors
void writeBytes(const Text& path, std::string_view content); // with the folders that it needs
std::string readBytes(const Text& path);

bool exists(const Text& path); // links are followed

// An emulated Windows opens what a link leads to where a link itself is asked for, keeps a file until the
// last who has it open closes it, and makes neither links nor pipes.
bool isEmulatedWindows();

// A link at `link` that leads to `target`, as seen from the link's own folder unless it is a whole
// path. False when the system at hand makes no links.
bool makeLink(const Text& link, const Text& target);

// False when the system at hand has no pipes in its folders.
bool makePipe(const Text& path);

} // namespace support
