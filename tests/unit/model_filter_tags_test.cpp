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

// Takes the texts one by one, as a host adds them, and all at once, as a document has them.
void compareBothWays(Tag tag, const Texts& texts)
{
    EditableTags oneByOne;
    for (const String& text : texts) {
        oneByOne.add(tag, text.c_str());
    }
    ASSERT_EQ(FilterTags::distinct(tag, viewsOf(texts)).views(), viewsOf(oneByOne.texts(tag)));
}

TEST(ModelFilterTags, TakingAllEqualsAddingOneByOne)
{
    for (const Tag tag : allTags) {
        Random random(1);
        for (int round = 0; round < 900; ++round) {
            compareBothWays(tag, someTexts(random, 24));
        }
    }
}

TEST(ModelFilterTags, TakingManyEqualsAddingOneByOne)
{
    for (const Tag tag : allTags) {
        Random random(2);
        for (const std::size_t size : {0u, 1u, 3u, 700u, 1400u}) {
            compareBothWays(tag, manyTexts(random, size));
        }
        EXPECT_GT(FilterTags::distinct(tag, viewsOf(manyTexts(random, 700))).size(), 300u);
    }
}

TEST(ModelFilterTags, TakingAllLanguagesEqualsAddingOneByOne)
{
    Random random(3);
    for (int round = 0; round < 300; ++round) {
        for (const std::size_t size : {5u, 60u, 10u}) {
            EditableTags oneByOne;
            Languages numbers;
            while (numbers.size() < size) {
                numbers.push_back(random.between(-3, 50));
                oneByOne.addLanguage(numbers.back());
            }
            ASSERT_EQ(FilterTags::distinct(numbers), oneByOne.languages());
        }
    }
}

TEST(ModelFilterTags, OnlyVendorsTakeTheEmptyText)
{
    for (const Tag tag : allTags) {
        const Texts expected = tag == Tag::vendor ? Texts{String{}} : Texts{};
        for (const std::size_t size : {3u, 100u}) {
            EXPECT_EQ(FilterTags::distinct(tag, viewsOf(Texts(size))).views(), viewsOf(expected));
        }
    }
}

} // namespace
