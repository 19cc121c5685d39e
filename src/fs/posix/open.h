// Open files and folders, and operations on them, on a POSIX system.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "fs/fs.h"
#include "fs/posix/system.h"
#include "fs/reading.h"

namespace Korvel::CANTORIS::PLX::fs {

struct OpenFolder {
    OpenFolder(Descriptor opened, std::size_t length)
        : descriptor(std::move(opened)), pathLength(length)
    {
    }

    Descriptor descriptor;
    std::size_t pathLength; // the length of the path by which it was opened
};

struct OpenFile {
    explicit OpenFile(Descriptor opened) : descriptor(std::move(opened)) {}

    Descriptor descriptor;
};

// If a pipe or a terminal takes the place of a file between two calls, opening it must neither wait
// nor make the terminal that of this process.
inline constexpr int cautiously = O_CLOEXEC | O_NONBLOCK | O_NOCTTY;

// Relative to a folder, or to AT_FDCWD with a full path.
Descriptor openFile(int folder, const char* path, int flags);
Descriptor openFolder(int folder, const char* path, int flags = 0);

// Removes a file or a link, or with AT_REMOVEDIR an empty folder.
bool removeEntry(int folder, const char* name, int flags = 0);

// Removes the content of a folder, without following links. What cannot be removed stays.
void removeContent(Descriptor folder);

bool readStatus(const Descriptor& file, struct stat& status);

// Relative to a folder, or to AT_FDCWD with a full path. With AT_SYMLINK_NOFOLLOW, of the link
// itself.
bool readEntryStatus(int folder, const char* path, struct stat& status, int flags);

bool isPlain(const struct stat& status);
std::optional<FileState> stateOf(const Descriptor& file);

// The number of bytes read: 0 at the end of the file, less than 0 for a failure.
ssize_t readSome(const Descriptor& file, char* bytes, std::size_t size, std::uint64_t place);

// To its end, or as far as the options allow.
ReadResult readWhole(const Descriptor& file, std::string& content, const ReadOptions& options);

// The same, but reads again under a lock if the file may have been in the middle of a change.
ReadResult readSettled(const Descriptor& file, std::string& content, const ReadOptions& options,
                       Patience& patience);

bool writeAll(const Descriptor& file, std::string_view content, std::uint64_t place);

// Wait until it is on the disk. True also where the file system cannot say.
bool syncFile(const Descriptor& file);
bool syncFolder(const Descriptor& folder);

} // namespace Korvel::CANTORIS::PLX::fs
