// The controller lanes of a document: names, value ranges, the order of events, and which of two
// lanes or events stays.

#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "support/properties.h"
#include "support/reading.h"

namespace {

using support::array;
using support::count;
using support::jsonString;
using support::notArrays;
using support::notObjects;
using support::notStrings;
using support::Object;

using Events = std::vector<std::pair<std::int32_t, std::int32_t>>;

std::string event(std::int64_t pos, std::int64_t value)
{
    return Object{{"pos", std::to_string(pos)}, {"value", std::to_string(value)}};
}

Object lane(std::string_view name, const std::vector<std::string>& events)
{
    return {{"name", jsonString(name)}, {"events", array(events)}};
}

Events eventsOf(KRT_PLX_MidiControllerBase* controller)
{
    Events events;
    while (KRT_PLX_MidiEventBase* event = KRT_PLX_MidiController_event(controller, events.size())) {
        EXPECT_EQ(KRT_PLX_MidiEvent_parent(event), controller);
        EXPECT_TRUE(KRT_PLX_MidiController_hasEvent(controller, event));
        events.emplace_back(KRT_PLX_MidiEventBase_pos(event), KRT_PLX_MidiEventBase_value(event));
    }
    if (controller != nullptr) {
        EXPECT_EQ(count(KRT_PLX_MidiControllerBase_numEvents, controller), events.size());
    }
    return events;
}

class ControllerDocumentTest : public ReaderTest {
protected:
    KRT_PLX_PartBase* readLanes(const std::vector<std::string>& lanes)
    {
        KRT_PLX_PartBase* part = readMidiPartWith("controllers", array(lanes));
        EXPECT_NE(part, nullptr);
        return part;
    }

    // The events of that type's lane; none when there is no lane.
    Events readEvents(const std::vector<std::string>& lanes, std::uint32_t type = 0)
    {
        return eventsOf(KRT_PLX_MidiPart_midiController(readLanes(lanes), type));
    }

    std::vector<std::uint32_t> readTypes(const std::vector<std::string>& lanes)
    {
        KRT_PLX_PartBase* part = readLanes(lanes);
        std::vector<std::uint32_t> found;
        for (std::uint32_t type = 0; type < 20; ++type) {
            if (KRT_PLX_MidiPart_midiController(part, type) != nullptr) {
                found.push_back(type);
            }
        }
        return found;
    }
};

// --- Each type ---

class ControllerTypeTest : public ControllerDocumentTest,
                           public testing::WithParamInterface<support::Controller> {};

INSTANTIATE_TEST_SUITE_P(Types, ControllerTypeTest, testing::ValuesIn(support::controllers),
                         [](const auto& type) { return std::string(type.param.name); });

TEST_P(ControllerTypeTest, IsKnownByItsName)
{
    const std::string object = lane(GetParam().name, {event(480, 1)});
    EXPECT_EQ(readTypes({object}), std::vector<std::uint32_t>{GetParam().code});

    KRT_PLX_PartBase* part = readLanes({object});
    KRT_PLX_MidiControllerBase* controller = KRT_PLX_MidiPart_midiController(part, GetParam().code);
    EXPECT_EQ(KRT_PLX_MidiControllerBase_type(controller), GetParam().code);
    EXPECT_EQ(KRT_PLX_MidiController_parent(controller), part);
    EXPECT_TRUE(KRT_PLX_MidiPart_hasMidiController(part, controller));
}

TEST_P(ControllerTypeTest, TellsItsRange)
{
    KRT_PLX_PartBase* part = readLanes({lane(GetParam().name, {event(480, 1)})});
    KRT_PLX_MidiControllerBase* controller = KRT_PLX_MidiPart_midiController(part, GetParam().code);
    EXPECT_EQ(KRT_PLX_MidiControllerBase_minEventValue(controller), GetParam().minimum);
    EXPECT_EQ(KRT_PLX_MidiControllerBase_maxEventValue(controller), GetParam().maximum);
    KRT_PLX_MidiEventBase* event = KRT_PLX_MidiController_event(controller, 0);
    EXPECT_EQ(KRT_PLX_MidiEventBase_type(event), GetParam().code);
    EXPECT_EQ(KRT_PLX_MidiEventBase_minValue(event), GetParam().minimum);
    EXPECT_EQ(KRT_PLX_MidiEventBase_maxValue(event), GetParam().maximum);
}

TEST_P(ControllerTypeTest, NeedsEventValuesWithinItsRange)
{
    support::expectRequiredInteger(
        {GetParam().minimum, GetParam().maximum}, [this](const auto& value) {
            const Object object = Object{{"pos", "480"}}.with("value", value);
            const Events events =
                readEvents({lane(GetParam().name, {event(1, 1), object})}, GetParam().code);
            return events.size() == 2 && events[1].first == 480 &&
                   std::to_string(events[1].second) == value;
        });
}

TEST_P(ControllerTypeTest, IsNotKnownByAnythingLikeItsName)
{
    const std::string& name = GetParam().name;
    std::string capital = name;
    capital.front() = static_cast<char>(capital.front() - 'a' + 'A');
    const std::string code = std::to_string(GetParam().code);
    for (const std::string& other :
         {capital, name + " ", " " + name, name + "s", name.substr(1), code}) {
        EXPECT_EQ(readTypes({lane(other, {event(0, 1)})}), std::vector<std::uint32_t>{}) << other;
    }
}

// --- Lanes ---

TEST_F(ControllerDocumentTest, TakesAllTypesInAnyOrder)
{
    std::vector<std::string> lanes;
    std::vector<std::uint32_t> codes;
    for (const support::Controller& type : support::controllers) {
        lanes.insert(lanes.begin(), lane(type.name, {event(0, 1)}));
        codes.push_back(type.code);
    }
    EXPECT_EQ(readTypes(lanes), codes);
}

TEST_F(ControllerDocumentTest, SkipsALaneWithoutAKnownName)
{
    const Object good = lane("dynamics", {event(0, 1)});
    EXPECT_EQ(readEvents({good.without("name")}), Events{});
    for (const std::string_view name : {"", "12", "unknown", "Dynamics", "音量"}) {
        EXPECT_EQ(readTypes({lane(name, {event(0, 1)})}), std::vector<std::uint32_t>{}) << name;
    }
    for (const std::string& value : notStrings()) {
        EXPECT_EQ(readTypes({good.with("name", value)}), std::vector<std::uint32_t>{}) << value;
    }
}

TEST_F(ControllerDocumentTest, SkipsALaneWithoutAGoodEvent)
{
    const Object good = lane("dynamics", {event(0, 1)});
    EXPECT_EQ(readTypes({good.without("events")}), std::vector<std::uint32_t>{});
    for (const std::string& value : notArrays()) {
        EXPECT_EQ(readTypes({good.with("events", value)}), std::vector<std::uint32_t>{}) << value;
    }
    EXPECT_EQ(readTypes({lane("dynamics", {})}), std::vector<std::uint32_t>{});
    EXPECT_EQ(readTypes({lane("dynamics", {"{}", event(0, 128), event(1, -1)})}),
              std::vector<std::uint32_t>{});
    EXPECT_EQ(readTypes({lane("dynamics", notObjects())}), std::vector<std::uint32_t>{});
}

TEST_F(ControllerDocumentTest, TakesTheEventsWhateverTheOrderOfTheMembers)
{
    const Object object = lane("pitchBend", {event(0, -5), event(5, 5)});
    EXPECT_EQ(readEvents({object.reversed()}, 3), (Events{{0, -5}, {5, 5}}));
}

TEST_F(ControllerDocumentTest, KeepsTheFirstOfTwoLanesOfOneType)
{
    EXPECT_EQ(readEvents({lane("dynamics", {event(1, 10)}), lane("air", {event(0, 0)}),
                          lane("dynamics", {event(2, 20), event(3, 30)})}),
              (Events{{1, 10}}));
}

TEST_F(ControllerDocumentTest, KeepsTheFirstLaneThatHasAGoodEvent)
{
    EXPECT_EQ(readEvents({lane("dynamics", {}), lane("dynamics", {event(1, 128)}),
                          lane("dynamics", {event(2, 20)}), lane("dynamics", {event(3, 30)})}),
              (Events{{2, 20}}));
}

// --- Events ---

TEST_F(ControllerDocumentTest, NeedsEventsWithAnyPosition)
{
    constexpr support::IntegerRange any = {std::numeric_limits<std::int32_t>::min(),
                                           std::numeric_limits<std::int32_t>::max()};
    support::expectRequiredInteger(any, [this](const auto& value) {
        const std::string object = Object{{"value", "64"}}.with("pos", value);
        const Events events = readEvents({lane("dynamics", {object})});
        return events.size() == 1 && events[0].second == 64 &&
               std::to_string(events[0].first) == value;
    });
}

TEST_F(ControllerDocumentTest, SkipsEventsThatAreNoObjects)
{
    std::vector<std::string> events = notObjects();
    events.insert(events.begin() + 4, event(7, 8));
    EXPECT_EQ(readEvents({lane("dynamics", events)}), (Events{{7, 8}}));
}

TEST_F(ControllerDocumentTest, PutsEventsInTheOrderOfPositions)
{
    EXPECT_EQ(
        readEvents({lane("pitchBend", {event(300, 1), event(-5, 2), event(100, 3),
                                       event(2147483647, 4), event(-2147483648, 5), event(0, 6)})},
                   3),
        (Events{{-2147483647 - 1, 5}, {-5, 2}, {0, 6}, {100, 3}, {300, 1}, {2147483647, 4}}));
}

TEST_F(ControllerDocumentTest, KeepsTheFirstOfTwoEventsAtOnePosition)
{
    EXPECT_EQ(readEvents({lane("dynamics",
                               {event(9, 1), event(5, 2), event(9, 3), event(5, 4), event(9, 5)})}),
              (Events{{5, 2}, {9, 1}}));
}

TEST_F(ControllerDocumentTest, KeepsTheFirstGoodEventAtAPosition)
{
    EXPECT_EQ(readEvents({lane("dynamics", {event(9, 128), R"({"pos": 9})", event(9, 3),
                                            event(9, 4), event(5, -1)})}),
              (Events{{9, 3}}));
}

} // namespace
