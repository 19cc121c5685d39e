#include "korvel/plx/controller.h"

#include "manager/exports/guard.h"

using namespace Korvel::CANTORIS::PLX;
using namespace Korvel::CANTORIS::PLX::exports;

// MidiControllerBase

int32_t KRT_PLX_MidiControllerBase_maxEventValue(KRT_PLX_MidiControllerBase* controller)
    KRT_PLX_NOEXCEPT
{
    return call<&MidiControllerBase::maxEventValue>(controller, KRT_PLX_NO_INT32);
}

int32_t KRT_PLX_MidiControllerBase_minEventValue(KRT_PLX_MidiControllerBase* controller)
    KRT_PLX_NOEXCEPT
{
    return call<&MidiControllerBase::minEventValue>(controller, INT32_MAX);
}

bool KRT_PLX_MidiControllerBase_numEvents(KRT_PLX_MidiControllerBase* controller,
                                          uint64_t* count) KRT_PLX_NOEXCEPT
{
    return countOf<&MidiControllerBase::numEvents>(controller, count);
}

uint32_t KRT_PLX_MidiControllerBase_type(KRT_PLX_MidiControllerBase* controller) KRT_PLX_NOEXCEPT
{
    return call<&MidiControllerBase::type>(controller, KRT_PLX_CONTROLLER_NONE);
}

// MidiController

KRT_PLX_PartBase* KRT_PLX_MidiController_parent(KRT_PLX_MidiControllerBase* controller)
    KRT_PLX_NOEXCEPT
{
    return call<&MidiController::parent>(controller, nullptr);
}

KRT_PLX_MidiEventBase* KRT_PLX_MidiController_event(KRT_PLX_MidiControllerBase* controller,
                                                    uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&MidiController::event>(controller, nullptr, index);
}

bool KRT_PLX_MidiController_hasEvent(KRT_PLX_MidiControllerBase* controller,
                                     KRT_PLX_MidiEventBase* element) KRT_PLX_NOEXCEPT
{
    return call<&MidiController::hasEvent>(controller, false, element);
}

// MutableMidiController

KRT_PLX_PartBase* KRT_PLX_MutableMidiController_parent(KRT_PLX_MidiControllerBase* controller)
    KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiController::parent>(controller, nullptr);
}

KRT_PLX_MidiEventBase* KRT_PLX_MutableMidiController_event(KRT_PLX_MidiControllerBase* controller,
                                                           uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiController::event>(controller, nullptr, index);
}

bool KRT_PLX_MutableMidiController_hasEvent(KRT_PLX_MidiControllerBase* controller,
                                            KRT_PLX_MidiEventBase* element) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiController::hasEvent>(controller, false, element);
}

KRT_PLX_MidiEventBase* KRT_PLX_MutableMidiController_insertEvent(
    KRT_PLX_MidiControllerBase* controller, int32_t pos, int32_t value) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiController::insertEvent>(controller, nullptr, pos, value);
}

bool KRT_PLX_MutableMidiController_remove(KRT_PLX_MidiControllerBase* controller) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiController::remove>(controller, false);
}

// MidiEventBase

int32_t KRT_PLX_MidiEventBase_maxValue(KRT_PLX_MidiEventBase* event) KRT_PLX_NOEXCEPT
{
    return call<&MidiEventBase::maxValue>(event, KRT_PLX_NO_INT32);
}

int32_t KRT_PLX_MidiEventBase_minValue(KRT_PLX_MidiEventBase* event) KRT_PLX_NOEXCEPT
{
    return call<&MidiEventBase::minValue>(event, INT32_MAX);
}

int32_t KRT_PLX_MidiEventBase_pos(KRT_PLX_MidiEventBase* event) KRT_PLX_NOEXCEPT
{
    return call<&MidiEventBase::pos>(event, 0);
}

uint32_t KRT_PLX_MidiEventBase_type(KRT_PLX_MidiEventBase* event) KRT_PLX_NOEXCEPT
{
    return call<&MidiEventBase::type>(event, KRT_PLX_CONTROLLER_NONE);
}

int32_t KRT_PLX_MidiEventBase_value(KRT_PLX_MidiEventBase* event) KRT_PLX_NOEXCEPT
{
    return call<&MidiEventBase::value>(event, KRT_PLX_NO_INT32);
}

// MidiEvent

KRT_PLX_MidiControllerBase* KRT_PLX_MidiEvent_parent(KRT_PLX_MidiEventBase* event) KRT_PLX_NOEXCEPT
{
    return call<&MidiEvent::parent>(event, nullptr);
}

// MutableMidiEvent

KRT_PLX_MidiControllerBase* KRT_PLX_MutableMidiEvent_parent(KRT_PLX_MidiEventBase* event)
    KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiEvent::parent>(event, nullptr);
}

bool KRT_PLX_MutableMidiEvent_move(KRT_PLX_MidiEventBase* event, int32_t pos) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiEvent::move>(event, false, pos);
}

bool KRT_PLX_MutableMidiEvent_remove(KRT_PLX_MidiEventBase* event) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiEvent::remove>(event, false);
}

bool KRT_PLX_MutableMidiEvent_setValue(KRT_PLX_MidiEventBase* event, int32_t value) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiEvent::setValue>(event, false, value);
}
