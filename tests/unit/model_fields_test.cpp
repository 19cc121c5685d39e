#include <limits>
#include <set>
#include <string_view>

#include <gtest/gtest.h>

#include "model/codes.h"
#include "model/fields.h"
#include "support/limits.h"

using support::largest;
using support::smallest;

namespace {

using namespace Korvel::CANTORIS::PLX;

// --- Ranges -------------------------------------------------------------------------------------------

TEST(ModelFields, AcceptBothBoundsAndNothingBeyond)
{
    constexpr Field<std::int32_t> field{.initial = 0, .minimum = -3, .maximum = 5};
    EXPECT_TRUE(field.accepts(-3));
    EXPECT_TRUE(field.accepts(5));
    EXPECT_FALSE(field.accepts(-4));
    EXPECT_FALSE(field.accepts(6));
}

TEST(ModelFields, AcceptNaN)
{
    EXPECT_TRUE(field::aiExpression.accepts(std::numeric_limits<float>::quiet_NaN()));
    EXPECT_FALSE(field::aiExpression.accepts(std::numeric_limits<float>::infinity()));
    EXPECT_FALSE(field::aiExpression.accepts(-std::numeric_limits<float>::infinity()));
}

TEST(ModelFields, ASpanLiesWithinTheLongerOne)
{
    EXPECT_TRUE(within(480).accepts(0));
    EXPECT_TRUE(within(480).accepts(480));
    EXPECT_FALSE(within(480).accepts(481));
    EXPECT_FALSE(within(480).accepts(-1));
    EXPECT_TRUE(within(0).accepts(0));
    EXPECT_FALSE(within(0).accepts(1));
}

// Except for languages, the initial value of a field can also be set.
TEST(ModelFields, InitialValuesAreWithinTheRange)
{
    for (const UnsignedField& each :
         {field::partKey, field::noteNumber, field::velocity, field::accent, field::bendDepth,
          field::bendLength, field::decay, field::opening, field::dvqmSpeed,
          field::singingSkillWeight, field::vibratoType, field::vibratoValue}) {
        EXPECT_TRUE(each.accepts(each.initial));
    }
    EXPECT_TRUE(field::partDuration.accepts(field::partDuration.initial));
    EXPECT_TRUE(field::noteDuration.accepts(field::noteDuration.initial));
    EXPECT_TRUE(field::notePosition.accepts(field::notePosition.initial));
    EXPECT_FALSE(field::language.accepts(field::language.initial));
}

// --- Part types ---------------------------------------------------------------------------------------

TEST(ModelCodes, PartTypesAndTheirWords)
{
    EXPECT_EQ(part_type::name(KRT_PLX_PART_AUDIO), "audio");
    EXPECT_EQ(part_type::name(KRT_PLX_PART_MIDI_AI), "midiAi");
    EXPECT_EQ(part_type::name(KRT_PLX_PART_MIDI), "midi");
    for (std::uint32_t code = 1; code <= 3; ++code) {
        EXPECT_EQ(part_type::fromName(part_type::name(code)), code);
    }
}

TEST(ModelCodes, UnknownPartTypesHaveNoWord)
{
    for (const std::uint32_t code : {0u, 4u, 5u, 0x80000000u, 0xFFFFFFFFu}) {
        EXPECT_EQ(part_type::name(code), "");
    }
    for (const std::string_view word : {"", "Audio", "midiAI", "midi ", "mid"}) {
        EXPECT_EQ(part_type::fromName(word), KRT_PLX_PART_NONE);
    }
}

TEST(ModelCodes, TwoPartTypesAreMidi)
{
    EXPECT_TRUE(part_type::isMidi(2));
    EXPECT_TRUE(part_type::isMidi(3));
    for (const std::uint32_t code : {0u, 1u, 4u, 0xFFFFFFFFu}) {
        EXPECT_FALSE(part_type::isMidi(code));
    }
}

// --- Controllers --------------------------------------------------------------------------------------

TEST(ModelCodes, ControllersAndTheirWords)
{
    std::set<std::string_view> words;
    for (std::uint32_t code = 0; code < KRT_PLX_CONTROLLER_NONE; ++code) {
        const std::string_view word = controller::type(code).name;
        EXPECT_FALSE(word.empty());
        EXPECT_TRUE(words.insert(word).second);
        EXPECT_EQ(controller::fromName(word), code);
    }
    EXPECT_EQ(KRT_PLX_CONTROLLER_NONE, 12u);
}

TEST(ModelCodes, AnUnknownControllerTakesNoValue)
{
    for (const std::uint32_t code : {12u, 13u, 0x80000000u, 0xFFFFFFFFu}) {
        const controller::Type& type = controller::type(code);
        EXPECT_EQ(type.name, "");
        EXPECT_EQ(type.minimum, largest);
        EXPECT_EQ(type.maximum, smallest);
        for (const std::int32_t value : {0, 1, -1, 127, smallest, largest}) {
            EXPECT_FALSE(type.accepts(value));
        }
    }
}

TEST(ModelCodes, OtherWordsAreUnknownControllers)
{
    for (const std::string_view word : {"", "Dynamics", "pitchbend", "dynamics ", "volume"}) {
        EXPECT_EQ(controller::fromName(word), KRT_PLX_CONTROLLER_NONE);
    }
}

} // namespace
