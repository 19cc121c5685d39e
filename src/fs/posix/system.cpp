#include "fs/posix/system.h"

#include <ctime>

#include "fs/patience.h"

namespace Korvel::CANTORIS::PLX::fs {

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept
{
    std::swap(number_, other.number_);
    return *this;
}

// Not repeated after a signal: Linux has closed the descriptor even when the call was interrupted,
// and another thread may already have the same number.
bool Descriptor::close()
{
    const int number = std::exchange(number_, -1);
    return number < 0 || ::close(number) == 0 || errno == EINTR;
}

bool readStatus(const HostPath& path, struct stat& status)
{
    return uninterrupted([&] { return ::stat(path.text(), &status); }) == 0;
}

bool isFolder(const char* path)
{
    struct stat status;
    return uninterrupted([&] { return ::stat(path, &status); }) == 0 && S_ISDIR(status.st_mode);
}

bool isSame(const struct stat& left, const struct stat& right)
{
    return left.st_dev == right.st_dev && left.st_ino == right.st_ino;
}

void sleepFor(std::chrono::milliseconds time)
{
    const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
    const std::chrono::nanoseconds rest = time - seconds;
    const std::timespec wanted{static_cast<std::time_t>(seconds.count()),
                               static_cast<long>(rest.count())};
    ::nanosleep(&wanted, nullptr);
}

} // namespace Korvel::CANTORIS::PLX::fs
