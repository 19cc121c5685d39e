/**
 * @file controller.h
 * Controller lanes of a MIDI part and the events in them.
 *
 * A MIDI part has at most one lane for each controller type. A lane holds events, the points
 * (position and value) through which dynamics, pitch bend and so on run in the course of the part.
 * There is no count of lanes: to list them, ask KRT_PLX_MidiPart_midiController() or
 * KRT_PLX_MutableMidiPart_midiController() for each type from #KRT_PLX_CONTROLLER_DYNAMICS to
 * #KRT_PLX_CONTROLLER_CHARACTER.
 *
 * Lanes and events come in two kinds: read-only ones (MidiController, MidiEvent) in the part of a
 * catalogue clip, editable ones (MutableMidiController, MutableMidiEvent) in an editable part,
 * where KRT_PLX_MutableMidiPart_addMidiController() makes the lanes. The functions of a class with
 * `Base` in its name read both kinds; the functions of one kind treat an object of the other kind
 * like a null handle.
 *
 * A lane keeps its events ascending by position, with at most one event at a position. Any position
 * is allowed, negative ones included. A lane without events is not saved.
 *
 * Read-only lanes and their events live as long as their part.
 */
#ifndef KORVEL_PLX_CONTROLLER_H
#define KORVEL_PLX_CONTROLLER_H

#include "common.h"

/**
 * What a lane controls, with the values that its events may hold, both bounds included. Compare
 * these codes with the `uint32_t` that the functions take and give.
 */
typedef enum KRT_PLX_ControllerType {
    /** Loudness: 0 to 127. */
    KRT_PLX_CONTROLLER_DYNAMICS = 0,
    /** Portamento between notes: 0 to 127. */
    KRT_PLX_CONTROLLER_PORTAMENTO = 1,
    /** How far the pitch bend reaches, in semitones: 0 to 24. */
    KRT_PLX_CONTROLLER_PITCH_BEND_SENS = 2,
    /** Pitch bend: -8192 to 8191, 0 is none. */
    KRT_PLX_CONTROLLER_PITCH_BEND = 3,
    /** Breath in the voice: 0 to 127. */
    KRT_PLX_CONTROLLER_BREATHINESS = 4,
    /** Brightness of the voice: 0 to 127. */
    KRT_PLX_CONTROLLER_BRIGHTNESS = 5,
    /** Clearness of the voice: 0 to 127. */
    KRT_PLX_CONTROLLER_CLEARNESS = 6,
    /** Blend of voices: 0 to 127. */
    KRT_PLX_CONTROLLER_VOICE_BLEND = 7,
    /** Growl in the voice: 0 to 127. */
    KRT_PLX_CONTROLLER_GROWL = 8,
    /** Exciter: -64 to 63. */
    KRT_PLX_CONTROLLER_EXCITER = 9,
    /** Air in the voice: 0 to 127. */
    KRT_PLX_CONTROLLER_AIR = 10,
    /** Character of the voice: -64 to 63. */
    KRT_PLX_CONTROLLER_CHARACTER = 11,
    /** The handle is null. */
    KRT_PLX_CONTROLLER_NONE = 12
} KRT_PLX_ControllerType;

/**
 * @defgroup korvel_plx_midi_controller_base MidiControllerBase: reading any lane
 *
 * Every function of this group takes a read-only or an editable lane.
 * @{
 */

/**
 * Returns what the lane controls.
 *
 * @param controller  a read-only or editable lane
 * @return #KRT_PLX_CONTROLLER_DYNAMICS to #KRT_PLX_CONTROLLER_CHARACTER; #KRT_PLX_CONTROLLER_NONE
 *         for a null handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_MidiControllerBase_type(
    KRT_PLX_MidiControllerBase* controller) KRT_PLX_NOEXCEPT;

/**
 * Returns the smallest value that an event of the lane may hold.
 *
 * @param controller  a read-only or editable lane
 * @return the bound, included; INT32_MAX, a bound that no value meets, for a null handle
 */
KRT_PLX_API int32_t KRT_PLX_CALL KRT_PLX_MidiControllerBase_minEventValue(
    KRT_PLX_MidiControllerBase* controller) KRT_PLX_NOEXCEPT;

/**
 * Returns the largest value that an event of the lane may hold.
 *
 * @param controller  a read-only or editable lane
 * @return the bound, included; #KRT_PLX_NO_INT32, a bound that no value meets, for a null handle
 */
KRT_PLX_API int32_t KRT_PLX_CALL KRT_PLX_MidiControllerBase_maxEventValue(
    KRT_PLX_MidiControllerBase* controller) KRT_PLX_NOEXCEPT;

/**
 * Counts the events of the lane.
 *
 * @param controller  a read-only or editable lane
 * @param count       receives the number; left alone when the result is false
 * @return true; false when the handle or `count` is null
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MidiControllerBase_numEvents(
    KRT_PLX_MidiControllerBase* controller, uint64_t* count) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_midi_controller MidiController: read-only lanes
 *
 * A lane of a catalogue clip's part.
 * @{
 */

/**
 * Returns the MIDI part to which the lane belongs.
 *
 * @param controller  a read-only lane
 * @return the part, which owns the lane; NULL for a handle that is null or no MidiController
 */
KRT_PLX_API KRT_PLX_PartBase* KRT_PLX_CALL KRT_PLX_MidiController_parent(
    KRT_PLX_MidiControllerBase* controller) KRT_PLX_NOEXCEPT;

/**
 * Returns one event.
 *
 * @param controller  a read-only lane
 * @param index       index of the event, from 0, in order of position
 * @return the event (MidiEvent), owned by the lane; NULL when `index` is not below the count and
 *         for a handle that is null or no MidiController
 */
KRT_PLX_API KRT_PLX_MidiEventBase* KRT_PLX_CALL KRT_PLX_MidiController_event(
    KRT_PLX_MidiControllerBase* controller, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Tells whether an event stands in this lane.
 *
 * Only addresses are compared; `element` is not looked at and may be a dead handle. A new object
 * may stand at the address of a dead one, which then counts as found.
 *
 * @param controller  a read-only lane
 * @param element     the event to look for
 * @return true when that very event is in the lane; false otherwise, for a null element and for a
 *         handle that is null or no MidiController
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MidiController_hasEvent(
    KRT_PLX_MidiControllerBase* controller, KRT_PLX_MidiEventBase* element) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_mutable_midi_controller MutableMidiController: editable lanes
 *
 * A lane of an editable part. It lives until it is removed or until the part is destroyed.
 * @{
 */

/**
 * Returns the editable MIDI part to which the lane belongs.
 *
 * @param controller  an editable lane
 * @return the part, which owns the lane; NULL for a handle that is null or no MutableMidiController
 */
KRT_PLX_API KRT_PLX_PartBase* KRT_PLX_CALL KRT_PLX_MutableMidiController_parent(
    KRT_PLX_MidiControllerBase* controller) KRT_PLX_NOEXCEPT;

/**
 * Returns one event, for editing.
 *
 * @param controller  an editable lane
 * @param index       index of the event, from 0, in order of position
 * @return the event (MutableMidiEvent), owned by the lane; NULL when `index` is not below the count
 *         and for a handle that is null or no MutableMidiController
 */
KRT_PLX_API KRT_PLX_MidiEventBase* KRT_PLX_CALL KRT_PLX_MutableMidiController_event(
    KRT_PLX_MidiControllerBase* controller, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Tells whether an event stands in this lane.
 *
 * Only addresses are compared; `element` is not looked at and may be a dead handle. A new object
 * may stand at the address of a dead one, which then counts as found.
 *
 * @param controller  an editable lane
 * @param element     the event to look for
 * @return true when that very event is in the lane; false otherwise, for a null element and for a
 *         handle that is null or no MutableMidiController
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableMidiController_hasEvent(
    KRT_PLX_MidiControllerBase* controller, KRT_PLX_MidiEventBase* element) KRT_PLX_NOEXCEPT;

/**
 * Puts an event into the lane, or sets the value of the event that stands at the position already.
 *
 * Handles of other events stay valid; their indexes may change.
 *
 * @param controller  an editable lane
 * @param pos         ticks, any value
 * @param value       a value between the bounds of the lane's type, see #KRT_PLX_ControllerType
 * @return the new or existing event (MutableMidiEvent), owned by the lane; NULL, and nothing
 *         changed, when `value` is out of range or for a handle that is null or no
 *         MutableMidiController
 */
KRT_PLX_API KRT_PLX_MidiEventBase* KRT_PLX_CALL KRT_PLX_MutableMidiController_insertEvent(
    KRT_PLX_MidiControllerBase* controller, int32_t pos, int32_t value) KRT_PLX_NOEXCEPT;

/**
 * Takes the lane out of its part and destroys it with its events.
 *
 * The handles of the lane and of its events are dead afterwards. The part may then be given a new
 * lane of the same type.
 *
 * @param controller  an editable lane
 * @return true when the lane was removed; false for a handle that is null or no
 *         MutableMidiController
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableMidiController_remove(
    KRT_PLX_MidiControllerBase* controller) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_midi_event_base MidiEventBase: reading any event
 *
 * An event takes its type and its bounds from its lane. Every function of this group takes an event
 * of a read-only or of an editable lane.
 * @{
 */

/**
 * Returns the type of the lane in which the event stands.
 *
 * @param event  a read-only or editable event
 * @return #KRT_PLX_CONTROLLER_DYNAMICS to #KRT_PLX_CONTROLLER_CHARACTER; #KRT_PLX_CONTROLLER_NONE
 *         for a null handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_MidiEventBase_type(
    KRT_PLX_MidiEventBase* event) KRT_PLX_NOEXCEPT;

/**
 * Returns the event's position in the part.
 *
 * The result for a null handle is a valid position too: check the handle first.
 *
 * @param event  a read-only or editable event
 * @return ticks, possibly negative; 0 for a null handle
 */
KRT_PLX_API int32_t KRT_PLX_CALL KRT_PLX_MidiEventBase_pos(
    KRT_PLX_MidiEventBase* event) KRT_PLX_NOEXCEPT;

/**
 * Returns the event's value.
 *
 * @param event  a read-only or editable event
 * @return a value between the bounds of the lane; #KRT_PLX_NO_INT32 for a null handle
 */
KRT_PLX_API int32_t KRT_PLX_CALL KRT_PLX_MidiEventBase_value(
    KRT_PLX_MidiEventBase* event) KRT_PLX_NOEXCEPT;

/**
 * Returns the smallest value that the event may hold.
 *
 * @param event  a read-only or editable event
 * @return the bound, included; INT32_MAX, a bound that no value meets, for a null handle
 */
KRT_PLX_API int32_t KRT_PLX_CALL KRT_PLX_MidiEventBase_minValue(
    KRT_PLX_MidiEventBase* event) KRT_PLX_NOEXCEPT;

/**
 * Returns the largest value that the event may hold.
 *
 * @param event  a read-only or editable event
 * @return the bound, included; #KRT_PLX_NO_INT32, a bound that no value meets, for a null handle
 */
KRT_PLX_API int32_t KRT_PLX_CALL KRT_PLX_MidiEventBase_maxValue(
    KRT_PLX_MidiEventBase* event) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_midi_event MidiEvent: read-only events
 *
 * An event of a lane of a catalogue clip's part.
 * @{
 */

/**
 * Returns the lane in which the event stands.
 *
 * @param event  a read-only event
 * @return the lane, which owns the event; NULL for a handle that is null or no MidiEvent
 */
KRT_PLX_API KRT_PLX_MidiControllerBase* KRT_PLX_CALL KRT_PLX_MidiEvent_parent(
    KRT_PLX_MidiEventBase* event) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_mutable_midi_event MutableMidiEvent: editable events
 *
 * An event of an editable lane. It lives until it is removed, until another event is moved onto its
 * position, or until the lane dies.
 * @{
 */

/**
 * Returns the editable lane in which the event stands.
 *
 * @param event  an editable event
 * @return the lane, which owns the event; NULL for a handle that is null or no MutableMidiEvent
 */
KRT_PLX_API KRT_PLX_MidiControllerBase* KRT_PLX_CALL KRT_PLX_MutableMidiEvent_parent(
    KRT_PLX_MidiEventBase* event) KRT_PLX_NOEXCEPT;

/**
 * Moves the event to another position in its lane.
 *
 * An event that stands there already is destroyed, and its handle is dead; the moved event stays,
 * with its value.
 *
 * @param event  an editable event
 * @param pos    ticks, any value
 * @return true, whatever the position; false for a handle that is null or no MutableMidiEvent
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableMidiEvent_move(
    KRT_PLX_MidiEventBase* event, int32_t pos) KRT_PLX_NOEXCEPT;

/**
 * Takes the event out of its lane and destroys it.
 *
 * The events behind it close up. The handle is dead afterwards.
 *
 * @param event  an editable event
 * @return true when the event was removed; false for a handle that is null or no MutableMidiEvent
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableMidiEvent_remove(
    KRT_PLX_MidiEventBase* event) KRT_PLX_NOEXCEPT;

/**
 * Sets the event's value.
 *
 * @param event  an editable event
 * @param value  a value between the bounds of the lane's type, see #KRT_PLX_ControllerType
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableMidiEvent
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableMidiEvent_setValue(
    KRT_PLX_MidiEventBase* event, int32_t value) KRT_PLX_NOEXCEPT;

/** @} */

#endif
