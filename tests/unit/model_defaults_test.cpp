// What new objects contain. The exported functions only show them later.
#include <bit>
#include <cstdint>

#include <gtest/gtest.h>

#include "model/audio_part_impl.h"
#include "model/midi_part_impl.h"

namespace {

using namespace Korvel::CANTORIS::PLX;

std::size_t lengthOf(const Char* text)
{
    return StringView(text).size();
}

void expectNewNote(const NoteBase& note)
{
    EXPECT_EQ(lengthOf(note.lyric()), 0u);
    EXPECT_EQ(lengthOf(note.phoneme()), 0u);
    EXPECT_EQ(note.langID(), 4294967295u);
    EXPECT_FALSE(note.isProtected());
    EXPECT_EQ(note.pos(), 0);
    EXPECT_EQ(note.duration(), 1);
    EXPECT_EQ(note.number(), 0u);
    EXPECT_EQ(note.velocity(), 0u);
    EXPECT_EQ(note.accent(), 50u);
    EXPECT_EQ(note.bendDepth(), 0u);
    EXPECT_EQ(note.bendLength(), 0u);
    EXPECT_EQ(note.decay(), 50u);
    EXPECT_FALSE(note.fallPort());
    EXPECT_FALSE(note.risePort());
    EXPECT_EQ(note.opening(), 127u);
}

void expectNewAiExpression(const NoteBase& note)
{
    for (const float value :
         {note.pitchFine(), note.pitchDriftStart(), note.pitchDriftEnd(), note.pitchScalingCenter(),
          note.pitchScalingOrigin(), note.pitchTransitionStart(), note.pitchTransitionEnd(),
          note.amplitudeWhole(), note.amplitudeStart(), note.amplitudeEnd(), note.formantWhole(),
          note.formantStart(), note.formantEnd()}) {
        EXPECT_EQ(value, 0.5F);
    }
}

void expectNewDvqm(const DvqmBase& dvqm, bool isAttack)
{
    EXPECT_EQ(dvqm.isAttack(), isAttack);
    EXPECT_EQ(lengthOf(dvqm.compID()), 0u);
    EXPECT_EQ(dvqm.numLevelNames(), 0u);
    EXPECT_EQ(dvqm.levelName(0), nullptr);
    EXPECT_FALSE(dvqm.isProtected());
    EXPECT_EQ(dvqm.speed(), 50u);
    EXPECT_EQ(dvqm.topFactor(), 1.0F);
}

void expectNewSingingSkill(const SingingSkillBase& skill)
{
    EXPECT_EQ(skill.duration(), 0);
    EXPECT_EQ(skill.preWeight(), 64u);
    EXPECT_EQ(skill.postWeight(), 64u);
}

void expectNewVibrato(const VibratoBase& vibrato)
{
    EXPECT_EQ(vibrato.type(), 0u);
    EXPECT_EQ(vibrato.duration(), 0);
    EXPECT_EQ(vibrato.numParameters(0), 0);
    EXPECT_EQ(vibrato.numParameters(1), 0);
    EXPECT_EQ(vibrato.numParameters(2), -1);
    EXPECT_EQ(vibrato.numParameters(0xFFFFFFFF), -1);
}

void expectNewMidiPart(const MidiPartBase& part)
{
    EXPECT_EQ(part.duration(), 1);
    EXPECT_EQ(part.langID(), 4294967295u);
    EXPECT_EQ(part.aiLangIDSize(), 0u);
    EXPECT_EQ(part.aiLangIDByIndex(0), 4294967295u);
    for (const Char* const text :
         {part.styleName(), part.stylePresetID(), part.voiceBankID(), part.aiVoiceBankID()}) {
        EXPECT_EQ(lengthOf(text), 0u);
    }
    EXPECT_EQ(part.numNotes(), 0u);
    EXPECT_EQ(part.numAudioEffects(), 0u);
    EXPECT_EQ(part.numMidiEffects(), 0u);
}

void expectNewAudioPart(const AudioPartBase& part)
{
    EXPECT_EQ(lengthOf(part.wavFilePath()), 0u);
    EXPECT_EQ(part.begin(), 0);
    EXPECT_EQ(part.end(), 0);
    EXPECT_EQ(part.numAudioEffects(), 0u);
}

void expectNewParameter(const EffectParameterBase& parameter)
{
    EXPECT_EQ(parameter.type(), 0u);
    EXPECT_EQ(parameter.valueInt32(), -2147483647 - 1);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(parameter.valueFloat()), 0x00800000u);
    EXPECT_EQ(lengthOf(parameter.valueString()), 0u);
}

void expectTypeAsSet(PartBase&& part)
{
    EXPECT_EQ(part.type(), 4u);
    for (const std::uint32_t type : {3u, 1u, 2u}) {
        part.setType(type);
        EXPECT_EQ(part.type(), type);
    }
}

// A part of each kind with everything in it, read-only and editable.
class ModelDefaults : public testing::Test {
protected:
    MidiPartImpl readOnlyPart{nullptr};
    MutableMidiPartImpl editablePart{nullptr};
    BlockList<MutableNoteImpl> editableNotes;
    NoteImpl readOnlyNote{readOnlyPart};
    MutableNoteImpl editableNote{editablePart, editableNotes};
};

TEST_F(ModelDefaults, OfNotesAreThoseOfBothVariants)
{
    expectNewNote(readOnlyNote);
    expectNewNote(editableNote);
    expectNewAiExpression(readOnlyNote);
    expectNewAiExpression(editableNote);
}

TEST_F(ModelDefaults, OfExpressionsAreThoseOfBothVariants)
{
    for (const bool isAttack : {true, false}) {
        expectNewDvqm(*readOnlyNote.dvqm(isAttack), isAttack);
        expectNewDvqm(*editableNote.dvqm(isAttack), isAttack);
    }
    expectNewSingingSkill(*readOnlyNote.singingSkill());
    expectNewSingingSkill(*editableNote.singingSkill());
    expectNewVibrato(*readOnlyNote.vibrato());
    expectNewVibrato(*editableNote.vibrato());
}

TEST_F(ModelDefaults, OfPartsAreThoseOfBothVariants)
{
    expectNewMidiPart(readOnlyPart);
    expectNewMidiPart(editablePart);
    expectNewAudioPart(AudioPartImpl(nullptr));
    expectNewAudioPart(MutableAudioPartImpl(nullptr));
}

TEST_F(ModelDefaults, AreNoTypeForAPartThatWasNotGivenOne)
{
    expectTypeAsSet(MidiPartImpl(nullptr));
    expectTypeAsSet(MutableMidiPartImpl(nullptr));
    expectTypeAsSet(AudioPartImpl(nullptr));
    expectTypeAsSet(MutableAudioPartImpl(nullptr));
}

TEST_F(ModelDefaults, OfParametersAreThoseOfBothVariants)
{
    AudioEffectImpl readOnly(readOnlyPart, "Reverb"_t);
    expectNewParameter(EffectParameterImpl(readOnly, "Depth"_t));
    EffectBase* const editable = editablePart.insertAudioEffect(0, "Reverb"_t.data());
    BlockList<MutableEffectParameterImpl> siblings;
    expectNewParameter(MutableEffectParameterImpl(*editable, siblings, "Depth"_t));
}

TEST_F(ModelDefaults, OfAnEditableEventAreZero)
{
    OwnedList<MutableMidiControllerImpl> lanes;
    MutableMidiControllerImpl lane(editablePart, lanes, 3);
    const MutableMidiEventImpl event(lane, 0);
    EXPECT_EQ(event.pos(), 0);
    EXPECT_EQ(event.value(), 0);
    EXPECT_EQ(event.type(), 3u);
}

// --- Which variant ------------------------------------------------------------------------------------

template <class Object>
void expectVariant(const Object& object, bool isMutable)
{
    EXPECT_EQ(object.isMutable(), isMutable);
}

TEST_F(ModelDefaults, EveryObjectKnowsItsVariant)
{
    expectVariant(readOnlyPart, false);
    expectVariant(editablePart, true);
    expectVariant(AudioPartImpl(nullptr), false);
    expectVariant(MutableAudioPartImpl(nullptr), true);
    expectVariant(readOnlyNote, false);
    expectVariant(editableNote, true);
    expectVariant(*readOnlyNote.vibrato(), false);
    expectVariant(*editableNote.vibrato(), true);
    expectVariant(*readOnlyNote.dvqm(true), false);
    expectVariant(*editableNote.dvqm(true), true);
    expectVariant(*readOnlyNote.singingSkill(), false);
    expectVariant(*editableNote.singingSkill(), true);
}

TEST_F(ModelDefaults, ANoteThatIsInNoListIsNotRemoved)
{
    EXPECT_FALSE(editableNote.remove());
}

// A part cannot have a lane of an unknown controller; such a lane would accept nothing.
TEST_F(ModelDefaults, ALaneOfAnUnknownControllerTakesNoEvent)
{
    OwnedList<MutableMidiControllerImpl> lanes;
    MutableMidiControllerImpl lane(editablePart, lanes, KRT_PLX_CONTROLLER_NONE);
    EXPECT_EQ(lane.minEventValue(), 2147483647);
    EXPECT_EQ(lane.maxEventValue(), -2147483647 - 1);
    EXPECT_EQ(lane.insertEvent(0, 0), nullptr);
    EXPECT_EQ(lane.numEvents(), 0u);
    EXPECT_FALSE(lane.remove());
}

} // namespace
