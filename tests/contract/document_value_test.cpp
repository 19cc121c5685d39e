// Numbers and texts as documents write them: where an int ends and a float begins, numbers too
// large, escapes, and surrogates that belong to no pair.

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "support/reading.h"

namespace {

using support::accepted;
using support::jsonString;
using support::noteObject;
using support::Object;
using support::refused;
using support::universalObject;
using support::utf8;

// --- Numbers ---

class DocumentNumberTest : public ReaderTest {
protected:
    std::int64_t readLanguage(const std::string& value)
    {
        return KRT_PLX_NoteBase_langID(readNote(noteObject().with("langID", value)));
    }
    float readPitch(const std::string& value)
    {
        const Object expression = {{"pitchFine", value}};
        return KRT_PLX_NoteBase_pitchFine(readNote(noteObject().with("aiExp", expression)));
    }
    // The parameter of an audio effect.
    float readParameter(const std::string& value)
    {
        const Object parameter = {{"name", jsonString("x")}, {"value", value}};
        const Object effect = {{"id", jsonString("E")},
                               {"parameters", support::array({parameter})}};
        KRT_PLX_PartBase* part = readMidiPartWith("audioEffects", support::array({effect}));
        KRT_PLX_EffectBase* read = KRT_PLX_MidiPart_audioEffect(part, 0);
        return KRT_PLX_EffectParameterBase_valueFloat(KRT_PLX_Effect_parameter(read, 0));
    }
};

TEST_F(DocumentNumberTest, IsAnIntWithoutFractionAndExponent)
{
    EXPECT_EQ(readLanguage("0"), 0);
    EXPECT_EQ(readLanguage("-0"), 0);
    EXPECT_EQ(readLanguage("127"), 127);
    for (const std::string_view value : {"5.0", "5e0", "5E0", "50e-1", "0.5e1", "0.0", "-0.0"}) {
        EXPECT_EQ(readLanguage(std::string(value)), KRT_PLX_NO_LANGUAGE) << value;
    }
}

TEST_F(DocumentNumberTest, IsAFloatWithFractionOrExponent)
{
    EXPECT_EQ(readPitch("1"), 0.5F);
    EXPECT_EQ(readPitch("0"), 0.5F);
    EXPECT_EQ(readPitch("-0"), 0.5F);
    EXPECT_EQ(readPitch("1.0"), 1.0F);
    EXPECT_EQ(readPitch("1e0"), 1.0F);
    EXPECT_EQ(readPitch("10E-1"), 1.0F);
    EXPECT_EQ(readPitch("0e5"), 0.0F);
    EXPECT_EQ(readPitch("1.5"), 0.5F);
}

TEST_F(DocumentNumberTest, IsNoIntBeyond32Bits)
{
    for (const std::string_view value :
         {"2147483648", "4294967295", "4294967296", "4294967301", "-2147483649", "-4294967291",
          "9223372036854775807", "-9223372036854775808", "18446744073709551615"}) {
        EXPECT_EQ(readLanguage(std::string(value)), KRT_PLX_NO_LANGUAGE) << value;
        EXPECT_EQ(readNote(noteObject().with("pos", std::string(value))), nullptr) << value;
    }
}

TEST_F(DocumentNumberTest, MayBeFarBeyond64BitsWhereNobodyAsks)
{
    for (const std::string& value :
         {std::string("18446744073709551616"), "1" + std::string(300, '0'), std::string("1e308"),
          std::string("-1.7976931348623157e308")}) {
        EXPECT_EQ(accepts(universalObject().with("unknown", value)), accepted) << value;
    }
}

TEST_F(DocumentNumberTest, RefusesTheDocumentWhenItIsTooLargeForADouble)
{
    for (const std::string_view value : {"1e400", "-1e400", "1E400", "1.0e400", "0.1e402", "1e309",
                                         "1e2147483648", "1e99999999999999999999"}) {
        EXPECT_EQ(accepts(universalObject().with("unknown", std::string(value))), refused) << value;
        EXPECT_EQ(accepts(universalObject().with("unknown", "[" + std::string(value) + "]")),
                  refused)
            << value;
        EXPECT_EQ(readMidiPartWith("notes", "[" + std::string(value) + "]"), nullptr) << value;
    }
    EXPECT_EQ(accepts(universalObject().with("unknown", jsonString("1e400"))), accepted);
}

TEST_F(DocumentNumberTest, BecomesZeroWhenItIsTooSmallForADouble)
{
    for (const std::string_view value :
         {"1e-400", "-1e-400", "0.0e-400", "1e-2147483648", "1e-99999999999999999999"}) {
        EXPECT_EQ(readParameter(std::string(value)), 0.0F) << value;
    }
    EXPECT_EQ(readParameter("0." + std::string(400, '0') + "1"), 0.0F);
}

TEST_F(DocumentNumberTest, MayHaveAnyNumberOfDigits)
{
    EXPECT_FLOAT_EQ(readParameter("0." + std::string(1000, '3')), 1.0F / 3);
    EXPECT_FLOAT_EQ(readParameter("1" + std::string(30, '0') + ".0"), 1e30F);
    EXPECT_FLOAT_EQ(readParameter("0." + std::string(30, '0') + "1"), 1e-31F);
    EXPECT_FLOAT_EQ(readParameter("12345678901234567890.5"), 12345678901234567890.5F);
    EXPECT_FLOAT_EQ(readParameter("1e0000000000000000002"), 100.0F);
}

TEST_F(DocumentNumberTest, BecomesTheNearestFloat)
{
    EXPECT_EQ(readParameter("0.1"), 0.1F);
    EXPECT_EQ(readParameter("0.3"), 0.3F);
    EXPECT_EQ(readParameter("16777217.0"), 16777216.0F);
    EXPECT_EQ(readParameter("16777219.0"), 16777220.0F);
    EXPECT_EQ(readParameter("3.14159265358979"), 3.14159265358979F);
    EXPECT_EQ(readParameter("1.17549435e-38"), std::numeric_limits<float>::min());
    EXPECT_EQ(readParameter("1.401298464e-45"), std::numeric_limits<float>::denorm_min());
}

TEST_F(DocumentNumberTest, IsHeldAtTheGreatestFloatAlsoNearTheGreatestDouble)
{
    constexpr float greatest = std::numeric_limits<float>::max();
    constexpr float least = std::numeric_limits<float>::min();
    for (const std::string_view value : {"1.7976931348623157e308", "1e308", "9.9e307"}) {
        EXPECT_EQ(readParameter(std::string(value)), greatest) << value;
        EXPECT_EQ(readParameter("-" + std::string(value)), least) << value;
        EXPECT_EQ(readPitch(std::string(value)), 0.5F) << value;
    }
}

// --- Texts ---

class DocumentTextTest : public ReaderTest {
protected:
    std::string readText(std::string_view escaped)
    {
        const std::string document = universalObject(escaped);
        EXPECT_EQ(accepts(document), accepted) << escaped;
        const std::string lyric = utf8(
            KRT_PLX_NoteBase_lyric(KRT_PLX_MidiPart_note(KRT_PLX_Clip_midiPart(clipOfPart()), 0)));
        EXPECT_EQ(utf8(KRT_PLX_Clip_name(readProperties(document))), lyric) << escaped;
        return lyric;
    }
    // Everywhere that a text may stand.
    void expectRefused(std::string_view escaped)
    {
        const std::string text = jsonString(escaped);
        for (const Object& document :
             {universalObject(escaped), universalObject("x" + std::string(escaped) + "x"),
              universalObject().with("unknown", text),
              universalObject().with("unknown", "[{\"a\": [" + text + "]}]"),
              universalObject().with(escaped, "1")}) {
            EXPECT_EQ(accepts(document), refused) << document.text();
        }
    }
};

TEST_F(DocumentTextTest, KnowsTheEscapes)
{
    EXPECT_EQ(readText(R"(\" \\ \/ \b \f \n \r \t)"), "\" \\ / \b \f \n \r \t");
    EXPECT_EQ(readText(R"(\u0041\u00e9\u00E9\u685c\uFFFF)"), "Aéé桜\uFFFF");
    EXPECT_EQ(readText(R"(\u0001\u001f\u007F)"), "\x01\x1F\x7F");
    EXPECT_EQ(readText(R"(\\u0041)"), "\\u0041");
}

TEST_F(DocumentTextTest, KnowsEscapedPairsOfSurrogates)
{
    EXPECT_EQ(readText(R"(\ud834\udd1e)"), "𝄞");
    EXPECT_EQ(readText(R"(\uD800\uDC00\uDBFF\uDFFF)"), "𐀀\U0010FFFF");
    EXPECT_EQ(readText(R"(x\uD834\uDD1Ex𝄞)"), "x𝄞x𝄞");
}

TEST_F(DocumentTextTest, RefusesAHighSurrogateAlone)
{
    for (const std::string_view text :
         {R"(\ud834)", R"(\ud800)", R"(\udbff)", R"(\ud834x)", R"(\ud834\n)", R"(\ud834\u0041)",
          R"(\ud834\ue000)", R"(\ud834\ud834\udd1e)", R"(\ud834\udbff)", R"(\ud834 \udd1e)"}) {
        expectRefused(text);
    }
}

TEST_F(DocumentTextTest, RefusesALowSurrogateAlone)
{
    for (const std::string_view text :
         {R"(\udc00)", R"(\udd1e)", R"(\udfff)", R"(x\udc00)", R"(\udd1e\ud834)", R"(\udd1e\udd1e)",
          R"(\ud834\udd1e\udd1e)"}) {
        expectRefused(text);
    }
}

TEST_F(DocumentTextTest, EndsAtAnEscapedZero)
{
    EXPECT_EQ(readText(R"(before\u0000after)"), "before");
    const Object document = universalObject();
    EXPECT_EQ(readProperties(document.with("id", R"("\u0000after")")), nullptr);
    EXPECT_EQ(readWhole(document.with("name", R"("\u0000")")), nullptr);
    EXPECT_EQ(readNote(noteObject().with("lyric", R"("\u0000la")")), nullptr);
}

TEST_F(DocumentTextTest, EndsAtAnEscapedZeroForEveryRule)
{
    const Object part = support::midiPartObject()
                            .with("voice", R"({"compID": "ABCDEFGHIJKLMNOP\u0000x", "langID": 1})")
                            .with("midiEffects", R"([{"id": "E"}, {"id": "E\u0000x"}])");
    KRT_PLX_PartBase* read = readPart(support::dataObject("midi", part));
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(utf8(KRT_PLX_MidiPartBase_voiceBankID(read)), "ABCDEFGHIJKLMNOP");
    EXPECT_EQ(KRT_PLX_MidiPart_midiEffect(read, 1), nullptr);
    const Object filter = {{"types", R"(["Verse\u0000x", "Verse\u0000y", "\u0000"])"}};
    KRT_PLX_ClipBase* clip = readProperties(support::propertyObject().with("filter", filter));
    EXPECT_EQ(support::count(KRT_PLX_Filter_numTypes, KRT_PLX_Clip_filter(clip)), 1u);
}

TEST_F(DocumentTextTest, WithAnEscapedZeroIsNoTypeOfAPart)
{
    const Object property = support::propertyObject();
    for (const std::string_view type :
         {R"("midi\u0000x")", R"("midi\u0000")", R"("audio\u0000")", R"("midiAi\u0000x")",
          R"("\u0000midi")", R"("midi\u0000Ai")"}) {
        const Object header = {{"type", std::string(type)}};
        EXPECT_EQ(readProperties(property.with("part", header)), nullptr) << type;
    }
}

TEST_F(DocumentTextTest, WithAnEscapedZeroIsNoNameOfAController)
{
    KRT_PLX_PartBase* read = readMidiPartWith(
        "controllers", R"([{"name": "air\u0000x", "events": [{"pos": 0, "value": 1}]},
                           {"name": "air\u0000", "events": [{"pos": 0, "value": 2}]},
                           {"name": "air", "events": [{"pos": 0, "value": 3}]}])");
    ASSERT_NE(read, nullptr);
    KRT_PLX_MidiControllerBase* lane = KRT_PLX_MidiPart_midiController(read, 10);
    EXPECT_EQ(KRT_PLX_MidiEventBase_value(KRT_PLX_MidiController_event(lane, 0)), 3);
}

// Its integer becomes a float, as that of any other name; but it is stored up to the zero.
TEST_F(DocumentTextTest, WithAnEscapedZeroIsNoBypass)
{
    for (const std::string_view name : {R"("Bypass\u0000x")", R"("Bypass\u0000")"}) {
        const Object parameter = {{"name", std::string(name)}, {"value", "1"}};
        const Object effect = {{"id", jsonString("E")},
                               {"parameters", support::array({parameter})}};
        KRT_PLX_PartBase* part = readMidiPartWith("audioEffects", support::array({effect}));
        KRT_PLX_EffectParameterBase* read =
            KRT_PLX_Effect_parameter(KRT_PLX_MidiPart_audioEffect(part, 0), 0);
        ASSERT_NE(read, nullptr) << name;
        EXPECT_EQ(KRT_PLX_EffectParameterBase_type(read), 2u) << name;
        EXPECT_EQ(KRT_PLX_EffectParameterBase_valueFloat(read), 1.0F) << name;
        EXPECT_EQ(utf8(KRT_PLX_EffectParameterBase_name(read)), "Bypass");
    }
}

TEST_F(DocumentTextTest, WithAnEscapedZeroIsNoKey)
{
    const Object document = universalObject();
    EXPECT_EQ(accepts(document.without("id").with(R"(id\u0000)", R"("ID")")),
              (support::Acceptance{false, false, true}));
    EXPECT_EQ(accepts(document.without("id").with(R"(id\u0000x)", R"("ID")")),
              (support::Acceptance{false, false, true}));
    const Object part = support::midiPartObject().without("duration");
    EXPECT_EQ(readPart(support::dataObject("midi", part.with(R"(duration\u0000)", "480"))),
              nullptr);
    EXPECT_EQ(readPart(support::dataObject(R"(midi\u0000)", support::midiPartObject())), nullptr);
}

TEST_F(DocumentTextTest, WithAnEscapedZeroNamesNoWaveFile)
{
    addWaveFile();
    const Object part = support::audioPartObject();
    EXPECT_NE(readPart(support::dataObject("audio", part)), nullptr);
    for (const std::string_view name :
         {R"("take.wav\u0000")", R"("take.wav\u0000x")", R"("\u0000take.wav")", R"("\u0000")"}) {
        const Object named = part.with("wavFileName", std::string(name));
        EXPECT_EQ(readPart(support::dataObject("audio", named)), nullptr) << name;
        EXPECT_EQ(readWhole(support::dataObject("audio", named)), nullptr) << name;
    }
}

TEST_F(DocumentTextTest, IsKeptWhateverItsCharacters)
{
    for (const std::string_view text :
         {"さくら さくら", "Frère Jacques", "東京特許許可局", "👩‍🎤🎶", "e\u0301",
          "\u200F\u202E", "\uFFFD", "\uFDD0", "\U0001FFFF", "\uE000", "/ ' ` <>&"}) {
        EXPECT_EQ(readText(text), text);
    }
}

} // namespace
