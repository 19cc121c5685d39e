// The setters that stand beside a getter, and the values that each of them takes: the simple model.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <string_view>

#include <korvel/plx.h>

namespace fuzz {

template <class Handle, class Value>
struct Property {
    bool (*set)(Handle*, Value);
    Value (*get)(Handle*);
    bool (*accepts)(Handle*, Value);
};

template <class Handle, class Value>
inline constexpr std::array<Property<Handle, Value>, 0> properties{};

template <class Handle, std::uint32_t Largest>
constexpr bool upTo(Handle*, std::uint32_t value)
{
    return value <= Largest;
}

template <class Handle, class Value>
constexpr bool all(Handle*, Value)
{
    return true;
}

template <class Handle>
constexpr bool isNotEmpty(Handle*, const KRT_PLX_Char* text)
{
    return text != nullptr && *text != 0;
}

// --- Clips and parts ------------------------------------------------------------------------------------

template <>
inline constexpr auto properties<KRT_PLX_ClipBase, std::uint32_t> =
    std::to_array<Property<KRT_PLX_ClipBase, std::uint32_t>>(
        {{KRT_PLX_MutableClip_setPartKey, KRT_PLX_ClipBase_partKey, upTo<KRT_PLX_ClipBase, 30>},
         {KRT_PLX_MutableClip_setPartTempo, KRT_PLX_ClipBase_partTempo,
          [](KRT_PLX_ClipBase*, std::uint32_t value) {
              return value == 0 || (value >= 2000 && value <= 30000);
          }}});

template <>
inline constexpr auto properties<KRT_PLX_ClipBase, const KRT_PLX_Char*> =
    std::to_array<Property<KRT_PLX_ClipBase, const KRT_PLX_Char*>>(
        {{KRT_PLX_MutableClip_setVendorName, KRT_PLX_ClipBase_vendorName, all}});

template <>
inline constexpr auto properties<KRT_PLX_PartBase, std::uint32_t> =
    std::to_array<Property<KRT_PLX_PartBase, std::uint32_t>>({{KRT_PLX_MutableMidiPart_setLangID,
                                                               KRT_PLX_MidiPartBase_langID,
                                                               upTo<KRT_PLX_PartBase, 127>}});

template <>
inline constexpr auto properties<KRT_PLX_PartBase, std::int32_t> =
    std::to_array<Property<KRT_PLX_PartBase, std::int32_t>>(
        {{KRT_PLX_MutableMidiPart_setDuration, KRT_PLX_MidiPartBase_duration,
          [](KRT_PLX_PartBase*, std::int32_t value) { return value >= 1; }}});

template <std::size_t... Lengths>
bool hasLength(KRT_PLX_PartBase*, const KRT_PLX_Char* text)
{
    if (text == nullptr) {
        return false;
    }
    const std::size_t length = std::basic_string_view<KRT_PLX_Char>(text).size();
    return ((length == Lengths) || ...);
}

template <>
inline constexpr auto properties<KRT_PLX_PartBase, const KRT_PLX_Char*> =
    std::to_array<Property<KRT_PLX_PartBase, const KRT_PLX_Char*>>(
        {{KRT_PLX_MutableMidiPart_setStyleName, KRT_PLX_MidiPartBase_styleName, all},
         {KRT_PLX_MutableMidiPart_setStylePresetID, KRT_PLX_MidiPartBase_stylePresetID, all},
         {KRT_PLX_MutableMidiPart_setVoiceBankID, KRT_PLX_MidiPartBase_voiceBankID, hasLength<16>},
         {KRT_PLX_MutableMidiPart_setAiVoiceBankID, KRT_PLX_MidiPartBase_aiVoiceBankID,
          hasLength<0, 16>}});

template <>
inline constexpr auto properties<KRT_PLX_MidiEventBase, std::int32_t> =
    std::to_array<Property<KRT_PLX_MidiEventBase, std::int32_t>>(
        {{KRT_PLX_MutableMidiEvent_move, KRT_PLX_MidiEventBase_pos, all},
         {KRT_PLX_MutableMidiEvent_setValue, KRT_PLX_MidiEventBase_value,
          [](KRT_PLX_MidiEventBase* event, std::int32_t value) {
              return value >= KRT_PLX_MidiEventBase_minValue(event) &&
                     value <= KRT_PLX_MidiEventBase_maxValue(event);
          }}});

template <>
inline constexpr auto properties<KRT_PLX_EffectParameterBase, std::int32_t> =
    std::to_array<Property<KRT_PLX_EffectParameterBase, std::int32_t>>(
        {{KRT_PLX_MutableEffectParameter_setValueInt32, KRT_PLX_EffectParameterBase_valueInt32,
          all}});

template <>
inline constexpr auto properties<KRT_PLX_EffectParameterBase, float> =
    std::to_array<Property<KRT_PLX_EffectParameterBase, float>>(
        {{KRT_PLX_MutableEffectParameter_setValueFloat, KRT_PLX_EffectParameterBase_valueFloat,
          all}});

template <>
inline constexpr auto properties<KRT_PLX_EffectParameterBase, const KRT_PLX_Char*> =
    std::to_array<Property<KRT_PLX_EffectParameterBase, const KRT_PLX_Char*>>(
        {{KRT_PLX_MutableEffectParameter_setValueString, KRT_PLX_EffectParameterBase_valueString,
          all}});

// --- Notes ----------------------------------------------------------------------------------------------

template <>
inline constexpr auto properties<KRT_PLX_NoteBase, std::uint32_t> =
    std::to_array<Property<KRT_PLX_NoteBase, std::uint32_t>>(
        {{KRT_PLX_MutableNote_setLangID, KRT_PLX_NoteBase_langID, upTo<KRT_PLX_NoteBase, 127>},
         {KRT_PLX_MutableNote_setNumber, KRT_PLX_NoteBase_number, upTo<KRT_PLX_NoteBase, 127>},
         {KRT_PLX_MutableNote_setVelocity, KRT_PLX_NoteBase_velocity, upTo<KRT_PLX_NoteBase, 127>},
         {KRT_PLX_MutableNote_setOpening, KRT_PLX_NoteBase_opening, upTo<KRT_PLX_NoteBase, 127>},
         {KRT_PLX_MutableNote_setAccent, KRT_PLX_NoteBase_accent, upTo<KRT_PLX_NoteBase, 100>},
         {KRT_PLX_MutableNote_setBendDepth, KRT_PLX_NoteBase_bendDepth,
          upTo<KRT_PLX_NoteBase, 100>},
         {KRT_PLX_MutableNote_setBendLength, KRT_PLX_NoteBase_bendLength,
          upTo<KRT_PLX_NoteBase, 100>},
         {KRT_PLX_MutableNote_setDecay, KRT_PLX_NoteBase_decay, upTo<KRT_PLX_NoteBase, 100>}});

// A position plus a duration may reach, and not pass, the largest number. No note starts there.
template <std::int32_t (*Other)(KRT_PLX_NoteBase*)>
bool fits(KRT_PLX_NoteBase* note, std::int32_t value)
{
    return std::int64_t{value} + Other(note) <= std::numeric_limits<std::int32_t>::max();
}

template <>
inline constexpr auto properties<KRT_PLX_NoteBase, std::int32_t> =
    std::to_array<Property<KRT_PLX_NoteBase, std::int32_t>>(
        {{KRT_PLX_MutableNote_move, KRT_PLX_NoteBase_pos, fits<KRT_PLX_NoteBase_duration>},
         {KRT_PLX_MutableNote_setDuration, KRT_PLX_NoteBase_duration,
          [](KRT_PLX_NoteBase* note, std::int32_t value) {
              return value >= 1 && fits<KRT_PLX_NoteBase_pos>(note, value);
          }}});

template <>
inline constexpr auto properties<KRT_PLX_NoteBase, const KRT_PLX_Char*> =
    std::to_array<Property<KRT_PLX_NoteBase, const KRT_PLX_Char*>>(
        {{KRT_PLX_MutableNote_setLyric, KRT_PLX_NoteBase_lyric, isNotEmpty},
         {KRT_PLX_MutableNote_setPhoneme, KRT_PLX_NoteBase_phoneme, isNotEmpty}});

template <>
inline constexpr auto properties<KRT_PLX_NoteBase, bool> =
    std::to_array<Property<KRT_PLX_NoteBase, bool>>(
        {{KRT_PLX_MutableNote_setProtected, KRT_PLX_NoteBase_isProtected, all},
         {KRT_PLX_MutableNote_setFallPort, KRT_PLX_NoteBase_fallPort, all},
         {KRT_PLX_MutableNote_setRisePort, KRT_PLX_NoteBase_risePort, all}});

// A NaN is no value outside the range.
constexpr bool upToOne(KRT_PLX_NoteBase*, float value)
{
    return !(value < 0.0F) && !(value > 1.0F);
}

template <>
inline constexpr auto properties<KRT_PLX_NoteBase, float> =
    std::to_array<Property<KRT_PLX_NoteBase, float>>(
        {{KRT_PLX_MutableNote_setPitchFine, KRT_PLX_NoteBase_pitchFine, upToOne},
         {KRT_PLX_MutableNote_setPitchDriftStart, KRT_PLX_NoteBase_pitchDriftStart, upToOne},
         {KRT_PLX_MutableNote_setPitchDriftEnd, KRT_PLX_NoteBase_pitchDriftEnd, upToOne},
         {KRT_PLX_MutableNote_setPitchScalingCenter, KRT_PLX_NoteBase_pitchScalingCenter, upToOne},
         {KRT_PLX_MutableNote_setPitchScalingOrigin, KRT_PLX_NoteBase_pitchScalingOrigin, upToOne},
         {KRT_PLX_MutableNote_setPitchTransitionStart, KRT_PLX_NoteBase_pitchTransitionStart,
          upToOne},
         {KRT_PLX_MutableNote_setPitchTransitionEnd, KRT_PLX_NoteBase_pitchTransitionEnd, upToOne},
         {KRT_PLX_MutableNote_setAmplitudeWhole, KRT_PLX_NoteBase_amplitudeWhole, upToOne},
         {KRT_PLX_MutableNote_setAmplitudeStart, KRT_PLX_NoteBase_amplitudeStart, upToOne},
         {KRT_PLX_MutableNote_setAmplitudeEnd, KRT_PLX_NoteBase_amplitudeEnd, upToOne},
         {KRT_PLX_MutableNote_setFormantWhole, KRT_PLX_NoteBase_formantWhole, upToOne},
         {KRT_PLX_MutableNote_setFormantStart, KRT_PLX_NoteBase_formantStart, upToOne},
         {KRT_PLX_MutableNote_setFormantEnd, KRT_PLX_NoteBase_formantEnd, upToOne}});

// --- Expressions ----------------------------------------------------------------------------------------

template <>
inline constexpr auto properties<KRT_PLX_DvqmBase, const KRT_PLX_Char*> =
    std::to_array<Property<KRT_PLX_DvqmBase, const KRT_PLX_Char*>>(
        {{KRT_PLX_MutableDvqm_setCompID, KRT_PLX_DvqmBase_compID, all}});

template <>
inline constexpr auto properties<KRT_PLX_DvqmBase, std::uint32_t> =
    std::to_array<Property<KRT_PLX_DvqmBase, std::uint32_t>>(
        {{KRT_PLX_MutableDvqm_setSpeed, KRT_PLX_DvqmBase_speed, upTo<KRT_PLX_DvqmBase, 100>}});

template <>
inline constexpr auto properties<KRT_PLX_DvqmBase, float> =
    std::to_array<Property<KRT_PLX_DvqmBase, float>>(
        {{KRT_PLX_MutableDvqm_setTopFactor, KRT_PLX_DvqmBase_topFactor,
          [](KRT_PLX_DvqmBase*, float value) { return !(value < 0.0F) && !(value > 2.0F); }}});

template <>
inline constexpr auto properties<KRT_PLX_SingingSkillBase, std::uint32_t> =
    std::to_array<Property<KRT_PLX_SingingSkillBase, std::uint32_t>>(
        {{KRT_PLX_MutableSingingSkill_setPreWeight, KRT_PLX_SingingSkillBase_preWeight,
          upTo<KRT_PLX_SingingSkillBase, 127>},
         {KRT_PLX_MutableSingingSkill_setPostWeight, KRT_PLX_SingingSkillBase_postWeight,
          upTo<KRT_PLX_SingingSkillBase, 127>}});

template <class Handle, KRT_PLX_NoteBase* (*Parent)(Handle*)>
bool liesWithinNote(Handle* handle, std::int32_t duration)
{
    return duration >= 0 && duration <= KRT_PLX_NoteBase_duration(Parent(handle));
}

template <>
inline constexpr auto properties<KRT_PLX_SingingSkillBase, std::int32_t> =
    std::to_array<Property<KRT_PLX_SingingSkillBase, std::int32_t>>(
        {{KRT_PLX_MutableSingingSkill_setDuration, KRT_PLX_SingingSkillBase_duration,
          liesWithinNote<KRT_PLX_SingingSkillBase, KRT_PLX_MutableSingingSkill_parent>}});

template <>
inline constexpr auto properties<KRT_PLX_VibratoBase, std::uint32_t> =
    std::to_array<Property<KRT_PLX_VibratoBase, std::uint32_t>>({{KRT_PLX_MutableVibrato_setType,
                                                                  KRT_PLX_VibratoBase_type,
                                                                  upTo<KRT_PLX_VibratoBase, 16>}});

template <>
inline constexpr auto properties<KRT_PLX_VibratoBase, std::int32_t> =
    std::to_array<Property<KRT_PLX_VibratoBase, std::int32_t>>(
        {{KRT_PLX_MutableVibrato_setDuration, KRT_PLX_VibratoBase_duration,
          liesWithinNote<KRT_PLX_VibratoBase, KRT_PLX_MutableVibrato_parent>}});

template <>
inline constexpr auto properties<KRT_PLX_VibratoParameterBase, std::uint32_t> =
    std::to_array<Property<KRT_PLX_VibratoParameterBase, std::uint32_t>>(
        {{KRT_PLX_MutableVibratoParameter_setValue, KRT_PLX_VibratoParameterBase_value,
          upTo<KRT_PLX_VibratoParameterBase, 127>}});

template <>
inline constexpr auto properties<KRT_PLX_VibratoParameterBase, std::int32_t> =
    std::to_array<Property<KRT_PLX_VibratoParameterBase, std::int32_t>>(
        {{KRT_PLX_MutableVibratoParameter_move, KRT_PLX_VibratoParameterBase_pos,
          [](KRT_PLX_VibratoParameterBase* point, std::int32_t pos) {
              KRT_PLX_VibratoBase* const parent = KRT_PLX_MutableVibratoParameter_parent(point);
              return pos >= 0 && pos <= KRT_PLX_VibratoBase_duration(parent);
          }}});

} // namespace fuzz
