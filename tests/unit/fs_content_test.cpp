#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "fs/fs.h"
#include "support/temp_dir.h"

namespace {

using namespace Korvel::CANTORIS::PLX;
using fs::WriteResult;
using support::exists;
using support::makeFolder;
using support::makeLink;
using support::makePipe;
using support::readBytes;
using support::TempDir;
using support::text;
using support::writeBytes;

// Bytes of every value, line ends of every kind among them.
std::string bytes(std::size_t size)
{
    std::string bytes(size, '\0');
    unsigned state = 1;
    for (char& byte : bytes) {
        state = state * 1664525 + 1013904223;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}

class FsContent : public testing::Test {
protected:
    TempDir dir;
    std::string content = "something from before";
};

class FsReadFile : public FsContent {};
class FsWriteFile : public FsContent {};
class FsCopyFile : public FsContent {};

TEST_F(FsReadFile, ReadsTheFileWhole)
{
    for (const std::size_t size : {0u, 1u, 550u, 4096u, 65536u, 5000001u}) {
        writeBytes(dir / "file", bytes(size));
        ASSERT_TRUE(fs::readFile(dir / "file", content)) << size;
        EXPECT_TRUE(content == bytes(size)) << size;
    }
}

TEST_F(FsReadFile, LeavesLineEndsAndNulsAlone)
{
    const std::string odd("a\r\nb\nc\r\x1A\0d\xEF\xBB\xBF", 14);
    writeBytes(dir / "file", odd);
    ASSERT_TRUE(fs::readFile(dir / "file", content));
    EXPECT_EQ(content, odd);
}

TEST_F(FsReadFile, UsesTheMemoryThatIsThere)
{
    writeBytes(dir / "file", bytes(1000));
    content.reserve(2000);
    const char* memory = content.data();
    ASSERT_TRUE(fs::readFile(dir / "file", content));
    EXPECT_EQ(content.data(), memory);
    EXPECT_EQ(content.capacity(), 2000u);
}

TEST_F(FsReadFile, KnowsNamesOfAllScripts)
{
    writeBytes(dir / "Île\\さくら\\🎵", "x");
    ASSERT_TRUE(fs::readFile(dir / "Île\\さくら\\🎵", content));
    EXPECT_EQ(content, "x");
}

TEST_F(FsReadFile, FailsWhereNoFileIs)
{
    writeBytes(dir / "folder\\file", "x");
    EXPECT_FALSE(fs::readFile(dir / "missing", content));
    EXPECT_FALSE(fs::readFile(dir / "folder", content));
    EXPECT_FALSE(fs::readFile(dir / "folder\\file\\inner", content));
    EXPECT_FALSE(fs::readFile(dir / "folder\\*", content));
    EXPECT_FALSE(fs::readFile(dir / "folder\\file" + Char{}, content));
    EXPECT_FALSE(fs::readFile(String{}, content));
}

TEST_F(FsReadFile, FollowsALink)
{
    writeBytes(dir / "folder\\file", "x");
    if (!makeLink(dir / "link", text("folder\\file")) ||
        !makeLink(dir / "to folder", text("folder"))) {
        GTEST_SKIP() << "this system makes no links";
    }
    ASSERT_TRUE(fs::readFile(dir / "link", content));
    EXPECT_EQ(content, "x");
    EXPECT_TRUE(fs::readFile(dir / "to folder\\file", content));
    EXPECT_FALSE(fs::readFile(dir / "to folder", content));
}

TEST_F(FsReadFile, DoesNotWaitAtAPipe)
{
    if (!makePipe(dir / "pipe")) {
        GTEST_SKIP() << "this system has no pipes in folders";
    }
    EXPECT_FALSE(fs::readFile(dir / "pipe", content));
}

TEST_F(FsWriteFile, MakesAFile)
{
    for (const std::size_t size : {0u, 1u, 550u, 4096u, 65536u, 5000001u}) {
        const String path = dir / std::to_string(size);
        ASSERT_EQ(fs::writeFile(path, bytes(size)), WriteResult::written) << size;
        EXPECT_TRUE(readBytes(path) == bytes(size)) << size;
    }
}

TEST_F(FsWriteFile, ReplacesWhatWasThere)
{
    writeBytes(dir / "file", bytes(10000));
    EXPECT_EQ(fs::writeFile(dir / "file", "short\r\n\n"), WriteResult::written);
    EXPECT_EQ(readBytes(dir / "file"), "short\r\n\n");
    EXPECT_EQ(fs::writeFile(dir / "file", {}), WriteResult::written);
    EXPECT_EQ(readBytes(dir / "file"), "");
}

TEST_F(FsWriteFile, KnowsNamesOfAllScripts)
{
    makeFolder(dir / "さくら");
    EXPECT_EQ(fs::writeFile(dir / "さくら\\🎵é", "x"), WriteResult::written);
    EXPECT_EQ(readBytes(dir / "さくら\\🎵é"), "x");
}

TEST_F(FsWriteFile, OpensNothingWhereNoFileCanBe)
{
    writeBytes(dir / "folder\\file", "x");
    const std::string longName(300, 'n');
    for (const String& path :
         {dir / "folder", dir / "missing\\file", dir / "folder\\file\\inner", dir / longName,
          dir / "folder\\new" + Char{}, dir / "folder\\", String{}}) {
        EXPECT_EQ(fs::writeFile(path, "y"), WriteResult::notOpened) << support::utf8(path);
    }
    EXPECT_EQ(readBytes(dir / "folder\\file"), "x");
    EXPECT_FALSE(exists(dir / "folder\\new"));
}

TEST_F(FsWriteFile, DoesNotWaitAtAPipe)
{
    if (!makePipe(dir / "pipe")) {
        GTEST_SKIP() << "this system has no pipes in folders";
    }
    EXPECT_EQ(fs::writeFile(dir / "pipe", "y"), WriteResult::notOpened);
}

TEST_F(FsCopyFile, CopiesEveryByte)
{
    for (const std::size_t size : {0u, 1u, 65535u, 65536u, 65537u, 1000003u}) {
        const std::string name = std::to_string(size);
        writeBytes(dir / name, bytes(size));
        ASSERT_TRUE(fs::copyFile(dir / name, dir / ("copy of " + name))) << size;
        EXPECT_TRUE(readBytes(dir / ("copy of " + name)) == bytes(size)) << size;
        EXPECT_TRUE(readBytes(dir / name) == bytes(size)) << size;
    }
}

TEST_F(FsCopyFile, KnowsNamesOfAllScripts)
{
    writeBytes(dir / "さくら.wav", "x");
    EXPECT_TRUE(fs::copyFile(dir / "さくら.wav", dir / "🎵.wav"));
    EXPECT_EQ(readBytes(dir / "🎵.wav"), "x");
}

TEST_F(FsCopyFile, FailsWhereNoFileIs)
{
    makeFolder(dir / "folder");
    writeBytes(dir / "file", "x");
    EXPECT_FALSE(fs::copyFile(dir / "missing", dir / "copy"));
    EXPECT_FALSE(fs::copyFile(dir / "folder", dir / "copy"));
    EXPECT_FALSE(fs::copyFile(dir / "file" + Char{}, dir / "copy"));
    EXPECT_FALSE(fs::copyFile(String{}, dir / "copy"));
    EXPECT_FALSE(exists(dir / "copy"));
}

TEST_F(FsCopyFile, FailsWhereNoFileCanBe)
{
    writeBytes(dir / "file", "x");
    makeFolder(dir / "folder");
    EXPECT_FALSE(fs::copyFile(dir / "file", dir / "folder"));
    EXPECT_FALSE(fs::copyFile(dir / "file", dir / "folder\\"));
    EXPECT_FALSE(fs::copyFile(dir / "file", dir / "missing\\copy"));
    EXPECT_FALSE(fs::copyFile(dir / "file", dir / "copy" + Char{}));
    EXPECT_FALSE(fs::copyFile(dir / "file", String{}));
    EXPECT_TRUE(fs::remove(dir / "folder"));
    EXPECT_FALSE(exists(dir / "copy"));
}

TEST_F(FsCopyFile, ReplacesNothing)
{
    writeBytes(dir / "file", "x");
    writeBytes(dir / "other", "y");
    EXPECT_FALSE(fs::copyFile(dir / "file", dir / "other"));
    EXPECT_FALSE(fs::copyFile(dir / "file", dir / "file"));
    EXPECT_EQ(readBytes(dir / "file"), "x");
    EXPECT_EQ(readBytes(dir / "other"), "y");
}

TEST_F(FsCopyFile, DoesNotWaitAtAPipe)
{
    if (!makePipe(dir / "pipe")) {
        GTEST_SKIP() << "this system has no pipes in folders";
    }
    writeBytes(dir / "file", "x");
    EXPECT_FALSE(fs::copyFile(dir / "pipe", dir / "copy"));
    EXPECT_FALSE(fs::copyFile(dir / "file", dir / "pipe"));
}

#ifdef _WIN32
TEST_F(FsContent, DevicesAreNeitherReadNorWritten)
{
    writeBytes(dir / "file", "x");
    for (const String& device : {dir / "NUL", text("CON"), text("COM1"), text("\\\\.\\NUL")}) {
        SCOPED_TRACE(support::utf8(device));
        EXPECT_FALSE(fs::readFile(device, content));
        EXPECT_FALSE(fs::copyFile(device, dir / "copy"));
    }
}

TEST_F(FsContent, AReadOnlyFileKeepsWhatItHolds)
{
    writeBytes(dir / "file", "x");
    const auto path = support::hostPath(dir / "file");
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    if (std::fstream(path, std::ios::in | std::ios::out).is_open()) {
        GTEST_SKIP() << "the user of this system may write to every file";
    }
    EXPECT_EQ(fs::writeFile(dir / "file", "y"), WriteResult::notOpened);
    EXPECT_EQ(readBytes(dir / "file"), "x");
    EXPECT_TRUE(fs::readFile(dir / "file", content));
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
}

// Wherever the system or the file system ends, what can be made there can be read and removed again.
TEST_F(FsContent, LongPathsHoldTogetherOrFailTogether)
{
    String folder = dir.path();
    while (folder.size() < 1000 && fs::createDirectories(folder + text("\\sixteen letters."))) {
        folder += text("\\sixteen letters.");
    }
    EXPECT_GE(folder.size(), 220u);
    RecordProperty("longest folder", std::to_string(folder.size()));
    int found = 0;
    if (fs::writeFile(folder + text("\\file"), "x") == WriteResult::written) {
        fs::forEachFile(dir.path(), [&](const String& path, const fs::Neighbours&) {
            ++found;
            EXPECT_TRUE(fs::readFile(path, content));
        });
        EXPECT_EQ(found, 1);
    }
    EXPECT_TRUE(fs::removeTree(dir.path()));
}
#endif

} // namespace
