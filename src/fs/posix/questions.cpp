#include "fs/fs.h"
#include "fs/posix/system.h"

namespace Korvel::CANTORIS::PLX::fs {

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

} // namespace Korvel::CANTORIS::PLX::fs
