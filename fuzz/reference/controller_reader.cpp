#include "reference/controller_reader.h"

#include "reference/point_reader.h"
#include "model/midi_part_impl.h"

namespace Korvel::CANTORIS::PLX::reference {

namespace {

std::uint32_t readType(const Value* name)
{
    const auto text = asWholeUtf8(name);
    return text ? controller::fromName(*text) : KRT_PLX_CONTROLLER_NONE;
}

void readController(const Value& element, MidiPartBase& part, OwnedList<MidiControllerImpl>& lanes)
{
    const Members members(element, schema::controller::keys);
    const std::uint32_t type = readType(members[schema::controller::name]);
    const Value* const events = asArray(members[schema::controller::events]);
    if (type == KRT_PLX_CONTROLLER_NONE || events == nullptr || laneOfType(lanes, type) != nullptr) {
        return;
    }
    auto points = readPoints(*events, [type](std::int32_t, std::int32_t value) {
        return controller::type(type).accepts(value);
    });
    if (points.empty()) {
        return;
    }
    auto lane = std::make_unique<MidiControllerImpl>(part, type);
    lane->buildEvents(points);
    insertLane(lanes, std::move(lane));
}

} // namespace

void readControllers(const Value* array, MidiPartBase& part, OwnedList<MidiControllerImpl>& lanes)
{
    if (asArray(array) == nullptr) {
        return;
    }
    for (const auto& element : array->GetArray()) {
        if (element.IsObject()) {
            readController(element, part, lanes);
        }
    }
}

} // namespace Korvel::CANTORIS::PLX::reference
