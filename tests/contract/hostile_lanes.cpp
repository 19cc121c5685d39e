#include "hostile_shapes.h"

#include <cstdint>

namespace hostile {
namespace {

using support::count;
using support::dataObject;
using support::jsonString;
using support::Object;

std::string events(std::size_t size, bool distinct)
{
    return part("controllers",
                "[{\"name\":\"pitchBend\",\"events\":" + arrayOf(size, [=](std::size_t i) {
                    return point(distinct ? size - 1 - i : 7, i % 8000);
                }) + "}]");
}

std::string eventsReversed(std::size_t size)
{
    return events(size, true);
}

std::string eventsAtOnePosition(std::size_t size)
{
    return events(size, false);
}

std::string lanesOfOneType(std::size_t size)
{
    return part("controllers", arrayOf(size, [](std::size_t i) {
                    return "{\"name\":\"air\",\"events\":[" + point(i, 1) + "]}";
                }));
}

std::string languages(std::size_t size)
{
    const std::string list =
        arrayOf(size, [](std::size_t i) { return "{\"langID\":" + std::to_string(i % 128) + "}"; });
    const Object voice = {{"compID", jsonString("")}, {"langIDs", list}};
    return dataObject("midiAi", support::midiAiPartObject().with("aiVoice", voice));
}

void expectEventsReversed(KRT_PLX_PartBase* part, std::size_t size)
{
    KRT_PLX_MidiControllerBase* lane = KRT_PLX_MidiPart_midiController(part, 3);
    ASSERT_EQ(count(KRT_PLX_MidiControllerBase_numEvents, lane), size);
    for (std::size_t i = 0; i < size; ++i) {
        KRT_PLX_MidiEventBase* event = KRT_PLX_MidiController_event(lane, i);
        ASSERT_EQ(KRT_PLX_MidiEventBase_pos(event), static_cast<std::int32_t>(i));
        ASSERT_EQ(KRT_PLX_MidiEventBase_value(event),
                  static_cast<std::int32_t>((size - 1 - i) % 8000));
    }
}

void expectOneEvent(KRT_PLX_PartBase* part, std::size_t)
{
    KRT_PLX_MidiControllerBase* lane = KRT_PLX_MidiPart_midiController(part, 3);
    ASSERT_EQ(count(KRT_PLX_MidiControllerBase_numEvents, lane), 1u);
    EXPECT_EQ(KRT_PLX_MidiEventBase_value(KRT_PLX_MidiController_event(lane, 0)), 0);
}

void expectTheFirstLane(KRT_PLX_PartBase* part, std::size_t)
{
    KRT_PLX_MidiControllerBase* lane = KRT_PLX_MidiPart_midiController(part, 10);
    ASSERT_EQ(count(KRT_PLX_MidiControllerBase_numEvents, lane), 1u);
    EXPECT_EQ(KRT_PLX_MidiEventBase_pos(KRT_PLX_MidiController_event(lane, 0)), 0);
}

void expectLanguages(KRT_PLX_PartBase* part, std::size_t size)
{
    ASSERT_EQ(KRT_PLX_MidiPartBase_aiLangIDSize(part), size);
    for (std::size_t i = 0; i < size; ++i) {
        ASSERT_EQ(KRT_PLX_MidiPartBase_aiLangIDByIndex(part, i), i % 128);
    }
}

} // namespace

std::vector<Shape> laneShapes()
{
    return {{"EventsReversed", 200000, eventsReversed, expectEventsReversed},
            {"EventsAtOnePosition", 200000, eventsAtOnePosition, expectOneEvent},
            {"LanesOfOneType", 100000, lanesOfOneType, expectTheFirstLane},
            {"AiLanguages", 100000, languages, expectLanguages}};
}

} // namespace hostile
