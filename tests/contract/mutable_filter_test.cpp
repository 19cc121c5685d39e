#include <limits>
#include <string>
#include <vector>

#include "support/cpu_time.h"
#include "support/editing.h"
#include "support/properties.h"

using support::countOf;
using support::TagList;
using support::tagLists;
using support::Text;
using support::text;
using support::utf8;

namespace {

std::vector<std::string> tagsOf(const TagList& list, KRT_PLX_Filter* filter)
{
    std::vector<std::string> tags;
    const std::uint64_t size = countOf(list.count, filter);
    for (std::uint64_t index = 0; index < size; ++index) {
        tags.push_back(utf8(list.at(filter, index)));
    }
    EXPECT_EQ(list.at(filter, size), nullptr);
    return tags;
}

std::vector<std::int32_t> languagesOf(KRT_PLX_Filter* filter)
{
    std::vector<std::int32_t> numbers;
    const std::uint64_t size = countOf(KRT_PLX_Filter_numLanguages, filter);
    for (std::uint64_t index = 0; index < size; ++index) {
        numbers.push_back(KRT_PLX_Filter_language(filter, index));
    }
    return numbers;
}

using Tags = std::vector<std::string>;
using Languages = std::vector<std::int32_t>;

class MutableFilterTest : public HostTest {
protected:
    KRT_PLX_ClipBase* const clip = createMutableClip();
    KRT_PLX_Filter* const filter = KRT_PLX_MutableClip_filter(clip);
};

class MutableFilterTags : public MutableFilterTest, public testing::WithParamInterface<TagList> {
protected:
    [[nodiscard]] Tags tags() const { return tagsOf(list, filter); }
    bool add(const char* tag) { return list.add(filter, text(tag).c_str()); }
    bool remove(const char* tag) { return list.remove(filter, text(tag).c_str()); }

    double secondsToAdd(const Tags& many)
    {
        std::vector<Text> texts;
        for (const std::string& tag : many) {
            texts.push_back(text(tag));
        }
        return support::cpuSeconds([&] {
            for (const Text& tag : texts) {
                EXPECT_TRUE(list.add(filter, tag.c_str()));
            }
        });
    }

    void clear()
    {
        for (std::uint64_t left = countOf(list.count, filter); left > 0; --left) {
            EXPECT_TRUE(list.remove(filter, list.at(filter, left - 1)));
        }
        EXPECT_EQ(tags(), Tags{});
    }

    const TagList& list = GetParam();
};

TEST_P(MutableFilterTags, StartEmpty)
{
    EXPECT_EQ(tags(), Tags{});
    EXPECT_EQ(list.at(filter, std::numeric_limits<std::uint64_t>::max()), nullptr);
}

TEST_P(MutableFilterTags, KeepTheOrderInWhichTheyWereAdded)
{
    EXPECT_TRUE(add("Rock"));
    EXPECT_TRUE(add("Ballad"));
    EXPECT_TRUE(add("さくら 🎵"));
    EXPECT_EQ(tags(), (Tags{"Rock", "Ballad", "さくら 🎵"}));
}

TEST_P(MutableFilterTags, TakeARepeatedTextWithoutAddingIt)
{
    EXPECT_TRUE(add("Pop"));
    EXPECT_TRUE(add("Jazz"));
    EXPECT_TRUE(add("Pop"));
    EXPECT_EQ(tags(), (Tags{"Pop", "Jazz"}));
}

TEST_P(MutableFilterTags, AreComparedUnitByUnit)
{
    const Tags different = {"Pop", "pop", " Pop", "Pop ", "Po", "Popp", "\u00E9", "e\u0301"};
    for (const std::string& tag : different) {
        EXPECT_TRUE(add(tag.c_str())) << tag;
    }
    EXPECT_EQ(tags(), different);
}

TEST_P(MutableFilterTags, KeepUnitsThatAreNoValidText)
{
    const Text lone = {static_cast<KRT_PLX_Char>(0xD800), static_cast<KRT_PLX_Char>(0xFFFF)};
    EXPECT_TRUE(list.add(filter, lone.c_str()));
    EXPECT_EQ(Text(list.at(filter, 0)), lone);
    EXPECT_TRUE(list.remove(filter, lone.c_str()));
    EXPECT_EQ(tags(), Tags{});
}

TEST_P(MutableFilterTags, RejectNull)
{
    EXPECT_TRUE(add("Pop"));
    EXPECT_FALSE(list.add(filter, nullptr));
    EXPECT_FALSE(list.remove(filter, nullptr));
    EXPECT_EQ(tags(), Tags{"Pop"});
}

// The vendor list alone takes the empty text, once.
TEST_P(MutableFilterTags, TakeTheEmptyTextOnlyForVendors)
{
    const Tags expected = list.takesEmpty ? Tags{""} : Tags{};
    EXPECT_EQ(add(""), list.takesEmpty);
    EXPECT_EQ(tags(), expected);
    EXPECT_EQ(add(""), list.takesEmpty);
    EXPECT_EQ(tags(), expected);
    EXPECT_EQ(remove(""), list.takesEmpty);
    EXPECT_EQ(tags(), Tags{});
}

TEST_P(MutableFilterTags, AreRemovedWithTheOthersKeepingTheirOrder)
{
    for (const char* tag : {"Rock", "Pop", "Jazz"}) {
        add(tag);
    }
    EXPECT_TRUE(remove("Pop"));
    EXPECT_EQ(tags(), (Tags{"Rock", "Jazz"}));
    EXPECT_TRUE(add("Pop"));
    EXPECT_EQ(tags(), (Tags{"Rock", "Jazz", "Pop"}));
    EXPECT_TRUE(remove("Rock"));
    EXPECT_EQ(tags(), (Tags{"Jazz", "Pop"}));
    EXPECT_TRUE(remove("Pop"));
    EXPECT_TRUE(remove("Jazz"));
    EXPECT_EQ(tags(), Tags{});
}

TEST_P(MutableFilterTags, AreNotRemovedWhenAbsent)
{
    EXPECT_FALSE(remove("Pop"));
    EXPECT_TRUE(add("Pop"));
    EXPECT_FALSE(remove("pop"));
    EXPECT_FALSE(remove("Po"));
    EXPECT_FALSE(remove("Popp"));
    EXPECT_FALSE(remove(""));
    EXPECT_EQ(tags(), Tags{"Pop"});
}

TEST_P(MutableFilterTags, MayBeNamedByTheFiltersOwnText)
{
    const std::string longText(300, 'x');
    for (const char* tag : {"Rock", longText.c_str(), "Jazz"}) {
        add(tag);
    }
    EXPECT_TRUE(list.add(filter, list.at(filter, 1)));
    EXPECT_EQ(tags(), (Tags{"Rock", longText, "Jazz"}));
    EXPECT_TRUE(list.remove(filter, list.at(filter, 1)));
    EXPECT_EQ(tags(), (Tags{"Rock", "Jazz"}));
    EXPECT_TRUE(list.remove(filter, list.at(filter, 0)));
    EXPECT_EQ(tags(), Tags{"Jazz"});
}

TEST_P(MutableFilterTags, MayBeNamedByTheEndOfAnotherTag)
{
    add("Rock");
    EXPECT_TRUE(list.add(filter, list.at(filter, 0) + 1));
    EXPECT_EQ(tags(), (Tags{"Rock", "ock"}));
    EXPECT_TRUE(list.remove(filter, list.at(filter, 0) + 1));
    EXPECT_EQ(tags(), Tags{"Rock"});
}

TEST_P(MutableFilterTags, AreCopies)
{
    Text tag = text("Pop");
    list.add(filter, tag.c_str());
    tag[0] = KRT_PLX_Char{'T'};
    EXPECT_EQ(tags(), Tags{"Pop"});
}

Tags manyTags(int count)
{
    Tags tags;
    for (int number = 0; number < count; ++number) {
        tags.push_back("tag " + std::to_string(number));
    }
    return tags;
}

TEST_P(MutableFilterTags, GrowWithoutBoundInNearLinearTime)
{
    Tags many = manyTags(20'000);
    const double tenth = secondsToAdd(manyTags(2000));
    clear();
    support::expectNearLinear(tenth, secondsToAdd(many));
    many.emplace_back(100'000, 'x');
    EXPECT_TRUE(add(many.back().c_str()));
    EXPECT_EQ(tags(), many);
}

// Copying the long one each time would take a hundred times as long. How much longer it takes at
// all is for the benchmark to say.
TEST_P(MutableFilterTags, AreNotAddedSlowlyBehindALongOne)
{
    const Tags many = manyTags(2000);
    const double alone = secondsToAdd(many);
    clear();
    EXPECT_TRUE(add(std::string(1'000'000, 'x').c_str()));
    support::expectAtMost(10, alone, secondsToAdd(many));
    EXPECT_EQ(tags().size(), many.size() + 1);
}

TEST_P(MutableFilterTags, LeaveTheOtherListsAndTheirTextsAlone)
{
    for (const TagList& other : tagLists) {
        ASSERT_TRUE(other.add(filter, text(other.name()).c_str()));
    }
    KRT_PLX_MutableFilter_addLanguage(filter, 3);
    std::vector<const KRT_PLX_Char*> before;
    for (const TagList& other : tagLists) {
        before.push_back(other.at(filter, 0));
    }

    EXPECT_TRUE(add("another"));
    EXPECT_TRUE(remove(list.name()));

    for (std::size_t index = 0; index < std::size(tagLists); ++index) {
        const TagList& other = tagLists[index];
        if (other.key != list.key) {
            EXPECT_EQ(tagsOf(other, filter), Tags{other.name()});
            EXPECT_EQ(utf8(before[index]), other.name());
        }
    }
    EXPECT_EQ(tags(), Tags{"another"});
    EXPECT_EQ(languagesOf(filter), Languages{3});
}

TEST_P(MutableFilterTags, CountIntoNothingIsFalse)
{
    EXPECT_FALSE(list.count(filter, nullptr));
}

TEST_P(MutableFilterTags, OfACatalogueClipCannotBeEdited)
{
    const char* const members = R"(, "filter": {"singerGroups": ["Pop"], "singerIDs": ["Pop"],
        "types": ["Pop"], "genres": ["Pop"]}, "vendor": "Pop")";
    KRT_PLX_ClipBase* const read =
        readUserClip(support::propertyDocument("ID", "midi", members), support::midiDocument());
    KRT_PLX_Filter* const readOnly = KRT_PLX_Clip_filter(read);
    ASSERT_EQ(tagsOf(list, readOnly), Tags{"Pop"});

    EXPECT_FALSE(list.add(readOnly, text("Rock").c_str()));
    EXPECT_FALSE(list.remove(readOnly, text("Pop").c_str()));
    EXPECT_EQ(tagsOf(list, readOnly), Tags{"Pop"});
}

INSTANTIATE_TEST_SUITE_P(Lists, MutableFilterTags, testing::ValuesIn(tagLists),
                         [](const auto& list) { return std::string(list.param.name()); });

TEST_F(MutableFilterTest, IsTheSameForEveryCall)
{
    ASSERT_NE(filter, nullptr);
    EXPECT_EQ(KRT_PLX_MutableClip_filter(clip), filter);
    EXPECT_NE(KRT_PLX_MutableClip_filter(createMutableClip()), filter);
}

TEST_F(MutableFilterTest, TakesLanguagesFromZero)
{
    const std::int32_t largest = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(languagesOf(filter), Languages{});
    EXPECT_FALSE(KRT_PLX_MutableFilter_addLanguage(filter, -1));
    EXPECT_FALSE(
        KRT_PLX_MutableFilter_addLanguage(filter, std::numeric_limits<std::int32_t>::min()));
    EXPECT_EQ(languagesOf(filter), Languages{});
    EXPECT_TRUE(KRT_PLX_MutableFilter_addLanguage(filter, 128));
    EXPECT_TRUE(KRT_PLX_MutableFilter_addLanguage(filter, 0));
    EXPECT_TRUE(KRT_PLX_MutableFilter_addLanguage(filter, largest));
    EXPECT_EQ(languagesOf(filter), (Languages{128, 0, largest}));
}

TEST_F(MutableFilterTest, TakesARepeatedLanguageWithoutAddingIt)
{
    EXPECT_TRUE(KRT_PLX_MutableFilter_addLanguage(filter, 5));
    EXPECT_TRUE(KRT_PLX_MutableFilter_addLanguage(filter, 2));
    EXPECT_TRUE(KRT_PLX_MutableFilter_addLanguage(filter, 5));
    EXPECT_EQ(languagesOf(filter), (Languages{5, 2}));
}

TEST_F(MutableFilterTest, RemovesLanguages)
{
    EXPECT_FALSE(KRT_PLX_MutableFilter_removeLanguage(filter, 0));
    for (const std::int32_t number : {4, 2, 9}) {
        KRT_PLX_MutableFilter_addLanguage(filter, number);
    }
    EXPECT_FALSE(KRT_PLX_MutableFilter_removeLanguage(filter, -1));
    EXPECT_FALSE(KRT_PLX_MutableFilter_removeLanguage(filter, 3));
    EXPECT_TRUE(KRT_PLX_MutableFilter_removeLanguage(filter, 2));
    EXPECT_EQ(languagesOf(filter), (Languages{4, 9}));
    EXPECT_FALSE(KRT_PLX_MutableFilter_removeLanguage(filter, 2));
}

TEST_F(MutableFilterTest, HasNoLanguageBehindTheLast)
{
    KRT_PLX_MutableFilter_addLanguage(filter, 7);
    EXPECT_EQ(KRT_PLX_Filter_language(filter, 0), 7);
    EXPECT_EQ(KRT_PLX_Filter_language(filter, 1), KRT_PLX_NO_INT32);
    EXPECT_EQ(KRT_PLX_Filter_language(filter, std::numeric_limits<std::uint64_t>::max()),
              KRT_PLX_NO_INT32);
    EXPECT_FALSE(KRT_PLX_Filter_numLanguages(filter, nullptr));
}

TEST_F(MutableFilterTest, OfACatalogueClipTakesNoLanguage)
{
    KRT_PLX_ClipBase* const read =
        readUserClip(support::propertyDocument("ID", "midi", R"(, "filter": {"languages": [4]})"),
                     support::midiDocument());
    KRT_PLX_Filter* const readOnly = KRT_PLX_Clip_filter(read);
    EXPECT_FALSE(KRT_PLX_MutableFilter_addLanguage(readOnly, 1));
    EXPECT_FALSE(KRT_PLX_MutableFilter_removeLanguage(readOnly, 4));
}

} // namespace
