#include <ctime>

#include "fs/posix/lock.h"
#include "fs/posix/open.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

std::chrono::nanoseconds ageOf(const std::timespec& then)
{
    std::timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return std::chrono::seconds(now.tv_sec - then.tv_sec) +
           std::chrono::nanoseconds(now.tv_nsec - then.tv_nsec);
}

} // namespace

std::optional<FileState> stateOf(const Descriptor& file)
{
    struct stat status;
    if (!readStatus(file, status)) {
        return std::nullopt;
    }
    return FileState{isPlain(status), static_cast<std::uint64_t>(status.st_size),
                     ageOf(status.st_mtim)};
}

ReadResult readWhole(const Descriptor& file, std::string& content, const ReadOptions& options)
{
    return Reading<Descriptor>(file, content, options).run();
}

ReadResult readSettled(const Descriptor& file, std::string& content, const ReadOptions& options,
                       Patience& patience)
{
    Reading<Descriptor> reading(file, content, options);
    const ReadResult result = reading.run();
    if (result == ReadResult::notOpened || !reading.wasChangedJustNow() ||
        lock(file, Sharing::shared, patience) != Locked::yes) {
        return result;
    }
    return readWhole(file, content, options);
}

ReadResult readFile(const Path& path, std::string& content, const ReadOptions& options,
                    Patience& patience)
{
    const HostPath host{path.text};
    struct stat status;
    if (options.kind == Kind::unknown && !(readStatus(host, status) && isPlain(status))) {
        return ReadResult::notOpened;
    }
    const Descriptor file = openFile(AT_FDCWD, host.text(), O_RDONLY);
    return file ? readSettled(file, content, options, patience) : ReadResult::notOpened;
}

} // namespace Korvel::CANTORIS::PLX::fs
