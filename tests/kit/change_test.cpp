// Transposing, moving and cutting a part.
#include <limits>

#include "kit_fixture.h"

namespace {

using kit::linked;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t smallest = std::numeric_limits<std::int32_t>::min();

class KitChange : public MidiPartTest {
protected:
    KRT_PLX_NoteBase* note(std::int32_t pos, std::int32_t duration, std::uint32_t number = 60)
    {
        KRT_PLX_NoteBase* const added = support::insertNote(part, pos, duration);
        KRT_PLX_MutableNote_setNumber(added, number);
        return added;
    }

    KRT_PLX_MidiControllerBase* lane(const std::vector<std::pair<int, int>>& events)
    {
        KRT_PLX_MidiControllerBase* const added =
            KRT_PLX_MutableMidiPart_addMidiController(part, KRT_PLX_CONTROLLER_DYNAMICS);
        for (const auto& [pos, value] : events) {
            KRT_PLX_MutableMidiController_insertEvent(added, pos, value);
        }
        return added;
    }

    // "60@0+480"
    std::vector<std::string> notes()
    {
        std::vector<std::string> result;
        for (KRT_PLX_NoteBase* const each : support::notesOf(part)) {
            result.push_back(std::to_string(KRT_PLX_NoteBase_number(each)) + "@" +
                             std::to_string(KRT_PLX_NoteBase_pos(each)) + "+" +
                             std::to_string(KRT_PLX_NoteBase_duration(each)));
        }
        return result;
    }

    static std::vector<std::string> events(KRT_PLX_MidiControllerBase* lane)
    {
        std::vector<std::string> result;
        for (KRT_PLX_MidiEventBase* const each : support::eventsOf(lane)) {
            result.push_back(std::to_string(KRT_PLX_MidiEventBase_value(each)) + "@" +
                             std::to_string(KRT_PLX_MidiEventBase_pos(each)));
        }
        return result;
    }

    bool transpose(std::int32_t semitones)
    {
        return KRT_PLX_Kit_transpose(linked(), part, semitones, notices.report());
    }
    bool move(std::int32_t ticks)
    {
        return KRT_PLX_Kit_move(linked(), part, ticks, notices.report());
    }
    bool cut(std::int32_t begin, std::int32_t end)
    {
        return KRT_PLX_Kit_cut(linked(), part, begin, end, notices.report());
    }

    kit::Notices notices;
};

TEST_F(KitChange, TransposesAllNotes)
{
    note(0, 480, 0);
    note(480, 480, 125);
    EXPECT_TRUE(transpose(2));
    EXPECT_THAT(notes(), ElementsAre("2@0+480", "127@480+480"));
    EXPECT_TRUE(transpose(-2));
    EXPECT_THAT(notes(), ElementsAre("0@0+480", "125@480+480"));
    EXPECT_THAT(notices.lines(), IsEmpty());
}

TEST_F(KitChange, TransposesNothingWhenANoteWouldBeOutOfRange)
{
    note(0, 480, 0);
    note(480, 480, 126);
    note(960, 480, 127);
    EXPECT_FALSE(transpose(2));
    EXPECT_FALSE(transpose(-1));
    EXPECT_FALSE(transpose(smallest));
    EXPECT_FALSE(transpose(largest));
    EXPECT_THAT(notes(), ElementsAre("0@0+480", "126@480+480", "127@960+480"));
    const auto lines = notices.lines();
    ASSERT_EQ(lines.size(), 2u + 1u + 3u + 3u);
    EXPECT_EQ(lines[0], "note 2 at 480: number: would be out of range");
    EXPECT_EQ(lines[2], "note 1 at 0: number: would be out of range");
}

TEST_F(KitChange, MovesNotesAndEventsThatAreNearEachOther)
{
    KRT_PLX_MutableMidiPart_setDuration(part, 10000);
    note(0, 480, 1);
    note(0, 480, 2);
    note(480, 480, 3);
    KRT_PLX_MidiControllerBase* const dynamics = lane({{0, 1}, {480, 2}, {960, 3}});
    EXPECT_TRUE(move(480));
    EXPECT_THAT(notes(), ElementsAre("2@480+480", "1@480+480", "3@960+480"));
    EXPECT_THAT(events(dynamics), ElementsAre("1@480", "2@960", "3@1440"));
    EXPECT_TRUE(move(-480));
    EXPECT_THAT(notes(), ElementsAre("2@0+480", "1@0+480", "3@480+480"));
    EXPECT_THAT(events(dynamics), ElementsAre("1@0", "2@480", "3@960"));
    EXPECT_EQ(KRT_PLX_MidiPartBase_duration(part), 10000);
    EXPECT_THAT(notices.lines(), IsEmpty());
}

TEST_F(KitChange, TellsOfNotesThatWereMovedOutOfThePart)
{
    KRT_PLX_MutableMidiPart_setDuration(part, 960);
    note(0, 480);
    note(480, 480);
    EXPECT_TRUE(move(1));
    EXPECT_TRUE(move(-2));
    EXPECT_THAT(notices.lines(), ElementsAre("note 2 at 481: pos: lies outside the part",
                                             "note 1 at -1: pos: lies outside the part"));
}

TEST_F(KitChange, MovesNothingWhenSomethingWouldBeOutOfRange)
{
    note(0, 480);
    note(largest - 480, 479);
    KRT_PLX_MidiControllerBase* const dynamics = lane({{smallest, 1}, {0, 2}});
    EXPECT_TRUE(KRT_PLX_Kit_move(linked(), part, 1, nullptr));
    EXPECT_FALSE(move(1));
    EXPECT_FALSE(move(-2));
    EXPECT_THAT(notes(), ElementsAre("60@1+480", "60@2147483168+479"));
    EXPECT_THAT(events(dynamics), ElementsAre("1@-2147483647", "2@1"));
    EXPECT_THAT(notices.lines(),
                ElementsAre("note 2 at 2147483168: pos: would be out of range",
                            "controller dynamics at -2147483647: pos: would be out of range"));
}

TEST_F(KitChange, MovesNoNoteBeforeTheFirstPosition)
{
    note(smallest, 480);
    EXPECT_FALSE(move(-1));
    EXPECT_TRUE(move(0));
    EXPECT_TRUE(move(1));
    EXPECT_THAT(notes(), ElementsAre("60@-2147483647+480"));
}

TEST_F(KitChange, CutsNotes)
{
    note(0, 480, 1);
    note(240, 480, 2);
    note(480, 480, 3);
    note(720, 960, 4);
    note(960, 480, 5);
    EXPECT_TRUE(cut(480, 960));
    EXPECT_THAT(notes(), ElementsAre("2@0+240", "3@0+480", "4@240+240"));
    EXPECT_EQ(KRT_PLX_MidiPartBase_duration(part), 480);
    EXPECT_THAT(notices.lines(),
                ElementsAre("note 5 at 960: cut away", "note 4 at 720: duration: shortened",
                            "note 2 at 240: duration: shortened", "note 1 at 0: cut away"));
}

TEST_F(KitChange, CutsANoteOnBothSides)
{
    note(0, 480);
    EXPECT_TRUE(cut(100, 110));
    EXPECT_THAT(notes(), ElementsAre("60@0+10"));
}

TEST_F(KitChange, ShortensTheExpressionOfShortenedNotes)
{
    KRT_PLX_NoteBase* const cutNote = note(0, 480);
    KRT_PLX_VibratoBase* const vibrato = KRT_PLX_MutableNote_vibrato(cutNote);
    KRT_PLX_SingingSkillBase* const skill = KRT_PLX_MutableNote_singingSkill(cutNote);
    KRT_PLX_MutableVibrato_setDuration(vibrato, 400);
    KRT_PLX_MutableSingingSkill_setDuration(skill, 300);
    for (const std::int32_t pos : {0, 240, 241}) {
        KRT_PLX_MutableVibrato_insertParameter(vibrato, KRT_PLX_VIBRATO_DEPTH, pos, 1);
    }
    EXPECT_TRUE(cut(0, 240));
    EXPECT_EQ(KRT_PLX_VibratoBase_duration(vibrato), 240);
    EXPECT_EQ(KRT_PLX_SingingSkillBase_duration(skill), 240);
    EXPECT_EQ(support::pointsOf(vibrato, KRT_PLX_VIBRATO_DEPTH).size(), 2u);
    EXPECT_THAT(notices.lines(), ElementsAre("note 1 at 0: duration: shortened",
                                             "vibrato of note 1 at 0: duration: shortened",
                                             "vibrato of note 1 at 241: depths: cut away",
                                             "singing skill of note 1 at 0: duration: shortened"));
    EXPECT_EQ(notices.all()[2].inner, 2u);
}

TEST_F(KitChange, CutsEventsAndKeepsWhatWasSetBefore)
{
    KRT_PLX_MidiControllerBase* const dynamics = lane({{0, 1}, {100, 2}, {500, 3}, {960, 4}});
    EXPECT_TRUE(cut(480, 960));
    EXPECT_THAT(events(dynamics), ElementsAre("2@0", "3@20"));
    EXPECT_THAT(notices.lines(), ElementsAre("controller dynamics at 960: cut away",
                                             "controller dynamics at 0: cut away"));
}

TEST_F(KitChange, KeepsTheEventAtTheBeginning)
{
    KRT_PLX_MidiControllerBase* const dynamics = lane({{0, 1}, {480, 2}});
    EXPECT_TRUE(cut(480, 960));
    EXPECT_THAT(events(dynamics), ElementsAre("2@0"));
}

TEST_F(KitChange, CutsFarRanges)
{
    note(smallest, 10);
    EXPECT_TRUE(cut(smallest, -1));
    EXPECT_THAT(notes(), ElementsAre("60@0+10"));
    EXPECT_EQ(KRT_PLX_MidiPartBase_duration(part), largest);
}

TEST_F(KitChange, RefusesEmptyAndTooLongRanges)
{
    note(0, 480);
    EXPECT_FALSE(cut(10, 10));
    EXPECT_FALSE(cut(10, 9));
    EXPECT_FALSE(cut(smallest, 0));
    EXPECT_THAT(notes(), ElementsAre("60@0+480"));
}

TEST_F(KitChange, RefusesOtherHandles)
{
    for (KRT_PLX_PartBase* const other :
         {static_cast<KRT_PLX_PartBase*>(nullptr),
          KRT_PLX_MutableClip_createAudioPart(createMutableClip())}) {
        EXPECT_FALSE(KRT_PLX_Kit_transpose(linked(), other, 0, nullptr));
        EXPECT_FALSE(KRT_PLX_Kit_move(linked(), other, 0, nullptr));
        EXPECT_FALSE(KRT_PLX_Kit_cut(linked(), other, 0, 1, nullptr));
    }
    EXPECT_FALSE(KRT_PLX_Kit_transpose(nullptr, part, 0, nullptr));
    EXPECT_FALSE(KRT_PLX_Kit_move(nullptr, part, 0, nullptr));
    EXPECT_FALSE(KRT_PLX_Kit_cut(nullptr, part, 0, 1, nullptr));
}

} // namespace
