#include <cstdlib>
#include <string_view>

#include "fs/fs.h"
#include "fs/posix/system.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

using ResolvedPath = char[PATH_MAX];

bool resolve(const String& path, ResolvedPath& resolved)
{
    return ::realpath(HostPath{path}.text(), resolved) != nullptr;
}

} // namespace

bool exists(const String& path)
{
    struct stat status;
    return readStatus(HostPath{path}, status);
}

bool isMissing(const String& path)
{
    struct stat status;
    return !readStatus(HostPath{path}, status) && (errno == ENOENT || errno == ENOTDIR);
}

bool isDirectory(const String& path)
{
    struct stat status;
    return readStatus(HostPath{path}, status) && S_ISDIR(status.st_mode);
}

bool isPlainFile(const String& path)
{
    struct stat status;
    return readStatus(HostPath{path}, status) && S_ISREG(status.st_mode);
}

bool isStrictlyBelow(const String& path, const String& folder)
{
    ResolvedPath innerText;
    ResolvedPath outerText;
    if (!resolve(path, innerText) || !resolve(folder, outerText)) {
        return false;
    }
    const std::string_view inner = innerText;
    std::string_view outer = outerText;
    if (outer == "/") {
        outer = {};
    }
    return inner.size() > outer.size() + 1 && inner.starts_with(outer) &&
           inner[outer.size()] == '/';
}

} // namespace Korvel::CANTORIS::PLX::fs
