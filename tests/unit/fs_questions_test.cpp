#include <filesystem>
#include <string>
#include <system_error>

#include <gtest/gtest.h>

#include "fs/fs.h"
#include "support/temp_dir.h"

namespace {

using namespace Korvel::CANTORIS::PLX;
using support::makeLink;
using support::makePipe;
using support::TempDir;
using support::text;
using support::utf8;
using support::writeBytes;

class FsQuestions : public testing::Test {
protected:
    void expect(const String& path, bool exists, bool isDirectory, bool isPlainFile)
    {
        SCOPED_TRACE(support::utf8(path));
        EXPECT_EQ(fs::exists(path), exists);
        EXPECT_EQ(fs::isDirectory(path), isDirectory);
        EXPECT_EQ(fs::isPlainFile(path), isPlainFile);
    }

    void expectFile(const String& path) { expect(path, true, false, true); }
    void expectFolder(const String& path) { expect(path, true, true, false); }
    void expectNothing(const String& path) { expect(path, false, false, false); }

    TempDir dir;
};

TEST_F(FsQuestions, TellFilesFromFolders)
{
    writeBytes(dir / "folder\\file", "x");
    expectFolder(dir.path());
    expectFolder(dir / "folder");
    expectFile(dir / "folder\\file");
}

TEST_F(FsQuestions, AnEmptyFileIsAFile)
{
    writeBytes(dir / "empty", "");
    expectFile(dir / "empty");
}

TEST_F(FsQuestions, AFileMayBeLargerThanThirtyTwoBitsCount)
{
    writeBytes(dir / "large.wav", "");
    std::error_code error;
    std::filesystem::resize_file(support::hostPath(dir / "large.wav"), 5'000'000'000, error);
    if (error) {
        GTEST_SKIP() << "no such file can be made here: " << error.message();
    }
    expectFile(dir / "large.wav");
}

TEST_F(FsQuestions, AreAnsweredNoForWhatIsMissing)
{
    writeBytes(dir / "file", "x");
    expectNothing(dir / "missing");
    expectNothing(dir / "missing\\inner");
    expectNothing(dir / "file\\inner");
    expectNothing(String{});
}

TEST_F(FsQuestions, OnlyWhatIsNotThereIsMissing)
{
    writeBytes(dir / "file", "x");
    EXPECT_FALSE(fs::isMissing(dir / "file"));
    EXPECT_FALSE(fs::isMissing(dir.path()));
    EXPECT_TRUE(fs::isMissing(dir / "nothing"));
    EXPECT_TRUE(fs::isMissing(dir / "no\\folder"));
    EXPECT_TRUE(fs::isMissing(dir / "file\\in it"));
}

TEST_F(FsQuestions, AreAboutTheExactPath)
{
    writeBytes(dir / "folder\\file", "x");
    expectNothing(dir / "*");
    expectNothing(dir / "folder\\*");
    expectNothing(dir / "f?lder");
}

TEST_F(FsQuestions, AcceptNamesInAllScripts)
{
    for (const char* name : {"Frère Jacques", "さくら", "🎵🎶", "Ä\xCC\x88"}) {
        writeBytes(dir / (std::string(name) + "\\x"), "x");
        expectFolder(dir / name);
        expectFile(dir / (std::string(name) + "\\x"));
    }
}

TEST_F(FsQuestions, APathThatTheSystemCannotExpressLeadsNowhere)
{
    writeBytes(dir / "file", "x");
    const Char high = static_cast<Char>(0xD83C);
    const Char low = static_cast<Char>(0xDFB5);
    expectNothing(dir / "file" + Char{});
    expectNothing(dir / "file" + Char{} + fs::separator);
    expectNothing(dir.path() + fs::separator + high);
    expectNothing(dir.path() + fs::separator + low);
    expectNothing(dir.path() + fs::separator + high + static_cast<Char>('x'));
    expectNothing(dir.path() + fs::separator + low + high);
}

TEST_F(FsQuestions, APathOfAnyLengthIsAnswered)
{
    expectNothing(dir / std::string(300, 'n'));
    expectNothing(dir / std::string(40000, 'n'));
    expectNothing(dir / std::string(1000000, '\\') + text("x"));
}

TEST_F(FsQuestions, LinksAreFollowed)
{
    writeBytes(dir / "folder\\file", "x");
    if (!makeLink(dir / "to folder", text("folder")) ||
        !makeLink(dir / "to file", text("folder\\file"))) {
        GTEST_SKIP() << "this system makes no links";
    }
    expectFolder(dir / "to folder");
    expectFile(dir / "to folder\\file");
    expectFile(dir / "to file");
}

TEST_F(FsQuestions, APipeIsNeitherFileNorFolder)
{
    if (!makePipe(dir / "pipe")) {
        GTEST_SKIP() << "this system has no pipes in folders";
    }
    EXPECT_FALSE(fs::isDirectory(dir / "pipe"));
    EXPECT_FALSE(fs::isPlainFile(dir / "pipe"));
}

#ifdef _WIN32
TEST_F(FsQuestions, ADeviceIsNoPlainFile)
{
    for (const char* device : {"NUL", "CON", "COM1", "\\\\.\\NUL"}) {
        EXPECT_FALSE(fs::isPlainFile(text(device))) << device;
        EXPECT_FALSE(fs::isDirectory(text(device))) << device;
    }
    EXPECT_FALSE(fs::isPlainFile(dir / "NUL"));
}
#else
TEST_F(FsQuestions, ADanglingLinkLeadsNowhere)
{
    ASSERT_TRUE(makeLink(dir / "dangling", text("missing")));
    ASSERT_TRUE(makeLink(dir / "itself", text("itself")));
    expectNothing(dir / "dangling");
    expectNothing(dir / "itself");
}

TEST_F(FsQuestions, ADeviceIsNoPlainFile)
{
    expect(text("\\dev\\null"), true, false, false);
}

TEST_F(FsQuestions, TheLongestPathThatTheSystemTakesIsStillTaken)
{
    writeBytes(dir / "file", "x");
    String path = dir.path();
    while (utf8(path).size() + 5 < 4094) {
        path += text("\\.");
    }
    if (utf8(path).size() + 5 < 4095) {
        path += fs::separator;
    }
    EXPECT_EQ(utf8(path + text("\\file")).size(), 4095u);
    expectFile(path + text("\\file"));
    expectNothing(path + text("\\\\file"));
}

TEST_F(FsQuestions, BothSeparatorsLeadThroughFolders)
{
    writeBytes(dir / "a\\b\\file", "x");
    expectFile(dir / "a/b\\file");
    expectFolder(dir / "a/b");
}
#endif

} // namespace
