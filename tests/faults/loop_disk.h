// A file system on a disk of its own, whose power can be cut.
#pragma once

#include <string>

#include "support/files.h"

namespace faults {

// ext4 on a loop device, mounted on a folder. It begins with what the folder holds. Only this process
// and its children see it; it ends with them.
class LoopDisk {
public:
    // Further mount options, behind a comma.
    LoopDisk(const support::Path& folder, const support::Path& image, const std::string& options);
    LoopDisk(const LoopDisk&) = delete;
    LoopDisk& operator=(const LoopDisk&) = delete;
    ~LoopDisk();

    // Why there is none; empty when there is one.
    [[nodiscard]] const std::string& missing() const { return missing_; }

    // From now on nothing reaches the disk, and what has not reached it is lost.
    void cutPower() const;

    // After that: mounted again, as after the next start of the computer.
    void restart();

private:
    bool mount();
    void unmount();

    support::Path folder_;
    support::Path image_;
    std::string options_;
    std::string missing_;
    bool mounted_ = false;
};

} // namespace faults
