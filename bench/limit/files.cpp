#include "limit/files.h"

#include <array>
#include <cstring>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace bench {

namespace {

// A property document is read by one call.
std::array<char, 65536> propertyBuffer;

std::size_t readProperty(int folder, const char* name)
{
    const int file = ::openat(folder, name, O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        return 0;
    }
    const ssize_t size = ::read(file, propertyBuffer.data(), propertyBuffer.size());
    ::close(file);
    return size < 0 ? 0 : static_cast<std::size_t>(size);
}

bool isSelfOrParent(const char* name)
{
    return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

// Relative to the folder above, which is the shortest way for the system.
std::size_t walkFolder(int parent, const char* name)
{
    const int folder = ::openat(parent, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    DIR* const stream = folder < 0 ? nullptr : ::fdopendir(folder);
    if (stream == nullptr) {
        return 0;
    }
    std::size_t bytes = 0;
    while (const dirent* const entry = ::readdir(stream)) {
        if (entry->d_type == DT_DIR && !isSelfOrParent(entry->d_name)) {
            bytes += walkFolder(folder, entry->d_name);
        } else if (std::strcmp(entry->d_name, "property.json") == 0) {
            bytes += readProperty(folder, entry->d_name);
        }
    }
    ::closedir(stream);
    return bytes;
}

} // namespace

std::size_t walkBare(const std::vector<Path>& folders)
{
    std::size_t bytes = 0;
    for (const Path& folder : folders) {
        bytes += walkFolder(AT_FDCWD, folder.c_str());
    }
    return bytes;
}

std::size_t readBare(const Path& file)
{
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status{};
    if (descriptor < 0 || ::fstat(descriptor, &status) != 0) {
        return 0;
    }
    const auto size = static_cast<std::size_t>(status.st_size);
    const std::unique_ptr<char[]> content(new char[size]);
    const ssize_t count = ::read(descriptor, content.get(), size);
    ::close(descriptor);
    return count < 0 ? 0 : static_cast<std::size_t>(count);
}

} // namespace bench
