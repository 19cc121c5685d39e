/**
 * @file part.h
 * Parts: what a clip sounds like, as notes to be sung or as a wave file.
 *
 * A part is a MIDI part (notes, controller lanes, MIDI effects, audio effects, voice and style) or
 * an audio part (a wave file and audio effects). Each kind is read-only in a catalogue clip and
 * editable in an editable clip. Every part is a `KRT_PLX_PartBase*`; what it is decides which
 * functions take it. The others reject it and return what they return for a null handle.
 *
 * | functions                      | MIDI      | MIDI, editable | audio      | audio, editable |
 * |--------------------------------|-----------|----------------|------------|-----------------|
 * | `KRT_PLX_PartBase_...`         | yes       | yes            | yes        | yes             |
 * | `KRT_PLX_MidiPartBase_...`     | yes       | yes            | no         | no              |
 * | `KRT_PLX_MidiPart_...`         | yes       | no             | no         | no              |
 * | `KRT_PLX_MutableMidiPart_...`  | no        | yes            | no         | no              |
 * | `KRT_PLX_AudioPartBase_...`    | no        | no             | yes        | yes             |
 * | `KRT_PLX_AudioPart_...`        | no        | no             | yes        | no              |
 * | `KRT_PLX_MutableAudioPart_...` | no        | no             | no         | yes             |
 *
 * So the plain values of a part are read with the `...Base` functions in either variant, and its
 * children (notes, lanes, effects) with the functions of its variant.
 *
 * Get a read-only part from KRT_PLX_Clip_midiPart() or KRT_PLX_Clip_audioPart() after
 * KRT_PLX_Clip_readPart(), an editable one from the `KRT_PLX_MutableClip_create...Part` functions
 * (clip.h).
 *
 * Texts that a read-only part returns are valid as long as it lives; those of an editable part
 * until that same text is set again or the part dies. A text that was never set is empty, never
 * NULL.
 */
#ifndef KORVEL_PLX_PART_H
#define KORVEL_PLX_PART_H

#include "common.h"

/**
 * @defgroup korvel_plx_part_base PartBase
 *
 * What every part tells.
 * @{
 */

/**
 * Tells whether the part is editable.
 *
 * @param part  any part
 * @return true for a part of an editable clip; false for a part of a catalogue clip and for a null
 *         handle
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_PartBase_isMutable(KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT;

/**
 * Tells the part type.
 *
 * @param part  any part
 * @return #KRT_PLX_PART_AUDIO, #KRT_PLX_PART_MIDI_AI or #KRT_PLX_PART_MIDI; #KRT_PLX_PART_NONE for
 *         a null handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_PartBase_type(KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_midi_part_base MidiPartBase
 *
 * The values of a MIDI part, read-only or editable.
 *
 * A part of type #KRT_PLX_PART_MIDI is sung by a voice bank (KRT_PLX_MidiPartBase_voiceBankID()) in
 * one language (KRT_PLX_MidiPartBase_langID()). A part of type #KRT_PLX_PART_MIDI_AI is sung by an
 * AI voice (KRT_PLX_MidiPartBase_aiVoiceBankID()) that has a list of languages. When a part is read
 * from disk, the values of the other type are left as a new part has them: empty ID, no language.
 * @{
 */

/**
 * Returns an AI language by its place.
 *
 * @param part   a MIDI part
 * @param index  place, from 0
 * @return the language, 0 to 127; #KRT_PLX_NO_LANGUAGE when `index` is not below
 *         KRT_PLX_MidiPartBase_aiLangIDSize(); #KRT_PLX_NO_UINT32 for a handle that is null or no
 *         `MidiPartBase`
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_MidiPartBase_aiLangIDByIndex(
    KRT_PLX_PartBase* part, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Returns how many AI languages there are. Unlike the other counts, this one is the result itself.
 *
 * @param part  a MIDI part
 * @return the number; 0 for a handle that is null or no `MidiPartBase`
 */
KRT_PLX_API uint64_t KRT_PLX_CALL KRT_PLX_MidiPartBase_aiLangIDSize(
    KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT;

/**
 * Returns the ID of the AI voice bank.
 *
 * @param part  a MIDI part
 * @return text of 16 UTF-16 units, or empty; owned by the part; NULL for a handle that is null or
 *         no `MidiPartBase`
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_MidiPartBase_aiVoiceBankID(
    KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT;

/**
 * Returns the length of the part. It says nothing about the notes, which may end before or after
 * it.
 *
 * @param part  a MIDI part
 * @return the duration in ticks, 1 to 2147483647, 1 by default; #KRT_PLX_NO_INT32 for a handle that
 *         is null or no `MidiPartBase`
 */
KRT_PLX_API int32_t KRT_PLX_CALL KRT_PLX_MidiPartBase_duration(
    KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT;

/**
 * Returns the language of the part.
 *
 * @param part  a MIDI part
 * @return the language, 0 to 127; #KRT_PLX_NO_LANGUAGE when none was set; #KRT_PLX_NO_UINT32 for a
 *         handle that is null or no `MidiPartBase`
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_MidiPartBase_langID(
    KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT;

/**
 * Tells how many audio effects there are.
 *
 * @param part   a MIDI part
 * @param count  receives the number; left alone when the result is false
 * @return true; false when `count` is null, and for a handle that is null or no `MidiPartBase`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MidiPartBase_numAudioEffects(
    KRT_PLX_PartBase* part, uint64_t* count) KRT_PLX_NOEXCEPT;

/**
 * Tells how many MIDI effects there are.
 *
 * @param part   a MIDI part
 * @param count  receives the number; left alone when the result is false
 * @return true; false when `count` is null, and for a handle that is null or no `MidiPartBase`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MidiPartBase_numMidiEffects(
    KRT_PLX_PartBase* part, uint64_t* count) KRT_PLX_NOEXCEPT;

/**
 * Tells how many notes there are.
 *
 * @param part   a MIDI part
 * @param count  receives the number; left alone when the result is false
 * @return true; false when `count` is null, and for a handle that is null or no `MidiPartBase`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MidiPartBase_numNotes(
    KRT_PLX_PartBase* part, uint64_t* count) KRT_PLX_NOEXCEPT;

/**
 * Returns the name of the singing style.
 *
 * @param part  a MIDI part
 * @return text owned by the part, possibly empty; NULL for a handle that is null or no
 *         `MidiPartBase`
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_MidiPartBase_styleName(
    KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT;

/**
 * Returns the ID of the style preset.
 *
 * @param part  a MIDI part
 * @return text owned by the part, possibly empty; NULL for a handle that is null or no
 *         `MidiPartBase`
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_MidiPartBase_stylePresetID(
    KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT;

/**
 * Returns the ID of the voice bank.
 *
 * @param part  a MIDI part
 * @return text of 16 UTF-16 units, or empty; owned by the part; NULL for a handle that is null or
 *         no `MidiPartBase`
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_MidiPartBase_voiceBankID(
    KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_midi_part MidiPart
 *
 * The clip and the children of a read-only MIDI part. Everything here is valid until the clip's
 * part is read again (KRT_PLX_Clip_readPart()) or the clip dies.
 * @{
 */

/**
 * Returns the clip that the part belongs to.
 *
 * @param part  a read-only MIDI part
 * @return the clip; NULL for a handle that is null or no `MidiPart`
 */
KRT_PLX_API KRT_PLX_ClipBase* KRT_PLX_CALL KRT_PLX_MidiPart_parent(
    KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT;

/**
 * Returns a note by its place. Notes stand in ascending order of position; notes at one position
 * stand in the order of the file.
 *
 * @param part   a read-only MIDI part
 * @param index  place, from 0
 * @return a read-only note (note.h), owned by the part; NULL when `index` is not below the count,
 *         and for a handle that is null or no `MidiPart`
 */
KRT_PLX_API KRT_PLX_NoteBase* KRT_PLX_CALL KRT_PLX_MidiPart_note(
    KRT_PLX_PartBase* part, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a handle is one of the part's notes.
 *
 * Compares addresses only and does not look into `element`: a dead handle may be passed. A new
 * object may stand at the address of a dead one, which then counts as found.
 *
 * @param part     a read-only MIDI part
 * @param element  any note handle, alive or dead
 * @return true when it is; false otherwise, for a null `element`, and for a handle that is null or
 *         no `MidiPart`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MidiPart_hasNote(
    KRT_PLX_PartBase* part, KRT_PLX_NoteBase* element) KRT_PLX_NOEXCEPT;

/**
 * Returns the controller lane of a type. A part has at most one lane of each type, and lanes have
 * no places and no count: to find all, ask for the types 0 to 11 in turn.
 *
 * @param part  a read-only MIDI part
 * @param type  the controller type (controller.h), 0 to 11
 * @return a read-only lane, owned by the part; NULL when the part has none of this type, and for a
 *         handle that is null or no `MidiPart`
 */
KRT_PLX_API KRT_PLX_MidiControllerBase* KRT_PLX_CALL KRT_PLX_MidiPart_midiController(
    KRT_PLX_PartBase* part, uint32_t type) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a handle is one of the part's controller lanes.
 *
 * Compares addresses only and does not look into `element`: a dead handle may be passed. A new
 * object may stand at the address of a dead one, which then counts as found.
 *
 * @param part     a read-only MIDI part
 * @param element  any lane handle, alive or dead
 * @return true when it is; false otherwise, for a null `element`, and for a handle that is null or
 *         no `MidiPart`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MidiPart_hasMidiController(
    KRT_PLX_PartBase* part, KRT_PLX_MidiControllerBase* element) KRT_PLX_NOEXCEPT;

/**
 * Returns a MIDI effect by its place in the chain.
 *
 * @param part   a read-only MIDI part
 * @param index  place, from 0
 * @return a read-only MIDI effect (effect.h), owned by the part; NULL when `index` is not below the
 *         count, and for a handle that is null or no `MidiPart`
 */
KRT_PLX_API KRT_PLX_EffectBase* KRT_PLX_CALL KRT_PLX_MidiPart_midiEffect(
    KRT_PLX_PartBase* part, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a handle is one of the part's MIDI effects.
 *
 * Compares addresses only and does not look into `element`: a dead handle may be passed. A new
 * object may stand at the address of a dead one, which then counts as found.
 *
 * @param part     a read-only MIDI part
 * @param element  any effect handle, alive or dead
 * @return true when it is; false otherwise, for a null `element`, and for a handle that is null or
 *         no `MidiPart`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MidiPart_hasMidiEffect(
    KRT_PLX_PartBase* part, KRT_PLX_EffectBase* element) KRT_PLX_NOEXCEPT;

/**
 * Returns an audio effect by its place in the chain.
 *
 * @param part   a read-only MIDI part
 * @param index  place, from 0
 * @return a read-only audio effect (effect.h), owned by the part; NULL when `index` is not below
 *         the count, and for a handle that is null or no `MidiPart`
 */
KRT_PLX_API KRT_PLX_EffectBase* KRT_PLX_CALL KRT_PLX_MidiPart_audioEffect(
    KRT_PLX_PartBase* part, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a handle is one of the part's audio effects.
 *
 * Compares addresses only and does not look into `element`: a dead handle may be passed. A new
 * object may stand at the address of a dead one, which then counts as found.
 *
 * @param part     a read-only MIDI part
 * @param element  any effect handle, alive or dead
 * @return true when it is; false otherwise, for a null `element`, and for a handle that is null or
 *         no `MidiPart`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MidiPart_hasAudioEffect(
    KRT_PLX_PartBase* part, KRT_PLX_EffectBase* element) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_mutable_midi_part MutableMidiPart
 *
 * Building a MIDI part. Make one with KRT_PLX_MutableClip_createMidiPart() or
 * KRT_PLX_MutableClip_createMidiAiPart(); it starts with a duration of 1, no language, no AI
 * languages, empty texts and no children.
 *
 * Before a part can be saved, set the voice bank ID and the language of a #KRT_PLX_PART_MIDI part,
 * or the AI voice bank ID and at least one AI language of a #KRT_PLX_PART_MIDI_AI part. The setters
 * do not look at the type; what belongs to the other type is accepted and not saved.
 *
 * Children belong to the part. They live until they are removed with their own `..._remove`
 * function, until the clip gets another part, or until the clip dies. Inserting, moving and
 * removing children changes places in the list; it leaves the handles of the others alive.
 * @{
 */

/**
 * Returns the clip that the part belongs to.
 *
 * @param part  an editable MIDI part
 * @return the editable clip; NULL for a handle that is null or no `MutableMidiPart`
 */
KRT_PLX_API KRT_PLX_ClipBase* KRT_PLX_CALL KRT_PLX_MutableMidiPart_parent(
    KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT;

/** @name Notes
 * @{
 */

/**
 * Returns a note by its place. Notes stand in ascending order of position.
 *
 * @param part   an editable MIDI part
 * @param index  place, from 0
 * @return an editable note (note.h), owned by the part and valid until it is removed or the part
 *         dies; NULL when `index` is not below the count, and for a handle that is null or no
 *         `MutableMidiPart`
 */
KRT_PLX_API KRT_PLX_NoteBase* KRT_PLX_CALL KRT_PLX_MutableMidiPart_note(
    KRT_PLX_PartBase* part, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a handle is one of the part's notes.
 *
 * Compares addresses only and does not look into `element`: a dead handle may be passed. A new
 * object may stand at the address of a dead one, which then counts as found.
 *
 * @param part     an editable MIDI part
 * @param element  any note handle, alive or dead
 * @return true when it is; false otherwise, for a null `element`, and for a handle that is null or
 *         no `MutableMidiPart`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableMidiPart_hasNote(
    KRT_PLX_PartBase* part, KRT_PLX_NoteBase* element) KRT_PLX_NOEXCEPT;

/**
 * Inserts a note.
 *
 * It takes its place by position. **At a position that already has notes it goes before all of
 * them**, so the last one inserted comes first. Notes may overlap and may lie outside the part's
 * duration.
 *
 * The new note has note number 0 and velocity 0; set both (KRT_PLX_MutableNote_setNumber(),
 * KRT_PLX_MutableNote_setVelocity()). Its other values start at the defaults given in note.h.
 *
 * @param part      an editable MIDI part
 * @param pos       position in ticks, negative ones included; below 2147483647
 * @param duration  duration in ticks, at least 1; `pos` plus `duration` at most 2147483647
 * @param lyric     the syllable, not empty
 * @param phoneme   its phonemes, not empty
 * @param langID    its language, 0 to 127
 * @return an editable note, owned by the part and valid until it is removed or the part dies; NULL,
 *         with nothing inserted, when an argument is outside its range, and for a handle that is
 *         null or no `MutableMidiPart`
 */
KRT_PLX_API KRT_PLX_NoteBase* KRT_PLX_CALL KRT_PLX_MutableMidiPart_insertNote(
    KRT_PLX_PartBase* part,
    int32_t pos,
    int32_t duration,
    const KRT_PLX_Char* lyric,
    const KRT_PLX_Char* phoneme,
    uint32_t langID) KRT_PLX_NOEXCEPT;

/** @} */

/** @name Controller lanes
 * @{
 */

/**
 * Returns the controller lane of a type. A part has at most one lane of each type, and lanes have
 * no places and no count: to find all, ask for the types 0 to 11 in turn.
 *
 * @param part  an editable MIDI part
 * @param type  the controller type (controller.h), 0 to 11
 * @return an editable lane, owned by the part and valid until it is removed or the part dies; NULL
 *         when the part has none of this type, and for a handle that is null or no
 *         `MutableMidiPart`
 */
KRT_PLX_API KRT_PLX_MidiControllerBase* KRT_PLX_CALL KRT_PLX_MutableMidiPart_midiController(
    KRT_PLX_PartBase* part, uint32_t type) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a handle is one of the part's controller lanes.
 *
 * Compares addresses only and does not look into `element`: a dead handle may be passed. A new
 * object may stand at the address of a dead one, which then counts as found.
 *
 * @param part     an editable MIDI part
 * @param element  any lane handle, alive or dead
 * @return true when it is; false otherwise, for a null `element`, and for a handle that is null or
 *         no `MutableMidiPart`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableMidiPart_hasMidiController(
    KRT_PLX_PartBase* part, KRT_PLX_MidiControllerBase* element) KRT_PLX_NOEXCEPT;

/**
 * Adds an empty controller lane.
 *
 * When the part already has a lane of this type, the result is NULL, not that lane (effects are
 * different); get it with KRT_PLX_MutableMidiPart_midiController(). A lane that has no events when
 * the clip is saved is not saved.
 *
 * @param part  an editable MIDI part
 * @param type  the controller type (controller.h), 0 to 11
 * @return an editable lane, owned by the part and valid until it is removed or the part dies; NULL
 *         when the part has a lane of this type, when `type` is above 11, and for a handle that is
 *         null or no `MutableMidiPart`
 */
KRT_PLX_API KRT_PLX_MidiControllerBase* KRT_PLX_CALL KRT_PLX_MutableMidiPart_addMidiController(
    KRT_PLX_PartBase* part, uint32_t type) KRT_PLX_NOEXCEPT;

/** @} */

/** @name Effects
 *
 * MIDI effects and audio effects are two chains of their own. Within a chain every ID occurs once;
 * the same ID may stand in both. A chain keeps the order that inserting and
 * KRT_PLX_MutableEffect_move() gave it.
 * @{
 */

/**
 * Returns a MIDI effect by its place in the chain.
 *
 * @param part   an editable MIDI part
 * @param index  place, from 0
 * @return an editable MIDI effect (effect.h), owned by the part and valid until it is removed or
 *         the part dies; NULL when `index` is not below the count, and for a handle that is null or
 *         no `MutableMidiPart`
 */
KRT_PLX_API KRT_PLX_EffectBase* KRT_PLX_CALL KRT_PLX_MutableMidiPart_midiEffect(
    KRT_PLX_PartBase* part, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a handle is one of the part's MIDI effects.
 *
 * Compares addresses only and does not look into `element`: a dead handle may be passed. A new
 * object may stand at the address of a dead one, which then counts as found.
 *
 * @param part     an editable MIDI part
 * @param element  any effect handle, alive or dead
 * @return true when it is; false otherwise, for a null `element`, and for a handle that is null or
 *         no `MutableMidiPart`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableMidiPart_hasMidiEffect(
    KRT_PLX_PartBase* part, KRT_PLX_EffectBase* element) KRT_PLX_NOEXCEPT;

/**
 * Inserts a MIDI effect without parameters.
 *
 * When the chain already has an effect with this ID, **that effect is returned and stays where it
 * is**; nothing is added. IDs are compared unit by unit.
 *
 * @param part   an editable MIDI part
 * @param index  place that the new effect takes, from 0; it is appended when `index` is not below
 *               the count
 * @param id     the effect's ID, not empty
 * @return an editable MIDI effect, new or already there, owned by the part and valid until it is
 *         removed or the part dies; NULL when `id` is null or empty, and for a handle that is null
 *         or no `MutableMidiPart`
 */
KRT_PLX_API KRT_PLX_EffectBase* KRT_PLX_CALL KRT_PLX_MutableMidiPart_insertMidiEffect(
    KRT_PLX_PartBase* part, uint64_t index, const KRT_PLX_Char* id) KRT_PLX_NOEXCEPT;

/**
 * Returns an audio effect by its place in the chain.
 *
 * @param part   an editable MIDI part
 * @param index  place, from 0
 * @return an editable audio effect (effect.h), owned by the part and valid until it is removed or
 *         the part dies; NULL when `index` is not below the count, and for a handle that is null or
 *         no `MutableMidiPart`
 */
KRT_PLX_API KRT_PLX_EffectBase* KRT_PLX_CALL KRT_PLX_MutableMidiPart_audioEffect(
    KRT_PLX_PartBase* part, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a handle is one of the part's audio effects.
 *
 * Compares addresses only and does not look into `element`: a dead handle may be passed. A new
 * object may stand at the address of a dead one, which then counts as found.
 *
 * @param part     an editable MIDI part
 * @param element  any effect handle, alive or dead
 * @return true when it is; false otherwise, for a null `element`, and for a handle that is null or
 *         no `MutableMidiPart`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableMidiPart_hasAudioEffect(
    KRT_PLX_PartBase* part, KRT_PLX_EffectBase* element) KRT_PLX_NOEXCEPT;

/**
 * Inserts an audio effect without parameters.
 *
 * When the chain already has an effect with this ID, **that effect is returned and stays where it
 * is**; nothing is added. IDs are compared unit by unit.
 *
 * @param part   an editable MIDI part
 * @param index  place that the new effect takes, from 0; it is appended when `index` is not below
 *               the count
 * @param id     the effect's ID, not empty
 * @return an editable audio effect, new or already there, owned by the part and valid until it is
 *         removed or the part dies; NULL when `id` is null or empty, and for a handle that is null
 *         or no `MutableMidiPart`
 */
KRT_PLX_API KRT_PLX_EffectBase* KRT_PLX_CALL KRT_PLX_MutableMidiPart_insertAudioEffect(
    KRT_PLX_PartBase* part, uint64_t index, const KRT_PLX_Char* id) KRT_PLX_NOEXCEPT;

/** @} */

/** @name Voice, style and length
 * @{
 */

/**
 * Adds an AI language at the end of the list. The same language may be added again and then stands
 * there twice. There is no way to take one out; to start over, give the clip a new part.
 *
 * @param part    an editable MIDI part
 * @param langID  the language, 0 to 127
 * @return true; false, with nothing added, when `langID` is above 127, and for a handle that is
 *         null or no `MutableMidiPart`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableMidiPart_addAiLangID(
    KRT_PLX_PartBase* part, uint32_t langID) KRT_PLX_NOEXCEPT;

/**
 * Sets the ID of the AI voice bank.
 *
 * @param part  an editable MIDI part
 * @param text  exactly 16 UTF-16 units, or the empty text, which takes the ID away
 * @return true; false, with the ID unchanged, when `text` is null or of another length, and for a
 *         handle that is null or no `MutableMidiPart`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableMidiPart_setAiVoiceBankID(
    KRT_PLX_PartBase* part, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/**
 * Sets the length of the part.
 *
 * @param part      an editable MIDI part
 * @param duration  duration in ticks, at least 1
 * @return true; false, with the duration unchanged, when `duration` is below 1, and for a handle
 *         that is null or no `MutableMidiPart`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableMidiPart_setDuration(
    KRT_PLX_PartBase* part, int32_t duration) KRT_PLX_NOEXCEPT;

/**
 * Sets the language of the part.
 *
 * @param part    an editable MIDI part
 * @param langID  the language, 0 to 127
 * @return true; false, with the language unchanged, when `langID` is above 127, and for a handle
 *         that is null or no `MutableMidiPart`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableMidiPart_setLangID(
    KRT_PLX_PartBase* part, uint32_t langID) KRT_PLX_NOEXCEPT;

/**
 * Sets the name of the singing style.
 *
 * @param part  an editable MIDI part
 * @param text  the name; null empties it
 * @return true; false for a handle that is null or no `MutableMidiPart`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableMidiPart_setStyleName(
    KRT_PLX_PartBase* part, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/**
 * Sets the ID of the style preset.
 *
 * @param part  an editable MIDI part
 * @param text  the ID; null empties it
 * @return true; false for a handle that is null or no `MutableMidiPart`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableMidiPart_setStylePresetID(
    KRT_PLX_PartBase* part, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/**
 * Sets the ID of the voice bank. Unlike the ID of the AI voice bank, it cannot be emptied again.
 *
 * @param part  an editable MIDI part
 * @param text  exactly 16 UTF-16 units
 * @return true; false, with the ID unchanged, when `text` is null or of another length, and for a
 *         handle that is null or no `MutableMidiPart`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableMidiPart_setVoiceBankID(
    KRT_PLX_PartBase* part, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/** @} */

/** @} */

/**
 * @defgroup korvel_plx_audio_part_base AudioPartBase
 *
 * The values of an audio part, read-only or editable.
 * @{
 */

/**
 * Returns the begin of the region of the wave file that the part plays. No operation and no file
 * sets it: it is 0 for every part.
 *
 * @param part  an audio part
 * @return 0; #KRT_PLX_NO_INT32 for a handle that is null or no `AudioPartBase`
 */
KRT_PLX_API int32_t KRT_PLX_CALL KRT_PLX_AudioPartBase_begin(
    KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT;

/**
 * Returns the end of the region of the wave file that the part plays. No operation and no file sets
 * it: it is 0 for every part.
 *
 * @param part  an audio part
 * @return 0; #KRT_PLX_NO_INT32 for a handle that is null or no `AudioPartBase`
 */
KRT_PLX_API int32_t KRT_PLX_CALL KRT_PLX_AudioPartBase_end(KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT;

/**
 * Tells how many audio effects there are.
 *
 * @param part   an audio part
 * @param count  receives the number; left alone when the result is false
 * @return true; false when `count` is null, and for a handle that is null or no `AudioPartBase`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_AudioPartBase_numAudioEffects(
    KRT_PLX_PartBase* part, uint64_t* count) KRT_PLX_NOEXCEPT;

/**
 * Returns the path of the wave file.
 *
 * For a part of a catalogue clip it is the full path of the file in the `audio` folder beside the
 * clip file, joined with backslashes on every system (see manager.h). For an editable part it is
 * the path as it was set, empty before that.
 *
 * @param part  an audio part
 * @return text owned by the part; NULL for a handle that is null or no `AudioPartBase`
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_AudioPartBase_wavFilePath(
    KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_audio_part AudioPart
 *
 * The clip and the effects of a read-only audio part. Everything here is valid until the clip's
 * part is read again (KRT_PLX_Clip_readPart()) or the clip dies.
 * @{
 */

/**
 * Returns the clip that the part belongs to.
 *
 * @param part  a read-only audio part
 * @return the clip; NULL for a handle that is null or no `AudioPart`
 */
KRT_PLX_API KRT_PLX_ClipBase* KRT_PLX_CALL KRT_PLX_AudioPart_parent(
    KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT;

/**
 * Returns an audio effect by its place in the chain.
 *
 * @param part   a read-only audio part
 * @param index  place, from 0
 * @return a read-only audio effect (effect.h), owned by the part; NULL when `index` is not below
 *         the count, and for a handle that is null or no `AudioPart`
 */
KRT_PLX_API KRT_PLX_EffectBase* KRT_PLX_CALL KRT_PLX_AudioPart_audioEffect(
    KRT_PLX_PartBase* part, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a handle is one of the part's audio effects.
 *
 * Compares addresses only and does not look into `element`: a dead handle may be passed. A new
 * object may stand at the address of a dead one, which then counts as found.
 *
 * @param part     a read-only audio part
 * @param element  any effect handle, alive or dead
 * @return true when it is; false otherwise, for a null `element`, and for a handle that is null or
 *         no `AudioPart`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_AudioPart_hasAudioEffect(
    KRT_PLX_PartBase* part, KRT_PLX_EffectBase* element) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_mutable_audio_part MutableAudioPart
 *
 * Building an audio part. Make one with KRT_PLX_MutableClip_createAudioPart(); it starts without a
 * wave file and without effects. Before it can be saved, set the wave file; saving copies it, and
 * the original stays where it is.
 * @{
 */

/**
 * Returns the clip that the part belongs to.
 *
 * @param part  an editable audio part
 * @return the editable clip; NULL for a handle that is null or no `MutableAudioPart`
 */
KRT_PLX_API KRT_PLX_ClipBase* KRT_PLX_CALL KRT_PLX_MutableAudioPart_parent(
    KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT;

/**
 * Returns an audio effect by its place in the chain.
 *
 * @param part   an editable audio part
 * @param index  place, from 0
 * @return an editable audio effect (effect.h), owned by the part and valid until it is removed or
 *         the part dies; NULL when `index` is not below the count, and for a handle that is null or
 *         no `MutableAudioPart`
 */
KRT_PLX_API KRT_PLX_EffectBase* KRT_PLX_CALL KRT_PLX_MutableAudioPart_audioEffect(
    KRT_PLX_PartBase* part, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a handle is one of the part's audio effects.
 *
 * Compares addresses only and does not look into `element`: a dead handle may be passed. A new
 * object may stand at the address of a dead one, which then counts as found.
 *
 * @param part     an editable audio part
 * @param element  any effect handle, alive or dead
 * @return true when it is; false otherwise, for a null `element`, and for a handle that is null or
 *         no `MutableAudioPart`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableAudioPart_hasAudioEffect(
    KRT_PLX_PartBase* part, KRT_PLX_EffectBase* element) KRT_PLX_NOEXCEPT;

/**
 * Inserts an audio effect without parameters.
 *
 * When the chain already has an effect with this ID, **that effect is returned and stays where it
 * is**; nothing is added. IDs are compared unit by unit.
 *
 * @param part   an editable audio part
 * @param index  place that the new effect takes, from 0; it is appended when `index` is not below
 *               the count
 * @param id     the effect's ID, not empty
 * @return an editable audio effect, new or already there, owned by the part and valid until it is
 *         removed or the part dies; NULL when `id` is null or empty, and for a handle that is null
 *         or no `MutableAudioPart`
 */
KRT_PLX_API KRT_PLX_EffectBase* KRT_PLX_CALL KRT_PLX_MutableAudioPart_insertAudioEffect(
    KRT_PLX_PartBase* part, uint64_t index, const KRT_PLX_Char* id) KRT_PLX_NOEXCEPT;

/**
 * Accepts a region and **changes nothing**: KRT_PLX_AudioPartBase_begin() and
 * KRT_PLX_AudioPartBase_end() return what they did before. This is intended. A host that plays a
 * region has to keep it itself.
 *
 * @param part   an editable audio part
 * @param begin  any value
 * @param end    any value
 * @return true; false for a handle that is null or no `MutableAudioPart`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableAudioPart_setRegion(
    KRT_PLX_PartBase* part, int32_t begin, int32_t end) KRT_PLX_NOEXCEPT;

/**
 * Sets the path of the wave file.
 *
 * The path must exist now; it is stored as it is, and read only when the clip is saved. Relative
 * paths are the system's to resolve, now and then.
 *
 * **Write the path with backslashes, on every system.** The file name that saving gives to the copy
 * is what follows the last backslash; a path without one is accepted here, and makes saving fail
 * with #KRT_PLX_RESULT_WAVE_FILE_NOT_COPIED. A folder is accepted here too, and makes saving fail
 * with #KRT_PLX_RESULT_WAVE_FILE_MISSING.
 *
 * @param part  an editable audio part
 * @param path  path of an existing file
 * @return true; false, with the old path kept, when `path` is null or does not exist, and for a
 *         handle that is null or no `MutableAudioPart`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableAudioPart_setWavFilePath(
    KRT_PLX_PartBase* part, const KRT_PLX_Char* path) KRT_PLX_NOEXCEPT;

/** @} */

#endif
