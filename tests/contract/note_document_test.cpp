// The note objects of a document: what a note needs, what it takes besides, and the order of notes.

#include <limits>
#include <string>
#include <vector>

#include "support/reading.h"

namespace {

using support::array;
using support::jsonString;
using support::noteObject;
using support::Object;
using support::utf8;

constexpr std::int32_t last = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t first = std::numeric_limits<std::int32_t>::min();

class NoteDocumentTest : public ReaderTest {
protected:
    KRT_PLX_NoteBase* readAt(std::int64_t pos, std::int64_t duration)
    {
        return readNote(noteObject()
                            .with("pos", std::to_string(pos))
                            .with("duration", std::to_string(duration)));
    }

    // The lyrics of the notes that these positions give, in the part's order; a note's lyric is its
    // place in the file.
    std::vector<std::string> readOrder(const std::vector<std::int32_t>& positions)
    {
        std::vector<std::string> notes;
        for (const std::int32_t position : positions) {
            notes.push_back(noteObject()
                                .with("lyric", jsonString(std::to_string(notes.size())))
                                .with("pos", std::to_string(position)));
        }
        KRT_PLX_PartBase* part = readMidiPartWith("notes", array(notes));
        std::vector<std::string> lyrics;
        for (std::uint64_t i = 0; KRT_PLX_NoteBase* note = KRT_PLX_MidiPart_note(part, i); ++i) {
            lyrics.push_back(utf8(KRT_PLX_NoteBase_lyric(note)));
        }
        return lyrics;
    }
};

TEST_F(NoteDocumentTest, BelongsToItsPart)
{
    KRT_PLX_NoteBase* note = readNote(noteObject());
    KRT_PLX_PartBase* part = KRT_PLX_Clip_midiPart(clipOfPart());
    EXPECT_EQ(KRT_PLX_Note_parent(note), part);
    EXPECT_FALSE(KRT_PLX_NoteBase_isMutable(note));
    EXPECT_TRUE(KRT_PLX_MidiPart_hasNote(part, note));
    EXPECT_EQ(KRT_PLX_MidiPart_note(part, 1), nullptr);
}

TEST_F(NoteDocumentTest, MayEndAtTheLastPositionAndNoLater)
{
    EXPECT_NE(readAt(last - 1, 1), nullptr);
    EXPECT_EQ(readAt(last - 1, 2), nullptr);
    EXPECT_EQ(readAt(last - 1, last), nullptr);
    EXPECT_EQ(readAt(last, 1), nullptr);
    EXPECT_NE(readAt(0, last), nullptr);
    EXPECT_EQ(readAt(1, last), nullptr);
    EXPECT_NE(readAt(-1, last), nullptr);
    EXPECT_NE(readAt(first, last), nullptr);
    EXPECT_NE(readAt(first, 1), nullptr);
    EXPECT_EQ(readAt(first, 0), nullptr);
}

TEST_F(NoteDocumentTest, TakesMembersOfOtherObjectsForUnknown)
{
    KRT_PLX_NoteBase* note = readNote(noteObject().with("accent", "7").with("opening", "7"));
    EXPECT_EQ(KRT_PLX_NoteBase_accent(note), 50u);
    EXPECT_EQ(KRT_PLX_NoteBase_opening(note), 127u);
}

TEST_F(NoteDocumentTest, IsDroppedAloneWhenItFails)
{
    const Object good = noteObject();
    for (const std::string_view key :
         {"lyric", "phoneme", "pos", "duration", "number", "velocity"}) {
        const Object bad = good.without(key);
        EXPECT_EQ(countNotes({bad, good, bad, bad, good, bad}), 2u) << key;
        EXPECT_EQ(countNotes({bad}), 0u) << key;
    }
    EXPECT_EQ(countNotes({"{}", "null", good, "[]"}), 1u);
    EXPECT_EQ(countNotes({}), 0u);
}

TEST_F(NoteDocumentTest, StandsInTheOrderOfPositions)
{
    using Order = std::vector<std::string>;
    EXPECT_EQ(readOrder({30, 10, 20}), (Order{"1", "2", "0"}));
    EXPECT_EQ(readOrder({0, -1, first, 1}), (Order{"2", "1", "0", "3"}));
    EXPECT_EQ(readOrder({last - 240, first, 0}), (Order{"1", "2", "0"}));
}

TEST_F(NoteDocumentTest, StandsInTheOrderOfTheFileAtOnePosition)
{
    using Order = std::vector<std::string>;
    EXPECT_EQ(readOrder({5, 5, 5}), (Order{"0", "1", "2"}));
    EXPECT_EQ(readOrder({9, 5, 9, 5, 1, 5, 9}), (Order{"4", "1", "3", "5", "0", "2", "6"}));
}

TEST_F(NoteDocumentTest, KeepsFileOrderAtOnePositionWhateverTheNoteNumbers)
{
    std::vector<std::string> notes;
    for (const std::string_view number : {"70", "60", "65"}) {
        notes.push_back(noteObject().with("number", std::string(number)));
    }
    KRT_PLX_PartBase* part = readMidiPartWith("notes", array(notes));
    EXPECT_EQ(KRT_PLX_NoteBase_number(KRT_PLX_MidiPart_note(part, 0)), 70u);
    EXPECT_EQ(KRT_PLX_NoteBase_number(KRT_PLX_MidiPart_note(part, 1)), 60u);
    EXPECT_EQ(KRT_PLX_NoteBase_number(KRT_PLX_MidiPart_note(part, 2)), 65u);
}

TEST_F(NoteDocumentTest, MayLieOutsideThePart)
{
    EXPECT_NE(readAt(1920, 1), nullptr);
    EXPECT_NE(readAt(1900, 100000), nullptr);
    EXPECT_NE(readAt(-100, 10), nullptr);
}

} // namespace
