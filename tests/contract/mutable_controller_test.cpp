#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "support/editing.h"
#include "support/limits.h"
#include "support/properties.h"

using support::countOf;
using support::eventsOf;
using support::largest;
using support::smallest;

namespace {

using Lane = KRT_PLX_MidiControllerBase;
using Event = KRT_PLX_MidiEventBase;
using Events = std::vector<Event*>;
using Values = std::vector<std::pair<std::int32_t, std::int32_t>>;

Values valuesOf(Lane* lane)
{
    Values values;
    for (Event* const event : eventsOf(lane)) {
        values.emplace_back(KRT_PLX_MidiEventBase_pos(event), KRT_PLX_MidiEventBase_value(event));
    }
    return values;
}

// --- What a lane takes --------------------------------------------------------------------------------

class MutableControllerType : public MidiPartTest,
                              public testing::WithParamInterface<support::Controller> {
protected:
    const support::Controller& type = GetParam();
    Lane* const lane = KRT_PLX_MutableMidiPart_addMidiController(part, type.code);
};

INSTANTIATE_TEST_SUITE_P(Types, MutableControllerType, testing::ValuesIn(support::controllers),
                         [](const auto& type) { return std::string(type.param.name); });

TEST_P(MutableControllerType, TellsTheRangeOfItsEvents)
{
    ASSERT_NE(lane, nullptr);
    EXPECT_EQ(KRT_PLX_MidiControllerBase_type(lane), type.code);
    EXPECT_EQ(KRT_PLX_MidiControllerBase_minEventValue(lane), type.minimum);
    EXPECT_EQ(KRT_PLX_MidiControllerBase_maxEventValue(lane), type.maximum);
    Event* const event = KRT_PLX_MutableMidiController_insertEvent(lane, 7, type.minimum);
    EXPECT_EQ(KRT_PLX_MidiEventBase_type(event), type.code);
    EXPECT_EQ(KRT_PLX_MidiEventBase_minValue(event), type.minimum);
    EXPECT_EQ(KRT_PLX_MidiEventBase_maxValue(event), type.maximum);
}

TEST_P(MutableControllerType, TakesItsRangeWithBothBounds)
{
    for (const std::int32_t value : {type.minimum, type.maximum, type.minimum + 1}) {
        Event* const event = KRT_PLX_MutableMidiController_insertEvent(lane, value, value);
        ASSERT_NE(event, nullptr) << value;
        EXPECT_EQ(KRT_PLX_MidiEventBase_value(event), value);
    }
    for (const std::int32_t value : {type.minimum - 1, type.maximum + 1, smallest, largest}) {
        EXPECT_EQ(KRT_PLX_MutableMidiController_insertEvent(lane, 20000, value), nullptr) << value;
    }
    EXPECT_EQ(countOf(KRT_PLX_MidiControllerBase_numEvents, lane), 3u);
}

TEST_P(MutableControllerType, EventsAreSetWithinTheRange)
{
    Event* const event = KRT_PLX_MutableMidiController_insertEvent(lane, 0, type.maximum - 1);
    for (const std::int32_t value : {type.minimum, type.maximum}) {
        EXPECT_TRUE(KRT_PLX_MutableMidiEvent_setValue(event, value));
        EXPECT_EQ(KRT_PLX_MidiEventBase_value(event), value);
    }
    for (const std::int32_t value : {type.minimum - 1, type.maximum + 1, smallest, largest}) {
        EXPECT_FALSE(KRT_PLX_MutableMidiEvent_setValue(event, value)) << value;
        EXPECT_EQ(KRT_PLX_MidiEventBase_value(event), type.maximum);
    }
}

// --- Events -------------------------------------------------------------------------------------------

class MutableControllerEvent : public MidiPartTest {
protected:
    Event* insert(std::int32_t pos, std::int32_t value)
    {
        return KRT_PLX_MutableMidiController_insertEvent(lane, pos, value);
    }
    bool move(Event* event, std::int32_t pos) { return KRT_PLX_MutableMidiEvent_move(event, pos); }
    bool has(Event* event) { return KRT_PLX_MutableMidiController_hasEvent(lane, event); }

    Lane* const lane = KRT_PLX_MutableMidiPart_addMidiController(part, KRT_PLX_CONTROLLER_DYNAMICS);
};

TEST_F(MutableControllerEvent, HasWhatItWasAskedFor)
{
    EXPECT_EQ(KRT_PLX_MutableMidiController_event(lane, 0), nullptr);
    Event* const event = insert(480, 10);
    EXPECT_EQ(KRT_PLX_MidiEventBase_pos(event), 480);
    EXPECT_EQ(KRT_PLX_MidiEventBase_value(event), 10);
    EXPECT_EQ(KRT_PLX_MutableMidiEvent_parent(event), lane);
    EXPECT_EQ(KRT_PLX_MidiEvent_parent(event), nullptr);
    EXPECT_EQ(eventsOf(lane), Events{event});
}

TEST_F(MutableControllerEvent, StandsAtAnyPosition)
{
    for (const std::int32_t pos : {0, largest, smallest, -1, largest - 1}) {
        EXPECT_NE(insert(pos, 1), nullptr) << pos;
    }
    EXPECT_EQ(valuesOf(lane),
              (Values{{smallest, 1}, {-1, 1}, {0, 1}, {largest - 1, 1}, {largest, 1}}));
}

TEST_F(MutableControllerEvent, IsUpdatedWhenInsertedAgain)
{
    insert(0, 1);
    Event* const event = insert(480, 10);
    EXPECT_EQ(insert(480, 20), event);
    EXPECT_EQ(valuesOf(lane), (Values{{0, 1}, {480, 20}}));
    EXPECT_EQ(insert(480, 200), nullptr);
    EXPECT_EQ(valuesOf(lane), (Values{{0, 1}, {480, 20}}));
}

TEST_F(MutableControllerEvent, MovesAnywhere)
{
    Event* const a = insert(0, 1);
    Event* const b = insert(100, 2);
    Event* const c = insert(200, 3);
    EXPECT_TRUE(move(a, 150));
    EXPECT_EQ(eventsOf(lane), (Events{b, a, c}));
    EXPECT_TRUE(move(c, smallest));
    EXPECT_EQ(eventsOf(lane), (Events{c, b, a}));
    EXPECT_TRUE(move(b, largest));
    EXPECT_EQ(eventsOf(lane), (Events{c, a, b}));
    EXPECT_TRUE(move(a, 150));
    EXPECT_EQ(valuesOf(lane), (Values{{smallest, 3}, {150, 1}, {largest, 2}}));
}

TEST_F(MutableControllerEvent, DestroysTheOneItLandsOn)
{
    insert(0, 1);
    Event* const middle = insert(100, 2);
    Event* const last = insert(200, 3);
    EXPECT_TRUE(move(last, 100));
    EXPECT_FALSE(has(middle));
    EXPECT_TRUE(has(last));
    EXPECT_EQ(valuesOf(lane), (Values{{0, 1}, {100, 3}}));
}

TEST_F(MutableControllerEvent, DestroysTheOneItLandsOnComingFromBefore)
{
    Event* const first = insert(0, 1);
    insert(100, 2);
    Event* const last = insert(200, 3);
    EXPECT_TRUE(move(first, 200));
    EXPECT_FALSE(has(last));
    EXPECT_EQ(valuesOf(lane), (Values{{100, 2}, {200, 1}}));
    EXPECT_EQ(KRT_PLX_MutableMidiController_event(lane, 1), first);
}

TEST_F(MutableControllerEvent, IsRemoved)
{
    Event* const first = insert(0, 1);
    Event* const middle = insert(100, 2);
    Event* const last = insert(200, 3);
    EXPECT_TRUE(KRT_PLX_MutableMidiEvent_remove(middle));
    EXPECT_FALSE(has(middle));
    EXPECT_EQ(eventsOf(lane), (Events{first, last}));
    EXPECT_TRUE(KRT_PLX_MutableMidiEvent_remove(last));
    EXPECT_TRUE(KRT_PLX_MutableMidiEvent_remove(first));
    EXPECT_EQ(valuesOf(lane), Values{});
}

TEST_F(MutableControllerEvent, BelongsToOneLane)
{
    Lane* const other = KRT_PLX_MutableMidiPart_addMidiController(part, KRT_PLX_CONTROLLER_GROWL);
    Event* const event = insert(0, 1);
    Event* const foreign = KRT_PLX_MutableMidiController_insertEvent(other, 0, 1);
    EXPECT_TRUE(has(event));
    EXPECT_FALSE(has(foreign));
    EXPECT_FALSE(has(nullptr));
    EXPECT_FALSE(KRT_PLX_MutableMidiController_hasEvent(other, event));
}

TEST_F(MutableControllerEvent, HasNoneBehindTheLast)
{
    insert(0, 1);
    EXPECT_EQ(KRT_PLX_MutableMidiController_event(lane, 1), nullptr);
    EXPECT_EQ(KRT_PLX_MutableMidiController_event(lane, std::numeric_limits<std::uint64_t>::max()),
              nullptr);
    EXPECT_FALSE(KRT_PLX_MidiControllerBase_numEvents(lane, nullptr));
}

TEST_F(MutableControllerEvent, OutlivesItsNeighbours)
{
    Event* const event = insert(500, 42);
    for (std::int32_t pos = 0; pos < 1000; ++pos) {
        insert(pos, pos == 500 ? 42 : 1);
    }
    for (Event* const other : eventsOf(lane)) {
        if (other != event) {
            EXPECT_TRUE(KRT_PLX_MutableMidiEvent_remove(other));
        }
    }
    EXPECT_EQ(eventsOf(lane), Events{event});
    EXPECT_EQ(valuesOf(lane), (Values{{500, 42}}));
}

// --- Lanes --------------------------------------------------------------------------------------------

TEST_F(MutableControllerEvent, LanesAreRemovedWithTheirEvents)
{
    Lane* const other = KRT_PLX_MutableMidiPart_addMidiController(part, KRT_PLX_CONTROLLER_GROWL);
    Event* const kept = KRT_PLX_MutableMidiController_insertEvent(other, 5, 6);
    insert(0, 1);
    EXPECT_TRUE(KRT_PLX_MutableMidiController_remove(lane));
    EXPECT_FALSE(KRT_PLX_MutableMidiPart_hasMidiController(part, lane));
    EXPECT_EQ(KRT_PLX_MutableMidiPart_midiController(part, KRT_PLX_CONTROLLER_DYNAMICS), nullptr);
    EXPECT_EQ(KRT_PLX_MutableMidiPart_midiController(part, KRT_PLX_CONTROLLER_GROWL), other);
    EXPECT_EQ(eventsOf(other), Events{kept});
}

TEST_F(MutableControllerEvent, ARemovedLaneMayBeAddedAgain)
{
    insert(0, 1);
    KRT_PLX_MutableMidiController_remove(lane);
    Lane* const again =
        KRT_PLX_MutableMidiPart_addMidiController(part, KRT_PLX_CONTROLLER_DYNAMICS);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(valuesOf(again), Values{});
}

TEST_F(MutableControllerEvent, LanesAreNotReadOnly)
{
    EXPECT_EQ(KRT_PLX_MidiController_parent(lane), nullptr);
    EXPECT_EQ(KRT_PLX_MidiController_event(lane, 0), nullptr);
}

} // namespace
