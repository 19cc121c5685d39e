// What the walk calls: the ways from an object to its children and back, of read-only and of editable
// objects. Only walk.cpp needs it.
#pragma once

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

} // namespace fuzz
