#include "loop_disk.h"

#include <cstdint>
#include <cstdlib>

#include <fcntl.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace faults {

namespace {

// From the kernel's interface of ext4, which has no header of its own.
constexpr unsigned long shutDownRequest = _IOR('X', 125, std::uint32_t);
constexpr std::uint32_t withoutFlushingTheLog = 2;

bool run(const std::string& command)
{
    const std::string line = "PATH=$PATH:/usr/sbin:/sbin " + command + " >/dev/null 2>&1";
    return std::system(line.c_str()) == 0; // NOLINT(concurrency-mt-unsafe)
}

// Mounts of this process end with it, even if it is killed.
bool haveOwnMounts()
{
    static const bool own = ::unshare(CLONE_NEWNS) == 0 &&
                            ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    return own;
}

// Only the disk that was made here may ever be shut down.
bool isDiskOfItsOwn(const support::Path& folder)
{
    struct stat inner;
    struct stat outer;
    return ::stat(folder.c_str(), &inner) == 0 &&
           ::stat(folder.parent_path().c_str(), &outer) == 0 && inner.st_dev != outer.st_dev;
}

} // namespace

LoopDisk::LoopDisk(const support::Path& folder, const support::Path& image,
                   const std::string& options)
    : folder_(folder), image_(image), options_(options)
{
    if (::geteuid() != 0 || !haveOwnMounts()) {
        missing_ = "this process may not mount a file system";
    } else if (!run("mkfs.ext4 -q -F -b 4096 -d '" + folder.string() + "' '" + image.string() +
                    "' 16M")) {
        missing_ = "there is no mkfs.ext4";
    } else if (!mount()) {
        missing_ = "there are no loop devices";
    }
}

LoopDisk::~LoopDisk()
{
    unmount();
    std::error_code ignored;
    std::filesystem::remove(image_, ignored);
}

void LoopDisk::cutPower() const
{
    ASSERT_TRUE(mounted_ && isDiskOfItsOwn(folder_));
    const int folder = ::open(folder_.c_str(), O_RDONLY | O_DIRECTORY);
    std::uint32_t how = withoutFlushingTheLog;
    EXPECT_EQ(::ioctl(folder, shutDownRequest, &how), 0);
    ::close(folder);
}

void LoopDisk::restart()
{
    unmount();
    EXPECT_TRUE(mount());
}

bool LoopDisk::mount()
{
    mounted_ = run("mount -t ext4 -o loop" + options_ + " '" + image_.string() + "' '" +
                   folder_.string() + "'");
    return mounted_;
}

void LoopDisk::unmount()
{
    if (mounted_) {
        EXPECT_EQ(::umount(folder_.c_str()), 0) << "something in it is still open";
        mounted_ = false;
    }
}

} // namespace faults
