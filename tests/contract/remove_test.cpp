// Removing user clips: what goes from the disk and from the list, and what stays.
#include "support/editing.h"
#include "support/other_holder.h"
#include "support/saving.h"

using support::Path;
using support::pathText;
using support::text;
using support::treeOf;
using support::utf8;
using support::writeFile;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class RemoveTest : public HostTest {
protected:
    [[nodiscard]] Path folder() const { return userFolder() / "one"; }

    // Reads everything and finds the clip of that ID.
    KRT_PLX_ClipBase* readClip(std::string_view id = "ID")
    {
        EXPECT_EQ(read(), KRT_PLX_RESULT_OK);
        KRT_PLX_ClipBase* const clip = support::findUserClip(manager(), id);
        EXPECT_NE(clip, nullptr);
        return clip;
    }

    KRT_PLX_ClipBase* addMidi(const Path& to, std::string_view id = "ID")
    {
        support::addClip(to, support::propertyDocument(id), support::midiDocument());
        return readClip(id);
    }

    // A clip whose wave file stands at that place, as seen from its folder "audio", with its part loaded.
    KRT_PLX_ClipBase* addAudio(std::string_view place)
    {
        std::filesystem::create_directories(folder() / "audio");
        writeFile(folder() / "audio" / place, "RIFF");
        const std::string name = support::replaced(std::string(place), "/", "\\\\");
        support::addClip(folder(), support::propertyDocument("ID", "audio"),
                         support::audioDocument(name));
        KRT_PLX_ClipBase* const clip = readClip();
        EXPECT_TRUE(KRT_PLX_Clip_readPart(clip));
        EXPECT_NE(KRT_PLX_Clip_audioPart(clip), nullptr);
        return clip;
    }

    // Removes the clip and checks that it is in no list any more.
    void expectRemoved(KRT_PLX_ClipBase* clip)
    {
        const std::uint64_t count = support::userClipCount(manager());
        EXPECT_TRUE(KRT_PLX_UserClip_remove(clip));
        EXPECT_FALSE(KRT_PLX_Manager_hasUserClip(manager(), clip));
        EXPECT_EQ(support::userClipCount(manager()), count - 1);
    }
};

// --- The folder of the clip -----------------------------------------------------------------------------

TEST_F(RemoveTest, DeletesBothFilesAndTheFolder)
{
    expectRemoved(addMidi(folder()));
    EXPECT_THAT(treeOf(userFolder()), IsEmpty());
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_EQ(support::userClipCount(manager()), 0u);
}

TEST_F(RemoveTest, DeletesAClipWithAnOpenEditorAndALoadedPart)
{
    KRT_PLX_ClipBase* const clip = addMidi(folder());
    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));
    ASSERT_NE(KRT_PLX_UserClip_createPropertyEditor(clip), nullptr);
    expectRemoved(clip);
    EXPECT_THAT(treeOf(userFolder()), IsEmpty());
}

TEST_F(RemoveTest, DeletesAClipWithoutPropertyDocument)
{
    support::addClip(folder(), std::nullopt, support::midiDocumentWithID("ID"));
    expectRemoved(readClip());
    EXPECT_THAT(treeOf(userFolder()), IsEmpty());
}

TEST_F(RemoveTest, KeepsTheOrderOfTheOthers)
{
    for (const char* const id : {"A", "B", "C", "D"}) {
        support::addClip(userFolder() / id, support::propertyDocument(id), support::midiDocument());
    }
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    std::vector<std::string> ids = support::userClipIDs(manager());
    KRT_PLX_ClipBase* const last = userClip(3);
    expectRemoved(userClip(1));
    ids.erase(ids.begin() + 1);
    EXPECT_EQ(support::userClipIDs(manager()), ids);
    EXPECT_EQ(userClip(2), last);
    EXPECT_EQ(utf8(KRT_PLX_Clip_id(last)), ids.back());
}

TEST_F(RemoveTest, LeavesOtherFilesAndTheirFolder)
{
    writeFile(folder() / "notes.txt", "mine");
    expectRemoved(addMidi(folder()));
    EXPECT_THAT(treeOf(userFolder()),
                ElementsAre(testing::Pair("one/", ""), testing::Pair("one/notes.txt", "mine")));
}

TEST_F(RemoveTest, LeavesEmptyFoldersInTheFolder)
{
    std::filesystem::create_directories(folder() / "inner");
    expectRemoved(addMidi(folder()));
    EXPECT_THAT(treeOf(userFolder()),
                ElementsAre(testing::Pair("one/", ""), testing::Pair("one/inner/", "")));
}

TEST_F(RemoveTest, LeavesTheFoldersAbove)
{
    expectRemoved(addMidi(userFolder() / "a" / "b"));
    EXPECT_THAT(treeOf(userFolder()), ElementsAre(testing::Pair("a/", "")));
}

TEST_F(RemoveTest, LeavesTheOtherClipOfTheFolder)
{
    support::addClip(folder(), support::propertyDocument("ID"), support::midiDocument());
    writeFile(folder() / "other.kxclip", support::midiDocumentWithID("OTHER"));
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    ASSERT_THAT(support::userClipIDs(manager()), ElementsAre("ID")); // both share the document
    expectRemoved(userClip(0));
    EXPECT_EQ(treeOf(userFolder()).size(), 2u);
    EXPECT_FALSE(std::filesystem::exists(folder() / "property.json"));
}

// The folder of such a clip is the user directory.
TEST_F(RemoveTest, LeavesAUserDirectoryWithOtherClips)
{
    support::addClip(folder(), support::propertyDocument("OTHER"), support::midiDocument());
    expectRemoved(addMidi(userFolder()));
    EXPECT_EQ(treeOf(userFolder()).size(), 3u);
    EXPECT_EQ(read(), KRT_PLX_RESULT_OK);
}

TEST_F(RemoveTest, DeletesAUserDirectoryThatHeldNothingElse)
{
    expectRemoved(addMidi(userFolder()));
    EXPECT_FALSE(std::filesystem::exists(userFolder()));
    EXPECT_EQ(read(), KRT_PLX_RESULT_DIRECTORY_MISSING);
    KRT_PLX_ClipBase* const built = createMutableClip();
    support::createMidiPart(built);
    EXPECT_EQ(support::save(built).code, KRT_PLX_RESULT_USER_DIRECTORY_MISSING);
}

TEST_F(RemoveTest, DeletesAClipOfAFurtherUserDirectory)
{
    const Path further = scratch() / "further";
    support::addClip(further / "one", support::propertyDocument("ID"), support::midiDocument());
    const auto other = support::createManager({systemFolder(), userFolder(), {}, {further}});
    ASSERT_EQ(KRT_PLX_Manager_readAllClipFiles(other.get()), KRT_PLX_RESULT_OK);
    EXPECT_TRUE(KRT_PLX_UserClip_remove(KRT_PLX_Manager_userClip(other.get(), 0)));
    EXPECT_THAT(treeOf(further), IsEmpty());
}

TEST_F(RemoveTest, DeletesASavedClip)
{
    KRT_PLX_ClipBase* const built = createMutableClip();
    support::createMidiPart(built);
    expectRemoved(support::save(built).clip);
    EXPECT_THAT(treeOf(userFolder()), IsEmpty());
    EXPECT_EQ(support::save(built).code, KRT_PLX_RESULT_OK);
}

// --- Files that are gone or cannot be deleted -----------------------------------------------------------

TEST_F(RemoveTest, TakesFilesThatAreGoneForDeleted)
{
    KRT_PLX_ClipBase* clip = addMidi(folder());
    std::filesystem::remove(folder() / "clip.kxclip");
    expectRemoved(clip);
    EXPECT_THAT(treeOf(userFolder()), IsEmpty());

    clip = addMidi(folder());
    std::filesystem::remove(folder() / "property.json");
    expectRemoved(clip);
    EXPECT_THAT(treeOf(userFolder()), IsEmpty());

    clip = addMidi(folder());
    std::filesystem::remove_all(folder());
    expectRemoved(clip);
    EXPECT_THAT(treeOf(userFolder()), IsEmpty());
}

TEST_F(RemoveTest, FailsWhenThePropertyDocumentCannotBeDeleted)
{
    KRT_PLX_ClipBase* const clip = addMidi(folder());
    std::filesystem::remove(folder() / "property.json");
    writeFile(folder() / "property.json" / "inner", "");
    EXPECT_FALSE(KRT_PLX_UserClip_remove(clip));
    EXPECT_FALSE(std::filesystem::exists(folder() / "clip.kxclip"));
    EXPECT_TRUE(std::filesystem::exists(folder() / "property.json" / "inner"));
    EXPECT_TRUE(KRT_PLX_Manager_hasUserClip(manager(), clip));
    EXPECT_EQ(utf8(KRT_PLX_Clip_id(clip)), "ID");

    EXPECT_FALSE(KRT_PLX_UserClip_remove(clip));
    std::filesystem::remove(folder() / "property.json" / "inner");
    expectRemoved(clip);
    EXPECT_THAT(treeOf(userFolder()), IsEmpty());
}

TEST_F(RemoveTest, FailsBeforeAnythingElseWhenTheClipFileCannotBeDeleted)
{
    KRT_PLX_ClipBase* const clip = addAudio("take.wav");
    std::filesystem::remove(folder() / "clip.kxclip");
    writeFile(folder() / "clip.kxclip" / "inner", "");
    const support::Tree before = treeOf(userFolder());
    EXPECT_FALSE(KRT_PLX_UserClip_remove(clip));
    EXPECT_EQ(treeOf(userFolder()), before);
    EXPECT_TRUE(KRT_PLX_Manager_hasUserClip(manager(), clip));
    EXPECT_NE(KRT_PLX_Clip_audioPart(clip), nullptr);
}

#ifndef _WIN32
TEST_F(RemoveTest, LeavesAClipThatAnotherProgramIsEditing)
{
    KRT_PLX_ClipBase* const clip = addMidi(folder());
    {
        const OtherHolder other(pathText(folder() / "property.json"));
        EXPECT_FALSE(KRT_PLX_UserClip_remove(clip));
        EXPECT_TRUE(std::filesystem::exists(folder() / "clip.kxclip"));
        EXPECT_TRUE(std::filesystem::exists(folder() / "property.json"));
        EXPECT_TRUE(KRT_PLX_Manager_hasUserClip(manager(), clip));
    }
    expectRemoved(clip);
}
#endif

TEST_F(RemoveTest, OfOtherHandlesFails)
{
    KRT_PLX_ClipBase* const system =
        readSystemClip(support::propertyDocument("SYSTEM"), support::midiDocument());
    KRT_PLX_ClipBase* const built = createMutableClip();
    const support::Tree before = treeOf(scratch());
    EXPECT_FALSE(KRT_PLX_UserClip_remove(system));
    EXPECT_FALSE(KRT_PLX_UserClip_remove(built));
    EXPECT_FALSE(KRT_PLX_UserClip_remove(nullptr));
    EXPECT_EQ(treeOf(scratch()), before);
    EXPECT_EQ(support::systemClipCount(manager()), 1u);
    EXPECT_TRUE(KRT_PLX_Manager_hasMutableClip(manager(), built));
}

// --- The wave file --------------------------------------------------------------------------------------

TEST_F(RemoveTest, DeletesTheAudioFolderOfALoadedPart)
{
    expectRemoved(addAudio("take.wav"));
    EXPECT_THAT(treeOf(userFolder()), IsEmpty());
}

TEST_F(RemoveTest, DeletesAllThatIsInTheAudioFolder)
{
    KRT_PLX_ClipBase* const clip = addAudio("take.wav");
    writeFile(folder() / "audio" / "other.wav", "RIFF");
    writeFile(folder() / "audio" / "deep" / "deeper" / "peaks", "");
    std::filesystem::create_directories(folder() / "audio" / "empty");
    expectRemoved(clip);
    EXPECT_THAT(treeOf(userFolder()), IsEmpty());
}

TEST_F(RemoveTest, LeavesTheAudioFolderOfAPartThatWasNotRead)
{
    support::addAudioClip(folder(), "ID");
    expectRemoved(readClip());
    EXPECT_THAT(treeOf(userFolder()),
                ElementsAre(testing::Pair("one/", ""), testing::Pair("one/audio/", ""),
                            testing::Pair("one/audio/take.wav", "RIFF")));
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_EQ(support::userClipCount(manager()), 0u);
}

TEST_F(RemoveTest, LeavesTheAudioFolderBesideAMidiPart)
{
    writeFile(folder() / "audio" / "take.wav", "RIFF");
    KRT_PLX_ClipBase* const clip = addMidi(folder());
    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));
    expectRemoved(clip);
    EXPECT_EQ(support::readFile(folder() / "audio" / "take.wav"), "RIFF");
}

TEST_F(RemoveTest, DeletesTheAudioFolderEvenWhenTheWaveFileIsGone)
{
    KRT_PLX_ClipBase* clip = addAudio("take.wav");
    std::filesystem::remove(folder() / "audio" / "take.wav");
    expectRemoved(clip);
    EXPECT_THAT(treeOf(userFolder()), IsEmpty());

    clip = addAudio("take.wav");
    std::filesystem::remove_all(folder() / "audio");
    expectRemoved(clip);
    EXPECT_THAT(treeOf(userFolder()), IsEmpty());
}

TEST_F(RemoveTest, DeletesAFileInPlaceOfTheAudioFolder)
{
    KRT_PLX_ClipBase* const clip = addAudio("take.wav");
    std::filesystem::remove_all(folder() / "audio");
    writeFile(folder() / "audio", "no folder");
    expectRemoved(clip);
    EXPECT_THAT(treeOf(userFolder()), IsEmpty());
}

TEST_F(RemoveTest, DeletesTheInnermostFolderOfTheWaveFileAlone)
{
    KRT_PLX_ClipBase* const clip = addAudio("inner/take.wav");
    writeFile(folder() / "audio" / "beside", "");
    expectRemoved(clip);
    EXPECT_THAT(treeOf(userFolder()),
                ElementsAre(testing::Pair("one/", ""), testing::Pair("one/audio/", ""),
                            testing::Pair("one/audio/beside", "")));
}

// --- Wave files that lie elsewhere ------------------------------------------------------------------------

TEST_F(RemoveTest, DeletesTheAudioFolderThatIsNamedByADetour)
{
    for (const char* const detour : {"deep/../", "deep/./../", "deep//../", "./"}) {
        std::filesystem::create_directories(folder() / "audio" / "deep");
        expectRemoved(addAudio(std::string(detour) + "take.wav"));
        EXPECT_FALSE(std::filesystem::exists(folder())) << detour;
    }
}

TEST_F(RemoveTest, LeavesAWaveFileInTheClipsFolder)
{
    expectRemoved(addAudio("../take.wav"));
    EXPECT_EQ(support::readFile(folder() / "take.wav"), "RIFF");
}

TEST_F(RemoveTest, LeavesAWaveFileBesideTheClipsFolder)
{
    writeFile(userFolder() / "precious", "mine");
    expectRemoved(addAudio("../../take.wav"));
    EXPECT_EQ(support::readFile(userFolder() / "take.wav"), "RIFF");
    EXPECT_EQ(support::readFile(userFolder() / "precious"), "mine");
}

TEST_F(RemoveTest, LeavesAWaveFileInAnotherFolder)
{
    // The second one's path starts with that of the clip's folder.
    for (const char* const elsewhere : {"outside", "one more"}) {
        writeFile(userFolder() / elsewhere / "precious", "mine");
        expectRemoved(addAudio(std::string("../../") + elsewhere + "/take.wav"));
        EXPECT_EQ(support::readFile(userFolder() / elsewhere / "take.wav"), "RIFF");
        EXPECT_EQ(support::readFile(userFolder() / elsewhere / "precious"), "mine");
    }
}

// The folder of such a clip is the user directory, where all other clips lie.
TEST_F(RemoveTest, OfAClipInTheUserDirectoryLeavesTheFoldersOfOthers)
{
    for (const char* const name : {R"(..\\victim\\take.wav)", R"(..\\victim\\audio\\take.wav)",
                                   R"(..\\audio\\..\\victim\\take.wav)", R"(..\\take.wav)"}) {
        SCOPED_TRACE(name);
        writeFile(userFolder() / "take.wav", "RIFF");
        support::addAudioClip(userFolder() / "victim", "VICTIM");
        writeFile(userFolder() / "victim" / "take.wav", "RIFF");
        std::filesystem::create_directories(userFolder() / "audio");
        const support::Tree others = treeOf(userFolder());
        support::addClip(userFolder(), support::propertyDocument("ID", "audio"),
                         support::audioDocument(name));
        KRT_PLX_ClipBase* const clip = readClip();
        ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));
        expectRemoved(clip);
        EXPECT_EQ(treeOf(userFolder()), others);
    }
}

TEST_F(RemoveTest, OfAClipInTheUserDirectoryDeletesItsOwnAudioFolder)
{
    support::addAudioClip(userFolder() / "other", "OTHER");
    const support::Tree others = treeOf(userFolder());
    support::addAudioClip(userFolder(), "ID");
    KRT_PLX_ClipBase* const clip = readClip();
    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));
    expectRemoved(clip);
    EXPECT_EQ(treeOf(userFolder()), others);
}

// A folder beside the audio folder is not it, even in the clip's own folder.
TEST_F(RemoveTest, LeavesItsAudioFolderWhenTheWaveFileIsInThatOfAnotherClip)
{
    writeFile(folder() / "audio" / "precious", "mine");
    expectRemoved(addAudio("../../other/audio/take.wav"));
    EXPECT_EQ(support::readFile(folder() / "audio" / "precious"), "mine");
    EXPECT_EQ(support::readFile(userFolder() / "other" / "audio" / "take.wav"), "RIFF");
}

TEST_F(RemoveTest, LeavesAWaveFileInItsFolderButOutsideTheAudioFolder)
{
    expectRemoved(addAudio("../takes/take.wav"));
    EXPECT_EQ(support::readFile(folder() / "takes" / "take.wav"), "RIFF");
}

// Above the root is the root. Such a name is not followed, though it leads into the folder "audio".
TEST_F(RemoveTest, LeavesAWaveFileThatIsNamedFromAboveTheRoot)
{
    std::string place;
    for (int i = 0; i < 64; ++i) {
        place += "../";
    }
    place += (folder() / "audio" / "take.wav").relative_path().generic_string();
    expectRemoved(addAudio(place));
    EXPECT_EQ(support::readFile(folder() / "audio" / "take.wav"), "RIFF");
}

TEST_F(RemoveTest, LeavesAWaveFileOutsideTheUserDirectory)
{
    writeFile(scratch() / "outside" / "precious", "mine");
    expectRemoved(addAudio("../../../outside/take.wav"));
    EXPECT_EQ(support::readFile(scratch() / "outside" / "take.wav"), "RIFF");
    EXPECT_EQ(support::readFile(scratch() / "outside" / "precious"), "mine");
    EXPECT_FALSE(std::filesystem::exists(folder() / "clip.kxclip"));
}

} // namespace
