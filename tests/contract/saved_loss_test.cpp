// What a clip loses when it is saved and read again, one by one. The random round trips show that nothing
// else is lost.
#include <cmath>
#include <limits>

#include "support/clip_model.h"
#include "support/editing.h"
#include "support/saving.h"

using support::ClipModel;
using support::NoteModel;
using support::text;
using support::utf8;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr float largestFloat = std::numeric_limits<float>::max();
constexpr float smallestFloat = std::numeric_limits<float>::min(); // that is normal
constexpr std::int32_t smallestInt = std::numeric_limits<std::int32_t>::min();

class SavedLoss : public SaveTest {
protected:
    // What a new manager finds of the clip.
    ClipModel reread()
    {
        KRT_PLX_ClipBase* const saved = support::save(clip).clip;
        const std::string id = utf8(KRT_PLX_Clip_id(saved));
        const auto other = support::createManager({systemFolder(), userFolder(), {}, {}});
        EXPECT_EQ(KRT_PLX_Manager_readAllClipFiles(other.get()), KRT_PLX_RESULT_OK);
        KRT_PLX_ClipBase* const found = support::findUserClip(other.get(), id);
        EXPECT_TRUE(KRT_PLX_Clip_readPart(found));
        return support::modelOfRead(found);
    }

    // The one note of the clip.
    NoteModel rereadNote() { return reread().part.notes.at(0); }
};

// --- Tags -------------------------------------------------------------------------------------------

TEST_F(SavedLoss, VendorTagsBecomeTheVendorName)
{
    support::createMidiPart(clip);
    KRT_PLX_Filter* const tags = KRT_PLX_MutableClip_filter(clip);
    KRT_PLX_MutableFilter_addVendor(tags, text("one").c_str());
    KRT_PLX_MutableFilter_addVendor(tags, text("two").c_str());
    EXPECT_THAT(reread().vendors(), IsEmpty());
    KRT_PLX_MutableFilter_addType(tags, text("type").c_str());
    EXPECT_THAT(reread().vendors(), ElementsAre(""));
    KRT_PLX_MutableClip_setVendorName(clip, text("Studio").c_str());
    EXPECT_THAT(reread().vendors(), ElementsAre("Studio"));
}

// --- Audio parts ------------------------------------------------------------------------------------

TEST_F(SavedLoss, OfAudioClipsKeyTempoAndRegion)
{
    KRT_PLX_MutableClip_setPartKey(clip, 5);
    KRT_PLX_MutableClip_setPartTempo(clip, 9000);
    KRT_PLX_PartBase* const part = support::createAudioPart(clip, addWaveFile());
    EXPECT_TRUE(KRT_PLX_MutableAudioPart_setRegion(part, 10, 20));
    const ClipModel found = reread();
    EXPECT_EQ(found.values[KRT_PLX_ClipBase_partKey], 0u);
    EXPECT_EQ(found.values[KRT_PLX_ClipBase_partTempo], 0u);
    EXPECT_EQ(found.part.begin, 0);
    EXPECT_EQ(found.part.end, 0);
}

TEST_F(SavedLoss, OfAudioPartsTheFolderOfTheWaveFile)
{
    support::createAudioPart(clip, addWaveFile("take.wav"));
    const std::string path = reread().part.wavFilePath;
    EXPECT_THAT(path, testing::StartsWith(utf8(KRT_PLX_Manager_userClipDirPath(manager()))));
    EXPECT_THAT(path, testing::EndsWith("\\audio\\take.wav"));
}

// --- MIDI parts -------------------------------------------------------------------------------------

TEST_F(SavedLoss, OfPartsTheVoiceOfTheOtherType)
{
    KRT_PLX_PartBase* part = support::createMidiPart(clip);
    KRT_PLX_MutableMidiPart_setAiVoiceBankID(part, text("0123456789abcdef").c_str());
    KRT_PLX_MutableMidiPart_addAiLangID(part, 3);
    const ClipModel midi = reread();
    EXPECT_EQ(midi.part.values[KRT_PLX_MidiPartBase_voiceBankID], support::voiceBankID);
    EXPECT_EQ(midi.part.values[KRT_PLX_MidiPartBase_aiVoiceBankID], "");
    EXPECT_THAT(midi.part.aiLangIDs, IsEmpty());

    part = support::createMidiAiPart(clip);
    KRT_PLX_MutableMidiPart_setVoiceBankID(part, text("0123456789abcdef").c_str());
    KRT_PLX_MutableMidiPart_setLangID(part, 3);
    const ClipModel midiAi = reread();
    EXPECT_EQ(midiAi.part.values[KRT_PLX_MidiPartBase_aiVoiceBankID], support::voiceBankID);
    EXPECT_EQ(midiAi.part.values[KRT_PLX_MidiPartBase_voiceBankID], "");
    EXPECT_EQ(midiAi.part.values[KRT_PLX_MidiPartBase_langID], KRT_PLX_NO_LANGUAGE);
}

TEST_F(SavedLoss, LanesWithoutEvents)
{
    KRT_PLX_PartBase* const part = support::createMidiPart(clip);
    KRT_PLX_MutableMidiPart_addMidiController(part, 4);
    KRT_PLX_MutableMidiController_insertEvent(KRT_PLX_MutableMidiPart_addMidiController(part, 6), 1,
                                              2);
    const ClipModel found = reread();
    ASSERT_EQ(found.part.lanes.size(), 1u);
    EXPECT_EQ(found.part.lanes[0].type, 6u);
}

// --- Notes ------------------------------------------------------------------------------------------

TEST_F(SavedLoss, TheAiExpressionOfVoiceBanks)
{
    for (const auto create : {support::createMidiPart, support::createMidiAiPart}) {
        KRT_PLX_NoteBase* const note = support::insertNote(create(clip), 0);
        const NoteModel before = rereadNote();
        support::forEachProperty<KRT_PLX_NoteBase, float>(
            [=](const auto& property) { property.set(note, 0.25f); });
        const bool isLost = create == support::createMidiPart;
        const NoteModel found = rereadNote();
        support::forEachProperty<KRT_PLX_NoteBase, float>([&](const auto& property) {
            EXPECT_EQ(found.values[property.get], isLost ? before.values[property.get] : 0.25f)
                << support::nameOf(property);
        });
    }
}

void name(KRT_PLX_DvqmBase* dvqm, int levelNames)
{
    KRT_PLX_MutableDvqm_setCompID(dvqm, text("ID").c_str());
    for (int i = 1; i <= levelNames; ++i) {
        KRT_PLX_MutableDvqm_addLevelName(dvqm, text(std::to_string(i)).c_str());
    }
    KRT_PLX_MutableDvqm_setSpeed(dvqm, 3);
}

void expectLost(const support::DvqmModel& dvqm)
{
    EXPECT_EQ(dvqm.values[KRT_PLX_DvqmBase_compID], "");
    EXPECT_THAT(dvqm.levelNames, IsEmpty());
    EXPECT_EQ(dvqm.values[KRT_PLX_DvqmBase_speed], 50u);
}

TEST_F(SavedLoss, TheAttackAndReleaseOfAiVoices)
{
    KRT_PLX_NoteBase* const note = support::insertNote(support::createMidiAiPart(clip), 0);
    name(KRT_PLX_MutableNote_dvqm(note, true), 2);
    name(KRT_PLX_MutableNote_dvqm(note, false), 3);
    KRT_PLX_MutableSingingSkill_setDuration(KRT_PLX_MutableNote_singingSkill(note), 100);
    const NoteModel found = rereadNote();
    expectLost(found.attack);
    expectLost(found.release);
    EXPECT_EQ(found.singingSkill[KRT_PLX_SingingSkillBase_duration], 100);
}

TEST_F(SavedLoss, AnAttackWithFiveLevels)
{
    KRT_PLX_NoteBase* const note = support::insertNote(support::createMidiPart(clip), 0);
    name(KRT_PLX_MutableNote_dvqm(note, true), 5);
    name(KRT_PLX_MutableNote_dvqm(note, false), 4);
    const NoteModel found = rereadNote();
    expectLost(found.attack);
    EXPECT_EQ(found.release.values[KRT_PLX_DvqmBase_compID], "ID");
    EXPECT_THAT(found.release.levelNames, ElementsAre("1", "2", "3", "4"));
    EXPECT_EQ(found.release.values[KRT_PLX_DvqmBase_speed], 3u);
}

TEST_F(SavedLoss, TheSingingSkillBesideAnAttackOrRelease)
{
    // Five levels are too many: they are lost, and the singing skill with them.
    for (const int levels : {1, 5}) {
        for (const bool isAttack : {true, false}) {
            KRT_PLX_NoteBase* const note = support::insertNote(support::createMidiPart(clip), 0);
            KRT_PLX_SingingSkillBase* const skill = KRT_PLX_MutableNote_singingSkill(note);
            KRT_PLX_MutableSingingSkill_setDuration(skill, 100);
            KRT_PLX_MutableSingingSkill_setPreWeight(skill, 1);
            KRT_PLX_MutableSingingSkill_setPostWeight(skill, 2);
            KRT_PLX_MutableDvqm_setCompID(KRT_PLX_MutableNote_dvqm(note, isAttack),
                                          text("no levels yet").c_str());
            EXPECT_EQ(rereadNote().singingSkill[KRT_PLX_SingingSkillBase_duration], 100);
            name(KRT_PLX_MutableNote_dvqm(note, isAttack), levels);
            const auto found = rereadNote().singingSkill;
            EXPECT_EQ(found[KRT_PLX_SingingSkillBase_duration], 0);
            EXPECT_EQ(found[KRT_PLX_SingingSkillBase_preWeight], 64u);
            EXPECT_EQ(found[KRT_PLX_SingingSkillBase_postWeight], 64u);
        }
    }
}

TEST_F(SavedLoss, ASingingSkillLongerThanItsShortenedNote)
{
    KRT_PLX_NoteBase* const note = support::insertNote(support::createMidiPart(clip), 0);
    KRT_PLX_SingingSkillBase* const skill = KRT_PLX_MutableNote_singingSkill(note);
    KRT_PLX_MutableSingingSkill_setDuration(skill, 480);
    KRT_PLX_MutableSingingSkill_setPreWeight(skill, 1);
    KRT_PLX_MutableNote_setDuration(note, 479);
    EXPECT_EQ(rereadNote().singingSkill[KRT_PLX_SingingSkillBase_duration], 0);
    EXPECT_EQ(rereadNote().singingSkill[KRT_PLX_SingingSkillBase_preWeight], 1u);
    KRT_PLX_MutableNote_setDuration(note, 480);
    EXPECT_EQ(rereadNote().singingSkill[KRT_PLX_SingingSkillBase_duration], 480);
}

TEST_F(SavedLoss, AVibratoLongerThanItsShortenedNote)
{
    KRT_PLX_NoteBase* const note = support::insertNote(support::createMidiPart(clip), 0);
    KRT_PLX_VibratoBase* const vibrato = KRT_PLX_MutableNote_vibrato(note);
    KRT_PLX_MutableVibrato_setType(vibrato, 5);
    KRT_PLX_MutableVibrato_setDuration(vibrato, 480);
    KRT_PLX_MutableVibrato_insertParameter(vibrato, 0, 0, 1);
    KRT_PLX_MutableVibrato_insertParameter(vibrato, 1, 0, 1);
    KRT_PLX_MutableNote_setDuration(note, 479);
    const support::VibratoModel found = rereadNote().vibrato;
    EXPECT_EQ(found.values[KRT_PLX_VibratoBase_type], 5u);
    EXPECT_EQ(found.values[KRT_PLX_VibratoBase_duration], 0);
    EXPECT_THAT(found.depths, IsEmpty());
    EXPECT_THAT(found.rates, IsEmpty());
}

TEST_F(SavedLoss, PointsBeyondAShortenedVibrato)
{
    KRT_PLX_NoteBase* const note = support::insertNote(support::createMidiPart(clip), 0);
    KRT_PLX_VibratoBase* const vibrato = KRT_PLX_MutableNote_vibrato(note);
    KRT_PLX_MutableVibrato_setDuration(vibrato, 480);
    for (const std::int32_t pos : {0, 100, 101}) {
        KRT_PLX_MutableVibrato_insertParameter(vibrato, 0, pos, 1);
    }
    KRT_PLX_MutableVibrato_setDuration(vibrato, 100);
    const support::VibratoModel found = rereadNote().vibrato;
    EXPECT_EQ(found.values[KRT_PLX_VibratoBase_duration], 100);
    ASSERT_EQ(found.depths.size(), 2u);
    EXPECT_EQ(found.depths[1].pos, 100);
}

// --- Effects ----------------------------------------------------------------------------------------

class SavedParameter : public SavedLoss {
protected:
    KRT_PLX_EffectParameterBase* add(KRT_PLX_EffectBase* effect, const char* name)
    {
        return KRT_PLX_MutableEffect_addParameter(effect, text(name).c_str());
    }

    KRT_PLX_PartBase* const part = support::createMidiPart(clip);
    KRT_PLX_EffectBase* const audioEffect =
        KRT_PLX_MutableMidiPart_insertAudioEffect(part, 0, text("x").c_str());
    KRT_PLX_EffectBase* const midiEffect =
        KRT_PLX_MutableMidiPart_insertMidiEffect(part, 0, text("x").c_str());
};

TEST_F(SavedParameter, WithoutAValue)
{
    add(audioEffect, "never set");
    add(midiEffect, "never set");
    const ClipModel found = reread();
    EXPECT_THAT(found.part.audioEffects.at(0).parameters, IsEmpty());
    EXPECT_THAT(found.part.midiEffects.at(0).parameters, IsEmpty());
}

TEST_F(SavedParameter, IntegersOfAudioEffectsBecomeFloats)
{
    for (KRT_PLX_EffectBase* const effect : {audioEffect, midiEffect}) {
        KRT_PLX_MutableEffectParameter_setValueInt32(add(effect, "Bypass"), 1);
        KRT_PLX_MutableEffectParameter_setValueInt32(add(effect, "Room"), 7);
    }
    const ClipModel found = reread();
    const auto& audio = found.part.audioEffects.at(0).parameters;
    EXPECT_EQ(audio.at(0).type, 1u);
    EXPECT_EQ(audio.at(0).values[KRT_PLX_EffectParameterBase_valueInt32], 1);
    EXPECT_EQ(audio.at(1).type, 2u);
    EXPECT_EQ(audio.at(1).values[KRT_PLX_EffectParameterBase_valueFloat], 7.0f);
    EXPECT_EQ(audio.at(1).values[KRT_PLX_EffectParameterBase_valueInt32], smallestInt);
    const auto& midi = found.part.midiEffects.at(0).parameters;
    EXPECT_EQ(midi.at(1).type, 1u);
    EXPECT_EQ(midi.at(1).values[KRT_PLX_EffectParameterBase_valueInt32], 7);
}

TEST_F(SavedParameter, TheLowestFloatBecomesTheUnsetMark)
{
    const float kept = std::nextafter(-largestFloat, 0.0f);
    KRT_PLX_MutableEffectParameter_setValueFloat(add(midiEffect, "a"), -largestFloat);
    KRT_PLX_MutableEffectParameter_setValueFloat(add(midiEffect, "b"), largestFloat);
    KRT_PLX_MutableEffectParameter_setValueFloat(add(midiEffect, "c"), kept);
    const ClipModel found = reread();
    const auto& parameters = found.part.midiEffects.at(0).parameters;
    EXPECT_EQ(parameters.at(0).type, 2u);
    EXPECT_EQ(parameters.at(0).values[KRT_PLX_EffectParameterBase_valueFloat], smallestFloat);
    EXPECT_EQ(parameters.at(1).values[KRT_PLX_EffectParameterBase_valueFloat], largestFloat);
    EXPECT_EQ(parameters.at(2).values[KRT_PLX_EffectParameterBase_valueFloat], kept);
}

} // namespace
