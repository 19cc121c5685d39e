#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "clip/editable_tags.h"
#include "clip/filter_tags.h"
#include "support/random.h"

namespace {

using namespace Korvel::CANTORIS::PLX;
using support::Random;

using Texts = std::vector<String>;
using Languages = FilterTags::Languages;

constexpr Tag allTags[] = {Tag::singerGroup, Tag::vendor, Tag::singerID, Tag::type, Tag::genre};

// Short texts are often equal; long ones change their address when they are moved.
String someText(Random& random)
{
    const auto letter = static_cast<Char>('a' + random.below(4));
    return String(random.oneIn(8) ? 40 + random.below(3) : random.below(4), letter);
}

Texts someTexts(Random& random, std::size_t most)
{
    Texts texts;
    for (std::size_t left = random.below(most + 1); left > 0; --left) {
        texts.push_back(someText(random));
    }
    return texts;
}

// A dozen values, few of them equal, so that lists become long.
Texts manyTexts(Random& random, std::size_t size)
{
    Texts texts;
    while (texts.size() < size) {
        String text = someText(random);
        for (int digits = 0; digits < 3; ++digits) {
            text += static_cast<Char>('0' + random.below(10));
        }
        texts.push_back(text);
    }
    return texts;
}

template <class TextList>
std::vector<StringView> viewsOf(const TextList& texts)
{
    std::vector<StringView> views;
    for (std::size_t index = 0; index < texts.size(); ++index) {
        views.push_back(texts[index]);
    }
    return views;
}

// Adds the texts one by one, as a host does, and all at once, as a document does.
void addBothWays(EditableTags& oneByOne, FilterTags& atOnce, Tag tag, const Texts& texts)
{
    for (const String& text : texts) {
        oneByOne.add(tag, text.c_str());
    }
    atOnce.addAll(tag, viewsOf(texts));
    ASSERT_EQ(viewsOf(atOnce.texts(tag)), viewsOf(oneByOne.texts(tag)));
}

TEST(ModelFilterTags, AddingAllEqualsAddingOneByOne)
{
    for (const Tag tag : allTags) {
        Random random(1);
        for (int round = 0; round < 300; ++round) {
            EditableTags oneByOne;
            FilterTags atOnce;
            for (int times = 0; times < 3; ++times) {
                addBothWays(oneByOne, atOnce, tag, someTexts(random, 24));
            }
        }
    }
}

TEST(ModelFilterTags, AddingManyEqualsAddingOneByOne)
{
    for (const Tag tag : allTags) {
        Random random(2);
        EditableTags oneByOne;
        FilterTags atOnce;
        for (const std::size_t size : {1u, 700u, 0u, 700u, 3u}) {
            addBothWays(oneByOne, atOnce, tag, manyTexts(random, size));
        }
        EXPECT_GT(atOnce.texts(tag).size(), 500u);
    }
}

TEST(ModelFilterTags, AddingAllLanguagesEqualsAddingOneByOne)
{
    Random random(3);
    for (int round = 0; round < 300; ++round) {
        EditableTags oneByOne;
        FilterTags atOnce;
        for (const std::size_t size : {5u, 60u, 10u}) {
            Languages numbers;
            while (numbers.size() < size) {
                numbers.push_back(random.between(-3, 50));
                oneByOne.addLanguage(numbers.back());
            }
            atOnce.addAllLanguages(numbers);
            ASSERT_EQ(atOnce.languages(), oneByOne.languages());
        }
    }
}

TEST(ModelFilterTags, OnlyVendorsTakeTheEmptyText)
{
    for (const Tag tag : allTags) {
        const Texts expected = tag == Tag::vendor ? Texts{String{}} : Texts{};
        for (const std::size_t size : {3u, 100u}) {
            FilterTags tags;
            tags.addAll(tag, viewsOf(Texts(size)));
            EXPECT_EQ(viewsOf(tags.texts(tag)), viewsOf(expected));
        }
    }
}

} // namespace
