#include <gtest/gtest.h>

#include "fs/fs.h"
#include "support/ordinary_user.h"
#include "support/temp_dir.h"

#ifndef _WIN32
#    include <sys/stat.h>
#    include <unistd.h>
#endif

namespace {

using namespace Korvel::CANTORIS::PLX;
using support::exists;
using support::hostPath;
using support::makeFolder;
using support::makeLink;
using support::TempDir;
using support::text;
using support::writeBytes;

class FsCreateDirectories : public testing::Test {
protected:
    TempDir dir;
};

TEST_F(FsCreateDirectories, MakesAFolder)
{
    EXPECT_TRUE(fs::createDirectories(dir / "new"));
    EXPECT_TRUE(fs::isDirectory(dir / "new"));
}

TEST_F(FsCreateDirectories, MakesAllMissingAncestors)
{
    EXPECT_TRUE(fs::createDirectories(dir / "a\\b\\c\\d"));
    EXPECT_TRUE(fs::isDirectory(dir / "a\\b\\c\\d"));
    EXPECT_TRUE(fs::createDirectories(dir / "a\\b\\e\\f"));
    EXPECT_TRUE(fs::isDirectory(dir / "a\\b\\e\\f"));
}

TEST_F(FsCreateDirectories, MakesNothingElse)
{
    EXPECT_TRUE(fs::createDirectories(dir / "new\\one~two\\three"));
    EXPECT_TRUE(fs::isDirectory(dir / "new\\one~two\\three"));
    EXPECT_FALSE(fs::exists(dir / "new\\one"));
}

TEST_F(FsCreateDirectories, AnExistingFolderIsSuccess)
{
    writeBytes(dir / "folder\\file", "x");
    EXPECT_TRUE(fs::createDirectories(dir / "folder"));
    EXPECT_TRUE(fs::createDirectories(dir.path()));
    EXPECT_TRUE(exists(dir / "folder\\file"));
}

TEST_F(FsCreateDirectories, TheRootExists)
{
#ifdef _WIN32
    EXPECT_TRUE(fs::createDirectories(text("C:\\")));
#else
    EXPECT_TRUE(fs::createDirectories(text("\\")));
#endif
}

TEST_F(FsCreateDirectories, TakesSlashesAndBackslashes)
{
    EXPECT_TRUE(fs::createDirectories(dir.path() + text("/a/b\\c/d")));
    EXPECT_TRUE(fs::isDirectory(dir / "a\\b\\c\\d"));
}

TEST_F(FsCreateDirectories, TakesDoubledAndTrailingSeparators)
{
    EXPECT_TRUE(fs::createDirectories(dir / "a\\\\b\\"));
    EXPECT_TRUE(fs::isDirectory(dir / "a\\b"));
    EXPECT_TRUE(fs::createDirectories(dir / "c\\\\\\d\\\\"));
    EXPECT_TRUE(fs::isDirectory(dir / "c\\d"));
    EXPECT_TRUE(fs::createDirectories(dir / "a\\b\\"));
}

TEST_F(FsCreateDirectories, ResolvesDotAndDoubleDot)
{
    makeFolder(dir / "here");
    EXPECT_TRUE(fs::createDirectories(dir / "here\\..\\there\\.\\inner"));
    EXPECT_TRUE(fs::isDirectory(dir / "there\\inner"));
}

TEST_F(FsCreateDirectories, AcceptsNamesInAllScripts)
{
    EXPECT_TRUE(fs::createDirectories(dir / "Île\\さくら\\🎵"));
    EXPECT_TRUE(exists(dir / "Île\\さくら\\🎵"));
}

TEST_F(FsCreateDirectories, FailsAtAFile)
{
    writeBytes(dir / "file", "x");
    EXPECT_FALSE(fs::createDirectories(dir / "file"));
    EXPECT_FALSE(fs::createDirectories(dir / "file\\a"));
    EXPECT_FALSE(fs::createDirectories(dir / "file\\a\\b\\c"));
    EXPECT_EQ(support::readBytes(dir / "file"), "x");
}

TEST_F(FsCreateDirectories, FailsForAPathThatTheSystemCannotExpress)
{
    EXPECT_FALSE(fs::createDirectories(String{}));
    EXPECT_FALSE(fs::createDirectories(dir / "a" + Char{} + text("\\b")));
    EXPECT_FALSE(exists(dir / "a"));
    EXPECT_FALSE(fs::createDirectories(dir / std::string(300, 'n')));
    EXPECT_FALSE(fs::createDirectories(dir / (std::string(300, 'n') + "\\inner")));
    EXPECT_FALSE(fs::createDirectories(dir / std::string(100000, 'n')));
}

TEST_F(FsCreateDirectories, GoesThroughLinks)
{
    makeFolder(dir / "folder");
    if (!makeLink(dir / "link", text("folder"))) {
        GTEST_SKIP() << "this system makes no links";
    }
    EXPECT_TRUE(fs::createDirectories(dir / "link"));
    EXPECT_TRUE(fs::createDirectories(dir / "link\\a\\b"));
    EXPECT_TRUE(fs::isDirectory(dir / "folder\\a\\b"));
}

#ifndef _WIN32
TEST_F(FsCreateDirectories, FailsAtALinkThatLeadsNowhere)
{
    ASSERT_TRUE(makeLink(dir / "dangling", text("missing")));
    EXPECT_FALSE(fs::createDirectories(dir / "dangling"));
    EXPECT_FALSE(fs::createDirectories(dir / "dangling\\a\\b"));
    EXPECT_FALSE(exists(dir / "missing"));
}

TEST_F(FsCreateDirectories, FailsInAReadOnlyFolder)
{
    const OrdinaryUser user(dir.path());
    makeFolder(dir / "closed");
    ASSERT_EQ(::chmod(hostPath(dir / "closed").c_str(), 0500), 0);
    EXPECT_FALSE(fs::createDirectories(dir / "closed\\a\\b"));
    EXPECT_TRUE(fs::createDirectories(dir / "closed"));
}
#endif

class FsRemoveEmptyFolder : public testing::Test {
protected:
    TempDir dir;
};

TEST_F(FsRemoveEmptyFolder, RemovesAnEmptyFolderAndNothingElse)
{
    makeFolder(dir / "empty");
    writeBytes(dir / "full\\file", "x");
    EXPECT_TRUE(fs::removeEmptyFolder(dir / "empty"));
    EXPECT_FALSE(exists(dir / "empty"));
    EXPECT_FALSE(fs::removeEmptyFolder(dir / "full"));
    EXPECT_FALSE(fs::removeEmptyFolder(dir / "full\\file"));
    EXPECT_FALSE(fs::removeEmptyFolder(dir / "missing"));
    EXPECT_FALSE(fs::removeEmptyFolder(String{}));
    EXPECT_FALSE(fs::removeEmptyFolder(dir / "full" + Char{}));
    EXPECT_TRUE(exists(dir / "full\\file"));
}

TEST_F(FsRemoveEmptyFolder, ALinkToAnEmptyFolderStays)
{
    makeFolder(dir / "empty");
    if (!makeLink(dir / "link", text("empty"))) {
        GTEST_SKIP() << "this system makes no links";
    }
    EXPECT_FALSE(fs::removeEmptyFolder(dir / "link"));
    EXPECT_FALSE(fs::removeEmptyFolder(dir / "link\\"));
    EXPECT_TRUE(exists(dir / "link"));
    EXPECT_TRUE(exists(dir / "empty"));
}

} // namespace
