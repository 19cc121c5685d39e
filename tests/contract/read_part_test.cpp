// Loading a clip's part: which part, what a failure leaves, what a second reading replaces.
#include <string>

#include "support/host.h"

using support::addAudioClip;
using support::audioDocument;
using support::midiAiDocument;
using support::midiDocument;
using support::Path;
using support::pathText;
using support::propertyDocument;
using support::utf8;
using support::writeFile;

namespace {

constexpr const char* audioPart = R"("audio": {"wavFileName": "take.wav"})";
constexpr const char* midiAiPart = R"("midiAi": {"duration": 2, "aiVoice": {"compID": ""}})";
constexpr const char* midiPart =
    R"("midi": {"duration": 3, "voice": {"compID": "ABCDEFGHIJKLMNOP", "langID": 0}})";

std::string document(const std::string& members)
{
    return "{" + members + "}";
}

class ReadPart : public HostTest {
protected:
    // A system clip, listed with the type, whose folder holds the wave file "take.wav".
    KRT_PLX_ClipBase* list(const char* type, const std::string& dataDocument)
    {
        writeFile(systemFolder() / "clip" / "audio" / "take.wav", "RIFF");
        support::addClip(systemFolder() / "clip", propertyDocument("id", type), dataDocument);
        EXPECT_EQ(read(), KRT_PLX_RESULT_OK);
        return systemClip(0);
    }

    void replaceData(const std::string& dataDocument) { writeFile(dataFile(), dataDocument); }

    Path dataFile() { return systemFolder() / "clip" / "clip.kxclip"; }
};

// --- Before ------------------------------------------------------------------------------------------

TEST_F(ReadPart, IsNeededForAPart)
{
    KRT_PLX_ClipBase* clip = list("midi", midiDocument());

    EXPECT_EQ(KRT_PLX_Clip_midiPart(clip), nullptr);
    EXPECT_EQ(KRT_PLX_Clip_audioPart(clip), nullptr);
    EXPECT_FALSE(KRT_PLX_Clip_hasMidiPart(clip, nullptr));
    EXPECT_FALSE(KRT_PLX_Clip_hasAudioPart(clip, nullptr));
}

// --- The three kinds of part -----------------------------------------------------------------------------

TEST_F(ReadPart, LoadsAMidiPart)
{
    KRT_PLX_ClipBase* clip = list("midi", midiDocument());

    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));

    KRT_PLX_PartBase* part = KRT_PLX_Clip_midiPart(clip);
    ASSERT_NE(part, nullptr);
    EXPECT_EQ(KRT_PLX_PartBase_type(part), 3U);
    EXPECT_FALSE(KRT_PLX_PartBase_isMutable(part));
    EXPECT_EQ(KRT_PLX_MidiPart_parent(part), clip);
    EXPECT_EQ(utf8(KRT_PLX_MidiPartBase_voiceBankID(part)), "ABCDEFGHIJKLMNOP");
    EXPECT_EQ(KRT_PLX_Clip_audioPart(clip), nullptr);
    EXPECT_TRUE(KRT_PLX_Clip_hasMidiPart(clip, part));
    EXPECT_FALSE(KRT_PLX_Clip_hasAudioPart(clip, part));
}

TEST_F(ReadPart, LoadsAMidiAiPart)
{
    KRT_PLX_ClipBase* clip = list("midiAi", midiAiDocument());

    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));

    KRT_PLX_PartBase* part = KRT_PLX_Clip_midiPart(clip);
    ASSERT_NE(part, nullptr);
    EXPECT_EQ(KRT_PLX_PartBase_type(part), 2U);
    EXPECT_EQ(KRT_PLX_MidiPart_parent(part), clip);
    EXPECT_EQ(KRT_PLX_MidiPartBase_aiLangIDByIndex(part, 0), 1U);
    EXPECT_EQ(KRT_PLX_Clip_audioPart(clip), nullptr);
    EXPECT_TRUE(KRT_PLX_Clip_hasMidiPart(clip, part));
    EXPECT_FALSE(KRT_PLX_Clip_hasAudioPart(clip, part));
}

TEST_F(ReadPart, LoadsAnAudioPart)
{
    KRT_PLX_ClipBase* clip = list("audio", audioDocument("take.wav"));

    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));

    KRT_PLX_PartBase* part = KRT_PLX_Clip_audioPart(clip);
    ASSERT_NE(part, nullptr);
    EXPECT_EQ(KRT_PLX_PartBase_type(part), 1U);
    EXPECT_FALSE(KRT_PLX_PartBase_isMutable(part));
    EXPECT_EQ(KRT_PLX_AudioPart_parent(part), clip);
    EXPECT_EQ(utf8(KRT_PLX_AudioPartBase_wavFilePath(part)),
              utf8(pathText(systemFolder() / "clip" / "audio" / "take.wav")));
    EXPECT_EQ(KRT_PLX_Clip_midiPart(clip), nullptr);
    EXPECT_TRUE(KRT_PLX_Clip_hasAudioPart(clip, part));
    EXPECT_FALSE(KRT_PLX_Clip_hasMidiPart(clip, part));
}

TEST_F(ReadPart, WorksTheSameForUserClips)
{
    KRT_PLX_ClipBase* clip = readUserClip(propertyDocument("id"), midiDocument());

    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));

    EXPECT_EQ(KRT_PLX_MidiPart_parent(KRT_PLX_Clip_midiPart(clip)), clip);
}

TEST_F(ReadPart, KnowsNoPartOfAnotherClip)
{
    KRT_PLX_ClipBase* clip = list("midi", midiDocument());
    support::addClip(userFolder() / "other", propertyDocument("other"), midiDocument());
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    clip = systemClip(0);
    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));
    ASSERT_TRUE(KRT_PLX_Clip_readPart(userClip(0)));
    KRT_PLX_PartBase* editable = KRT_PLX_MutableClip_createMidiPart(createMutableClip());

    EXPECT_FALSE(KRT_PLX_Clip_hasMidiPart(clip, KRT_PLX_Clip_midiPart(userClip(0))));
    EXPECT_FALSE(KRT_PLX_Clip_hasMidiPart(clip, editable));
    EXPECT_FALSE(KRT_PLX_Clip_hasMidiPart(clip, nullptr));
    EXPECT_FALSE(KRT_PLX_Clip_hasAudioPart(clip, nullptr));
}

// --- The part type ------------------------------------------------------------------------------------------

TEST_F(ReadPart, ChangesTheReportedTypeToThatOfThePart)
{
    KRT_PLX_ClipBase* clip = list("midi", midiAiDocument());
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), 3U);

    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), 2U);
}

TEST_F(ReadPart, LoadsAnAudioPartForAClipListedAsMidi)
{
    KRT_PLX_ClipBase* clip = list("midiAi", audioDocument("take.wav"));
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), 2U);

    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), 1U);
    EXPECT_NE(KRT_PLX_Clip_audioPart(clip), nullptr);
}

TEST_F(ReadPart, LeavesTheReportedTypeWhenItFails)
{
    KRT_PLX_ClipBase* clip = list("audio", "{}");

    EXPECT_FALSE(KRT_PLX_Clip_readPart(clip));
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), 1U);
}

// --- Which part ------------------------------------------------------------------------------------------------

struct Choice {
    std::string data;
    std::uint32_t type; // 0 when no part can be read
};

class PartChoice : public ReadPart, public testing::WithParamInterface<Choice> {};

TEST_P(PartChoice, FollowsTheOrderAudioMidiAiMidi)
{
    KRT_PLX_ClipBase* clip = list("midi", GetParam().data);

    EXPECT_EQ(KRT_PLX_Clip_readPart(clip), GetParam().type != 0) << GetParam().data;
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), GetParam().type != 0 ? GetParam().type : 3U);
    EXPECT_EQ(KRT_PLX_Clip_audioPart(clip) != nullptr, GetParam().type == 1);
    EXPECT_EQ(KRT_PLX_Clip_midiPart(clip) != nullptr, GetParam().type > 1);
}

const std::string comma = ", ";

INSTANTIATE_TEST_SUITE_P(
    Documents, PartChoice,
    testing::Values(
        Choice{document(midiPart + comma + midiAiPart + comma + audioPart), 1},
        Choice{document(midiPart + comma + midiAiPart), 2},
        Choice{document(midiPart + comma + audioPart), 1}, Choice{document(midiPart), 3},
        Choice{document(midiAiPart), 2}, Choice{document(audioPart), 1},
        // A part that fails is not replaced by the next one.
        Choice{document(R"("audio": {}, )" + std::string(midiPart)), 0},
        Choice{document(R"("audio": {"wavFileName": "missing.wav"}, )" + std::string(midiPart)), 0},
        Choice{document(R"("midiAi": {}, )" + std::string(midiPart)), 0},
        // A part that is not an object counts as a part that fails.
        Choice{document(R"("audio": null, )" + std::string(midiPart)), 0},
        Choice{document(R"("audio": "take.wav", )" + std::string(midiPart)), 0},
        Choice{document(R"("midiAi": null, )" + std::string(midiPart)), 0},
        Choice{document(R"("midi": [])"), 0}, Choice{document(R"("midi": null)"), 0},
        // No part at all.
        Choice{"{}", 0}, Choice{R"({"name": "name", "filter": {}})", 0},
        Choice{R"({"part": {"type": "midi"}})", 0}, Choice{document("\"Midi\": {}"), 0}));

// --- Failures ----------------------------------------------------------------------------------------------------

class UnusableData : public ReadPart, public testing::WithParamInterface<const char*> {};

TEST_P(UnusableData, GivesNoPart)
{
    KRT_PLX_ClipBase* clip = list("midi", GetParam());

    EXPECT_FALSE(KRT_PLX_Clip_readPart(clip));

    EXPECT_EQ(KRT_PLX_Clip_midiPart(clip), nullptr);
    EXPECT_EQ(KRT_PLX_Clip_audioPart(clip), nullptr);
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), 3U);
    EXPECT_TRUE(KRT_PLX_Manager_hasSystemClip(manager(), clip));
}

TEST_P(UnusableData, LeavesTheOldPart)
{
    KRT_PLX_ClipBase* clip = list("midi", midiDocument(R"(, "notes": [{"lyric": "la",
        "phoneme": "l a", "pos": 0, "duration": 480, "number": 60, "velocity": 64}])"));
    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));
    KRT_PLX_PartBase* part = KRT_PLX_Clip_midiPart(clip);
    KRT_PLX_NoteBase* note = KRT_PLX_MidiPart_note(part, 0);
    replaceData(GetParam());

    EXPECT_FALSE(KRT_PLX_Clip_readPart(clip));

    EXPECT_EQ(KRT_PLX_Clip_midiPart(clip), part);
    EXPECT_TRUE(KRT_PLX_Clip_hasMidiPart(clip, part));
    EXPECT_TRUE(KRT_PLX_MidiPart_hasNote(part, note));
    EXPECT_EQ(utf8(KRT_PLX_NoteBase_lyric(note)), "la");
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), 3U);
}

INSTANTIATE_TEST_SUITE_P(Documents, UnusableData,
                         testing::Values("", " ", "{", "}", "[]", "null", "\"midi\"", "{}",
                                         R"({"midi": {}})", R"({"midi": {"duration": 1}})",
                                         R"({"audio": {}})", R"({"midiAi": {}})",
                                         R"({"midi": {"duration": 0,
                        "voice": {"compID": "ABCDEFGHIJKLMNOP", "langID": 1}}})",
                                         R"({"midi": {"duration": 1,
                        "voice": {"compID": "ABCDEFGHIJKLMNOP", "langID": 1}},})",
                                         R"({"midi": {"duration": 1,
                        "voice": {"compID": "ABCDEFGHIJKLMNOP", "langID": 1}}} x)"));

TEST_F(ReadPart, FailsWhenTheClipFileIsGoneAndKeepsTheClip)
{
    KRT_PLX_ClipBase* clip = list("midi", midiDocument());
    std::filesystem::remove(dataFile());

    EXPECT_FALSE(KRT_PLX_Clip_readPart(clip));

    EXPECT_EQ(support::systemClipCount(manager()), 1U);
    EXPECT_TRUE(KRT_PLX_Manager_hasSystemClip(manager(), clip));
    EXPECT_EQ(utf8(KRT_PLX_Clip_id(clip)), "id");
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), 3U);
}

TEST_F(ReadPart, KeepsTheOldPartWhenTheClipFileIsGone)
{
    KRT_PLX_ClipBase* clip = list("midi", midiDocument());
    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));
    KRT_PLX_PartBase* part = KRT_PLX_Clip_midiPart(clip);
    std::filesystem::remove(dataFile());

    EXPECT_FALSE(KRT_PLX_Clip_readPart(clip));

    EXPECT_EQ(KRT_PLX_Clip_midiPart(clip), part);
    EXPECT_EQ(KRT_PLX_MidiPartBase_duration(part), 1920);
}

TEST_F(ReadPart, FailsWhenAFolderStandsInPlaceOfTheClipFile)
{
    KRT_PLX_ClipBase* clip = list("midi", midiDocument());
    std::filesystem::remove(dataFile());
    std::filesystem::create_directory(dataFile());

    EXPECT_FALSE(KRT_PLX_Clip_readPart(clip));
}

TEST_F(ReadPart, WorksAgainAfterAFailure)
{
    KRT_PLX_ClipBase* clip = list("midi", "{");
    ASSERT_FALSE(KRT_PLX_Clip_readPart(clip));
    replaceData(midiDocument());

    EXPECT_TRUE(KRT_PLX_Clip_readPart(clip));
    EXPECT_NE(KRT_PLX_Clip_midiPart(clip), nullptr);
}

TEST_F(ReadPart, NeedsTheWaveFileOfAnAudioPart)
{
    KRT_PLX_ClipBase* clip = list("audio", audioDocument("take.wav"));
    std::filesystem::remove(systemFolder() / "clip" / "audio" / "take.wav");
    EXPECT_FALSE(KRT_PLX_Clip_readPart(clip));

    std::filesystem::create_directory(systemFolder() / "clip" / "audio" / "take.wav");
    EXPECT_FALSE(KRT_PLX_Clip_readPart(clip));

    std::filesystem::remove(systemFolder() / "clip" / "audio" / "take.wav");
    writeFile(systemFolder() / "clip" / "audio" / "take.wav", "");
    EXPECT_TRUE(KRT_PLX_Clip_readPart(clip));
}

TEST_F(ReadPart, LooksForTheWaveFileInTheAudioFolderOnly)
{
    KRT_PLX_ClipBase* clip = list("audio", audioDocument("other.wav"));
    writeFile(systemFolder() / "clip" / "other.wav", "RIFF");

    EXPECT_FALSE(KRT_PLX_Clip_readPart(clip));
}

// --- Twice ------------------------------------------------------------------------------------------------------

TEST_F(ReadPart, ReplacesThePart)
{
    KRT_PLX_ClipBase* clip = list("midi", midiDocument());
    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));
    KRT_PLX_PartBase* old = KRT_PLX_Clip_midiPart(clip);

    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));

    KRT_PLX_PartBase* part = KRT_PLX_Clip_midiPart(clip);
    EXPECT_NE(part, old); // both lived for a moment
    EXPECT_FALSE(KRT_PLX_Clip_hasMidiPart(clip, old));
    EXPECT_TRUE(KRT_PLX_Clip_hasMidiPart(clip, part));
    EXPECT_EQ(KRT_PLX_MidiPartBase_duration(part), 1920);
}

TEST_F(ReadPart, ReadsTheFileAnew)
{
    KRT_PLX_ClipBase* clip = list("midi", document(midiPart));
    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));
    ASSERT_EQ(KRT_PLX_MidiPartBase_duration(KRT_PLX_Clip_midiPart(clip)), 3);
    replaceData(midiDocument());

    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));
    EXPECT_EQ(KRT_PLX_MidiPartBase_duration(KRT_PLX_Clip_midiPart(clip)), 1920);
}

TEST_F(ReadPart, ReplacesAMidiPartByAnAudioPartAndBack)
{
    KRT_PLX_ClipBase* clip = list("midi", midiDocument());
    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));
    KRT_PLX_PartBase* midi = KRT_PLX_Clip_midiPart(clip);

    replaceData(audioDocument("take.wav"));
    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));
    KRT_PLX_PartBase* audio = KRT_PLX_Clip_audioPart(clip);
    EXPECT_NE(audio, nullptr);
    EXPECT_EQ(KRT_PLX_Clip_midiPart(clip), nullptr);
    EXPECT_FALSE(KRT_PLX_Clip_hasMidiPart(clip, midi));
    EXPECT_FALSE(KRT_PLX_Clip_hasMidiPart(clip, nullptr));
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), 1U);

    replaceData(midiAiDocument());
    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));
    EXPECT_EQ(KRT_PLX_Clip_audioPart(clip), nullptr);
    EXPECT_FALSE(KRT_PLX_Clip_hasAudioPart(clip, audio));
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), 2U);
}

TEST_F(ReadPart, ReplacesThePartOfAClipThatWasListedFromItsClipFile)
{
    KRT_PLX_ClipBase* clip = readSystemClip(std::nullopt, support::midiDocumentWithID("id"));
    KRT_PLX_PartBase* old = KRT_PLX_Clip_midiPart(clip);
    ASSERT_NE(old, nullptr);

    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));

    EXPECT_FALSE(KRT_PLX_Clip_hasMidiPart(clip, old));
    EXPECT_EQ(KRT_PLX_MidiPartBase_duration(KRT_PLX_Clip_midiPart(clip)), 1920);
}

// --- Nothing else -------------------------------------------------------------------------------------------------

TEST_F(ReadPart, ReadsNothingButThePart)
{
    KRT_PLX_ClipBase* clip = readSystemClip(
        R"({"id": "id", "name": "name", "vendor": "vendor",
            "part": {"type": "midi", "key": 5, "tempo": 12000}, "filter": {"types": ["type"]}})",
        document(R"("id": "other", "name": "other", "vendor": "other",
                    "part": {"type": "audio", "key": 6, "tempo": 13000},
                    "filter": {"types": ["other"], "genres": ["other"]}, )" +
                 std::string(midiPart)));

    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));

    EXPECT_EQ(utf8(KRT_PLX_Clip_id(clip)), "id");
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(clip)), "name");
    EXPECT_EQ(utf8(KRT_PLX_ClipBase_vendorName(clip)), "vendor");
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(clip), 5U);
    EXPECT_EQ(KRT_PLX_ClipBase_partTempo(clip), 12000U);
    KRT_PLX_Filter* filter = KRT_PLX_Clip_filter(clip);
    EXPECT_EQ(utf8(KRT_PLX_Filter_type(filter, 0)), "type");
    EXPECT_EQ(KRT_PLX_Filter_type(filter, 1), nullptr);
    EXPECT_EQ(KRT_PLX_Filter_genre(filter, 0), nullptr);
    EXPECT_EQ(utf8(KRT_PLX_Filter_vendor(filter, 0)), "vendor");
    EXPECT_EQ(KRT_PLX_Filter_vendor(filter, 1), nullptr);
}

TEST_F(ReadPart, LeavesTheFilterHandleAlive)
{
    KRT_PLX_ClipBase* clip = list("midi", midiDocument());
    KRT_PLX_Filter* filter = KRT_PLX_Clip_filter(clip);

    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));
    EXPECT_EQ(KRT_PLX_Clip_filter(clip), filter);
}

TEST_F(ReadPart, LeavesNoFileOpen)
{
    KRT_PLX_ClipBase* clip = list("midi", midiDocument());
    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));
    std::error_code error;

    // Windows deletes no file that is open.
    EXPECT_TRUE(std::filesystem::remove(dataFile(), error)) << error.message();
    writeFile(dataFile(), "{");
    ASSERT_FALSE(KRT_PLX_Clip_readPart(clip));
    EXPECT_TRUE(std::filesystem::remove(dataFile(), error)) << error.message();
}

} // namespace
