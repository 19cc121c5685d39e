#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fs/fs.h"
#include "support/temp_dir.h"

namespace {

using namespace Korvel::CANTORIS::PLX;
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

constexpr std::uint64_t manyBytesEach = 1'000'000'000;

class FsFolder : public testing::Test {
protected:
    ReadResult read(const char* name, std::uint64_t limit = manyBytesEach)
    {
        return folder.read(text(name), content, limit);
    }

    TempDir dir;
    fs::Folder folder = fs::Folder::open(dir.path());
    std::string content = "something from before";
};

// Texts that are not a single name on this system.
std::vector<String> noNames()
{
    std::vector<String> names = {String{}, text("a") + Char{}, text("folder") + Char{} + text("x")};
#ifndef _WIN32
    names.emplace_back(1, static_cast<Char>(0xD83C)); // Windows file systems allow any units
#endif
    for (const char* name : {".", "..", "folder\\file", "folder/file", "..\\outside", "folder\\",
                             "folder/", "\\", "/", ".\\file"}) {
        names.push_back(text(name));
    }
    return names;
}

// --- Opening --------------------------------------------------------------------------------------------

TEST_F(FsFolder, IsOpenWhereOneIs)
{
    makeFolder(dir / "さくら\\🎵");
    EXPECT_TRUE(folder.isOpen());
    EXPECT_TRUE(fs::Folder::open(dir / "さくら\\🎵").isOpen());
    EXPECT_TRUE(fs::Folder::open(dir / "さくら\\🎵\\").isOpen());
    EXPECT_TRUE(fs::Folder::open(dir / "さくら\\.\\🎵\\..").isOpen());
}

TEST_F(FsFolder, IsClosedWhereNoneIs)
{
    writeBytes(dir / "file", "x");
    EXPECT_FALSE(fs::Folder().isOpen());
    for (const String& path : {dir / "missing", dir / "file", dir / "file\\inner", dir / "*",
                               dir.path() + Char{}, String{}}) {
        EXPECT_FALSE(fs::Folder::open(path).isOpen()) << utf8(path);
    }
}

TEST_F(FsFolder, MovesWithWhatItHolds)
{
    fs::Folder other = std::move(folder);
    EXPECT_TRUE(other.isOpen());
    EXPECT_FALSE(folder.isOpen()); // NOLINT(bugprone-use-after-move): this is what is tested
    folder = std::move(other);
    EXPECT_EQ(folder.create(text("file"), "x"), WriteResult::written);
    folder = {};
    EXPECT_FALSE(folder.isOpen());
    EXPECT_EQ(readBytes(dir / "file"), "x");
}

TEST_F(FsFolder, LinksOnTheWayToItAreFollowed)
{
    makeFolder(dir / "folder\\inner");
    if (!makeLink(dir / "link", text("folder"))) {
        GTEST_SKIP() << "this system makes no links";
    }
    EXPECT_EQ(fs::Folder::open(dir / "link").create(text("a"), "x"), WriteResult::written);
    EXPECT_EQ(fs::Folder::open(dir / "link\\inner").create(text("b"), "y"), WriteResult::written);
    EXPECT_EQ(readBytes(dir / "folder\\a"), "x");
    EXPECT_EQ(readBytes(dir / "folder\\inner\\b"), "y");
}

TEST_F(FsFolder, TakesNothingButNames)
{
    writeBytes(dir / "folder\\file", "x");
    makeFolder(dir / "folder\\folder");
    writeBytes(dir / "wave", "y");
    const fs::Folder inner = folder.inner(text("folder"));
    ASSERT_TRUE(inner.isOpen());
    for (const String& name : noNames()) {
        SCOPED_TRACE(utf8(name));
        fs::Patience patience;
        EXPECT_FALSE(inner.inner(name).isOpen());
        EXPECT_FALSE(inner.make(name).isOpen());
        EXPECT_EQ(inner.create(name, "z"), WriteResult::notOpened);
        EXPECT_EQ(inner.copyInto(name, dir / "wave"), WriteResult::notOpened);
        EXPECT_EQ(inner.read(name, content, manyBytesEach), ReadResult::notOpened);
        EXPECT_NE(inner.hold(name, fs::Folder::Purpose::removal, patience).state(),
                  fs::HeldFile::State::held);
        EXPECT_FALSE(inner.remove(name));
        EXPECT_FALSE(inner.removeTree(name));
    }
    EXPECT_EQ(readBytes(dir / "folder\\file"), "x");
    EXPECT_TRUE(exists(dir / "folder\\folder"));
    EXPECT_EQ(std::distance(std::filesystem::recursive_directory_iterator(hostPath(dir.path())),
                            std::filesystem::recursive_directory_iterator()),
              4);
}

TEST_F(FsFolder, NoNameMayBeLongerThanTheHostTakes)
{
    for (const std::size_t length : {300u, 5000u, 100000u}) {
        const String name = text(std::string(length, 'n'));
        EXPECT_FALSE(folder.make(name).isOpen());
        EXPECT_EQ(folder.create(name, "x"), WriteResult::notOpened);
        EXPECT_FALSE(folder.remove(name));
    }
    EXPECT_TRUE(std::filesystem::is_empty(hostPath(dir.path())));
}

// --- Folders in it --------------------------------------------------------------------------------------

TEST_F(FsFolder, OpensAFolderInIt)
{
    makeFolder(dir / "さくら");
    EXPECT_TRUE(folder.inner(text("さくら")).isOpen());
    EXPECT_EQ(folder.inner(text("さくら")).create(text("file"), "x"), WriteResult::written);
    EXPECT_EQ(readBytes(dir / "さくら\\file"), "x");
}

TEST_F(FsFolder, OpensNoFolderWhereNoneIs)
{
    writeBytes(dir / "file", "x");
    EXPECT_FALSE(folder.inner(text("file")).isOpen());
    EXPECT_FALSE(folder.inner(text("missing")).isOpen());
    EXPECT_FALSE(exists(dir / "missing"));
}

TEST_F(FsFolder, MakesAFolderOrTakesTheOneThatIsThere)
{
    for (int round = 0; round < 2; ++round) {
        const fs::Folder made = folder.make(text("さくら"));
        ASSERT_TRUE(made.isOpen());
        EXPECT_EQ(made.create(text("file" + std::to_string(round)), "x"), WriteResult::written);
    }
    EXPECT_TRUE(exists(dir / "さくら\\file0"));
    EXPECT_TRUE(exists(dir / "さくら\\file1"));
}

TEST_F(FsFolder, MakesNoFolderInPlaceOfAFile)
{
    writeBytes(dir / "file", "x");
    EXPECT_FALSE(folder.make(text("file")).isOpen());
    EXPECT_EQ(readBytes(dir / "file"), "x");
}

// --- Files ----------------------------------------------------------------------------------------------

TEST_F(FsFolder, MakesAFileWithEveryByte)
{
    for (const std::size_t size : {0u, 1u, 550u, 4096u, 65536u, 5000001u}) {
        const std::string name = "さくら" + std::to_string(size);
        const std::string bytes = std::string(size, '\r') + (size > 0 ? "\n" : "");
        ASSERT_EQ(folder.create(text(name), bytes), WriteResult::written) << size;
        EXPECT_TRUE(readBytes(dir / name) == bytes) << size;
        ASSERT_EQ(read(name.c_str()), ReadResult::read);
        EXPECT_TRUE(content == bytes);
    }
}

TEST_F(FsFolder, MakesNoFileWhereSomethingIs)
{
    writeBytes(dir / "file", "x");
    makeFolder(dir / "folder");
    writeBytes(dir / "wave", "z");
    for (const char* name : {"file", "folder"}) {
        EXPECT_EQ(folder.create(text(name), "y"), WriteResult::notOpened);
        EXPECT_EQ(folder.copyInto(text(name), dir / "wave"), WriteResult::notOpened);
    }
    EXPECT_EQ(folder.copyInto(text("wave"), dir / "wave"), WriteResult::notOpened);
    EXPECT_EQ(readBytes(dir / "file"), "x");
    EXPECT_EQ(readBytes(dir / "wave"), "z");
    EXPECT_TRUE(fs::isDirectory(dir / "folder"));
}

TEST_F(FsFolder, CopiesEveryByte)
{
    for (const std::size_t size : {0u, 1u, 65535u, 65536u, 65537u, 1000003u}) {
        const std::string name = std::to_string(size);
        const std::string bytes(size, '\n');
        writeBytes(dir / ("elsewhere\\from" + name), bytes);
        ASSERT_EQ(folder.copyInto(text("🎵" + name), dir / ("elsewhere\\from" + name)),
                  WriteResult::written)
            << size;
        EXPECT_TRUE(readBytes(dir / ("🎵" + name)) == bytes) << size;
        EXPECT_TRUE(readBytes(dir / ("elsewhere\\from" + name)) == bytes) << size;
    }
}

TEST_F(FsFolder, CopiesNothingWhereNoFileIs)
{
    makeFolder(dir / "folder");
    for (const String& from :
         {dir / "missing", dir / "folder", dir / "folder\\inner", dir / "*", String{}}) {
        EXPECT_EQ(folder.copyInto(text("copy"), from), WriteResult::notOpened) << utf8(from);
    }
    EXPECT_FALSE(exists(dir / "copy"));
}

TEST_F(FsFolder, CopiesWhatALinkLeadsTo)
{
    writeBytes(dir / "file", "x");
    if (!makeLink(dir / "link", text("file"))) {
        GTEST_SKIP() << "this system makes no links";
    }
    EXPECT_EQ(folder.copyInto(text("copy"), dir / "link"), WriteResult::written);
    std::filesystem::remove(hostPath(dir / "file"));
    EXPECT_EQ(readBytes(dir / "copy"), "x");
}

TEST_F(FsFolder, DoesNotWaitAtAPipe)
{
    if (!makePipe(dir / "pipe")) {
        GTEST_SKIP() << "this system has no pipes in folders";
    }
    writeBytes(dir / "file", "x");
    fs::Patience patience;
    EXPECT_EQ(folder.create(text("pipe"), "x"), WriteResult::notOpened);
    EXPECT_EQ(folder.copyInto(text("copy"), dir / "pipe"), WriteResult::notOpened);
    EXPECT_EQ(folder.copyInto(text("pipe"), dir / "file"), WriteResult::notOpened);
    EXPECT_EQ(read("pipe"), ReadResult::notOpened);
    EXPECT_EQ(folder.hold(text("pipe"), fs::Folder::Purpose::change, patience).state(),
              fs::HeldFile::State::refused);
    EXPECT_FALSE(exists(dir / "copy"));
}

TEST_F(FsFolder, ReadsAFileAsFarAsTheLimit)
{
    writeBytes(dir / "file", "0123456789");
    EXPECT_EQ(read("file", 10), ReadResult::read);
    EXPECT_EQ(content, "0123456789");
    EXPECT_EQ(read("file", 9), ReadResult::refused);
}

TEST_F(FsFolder, ReadsNothingWhereNoFileIs)
{
    makeFolder(dir / "folder");
    EXPECT_EQ(read("folder"), ReadResult::notOpened);
    EXPECT_EQ(read("missing"), ReadResult::notOpened);
}

TEST_F(FsFolder, WaitsForTheDisk)
{
    EXPECT_TRUE(folder.sync());
    EXPECT_TRUE(folder.make(text("inner")).sync());
}

// --- Removing -------------------------------------------------------------------------------------------

TEST_F(FsFolder, RemovesAFile)
{
    writeBytes(dir / "さくら", "x");
    EXPECT_TRUE(folder.remove(text("さくら")));
    EXPECT_FALSE(exists(dir / "さくら"));
}

TEST_F(FsFolder, RemovesAnEmptyFolder)
{
    makeFolder(dir / "folder");
    EXPECT_TRUE(folder.remove(text("folder")));
    EXPECT_FALSE(exists(dir / "folder"));
}

TEST_F(FsFolder, LeavesAFolderWithSomethingInIt)
{
    writeBytes(dir / "folder\\file", "x");
    EXPECT_FALSE(folder.remove(text("folder")));
    EXPECT_TRUE(exists(dir / "folder\\file"));
}

TEST_F(FsFolder, RemovesNothingWhereNothingIs)
{
    writeBytes(dir / "file", "x");
    EXPECT_FALSE(folder.remove(text("missing")));
    EXPECT_FALSE(folder.remove(text("*")));
    EXPECT_TRUE(exists(dir / "file"));
}

TEST_F(FsFolder, KnowsWhatIsMissing)
{
    writeBytes(dir / "file", "x");
    makeFolder(dir / "folder");
    EXPECT_TRUE(folder.isMissing(text("missing")));
    EXPECT_FALSE(folder.isMissing(text("file")));
    EXPECT_FALSE(folder.isMissing(text("folder")));
}

TEST_F(FsFolder, ALinkThatLeadsNowhereIsNotMissing)
{
    writeBytes(dir / "target", "x");
    if (!makeLink(dir / "link", text("target"))) {
        GTEST_SKIP() << "this system makes no links";
    }
    if (support::isEmulatedWindows()) {
        GTEST_SKIP() << "an emulated Windows does not show such a link";
    }
    std::filesystem::remove(hostPath(dir / "target"));
    EXPECT_FALSE(folder.isMissing(text("link")));
}

// Changing a file and removing it need different rights.
TEST_F(FsFolder, AReadOnlyFileIsRemoved)
{
    writeBytes(dir / "file", "x");
    writeBytes(dir / "folder\\file", "x");
    for (const char* name : {"file", "folder\\file"}) {
        std::filesystem::permissions(hostPath(dir / name), std::filesystem::perms::owner_read);
    }
    EXPECT_TRUE(folder.remove(text("file")));
    EXPECT_FALSE(exists(dir / "file"));
    EXPECT_TRUE(folder.removeTree(text("folder")));
    EXPECT_FALSE(exists(dir / "folder"));
}

#ifdef _WIN32
TEST_F(FsFolder, DevicesAreNeitherReadNorWritten)
{
    writeBytes(dir / "file", "x");
    for (const String& device : {dir / "NUL", text("CON"), text("COM1"), text("\\\\.\\NUL")}) {
        EXPECT_EQ(folder.copyInto(text("copy"), device), WriteResult::notOpened) << utf8(device);
    }
    EXPECT_FALSE(exists(dir / "copy"));
}

// Wherever the limit of the system or the file system is, what can be made can also be read and
// removed.
TEST_F(FsFolder, WhatIsMadeAtALongPathCanBeReadAndRemoved)
{
    String path = dir.path();
    while (path.size() < 1000 && fs::createDirectories(path + text("\\sixteen letters."))) {
        path += text("\\sixteen letters.");
    }
    EXPECT_GE(path.size(), 220u);
    RecordProperty("longest folder", std::to_string(path.size()));
    const fs::Folder innermost = fs::Folder::open(path);
    if (innermost.isOpen() && innermost.create(text("file"), "x") == WriteResult::written) {
        int found = 0;
        fs::Patience patience;
        EXPECT_TRUE(fs::forEachFile(dir.path(), [&](const String& file, const fs::Neighbours&) {
            ++found;
            EXPECT_EQ(fs::readFile(file, content, {}, patience), ReadResult::read);
        }));
        EXPECT_EQ(found, 1);
    }
    EXPECT_TRUE(folder.removeTree(text("sixteen letters.")));
}
#endif

} // namespace
