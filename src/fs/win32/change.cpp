#include <new>

#include "fs/ancestors.h"
#include "fs/win32/open.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

constexpr StringView separators = L"\\";

// The new entry is stored in the parent. If the parent cannot be opened, it cannot be synchronised.
bool syncEntry(const SystemPath& path, std::size_t length)
{
    const String parent =
        path.upTo(std::max(parentLength(path.upTo(length), length, separators), path.rootLength()));
    const Handle folder = openPath(SystemPath{parent}, Access::look, Links::follow);
    return !folder || syncFolder(folder);
}

// An existing folder is as good as a new one. A drive or a share cannot be made.
Made makeFolder(const SystemPath& path, std::size_t length)
{
    const String folder = path.upTo(length);
    if (length > path.rootLength() && CreateDirectoryW(folder.c_str(), nullptr)) {
        return syncEntry(path, length) ? Made::yes : Made::no;
    }
    if (length > path.rootLength() && GetLastError() == ERROR_PATH_NOT_FOUND) {
        return Made::parentMissing;
    }
    return isDirectory(folder) ? Made::yes : Made::no;
}

} // namespace

bool createDirectories(const Path& path)
{
    const SystemPath system{path};
    return !system.isEmpty() &&
           makeWithAncestors<String>(system.text(), separators, [&](const String& folder) {
               return makeFolder(system, folder.size());
           });
}

bool removeEmptyFolder(const Path& path)
{
    try {
        const Handle folder = openPath(SystemPath{path}, Access::remove, Links::dontFollow);
        const auto status = statusOf(folder);
        return status && status->sort == Sort::folder && removeOpen(folder, status->attributes);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace Korvel::CANTORIS::PLX::fs
