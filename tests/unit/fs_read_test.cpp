#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include <gtest/gtest.h>

#include "fs/fs.h"
#include "reading.h"
#include "support/temp_dir.h"

namespace {

using namespace Korvel::CANTORIS::PLX;
using fs::ReadResult;
using fs::Verdict;
using support::hostPath;
using support::makeLink;
using support::makePipe;
using support::TempDir;
using support::text;
using support::writeBytes;

constexpr std::size_t aMegabyte = 1'000'000;
constexpr std::uintmax_t aTebibyte = std::uintmax_t{1} << 40U;

// Bytes with all values, including all kinds of line ends.
std::string manyBytes(std::size_t size)
{
    std::string bytes(size, '\0');
    unsigned state = 1;
    for (char& byte : bytes) {
        state = state * 1664525 + 1013904223;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}

class FsReadFile : public testing::Test {
protected:
    void expectNotOpened(const String& path)
    {
        EXPECT_EQ(readWith({}, path, content), ReadResult::notOpened) << support::utf8(path);
    }

    // Makes a file that takes no space on the disk. False where that is impossible.
    bool makeSparse(const String& path, std::uintmax_t size)
    {
        writeBytes(path, "");
        std::error_code error;
        std::filesystem::resize_file(hostPath(path), size, error);
        return !error;
    }

    TempDir dir;
    std::string content = "something from before";
};

TEST_F(FsReadFile, ReadsTheFileWhole)
{
    for (const std::size_t size :
         {0u, 1u, 550u, 4096u, 16383u, 16384u, 16385u, 65536u, 278528u, 278529u, 5000001u}) {
        writeBytes(dir / "file", manyBytes(size));
        ASSERT_TRUE(readWhole(dir / "file", content)) << size;
        EXPECT_TRUE(content == manyBytes(size)) << size;
    }
}

TEST_F(FsReadFile, LeavesLineEndsAndNulsAlone)
{
    const std::string odd("a\r\nb\nc\r\x1A\0d\xEF\xBB\xBF", 14);
    writeBytes(dir / "file", odd);
    ASSERT_TRUE(readWhole(dir / "file", content));
    EXPECT_EQ(content, odd);
}

TEST_F(FsReadFile, UsesTheMemoryThatIsThere)
{
    writeBytes(dir / "file", manyBytes(1000));
    content.reserve(2000);
    const char* memory = content.data();
    ASSERT_TRUE(readWhole(dir / "file", content));
    EXPECT_EQ(content.data(), memory);
    EXPECT_EQ(content.capacity(), 2000u);
}

TEST_F(FsReadFile, AcceptsNamesInAllScripts)
{
    writeBytes(dir / "Île\\さくら\\🎵", "x");
    ASSERT_TRUE(readWhole(dir / "Île\\さくら\\🎵", content));
    EXPECT_EQ(content, "x");
}

TEST_F(FsReadFile, FailsWhereNoFileIs)
{
    writeBytes(dir / "folder\\file", "x");
    for (const String& path : {dir / "missing", dir / "folder", dir / "folder\\file\\inner",
                               dir / "folder\\*", dir / "folder\\file" + Char{}, String{}}) {
        expectNotOpened(path);
    }
}

TEST_F(FsReadFile, FollowsALink)
{
    writeBytes(dir / "folder\\file", "x");
    if (!makeLink(dir / "link", text("folder\\file")) ||
        !makeLink(dir / "to folder", text("folder"))) {
        GTEST_SKIP() << "this system makes no links";
    }
    ASSERT_TRUE(readWhole(dir / "link", content));
    EXPECT_EQ(content, "x");
    EXPECT_TRUE(readWhole(dir / "to folder\\file", content));
    expectNotOpened(dir / "to folder");
}

TEST_F(FsReadFile, DoesNotWaitAtAPipe)
{
    if (!makePipe(dir / "pipe")) {
        GTEST_SKIP() << "this system has no pipes in folders";
    }
    expectNotOpened(dir / "pipe");
}

#ifdef _WIN32
TEST_F(FsReadFile, DevicesAreNotRead)
{
    for (const String& device : {dir / "NUL", text("CON"), text("COM1"), text("\\\\.\\NUL")}) {
        expectNotOpened(device);
    }
}
#endif

// --- Limits -------------------------------------------------------------------------------------------

TEST_F(FsReadFile, ReadsAsManyBytesAsTheLimitAndNotOneMore)
{
    for (const std::size_t limit : {0u, 1u, 16383u, 16384u, 16385u, 300000u}) {
        writeBytes(dir / "file", manyBytes(limit));
        EXPECT_EQ(readWith({.limit = limit}, dir / "file", content), ReadResult::read) << limit;
        EXPECT_TRUE(content == manyBytes(limit)) << limit;
        writeBytes(dir / "file", manyBytes(limit + 1));
        EXPECT_EQ(readWith({.limit = limit}, dir / "file", content), ReadResult::refused) << limit;
    }
}

TEST_F(FsReadFile, AFileThatSaysItIsTooLargeCostsNoMemory)
{
    if (!makeSparse(dir / "large", aTebibyte)) {
        GTEST_SKIP() << "no such file can be made here";
    }
    EXPECT_EQ(readWith({.limit = aMegabyte}, dir / "large", content), ReadResult::refused);
    EXPECT_LT(content.capacity(), aMegabyte / 10);
    EXPECT_EQ(readWith({.limit = aTebibyte - 1}, dir / "large", content), ReadResult::refused);
    EXPECT_LT(content.capacity(), aMegabyte / 10);
}

// --- Judges -------------------------------------------------------------------------------------------

std::vector<std::size_t> sizesJudged;

// Judges by the first unit that is not a blank.
Verdict judgeByFirstLetter(std::string_view beginning)
{
    sizesJudged.push_back(beginning.size());
    const std::size_t place = beginning.find_first_not_of(' ');
    if (place == std::string_view::npos) {
        return Verdict::undecided;
    }
    return beginning[place] == 'g' ? Verdict::worthReading : Verdict::hopeless;
}

class FsReadJudged : public FsReadFile {
protected:
    FsReadJudged() { sizesJudged.clear(); }

    ReadResult readJudged(const std::string& bytes)
    {
        writeBytes(dir / "file", bytes);
        return readWith({.judge = judgeByFirstLetter}, dir / "file", content);
    }
};

TEST_F(FsReadJudged, AFileThatIsWorthItIsReadToItsEnd)
{
    for (const std::size_t size : {1u, 16384u, 300000u}) {
        EXPECT_EQ(readJudged(std::string(size, 'g')), ReadResult::read) << size;
        EXPECT_TRUE(content == std::string(size, 'g')) << size;
    }
    for (const std::size_t size : sizesJudged) {
        EXPECT_LE(size, 16384u) << "it was asked again";
    }
}

TEST_F(FsReadJudged, AHopelessFileIsGivenUpAtOnce)
{
    EXPECT_EQ(readJudged("bad"), ReadResult::refused);
    EXPECT_EQ(readJudged(std::string(aMegabyte, 'b')), ReadResult::refused);
    EXPECT_LT(content.capacity(), aMegabyte / 10);
}

TEST_F(FsReadJudged, AFileIsGivenUpWhereItTurnsOutToBeHopeless)
{
    EXPECT_EQ(readJudged(std::string(aMegabyte, ' ') + std::string(aMegabyte, 'b')),
              ReadResult::refused);
    EXPECT_LT(content.size(), aMegabyte * 3 / 2);
    EXPECT_GE(content.size(), aMegabyte);
}

TEST_F(FsReadJudged, AFileOfWhichNothingCanBeSaidIsReadToItsEnd)
{
    EXPECT_EQ(readJudged(""), ReadResult::read);
    EXPECT_EQ(readJudged(std::string(aMegabyte, ' ')), ReadResult::read);
    EXPECT_EQ(content.size(), aMegabyte);
    EXPECT_EQ(readJudged(std::string(aMegabyte, ' ') + "good"), ReadResult::read);
    EXPECT_TRUE(content.ends_with(" good"));
}

TEST_F(FsReadJudged, AHopelessFileOfAnySizeCostsNoMemory)
{
    if (!makeSparse(dir / "zeros", std::uintmax_t{600} << 20U)) {
        GTEST_SKIP() << "no such file can be made here";
    }
    EXPECT_EQ(readWith({.judge = judgeByFirstLetter}, dir / "zeros", content), ReadResult::refused);
    EXPECT_LT(content.capacity(), aMegabyte / 10);
}

} // namespace
