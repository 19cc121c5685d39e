// Where notes stand in their part: inserting, moving, removing.
#include <vector>

#include "support/editing.h"
#include "support/limits.h"

using support::insertNote;
using support::largest;
using support::notesOf;
using support::smallest;

namespace {

using Notes = std::vector<KRT_PLX_NoteBase*>;

class MutableNoteOrder : public MidiPartTest {
protected:
    bool move(KRT_PLX_NoteBase* note, std::int32_t pos)
    {
        return KRT_PLX_MutableNote_move(note, pos);
    }
};

TEST_F(MutableNoteOrder, IsThatOfPositionsComparedAsSigned)
{
    KRT_PLX_NoteBase* const middle = insertNote(part, 0);
    KRT_PLX_NoteBase* const last = insertNote(part, largest - 1, 1);
    KRT_PLX_NoteBase* const first = insertNote(part, smallest);
    KRT_PLX_NoteBase* const second = insertNote(part, -1);
    EXPECT_EQ(notesOf(part), (Notes{first, second, middle, last}));
}

TEST_F(MutableNoteOrder, ANewNoteGoesBeforeThoseAtItsPosition)
{
    KRT_PLX_NoteBase* const early = insertNote(part, 0);
    KRT_PLX_NoteBase* const first = insertNote(part, 100);
    KRT_PLX_NoteBase* const late = insertNote(part, 200);
    KRT_PLX_NoteBase* const second = insertNote(part, 100);
    KRT_PLX_NoteBase* const third = insertNote(part, 100);
    EXPECT_EQ(notesOf(part), (Notes{early, third, second, first, late}));
}

TEST_F(MutableNoteOrder, ANewNoteGoesBeforeThoseAtItsPositionWhateverTheirNumbers)
{
    KRT_PLX_NoteBase* const high = insertNote(part, 100);
    KRT_PLX_MutableNote_setNumber(high, 127);
    KRT_PLX_NoteBase* const low = insertNote(part, 100);
    KRT_PLX_MutableNote_setNumber(low, 1);
    KRT_PLX_NoteBase* const lowest = insertNote(part, 100);
    EXPECT_EQ(notesOf(part), (Notes{lowest, low, high}));
    KRT_PLX_MutableNote_setNumber(lowest, 90);
    KRT_PLX_NoteBase* const newest = insertNote(part, 100);
    EXPECT_EQ(notesOf(part), (Notes{newest, lowest, low, high}));
}

TEST_F(MutableNoteOrder, DoesNotFollowNumberOrDuration)
{
    KRT_PLX_NoteBase* const second = insertNote(part, 100);
    KRT_PLX_NoteBase* const first = insertNote(part, 100);
    KRT_PLX_MutableNote_setNumber(first, 127);
    KRT_PLX_MutableNote_setDuration(first, 5000);
    KRT_PLX_MutableNote_setDuration(second, 1);
    EXPECT_EQ(notesOf(part), (Notes{first, second}));
}

TEST_F(MutableNoteOrder, FollowsAMove)
{
    KRT_PLX_NoteBase* const a = insertNote(part, 0);
    KRT_PLX_NoteBase* const b = insertNote(part, 100);
    KRT_PLX_NoteBase* const c = insertNote(part, 200);
    EXPECT_TRUE(move(a, 150));
    EXPECT_EQ(notesOf(part), (Notes{b, a, c}));
    EXPECT_TRUE(move(a, 300));
    EXPECT_EQ(notesOf(part), (Notes{b, c, a}));
    EXPECT_TRUE(move(c, -5));
    EXPECT_EQ(notesOf(part), (Notes{c, b, a}));
    EXPECT_TRUE(move(b, 101));
    EXPECT_EQ(notesOf(part), (Notes{c, b, a}));
    EXPECT_EQ(KRT_PLX_NoteBase_pos(a), 300);
    EXPECT_EQ(KRT_PLX_NoteBase_pos(b), 101);
    EXPECT_EQ(KRT_PLX_NoteBase_pos(c), -5);
}

// As after a stable sort: a note that stood before the others stays before them.
TEST_F(MutableNoteOrder, AmongEqualsIsThatBeforeTheMove)
{
    KRT_PLX_NoteBase* const early = insertNote(part, 0);
    KRT_PLX_NoteBase* const second = insertNote(part, 100);
    KRT_PLX_NoteBase* const first = insertNote(part, 100);
    KRT_PLX_NoteBase* const late = insertNote(part, 200);
    EXPECT_TRUE(move(early, 100));
    EXPECT_EQ(notesOf(part), (Notes{early, first, second, late}));
    EXPECT_TRUE(move(late, 100));
    EXPECT_EQ(notesOf(part), (Notes{early, first, second, late}));
    EXPECT_TRUE(move(first, 100));
    EXPECT_EQ(notesOf(part), (Notes{early, first, second, late}));
    EXPECT_TRUE(move(late, 99));
    EXPECT_EQ(notesOf(part), (Notes{late, early, first, second}));
}

TEST_F(MutableNoteOrder, MovesEndInTime)
{
    KRT_PLX_NoteBase* const note = insertNote(part, 0, 10);
    for (const std::int32_t pos : {-5, smallest, largest - 10}) {
        EXPECT_TRUE(move(note, pos));
        EXPECT_EQ(KRT_PLX_NoteBase_pos(note), pos);
    }
    for (const std::int32_t pos : {largest - 9, largest - 1, largest}) {
        EXPECT_FALSE(move(note, pos)) << pos;
        EXPECT_EQ(KRT_PLX_NoteBase_pos(note), largest - 10);
    }
    EXPECT_TRUE(KRT_PLX_MutableNote_setDuration(note, 1));
    EXPECT_TRUE(move(note, largest - 1));
    EXPECT_FALSE(move(note, largest));
}

TEST_F(MutableNoteOrder, SurvivesARejectedMove)
{
    KRT_PLX_NoteBase* const first = insertNote(part, 0, 10);
    KRT_PLX_NoteBase* const second = insertNote(part, 100, 10);
    EXPECT_FALSE(move(first, largest - 9));
    EXPECT_EQ(notesOf(part), (Notes{first, second}));
}

TEST_F(MutableNoteOrder, ClosesUpWhenANoteIsRemoved)
{
    Notes notes;
    for (std::int32_t pos = 0; pos < 5; ++pos) {
        notes.push_back(insertNote(part, pos));
    }
    for (const std::size_t index : {2u, 0u, 2u, 1u, 0u}) {
        KRT_PLX_NoteBase* const dead = notes[index];
        EXPECT_TRUE(KRT_PLX_MutableNote_remove(dead));
        notes.erase(notes.begin() + static_cast<std::ptrdiff_t>(index));
        EXPECT_FALSE(KRT_PLX_MutableMidiPart_hasNote(part, dead));
        EXPECT_EQ(notesOf(part), notes);
    }
}

TEST_F(MutableNoteOrder, AmongEqualsTheVeryNoteIsRemoved)
{
    KRT_PLX_NoteBase* const third = insertNote(part, 100);
    KRT_PLX_NoteBase* const second = insertNote(part, 100);
    KRT_PLX_NoteBase* const first = insertNote(part, 100);
    EXPECT_TRUE(KRT_PLX_MutableNote_remove(second));
    EXPECT_EQ(notesOf(part), (Notes{first, third}));
    EXPECT_TRUE(KRT_PLX_MutableNote_remove(third));
    EXPECT_EQ(notesOf(part), (Notes{first}));
}

TEST_F(MutableNoteOrder, HandlesOutliveTheirNeighbours)
{
    KRT_PLX_NoteBase* const note = insertNote(part, 500, 20);
    KRT_PLX_MutableNote_setNumber(note, 64);
    for (std::int32_t pos = 0; pos < 1000; ++pos) {
        insertNote(part, pos);
    }
    for (KRT_PLX_NoteBase* const other : notesOf(part)) {
        if (other != note) {
            KRT_PLX_MutableNote_remove(other);
        }
    }
    EXPECT_EQ(notesOf(part), Notes{note});
    EXPECT_EQ(KRT_PLX_NoteBase_pos(note), 500);
    EXPECT_EQ(KRT_PLX_NoteBase_duration(note), 20);
    EXPECT_EQ(KRT_PLX_NoteBase_number(note), 64u);
}

} // namespace
