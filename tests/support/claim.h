// Scratch folders of programs that were killed, which could not remove them, are removed by the next.
#pragma once

#include <filesystem>

namespace support {

// Shows that a folder is in use: as long as this lives, and no longer than the process and those that it
// has forked, however they end. Where the system offers no such thing, nothing is claimed.
class Claim {
public:
    explicit Claim(const std::filesystem::path& folder);
    Claim(const Claim&) = delete;
    Claim& operator=(const Claim&) = delete;
    ~Claim();

private:
    int number_ = -1;
};

// Removes the folders beside this one whose names begin as its own does and that nobody claims, once
// in the life of a process. Those of the last minute stay: they may be about to be claimed.
void removeUnclaimed(const std::filesystem::path& folder);

} // namespace support
