#include "hostile_shapes.h"

#include <cstdint>

namespace hostile {
namespace {

using support::count;
using support::utf8;

std::string effects(std::string_view key, std::size_t size, bool distinct)
{
    return part(key, arrayOf(size, [distinct](std::size_t i) {
                    return "{\"id\":\"" + name(distinct ? i : 0) +
                           "\",\"parameters\":[{\"name\":\"x\",\"value\":" + std::to_string(i) +
                           "}]}";
                }));
}

std::string midiEffects(std::size_t size)
{
    return effects("midiEffects", size, true);
}

std::string audioEffects(std::size_t size)
{
    return effects("audioEffects", size, true);
}

std::string effectsOfOneId(std::size_t size)
{
    return effects("midiEffects", size, false);
}

std::string parameters(std::size_t size, bool distinct)
{
    return part("midiEffects", "[{\"id\":\"E\",\"parameters\":" + arrayOf(size, [=](std::size_t i) {
                                   return "{\"name\":\"" + name(distinct ? size - 1 - i : 0) +
                                          "\",\"value\":" + std::to_string(i) + "}";
                               }) + "}]");
}

std::string parametersReversed(std::size_t size)
{
    return parameters(size, true);
}

std::string parametersOfOneName(std::size_t size)
{
    return parameters(size, false);
}

using EffectAt = KRT_PLX_EffectBase* (*)(KRT_PLX_PartBase*, std::uint64_t);

void expectEffects(KRT_PLX_PartBase* part, std::size_t size, EffectAt at)
{
    for (std::size_t i = 0; i < size; ++i) {
        ASSERT_EQ(utf8(KRT_PLX_EffectBase_id(at(part, i))), name(i));
    }
    ASSERT_EQ(at(part, size), nullptr);
}

void expectMidiEffects(KRT_PLX_PartBase* part, std::size_t size)
{
    expectEffects(part, size, KRT_PLX_MidiPart_midiEffect);
}

void expectAudioEffects(KRT_PLX_PartBase* part, std::size_t size)
{
    expectEffects(part, size, KRT_PLX_MidiPart_audioEffect);
}

void expectOneEffect(KRT_PLX_PartBase* part, std::size_t)
{
    ASSERT_EQ(count(KRT_PLX_MidiPartBase_numMidiEffects, part), 1u);
    KRT_PLX_EffectBase* effect = KRT_PLX_MidiPart_midiEffect(part, 0);
    EXPECT_EQ(KRT_PLX_EffectParameterBase_valueInt32(KRT_PLX_Effect_parameter(effect, 0)), 0);
}

void expectParametersReversed(KRT_PLX_PartBase* part, std::size_t size)
{
    KRT_PLX_EffectBase* effect = KRT_PLX_MidiPart_midiEffect(part, 0);
    ASSERT_EQ(count(KRT_PLX_EffectBase_numParameters, effect), size);
    for (std::size_t i = 0; i < size; ++i) {
        KRT_PLX_EffectParameterBase* parameter = KRT_PLX_Effect_parameter(effect, i);
        ASSERT_EQ(utf8(KRT_PLX_EffectParameterBase_name(parameter)), name(i));
    }
}

void expectParametersOfOneName(KRT_PLX_PartBase* part, std::size_t size)
{
    KRT_PLX_EffectBase* effect = KRT_PLX_MidiPart_midiEffect(part, 0);
    ASSERT_EQ(count(KRT_PLX_EffectBase_numParameters, effect), size);
    ASSERT_NE(KRT_PLX_Effect_parameter(effect, size - 1), nullptr);
}

} // namespace

std::vector<Shape> effectShapes()
{
    return {{"MidiEffects", 100000, midiEffects, expectMidiEffects},
            {"AudioEffects", 100000, audioEffects, expectAudioEffects},
            {"EffectsOfOneId", 100000, effectsOfOneId, expectOneEffect},
            {"ParametersReversed", 100000, parametersReversed, expectParametersReversed},
            {"ParametersOfOneName", 100000, parametersOfOneName, expectParametersOfOneName}};
}

} // namespace hostile
