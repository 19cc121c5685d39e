// Reading and writing where a POSIX system has files that are no files, and where the space ends.
#ifndef _WIN32

#    include <atomic>
#    include <chrono>
#    include <csignal>
#    include <cstddef>
#    include <string>
#    include <thread>

#    include <fcntl.h>
#    include <gtest/gtest.h>
#    include <sys/inotify.h>
#    include <sys/resource.h>
#    include <sys/stat.h>
#    include <unistd.h>

#    include "fs/fs.h"
#    include "support/ordinary_user.h"
#    include "support/temp_dir.h"

namespace {

using namespace Korvel::CANTORIS::PLX;
using fs::WriteResult;
using support::exists;
using support::hostPath;
using support::makeLink;
using support::makePipe;
using support::readBytes;
using support::TempDir;
using support::text;
using support::writeBytes;

class FsContentPosix : public testing::Test {
protected:
    // Everything that could open the pipe.
    void touchEverything(const String& pipe)
    {
        std::string content;
        int files = 0;
        fs::forEachFile(dir.path(), [&](const String&, const fs::Neighbours&) { ++files; });
        EXPECT_EQ(files, 0);
        EXPECT_FALSE(fs::isPlainFile(pipe));
        EXPECT_FALSE(fs::isDirectory(pipe));
        EXPECT_FALSE(fs::isStrictlyBelow(pipe, pipe));
        EXPECT_FALSE(fs::createDirectories(pipe));
        EXPECT_FALSE(fs::readFile(pipe, content));
        EXPECT_EQ(fs::writeFile(pipe, "x"), WriteResult::notOpened);
        EXPECT_FALSE(fs::copyFile(pipe, dir / "copy"));
    }

    TempDir dir;
};

// Tells whether a file was opened, by whomever.
class OpenWatch {
public:
    explicit OpenWatch(const String& path) : watch_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        EXPECT_GE(::inotify_add_watch(watch_, hostPath(path).c_str(), IN_OPEN), 0);
    }
    ~OpenWatch() { ::close(watch_); }

    bool sawOpening()
    {
        alignas(inotify_event) char events[4096];
        return ::read(watch_, events, sizeof events) > 0;
    }

private:
    int watch_;
};

TEST_F(FsContentPosix, APipeInPlaceOfAFoundFileIsNotWaitedFor)
{
    std::string content;
    ASSERT_TRUE(makePipe(dir / "pipe"));
    EXPECT_FALSE(fs::readFile(dir / "pipe", content, fs::Kind::plain));
}

TEST_F(FsContentPosix, APipeIsNeverOpened)
{
    const String pipe = dir / "x.kxclip";
    ASSERT_TRUE(makePipe(pipe));
    OpenWatch watch(pipe);
    touchEverything(pipe);
    EXPECT_FALSE(watch.sawOpening());

    const int reader = ::open(hostPath(pipe).c_str(), O_RDONLY | O_NONBLOCK);
    EXPECT_TRUE(watch.sawOpening()); // the watch can fail
    ::close(reader);
}

TEST_F(FsContentPosix, AWriterThatWaitsAtAPipeStaysWaiting)
{
    const String pipe = dir / "x.kxclip";
    ASSERT_TRUE(makePipe(pipe));
    std::atomic<bool> released{false};
    std::thread writer([&] {
        const int file = ::open(hostPath(pipe).c_str(), O_WRONLY);
        released = true;
        ::close(file);
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    touchEverything(pipe);
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(released);
    const int reader = ::open(hostPath(pipe).c_str(), O_RDONLY);
    writer.join();
    ::close(reader);
}

TEST_F(FsContentPosix, DevicesAreNeitherReadNorWritten)
{
    std::string content;
    writeBytes(dir / "file", "x");
    EXPECT_FALSE(fs::readFile(text("\\dev\\zero"), content));
    EXPECT_FALSE(fs::copyFile(text("\\dev\\zero"), dir / "copy"));
    ASSERT_TRUE(makeLink(dir / "full", text("\\dev\\full")));
    EXPECT_EQ(fs::writeFile(dir / "full", "x"), WriteResult::notOpened);
    EXPECT_FALSE(fs::copyFile(dir / "file", dir / "full"));
}

TEST_F(FsContentPosix, WritingFollowsALinkButCopyingReplacesNone)
{
    writeBytes(dir / "file", "x");
    ASSERT_TRUE(makeLink(dir / "link", text("file")));
    ASSERT_TRUE(makeLink(dir / "dangling", text("missing")));
    EXPECT_EQ(fs::writeFile(dir / "link", "y"), WriteResult::written);
    EXPECT_EQ(readBytes(dir / "file"), "y");
    EXPECT_FALSE(fs::copyFile(dir / "file", dir / "link"));
    EXPECT_FALSE(fs::copyFile(dir / "file", dir / "dangling"));
    EXPECT_FALSE(exists(dir / "missing"));
}

TEST_F(FsContentPosix, NewFilesHaveTheRightsThatTheUserWants)
{
    const mode_t before = ::umask(027);
    EXPECT_EQ(fs::writeFile(dir / "file", "x"), WriteResult::written);
    EXPECT_TRUE(fs::copyFile(dir / "file", dir / "copy"));
    EXPECT_TRUE(fs::createDirectories(dir / "folder"));
    ::umask(before);
    struct stat status;
    ASSERT_EQ(::stat(hostPath(dir / "file").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777u, 0640u);
    ASSERT_EQ(::stat(hostPath(dir / "copy").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777u, 0640u);
    ASSERT_EQ(::stat(hostPath(dir / "folder").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777u, 0750u);
}

TEST_F(FsContentPosix, AFileThatMayNotBeOpenedKeepsWhatItHolds)
{
    const OrdinaryUser user(dir.path());
    std::string content;
    writeBytes(dir / "file", "x");
    ASSERT_EQ(::chmod(hostPath(dir / "file").c_str(), 0), 0);
    EXPECT_FALSE(fs::readFile(dir / "file", content));
    EXPECT_EQ(fs::writeFile(dir / "file", "y"), WriteResult::notOpened);
    EXPECT_FALSE(fs::copyFile(dir / "file", dir / "copy"));
    EXPECT_FALSE(exists(dir / "copy"));
    ::chmod(hostPath(dir / "file").c_str(), 0600);
    EXPECT_EQ(readBytes(dir / "file"), "x");
}

// A file system that is full after so many bytes of a file.
class LimitedSpace {
public:
    explicit LimitedSpace(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN))
    {
        EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &before_), 0);
        rlimit limited = before_;
        limited.rlim_cur = bytes;
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limited), 0);
    }
    ~LimitedSpace()
    {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

private:
    rlimit before_{};
    void (*handler_)(int);
};

TEST_F(FsContentPosix, AWriteThatRunsOutOfSpaceHasFailed)
{
    const std::string content(20000, 'x');
    writeBytes(dir / "file", "before");
    {
        const LimitedSpace space(10000);
        EXPECT_EQ(fs::writeFile(dir / "file", content), WriteResult::failed);
        EXPECT_EQ(fs::writeFile(dir / "new", content), WriteResult::failed);
        EXPECT_EQ(fs::writeFile(dir / "fits", content.substr(10000)), WriteResult::written);
    }
    EXPECT_EQ(readBytes(dir / "file"), content.substr(10000));
    EXPECT_EQ(readBytes(dir / "new"), content.substr(10000));
}

TEST_F(FsContentPosix, ACopyThatRunsOutOfSpaceHasFailed)
{
    writeBytes(dir / "file", std::string(200000, 'x'));
    {
        const LimitedSpace space(100000);
        EXPECT_FALSE(fs::copyFile(dir / "file", dir / "copy"));
    }
    EXPECT_EQ(readBytes(dir / "copy").size(), 100000u);
}

} // namespace

#endif
