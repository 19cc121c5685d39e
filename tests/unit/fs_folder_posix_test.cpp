// Folders with special files, links that come and go, missing rights, and a full disk.
#ifndef _WIN32

#    include <atomic>
#    include <cerrno>
#    include <chrono>
#    include <climits>
#    include <csignal>
#    include <cstddef>
#    include <cstring>
#    include <filesystem>
#    include <string>
#    include <thread>

#    include <fcntl.h>
#    include <gtest/gtest.h>
#    include <sys/inotify.h>
#    include <sys/resource.h>
#    include <sys/stat.h>
#    include <unistd.h>

#    include "fs/fs.h"
#    include "fs/posix/path.h"
#    include "fs/posix/system.h"
#    include "posix_faults.h"
#    include "reading.h"
#    include "support/ordinary_user.h"
#    include "support/other_holder.h"
#    include "support/temp_dir.h"

namespace {

using namespace Korvel::CANTORIS::PLX;
using fs::HeldFile;
using fs::ReadResult;
using fs::WriteResult;
using support::exists;
using support::hostPath;
using support::makeFolder;
using support::makeLink;
using support::makePipe;
using support::readBytes;
using support::TempDir;
using support::text;
using support::utf8;
using support::writeBytes;
using Purpose = fs::Folder::Purpose;

class FsFolderPosix : public testing::Test {
protected:
    HeldFile::State hold(const char* name, Purpose purpose = Purpose::change)
    {
        fs::Patience none(std::chrono::milliseconds{0});
        return folder.hold(text(name), purpose, none).state();
    }

    void setMode(const char* path, mode_t mode)
    {
        EXPECT_EQ(::chmod(hostPath(dir / path).c_str(), mode), 0);
    }

    mode_t modeOf(const char* path)
    {
        struct stat status {};
        EXPECT_EQ(::stat(hostPath(dir / path).c_str(), &status), 0);
        return status.st_mode & 07777u;
    }

    // Calls everything that could open the pipe.
    void touchEverything(const char* pipe)
    {
        int files = 0;
        EXPECT_TRUE(fs::forEachFile(dir.path(), [&](const String&, const auto&) { ++files; }));
        EXPECT_EQ(files, 0);
        EXPECT_FALSE(fs::isPlainFile(dir / pipe));
        EXPECT_FALSE(fs::isDirectory(dir / pipe));
        EXPECT_FALSE(fs::createDirectories(dir / pipe));
        EXPECT_FALSE(fs::Folder::open(dir / pipe).isOpen());
        EXPECT_FALSE(folder.inner(text(pipe)).isOpen());
        EXPECT_FALSE(folder.make(text(pipe)).isOpen());
        EXPECT_EQ(readWith({}, dir / pipe, content), ReadResult::notOpened);
        EXPECT_EQ(folder.read(text(pipe), content, 100), ReadResult::notOpened);
        EXPECT_EQ(folder.create(text(pipe), "x"), WriteResult::notOpened);
        EXPECT_EQ(folder.copyInto(text("copy"), dir / pipe), WriteResult::notOpened);
        EXPECT_EQ(hold(pipe), HeldFile::State::refused);
        EXPECT_EQ(hold(pipe, Purpose::removal), HeldFile::State::refused);
    }

    TempDir dir;
    fs::Folder folder = fs::Folder::open(dir.path());
    std::string content;
};

// --- Pipes and devices ----------------------------------------------------------------------------------

// Tells whether anybody has opened a file.
class OpenWatch {
public:
    explicit OpenWatch(const String& path) : watch_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        EXPECT_GE(::inotify_add_watch(watch_, hostPath(path).c_str(), IN_OPEN), 0);
    }
    OpenWatch(const OpenWatch&) = delete;
    OpenWatch& operator=(const OpenWatch&) = delete;
    ~OpenWatch() { ::close(watch_); }

    bool sawOpening()
    {
        alignas(inotify_event) char events[4096];
        return ::read(watch_, events, sizeof events) > 0;
    }

private:
    int watch_;
};

TEST_F(FsFolderPosix, APipeInPlaceOfAFoundFileIsNotWaitedFor)
{
    ASSERT_TRUE(makePipe(dir / "pipe"));
    EXPECT_EQ(readWith({.kind = fs::Kind::plain}, dir / "pipe", content), ReadResult::notOpened);
}

TEST_F(FsFolderPosix, APipeIsNeverOpened)
{
    ASSERT_TRUE(makePipe(dir / "x.kxclip"));
    OpenWatch watch(dir / "x.kxclip");
    touchEverything("x.kxclip");
    EXPECT_FALSE(watch.sawOpening());

    const int reader = ::open(hostPath(dir / "x.kxclip").c_str(), O_RDONLY | O_NONBLOCK);
    EXPECT_TRUE(watch.sawOpening()); // so the watch does notice an opening
    ::close(reader);
}

TEST_F(FsFolderPosix, APipeInPlaceOfAFolderIsNotOpened)
{
    ASSERT_TRUE(makePipe(dir / "folder"));
    OpenWatch watch(dir / "folder");
    EXPECT_TRUE(fs::forEachFile({dir / "folder", dir.path().size()}, [](const auto&...) {}));
    EXPECT_FALSE(watch.sawOpening());
}

TEST_F(FsFolderPosix, AWriterThatWaitsAtAPipeStaysWaiting)
{
    ASSERT_TRUE(makePipe(dir / "x.kxclip"));
    std::atomic<bool> released{false};
    std::thread writer([&] {
        const int file = ::open(hostPath(dir / "x.kxclip").c_str(), O_WRONLY);
        released = true;
        ::close(file);
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    touchEverything("x.kxclip");
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(released);
    const int reader = ::open(hostPath(dir / "x.kxclip").c_str(), O_RDONLY);
    writer.join();
    ::close(reader);
}

TEST_F(FsFolderPosix, DevicesAreNeitherReadNorWritten)
{
    ASSERT_TRUE(makeLink(dir / "full", text("\\dev\\full")));
    writeBytes(dir / "file", "x");
    EXPECT_EQ(readWith({}, text("\\dev\\zero"), content), ReadResult::notOpened);
    EXPECT_EQ(folder.copyInto(text("copy"), text("\\dev\\zero")), WriteResult::notOpened);
    EXPECT_EQ(folder.create(text("full"), "x"), WriteResult::notOpened);
    EXPECT_EQ(folder.copyInto(text("full"), dir / "file"), WriteResult::notOpened);
    const fs::Folder devices = fs::Folder::open(text("\\dev"));
    EXPECT_EQ(devices.read(text("null"), content, 100), ReadResult::notOpened);
    fs::Patience patience;
    EXPECT_EQ(devices.hold(text("full"), Purpose::change, patience).state(),
              HeldFile::State::refused);
}

TEST_F(FsFolderPosix, ADeviceThatTakesTheFilesPlaceIsNotCopied)
{
    for (long number = 1; number <= 3; ++number) {
        writeBytes(dir / "wave", "x");
        Faults::interfere(number, [this] {
            std::filesystem::remove(hostPath(dir / "wave"));
            EXPECT_TRUE(makeLink(dir / "wave", text("\\dev\\zero")));
        });
        const WriteResult result = folder.copyInto(text("copy"), dir / "wave");
        Faults::stop();
        std::filesystem::remove(hostPath(dir / "wave"));
        if (result == WriteResult::written) {
            EXPECT_EQ(readBytes(dir / "copy"), "x");
            folder.remove(text("copy"));
        }
        EXPECT_TRUE(folder.isMissing(text("copy")));
    }
}

// --- Links ----------------------------------------------------------------------------------------------

class FsFolderLinks : public FsFolderPosix {
protected:
    FsFolderLinks()
    {
        writeBytes(dir / "outside\\precious", "mine");
        makeFolder(dir / "tree");
        EXPECT_TRUE(makeLink(dir / "tree\\folder", dir / "outside"));
        EXPECT_TRUE(makeLink(dir / "tree\\file", dir / "outside\\precious"));
        EXPECT_TRUE(makeLink(dir / "tree\\dangling", dir / "outside\\new"));
        folder = fs::Folder::open(dir / "tree");
    }

    void TearDown() override
    {
        EXPECT_EQ(readBytes(dir / "outside\\precious"), "mine");
        EXPECT_FALSE(exists(dir / "outside\\new"));
    }
};

TEST_F(FsFolderLinks, AreNoFoldersInIt)
{
    EXPECT_FALSE(folder.inner(text("folder")).isOpen());
    EXPECT_FALSE(folder.make(text("folder")).isOpen());
    EXPECT_FALSE(folder.make(text("dangling")).isOpen());
    EXPECT_TRUE(fs::isDirectory(dir / "tree\\folder")); // both stay
    EXPECT_FALSE(folder.isMissing(text("dangling")));
}

TEST_F(FsFolderLinks, AreNotWritten)
{
    writeBytes(dir / "wave", "x");
    for (const char* name : {"folder", "file", "dangling"}) {
        EXPECT_EQ(folder.create(text(name), "x"), WriteResult::notOpened) << name;
        EXPECT_EQ(folder.copyInto(text(name), dir / "wave"), WriteResult::notOpened) << name;
    }
}

TEST_F(FsFolderLinks, AreNotRead)
{
    for (const char* name : {"folder", "file", "dangling"}) {
        EXPECT_EQ(folder.read(text(name), content, 100), ReadResult::notOpened) << name;
    }
}

TEST_F(FsFolderLinks, AreNotHeld)
{
    for (const char* name : {"folder", "file", "dangling"}) {
        EXPECT_EQ(hold(name), HeldFile::State::refused) << name;
        EXPECT_EQ(hold(name, Purpose::removal), HeldFile::State::refused) << name;
    }
}

TEST_F(FsFolderLinks, AreRemovedThemselves)
{
    for (const char* name : {"folder", "file", "dangling"}) {
        EXPECT_TRUE(folder.remove(text(name))) << name;
        EXPECT_TRUE(folder.isMissing(text(name))) << name;
    }
}

// A link takes the place between the check of the file and its opening.
TEST_F(FsFolderLinks, ThatTakeAFilesPlaceAreNeitherReadNorHeld)
{
    for (long number = 1; number <= 2; ++number) {
        writeBytes(dir / "tree\\own", "own");
        const auto swap = [this] {
            std::filesystem::remove(hostPath(dir / "tree\\own"));
            EXPECT_TRUE(makeLink(dir / "tree\\own", dir / "outside\\precious"));
        };
        Faults::interfere(number, swap);
        EXPECT_EQ(folder.read(text("own"), content, 100), ReadResult::notOpened) << number;
        Faults::stop();
        folder.remove(text("own"));
        writeBytes(dir / "tree\\own", "own");
        Faults::interfere(number, swap);
        EXPECT_EQ(hold("own"), HeldFile::State::refused) << number;
        Faults::stop();
        folder.remove(text("own"));
    }
}

// What is held is the folder, not its path.
TEST_F(FsFolderLinks, ThatTakeTheFoldersOwnPlaceAreNotSeen)
{
    std::filesystem::rename(hostPath(dir / "tree"), hostPath(dir / "moved"));
    ASSERT_TRUE(makeLink(dir / "tree", text("outside")));
    writeBytes(dir / "wave", "w");
    EXPECT_EQ(folder.create(text("a"), "x"), WriteResult::written);
    EXPECT_EQ(folder.copyInto(text("b"), dir / "wave"), WriteResult::written);
    EXPECT_TRUE(folder.make(text("c")).isOpen());
    EXPECT_FALSE(folder.remove(text("precious")));
    EXPECT_TRUE(folder.removeTree(text("precious"))); // there is nothing of that name
    EXPECT_EQ(readBytes(dir / "moved\\a"), "x");
    EXPECT_EQ(readBytes(dir / "moved\\b"), "w");
    EXPECT_TRUE(fs::isDirectory(dir / "moved\\c"));
    for (const char* name : {"a", "b", "c"}) {
        EXPECT_FALSE(exists(dir / ("outside\\" + std::string(name)))) << name;
    }
}

// --- Names ----------------------------------------------------------------------------------------------

TEST(FsHostPath, IsInTheFormOfTheSystem)
{
    EXPECT_STREQ(fs::HostPath(text("/a\\b\\c.d")).text(), "/a/b/c.d");
    EXPECT_STREQ(fs::HostPath(u"a\\\u00E9\\b\\\U0001F3B5\\c").text(),
                 "a/\xC3\xA9/b/\xF0\x9F\x8E\xB5/c");
}

TEST(FsHostPath, IsEmptyWithoutSuchAForm)
{
    EXPECT_EQ(fs::HostPath(String{u"a\0b", 3}).length(), 0u);
    EXPECT_EQ(fs::HostPath(String{u"\u00E9\0b", 3}).length(), 0u);
    EXPECT_EQ(fs::HostPath(String{u'a', char16_t{0xD800}, u'b'}).length(), 0u);
}

TEST(FsHostPath, HasRoomForItsEnd)
{
    const String longest(PATH_MAX - 1, u'a');
    EXPECT_EQ(fs::HostPath(longest).length(), longest.size());
    EXPECT_EQ(fs::HostPath(longest + u"b").length(), 0u);
    EXPECT_EQ(fs::HostPath(longest.substr(1) + u"\u00E9").length(), 0u);
    EXPECT_EQ(fs::HostPath(longest.substr(2) + u"\u00E9").length(), longest.size());
}

TEST(FsHostName, IsOneNameOrNothing)
{
    EXPECT_EQ(std::string(fs::HostName(text("さくら")).text()), "さくら");
    EXPECT_EQ(std::string(fs::HostName(text("...")).text()), "...");
    EXPECT_EQ(std::string(fs::HostName(text(".a")).text()), ".a");
    for (const char* name : {"", ".", "..", "a\\b", "a/b", "\\a", "a\\", "/", "..\\a"}) {
        EXPECT_EQ(fs::HostName(text(name)).length(), 0u) << name;
        EXPECT_EQ(std::string(fs::HostName(text(name)).text()), "") << name;
    }
    EXPECT_EQ(fs::HostName(text("a") + Char{} + text("b")).length(), 0u);
}

TEST(FsHostName, HasAPathThatTheSystemTakes)
{
    const String name = text("name"); // six bytes, with the separator and the NUL
    EXPECT_EQ(fs::HostName(name, PATH_MAX - 6).length(), 4u);
    EXPECT_EQ(fs::HostName(name, PATH_MAX - 5).length(), 0u);
}

TEST_F(FsFolderPosix, MakesNothingThatNoPathReaches)
{
    String path = dir.path();
    fs::Folder innermost = std::move(folder);
    int depth = 0;
    while (innermost.isOpen()) {
        fs::Folder next = innermost.make(text(std::string(100, 'd')));
        if (!next.isOpen()) {
            break;
        }
        innermost = std::move(next);
        path += fs::separator + text(std::string(100, 'd'));
        ++depth;
    }
    EXPECT_GT(depth, 35);
    EXPECT_TRUE(fs::isDirectory(path));
    const std::size_t room = PATH_MAX - 2 - utf8(path).size();
    EXPECT_EQ(innermost.create(text(std::string(room + 1, 'f')), "x"), WriteResult::notOpened);
    EXPECT_EQ(innermost.create(text(std::string(room, 'f')), "x"), WriteResult::written);
    EXPECT_TRUE(exists(path + fs::separator + text(std::string(room, 'f'))));
}

// --- Rights ---------------------------------------------------------------------------------------------

TEST_F(FsFolderPosix, NewFilesHaveTheRightsThatTheUserWants)
{
    const mode_t before = ::umask(027);
    EXPECT_EQ(folder.create(text("file"), "x"), WriteResult::written);
    EXPECT_EQ(folder.copyInto(text("copy"), dir / "file"), WriteResult::written);
    EXPECT_TRUE(folder.make(text("inner")).isOpen());
    EXPECT_TRUE(fs::createDirectories(dir / "folder"));
    ::umask(before);
    EXPECT_EQ(modeOf("file"), 0640u);
    EXPECT_EQ(modeOf("copy"), 0640u);
    EXPECT_EQ(modeOf("inner"), 0750u);
    EXPECT_EQ(modeOf("folder"), 0750u);
}

TEST_F(FsFolderPosix, AFileThatMayNotBeOpenedKeepsWhatItHolds)
{
    const OrdinaryUser user(dir.path());
    writeBytes(dir / "file", "x");
    setMode("file", 0);
    EXPECT_EQ(readWith({}, dir / "file", content), ReadResult::notOpened);
    EXPECT_EQ(folder.read(text("file"), content, 100), ReadResult::notOpened);
    EXPECT_EQ(folder.create(text("file"), "y"), WriteResult::notOpened);
    EXPECT_EQ(folder.copyInto(text("copy"), dir / "file"), WriteResult::notOpened);
    EXPECT_EQ(hold("file"), HeldFile::State::refused);
    EXPECT_FALSE(exists(dir / "copy"));
    setMode("file", 0400);
    EXPECT_EQ(hold("file"), HeldFile::State::refused);
    EXPECT_EQ(hold("file", Purpose::removal), HeldFile::State::held);
    EXPECT_EQ(readBytes(dir / "file"), "x");
}

TEST_F(FsFolderPosix, AFolderThatMayNotBeReadCanStillBeWrittenInto)
{
    const OrdinaryUser user(dir.path());
    makeFolder(dir / "closed");
    setMode("closed", 0300);
    for (const fs::Folder& closed :
         {fs::Folder::open(dir / "closed"), folder.inner(text("closed"))}) {
        ASSERT_TRUE(closed.isOpen());
        EXPECT_EQ(closed.create(text("file"), "x"), WriteResult::written);
        EXPECT_EQ(closed.read(text("file"), content, 100), ReadResult::read);
        EXPECT_TRUE(closed.make(text("inner")).isOpen());
        EXPECT_TRUE(closed.sync());
        EXPECT_TRUE(closed.remove(text("file")));
        EXPECT_TRUE(closed.remove(text("inner")));
    }
    EXPECT_TRUE(fs::createDirectories(dir / "closed\\a\\b"));
    setMode("closed", 0700);
    EXPECT_TRUE(fs::isDirectory(dir / "closed\\a\\b"));
}

TEST_F(FsFolderPosix, NothingIsMadeOrRemovedInAReadOnlyFolder)
{
    const OrdinaryUser user(dir.path());
    writeBytes(dir / "closed\\file", "x");
    setMode("closed", 0500);
    const fs::Folder closed = folder.inner(text("closed"));
    ASSERT_TRUE(closed.isOpen());
    EXPECT_FALSE(closed.remove(text("file")));
    EXPECT_FALSE(closed.removeTree(text("file")));
    EXPECT_FALSE(closed.make(text("inner")).isOpen());
    EXPECT_EQ(closed.create(text("new"), "x"), WriteResult::notOpened);
    setMode("closed", 0700);
    EXPECT_TRUE(closed.remove(text("file")));
    EXPECT_TRUE(std::filesystem::is_empty(hostPath(dir / "closed")));
}

// --- Locks ----------------------------------------------------------------------------------------------

TEST_F(FsFolderPosix, WithoutLocksAFileIsHeldAllTheSame)
{
    writeBytes(dir / "file", "x");
    for (const int error : {ENOLCK, EOPNOTSUPP, ENOSYS, EINVAL, EBADF}) {
        Faults::failEach(Faults::Kind::lock, error);
        EXPECT_EQ(hold("file"), HeldFile::State::held) << error;
        Faults::stop();
    }
}

TEST_F(FsFolderPosix, TheLockIsTheOneThatOthersTake)
{
    writeBytes(dir / "file", "x");
    for (const int operation : {LOCK_EX, LOCK_SH}) {
        {
            const OtherHolder other(dir / "file", operation);
            EXPECT_EQ(hold("file"), HeldFile::State::busy);
            EXPECT_EQ(hold("file", Purpose::removal), HeldFile::State::busy);
        }
        EXPECT_EQ(hold("file"), HeldFile::State::held);
    }
}

// --- Space ----------------------------------------------------------------------------------------------

// A file system on which no file can be larger than this.
class LimitedSpace {
public:
    explicit LimitedSpace(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN))
    {
        EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &before_), 0);
        rlimit limited = before_;
        limited.rlim_cur = bytes;
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limited), 0);
    }
    LimitedSpace(const LimitedSpace&) = delete;
    LimitedSpace& operator=(const LimitedSpace&) = delete;
    ~LimitedSpace()
    {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

private:
    rlimit before_{};
    void (*handler_)(int);
};

TEST_F(FsFolderPosix, AFileThatRunsOutOfSpaceIsNotLeft)
{
    const std::string bytes(20000, 'x');
    writeBytes(dir / "file", bytes);
    {
        const LimitedSpace space(10000);
        EXPECT_EQ(folder.create(text("new"), bytes), WriteResult::failed);
        EXPECT_EQ(folder.copyInto(text("copy"), dir / "file"), WriteResult::failed);
        EXPECT_EQ(folder.create(text("fits"), bytes.substr(10000)), WriteResult::written);
    }
    EXPECT_FALSE(exists(dir / "new"));
    EXPECT_FALSE(exists(dir / "copy"));
    EXPECT_EQ(readBytes(dir / "fits"), bytes.substr(10000));
}

TEST_F(FsFolderPosix, AHeldFileThatRunsOutOfSpaceSaysSo)
{
    writeBytes(dir / "file", "old");
    fs::Patience patience;
    HeldFile file = folder.hold(text("file"), Purpose::change, patience);
    const LimitedSpace space(10000);
    EXPECT_FALSE(file.write(3, std::string(20000, 'x')));
    EXPECT_TRUE(file.cut(3));
    EXPECT_EQ(file.read(content, 100), ReadResult::read);
    EXPECT_EQ(content, "old");
}

// --- The disk -------------------------------------------------------------------------------------------

class FsSync : public FsFolderPosix {
protected:
    FsSync() { writeBytes(dir / "wave", "w"); }

    // Calls everything that waits for the disk.
    void expect(int error, WriteResult created, bool synced)
    {
        SCOPED_TRACE(std::string(std::strerror(error)));
        fs::Patience patience;
        HeldFile file = folder.hold(text("wave"), Purpose::change, patience);
        Faults::failEach(Faults::Kind::sync, error);
        EXPECT_EQ(folder.create(text("new"), "x"), created);
        EXPECT_EQ(folder.copyInto(text("copy"), dir / "wave"), created);
        EXPECT_EQ(folder.sync(), synced);
        EXPECT_EQ(file.sync(), synced);
        EXPECT_EQ(fs::createDirectories(dir / "a\\b"), synced);
        Faults::stop();
        EXPECT_EQ(exists(dir / "new"), synced);
        EXPECT_EQ(exists(dir / "copy"), synced);
        for (const char* name : {"new", "copy", "a"}) {
            EXPECT_TRUE(folder.removeTree(text(name)));
        }
    }
};

TEST_F(FsSync, ADiskThatFailsHasNothing)
{
    for (const int error : {EIO, ENOSPC, EDQUOT}) {
        expect(error, WriteResult::failed, false);
    }
}

TEST_F(FsSync, AFileSystemThatCannotTellIsTakenAtItsWord)
{
    for (const int error : {EINVAL, ENOTSUP, ENOSYS, EROFS}) {
        expect(error, WriteResult::written, true);
    }
}

// Two file systems number their files alike.
TEST(FsIdentity, IsOfOneFileSystem)
{
    struct stat file = {};
    file.st_dev = 1;
    file.st_ino = 7;
    struct stat other = file;
    EXPECT_TRUE(fs::isSame(file, other));
    other.st_dev = 2;
    EXPECT_FALSE(fs::isSame(file, other));
    other.st_dev = 1;
    other.st_ino = 8;
    EXPECT_FALSE(fs::isSame(file, other));
}

} // namespace

#endif
