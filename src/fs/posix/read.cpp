#include <algorithm>
#include <array>
#include <ctime>

#include "fs/posix/lock.h"
#include "fs/posix/open.h"
#include "fs/recent.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

// Nearly all documents fit into the first block, which needs no memory.
constexpr std::size_t firstBlockSize = std::size_t{16} * 1024;
constexpr std::size_t laterBlockSize = std::size_t{256} * 1024;

// One reading of a file, from its beginning to its end.
class Reading {
public:
    Reading(const Descriptor& file, std::string& content, const ReadOptions& options)
        : file_(file), content_(content), options_(options)
    {
    }

    ReadResult run();

    // Of the file once it has been read.
    [[nodiscard]] bool wasChangedJustNow() const;

private:
    ReadResult readFirstBlock();
    ReadResult readOn();
    [[nodiscard]] bool readOneMore();
    bool ask();
    [[nodiscard]] ReadResult result();
    [[nodiscard]] bool isTooLarge() const { return content_.size() > options_.limit; }
    bool isHopeless();

    const Descriptor& file_;
    std::string& content_;
    const ReadOptions& options_;
    Verdict verdict_ = Verdict::undecided;
    bool atEnd_ = false;
    bool asked_ = false;
    struct stat status_;
};

ReadResult Reading::run()
{
    const ReadResult result = readFirstBlock();
    return result == ReadResult::read && !atEnd_ ? readOn() : result;
}

// What the system says of the file is asked after reading: only then it tells whether the file was
// changed meanwhile.
ReadResult Reading::readFirstBlock()
{
    std::array<char, firstBlockSize> block; // NOLINT(cppcoreguidelines-pro-type-member-init)
    std::size_t length = 0;
    ssize_t count = 1;
    while (count > 0 && length < block.size()) {
        count = readSome(file_, block.data() + length, block.size() - length, length);
        length += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    if (!ask() || !isPlain(status_)) {
        return ReadResult::notOpened;
    }
    content_.assign(block.data(), length);
    atEnd_ = count == 0;
    return count < 0 ? ReadResult::refused : result();
}

ReadResult Reading::readOn()
{
    if (static_cast<std::uint64_t>(status_.st_size) > options_.limit) {
        return ReadResult::refused;
    }
    content_.reserve(static_cast<std::size_t>(status_.st_size) + 1);
    while (!atEnd_) {
        if (!readOneMore() || result() != ReadResult::read) {
            return ReadResult::refused;
        }
    }
    return ask() ? ReadResult::read : ReadResult::refused;
}

bool Reading::readOneMore()
{
    const std::size_t length = content_.size();
    const std::size_t room = content_.capacity() - length;
    content_.resize(length + (room == 0 ? firstBlockSize : std::min(room, laterBlockSize)));
    const ssize_t count =
        readSome(file_, content_.data() + length, content_.size() - length, length);
    content_.resize(length + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    atEnd_ = count == 0;
    return count >= 0;
}

bool Reading::ask()
{
    return asked_ = readStatus(file_, status_);
}

ReadResult Reading::result()
{
    return isTooLarge() || isHopeless() ? ReadResult::refused : ReadResult::read;
}

bool Reading::isHopeless()
{
    if (verdict_ == Verdict::undecided && options_.judge != nullptr) {
        verdict_ = options_.judge(content_);
    }
    return verdict_ == Verdict::hopeless;
}

bool Reading::wasChangedJustNow() const
{
    std::timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    const std::timespec& then = status_.st_mtim;
    return asked_ && isRecent(std::chrono::seconds(now.tv_sec - then.tv_sec) +
                              std::chrono::nanoseconds(now.tv_nsec - then.tv_nsec));
}

} // namespace

ReadResult readWhole(const Descriptor& file, std::string& content, const ReadOptions& options)
{
    return Reading(file, content, options).run();
}

ReadResult readSettled(const Descriptor& file, std::string& content, const ReadOptions& options,
                       Patience& patience)
{
    Reading reading(file, content, options);
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
