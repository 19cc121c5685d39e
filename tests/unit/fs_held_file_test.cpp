#include <chrono>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "fs/fs.h"
#include "support/temp_dir.h"

namespace {

using namespace Korvel::CANTORIS::PLX;
using namespace std::chrono_literals;
using fs::HeldFile;
using fs::ReadResult;
using support::exists;
using support::hostPath;
using support::makeFolder;
using support::makeLink;
using support::readBytes;
using support::TempDir;
using support::text;
using support::writeBytes;
using Purpose = fs::Folder::Purpose;

class FsHeldFile : public testing::Test {
protected:
    FsHeldFile() { writeBytes(dir / "file", "old"); }

    HeldFile hold(const char* name = "file", Purpose purpose = Purpose::change,
                  std::chrono::milliseconds time = 0ms)
    {
        fs::Patience patience(time);
        return folder.hold(text(name), purpose, patience);
    }

    TempDir dir;
    fs::Folder folder = fs::Folder::open(dir.path());
    std::string content = "something from before";
};

TEST_F(FsHeldFile, IsReadWrittenAndCut)
{
    HeldFile file = hold();
    ASSERT_EQ(file.state(), HeldFile::State::held);
    EXPECT_EQ(file.read(content, 3), ReadResult::read);
    EXPECT_EQ(content, "old");
    EXPECT_EQ(file.read(content, 2), ReadResult::refused);
    EXPECT_TRUE(file.write(2, "\r\n and more"));
    EXPECT_EQ(readBytes(dir / "file"), "ol\r\n and more");
    EXPECT_TRUE(file.write(0, "OL"));
    EXPECT_EQ(file.read(content, 100), ReadResult::read);
    EXPECT_EQ(content, "OL\r\n and more");
    EXPECT_TRUE(file.cut(4));
    EXPECT_TRUE(file.sync());
    EXPECT_EQ(readBytes(dir / "file"), "OL\r\n");
    EXPECT_TRUE(file.cut(0));
    EXPECT_EQ(readBytes(dir / "file"), "");
}

TEST_F(FsHeldFile, TakesManyBytes)
{
    const std::string many(5'000'000, 'm');
    HeldFile file = hold();
    EXPECT_TRUE(file.write(3, many));
    EXPECT_EQ(file.read(content, 5'000'003), ReadResult::read);
    EXPECT_TRUE(content == "old" + many);
}

TEST_F(FsHeldFile, IsMissingWhereNothingIs)
{
    for (const Purpose purpose : {Purpose::change, Purpose::removal}) {
        EXPECT_EQ(hold("missing", purpose).state(), HeldFile::State::missing);
    }
    EXPECT_FALSE(exists(dir / "missing"));
}

TEST_F(FsHeldFile, IsRefusedWhereNoPlainFileIs)
{
    makeFolder(dir / "folder");
    for (const Purpose purpose : {Purpose::change, Purpose::removal}) {
        EXPECT_EQ(hold("folder", purpose).state(), HeldFile::State::refused);
    }
}

TEST_F(FsHeldFile, IsNotMadeWhereOneIs)
{
    EXPECT_NE(hold("file", Purpose::making).state(), HeldFile::State::held);
    EXPECT_EQ(readBytes(dir / "file"), "old");
}

TEST_F(FsHeldFile, IsNeverWhatALinkLeadsTo)
{
    if (!makeLink(dir / "link", text("file"))) {
        GTEST_SKIP() << "this system makes no links";
    }
    if (support::isEmulatedWindows()) {
        GTEST_SKIP() << "an emulated Windows does not tell links from files";
    }
    for (const Purpose purpose : {Purpose::change, Purpose::removal}) {
        EXPECT_EQ(hold("link", purpose).state(), HeldFile::State::refused);
    }
}

TEST_F(FsHeldFile, KeepsOthersOutUntilItGoes)
{
    for (const Purpose mine : {Purpose::change, Purpose::removal}) {
        for (const Purpose theirs : {Purpose::change, Purpose::removal}) {
            {
                const HeldFile file = hold("file", mine);
                ASSERT_EQ(file.state(), HeldFile::State::held);
                EXPECT_EQ(hold("file", theirs).state(), HeldFile::State::busy);
            }
            EXPECT_EQ(hold("file", theirs).state(), HeldFile::State::held);
        }
    }
}

TEST_F(FsHeldFile, IsStillHeldWhenItMoves)
{
    HeldFile file = hold();
    const HeldFile moved = std::move(file);
    EXPECT_EQ(moved.state(), HeldFile::State::held);
    EXPECT_EQ(hold().state(), HeldFile::State::busy);
}

TEST_F(FsHeldFile, OtherFilesAreFree)
{
    writeBytes(dir / "other", "x");
    const HeldFile file = hold();
    EXPECT_EQ(hold("other").state(), HeldFile::State::held);
}

TEST_F(FsHeldFile, IsWaitedForOnlySoLong)
{
    const HeldFile file = hold();
    const auto before = std::chrono::steady_clock::now();
    EXPECT_EQ(hold("file", Purpose::change, 60ms).state(), HeldFile::State::busy);
    EXPECT_GE(std::chrono::steady_clock::now() - before, 60ms);
}

TEST_F(FsHeldFile, CanBeRemoved)
{
    {
        const HeldFile file = hold("file", Purpose::removal);
        EXPECT_TRUE(folder.remove(text("file")));
    }
    EXPECT_TRUE(folder.isMissing(text("file")));
}

TEST_F(FsHeldFile, IsNowhereAsSoonAsItIsRemoved)
{
    if (support::isEmulatedWindows()) {
        GTEST_SKIP() << "an emulated Windows keeps it until it is closed";
    }
    const HeldFile file = hold("file", Purpose::removal);
    EXPECT_TRUE(folder.remove(text("file")));
    EXPECT_TRUE(folder.isMissing(text("file")));
    EXPECT_FALSE(file.isAt(dir / "file"));
}

TEST_F(FsHeldFile, KnowsWhetherAPathLeadsToIt)
{
    writeBytes(dir / "other", "old");
    makeFolder(dir / "folder");
    const HeldFile file = hold();
    EXPECT_TRUE(file.isAt(dir / "file"));
    EXPECT_TRUE(file.isAt(dir / "folder\\..\\file"));
    EXPECT_FALSE(file.isAt(dir / "other"));
    EXPECT_FALSE(file.isAt(dir / "missing"));
    EXPECT_FALSE(file.isAt(dir.path()));
    EXPECT_FALSE(file.isAt(String{}));
}

TEST_F(FsHeldFile, KnowsThatAnotherFileHasTakenItsPlace)
{
    const HeldFile file = hold("file", Purpose::removal);
    std::error_code error;
    std::filesystem::rename(hostPath(dir / "file"), hostPath(dir / "moved"), error);
    if (error) {
        GTEST_SKIP() << "this system moves no file that is open";
    }
    writeBytes(dir / "file", "old");
    EXPECT_FALSE(file.isAt(dir / "file"));
    EXPECT_TRUE(file.isAt(dir / "moved"));
}

TEST_F(FsHeldFile, IsAtTheEndOfLinksButNotOfALinkToIt)
{
    writeBytes(dir / "folder\\inner", "x");
    if (!makeLink(dir / "folder link", text("folder")) ||
        !makeLink(dir / "folder\\link", text("inner"))) {
        GTEST_SKIP() << "this system makes no links";
    }
    if (support::isEmulatedWindows()) {
        GTEST_SKIP() << "an emulated Windows does not tell links from files";
    }
    fs::Patience patience;
    const HeldFile file =
        fs::Folder::open(dir / "folder").hold(text("inner"), Purpose::change, patience);
    EXPECT_TRUE(file.isAt(dir / "folder link\\inner"));
    EXPECT_FALSE(file.isAt(dir / "folder\\link"));
}

} // namespace
