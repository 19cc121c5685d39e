// The only place that turns paths into the host's form, and names of the host into text.
#pragma once

#include <climits>
#include <cstddef>

#include "text.h"

namespace Korvel::CANTORIS::PLX::fs {

// A path as the system takes it: slashes and bytes, on the stack. One that has no such form (a lone
// surrogate, an embedded NUL, longer than any path that the system accepts) becomes the empty path,
// where the system finds nothing and makes nothing.
class HostPath {
public:
    explicit HostPath(StringView path);

    const char* text() const { return bytes_; }
    std::size_t length() const { return length_; }

    // What they end is the same folder without them, except for the root.
    void dropTrailingSeparators();

protected:
    void clear();

private:
    bool append(char32_t point);

    char bytes_[PATH_MAX];
    std::size_t length_ = 0;
};

// One name in a folder, in the same form. A path, and a name that means the folder itself or the one
// above it, becomes the empty name.
class HostName : public HostPath {
public:
    explicit HostName(StringView name);

    // The same for a name by which something is made in a folder with a path of that length, where
    // its whole path must be one that the system accepts: nobody else could reach it.
    HostName(StringView name, std::size_t folderPathLength);
};

// Appends a name of the host. False, and nothing appended, for one that is no valid text or that
// could not be told from a path.
bool appendName(const char* name, String& text);

} // namespace Korvel::CANTORIS::PLX::fs
