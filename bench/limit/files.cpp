#include "limit/files.h"

#include <array>
#include <cstring>
#include <memory>
#include <string>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace bench {

namespace {

// A property document fits. The second reading of it finds its end.
std::array<char, 65536> propertyBuffer;

std::size_t readProperty(int folder, const char* name)
{
    const int file = ::openat(folder, name, O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        return 0;
    }
    std::size_t length = 0;
    ssize_t size = 1;
    while (size > 0 && length < propertyBuffer.size()) {
        size = ::read(file, propertyBuffer.data() + length, propertyBuffer.size() - length);
        length += size > 0 ? static_cast<std::size_t>(size) : 0;
    }
    ::close(file);
    return length;
}

bool isSelfOrParent(const char* name)
{
    return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

// The path grows and shrinks with the folder that it leads to.
std::size_t walkFolder(std::string& path)
{
    DIR* const stream = ::opendir(path.c_str());
    if (stream == nullptr) {
        return 0;
    }
    std::size_t bytes = 0;
    const std::size_t length = path.size();
    while (const dirent* const entry = ::readdir(stream)) {
        if (entry->d_type == DT_DIR && !isSelfOrParent(entry->d_name)) {
            path.append(1, '/').append(entry->d_name);
            bytes += walkFolder(path);
            path.resize(length);
        } else if (std::strcmp(entry->d_name, "property.json") == 0) {
            bytes += readProperty(::dirfd(stream), entry->d_name);
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
        std::string path = folder.string();
        bytes += walkFolder(path);
    }
    return bytes;
}

std::size_t readBare(const Path& file)
{
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status {};
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
