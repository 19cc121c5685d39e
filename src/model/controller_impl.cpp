#include "model/controller_impl.h"

namespace Korvel::CANTORIS::PLX {

bool MidiEventBaseImpl::assignValue(std::int32_t value)
{
    if (!controller::type(type()).accepts(value)) {
        return false;
    }
    value_ = value;
    return true;
}

void MidiControllerImpl::buildEvents(std::vector<CurvePoint>& points)
{
    orderCurve(points);
    MidiControllerBase& lane = *this;
    events_.build(lane, points);
}

MutableMidiEventImpl::MutableMidiEventImpl(MutableMidiControllerImpl& lane, std::int32_t pos)
    : MidiEventBaseImpl(lane, {pos, 0}), owner_(lane)
{
}

bool MutableMidiEventImpl::remove()
{
    return removeOrdered(owner_.events(), *this);
}

// Another event at the new position is removed.
bool MutableMidiEventImpl::move(std::int32_t pos)
{
    moveUnique(owner_.events(), *this, pos, [this, pos] { assignPos(pos); });
    return true;
}

MutableMidiEvent* MutableMidiControllerImpl::insertEvent(std::int32_t pos, std::int32_t value)
{
    if (!controller::type(type()).accepts(value)) {
        return nullptr;
    }
    const std::size_t place = firstNotBefore(events_, pos);
    MutableMidiEventImpl* event = events_.at(place);
    if (event == nullptr || event->pos() != pos) {
        event = events_.insert(place, std::make_unique<MutableMidiEventImpl>(*this, pos));
    }
    event->setValue(value);
    return event;
}

} // namespace Korvel::CANTORIS::PLX
