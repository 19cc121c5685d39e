// Files and folders that are open, and what is done with them, on Windows.
//
// An entry of a folder is opened by the open folder and its name, which no path leads astray, and is
// changed and removed by what was opened then. A handle is never inherited, and keeps no other program
// from reading, writing, renaming or removing what it is of.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include <windows.h>

#include "fs/fs.h"
#include "fs/reading.h"
#include "fs/win32/path.h"
#include "fs/win32/reparse.h"

namespace Korvel::CANTORIS::PLX::fs {

// Owns an open file or folder. What opens one leaves GetLastError() behind when it fails.
class Handle {
public:
    explicit Handle(HANDLE handle = INVALID_HANDLE_VALUE) noexcept : handle_(handle) {}
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
    Handle& operator=(Handle&& other) noexcept;
    ~Handle() { close(); }

    explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }
    void close();

private:
    HANDLE handle_;
};

struct OpenFolder {
    OpenFolder(Handle itself, String itsPath);

    Handle handle;
    // By which it was opened, as the system takes it; with room for a name, so that to look at an entry
    // takes no memory: what a failure has left must go even if there is none.
    String path;
};

struct OpenFile {
    Handle handle;
};

// What can be done with a handle. Each may be asked what it is of.
enum class Access : DWORD {
    look = FILE_READ_ATTRIBUTES,
    list = FILE_READ_ATTRIBUTES | FILE_LIST_DIRECTORY | FILE_TRAVERSE,
    read = FILE_READ_ATTRIBUTES | FILE_READ_DATA,
    change = FILE_READ_ATTRIBUTES | FILE_READ_DATA | FILE_WRITE_DATA,
    fill = FILE_READ_ATTRIBUTES | FILE_WRITE_DATA | DELETE,
    flush = FILE_READ_ATTRIBUTES | FILE_APPEND_DATA,
    remove = FILE_READ_ATTRIBUTES | DELETE,
    empty = FILE_READ_ATTRIBUTES | FILE_LIST_DIRECTORY | FILE_TRAVERSE | DELETE,
    hold = FILE_READ_ATTRIBUTES | FILE_READ_DATA | DELETE,
    mark = FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES,
};

enum class Links { follow, dontFollow };

Handle openPath(const SystemPath& path, Access access, Links links);

// What stands in a folder: one name, not a path.
struct Entry {
    StringView name;
    DWORD attributes; // by the name, before anything is opened; 0 when they are not known
};
Entry entryOf(OpenFolder& folder, StringView name);

// An entry of a folder, itself if it is a link. A name that would lead elsewhere is refused.
Handle openEntry(const Handle& folder, const Entry& entry, Access access);

// What is open already, once more.
Handle reopen(const Handle& handle, Access access);

// A new one; what is there already is not opened.
Handle makeFile(const Handle& folder, StringView name, Access access);
Handle makeFolder(const Handle& folder, StringView name);

// What a handle is of.
struct Status {
    DWORD attributes;
    Sort sort;
};
std::optional<Status> statusOf(const Handle& handle); // none of a closed one, too

// What a path leads to, through links.
std::optional<Sort> sortAt(const SystemPath& path);

// The same for an entry of that sort, in particular for no link. What the system lets appear as a plain
// file or folder is open as that.
Handle openSort(const Handle& folder, const Entry& entry, Access access, Sort sort);

// Removes what the handle is of, and nothing else: a file, an empty folder or a link. It may be marked as
// read-only.
bool removeOpen(const Handle& entry, DWORD attributes);

// For calls that others stand in the way of, where nobody has said how long the host may wait: virus
// scanners and the like hold what is new for a moment.
inline constexpr std::chrono::milliseconds aMoment{300};

// Whether the error says that there is nothing of that name.
bool saysMissing(DWORD error);

// Whether the error of the last call says that others stand in the way.
bool isInUse(DWORD error);

// Calls until it succeeds, or fails for another reason than others, or the patience is used up.
template <class Call>
auto patiently(Patience& patience, Call call)
{
    patience.calm();
    auto result = call();
    while (!result && isInUse(GetLastError()) && patience.wait()) {
        result = call();
    }
    return result;
}

long long readSome(const Handle& file, char* bytes, std::size_t size, std::uint64_t place);
std::optional<FileState> stateOf(const Handle& file);
ReadResult readWhole(const Handle& file, std::string& content, const ReadOptions& options);

bool writeAll(const Handle& file, std::string_view content, std::uint64_t place);
bool cutTo(const Handle& file, std::uint64_t size);

// Waits until the disk has it. True also where the file system cannot tell.
bool syncFile(const Handle& file);
bool syncFolder(const Handle& folder);

} // namespace Korvel::CANTORIS::PLX::fs
