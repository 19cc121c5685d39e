// The exact text of what saving writes of notes, lanes and effects.
#include <limits>

#include "support/editing.h"
#include "support/limits.h"
#include "support/saving.h"

using support::addParameter;
using support::largest;
using support::smallest;
using support::text;
using support::utf8;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

namespace {

// The thirteen values of an AI expression, all the same.
std::string aiExpression(const std::string& value)
{
    std::string object;
    for (const char* const key :
         {"pitchFine", "pitchDriftStart", "pitchDriftEnd", "pitchScalingCenter",
          "pitchScalingOrigin", "pitchTransitionStart", "pitchTransitionEnd", "amplitudeWhole",
          "amplitudeStart", "amplitudeEnd", "formantWhole", "formantStart", "formantEnd"}) {
        object += (object.empty() ? "" : ",") + ("\"" + std::string(key) + "\":" + value);
    }
    return R"("aiExp":{)" + object + "}";
}

const std::string defaultSkill = R"("singingSkill":{"duration":0,"weight":{"pre":64,"post":64}})";
const std::string defaultVibrato = R"("vibrato":{"type":0,"duration":0})";

// --- Notes ------------------------------------------------------------------------------------------

// A part of either type with one note, from 0 to 480.
class SavedNote : public SaveTest {
protected:
    void createNote(KRT_PLX_PartBase* ofPart)
    {
        part = ofPart;
        note = support::insertNote(part, 0);
        attack = KRT_PLX_MutableNote_dvqm(note, true);
        release = KRT_PLX_MutableNote_dvqm(note, false);
    }

    void createMidiNote() { createNote(support::createMidiPart(clip)); }
    void createMidiAiNote() { createNote(support::createMidiAiPart(clip)); }

    // What the document says of the one note.
    std::string noteText()
    {
        const std::string data = save().data;
        const std::string key = R"("notes":[)";
        const std::size_t start = data.find(key) + key.size();
        return data.substr(start, data.size() - start - std::string("]}}").size());
    }

    KRT_PLX_PartBase* part = nullptr;
    KRT_PLX_NoteBase* note = nullptr;
    KRT_PLX_DvqmBase* attack = nullptr;
    KRT_PLX_DvqmBase* release = nullptr;
};

const std::string newNote = R"({"pos":0,"duration":480,"lyric":"la","phoneme":"l a","langID":0,)"
                            R"("isProtected":false,"number":0,"velocity":0,)"
                            R"("exp":{"accent":50,"bendDepth":0,"bendLength":0,"decay":50,)"
                            R"("fallPort":false,"risePort":false,"opening":127},)" +
                            aiExpression("0.5") + "," + defaultSkill + "," + defaultVibrato + "}";

TEST_F(SavedNote, HasAllItsKeysEvenWhenNew)
{
    createMidiNote();
    EXPECT_EQ(noteText(), newNote);
    createMidiAiNote();
    EXPECT_EQ(noteText(), newNote);
}

TEST_F(SavedNote, HasItsOwnValues)
{
    createMidiNote();
    KRT_PLX_MutableNote_move(note, smallest);
    KRT_PLX_MutableNote_setDuration(note, largest);
    KRT_PLX_MutableNote_setLyric(note, text("さ").c_str());
    KRT_PLX_MutableNote_setPhoneme(note, text("s a").c_str());
    KRT_PLX_MutableNote_setLangID(note, 127);
    KRT_PLX_MutableNote_setProtected(note, true);
    KRT_PLX_MutableNote_setNumber(note, 60);
    KRT_PLX_MutableNote_setVelocity(note, 64);
    KRT_PLX_MutableNote_setAccent(note, 1);
    KRT_PLX_MutableNote_setBendDepth(note, 2);
    KRT_PLX_MutableNote_setBendLength(note, 3);
    KRT_PLX_MutableNote_setDecay(note, 4);
    KRT_PLX_MutableNote_setFallPort(note, true);
    KRT_PLX_MutableNote_setRisePort(note, true);
    KRT_PLX_MutableNote_setOpening(note, 5);
    EXPECT_EQ(noteText(), R"({"pos":-2147483648,"duration":2147483647,"lyric":"さ",)"
                          R"("phoneme":"s a","langID":127,"isProtected":true,"number":60,)"
                          R"("velocity":64,"exp":{"accent":1,"bendDepth":2,"bendLength":3,)"
                          R"("decay":4,"fallPort":true,"risePort":true,"opening":5},)" +
                              aiExpression("0.5") + "," + defaultSkill + "," + defaultVibrato +
                              "}");
}

TEST_F(SavedNote, OfAVoiceBankHasNeutralAiExpression)
{
    createMidiNote();
    KRT_PLX_MutableNote_setPitchFine(note, 1.0f);
    KRT_PLX_MutableNote_setFormantEnd(note, 0.0f);
    KRT_PLX_MutableNote_setAmplitudeWhole(note, std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(noteText(), newNote);
}

TEST_F(SavedNote, OfAnAiVoiceHasItsOwnAiExpression)
{
    using Set = bool (*)(KRT_PLX_NoteBase*, float);
    const Set sets[] = {
        KRT_PLX_MutableNote_setPitchFine,          KRT_PLX_MutableNote_setPitchDriftStart,
        KRT_PLX_MutableNote_setPitchDriftEnd,      KRT_PLX_MutableNote_setPitchScalingCenter,
        KRT_PLX_MutableNote_setPitchScalingOrigin, KRT_PLX_MutableNote_setPitchTransitionStart,
        KRT_PLX_MutableNote_setPitchTransitionEnd, KRT_PLX_MutableNote_setAmplitudeWhole,
        KRT_PLX_MutableNote_setAmplitudeStart,     KRT_PLX_MutableNote_setAmplitudeEnd,
        KRT_PLX_MutableNote_setFormantWhole,       KRT_PLX_MutableNote_setFormantStart,
        KRT_PLX_MutableNote_setFormantEnd};
    createMidiAiNote();
    float value = 0;
    for (const Set set : sets) {
        set(note, value);
        value += 0.0625f;
    }
    EXPECT_THAT(noteText(),
                HasSubstr(R"("aiExp":{"pitchFine":0.0,"pitchDriftStart":0.0625,)"
                          R"("pitchDriftEnd":0.125,"pitchScalingCenter":0.1875,)"
                          R"("pitchScalingOrigin":0.25,"pitchTransitionStart":0.3125,)"
                          R"("pitchTransitionEnd":0.375,"amplitudeWhole":0.4375,)"
                          R"("amplitudeStart":0.5,"amplitudeEnd":0.5625,"formantWhole":0.625,)"
                          R"("formantStart":0.6875,"formantEnd":0.75},)"));
}

TEST_F(SavedNote, HasItsSingingSkill)
{
    createMidiAiNote();
    KRT_PLX_SingingSkillBase* const skill = KRT_PLX_MutableNote_singingSkill(note);
    KRT_PLX_MutableSingingSkill_setDuration(skill, 480);
    KRT_PLX_MutableSingingSkill_setPreWeight(skill, 0);
    KRT_PLX_MutableSingingSkill_setPostWeight(skill, 127);
    EXPECT_THAT(noteText(),
                HasSubstr(R"(},"singingSkill":{"duration":480,"weight":{"pre":0,"post":127}},)"));
}

TEST_F(SavedNote, HasItsVibratoWithRatesBeforeDepths)
{
    createMidiNote();
    KRT_PLX_VibratoBase* const vibrato = KRT_PLX_MutableNote_vibrato(note);
    KRT_PLX_MutableVibrato_setType(vibrato, 16);
    KRT_PLX_MutableVibrato_setDuration(vibrato, 100);
    KRT_PLX_MutableVibrato_insertParameter(vibrato, 0, 50, 1);
    EXPECT_THAT(noteText(), EndsWith(R"("vibrato":{"type":16,"duration":100,)"
                                     R"("depths":[{"pos":50,"value":1}]}})"));
    KRT_PLX_MutableVibrato_insertParameter(vibrato, 1, 100, 127);
    KRT_PLX_MutableVibrato_insertParameter(vibrato, 1, 0, 3);
    EXPECT_THAT(noteText(), EndsWith(R"("vibrato":{"type":16,"duration":100,)"
                                     R"("rates":[{"pos":0,"value":3},{"pos":100,"value":127}],)"
                                     R"("depths":[{"pos":50,"value":1}]}})"));
    KRT_PLX_MutableVibratoParameter_remove(KRT_PLX_MutableVibrato_parameter(vibrato, 0, 0));
    EXPECT_THAT(noteText(), EndsWith(R"("rates":[{"pos":0,"value":3},{"pos":100,"value":127}]}})"));
}

// Lengths are not looked at again when the note is shortened, nor points when the vibrato is.
TEST_F(SavedNote, IsWrittenAsItIsWhenItWasShortened)
{
    createMidiNote();
    KRT_PLX_VibratoBase* const vibrato = KRT_PLX_MutableNote_vibrato(note);
    KRT_PLX_MutableVibrato_setDuration(vibrato, 480);
    KRT_PLX_MutableVibrato_insertParameter(vibrato, 0, 480, 1);
    KRT_PLX_MutableVibrato_setDuration(vibrato, 400);
    KRT_PLX_MutableSingingSkill_setDuration(KRT_PLX_MutableNote_singingSkill(note), 480);
    KRT_PLX_MutableNote_setDuration(note, 10);
    EXPECT_THAT(noteText(), AllOf(HasSubstr(R"("duration":10,)"),
                                  HasSubstr(R"("singingSkill":{"duration":480,)"),
                                  EndsWith(R"("vibrato":{"type":0,"duration":400,)"
                                           R"("depths":[{"pos":480,"value":1}]}})")));
}

void name(KRT_PLX_DvqmBase* dvqm, const char* compID, int levelNames)
{
    KRT_PLX_MutableDvqm_setCompID(dvqm, text(compID).c_str());
    for (int i = 1; i <= levelNames; ++i) {
        KRT_PLX_MutableDvqm_addLevelName(dvqm, text("L" + std::to_string(i)).c_str());
    }
}

TEST_F(SavedNote, HasAttackBeforeRelease)
{
    createMidiNote();
    name(release, "soft", 5);
    EXPECT_THAT(noteText(), EndsWith(defaultSkill +
                                     R"(,"dvqm":{"release":{"compID":"soft",)"
                                     R"("levelNames":["L1","L2","L3","L4","L5"],)"
                                     R"("isProtected":false,"speed":50,)"
                                     R"("topFactor":1.0}},)" +
                                     defaultVibrato + "}"));
    name(attack, "hard", 1);
    KRT_PLX_MutableDvqm_protect(attack, true);
    KRT_PLX_MutableDvqm_setSpeed(attack, 100);
    KRT_PLX_MutableDvqm_setTopFactor(attack, 2.0f);
    EXPECT_THAT(noteText(), HasSubstr(R"("dvqm":{"attack":{"compID":"hard","levelNames":["L1"],)"
                                      R"("isProtected":true,"speed":100,"topFactor":2.0},)"
                                      R"("release":{"compID":"soft",)"));
    KRT_PLX_MutableDvqm_setCompID(release, nullptr);
    EXPECT_THAT(noteText(),
                AllOf(HasSubstr(R"("topFactor":2.0}},"vibrato")"), Not(HasSubstr("release"))));
}

TEST_F(SavedNote, HasNoAttackOrReleaseWithoutIdOrLevels)
{
    createMidiNote();
    name(attack, "", 2);
    name(release, "soft", 0);
    KRT_PLX_MutableDvqm_setSpeed(release, 3);
    EXPECT_EQ(noteText(), newNote);
}

TEST_F(SavedNote, OfAnAiVoiceHasNoAttackOrRelease)
{
    createMidiAiNote();
    name(attack, "hard", 1);
    name(release, "soft", 4);
    EXPECT_EQ(noteText(), newNote);
}

TEST_F(SavedNote, StandsInTheOrderOfThePart)
{
    createMidiNote();
    KRT_PLX_MutableNote_setLyric(note, text("second").c_str());
    KRT_PLX_MutableNote_setLyric(support::insertNote(part, 0), text("first").c_str());
    KRT_PLX_MutableNote_setLyric(support::insertNote(part, 5), text("third").c_str());
    const std::string data = save().data;
    EXPECT_LT(data.find("first"), data.find("second"));
    EXPECT_LT(data.find("second"), data.find("third"));
}

// --- Lanes ------------------------------------------------------------------------------------------

const char* const laneNames[] = {"dynamics",    "portamento", "pitchBendSens", "pitchBend",
                                 "breathiness", "brightness", "clearness",     "voiceBlend",
                                 "growl",       "exciter",    "air",           "character"};

TEST_F(SaveTest, LanesStandInTheOrderOfTheirTypes)
{
    KRT_PLX_PartBase* const part = support::createMidiAiPart(clip);
    std::string wanted;
    for (std::uint32_t type = 12; type-- > 0;) {
        KRT_PLX_MidiControllerBase* const lane =
            KRT_PLX_MutableMidiPart_addMidiController(part, type);
        const std::int32_t value = KRT_PLX_MidiControllerBase_minEventValue(lane);
        KRT_PLX_MutableMidiController_insertEvent(lane, static_cast<std::int32_t>(type), value);
        wanted.insert(0, (type == 0 ? "" : ",") + (R"({"name":")" + std::string(laneNames[type])) +
                             R"(","events":[{"pos":)" + std::to_string(type) + R"(,"value":)" +
                             std::to_string(value) + "}]}");
    }
    EXPECT_THAT(save().data,
                EndsWith(R"("langIDs":[{"langID":0}]},"controllers":[)" + wanted + "]}}"));
}

TEST_F(SaveTest, EventsStandInTheOrderOfTheirPositions)
{
    KRT_PLX_MidiControllerBase* const lane =
        KRT_PLX_MutableMidiPart_addMidiController(support::createMidiPart(clip), 3);
    KRT_PLX_MutableMidiController_insertEvent(lane, largest, 8191);
    KRT_PLX_MutableMidiController_insertEvent(lane, 0, 0);
    KRT_PLX_MutableMidiController_insertEvent(lane, smallest, -8192);
    EXPECT_THAT(save().data, EndsWith(R"("controllers":[{"name":"pitchBend","events":[)"
                                      R"({"pos":-2147483648,"value":-8192},{"pos":0,"value":0},)"
                                      R"({"pos":2147483647,"value":8191}]}]}})"));
}

TEST_F(SaveTest, LanesWithoutEventsAreLeftOut)
{
    KRT_PLX_PartBase* const part = support::createMidiPart(clip);
    KRT_PLX_MutableMidiPart_addMidiController(part, 0);
    EXPECT_THAT(save().data, Not(HasSubstr("controllers")));
    KRT_PLX_MutableMidiController_insertEvent(KRT_PLX_MutableMidiPart_addMidiController(part, 1), 5,
                                              6);
    EXPECT_THAT(save().data, EndsWith(R"("controllers":[{"name":"portamento",)"
                                      R"("events":[{"pos":5,"value":6}]}]}})"));
}

// --- Effects ----------------------------------------------------------------------------------------

TEST_F(SaveTest, EffectsStandInTheirOrderAudioBeforeMidi)
{
    KRT_PLX_PartBase* const part = support::createMidiPart(clip);
    KRT_PLX_MutableMidiPart_insertMidiEffect(part, 0, text("m2").c_str());
    KRT_PLX_MutableMidiPart_insertMidiEffect(part, 0, text("m1").c_str());
    KRT_PLX_MutableMidiPart_insertAudioEffect(part, 0, text("z").c_str());
    KRT_PLX_MutableMidiPart_insertAudioEffect(part, 1, text("a").c_str());
    EXPECT_THAT(save().data, EndsWith(R"("langID":0},"audioEffects":[{"id":"z"},{"id":"a"}],)"
                                      R"("midiEffects":[{"id":"m1"},{"id":"m2"}]}})"));
}

TEST_F(SaveTest, ParametersStandInTheOrderOfTheirNames)
{
    KRT_PLX_EffectBase* const effect = KRT_PLX_MutableMidiPart_insertAudioEffect(
        support::createMidiPart(clip), 0, text("x").c_str());
    KRT_PLX_MutableEffectParameter_setValueString(addParameter(effect, "c"), text("\"").c_str());
    KRT_PLX_MutableEffectParameter_setValueString(addParameter(effect, "d"), nullptr);
    KRT_PLX_MutableEffectParameter_setValueFloat(addParameter(effect, "b"), -2.0f);
    KRT_PLX_MutableEffectParameter_setValueInt32(addParameter(effect, "aa"), smallest);
    KRT_PLX_MutableEffectParameter_setValueInt32(addParameter(effect, "a"), 7);
    EXPECT_THAT(save().data, EndsWith(R"("audioEffects":[{"id":"x","parameters":[)"
                                      R"({"name":"a","value":7},{"name":"aa","value":-2147483648},)"
                                      R"({"name":"b","value":-2.0},{"name":"c","value":"\""},)"
                                      R"({"name":"d","value":""}]}]}})"));
}

TEST_F(SaveTest, ParametersWithoutValueAreLeftOut)
{
    KRT_PLX_EffectBase* const effect = KRT_PLX_MutableMidiPart_insertMidiEffect(
        support::createMidiPart(clip), 0, text("x").c_str());
    addParameter(effect, "a");
    EXPECT_THAT(save().data, EndsWith(R"("midiEffects":[{"id":"x"}]}})"));
    KRT_PLX_MutableEffectParameter_setValueInt32(addParameter(effect, "b"), 0);
    EXPECT_THAT(save().data,
                EndsWith(R"("midiEffects":[{"id":"x","parameters":[{"name":"b","value":0}]}]}})"));
}

} // namespace
