#include "support/properties.h"

#include <algorithm>
#include <array>
#include <limits>
#include <type_traits>

#include "support/limits.h"

namespace support {
namespace {

// Rows are made when they are first asked for and not by the compiler: on Windows, a constant holds
// another address of an imported function than code does, and rows are found by the address.
template <class Value>
struct Range {
    Value minimum;
    Value maximum;
};

template <class Handle, class Value>
Property<Handle, Value> number(Place<Handle, Value> place, Range<std::type_identity_t<Value>> range,
                               std::type_identity_t<Value> initial)
{
    return {place, range.minimum, range.maximum, initial};
}

template <class Handle, class Value>
Property<Handle, Value> orZero(Property<Handle, Value> property)
{
    property.orZero = true;
    return property;
}

template <class Handle, class Value>
Property<Handle, Value> between(std::type_identity_t<Bound<Handle, Value>> least,
                                std::type_identity_t<Bound<Handle, Value>> most,
                                Property<Handle, Value> property)
{
    property.least = least;
    property.most = most;
    return property;
}

template <class Handle, class Value>
Place<Handle, Value> at(const char* within, const char* key, Value (*get)(Handle*) noexcept,
                        bool (*set)(Handle*, std::type_identity_t<Value>) noexcept,
                        Need need = Need::optional)
{
    return {within, key, get, set, need};
}

template <class Handle>
Property<Handle, bool> flag(Place<Handle, bool> place, bool setReturnsIt = false)
{
    return {place, false, setReturnsIt};
}

template <class Handle>
Property<Handle, TextPointer> words(Place<Handle, TextPointer> place, Texts texts)
{
    return {place, texts};
}

constexpr float infinity = std::numeric_limits<float>::infinity();

// A position plus a duration may reach, and not pass, the largest number.
template <std::int32_t (*Other)(KRT_PLX_NoteBase*) noexcept>
std::int32_t spaceBeside(KRT_PLX_NoteBase* note)
{
    return largest - std::max(Other(note), 0);
}

// A handle has the one parent or the other, as it was edited or read.
template <class Parent, class Handle>
Parent* parentOf(Parent* (*edited)(Handle*) noexcept, Parent* (*read)(Handle*) noexcept,
                 Handle* handle)
{
    Parent* const parent = edited(handle);
    return parent != nullptr ? parent : read(handle);
}

std::int32_t durationOfNote(KRT_PLX_SingingSkillBase* skill)
{
    return KRT_PLX_NoteBase_duration(
        parentOf(KRT_PLX_MutableSingingSkill_parent, KRT_PLX_SingingSkill_parent, skill));
}

std::int32_t durationOfNote(KRT_PLX_VibratoBase* vibrato)
{
    return KRT_PLX_NoteBase_duration(
        parentOf(KRT_PLX_MutableVibrato_parent, KRT_PLX_Vibrato_parent, vibrato));
}

std::int32_t vibratoDuration(KRT_PLX_VibratoParameterBase* point)
{
    return KRT_PLX_VibratoBase_duration(
        parentOf(KRT_PLX_MutableVibratoParameter_parent, KRT_PLX_VibratoParameter_parent, point));
}

} // namespace

template <>
const char* objectName<KRT_PLX_ClipBase>()
{
    return "clip";
}

template <>
std::span<const AnyProperty<KRT_PLX_ClipBase>> properties<KRT_PLX_ClipBase>()
{
    static const auto list = std::to_array<AnyProperty<KRT_PLX_ClipBase>>({
        words(at("", "vendor", KRT_PLX_ClipBase_vendorName, KRT_PLX_MutableClip_setVendorName),
              Texts::any),
        number(at("part", "key", KRT_PLX_ClipBase_partKey, KRT_PLX_MutableClip_setPartKey), {0, 30},
               0),
        orZero(number(
            at("part", "tempo", KRT_PLX_ClipBase_partTempo, KRT_PLX_MutableClip_setPartTempo),
            {2000, 30000}, 0)),
    });
    return list;
}

// Of both kinds of MIDI part; a document has the voice of one of them.
template <>
const char* objectName<KRT_PLX_PartBase>()
{
    return "part";
}

template <>
std::span<const AnyProperty<KRT_PLX_PartBase>> properties<KRT_PLX_PartBase>()
{
    static const auto list = std::to_array<AnyProperty<KRT_PLX_PartBase>>({
        number(at("", "duration", KRT_PLX_MidiPartBase_duration,
                  KRT_PLX_MutableMidiPart_setDuration, Need::required),
               {1, largest}, 1),
        words(at("", "styleName", KRT_PLX_MidiPartBase_styleName,
                 KRT_PLX_MutableMidiPart_setStyleName),
              Texts::any),
        words(at("", "stylePresetID", KRT_PLX_MidiPartBase_stylePresetID,
                 KRT_PLX_MutableMidiPart_setStylePresetID),
              Texts::any),
        words(at("voice", "compID", KRT_PLX_MidiPartBase_voiceBankID,
                 KRT_PLX_MutableMidiPart_setVoiceBankID, Need::required),
              Texts::voiceBank),
        number(at("voice", "langID", KRT_PLX_MidiPartBase_langID, KRT_PLX_MutableMidiPart_setLangID,
                  Need::required),
               {0, 127}, KRT_PLX_NO_LANGUAGE),
        words(at("aiVoice", "compID", KRT_PLX_MidiPartBase_aiVoiceBankID,
                 KRT_PLX_MutableMidiPart_setAiVoiceBankID, Need::required),
              Texts::voiceBankOrEmpty),
    });
    return list;
}

template <>
const char* objectName<KRT_PLX_NoteBase>()
{
    return "note";
}

template <>
std::span<const AnyProperty<KRT_PLX_NoteBase>> properties<KRT_PLX_NoteBase>()
{
    static const auto list = std::to_array<AnyProperty<KRT_PLX_NoteBase>>({
        between(
            nullptr, spaceBeside<KRT_PLX_NoteBase_duration>,
            number(at("", "pos", KRT_PLX_NoteBase_pos, KRT_PLX_MutableNote_move, Need::argument),
                   {smallest, largest - 1}, 0)),
        between(nullptr, spaceBeside<KRT_PLX_NoteBase_pos>,
                number(at("", "duration", KRT_PLX_NoteBase_duration,
                          KRT_PLX_MutableNote_setDuration, Need::argument),
                       {1, largest}, 1)),
        words(at("", "lyric", KRT_PLX_NoteBase_lyric, KRT_PLX_MutableNote_setLyric, Need::argument),
              Texts::notEmpty),
        words(at("", "phoneme", KRT_PLX_NoteBase_phoneme, KRT_PLX_MutableNote_setPhoneme,
                 Need::argument),
              Texts::notEmpty),
        number(at("", "langID", KRT_PLX_NoteBase_langID, KRT_PLX_MutableNote_setLangID), {0, 127},
               KRT_PLX_NO_LANGUAGE),
        flag(at("", "isProtected", KRT_PLX_NoteBase_isProtected, KRT_PLX_MutableNote_setProtected)),
        number(at("", "number", KRT_PLX_NoteBase_number, KRT_PLX_MutableNote_setNumber,
                  Need::required),
               {0, 127}, 0),
        number(at("", "velocity", KRT_PLX_NoteBase_velocity, KRT_PLX_MutableNote_setVelocity,
                  Need::required),
               {0, 127}, 0),

        number(at("exp", "accent", KRT_PLX_NoteBase_accent, KRT_PLX_MutableNote_setAccent),
               {0, 100}, 50),
        number(at("exp", "bendDepth", KRT_PLX_NoteBase_bendDepth, KRT_PLX_MutableNote_setBendDepth),
               {0, 100}, 0),
        number(
            at("exp", "bendLength", KRT_PLX_NoteBase_bendLength, KRT_PLX_MutableNote_setBendLength),
            {0, 100}, 0),
        number(at("exp", "decay", KRT_PLX_NoteBase_decay, KRT_PLX_MutableNote_setDecay), {0, 100},
               50),
        flag(at("exp", "fallPort", KRT_PLX_NoteBase_fallPort, KRT_PLX_MutableNote_setFallPort)),
        flag(at("exp", "risePort", KRT_PLX_NoteBase_risePort, KRT_PLX_MutableNote_setRisePort)),
        number(at("exp", "opening", KRT_PLX_NoteBase_opening, KRT_PLX_MutableNote_setOpening),
               {0, 127}, 127),

        number(
            at("aiExp", "pitchFine", KRT_PLX_NoteBase_pitchFine, KRT_PLX_MutableNote_setPitchFine),
            {0, 1}, 0.5F),
        number(at("aiExp", "pitchDriftStart", KRT_PLX_NoteBase_pitchDriftStart,
                  KRT_PLX_MutableNote_setPitchDriftStart),
               {0, 1}, 0.5F),
        number(at("aiExp", "pitchDriftEnd", KRT_PLX_NoteBase_pitchDriftEnd,
                  KRT_PLX_MutableNote_setPitchDriftEnd),
               {0, 1}, 0.5F),
        number(at("aiExp", "pitchScalingCenter", KRT_PLX_NoteBase_pitchScalingCenter,
                  KRT_PLX_MutableNote_setPitchScalingCenter),
               {0, 1}, 0.5F),
        number(at("aiExp", "pitchScalingOrigin", KRT_PLX_NoteBase_pitchScalingOrigin,
                  KRT_PLX_MutableNote_setPitchScalingOrigin),
               {0, 1}, 0.5F),
        number(at("aiExp", "pitchTransitionStart", KRT_PLX_NoteBase_pitchTransitionStart,
                  KRT_PLX_MutableNote_setPitchTransitionStart),
               {0, 1}, 0.5F),
        number(at("aiExp", "pitchTransitionEnd", KRT_PLX_NoteBase_pitchTransitionEnd,
                  KRT_PLX_MutableNote_setPitchTransitionEnd),
               {0, 1}, 0.5F),
        number(at("aiExp", "amplitudeWhole", KRT_PLX_NoteBase_amplitudeWhole,
                  KRT_PLX_MutableNote_setAmplitudeWhole),
               {0, 1}, 0.5F),
        number(at("aiExp", "amplitudeStart", KRT_PLX_NoteBase_amplitudeStart,
                  KRT_PLX_MutableNote_setAmplitudeStart),
               {0, 1}, 0.5F),
        number(at("aiExp", "amplitudeEnd", KRT_PLX_NoteBase_amplitudeEnd,
                  KRT_PLX_MutableNote_setAmplitudeEnd),
               {0, 1}, 0.5F),
        number(at("aiExp", "formantWhole", KRT_PLX_NoteBase_formantWhole,
                  KRT_PLX_MutableNote_setFormantWhole),
               {0, 1}, 0.5F),
        number(at("aiExp", "formantStart", KRT_PLX_NoteBase_formantStart,
                  KRT_PLX_MutableNote_setFormantStart),
               {0, 1}, 0.5F),
        number(at("aiExp", "formantEnd", KRT_PLX_NoteBase_formantEnd,
                  KRT_PLX_MutableNote_setFormantEnd),
               {0, 1}, 0.5F),
    });
    return list;
}

template <>
const char* objectName<KRT_PLX_SingingSkillBase>()
{
    return "singingSkill";
}

template <>
std::span<const AnyProperty<KRT_PLX_SingingSkillBase>> properties<KRT_PLX_SingingSkillBase>()
{
    static const auto list = std::to_array<AnyProperty<KRT_PLX_SingingSkillBase>>({
        between(nullptr, durationOfNote,
                number(at("", "duration", KRT_PLX_SingingSkillBase_duration,
                          KRT_PLX_MutableSingingSkill_setDuration),
                       {0, largest}, 0)),
        number(at("weight", "pre", KRT_PLX_SingingSkillBase_preWeight,
                  KRT_PLX_MutableSingingSkill_setPreWeight),
               {0, 127}, 64),
        number(at("weight", "post", KRT_PLX_SingingSkillBase_postWeight,
                  KRT_PLX_MutableSingingSkill_setPostWeight),
               {0, 127}, 64),
    });
    return list;
}

template <>
const char* objectName<KRT_PLX_DvqmBase>()
{
    return "dvqm";
}

template <>
std::span<const AnyProperty<KRT_PLX_DvqmBase>> properties<KRT_PLX_DvqmBase>()
{
    static const auto list = std::to_array<AnyProperty<KRT_PLX_DvqmBase>>({
        words(at("", "compID", KRT_PLX_DvqmBase_compID, KRT_PLX_MutableDvqm_setCompID,
                 Need::required),
              Texts::name),
        flag(at("", "isProtected", KRT_PLX_DvqmBase_isProtected, KRT_PLX_MutableDvqm_protect),
             true),
        number(at("", "speed", KRT_PLX_DvqmBase_speed, KRT_PLX_MutableDvqm_setSpeed), {0, 100}, 50),
        number(at("", "topFactor", KRT_PLX_DvqmBase_topFactor, KRT_PLX_MutableDvqm_setTopFactor),
               {0, 2}, 1),
    });
    return list;
}

template <>
const char* objectName<KRT_PLX_VibratoBase>()
{
    return "vibrato";
}

template <>
std::span<const AnyProperty<KRT_PLX_VibratoBase>> properties<KRT_PLX_VibratoBase>()
{
    static const auto list = std::to_array<AnyProperty<KRT_PLX_VibratoBase>>({
        number(at("", "type", KRT_PLX_VibratoBase_type, KRT_PLX_MutableVibrato_setType), {0, 16},
               0),
        between(nullptr, durationOfNote,
                number(at("", "duration", KRT_PLX_VibratoBase_duration,
                          KRT_PLX_MutableVibrato_setDuration),
                       {0, largest}, 0)),
    });
    return list;
}

template <>
const char* objectName<KRT_PLX_VibratoParameterBase>()
{
    return "point";
}

template <>
std::span<const AnyProperty<KRT_PLX_VibratoParameterBase>> properties<
    KRT_PLX_VibratoParameterBase>()
{
    static const auto list = std::to_array<AnyProperty<KRT_PLX_VibratoParameterBase>>({
        between(nullptr, vibratoDuration,
                number(at("", "pos", KRT_PLX_VibratoParameterBase_pos,
                          KRT_PLX_MutableVibratoParameter_move, Need::argument),
                       {0, largest}, 0)),
        number(at("", "value", KRT_PLX_VibratoParameterBase_value,
                  KRT_PLX_MutableVibratoParameter_setValue, Need::argument),
               {0, 127}, 0),
    });
    return list;
}

template <>
const char* objectName<KRT_PLX_MidiEventBase>()
{
    return "event";
}

template <>
std::span<const AnyProperty<KRT_PLX_MidiEventBase>> properties<KRT_PLX_MidiEventBase>()
{
    static const auto list = std::to_array<AnyProperty<KRT_PLX_MidiEventBase>>({
        number(
            at("", "pos", KRT_PLX_MidiEventBase_pos, KRT_PLX_MutableMidiEvent_move, Need::argument),
            {smallest, largest}, 0),
        between([](KRT_PLX_MidiEventBase* event) { return KRT_PLX_MidiEventBase_minValue(event); },
                [](KRT_PLX_MidiEventBase* event) { return KRT_PLX_MidiEventBase_maxValue(event); },
                number(at("", "value", KRT_PLX_MidiEventBase_value,
                          KRT_PLX_MutableMidiEvent_setValue, Need::argument),
                       {smallest, largest}, 0)),
    });
    return list;
}

// One of the three at a time. They have no keys of their own: a document has "value" for all.
template <>
const char* objectName<KRT_PLX_EffectParameterBase>()
{
    return "parameter";
}

template <>
std::span<const AnyProperty<KRT_PLX_EffectParameterBase>> properties<KRT_PLX_EffectParameterBase>()
{
    static const auto list = std::to_array<AnyProperty<KRT_PLX_EffectParameterBase>>({
        number(at("", "valueInt32", KRT_PLX_EffectParameterBase_valueInt32,
                  KRT_PLX_MutableEffectParameter_setValueInt32),
               {smallest, largest}, smallest),
        number(at("", "valueFloat", KRT_PLX_EffectParameterBase_valueFloat,
                  KRT_PLX_MutableEffectParameter_setValueFloat),
               {-infinity, infinity}, std::numeric_limits<float>::min()),
        words(at("", "valueString", KRT_PLX_EffectParameterBase_valueString,
                 KRT_PLX_MutableEffectParameter_setValueString),
              Texts::any),
    });
    return list;
}

} // namespace support
