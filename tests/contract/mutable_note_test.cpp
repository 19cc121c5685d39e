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
