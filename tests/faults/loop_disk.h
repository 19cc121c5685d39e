// A file system on a disk of its own, whose power can be cut.
#pragma once

#include <string>

#include "support/files.h"

namespace faults {

// ext4 on a loop device, mounted on a folder, with the folder's old content. Only this process and
// its children see it; it ends with them.
class LoopDisk {
public:
    // `options` are further mount options, after a comma.
    LoopDisk(const support::Path& folder, const support::Path& image, const std::string& options);
    LoopDisk(const LoopDisk&) = delete;
    LoopDisk& operator=(const LoopDisk&) = delete;
    ~LoopDisk();

    // Why the disk could not be made; empty when it was.
    [[nodiscard]] const std::string& missing() const { return missing_; }

    // From now on nothing reaches the disk; what has not been written to it is lost.
    void cutPower() const;

    // Mounts the disk again after that, as after a restart of the computer.
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
