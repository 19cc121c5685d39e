#include "fs/fs.h"
#include "fs/posix/system.h"

namespace Korvel::CANTORIS::PLX::fs {

bool exists(const Path& path)
{
    struct stat status;
    return readStatus(HostPath{path.text}, status);
}

bool isMissing(const Path& path)
{
    struct stat status;
    return !readStatus(HostPath{path.text}, status) && (errno == ENOENT || errno == ENOTDIR);
}

bool isDirectory(const Path& path)
{
    struct stat status;
    return readStatus(HostPath{path.text}, status) && S_ISDIR(status.st_mode);
}

bool isPlainFile(const Path& path)
{
    struct stat status;
    return readStatus(HostPath{path.text}, status) && S_ISREG(status.st_mode);
}

} // namespace Korvel::CANTORIS::PLX::fs
