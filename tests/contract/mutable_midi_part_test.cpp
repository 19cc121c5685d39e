#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "support/editing.h"
#include "support/limits.h"

using support::countOf;
using support::farAway;
using support::insertNote;
using support::largest;
using support::notesOf;
using support::smallest;
using support::text;
using support::utf8;

namespace {

constexpr std::uint32_t allBits = std::numeric_limits<std::uint32_t>::max();

class MutableMidiPartTest : public MidiPartTest {};

// What both kinds of MIDI part have in common.
class AnyMutableMidiPart : public HostTest, public testing::WithParamInterface<bool> {
protected:
    KRT_PLX_ClipBase* const clip = createMutableClip();
    KRT_PLX_PartBase* const part = GetParam() ? KRT_PLX_MutableClip_createMidiAiPart(clip)
                                              : KRT_PLX_MutableClip_createMidiPart(clip);
};

INSTANTIATE_TEST_SUITE_P(Kinds, AnyMutableMidiPart, testing::Bool(),
                         [](const auto& isAi) { return isAi.param ? "midiAi" : "midi"; });

TEST_P(AnyMutableMidiPart, StartsEmpty)
{
    EXPECT_EQ(KRT_PLX_MutableMidiPart_parent(part), clip);
    EXPECT_TRUE(KRT_PLX_PartBase_isMutable(part));
    EXPECT_EQ(KRT_PLX_MidiPartBase_aiLangIDSize(part), 0u);
    EXPECT_EQ(KRT_PLX_MidiPartBase_aiLangIDByIndex(part, 0), KRT_PLX_NO_LANGUAGE);
}

TEST_P(AnyMutableMidiPart, StartsWithoutChildren)
{
    EXPECT_EQ(countOf(KRT_PLX_MidiPartBase_numNotes, part), 0u);
    EXPECT_EQ(countOf(KRT_PLX_MidiPartBase_numAudioEffects, part), 0u);
    EXPECT_EQ(countOf(KRT_PLX_MidiPartBase_numMidiEffects, part), 0u);
    EXPECT_EQ(KRT_PLX_MutableMidiPart_note(part, 0), nullptr);
    EXPECT_EQ(KRT_PLX_MutableMidiPart_note(part, farAway), nullptr);
    EXPECT_EQ(KRT_PLX_MutableMidiPart_audioEffect(part, 0), nullptr);
    EXPECT_EQ(KRT_PLX_MutableMidiPart_midiEffect(part, 0), nullptr);
    for (std::uint32_t type = 0; type <= KRT_PLX_CONTROLLER_NONE; ++type) {
        EXPECT_EQ(KRT_PLX_MutableMidiPart_midiController(part, type), nullptr);
    }
}

TEST_P(AnyMutableMidiPart, DurationDoesNotBoundTheNotes)
{
    KRT_PLX_MutableMidiPart_setDuration(part, 10);
    EXPECT_NE(insertNote(part, 1000, 1000), nullptr);
    EXPECT_NE(insertNote(part, -1000, 10), nullptr);
    EXPECT_TRUE(KRT_PLX_MutableMidiPart_setDuration(part, 5));
}

TEST_P(AnyMutableMidiPart, AppendsAiLanguagesRepeatedOnesIncluded)
{
    const std::vector<std::uint32_t> languages = {5, 127, 0, 5, 5};
    for (const std::uint32_t language : languages) {
        EXPECT_TRUE(KRT_PLX_MutableMidiPart_addAiLangID(part, language));
    }
    for (const std::uint32_t language : {128u, 256u, 0x80000000u, allBits}) {
        EXPECT_FALSE(KRT_PLX_MutableMidiPart_addAiLangID(part, language)) << language;
    }
    ASSERT_EQ(KRT_PLX_MidiPartBase_aiLangIDSize(part), languages.size());
    for (std::size_t index = 0; index < languages.size(); ++index) {
        EXPECT_EQ(KRT_PLX_MidiPartBase_aiLangIDByIndex(part, index), languages[index]);
    }
    EXPECT_EQ(KRT_PLX_MidiPartBase_aiLangIDByIndex(part, languages.size()), KRT_PLX_NO_LANGUAGE);
    EXPECT_EQ(KRT_PLX_MidiPartBase_aiLangIDByIndex(part, farAway), KRT_PLX_NO_LANGUAGE);
}

// --- Inserting notes ----------------------------------------------------------------------------------

struct NoteRequest {
    std::int32_t pos = 0;
    std::int32_t duration = 480;
    std::optional<std::string> lyric = "la";
    std::optional<std::string> phoneme = "l a";
    std::uint32_t langID = 0;
};

KRT_PLX_NoteBase* insert(KRT_PLX_PartBase* part, const NoteRequest& request)
{
    const support::Text lyric = text(request.lyric.value_or(""));
    const support::Text phoneme = text(request.phoneme.value_or(""));
    return KRT_PLX_MutableMidiPart_insertNote(
        part, request.pos, request.duration, request.lyric ? lyric.c_str() : nullptr,
        request.phoneme ? phoneme.c_str() : nullptr, request.langID);
}

TEST_F(MutableMidiPartTest, ANewNoteHasWhatItWasAskedFor)
{
    KRT_PLX_NoteBase* const note = insert(part, {-960, 240, "さ", "s a", 127});
    ASSERT_NE(note, nullptr);
    EXPECT_EQ(KRT_PLX_NoteBase_pos(note), -960);
    EXPECT_EQ(KRT_PLX_NoteBase_duration(note), 240);
    EXPECT_EQ(utf8(KRT_PLX_NoteBase_lyric(note)), "さ");
    EXPECT_EQ(utf8(KRT_PLX_NoteBase_phoneme(note)), "s a");
    EXPECT_EQ(KRT_PLX_NoteBase_langID(note), 127u);
    EXPECT_EQ(KRT_PLX_MutableNote_parent(note), part);
    EXPECT_EQ(notesOf(part), std::vector{note});
    EXPECT_TRUE(KRT_PLX_MutableMidiPart_hasNote(part, note));
}

TEST_F(MutableMidiPartTest, TakesNotesUpToTheEndOfTime)
{
    const NoteRequest accepted[] = {
        {.pos = smallest, .duration = 1},
        {.pos = smallest, .duration = largest},
        {.pos = -1, .duration = largest},
        {.pos = 0, .duration = largest},
        {.pos = largest - 1, .duration = 1},
        {.pos = largest - 10, .duration = 10},
        {.langID = 0},
        {.langID = 127},
    };
    std::uint64_t inserted = 0;
    for (const NoteRequest& request : accepted) {
        KRT_PLX_NoteBase* const note = insert(part, request);
        ASSERT_NE(note, nullptr) << request.pos << " + " << request.duration;
        EXPECT_EQ(KRT_PLX_NoteBase_pos(note), request.pos);
        EXPECT_EQ(KRT_PLX_NoteBase_duration(note), request.duration);
        EXPECT_EQ(countOf(KRT_PLX_MidiPartBase_numNotes, part), ++inserted);
    }
}

TEST_F(MutableMidiPartTest, TakesNoNoteOutsideTheRanges)
{
    const NoteRequest rejected[] = {
        {.duration = 0},
        {.duration = -1},
        {.duration = smallest},
        {.pos = smallest, .duration = smallest},
        {.pos = largest, .duration = 1},
        {.pos = largest, .duration = -1},
        {.pos = largest - 1, .duration = 2},
        {.pos = largest - 10, .duration = 11},
        {.pos = 1, .duration = largest},
        {.lyric = ""},
        {.lyric = std::nullopt},
        {.phoneme = ""},
        {.phoneme = std::nullopt},
        {.langID = 128},
        {.langID = 256},
        {.langID = 0x80000000},
        {.langID = allBits},
    };
    KRT_PLX_NoteBase* const standing = insertNote(part, 100);
    for (const NoteRequest& request : rejected) {
        EXPECT_EQ(insert(part, request), nullptr) << testing::PrintToString(request.pos);
        EXPECT_EQ(notesOf(part), std::vector{standing});
    }
}

TEST_F(MutableMidiPartTest, ANewNoteTakesItsTextsFromAnother)
{
    for (const std::string& syllable : {std::string("la"), std::string(300, 'l')}) {
        KRT_PLX_NoteBase* const first =
            insert(part, {.lyric = syllable, .phoneme = syllable + "!"});
        KRT_PLX_NoteBase* const second = KRT_PLX_MutableMidiPart_insertNote(
            part, 0, 1, KRT_PLX_NoteBase_lyric(first), KRT_PLX_NoteBase_phoneme(first), 0);
        EXPECT_EQ(utf8(KRT_PLX_NoteBase_lyric(second)), syllable);
        EXPECT_EQ(utf8(KRT_PLX_NoteBase_phoneme(second)), syllable + "!");
    }
}

TEST_F(MutableMidiPartTest, HasOnlyItsOwnNotes)
{
    KRT_PLX_NoteBase* const note = insertNote(part, 0);
    KRT_PLX_PartBase* const other = KRT_PLX_MutableClip_createMidiPart(createMutableClip());
    KRT_PLX_NoteBase* const foreign = insertNote(other, 0);
    EXPECT_TRUE(KRT_PLX_MutableMidiPart_hasNote(part, note));
    EXPECT_FALSE(KRT_PLX_MutableMidiPart_hasNote(part, foreign));
    EXPECT_FALSE(KRT_PLX_MutableMidiPart_hasNote(other, note));
    EXPECT_FALSE(KRT_PLX_MutableMidiPart_hasNote(part, nullptr));
}

TEST_F(MutableMidiPartTest, CountsIntoNothingIsFalse)
{
    EXPECT_FALSE(KRT_PLX_MidiPartBase_numNotes(part, nullptr));
    EXPECT_FALSE(KRT_PLX_MidiPartBase_numAudioEffects(part, nullptr));
    EXPECT_FALSE(KRT_PLX_MidiPartBase_numMidiEffects(part, nullptr));
}

TEST_F(MutableMidiPartTest, IsNotReadOnly)
{
    insertNote(part, 0);
    KRT_PLX_MutableMidiPart_addMidiController(part, 0);
    EXPECT_EQ(KRT_PLX_MidiPart_parent(part), nullptr);
    EXPECT_EQ(KRT_PLX_MidiPart_note(part, 0), nullptr);
    EXPECT_EQ(KRT_PLX_MidiPart_midiController(part, 0), nullptr);
}

// --- Controller lanes -----------------------------------------------------------------------------------

TEST_F(MutableMidiPartTest, HasOneLaneOfEachType)
{
    for (std::uint32_t type = KRT_PLX_CONTROLLER_NONE; type-- > 0;) {
        KRT_PLX_MidiControllerBase* const lane =
            KRT_PLX_MutableMidiPart_addMidiController(part, type);
        ASSERT_NE(lane, nullptr) << type;
        EXPECT_EQ(KRT_PLX_MidiControllerBase_type(lane), type);
        EXPECT_EQ(KRT_PLX_MutableMidiController_parent(lane), part);
        EXPECT_EQ(countOf(KRT_PLX_MidiControllerBase_numEvents, lane), 0u);
    }
    for (std::uint32_t type = 0; type < KRT_PLX_CONTROLLER_NONE; ++type) {
        KRT_PLX_MidiControllerBase* const lane = KRT_PLX_MutableMidiPart_midiController(part, type);
        EXPECT_EQ(KRT_PLX_MidiControllerBase_type(lane), type);
        EXPECT_TRUE(KRT_PLX_MutableMidiPart_hasMidiController(part, lane));
    }
}

// Unlike an effect of a known ID, the lane that is there is not handed out.
TEST_F(MutableMidiPartTest, AddsNoSecondLaneOfAType)
{
    KRT_PLX_MidiControllerBase* const lane = KRT_PLX_MutableMidiPart_addMidiController(part, 3);
    KRT_PLX_MutableMidiController_insertEvent(lane, 0, 5);
    EXPECT_EQ(KRT_PLX_MutableMidiPart_addMidiController(part, 3), nullptr);
    EXPECT_EQ(KRT_PLX_MutableMidiPart_midiController(part, 3), lane);
    EXPECT_EQ(countOf(KRT_PLX_MidiControllerBase_numEvents, lane), 1u);
}

TEST_F(MutableMidiPartTest, AddsNoLaneOfAnUnknownType)
{
    for (const std::uint32_t type : {12u, 13u, 256u, 0x80000000u, allBits}) {
        EXPECT_EQ(KRT_PLX_MutableMidiPart_addMidiController(part, type), nullptr) << type;
        EXPECT_EQ(KRT_PLX_MutableMidiPart_midiController(part, type), nullptr) << type;
    }
}

TEST_F(MutableMidiPartTest, HasOnlyItsOwnLanes)
{
    KRT_PLX_MidiControllerBase* const lane = KRT_PLX_MutableMidiPart_addMidiController(part, 3);
    KRT_PLX_PartBase* const other = KRT_PLX_MutableClip_createMidiPart(createMutableClip());
    KRT_PLX_MidiControllerBase* const foreign = KRT_PLX_MutableMidiPart_addMidiController(other, 3);
    EXPECT_TRUE(KRT_PLX_MutableMidiPart_hasMidiController(part, lane));
    EXPECT_FALSE(KRT_PLX_MutableMidiPart_hasMidiController(part, foreign));
    EXPECT_FALSE(KRT_PLX_MutableMidiPart_hasMidiController(part, nullptr));
}

} // namespace
