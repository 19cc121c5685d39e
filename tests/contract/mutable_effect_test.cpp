#include <string>
#include <vector>

#include "support/editing.h"
#include "support/limits.h"

using support::countOf;
using support::elementsOf;
using support::farAway;
using support::text;
using support::utf8;

namespace {

using Effect = KRT_PLX_EffectBase;
using Effects = std::vector<Effect*>;
using Part = KRT_PLX_PartBase;

// One of the three lists of effects that parts have.
struct Chain {
    const char* name;
    Part* (*createPart)(KRT_PLX_ClipBase*);
    bool (*count)(Part*, std::uint64_t*);
    Effect* (*at)(Part*, std::uint64_t);
    bool (*has)(Part*, Effect*);
    Effect* (*insert)(Part*, std::uint64_t, const KRT_PLX_Char*);
    std::uint32_t type;
    Part* (*parent)(Effect*);
    Part* (*parentOfOtherKind)(Effect*);
};

const Chain chains[] = {
    {"audioOfMidiPart", KRT_PLX_MutableClip_createMidiPart, KRT_PLX_MidiPartBase_numAudioEffects,
     KRT_PLX_MutableMidiPart_audioEffect, KRT_PLX_MutableMidiPart_hasAudioEffect,
     KRT_PLX_MutableMidiPart_insertAudioEffect, KRT_PLX_EFFECT_AUDIO,
     KRT_PLX_MutableAudioEffect_parent, KRT_PLX_MutableMidiEffect_parent},
    {"midiOfMidiPart", KRT_PLX_MutableClip_createMidiAiPart, KRT_PLX_MidiPartBase_numMidiEffects,
     KRT_PLX_MutableMidiPart_midiEffect, KRT_PLX_MutableMidiPart_hasMidiEffect,
     KRT_PLX_MutableMidiPart_insertMidiEffect, KRT_PLX_EFFECT_MIDI,
     KRT_PLX_MutableMidiEffect_parent, KRT_PLX_MutableAudioEffect_parent},
    {"audioOfAudioPart", KRT_PLX_MutableClip_createAudioPart, KRT_PLX_AudioPartBase_numAudioEffects,
     KRT_PLX_MutableAudioPart_audioEffect, KRT_PLX_MutableAudioPart_hasAudioEffect,
     KRT_PLX_MutableAudioPart_insertAudioEffect, KRT_PLX_EFFECT_AUDIO,
     KRT_PLX_MutableAudioEffect_parent, KRT_PLX_MutableMidiEffect_parent},
};

class MutableEffect : public HostTest, public testing::WithParamInterface<Chain> {
protected:
    Effect* insert(std::uint64_t index, std::string_view id)
    {
        return chain.insert(part, index, text(id).c_str());
    }
    Effect* append(std::string_view id) { return insert(farAway, id); }
    bool has(Effect* effect) { return chain.has(part, effect); }

    Effects effects() { return elementsOf(chain.count, chain.at, part); }

    const Chain& chain = GetParam();
    Part* const part = chain.createPart(createMutableClip());
};

INSTANTIATE_TEST_SUITE_P(Chains, MutableEffect, testing::ValuesIn(chains),
                         [](const auto& chain) { return std::string(chain.param.name); });

TEST_P(MutableEffect, StartsWithoutParameters)
{
    Effect* const effect = append("Reverb");
    ASSERT_NE(effect, nullptr);
    EXPECT_EQ(utf8(KRT_PLX_EffectBase_id(effect)), "Reverb");
    EXPECT_EQ(KRT_PLX_EffectBase_type(effect), chain.type);
    EXPECT_EQ(countOf(KRT_PLX_EffectBase_numParameters, effect), 0u);
    EXPECT_EQ(KRT_PLX_MutableEffect_parameter(effect, 0), nullptr);
    EXPECT_FALSE(KRT_PLX_EffectBase_numParameters(effect, nullptr));
    EXPECT_FALSE(KRT_PLX_MutableEffect_hasParameter(effect, nullptr));
}

TEST_P(MutableEffect, BelongsToItsPart)
{
    Effect* const effect = append("Reverb");
    EXPECT_EQ(chain.parent(effect), part);
    EXPECT_EQ(chain.parentOfOtherKind(effect), nullptr);
    EXPECT_EQ(KRT_PLX_AudioEffect_parent(effect), nullptr);
    EXPECT_EQ(KRT_PLX_MidiEffect_parent(effect), nullptr);
    EXPECT_EQ(KRT_PLX_Effect_parameter(effect, 0), nullptr);
    EXPECT_TRUE(has(effect));
    EXPECT_FALSE(has(nullptr));
    Part* const other = chain.createPart(createMutableClip());
    Effect* const foreign = chain.insert(other, 0, text("Reverb").c_str());
    EXPECT_NE(foreign, effect);
    EXPECT_FALSE(has(foreign));
}

TEST_P(MutableEffect, NeedsAnID)
{
    EXPECT_EQ(chain.insert(part, 0, nullptr), nullptr);
    EXPECT_EQ(append(""), nullptr);
    EXPECT_EQ(effects(), Effects{});
}

TEST_P(MutableEffect, IsInsertedAtItsIndex)
{
    Effect* const a = insert(0, "a");
    Effect* const b = insert(0, "b");
    Effect* const c = insert(1, "c");
    Effect* const d = insert(3, "d");
    Effect* const e = insert(1000, "e");
    Effect* const f = insert(farAway, "f");
    Effect* const g = insert(5, "g");
    EXPECT_EQ(effects(), (Effects{b, c, a, d, e, g, f}));
}

TEST_P(MutableEffect, OfAKnownIDIsHandedOutAtItsOldPlace)
{
    Effect* const a = append("a");
    Effect* const b = append("b");
    EXPECT_EQ(insert(0, "b"), b);
    EXPECT_EQ(insert(farAway, "a"), a);
    EXPECT_EQ(insert(0, "b"), b);
    EXPECT_EQ(effects(), (Effects{a, b}));
}

TEST_P(MutableEffect, IDsAreComparedUnitByUnit)
{
    for (const char* id : {"Reverb", "reverb", "Reverb ", "Rever", "Reverbs"}) {
        EXPECT_NE(append(id), nullptr);
    }
    EXPECT_EQ(effects().size(), 5u);
}

TEST_P(MutableEffect, MayBeNamedByItsOwnID)
{
    for (const std::string& id : {std::string("Reverb"), std::string(300, 'x')}) {
        Effect* const effect = append(id);
        EXPECT_EQ(chain.insert(part, 0, KRT_PLX_EffectBase_id(effect)), effect);
        Effect* const shorter = chain.insert(part, 0, KRT_PLX_EffectBase_id(effect) + 1);
        EXPECT_NE(shorter, effect);
        EXPECT_EQ(utf8(KRT_PLX_EffectBase_id(shorter)), id.substr(1));
    }
}

// The index counts among the others.
TEST_P(MutableEffect, MovesToItsIndex)
{
    Effect* const a = append("a");
    Effect* const b = append("b");
    Effect* const c = append("c");
    EXPECT_TRUE(KRT_PLX_MutableEffect_move(a, 1));
    EXPECT_EQ(effects(), (Effects{b, a, c}));
    EXPECT_TRUE(KRT_PLX_MutableEffect_move(b, 5));
    EXPECT_EQ(effects(), (Effects{a, c, b}));
    EXPECT_TRUE(KRT_PLX_MutableEffect_move(b, 0));
    EXPECT_EQ(effects(), (Effects{b, a, c}));
    EXPECT_TRUE(KRT_PLX_MutableEffect_move(c, 2));
    EXPECT_EQ(effects(), (Effects{b, a, c}));
    EXPECT_TRUE(KRT_PLX_MutableEffect_move(a, 1));
    EXPECT_EQ(effects(), (Effects{b, a, c}));
    EXPECT_TRUE(KRT_PLX_MutableEffect_move(b, farAway));
    EXPECT_EQ(effects(), (Effects{a, c, b}));
}

TEST_P(MutableEffect, MovesAlone)
{
    Effect* const only = append("a");
    EXPECT_TRUE(KRT_PLX_MutableEffect_move(only, 0));
    EXPECT_TRUE(KRT_PLX_MutableEffect_move(only, farAway));
    EXPECT_EQ(effects(), Effects{only});
}

TEST_P(MutableEffect, IsRemoved)
{
    Effect* const a = append("a");
    Effect* const b = append("b");
    Effect* const c = append("c");
    KRT_PLX_MutableEffect_addParameter(b, text("Depth").c_str());
    EXPECT_TRUE(KRT_PLX_MutableEffect_remove(b));
    EXPECT_FALSE(has(b));
    EXPECT_EQ(effects(), (Effects{a, c}));
    Effect* const again = insert(0, "b");
    EXPECT_EQ(countOf(KRT_PLX_EffectBase_numParameters, again), 0u);
    EXPECT_EQ(effects(), (Effects{again, a, c}));
    for (Effect* const effect : effects()) {
        EXPECT_TRUE(KRT_PLX_MutableEffect_remove(effect));
    }
    EXPECT_EQ(effects(), Effects{});
}

TEST_P(MutableEffect, OutlivesItsNeighbours)
{
    Effect* const effect = append("kept");
    for (int number = 0; number < 500; ++number) {
        insert(static_cast<std::uint64_t>(number % 7), "effect " + std::to_string(number));
    }
    for (Effect* const other : effects()) {
        if (other != effect) {
            KRT_PLX_MutableEffect_remove(other);
        }
    }
    EXPECT_EQ(effects(), Effects{effect});
    EXPECT_EQ(utf8(KRT_PLX_EffectBase_id(effect)), "kept");
}

class MutableMidiPartEffects : public MidiPartTest {};

TEST_F(MutableMidiPartEffects, OneIDMayStandInBothChains)
{
    const support::Text id = text("Reverb");
    Effect* const midi = KRT_PLX_MutableMidiPart_insertMidiEffect(part, 0, id.c_str());
    Effect* const audio = KRT_PLX_MutableMidiPart_insertAudioEffect(part, 0, id.c_str());
    ASSERT_NE(audio, nullptr);
    EXPECT_NE(midi, audio);
    EXPECT_EQ(KRT_PLX_EffectBase_type(midi), KRT_PLX_EFFECT_MIDI);
    EXPECT_EQ(KRT_PLX_EffectBase_type(audio), KRT_PLX_EFFECT_AUDIO);
    EXPECT_FALSE(KRT_PLX_MutableMidiPart_hasMidiEffect(part, audio));
    EXPECT_FALSE(KRT_PLX_MutableMidiPart_hasAudioEffect(part, midi));
    EXPECT_EQ(countOf(KRT_PLX_MidiPartBase_numAudioEffects, part), 1u);
    EXPECT_EQ(countOf(KRT_PLX_MidiPartBase_numMidiEffects, part), 1u);
}

} // namespace
