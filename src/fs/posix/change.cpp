#include <string>

#include "fs/ancestors.h"
#include "fs/fs.h"
#include "fs/posix/open.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

constexpr std::string_view separators = "/";

// The new entry is stored in the folder's parent. If the parent cannot be opened, it cannot be
// synchronised.
bool syncEntry(const std::string& path)
{
    const Descriptor folder = openFolder(AT_FDCWD, path.c_str());
    if (folder) {
        const Descriptor parent = openFolder(folder.number(), "..");
        if (parent) {
            return syncFolder(parent);
        }
    }
    return errno == EACCES;
}

// An existing folder is as good as a new one.
Made makeFolder(const std::string& path)
{
    if (uninterrupted([&] { return ::mkdir(path.c_str(), 0777); }) == 0) {
        return syncEntry(path) ? Made::yes : Made::no;
    }
    if (errno == ENOENT) {
        return Made::parentMissing;
    }
    return isFolder(path.c_str()) ? Made::yes : Made::no;
}

} // namespace

bool createDirectories(const Path& path)
{
    const HostPath host{path.text};
    return makeWithAncestors<std::string>(host.text(), separators, makeFolder);
}

bool removeEmptyFolder(const Path& path)
{
    const HostPath host{path.text};
    return removeEntry(AT_FDCWD, host.text(), AT_REMOVEDIR);
}

} // namespace Korvel::CANTORIS::PLX::fs
