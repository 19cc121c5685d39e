// The effects of a document and their parameters: what each kind of value becomes, the order of
// parameters, and which of two effects stays.

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "support/random.h"
#include "support/reading.h"

namespace {

using support::array;
using support::count;
using support::jsonString;
using support::notArrays;
using support::notObjects;
using support::notStrings;
using support::Object;
using support::utf8;

constexpr std::uint32_t isInteger = 1;
constexpr std::uint32_t isFloat = 2;
constexpr std::uint32_t isText = 3;

// What a parameter holds in the two slots that its value does not fill.
constexpr std::int32_t noInteger = std::numeric_limits<std::int32_t>::min();
constexpr float noFloat = std::numeric_limits<float>::min();
constexpr float greatestFloat = std::numeric_limits<float>::max();

std::string parameter(std::string_view name, const std::string& value)
{
    return Object{{"name", jsonString(name)}, {"value", value}};
}

Object effect(std::string_view id, const std::vector<std::string>& parameters)
{
    return {{"id", jsonString(id)}, {"parameters", array(parameters)}};
}

// --- Lists of effects ---

struct Chain {
    std::string key;
    std::uint32_t type;
    bool (*count)(KRT_PLX_PartBase*, std::uint64_t*);
    KRT_PLX_EffectBase* (*at)(KRT_PLX_PartBase*, std::uint64_t);
    bool (*has)(KRT_PLX_PartBase*, KRT_PLX_EffectBase*);
    KRT_PLX_PartBase* (*parent)(KRT_PLX_EffectBase*);
};

const Chain audioChain = {"audioEffects",
                          0,
                          KRT_PLX_MidiPartBase_numAudioEffects,
                          KRT_PLX_MidiPart_audioEffect,
                          KRT_PLX_MidiPart_hasAudioEffect,
                          KRT_PLX_AudioEffect_parent};
const Chain midiChain = {"midiEffects",
                         1,
                         KRT_PLX_MidiPartBase_numMidiEffects,
                         KRT_PLX_MidiPart_midiEffect,
                         KRT_PLX_MidiPart_hasMidiEffect,
                         KRT_PLX_MidiEffect_parent};

class EffectDocumentTest : public ReaderTest, public testing::WithParamInterface<Chain> {
protected:
    std::vector<KRT_PLX_EffectBase*> readEffects(const std::string& list)
    {
        KRT_PLX_PartBase* part = readMidiPartWith(GetParam().key, list);
        std::vector<KRT_PLX_EffectBase*> effects;
        for (std::uint64_t i = 0; i < count(GetParam().count, part); ++i) {
            effects.push_back(GetParam().at(part, i));
        }
        EXPECT_EQ(GetParam().at(part, effects.size()), nullptr);
        return effects;
    }
    KRT_PLX_EffectBase* readEffect(const std::string& object)
    {
        const auto effects = readEffects(array({object}));
        EXPECT_LE(effects.size(), 1u);
        return effects.empty() ? nullptr : effects[0];
    }
    std::vector<std::string> readIds(const std::vector<std::string>& effects)
    {
        std::vector<std::string> ids;
        for (KRT_PLX_EffectBase* effect : readEffects(array(effects))) {
            ids.push_back(utf8(KRT_PLX_EffectBase_id(effect)));
        }
        return ids;
    }
    // The names of the parameters, in their order.
    std::vector<std::string> readNames(const std::vector<std::string>& parameters)
    {
        KRT_PLX_EffectBase* read = readEffect(effect("E", parameters));
        std::vector<std::string> names;
        while (KRT_PLX_EffectParameterBase* at = KRT_PLX_Effect_parameter(read, names.size())) {
            EXPECT_EQ(KRT_PLX_EffectParameter_parent(at), read);
            EXPECT_TRUE(KRT_PLX_Effect_hasParameter(read, at));
            names.push_back(utf8(KRT_PLX_EffectParameterBase_name(at)));
        }
        EXPECT_EQ(count(KRT_PLX_EffectBase_numParameters, read), names.size());
        return names;
    }
};

INSTANTIATE_TEST_SUITE_P(Chains, EffectDocumentTest, testing::Values(audioChain, midiChain),
                         [](const auto& chain) { return chain.param.key; });

TEST_P(EffectDocumentTest, FillsTheEffect)
{
    const Object object = effect("reverb", {parameter("room", "0.5")});
    for (const Object& ordered : {object, object.reversed()}) {
        KRT_PLX_EffectBase* read = readEffect(ordered);
        ASSERT_NE(read, nullptr);
        KRT_PLX_PartBase* part = KRT_PLX_Clip_midiPart(clipOfPart());
        EXPECT_EQ(utf8(KRT_PLX_EffectBase_id(read)), "reverb");
        EXPECT_EQ(KRT_PLX_EffectBase_type(read), GetParam().type);
        EXPECT_EQ(GetParam().parent(read), part);
        EXPECT_TRUE(GetParam().has(part, read));
        EXPECT_EQ(count(KRT_PLX_EffectBase_numParameters, read), 1u);
    }
}

TEST_P(EffectDocumentTest, NeedsAnId)
{
    support::expectRequiredText([this](const auto& value) {
        KRT_PLX_EffectBase* read = readEffect(effect("", {}).with("id", value));
        return read != nullptr && jsonString(utf8(KRT_PLX_EffectBase_id(read))) == value;
    });
}

TEST_P(EffectDocumentTest, NeedsNoParameters)
{
    const Object object = effect("reverb", {});
    EXPECT_EQ(count(KRT_PLX_EffectBase_numParameters, readEffect(object)), 0u);
    EXPECT_EQ(count(KRT_PLX_EffectBase_numParameters, readEffect(object.without("parameters"))),
              0u);
    for (const std::string& value : notArrays()) {
        KRT_PLX_EffectBase* read = readEffect(object.with("parameters", value));
        ASSERT_NE(read, nullptr) << value;
        EXPECT_EQ(count(KRT_PLX_EffectBase_numParameters, read), 0u) << value;
    }
}

TEST_P(EffectDocumentTest, StandsInTheOrderOfTheFile)
{
    using Ids = std::vector<std::string>;
    EXPECT_EQ(readIds({effect("c", {}), effect("a", {}), effect("b", {})}), (Ids{"c", "a", "b"}));
    EXPECT_EQ(readIds({}), Ids{});
    EXPECT_EQ(readIds({"{}", effect("c", {}), "5", effect("", {}), effect("a", {})}),
              (Ids{"c", "a"}));
}

TEST_P(EffectDocumentTest, KeepsTheFirstOfTwoWithOneId)
{
    const auto effects = readEffects(
        array({effect("a", {}).without("parameters"), effect("b", {}),
               effect("a", {parameter("x", "0.5")}), effect("b", {parameter("y", "0.5")})}));
    ASSERT_EQ(effects.size(), 2u);
    EXPECT_EQ(utf8(KRT_PLX_EffectBase_id(effects[0])), "a");
    EXPECT_EQ(utf8(KRT_PLX_EffectBase_id(effects[1])), "b");
    EXPECT_EQ(count(KRT_PLX_EffectBase_numParameters, effects[0]), 0u);
    EXPECT_EQ(count(KRT_PLX_EffectBase_numParameters, effects[1]), 0u);
}

TEST_P(EffectDocumentTest, TellsIdsApartUnitByUnit)
{
    using Ids = std::vector<std::string>;
    EXPECT_EQ(readIds({effect("a", {}), effect("A", {}), effect("a ", {}), effect(" a", {}),
                       effect("\\u0061", {}), effect("さ", {})}),
              (Ids{"a", "A", "a ", " a", "さ"}));
}

TEST_P(EffectDocumentTest, SkipsParametersWithoutANameOrAValue)
{
    using Names = std::vector<std::string>;
    const Object good = {{"name", jsonString("x")}, {"value", "0.5"}};
    EXPECT_EQ(readNames({good.without("name")}), Names{});
    EXPECT_EQ(readNames({good.without("value")}), Names{});
    EXPECT_EQ(readNames({good.with("name", jsonString(""))}), Names{});
    for (const std::string& value : notStrings()) {
        EXPECT_EQ(readNames({good.with("name", value), good}), Names{"x"}) << value;
    }
    EXPECT_EQ(readNames({good.reversed()}), Names{"x"});
}

TEST_P(EffectDocumentTest, SkipsParametersThatAreNoObjects)
{
    std::vector<std::string> parameters = notObjects();
    parameters.insert(parameters.begin() + 3, parameter("x", "0.5"));
    EXPECT_EQ(readNames(parameters), std::vector<std::string>{"x"});
}

TEST_P(EffectDocumentTest, SkipsParametersWhoseValueIsNoNumberAndNoText)
{
    using Names = std::vector<std::string>;
    for (const std::string_view value :
         {"null", "true", "false", "[]", "[1]", "{}", "2147483648", "-2147483649", "4294967301",
          "9223372036854775807", "-9223372036854775808"}) {
        EXPECT_EQ(readNames({parameter("x", std::string(value))}), Names{}) << value;
        EXPECT_EQ(readNames({parameter("Bypass", std::string(value))}), Names{}) << value;
    }
}

TEST_P(EffectDocumentTest, SortsParametersByTheUnitsOfTheirNames)
{
    using Names = std::vector<std::string>;
    EXPECT_EQ(readNames({parameter("b", "0.5"), parameter("a", "0.5")}), (Names{"a", "b"}));
    EXPECT_EQ(readNames({parameter("ab", "0.5"), parameter("b", "0.5"), parameter("Z", "0.5"),
                         parameter("a", "0.5"), parameter("é", "0.5"), parameter("aB", "0.5"),
                         parameter("10", "0.5"), parameter("9", "0.5")}),
              (Names{"10", "9", "Z", "a", "aB", "ab", "b", "é"}));
    // The clef's first unit is a surrogate, hence below the full-width letter.
    EXPECT_EQ(readNames({parameter("Ａ", "0.5"), parameter("𝄞", "0.5"), parameter("さ", "0.5")}),
              (Names{"さ", "𝄞", "Ａ"}));
}

// Names that begin alike, end within each other, and differ early, late or not at all.
TEST_P(EffectDocumentTest, SortsParametersHoweverFarTheirNamesAgree)
{
    const std::vector<std::string> pieces = {"a",      "B", "é", "さ", "𝄞", "Ａ", "\xEE\x80\x80",
                                             "aaaaaaa"};
    support::Random random(7);
    for (int round = 0; round < 60; ++round) {
        const std::string beginning(random.below(12), 'n');
        std::vector<support::Text> names;
        std::vector<std::string> parameters;
        for (std::uint32_t left = 1 + random.below(30); left > 0; --left) {
            std::string name = beginning + random.oneOf(pieces);
            for (std::uint32_t more = random.below(4); more > 0; --more) {
                name += random.oneOf(pieces);
            }
            names.push_back(support::text(name));
            parameters.push_back(parameter(name, "0.5"));
        }
        std::sort(names.begin(), names.end());
        std::vector<std::string> expected;
        for (const support::Text& name : names) {
            expected.push_back(utf8(name));
        }
        ASSERT_EQ(readNames(parameters), expected) << round;
    }
}

TEST_P(EffectDocumentTest, KeepsParametersOfOneNameAllAndInTheOrderOfTheFile)
{
    constexpr std::size_t values = 40;
    std::vector<std::string> parameters;
    for (std::size_t value = 0; value < values; ++value) {
        parameters.push_back(parameter("x", jsonString(std::to_string(value))));
        parameters.push_back(parameter("a", "0.5"));
    }
    KRT_PLX_EffectBase* read = readEffect(effect("E", parameters));
    ASSERT_EQ(count(KRT_PLX_EffectBase_numParameters, read), 2 * values);
    for (std::size_t value = 0; value < values; ++value) {
        KRT_PLX_EffectParameterBase* at = KRT_PLX_Effect_parameter(read, values + value);
        EXPECT_EQ(utf8(KRT_PLX_EffectParameterBase_name(at)), "x");
        EXPECT_EQ(utf8(KRT_PLX_EffectParameterBase_valueString(at)), std::to_string(value));
    }
}

class EffectChainsDocumentTest : public ReaderTest {};

TEST_F(EffectChainsDocumentTest, MayHaveOneIdBoth)
{
    const std::string list = array({effect("same", {})});
    const Object object =
        support::midiPartObject().with("audioEffects", list).with("midiEffects", list);
    KRT_PLX_PartBase* part = readPart(support::dataObject("midi", object));
    KRT_PLX_EffectBase* audio = KRT_PLX_MidiPart_audioEffect(part, 0);
    KRT_PLX_EffectBase* midi = KRT_PLX_MidiPart_midiEffect(part, 0);
    ASSERT_NE(audio, nullptr);
    ASSERT_NE(midi, nullptr);
    EXPECT_EQ(KRT_PLX_EffectBase_type(audio), 0u);
    EXPECT_EQ(KRT_PLX_EffectBase_type(midi), 1u);
    EXPECT_EQ(KRT_PLX_MidiEffect_parent(audio), nullptr);
    EXPECT_EQ(KRT_PLX_AudioEffect_parent(midi), nullptr);
}

// --- The values of parameters ---

class EffectValueDocumentTest : public EffectDocumentTest {
protected:
    // The only parameter of an effect; null when it was skipped.
    KRT_PLX_EffectParameterBase* readParameter(std::string_view name, const std::string& value)
    {
        KRT_PLX_EffectBase* read = readEffect(effect("E", {parameter(name, value)}));
        return KRT_PLX_Effect_parameter(read, 0);
    }

    void expectInteger(std::string_view name, const std::string& value, std::int32_t expected)
    {
        KRT_PLX_EffectParameterBase* read = readParameter(name, value);
        ASSERT_NE(read, nullptr) << value;
        EXPECT_EQ(KRT_PLX_EffectParameterBase_type(read), isInteger) << value;
        EXPECT_EQ(KRT_PLX_EffectParameterBase_valueInt32(read), expected) << value;
        EXPECT_EQ(KRT_PLX_EffectParameterBase_valueFloat(read), noFloat) << value;
        EXPECT_EQ(utf8(KRT_PLX_EffectParameterBase_valueString(read)), "") << value;
    }
    void expectFloat(std::string_view name, const std::string& value, float expected)
    {
        KRT_PLX_EffectParameterBase* read = readParameter(name, value);
        ASSERT_NE(read, nullptr) << value;
        EXPECT_EQ(KRT_PLX_EffectParameterBase_type(read), isFloat) << value;
        EXPECT_EQ(KRT_PLX_EffectParameterBase_valueFloat(read), expected) << value;
        EXPECT_EQ(KRT_PLX_EffectParameterBase_valueInt32(read), noInteger) << value;
        EXPECT_EQ(utf8(KRT_PLX_EffectParameterBase_valueString(read)), "") << value;
    }
    void expectText(std::string_view name, std::string_view expected)
    {
        KRT_PLX_EffectParameterBase* read = readParameter(name, jsonString(expected));
        ASSERT_NE(read, nullptr) << expected;
        EXPECT_EQ(KRT_PLX_EffectParameterBase_type(read), isText) << expected;
        EXPECT_EQ(utf8(KRT_PLX_EffectParameterBase_valueString(read)), expected);
        EXPECT_EQ(KRT_PLX_EffectParameterBase_valueInt32(read), noInteger) << expected;
        EXPECT_EQ(KRT_PLX_EffectParameterBase_valueFloat(read), noFloat) << expected;
    }

    [[nodiscard]] bool isMidi() const { return GetParam().type == midiChain.type; }
};

INSTANTIATE_TEST_SUITE_P(Chains, EffectValueDocumentTest, testing::Values(audioChain, midiChain),
                         [](const auto& chain) { return chain.param.key; });

TEST_P(EffectValueDocumentTest, KeepsIntegersInMidiEffectsAndMakesFloatsOfThemInAudioEffects)
{
    for (const std::int32_t value : {0, 1, -1, 3, 127, 16777216}) {
        if (isMidi()) {
            expectInteger("gain", std::to_string(value), value);
        } else {
            expectFloat("gain", std::to_string(value), static_cast<float>(value));
        }
    }
}

TEST_P(EffectValueDocumentTest, TakesTheLeastAndTheGreatestInteger)
{
    if (isMidi()) {
        expectInteger("gain", "2147483647", std::numeric_limits<std::int32_t>::max());
        expectInteger("gain", "-2147483648", noInteger);
        expectInteger("gain", "16777217", 16777217);
    } else {
        expectFloat("gain", "2147483647", 2147483648.0F);
        expectFloat("gain", "-2147483648", -2147483648.0F);
        expectFloat("gain", "16777217", 16777216.0F);
    }
}

TEST_P(EffectValueDocumentTest, KeepsAnIntegerNamedBypass)
{
    expectInteger("Bypass", "1", 1);
    expectInteger("Bypass", "0", 0);
    expectInteger("Bypass", "-2147483648", noInteger);
    expectInteger("Bypass", "2147483647", std::numeric_limits<std::int32_t>::max());
    expectFloat("Bypass", "1.0", 1.0F);
    expectText("Bypass", "1");
}

TEST_P(EffectValueDocumentTest, KnowsBypassByThisNameOnly)
{
    for (const std::string_view name : {"bypass", "BYPASS", "Bypas", "Bypass ", "Bypass1"}) {
        if (isMidi()) {
            expectInteger(name, "1", 1);
        } else {
            expectFloat(name, "1", 1.0F);
        }
    }
}

TEST_P(EffectValueDocumentTest, TakesFloats)
{
    expectFloat("x", "0.5", 0.5F);
    expectFloat("x", "-0.5", -0.5F);
    expectFloat("x", "0.0", 0.0F);
    expectFloat("x", "3.0", 3.0F);
    expectFloat("x", "1e2", 100.0F);
    expectFloat("x", "1E-2", 0.01F);
    expectFloat("x", "0.1", 0.1F);
    expectFloat("x", "123456.789", 123456.789F);
    expectFloat("x", "1.17549435e-38", noFloat);
    expectFloat("x", "1e-40", 1e-40F);
    expectFloat("x", "1e-60", 0.0F);
    expectFloat("x", "-1e-300", 0.0F);
}

TEST_P(EffectValueDocumentTest, TakesFloatsUpToTheGreatest)
{
    expectFloat("x", "1e38", 1e38F);
    expectFloat("x", "-1e38", -1e38F);
    expectFloat("x", "3.4028233e38", 3.4028233e38F);
    expectFloat("x", "-3.4028233e38", -3.4028233e38F);
    expectFloat("x", "3.4028234e38", greatestFloat);
    expectFloat("x", "-3.4028234e38", -greatestFloat);
}

TEST_P(EffectValueDocumentTest, HoldsGreaterDoublesAtTheGreatestFloatAndNegativeOnesAtTheUnsetMark)
{
    for (const std::string_view value : {"3.4028235e38", "3.40282346638528859e38", "3.5e38", "1e39",
                                         "1e300", "1.7976931348623157e308"}) {
        expectFloat("x", std::string(value), greatestFloat);
        expectFloat("x", "-" + std::string(value), noFloat);
    }
}

TEST_P(EffectValueDocumentTest, TakesAnyText)
{
    for (const std::string_view text : {"", " ", "hall", "5", "0.5", "広間", "𝄞"}) {
        expectText("room", text);
    }
}

} // namespace
