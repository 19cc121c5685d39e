/* Reading clips of any kind, catalogue clips and editable ones alike. */
#ifndef KIT_READING_H
#define KIT_READING_H

#include "kit.h"

KRT_PLX_Filter* kitFilterOf(Api* plx, KRT_PLX_ClipBase* clip);
KRT_PLX_PartBase* kitPartOf(Api* plx, KRT_PLX_ClipBase* clip);
KRT_PLX_NoteBase* kitNoteAt(Api* plx, KRT_PLX_PartBase* part, uint64_t index);
KRT_PLX_DvqmBase* kitDvqmOf(Api* plx, KRT_PLX_NoteBase* note, bool isAttack);
KRT_PLX_SingingSkillBase* kitSkillOf(Api* plx, KRT_PLX_NoteBase* note);
KRT_PLX_VibratoBase* kitVibratoOf(Api* plx, KRT_PLX_NoteBase* note);
KRT_PLX_VibratoParameterBase* kitPointAt(Api* plx, KRT_PLX_VibratoBase* vibrato, uint32_t kind,
                                         uint64_t index);
KRT_PLX_MidiControllerBase* kitLaneOf(Api* plx, KRT_PLX_PartBase* part, uint32_t type);
KRT_PLX_MidiEventBase* kitEventAt(Api* plx, KRT_PLX_MidiControllerBase* lane, uint64_t index);
KRT_PLX_EffectParameterBase* kitParameterAt(Api* plx, KRT_PLX_EffectBase* effect, uint64_t index);

/* One of the two chains of a part; that of an audio part is the one of audio effects. */
typedef struct KitChain {
    KRT_PLX_PartBase* part;
    uint32_t kind; /* KRT_PLX_EffectKind */
} KitChain;
uint64_t kitCountEffects(Api* plx, KitChain chain);
uint64_t kitCountParameters(Api* plx, KRT_PLX_EffectBase* effect);
KRT_PLX_EffectBase* kitEffectAt(Api* plx, KitChain chain, uint64_t index);

/* What a notice of an effect is about. */
uint32_t kitItemOfEffect(uint32_t kind);

#endif
