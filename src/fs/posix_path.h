// The only place that turns paths into the host's form, and names of the host into text.
#pragma once
#ifndef _WIN32

#    include <climits>
#    include <cstddef>

#    include "text.h"

namespace Korvel::CANTORIS::PLX::fs {

// A path as the system takes it: slashes and bytes, on the stack. False for one that has no such
// form: a lone surrogate, an embedded NUL, or longer than any path that the system accepts.
class HostPath {
public:
    explicit HostPath(StringView path);

    explicit operator bool() const { return converted_; }
    const char* text() const { return bytes_; }
    char* text() { return bytes_; }
    std::size_t length() const { return length_; }

    // A separator at the end would make the system look through a link.
    void dropTrailingSeparators();

private:
    bool append(StringView& rest);

    char bytes_[PATH_MAX];
    std::size_t length_ = 0;
    bool converted_ = false;
};

// Appends a name of the host. False, and nothing appended, for one that is no valid text or that
// could not be told from a path.
bool appendName(const char* name, String& text);

} // namespace Korvel::CANTORIS::PLX::fs

#endif
