#include "effect_view.h"

#include <stdio.h>

#include "display.h"
#include "text.h"

static void append_value(Text* text, KRT_PLX_EffectParameterBase* parameter)
{
    switch (KRT_PLX_EffectParameterBase_type(parameter)) {
    case KRT_PLX_VALUE_INT32:
        text_append_format(text, "%d", (int)KRT_PLX_EffectParameterBase_valueInt32(parameter));
        break;
    case KRT_PLX_VALUE_FLOAT:
        text_append_format(text, "%g", (double)KRT_PLX_EffectParameterBase_valueFloat(parameter));
        break;
    case KRT_PLX_VALUE_STRING:
        text_append_printable(text, KRT_PLX_EffectParameterBase_valueString(parameter));
        break;
    default:
        text_append(text, "unset");
        break;
    }
}

static void append_parameters(Text* text, KRT_PLX_EffectBase* effect)
{
    uint64_t count = 0;
    KRT_PLX_EffectBase_numParameters(effect, &count);
    for (uint64_t i = 0; i < count; ++i) {
        KRT_PLX_EffectParameterBase* parameter = KRT_PLX_Effect_parameter(effect, i);
        text_append(text, i == 0 ? ": " : ", ");
        text_append_printable(text, KRT_PLX_EffectParameterBase_name(parameter));
        text_append(text, " ");
        append_value(text, parameter);
    }
}

void print_effects(const char* kind, KRT_PLX_PartBase* part, CountEffects count_effects,
                   EffectAt effect_at, int width)
{
    uint64_t count = 0;
    count_effects(part, &count);
    for (uint64_t i = 0; i < count; ++i) {
        Text text = {0};
        KRT_PLX_EffectBase* effect = effect_at(part, i);
        text_append_printable(&text, KRT_PLX_EffectBase_id(effect));
        append_parameters(&text, effect);
        print_entry(i == 0 ? kind : "", text_bytes(&text), width);
        text_free(&text);
    }
}
