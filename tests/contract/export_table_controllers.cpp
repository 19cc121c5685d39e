#include "contract/export_table.h"

namespace contract {

std::vector<Export> controllerExports()
{
    return {
        exported("MidiControllerBase_maxEventValue", &KRT_PLX_MidiControllerBase_maxEventValue,
                 smallestBits),
        exported("MidiControllerBase_minEventValue", &KRT_PLX_MidiControllerBase_minEventValue,
                 largestBits),
        exported("MidiControllerBase_numEvents", &KRT_PLX_MidiControllerBase_numEvents, no),
        exported("MidiControllerBase_type", &KRT_PLX_MidiControllerBase_type, 12),
        exported("MidiController_parent", &KRT_PLX_MidiController_parent, null),
        exported("MidiController_event", &KRT_PLX_MidiController_event, null),
        exported("MidiController_hasEvent", &KRT_PLX_MidiController_hasEvent, no),
        exported("MutableMidiController_parent", &KRT_PLX_MutableMidiController_parent, null),
        exported("MutableMidiController_event", &KRT_PLX_MutableMidiController_event, null),
        exported("MutableMidiController_hasEvent", &KRT_PLX_MutableMidiController_hasEvent, no),
        exported("MutableMidiController_insertEvent", &KRT_PLX_MutableMidiController_insertEvent,
                 null),
        exported("MutableMidiController_remove", &KRT_PLX_MutableMidiController_remove, no),
        exported("MidiEventBase_maxValue", &KRT_PLX_MidiEventBase_maxValue, smallestBits),
        exported("MidiEventBase_minValue", &KRT_PLX_MidiEventBase_minValue, largestBits),
        exported("MidiEventBase_pos", &KRT_PLX_MidiEventBase_pos, 0),
        exported("MidiEventBase_type", &KRT_PLX_MidiEventBase_type, 12),
        exported("MidiEventBase_value", &KRT_PLX_MidiEventBase_value, smallestBits),
        exported("MidiEvent_parent", &KRT_PLX_MidiEvent_parent, null),
        exported("MutableMidiEvent_parent", &KRT_PLX_MutableMidiEvent_parent, null),
        exported("MutableMidiEvent_move", &KRT_PLX_MutableMidiEvent_move, no),
        exported("MutableMidiEvent_remove", &KRT_PLX_MutableMidiEvent_remove, no),
        exported("MutableMidiEvent_setValue", &KRT_PLX_MutableMidiEvent_setValue, no),
    };
}

} // namespace contract
