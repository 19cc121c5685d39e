#include <algorithm>
#include <chrono>
#include <filesystem>
#include <new>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fs/fs.h"
#include "reading.h"
#include "support/temp_dir.h"

namespace {

using namespace Korvel::CANTORIS::PLX;
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

using Paths = std::vector<std::string>;

// The visited paths, relative to the folder.
Paths filesIn(const String& folder)
{
    Paths paths;
    EXPECT_TRUE(fs::forEachFile(folder, [&](const String& path, const fs::Neighbours&) {
        EXPECT_EQ(path.substr(0, folder.size()), folder);
        EXPECT_EQ(path.at(folder.size()), fs::separator);
        paths.push_back(utf8(path.substr(folder.size() + 1)));
    }));
    return paths;
}

// The same, read with the standard library, which also lists in the order of the file system.
void appendInSystemOrder(const std::filesystem::path& folder, const std::string& prefix,
                         Paths& paths)
{
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const auto u8name = entry.path().filename().u8string();
        const std::string name = prefix + std::string(u8name.begin(), u8name.end());
        if (entry.is_directory()) {
            appendInSystemOrder(entry.path(), name + "\\", paths);
        } else {
            paths.push_back(name);
        }
    }
}

Paths filesInSystemOrder(const String& folder)
{
    Paths paths;
    appendInSystemOrder(support::hostPath(folder), "", paths);
    return paths;
}

class FsWalk : public testing::Test {
protected:
    void file(const char* path) { writeBytes(dir / path, "x"); }

    TempDir dir;
};

class FsWalkLinks : public FsWalk {
protected:
    void SetUp() override
    {
        file("probe\\file");
        if (!makeLink(dir / "probe link", text("probe"))) {
            GTEST_SKIP() << "this system makes no links";
        }
        std::filesystem::remove(support::hostPath(dir / "probe\\file"));
    }

    void link(const char* path, const char* target)
    {
        ASSERT_TRUE(makeLink(dir / path, text(target))) << path;
    }
};

TEST_F(FsWalk, FindsNothingWhereNothingIs)
{
    file("file");
    makeFolder(dir / "empty");
    EXPECT_THAT(filesIn(dir / "empty"), IsEmpty());
    EXPECT_THAT(filesIn(dir / "missing"), IsEmpty());
    EXPECT_THAT(filesIn(dir / "file"), IsEmpty());
    EXPECT_THAT(filesIn(String{}), IsEmpty());
    EXPECT_THAT(filesIn(dir.path() + Char{}), IsEmpty());
    EXPECT_THAT(filesIn(dir / "*"), IsEmpty());
}

TEST_F(FsWalk, FindsFilesAtEveryDepthAndNoFolders)
{
    file("a");
    file("one\\b");
    file("one\\two\\c");
    makeFolder(dir / "one\\two\\three.kxclip");
    EXPECT_THAT(filesIn(dir.path()), UnorderedElementsAre("a", "one\\b", "one\\two\\c"));
}

TEST_F(FsWalk, FindsHiddenNamesAndNamesOfDots)
{
    file(".kxclip");
    file(".hidden\\..x");
    file("...a\\b");
    EXPECT_THAT(filesIn(dir.path()), UnorderedElementsAre(".kxclip", ".hidden\\..x", "...a\\b"));
}

TEST_F(FsWalk, GoesInTheOrderOfTheFileSystemAndDescendsInPlace)
{
    for (int i = 0; i < 40; ++i) {
        const std::string number = std::to_string(i * 7919 % 40);
        file(("file" + number).c_str());
        file(("folder" + number + "\\z").c_str());
        file(("folder" + number + "\\inner\\y").c_str());
        file(("folder" + number + "\\a").c_str());
    }
    const Paths paths = filesIn(dir.path());
    EXPECT_EQ(paths.size(), 160u);
    EXPECT_EQ(paths, filesInSystemOrder(dir.path()));
}

TEST_F(FsWalk, FindsNamesInAllScripts)
{
    file("Frère Jacques\\fête.kxclip");
    file("さくら\\桜.kxclip");
    file("🎵\\🎶.kxclip");
    file("e\xCC\x81\\é");
    EXPECT_THAT(filesIn(dir.path()),
                UnorderedElementsAre("Frère Jacques\\fête.kxclip", "さくら\\桜.kxclip",
                                     "🎵\\🎶.kxclip", "e\xCC\x81\\é"));
}

TEST_F(FsWalk, KeepsTheFolderAsItWasPassed)
{
    file("one\\a");
    const String folder = dir / "one\\..\\one\\";
    EXPECT_THAT(filesIn(folder), ElementsAre("a"));
}

TEST_F(FsWalk, APathCanBeUsedToOpenTheFile)
{
    writeBytes(dir / "さくら\\🎵\\song", "la la");
    std::string content;
    EXPECT_TRUE(fs::forEachFile(dir.path(), [&](const String& path, const fs::Neighbours&) {
        EXPECT_TRUE(readWhole(path, content));
    }));
    EXPECT_EQ(content, "la la");
}

TEST_F(FsWalk, ManyFilesInOneFolderAreAllVisited)
{
    for (int i = 0; i < 600; ++i) {
        file(("name of a file number " + std::to_string(i)).c_str());
    }
    Paths paths = filesIn(dir.path());
    EXPECT_EQ(paths.size(), 600u);
    std::sort(paths.begin(), paths.end());
    EXPECT_EQ(std::unique(paths.begin(), paths.end()), paths.end());
}

TEST_F(FsWalk, FilesThatComeAndGoMeanwhileDoNoHarm)
{
    for (int i = 0; i < 50; ++i) {
        file(("folder" + std::to_string(i) + "\\file").c_str());
    }
    Paths paths;
    const auto visit = [&](const String& path, const fs::Neighbours&) {
        if (paths.empty()) {
            std::filesystem::remove_all(support::hostPath(dir / "folder25"));
            std::filesystem::remove_all(support::hostPath(fs::parentPath(path)));
            file("new\\file");
        }
        paths.push_back(utf8(path));
    };
    EXPECT_TRUE(fs::forEachFile(dir.path(), visit));
    EXPECT_GE(paths.size(), 49u); // folder25 may have been the first one
    EXPECT_LE(paths.size(), 50u);
}

TEST_F(FsWalk, KnowsThePlainFilesBesideAFile)
{
    file("a\\clip");
    file("a\\document");
    file("a\\folder\\clip");
    int visits = 0;
    const auto visit = [&](const String& path, const fs::Neighbours& neighbours) {
        const bool isOutside = path.find(String(text("folder"))) == String::npos;
        EXPECT_EQ(neighbours.kindOf(text("document")),
                  isOutside ? fs::Kind::plain : fs::Kind::unknown);
        EXPECT_EQ(neighbours.kindOf(text("folder")), fs::Kind::unknown);
        EXPECT_EQ(neighbours.kindOf(text("Document")), fs::Kind::unknown);
        ++visits;
    };
    EXPECT_TRUE(fs::forEachFile(dir / "a", visit));
    EXPECT_EQ(visits, 3);
}

TEST_F(FsWalk, AnExceptionOfTheVisitorPassesThrough)
{
    file("a\\b\\c");
    const auto refuse = [](const String&, const fs::Neighbours&) { throw 7; };
    EXPECT_THROW(static_cast<void>(fs::forEachFile(dir.path(), refuse)), int);
    EXPECT_EQ(std::filesystem::remove_all(support::hostPath(dir / "a")), 3u);
}

TEST_F(FsWalk, WhenMemoryRunsOutForAFileTheOthersAreVisited)
{
    for (const char* path : {"1\\a", "1\\b", "2\\c", "2\\3\\d"}) {
        file(path);
    }
    for (int failing = 0; failing < 4; ++failing) {
        int visits = 0;
        const auto visit = [&](const String&, const fs::Neighbours&) {
            if (visits++ == failing) {
                throw std::bad_alloc();
            }
        };
        EXPECT_FALSE(fs::forEachFile(dir.path(), visit));
        EXPECT_EQ(visits, 4);
    }
}

TEST_F(FsWalk, AWalkInsideAWalkDisturbsNothing)
{
    file("a\\1");
    file("b\\2");
    int inner = 0;
    const auto count = [&](const String&, const fs::Neighbours&) { ++inner; };
    const auto walk = [&](const String&, const fs::Neighbours&) {
        EXPECT_TRUE(fs::forEachFile(dir.path(), count));
    };
    EXPECT_TRUE(fs::forEachFile(dir.path(), walk));
    EXPECT_EQ(inner, 4);
}

TEST_F(FsWalkLinks, ALinkCountsAsWhatItLeadsTo)
{
    file("elsewhere\\sounds\\a");
    file("clips\\b");
    link("clips\\sounds", "..\\elsewhere\\sounds");
    link("clips\\c", "..\\elsewhere\\sounds\\a");
    EXPECT_THAT(filesIn(dir / "clips"), UnorderedElementsAre("b", "c", "sounds\\a"));
}

TEST_F(FsWalkLinks, TheFolderItselfMayBeALink)
{
    file("clips\\a");
    link("link", "clips");
    EXPECT_THAT(filesIn(dir / "link"), ElementsAre("a"));
}

TEST_F(FsWalkLinks, ALinkBackToAFolderAboveIsPassedOver)
{
    file("clips\\one\\two\\a");
    link("clips\\one\\two\\itself", ".");
    link("clips\\one\\two\\up", "..");
    link("clips\\one\\two\\top", "..\\..");
    EXPECT_THAT(filesIn(dir / "clips"), ElementsAre("one\\two\\a"));
}

TEST_F(FsWalkLinks, AFolderAboveIsKnownWhicheverPathLedToIt)
{
    file("clips\\one\\a");
    link("clips\\one\\back", "..\\..\\clips");
    link("detour", "clips");
    EXPECT_THAT(filesIn(dir / "detour"), ElementsAre("one\\a"));
    EXPECT_THAT(filesIn(dir / "clips\\.."), testing::Contains("clips\\one\\a"));
}

TEST_F(FsWalkLinks, ALinkOutOfTheTreeAndBackIsCutAtTheWayBack)
{
    file("clips\\a");
    file("other\\b");
    link("clips\\out", "..\\other");
    link("other\\in", "..\\clips");
    EXPECT_THAT(filesIn(dir / "clips"), UnorderedElementsAre("a", "out\\b"));
}

TEST_F(FsWalkLinks, AFolderBesideIsNotMistakenForOneAbove)
{
    for (const char* name : {"a", "b"}) {
        file(("clips\\" + std::string(name) + "\\file").c_str());
        link(("clips\\" + std::string(name) + "\\up").c_str(), "..");
    }
    link("clips\\a\\to b", "..\\b");
    link("clips\\b\\to a", "..\\a");
    EXPECT_THAT(filesIn(dir / "clips"),
                UnorderedElementsAre("a\\file", "b\\file", "a\\to b\\file", "b\\to a\\file"));
}

TEST_F(FsWalkLinks, AFolderIsVisitedAtItsOwnPlaceAndThroughOneLink)
{
    file("clips\\own\\a");
    link("clips\\link1", "own");
    link("clips\\link2", "own");
    const Paths paths = filesIn(dir / "clips");
    EXPECT_EQ(paths.size(), 2u);
    EXPECT_THAT(paths, testing::Contains("own\\a"));
}

// Every folder has two links to the next one: 2^24 paths to the last.
TEST_F(FsWalkLinks, LinksSideBySideDoNotMultiply)
{
    file("clips\\file");
    for (int i = 0; i < 24; ++i) {
        const std::string here = "f" + std::to_string(i);
        const std::string there = "..\\f" + std::to_string(i + 1);
        makeFolder(dir / ("f" + std::to_string(i + 1)));
        makeFolder(dir / here);
        link((here + "\\left").c_str(), there.c_str());
        link((here + "\\right").c_str(), there.c_str());
    }
    file("f24\\end");
    link("clips\\start", "..\\f0");
    EXPECT_EQ(filesIn(dir / "clips").size(), 2u);
}

// Through n folders that all lead to each other there are more than n! paths without a repetition.
TEST_F(FsWalkLinks, LinksFromEachFolderToEachOtherDoNotMultiply)
{
    for (int i = 0; i < 8; ++i) {
        file(("f" + std::to_string(i) + "\\file").c_str());
    }
    for (int i = 0; i < 8; ++i) {
        for (int j = 0; j < 8; ++j) {
            const std::string path = "f" + std::to_string(i) + "\\to" + std::to_string(j);
            link(path.c_str(), ("..\\f" + std::to_string(j)).c_str());
        }
    }
    const Paths paths = filesIn(dir.path());
    for (int i = 0; i < 8; ++i) {
        EXPECT_THAT(paths, testing::Contains("f" + std::to_string(i) + "\\file"));
    }
    EXPECT_LE(paths.size(), 17u); // each in its own place, through a link, and through the probe
}

} // namespace
