#include "korvel/plx/effect.h"

#include "manager/exports/guard.h"

using namespace Korvel::CANTORIS::PLX;
using namespace Korvel::CANTORIS::PLX::exports;

// EffectBase

const KRT_PLX_Char* KRT_PLX_EffectBase_id(KRT_PLX_EffectBase* effect) KRT_PLX_NOEXCEPT
{
    return call<&EffectBase::id>(effect, nullptr);
}

bool KRT_PLX_EffectBase_numParameters(KRT_PLX_EffectBase* effect, uint64_t* count) KRT_PLX_NOEXCEPT
{
    return countOf<&EffectBase::numParameters>(effect, count);
}

uint32_t KRT_PLX_EffectBase_type(KRT_PLX_EffectBase* effect) KRT_PLX_NOEXCEPT
{
    return call<&EffectBase::type>(effect, KRT_PLX_EFFECT_NONE);
}

// Effect

KRT_PLX_EffectParameterBase* KRT_PLX_Effect_parameter(KRT_PLX_EffectBase* effect,
                                                      uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&Effect::parameter>(effect, nullptr, index);
}

bool KRT_PLX_Effect_hasParameter(KRT_PLX_EffectBase* effect,
                                 KRT_PLX_EffectParameterBase* element) KRT_PLX_NOEXCEPT
{
    return call<&Effect::hasParameter>(effect, false, element);
}

// MutableEffect

KRT_PLX_EffectParameterBase* KRT_PLX_MutableEffect_parameter(KRT_PLX_EffectBase* effect,
                                                             uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&MutableEffect::parameter>(effect, nullptr, index);
}

bool KRT_PLX_MutableEffect_hasParameter(KRT_PLX_EffectBase* effect,
                                        KRT_PLX_EffectParameterBase* element) KRT_PLX_NOEXCEPT
{
    return call<&MutableEffect::hasParameter>(effect, false, element);
}

KRT_PLX_EffectParameterBase* KRT_PLX_MutableEffect_addParameter(
    KRT_PLX_EffectBase* effect, const KRT_PLX_Char* name) KRT_PLX_NOEXCEPT
{
    return call<&MutableEffect::addParameter>(effect, nullptr, name);
}

bool KRT_PLX_MutableEffect_move(KRT_PLX_EffectBase* effect, uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&MutableEffect::move>(effect, false, index);
}

bool KRT_PLX_MutableEffect_remove(KRT_PLX_EffectBase* effect) KRT_PLX_NOEXCEPT
{
    return call<&MutableEffect::remove>(effect, false);
}

// AudioEffect

KRT_PLX_PartBase* KRT_PLX_AudioEffect_parent(KRT_PLX_EffectBase* effect) KRT_PLX_NOEXCEPT
{
    return call<&AudioEffect::parent>(effect, nullptr);
}

// MidiEffect

KRT_PLX_PartBase* KRT_PLX_MidiEffect_parent(KRT_PLX_EffectBase* effect) KRT_PLX_NOEXCEPT
{
    return call<&MidiEffect::parent>(effect, nullptr);
}

// MutableAudioEffect

KRT_PLX_PartBase* KRT_PLX_MutableAudioEffect_parent(KRT_PLX_EffectBase* effect) KRT_PLX_NOEXCEPT
{
    return call<&MutableAudioEffect::parent>(effect, nullptr);
}

// MutableMidiEffect

KRT_PLX_PartBase* KRT_PLX_MutableMidiEffect_parent(KRT_PLX_EffectBase* effect) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiEffect::parent>(effect, nullptr);
}

// EffectParameterBase

const KRT_PLX_Char* KRT_PLX_EffectParameterBase_name(KRT_PLX_EffectParameterBase* parameter)
    KRT_PLX_NOEXCEPT
{
    return call<&EffectParameterBase::name>(parameter, nullptr);
}

uint32_t KRT_PLX_EffectParameterBase_type(KRT_PLX_EffectParameterBase* parameter) KRT_PLX_NOEXCEPT
{
    return call<&EffectParameterBase::type>(parameter, KRT_PLX_VALUE_NONE);
}

float KRT_PLX_EffectParameterBase_valueFloat(KRT_PLX_EffectParameterBase* parameter)
    KRT_PLX_NOEXCEPT
{
    return call<&EffectParameterBase::valueFloat>(parameter, 0.0F);
}

int32_t KRT_PLX_EffectParameterBase_valueInt32(KRT_PLX_EffectParameterBase* parameter)
    KRT_PLX_NOEXCEPT
{
    return call<&EffectParameterBase::valueInt32>(parameter, 0);
}

const KRT_PLX_Char* KRT_PLX_EffectParameterBase_valueString(KRT_PLX_EffectParameterBase* parameter)
    KRT_PLX_NOEXCEPT
{
    return call<&EffectParameterBase::valueString>(parameter, nullptr);
}

// EffectParameter

KRT_PLX_EffectBase* KRT_PLX_EffectParameter_parent(KRT_PLX_EffectParameterBase* parameter)
    KRT_PLX_NOEXCEPT
{
    return call<&EffectParameter::parent>(parameter, nullptr);
}

// MutableEffectParameter

KRT_PLX_EffectBase* KRT_PLX_MutableEffectParameter_parent(KRT_PLX_EffectParameterBase* parameter)
    KRT_PLX_NOEXCEPT
{
    return call<&MutableEffectParameter::parent>(parameter, nullptr);
}

bool KRT_PLX_MutableEffectParameter_remove(KRT_PLX_EffectParameterBase* parameter) KRT_PLX_NOEXCEPT
{
    return call<&MutableEffectParameter::remove>(parameter, false);
}

bool KRT_PLX_MutableEffectParameter_setValueFloat(KRT_PLX_EffectParameterBase* parameter,
                                                  float value) KRT_PLX_NOEXCEPT
{
    return call<&MutableEffectParameter::setValueFloat>(parameter, false, value);
}

bool KRT_PLX_MutableEffectParameter_setValueInt32(KRT_PLX_EffectParameterBase* parameter,
                                                  int32_t value) KRT_PLX_NOEXCEPT
{
    return call<&MutableEffectParameter::setValueInt32>(parameter, false, value);
}

bool KRT_PLX_MutableEffectParameter_setValueString(KRT_PLX_EffectParameterBase* parameter,
                                                   const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&MutableEffectParameter::setValueString>(parameter, false, text);
}
