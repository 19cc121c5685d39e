// Finding clips.
#include "kit_fixture.h"

namespace {

using kit::linked;
using support::text;
using support::utf8;
using testing::ElementsAre;
using testing::IsEmpty;

bool contains(const char* whole, const char* part, bool ignoreAccents = false)
{
    return KRT_PLX_Kit_contains(text(whole).c_str(), text(part).c_str(), ignoreAccents);
}

bool equals(const char* left, const char* right, bool ignoreAccents = false)
{
    return KRT_PLX_Kit_equals(text(left).c_str(), text(right).c_str(), ignoreAccents);
}

TEST(KitComparison, FindsWithoutRegardToCase)
{
    EXPECT_TRUE(contains("An die Freude", "DIE"));
    EXPECT_TRUE(contains("Straße", "STRASSE"));
    EXPECT_TRUE(contains("STRASSE", "straße"));
    EXPECT_TRUE(contains("ΟΔΥΣΣΕΥΣ", "οδυσσευς"));
    EXPECT_TRUE(contains("Привет", "ПРИВЕТ"));
    EXPECT_TRUE(contains("𐐀", "𐐨")); // a letter of two units
    EXPECT_TRUE(contains("ﬁnale", "FIN"));
    EXPECT_TRUE(contains("anything", ""));
    EXPECT_TRUE(contains("", ""));
    EXPECT_FALSE(contains("", "a"));
    EXPECT_FALSE(contains("abab", "aba b"));
    EXPECT_TRUE(contains("aabab", "abab"));
    EXPECT_FALSE(contains("I", "ı")); // the dotless i is a letter of its own
}

TEST(KitComparison, FindsAccentsInEitherForm)
{
    EXPECT_TRUE(contains("caf\xC3\xA9", "cafe\xCC\x81"));
    EXPECT_TRUE(contains("CAFE\xCC\x81", "caf\xC3\xA9"));
    EXPECT_FALSE(contains("caf\xC3\xA9", "cafe"));
    EXPECT_FALSE(contains("cafe\xCC\x81s", "cafe"));
    EXPECT_TRUE(contains("한국", "\xE1\x84\x92\xE1\x85\xA1\xE1\x86\xAB"));
    EXPECT_TRUE(equals("하", "\xE1\x84\x92\xE1\x85\xA1"));
    EXPECT_TRUE(contains("e\xCC\x81 e", "e"));
}

TEST(KitComparison, IgnoresAccents)
{
    EXPECT_TRUE(contains("Café crème", "cafe creme", true));
    EXPECT_TRUE(contains("cafe", "CAFÉ", true));
    EXPECT_TRUE(contains("Việt Nam", "viet", true));
    EXPECT_TRUE(equals("ὀδυσσεύς", "οδυσσευς", true));
    EXPECT_FALSE(contains("cafe", "CAFÉ", false));
    EXPECT_TRUE(contains("e\xCC\x81", "", true));
}

TEST(KitComparison, DoesNotIgnoreWhatMakesAnotherLetter)
{
    EXPECT_FALSE(contains("がく", "か", true));
    EXPECT_TRUE(contains("がく", "か\xE3\x82\x99", true));
    EXPECT_FALSE(contains("ぱ", "ば", true));
    EXPECT_FALSE(contains("क़", "क", true));
}

TEST(KitComparison, TakesAWholeTag)
{
    EXPECT_TRUE(equals("Folk", "FOLK"));
    EXPECT_FALSE(equals("Folk", "Folk "));
    EXPECT_FALSE(equals("Folk ", "Folk"));
    EXPECT_FALSE(equals("", "a"));
    EXPECT_TRUE(equals("", ""));
    EXPECT_FALSE(KRT_PLX_Kit_equals(nullptr, nullptr, false));
    EXPECT_FALSE(KRT_PLX_Kit_contains(nullptr, text("").c_str(), false));
    EXPECT_FALSE(KRT_PLX_Kit_contains(text("").c_str(), nullptr, false));
}

TEST(KitComparison, TakesHalfAPairAsItself)
{
    const support::Text half = support::units({'a', 0xD800});
    EXPECT_TRUE(KRT_PLX_Kit_contains(half.c_str(), half.c_str(), true));
    EXPECT_FALSE(KRT_PLX_Kit_equals(half.c_str(), text("a").c_str(), true));
    const support::Text low = support::units({0xDC00});
    EXPECT_FALSE(KRT_PLX_Kit_contains(text("𐐀").c_str(), low.c_str(), true));
}

class KitSearch : public SaveTest {
protected:
    void add(const char* name, std::uint32_t key, std::uint32_t tempo,
             const std::vector<const char*>& genres, std::int32_t language)
    {
        KRT_PLX_ClipBase* const own = createMutableClip();
        KRT_PLX_Filter* const tags = KRT_PLX_MutableClip_filter(own);
        support::createMidiPart(own);
        KRT_PLX_MutableClip_setPartKey(own, key);
        KRT_PLX_MutableClip_setPartTempo(own, tempo);
        KRT_PLX_MutableClip_setVendorName(own, text("Studio").c_str());
        KRT_PLX_MutableFilter_addLanguage(tags, language);
        for (const char* const genre : genres) {
            KRT_PLX_MutableFilter_addGenre(tags, text(genre).c_str());
        }
        ASSERT_NE(support::save(own, name).clip, nullptr);
    }

    KitSearch()
    {
        support::addClip(systemFolder() / "a", support::propertyDocument("first"),
                         support::midiDocument());
        KRT_PLX_Manager_readAllClipFiles(manager());
        add("Été", 1, 12000, {"Pop"}, 1);
        add("Ete", 2, 0, {"Folk", "和風"}, 2);
        add("Winter", 2, 6000, {"folk"}, 1);
    }

    std::vector<std::string> find()
    {
        std::vector<std::string> names;
        std::uint64_t place = 0;
        while (KRT_PLX_ClipBase* const found =
                   KRT_PLX_Kit_find(linked(), manager(), &query, &place)) {
            names.push_back(utf8(KRT_PLX_Clip_name(found)));
        }
        EXPECT_EQ(place, support::systemClipCount(manager()) + support::userClipCount(manager()));
        return names;
    }

    std::vector<std::string> findTags(const std::vector<KRT_PLX_KitTag>& tags)
    {
        query.tags = tags.data();
        query.tagCount = tags.size();
        const auto names = find();
        query.tags = nullptr;
        return names;
    }

    KRT_PLX_KitQuery query = KRT_PLX_Kit_anyClip();
};

TEST_F(KitSearch, FindsSystemClipsFirst)
{
    const auto all = find();
    ASSERT_EQ(all.size(), 4u);
    EXPECT_EQ(all[0], utf8(KRT_PLX_Clip_name(systemClip(0))));
}

TEST_F(KitSearch, FindsNames)
{
    const support::Text words = text("ETE");
    query.name = words.c_str();
    EXPECT_THAT(find(), ElementsAre("Ete"));
    query.ignoreAccents = true;
    EXPECT_THAT(find(), ElementsAre("Été", "Ete"));
}

TEST_F(KitSearch, FindsKeyAndTempo)
{
    query.key = 2;
    EXPECT_THAT(find(), ElementsAre("Ete", "Winter"));
    query.key = KRT_PLX_NO_KEY;
    query.lowestTempo = 6000;
    query.highestTempo = 12000;
    EXPECT_THAT(find(), testing::IsSupersetOf({"Été", "Winter"}));
    EXPECT_THAT(find(), testing::Not(testing::Contains("Ete")));
    query.lowestTempo = 6001;
    query.highestTempo = 12001;
    EXPECT_THAT(find(), testing::Not(testing::Contains("Winter")));
    query.highestTempo = 11999;
    EXPECT_THAT(find(), testing::Not(testing::Contains("Été")));
}

TEST_F(KitSearch, FindsOneTagOfAListAndAllLists)
{
    const support::Text folk = text("FOLK");
    const support::Text pop = text("pop");
    const support::Text studio = text("studio");
    EXPECT_THAT(findTags({{KRT_PLX_KIT_GENRES, folk.c_str(), 0}}), ElementsAre("Ete", "Winter"));
    EXPECT_THAT(findTags({{KRT_PLX_KIT_GENRES, folk.c_str(), 0},
                          {KRT_PLX_KIT_LANGUAGES, nullptr, 1},
                          {KRT_PLX_KIT_GENRES, pop.c_str(), 0}}),
                ElementsAre("Été", "Winter"));
    EXPECT_THAT(
        findTags({{KRT_PLX_KIT_VENDORS, studio.c_str(), 0}, {KRT_PLX_KIT_LANGUAGES, nullptr, 2}}),
        ElementsAre("Ete"));
    EXPECT_THAT(findTags({{KRT_PLX_KIT_TYPES, folk.c_str(), 0}}), IsEmpty());
    EXPECT_THAT(findTags({{KRT_PLX_KIT_GENRES, nullptr, 0}}), IsEmpty());
    EXPECT_THAT(findTags({{77, folk.c_str(), 0}}), IsEmpty());
}

TEST_F(KitSearch, FindsSeveralConditionsAtOnce)
{
    const support::Text folk = text("folk");
    const support::Text words = text("win");
    query.name = words.c_str();
    query.key = 2;
    query.highestTempo = 6000;
    EXPECT_THAT(findTags({{KRT_PLX_KIT_GENRES, folk.c_str(), 0}}), ElementsAre("Winter"));
    query.key = 1;
    EXPECT_THAT(findTags({{KRT_PLX_KIT_GENRES, folk.c_str(), 0}}), IsEmpty());
}

TEST_F(KitSearch, OfNothingFindsNothing)
{
    std::uint64_t place = 0;
    EXPECT_EQ(KRT_PLX_Kit_find(nullptr, manager(), &query, &place), nullptr);
    EXPECT_EQ(KRT_PLX_Kit_find(linked(), nullptr, &query, &place), nullptr);
    EXPECT_EQ(KRT_PLX_Kit_find(linked(), manager(), nullptr, &place), nullptr);
    EXPECT_EQ(KRT_PLX_Kit_find(linked(), manager(), &query, nullptr), nullptr);
    EXPECT_FALSE(KRT_PLX_Kit_matches(linked(), clip, &query));
    EXPECT_FALSE(KRT_PLX_Kit_matches(linked(), nullptr, &query));
}

} // namespace
