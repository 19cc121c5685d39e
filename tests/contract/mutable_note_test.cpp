#include <cmath>
#include <limits>
#include <string>

#include "support/editing.h"
#include "support/limits.h"

using support::insertNote;
using support::largest;
using support::smallest;
using support::text;
using support::utf8;

namespace {

class MutableNoteTest : public NoteTest {};

TEST_F(MutableNoteTest, BelongsToItsPart)
{
    EXPECT_EQ(KRT_PLX_MutableNote_parent(note), part);
    EXPECT_TRUE(KRT_PLX_NoteBase_isMutable(note));
    EXPECT_EQ(KRT_PLX_MutableMidiPart_note(part, 0), note);
}

TEST_F(MutableNoteTest, IsNotReadOnly)
{
    EXPECT_EQ(KRT_PLX_Note_parent(note), nullptr);
    EXPECT_EQ(KRT_PLX_Note_vibrato(note), nullptr);
    EXPECT_EQ(KRT_PLX_Note_dvqm(note, true), nullptr);
    EXPECT_EQ(KRT_PLX_Note_singingSkill(note), nullptr);
}

// --- Whole numbers ------------------------------------------------------------------------------------

struct NumberProperty {
    const char* name;
    std::uint32_t (*get)(KRT_PLX_NoteBase*);
    bool (*set)(KRT_PLX_NoteBase*, std::uint32_t);
    std::uint32_t initial;
    std::uint32_t maximum;
};

const NumberProperty numbers[] = {
    {"langID", KRT_PLX_NoteBase_langID, KRT_PLX_MutableNote_setLangID, 0, 127},
    {"number", KRT_PLX_NoteBase_number, KRT_PLX_MutableNote_setNumber, 0, 127},
    {"velocity", KRT_PLX_NoteBase_velocity, KRT_PLX_MutableNote_setVelocity, 0, 127},
    {"accent", KRT_PLX_NoteBase_accent, KRT_PLX_MutableNote_setAccent, 50, 100},
    {"bendDepth", KRT_PLX_NoteBase_bendDepth, KRT_PLX_MutableNote_setBendDepth, 0, 100},
    {"bendLength", KRT_PLX_NoteBase_bendLength, KRT_PLX_MutableNote_setBendLength, 0, 100},
    {"decay", KRT_PLX_NoteBase_decay, KRT_PLX_MutableNote_setDecay, 50, 100},
    {"opening", KRT_PLX_NoteBase_opening, KRT_PLX_MutableNote_setOpening, 127, 127},
};

class MutableNoteNumber : public NoteTest, public testing::WithParamInterface<NumberProperty> {
protected:
    std::uint32_t get() { return property.get(note); }
    bool set(std::uint32_t value) { return property.set(note, value); }

    const NumberProperty& property = GetParam();
};

TEST_P(MutableNoteNumber, HasItsInitialValue)
{
    EXPECT_EQ(get(), property.initial);
}

TEST_P(MutableNoteNumber, TakesEveryValueOfItsRange)
{
    for (std::uint32_t value = 0; value <= property.maximum; ++value) {
        EXPECT_TRUE(set(value));
        EXPECT_EQ(get(), value);
    }
}

TEST_P(MutableNoteNumber, KeepsItsValueWhenAskedForAnother)
{
    ASSERT_TRUE(set(42));
    for (const std::uint32_t value :
         {property.maximum + 1, 128u, 255u, 256u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        EXPECT_FALSE(set(value)) << value;
        EXPECT_EQ(get(), 42u);
    }
}

TEST_P(MutableNoteNumber, IsSetAlone)
{
    for (const NumberProperty& other : numbers) {
        other.set(note, 7);
    }
    set(42);
    for (const NumberProperty& other : numbers) {
        EXPECT_EQ(other.get(note), other.get == property.get ? 42u : 7u) << other.name;
    }
}

INSTANTIATE_TEST_SUITE_P(Properties, MutableNoteNumber, testing::ValuesIn(numbers),
                         [](const auto& property) { return std::string(property.param.name); });

// --- AI expression --------------------------------------------------------------------------------------

struct FloatProperty {
    const char* name;
    float (*get)(KRT_PLX_NoteBase*);
    bool (*set)(KRT_PLX_NoteBase*, float);
};

const FloatProperty floats[] = {
    {"pitchFine", KRT_PLX_NoteBase_pitchFine, KRT_PLX_MutableNote_setPitchFine},
    {"pitchDriftStart", KRT_PLX_NoteBase_pitchDriftStart, KRT_PLX_MutableNote_setPitchDriftStart},
    {"pitchDriftEnd", KRT_PLX_NoteBase_pitchDriftEnd, KRT_PLX_MutableNote_setPitchDriftEnd},
    {"pitchScalingCenter", KRT_PLX_NoteBase_pitchScalingCenter,
     KRT_PLX_MutableNote_setPitchScalingCenter},
    {"pitchScalingOrigin", KRT_PLX_NoteBase_pitchScalingOrigin,
     KRT_PLX_MutableNote_setPitchScalingOrigin},
    {"pitchTransitionStart", KRT_PLX_NoteBase_pitchTransitionStart,
     KRT_PLX_MutableNote_setPitchTransitionStart},
    {"pitchTransitionEnd", KRT_PLX_NoteBase_pitchTransitionEnd,
     KRT_PLX_MutableNote_setPitchTransitionEnd},
    {"amplitudeWhole", KRT_PLX_NoteBase_amplitudeWhole, KRT_PLX_MutableNote_setAmplitudeWhole},
    {"amplitudeStart", KRT_PLX_NoteBase_amplitudeStart, KRT_PLX_MutableNote_setAmplitudeStart},
    {"amplitudeEnd", KRT_PLX_NoteBase_amplitudeEnd, KRT_PLX_MutableNote_setAmplitudeEnd},
    {"formantWhole", KRT_PLX_NoteBase_formantWhole, KRT_PLX_MutableNote_setFormantWhole},
    {"formantStart", KRT_PLX_NoteBase_formantStart, KRT_PLX_MutableNote_setFormantStart},
    {"formantEnd", KRT_PLX_NoteBase_formantEnd, KRT_PLX_MutableNote_setFormantEnd},
};

class MutableNoteFloat : public NoteTest, public testing::WithParamInterface<FloatProperty> {
protected:
    float get() { return property.get(note); }
    bool set(float value) { return property.set(note, value); }

    const FloatProperty& property = GetParam();
};

TEST_P(MutableNoteFloat, StartsInTheMiddle)
{
    EXPECT_EQ(get(), 0.5F);
}

TEST_P(MutableNoteFloat, TakesItsRangeWithBothBounds)
{
    for (const float value : {0.0F, 1.0F, 0.25F, std::nextafter(1.0F, 0.0F),
                              std::numeric_limits<float>::denorm_min()}) {
        EXPECT_TRUE(set(value)) << value;
        EXPECT_EQ(get(), value);
    }
    EXPECT_TRUE(set(-0.0F));
    EXPECT_EQ(get(), 0.0F);
}

TEST_P(MutableNoteFloat, KeepsItsValueWhenAskedForAnother)
{
    ASSERT_TRUE(set(0.25F));
    for (const float value :
         {1.0000001F, -0.0001F, std::nextafter(1.0F, 2.0F),
          -std::numeric_limits<float>::denorm_min(), 2.0F, -1.0F,
          std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::infinity()}) {
        EXPECT_FALSE(set(value)) << value;
        EXPECT_EQ(get(), 0.25F);
    }
}

TEST_P(MutableNoteFloat, TakesANumberThatIsNone)
{
    EXPECT_TRUE(set(std::numeric_limits<float>::quiet_NaN()));
    EXPECT_TRUE(std::isnan(get()));
    EXPECT_FALSE(set(1.5F));
    EXPECT_TRUE(std::isnan(get()));
    EXPECT_TRUE(set(0.5F));
    EXPECT_EQ(get(), 0.5F);
}

TEST_P(MutableNoteFloat, IsSetAlone)
{
    set(0.75F);
    for (const FloatProperty& other : floats) {
        EXPECT_EQ(other.get(note), other.get == property.get ? 0.75F : 0.5F) << other.name;
    }
}

INSTANTIATE_TEST_SUITE_P(Properties, MutableNoteFloat, testing::ValuesIn(floats),
                         [](const auto& property) { return std::string(property.param.name); });

// --- Flags ------------------------------------------------------------------------------------------------

struct FlagProperty {
    const char* name;
    bool (*get)(KRT_PLX_NoteBase*);
    bool (*set)(KRT_PLX_NoteBase*, bool);
};

const FlagProperty flags[] = {
    {"protected", KRT_PLX_NoteBase_isProtected, KRT_PLX_MutableNote_setProtected},
    {"fallPort", KRT_PLX_NoteBase_fallPort, KRT_PLX_MutableNote_setFallPort},
    {"risePort", KRT_PLX_NoteBase_risePort, KRT_PLX_MutableNote_setRisePort},
};

class MutableNoteFlag : public NoteTest, public testing::WithParamInterface<FlagProperty> {};

TEST_P(MutableNoteFlag, IsSetAndClearedWithSuccessBothTimes)
{
    const FlagProperty& property = GetParam();
    EXPECT_FALSE(property.get(note));
    EXPECT_TRUE(property.set(note, true));
    for (const FlagProperty& other : flags) {
        EXPECT_EQ(other.get(note), other.get == property.get) << other.name;
    }
    EXPECT_TRUE(property.set(note, false));
    EXPECT_FALSE(property.get(note));
}

INSTANTIATE_TEST_SUITE_P(Properties, MutableNoteFlag, testing::ValuesIn(flags),
                         [](const auto& property) { return std::string(property.param.name); });

TEST_F(MutableNoteTest, ProtectionForbidsNothing)
{
    KRT_PLX_MutableNote_setProtected(note, true);
    EXPECT_TRUE(KRT_PLX_MutableNote_setNumber(note, 60));
    EXPECT_TRUE(KRT_PLX_MutableNote_setLyric(note, text("do").c_str()));
    EXPECT_TRUE(KRT_PLX_MutableNote_move(note, 10));
    EXPECT_TRUE(KRT_PLX_NoteBase_isProtected(note));
}

// --- Texts ------------------------------------------------------------------------------------------------

struct TextProperty {
    const char* name;
    const KRT_PLX_Char* (*get)(KRT_PLX_NoteBase*);
    bool (*set)(KRT_PLX_NoteBase*, const KRT_PLX_Char*);
};

class MutableNoteText : public NoteTest, public testing::WithParamInterface<TextProperty> {
protected:
    std::string get() { return utf8(property.get(note)); }
    bool set(std::string_view value) { return property.set(note, text(value).c_str()); }

    const TextProperty& property = GetParam();
};

TEST_P(MutableNoteText, TakesAnyTextButTheEmptyOne)
{
    for (const std::string& value :
         {std::string("さ"), std::string(2000, 'x'), std::string("🎵"), std::string(" ")}) {
        EXPECT_TRUE(set(value));
        EXPECT_EQ(get(), value);
        EXPECT_FALSE(set(""));
        EXPECT_FALSE(property.set(note, nullptr));
        EXPECT_EQ(get(), value);
    }
}

TEST_P(MutableNoteText, TakesItself)
{
    for (const std::string& value : {std::string("twinkle"), std::string(300, 'x')}) {
        set(value);
        EXPECT_TRUE(property.set(note, property.get(note)));
        EXPECT_EQ(get(), value);
        EXPECT_TRUE(property.set(note, property.get(note) + 2));
        EXPECT_EQ(get(), value.substr(2));
    }
}

TEST_P(MutableNoteText, IsACopy)
{
    support::Text value = text("la");
    property.set(note, value.c_str());
    value[0] = KRT_PLX_Char{'x'};
    EXPECT_EQ(get(), "la");
}

// A text that was handed out is good until it is set itself.
TEST_P(MutableNoteText, StaysInPlaceWhileOtherThingsChange)
{
    set("la");
    const KRT_PLX_Char* const handedOut = property.get(note);
    for (std::int32_t pos = 0; pos < 100; ++pos) {
        insertNote(part, pos);
    }
    KRT_PLX_MutableNote_move(note, 1000);
    KRT_PLX_MutableNote_setNumber(note, 60);
    const auto setOther = property.get == KRT_PLX_NoteBase_lyric ? KRT_PLX_MutableNote_setPhoneme
                                                                 : KRT_PLX_MutableNote_setLyric;
    setOther(note, text("something else").c_str());
    EXPECT_EQ(property.get(note), handedOut);
    EXPECT_EQ(utf8(handedOut), "la");
}

INSTANTIATE_TEST_SUITE_P(Properties, MutableNoteText,
                         testing::Values(TextProperty{"lyric", KRT_PLX_NoteBase_lyric,
                                                      KRT_PLX_MutableNote_setLyric},
                                         TextProperty{"phoneme", KRT_PLX_NoteBase_phoneme,
                                                      KRT_PLX_MutableNote_setPhoneme}),
                         [](const auto& property) { return std::string(property.param.name); });

// --- Duration ---------------------------------------------------------------------------------------------

TEST_F(MutableNoteTest, TakesDurationsUpToTheEndOfTime)
{
    for (const std::int32_t duration : {1, 960, largest}) {
        EXPECT_TRUE(KRT_PLX_MutableNote_setDuration(note, duration));
        EXPECT_EQ(KRT_PLX_NoteBase_duration(note), duration);
    }
    for (const std::int32_t duration : {0, -1, smallest}) {
        EXPECT_FALSE(KRT_PLX_MutableNote_setDuration(note, duration));
        EXPECT_EQ(KRT_PLX_NoteBase_duration(note), largest);
    }
}

TEST_F(MutableNoteTest, DurationAndPositionTogetherEndInTime)
{
    KRT_PLX_NoteBase* const late = insertNote(part, largest - 10, 1);
    EXPECT_TRUE(KRT_PLX_MutableNote_setDuration(late, 10));
    EXPECT_FALSE(KRT_PLX_MutableNote_setDuration(late, 11));
    EXPECT_FALSE(KRT_PLX_MutableNote_setDuration(late, largest));
    EXPECT_EQ(KRT_PLX_NoteBase_duration(late), 10);
    EXPECT_TRUE(KRT_PLX_MutableNote_setDuration(insertNote(part, smallest, 1), largest));
}

// --- Expression objects -----------------------------------------------------------------------------------

TEST_F(MutableNoteTest, HasItsExpressionObjectsForLife)
{
    KRT_PLX_DvqmBase* const attack = KRT_PLX_MutableNote_dvqm(note, true);
    KRT_PLX_DvqmBase* const release = KRT_PLX_MutableNote_dvqm(note, false);
    KRT_PLX_VibratoBase* const vibrato = KRT_PLX_MutableNote_vibrato(note);
    KRT_PLX_SingingSkillBase* const skill = KRT_PLX_MutableNote_singingSkill(note);
    ASSERT_NE(attack, nullptr);
    ASSERT_NE(vibrato, nullptr);
    ASSERT_NE(skill, nullptr);
    EXPECT_NE(attack, release);
    for (std::int32_t pos = 0; pos < 50; ++pos) {
        insertNote(part, pos);
    }
    KRT_PLX_MutableNote_move(note, 1000);
    EXPECT_EQ(KRT_PLX_MutableNote_dvqm(note, true), attack);
    EXPECT_EQ(KRT_PLX_MutableNote_dvqm(note, false), release);
    EXPECT_EQ(KRT_PLX_MutableNote_vibrato(note), vibrato);
    EXPECT_EQ(KRT_PLX_MutableNote_singingSkill(note), skill);
}

} // namespace
