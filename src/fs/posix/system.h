// What the POSIX files of this layer share: retries, descriptors, the status of a path.
#pragma once

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "fs/posix/path.h"

namespace Korvel::CANTORIS::PLX::fs {

// Repeats a system call that a signal interrupted.
template <typename Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

// Owns an open file or folder.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept;
    ~Descriptor() { close(); }

    explicit operator bool() const { return number_ >= 0; }
    int number() const { return number_; }

    // Gives up ownership of the open file.
    int release() { return std::exchange(number_, -1); }

    // False when the system reports that something written before has been lost.
    bool close();

private:
    int number_;
};

// Links are followed. False when the path leads nowhere.
bool readStatus(const HostPath& path, struct stat& status);
bool isFolder(const char* path);

// Whether both are of one file or folder.
bool isSame(const struct stat& left, const struct stat& right);

} // namespace Korvel::CANTORIS::PLX::fs
