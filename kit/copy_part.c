#include "copying.h"

static void copyEvents(const KitCopy* copy, KRT_PLX_MidiControllerBase* source,
                       KRT_PLX_MidiControllerBase* target)
{
    Api* plx = copy->plx;
    const uint64_t count = kitCountEvents(plx, source);
    for (uint64_t i = 0; i < count; ++i) {
        KRT_PLX_MidiEventBase* event = kitEventAt(plx, source, i);
        const int32_t pos = plx->KRT_PLX_MidiEventBase_pos(event);
        if (plx->KRT_PLX_MutableMidiController_insertEvent(
                target, pos, plx->KRT_PLX_MidiEventBase_value(event)) == NULL) {
            kitTellInner(&copy->place, "events", KRT_PLX_KIT_REFUSED, i, pos);
        }
    }
}

void kitCopyLanes(const KitCopy* copy, KRT_PLX_PartBase* source, KRT_PLX_PartBase* target)
{
    Api* plx = copy->plx;
    for (uint32_t type = 0; type < KRT_PLX_CONTROLLER_NONE; ++type) {
        KRT_PLX_MidiControllerBase* lane = kitLaneOf(plx, source, type);
        const KitCopy inner = {plx, {copy->place.report, KRT_PLX_KIT_LANE, type, 0}};
        if (lane == NULL) {
            continue;
        }
        KRT_PLX_MidiControllerBase* added =
            plx->KRT_PLX_MutableMidiPart_addMidiController(target, type);
        if (added == NULL) {
            kitTellOf(&inner.place, "", KRT_PLX_KIT_REFUSED);
        } else {
            copyEvents(&inner, lane, added);
        }
    }
}

static bool copyValue(Api* plx, KRT_PLX_EffectParameterBase* source,
                      KRT_PLX_EffectParameterBase* target)
{
    switch (plx->KRT_PLX_EffectParameterBase_type(source)) {
    case KRT_PLX_VALUE_INT32:
        return plx->KRT_PLX_MutableEffectParameter_setValueInt32(
            target, plx->KRT_PLX_EffectParameterBase_valueInt32(source));
    case KRT_PLX_VALUE_FLOAT:
        return plx->KRT_PLX_MutableEffectParameter_setValueFloat(
            target, plx->KRT_PLX_EffectParameterBase_valueFloat(source));
    case KRT_PLX_VALUE_STRING:
        return plx->KRT_PLX_MutableEffectParameter_setValueString(
            target, plx->KRT_PLX_EffectParameterBase_valueString(source));
    default:
        return true;
    }
}

/* An effect that was read may have two parameters of one name, of which the first is copied. */
static void copyParameter(const KitCopy* copy, KRT_PLX_EffectParameterBase* source,
                          KRT_PLX_EffectBase* target, uint64_t index)
{
    Api* plx = copy->plx;
    const uint64_t before = kitCountParameters(plx, target);
    KRT_PLX_EffectParameterBase* added = plx->KRT_PLX_MutableEffect_addParameter(
        target, plx->KRT_PLX_EffectParameterBase_name(source));
    if (added != NULL && kitCountParameters(plx, target) == before) {
        kitTellInner(&copy->place, "parameters", KRT_PLX_KIT_REPEATED, index, 0);
    } else if (added == NULL || !copyValue(plx, source, added)) {
        kitTellInner(&copy->place, "parameters", KRT_PLX_KIT_REFUSED, index, 0);
    }
}

static void copyParameters(const KitCopy* copy, KRT_PLX_EffectBase* source,
                           KRT_PLX_EffectBase* target)
{
    const uint64_t count = kitCountParameters(copy->plx, source);
    for (uint64_t i = 0; i < count; ++i) {
        copyParameter(copy, kitParameterAt(copy->plx, source, i), target, i);
    }
}

static KRT_PLX_EffectBase* append(Api* plx, KitChain chain, const KRT_PLX_Char* id)
{
    if (chain.kind == KRT_PLX_EFFECT_MIDI) {
        return plx->KRT_PLX_MutableMidiPart_insertMidiEffect(chain.part, UINT64_MAX, id);
    }
    KRT_PLX_EffectBase* effect =
        plx->KRT_PLX_MutableMidiPart_insertAudioEffect(chain.part, UINT64_MAX, id);
    return effect != NULL
               ? effect
               : plx->KRT_PLX_MutableAudioPart_insertAudioEffect(chain.part, UINT64_MAX, id);
}

void kitCopyEffects(const KitCopy* copy, KitChain source, KitChain target)
{
    Api* plx = copy->plx;
    const uint64_t count = kitCountEffects(plx, source);
    for (uint64_t i = 0; i < count; ++i) {
        const KitCopy inner = {plx, {copy->place.report, kitItemOfEffect(source.kind), i, 0}};
        KRT_PLX_EffectBase* effect = kitEffectAt(plx, source, i);
        KRT_PLX_EffectBase* added = append(plx, target, plx->KRT_PLX_EffectBase_id(effect));
        if (added == NULL) {
            kitTellOf(&inner.place, "", KRT_PLX_KIT_REFUSED);
        } else {
            copyParameters(&inner, effect, added);
        }
    }
}
