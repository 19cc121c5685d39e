// What the Windows side of the platform layer shares. A path goes to the system as it is.
#pragma once

#include <cstdint>
#include <optional>

#include <windows.h>

#include "text.h"

namespace Korvel::CANTORIS::PLX::fs {

// The system would take the text only up to the NUL, hence something else.
bool holdsNul(const String& path);

// The path without the separators at its end, with which the system would look through a link. Empty
// for the root of a drive, which nobody may remove.
String entryPath(const String& path);

// The attributes of the file, folder or link itself; none when they cannot be read.
std::optional<DWORD> attributesOf(const String& path);

bool isFolder(DWORD attributes);

// Symbolic links and junctions.
bool isLink(DWORD attributes);

// Removes a file, an empty folder or a link; never what a link leads to.
bool removeEntry(const String& path, DWORD attributes);

// Owns an open file or folder.
class Handle {
public:
    // Asks only for what it is, not for its content. Links are followed.
    explicit Handle(const String& path);
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle();

    explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }

    std::optional<BY_HANDLE_FILE_INFORMATION> information() const;

private:
    HANDLE handle_;
};

struct Status {
    DWORD attributes;
    std::uint64_t size;
};

// Links are followed. None when the path leads nowhere.
std::optional<Status> statusOf(const String& path);

bool isPlain(const String& path, const Status& status);

} // namespace Korvel::CANTORIS::PLX::fs
