// The exact text of the documents that saving writes: which keys, in which order, when they are left
// out, and the form of numbers and texts.
#include <charconv>
#include <cmath>
#include <functional>
#include <limits>

#include "support/editing.h"
#include "support/saving.h"

using support::Form;
using support::text;
using support::utf8;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

namespace {

std::string propertiesOf(const std::string& members)
{
    return R"({"id":"ID","name":"Name",)" + members + "}";
}

// --- The property document --------------------------------------------------------------------------

TEST_F(SaveTest, PropertiesOfAMidiClipHaveAKeyAndNoTempo)
{
    support::createMidiPart(clip);
    EXPECT_EQ(save().properties, propertiesOf(R"("part":{"type":"midi","key":0})"));
    support::createMidiAiPart(clip);
    EXPECT_EQ(save().properties, propertiesOf(R"("part":{"type":"midiAi","key":0})"));
}

TEST_F(SaveTest, PropertiesOfAMidiClipHaveItsTempo)
{
    KRT_PLX_MutableClip_setPartKey(clip, 30);
    KRT_PLX_MutableClip_setPartTempo(clip, 2000);
    support::createMidiPart(clip);
    EXPECT_EQ(save().properties, propertiesOf(R"("part":{"type":"midi","key":30,"tempo":2000})"));
    support::createMidiAiPart(clip);
    EXPECT_EQ(save().properties, propertiesOf(R"("part":{"type":"midiAi","key":30,"tempo":2000})"));
}

TEST_F(SaveTest, PropertiesOfAnAudioClipHaveNeitherKeyNorTempo)
{
    KRT_PLX_MutableClip_setPartKey(clip, 30);
    KRT_PLX_MutableClip_setPartTempo(clip, 2000);
    support::createAudioPart(clip, addWaveFile());
    EXPECT_EQ(save().properties, propertiesOf(R"("part":{"type":"audio"})"));
}

TEST_F(SaveTest, PropertiesNameTheVendorUnlessThereIsNone)
{
    support::createMidiPart(clip);
    KRT_PLX_MutableClip_setVendorName(clip, text("Studio").c_str());
    EXPECT_EQ(save().properties,
              propertiesOf(R"("vendor":"Studio","part":{"type":"midi","key":0})"));
    KRT_PLX_MutableClip_setVendorName(clip, nullptr);
    EXPECT_THAT(save().properties, Not(HasSubstr("vendor")));
}

TEST_F(SaveTest, PropertiesHoldTheTagsInTheirOrder)
{
    support::createMidiPart(clip);
    KRT_PLX_Filter* const tags = KRT_PLX_MutableClip_filter(clip);
    for (const char* const tag : {"z", "a", "m"}) {
        KRT_PLX_MutableFilter_addGenre(tags, text(std::string("genre ") + tag).c_str());
        KRT_PLX_MutableFilter_addType(tags, text(std::string("type ") + tag).c_str());
        KRT_PLX_MutableFilter_addSingerID(tags, text(std::string("ID ") + tag).c_str());
        KRT_PLX_MutableFilter_addSingerGroup(tags, text(std::string("group ") + tag).c_str());
    }
    for (const std::int32_t language : {9, 0, std::numeric_limits<std::int32_t>::max()}) {
        KRT_PLX_MutableFilter_addLanguage(tags, language);
    }
    KRT_PLX_MutableClip_setVendorName(clip, text("Studio").c_str());
    EXPECT_EQ(save().properties, propertiesOf(R"("vendor":"Studio","filter":{)"
                                              R"("singerGroups":["group z","group a","group m"],)"
                                              R"("languages":[9,0,2147483647],)"
                                              R"("singerIDs":["ID z","ID a","ID m"],)"
                                              R"("types":["type z","type a","type m"],)"
                                              R"("genres":["genre z","genre a","genre m"]},)"
                                              R"("part":{"type":"midi","key":0})"));
}

TEST_F(SaveTest, PropertiesLeaveOutEmptyTagLists)
{
    using Fill = std::function<void(KRT_PLX_Filter*)>;
    const auto with = [](auto add) {
        return [add](KRT_PLX_Filter* tags) { add(tags, text("x").c_str()); };
    };
    const std::pair<Fill, std::string> lists[] = {
        {with(KRT_PLX_MutableFilter_addSingerGroup), R"("singerGroups":["x"])"},
        {[](KRT_PLX_Filter* tags) { KRT_PLX_MutableFilter_addLanguage(tags, 3); },
         R"("languages":[3])"},
        {with(KRT_PLX_MutableFilter_addSingerID), R"("singerIDs":["x"])"},
        {with(KRT_PLX_MutableFilter_addType), R"("types":["x"])"},
        {with(KRT_PLX_MutableFilter_addGenre), R"("genres":["x"])"},
    };
    for (const auto& [fill, written] : lists) {
        KRT_PLX_ClipBase* const own = createMutableClip();
        support::createMidiPart(own);
        fill(KRT_PLX_MutableClip_filter(own));
        EXPECT_EQ(documentsOf(support::save(own).clip).properties,
                  propertiesOf(R"("filter":{)" + written + R"(},"part":{"type":"midi","key":0})"));
    }
}

TEST_F(SaveTest, PropertiesHoldNoVendorTags)
{
    support::createMidiPart(clip);
    KRT_PLX_Filter* const tags = KRT_PLX_MutableClip_filter(clip);
    KRT_PLX_MutableFilter_addVendor(tags, text("Other").c_str());
    KRT_PLX_MutableFilter_addVendor(tags, text("").c_str());
    EXPECT_EQ(save().properties, propertiesOf(R"("part":{"type":"midi","key":0})"));
    KRT_PLX_MutableFilter_addType(tags, text("x").c_str());
    EXPECT_EQ(save().properties,
              propertiesOf(R"("filter":{"types":["x"]},"part":{"type":"midi","key":0})"));
}

// --- Parts ------------------------------------------------------------------------------------------

TEST_F(SaveTest, DataOfAnEmptyMidiPart)
{
    support::createMidiPart(clip);
    EXPECT_EQ(save().data,
              R"({"midi":{"duration":1,"voice":{"compID":"ABCDEFGHIJKLMNOP","langID":0}}})");
}

TEST_F(SaveTest, DataOfAnEmptyMidiAiPart)
{
    KRT_PLX_PartBase* const part = support::createMidiAiPart(clip);
    EXPECT_EQ(save().data, R"({"midiAi":{"duration":1,"aiVoice":{"compID":"ABCDEFGHIJKLMNOP",)"
                           R"("langIDs":[{"langID":0}]}}})");
    for (const std::uint32_t language : {127u, 5u, 5u}) {
        KRT_PLX_MutableMidiPart_addAiLangID(part, language);
    }
    EXPECT_THAT(
        save().data,
        EndsWith(R"("langIDs":[{"langID":0},{"langID":127},{"langID":5},{"langID":5}]}}})"));
}

TEST_F(SaveTest, DataOfAnAudioPartNamesTheFileAlone)
{
    KRT_PLX_PartBase* const part = support::createAudioPart(clip, addWaveFile("take 1.wav"));
    KRT_PLX_MutableAudioPart_setRegion(part, 100, 200);
    EXPECT_EQ(save().data, R"({"audio":{"wavFileName":"take 1.wav"}})");
    KRT_PLX_MutableAudioPart_insertAudioEffect(part, 0, text("reverb").c_str());
    EXPECT_EQ(save().data,
              R"({"audio":{"wavFileName":"take 1.wav","audioEffects":[{"id":"reverb"}]}})");
}

TEST_F(SaveTest, DataHoldTheStyleUnlessItIsEmpty)
{
    KRT_PLX_PartBase* const part = support::createMidiPart(clip);
    KRT_PLX_MutableMidiPart_setDuration(part, 2147483647);
    KRT_PLX_MutableMidiPart_setStylePresetID(part, text("preset").c_str());
    EXPECT_THAT(save().data,
                HasSubstr(R"({"duration":2147483647,"stylePresetID":"preset","voice":)"));
    KRT_PLX_MutableMidiPart_setStyleName(part, text("style").c_str());
    EXPECT_THAT(save().data,
                HasSubstr(R"(,"styleName":"style","stylePresetID":"preset","voice":)"));
    KRT_PLX_MutableMidiPart_setStylePresetID(part, nullptr);
    EXPECT_THAT(save().data, HasSubstr(R"(,"styleName":"style","voice":)"));
}

// The settings of the other kind of voice stay in memory.
TEST_F(SaveTest, DataHoldTheVoiceOfTheirOwnTypeAlone)
{
    for (const auto create : {support::createMidiPart, support::createMidiAiPart}) {
        KRT_PLX_PartBase* const part = create(clip);
        KRT_PLX_MutableMidiPart_setVoiceBankID(part, text("QRSTUVWXYZabcdef").c_str());
        KRT_PLX_MutableMidiPart_setLangID(part, 5);
        KRT_PLX_MutableMidiPart_setAiVoiceBankID(part, text("ghijklmnopqrstuv").c_str());
        KRT_PLX_MutableMidiPart_addAiLangID(part, 6);
    }
    EXPECT_THAT(save().data, EndsWith(R"("duration":1,"aiVoice":{"compID":"ghijklmnopqrstuv",)"
                                      R"("langIDs":[{"langID":0},{"langID":6}]}}})"));
}

// --- Numbers ----------------------------------------------------------------------------------------

// The text of the one float that a document holds.
std::string floatText(const std::string& data)
{
    const std::string key = R"("value":)";
    const std::size_t start = data.find(key) + key.size();
    return data.substr(start, data.find('}', start) - start);
}

class SavedFloat : public SaveTest, public testing::WithParamInterface<float> {};

TEST_P(SavedFloat, ReadsBackAsTheSameFloat)
{
    KRT_PLX_PartBase* const part = support::createMidiPart(clip);
    KRT_PLX_EffectBase* const effect =
        KRT_PLX_MutableMidiPart_insertMidiEffect(part, 0, text("x").c_str());
    KRT_PLX_EffectParameterBase* const parameter =
        KRT_PLX_MutableEffect_addParameter(effect, text("p").c_str());
    KRT_PLX_MutableEffectParameter_setValueFloat(parameter, GetParam());
    const std::string written = floatText(save().data);
    double value = 0;
    const auto [end, error] =
        std::from_chars(written.data(), written.data() + written.size(), value);
    EXPECT_EQ(error, std::errc{}) << written;
    EXPECT_EQ(end, written.data() + written.size()) << written;
    EXPECT_EQ(value, static_cast<double>(GetParam())) << written;
    EXPECT_EQ(std::signbit(value), std::signbit(GetParam())) << written;
    EXPECT_NE(written.find_first_of(".e"), std::string::npos) << written;
}

using Limits = std::numeric_limits<float>;
INSTANTIATE_TEST_SUITE_P(Values, SavedFloat,
                         testing::Values(0.0f, -0.0f, 1.0f, -1.0f, 0.1f, 0.5f, 1.0f / 3.0f, 3.0f,
                                         127.0f, 16777216.0f, 1e9f, 1e20f, 1e21f, 1e22f, 1e30f,
                                         1e-4f, 1e-6f, 1e-7f, 1e-20f, 1e-38f, Limits::max(),
                                         Limits::lowest(), Limits::min(), Limits::denorm_min()));

TEST_F(SaveTest, FloatsAreWidenedAndHaveAFraction)
{
    const std::pair<float, const char*> texts[] = {{0.0f, "0.0"},
                                                   {-0.0f, "-0.0"},
                                                   {1.0f, "1.0"},
                                                   {-64.0f, "-64.0"},
                                                   {0.5f, "0.5"},
                                                   {0.25f, "0.25"},
                                                   {1e9f, "1000000000.0"},
                                                   {0.1f, "0.10000000149011612"},
                                                   {0.7f, "0.699999988079071"},
                                                   {16777216.0f, "16777216.0"}};
    KRT_PLX_PartBase* const part = support::createMidiPart(clip);
    KRT_PLX_EffectBase* const effect =
        KRT_PLX_MutableMidiPart_insertMidiEffect(part, 0, text("x").c_str());
    KRT_PLX_EffectParameterBase* const parameter =
        KRT_PLX_MutableEffect_addParameter(effect, text("p").c_str());
    for (const auto& [value, written] : texts) {
        KRT_PLX_MutableEffectParameter_setValueFloat(parameter, value);
        EXPECT_EQ(floatText(save().data), written);
    }
}

// --- Texts ------------------------------------------------------------------------------------------

// A text as it is written in a document, between quotation marks.
std::string written(unsigned unit)
{
    switch (unit) {
    case '"':
        return R"(\")";
    case '\\':
        return R"(\\)";
    case '\b':
        return R"(\b)";
    case '\f':
        return R"(\f)";
    case '\n':
        return R"(\n)";
    case '\r':
        return R"(\r)";
    case '\t':
        return R"(\t)";
    default:
        break;
    }
    if (unit < 0x20) {
        const char* const digits = "0123456789ABCDEF";
        return std::string(R"(\u00)") + digits[unit / 16] + digits[unit % 16];
    }
    return utf8(support::units({unit}).c_str());
}

TEST_F(SaveTest, TextsAreEscapedWhereTheyMustBe)
{
    support::createMidiPart(clip);
    std::string wanted;
    support::Text name;
    for (unsigned unit = 1; unit < 0x200; ++unit) {
        name += static_cast<KRT_PLX_Char>(unit);
        wanted += written(unit);
    }
    KRT_PLX_ClipBase* const saved = support::save(clip, name).clip;
    ASSERT_NE(saved, nullptr);
    EXPECT_EQ(documentsOf(saved).properties,
              R"({"id":"ID","name":")" + wanted + R"(","part":{"type":"midi","key":0}})");
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(saved)), utf8(name.c_str()));
}

TEST_F(SaveTest, TextsBeyondAsciiAreRawUtf8)
{
    support::createMidiPart(clip);
    const char* const names[] = {"\x7F",
                                 "/",
                                 "\xC2\x80",
                                 "\xDF\xBF",
                                 "\xE0\xA0\x80",
                                 "\xE2\x80\xA8\xE2\x80\xA9",
                                 "さくら",
                                 "\xED\x9F\xBF",
                                 "\xEE\x80\x80",
                                 "\xEF\xBB\xBF",
                                 "\xEF\xBF\xBE\xEF\xBF\xBF",
                                 "\xF0\x90\x80\x80",
                                 "𠮷野",
                                 "\xF4\x8F\xBF\xBF"};
    for (const std::string name : names) {
        KRT_PLX_ClipBase* const saved = support::save(clip, name).clip;
        ASSERT_NE(saved, nullptr) << name;
        EXPECT_EQ(documentsOf(saved).properties,
                  R"({"id":"ID","name":")" + name + R"(","part":{"type":"midi","key":0}})");
        EXPECT_EQ(utf8(KRT_PLX_Clip_name(saved)), name);
    }
}

// --- The two forms ----------------------------------------------------------------------------------

TEST_F(SaveTest, IndentedDocumentsStandInLinesOfFourBlanks)
{
    KRT_PLX_PartBase* const part = support::createMidiAiPart(clip);
    KRT_PLX_MutableMidiPart_addAiLangID(part, 1);
    KRT_PLX_MutableFilter_addLanguage(KRT_PLX_MutableClip_filter(clip), 4);
    KRT_PLX_MutableFilter_addLanguage(KRT_PLX_MutableClip_filter(clip), 5);
    const auto [properties, data] = save(Form::indented);
    EXPECT_EQ(properties, R"({
    "id": "ID",
    "name": "Name",
    "filter": {
        "languages": [
            4,
            5
        ]
    },
    "part": {
        "type": "midiAi",
        "key": 0
    }
})");
    EXPECT_EQ(data, R"({
    "midiAi": {
        "duration": 1,
        "aiVoice": {
            "compID": "ABCDEFGHIJKLMNOP",
            "langIDs": [
                {
                    "langID": 0
                },
                {
                    "langID": 1
                }
            ]
        }
    }
})");
}

} // namespace
