#include "fs/ancestors.h"
#include "fs/fs.h"
#include "fs/win32/system.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

// What exists already is as good, if it is a folder.
Made makeFolder(const String& path)
{
    if (CreateDirectoryW(path.c_str(), nullptr)) {
        return Made::yes;
    }
    if (GetLastError() == ERROR_PATH_NOT_FOUND) {
        return Made::parentMissing;
    }
    return isDirectory(path) ? Made::yes : Made::no;
}

} // namespace

bool createDirectories(const String& path)
{
    return !holdsNul(path) && makeWithAncestors<String>(path, LR"(\/)", makeFolder);
}

bool remove(const String& path)
{
    const String entry = entryPath(path);
    const auto attributes = attributesOf(entry);
    return attributes && removeEntry(entry, *attributes);
}

bool removeEmptyFolder(const String& path)
{
    const String folder = entryPath(path);
    const auto attributes = attributesOf(folder);
    return attributes && isFolder(*attributes) && !isLink(*attributes) &&
           removeEntry(folder, *attributes);
}

} // namespace Korvel::CANTORIS::PLX::fs
