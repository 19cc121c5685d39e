// Reading the tags of a catalogue clip.
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "support/host.h"
#include "support/properties.h"

using support::midiDocument;
using support::midiDocumentWithID;
using support::propertyDocument;
using support::TagList;
using support::utf8;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const auto& [singerGroups, singerIDs, types, genres, vendors] = support::tagLists;

std::vector<std::string> texts(KRT_PLX_Filter* filter, const TagList& list)
{
    std::vector<std::string> result;
    std::uint64_t count = 0;
    EXPECT_TRUE(list.count(filter, &count));
    for (std::uint64_t i = 0; i < count; ++i) {
        result.push_back(utf8(list.at(filter, i)));
    }
    return result;
}

std::vector<std::int32_t> languages(KRT_PLX_Filter* filter)
{
    std::vector<std::int32_t> result;
    std::uint64_t count = 0;
    EXPECT_TRUE(KRT_PLX_Filter_numLanguages(filter, &count));
    for (std::uint64_t i = 0; i < count; ++i) {
        result.push_back(KRT_PLX_Filter_language(filter, i));
    }
    return result;
}

class FilterReading : public HostTest {
protected:
    // The filter of a system clip whose property document has these members.
    KRT_PLX_Filter* filterOf(const std::string& members)
    {
        return KRT_PLX_Clip_filter(
            readSystemClip(propertyDocument("id", "midi", ", " + members), midiDocument()));
    }
};

TEST_F(FilterReading, GivesEveryListInTheOrderOfTheDocument)
{
    KRT_PLX_Filter* filter = filterOf(R"("vendor": "Studio", "filter": {
        "singerGroups": ["Trio", "Duo"], "languages": [4, 0, 2], "singerIDs": ["b", "a", "c"],
        "types": ["Verse"], "genres": ["ロック", "𝄞", "Émotion"]})");

    EXPECT_THAT(texts(filter, singerGroups), ElementsAre("Trio", "Duo"));
    EXPECT_THAT(languages(filter), ElementsAre(4, 0, 2));
    EXPECT_THAT(texts(filter, singerIDs), ElementsAre("b", "a", "c"));
    EXPECT_THAT(texts(filter, types), ElementsAre("Verse"));
    EXPECT_THAT(texts(filter, genres), ElementsAre("ロック", "𝄞", "Émotion"));
    EXPECT_THAT(texts(filter, vendors), ElementsAre("Studio"));
}

TEST_F(FilterReading, GivesNothingForADocumentWithoutTags)
{
    KRT_PLX_Filter* filter = filterOf(R"("vendor": "Studio")");

    for (const TagList& list : {singerGroups, singerIDs, types, genres, vendors}) {
        EXPECT_THAT(texts(filter, list), IsEmpty());
    }
    EXPECT_THAT(languages(filter), IsEmpty());
}

TEST_F(FilterReading, IgnoresTagsThatAreNoObject)
{
    for (const char* value : {"null", "[]", R"(["genres"])", "1", "true", R"("genres")"}) {
        KRT_PLX_Filter* filter = filterOf(R"("vendor": "Studio", "filter": )" + std::string(value));

        EXPECT_THAT(texts(filter, genres), IsEmpty()) << value;
        EXPECT_THAT(texts(filter, vendors), IsEmpty()) << value;
    }
}

// --- Vendors -----------------------------------------------------------------------------------------

TEST_F(FilterReading, GivesTheVendorNameAsTheOneVendor)
{
    KRT_PLX_Filter* filter =
        filterOf(R"("filter": {"vendors": ["other"], "vendor": "other"}, "vendor": "Studio")");

    EXPECT_THAT(texts(filter, vendors), ElementsAre("Studio"));
}

TEST_F(FilterReading, GivesAnEmptyVendorForAClipWithoutVendorName)
{
    KRT_PLX_Filter* filter = filterOf(R"("filter": {})");

    EXPECT_THAT(texts(filter, vendors), ElementsAre(""));
    ASSERT_NE(KRT_PLX_Filter_vendor(filter, 0), nullptr);
    EXPECT_EQ(KRT_PLX_Filter_vendor(filter, 1), nullptr);
}

TEST_F(FilterReading, GivesTheVendorAlsoForAClipListedFromItsClipFile)
{
    KRT_PLX_ClipBase* clip =
        readSystemClip(std::nullopt, R"({"id": "id", "name": "name", "vendor": "Studio",
            "midi": {"duration": 1, "voice": {"compID": "ABCDEFGHIJKLMNOP", "langID": 1}},
            "filter": {"types": ["Verse"]}})");

    EXPECT_THAT(texts(KRT_PLX_Clip_filter(clip), types), ElementsAre("Verse"));
    EXPECT_THAT(texts(KRT_PLX_Clip_filter(clip), vendors), ElementsAre("Studio"));
}

// --- The four lists of texts ----------------------------------------------------------------------------

class TextLists : public FilterReading, public testing::WithParamInterface<TagList> {
protected:
    std::vector<std::string> read(const std::string& value)
    {
        return texts(
            filterOf(R"("filter": {")" + std::string(GetParam().key) + "\": " + value + "}"),
            GetParam());
    }
};

TEST_P(TextLists, LeaveOutRepeatedTexts)
{
    EXPECT_THAT(read(R"(["Pop", "Rock", "Pop", "Rock", "Jazz"])"),
                ElementsAre("Pop", "Rock", "Jazz"));
}

TEST_P(TextLists, TellTextsApartUnitByUnit)
{
    EXPECT_THAT(read(R"(["Pop", "pop", "Pop ", "é", "e\u0301"])"),
                ElementsAre("Pop", "pop", "Pop ", "é", "e\u0301"));
}

TEST_P(TextLists, LeaveOutTheEmptyText)
{
    EXPECT_THAT(read(R"(["", "Pop", ""])"), ElementsAre("Pop"));
}

TEST_P(TextLists, LeaveOutWhatIsNoText)
{
    EXPECT_THAT(read(R"([1, "Pop", null, true, ["Rock"], {"Rock": "Rock"}, 1.5, "Jazz"])"),
                ElementsAre("Pop", "Jazz"));
}

TEST_P(TextLists, AreEmptyWhenTheirValueIsNoArray)
{
    for (const char* value : {"null", "\"Pop\"", "{}", "1", "false"}) {
        EXPECT_THAT(read(value), IsEmpty()) << value;
    }
}

TEST_P(TextLists, MayBeLong)
{
    std::string value = "[";
    for (int i = 0; i < 1000; ++i) {
        value += "\"tag " + std::to_string(i) + "\", ";
    }
    const std::vector<std::string> tags = read(value + "\"last\"]");

    ASSERT_EQ(tags.size(), 1001U);
    EXPECT_EQ(tags[500], "tag 500");
    EXPECT_EQ(tags[1000], "last");
}

TEST_P(TextLists, GiveNullForAnIndexThatIsNotBelowTheCount)
{
    ASSERT_EQ(read(R"(["Pop", "Rock"])").size(), 2U);
    KRT_PLX_Filter* filter = KRT_PLX_Clip_filter(systemClip(0));

    EXPECT_EQ(GetParam().at(filter, 2), nullptr);
    EXPECT_EQ(GetParam().at(filter, std::uint64_t{1} << 32), nullptr);
    EXPECT_EQ(GetParam().at(filter, std::numeric_limits<std::uint64_t>::max()), nullptr);
    EXPECT_FALSE(GetParam().count(filter, nullptr));
}

TEST_P(TextLists, ReturnTheSameTextEachTime)
{
    ASSERT_EQ(read(R"(["Pop"])").size(), 1U);
    KRT_PLX_Filter* filter = KRT_PLX_Clip_filter(systemClip(0));

    EXPECT_EQ(GetParam().at(filter, 0), GetParam().at(filter, 0));
}

INSTANTIATE_TEST_SUITE_P(Lists, TextLists, testing::Values(singerGroups, singerIDs, types, genres),
                         [](const testing::TestParamInfo<TagList>& tested) {
                             return std::string(tested.param.key);
                         });

// --- Languages -----------------------------------------------------------------------------------------------

TEST_F(FilterReading, LeavesOutRepeatedAndNegativeLanguages)
{
    EXPECT_THAT(languages(filterOf(R"("filter": {"languages": [3, 3, -1, "4"]})")), ElementsAre(3));
}

TEST_F(FilterReading, TakesEveryLanguageThatIsAWholeNumberOf32Bits)
{
    EXPECT_THAT(languages(filterOf(
                    R"("filter": {"languages": [2147483647, 0, 128, 2147483648, 4294967296, 3.0,
                                                1e1, null, true, [1], -2147483648]})")),
                ElementsAre(2147483647, 0, 128));
}

TEST_F(FilterReading, GivesNoLanguagesWhenTheirValueIsNoArray)
{
    for (const char* value : {"null", "3", "{}", "\"3\""}) {
        EXPECT_THAT(languages(filterOf(R"("filter": {"languages": )" + std::string(value) + "}")),
                    IsEmpty())
            << value;
    }
}

TEST_F(FilterReading, GivesTheSmallestNumberForALanguageThatIsNotThere)
{
    KRT_PLX_Filter* filter = filterOf(R"("filter": {"languages": [3, 4]})");
    constexpr std::int32_t smallest = std::numeric_limits<std::int32_t>::min();

    EXPECT_EQ(KRT_PLX_Filter_language(filter, 1), 4);
    EXPECT_EQ(KRT_PLX_Filter_language(filter, 2), smallest);
    EXPECT_EQ(KRT_PLX_Filter_language(filter, std::numeric_limits<std::uint64_t>::max()), smallest);
    EXPECT_FALSE(KRT_PLX_Filter_numLanguages(filter, nullptr));
    EXPECT_FALSE(KRT_PLX_Filter_numVendors(filter, nullptr));
}

// --- Read-only ----------------------------------------------------------------------------------------------------

TEST_F(FilterReading, RefusesToBeEdited)
{
    KRT_PLX_Filter* filter = filterOf(R"("filter": {"genres": ["Pop"], "languages": [3]})");

    EXPECT_FALSE(KRT_PLX_MutableFilter_addGenre(filter, support::text("Rock").c_str()));
    EXPECT_FALSE(KRT_PLX_MutableFilter_removeGenre(filter, support::text("Pop").c_str()));
    EXPECT_FALSE(KRT_PLX_MutableFilter_addLanguage(filter, 4));
    EXPECT_FALSE(KRT_PLX_MutableFilter_removeLanguage(filter, 3));

    EXPECT_THAT(texts(filter, genres), ElementsAre("Pop"));
    EXPECT_THAT(languages(filter), ElementsAre(3));
}

} // namespace
