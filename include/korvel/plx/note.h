/**
 * @file note.h
 * Notes: place, pitch, text and expression of one sung syllable.
 *
 * A note stands in a MIDI part and comes in two kinds. The part of a catalogue clip holds read-only
 * notes (class Note); an editable part holds editable ones (class MutableNote), which
 * KRT_PLX_MutableMidiPart_insertNote() makes. The `KRT_PLX_NoteBase_` functions read both; the
 * functions of one kind treat a note of the other kind like a null handle.
 *
 * ## Order
 *
 * A part keeps its notes ascending by position. Among notes at an equal position:
 *
 * - a newly inserted note goes before all that are there already;
 * - a note that KRT_PLX_MutableNote_move() brings there, and those it finds there, keep the order
 *   in which they stood before the move;
 * - notes read from a clip file stand in the order of the file.
 *
 * Setting the note number or the duration never changes the order.
 *
 * ## Life
 *
 * A note lives until it is removed, or until its part is destroyed or replaced. Inserting, moving
 * or removing other notes leaves its handle valid, but may change its index. Every note owns an
 * attack and a release Dvqm, a singing skill and a vibrato (expression.h): they are made with the
 * note and die with it.
 *
 * ## Values of a new note
 *
 * insertNote sets position, duration, lyric, phoneme and language. The rest starts as: note number
 * 0, velocity 0, accent 50, bend depth 0, bend length 0, decay 50, opening 127, both portamento
 * flags and the protection mark false, and each of the thirteen AI expression values 0.5. An
 * optional value that a clip file leaves out reads back as the same default.
 */
#ifndef KORVEL_PLX_NOTE_H
#define KORVEL_PLX_NOTE_H

#include "common.h"

/**
 * @defgroup korvel_plx_note_base NoteBase: reading any note
 *
 * Every function of this group takes a read-only or an editable note.
 * @{
 */

/**
 * Tells the two kinds of note apart.
 *
 * @param note  a read-only or editable note
 * @return true for an editable note (MutableNote); false for a read-only one (Note) and for a null
 *         handle
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_NoteBase_isMutable(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the lyric: the syllable as it is shown to the user.
 *
 * @param note  a read-only or editable note
 * @return the text, never empty; it belongs to the note and is valid until the lyric is set or the
 *         note dies; NULL for a null handle
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_NoteBase_lyric(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the phonemes that are sung for the lyric, in the notation of the host's voices.
 *
 * @param note  a read-only or editable note
 * @return the text, never empty; it belongs to the note and is valid until the phonemes are set or
 *         the note dies; NULL for a null handle
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_NoteBase_phoneme(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the language in which the note is sung, in the host's numbering.
 *
 * @param note  a read-only or editable note
 * @return 0 to 127; #KRT_PLX_NO_LANGUAGE for a note without language; #KRT_PLX_NO_UINT32 for a null
 *         handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_NoteBase_langID(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the protection mark.
 *
 * The library stores the mark for the host and enforces nothing: every setter works on a protected
 * note.
 *
 * @param note  a read-only or editable note
 * @return the mark; false for a null handle
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_NoteBase_isProtected(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the note's start in the part.
 *
 * @param note  a read-only or editable note
 * @return ticks, possibly negative; INT32_MAX, which is no note's position, for a null handle
 */
KRT_PLX_API int32_t KRT_PLX_CALL KRT_PLX_NoteBase_pos(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the note's length.
 *
 * @param note  a read-only or editable note
 * @return ticks, 1 or more; position plus duration never exceeds INT32_MAX; #KRT_PLX_NO_INT32 for a
 *         null handle
 */
KRT_PLX_API int32_t KRT_PLX_CALL KRT_PLX_NoteBase_duration(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the pitch as a MIDI note number.
 *
 * @param note  a read-only or editable note
 * @return 0 to 127, 60 is middle C; #KRT_PLX_NO_UINT32 for a null handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_NoteBase_number(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the velocity, in the sense of MIDI: the force with which the note begins.
 *
 * @param note  a read-only or editable note
 * @return 0 to 127; #KRT_PLX_NO_UINT32 for a null handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_NoteBase_velocity(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the accent: how strongly the start of the note is stressed.
 *
 * @param note  a read-only or editable note
 * @return 0 to 100, 50 by default; #KRT_PLX_NO_UINT32 for a null handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_NoteBase_accent(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the bend depth: how far the pitch is bent at the start of the note.
 *
 * @param note  a read-only or editable note
 * @return 0 to 100, 0 by default; #KRT_PLX_NO_UINT32 for a null handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_NoteBase_bendDepth(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the bend length: how much of the note that bend takes.
 *
 * @param note  a read-only or editable note
 * @return 0 to 100, 0 by default; #KRT_PLX_NO_UINT32 for a null handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_NoteBase_bendLength(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the decay: how the loudness falls in the course of the note.
 *
 * @param note  a read-only or editable note
 * @return 0 to 100, 50 by default; #KRT_PLX_NO_UINT32 for a null handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_NoteBase_decay(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the opening: how wide the singer's mouth is open.
 *
 * @param note  a read-only or editable note
 * @return 0 to 127, 127 (wide open) by default; #KRT_PLX_NO_UINT32 for a null handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_NoteBase_opening(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Tells whether the note is sung with portamento at a falling interval.
 *
 * @param note  a read-only or editable note
 * @return the flag, false by default; false for a null handle
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_NoteBase_fallPort(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Tells whether the note is sung with portamento at a rising interval.
 *
 * @param note  a read-only or editable note
 * @return the flag, false by default; false for a null handle
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_NoteBase_risePort(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_note_base_ai NoteBase: AI expression of any note
 *
 * Thirteen values by which an AI voice shapes the note. Each lies between 0.0 and 1.0, and 0.5 is
 * the default; what a value does to the sound is up to the voice. They count only in a part sung by
 * an AI voice (type #KRT_PLX_PART_MIDI_AI): a saved part of a voice bank (#KRT_PLX_PART_MIDI)
 * carries 0.5 for all of them.
 * @{
 */

/**
 * Returns the AI expression value for the fine detail of the pitch.
 *
 * @param note  a read-only or editable note
 * @return 0.0 to 1.0; 0.5 for a null handle
 */
KRT_PLX_API float KRT_PLX_CALL KRT_PLX_NoteBase_pitchFine(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the AI expression value for the drift of the pitch at the start of the note.
 *
 * @param note  a read-only or editable note
 * @return 0.0 to 1.0; 0.5 for a null handle
 */
KRT_PLX_API float KRT_PLX_CALL KRT_PLX_NoteBase_pitchDriftStart(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the AI expression value for the drift of the pitch at the end of the note.
 *
 * @param note  a read-only or editable note
 * @return 0.0 to 1.0; 0.5 for a null handle
 */
KRT_PLX_API float KRT_PLX_CALL KRT_PLX_NoteBase_pitchDriftEnd(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the AI expression value for the centre of the pitch scaling.
 *
 * @param note  a read-only or editable note
 * @return 0.0 to 1.0; 0.5 for a null handle
 */
KRT_PLX_API float KRT_PLX_CALL KRT_PLX_NoteBase_pitchScalingCenter(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the AI expression value for the origin of the pitch scaling.
 *
 * @param note  a read-only or editable note
 * @return 0.0 to 1.0; 0.5 for a null handle
 */
KRT_PLX_API float KRT_PLX_CALL KRT_PLX_NoteBase_pitchScalingOrigin(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the AI expression value for the pitch transition at the start of the note.
 *
 * @param note  a read-only or editable note
 * @return 0.0 to 1.0; 0.5 for a null handle
 */
KRT_PLX_API float KRT_PLX_CALL KRT_PLX_NoteBase_pitchTransitionStart(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the AI expression value for the pitch transition at the end of the note.
 *
 * @param note  a read-only or editable note
 * @return 0.0 to 1.0; 0.5 for a null handle
 */
KRT_PLX_API float KRT_PLX_CALL KRT_PLX_NoteBase_pitchTransitionEnd(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the AI expression value for the loudness over the whole note.
 *
 * @param note  a read-only or editable note
 * @return 0.0 to 1.0; 0.5 for a null handle
 */
KRT_PLX_API float KRT_PLX_CALL KRT_PLX_NoteBase_amplitudeWhole(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the AI expression value for the loudness at the start of the note.
 *
 * @param note  a read-only or editable note
 * @return 0.0 to 1.0; 0.5 for a null handle
 */
KRT_PLX_API float KRT_PLX_CALL KRT_PLX_NoteBase_amplitudeStart(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the AI expression value for the loudness at the end of the note.
 *
 * @param note  a read-only or editable note
 * @return 0.0 to 1.0; 0.5 for a null handle
 */
KRT_PLX_API float KRT_PLX_CALL KRT_PLX_NoteBase_amplitudeEnd(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the AI expression value for the formants over the whole note.
 *
 * @param note  a read-only or editable note
 * @return 0.0 to 1.0; 0.5 for a null handle
 */
KRT_PLX_API float KRT_PLX_CALL KRT_PLX_NoteBase_formantWhole(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the AI expression value for the formants at the start of the note.
 *
 * @param note  a read-only or editable note
 * @return 0.0 to 1.0; 0.5 for a null handle
 */
KRT_PLX_API float KRT_PLX_CALL KRT_PLX_NoteBase_formantStart(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the AI expression value for the formants at the end of the note.
 *
 * @param note  a read-only or editable note
 * @return 0.0 to 1.0; 0.5 for a null handle
 */
KRT_PLX_API float KRT_PLX_CALL KRT_PLX_NoteBase_formantEnd(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_note Note: read-only notes
 *
 * A note of a clip from the catalogue, as its file had it. Nothing can be set.
 * @{
 */

/**
 * Returns the MIDI part in which the note stands.
 *
 * @param note  a read-only note
 * @return the part, which owns the note; NULL for a handle that is null or no Note
 */
KRT_PLX_API KRT_PLX_PartBase* KRT_PLX_CALL KRT_PLX_Note_parent(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the note's attack or release Dvqm.
 *
 * @param note      a read-only note
 * @param isAttack  true for the one at the start of the note, false for the one at its end
 * @return the Dvqm, never NULL for a Note; it lives as long as the note; NULL for a handle that is
 *         null or no Note
 */
KRT_PLX_API KRT_PLX_DvqmBase* KRT_PLX_CALL KRT_PLX_Note_dvqm(
    KRT_PLX_NoteBase* note, bool isAttack) KRT_PLX_NOEXCEPT;

/**
 * Returns the note's singing skill.
 *
 * @param note  a read-only note
 * @return the singing skill, never NULL for a Note; it lives as long as the note; NULL for a handle
 *         that is null or no Note
 */
KRT_PLX_API KRT_PLX_SingingSkillBase* KRT_PLX_CALL KRT_PLX_Note_singingSkill(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the note's vibrato.
 *
 * @param note  a read-only note
 * @return the vibrato, never NULL for a Note; it lives as long as the note; NULL for a handle that
 *         is null or no Note
 */
KRT_PLX_API KRT_PLX_VibratoBase* KRT_PLX_CALL KRT_PLX_Note_vibrato(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_mutable_note MutableNote: editable notes
 *
 * A note of an editable MIDI part. Each setter stores the value and returns true, or returns false
 * and changes nothing. Unsigned values are compared as such, so a negative number passed by mistake
 * is out of range.
 * @{
 */

/**
 * Returns the editable MIDI part in which the note stands.
 *
 * @param note  an editable note
 * @return the part, which owns the note; NULL for a handle that is null or no MutableNote
 */
KRT_PLX_API KRT_PLX_PartBase* KRT_PLX_CALL KRT_PLX_MutableNote_parent(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the note's attack or release Dvqm, for editing.
 *
 * @param note      an editable note
 * @param isAttack  true for the one at the start of the note, false for the one at its end
 * @return the Dvqm, never NULL for a MutableNote; it lives as long as the note; NULL for a handle
 *         that is null or no MutableNote
 */
KRT_PLX_API KRT_PLX_DvqmBase* KRT_PLX_CALL KRT_PLX_MutableNote_dvqm(
    KRT_PLX_NoteBase* note, bool isAttack) KRT_PLX_NOEXCEPT;

/**
 * Returns the note's singing skill, for editing.
 *
 * @param note  an editable note
 * @return the singing skill, never NULL for a MutableNote; it lives as long as the note; NULL for a
 *         handle that is null or no MutableNote
 */
KRT_PLX_API KRT_PLX_SingingSkillBase* KRT_PLX_CALL KRT_PLX_MutableNote_singingSkill(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Returns the note's vibrato, for editing.
 *
 * @param note  an editable note
 * @return the vibrato, never NULL for a MutableNote; it lives as long as the note; NULL for a
 *         handle that is null or no MutableNote
 */
KRT_PLX_API KRT_PLX_VibratoBase* KRT_PLX_CALL KRT_PLX_MutableNote_vibrato(
    KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Takes the note out of its part and destroys it.
 *
 * The notes behind it close up. The handles of the note, its Dvqms, its singing skill, its vibrato
 * and the vibrato's points are dead afterwards.
 *
 * @param note  an editable note
 * @return true when the note was removed; false for a handle that is null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_remove(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT;

/**
 * Sets the note's start and brings the note to its place in the part's order.
 *
 * For the place among notes at the same position see "Order" at the top of this file. No handle
 * dies.
 *
 * @param note  an editable note
 * @param pos   ticks, negative allowed, at most INT32_MAX - 1; `pos` plus the note's duration must
 *              not exceed INT32_MAX
 * @return true when moved; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_move(
    KRT_PLX_NoteBase* note, int32_t pos) KRT_PLX_NOEXCEPT;

/**
 * Sets the note's length.
 *
 * The note keeps its place in the order. The durations of its singing skill and vibrato are not
 * looked at again: shorten them yourself when they are longer than the new value. Otherwise they
 * stay too long in memory and in a saved clip, and reading that clip gives the singing skill the
 * duration 0, and the vibrato the duration 0 and no points.
 *
 * @param note      an editable note
 * @param duration  ticks, 1 or more; the note's position plus `duration` must not exceed INT32_MAX
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setDuration(
    KRT_PLX_NoteBase* note, int32_t duration) KRT_PLX_NOEXCEPT;

/**
 * Sets the lyric: the syllable as it is shown to the user.
 *
 * @param note  an editable note
 * @param text  the new text, copied; not NULL and not empty
 * @return true when stored; false, and nothing changed, for a NULL or empty text or for a handle
 *         that is null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setLyric(
    KRT_PLX_NoteBase* note, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/**
 * Sets the phonemes that are sung for the lyric.
 *
 * The text is stored as it is passed; whether a voice knows the phonemes is the host's concern.
 *
 * @param note  an editable note
 * @param text  the new text, copied; not NULL and not empty
 * @return true when stored; false, and nothing changed, for a NULL or empty text or for a handle
 *         that is null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setPhoneme(
    KRT_PLX_NoteBase* note, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/**
 * Sets the language in which the note is sung.
 *
 * A note of an editable part always has a language: #KRT_PLX_NO_LANGUAGE is out of range.
 *
 * @param note   an editable note
 * @param value  0 to 127, in the host's numbering
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setLangID(
    KRT_PLX_NoteBase* note, uint32_t value) KRT_PLX_NOEXCEPT;

/**
 * Sets or clears the protection mark, which the library stores and does not act upon.
 *
 * @param note   an editable note
 * @param value  the new mark
 * @return true, whatever the value; false for a handle that is null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setProtected(
    KRT_PLX_NoteBase* note, bool value) KRT_PLX_NOEXCEPT;

/**
 * Sets the pitch as a MIDI note number. The order of the part's notes stays.
 *
 * @param note   an editable note
 * @param value  0 to 127, 60 is middle C
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setNumber(
    KRT_PLX_NoteBase* note, uint32_t value) KRT_PLX_NOEXCEPT;

/**
 * Sets the velocity: the force with which the note begins.
 *
 * @param note   an editable note
 * @param value  0 to 127
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setVelocity(
    KRT_PLX_NoteBase* note, uint32_t value) KRT_PLX_NOEXCEPT;

/**
 * Sets the accent: how strongly the start of the note is stressed.
 *
 * @param note   an editable note
 * @param value  0 to 100
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setAccent(
    KRT_PLX_NoteBase* note, uint32_t value) KRT_PLX_NOEXCEPT;

/**
 * Sets the bend depth: how far the pitch is bent at the start of the note.
 *
 * @param note   an editable note
 * @param value  0 to 100
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setBendDepth(
    KRT_PLX_NoteBase* note, uint32_t value) KRT_PLX_NOEXCEPT;

/**
 * Sets the bend length: how much of the note that bend takes.
 *
 * @param note   an editable note
 * @param value  0 to 100
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setBendLength(
    KRT_PLX_NoteBase* note, uint32_t value) KRT_PLX_NOEXCEPT;

/**
 * Sets the decay: how the loudness falls in the course of the note.
 *
 * @param note   an editable note
 * @param value  0 to 100
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setDecay(
    KRT_PLX_NoteBase* note, uint32_t value) KRT_PLX_NOEXCEPT;

/**
 * Sets the opening: how wide the singer's mouth is open.
 *
 * @param note   an editable note
 * @param value  0 to 127 (wide open)
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setOpening(
    KRT_PLX_NoteBase* note, uint32_t value) KRT_PLX_NOEXCEPT;

/**
 * Switches portamento at a falling interval on or off.
 *
 * @param note   an editable note
 * @param value  true to sing the note with portamento there
 * @return true, whatever the value; false for a handle that is null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setFallPort(
    KRT_PLX_NoteBase* note, bool value) KRT_PLX_NOEXCEPT;

/**
 * Switches portamento at a rising interval on or off.
 *
 * @param note   an editable note
 * @param value  true to sing the note with portamento there
 * @return true, whatever the value; false for a handle that is null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setRisePort(
    KRT_PLX_NoteBase* note, bool value) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_mutable_note_ai MutableNote: AI expression of the editable note
 *
 * The setters of the thirteen values by which an AI voice shapes the note. Both bounds, 0.0 and
 * 1.0, are accepted.
 *
 * A NaN is accepted too: it is neither below 0.0 nor above 1.0. Do not pass one. A clip whose part
 * is sung by an AI voice cannot be saved while a note of it holds a NaN
 * (#KRT_PLX_RESULT_FILE_NOT_WRITTEN). A part of a voice bank saves 0.5 for these values, whatever
 * the note holds.
 * @{
 */

/**
 * Sets the AI expression value for the fine detail of the pitch.
 *
 * @param note   an editable note
 * @param value  0.0 to 1.0, or a NaN
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setPitchFine(
    KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT;

/**
 * Sets the AI expression value for the drift of the pitch at the start of the note.
 *
 * @param note   an editable note
 * @param value  0.0 to 1.0, or a NaN
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setPitchDriftStart(
    KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT;

/**
 * Sets the AI expression value for the drift of the pitch at the end of the note.
 *
 * @param note   an editable note
 * @param value  0.0 to 1.0, or a NaN
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setPitchDriftEnd(
    KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT;

/**
 * Sets the AI expression value for the centre of the pitch scaling.
 *
 * @param note   an editable note
 * @param value  0.0 to 1.0, or a NaN
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setPitchScalingCenter(
    KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT;

/**
 * Sets the AI expression value for the origin of the pitch scaling.
 *
 * @param note   an editable note
 * @param value  0.0 to 1.0, or a NaN
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setPitchScalingOrigin(
    KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT;

/**
 * Sets the AI expression value for the pitch transition at the start of the note.
 *
 * @param note   an editable note
 * @param value  0.0 to 1.0, or a NaN
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setPitchTransitionStart(
    KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT;

/**
 * Sets the AI expression value for the pitch transition at the end of the note.
 *
 * @param note   an editable note
 * @param value  0.0 to 1.0, or a NaN
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setPitchTransitionEnd(
    KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT;

/**
 * Sets the AI expression value for the loudness over the whole note.
 *
 * @param note   an editable note
 * @param value  0.0 to 1.0, or a NaN
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setAmplitudeWhole(
    KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT;

/**
 * Sets the AI expression value for the loudness at the start of the note.
 *
 * @param note   an editable note
 * @param value  0.0 to 1.0, or a NaN
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setAmplitudeStart(
    KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT;

/**
 * Sets the AI expression value for the loudness at the end of the note.
 *
 * @param note   an editable note
 * @param value  0.0 to 1.0, or a NaN
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setAmplitudeEnd(
    KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT;

/**
 * Sets the AI expression value for the formants over the whole note.
 *
 * @param note   an editable note
 * @param value  0.0 to 1.0, or a NaN
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setFormantWhole(
    KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT;

/**
 * Sets the AI expression value for the formants at the start of the note.
 *
 * @param note   an editable note
 * @param value  0.0 to 1.0, or a NaN
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setFormantStart(
    KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT;

/**
 * Sets the AI expression value for the formants at the end of the note.
 *
 * @param note   an editable note
 * @param value  0.0 to 1.0, or a NaN
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableNote
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableNote_setFormantEnd(
    KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT;

/** @} */

#endif
