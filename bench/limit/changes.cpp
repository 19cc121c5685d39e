#include "limit/changes.h"

#include <fcntl.h>
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

bool removeBare(const Path& folder, const std::vector<Path>& files)
{
    bool removed = true;
    for (const Path& file : files) {
        removed = ::unlink(file.c_str()) == 0 && removed;
    }
    return ::rmdir(folder.c_str()) == 0 && removed;
}

} // namespace bench
