#include "limit/changes.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace bench {

bool rewriteBare(const Path& file, std::string_view content)
{
    const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (descriptor < 0) {
        return false;
    }
    const ssize_t count = ::write(descriptor, content.data(), content.size());
    return ::close(descriptor) == 0 && count == static_cast<ssize_t>(content.size());
}

namespace {

bool syncAndClose(int descriptor)
{
    const bool isDone = descriptor >= 0 && ::fsync(descriptor) == 0;
    return ::close(descriptor) == 0 && isDone;
}

bool makeFile(int folder, const BareFile& file)
{
    const int descriptor = ::openat(folder, std::string(file.name).c_str(),
                                    O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    const ssize_t count = ::write(descriptor, file.content.data(), file.content.size());
    const bool isWhole = count == static_cast<ssize_t>(file.content.size());
    return syncAndClose(descriptor) && isWhole;
}

int openFolder(const Path& folder)
{
    return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

} // namespace

bool makeBare(const Path& parent, const std::string& name, const std::vector<BareFile>& files)
{
    if (::mkdir((parent / name).c_str(), 0777) != 0) {
        return false;
    }
    const int folder = openFolder(parent / name);
    bool isDone = true;
    for (const BareFile& file : files) {
        isDone = makeFile(folder, file) && isDone;
    }
    return syncAndClose(folder) && syncAndClose(openFolder(parent)) && isDone;
}

bool removeBare(const Path& folder, const std::vector<Path>& files)
{
    bool removed = true;
    for (const Path& file : files) {
        removed = ::unlink(file.c_str()) == 0 && removed;
    }
    return ::rmdir(folder.c_str()) == 0 && removed;
}

} // namespace bench
