// Files and folders that are read, made, held and removed while system calls fail, are interrupted or
// move only a few bytes, and while others change them.
#ifndef _WIN32

#    include <cerrno>
#    include <chrono>
#    include <filesystem>
#    include <functional>
#    include <string>
#    include <string_view>
#    include <utility>
#    include <vector>

#    include <fcntl.h>
#    include <gtest/gtest.h>
#    include <unistd.h>

#    include "fs/fs.h"
#    include "fs_faults.h"
#    include "posix_faults.h"
#    include "reading.h"
#    include "support/temp_dir.h"

namespace {

using namespace Korvel::CANTORIS::PLX;
using Faults::Work;
using fs::HeldFile;
using fs::ReadResult;
using fs::WriteResult;
using support::exists;
using support::hostPath;
using support::makeFolder;
using support::makePipe;
using support::readBytes;
using support::text;
using support::writeBytes;
using Purpose = fs::Folder::Purpose;

class FsFaults : public Faults::DisturbedTest {
protected:
    // A file of several blocks that nobody has changed for a while, so that it is read once.
    Work reading(const fs::ReadOptions& options = {})
    {
        const auto prepare = [this] {
            removeAll("file");
            writeBytes(dir / "file", before);
            std::filesystem::last_write_time(hostPath(dir / "file"),
                                             std::filesystem::file_time_type::clock::now() -
                                                 std::chrono::hours(1));
        };
        const auto run = [this, options] {
            result = readWith(options, dir / "file", content) == ReadResult::read;
        };
        return {prepare, run, [this] { EXPECT_TRUE(!result || content == before); }};
    }

    // The same, for a file that was changed just now: it is read twice, the second time under a
    // lock.
    Work readingTwice()
    {
        Work work = reading();
        work.prepare = [this] { writeBytes(dir / "file", before); };
        return work;
    }

    Work creating()
    {
        return {[this] { removeAll("new"); },
                [this] { outcome = folder.create(text("new"), after); },
                [this] { checkMade("new", after); }};
    }

    Work copying()
    {
        const auto prepare = [this] {
            writeBytes(dir / "file", before);
            removeAll("new");
        };
        const auto check = [this] {
            checkMade("new", before);
            EXPECT_TRUE(readBytes(dir / "file") == before);
        };
        return {prepare, [this] { outcome = folder.copyInto(text("new"), dir / "file"); }, check};
    }

    void checkMade(const char* name, const std::string& whole)
    {
        const bool isThere = exists(dir / name);
        const std::string now = isThere ? readBytes(dir / name) : "";
        if (outcome == WriteResult::written) {
            EXPECT_TRUE(now == whole);
        } else if (outcome == WriteResult::notOpened || canCleanUp) {
            EXPECT_FALSE(isThere);
        } else {
            EXPECT_TRUE(whole.starts_with(now));
        }
    }

    // Whether the file that another program puts in the place of the new one, before that call, is
    // removed.
    bool isReplacedAndRemoved(const Work& work, const std::function<void()>& replace, long failing,
                              long before)
    {
        bool isReplaced = false;
        work.prepare();
        removeAll("moved");
        writeBytes(dir / "theirs", "theirs");
        Faults::failCall(failing, EIO);
        Faults::interfere(before, [&] {
            replace();
            isReplaced = true;
        });
        work.run();
        Faults::stop();
        return isReplaced &&
               !std::filesystem::exists(std::filesystem::symlink_status(hostPath(dir / "new")));
    }

    // A failure at each call, combined with another program acting before each: only once does it
    // come between the last check and the removal.
    void expectKept(const Work& work, const std::function<void()>& replace)
    {
        constexpr long looks = 2;
        const long calls = countCalls(work);
        for (long failing = 2; failing <= calls; ++failing) {
            long removals = 0;
            for (long before = 1; before <= calls + looks; ++before) {
                removals += isReplacedAndRemoved(work, replace, failing, before) ? 1 : 0;
            }
            EXPECT_LE(removals, 1) << failing;
        }
    }

    Work holding()
    {
        const auto run = [this] {
            fs::Patience none(std::chrono::milliseconds{0});
            state = folder.hold(text("file"), Purpose::change, none).state();
        };
        return {[this] { writeBytes(dir / "file", before); }, run,
                [this] { EXPECT_TRUE(readBytes(dir / "file") == before); }};
    }

    Work making()
    {
        const auto check = [this] {
            EXPECT_TRUE(!result || fs::isDirectory(dir / "made"));
            EXPECT_TRUE(result || !canCleanUp || !exists(dir / "made"));
        };
        return {[this] { removeAll("made"); },
                [this] { result = folder.make(text("made")).isOpen(); }, check};
    }

    Work entering()
    {
        const auto run = [this] {
            const fs::Folder outer = fs::Folder::open(dir.path());
            result = outer.isOpen() && outer.inner(text("folder")).isOpen();
        };
        return {[this] { makeFolder(dir / "folder"); }, run, [] {}};
    }

    Work makingDeep()
    {
        return {[this] { removeAll("new"); },
                [this] { result = fs::createDirectories(dir / "new\\one\\two"); },
                [this] { EXPECT_TRUE(!result || fs::isDirectory(dir / "new\\one\\two")); }};
    }

    Work removing(const char* name)
    {
        const auto prepare = [this] {
            writeBytes(dir / "file", "x");
            makeFolder(dir / "folder");
        };
        return {prepare, [this, name] { result = folder.remove(text(name)); },
                [this, name] { EXPECT_NE(result, exists(dir / name)); }};
    }

    // Runs the whole work while each call reads or writes only a few bytes.
    long runWithShortTransfers(const Work& work, std::size_t bytes)
    {
        work.prepare();
        Faults::limitTransfers(bytes);
        work.run();
        const long calls = Faults::stop();
        work.check();
        return calls;
    }

    const std::string before = std::string(100000, 'b');
    const std::string after = std::string(150000, 'a');
    std::string content;
    bool result = false;
    WriteResult outcome = WriteResult::failed;
    HeldFile::State state = HeldFile::State::refused;
    int closings = 0;
};

// --- Reading --------------------------------------------------------------------------------------------

TEST_F(FsFaults, ReadingEndsWellOrSaysThatItDidNot)
{
    failEachCall(Faults::errors, reading());
    failEachCall(Faults::errors, readingTwice());
}

TEST_F(FsFaults, ReadingNoticesEveryFailureButThatOfClosing)
{
    const Work work = reading();
    const long calls = countCalls(work);
    for (long number = 1; number <= calls; ++number) {
        runWith(Faults::failCall, number, EIO, work);
        EXPECT_EQ(result, number == calls) << number;
    }
}

TEST_F(FsFaults, ReadingASmallFileThatAWalkHasFoundTakesFiveCalls)
{
    Work work = reading({.kind = fs::Kind::plain});
    const auto prepare = work.prepare;
    work.prepare = [=, this] {
        prepare();
        std::filesystem::resize_file(hostPath(dir / "file"), 1000);
        std::filesystem::last_write_time(hostPath(dir / "file"),
                                         std::filesystem::file_time_type::clock::now() -
                                             std::chrono::hours(1));
    };
    work.check = [this] { EXPECT_TRUE(!result || content == before.substr(0, 1000)); };
    ASSERT_EQ(countCalls(work), 5); // open, read, read the end, status, close
    for (long number = 1; number <= 5; ++number) {
        runWith(Faults::failCall, number, EIO, work);
        EXPECT_EQ(result, number == 5) << number;
    }
}

// A folder that takes the file's place just before it is opened.
TEST_F(FsFaults, WhatTurnsOutToBeNoFileIsNotWaitedFor)
{
    Work work = reading({.kind = fs::Kind::plain});
    work.prepare = [this] {
        removeAll("file");
        makeFolder(dir / "file");
    };
    work.check = [this] { EXPECT_FALSE(result); };
    EXPECT_EQ(countCalls(work), 4); // open, read, status, close
}

TEST_F(FsFaults, ReadingAnInterruptedFileGoesOn)
{
    for (Work work : {reading(), readingTwice()}) {
        work.check = [this] { EXPECT_TRUE(result && content == before); };
        interruptEachCall(work);
    }
}

TEST_F(FsFaults, ReadingGoesOnAfterShortReads)
{
    EXPECT_GT(runWithShortTransfers(reading(), 777), 100);
    EXPECT_TRUE(result && content == before);
}

TEST_F(FsFaults, AFileThatShrinksIsReadAsFarAsItGoes)
{
    for (Work work : {reading(), readingTwice()}) {
        work.check = [this] { EXPECT_TRUE(result && before.starts_with(content)); };
        interfereWithEachCall(work, [this] { writeBytes(dir / "file", "b"); });
    }
}

TEST_F(FsFaults, AFileThatVanishesIsReadWholeOrNotAtAll)
{
    interfereWithEachCall(reading(), [this] { removeAll("file"); });
}

TEST_F(FsFaults, APipeThatTakesTheFilesPlaceIsNotWaitedFor)
{
    Work work = reading();
    work.check = [this] { EXPECT_TRUE(!result || content == before); };
    interfereWithEachCall(work, [this] {
        removeAll("file");
        makePipe(dir / "file");
    });
}

// --- Making files ---------------------------------------------------------------------------------------

TEST_F(FsFaults, AFileIsMadeWholeOrNotAtAll)
{
    failEachCall(Faults::errors, creating());
    failEachCall(Faults::errors, copying());
}

TEST_F(FsFaults, MakingAFileCountsOnlyWhenEveryStepSucceeded)
{
    const Work work = creating();
    ASSERT_EQ(countCalls(work), 5); // open, write, wait for the disk, ask which file it is, close
    const auto expected = [](long failing) {
        return failing == 1   ? WriteResult::notOpened
               : failing == 4 ? WriteResult::written
                              : WriteResult::failed;
    };
    for (long number = 1; number <= 5; ++number) {
        runWith(Faults::failCall, number, EIO, work);
        EXPECT_EQ(outcome, expected(number)) << number;
    }
}

TEST_F(FsFaults, CopyingCountsOnlyWhenEveryStepSucceeded)
{
    const Work work = copying();
    const long calls = countCalls(work);
    for (long number = 1; number <= calls; ++number) {
        runWith(Faults::failCall, number, EIO, work);
        // The last call closes the file that was read, and the status is only needed after a
        // failure.
        const bool matters = number != calls && number != calls - 2;
        EXPECT_EQ(outcome != WriteResult::written, matters) << number;
    }
}

TEST_F(FsFaults, AFileThatAnotherHasPutInTheNewOnesPlaceStays)
{
    const auto replace = [this] {
        std::filesystem::rename(hostPath(dir / "theirs"), hostPath(dir / "new"));
    };
    expectKept(creating(), replace);
    expectKept(copying(), replace);
}

TEST_F(FsFaults, ALinkToTheNewFileThatAnotherHasPutInItsPlaceStays)
{
    expectKept(creating(), [this] {
        std::error_code notMadeYet;
        std::filesystem::rename(hostPath(dir / "new"), hostPath(dir / "moved"), notMadeYet);
        std::filesystem::create_symlink("moved", hostPath(dir / "new"));
    });
}

TEST_F(FsFaults, MakingAFileGoesOnAfterInterruptions)
{
    for (Work work : {creating(), copying()}) {
        const auto check = work.check;
        work.check = [=, this] {
            EXPECT_EQ(outcome, WriteResult::written);
            check();
        };
        interruptEachCall(work);
    }
}

TEST_F(FsFaults, MakingAFileGoesOnAfterShortTransfers)
{
    EXPECT_GT(runWithShortTransfers(creating(), 777), 100);
    EXPECT_EQ(outcome, WriteResult::written);
    EXPECT_GT(runWithShortTransfers(copying(), 777), 200);
    EXPECT_EQ(outcome, WriteResult::written);
}

TEST_F(FsFaults, AWriteThatMovesNothingHasFailed)
{
    runWithShortTransfers(creating(), 0);
    EXPECT_EQ(outcome, WriteResult::failed);
}

// --- Holding files --------------------------------------------------------------------------------------

TEST_F(FsFaults, HoldingAFileChangesNothing)
{
    failEachCall(Faults::errors, holding());
}

TEST_F(FsFaults, AFileIsHeldOnlyWhenItWasSeenToBePlain)
{
    const Work work = holding();
    ASSERT_EQ(countCalls(work), 5); // status, open, status, lock, close
    for (long number = 1; number <= 5; ++number) {
        runWith(Faults::failCall, number, EIO, work);
        EXPECT_EQ(state, number <= 3 ? HeldFile::State::refused : HeldFile::State::held) << number;
        runWith(Faults::failCall, number, EINTR, work);
        EXPECT_EQ(state, HeldFile::State::held) << number;
    }
}

// Another program acts after the file was looked at and before it is opened. The error of an earlier
// call must not count.
TEST_F(FsFaults, AFileThatIsToBeHeldMayVanishOrTurnIntoAPipe)
{
    const auto stateAfter = [this](const std::function<void()>& happening) {
        Work work = holding();
        work.prepare();
        Faults::interfere(2, happening);
        work.run();
        EXPECT_GE(Faults::stop(), 2);
        return state;
    };
    EXPECT_EQ(stateAfter([this] { removeAll("file"); }), HeldFile::State::missing);
    const auto replace = [this] {
        removeAll("file");
        makePipe(dir / "file");
        errno = ENOENT;
    };
    EXPECT_EQ(stateAfter(replace), HeldFile::State::refused);
    removeAll("file");
}

TEST_F(FsFaults, WhatIsDoneWithAHeldFileSaysWhetherItWas)
{
    using Step = std::function<bool(HeldFile & file)>;
    const std::vector<std::pair<const char*, Step>> steps = {
        {"write", [](HeldFile& file) { return file.write(0, "new"); }},
        {"cut", [](HeldFile& file) { return file.cut(3); }},
        {"sync", [](HeldFile& file) { return file.sync(); }},
        {"isAt", [this](HeldFile& file) { return file.isAt(dir / "file"); }},
        {"read",
         [this](HeldFile& file) { return file.read(content, 1000000) == ReadResult::read; }},
    };
    for (const auto& [name, step] : steps) {
        SCOPED_TRACE(name);
        fs::Patience patience;
        writeBytes(dir / "file", before);
        HeldFile file = folder.hold(text("file"), Purpose::change, patience);
        const Work work = {[] {}, [&, &call = step] { result = call(file); }, [] {}};
        const long calls = countCalls(work);
        EXPECT_TRUE(result);
        for (long number = 1; number <= calls; ++number) {
            runWith(Faults::failCall, number, EIO, work);
            EXPECT_FALSE(result) << number;
            runWith(Faults::failCall, number, EINTR, work);
            EXPECT_TRUE(result) << number;
        }
    }
}

TEST_F(FsFaults, AHeldFileIsWrittenInOneCallWhereTheSystemTakesItWhole)
{
    fs::Patience patience;
    writeBytes(dir / "file", before);
    HeldFile file = folder.hold(text("file"), Purpose::change, patience);
    EXPECT_EQ(countCalls({[] {}, [&] { result = file.write(7, after); }, [] {}}), 1);
    EXPECT_TRUE(result);
    Faults::limitTransfers(777);
    EXPECT_TRUE(file.write(0, after));
    EXPECT_GT(Faults::stop(), 100);
    Faults::limitTransfers(0);
    EXPECT_FALSE(file.write(0, "x"));
    Faults::stop();
}

// --- Folders --------------------------------------------------------------------------------------------

TEST_F(FsFaults, AnErrorOfAnEarlierCallDoesNotOpenAFolderOnceMore)
{
    const auto open = [this] {
        errno = EACCES;
        result = fs::Folder::open(dir.path()).isOpen();
    };
    EXPECT_EQ(countCalls({[] {}, open, [] {}}), 2); // open, close
    EXPECT_TRUE(result);
}

TEST_F(FsFaults, AFolderThatIsMadeIsOpenOrNotLeft)
{
    failEachCall(Faults::errors, making());
    failEachCall(Faults::errors, entering());
}

TEST_F(FsFaults, FoldersAreOpenedInSpiteOfInterruptions)
{
    for (Work work : {making(), entering()}) {
        work.check = [this] { EXPECT_TRUE(result); };
        interruptEachCall(work);
    }
}

TEST_F(FsFaults, AFolderThatWasThereStaysWhenItCannotBeOpened)
{
    makeFolder(dir / "made");
    Faults::failCall(2, EIO);
    EXPECT_FALSE(folder.make(text("made")).isOpen());
    Faults::stop();
    EXPECT_TRUE(fs::isDirectory(dir / "made"));
}

TEST_F(FsFaults, MakingFoldersEndsWithThemOrSaysThatItDidNot)
{
    failEachCall(Faults::errors, makingDeep());
}

TEST_F(FsFaults, MakingFoldersGoesOnAfterInterruptions)
{
    Work work = makingDeep();
    work.check = [this] { EXPECT_TRUE(result && fs::isDirectory(dir / "new\\one\\two")); };
    interruptEachCall(work);
}

TEST_F(FsFaults, AFolderThatAnotherProgramMakesMeanwhileIsSuccess)
{
    Work work = makingDeep();
    work.check = [this] { EXPECT_TRUE(result && fs::isDirectory(dir / "new\\one\\two")); };
    interfereWithEachCall(work, [this] { makeFolder(dir / "new\\one\\two"); });
    interfereWithEachCall(work, [this] { makeFolder(dir / "new"); });
}

// A folder that may be written but not read cannot be synchronised; no other error may be mistaken
// for that.
TEST_F(FsFaults, EachFolderThatIsMadeIsOnTheDisk)
{
    Work work = makingDeep();
    const long calls = countCalls(work);
    for (long number = 1; number <= calls; ++number) {
        runWith(Faults::failCall, number, EIO, work);
        const bool isClosing = result;
        runWith(Faults::failCall, number, EINTR, work);
        EXPECT_TRUE(result);
        closings += isClosing ? 1 : 0;
    }
    EXPECT_EQ(closings, 6); // of each of the three and its parent
}

// --- Removing -------------------------------------------------------------------------------------------

TEST_F(FsFaults, RemovingSaysWhetherItDid)
{
    failEachCall(Faults::errors, removing("file"));
    failEachCall(Faults::errors, removing("folder"));
}

// For a folder some systems return "not permitted", others "is a folder".
TEST_F(FsFaults, RemovingAFolderUnderstandsBothRefusals)
{
    for (const int error : {EPERM, EISDIR}) {
        makeFolder(dir / "folder");
        Faults::failCall(1, error);
        EXPECT_TRUE(folder.remove(text("folder")));
        Faults::stop();
    }
}

TEST_F(FsFaults, RemovingGoesOnAfterInterruptions)
{
    for (const char* name : {"file", "folder"}) {
        Work work = removing(name);
        work.check = [this, name] { EXPECT_TRUE(result && !exists(dir / name)); };
        interruptEachCall(work);
    }
}

// --- Questions ------------------------------------------------------------------------------------------

TEST_F(FsFaults, QuestionsAreAnsweredNoWhenTheSystemDoesNotAnswer)
{
    writeBytes(dir / "one\\file", "x");
    const auto ask = [this](auto question) {
        bool answer = false;
        const Work work = {[] {}, [&] { answer = question(); }, [] {}};
        const long calls = countCalls(work);
        EXPECT_TRUE(answer);
        for (long number = 1; number <= calls; ++number) {
            runWith(Faults::failCall, number, EIO, work);
            EXPECT_FALSE(answer);
            runWith(Faults::failCall, number, EINTR, work);
            EXPECT_TRUE(answer);
        }
    };
    ask([this] { return fs::exists(dir / "one\\file"); });
    ask([this] { return fs::isPlainFile(dir / "one\\file"); });
    ask([this] { return fs::isDirectory(dir / "one"); });
    ask([this] { return fs::isMissing(dir / "nothing"); });
    ask([this] { return folder.isMissing(text("nothing")); });
}

TEST_F(FsFaults, WhatCannotBeLookedAtIsNotMissing)
{
    Faults::failCall(1, EACCES);
    EXPECT_FALSE(fs::isMissing(dir / "nothing"));
    Faults::failCall(1, EACCES);
    EXPECT_FALSE(folder.isMissing(text("nothing")));
    Faults::stop();
    EXPECT_TRUE(fs::isMissing(dir / "nothing"));
    EXPECT_TRUE(folder.isMissing(text("nothing")));
}

TEST_F(FsFaults, NoOpenFileIsInherited)
{
    const Work walking = {
        [] {}, [this] { result = fs::forEachFile(dir.path(), [](const auto&...) {}); }, [] {}};
    for (const Work& work : {reading(), readingTwice(), creating(), copying(), holding(), making(),
                             entering(), makingDeep(), walking}) {
        work.prepare();
        Faults::countInheritable();
        work.run();
        EXPECT_EQ(Faults::countInheritable(), 0);
    }
    Faults::failCall(1, ENOSYS);
    fs::newUuid();
    Faults::stop();
    EXPECT_EQ(Faults::countInheritable(), 0);
    ::close(::open("/dev/null", O_RDONLY));
    EXPECT_EQ(Faults::countInheritable(), 1);
}

TEST_F(FsFaults, AUuidComesFromTheDeviceWhenTheCallIsRefused)
{
    if (std::string_view(KRT_PLX_TEST_FS) == "posix") {
        GTEST_SKIP() << "there is no call, only the device";
    }
    for (const int error : {ENOSYS, EPERM, EINTR}) {
        Faults::failCall(1, error);
        const String uuid = fs::newUuid();
        Faults::stop();
        EXPECT_EQ(uuid.size(), 36u);
        EXPECT_NE(uuid, text("00000000-0000-4000-8000-000000000000"));
    }
}

TEST_F(FsFaults, WithoutRandomnessThereIsNoUuid)
{
    Faults::failFrom(1, EIO);
    const String uuid = fs::newUuid();
    Faults::stop();
    EXPECT_EQ(uuid, String{});
}

} // namespace

#endif
