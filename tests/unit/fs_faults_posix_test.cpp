// Every system call of the layer fails once, is interrupted once, or moves only a few bytes.
#ifndef _WIN32

#    include <cerrno>
#    include <climits>
#    include <cstring>
#    include <filesystem>
#    include <functional>
#    include <string>
#    include <system_error>
#    include <vector>

#    include <fcntl.h>
#    include <gmock/gmock.h>
#    include <gtest/gtest.h>
#    include <unistd.h>

#    include "fs/fs.h"
#    include "open_descriptors.h"
#    include "posix_faults.h"
#    include "support/temp_dir.h"

namespace {

using namespace Korvel::CANTORIS::PLX;
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

constexpr int failures[] = {EIO,          EACCES, EPERM,   ENOSPC, EMFILE, ENOMEM,   EISDIR,
                            ENAMETOOLONG, EEXIST, ENOTDIR, ENOENT, EROFS,  ENOTEMPTY};

// These do not claim that nothing is there; each takes another way through the removal.
constexpr int honestFailures[] = {EIO, EPERM, EMFILE};

struct Work {
    std::function<void()> prepare;
    std::function<void()> run;
    std::function<void()> check; // what may come of it, whatever fails
};

class FsFaults : public testing::Test {
protected:
    long countCalls(const Work& work)
    {
        work.prepare();
        Faults::failCall(LONG_MAX, 0);
        work.run();
        const long calls = Faults::stop();
        work.check();
        return calls;
    }

    template <typename Fail>
    void runWith(Fail fail, long number, int error, const Work& work)
    {
        SCOPED_TRACE(std::string(std::strerror(error)) + " at call " + std::to_string(number));
        work.prepare();
        const int descriptors = countOpenDescriptors();
        fail(number, error);
        work.run();
        Faults::stop();
        EXPECT_EQ(countOpenDescriptors(), descriptors);
        work.check();
    }

    // Runs the work once for each of its calls, with that call failing, and once more with all calls
    // from there on failing.
    template <typename Errors>
    void failEachCall(const Errors& errors, const Work& work)
    {
        const long calls = countCalls(work);
        ASSERT_GT(calls, 0);
        for (const int error : errors) {
            for (long number = 1; number <= calls; ++number) {
                runWith(Faults::failCall, number, error, work);
                runWith(Faults::failFrom, number, error, work);
            }
        }
    }

    void interruptEachCall(const Work& work)
    {
        const long calls = countCalls(work);
        ASSERT_GT(calls, 0);
        for (long number = 1; number <= calls; ++number) {
            runWith(Faults::failCall, number, EINTR, work);
        }
    }

    Work reading(fs::Kind kind = fs::Kind::unknown)
    {
        return {[this] { writeBytes(dir / "file", before); },
                [this, kind] { result = fs::readFile(dir / "file", content, kind); },
                [this] { EXPECT_TRUE(!result || content == before); }};
    }

    Work writing()
    {
        return {[this] { writeBytes(dir / "file", before); },
                [this] { outcome = fs::writeFile(dir / "file", after); },
                [this] { checkWritten(readBytes(dir / "file")); }};
    }

    void checkWritten(const std::string& now)
    {
        switch (outcome) {
        case WriteResult::written:
            EXPECT_TRUE(now == after);
            break;
        case WriteResult::notOpened:
            EXPECT_TRUE(now == before);
            break;
        case WriteResult::failed:
            EXPECT_TRUE(after.starts_with(now));
            break;
        }
    }

    Work copying()
    {
        const auto prepare = [this] {
            writeBytes(dir / "file", before);
            fs::remove(dir / "copy");
        };
        const auto check = [this] {
            const std::string copy = exists(dir / "copy") ? readBytes(dir / "copy") : "";
            EXPECT_TRUE(result ? copy == before : before.starts_with(copy));
            EXPECT_TRUE(readBytes(dir / "file") == before);
        };
        return {prepare, [this] { result = fs::copyFile(dir / "file", dir / "copy"); }, check};
    }

    Work creating()
    {
        return {[this] { ASSERT_TRUE(fs::removeTree(dir / "new")); },
                [this] { result = fs::createDirectories(dir / "new\\one\\two"); },
                [this] { EXPECT_TRUE(!result || fs::isDirectory(dir / "new\\one\\two")); }};
    }

    Work removing(const String& path)
    {
        const auto prepare = [this] {
            writeBytes(dir / "file", "x");
            makeFolder(dir / "folder");
        };
        return {prepare, [this, path] { result = fs::remove(path); },
                [this, path] { EXPECT_NE(result, exists(path)); }};
    }

    Work removingTree()
    {
        const auto prepare = [this] {
            fs::removeTree(dir / "tree");
            makeTree();
        };
        const auto check = [this] {
            EXPECT_NE(result, exists(dir / "tree"));
            EXPECT_TRUE(exists(dir / "outside\\e"));
            EXPECT_TRUE(fs::removeTree(dir / "tree"));
        };
        return {prepare, [this] { result = fs::removeTree(dir / "tree"); }, check};
    }

    void makeTree()
    {
        for (const char* path : {"a", "one\\b", "one\\two\\c", "three\\d"}) {
            writeBytes(dir / ("tree\\" + std::string(path)), "x");
        }
        writeBytes(dir / "outside\\e", "x");
        ASSERT_TRUE(makeLink(dir / "tree\\link", text("..\\outside")));
        ASSERT_TRUE(makeLink(dir / "tree\\one\\up", text("..")));
        ASSERT_TRUE(makeLink(dir / "tree\\f", text("..\\outside\\e")));
    }

    // When a folder above cannot be recognised, the link to it counts as another folder.
    Work walking()
    {
        const auto run = [this] {
            found.clear();
            fs::forEachFile(dir / "tree", [this](const String& path, const fs::Neighbours&) {
                found.push_back(utf8(path.substr((dir / "tree\\").size())));
            });
        };
        const auto check = [this] {
            for (std::string path : found) {
                if (path.starts_with("one\\up\\")) {
                    path.erase(0, 7);
                }
                EXPECT_THAT(treeFiles, testing::Contains(path));
            }
        };
        return {[] {}, run, check};
    }

    TempDir dir;
    const std::vector<std::string> treeFiles = {"a",      "f",           "link\\e",
                                                "one\\b", "one\\two\\c", "three\\d"};
    const std::string before = std::string(100000, 'b');
    const std::string after = std::string(150000, 'a');
    std::string content;
    bool result = false;
    WriteResult outcome = WriteResult::failed;
    std::vector<std::string> found;
};

TEST_F(FsFaults, ReadingEndsWellOrSaysThatItDidNot)
{
    failEachCall(failures, reading());
}

TEST_F(FsFaults, ReadingNoticesEveryFailureButThatOfClosing)
{
    const Work work = reading();
    ASSERT_EQ(countCalls(work), 5); // status, open, status, read, close
    for (long number = 1; number <= 5; ++number) {
        runWith(Faults::failCall, number, EIO, work);
        EXPECT_EQ(result, number == 5);
    }
}

TEST_F(FsFaults, ReadingAFileThatAWalkHasFoundNoticesThemToo)
{
    const Work work = reading(fs::Kind::plain);
    ASSERT_EQ(countCalls(work), 4); // open, status, read, close: a scan pays them for every clip
    for (long number = 1; number <= 4; ++number) {
        runWith(Faults::failCall, number, EIO, work);
        EXPECT_EQ(result, number == 4);
    }
}

TEST_F(FsFaults, ReadingAnInterruptedFileGoesOn)
{
    Work work = reading();
    work.check = [this] { EXPECT_TRUE(result && content == before); };
    interruptEachCall(work);
}

TEST_F(FsFaults, ReadingGoesOnAfterShortReads)
{
    const Work work = reading();
    work.prepare();
    Faults::limitTransfers(777);
    work.run();
    EXPECT_GT(Faults::stop(), 100);
    EXPECT_TRUE(result && content == before);
}

TEST_F(FsFaults, WritingEndsWellOrSaysHowFarItCame)
{
    failEachCall(failures, writing());
}

TEST_F(FsFaults, WritingCountsOnlyWhenEveryStepFromOpeningOnSucceeded)
{
    const Work work = writing();
    ASSERT_EQ(countCalls(work), 4);
    const WriteResult expected[] = {WriteResult::written, WriteResult::notOpened,
                                    WriteResult::failed, WriteResult::failed};
    for (long number = 1; number <= 4; ++number) {
        runWith(Faults::failCall, number, EIO, work);
        EXPECT_EQ(outcome, expected[number - 1]) << number;
    }
}

TEST_F(FsFaults, WritingGoesOnAfterInterruptions)
{
    Work work = writing();
    work.check = [this] {
        EXPECT_EQ(outcome, WriteResult::written);
        EXPECT_TRUE(readBytes(dir / "file") == after);
    };
    interruptEachCall(work);
}

TEST_F(FsFaults, WritingGoesOnAfterShortWrites)
{
    const Work work = writing();
    work.prepare();
    Faults::limitTransfers(777);
    work.run();
    EXPECT_GT(Faults::stop(), 100);
    EXPECT_EQ(outcome, WriteResult::written);
    EXPECT_TRUE(readBytes(dir / "file") == after);
}

TEST_F(FsFaults, AWriteThatMovesNothingHasFailed)
{
    const Work work = writing();
    work.prepare();
    Faults::limitTransfers(0);
    work.run();
    Faults::stop();
    EXPECT_EQ(outcome, WriteResult::failed);
}

TEST_F(FsFaults, CopyingEndsWellOrSaysThatItDidNot)
{
    failEachCall(failures, copying());
}

TEST_F(FsFaults, CopyingCountsOnlyWhenEveryStepSucceeded)
{
    const Work work = copying();
    const long calls = countCalls(work);
    for (long number = 1; number <= calls; ++number) {
        runWith(Faults::failCall, number, EIO, work);
        EXPECT_EQ(result, number == calls); // the last one closes the file that was read
    }
}

TEST_F(FsFaults, CopyingGoesOnAfterInterruptions)
{
    Work work = copying();
    work.check = [this] { EXPECT_TRUE(result && readBytes(dir / "copy") == before); };
    interruptEachCall(work);
}

TEST_F(FsFaults, CopyingGoesOnAfterShortTransfers)
{
    const Work work = copying();
    work.prepare();
    Faults::limitTransfers(777);
    work.run();
    EXPECT_GT(Faults::stop(), 200);
    EXPECT_TRUE(result && readBytes(dir / "copy") == before);
}

TEST_F(FsFaults, CreatingEndsWithAFolderOrSaysThatItDidNot)
{
    failEachCall(failures, creating());
}

TEST_F(FsFaults, CreatingGoesOnAfterInterruptions)
{
    Work work = creating();
    work.check = [this] { EXPECT_TRUE(result && fs::isDirectory(dir / "new\\one\\two")); };
    interruptEachCall(work);
}

TEST_F(FsFaults, RemovingSaysWhetherItDid)
{
    failEachCall(failures, removing(dir / "file"));
    failEachCall(failures, removing(dir / "folder"));
}

// Some systems say "not permitted" of a folder, others "is a folder".
TEST_F(FsFaults, RemovingAFolderUnderstandsBothRefusals)
{
    for (const int error : {EPERM, EISDIR}) {
        makeFolder(dir / "folder");
        Faults::failCall(1, error);
        EXPECT_TRUE(fs::remove(dir / "folder"));
        Faults::stop();
    }
}

TEST_F(FsFaults, RemovingGoesOnAfterInterruptions)
{
    for (const String& path : {dir / "file", dir / "folder"}) {
        Work work = removing(path);
        work.check = [this, path] { EXPECT_TRUE(result && !exists(path)); };
        interruptEachCall(work);
    }
}

TEST_F(FsFaults, RemovingATreeSaysWhetherAnythingIsLeft)
{
    failEachCall(honestFailures, removingTree());
}

TEST_F(FsFaults, RemovingATreeGoesOnAfterInterruptions)
{
    Work work = removingTree();
    work.check = [this] {
        EXPECT_TRUE(result && !exists(dir / "tree"));
        EXPECT_TRUE(exists(dir / "outside\\e"));
    };
    interruptEachCall(work);
}

TEST_F(FsFaults, AWalkAsksForKindsThatItIsNotTold)
{
    makeTree();
    makePipe(dir / "tree\\pipe");
    makeLink(dir / "tree\\dangling", text("missing"));
    const Work work = walking();
    Faults::hideKinds();
    work.run();
    Faults::stop();
    EXPECT_THAT(found, testing::UnorderedElementsAreArray(treeFiles));
}

TEST_F(FsFaults, NoOpenFileIsInherited)
{
    for (const Work& work : {reading(), writing(), copying(), removingTree()}) {
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

TEST_F(FsFaults, AWalkFindsNothingButFiles)
{
    makeTree();
    failEachCall(failures, walking());
}

TEST_F(FsFaults, AWalkLosesOnlyTheFolderThatFails)
{
    makeTree();
    const Work work = walking();
    const long calls = countCalls(work);
    std::size_t complete = 0;
    std::size_t empty = 0;
    for (long number = 1; number <= calls; ++number) {
        runWith(Faults::failCall, number, EMFILE, work);
        complete += found.size() >= treeFiles.size();
        empty += found.empty();
    }
    EXPECT_GE(complete, 6u); // at least when a folder is closed, or its last entry has been read
    EXPECT_LE(empty, 4u);    // the first calls list the tree's own folder
}

TEST_F(FsFaults, AWalkGoesOnAfterInterruptions)
{
    makeTree();
    Work work = walking();
    work.check = [this] { EXPECT_THAT(found, testing::UnorderedElementsAreArray(treeFiles)); };
    interruptEachCall(work);
}

// Something else happens to the same files between two calls.
class FsInterference : public FsFaults {
protected:
    // Runs the work once for each of its calls, with the same thing happening before that call.
    void interfereWithEachCall(const Work& work, const std::function<void()>& happening)
    {
        const auto interfere = [&](long number, int) { Faults::interfere(number, happening); };
        const long calls = countCalls(work);
        ASSERT_GT(calls, 0);
        for (long number = 1; number <= calls; ++number) {
            runWith(interfere, number, 0, work);
        }
    }

    void swapForLink(const char* folder)
    {
        std::error_code ignored;
        std::filesystem::rename(hostPath(dir / folder), hostPath(dir / "moved away"), ignored);
        makeLink(dir / folder, dir / "outside");
    }
};

TEST_F(FsInterference, AFileThatShrinksIsReadAsFarAsItGoes)
{
    Work work = reading();
    work.check = [this] { EXPECT_TRUE(result && before.starts_with(content)); };
    interfereWithEachCall(work, [this] { writeBytes(dir / "file", "b"); });
}

TEST_F(FsInterference, AFileThatVanishesIsReadWholeOrNotAtAll)
{
    interfereWithEachCall(reading(), [this] { std::filesystem::remove(hostPath(dir / "file")); });
}

TEST_F(FsInterference, APipeThatTakesTheFilesPlaceIsNotWaitedFor)
{
    Work work = reading();
    const auto swap = [this] {
        std::filesystem::remove(hostPath(dir / "file"));
        makePipe(dir / "file");
    };
    const auto prepare = work.prepare;
    work.prepare = [=, this] {
        std::filesystem::remove(hostPath(dir / "file"));
        prepare();
    };
    work.check = [this] { EXPECT_TRUE(!result || content.empty() || content == before); };
    interfereWithEachCall(work, swap);
}

TEST_F(FsInterference, AFolderThatIsMadeByAnotherMeanwhileIsAsGood)
{
    Work work = creating();
    work.check = [this] { EXPECT_TRUE(result && fs::isDirectory(dir / "new\\one\\two")); };
    interfereWithEachCall(work, [this] { makeFolder(dir / "new\\one\\two"); });
    interfereWithEachCall(work, [this] { makeFolder(dir / "new"); });
}

TEST_F(FsInterference, ALinkThatTakesAFoldersPlaceIsNotFollowed)
{
    for (const char* folder : {"tree", "tree\\one", "tree\\one\\two"}) {
        Work work = removingTree();
        const auto prepare = work.prepare;
        work.prepare = [=, this] {
            std::filesystem::remove_all(hostPath(dir / "moved away"));
            prepare();
        };
        work.check = [this] { EXPECT_TRUE(exists(dir / "outside\\e")); };
        interfereWithEachCall(work, [this, folder] { swapForLink(folder); });
    }
}

// What then lies above it is another folder, where things may have the same names.
TEST_F(FsInterference, AFolderThatIsMovedAwayDoesNotLeadOutOfTheTree)
{
    // Some of them are listed on either side of the folder, whatever the order.
    std::vector<std::string> names;
    for (int i = 0; i < 20; ++i) {
        names.push_back("b" + std::to_string(i));
    }
    Work work = removingTree();
    work.prepare = [&] {
        fs::removeTree(dir / "tree");
        fs::removeTree(dir / "outside");
        makeTree();
        for (const std::string& name : names) {
            writeBytes(dir / ("tree\\one\\" + name), "x");
            writeBytes(dir / ("outside\\" + name), "x");
        }
    };
    work.check = [&] {
        for (const std::string& name : names) {
            EXPECT_TRUE(exists(dir / ("outside\\" + name)));
        }
    };
    interfereWithEachCall(work, [this] {
        std::error_code ignored;
        std::filesystem::rename(hostPath(dir / "tree\\one\\two"), hostPath(dir / "outside\\two"),
                                ignored);
    });
}

TEST_F(FsInterference, ATreeThatAnotherRemovesMeanwhileIsGone)
{
    interfereWithEachCall(removingTree(),
                          [this] { std::filesystem::remove_all(hostPath(dir / "tree")); });
}

TEST_F(FsInterference, AWalkStandsFilesAndFoldersThatVanish)
{
    Work work = walking();
    work.prepare = [this] {
        fs::removeTree(dir / "tree");
        makeTree();
    };
    interfereWithEachCall(work,
                          [this] { std::filesystem::remove_all(hostPath(dir / "tree\\one")); });
    interfereWithEachCall(work, [this] { std::filesystem::remove_all(hostPath(dir / "tree")); });
}

TEST_F(FsFaults, QuestionsAreAnsweredNoWhenTheSystemDoesNotAnswer)
{
    makeTree();
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
    ask([this] { return fs::exists(dir / "tree\\a"); });
    ask([this] { return fs::isPlainFile(dir / "tree\\a"); });
    ask([this] { return fs::isDirectory(dir / "tree\\one"); });
    ask([this] { return fs::isStrictlyBelow(dir / "tree\\one", dir / "tree"); });
}

TEST_F(FsFaults, WhatCannotBeLookedAtIsNotMissing)
{
    makeTree();
    Faults::failCall(1, EACCES);
    EXPECT_FALSE(fs::isMissing(dir / "tree\\nothing"));
    Faults::stop();
    EXPECT_TRUE(fs::isMissing(dir / "tree\\nothing"));
}

TEST_F(FsFaults, AUuidComesFromTheDeviceWhenTheCallIsRefused)
{
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
