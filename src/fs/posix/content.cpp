#include <cstdint>
#include <memory>

#include "fs/fs.h"
#include "fs/posix/system.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

// Should a pipe or a terminal take the place of a file between two calls, opening it must neither
// wait nor make it the terminal of this process.
constexpr int cautiously = O_CLOEXEC | O_NONBLOCK | O_NOCTTY;

bool isPlain(const HostPath& path, struct stat& status)
{
    return readStatus(path, status) && S_ISREG(status.st_mode);
}

bool isPlain(const Descriptor& file, struct stat& status)
{
    return uninterrupted([&] { return ::fstat(file.number(), &status); }) == 0 &&
           S_ISREG(status.st_mode);
}

Descriptor openForReading(const HostPath& path)
{
    return Descriptor{uninterrupted([&] { return ::open(path.text(), O_RDONLY | cautiously); })};
}

Descriptor openForWriting(const HostPath& path, int disposition)
{
    const int flags = O_WRONLY | O_CREAT | disposition | cautiously;
    return Descriptor{uninterrupted([&] { return ::open(path.text(), flags, 0666); })};
}

// How many bytes came: 0 at the end of the file, less than 0 for a failure.
ssize_t readSome(const Descriptor& file, char* bytes, std::size_t size)
{
    return uninterrupted([&] { return ::read(file.number(), bytes, size); });
}

// Stops early at the end of the file: it may have shrunk since its size was asked.
bool readAll(const Descriptor& file, std::string& content)
{
    std::size_t length = 0;
    while (length < content.size()) {
        const ssize_t count = readSome(file, content.data() + length, content.size() - length);
        if (count < 0) {
            return false;
        }
        if (count == 0) {
            break;
        }
        length += static_cast<std::size_t>(count);
    }
    content.resize(length);
    return true;
}

bool writeAll(const Descriptor& file, std::string_view content)
{
    while (!content.empty()) {
        const ssize_t count =
            uninterrupted([&] { return ::write(file.number(), content.data(), content.size()); });
        if (count <= 0) {
            return false;
        }
        content.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

bool copyAll(const Descriptor& from, const Descriptor& to)
{
    constexpr std::size_t blockSize = 64 * 1024;
    const auto block = std::make_unique<char[]>(blockSize);
    ssize_t count = readSome(from, block.get(), blockSize);
    while (count > 0 && writeAll(to, {block.get(), static_cast<std::size_t>(count)})) {
        count = readSome(from, block.get(), blockSize);
    }
    return count == 0;
}

} // namespace

bool readFile(const String& path, std::string& content, Kind kind)
{
    const HostPath host{path};
    struct stat status;
    if (kind == Kind::unknown && !isPlain(host, status)) {
        return false;
    }
    const Descriptor file = openForReading(host);
    if (!file || !isPlain(file, status) ||
        static_cast<std::uintmax_t>(status.st_size) > content.max_size()) {
        return false;
    }
    content.resize(static_cast<std::size_t>(status.st_size));
    return readAll(file, content);
}

WriteResult writeFile(const String& path, std::string_view content)
{
    const HostPath host{path};
    struct stat status;
    if (readStatus(host, status) && !S_ISREG(status.st_mode)) {
        return WriteResult::notOpened;
    }
    Descriptor file = openForWriting(host, O_TRUNC);
    if (!file) {
        return WriteResult::notOpened;
    }
    const bool complete = writeAll(file, content);
    return file.close() && complete ? WriteResult::written : WriteResult::failed;
}

bool copyFile(const String& from, const String& to)
{
    const HostPath source{from};
    const HostPath target{to};
    struct stat status;
    if (!isPlain(source, status)) {
        return false;
    }
    const Descriptor input = openForReading(source);
    if (!input) {
        return false;
    }
    Descriptor output = openForWriting(target, O_EXCL);
    return output && copyAll(input, output) && output.close();
}

} // namespace Korvel::CANTORIS::PLX::fs
