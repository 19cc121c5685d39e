#include "support/full_disk.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#    include <csignal>

#    include <sys/mount.h>
#    include <sys/resource.h>
#    include <sys/vfs.h>
#endif

namespace support {

#ifdef _WIN32

FileSizeLimit::FileSizeLimit(std::uint64_t) {}

FileSizeLimit::~FileSizeLimit() = default;

SmallDisk::SmallDisk(const Path& folder, const Room&) : folder_(folder) {}

SmallDisk::~SmallDisk() = default;

SmallDisk::Room SmallDisk::freeRoom() const
{
    return {};
}

#else

FileSizeLimit::FileSizeLimit(std::uint64_t size)
{
    rlimit limit{};
    if (getrlimit(RLIMIT_FSIZE, &limit) != 0) {
        return;
    }
    previous_ = limit.rlim_cur;
    previousHandler_ = std::signal(SIGXFSZ, SIG_IGN);
    limit.rlim_cur = size;
    set_ = setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

FileSizeLimit::~FileSizeLimit()
{
    rlimit limit{};
    if (set_ && getrlimit(RLIMIT_FSIZE, &limit) == 0) {
        limit.rlim_cur = previous_;
        setrlimit(RLIMIT_FSIZE, &limit);
        std::signal(SIGXFSZ, previousHandler_);
    }
}

SmallDisk::SmallDisk(const Path& folder, const Room& size) : folder_(folder)
{
    std::filesystem::create_directories(folder);
    const std::string options =
        "nr_blocks=" + std::to_string(size.blocks) + ",nr_inodes=" + std::to_string(size.entries);
    mounted_ = mount("tmpfs", folder.c_str(), "tmpfs", 0, options.c_str()) == 0;
}

SmallDisk::~SmallDisk()
{
    if (mounted_) {
        EXPECT_EQ(umount(folder_.c_str()), 0) << "something in it is still open";
    }
}

SmallDisk::Room SmallDisk::freeRoom() const
{
    struct statfs status {};
    EXPECT_EQ(statfs(folder_.c_str(), &status), 0);
    return {static_cast<std::uint64_t>(status.f_bfree), status.f_ffree};
}

#endif

} // namespace support
