#pragma once
#ifndef _WIN32

#    include <memory>

#    include <dirent.h>

#    include "fs/posix_system.h"

namespace Korvel::CANTORIS::PLX::fs {

// A folder that is being read, in the order of the file system. False when it could not be opened.
class FolderReader {
public:
    explicit FolderReader(const HostPath& path);

    // Reads the folder behind the descriptor, which it takes over.
    explicit FolderReader(Descriptor folder);

    explicit operator bool() const { return stream_ != nullptr; }
    int number() const { return ::dirfd(stream_.get()); }

    // Null after the last entry. The folder itself and its parent are no entries.
    const dirent* next();

private:
    struct Close {
        void operator()(DIR* stream) const { ::closedir(stream); }
    };
    std::unique_ptr<DIR, Close> stream_;
};

} // namespace Korvel::CANTORIS::PLX::fs

#endif
