// Numbers as documents may write them: integers of any length, zeros and ones with any exponent, and
// numbers that lie almost in the middle between two floats.

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "support/random.h"
#include "support/reading.h"

namespace {

using support::accepted;
using support::array;
using support::count;
using support::jsonString;
using support::Object;
using support::Random;
using support::refused;
using support::universalObject;

constexpr std::uint32_t integerType = 1;
constexpr std::uint32_t floatType = 2;

constexpr float mostFloat = std::numeric_limits<float>::max();
constexpr float leastNormalFloat = std::numeric_limits<float>::min();

std::string zeros(std::size_t number)
{
    return std::string(number, '0');
}

class NumberTest : public ReaderTest {
protected:
    static std::string parameter(std::string_view name, const std::string& value)
    {
        return Object{{"name", jsonString(name)}, {"value", value}};
    }
    static std::string chain(const std::vector<std::string>& parameters)
    {
        return array({Object{{"id", jsonString("E")}, {"parameters", array(parameters)}}});
    }

    // The parameter with that value; null when the effect has none.
    KRT_PLX_EffectParameterBase* readInMidiEffect(const std::string& value)
    {
        KRT_PLX_PartBase* part = readMidiPartWith("midiEffects", chain({parameter("x", value)}));
        EXPECT_NE(part, nullptr) << value;
        return KRT_PLX_Effect_parameter(KRT_PLX_MidiPart_midiEffect(part, 0), 0);
    }
    KRT_PLX_EffectParameterBase* readInAudioEffect(const std::string& value,
                                                   std::string_view name = "x")
    {
        KRT_PLX_PartBase* part = readMidiPartWith("audioEffects", chain({parameter(name, value)}));
        EXPECT_NE(part, nullptr) << value;
        return KRT_PLX_Effect_parameter(KRT_PLX_MidiPart_audioEffect(part, 0), 0);
    }

    void expectFloat(const std::string& value, float expected)
    {
        KRT_PLX_EffectParameterBase* read = readInMidiEffect(value);
        EXPECT_EQ(KRT_PLX_EffectParameterBase_type(read), floatType) << value;
        EXPECT_EQ(KRT_PLX_EffectParameterBase_valueFloat(read), expected) << value;
        read = readInAudioEffect(value, "Bypass");
        EXPECT_EQ(KRT_PLX_EffectParameterBase_type(read), floatType) << value;
        EXPECT_EQ(KRT_PLX_EffectParameterBase_valueFloat(read), expected) << value;
    }

    // As the value of a key that the library does not know.
    void expectRefused(const std::string& value)
    {
        EXPECT_EQ(accepts(universalObject().with("unknown", value)), refused) << value;
        EXPECT_EQ(accepts(universalObject().with("unknown", "[" + value + "]")), refused) << value;
    }
};

// --- Integers ---

TEST_F(NumberTest, WithoutFractionAndExponentIsAnIntegerHoweverLong)
{
    for (const std::string& digits :
         {std::string("2147483648"), std::string("4294967295"), std::string("4294967296"),
          std::string("9223372036854775807"), std::string("9223372036854775809"),
          std::string("18446744073709551615"), std::string("18446744073709551616"),
          std::string("18446744073709551621"), "1" + zeros(30), "1" + zeros(308), "1" + zeros(309),
          "1" + zeros(399), std::string(400, '9'), std::string(100000, '1')}) {
        for (const std::string& value : {digits, "-" + digits}) {
            if (value == "-2147483648") {
                continue;
            }
            EXPECT_EQ(readInMidiEffect(value), nullptr) << value;
            EXPECT_EQ(readInAudioEffect(value), nullptr) << value;
            EXPECT_EQ(readInAudioEffect(value, "Bypass"), nullptr) << value;
            EXPECT_EQ(accepts(universalObject().with("unknown", value)), accepted) << value;
        }
    }
}

TEST_F(NumberTest, WithoutFractionAndExponentFitsUpToTheBoundsOf32Bits)
{
    for (const std::int32_t number : {0, 1, -1, 9, 10, 999999999, 1000000000, -1000000000,
                                      2147483646, 2147483647, -2147483647, -2147483647 - 1}) {
        KRT_PLX_EffectParameterBase* read = readInMidiEffect(std::to_string(number));
        EXPECT_EQ(KRT_PLX_EffectParameterBase_type(read), integerType) << number;
        EXPECT_EQ(KRT_PLX_EffectParameterBase_valueInt32(read), number);
    }
    EXPECT_EQ(KRT_PLX_EffectParameterBase_type(readInMidiEffect("-0")), integerType);
    EXPECT_EQ(KRT_PLX_EffectParameterBase_valueInt32(readInMidiEffect("-0")), 0);
}

TEST_F(NumberTest, WithALongIntegerLeavesAnIntegerKeyAsItWas)
{
    for (const std::string& value :
         {"1" + zeros(400), "-1" + zeros(400), std::string("18446744073709551617")}) {
        const Object note = support::noteObject().with("langID", value);
        EXPECT_EQ(KRT_PLX_NoteBase_langID(readNote(note)), KRT_PLX_NO_LANGUAGE) << value;
    }
}

// --- Exponents ---

TEST_F(NumberTest, OfZerosIsZeroWhateverTheExponent)
{
    for (const std::string_view value :
         {"0e400", "-0e5", "0E400", "0e+400", "0.0e400", "0.000e999999999999", "-0.0e2147483648",
          "0e99999999999999999999999999", "0e-400", "0.0e-99999999999999999999999999"}) {
        expectFloat(std::string(value), 0.0F);
    }
    expectFloat("0." + zeros(1000) + "e1000", 0.0F);
    expectFloat("0e" + std::string(1000, '9'), 0.0F);
}

TEST_F(NumberTest, FarBelowTheLeastFloatIsZero)
{
    for (const std::string_view value :
         {"0.00000000001e-2147483639", "1e-2147483639", "1e-2147483647", "1e-2147483648",
          "0.1e-2147483648", "-1e-4294967296", "1e-18446744073709551616", "123.456e-9999999999",
          "128.74836467836484838364836483643636483648e-336", "1e-325", "-1e-46", "7e-46"}) {
        expectFloat(std::string(value), 0.0F);
    }
    expectFloat("1e-" + std::string(1000, '9'), 0.0F);
    expectFloat("0." + zeros(1000) + "1", 0.0F);
}

TEST_F(NumberTest, IsWhatItsPointAndItsExponentMakeTogether)
{
    expectFloat("1" + zeros(400) + "e-400", 1.0F);
    expectFloat("0." + zeros(400) + "25e401", 2.5F);
    expectFloat("25" + zeros(50) + "." + zeros(50) + "e-51", 2.5F);
    expectFloat("1e0" + zeros(100) + "2", 100.0F);
    expectFloat("1e-0" + zeros(100) + "2", 0.01F);
    expectFloat("1e+2", 100.0F);
}

TEST_F(NumberTest, BeyondTheGreatestDoubleRefusesTheDocument)
{
    for (const std::string_view value :
         {"1e309", "10e308", "0.18e309", "1.8e308", "-1.8e308", "1.7976931348623159e308",
          "0.00000001e317", "1e400", "1e2147483647", "1e4294967296", "1e18446744073709551616"}) {
        expectRefused(std::string(value));
    }
    expectRefused("1" + zeros(309) + ".0");
    expectRefused("2" + zeros(308) + ".0");
    expectRefused("1" + zeros(400) + "e0");
    expectRefused("1e" + std::string(1000, '9'));
}

TEST_F(NumberTest, UpToTheGreatestDoubleIsHeldAtTheGreatestFloat)
{
    for (const std::string& value :
         {std::string("1.7976931348623157e308"), std::string("17976931348623157e292"),
          "17976931348623157" + zeros(292) + ".0", std::string("0.17976931348623157e309"),
          std::string("3.5e38"), std::string("3.4028235e38")}) {
        expectFloat(value, mostFloat);
        expectFloat("-" + value, leastNormalFloat);
    }
}

TEST_F(NumberTest, MayNotBeWrittenInAnyOtherWay)
{
    for (const std::string_view value :
         {"-",    "-a",    "--1",  "+1",       ".5",    "-.5",   "5.",       "-5.",       "5.e1",
          "1e",   "1e+",   "1e-",  "1.5e",     "1e1.5", "1e1e1", "01",       "-01",       "00",
          "00.5", "1.2.3", "0x10", "1f",       "1_0",   "1 0",   "Infinity", "-Infinity", "NaN",
          "inf",  "nan",   "-inf", "\xC2\xB2", "1-",    "1-1",   "1+1"}) {
        expectRefused(std::string(value));
    }
}

// --- The nearest float ---

// The number as a 64-bit one, then as what a parameter makes of it.
float expectedFloat(const std::string& literal)
{
    double number = literal.front() == '-' ? -0.0 : 0.0;
    std::from_chars(literal.data(), literal.data() + literal.size(), number);
    if (number > 3.4028234e38) {
        return mostFloat;
    }
    return number < -3.4028234e38 ? leastNormalFloat : static_cast<float>(number);
}

std::string withAllDigits(double number, int digits)
{
    std::vector<char> text(400);
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), number,
                                            std::chars_format::scientific, digits - 1);
    EXPECT_EQ(error, std::errc());
    return {text.data(), end};
}

// Of either sign, a fourth of them below the least normal one.
float randomFloat(Random& random)
{
    const std::uint32_t bits =
        random.below(random.oneIn(4) ? 0x800000 : 0x7F7FFFFF) | random.below(2) << 31;
    float number = 0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

std::string randomDigits(Random& random, std::size_t number)
{
    std::string digits;
    for (std::size_t i = 0; i < number; ++i) {
        digits += static_cast<char>('0' + random.below(10));
    }
    return digits;
}

std::string randomLiteral(Random& random)
{
    std::string literal = random.oneIn(2) ? "-" : "";
    const std::string digits = randomDigits(random, 1 + random.below(24));
    literal += digits.front() == '0' ? "0" : digits;
    literal += "." + randomDigits(random, 1 + random.below(24));
    if (random.oneIn(2)) {
        literal += "e" + std::to_string(random.between(-60, 30));
    }
    return literal;
}

// Close to the middle between two floats, where the last digits decide.
std::vector<std::string> literalsAroundAMiddle(Random& random)
{
    const float low = randomFloat(random);
    const double middle =
        (static_cast<double>(low) + std::nextafter(low, std::copysign(mostFloat, low))) / 2;
    const double above = std::nextafter(middle, std::copysign(1e300, low));
    const double below = std::nextafter(middle, 0.0);
    const std::string whole = withAllDigits(middle, 180);
    const std::size_t exponent = whole.find('e');
    std::string less = whole.substr(0, exponent);
    less.erase(less.find_last_not_of('0') + 1);
    const std::string more = less + zeros(60) + "1" + whole.substr(exponent);
    --less.back();
    less += std::string(60, '9') + whole.substr(exponent);
    const auto between = [](double a, double b) { return withAllDigits(a / 2 + b / 2, 30); };
    return {whole,
            more,
            less,
            withAllDigits(above, 17),
            withAllDigits(below, 17),
            withAllDigits(middle, 17),
            withAllDigits(above, 25),
            withAllDigits(below, 25),
            between(middle, above)};
}

TEST_F(NumberTest, BecomesTheNearestFloat)
{
    Random random(10);
    std::vector<std::string> literals = {"3.4028234e38",           "3.40282340000000001e38",
                                         "3.40282339999999999e38", "3.4028234000000004e38",
                                         "3.40282340000000019e38", "3.4028234663852886e38",
                                         "3.4028235677973366e38",  "7.006492321624085e-46",
                                         "7.006492321624086e-46",  "1.1754943508222875e-38"};
    while (literals.size() < 20000) {
        literals.push_back(randomLiteral(random));
    }
    while (literals.size() < 40000) {
        for (std::string& literal : literalsAroundAMiddle(random)) {
            literals.push_back(std::move(literal));
        }
    }
    std::vector<std::string> parameters;
    for (std::size_t i = 0; i < literals.size(); ++i) {
        parameters.push_back(parameter(std::to_string(100000 + i), literals[i]));
    }
    KRT_PLX_EffectBase* effect =
        KRT_PLX_MidiPart_midiEffect(readMidiPartWith("midiEffects", chain(parameters)), 0);
    ASSERT_EQ(count(KRT_PLX_EffectBase_numParameters, effect), literals.size());
    for (std::size_t i = 0; i < literals.size(); ++i) {
        const float read =
            KRT_PLX_EffectParameterBase_valueFloat(KRT_PLX_Effect_parameter(effect, i));
        const float expected = expectedFloat(literals[i]);
        ASSERT_EQ(std::memcmp(&read, &expected, sizeof read), 0)
            << literals[i] << " gives " << read << " instead of " << expected;
    }
}

} // namespace
