// Answers of the system that a test cannot cause: marked entries, files that other programs hold
// for a moment, volumes that do not identify their files, and calls that fail.
#ifdef _WIN32

#    include <chrono>
#    include <filesystem>
#    include <functional>
#    include <string>
#    include <vector>

#    include <gmock/gmock.h>
#    include <gtest/gtest.h>

#    include "fs/fs.h"
#    include "fs/listing.h"
#    include "support/calls_win32.h"
#    include "support/temp_dir.h"

namespace {

using namespace Korvel::CANTORIS::PLX;
using fs::Folder;
using fs::HeldFile;
using support::DisturbedCalls;
using support::exists;
using support::readBytes;
using support::text;
using support::utf8;
using support::writeBytes;
using Purpose = Folder::Purpose;

constexpr DWORD cloud = 0x9000701A;
constexpr DWORD junction = 0xA0000003;
constexpr DWORD symbolicLink = 0xA000000C;

class FsCalls : public testing::Test {
protected:
    FsCalls()
    {
        writeBytes(dir / "tree\\file", "x");
        writeBytes(dir / "tree\\inner\\file", "x");
        writeBytes(dir / "document", "old");
    }

    bool changeDocument()
    {
        fs::Patience patience;
        HeldFile file = folder.hold(text("document"), Purpose::change, patience);
        std::string content;
        return file.state() == HeldFile::State::held &&
               file.read(content, 1000) == fs::ReadResult::read && content == "old" &&
               file.write(0, "new") && file.sync() && file.isAt(dir / "document");
    }

    std::vector<std::string> walk()
    {
        std::vector<std::string> names;
        EXPECT_TRUE(fs::forEachFile(dir.path(), [&](const String& path, const fs::Neighbours&) {
            names.push_back(utf8(path.substr(dir.path().size() + 1)));
        }));
        return names;
    }

    support::TempDir dir;
    Folder folder = Folder::open(dir.path());
    DisturbedCalls calls{nullptr};
};

// --- Marks -----------------------------------------------------------------------------------------------

TEST_F(FsCalls, FoldersOfACloudAreFolders)
{
    calls.markEntries(cloud);
    EXPECT_TRUE(folder.inner(text("tree")).isOpen());
    EXPECT_THAT(walk(),
                testing::UnorderedElementsAre("document", "tree\\file", "tree\\inner\\file"));
    EXPECT_TRUE(folder.removeTree(text("tree")));
    calls.stop();
    EXPECT_FALSE(exists(dir / "tree"));
}

// The content is stored elsewhere: programs that open the file as a plain one can read and write
// it.
TEST_F(FsCalls, FilesOfACloudAreFiles)
{
    calls.markEntries(cloud);
    EXPECT_TRUE(changeDocument());
    EXPECT_THAT(calls.calls(), testing::Contains("ReOpenFile"));
    EXPECT_TRUE(folder.remove(text("document")));
    calls.stop();
    EXPECT_FALSE(exists(dir / "document"));
}

TEST_F(FsCalls, FilesWithoutAMarkAreOpenedOnce)
{
    EXPECT_TRUE(changeDocument());
    EXPECT_THAT(calls.calls(), testing::Not(testing::Contains("ReOpenFile")));
}

TEST_F(FsCalls, LinksAreNeitherEnteredNorChanged)
{
    for (const DWORD tag : {junction, symbolicLink, DWORD{0}}) {
        calls.markEntries(tag);
        fs::Patience patience;
        std::string content;
        EXPECT_FALSE(folder.inner(text("tree")).isOpen());
        EXPECT_FALSE(folder.make(text("tree")).isOpen());
        EXPECT_EQ(folder.hold(text("document"), Purpose::change, patience).state(),
                  HeldFile::State::refused);
        EXPECT_EQ(folder.hold(text("document"), Purpose::removal, patience).state(),
                  HeldFile::State::refused);
        EXPECT_EQ(folder.read(text("document"), content, 1000), fs::ReadResult::notOpened);
        EXPECT_FALSE(fs::removeEmptyFolder(dir / "tree\\inner"));
    }
}

// With that handle the system would remove the link itself; here it is a folder with something in
// it.
TEST_F(FsCalls, WhatALinkLeadsToStays)
{
    for (const auto shown :
         {DisturbedCalls::Shown::byHandleAndName, DisturbedCalls::Shown::byHandleAlone}) {
        calls.markEntries(junction, shown);
        EXPECT_FALSE(folder.removeTree(text("tree")));
        EXPECT_FALSE(folder.remove(text("tree")));
        calls.stop();
        EXPECT_TRUE(exists(dir / "tree\\file"));
        EXPECT_TRUE(exists(dir / "tree\\inner\\file"));
    }
}

TEST_F(FsCalls, ALinkItselfIsRemoved)
{
    support::makeFolder(dir / "tree\\link");
    support::makeFolder(dir / "link");
    const Folder tree = folder.inner(text("tree"));
    calls.markEntries(junction);
    EXPECT_TRUE(tree.removeTree(text("link")));
    EXPECT_TRUE(folder.remove(text("link")));
    calls.stop();
    EXPECT_FALSE(exists(dir / "tree\\link"));
    EXPECT_FALSE(exists(dir / "link"));
}

// A junction replaces a folder between the listing and the opening.
TEST_F(FsCalls, ALinkThatTakesAFoldersPlaceIsNotEntered)
{
    const Folder tree = folder.inner(text("tree"));
    calls.markEntries(junction, DisturbedCalls::Shown::byHandleAlone);
    EXPECT_FALSE(tree.inner(text("inner")).isOpen());
    EXPECT_FALSE(tree.removeTree(text("inner")));
    calls.stop();
    EXPECT_TRUE(exists(dir / "tree\\inner\\file"));
}

TEST_F(FsCalls, SpecialFilesAreNoFiles)
{
    for (const DWORD special : {0x80000023, 0x80000024, 0x80000025, 0x80000026}) {
        calls.markEntries(special);
        fs::Patience patience;
        EXPECT_EQ(folder.hold(text("document"), Purpose::change, patience).state(),
                  HeldFile::State::refused);
    }
}

// --- Others ----------------------------------------------------------------------------------------------

TEST_F(FsCalls, AFileThatIsHeldForAMomentIsTriedAgain)
{
    calls.failNext("NtCreateFile", 3, ERROR_SHARING_VIOLATION);
    EXPECT_TRUE(changeDocument());
    calls.failNext("NtCreateFile", 3, ERROR_SHARING_VIOLATION);
    EXPECT_TRUE(folder.remove(text("document")));
    calls.failNext("NtCreateFile", 3, ERROR_SHARING_VIOLATION);
    EXPECT_TRUE(folder.removeTree(text("tree")));
    calls.stop();
    EXPECT_FALSE(exists(dir / "document"));
    EXPECT_FALSE(exists(dir / "tree"));
}

TEST_F(FsCalls, AFileThatIsBeingRemovedIsWaitedForAndThenGone)
{
    calls.failNext("NtCreateFile", 3, ERROR_DELETE_PENDING);
    EXPECT_TRUE(folder.remove(text("document")));
    calls.failNext("NtCreateFile", 1, ERROR_DELETE_PENDING);
    EXPECT_TRUE(folder.isMissing(text("tree")));
}

TEST_F(FsCalls, AFileThatIsReadWhileItIsHeldIsTriedAgain)
{
    std::string content;
    fs::Patience patience;
    calls.failNext("CreateFileW", 3, ERROR_SHARING_VIOLATION);
    EXPECT_EQ(fs::readFile(dir / "document", content, {}, patience), fs::ReadResult::read);
    EXPECT_EQ(content, "old");
}

TEST_F(FsCalls, AFileThatIsHeldForEverIsNotWaitedForLong)
{
    constexpr long always = 1'000'000;
    const auto begin = std::chrono::steady_clock::now();
    calls.failNext("NtCreateFile", always, ERROR_SHARING_VIOLATION);
    EXPECT_FALSE(folder.remove(text("document")));
    EXPECT_FALSE(folder.removeTree(text("tree")));
    fs::Patience patience;
    EXPECT_EQ(folder.hold(text("document"), Purpose::removal, patience).state(),
              HeldFile::State::busy);
    EXPECT_FALSE(patience.wait());
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(8));
    calls.stop();
    EXPECT_TRUE(exists(dir / "document"));
    EXPECT_TRUE(exists(dir / "tree\\file"));
}

TEST_F(FsCalls, OtherRefusalsAreNotTriedAgain)
{
    calls.failNext("NtCreateFile", 1, ERROR_ACCESS_DENIED);
    EXPECT_FALSE(folder.remove(text("document")));
    EXPECT_TRUE(folder.remove(text("document")));
}

TEST_F(FsCalls, WithoutLocksAFileIsHeldAllTheSame)
{
    calls.failNext("LockFileEx", 1000, ERROR_NOT_SUPPORTED);
    EXPECT_TRUE(changeDocument());
}

TEST_F(FsCalls, NoHandleIsInherited)
{
    const int before = support::countInheritableHandles();
    fs::Patience patience;
    const Folder inner = folder.inner(text("tree"));
    const Folder made = folder.make(text("made"));
    const HeldFile changed = folder.hold(text("document"), Purpose::change, patience);
    const HeldFile removed = inner.hold(text("file"), Purpose::removal, patience);
    const HeldFile newOne = made.hold(text("new"), Purpose::making, patience);
    ASSERT_EQ(newOne.state(), HeldFile::State::held);
    EXPECT_EQ(support::countInheritableHandles(), before);
}

// --- Removing -------------------------------------------------------------------------------------------

TEST_F(FsCalls, AnEntryIsRemovedAtOnceAndThoughItIsReadOnly)
{
    constexpr DWORD removeAtOnceAlsoReadOnly = 0x1 | 0x2 | 0x10;
    EXPECT_TRUE(folder.remove(text("document")));
    EXPECT_EQ(calls.removalFlags(), removeAtOnceAlsoReadOnly);
}

TEST_F(FsCalls, AnOlderSystemRemovesAReadOnlyEntryToo)
{
    SetFileAttributesW((dir / "document").c_str(), FILE_ATTRIBUTE_READONLY);
    for (const DWORD unknown :
         {ERROR_INVALID_PARAMETER, ERROR_INVALID_FUNCTION, ERROR_NOT_SUPPORTED}) {
        calls.failNext("SetFileInformationByHandle", 1, unknown);
        EXPECT_TRUE(folder.remove(text("document")));
        EXPECT_FALSE(exists(dir / "document"));
        writeBytes(dir / "document", "again");
        SetFileAttributesW((dir / "document").c_str(), FILE_ATTRIBUTE_READONLY);
    }
}

TEST_F(FsCalls, AReadOnlyEntryThatStaysKeepsItsMark)
{
    const auto readOnly = [&] {
        writeBytes(dir / "document", "old");
        SetFileAttributesW((dir / "document").c_str(), FILE_ATTRIBUTE_READONLY);
    };
    readOnly();
    calls.failCall(1'000'000, 0);
    EXPECT_TRUE(folder.remove(text("document")));
    const long count = calls.stop();
    int staying = 0;
    for (long number = 1; number <= count; ++number) {
        readOnly();
        calls.failCall(number, ERROR_ACCESS_DENIED);
        const bool isRemoved = folder.remove(text("document"));
        calls.stop();
        const DWORD attributes = GetFileAttributesW((dir / "document").c_str());
        EXPECT_EQ(attributes == INVALID_FILE_ATTRIBUTES, isRemoved) << number;
        EXPECT_NE(attributes & FILE_ATTRIBUTE_READONLY, 0u) << number; // including the invalid ones
        staying += isRemoved ? 0 : 1;
        SetFileAttributesW((dir / "document").c_str(), FILE_ATTRIBUTE_NORMAL);
    }
    EXPECT_GT(staying, 2);
}

// --- The disk --------------------------------------------------------------------------------------------

TEST_F(FsCalls, AFolderThatCannotBeWaitedForCountsAsDone)
{
    for (const DWORD refusal :
         {ERROR_ACCESS_DENIED, ERROR_INVALID_FUNCTION, ERROR_NOT_SUPPORTED, ERROR_WRITE_PROTECT}) {
        calls.failNext("FlushFileBuffers", 1, refusal);
        EXPECT_TRUE(folder.sync()) << refusal;
    }
    calls.failNext("ReOpenFile", 1, ERROR_ACCESS_DENIED);
    EXPECT_TRUE(folder.sync());
    calls.failNext("FlushFileBuffers", 1, ERROR_IO_DEVICE);
    EXPECT_FALSE(folder.sync());
}

TEST_F(FsCalls, AFileThatTheDiskDoesNotTakeIsNotLeft)
{
    for (const char* call : {"WriteFile", "FlushFileBuffers"}) {
        for (const DWORD error : {ERROR_DISK_FULL, ERROR_IO_DEVICE}) {
            calls.failNext(call, 1, error);
            EXPECT_EQ(folder.create(text("new"), "content"), fs::WriteResult::failed);
            EXPECT_FALSE(exists(dir / "new"));
            calls.failNext(call, 1, error);
            EXPECT_EQ(folder.copyInto(text("new"), dir / "document"), fs::WriteResult::failed);
            EXPECT_FALSE(exists(dir / "new"));
        }
    }
}

// --- Identities ------------------------------------------------------------------------------------------

TEST_F(FsCalls, FilesAreKnownByTheLongestNumbersThereAre)
{
    DisturbedCalls::Numbers numbers;
    numbers.highestByte = 1;
    calls.numberFiles(numbers);
    const auto one = fs::identify(dir / "tree");
    numbers.highestByte = 2;
    calls.numberFiles(numbers);
    const auto other = fs::identify(dir / "tree");
    EXPECT_TRUE(one && other);
    EXPECT_NE(one, other);
}

TEST_F(FsCalls, WithoutNumbersFilesAreKnownByTheirOnePath)
{
    DisturbedCalls::Numbers numbers;
    for (const bool areShort : {true, false}) {
        numbers.areLong = false;
        numbers.areShort = areShort;
        calls.numberFiles(numbers);
        const auto tree = fs::identify(dir / "tree");
        ASSERT_TRUE(tree);
        EXPECT_EQ(fs::identify(dir / "tree\\inner\\.."), tree);
        EXPECT_NE(fs::identify(dir / "tree\\inner"), tree);
        EXPECT_TRUE(changeDocument());
        writeBytes(dir / "document", "old");
    }
}

TEST_F(FsCalls, WhatIsNotTellableIsUnknown)
{
    DisturbedCalls::Numbers none;
    none.areLong = none.areShort = none.areNamed = false;
    calls.numberFiles(none);
    EXPECT_FALSE(fs::identify(dir / "tree"));
    EXPECT_TRUE(changeDocument());
}

// --- Every call fails -------------------------------------------------------------------------------------

constexpr DWORD errors[] = {ERROR_ACCESS_DENIED,  ERROR_DISK_FULL,         ERROR_IO_DEVICE,
                            ERROR_FILE_NOT_FOUND, ERROR_NOT_ENOUGH_MEMORY, ERROR_INVALID_PARAMETER};

struct Work {
    const char* name;
    std::function<void()> run;
    std::function<void()> check; // checks what is allowed, whatever fails
};

class FsFailingCalls : public FsCalls {
protected:
    void failEach(const Work& work, const std::function<void()>& prepare)
    {
        SCOPED_TRACE(work.name);
        prepare();
        calls.failCall(1'000'000, 0);
        work.run();
        const long count = calls.stop();
        EXPECT_GT(count, 1);
        work.check();
        for (const DWORD error : errors) {
            for (long number = 1; number <= count; ++number) {
                SCOPED_TRACE("error " + std::to_string(error) + " at call " +
                             std::to_string(number));
                prepare();
                const int handles = support::countHandles();
                calls.failCall(number, error);
                work.run();
                calls.stop();
                EXPECT_EQ(support::countHandles(), handles);
                work.check();
            }
        }
    }

    void prepare()
    {
        writeBytes(dir / "tree\\file", "x");
        writeBytes(dir / "tree\\inner\\file", "x");
        writeBytes(dir / "document", "old");
        folder.removeTree(text("new"));
    }

    fs::WriteResult written = fs::WriteResult::failed;
    bool isDone = false;
    std::string content;
    fs::ReadResult read = fs::ReadResult::refused;
};

TEST_F(FsFailingCalls, OfMakingAFileLeaveItWholeOrNotAtAll)
{
    const auto check = [this] {
        if (written == fs::WriteResult::written) {
            EXPECT_EQ(readBytes(dir / "new"), "old");
        } else if (exists(dir / "new")) {
            // If removing fails as well, only an empty file may be left.
            EXPECT_EQ(readBytes(dir / "new"), "");
        }
    };
    failEach({"create", [this] { written = folder.create(text("new"), "old"); }, check},
             [this] { prepare(); });
    failEach({"copy", [this] { written = folder.copyInto(text("new"), dir / "document"); }, check},
             [this] { prepare(); });
}

TEST_F(FsFailingCalls, OfReadingGiveTheWholeFileOrAreReported)
{
    const auto check = [this] {
        if (read == fs::ReadResult::read) {
            EXPECT_EQ(content, "old");
        }
    };
    const auto run = [this] {
        fs::Patience patience(std::chrono::milliseconds(10));
        read = fs::readFile(dir / "document", content, {}, patience);
    };
    failEach({"by path", run, check}, [this] { prepare(); });
    failEach({"by name", [this] { read = folder.read(text("document"), content, 1000); }, check},
             [this] { prepare(); });
}

TEST_F(FsFailingCalls, OfAChangeAreReported)
{
    const auto check = [this] {
        if (isDone) {
            EXPECT_EQ(readBytes(dir / "document"), "new");
        }
    };
    failEach({"change", [this] { isDone = changeDocument(); }, check}, [this] { prepare(); });
}

TEST_F(FsFailingCalls, OfRemovingAreReported)
{
    const auto check = [this] {
        if (isDone) {
            EXPECT_FALSE(exists(dir / "tree"));
        }
        EXPECT_EQ(readBytes(dir / "document"), "old");
    };
    failEach({"remove a tree", [this] { isDone = folder.removeTree(text("tree")); }, check},
             [this] { prepare(); });
}

TEST_F(FsFailingCalls, OfMakingFoldersAreReported)
{
    const auto check = [this] {
        if (isDone) {
            EXPECT_TRUE(exists(dir / "new\\a\\b"));
        }
    };
    failEach({"make", [this] { isDone = fs::createDirectories(dir / "new\\a\\b"); }, check},
             [this] { prepare(); });
}

TEST_F(FsFailingCalls, OfAWalkLoseOnlyTheFilesConcerned)
{
    std::vector<std::string> names;
    const auto check = [&] {
        EXPECT_THAT((std::vector<std::string>{"document", "tree\\file", "tree\\inner\\file"}),
                    testing::IsSupersetOf(names));
    };
    failEach({"walk", [&] { names = walk(); }, check}, [this] { prepare(); });
}

} // namespace

#endif
