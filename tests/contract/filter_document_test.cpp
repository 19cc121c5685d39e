// The filter object, which is the same in both documents, and the vendor tag that comes with it.

#include <cstdint>
#include <string>
#include <vector>

#include "support/properties.h"
#include "support/reading.h"

namespace {

using support::array;
using support::jsonString;
using support::notArrays;
using support::notObjects;
using support::notStrings;
using support::Object;
using support::TagList;
using support::utf8;
using support::vendorTags;

using Texts = std::vector<std::string>;

struct Document {
    std::string name;
    KRT_PLX_ClipBase* (ReaderTest::*read)(const std::string&);
    Object object;
};

// Makes the reading functions accessible outside the fixture.
struct Reading : ReaderTest {
    static auto properties() { return &Reading::readProperties; }
    static auto whole() { return &Reading::readWhole; }
};

const std::vector<Document> documents = {
    {"Properties", Reading::properties(), support::propertyObject()},
    {"Data", Reading::whole(), support::dataObject()}};

// --- Texts ---

Texts textsOf(KRT_PLX_ClipBase* clip, const TagList& list)
{
    KRT_PLX_Filter* filter = KRT_PLX_Clip_filter(clip);
    EXPECT_NE(filter, nullptr);
    Texts texts;
    for (std::uint64_t i = 0; i < support::count(list.count, filter); ++i) {
        texts.push_back(utf8(list.at(filter, i)));
    }
    EXPECT_EQ(list.at(filter, texts.size()), nullptr);
    return texts;
}

class FilterDocumentTest : public ReaderTest, public testing::WithParamInterface<Document> {
protected:
    KRT_PLX_ClipBase* readDocument(const Object& document)
    {
        KRT_PLX_ClipBase* clip = (this->*GetParam().read)(document);
        EXPECT_NE(clip, nullptr) << document.text();
        return clip;
    }
    KRT_PLX_ClipBase* readFilter(const std::string& value)
    {
        return readDocument(GetParam().object.with("filter", value));
    }
    Texts readTexts(const TagList& list, const std::string& value)
    {
        return textsOf(readFilter(Object{{list.key, value}}), list);
    }
    std::vector<std::int32_t> readLanguages(const std::string& value)
    {
        KRT_PLX_Filter* filter = KRT_PLX_Clip_filter(readFilter(Object{{"languages", value}}));
        std::vector<std::int32_t> languages;
        for (std::uint64_t i = 0; i < support::count(KRT_PLX_Filter_numLanguages, filter); ++i) {
            languages.push_back(KRT_PLX_Filter_language(filter, i));
        }
        EXPECT_EQ(KRT_PLX_Filter_language(filter, languages.size()), KRT_PLX_NO_INT32);
        return languages;
    }
};

INSTANTIATE_TEST_SUITE_P(Documents, FilterDocumentTest, testing::ValuesIn(documents),
                         [](const auto& document) { return document.param.name; });

TEST_P(FilterDocumentTest, FillsEachListFromItsOwnKey)
{
    Object filter = {{"languages", "[4]"}};
    for (const TagList& list : support::tagListsWithKeys) {
        filter = filter.with(list.key, array({jsonString(std::string("of ") + list.key)}));
    }
    for (const Object& ordered : {filter, filter.reversed()}) {
        KRT_PLX_ClipBase* clip = readFilter(ordered);
        for (const TagList& list : support::tagListsWithKeys) {
            EXPECT_EQ(textsOf(clip, list), Texts{std::string("of ") + list.key});
        }
        EXPECT_EQ(KRT_PLX_Filter_language(KRT_PLX_Clip_filter(clip), 0), 4);
    }
}

TEST_P(FilterDocumentTest, KeepsTextsInTheOrderOfTheFile)
{
    for (const TagList& list : support::tagListsWithKeys) {
        EXPECT_EQ(readTexts(list, R"(["b", "a", "さくら", "c", "𝄞"])"),
                  (Texts{"b", "a", "さくら", "c", "𝄞"}));
        EXPECT_EQ(readTexts(list, "[]"), Texts{});
    }
}

TEST_P(FilterDocumentTest, SkipsEmptyAndRepeatedTexts)
{
    for (const TagList& list : support::tagListsWithKeys) {
        EXPECT_EQ(readTexts(list, R"(["", "Pop", "Rock", "Pop", "", "Rock"])"),
                  (Texts{"Pop", "Rock"}));
        EXPECT_EQ(readTexts(list, R"([""])"), Texts{});
    }
}

// The first text repeated, the last one repeated, and nothing but repetitions.
TEST_P(FilterDocumentTest, KeepsTheFirstOfEqualTextsHoweverManyThereAre)
{
    for (const std::size_t number : {1u, 2u, 15u, 16u, 17u, 100u}) {
        Texts different;
        for (std::size_t i = 0; i < number; ++i) {
            different.push_back("tag " + std::to_string(number - i));
        }
        Texts strings;
        for (const std::string& text : different) {
            strings.push_back(jsonString(text));
        }
        strings.push_back(strings.front());
        strings.push_back(strings.back());
        strings.push_back(strings[number - 1]);
        for (const TagList& list : support::tagListsWithKeys) {
            EXPECT_EQ(readTexts(list, array(strings)), different) << number;
            EXPECT_EQ(readTexts(list, array(Texts(number, strings.front()))),
                      Texts{different.front()})
                << number;
        }
    }
}

TEST_P(FilterDocumentTest, TellsTextsApartUnitByUnit)
{
    const Texts different = {"Pop", "pop", "POP", " Pop", "Pop ", "Po", "e\u0301", "\u00E9"};
    Texts strings;
    for (const std::string& text : different) {
        strings.push_back(jsonString(text));
    }
    for (const TagList& list : support::tagListsWithKeys) {
        EXPECT_EQ(readTexts(list, array(strings)), different);
    }
    EXPECT_EQ(readTexts(support::tagListsWithKeys[0], R"(["A", "\u0041", "\ud834\udd1e", "𝄞"])"),
              (Texts{"A", "𝄞"}));
}

TEST_P(FilterDocumentTest, SkipsElementsThatAreNoTexts)
{
    for (const TagList& list : support::tagListsWithKeys) {
        Texts elements = notStrings();
        elements.insert(elements.begin() + 3, jsonString("between"));
        EXPECT_EQ(readTexts(list, array(elements)), Texts{"between"});
    }
}

TEST_P(FilterDocumentTest, IgnoresListsThatAreNoArrays)
{
    for (const TagList& list : support::tagListsWithKeys) {
        for (const std::string& value : notArrays()) {
            EXPECT_EQ(readTexts(list, value), Texts{}) << list.key << value;
        }
    }
    for (const std::string& value : notArrays()) {
        EXPECT_EQ(readLanguages(value), std::vector<std::int32_t>{}) << value;
    }
}

// --- Languages ---

TEST_P(FilterDocumentTest, TakesLanguagesFrom0Up)
{
    support::expectRequiredInteger({0, 2147483647}, [this](const auto& value) {
        const auto languages = readLanguages("[" + value.value_or("") + "]");
        return languages.size() == 1 && std::to_string(languages[0]) == value;
    });
}

TEST_P(FilterDocumentTest, SkipsRepeatedLanguages)
{
    EXPECT_EQ(readLanguages(R"([3, 3, -1, "4"])"), std::vector<std::int32_t>{3});
    EXPECT_EQ(readLanguages("[9, 0, 9, 5, 0, 2147483647]"),
              (std::vector<std::int32_t>{9, 0, 5, 2147483647}));
}

// --- The vendor tag ---

TEST_P(FilterDocumentTest, TagsTheClipWithItsVendor)
{
    const Object document = GetParam().object.with("vendor", jsonString("Studio"));
    for (const Object& ordered :
         {document.with("filter", "{}"), document.with("filter", "{}").reversed()}) {
        EXPECT_EQ(textsOf(readDocument(ordered), vendorTags), Texts{"Studio"});
    }
}

TEST_P(FilterDocumentTest, TagsAClipWithoutVendorWithTheEmptyText)
{
    EXPECT_EQ(textsOf(readFilter("{}"), vendorTags), Texts{""});
    for (const std::string_view vendor : {"\"\"", "5", "null"}) {
        const Object document = GetParam().object.with("vendor", std::string(vendor));
        EXPECT_EQ(textsOf(readDocument(document.with("filter", "{}")), vendorTags), Texts{""});
    }
}

TEST_P(FilterDocumentTest, LeavesAClipWithoutFilterUntagged)
{
    const Object document = GetParam().object.with("vendor", jsonString("Studio"));
    EXPECT_EQ(textsOf(readDocument(document), vendorTags), Texts{});
    for (const std::string& value : notObjects()) {
        KRT_PLX_ClipBase* clip = readDocument(document.with("filter", value));
        EXPECT_EQ(textsOf(clip, vendorTags), Texts{}) << value;
        EXPECT_EQ(textsOf(clip, support::tagListsWithKeys[0]), Texts{}) << value;
        EXPECT_EQ(utf8(KRT_PLX_ClipBase_vendorName(clip)), "Studio") << value;
    }
}

TEST_P(FilterDocumentTest, HasNoKeyForVendors)
{
    for (const std::string_view key : {"vendors", "vendor", "Genres", "genre", "language"}) {
        KRT_PLX_ClipBase* clip = readFilter(Object{{std::string(key), R"(["Other"])"}});
        EXPECT_EQ(textsOf(clip, vendorTags), Texts{""}) << key;
        EXPECT_EQ(textsOf(clip, support::tagListsWithKeys[3]), Texts{}) << key;
    }
}

} // namespace
