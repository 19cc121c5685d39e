// The only place that converts paths for the system, and names from the system to text.
#pragma once

#include <climits>
#include <cstddef>

#include "text.h"

namespace Korvel::CANTORIS::PLX::fs {

// A path in the form of the system: slashes and bytes, on the stack. A path that has no such form
// (because of a lone surrogate, an embedded NUL, or its length) becomes the empty path, which the
// system never finds and cannot make.
class HostPath {
public:
    explicit HostPath(StringView path);

    const char* text() const { return bytes_; }
    std::size_t length() const { return length_; }

protected:
    void clear();

private:
    std::size_t takeAscii(StringView path);
    bool append(char32_t point);

    char bytes_[PATH_MAX];
    std::size_t length_ = 0;
};

// One name in a folder, in the same form. A path, "." and ".." become the empty name.
class HostName : public HostPath {
public:
    explicit HostName(StringView name);

    // The same for a new entry in a folder whose path has that length. The whole path of the entry
    // must be one that the system accepts: otherwise nothing else could reach it.
    HostName(StringView name, std::size_t folderPathLength);
};

// Appends a name from the system. False, and nothing appended, for one that is not valid text or
// that would look like a path.
bool appendName(const char* name, String& text);

} // namespace Korvel::CANTORIS::PLX::fs
