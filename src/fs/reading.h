// Reading an open file to its end, whatever size it reports. Each system provides for its files:
//     long long readSome(const File&, char* bytes, std::size_t size, std::uint64_t place)
//         the number of bytes read: 0 at the end of the file, less than 0 for a failure
//     std::optional<FileState> stateOf(const File&)
#pragma once

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "fs/fs.h"
#include "fs/recent.h"

namespace Korvel::CANTORIS::PLX::fs {

// What the system reports about an open file.
struct FileState {
    bool isPlain;
    std::uint64_t size;
    std::chrono::nanoseconds age; // since it was last changed, by this computer's clock
};

// One reading of a file, from its beginning to its end.
template <class File>
class Reading {
public:
    Reading(const File& file, std::string& content, const ReadOptions& options)
        : file_(file), content_(content), options_(options)
    {
    }

    ReadResult run()
    {
        const ReadResult result = readFirstBlock();
        return result == ReadResult::read && !atEnd_ ? readOn() : result;
    }

    // For the file after it has been read.
    [[nodiscard]] bool wasChangedJustNow() const { return state_ && isRecent(state_->age); }

private:
    // Nearly all documents fit into the first block, which needs no memory.
    static constexpr std::size_t firstBlockSize = std::size_t{16} * 1024;
    static constexpr std::size_t laterBlockSize = std::size_t{256} * 1024;

    // The state of the file is read last: only then does it show whether the file was changed
    // meanwhile.
    ReadResult readFirstBlock()
    {
        std::array<char, firstBlockSize> block; // NOLINT(cppcoreguidelines-pro-type-member-init)
        std::size_t length = 0;
        long long count = 1;
        while (count > 0 && length < block.size()) {
            count = readSome(file_, block.data() + length, block.size() - length, length);
            length += static_cast<std::size_t>(std::max(count, 0LL));
        }
        if (!ask() || !state_->isPlain) {
            return ReadResult::notOpened;
        }
        content_.assign(block.data(), length);
        atEnd_ = count == 0;
        return count < 0 ? ReadResult::refused : result();
    }

    ReadResult readOn()
    {
        if (state_->size > options_.limit) {
            return ReadResult::refused;
        }
        content_.reserve(static_cast<std::size_t>(state_->size) + 1);
        while (!atEnd_) {
            if (!readOneMore() || result() != ReadResult::read) {
                return ReadResult::refused;
            }
        }
        return ask() ? ReadResult::read : ReadResult::refused;
    }

    bool readOneMore()
    {
        const std::size_t length = content_.size();
        const std::size_t room = content_.capacity() - length;
        content_.resize(length + (room == 0 ? firstBlockSize : std::min(room, laterBlockSize)));
        const long long count =
            readSome(file_, content_.data() + length, content_.size() - length, length);
        content_.resize(length + static_cast<std::size_t>(std::max(count, 0LL)));
        atEnd_ = count == 0;
        return count >= 0;
    }

    bool ask()
    {
        state_ = stateOf(file_);
        return state_.has_value();
    }

    [[nodiscard]] ReadResult result()
    {
        return isTooLarge() || isHopeless() ? ReadResult::refused : ReadResult::read;
    }

    [[nodiscard]] bool isTooLarge() const { return content_.size() > options_.limit; }

    bool isHopeless()
    {
        if (verdict_ == Verdict::undecided && options_.judge != nullptr) {
            verdict_ = options_.judge(content_);
        }
        return verdict_ == Verdict::hopeless;
    }

    const File& file_;
    std::string& content_;
    const ReadOptions& options_;
    Verdict verdict_ = Verdict::undecided;
    bool atEnd_ = false;
    std::optional<FileState> state_;
};

} // namespace Korvel::CANTORIS::PLX::fs
