// What the walk calls: the ways from an object to its children and back, of read-only and of editable
// objects, and the tables of like values. Only walk.cpp needs it.
#pragma once

#include <array>

#include "walk.h"

namespace fuzz {

struct Walk::ReadOnly {
    static constexpr bool isMutable = false;
    static constexpr auto filter = KRT_PLX_Clip_filter;
    static constexpr auto audioPart = KRT_PLX_Clip_audioPart;
    static constexpr auto midiPart = KRT_PLX_Clip_midiPart;
    static constexpr auto audioPartEffect = KRT_PLX_AudioPart_audioEffect;
    static constexpr auto hasAudioPartEffect = KRT_PLX_AudioPart_hasAudioEffect;
    static constexpr auto audioEffect = KRT_PLX_MidiPart_audioEffect;
    static constexpr auto hasAudioEffect = KRT_PLX_MidiPart_hasAudioEffect;
    static constexpr auto midiEffect = KRT_PLX_MidiPart_midiEffect;
    static constexpr auto hasMidiEffect = KRT_PLX_MidiPart_hasMidiEffect;
    static constexpr auto audioEffectParent = KRT_PLX_AudioEffect_parent;
    static constexpr auto midiEffectParent = KRT_PLX_MidiEffect_parent;
    static constexpr auto parameter = KRT_PLX_Effect_parameter;
    static constexpr auto hasParameter = KRT_PLX_Effect_hasParameter;
    static constexpr auto parameterParent = KRT_PLX_EffectParameter_parent;
    static constexpr auto note = KRT_PLX_MidiPart_note;
    static constexpr auto hasNote = KRT_PLX_MidiPart_hasNote;
    static constexpr auto noteParent = KRT_PLX_Note_parent;
    static constexpr auto dvqm = KRT_PLX_Note_dvqm;
    static constexpr auto dvqmParent = KRT_PLX_Dvqm_parent;
    static constexpr auto singingSkill = KRT_PLX_Note_singingSkill;
    static constexpr auto skillParent = KRT_PLX_SingingSkill_parent;
    static constexpr auto vibrato = KRT_PLX_Note_vibrato;
    static constexpr auto vibratoParent = KRT_PLX_Vibrato_parent;
    static constexpr auto point = KRT_PLX_Vibrato_parameter;
    static constexpr auto hasPoint = KRT_PLX_Vibrato_hasParameter;
    static constexpr auto pointParent = KRT_PLX_VibratoParameter_parent;
    static constexpr auto lane = KRT_PLX_MidiPart_midiController;
    static constexpr auto hasLane = KRT_PLX_MidiPart_hasMidiController;
    static constexpr auto laneParent = KRT_PLX_MidiController_parent;
    static constexpr auto event = KRT_PLX_MidiController_event;
    static constexpr auto eventParent = KRT_PLX_MidiEvent_parent;
};

struct Walk::Editable {
    static constexpr bool isMutable = true;
    static constexpr auto filter = KRT_PLX_MutableClip_filter;
    static constexpr auto audioPart = KRT_PLX_MutableClip_audioPart;
    static constexpr auto midiPart = KRT_PLX_MutableClip_midiPart;
    static constexpr auto audioPartEffect = KRT_PLX_MutableAudioPart_audioEffect;
    static constexpr auto hasAudioPartEffect = KRT_PLX_MutableAudioPart_hasAudioEffect;
    static constexpr auto audioEffect = KRT_PLX_MutableMidiPart_audioEffect;
    static constexpr auto hasAudioEffect = KRT_PLX_MutableMidiPart_hasAudioEffect;
    static constexpr auto midiEffect = KRT_PLX_MutableMidiPart_midiEffect;
    static constexpr auto hasMidiEffect = KRT_PLX_MutableMidiPart_hasMidiEffect;
    static constexpr auto audioEffectParent = KRT_PLX_MutableAudioEffect_parent;
    static constexpr auto midiEffectParent = KRT_PLX_MutableMidiEffect_parent;
    static constexpr auto parameter = KRT_PLX_MutableEffect_parameter;
    static constexpr auto hasParameter = KRT_PLX_MutableEffect_hasParameter;
    static constexpr auto parameterParent = KRT_PLX_MutableEffectParameter_parent;
    static constexpr auto note = KRT_PLX_MutableMidiPart_note;
    static constexpr auto hasNote = KRT_PLX_MutableMidiPart_hasNote;
    static constexpr auto noteParent = KRT_PLX_MutableNote_parent;
    static constexpr auto dvqm = KRT_PLX_MutableNote_dvqm;
    static constexpr auto dvqmParent = KRT_PLX_MutableDvqm_parent;
    static constexpr auto singingSkill = KRT_PLX_MutableNote_singingSkill;
    static constexpr auto skillParent = KRT_PLX_MutableSingingSkill_parent;
    static constexpr auto vibrato = KRT_PLX_MutableNote_vibrato;
    static constexpr auto vibratoParent = KRT_PLX_MutableVibrato_parent;
    static constexpr auto point = KRT_PLX_MutableVibrato_parameter;
    static constexpr auto hasPoint = KRT_PLX_MutableVibrato_hasParameter;
    static constexpr auto pointParent = KRT_PLX_MutableVibratoParameter_parent;
    static constexpr auto lane = KRT_PLX_MutableMidiPart_midiController;
    static constexpr auto hasLane = KRT_PLX_MutableMidiPart_hasMidiController;
    static constexpr auto laneParent = KRT_PLX_MutableMidiController_parent;
    static constexpr auto event = KRT_PLX_MutableMidiController_event;
    static constexpr auto eventParent = KRT_PLX_MutableMidiEvent_parent;
};

struct TagList {
    bool (*count)(KRT_PLX_Filter*, std::uint64_t*);
    const KRT_PLX_Char* (*at)(KRT_PLX_Filter*, std::uint64_t);
    bool mayBeEmpty = false;
};
inline constexpr std::array<TagList, 5> tagLists = {
    {{KRT_PLX_Filter_numSingerGroups, KRT_PLX_Filter_singerGroup},
     {KRT_PLX_Filter_numVendors, KRT_PLX_Filter_vendor, true},
     {KRT_PLX_Filter_numSingerIDs, KRT_PLX_Filter_singerID},
     {KRT_PLX_Filter_numTypes, KRT_PLX_Filter_type},
     {KRT_PLX_Filter_numGenres, KRT_PLX_Filter_genre}}};

struct NoteNumber {
    std::uint32_t (*get)(KRT_PLX_NoteBase*);
    std::uint32_t largest;
};
inline constexpr std::array<NoteNumber, 7> noteNumbers = {{{KRT_PLX_NoteBase_number, 127},
                                                           {KRT_PLX_NoteBase_velocity, 127},
                                                           {KRT_PLX_NoteBase_accent, 100},
                                                           {KRT_PLX_NoteBase_bendDepth, 100},
                                                           {KRT_PLX_NoteBase_bendLength, 100},
                                                           {KRT_PLX_NoteBase_decay, 100},
                                                           {KRT_PLX_NoteBase_opening, 127}}};

inline constexpr std::array<bool (*)(KRT_PLX_NoteBase*), 3> noteFlags = {
    KRT_PLX_NoteBase_isProtected, KRT_PLX_NoteBase_fallPort, KRT_PLX_NoteBase_risePort};

inline constexpr std::array<float (*)(KRT_PLX_NoteBase*), 13> noteFloats = {
    KRT_PLX_NoteBase_pitchFine,          KRT_PLX_NoteBase_pitchDriftStart,
    KRT_PLX_NoteBase_pitchDriftEnd,      KRT_PLX_NoteBase_pitchScalingCenter,
    KRT_PLX_NoteBase_pitchScalingOrigin, KRT_PLX_NoteBase_pitchTransitionStart,
    KRT_PLX_NoteBase_pitchTransitionEnd, KRT_PLX_NoteBase_amplitudeWhole,
    KRT_PLX_NoteBase_amplitudeStart,     KRT_PLX_NoteBase_amplitudeEnd,
    KRT_PLX_NoteBase_formantWhole,       KRT_PLX_NoteBase_formantStart,
    KRT_PLX_NoteBase_formantEnd};

} // namespace fuzz
