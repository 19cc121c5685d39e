// Links and special files below a clip directory. Where a system refuses to make the link that a
// test is about (Windows without the privilege), the test says so and is skipped.
#include <string>
#include <system_error>

#ifndef _WIN32
#    include <sys/stat.h>
#endif

#include "support/host.h"

using support::addClip;
using support::midiDocument;
using support::midiDocumentWithID;
using support::Path;
using support::pathText;
using support::propertyDocument;
using support::utf8;
using support::writeFile;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

class CatalogueLinks : public HostTest {
protected:
    void SetUp() override
    {
        std::error_code error;
        std::filesystem::create_directory_symlink(scratch(), scratch() / "probe", error);
        if (error) {
            GTEST_SKIP() << "no links here: " << error.message();
        }
    }

    void linkFolder(const Path& target, const Path& link)
    {
        std::filesystem::create_directory_symlink(target, link);
    }

    Path outside() { return scratch() / "outside"; }
};

TEST_F(CatalogueLinks, ToAFileCountAsTheFile)
{
    writeFile(outside() / "data", midiDocumentWithID("linked"));
    std::filesystem::create_symlink(outside() / "data", systemFolder() / "clip.kxclip");

    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);

    ASSERT_THAT(support::systemClipIDs(manager()), ElementsAre("linked"));
    EXPECT_EQ(utf8(KRT_PLX_Clip_path(systemClip(0))),
              utf8(pathText(systemFolder() / "clip.kxclip")));
    EXPECT_TRUE(KRT_PLX_Clip_readPart(systemClip(0)));
}

TEST_F(CatalogueLinks, ToAPropertyDocumentCountAsTheDocument)
{
    writeFile(outside() / "data", propertyDocument("linked"));
    addClip(systemFolder() / "a", std::nullopt, midiDocument());
    std::filesystem::create_symlink(outside() / "data", systemFolder() / "a" / "property.json");

    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::systemClipIDs(manager()), ElementsAre("linked"));
}

TEST_F(CatalogueLinks, ToAFolderAreEntered)
{
    addClip(outside() / "deep" / "deeper", propertyDocument("linked"), midiDocument());
    linkFolder(outside(), systemFolder() / "link");

    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);

    ASSERT_THAT(support::systemClipIDs(manager()), ElementsAre("linked"));
    EXPECT_EQ(utf8(KRT_PLX_Clip_path(systemClip(0))),
              utf8(pathText(systemFolder() / "link" / "deep" / "deeper" / "clip.kxclip")));
}

TEST_F(CatalogueLinks, MayBeAMainDirectory)
{
    addClip(outside(), propertyDocument("linked"), midiDocument());
    linkFolder(outside(), scratch() / "link");
    const support::OwnedManager other =
        support::createManager({scratch() / "link", userFolder(), {}, {}});

    ASSERT_EQ(KRT_PLX_Manager_readAllClipFiles(other.get()), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::systemClipIDs(other.get()), ElementsAre("linked"));
}

TEST_F(CatalogueLinks, ToTheSameFolderShowItsClipsOnce)
{
    addClip(outside(), propertyDocument("linked"), midiDocument());
    linkFolder(outside(), systemFolder() / "one");
    linkFolder(outside(), systemFolder() / "two");

    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::systemClipIDs(manager()), ElementsAre("linked"));
}

TEST_F(CatalogueLinks, BackToAFolderAboveArePassedOver)
{
    addClip(systemFolder() / "a" / "b", propertyDocument("clip"), midiDocument());
    linkFolder(systemFolder(), systemFolder() / "a" / "root");
    linkFolder(systemFolder() / "a", systemFolder() / "a" / "b" / "up");
    linkFolder(systemFolder() / "a" / "b", systemFolder() / "a" / "b" / "self");

    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::systemClipIDs(manager()), ElementsAre("clip"));
}

TEST_F(CatalogueLinks, BetweenTwoFoldersEnd)
{
    addClip(systemFolder() / "a", propertyDocument("a"), midiDocument());
    addClip(systemFolder() / "b", propertyDocument("b"), midiDocument());
    linkFolder(systemFolder() / "b", systemFolder() / "a" / "to b");
    linkFolder(systemFolder() / "a", systemFolder() / "b" / "to a");

    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::systemClipIDs(manager()), UnorderedElementsAre("a", "b"));
}

TEST_F(CatalogueLinks, ThatLeadNowhereArePassedOver)
{
    std::filesystem::create_symlink(outside() / "missing", systemFolder() / "clip.kxclip");
    std::filesystem::create_symlink(systemFolder() / "loop.kxclip", systemFolder() / "loop.kxclip");
    addClip(systemFolder() / "a", propertyDocument("good"), midiDocument());

    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::systemClipIDs(manager()), ElementsAre("good"));
}

#ifndef _WIN32
// Opening a pipe would wait for a writer that never comes.
TEST_F(CatalogueLinks, AndPipesAreNotOpened)
{
    ASSERT_EQ(mkfifo((systemFolder() / "pipe.kxclip").c_str(), 0600), 0);
    addClip(systemFolder() / "a", std::nullopt, midiDocumentWithID("data"));
    ASSERT_EQ(mkfifo((systemFolder() / "a" / "property.json").c_str(), 0600), 0);
    std::filesystem::create_symlink("/dev/zero", systemFolder() / "device.kxclip");

    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::systemClipIDs(manager()), ElementsAre("data"));
}

TEST_F(CatalogueLinks, APipeInPlaceOfTheClipFileIsNotOpened)
{
    const Path file = addClip(systemFolder() / "a", propertyDocument("a"), midiDocument());
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    std::filesystem::remove(file);
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);

    EXPECT_FALSE(KRT_PLX_Clip_readPart(systemClip(0)));
}
#endif

} // namespace
