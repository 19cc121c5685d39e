// Open files and folders, and operations on them, on Windows.
//
// An entry of a folder is opened relative to the open folder, so that no path can lead elsewhere,
// and it is changed and removed through that handle. Handles are never inherited, and do not keep
// other programs from reading, writing, renaming or removing the file.
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

// Owns an open file or folder. Functions that open one leave their error in GetLastError() when
// they fail.
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
    // The path by which it was opened, in the system's form; with room for a name, so that looking
    // at an entry needs no memory: after a failure, what was made must be removed even if there is
    // none.
    String path;
};

struct OpenFile {
    Handle handle;
};

// What a handle allows. All allow asking for the status.
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

// An entry of a folder: one name, not a path.
struct Entry {
    StringView name;
    DWORD attributes; // read by name, before anything is opened; 0 when they are unknown
};
Entry entryOf(OpenFolder& folder, StringView name);

// Opens an entry of a folder; if it is a link, the link itself. A name that would lead elsewhere is
// refused.
Handle openEntry(const Handle& folder, const Entry& entry, Access access);

// Opens again what is already open.
Handle reopen(const Handle& handle, Access access);

// Makes a new file; an existing one is not opened.
Handle makeFile(const Handle& folder, StringView name, Access access);
Handle makeFolder(const Handle& folder, StringView name);

// What a handle refers to.
struct Status {
    DWORD attributes;
    Sort sort;
};
std::optional<Status> statusOf(const Handle& handle); // none for a closed handle

// What a path leads to; links are followed.
std::optional<Sort> sortAt(const SystemPath& path);

// Opens an entry of that sort, which is not a link. What the system presents as a plain file or
// folder is opened as one.
Handle openSort(const Handle& folder, const Entry& entry, Access access, Sort sort);

// Removes what the handle refers to, and nothing else: a file, an empty folder or a link. It may be
// marked as read-only.
bool removeOpen(const Handle& entry, DWORD attributes);

// For calls that other programs can block, when the host's patience does not apply: virus scanners
// and similar programs hold new files for a moment.
inline constexpr std::chrono::milliseconds aMoment{300};

// Whether the error says that there is nothing with that name.
bool saysMissing(DWORD error);

// Whether the error of the last call says that another program blocks it.
bool isInUse(DWORD error);

// Repeats the call until it succeeds, fails for another reason than other programs, or the patience
// is used up.
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

// Waits until it is on the disk. True also where the file system cannot say.
bool syncFile(const Handle& file);
bool syncFolder(const Handle& folder);

} // namespace Korvel::CANTORIS::PLX::fs
