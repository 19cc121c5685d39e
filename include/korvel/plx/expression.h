/**
 * @file expression.h
 * The four expression objects of a note: attack Dvqm, release Dvqm, singing skill and vibrato, and
 * the points of a vibrato's curves.
 *
 * Every note owns exactly one of each of the four. They are made with the note and die with it;
 * none can be removed or replaced. Ask the note for them: KRT_PLX_Note_dvqm(),
 * KRT_PLX_Note_singingSkill() and KRT_PLX_Note_vibrato() for a read-only note, the functions of the
 * same names beginning with `KRT_PLX_MutableNote_` for an editable one.
 *
 * Like notes, these objects come in two kinds. Those of a read-only note are read-only (class Dvqm
 * and so on), those of an editable note editable (MutableDvqm and so on). The functions of a class
 * with `Base` in its name read both kinds; the functions of one kind treat an object of the other
 * kind like a null handle.
 *
 * ## What a saved clip keeps
 *
 * A part sung by a voice bank (type #KRT_PLX_PART_MIDI) saves a Dvqm when it has a component ID and
 * at least one level name. A part sung by an AI voice (#KRT_PLX_PART_MIDI_AI) never saves one. A
 * note that was saved with a Dvqm loses its singing skill: reading the clip gives it the values of
 * a new note.
 */
#ifndef KORVEL_PLX_EXPRESSION_H
#define KORVEL_PLX_EXPRESSION_H

#include "common.h"

/** No vibrato type: the handle is null. A real one is 0 to 16. */
#define KRT_PLX_VIBRATO_TYPE_NONE 17u

/** The count that KRT_PLX_VibratoBase_numParameters() writes for an unknown kind of point: all bits
 *  set. */
#define KRT_PLX_VIBRATO_NO_COUNT UINT64_MAX

/** The kinds of vibrato point: KRT_PLX_VibratoParameterBase_type(). */
typedef enum KRT_PLX_VibratoPointKind {
    /** A point of the depth curve: how far the pitch swings. */
    KRT_PLX_VIBRATO_DEPTH = 0,
    /** A point of the rate curve: how fast the pitch swings. */
    KRT_PLX_VIBRATO_RATE = 1,
    /** The handle is null. */
    KRT_PLX_VIBRATO_NONE = 2
} KRT_PLX_VibratoPointKind;

/**
 * @defgroup korvel_plx_dvqm_base DvqmBase: reading any Dvqm
 *
 * A Dvqm is a voice-quality component that is applied where the note starts (the attack Dvqm) or
 * ends (the release Dvqm). A component ID and a list of level names say which; the library stores
 * these texts as they are passed. A new Dvqm has no component and no level names, is not protected,
 * and has speed 50 and top factor 1.0; what these two do to the sound is up to the voice. Every
 * function of this group takes a read-only or an editable Dvqm.
 * @{
 */

/**
 * Tells the two kinds of Dvqm apart.
 *
 * @param dvqm  a read-only or editable Dvqm
 * @return true for one of an editable note (MutableDvqm); false for one of a read-only note (Dvqm)
 *         and for a null handle
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_DvqmBase_isMutable(KRT_PLX_DvqmBase* dvqm) KRT_PLX_NOEXCEPT;

/**
 * Tells which of its note's two Dvqms this is.
 *
 * @param dvqm  a read-only or editable Dvqm
 * @return true for the attack Dvqm; false for the release Dvqm and for a null handle
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_DvqmBase_isAttack(KRT_PLX_DvqmBase* dvqm) KRT_PLX_NOEXCEPT;

/**
 * Returns the ID of the voice-quality component.
 *
 * @param dvqm  a read-only or editable Dvqm
 * @return the text, empty when none is set; it belongs to the Dvqm and is valid until the ID is set
 *         or the note dies; NULL for a null handle
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_DvqmBase_compID(
    KRT_PLX_DvqmBase* dvqm) KRT_PLX_NOEXCEPT;

/**
 * Counts the level names.
 *
 * @param dvqm   a read-only or editable Dvqm
 * @param count  receives the number; left alone when the result is false
 * @return true; false when the handle or `count` is null
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_DvqmBase_numLevelNames(
    KRT_PLX_DvqmBase* dvqm, uint64_t* count) KRT_PLX_NOEXCEPT;

/**
 * Returns one level name.
 *
 * @param dvqm   a read-only or editable Dvqm
 * @param index  index of the name, from 0, in the order of adding
 * @return the text; it belongs to the Dvqm and is valid until a level name is added or the note
 *         dies; NULL when `index` is not below the count and for a null handle
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_DvqmBase_levelName(
    KRT_PLX_DvqmBase* dvqm, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Returns the protection mark, which the library stores and does not act upon.
 *
 * @param dvqm  a read-only or editable Dvqm
 * @return the mark; false for a null handle
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_DvqmBase_isProtected(KRT_PLX_DvqmBase* dvqm) KRT_PLX_NOEXCEPT;

/**
 * Returns the component's speed.
 *
 * @param dvqm  a read-only or editable Dvqm
 * @return 0 to 100, 50 by default; 0 for a null handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_DvqmBase_speed(KRT_PLX_DvqmBase* dvqm) KRT_PLX_NOEXCEPT;

/**
 * Returns the component's top factor.
 *
 * @param dvqm  a read-only or editable Dvqm
 * @return 0.0 to 2.0, 1.0 by default; 0.0 for a null handle
 */
KRT_PLX_API float KRT_PLX_CALL KRT_PLX_DvqmBase_topFactor(KRT_PLX_DvqmBase* dvqm) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_dvqm Dvqm: read-only Dvqms
 *
 * A Dvqm of a note of a catalogue clip.
 * @{
 */

/**
 * Returns the note to which the Dvqm belongs.
 *
 * @param dvqm  a read-only Dvqm
 * @return the note, which owns the Dvqm; NULL for a handle that is null or no Dvqm
 */
KRT_PLX_API KRT_PLX_NoteBase* KRT_PLX_CALL KRT_PLX_Dvqm_parent(
    KRT_PLX_DvqmBase* dvqm) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_mutable_dvqm MutableDvqm: editable Dvqms
 *
 * A Dvqm of an editable note. Give it a component ID and one to four level names if it is to be
 * saved.
 * @{
 */

/**
 * Returns the editable note to which the Dvqm belongs.
 *
 * @param dvqm  an editable Dvqm
 * @return the note, which owns the Dvqm; NULL for a handle that is null or no MutableDvqm
 */
KRT_PLX_API KRT_PLX_NoteBase* KRT_PLX_CALL KRT_PLX_MutableDvqm_parent(
    KRT_PLX_DvqmBase* dvqm) KRT_PLX_NOEXCEPT;

/**
 * Sets the ID of the voice-quality component.
 *
 * @param dvqm  an editable Dvqm
 * @param text  the new ID, copied; any text, NULL empties the ID
 * @return true, whatever the text; false for a handle that is null or no MutableDvqm
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableDvqm_setCompID(
    KRT_PLX_DvqmBase* dvqm, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/**
 * Appends a level name.
 *
 * A name may be added twice, and none can be taken out again. Add at most four: a fifth is stored
 * and saved, but a Dvqm with five names is passed over when the saved clip is read, and comes back
 * empty, component ID and all.
 *
 * @param dvqm  an editable Dvqm
 * @param text  the name, copied; not NULL and not empty
 * @return true when appended; false, and nothing changed, for a NULL or empty text, when there are
 *         five names already, or for a handle that is null or no MutableDvqm
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableDvqm_addLevelName(
    KRT_PLX_DvqmBase* dvqm, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/**
 * Sets or clears the protection mark, and returns the mark.
 *
 * Do not read the result as success: `protect(dvqm, false)` clears the mark and returns false. The
 * library stores the mark and does not act upon it.
 *
 * @param dvqm   an editable Dvqm
 * @param value  the new mark
 * @return `value` itself; false for a handle that is null or no MutableDvqm
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableDvqm_protect(
    KRT_PLX_DvqmBase* dvqm, bool value) KRT_PLX_NOEXCEPT;

/**
 * Sets the component's speed.
 *
 * @param dvqm   an editable Dvqm
 * @param value  0 to 100
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableDvqm
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableDvqm_setSpeed(
    KRT_PLX_DvqmBase* dvqm, uint32_t value) KRT_PLX_NOEXCEPT;

/**
 * Sets the component's top factor.
 *
 * A NaN is accepted, being neither below nor above the bounds. Do not pass one: a clip that has to
 * save it cannot be saved (#KRT_PLX_RESULT_FILE_NOT_WRITTEN).
 *
 * @param dvqm   an editable Dvqm
 * @param value  0.0 to 2.0, both accepted, or a NaN
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableDvqm
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableDvqm_setTopFactor(
    KRT_PLX_DvqmBase* dvqm, float value) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_singing_skill_base SingingSkillBase: reading any singing skill
 *
 * A singing skill is a weighted ornament that spans part of the note. A new one has duration 0 and
 * both weights 64. Every function of this group takes a read-only or an editable singing skill.
 * @{
 */

/**
 * Tells the two kinds of singing skill apart.
 *
 * @param skill  a read-only or editable singing skill
 * @return true for one of an editable note (MutableSingingSkill); false for one of a read-only note
 *         (SingingSkill) and for a null handle
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_SingingSkillBase_isMutable(
    KRT_PLX_SingingSkillBase* skill) KRT_PLX_NOEXCEPT;

/**
 * Returns how much of the note the ornament takes.
 *
 * @param skill  a read-only or editable singing skill
 * @return ticks, 0 or more, 0 by default; 0 for a null handle
 */
KRT_PLX_API int32_t KRT_PLX_CALL KRT_PLX_SingingSkillBase_duration(
    KRT_PLX_SingingSkillBase* skill) KRT_PLX_NOEXCEPT;

/**
 * Returns the pre weight, the first of the ornament's two weights.
 *
 * @param skill  a read-only or editable singing skill
 * @return 0 to 127, 64 by default; 0 for a null handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_SingingSkillBase_preWeight(
    KRT_PLX_SingingSkillBase* skill) KRT_PLX_NOEXCEPT;

/**
 * Returns the post weight, the second of the ornament's two weights.
 *
 * @param skill  a read-only or editable singing skill
 * @return 0 to 127, 64 by default; 0 for a null handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_SingingSkillBase_postWeight(
    KRT_PLX_SingingSkillBase* skill) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_singing_skill SingingSkill: read-only singing skills
 *
 * The singing skill of a note of a catalogue clip.
 * @{
 */

/**
 * Returns the note to which the singing skill belongs.
 *
 * @param skill  a read-only singing skill
 * @return the note, which owns the singing skill; NULL for a handle that is null or no SingingSkill
 */
KRT_PLX_API KRT_PLX_NoteBase* KRT_PLX_CALL KRT_PLX_SingingSkill_parent(
    KRT_PLX_SingingSkillBase* skill) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_mutable_singing_skill MutableSingingSkill: editable singing skills
 *
 * The singing skill of an editable note.
 * @{
 */

/**
 * Returns the editable note to which the singing skill belongs.
 *
 * @param skill  an editable singing skill
 * @return the note, which owns the singing skill; NULL for a handle that is null or no
 *         MutableSingingSkill
 */
KRT_PLX_API KRT_PLX_NoteBase* KRT_PLX_CALL KRT_PLX_MutableSingingSkill_parent(
    KRT_PLX_SingingSkillBase* skill) KRT_PLX_NOEXCEPT;

/**
 * Sets how much of the note the ornament takes.
 *
 * The value is checked against the note's duration of this moment only. If you shorten the note
 * later, shorten this too: see KRT_PLX_MutableNote_setDuration().
 *
 * @param skill     an editable singing skill
 * @param duration  ticks, 0 up to the note's duration
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableSingingSkill
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableSingingSkill_setDuration(
    KRT_PLX_SingingSkillBase* skill, int32_t duration) KRT_PLX_NOEXCEPT;

/**
 * Sets the pre weight, the first of the ornament's two weights.
 *
 * @param skill  an editable singing skill
 * @param value  0 to 127
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableSingingSkill
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableSingingSkill_setPreWeight(
    KRT_PLX_SingingSkillBase* skill, uint32_t value) KRT_PLX_NOEXCEPT;

/**
 * Sets the post weight, the second of the ornament's two weights.
 *
 * @param skill  an editable singing skill
 * @param value  0 to 127
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableSingingSkill
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableSingingSkill_setPostWeight(
    KRT_PLX_SingingSkillBase* skill, uint32_t value) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_vibrato_base VibratoBase: reading any vibrato
 *
 * A vibrato has a type, a duration and two curves: depth points and rate points. Each curve is a
 * list of points ascending by position, with at most one point at a position. A new vibrato has
 * type 0, duration 0 and no points. Every function of this group takes a read-only or an editable
 * vibrato.
 * @{
 */

/**
 * Tells the two kinds of vibrato apart.
 *
 * @param vibrato  a read-only or editable vibrato
 * @return true for one of an editable note (MutableVibrato); false for one of a read-only note
 *         (Vibrato) and for a null handle
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_VibratoBase_isMutable(
    KRT_PLX_VibratoBase* vibrato) KRT_PLX_NOEXCEPT;

/**
 * Returns the vibrato's type, in the host's numbering.
 *
 * @param vibrato  a read-only or editable vibrato
 * @return 0 to 16, 0 by default; #KRT_PLX_VIBRATO_TYPE_NONE for a null handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_VibratoBase_type(
    KRT_PLX_VibratoBase* vibrato) KRT_PLX_NOEXCEPT;

/**
 * Returns how much of the note the vibrato takes.
 *
 * @param vibrato  a read-only or editable vibrato
 * @return ticks, 0 or more, 0 by default; #KRT_PLX_NO_INT32 for a null handle
 */
KRT_PLX_API int32_t KRT_PLX_CALL KRT_PLX_VibratoBase_duration(
    KRT_PLX_VibratoBase* vibrato) KRT_PLX_NOEXCEPT;

/**
 * Counts the points of one curve.
 *
 * An unknown kind is no failure: the function then writes #KRT_PLX_VIBRATO_NO_COUNT, all bits set,
 * and returns true. Do not use that count as the bound of a loop.
 *
 * @param vibrato  a read-only or editable vibrato
 * @param type     #KRT_PLX_VIBRATO_DEPTH or #KRT_PLX_VIBRATO_RATE
 * @param count    receives the number; left alone when the result is false
 * @return true; false when the handle or `count` is null
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_VibratoBase_numParameters(
    KRT_PLX_VibratoBase* vibrato, uint32_t type, uint64_t* count) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_vibrato Vibrato: read-only vibratos
 *
 * The vibrato of a note of a catalogue clip.
 * @{
 */

/**
 * Returns the note to which the vibrato belongs.
 *
 * @param vibrato  a read-only vibrato
 * @return the note, which owns the vibrato; NULL for a handle that is null or no Vibrato
 */
KRT_PLX_API KRT_PLX_NoteBase* KRT_PLX_CALL KRT_PLX_Vibrato_parent(
    KRT_PLX_VibratoBase* vibrato) KRT_PLX_NOEXCEPT;

/**
 * Returns one point of a curve.
 *
 * @param vibrato  a read-only vibrato
 * @param type     #KRT_PLX_VIBRATO_DEPTH or #KRT_PLX_VIBRATO_RATE
 * @param index    index of the point in its curve, from 0, in order of position
 * @return the point (VibratoParameter), owned by the vibrato; NULL for another type, when `index`
 *         is not below the count, and for a handle that is null or no Vibrato
 */
KRT_PLX_API KRT_PLX_VibratoParameterBase* KRT_PLX_CALL KRT_PLX_Vibrato_parameter(
    KRT_PLX_VibratoBase* vibrato, uint32_t type, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a point stands in a curve of this vibrato.
 *
 * Only addresses are compared; `element` is not looked at and may be a dead handle. A new object
 * may stand at the address of a dead one, which then counts as found.
 *
 * @param vibrato  a read-only vibrato
 * @param type     #KRT_PLX_VIBRATO_DEPTH or #KRT_PLX_VIBRATO_RATE: the curve that is searched
 * @param element  the point to look for
 * @return true when that very point is in that curve; false otherwise, for a null element, for
 *         another type and for a handle that is null or no Vibrato
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_Vibrato_hasParameter(KRT_PLX_VibratoBase* vibrato,
    uint32_t type,
    KRT_PLX_VibratoParameterBase* element) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_mutable_vibrato MutableVibrato: editable vibratos
 *
 * The vibrato of an editable note. Set its duration before you insert points: their positions are
 * checked against it.
 * @{
 */

/**
 * Returns the editable note to which the vibrato belongs.
 *
 * @param vibrato  an editable vibrato
 * @return the note, which owns the vibrato; NULL for a handle that is null or no MutableVibrato
 */
KRT_PLX_API KRT_PLX_NoteBase* KRT_PLX_CALL KRT_PLX_MutableVibrato_parent(
    KRT_PLX_VibratoBase* vibrato) KRT_PLX_NOEXCEPT;

/**
 * Sets the vibrato's type.
 *
 * @param vibrato  an editable vibrato
 * @param type     0 to 16, in the host's numbering
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableVibrato
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableVibrato_setType(
    KRT_PLX_VibratoBase* vibrato, uint32_t type) KRT_PLX_NOEXCEPT;

/**
 * Sets how much of the note the vibrato takes.
 *
 * The value is checked against the note's duration of this moment only; if you shorten the note
 * later, shorten this too: see KRT_PLX_MutableNote_setDuration(). The points are not looked at:
 * those beyond the new duration stay in memory and in a saved clip, and are dropped when that clip
 * is read.
 *
 * @param vibrato   an editable vibrato
 * @param duration  ticks, 0 up to the note's duration
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableVibrato
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableVibrato_setDuration(
    KRT_PLX_VibratoBase* vibrato, int32_t duration) KRT_PLX_NOEXCEPT;

/**
 * Returns one point of a curve, for editing.
 *
 * @param vibrato  an editable vibrato
 * @param type     #KRT_PLX_VIBRATO_DEPTH or #KRT_PLX_VIBRATO_RATE
 * @param index    index of the point in its curve, from 0, in order of position
 * @return the point (MutableVibratoParameter), owned by the vibrato; NULL for another type, when
 *         `index` is not below the count, and for a handle that is null or no MutableVibrato
 */
KRT_PLX_API KRT_PLX_VibratoParameterBase* KRT_PLX_CALL KRT_PLX_MutableVibrato_parameter(
    KRT_PLX_VibratoBase* vibrato, uint32_t type, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a point stands in a curve of this vibrato.
 *
 * Only addresses are compared; `element` is not looked at and may be a dead handle. A new object
 * may stand at the address of a dead one, which then counts as found.
 *
 * @param vibrato  an editable vibrato
 * @param type     #KRT_PLX_VIBRATO_DEPTH or #KRT_PLX_VIBRATO_RATE: the curve that is searched
 * @param element  the point to look for
 * @return true when that very point is in that curve; false otherwise, for a null element, for
 *         another type and for a handle that is null or no MutableVibrato
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableVibrato_hasParameter(KRT_PLX_VibratoBase* vibrato,
    uint32_t type,
    KRT_PLX_VibratoParameterBase* element) KRT_PLX_NOEXCEPT;

/**
 * Puts a point into a curve, or sets the value of the point that stands at the position already.
 *
 * A point that stands at the position is set and returned even when the vibrato has become shorter
 * than that. If the value is out of range, that point keeps its old one. Handles of other points
 * stay valid; their indexes may change.
 *
 * @param vibrato  an editable vibrato
 * @param type     #KRT_PLX_VIBRATO_DEPTH or #KRT_PLX_VIBRATO_RATE
 * @param pos      ticks, 0 up to the vibrato's duration
 * @param value    0 to 127
 * @return the new or existing point (MutableVibratoParameter), owned by the vibrato; NULL, and
 *         nothing changed, for another type, when `pos` or `value` is out of range, and for a
 *         handle that is null or no MutableVibrato
 */
KRT_PLX_API KRT_PLX_VibratoParameterBase* KRT_PLX_CALL KRT_PLX_MutableVibrato_insertParameter(
    KRT_PLX_VibratoBase* vibrato, uint32_t type, int32_t pos, uint32_t value) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_vibrato_parameter_base VibratoParameterBase: reading any vibrato point
 *
 * Every function of this group takes a point of a read-only or of an editable vibrato.
 * @{
 */

/**
 * Tells the two kinds of point apart.
 *
 * @param point  a read-only or editable vibrato point
 * @return true for one of an editable vibrato (MutableVibratoParameter); false for one of a
 *         read-only vibrato (VibratoParameter) and for a null handle
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_VibratoParameterBase_isMutable(
    KRT_PLX_VibratoParameterBase* point) KRT_PLX_NOEXCEPT;

/**
 * Tells to which curve the point belongs.
 *
 * @param point  a read-only or editable vibrato point
 * @return #KRT_PLX_VIBRATO_DEPTH or #KRT_PLX_VIBRATO_RATE; #KRT_PLX_VIBRATO_NONE for a null handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_VibratoParameterBase_type(
    KRT_PLX_VibratoParameterBase* point) KRT_PLX_NOEXCEPT;

/**
 * Returns the point's position within the vibrato.
 *
 * @param point  a read-only or editable vibrato point
 * @return ticks, 0 or more; #KRT_PLX_NO_INT32 for a null handle
 */
KRT_PLX_API int32_t KRT_PLX_CALL KRT_PLX_VibratoParameterBase_pos(
    KRT_PLX_VibratoParameterBase* point) KRT_PLX_NOEXCEPT;

/**
 * Returns the depth or rate at this point.
 *
 * @param point  a read-only or editable vibrato point
 * @return 0 to 127; #KRT_PLX_NO_UINT32 for a null handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_VibratoParameterBase_value(
    KRT_PLX_VibratoParameterBase* point) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_vibrato_parameter VibratoParameter: read-only vibrato points
 *
 * A point of the vibrato of a catalogue clip's note.
 * @{
 */

/**
 * Returns the vibrato to which the point belongs.
 *
 * @param point  a read-only vibrato point
 * @return the vibrato, which owns the point; NULL for a handle that is null or no VibratoParameter
 */
KRT_PLX_API KRT_PLX_VibratoBase* KRT_PLX_CALL KRT_PLX_VibratoParameter_parent(
    KRT_PLX_VibratoParameterBase* point) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_mutable_vibrato_parameter MutableVibratoParameter: editable vibrato points
 *
 * A point of an editable note's vibrato. It lives until it is removed, until another point is moved
 * onto its position, or until the note dies.
 * @{
 */

/**
 * Returns the editable vibrato to which the point belongs.
 *
 * @param point  an editable vibrato point
 * @return the vibrato, which owns the point; NULL for a handle that is null or no
 *         MutableVibratoParameter
 */
KRT_PLX_API KRT_PLX_VibratoBase* KRT_PLX_CALL KRT_PLX_MutableVibratoParameter_parent(
    KRT_PLX_VibratoParameterBase* point) KRT_PLX_NOEXCEPT;

/**
 * Takes the point out of its curve and destroys it.
 *
 * The points behind it close up. The handle is dead afterwards.
 *
 * @param point  an editable vibrato point
 * @return true when the point was removed; false for a handle that is null or no
 *         MutableVibratoParameter
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableVibratoParameter_remove(
    KRT_PLX_VibratoParameterBase* point) KRT_PLX_NOEXCEPT;

/**
 * Moves the point to another position in its curve.
 *
 * A point of the same curve that stands there already is destroyed, and its handle is dead; the
 * moved point stays. The other curve is not touched.
 *
 * @param point  an editable vibrato point
 * @param pos    ticks, 0 up to the vibrato's duration
 * @return true when moved; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableVibratoParameter
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableVibratoParameter_move(
    KRT_PLX_VibratoParameterBase* point, int32_t pos) KRT_PLX_NOEXCEPT;

/**
 * Sets the depth or rate at this point.
 *
 * @param point  an editable vibrato point
 * @param value  0 to 127
 * @return true when stored; false, and nothing changed, when out of range or for a handle that is
 *         null or no MutableVibratoParameter
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableVibratoParameter_setValue(
    KRT_PLX_VibratoParameterBase* point, uint32_t value) KRT_PLX_NOEXCEPT;

/** @} */

#endif
