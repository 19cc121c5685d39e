#include "contract/export_table.h"

namespace contract {

std::vector<Export> effectExports()
{
    return {
        exported("EffectBase_id", &KRT_PLX_EffectBase_id, null),
        exported("EffectBase_numParameters", &KRT_PLX_EffectBase_numParameters, no),
        exported("EffectBase_type", &KRT_PLX_EffectBase_type, 2),
        exported("Effect_parameter", &KRT_PLX_Effect_parameter, null),
        exported("Effect_hasParameter", &KRT_PLX_Effect_hasParameter, no),
        exported("MutableEffect_parameter", &KRT_PLX_MutableEffect_parameter, null),
        exported("MutableEffect_hasParameter", &KRT_PLX_MutableEffect_hasParameter, no),
        exported("MutableEffect_addParameter", &KRT_PLX_MutableEffect_addParameter, null),
        exported("MutableEffect_move", &KRT_PLX_MutableEffect_move, no),
        exported("MutableEffect_remove", &KRT_PLX_MutableEffect_remove, no),
        exported("AudioEffect_parent", &KRT_PLX_AudioEffect_parent, null),
        exported("MidiEffect_parent", &KRT_PLX_MidiEffect_parent, null),
        exported("MutableAudioEffect_parent", &KRT_PLX_MutableAudioEffect_parent, null),
        exported("MutableMidiEffect_parent", &KRT_PLX_MutableMidiEffect_parent, null),
        exported("EffectParameterBase_name", &KRT_PLX_EffectParameterBase_name, null),
        exported("EffectParameterBase_type", &KRT_PLX_EffectParameterBase_type, 4),
        exported("EffectParameterBase_valueFloat", &KRT_PLX_EffectParameterBase_valueFloat, 0),
        exported("EffectParameterBase_valueInt32", &KRT_PLX_EffectParameterBase_valueInt32, 0),
        exported("EffectParameterBase_valueString", &KRT_PLX_EffectParameterBase_valueString, null),
        exported("EffectParameter_parent", &KRT_PLX_EffectParameter_parent, null),
        exported("MutableEffectParameter_parent", &KRT_PLX_MutableEffectParameter_parent, null),
        exported("MutableEffectParameter_remove", &KRT_PLX_MutableEffectParameter_remove, no),
        exported("MutableEffectParameter_setValueFloat",
                 &KRT_PLX_MutableEffectParameter_setValueFloat, no),
        exported("MutableEffectParameter_setValueInt32",
                 &KRT_PLX_MutableEffectParameter_setValueInt32, no),
        exported("MutableEffectParameter_setValueString",
                 &KRT_PLX_MutableEffectParameter_setValueString, no),
    };
}

} // namespace contract
