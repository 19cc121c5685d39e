// Names of files and folders in any script, and the exact texts of paths.
#include <string>
#include <vector>

#include "support/host.h"

using support::addClip;
using support::midiDocument;
using support::midiDocumentWithID;
using support::OwnedManager;
using support::Path;
using support::pathText;
using support::place;
using support::propertyDocument;
using support::Text;
using support::text;
using support::utf8;
using support::writeFile;
using testing::ElementsAre;

namespace {

class CatalogueNames : public HostTest, public testing::WithParamInterface<const char*> {};

TEST_P(CatalogueNames, OfFoldersMayBeInAnyScript)
{
    const Path folder = systemFolder() / place(GetParam()) / place(GetParam());
    const Path file = addClip(folder, propertyDocument("id"), midiDocument());

    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);

    ASSERT_THAT(support::systemClipIDs(manager()), ElementsAre("id"));
    EXPECT_EQ(utf8(KRT_PLX_Clip_path(systemClip(0))), utf8(pathText(file)));
    EXPECT_TRUE(KRT_PLX_Clip_readPart(systemClip(0)));
}

TEST_P(CatalogueNames, OfClipFilesMayBeInAnyScript)
{
    const Path file = userFolder() / place(std::string(GetParam()) + ".kxclip");
    writeFile(file, midiDocumentWithID("id"));

    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);

    ASSERT_THAT(support::userClipIDs(manager()), ElementsAre("id"));
    EXPECT_EQ(utf8(KRT_PLX_Clip_path(userClip(0))), utf8(pathText(file)));
    EXPECT_TRUE(KRT_PLX_Clip_readPart(userClip(0)));
}

TEST_P(CatalogueNames, OfMainDirectoriesMayBeInAnyScript)
{
    const Path system = scratch() / place(GetParam());
    const Path file = addClip(system, propertyDocument("id"), midiDocument());
    const OwnedManager other = support::createManager({system, system / "user", {}, {}});

    ASSERT_EQ(KRT_PLX_Manager_readAllClipFiles(other.get()), KRT_PLX_RESULT_OK);

    ASSERT_THAT(support::systemClipIDs(other.get()), ElementsAre("id"));
    EXPECT_EQ(utf8(KRT_PLX_Clip_path(KRT_PLX_Manager_systemClip(other.get(), 0))),
              utf8(pathText(file)));
}

TEST_P(CatalogueNames, OfWaveFilesMayBeInAnyScript)
{
    const std::string wave = std::string(GetParam()) + ".wav";
    addClip(systemFolder() / "a", propertyDocument("id", "audio"), support::audioDocument(wave));
    writeFile(systemFolder() / "a" / "audio" / place(wave), "RIFF");
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);

    ASSERT_TRUE(KRT_PLX_Clip_readPart(systemClip(0)));

    EXPECT_EQ(utf8(KRT_PLX_AudioPartBase_wavFilePath(KRT_PLX_Clip_audioPart(systemClip(0)))),
              utf8(pathText(systemFolder() / "a" / "audio" / place(wave))));
}

TEST_P(CatalogueNames, OfClipsMayBeInAnyScript)
{
    ASSERT_NE(readSystemClip(propertyDocument(GetParam()), midiDocument()), nullptr);

    EXPECT_EQ(utf8(KRT_PLX_Clip_id(systemClip(0))), GetParam());
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(systemClip(0))), std::string("Name of ") + GetParam());
}

INSTANTIATE_TEST_SUITE_P(Scripts, CatalogueNames,
                         testing::Values("Frère Jacques", "Fre\u0300re", "さくら さくら", "桜の歌",
                                         "песня", "أغنية", "노래", "𝄞𝄢", "👩‍🎤", "ﬃ",
                                         "a 100% #1 & [b] {c} ;'`~!@$^+=", ".hidden", "a.b.c"));

// --- The text of a path ---------------------------------------------------------------------------------

TEST_F(HostTest, APathStartsWithTheDirectoryAsItWasGiven)
{
    addClip(systemFolder() / "a" / "b", propertyDocument("id"), midiDocument());
    // The slash is a separator on every system that the library runs on.
    const Text slashes = text(systemFolder().generic_string());
    const OwnedManager other(KRT_PLX_CreateManager(support::uniqueAppID().c_str(), slashes.c_str(),
                                                   pathText(userFolder()).c_str(), nullptr, 0,
                                                   nullptr, 0, nullptr));
    ASSERT_EQ(KRT_PLX_Manager_readAllClipFiles(other.get()), KRT_PLX_RESULT_OK);

    ASSERT_EQ(support::systemClipCount(other.get()), 1U);
    KRT_PLX_ClipBase* clip = KRT_PLX_Manager_systemClip(other.get(), 0);
    EXPECT_EQ(utf8(KRT_PLX_Clip_path(clip)), utf8(slashes + text("\\a\\b\\clip.kxclip")));
    EXPECT_TRUE(KRT_PLX_Clip_readPart(clip));
}

TEST_F(HostTest, APathOfAFurtherDirectoryStartsWithThatDirectory)
{
    const Path file = addClip(scratch() / "further", propertyDocument("id"), midiDocument());
    const OwnedManager other = support::createManager(
        {systemFolder(), userFolder(), {scratch() / "further"}, {scratch() / "further"}});
    ASSERT_EQ(KRT_PLX_Manager_readAllClipFiles(other.get()), KRT_PLX_RESULT_OK);

    ASSERT_EQ(support::systemClipCount(other.get()), 1U);
    EXPECT_EQ(utf8(KRT_PLX_Clip_path(KRT_PLX_Manager_systemClip(other.get(), 0))),
              utf8(pathText(file)));
}

#ifndef _WIN32
// A name on this system may be bytes that are not valid text; the library has no name for such a file.
TEST_F(HostTest, NamesThatAreNoTextArePassedOver)
{
    addClip(systemFolder() / "\xFF\xFE", propertyDocument("in a folder"), midiDocument());
    writeFile(systemFolder() / "\xC3.kxclip", midiDocumentWithID("of a file"));
    addClip(systemFolder() / "good", propertyDocument("good"), midiDocument());

    EXPECT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::systemClipIDs(manager()), ElementsAre("good"));
}
#endif

} // namespace
