// The grammar of documents: standard JSON and nothing else. Every case is put to all three ways of
// reading: as a property document, as a whole data document, and for its part alone.

#include <string>
#include <string_view>
#include <vector>

#include "support/reading.h"

namespace {

using support::Acceptance;
using support::accepted;
using support::jsonString;
using support::noteObject;
using support::Object;
using support::refused;
using support::universalObject;
using support::utf8;

class StrictnessTest : public ReaderTest {
protected:
    // As a value that nobody asks for, so that only the grammar decides.
    Acceptance acceptsValue(const std::string& value)
    {
        const Acceptance result = accepts(universalObject().with("unknown", value));
        EXPECT_EQ(accepts(universalObject().with("unknown", "[" + value + "]")), result) << value;
        return result;
    }
};

TEST_F(StrictnessTest, TakesAStandardDocument)
{
    EXPECT_EQ(accepts(universalObject()), accepted);
}

TEST_F(StrictnessTest, RefusesWhatIsNoDocument)
{
    for (const std::string_view document :
         {"", " ", "\n\n", "{", "}", "[", "]", "\"", ":", ",", "x", "{]", "[}", "{{}}", "{}{}"}) {
        EXPECT_EQ(accepts(std::string(document)), refused) << document;
    }
}

TEST_F(StrictnessTest, RefusesARootThatIsNoObject)
{
    const std::string object = universalObject();
    for (const std::string& root :
         {std::string("null"), std::string("true"), std::string("5"), std::string("0.5"),
          std::string("\"text\""), std::string("[]"), "[" + object + "]"}) {
        EXPECT_EQ(accepts(root), refused) << root;
    }
}

TEST_F(StrictnessTest, RefusesAnythingBehindTheRoot)
{
    const std::string object = universalObject();
    for (const std::string_view rest : {"x", "{}", "[]", ",", "}", "]", "null", "0", "\"\"", "/",
                                        "//", "/**/", ":", "\n{}", " \n x", "\xEF\xBB\xBF"}) {
        EXPECT_EQ(accepts(object + std::string(rest)), refused) << rest;
    }
    EXPECT_EQ(accepts(object + object), refused);
}

TEST_F(StrictnessTest, RefusesAnythingBeforeTheRoot)
{
    const std::string object = universalObject();
    for (const std::string_view rest : {"x", "{}", ",", "[", "null", "0 ", "//\n", "/**/", "#\n"}) {
        EXPECT_EQ(accepts(std::string(rest) + object), refused) << rest;
    }
}

TEST_F(StrictnessTest, TakesWhiteSpaceAnywhereBetweenTokens)
{
    std::string document;
    for (const char character : universalObject().text()) {
        const bool token = std::string_view("{}[]:,").find(character) != std::string_view::npos;
        document +=
            token ? std::string(" \t\r\n") + character + "\n\r\t " : std::string(1, character);
    }
    EXPECT_EQ(accepts(document), accepted);
}

TEST_F(StrictnessTest, TakesADocumentWithoutWhiteSpace)
{
    std::string document = universalObject("Name").text();
    std::erase(document, ' ');
    EXPECT_EQ(accepts(document), accepted);
}

TEST_F(StrictnessTest, RefusesOtherWhiteSpace)
{
    const std::string object = universalObject();
    for (const std::string_view space : {"\v", "\f", "\b", "\x1F", "\x7F", "\u00A0", "\u0085"}) {
        EXPECT_EQ(accepts(std::string(space) + object), refused);
        EXPECT_EQ(accepts(object + std::string(space)), refused);
        EXPECT_EQ(accepts("{" + std::string(space) + object.substr(1)), refused);
    }
}

TEST_F(StrictnessTest, RefusesComments)
{
    for (const std::string_view comment : {"/* comment */", "// comment\n", "/**/", "//\n",
                                           "# comment\n", "-- comment\n", "; comment\n"}) {
        const std::string text(comment);
        const std::string object = universalObject();
        EXPECT_EQ(accepts(text + object), refused) << comment;
        EXPECT_EQ(accepts(object + text), refused) << comment;
        EXPECT_EQ(accepts("{" + text + object.substr(1)), refused) << comment;
        EXPECT_EQ(acceptsValue("1 " + text), refused) << comment;
        EXPECT_EQ(acceptsValue(text + " 1"), refused) << comment;
        EXPECT_EQ(acceptsValue("[" + text + "]"), refused) << comment;
        EXPECT_EQ(acceptsValue("{" + text + "}"), refused) << comment;
    }
    EXPECT_EQ(accepts(universalObject("/* no comment */ // #")), accepted);
}

TEST_F(StrictnessTest, RefusesCommasOutOfPlace)
{
    for (const std::string_view value :
         {"[1,]", "[,1]", "[,]", "[1,,2]", "[1 2]", "{\"a\":1,}", "{,\"a\":1}", "{,}",
          "{\"a\":1,,\"b\":2}", "{\"a\":1 \"b\":2}", "[{},]", "[[],]"}) {
        EXPECT_EQ(acceptsValue(std::string(value)), refused) << value;
    }
    const std::string object = universalObject();
    EXPECT_EQ(accepts(object.substr(0, object.size() - 1) + ",}"), refused);
    EXPECT_EQ(accepts("{," + object.substr(1)), refused);
}

TEST_F(StrictnessTest, RefusesACommaBehindTheLastElementOfAListThatItKnows)
{
    const std::string note = noteObject();
    const Object part = support::midiPartObject();
    EXPECT_NE(readPart(support::dataObject("midi", part.with("notes", "[" + note + "]"))), nullptr);
    EXPECT_EQ(readPart(support::dataObject("midi", part.with("notes", "[" + note + ",]"))),
              nullptr);
}

TEST_F(StrictnessTest, RefusesObjectsThatAreNotWellFormed)
{
    for (const std::string_view value :
         {"{\"a\"}", "{\"a\":}", "{:1}", "{\"a\" 1}", "{\"a\"=1}", "{a:1}", "{'a':1}", "{1:1}",
          "{null:1}", "{\"a\":1", "{\"a\"::1}", "{\"a\":1:2}", "{[]:1}"}) {
        EXPECT_EQ(acceptsValue(std::string(value)), refused) << value;
    }
}

TEST_F(StrictnessTest, RefusesWordsThatAreNoLiterals)
{
    for (const std::string_view value :
         {"NaN",  "nan",      "-NaN", "Infinity", "-Infinity", "+Infinity", "Inf",   "inf",
          "-Inf", "infinity", "True", "TRUE",     "tru",       "truex",     "False", "fals",
          "Null", "NULL",     "nul",  "nil",      "None",      "undefined", "yes",   "x"}) {
        EXPECT_EQ(acceptsValue(std::string(value)), refused) << value;
    }
    for (const std::string_view value : {"true", "false", "null"}) {
        EXPECT_EQ(acceptsValue(std::string(value)), accepted) << value;
    }
}

TEST_F(StrictnessTest, RefusesNumbersThatAreNotWellFormed)
{
    for (const std::string_view value :
         {"+1",   "01",   "00",    "-01", "1.",  ".5",    "-.5",   "-",
          "--1",  "1.e5", "1e",    "1e+", "1E-", "e5",    "1e5.0", "1.2.3",
          "0x10", "0b1",  "1_000", "1f",  "5%",  "1 000", "- 1",   "1e 5"}) {
        EXPECT_EQ(acceptsValue(std::string(value)), refused) << value;
    }
    for (const std::string_view value : {"0", "-0", "10", "-1", "0.5", "-0.5", "0.0", "1e5", "1E5",
                                         "1e+5", "1e-5", "1.5e05", "-0.0", "-0e-0"}) {
        EXPECT_EQ(acceptsValue(std::string(value)), accepted) << value;
    }
}

TEST_F(StrictnessTest, RefusesStringsThatAreNotWellFormed)
{
    for (const std::string_view value :
         {"\"", "'text'", "\"text", "text\"", "\"a\"b\"", "`text`", "\"a\nb\"", "\"a\tb\"",
          "\"\x01\"", "\"\x1F\"", "\"a\rb\"", "\"a\\\"", "\"\"\""}) {
        EXPECT_EQ(acceptsValue(std::string(value)), refused) << testing::PrintToString(value);
    }
    using std::string_literals::operator""s;
    EXPECT_EQ(acceptsValue("\"a\0b\""s), refused);
    EXPECT_EQ(acceptsValue("\"\x7F\""), accepted);
}

TEST_F(StrictnessTest, RefusesEscapesThatAreNone)
{
    for (const std::string_view escape :
         {"\\x41",   "\\a",     "\\v",     "\\0",     "\\'",     "\\e",    "\\N",
          "\\U0041", "\\",      "\\ ",     "\\u",     "\\u0",    "\\u00",  "\\u004",
          "\\u004g", "\\u 041", "\\u+041", "\\u{41}", "\\u-041", "\\uD834"}) {
        EXPECT_EQ(acceptsValue(jsonString(escape)), refused) << escape;
    }
}

TEST_F(StrictnessTest, RefusesAZeroByteBetweenTokens)
{
    const std::string object = universalObject();
    EXPECT_EQ(accepts("{" + std::string(1, '\0') + object.substr(1)), refused);
    EXPECT_EQ(accepts(std::string(1, '\0') + object), refused);
}

// --- Keys ---

TEST_F(StrictnessTest, KnowsKeysThatAreWrittenWithEscapes)
{
    const Object document = universalObject()
                                .without("id")
                                .without("name")
                                .with("\\u0069d", jsonString("ID"))
                                .with("n\\u0061me", jsonString("Escaped"));
    EXPECT_EQ(accepts(document), accepted);
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(readProperties(document))), "Escaped");
}

TEST_F(StrictnessTest, TakesTheFirstOfTwoMembersOfOneName)
{
    const Object document = universalObject()
                                .repeating("id", jsonString("Second"))
                                .repeating("name", jsonString("Second"))
                                .repeating("midi", "5")
                                .repeating("part", "{}");
    EXPECT_EQ(accepts(document), accepted);
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(readProperties(document))), "Name");
    EXPECT_EQ(utf8(KRT_PLX_Clip_id(readWhole(document))), "ID");
}

TEST_F(StrictnessTest, DoesNotLookForASecondMemberWhenTheFirstIsBad)
{
    const Object document = universalObject();
    const std::vector<std::pair<std::string_view, std::string_view>> bad = {
        {"id", "5"}, {"id", "\"\""}, {"name", "null"}};
    for (const auto& [key, value] : bad) {
        const std::string good = jsonString("Good");
        const Object repeated = document.with(key, std::string(value)).repeating(key, good);
        EXPECT_EQ(readProperties(repeated), nullptr) << key;
        EXPECT_EQ(readWhole(repeated), nullptr) << key;
    }
    EXPECT_EQ(readProperties(document.with("part", "{}").repeating("part", R"({"type": "midi"})")),
              nullptr);
    EXPECT_EQ(
        readPart(document.with("midi", "{}").repeating("midi", support::midiPartObject().text())),
        nullptr);
}

TEST_F(StrictnessTest, TakesTheFirstOfTwoMembersInEveryObject)
{
    const Object note = noteObject()
                            .with("exp", R"({"accent": 1, "accent": 2})")
                            .with("aiExp", R"({"pitchFine": 0.25, "pitchFine": 0.75})")
                            .with("vibrato", R"({"type": 3, "type": 4, "duration": 9, "duration": 5,
                                "depths": [{"pos": 7, "pos": 1, "value": 8, "value": 2}],
                                "depths": [{"pos": 6, "value": 3}]})")
                            .with("singingSkill", R"({"duration": 3, "duration": 4,
                                "weight": {"pre": 5, "pre": 6}, "weight": {"pre": 7}})")
                            .repeating("lyric", jsonString("second"))
                            .repeating("pos", "1")
                            .repeating("exp", R"({"accent": 3})");
    KRT_PLX_NoteBase* read = readNote(note);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(utf8(KRT_PLX_NoteBase_lyric(read)), "la");
    EXPECT_EQ(KRT_PLX_NoteBase_pos(read), 480);
    EXPECT_EQ(KRT_PLX_NoteBase_accent(read), 1u);
    EXPECT_EQ(KRT_PLX_NoteBase_pitchFine(read), 0.25F);
    EXPECT_EQ(KRT_PLX_SingingSkillBase_duration(KRT_PLX_Note_singingSkill(read)), 3);
    EXPECT_EQ(KRT_PLX_SingingSkillBase_preWeight(KRT_PLX_Note_singingSkill(read)), 5u);
    KRT_PLX_VibratoBase* vibrato = KRT_PLX_Note_vibrato(read);
    EXPECT_EQ(KRT_PLX_VibratoBase_type(vibrato), 3u);
    EXPECT_EQ(KRT_PLX_VibratoBase_duration(vibrato), 9);
    EXPECT_EQ(KRT_PLX_VibratoParameterBase_pos(KRT_PLX_Vibrato_parameter(vibrato, 0, 0)), 7);
    EXPECT_EQ(KRT_PLX_VibratoParameterBase_value(KRT_PLX_Vibrato_parameter(vibrato, 0, 0)), 8u);
    EXPECT_EQ(KRT_PLX_Vibrato_parameter(vibrato, 0, 1), nullptr);
}

TEST_F(StrictnessTest, DropsAnElementWhoseFirstMemberIsBad)
{
    EXPECT_EQ(readNote(noteObject().with("velocity", "128").repeating("velocity", "64")), nullptr);
    const std::string lane = R"([{"name": "x", "name": "air", "events": [{"pos": 0, "value": 0}]},
        {"name": "growl", "events": [{"pos": 0, "value": 128, "value": 0}]}])";
    KRT_PLX_PartBase* part = readMidiPartWith("controllers", lane);
    for (std::uint32_t type = 0; type < 12; ++type) {
        EXPECT_EQ(KRT_PLX_MidiPart_midiController(part, type), nullptr) << type;
    }
    part = readMidiPartWith("midiEffects", R"([{"id": "", "id": "E"}, {"id": "F", "parameters": 1,
        "parameters": [{"name": "x", "value": 1}]}])");
    EXPECT_EQ(support::count(KRT_PLX_MidiPartBase_numMidiEffects, part), 1u);
    KRT_PLX_EffectBase* effect = KRT_PLX_MidiPart_midiEffect(part, 0);
    EXPECT_EQ(utf8(KRT_PLX_EffectBase_id(effect)), "F");
    EXPECT_EQ(support::count(KRT_PLX_EffectBase_numParameters, effect), 0u);
}

} // namespace
