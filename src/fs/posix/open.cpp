#include "fs/posix/open.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

// Some file systems cannot synchronise, and some folders may be written to but not read.
bool cannotTell(int error)
{
    return error == EINVAL || error == ENOTSUP || error == ENOSYS || error == EROFS ||
           error == EBADF;
}

template <class Call>
bool waitForDisk(Call call)
{
    return uninterrupted(call) == 0 || cannotTell(errno);
}

} // namespace

Descriptor openFile(int folder, const char* path, int flags)
{
    return Descriptor{
        uninterrupted([=] { return ::openat(folder, path, flags | cautiously, 0666); })};
}

// A new file can be made even in a folder that may be written to but not read.
Descriptor openFolder(int folder, const char* path, int flags)
{
    const auto open = [=](int access) {
        return ::openat(folder, path, access | flags | O_DIRECTORY | O_CLOEXEC);
    };
    Descriptor opened{uninterrupted([=] { return open(O_RDONLY | O_NONBLOCK); })};
#ifdef O_PATH
    if (!opened && errno == EACCES) {
        opened = Descriptor{uninterrupted([=] { return open(O_PATH); })};
    }
#endif
    return opened;
}

bool removeEntry(int folder, const char* name, int flags)
{
    return uninterrupted([=] { return ::unlinkat(folder, name, flags); }) == 0;
}

bool readStatus(const Descriptor& file, struct stat& status)
{
    return uninterrupted([&] { return ::fstat(file.number(), &status); }) == 0;
}

bool readEntryStatus(int folder, const char* path, struct stat& status, int flags)
{
    return uninterrupted([&] { return ::fstatat(folder, path, &status, flags); }) == 0;
}

bool isPlain(const struct stat& status)
{
    return S_ISREG(status.st_mode);
}

ssize_t readSome(const Descriptor& file, char* bytes, std::size_t size, std::uint64_t place)
{
    return uninterrupted(
        [&] { return ::pread(file.number(), bytes, size, static_cast<off_t>(place)); });
}

bool writeAll(const Descriptor& file, std::string_view content, std::uint64_t place)
{
    while (!content.empty()) {
        const ssize_t count = uninterrupted([&] {
            return ::pwrite(file.number(), content.data(), content.size(),
                            static_cast<off_t>(place));
        });
        if (count <= 0) {
            return false;
        }
        content.remove_prefix(static_cast<std::size_t>(count));
        place += static_cast<std::uint64_t>(count);
    }
    return true;
}

bool syncFile(const Descriptor& file)
{
    return waitForDisk([&] { return ::fdatasync(file.number()); });
}

bool syncFolder(const Descriptor& folder)
{
    return waitForDisk([&] { return ::fsync(folder.number()); });
}

} // namespace Korvel::CANTORIS::PLX::fs
