// Disks that take no more, for tests that provoke it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "support/files.h"

namespace support {

// While it lives, no file grows beyond that size: a longer write fails half-way. False when the system
// knows no such limit.
class FileSizeLimit {
public:
    explicit FileSizeLimit(std::uint64_t size);
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit();

    explicit operator bool() const { return set_; }

private:
    bool set_ = false;
    std::uint64_t previous_ = 0;
    void (*previousHandler_)(int) = nullptr;
};

// A file system of its own in that folder. False when this process may not mount one. Nothing in it may
// be open at its end.
class SmallDisk {
public:
    struct Room {
        std::uint64_t blocks;
        std::uint64_t entries;

        bool operator==(const Room&) const = default;
    };

    // Room in all; the folder itself is one entry.
    SmallDisk(const Path& folder, const Room& size);
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    ~SmallDisk();

    explicit operator bool() const { return mounted_; }

    [[nodiscard]] Room freeRoom() const;

private:
    Path folder_;
    bool mounted_ = false;
};

} // namespace support
