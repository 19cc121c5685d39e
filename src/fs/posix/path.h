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

    // A separator at the end would make the system look through a link.
    void dropTrailingSeparators();

private:
    bool append(char32_t point);

    char bytes_[PATH_MAX];
    std::size_t length_ = 0;
};

// Appends a name of the host. False, and nothing appended, for one that is no valid text or that
// could not be told from a path.
bool appendName(const char* name, String& text);

} // namespace Korvel::CANTORIS::PLX::fs
