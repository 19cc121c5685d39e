#pragma once

#include <array>
#include <cstddef>

#include <dirent.h>

#include "fs/posix/system.h"

namespace Korvel::CANTORIS::PLX::fs {

// A folder that is being read, in the order of the file system. False when it could not be opened.
//
// By the system's own call: a scan reads one folder a clip, and the C library's stream would take and
// give back a large block of the heap for each, and ask once more what kind of file the folder is.
class FolderReader {
public:
    explicit FolderReader(const HostPath& path);
    explicit FolderReader(Descriptor folder) : folder_(std::move(folder)) {}

    explicit operator bool() const { return static_cast<bool>(folder_); }
    int number() const { return folder_.number(); }

    // Null after the last entry, and where the folder cannot be read further. The folder itself and
    // its parent are no entries. The entry is good until the next call.
    const dirent64* next();

private:
    const dirent64* advance();
    bool readBlock();

    Descriptor folder_;
    std::size_t place_ = 0;
    std::size_t size_ = 0;
    alignas(dirent64) std::array<char, std::size_t{16} * 1024> block_;
};

} // namespace Korvel::CANTORIS::PLX::fs
