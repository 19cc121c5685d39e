// Random edits of a part's notes and lanes, beside plain lists that are edited by the same rules:
// append and sort the whole.
#include <algorithm>
#include <map>
#include <vector>

#include "sequence.h"
#include "support/editing.h"
#include "support/effort.h"
#include "support/limits.h"
#include "support/random.h"

using sequence::steps;
using support::insertNote;
using support::largest;
using support::notesOf;
using support::Random;
using support::smallest;

namespace {

// --- Notes ------------------------------------------------------------------------------------------

struct NoteModel {
    KRT_PLX_NoteBase* handle;
    std::int32_t pos;
    std::int32_t duration;
    std::uint32_t number;

    friend bool operator==(const NoteModel&, const NoteModel&) = default;
};

bool endsInTime(std::int64_t pos, std::int64_t duration)
{
    return pos + duration <= largest;
}

class NoteSequence : public MidiPartTest, public testing::WithParamInterface<std::uint32_t> {
protected:
    // Small ranges, so that many notes are at one position; now and then the last possible position.
    std::int32_t somePos()
    {
        const std::int32_t ends[] = {smallest, largest, largest - 1, largest - 20};
        return random.oneIn(20) ? random.oneOf(ends) : random.between(-6, 6);
    }

    std::int32_t someDuration()
    {
        const std::int32_t ends[] = {smallest, -1, 0, largest};
        return random.oneIn(20) ? random.oneOf(ends) : random.between(1, 30);
    }

    void insert()
    {
        const std::int32_t pos = somePos();
        const std::int32_t duration = someDuration();
        KRT_PLX_NoteBase* const note = insertNote(part, pos, duration);
        ASSERT_EQ(note != nullptr, duration >= 1 && pos != largest && endsInTime(pos, duration));
        if (note == nullptr) {
            return;
        }
        dead.clear(); // a dead note's address may have come back
        const auto notLess = [pos](const NoteModel& other) {
            return other.pos != pos ? other.pos > pos : true; // no number is below 0
        };
        model.insert(std::ranges::find_if(model, notLess), {note, pos, duration, 0});
    }

    void move()
    {
        NoteModel& note = random.oneOf(model);
        const std::int32_t pos = somePos();
        const bool accepted = pos != largest && endsInTime(pos, note.duration);
        ASSERT_EQ(KRT_PLX_MutableNote_move(note.handle, pos), accepted);
        if (accepted) {
            note.pos = pos;
            std::ranges::stable_sort(model, {}, &NoteModel::pos);
        }
    }

    void setDuration()
    {
        NoteModel& note = random.oneOf(model);
        const std::int32_t duration = someDuration();
        const bool accepted = duration >= 1 && endsInTime(note.pos, duration);
        ASSERT_EQ(KRT_PLX_MutableNote_setDuration(note.handle, duration), accepted);
        note.duration = accepted ? duration : note.duration;
    }

    void setNumber()
    {
        NoteModel& note = random.oneOf(model);
        const std::uint32_t number = random.below(140);
        ASSERT_EQ(KRT_PLX_MutableNote_setNumber(note.handle, number), number <= 127);
        note.number = number <= 127 ? number : note.number;
    }

    void remove()
    {
        const auto note = model.begin() + static_cast<std::ptrdiff_t>(random.below(model.size()));
        ASSERT_TRUE(KRT_PLX_MutableNote_remove(note->handle));
        dead.push_back(note->handle);
        model.erase(note);
    }

    // Never above 32 notes: up to there the order of equal positions is promised.
    void step()
    {
        const std::uint32_t choice = random.below(10);
        if (model.empty() || (choice < 4 && model.size() < 32)) {
            insert();
        } else if (choice < 7) {
            move();
        } else if (choice < 8) {
            setDuration();
        } else if (choice < 9) {
            setNumber();
        } else {
            remove();
        }
    }

    void compare()
    {
        std::vector<NoteModel> actual;
        for (KRT_PLX_NoteBase* const note : notesOf(part)) {
            actual.push_back({note, KRT_PLX_NoteBase_pos(note), KRT_PLX_NoteBase_duration(note),
                              KRT_PLX_NoteBase_number(note)});
            EXPECT_TRUE(KRT_PLX_MutableMidiPart_hasNote(part, note));
        }
        ASSERT_TRUE(actual == model);
        for (KRT_PLX_NoteBase* const note : dead) {
            ASSERT_FALSE(KRT_PLX_MutableMidiPart_hasNote(part, note));
        }
    }

    Random random{GetParam()};
    std::vector<NoteModel> model;
    std::vector<KRT_PLX_NoteBase*> dead;
};

INSTANTIATE_TEST_SUITE_P(Seeds, NoteSequence, testing::Range(1u, 1 + support::seeds(6)));

TEST_P(NoteSequence, IsThatOfPlainLists)
{
    for (int number = 0; number < steps; ++number) {
        SCOPED_TRACE(number);
        step();
        compare();
        if (HasFatalFailure()) {
            return;
        }
    }
}

// --- Many notes, none at another's position ---------------------------------------------------------

class ManyNotesSequence : public MidiPartTest, public testing::WithParamInterface<std::uint32_t> {
protected:
    std::int32_t freePos()
    {
        std::int32_t pos = random.between(-1'000'000, 1'000'000);
        while (model.contains(pos)) {
            ++pos;
        }
        return pos;
    }

    void insert()
    {
        const std::int32_t pos = freePos();
        model[pos] = insertNote(part, pos, 1);
    }

    void move()
    {
        const auto note = random.oneOf(model);
        const std::int32_t pos = freePos();
        EXPECT_TRUE(KRT_PLX_MutableNote_move(note.second, pos));
        model.erase(note.first);
        model[pos] = note.second;
    }

    void remove()
    {
        const auto note = random.oneOf(model);
        EXPECT_TRUE(KRT_PLX_MutableNote_remove(note.second));
        model.erase(note.first);
    }

    void compare()
    {
        std::vector<KRT_PLX_NoteBase*> expected;
        for (const auto& [pos, note] : model) {
            expected.push_back(note);
            EXPECT_EQ(KRT_PLX_NoteBase_pos(note), pos);
        }
        ASSERT_TRUE(notesOf(part) == expected);
    }

    Random random{GetParam()};
    std::map<std::int32_t, KRT_PLX_NoteBase*> model;
};

INSTANTIATE_TEST_SUITE_P(Seeds, ManyNotesSequence, testing::Range(1u, 1 + support::seeds(3)));

TEST_P(ManyNotesSequence, StaysInOrder)
{
    for (int number = 0; number < steps; ++number) {
        const std::uint32_t choice = random.below(10);
        if (model.empty() || choice < 5) {
            insert();
        } else if (choice < 8) {
            move();
        } else {
            remove();
        }
        if (number % 100 == 0) {
            compare();
        }
    }
    compare();
    EXPECT_GT(model.size(), 500u);
}

// --- Lanes --------------------------------------------------------------------------------------------

class LaneSequence : public MidiPartTest, public testing::WithParamInterface<std::uint32_t> {
protected:
    using Lane = KRT_PLX_MidiControllerBase;

    void add(std::uint32_t type)
    {
        Lane* const lane = KRT_PLX_MutableMidiPart_addMidiController(part, type);
        ASSERT_EQ(lane != nullptr, type < KRT_PLX_CONTROLLER_NONE && !model.contains(type));
        if (lane != nullptr) {
            model[type] = lane;
            dead.clear();
        }
    }

    void remove()
    {
        const auto lane = random.oneOf(model);
        ASSERT_TRUE(KRT_PLX_MutableMidiController_remove(lane.second));
        dead.push_back(lane.second);
        model.erase(lane.first);
    }

    void compare()
    {
        for (std::uint32_t type = 0; type < 14; ++type) {
            Lane* const lane = KRT_PLX_MutableMidiPart_midiController(part, type);
            const auto expected = model.find(type);
            ASSERT_EQ(lane, expected == model.end() ? nullptr : expected->second);
            EXPECT_EQ(KRT_PLX_MutableMidiPart_hasMidiController(part, lane), lane != nullptr);
        }
        for (Lane* const lane : dead) {
            ASSERT_FALSE(KRT_PLX_MutableMidiPart_hasMidiController(part, lane));
        }
    }

    Random random{GetParam()};
    std::map<std::uint32_t, Lane*> model;
    std::vector<Lane*> dead;
};

INSTANTIATE_TEST_SUITE_P(Seeds, LaneSequence, testing::Range(1u, 1 + support::seeds(3)));

TEST_P(LaneSequence, IsThatOfATable)
{
    for (int number = 0; number < steps; ++number) {
        if (model.empty() || random.oneIn(2)) {
            add(random.below(14));
        } else {
            remove();
        }
        compare();
        if (HasFatalFailure()) {
            return;
        }
    }
}

} // namespace
