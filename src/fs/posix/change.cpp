#include <string>

#include "fs/ancestors.h"
#include "fs/fs.h"
#include "fs/posix/system.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

// What exists already is as good, if it is a folder.
Made makeFolder(const std::string& path)
{
    if (uninterrupted([&] { return ::mkdir(path.c_str(), 0777); }) == 0) {
        return Made::yes;
    }
    if (errno == ENOENT) {
        return Made::parentMissing;
    }
    return isFolder(path.c_str()) ? Made::yes : Made::no;
}

} // namespace

bool createDirectories(const String& path)
{
    return makeWithAncestors<std::string>(HostPath{path}.text(), "/", makeFolder);
}

bool remove(const String& path)
{
    const HostPath host{path};
    if (uninterrupted([&] { return ::unlink(host.text()); }) == 0) {
        return true;
    }
    return (errno == EISDIR || errno == EPERM) &&
           uninterrupted([&] { return ::rmdir(host.text()); }) == 0;
}

bool removeEmptyFolder(const String& path)
{
    const HostPath host{path};
    return uninterrupted([&] { return ::rmdir(host.text()); }) == 0;
}

} // namespace Korvel::CANTORIS::PLX::fs
