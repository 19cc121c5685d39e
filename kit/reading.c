#include "reading.h"

/* Each function below asks for one kind and then for the other: an object of the wrong kind gives
   null. */

KRT_PLX_Filter* kitFilterOf(Api* plx, KRT_PLX_ClipBase* clip)
{
    KRT_PLX_Filter* filter = plx->KRT_PLX_Clip_filter(clip);
    return filter != NULL ? filter : plx->KRT_PLX_MutableClip_filter(clip);
}

KRT_PLX_PartBase* kitPartOf(Api* plx, KRT_PLX_ClipBase* clip)
{
    KRT_PLX_PartBase* part = plx->KRT_PLX_Clip_midiPart(clip);
    part = part != NULL ? part : plx->KRT_PLX_Clip_audioPart(clip);
    part = part != NULL ? part : plx->KRT_PLX_MutableClip_midiPart(clip);
    return part != NULL ? part : plx->KRT_PLX_MutableClip_audioPart(clip);
}

KRT_PLX_NoteBase* kitNoteAt(Api* plx, KRT_PLX_PartBase* part, uint64_t index)
{
    KRT_PLX_NoteBase* note = plx->KRT_PLX_MidiPart_note(part, index);
    return note != NULL ? note : plx->KRT_PLX_MutableMidiPart_note(part, index);
}

KRT_PLX_DvqmBase* kitDvqmOf(Api* plx, KRT_PLX_NoteBase* note, bool isAttack)
{
    KRT_PLX_DvqmBase* dvqm = plx->KRT_PLX_Note_dvqm(note, isAttack);
    return dvqm != NULL ? dvqm : plx->KRT_PLX_MutableNote_dvqm(note, isAttack);
}

KRT_PLX_SingingSkillBase* kitSkillOf(Api* plx, KRT_PLX_NoteBase* note)
{
    KRT_PLX_SingingSkillBase* skill = plx->KRT_PLX_Note_singingSkill(note);
    return skill != NULL ? skill : plx->KRT_PLX_MutableNote_singingSkill(note);
}

KRT_PLX_VibratoBase* kitVibratoOf(Api* plx, KRT_PLX_NoteBase* note)
{
    KRT_PLX_VibratoBase* vibrato = plx->KRT_PLX_Note_vibrato(note);
    return vibrato != NULL ? vibrato : plx->KRT_PLX_MutableNote_vibrato(note);
}

KRT_PLX_VibratoParameterBase* kitPointAt(Api* plx, KRT_PLX_VibratoBase* vibrato, uint32_t kind,
                                         uint64_t index)
{
    KRT_PLX_VibratoParameterBase* point = plx->KRT_PLX_Vibrato_parameter(vibrato, kind, index);
    return point != NULL ? point : plx->KRT_PLX_MutableVibrato_parameter(vibrato, kind, index);
}

KRT_PLX_MidiControllerBase* kitLaneOf(Api* plx, KRT_PLX_PartBase* part, uint32_t type)
{
    KRT_PLX_MidiControllerBase* lane = plx->KRT_PLX_MidiPart_midiController(part, type);
    return lane != NULL ? lane : plx->KRT_PLX_MutableMidiPart_midiController(part, type);
}

KRT_PLX_MidiEventBase* kitEventAt(Api* plx, KRT_PLX_MidiControllerBase* lane, uint64_t index)
{
    KRT_PLX_MidiEventBase* event = plx->KRT_PLX_MidiController_event(lane, index);
    return event != NULL ? event : plx->KRT_PLX_MutableMidiController_event(lane, index);
}

KRT_PLX_EffectParameterBase* kitParameterAt(Api* plx, KRT_PLX_EffectBase* effect, uint64_t index)
{
    KRT_PLX_EffectParameterBase* parameter = plx->KRT_PLX_Effect_parameter(effect, index);
    return parameter != NULL ? parameter : plx->KRT_PLX_MutableEffect_parameter(effect, index);
}

uint64_t kitCountEffects(Api* plx, KitChain chain)
{
    uint64_t count = 0;
    if (chain.kind == KRT_PLX_EFFECT_MIDI) {
        plx->KRT_PLX_MidiPartBase_numMidiEffects(chain.part, &count);
    } else if (!plx->KRT_PLX_MidiPartBase_numAudioEffects(chain.part, &count)) {
        plx->KRT_PLX_AudioPartBase_numAudioEffects(chain.part, &count);
    }
    return count;
}

uint64_t kitCountParameters(Api* plx, KRT_PLX_EffectBase* effect)
{
    uint64_t count = 0;
    plx->KRT_PLX_EffectBase_numParameters(effect, &count);
    return count;
}

KRT_PLX_EffectBase* kitEffectAt(Api* plx, KitChain chain, uint64_t index)
{
    if (chain.kind == KRT_PLX_EFFECT_MIDI) {
        KRT_PLX_EffectBase* effect = plx->KRT_PLX_MidiPart_midiEffect(chain.part, index);
        return effect != NULL ? effect : plx->KRT_PLX_MutableMidiPart_midiEffect(chain.part, index);
    }
    KRT_PLX_EffectBase* effect = plx->KRT_PLX_MidiPart_audioEffect(chain.part, index);
    effect = effect != NULL ? effect : plx->KRT_PLX_MutableMidiPart_audioEffect(chain.part, index);
    effect = effect != NULL ? effect : plx->KRT_PLX_AudioPart_audioEffect(chain.part, index);
    return effect != NULL ? effect : plx->KRT_PLX_MutableAudioPart_audioEffect(chain.part, index);
}

uint32_t kitItemOfEffect(uint32_t kind)
{
    return kind == KRT_PLX_EFFECT_MIDI ? KRT_PLX_KIT_MIDI_EFFECT : KRT_PLX_KIT_AUDIO_EFFECT;
}
