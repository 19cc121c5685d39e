#ifndef _WIN32

#    include <algorithm>
#    include <cstdlib>
#    include <stdexcept>

#    include <sys/stat.h>
#    include <unistd.h>

#    include "support/temp_dir_system.h"

namespace support {

bool isEmulatedWindows()
{
    return false;
}

std::filesystem::path hostPath(TextView path)
{
    std::string bytes = utf8(Text{path});
    std::replace(bytes.begin(), bytes.end(), '\\', '/');
    return bytes;
}

Text makeFreshFolder()
{
    std::string path = std::filesystem::temp_directory_path() / "plx-scratch-XXXXXX";
    if (::mkdtemp(path.data()) == nullptr) {
        throw std::runtime_error("cannot make " + path);
    }
    std::replace(path.begin(), path.end(), '/', '\\');
    return text(path);
}

void removeAll(const Text& folder) noexcept
{
    std::error_code ignored;
    std::filesystem::remove_all(hostPath(folder), ignored);
}

bool makeLink(const Text& link, const Text& target)
{
    return ::symlink(hostPath(target).c_str(), hostPath(link).c_str()) == 0;
}

bool makePipe(const Text& path)
{
    return ::mkfifo(hostPath(path).c_str(), 0600) == 0;
}

} // namespace support

#endif
