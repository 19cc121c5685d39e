#include <algorithm>
#include <bit>
#include <limits>
#include <string>
#include <vector>

#include "support/editing.h"
#include "support/limits.h"

using support::countOf;
using support::largest;
using support::parametersOf;
using support::smallest;
using support::text;
using support::utf8;

namespace {

using Parameter = KRT_PLX_EffectParameterBase;
using Parameters = std::vector<Parameter*>;
using Names = std::vector<std::string>;

class MutableEffectParameter : public MidiPartTest {
protected:
    Parameter* add(std::string_view name)
    {
        return KRT_PLX_MutableEffect_addParameter(effect, text(name).c_str());
    }

    Names names()
    {
        Names all;
        for (Parameter* const each : parametersOf(effect)) {
            all.push_back(utf8(KRT_PLX_EffectParameterBase_name(each)));
        }
        return all;
    }

    KRT_PLX_EffectBase* const effect =
        KRT_PLX_MutableMidiPart_insertMidiEffect(part, 0, text("Chorus").c_str());
};

TEST_F(MutableEffectParameter, StartsWithoutValue)
{
    Parameter* const parameter = add("Depth");
    ASSERT_NE(parameter, nullptr);
    EXPECT_EQ(utf8(KRT_PLX_EffectParameterBase_name(parameter)), "Depth");
    EXPECT_EQ(KRT_PLX_EffectParameterBase_type(parameter), KRT_PLX_VALUE_UNSET);
    EXPECT_EQ(KRT_PLX_EffectParameterBase_valueInt32(parameter), smallest);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(KRT_PLX_EffectParameterBase_valueFloat(parameter)),
              0x00800000u);
    EXPECT_EQ(utf8(KRT_PLX_EffectParameterBase_valueString(parameter)), "");
    EXPECT_EQ(KRT_PLX_MutableEffectParameter_parent(parameter), effect);
    EXPECT_EQ(KRT_PLX_EffectParameter_parent(parameter), nullptr);
}

TEST_F(MutableEffectParameter, NeedsAName)
{
    EXPECT_EQ(KRT_PLX_MutableEffect_addParameter(effect, nullptr), nullptr);
    EXPECT_EQ(add(""), nullptr);
    EXPECT_EQ(names(), Names{});
}

TEST_F(MutableEffectParameter, StandsInTheOrderOfNames)
{
    Parameter* const b = add("b");
    Parameter* const a = add("a");
    EXPECT_EQ(parametersOf(effect), (Parameters{a, b}));
    for (const char* name : {"c", "B", "aa", "ab", "Z", "é", "さ"}) {
        add(name);
    }
    EXPECT_EQ(names(), (Names{"B", "Z", "a", "aa", "ab", "b", "c", "é", "さ"}));
}

// UTF-16 units are compared as unsigned numbers: a surrogate pair comes before U+FFxx.
TEST_F(MutableEffectParameter, NamesAreOrderedByUnits)
{
    const Names expected = {"\u007F", "\u0080", "\u7FFF", "\u8000", "🎵", "\uFF21"};
    for (const std::size_t index : {5u, 0u, 3u, 4u, 1u, 2u}) {
        add(expected[index]);
    }
    EXPECT_EQ(names(), expected);
}

TEST_F(MutableEffectParameter, OfAKnownNameIsHandedOut)
{
    Parameter* const parameter = add("Depth");
    KRT_PLX_MutableEffectParameter_setValueInt32(parameter, 5);
    EXPECT_EQ(add("Depth"), parameter);
    EXPECT_EQ(KRT_PLX_EffectParameterBase_valueInt32(parameter), 5);
    EXPECT_EQ(countOf(KRT_PLX_EffectBase_numParameters, effect), 1u);
    EXPECT_NE(add("depth"), parameter);
}

TEST_F(MutableEffectParameter, MayBeNamedByItsOwnName)
{
    for (const std::string& name : {std::string("Depth"), std::string(300, 'x')}) {
        Parameter* const parameter = add(name);
        EXPECT_EQ(
            KRT_PLX_MutableEffect_addParameter(effect, KRT_PLX_EffectParameterBase_name(parameter)),
            parameter);
        Parameter* const shorter = KRT_PLX_MutableEffect_addParameter(
            effect, KRT_PLX_EffectParameterBase_name(parameter) + 1);
        EXPECT_EQ(utf8(KRT_PLX_EffectParameterBase_name(shorter)), name.substr(1));
    }
}

// --- Values -----------------------------------------------------------------------------------------------

class MutableEffectParameterValue : public MutableEffectParameter {
protected:
    void setAll()
    {
        KRT_PLX_MutableEffectParameter_setValueInt32(parameter, 7);
        KRT_PLX_MutableEffectParameter_setValueFloat(parameter, 0.5F);
        KRT_PLX_MutableEffectParameter_setValueString(parameter, text("seven").c_str());
    }

    void expectNoInt32()
    {
        EXPECT_EQ(KRT_PLX_EffectParameterBase_valueInt32(parameter), KRT_PLX_VALUE_UNSET_INT32);
    }

    void expectNoFloat()
    {
        EXPECT_EQ(std::bit_cast<std::uint32_t>(KRT_PLX_EffectParameterBase_valueFloat(parameter)),
                  0x00800000u);
    }

    void expectNoString()
    {
        EXPECT_EQ(utf8(KRT_PLX_EffectParameterBase_valueString(parameter)), "");
    }

    std::uint32_t type() { return KRT_PLX_EffectParameterBase_type(parameter); }

    Parameter* const parameter = add("Depth");
};

TEST_F(MutableEffectParameterValue, IsAnInteger)
{
    setAll();
    for (const std::int32_t value : {3, 0, -1, smallest, largest}) {
        EXPECT_TRUE(KRT_PLX_MutableEffectParameter_setValueInt32(parameter, value));
        EXPECT_EQ(type(), KRT_PLX_VALUE_INT32);
        EXPECT_EQ(KRT_PLX_EffectParameterBase_valueInt32(parameter), value);
        expectNoFloat();
        expectNoString();
    }
}

TEST_F(MutableEffectParameterValue, IsAFloat)
{
    using Limits = std::numeric_limits<float>;
    setAll();
    for (const float value :
         {0.5F, 0.0F, -0.0F, Limits::max(), Limits::lowest(), Limits::min(), Limits::denorm_min(),
          Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()}) {
        EXPECT_TRUE(KRT_PLX_MutableEffectParameter_setValueFloat(parameter, value));
        EXPECT_EQ(type(), KRT_PLX_VALUE_FLOAT);
        EXPECT_EQ(std::bit_cast<std::uint32_t>(KRT_PLX_EffectParameterBase_valueFloat(parameter)),
                  std::bit_cast<std::uint32_t>(value));
        expectNoInt32();
        expectNoString();
    }
}

TEST_F(MutableEffectParameterValue, IsAText)
{
    setAll();
    for (const std::string& value :
         {std::string("さくら"), std::string(3000, 'x'), std::string()}) {
        EXPECT_TRUE(KRT_PLX_MutableEffectParameter_setValueString(parameter, text(value).c_str()));
        EXPECT_EQ(type(), KRT_PLX_VALUE_STRING);
        EXPECT_EQ(utf8(KRT_PLX_EffectParameterBase_valueString(parameter)), value);
        expectNoInt32();
        expectNoFloat();
    }
}

TEST_F(MutableEffectParameterValue, OfNullIsAnEmptyText)
{
    KRT_PLX_MutableEffectParameter_setValueInt32(parameter, 7);
    EXPECT_TRUE(KRT_PLX_MutableEffectParameter_setValueString(parameter, nullptr));
    EXPECT_EQ(type(), KRT_PLX_VALUE_STRING);
    expectNoInt32();
    expectNoString();
}

TEST_F(MutableEffectParameterValue, TakesItsOwnTexts)
{
    for (const std::string& value : {std::string("seven"), std::string(300, 'x')}) {
        KRT_PLX_MutableEffectParameter_setValueString(parameter, text(value).c_str());
        const KRT_PLX_Char* const own = KRT_PLX_EffectParameterBase_valueString(parameter);
        EXPECT_TRUE(KRT_PLX_MutableEffectParameter_setValueString(parameter, own));
        EXPECT_EQ(utf8(KRT_PLX_EffectParameterBase_valueString(parameter)), value);
        KRT_PLX_MutableEffectParameter_setValueString(
            parameter, KRT_PLX_EffectParameterBase_valueString(parameter) + 1);
        EXPECT_EQ(utf8(KRT_PLX_EffectParameterBase_valueString(parameter)), value.substr(1));
    }
    KRT_PLX_MutableEffectParameter_setValueString(parameter,
                                                  KRT_PLX_EffectParameterBase_name(parameter));
    EXPECT_EQ(utf8(KRT_PLX_EffectParameterBase_valueString(parameter)), "Depth");
}

// --- Removing -----------------------------------------------------------------------------------------

TEST_F(MutableEffectParameter, IsRemoved)
{
    Parameter* const c = add("c");
    Parameter* const a = add("a");
    Parameter* const b = add("b");
    EXPECT_TRUE(KRT_PLX_MutableEffect_hasParameter(effect, b));
    EXPECT_TRUE(KRT_PLX_MutableEffectParameter_remove(b));
    EXPECT_FALSE(KRT_PLX_MutableEffect_hasParameter(effect, b));
    EXPECT_EQ(parametersOf(effect), (Parameters{a, c}));
    KRT_PLX_MutableEffectParameter_setValueInt32(a, 1);
    EXPECT_TRUE(KRT_PLX_MutableEffectParameter_remove(a));
    EXPECT_EQ(KRT_PLX_EffectParameterBase_type(add("a")), KRT_PLX_VALUE_UNSET);
    EXPECT_EQ(names(), (Names{"a", "c"}));
}

TEST_F(MutableEffectParameter, BelongsToOneEffect)
{
    KRT_PLX_EffectBase* const other =
        KRT_PLX_MutableMidiPart_insertMidiEffect(part, 0, text("Delay").c_str());
    Parameter* const foreign = KRT_PLX_MutableEffect_addParameter(other, text("Depth").c_str());
    Parameter* const own = add("Depth");
    EXPECT_NE(own, foreign);
    EXPECT_TRUE(KRT_PLX_MutableEffect_hasParameter(effect, own));
    EXPECT_FALSE(KRT_PLX_MutableEffect_hasParameter(effect, foreign));
    EXPECT_FALSE(KRT_PLX_MutableEffect_hasParameter(effect, nullptr));
    EXPECT_EQ(KRT_PLX_MutableEffectParameter_parent(foreign), other);
}

TEST_F(MutableEffectParameter, HasNoneBehindTheLast)
{
    add("Depth");
    EXPECT_EQ(KRT_PLX_MutableEffect_parameter(effect, 1), nullptr);
    EXPECT_EQ(KRT_PLX_MutableEffect_parameter(effect, std::numeric_limits<std::uint64_t>::max()),
              nullptr);
}

TEST_F(MutableEffectParameter, OutlivesItsNeighboursAndItsEffectsMoves)
{
    Parameter* const kept = add("kept");
    KRT_PLX_MutableEffectParameter_setValueInt32(kept, 42);
    for (int number = 0; number < 300; ++number) {
        add("n" + std::to_string(number));
        add("a" + std::to_string(number));
    }
    KRT_PLX_MutableMidiPart_insertMidiEffect(part, 0, text("Delay").c_str());
    KRT_PLX_MutableEffect_move(effect, 0);
    EXPECT_TRUE(std::ranges::is_sorted(names()));
    for (Parameter* const other : parametersOf(effect)) {
        if (other != kept) {
            KRT_PLX_MutableEffectParameter_remove(other);
        }
    }
    EXPECT_EQ(parametersOf(effect), Parameters{kept});
    EXPECT_EQ(KRT_PLX_EffectParameterBase_valueInt32(kept), 42);
}

} // namespace
