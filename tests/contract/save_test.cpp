// Saving an editable clip as a new user clip: what is made on disk and in the catalogue, and what is
// left as it was.
#include <algorithm>
#include <set>
#include <vector>

#include "support/clip_model.h"
#include "support/editing.h"
#include "support/random_clip.h"
#include "support/saving.h"

using support::Path;
using support::pathText;
using support::place;
using support::text;
using support::treeOf;
using support::utf8;
using testing::ElementsAre;
using testing::Pair;
using testing::UnorderedElementsAre;

namespace {

bool isUuid(const std::string& id)
{
    const std::string pattern = "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx";
    return std::equal(id.begin(), id.end(), pattern.begin(), pattern.end(), [](char c, char p) {
        return p == '-' ? c == '-' : (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
    });
}

// --- The new clip -------------------------------------------------------------------------------------

TEST_F(SaveTest, GivesTheNewUserClip)
{
    support::createMidiPart(clip);
    KRT_PLX_MutableClip_setVendorName(clip, text("Studio").c_str());
    KRT_PLX_MutableClip_setPartKey(clip, 7);
    KRT_PLX_MutableClip_setPartTempo(clip, 12345);
    const auto [saved, code] = support::save(clip, "My clip");
    ASSERT_NE(saved, nullptr);
    EXPECT_EQ(code, KRT_PLX_RESULT_OK);
    EXPECT_EQ(KRT_PLX_ClipBase_parent(saved), manager());
    EXPECT_EQ(KRT_PLX_Clip_type(saved), KRT_PLX_CLIP_USER);
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(saved)), "My clip");
    EXPECT_EQ(utf8(KRT_PLX_ClipBase_vendorName(saved)), "Studio");
    EXPECT_EQ(KRT_PLX_ClipBase_partType(saved), KRT_PLX_PART_MIDI);
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(saved), 7u);
    EXPECT_EQ(KRT_PLX_ClipBase_partTempo(saved), 12345u);
}

TEST_F(SaveTest, NamesTheClipByANewUuid)
{
    support::createMidiPart(clip);
    std::set<std::string> ids;
    for (int i = 0; i < 20; ++i) {
        const std::string id = utf8(KRT_PLX_Clip_id(support::save(clip).clip));
        EXPECT_TRUE(isUuid(id)) << id;
        EXPECT_TRUE(ids.insert(id).second) << id;
    }
}

TEST_F(SaveTest, KnowsThePathOfItsClipFile)
{
    support::createMidiPart(clip);
    KRT_PLX_ClipBase* const saved = support::save(clip).clip;
    const std::string id = utf8(KRT_PLX_Clip_id(saved));
    EXPECT_EQ(utf8(KRT_PLX_Clip_path(saved)),
              utf8(KRT_PLX_Manager_userClipDirPath(manager())) + "\\" + id + "\\" + id + ".kxclip");
}

TEST_F(SaveTest, HasNoPartUntilItIsRead)
{
    support::createMidiPart(clip);
    KRT_PLX_ClipBase* const saved = support::save(clip).clip;
    EXPECT_EQ(KRT_PLX_Clip_midiPart(saved), nullptr);
    EXPECT_EQ(KRT_PLX_Clip_audioPart(saved), nullptr);
    EXPECT_EQ(KRT_PLX_ClipBase_partType(saved), KRT_PLX_PART_MIDI);
    EXPECT_TRUE(KRT_PLX_Clip_readPart(saved));
    ASSERT_NE(KRT_PLX_Clip_midiPart(saved), nullptr);
    EXPECT_EQ(utf8(KRT_PLX_MidiPartBase_voiceBankID(KRT_PLX_Clip_midiPart(saved))),
              support::voiceBankID);
}

TEST_F(SaveTest, ReportsTheTypeOfEachPart)
{
    support::createMidiAiPart(clip);
    EXPECT_EQ(KRT_PLX_ClipBase_partType(support::save(clip).clip), KRT_PLX_PART_MIDI_AI);
    support::createAudioPart(clip, addWaveFile());
    EXPECT_EQ(KRT_PLX_ClipBase_partType(support::save(clip).clip), KRT_PLX_PART_AUDIO);
    support::createMidiPart(clip);
    EXPECT_EQ(KRT_PLX_ClipBase_partType(support::save(clip).clip), KRT_PLX_PART_MIDI);
}

TEST_F(SaveTest, HasTheTagsThatWereWritten)
{
    support::createMidiPart(clip);
    KRT_PLX_Filter* const tags = KRT_PLX_MutableClip_filter(clip);
    KRT_PLX_MutableFilter_addGenre(tags, text("Pop").c_str());
    KRT_PLX_MutableFilter_addVendor(tags, text("Other").c_str());
    KRT_PLX_MutableClip_setVendorName(clip, text("Studio").c_str());
    KRT_PLX_Filter* const saved = KRT_PLX_Clip_filter(support::save(clip).clip);
    EXPECT_EQ(utf8(KRT_PLX_Filter_genre(saved, 0)), "Pop");
    EXPECT_EQ(support::countOf(KRT_PLX_Filter_numVendors, saved), 1u);
    EXPECT_EQ(utf8(KRT_PLX_Filter_vendor(saved, 0)), "Studio");
}

// --- The catalogue --------------------------------------------------------------------------------------

TEST_F(SaveTest, AppendsToTheUserClips)
{
    support::addClip(userFolder() / "old", support::propertyDocument("OLD"),
                     support::midiDocument());
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    KRT_PLX_ClipBase* const old = userClip(0);
    support::createMidiPart(clip);
    KRT_PLX_ClipBase* const first = support::save(clip).clip;
    KRT_PLX_ClipBase* const second = support::save(clip).clip;
    EXPECT_EQ(support::userClipCount(manager()), 3u);
    EXPECT_EQ(userClip(0), old);
    EXPECT_EQ(userClip(1), first);
    EXPECT_EQ(userClip(2), second);
    EXPECT_TRUE(KRT_PLX_Manager_hasUserClip(manager(), first));
    EXPECT_FALSE(KRT_PLX_Manager_hasSystemClip(manager(), first));
    EXPECT_EQ(utf8(KRT_PLX_Clip_id(old)), "OLD");
}

TEST_F(SaveTest, TwiceMakesTwoClips)
{
    support::createMidiPart(clip);
    KRT_PLX_ClipBase* const first = support::save(clip).clip;
    KRT_PLX_ClipBase* const second = support::save(clip).clip;
    ASSERT_NE(first, second);
    EXPECT_NE(utf8(KRT_PLX_Clip_id(first)), utf8(KRT_PLX_Clip_id(second)));
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(first)), utf8(KRT_PLX_Clip_name(second)));
    EXPECT_TRUE(KRT_PLX_Clip_readPart(first));
    EXPECT_TRUE(KRT_PLX_Clip_readPart(second));
}

TEST_F(SaveTest, BeforeAnyReadingListsTheNewClipAlone)
{
    support::addClip(userFolder() / "old", support::propertyDocument("OLD"),
                     support::midiDocument());
    support::createMidiPart(clip);
    KRT_PLX_ClipBase* const saved = support::save(clip).clip;
    const std::string id = utf8(KRT_PLX_Clip_id(saved));
    EXPECT_THAT(support::userClipIDs(manager()), ElementsAre(id));
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::userClipIDs(manager()), UnorderedElementsAre(id, "OLD"));
}

TEST_F(SaveTest, IsListedByAnotherManager)
{
    support::createMidiPart(clip);
    const std::string id = utf8(KRT_PLX_Clip_id(support::save(clip, "Found").clip));
    const auto other = support::createManager({systemFolder(), userFolder(), {}, {}});
    ASSERT_EQ(KRT_PLX_Manager_readAllClipFiles(other.get()), KRT_PLX_RESULT_OK);
    KRT_PLX_ClipBase* const found = support::findUserClip(other.get(), id);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(found)), "Found");
    EXPECT_TRUE(KRT_PLX_Clip_readPart(found));
}

TEST_F(SaveTest, WritesIntoTheMainUserDirectory)
{
    const Path further = scratch() / "further";
    std::filesystem::create_directory(further);
    const auto other = support::createManager({systemFolder(), userFolder(), {}, {further}});
    KRT_PLX_ClipBase* const own = KRT_PLX_Manager_createMutableClip(other.get());
    support::createMidiPart(own);
    KRT_PLX_ClipBase* const saved = support::save(own).clip;
    ASSERT_NE(saved, nullptr);
    EXPECT_TRUE(std::filesystem::is_directory(folderOf(saved)));
    EXPECT_TRUE(std::filesystem::is_empty(further));
}

// --- The editable clip ----------------------------------------------------------------------------------

TEST_F(SaveTest, LeavesTheEditableClipAsItWas)
{
    support::Random random(7);
    const Path wave = addWaveFile();
    for (int i = 0; i < 20; ++i) {
        KRT_PLX_ClipBase* const own = createMutableClip();
        support::fillRandomly(own, random, wave);
        const std::string before = describe(support::modelOfEditable(own));
        ASSERT_NE(support::save(own).clip, nullptr);
        EXPECT_EQ(describe(support::modelOfEditable(own)), before);
        EXPECT_TRUE(KRT_PLX_Manager_hasMutableClip(manager(), own));
    }
}

TEST_F(SaveTest, LeavesEveryHandleAlive)
{
    KRT_PLX_PartBase* const part = support::createMidiPart(clip);
    KRT_PLX_NoteBase* const note = support::insertNote(part, 0);
    ASSERT_NE(support::save(clip).clip, nullptr);
    EXPECT_EQ(KRT_PLX_MutableClip_midiPart(clip), part);
    EXPECT_EQ(KRT_PLX_MutableMidiPart_note(part, 0), note);
    EXPECT_EQ(KRT_PLX_MutableNote_parent(note), part);
}

TEST_F(SaveTest, CanBeEditedAndSavedAgain)
{
    KRT_PLX_PartBase* const part = support::createMidiPart(clip);
    KRT_PLX_NoteBase* const note = support::insertNote(part, 0);
    KRT_PLX_ClipBase* const first = support::save(clip, "First").clip;
    KRT_PLX_MutableNote_setLyric(note, text("lo").c_str());
    KRT_PLX_MutableClip_setPartKey(clip, 9);
    KRT_PLX_ClipBase* const second = support::save(clip, "Second").clip;
    ASSERT_TRUE(KRT_PLX_Clip_readPart(first));
    ASSERT_TRUE(KRT_PLX_Clip_readPart(second));
    EXPECT_EQ(utf8(KRT_PLX_NoteBase_lyric(KRT_PLX_MidiPart_note(KRT_PLX_Clip_midiPart(first), 0))),
              "la");
    EXPECT_EQ(utf8(KRT_PLX_NoteBase_lyric(KRT_PLX_MidiPart_note(KRT_PLX_Clip_midiPart(second), 0))),
              "lo");
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(first), 0u);
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(second), 9u);
}

TEST_F(SaveTest, TheSavedClipOutlivesTheEditableOne)
{
    support::createMidiPart(clip);
    KRT_PLX_ClipBase* const saved = support::save(clip, "Name").clip;
    ASSERT_TRUE(KRT_PLX_MutableClip_destroy(clip));
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(saved)), "Name");
    EXPECT_TRUE(KRT_PLX_Clip_readPart(saved));
}

// The name may be a text of the clip itself, or of a clip that was saved before.
TEST_F(SaveTest, TakesTextsOfItsOwnAsTheName)
{
    support::createMidiPart(clip);
    KRT_PLX_MutableClip_setVendorName(clip, text("Studio").c_str());
    KRT_PLX_ClipBase* const first =
        KRT_PLX_MutableClip_save(clip, KRT_PLX_ClipBase_vendorName(clip), false, nullptr);
    ASSERT_NE(first, nullptr);
    KRT_PLX_ClipBase* const second =
        KRT_PLX_MutableClip_save(clip, KRT_PLX_Clip_name(first), false, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(second)), "Studio");
}

// --- The disk -------------------------------------------------------------------------------------------

TEST_F(SaveTest, OfAMidiPartMakesTwoFiles)
{
    support::createMidiPart(clip);
    const std::string id = utf8(KRT_PLX_Clip_id(support::save(clip).clip));
    EXPECT_THAT(treeOf(userFolder()),
                UnorderedElementsAre(Pair(id + "/", ""),
                                     Pair(id + "/" + id + ".kxclip", testing::_),
                                     Pair(id + "/property.json", testing::_)));
}

TEST_F(SaveTest, OfAnAudioPartCopiesTheWaveFile)
{
    const Path wave = addWaveFile("take 1.wav", "RIFF and so on");
    support::createAudioPart(clip, wave);
    const std::string id = utf8(KRT_PLX_Clip_id(support::save(clip).clip));
    EXPECT_THAT(treeOf(userFolder()),
                UnorderedElementsAre(
                    Pair(id + "/", ""), Pair(id + "/" + id + ".kxclip", testing::_),
                    Pair(id + "/audio/", ""), Pair(id + "/audio/take 1.wav", "RIFF and so on"),
                    Pair(id + "/property.json", testing::_)));
    EXPECT_EQ(support::readFile(wave), "RIFF and so on");
}

TEST_F(SaveTest, CopiesWaveFilesOfEverySize)
{
    const std::string pattern("\0\r\n\xFF\x1A\xEF\xBB\xBF", 8);
    for (const std::size_t size : {0u, 1u, 65535u, 65536u, 65537u, 1000000u}) {
        std::string bytes;
        while (bytes.size() < size) {
            bytes += pattern.substr(0, size - bytes.size());
            bytes += static_cast<char>(bytes.size() % 251);
        }
        bytes.resize(size);
        support::createAudioPart(clip, addWaveFile("take.wav", bytes));
        KRT_PLX_ClipBase* const saved = support::save(clip).clip;
        ASSERT_NE(saved, nullptr);
        EXPECT_TRUE(support::readFile(folderOf(saved) / "audio" / "take.wav") == bytes) << size;
    }
}

TEST_F(SaveTest, TakesWaveFilesOfAnyName)
{
    for (const char* const name :
         {"さくら 𠮷野.wav", "noextension", ".wav", "property.json", "a.b.c"}) {
        support::createAudioPart(clip, addWaveFile(name, name));
        KRT_PLX_ClipBase* const saved = support::save(clip).clip;
        ASSERT_NE(saved, nullptr) << name;
        EXPECT_EQ(support::readFile(folderOf(saved) / "audio" / place(name)), name);
        ASSERT_TRUE(KRT_PLX_Clip_readPart(saved)) << name;
        EXPECT_EQ(utf8(KRT_PLX_AudioPartBase_wavFilePath(KRT_PLX_Clip_audioPart(saved))),
                  utf8(pathText(folderOf(saved) / "audio" / place(name))));
    }
}

// The wave file of a user clip is a wave file like any other.
TEST_F(SaveTest, TakesTheWaveFileOfASavedClip)
{
    support::createAudioPart(clip, addWaveFile());
    const Path copy = folderOf(support::save(clip).clip) / "audio" / "take.wav";
    support::createAudioPart(clip, copy);
    KRT_PLX_ClipBase* const saved = support::save(clip).clip;
    ASSERT_NE(saved, nullptr);
    EXPECT_EQ(support::readFile(folderOf(saved) / "audio" / "take.wav"), "RIFF");
    EXPECT_EQ(support::readFile(copy), "RIFF");
}

TEST_F(SaveTest, TakesAnyNameForTheClip)
{
    support::createMidiPart(clip);
    const std::string names[] = {" ",        "a/b\\c:d*?\"<>|",     "..", "CON", "さくら 𠮷野",
                                 "\n\t\x01", std::string(5000, 'x')};
    for (const std::string& name : names) {
        const auto [saved, code] = support::save(clip, name);
        ASSERT_EQ(code, KRT_PLX_RESULT_OK) << name;
        EXPECT_EQ(utf8(KRT_PLX_Clip_name(saved)), name);
    }
}

TEST_F(SaveTest, WorksInAUserDirectoryOfAnyName)
{
    const Path folder = scratch() / place("Übung") / place("さくら 𠮷野");
    const auto other = support::createManager({systemFolder(), folder, {}, {}});
    KRT_PLX_ClipBase* const own = KRT_PLX_Manager_createMutableClip(other.get());
    support::createMidiPart(own);
    KRT_PLX_ClipBase* const saved = support::save(own).clip;
    ASSERT_NE(saved, nullptr);
    EXPECT_TRUE(std::filesystem::exists(folder / utf8(KRT_PLX_Clip_id(saved)) / "property.json"));
    EXPECT_TRUE(KRT_PLX_Clip_readPart(saved));
}

// A host may pass its directories in the form of its own system.
TEST_F(SaveTest, WorksInAUserDirectoryWithThisSystemsSeparators)
{
    const Path folder = scratch() / "native" / "user";
    const std::u8string native = folder.u8string();
    const support::Text user = text(std::string(native.begin(), native.end()));
    const support::OwnedManager other(
        KRT_PLX_CreateManager(support::uniqueAppID().c_str(), pathText(systemFolder()).c_str(),
                              user.c_str(), nullptr, 0, nullptr, 0, nullptr));
    KRT_PLX_ClipBase* const own = KRT_PLX_Manager_createMutableClip(other.get());
    support::createAudioPart(own, addWaveFile());
    KRT_PLX_ClipBase* const saved = support::save(own).clip;
    ASSERT_NE(saved, nullptr);
    const std::string id = utf8(KRT_PLX_Clip_id(saved));
    EXPECT_EQ(utf8(KRT_PLX_Clip_path(saved)), utf8(user) + "\\" + id + "\\" + id + ".kxclip");
    EXPECT_TRUE(std::filesystem::exists(folder / id / "audio" / "take.wav"));
    EXPECT_TRUE(KRT_PLX_Clip_readPart(saved));
}

// --- The result code --------------------------------------------------------------------------------------

TEST_F(SaveTest, NeedsNoPlaceForTheCode)
{
    EXPECT_EQ(KRT_PLX_MutableClip_save(clip, text("Name").c_str(), false, nullptr), nullptr);
    EXPECT_EQ(KRT_PLX_MutableClip_save(clip, nullptr, false, nullptr), nullptr);
    support::createMidiPart(clip);
    EXPECT_NE(KRT_PLX_MutableClip_save(clip, text("Name").c_str(), false, nullptr), nullptr);
}

TEST_F(SaveTest, LeavesTheCodeOfARejectedHandleAlone)
{
    support::createMidiPart(clip);
    KRT_PLX_ClipBase* const saved = support::save(clip).clip;
    for (KRT_PLX_ClipBase* const handle : {saved, static_cast<KRT_PLX_ClipBase*>(nullptr)}) {
        const auto [none, code] = support::save(handle);
        EXPECT_EQ(none, nullptr);
        EXPECT_EQ(code, KRT_PLX_RESULT_NO_MANAGER);
    }
    EXPECT_EQ(support::userClipCount(manager()), 1u);
}

} // namespace
