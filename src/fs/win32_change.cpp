#ifdef _WIN32

#    include "fs/ancestors.h"
#    include "fs/fs.h"
#    include "fs/win32_system.h"

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
    const auto attributes = attributesOf(path);
    return attributes && removeEntry(path, *attributes);
}

bool removeEmptyFolder(const String& path)
{
    const auto attributes = attributesOf(path);
    constexpr DWORD kinds = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    return attributes && (*attributes & kinds) == FILE_ATTRIBUTE_DIRECTORY &&
           RemoveDirectoryW(path.c_str()) != FALSE;
}

} // namespace Korvel::CANTORIS::PLX::fs

#endif
