#include <cerrno>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "fs/fs.h"
#include "support/ordinary_user.h"
#include "support/temp_dir.h"

#ifdef _WIN32
#    include "support/keeper_win32.h"
#else
#    include <fcntl.h>
#    include <sys/resource.h>
#    include <sys/stat.h>
#    include <unistd.h>
#endif

namespace {

using namespace Korvel::CANTORIS::PLX;
using support::exists;
using support::hostPath;
using support::makeFolder;
using support::makeLink;
using support::makePipe;
using support::readBytes;
using support::TempDir;
using support::text;
using support::writeBytes;

class FsRemoveTree : public testing::Test {
protected:
    bool removeTree(const char* name) { return folder.removeTree(text(name)); }

    TempDir dir;
    fs::Folder folder = fs::Folder::open(dir.path());
};

TEST_F(FsRemoveTree, RemovesAFile)
{
    writeBytes(dir / "file", "x");
    EXPECT_TRUE(removeTree("file"));
    EXPECT_FALSE(exists(dir / "file"));
}

TEST_F(FsRemoveTree, RemovesAFolderWithEverythingInIt)
{
    writeBytes(dir / "tree\\a", "x");
    writeBytes(dir / "tree\\.hidden", "x");
    writeBytes(dir / "tree\\さくら\\🎵\\b", "x");
    makeFolder(dir / "tree\\one\\two\\three");
    for (int i = 0; i < 150; ++i) {
        writeBytes(dir / ("tree\\many\\" + std::to_string(i)), "x");
    }
    writeBytes(dir / "tree2\\kept", "x");
    EXPECT_TRUE(removeTree("tree"));
    EXPECT_FALSE(exists(dir / "tree"));
    EXPECT_TRUE(exists(dir / "tree2\\kept"));
}

TEST_F(FsRemoveTree, RemovesAnEmptyFolder)
{
    makeFolder(dir / "empty");
    EXPECT_TRUE(removeTree("empty"));
    EXPECT_FALSE(exists(dir / "empty"));
}

TEST_F(FsRemoveTree, IsDoneWhereNothingIs)
{
    writeBytes(dir / "file", "x");
    EXPECT_TRUE(removeTree("missing"));
    EXPECT_TRUE(exists(dir / "file"));
}

TEST_F(FsRemoveTree, RefusesWhatIsNoName)
{
    writeBytes(dir / "tree\\file", "x");
    EXPECT_FALSE(folder.removeTree(String{}));
    EXPECT_FALSE(folder.removeTree(text("tree") + Char{}));
    for (const char* name : {".", "..", "tree\\", "tree\\\\", "tree/", "tree\\file", "tree/file"}) {
        EXPECT_FALSE(removeTree(name)) << name;
    }
    EXPECT_TRUE(exists(dir / "tree\\file"));
}

TEST_F(FsRemoveTree, TakesNoWildcards)
{
    writeBytes(dir / "tree\\file", "x");
    removeTree("*");
    removeTree("tr??");
    EXPECT_TRUE(exists(dir / "tree\\file"));
}

#ifdef _WIN32
TEST_F(FsRemoveTree, GoesOnPastWhatItCannotRemove)
{
    for (const char* name : {"tree\\a", "tree\\b\\kept", "tree\\b\\c", "tree\\d\\e", "tree\\f"}) {
        writeBytes(dir / name, "x");
    }
    {
        const support::Keeper keeper(dir / "tree\\b\\kept");
        EXPECT_FALSE(removeTree("tree"));
    }
    EXPECT_TRUE(exists(dir / "tree\\b\\kept"));
    for (const char* name : {"tree\\a", "tree\\b\\c", "tree\\d", "tree\\f"}) {
        EXPECT_FALSE(exists(dir / name)) << name;
    }
    EXPECT_TRUE(removeTree("tree"));
}

TEST_F(FsRemoveTree, DoesNotDescendIntoALink)
{
    writeBytes(dir / "outside\\precious", "x");
    makeFolder(dir / "tree");
    if (!makeLink(dir / "tree\\link", text("..\\outside"))) {
        GTEST_SKIP() << "this system makes no links";
    }
    removeTree("tree");
    const fs::Folder tree = folder.inner(text("tree"));
    if (tree.isOpen()) {
        tree.removeTree(text("link"));
    }
    EXPECT_TRUE(exists(dir / "outside\\precious"));
}
#else
class FsRemoveTreeLinks : public FsRemoveTree {
protected:
    void SetUp() override
    {
        writeBytes(dir / "outside\\precious", "x");
        makeFolder(dir / "outside\\empty");
        makeFolder(dir / "tree\\inner");
    }

    void TearDown() override
    {
        EXPECT_FALSE(
            std::filesystem::exists(std::filesystem::symlink_status(hostPath(dir / "tree"))));
        EXPECT_EQ(readBytes(dir / "outside\\precious"), "x");
        EXPECT_TRUE(exists(dir / "outside\\empty"));
    }
};

TEST_F(FsRemoveTreeLinks, RemovesLinksAndNotWhatTheyLeadTo)
{
    ASSERT_TRUE(makeLink(dir / "tree\\folder", text("..\\outside")));
    ASSERT_TRUE(makeLink(dir / "tree\\inner\\empty", text("..\\..\\outside\\empty")));
    ASSERT_TRUE(makeLink(dir / "tree\\inner\\file", text("..\\..\\outside\\precious")));
    ASSERT_TRUE(makeLink(dir / "tree\\inner\\whole path", dir / "outside"));
    ASSERT_TRUE(makeLink(dir / "tree\\dangling", text("missing")));
    ASSERT_TRUE(makeLink(dir / "tree\\inner\\up", text("..")));
    EXPECT_TRUE(removeTree("tree"));
}

TEST_F(FsRemoveTreeLinks, RemovesALinkAndNotItsFolder)
{
    ASSERT_TRUE(removeTree("tree"));
    ASSERT_TRUE(makeLink(dir / "tree", text("outside")));
    EXPECT_TRUE(removeTree("tree"));
}

TEST_F(FsRemoveTreeLinks, RemovesPipesAndNamesThatAreNoText)
{
    ASSERT_TRUE(makePipe(dir / "tree\\inner\\pipe"));
    const std::string bad = hostPath(dir / "tree").string() + "/bad\xFF";
    ASSERT_EQ(::mkdir(bad.c_str(), 0700), 0);
    ASSERT_EQ(::mkdir((bad + "/a\\b").c_str(), 0700), 0);
    EXPECT_TRUE(removeTree("tree"));
}

// There are fewer descriptors than levels, and the path is far longer than the system accepts.
TEST_F(FsRemoveTree, RemovesAVeryDeepTree)
{
    makeFolder(dir / "tree");
    int folder = ::open(hostPath(dir / "tree").c_str(), O_RDONLY | O_DIRECTORY);
    for (int i = 0; i < 850; ++i) {
        ASSERT_EQ(::mkdirat(folder, "deep", 0700), 0);
        const int inner = ::openat(folder, "deep", O_RDONLY | O_DIRECTORY);
        ::close(folder);
        folder = inner;
    }
    ::close(folder);

    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    rlimit few = before;
    few.rlim_cur = 40;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
    EXPECT_TRUE(removeTree("tree"));
    ::setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_FALSE(exists(dir / "tree"));
}

TEST_F(FsRemoveTree, GoesOnPastWhatItCannotRemove)
{
    const OrdinaryUser user(dir.path());
    for (const char* name : {"tree\\a", "tree\\b\\kept", "tree\\d\\e", "tree\\f"}) {
        writeBytes(dir / name, "x");
    }
    ASSERT_EQ(::chmod(hostPath(dir / "tree\\b").c_str(), 0500), 0);
    EXPECT_FALSE(removeTree("tree"));
    EXPECT_TRUE(exists(dir / "tree\\b\\kept"));
    for (const char* name : {"tree\\a", "tree\\d", "tree\\f"}) {
        EXPECT_FALSE(exists(dir / name)) << name;
    }
    ::chmod(hostPath(dir / "tree\\b").c_str(), 0700);
    EXPECT_TRUE(removeTree("tree"));
}

TEST_F(FsRemoveTree, AnEmptyFolderNeedNotBeReadableToBeRemoved)
{
    const OrdinaryUser user(dir.path());
    makeFolder(dir / "tree\\closed");
    ASSERT_EQ(::chmod(hostPath(dir / "tree\\closed").c_str(), 0), 0);
    EXPECT_TRUE(removeTree("tree"));
    EXPECT_FALSE(exists(dir / "tree"));
}
#endif

} // namespace
