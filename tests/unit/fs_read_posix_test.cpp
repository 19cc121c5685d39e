// Files that change while they are read, files that other programs hold, and files that report no
// size.
#ifndef _WIN32

#    include <cerrno>
#    include <chrono>
#    include <cstdint>
#    include <cstdlib>
#    include <ctime>
#    include <filesystem>
#    include <optional>
#    include <string>
#    include <thread>

#    include <fcntl.h>
#    include <gtest/gtest.h>
#    include <sys/stat.h>
#    include <sys/wait.h>
#    include <unistd.h>

#    include "fs/fs.h"
#    include "fs/recent.h"
#    include "open_descriptors.h"
#    include "posix_faults.h"
#    include "support/other_holder.h"
#    include "support/temp_dir.h"

namespace {

using namespace Korvel::CANTORIS::PLX;
using namespace std::chrono_literals;
using fs::ReadResult;
using support::hostPath;
using support::readBytes;
using support::TempDir;
using support::text;
using support::writeBytes;

fs::Verdict wantsBrace(std::string_view beginning)
{
    return beginning.starts_with('{') ? fs::Verdict::worthReading : fs::Verdict::hopeless;
}

void setAge(const String& path, std::chrono::seconds age)
{
    std::timespec then{};
    ::clock_gettime(CLOCK_REALTIME, &then);
    then.tv_sec -= static_cast<std::time_t>(age.count());
    const std::timespec times[] = {then, then};
    EXPECT_EQ(::utimensat(AT_FDCWD, hostPath(path).c_str(), times, 0), 0);
}

class FsReadPosix : public testing::Test {
protected:
    ReadResult read(const fs::ReadOptions& options = {})
    {
        return fs::readFile(dir / "file", content, options, patience);
    }

    // Reads while another program, which holds the file, has written one half of it; later it
    // writes the other one.
    ReadResult readBetweenHalves(const std::string& first, const std::string& second,
                                 const fs::ReadOptions& options = {})
    {
        writeBytes(dir / "file", first);
        std::optional<OtherHolder> other(dir / "file");
        std::thread writer([&] {
            std::this_thread::sleep_for(50ms);
            support::writeBytes(dir / "file", first + second);
            other.reset();
        });
        const ReadResult result = read(options);
        writer.join();
        return result;
    }

    TempDir dir;
    fs::Patience patience{60s};
    std::string content;
};

// --- Files of any size and date -----------------------------------------------------------------------

// The year's number of seconds no longer fits into 32 bits.
TEST_F(FsReadPosix, AFileDatedIn2100IsReadLikeAnyOther)
{
    writeBytes(dir / "file", "{}");
    setAge(dir / "file", -std::chrono::years(75));
    EXPECT_TRUE(fs::isPlainFile(dir / "file"));
    EXPECT_EQ(read(), ReadResult::read);
}

TEST_F(FsReadPosix, AFileOfThreeGibibytesIsAFile)
{
    writeBytes(dir / "file", "{}");
    std::filesystem::resize_file(hostPath(dir / "file"), std::uintmax_t{3} << 30);
    EXPECT_TRUE(fs::isPlainFile(dir / "file"));
    EXPECT_EQ(read({.limit = 100}), ReadResult::refused);
}

// --- Others who change the file -----------------------------------------------------------------------

TEST_F(FsReadPosix, AFileThatAnotherIsChangingIsReadWhenItIsWhole)
{
    EXPECT_EQ(readBetweenHalves("one half", ", the other half"), ReadResult::read);
    EXPECT_EQ(content, "one half, the other half");
}

TEST_F(FsReadPosix, WhatIsRefusedMayBeInTheMiddleOfAChangeToo)
{
    EXPECT_EQ(readBetweenHalves("", "{}", {.judge = wantsBrace}), ReadResult::read);
    EXPECT_EQ(content, "{}");
}

TEST_F(FsReadPosix, WhatIsRefusedAfterTheChangeIsRefused)
{
    EXPECT_EQ(readBetweenHalves("{", "}", {.limit = 1}), ReadResult::refused);
}

TEST_F(FsReadPosix, ManyReadAtOnce)
{
    writeBytes(dir / "file", "x");
    const OtherHolder reader(dir / "file", LOCK_SH);
    patience = fs::Patience(1ms);
    EXPECT_EQ(read(), ReadResult::read);
    EXPECT_TRUE(patience.wait()) << "it waited for another reader";
}

TEST_F(FsReadPosix, WhoeverHoldsAFileForEverIsWaitedForOnlySoLong)
{
    writeBytes(dir / "file", "x");
    const OtherHolder other(dir / "file");
    patience = fs::Patience(60ms);
    const auto before = std::chrono::steady_clock::now();
    EXPECT_EQ(read(), ReadResult::read);
    EXPECT_GE(std::chrono::steady_clock::now() - before, 60ms);
    EXPECT_EQ(content, "x");
    EXPECT_FALSE(patience.wait());
}

TEST_F(FsReadPosix, AllFilesTogetherAreWaitedForOnlySoLong)
{
    writeBytes(dir / "file", "x");
    const OtherHolder other(dir / "file");
    patience = fs::Patience(20ms);
    const auto before = std::chrono::steady_clock::now();
    for (int round = 0; round < 1000; ++round) {
        ASSERT_EQ(read(), ReadResult::read);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - before, 10s); // separate waits would take 20
}

TEST_F(FsReadPosix, AFileThatHasBeenLeftAloneForAWhileIsNotWaitedFor)
{
    for (const std::chrono::seconds age : {fs::settledAfter + 1s, -(fs::settledAfter + 2s)}) {
        writeBytes(dir / "file", "x");
        setAge(dir / "file", age);
        const OtherHolder other(dir / "file");
        patience = fs::Patience(1ms);
        EXPECT_EQ(read(), ReadResult::read);
        EXPECT_TRUE(patience.wait()) << "it waited, although the age is " << age.count();
    }
}

TEST_F(FsReadPosix, AFileOfTheLastSecondsIsWaitedFor)
{
    for (const std::chrono::seconds age : {0s, fs::settledAfter - 1s, -(fs::settledAfter - 1s)}) {
        writeBytes(dir / "file", "x");
        setAge(dir / "file", age);
        const OtherHolder other(dir / "file");
        patience = fs::Patience(1ms);
        EXPECT_EQ(read(), ReadResult::read);
        EXPECT_FALSE(patience.wait()) << "it did not wait, although the age is " << age.count();
    }
}

TEST_F(FsReadPosix, WithoutLocksAFileIsReadAllTheSame)
{
    writeBytes(dir / "file", "x");
    for (const int error : {ENOLCK, EOPNOTSUPP, ENOSYS, EINVAL, EBADF}) {
        patience = fs::Patience(1ms);
        Faults::failEach(Faults::Kind::lock, error);
        EXPECT_EQ(read(), ReadResult::read);
        Faults::stop();
        EXPECT_EQ(content, "x");
        EXPECT_TRUE(patience.wait()) << "nobody can be waited for, error " << error;
    }
}

TEST_F(FsReadPosix, AReaderLetsTheFileGo)
{
    writeBytes(dir / "file", "x");
    EXPECT_EQ(read(), ReadResult::read);
    const OtherHolder next(dir / "file");
}

// --- Sizes that are not true ------------------------------------------------------------------------

// Files that the kernel generates report a size of 0.
class FsReadUnsized : public FsReadPosix {
protected:
    ReadResult readUnsized(const fs::ReadOptions& options)
    {
        return fs::readFile(text(R"(\proc\self\smaps)"), content, options, patience);
    }
};

TEST_F(FsReadUnsized, IsReadToItsEnd)
{
    struct stat status;
    ASSERT_EQ(::stat("/proc/self/smaps", &status), 0);
    ASSERT_EQ(status.st_size, 0);
    ASSERT_EQ(readUnsized({}), ReadResult::read);
    EXPECT_GT(content.size(), 16384u); // more than one block
    EXPECT_NE(content.find("[stack]"), std::string::npos);
    EXPECT_TRUE(content.ends_with('\n'));
}

TEST_F(FsReadUnsized, IsReadAsFarAsTheLimit)
{
    EXPECT_EQ(readUnsized({.limit = 100}), ReadResult::refused);
    EXPECT_EQ(readUnsized({.limit = 17000}), ReadResult::refused);
    EXPECT_EQ(readUnsized({.limit = 1'000'000}), ReadResult::read);
}

class FsReadGrowing : public FsReadPosix {
protected:
    // Reads once for each call that a reading makes, and lets the file grow before that call.
    template <class Check>
    void growBeforeEachCall(std::size_t size, const fs::ReadOptions& options, Check check)
    {
        const std::string before(size, 'b');
        const std::string after = before + std::string(size, 'a');
        writeBytes(dir / "file", before);
        Faults::failCall(1000, 0);
        EXPECT_EQ(read(), ReadResult::read);
        const long calls = Faults::stop();
        for (long number = 1; number <= calls; ++number) {
            writeBytes(dir / "file", before);
            Faults::interfere(number, [&] { writeBytes(dir / "file", after); });
            const ReadResult result = read(options);
            Faults::stop();
            SCOPED_TRACE(std::to_string(size) + " bytes, before call " + std::to_string(number));
            check(result, before, after);
        }
    }
};

TEST_F(FsReadGrowing, IsReadAsFarAsItIsThere)
{
    for (const std::size_t size : {100u, 16384u, 100000u}) {
        growBeforeEachCall(size, {}, [this](ReadResult result, const auto&, const auto& after) {
            EXPECT_EQ(result, ReadResult::read);
            EXPECT_TRUE(after.starts_with(content));
            EXPECT_GE(2 * content.size(), after.size());
        });
    }
}

TEST_F(FsReadGrowing, IsNotReadBeyondTheLimit)
{
    for (const std::size_t size : {100u, 16384u, 100000u}) {
        growBeforeEachCall(size, {.limit = size},
                           [this](ReadResult result, const auto& before, const auto&) {
                               EXPECT_TRUE(result == ReadResult::refused || content == before);
                           });
    }
}

// --- Times --------------------------------------------------------------------------------------------

TEST(FsRecent, EndsThreeSecondsOffInEitherDirection)
{
    EXPECT_TRUE(fs::isRecent(0s));
    EXPECT_TRUE(fs::isRecent(fs::settledAfter - 1ns));
    EXPECT_TRUE(fs::isRecent(1ns - fs::settledAfter));
    EXPECT_FALSE(fs::isRecent(fs::settledAfter));
    EXPECT_FALSE(fs::isRecent(-fs::settledAfter));
    EXPECT_GT(fs::settledAfter, 2s); // file systems store times in steps of up to two seconds
}

// A host may have closed its standard input; then the first file that is opened gets its number.
TEST_F(FsReadPosix, AFileWithTheNumberZeroIsReadAndClosed)
{
    writeBytes(dir / "file", "{}");
    const int input = ::dup(0);
    ::close(0);
    const int before = countOpenDescriptors();
    const ReadResult result = read();
    const int after = countOpenDescriptors();
    if (input >= 0) {
        ::dup2(input, 0);
        ::close(input);
    }
    EXPECT_EQ(result, ReadResult::read);
    EXPECT_EQ(content, "{}");
    EXPECT_EQ(after, before);
}

// A process without a terminal: reads the path as that of a file, and ends with 0 when it still has
// none.
[[noreturn]] void readWithoutTerminal(const String& terminal)
{
    ::setsid();
    std::string content;
    fs::Patience patience;
    static_cast<void>(fs::readFile(terminal, content, {.kind = fs::Kind::plain}, patience));
    ::_exit(::open("/dev/tty", O_RDWR | O_CLOEXEC) < 0 ? 0 : 1);
}

// A link to one may take the place of a file just before it is opened.
TEST_F(FsReadPosix, ATerminalDoesNotBecomeThatOfTheProcess)
{
    const int master = ::posix_openpt(O_RDWR | O_NOCTTY);
    if (master < 0 || ::grantpt(master) != 0 || ::unlockpt(master) != 0) {
        GTEST_SKIP() << "this system makes no terminals";
    }
    const String terminal = support::text(::ptsname(master));
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        readWithoutTerminal(terminal);
    }
    int status = -1;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    ::close(master);
}

} // namespace

#endif
