// What only POSIX systems can have in their folders.
#ifndef _WIN32

#    include <algorithm>
#    include <cstring>
#    include <string>
#    include <thread>
#    include <vector>

#    include <fcntl.h>
#    include <gmock/gmock.h>
#    include <gtest/gtest.h>
#    include <sys/socket.h>
#    include <sys/stat.h>
#    include <sys/un.h>
#    include <unistd.h>

#    include "fs/fs.h"
#    include "open_descriptors.h"
#    include "support/ordinary_user.h"
#    include "support/temp_dir.h"

namespace {

using namespace Korvel::CANTORIS::PLX;
using support::hostPath;
using support::makeFolder;
using support::makeLink;
using support::makePipe;
using support::TempDir;
using support::text;
using support::utf8;
using support::writeBytes;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class FsWalkPosix : public testing::Test {
protected:
    std::vector<std::string> files(const String& folder)
    {
        std::vector<std::string> names;
        EXPECT_TRUE(fs::forEachFile(folder, [&](const String& path, const fs::Neighbours&) {
            names.push_back(utf8(path.substr(folder.size() + 1)));
        }));
        return names;
    }

    std::string bytes(const std::string& name)
    {
        return hostPath(dir.path()).string() + "/" + name;
    }

    void fileNamedByBytes(const std::string& name)
    {
        const int file = ::open(bytes(name).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        ASSERT_GE(file, 0) << std::strerror(errno);
        ::close(file);
    }

    TempDir dir;
};

TEST_F(FsWalkPosix, PassesOverNamesThatAreNoValidText)
{
    for (const char* name : {
             "\xFF", "a\x80", "\xC3", "\xC3x", "\xE2\x82", "\xF0\x9F\x8E", "\xF8\x88\x80\x80\x80",
             "\xC0\xAF", "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", // overlong
             "\xED\xA0\x80", "\xED\xBF\xBF",                             // surrogates
             "\xF4\x90\x80\x80", "\xF7\xBF\xBF\xBF", // beyond the last code point
         }) {
        fileNamedByBytes(name);
    }
    fileNamedByBytes("valid");
    EXPECT_THAT(files(dir.path()), ElementsAre("valid"));
}

TEST_F(FsWalkPosix, TakesNamesAtTheEdgesOfEachLength)
{
    const std::vector<std::string> names = {
        "\x01",         "\x7F",         "\xC2\x80",     "\xDF\xBF",         "\xE0\xA0\x80",
        "\xED\x9F\xBF", "\xEE\x80\x80", "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"};
    for (const std::string& name : names) {
        fileNamedByBytes(name);
    }
    EXPECT_THAT(files(dir.path()), testing::UnorderedElementsAreArray(names));
    int readable = 0;
    EXPECT_TRUE(fs::forEachFile(dir.path(), [&](const String& path, const fs::Neighbours&) {
        readable += fs::isPlainFile(path);
    }));
    EXPECT_EQ(readable, 10);
}

TEST_F(FsWalkPosix, DoesNotEnterFoldersWhoseNamesAreNoValidText)
{
    ASSERT_EQ(::mkdir(bytes("bad\xFF").c_str(), 0700), 0);
    fileNamedByBytes("bad\xFF/file");
    EXPECT_THAT(files(dir.path()), IsEmpty());
}

TEST_F(FsWalkPosix, PassesOverNamesThatHoldASeparator)
{
    fileNamedByBytes("a\\b");
    ASSERT_EQ(::mkdir(bytes("c\\d").c_str(), 0700), 0);
    fileNamedByBytes("c\\d/e");
    fileNamedByBytes("f");
    EXPECT_THAT(files(dir.path()), ElementsAre("f"));
}

TEST_F(FsWalkPosix, PassesOverPipesSocketsAndDevices)
{
    ASSERT_TRUE(makePipe(dir / "pipe.kxclip"));
    ASSERT_TRUE(makeLink(dir / "to pipe.kxclip", text("pipe.kxclip")));
    ASSERT_TRUE(makeLink(dir / "device.kxclip", text("\\dev\\zero")));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(bytes("s.kxclip").size(), sizeof address.sun_path);
    std::strcpy(address.sun_path, bytes("s.kxclip").c_str());
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_THAT(files(dir.path()), IsEmpty());
    ::close(socket);
}

TEST_F(FsWalkPosix, PassesOverLinksThatLeadNowhere)
{
    ASSERT_TRUE(makeLink(dir / "dangling.kxclip", text("missing")));
    ASSERT_TRUE(makeLink(dir / "itself.kxclip", text("itself.kxclip")));
    ASSERT_TRUE(makeLink(dir / "ping", text("pong")));
    ASSERT_TRUE(makeLink(dir / "pong", text("ping")));
    EXPECT_THAT(files(dir.path()), IsEmpty());
}

TEST_F(FsWalkPosix, AFolderThatCannotBeListedCountsAsEmpty)
{
    const OrdinaryUser user(dir.path());
    writeBytes(dir / "closed\\a", "x");
    writeBytes(dir / "open\\b", "x");
    ASSERT_EQ(::chmod(bytes("closed").c_str(), 0), 0);
    EXPECT_THAT(files(dir.path()), ElementsAre("open\\b"));
    ::chmod(bytes("closed").c_str(), 0700);
}

TEST_F(FsWalkPosix, HoldsNoDescriptorWhileItVisits)
{
    writeBytes(dir / "1\\2\\3\\4\\5\\file", "x");
    const int before = countOpenDescriptors();
    int during = 0;
    EXPECT_TRUE(fs::forEachFile(dir.path(), [&](const String&, const fs::Neighbours&) {
        during = countOpenDescriptors();
    }));
    EXPECT_EQ(during, before);
    EXPECT_EQ(countOpenDescriptors(), before);
}

// Makes the folders step by step, because the full path is longer than the system accepts.
class DeepFolders {
public:
    DeepFolders(const String& top, int depth) : top_(top)
    {
        int folder = ::open(hostPath(top).c_str(), O_RDONLY | O_DIRECTORY);
        for (int i = 0; i < depth; ++i) {
            EXPECT_EQ(::mkdirat(folder, "deep", 0700), 0);
            const int inner = ::openat(folder, "deep", O_RDONLY | O_DIRECTORY);
            ::close(folder);
            folder = inner;
            const int file = ::openat(folder, "f", O_WRONLY | O_CREAT, 0600);
            ::close(file);
        }
        ::close(folder);
    }

    ~DeepFolders()
    {
        const fs::Folder parent = fs::Folder::open(String(fs::parentPath(top_)));
        EXPECT_TRUE(parent.removeTree(fs::fileName(top_)));
    }

private:
    String top_;
};

TEST_F(FsWalkPosix, FollowsADeepTreeAsFarAsPathsReach)
{
    makeFolder(dir / "top");
    const DeepFolders deep(dir / "top", 850);
    const std::vector<std::string> found = files(dir.path());
    std::ptrdiff_t deepest = 0;
    for (const std::string& path : found) {
        deepest = std::max(deepest, std::count(path.begin(), path.end(), '\\'));
    }
    const std::size_t reachable = (4095 - bytes("top").size()) / 5; // a level is "/deep"
    EXPECT_EQ(found.size(), reachable);
    EXPECT_EQ(deepest, static_cast<std::ptrdiff_t>(reachable) + 1);
}

TEST_F(FsWalkPosix, LongNamesOfManyBytesAreFound)
{
    std::string name; // 255 bytes, the longest possible name, in 85 units
    for (int i = 0; i < 85; ++i) {
        name += "桜";
    }
    fileNamedByBytes(name);
    EXPECT_THAT(files(dir.path()), ElementsAre(name));
}

} // namespace

#endif
