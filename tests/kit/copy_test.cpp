// Copying clips: equal, or told.
#include "comparison.h"
#include "kit_fixture.h"
#include "support/effort.h"
#include "support/random_clip.h"
#include <cstdlib>
#include <iostream>

namespace {

using kit::differences;
using kit::itemsOf;
using kit::linked;
using kit::Notices;
using support::ClipModel;
using support::text;
using support::utf8;
using testing::ElementsAre;
using testing::IsEmpty;

// Of the environment; empty when it is not set.
std::string setting(const char* name)
{
    const char* const value = std::getenv(name); // NOLINT(concurrency-mt-unsafe)
    return value != nullptr ? value : "";
}

class KitCopy : public SaveTest {
protected:
    KRT_PLX_ClipBase* edit(KRT_PLX_ClipBase* source, std::uint32_t language = KRT_PLX_NO_LANGUAGE)
    {
        return KRT_PLX_Kit_edit(linked(), source, language, notices.report());
    }

    // Saved and read.
    ClipModel savedModel(KRT_PLX_ClipBase* editable)
    {
        KRT_PLX_ClipBase* const saved = support::save(editable).clip;
        EXPECT_NE(saved, nullptr);
        EXPECT_TRUE(KRT_PLX_Clip_readPart(saved));
        return support::modelOfRead(saved);
    }

    // The copy of a clip of any kind, saved: what it lost must be what was told.
    void expectToldWhatDiffers(KRT_PLX_ClipBase* source, const ClipModel& model)
    {
        Notices told;
        KRT_PLX_ClipBase* const copy = createMutableClip();
        ASSERT_TRUE(KRT_PLX_Kit_fill(linked(), copy, source, KRT_PLX_NO_LANGUAGE, told.report()));
        EXPECT_EQ(told.report()->count, told.all().size());
        if (std::ranges::all_of(told.all(), isAboutSaving)) {
            EXPECT_EQ(describe(support::modelOfEditable(copy)), describe(model));
        }
        if (preventsSaving(told)) {
            EXPECT_EQ(support::save(copy).clip, nullptr);
        } else {
            const ClipModel saved = savedModel(copy);
            EXPECT_THAT(kit::untold(model, saved, told), IsEmpty());
            EXPECT_EQ(differences(model, saved), itemsOf(told))
                << testing::PrintToString(told.lines());
        }
        KRT_PLX_MutableClip_destroy(copy);
    }

    struct Tally {
        int copied = 0;
        int unreadable = 0;
    };

    // Copies every clip that is listed of a folder.
    Tally copyAll(const support::Path& folder)
    {
        const auto all = support::createManager({folder, scratch() / "none", {}, {}});
        EXPECT_EQ(KRT_PLX_Manager_readAllClipFiles(all.get()), KRT_PLX_RESULT_OK);
        const KRT_PLX_KitQuery any = KRT_PLX_Kit_anyClip();
        std::uint64_t place = 0;
        Tally tally;
        while (KRT_PLX_ClipBase* const found =
                   KRT_PLX_Kit_find(linked(), all.get(), &any, &place)) {
            SCOPED_TRACE(utf8(KRT_PLX_Clip_id(found)) + " " + utf8(KRT_PLX_Clip_name(found)));
            if (KRT_PLX_Clip_readPart(found)) {
                expectToldWhatDiffers(found, support::modelOfRead(found));
                ++tally.copied;
            } else {
                expectUnreadable(found);
                ++tally.unreadable;
            }
        }
        return tally;
    }

    static void expectUnreadable(KRT_PLX_ClipBase* source)
    {
        Notices told;
        EXPECT_EQ(KRT_PLX_Kit_edit(linked(), source, KRT_PLX_NO_LANGUAGE, told.report()), nullptr);
        EXPECT_THAT(told.lines(), ElementsAre("part: cannot be read"));
    }

    static bool isAboutSaving(const KRT_PLX_KitNotice& notice)
    {
        return notice.reason == KRT_PLX_KIT_NOT_SAVED ||
               notice.reason == KRT_PLX_KIT_PREVENTS_SAVING;
    }

    static bool preventsSaving(const Notices& told)
    {
        return std::ranges::any_of(told.all(), [](const KRT_PLX_KitNotice& notice) {
            return notice.reason == KRT_PLX_KIT_PREVENTS_SAVING;
        });
    }

    Notices notices;
};

// The clips are the examples, or those that check_damaged.py makes, which knows how many there are.
TEST_F(KitCopy, OfEveryClipOfAFolderIsEqualOrTold)
{
    const std::string folder = setting("KRT_PLX_KIT_CLIPS");
    const Tally tally = copyAll(folder.empty() ? support::sourceFolder(KRT_PLX_TEST_SOURCE_FOLDER) /
                                                     "examples" / "library"
                                               : support::place(folder));
    std::cout << "copied " << tally.copied << ", unreadable " << tally.unreadable << "\n";
    EXPECT_TRUE(tally.copied >= 30 || !folder.empty());
}

class KitCopyOfRandom : public KitCopy, public testing::WithParamInterface<std::uint32_t> {};

TEST_P(KitCopyOfRandom, IsEqualOrTold)
{
    support::Random random(GetParam());
    const support::Path wave = addWaveFile();
    const std::string clips = setting("KRT_PLX_KIT_CLIPS_PER_SEED");
    for (int left = clips.empty() ? 5 : std::stoi(clips); left > 0; --left) {
        KRT_PLX_ClipBase* const own = createMutableClip();
        fillRandomly(own, random, wave);
        ASSERT_NO_FATAL_FAILURE(expectToldWhatDiffers(own, support::modelOfEditable(own)));
        KRT_PLX_ClipBase* const saved = support::save(own).clip;
        ASSERT_TRUE(KRT_PLX_Clip_readPart(saved));
        ASSERT_NO_FATAL_FAILURE(expectToldWhatDiffers(saved, support::modelOfRead(saved)));
        KRT_PLX_MutableClip_destroy(own);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, KitCopyOfRandom, testing::Range(1u, 1 + support::seeds(10)));

TEST_F(KitCopy, OfWhatSavingDoesNotKeepTellsSo)
{
    for (const auto create : {support::createMidiPart, support::createMidiAiPart}) {
        KRT_PLX_PartBase* const part = create(clip);
        for (std::int32_t pos = 0; pos < 9; ++pos) {
            support::insertNote(part, pos);
        }
        const auto notes = support::notesOf(part);
        for (const std::size_t i : {0U, 1U, 2U}) {
            KRT_PLX_MutableSingingSkill_setDuration(KRT_PLX_MutableNote_singingSkill(notes[i]), 99);
        }
        for (const std::size_t i : {3U, 4U}) {
            KRT_PLX_VibratoBase* const vibrato = KRT_PLX_MutableNote_vibrato(notes[i]);
            KRT_PLX_MutableVibrato_setDuration(vibrato, 99);
            KRT_PLX_MutableVibrato_insertParameter(vibrato, KRT_PLX_VIBRATO_RATE, 99, 1);
        }
        KRT_PLX_MutableNote_setDuration(notes[0], 98);
        KRT_PLX_MutableNote_setDuration(notes[3], 98);
        KRT_PLX_MutableVibrato_setDuration(KRT_PLX_MutableNote_vibrato(notes[4]), 98);
        for (const auto& [i, levels] : {std::pair(1U, 1), std::pair(5U, 5), std::pair(6U, 0)}) {
            KRT_PLX_DvqmBase* const dvqm = KRT_PLX_MutableNote_dvqm(notes[i], i == 1);
            KRT_PLX_MutableDvqm_setCompID(dvqm, text("ID").c_str());
            for (int level = 0; level < levels; ++level) {
                KRT_PLX_MutableDvqm_addLevelName(dvqm, text("level").c_str());
            }
        }
        KRT_PLX_MutableDvqm_setSpeed(KRT_PLX_MutableNote_dvqm(notes[7], true), 51);
        KRT_PLX_MutableNote_setFormantEnd(notes[8], 0.25F);
        KRT_PLX_MutableMidiPart_addMidiController(part, KRT_PLX_CONTROLLER_AIR);
        KRT_PLX_EffectBase* const effect =
            KRT_PLX_MutableMidiPart_insertAudioEffect(part, 0, text("x").c_str());
        KRT_PLX_MutableEffectParameter_setValueInt32(support::addParameter(effect, "Bypass"), 1);
        KRT_PLX_MutableEffectParameter_setValueInt32(support::addParameter(effect, "Room"), 1);
        ASSERT_NO_FATAL_FAILURE(expectToldWhatDiffers(clip, support::modelOfEditable(clip)));
    }
}

// --- Languages --------------------------------------------------------------------------------------

class KitLanguage : public KitCopy {
protected:
    // A part of an AI voice with notes of these languages; "" is none.
    KRT_PLX_ClipBase* read(const std::string& aiLanguages,
                           const std::vector<std::string>& languages)
    {
        std::string notes;
        for (std::size_t i = 0; i < languages.size(); ++i) {
            notes += std::string(i == 0 ? "" : ",") + R"({"pos":)" + std::to_string(480 * i) +
                     R"(,"duration":480,"lyric":"la","phoneme":"l a","number":60,"velocity":90)" +
                     (languages[i].empty() ? "" : R"(,"langID":)" + languages[i]) + "}";
        }
        return readSystemClip(R"({"id":"i","name":"n","part":{"type":"midiAi"}})",
                              R"({"midiAi":{"duration":1,"aiVoice":{"compID":")" +
                                  std::string(support::voiceBankID) + R"(","langIDs":[)" +
                                  aiLanguages + R"(]},"notes":[)" + notes + "]}}");
    }

    std::vector<std::uint32_t> languagesOf(KRT_PLX_ClipBase* copy)
    {
        std::vector<std::uint32_t> languages;
        for (KRT_PLX_NoteBase* const note : support::notesOf(KRT_PLX_MutableClip_midiPart(copy))) {
            languages.push_back(KRT_PLX_NoteBase_langID(note));
        }
        return languages;
    }
};

TEST_F(KitLanguage, IsTheOneThatIsOffered)
{
    KRT_PLX_ClipBase* const copy = edit(read(R"({"langID":5})", {"", "7", ""}), 9);
    EXPECT_THAT(languagesOf(copy), ElementsAre(9, 7, 9));
    EXPECT_THAT(notices.lines(),
                ElementsAre("note 1 at 0: langID: had no language and was given one",
                            "note 3 at 960: langID: had no language and was given one"));
    EXPECT_EQ(notices.all()[1].value, 9u);
    EXPECT_EQ(notices.all()[1].index, 2u);
}

TEST_F(KitLanguage, IsThePartsOwnWhenNoneIsOffered)
{
    EXPECT_THAT(languagesOf(edit(read(R"({"langID":5})", {"", "7"}))), ElementsAre(5, 7));
    EXPECT_EQ(notices.all().at(0).value, 5u);
}

TEST_F(KitLanguage, IsThatOfAnotherNoteWhenThePartHasNone)
{
    EXPECT_THAT(languagesOf(edit(read("", {"", "7", "8"}))), ElementsAre(7, 7, 8));
}

TEST_F(KitLanguage, WithoutAnyNotesAreLeftOutAndTold)
{
    EXPECT_THAT(languagesOf(edit(read("", {"", ""}))), IsEmpty());
    EXPECT_THAT(notices.lines(), ElementsAre("note 1 at 0: langID: left out; it has no language",
                                             "note 2 at 480: langID: left out; it has no language",
                                             "part: aiVoice.langIDs: prevents saving"));
}

// --- Order and handles ------------------------------------------------------------------------------

TEST_F(KitCopy, KeepsTheOrderOfNotesAtOnePosition)
{
    KRT_PLX_PartBase* const part = support::createMidiPart(clip);
    std::vector<std::uint32_t> numbers;
    for (std::uint32_t number = 0; number < 6; ++number) {
        KRT_PLX_MutableNote_setNumber(support::insertNote(part, number < 4 ? 0 : 480), number);
    }
    for (KRT_PLX_NoteBase* const note :
         support::notesOf(KRT_PLX_MutableClip_midiPart(edit(clip)))) {
        numbers.push_back(KRT_PLX_NoteBase_number(note));
    }
    EXPECT_THAT(numbers, ElementsAre(3, 2, 1, 0, 5, 4));
}

TEST_F(KitCopy, ReplacesWhatTheTargetHad)
{
    KRT_PLX_ClipBase* const target = createMutableClip();
    support::insertNote(support::createMidiAiPart(target), 0);
    KRT_PLX_Filter* const tags = KRT_PLX_MutableClip_filter(target);
    KRT_PLX_MutableFilter_addGenre(tags, text("old").c_str());
    KRT_PLX_MutableFilter_addGenre(tags, text("older").c_str());
    KRT_PLX_MutableFilter_addVendor(tags, text("").c_str());
    KRT_PLX_MutableFilter_addLanguage(tags, 3);
    KRT_PLX_MutableClip_setVendorName(target, text("old").c_str());
    KRT_PLX_MutableClip_setPartKey(target, 3);
    support::createMidiPart(clip);
    ASSERT_TRUE(KRT_PLX_Kit_fill(linked(), target, clip, KRT_PLX_NO_LANGUAGE, notices.report()));
    EXPECT_EQ(describe(support::modelOfEditable(target)), describe(support::modelOfEditable(clip)));
    EXPECT_THAT(notices.lines(), IsEmpty());
}

TEST_F(KitCopy, OfWhatCannotBeReadIsNoneAndTold)
{
    KRT_PLX_ClipBase* const damaged =
        readSystemClip(R"({"id":"i","name":"n","part":{"type":"midi"}})", "{");
    EXPECT_EQ(edit(damaged), nullptr);
    EXPECT_EQ(edit(createMutableClip()), nullptr);
    EXPECT_THAT(notices.lines(), ElementsAre("part: cannot be read", "part: cannot be read"));
}

TEST_F(KitCopy, OfNothingAndIntoNothingIsFalse)
{
    support::createMidiPart(clip);
    KRT_PLX_ClipBase* const read =
        readSystemClip(R"({"id":"i","name":"n","part":{"type":"midi"}})", "{}");
    const auto fill = [](const KRT_PLX_Api* plx, KRT_PLX_ClipBase* to, KRT_PLX_ClipBase* from) {
        return KRT_PLX_Kit_fill(plx, to, from, KRT_PLX_NO_LANGUAGE, nullptr);
    };
    EXPECT_FALSE(fill(linked(), nullptr, clip));
    EXPECT_FALSE(fill(linked(), clip, nullptr));
    EXPECT_FALSE(fill(linked(), clip, clip));
    EXPECT_FALSE(fill(linked(), read, clip));
    EXPECT_FALSE(fill(nullptr, createMutableClip(), clip));
    const KRT_PLX_Api empty = {};
    EXPECT_FALSE(fill(&empty, createMutableClip(), clip));
    EXPECT_TRUE(fill(linked(), createMutableClip(), clip));
}

TEST_F(KitCopy, TellsOfParametersOfOneName)
{
    KRT_PLX_ClipBase* const read = readSystemClip(
        R"({"id":"i","name":"n","part":{"type":"midi"}})",
        support::midiDocument(R"(, "midiEffects":[{"id":"e","parameters":[{"name":"a","value":1},)"
                              R"({"name":"a","value":2},{"name":"b","value":3}]}])"));
    KRT_PLX_EffectBase* const effect =
        KRT_PLX_MutableMidiPart_midiEffect(KRT_PLX_MutableClip_midiPart(edit(read)), 0);
    EXPECT_EQ(notices.lines().at(0),
              "MIDI effect 1: parameters: left out; there is one of this name already");
    EXPECT_EQ(notices.all()[0].inner, 1u);
    EXPECT_EQ(KRT_PLX_EffectParameterBase_valueInt32(KRT_PLX_MutableEffect_parameter(effect, 0)),
              1);
    EXPECT_EQ(KRT_PLX_EffectParameterBase_valueInt32(KRT_PLX_MutableEffect_parameter(effect, 1)),
              3);
}

TEST_F(KitCopy, WithoutItsWaveFileTellsSo)
{
    const support::Path wave = addWaveFile();
    support::createAudioPart(clip, wave);
    std::filesystem::remove(wave);
    EXPECT_NE(edit(clip), nullptr);
    EXPECT_THAT(notices.lines(), ElementsAre("part: wavFileName: the wave file does not exist",
                                             "part: wavFileName: prevents saving"));
}

// --- What prevents saving ---------------------------------------------------------------------------

TEST_F(KitCopy, TellsWhatPreventsSaving)
{
    KRT_PLX_MutableClip_createMidiPart(clip);
    EXPECT_FALSE(KRT_PLX_Kit_checkSaving(linked(), clip, notices.report()));
    EXPECT_FALSE(KRT_PLX_Kit_checkSaving(linked(), clip, nullptr));
    EXPECT_FALSE(KRT_PLX_Kit_checkSaving(linked(), nullptr, nullptr));
    EXPECT_THAT(notices.lines(), ElementsAre("part: voice.compID: prevents saving",
                                             "part: voice.langID: prevents saving"));
    EXPECT_EQ(support::save(clip).code, KRT_PLX_RESULT_NO_VOICE_BANK);
    KRT_PLX_NoteBase* const note = support::insertNote(support::createMidiAiPart(clip), 0);
    EXPECT_TRUE(KRT_PLX_Kit_checkSaving(linked(), clip, notices.report()));
    KRT_PLX_MutableNote_setPitchFine(note, std::numeric_limits<float>::quiet_NaN());
    EXPECT_FALSE(KRT_PLX_Kit_checkSaving(linked(), clip, notices.report()));
    EXPECT_EQ(notices.lines().back(), "note 1 at 0: pitchFine: prevents saving");
    EXPECT_EQ(support::save(clip).code, KRT_PLX_RESULT_FILE_NOT_WRITTEN);
}

} // namespace
