#include <string>

#include "fs/ancestors.h"
#include "fs/fs.h"
#include "fs/posix/open.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

constexpr std::string_view separators = "/";

std::string parentOf(const std::string& path)
{
    const std::size_t length = parentLength(path, path.size(), separators);
    return length > 0 ? path.substr(0, length) : path.starts_with('/') ? "/" : ".";
}

// The new entry is stored in the parent. If the parent cannot be opened, it cannot be synchronised.
bool syncEntry(const std::string& path)
{
    const Descriptor parent = openFolder(AT_FDCWD, parentOf(path).c_str());
    return parent ? syncFolder(parent) : errno == EACCES;
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
    HostPath host{path.text};
    host.dropTrailingSeparators();
    return makeWithAncestors<std::string>(host.text(), separators, makeFolder);
}

bool removeEmptyFolder(const Path& path)
{
    const HostPath host{path.text};
    return removeEntry(AT_FDCWD, host.text(), AT_REMOVEDIR);
}

} // namespace Korvel::CANTORIS::PLX::fs
