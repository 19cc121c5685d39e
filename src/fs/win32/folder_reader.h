#pragma once

#include <windows.h>

#include "fs/win32/path.h"

namespace Korvel::CANTORIS::PLX::fs {

// Reads a folder in the order of the file system; returns no entries when it cannot be read.
class FolderReader {
public:
    explicit FolderReader(const SystemPath& folder);
    FolderReader(const FolderReader&) = delete;
    FolderReader& operator=(const FolderReader&) = delete;
    ~FolderReader();

    // Null after the last entry. The folder itself and its parent are skipped.
    const WIN32_FIND_DATAW* next();

private:
    HANDLE begin(const SystemPath& folder);
    bool advance();

    WIN32_FIND_DATAW entry_{};
    HANDLE search_;
    bool atFirst_;
};

} // namespace Korvel::CANTORIS::PLX::fs
