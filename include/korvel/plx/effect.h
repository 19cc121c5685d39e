/**
 * @file effect.h
 * Effects of a part and their named parameters.
 *
 * A MIDI part has two chains of effects, one of MIDI effects and one of audio effects; an audio
 * part has a chain of audio effects. An effect is named by an ID, once in a chain, and carries
 * parameters, each with a name and a value: an integer, a float or a text. The library stores these
 * and does not interpret them.
 *
 * Effects and parameters come in two kinds: read-only ones in the part of a catalogue clip,
 * editable ones in an editable part. Effects are made by
 * KRT_PLX_MutableMidiPart_insertMidiEffect(), KRT_PLX_MutableMidiPart_insertAudioEffect() and
 * KRT_PLX_MutableAudioPart_insertAudioEffect(), which return the effect that is there when the
 * chain has one of that ID. The functions of a class with `Base` in its name read both kinds; the
 * functions of one kind treat an object of the other kind like a null handle. Effect takes
 * AudioEffect and MidiEffect, MutableEffect takes MutableAudioEffect and MutableMidiEffect.
 *
 * A chain keeps the order that inserting and moving give it; it is never sorted. An effect keeps
 * its parameters ascending by name, compared UTF-16 unit by unit, a name before the longer ones
 * that begin with it. In an editable effect each name is there once; a read-only effect has a name
 * as often as its file.
 *
 * Read-only effects and their parameters live as long as their part.
 */
#ifndef KORVEL_PLX_EFFECT_H
#define KORVEL_PLX_EFFECT_H

#include "common.h"

/** The integer of a parameter whose value is no integer. */
#define KRT_PLX_VALUE_UNSET_INT32 INT32_MIN

/** The float of a parameter whose value is no float: the smallest positive normal float. */
#define KRT_PLX_VALUE_UNSET_FLOAT 1.17549435e-38f

/** Which kind an effect is: KRT_PLX_EffectBase_type(). */
typedef enum KRT_PLX_EffectKind {
    /** An audio effect: it works on sound. MIDI and audio parts have them. */
    KRT_PLX_EFFECT_AUDIO = 0,
    /** A MIDI effect: it works on notes and controllers. Only MIDI parts have them. */
    KRT_PLX_EFFECT_MIDI = 1,
    /** The handle is null. */
    KRT_PLX_EFFECT_NONE = 2
} KRT_PLX_EffectKind;

/** What a parameter holds: KRT_PLX_EffectParameterBase_type(). */
typedef enum KRT_PLX_ValueType {
    /** Nothing yet: a new parameter. */
    KRT_PLX_VALUE_UNSET = 0,
    /** An integer: KRT_PLX_EffectParameterBase_valueInt32(). */
    KRT_PLX_VALUE_INT32 = 1,
    /** A float: KRT_PLX_EffectParameterBase_valueFloat(). */
    KRT_PLX_VALUE_FLOAT = 2,
    /** A text: KRT_PLX_EffectParameterBase_valueString(). */
    KRT_PLX_VALUE_STRING = 3,
    /** The handle is null. */
    KRT_PLX_VALUE_NONE = 4
} KRT_PLX_ValueType;

/**
 * @defgroup korvel_plx_effect_base EffectBase: reading any effect
 *
 * Every function of this group takes an audio or MIDI effect, read-only or editable.
 * @{
 */

/**
 * Returns the effect's ID.
 *
 * @param effect  any effect
 * @return the text, never empty; it belongs to the effect and is valid as long as that lives; NULL
 *         for a null handle
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_EffectBase_id(
    KRT_PLX_EffectBase* effect) KRT_PLX_NOEXCEPT;

/**
 * Tells audio effects and MIDI effects apart.
 *
 * @param effect  any effect
 * @return #KRT_PLX_EFFECT_AUDIO or #KRT_PLX_EFFECT_MIDI; #KRT_PLX_EFFECT_NONE for a null handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_EffectBase_type(
    KRT_PLX_EffectBase* effect) KRT_PLX_NOEXCEPT;

/**
 * Counts the effect's parameters.
 *
 * @param effect  any effect
 * @param count   receives the number; left alone when the result is false
 * @return true; false when the handle or `count` is null
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_EffectBase_numParameters(
    KRT_PLX_EffectBase* effect, uint64_t* count) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_effect Effect and its two kinds: read-only effects
 *
 * Effects of a catalogue clip's part. The Effect functions take an AudioEffect or a MidiEffect.
 * @{
 */

/**
 * Returns one parameter.
 *
 * @param effect  a read-only effect
 * @param index   index of the parameter, from 0, in order of name
 * @return the parameter (EffectParameter), owned by the effect; NULL when `index` is not below the
 *         count and for a handle that is null or no Effect
 */
KRT_PLX_API KRT_PLX_EffectParameterBase* KRT_PLX_CALL KRT_PLX_Effect_parameter(
    KRT_PLX_EffectBase* effect, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a parameter belongs to this effect.
 *
 * Only addresses are compared; `element` is not looked at and may be a dead handle. A new object
 * may stand at the address of a dead one, which then counts as found.
 *
 * @param effect   a read-only effect
 * @param element  the parameter to look for
 * @return true when that very parameter is among the effect's own; false otherwise, for a null
 *         element and for a handle that is null or no Effect
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_Effect_hasParameter(
    KRT_PLX_EffectBase* effect, KRT_PLX_EffectParameterBase* element) KRT_PLX_NOEXCEPT;

/**
 * Returns the part to which a read-only audio effect belongs.
 *
 * @param effect  a read-only audio effect
 * @return the MIDI or audio part, which owns the effect; NULL for a handle that is null or no
 *         AudioEffect, so for a MidiEffect too
 */
KRT_PLX_API KRT_PLX_PartBase* KRT_PLX_CALL KRT_PLX_AudioEffect_parent(
    KRT_PLX_EffectBase* effect) KRT_PLX_NOEXCEPT;

/**
 * Returns the part to which a read-only MIDI effect belongs.
 *
 * @param effect  a read-only MIDI effect
 * @return the MIDI part, which owns the effect; NULL for a handle that is null or no MidiEffect, so
 *         for an AudioEffect too
 */
KRT_PLX_API KRT_PLX_PartBase* KRT_PLX_CALL KRT_PLX_MidiEffect_parent(
    KRT_PLX_EffectBase* effect) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_mutable_effect MutableEffect and its two kinds: editable effects
 *
 * Effects of an editable part. The MutableEffect functions take a MutableAudioEffect or a
 * MutableMidiEffect. An effect lives until it is removed or until its part is destroyed.
 * @{
 */

/**
 * Returns one parameter, for editing.
 *
 * @param effect  an editable effect
 * @param index   index of the parameter, from 0, in order of name
 * @return the parameter (MutableEffectParameter), owned by the effect; NULL when `index` is not
 *         below the count and for a handle that is null or no MutableEffect
 */
KRT_PLX_API KRT_PLX_EffectParameterBase* KRT_PLX_CALL KRT_PLX_MutableEffect_parameter(
    KRT_PLX_EffectBase* effect, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a parameter belongs to this effect.
 *
 * Only addresses are compared; `element` is not looked at and may be a dead handle. A new object
 * may stand at the address of a dead one, which then counts as found.
 *
 * @param effect   an editable effect
 * @param element  the parameter to look for
 * @return true when that very parameter is among the effect's own; false otherwise, for a null
 *         element and for a handle that is null or no MutableEffect
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableEffect_hasParameter(
    KRT_PLX_EffectBase* effect, KRT_PLX_EffectParameterBase* element) KRT_PLX_NOEXCEPT;

/**
 * Adds a parameter without value at its place in the order of names, or finds the one of that name.
 *
 * A parameter that is found keeps its value. Handles of other parameters stay valid; their indexes
 * may change.
 *
 * @param effect  an editable effect
 * @param name    the name, copied; not NULL and not empty
 * @return the new or existing parameter (MutableEffectParameter), owned by the effect; NULL for a
 *         NULL or empty name and for a handle that is null or no MutableEffect
 */
KRT_PLX_API KRT_PLX_EffectParameterBase* KRT_PLX_CALL KRT_PLX_MutableEffect_addParameter(
    KRT_PLX_EffectBase* effect, const KRT_PLX_Char* name) KRT_PLX_NOEXCEPT;

/**
 * Moves the effect to another place in its chain.
 *
 * The index counts in the chain without the effect: in a chain of three, moving the first to 1
 * makes it the middle one, moving it to 2 or more makes it the last. No handle dies.
 *
 * @param effect  an editable effect
 * @param index   the new place, from 0; one that is not below the number of the other effects means
 *                the end
 * @return true when moved; false for a handle that is null or no MutableEffect
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableEffect_move(
    KRT_PLX_EffectBase* effect, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Takes the effect out of its chain and destroys it with its parameters.
 *
 * The effects behind it close up. The handles of the effect and of its parameters are dead
 * afterwards.
 *
 * @param effect  an editable effect
 * @return true when the effect was removed; false for a handle that is null or no MutableEffect
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableEffect_remove(
    KRT_PLX_EffectBase* effect) KRT_PLX_NOEXCEPT;

/**
 * Returns the part to which an editable audio effect belongs.
 *
 * @param effect  an editable audio effect
 * @return the MIDI or audio part, which owns the effect; NULL for a handle that is null or no
 *         MutableAudioEffect, so for a MutableMidiEffect too
 */
KRT_PLX_API KRT_PLX_PartBase* KRT_PLX_CALL KRT_PLX_MutableAudioEffect_parent(
    KRT_PLX_EffectBase* effect) KRT_PLX_NOEXCEPT;

/**
 * Returns the part to which an editable MIDI effect belongs.
 *
 * @param effect  an editable MIDI effect
 * @return the MIDI part, which owns the effect; NULL for a handle that is null or no
 *         MutableMidiEffect, so for a MutableAudioEffect too
 */
KRT_PLX_API KRT_PLX_PartBase* KRT_PLX_CALL KRT_PLX_MutableMidiEffect_parent(
    KRT_PLX_EffectBase* effect) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_effect_parameter_base EffectParameterBase: reading any parameter
 *
 * A parameter has a name and one value, whose type KRT_PLX_EffectParameterBase_type() tells. The
 * getters of the other types give the unset marks: #KRT_PLX_VALUE_UNSET_INT32,
 * #KRT_PLX_VALUE_UNSET_FLOAT and an empty text. Ask for the type first: each mark is also a
 * possible value. Every function of this group takes a read-only or an editable parameter.
 * @{
 */

/**
 * Returns the parameter's name.
 *
 * @param parameter  a read-only or editable parameter
 * @return the text, never empty; it belongs to the parameter and is valid as long as that lives;
 *         NULL for a null handle
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_EffectParameterBase_name(
    KRT_PLX_EffectParameterBase* parameter) KRT_PLX_NOEXCEPT;

/**
 * Tells which of the three values the parameter holds.
 *
 * @param parameter  a read-only or editable parameter
 * @return #KRT_PLX_VALUE_UNSET, #KRT_PLX_VALUE_INT32, #KRT_PLX_VALUE_FLOAT or
 *         #KRT_PLX_VALUE_STRING; #KRT_PLX_VALUE_NONE for a null handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_EffectParameterBase_type(
    KRT_PLX_EffectParameterBase* parameter) KRT_PLX_NOEXCEPT;

/**
 * Returns the integer.
 *
 * @param parameter  a read-only or editable parameter
 * @return the value; #KRT_PLX_VALUE_UNSET_INT32 when the parameter holds no integer; 0 for a null
 *         handle
 */
KRT_PLX_API int32_t KRT_PLX_CALL KRT_PLX_EffectParameterBase_valueInt32(
    KRT_PLX_EffectParameterBase* parameter) KRT_PLX_NOEXCEPT;

/**
 * Returns the float.
 *
 * @param parameter  a read-only or editable parameter
 * @return the value; #KRT_PLX_VALUE_UNSET_FLOAT when the parameter holds no float; 0.0 for a null
 *         handle
 */
KRT_PLX_API float KRT_PLX_CALL KRT_PLX_EffectParameterBase_valueFloat(
    KRT_PLX_EffectParameterBase* parameter) KRT_PLX_NOEXCEPT;

/**
 * Returns the text.
 *
 * @param parameter  a read-only or editable parameter
 * @return the value, empty when the parameter holds no text; it belongs to the parameter and is
 *         valid until a value is set or the parameter dies; NULL for a null handle
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_EffectParameterBase_valueString(
    KRT_PLX_EffectParameterBase* parameter) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_effect_parameter EffectParameter: read-only parameters
 *
 * A parameter of an effect of a catalogue clip's part.
 * @{
 */

/**
 * Returns the effect to which the parameter belongs.
 *
 * @param parameter  a read-only parameter
 * @return the effect, which owns the parameter; NULL for a handle that is null or no
 *         EffectParameter
 */
KRT_PLX_API KRT_PLX_EffectBase* KRT_PLX_CALL KRT_PLX_EffectParameter_parent(
    KRT_PLX_EffectParameterBase* parameter) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_mutable_effect_parameter MutableEffectParameter: editable parameters
 *
 * A parameter of an editable effect. It lives until it is removed or until its effect dies. Setting
 * a value of one type replaces the value of another. A parameter that was never given a value is
 * not saved.
 * @{
 */

/**
 * Returns the editable effect to which the parameter belongs.
 *
 * @param parameter  an editable parameter
 * @return the effect, which owns the parameter; NULL for a handle that is null or no
 *         MutableEffectParameter
 */
KRT_PLX_API KRT_PLX_EffectBase* KRT_PLX_CALL KRT_PLX_MutableEffectParameter_parent(
    KRT_PLX_EffectParameterBase* parameter) KRT_PLX_NOEXCEPT;

/**
 * Takes the parameter out of its effect and destroys it.
 *
 * The parameters behind it close up. The handle is dead afterwards.
 *
 * @param parameter  an editable parameter
 * @return true when the parameter was removed; false for a handle that is null or no
 *         MutableEffectParameter
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableEffectParameter_remove(
    KRT_PLX_EffectParameterBase* parameter) KRT_PLX_NOEXCEPT;

/**
 * Makes the parameter's value an integer.
 *
 * Reading a saved clip turns the integers of audio effects into floats, save for a parameter named
 * "Bypass". Those of MIDI effects stay integers.
 *
 * @param parameter  an editable parameter
 * @param value      the new value, any
 * @return true, whatever the value; false for a handle that is null or no MutableEffectParameter
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableEffectParameter_setValueInt32(
    KRT_PLX_EffectParameterBase* parameter, int32_t value) KRT_PLX_NOEXCEPT;

/**
 * Makes the parameter's value a float.
 *
 * Any float is stored, but a clip with an infinity or a NaN cannot be saved
 * (#KRT_PLX_RESULT_FILE_NOT_WRITTEN), and the most negative float, -3.40282347e38, comes back from
 * a saved clip as 1.17549435e-38.
 *
 * @param parameter  an editable parameter
 * @param value      the new value, any
 * @return true, whatever the value; false for a handle that is null or no MutableEffectParameter
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableEffectParameter_setValueFloat(
    KRT_PLX_EffectParameterBase* parameter, float value) KRT_PLX_NOEXCEPT;

/**
 * Makes the parameter's value a text.
 *
 * @param parameter  an editable parameter
 * @param text       the new value, copied; any text, NULL stands for the empty one
 * @return true, whatever the text; false for a handle that is null or no MutableEffectParameter
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableEffectParameter_setValueString(
    KRT_PLX_EffectParameterBase* parameter, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/** @} */

#endif
