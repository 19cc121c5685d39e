// A note's expression and AI expression objects, key by key.

#include <cstdint>
#include <string>
#include <vector>

#include "support/reading.h"

namespace {

using support::notBooleans;
using support::noteObject;
using support::notFloats;
using support::notObjects;
using support::Object;

// --- "exp" ---

struct IntegerKey {
    std::string key;
    support::IntegerRange range;
    std::uint32_t initial;
    std::uint32_t (*get)(KRT_PLX_NoteBase*);
};

class ExpressionIntegerTest : public ReaderTest, public testing::WithParamInterface<IntegerKey> {};

INSTANTIATE_TEST_SUITE_P(
    Keys, ExpressionIntegerTest,
    testing::Values(IntegerKey{"accent", {0, 100}, 50, KRT_PLX_NoteBase_accent},
                    IntegerKey{"bendDepth", {0, 100}, 0, KRT_PLX_NoteBase_bendDepth},
                    IntegerKey{"bendLength", {0, 100}, 0, KRT_PLX_NoteBase_bendLength},
                    IntegerKey{"decay", {0, 100}, 50, KRT_PLX_NoteBase_decay},
                    IntegerKey{"opening", {0, 127}, 127, KRT_PLX_NoteBase_opening}),
    [](const auto& key) { return key.param.key; });

TEST_P(ExpressionIntegerTest, IsTakenWithinItsRange)
{
    const IntegerKey& key = GetParam();
    support::expectOptionalInteger(key.range, key.initial, [this, &key](const auto& value) {
        const Object expression = Object().with(key.key, value);
        return std::int64_t{key.get(readNote(noteObject().with("exp", expression)))};
    });
}

struct FlagKey {
    std::string key;
    bool (*get)(KRT_PLX_NoteBase*);
};

class ExpressionFlagTest : public ReaderTest, public testing::WithParamInterface<FlagKey> {
protected:
    bool readWith(const std::string& value)
    {
        const Object expression = {{GetParam().key, value}};
        KRT_PLX_NoteBase* note = readNote(noteObject().with("exp", expression));
        EXPECT_NE(note, nullptr) << value;
        return GetParam().get(note);
    }
};

INSTANTIATE_TEST_SUITE_P(Keys, ExpressionFlagTest,
                         testing::Values(FlagKey{"fallPort", KRT_PLX_NoteBase_fallPort},
                                         FlagKey{"risePort", KRT_PLX_NoteBase_risePort}),
                         [](const auto& key) { return key.param.key; });

TEST_P(ExpressionFlagTest, IsTakenWhenItIsATruthValue)
{
    EXPECT_TRUE(readWith("true"));
    EXPECT_FALSE(readWith("false"));
    for (const std::string& value : notBooleans()) {
        EXPECT_FALSE(readWith(value)) << value;
    }
}

class ExpressionDocumentTest : public ReaderTest {};

TEST_F(ExpressionDocumentTest, FillsEachFieldFromItsOwnKey)
{
    const Object expression = {{"accent", "1"},      {"bendDepth", "2"},   {"bendLength", "3"},
                               {"decay", "4"},       {"fallPort", "true"}, {"opening", "5"},
                               {"risePort", "false"}};
    for (const Object& ordered : {expression, expression.reversed()}) {
        KRT_PLX_NoteBase* note = readNote(noteObject().with("exp", ordered));
        EXPECT_EQ(KRT_PLX_NoteBase_accent(note), 1u);
        EXPECT_EQ(KRT_PLX_NoteBase_bendDepth(note), 2u);
        EXPECT_EQ(KRT_PLX_NoteBase_bendLength(note), 3u);
        EXPECT_EQ(KRT_PLX_NoteBase_decay(note), 4u);
        EXPECT_EQ(KRT_PLX_NoteBase_opening(note), 5u);
        EXPECT_TRUE(KRT_PLX_NoteBase_fallPort(note));
        EXPECT_FALSE(KRT_PLX_NoteBase_risePort(note));
    }
}

TEST_F(ExpressionDocumentTest, TakesAGoodKeyBesideBadOnes)
{
    const Object expression = {{"accent", "101"}, {"bendDepth", "-1"}, {"bendLength", "null"},
                               {"decay", "7"},    {"fallPort", "1"},   {"risePort", "true"}};
    KRT_PLX_NoteBase* note = readNote(noteObject().with("exp", expression));
    EXPECT_EQ(KRT_PLX_NoteBase_accent(note), 50u);
    EXPECT_EQ(KRT_PLX_NoteBase_bendDepth(note), 0u);
    EXPECT_EQ(KRT_PLX_NoteBase_bendLength(note), 0u);
    EXPECT_EQ(KRT_PLX_NoteBase_decay(note), 7u);
    EXPECT_FALSE(KRT_PLX_NoteBase_fallPort(note));
    EXPECT_TRUE(KRT_PLX_NoteBase_risePort(note));
}

TEST_F(ExpressionDocumentTest, IgnoresAnExpressionThatIsNoObject)
{
    for (const std::string& value : notObjects()) {
        KRT_PLX_NoteBase* note = readNote(noteObject().with("exp", value));
        ASSERT_NE(note, nullptr) << value;
        EXPECT_EQ(KRT_PLX_NoteBase_accent(note), 50u) << value;
        EXPECT_EQ(KRT_PLX_NoteBase_decay(note), 50u) << value;
        EXPECT_EQ(KRT_PLX_NoteBase_opening(note), 127u) << value;
    }
}

// --- "aiExp" ---

struct FloatKey {
    std::string key;
    float (*get)(KRT_PLX_NoteBase*);
};

const std::vector<FloatKey> floatKeys = {
    {"pitchFine", KRT_PLX_NoteBase_pitchFine},
    {"pitchDriftStart", KRT_PLX_NoteBase_pitchDriftStart},
    {"pitchDriftEnd", KRT_PLX_NoteBase_pitchDriftEnd},
    {"pitchScalingCenter", KRT_PLX_NoteBase_pitchScalingCenter},
    {"pitchScalingOrigin", KRT_PLX_NoteBase_pitchScalingOrigin},
    {"pitchTransitionStart", KRT_PLX_NoteBase_pitchTransitionStart},
    {"pitchTransitionEnd", KRT_PLX_NoteBase_pitchTransitionEnd},
    {"amplitudeWhole", KRT_PLX_NoteBase_amplitudeWhole},
    {"amplitudeStart", KRT_PLX_NoteBase_amplitudeStart},
    {"amplitudeEnd", KRT_PLX_NoteBase_amplitudeEnd},
    {"formantWhole", KRT_PLX_NoteBase_formantWhole},
    {"formantStart", KRT_PLX_NoteBase_formantStart},
    {"formantEnd", KRT_PLX_NoteBase_formantEnd},
};

class AiExpressionKeyTest : public ReaderTest, public testing::WithParamInterface<FloatKey> {
protected:
    float readWith(const std::optional<std::string>& value)
    {
        const Object expression = Object().with(GetParam().key, value);
        KRT_PLX_NoteBase* note = readNote(noteObject().with("aiExp", expression));
        EXPECT_NE(note, nullptr);
        return GetParam().get(note);
    }
};

INSTANTIATE_TEST_SUITE_P(Keys, AiExpressionKeyTest, testing::ValuesIn(floatKeys),
                         [](const auto& key) { return key.param.key; });

TEST_P(AiExpressionKeyTest, IsTakenFrom0To1)
{
    EXPECT_EQ(readWith("0.0"), 0.0F);
    EXPECT_EQ(readWith("1.0"), 1.0F);
    EXPECT_EQ(readWith("0.25"), 0.25F);
    EXPECT_EQ(readWith("0.1"), 0.1F);
    EXPECT_EQ(readWith("1e-1"), 0.1F);
    EXPECT_EQ(readWith("1E0"), 1.0F);
    EXPECT_EQ(readWith("0e0"), 0.0F);
    EXPECT_EQ(readWith("25.0e-2"), 0.25F);
    EXPECT_EQ(readWith("-0.0"), 0.0F);
    EXPECT_EQ(readWith("0.99999994"), 0.99999994F);
}

TEST_P(AiExpressionKeyTest, IsIgnoredOutside)
{
    for (const std::string_view value : {"1.0000002", "1.5", "2.0", "100.0", "1e2", "3.4e38",
                                         "-0.0000001", "-1e-30", "-0.25", "-1.0", "-3.4e38"}) {
        EXPECT_EQ(readWith(std::string(value)), 0.5F) << value;
    }
}

TEST_P(AiExpressionKeyTest, IsIgnoredWhenItIsNoFloat)
{
    EXPECT_EQ(readWith(std::nullopt), 0.5F);
    for (const std::string& value : notFloats()) {
        EXPECT_EQ(readWith(value), 0.5F) << value;
    }
}

class AiExpressionDocumentTest : public ReaderTest {
protected:
    void expectAll(const Object& note, float expected)
    {
        KRT_PLX_NoteBase* read = readNote(note);
        ASSERT_NE(read, nullptr);
        for (const FloatKey& key : floatKeys) {
            EXPECT_EQ(key.get(read), expected) << key.key << " in " << note.text();
        }
    }
};

TEST_F(AiExpressionDocumentTest, FillsEachFieldFromItsOwnKey)
{
    Object expression;
    for (std::size_t i = 0; i < floatKeys.size(); ++i) {
        expression = expression.with(floatKeys[i].key, "0." + std::to_string(10 + i));
    }
    for (const Object& ordered : {expression, expression.reversed()}) {
        KRT_PLX_NoteBase* note = readNote(noteObject().with("aiExp", ordered));
        for (std::size_t i = 0; i < floatKeys.size(); ++i) {
            EXPECT_FLOAT_EQ(floatKeys[i].get(note), static_cast<float>(10 + i) / 100)
                << floatKeys[i].key;
        }
    }
}

TEST_F(AiExpressionDocumentTest, LeavesAllFieldsInTheMiddleWhenItIsAbsentOrEmptyOrNoObject)
{
    expectAll(noteObject(), 0.5F);
    expectAll(noteObject().with("aiExp", "{}"), 0.5F);
    for (const std::string& value : notObjects()) {
        expectAll(noteObject().with("aiExp", value), 0.5F);
    }
}

TEST_F(AiExpressionDocumentTest, TakesAGoodKeyBesideBadOnes)
{
    const Object expression = {{"pitchFine", "1"},
                               {"pitchDriftStart", "1.5"},
                               {"pitchDriftEnd", "null"},
                               {"formantEnd", "0.75"}};
    KRT_PLX_NoteBase* note = readNote(noteObject().with("aiExp", expression));
    EXPECT_EQ(KRT_PLX_NoteBase_pitchFine(note), 0.5F);
    EXPECT_EQ(KRT_PLX_NoteBase_pitchDriftStart(note), 0.5F);
    EXPECT_EQ(KRT_PLX_NoteBase_pitchDriftEnd(note), 0.5F);
    EXPECT_EQ(KRT_PLX_NoteBase_formantEnd(note), 0.75F);
}

} // namespace
