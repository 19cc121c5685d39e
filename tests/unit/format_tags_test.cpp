// The lists of tags that clips share.
#include <string>

#include <gtest/gtest.h>

#include "format/read.h"
#include "support/text.h"

namespace {

using namespace Korvel::CANTORIS::PLX;

// A property document whose filter has these members.
std::string documentWith(const std::string& members, const std::string& vendor = "Blue")
{
    return R"({"id":"a","name":"b","vendor":")" + vendor + R"(","filter":{)" + members +
           R"(},"part":{"type":"midi"}})";
}

FilterTags read(format::DocumentReader& reader, std::string document)
{
    ClipProperties properties;
    EXPECT_TRUE(reader.readProperties(document, properties)) << document;
    return std::move(properties.filter);
}

std::vector<std::string> textsOf(const TextList& list)
{
    std::vector<std::string> texts;
    for (const StringView text : list.views()) {
        texts.push_back(support::utf8(String(text)));
    }
    return texts;
}

bool share(const TextList& list, const TextList& other)
{
    return list[0].data() == other[0].data();
}

// Lists of tags of that many texts, each of that many letters.
std::string genres(std::size_t texts, std::size_t letters)
{
    std::string list = R"("genres":[)";
    for (std::size_t i = 0; i < texts; ++i) {
        list +=
            (i == 0 ? "\"" : ",\"") + std::string(letters, static_cast<char>('a' + i % 26)) + '"';
    }
    return list + "]";
}

bool areShared(const std::string& members)
{
    format::DocumentReader reader;
    const FilterTags first = read(reader, documentWith(members));
    const FilterTags second = read(reader, documentWith(members));
    EXPECT_EQ(textsOf(first.texts(Tag::genre)), textsOf(second.texts(Tag::genre)));
    return share(first.texts(Tag::genre), second.texts(Tag::genre));
}

TEST(FormatTags, ClipsWithEqualTagsShareTheLists)
{
    format::DocumentReader reader;
    const std::string members = R"("types":["Hook"],"genres":["Pop","夏"])";
    const FilterTags first = read(reader, documentWith(members));
    const FilterTags other =
        read(reader, documentWith(R"("types":["Verse"],"genres":["Pop"])", "Green"));
    const FilterTags second = read(reader, documentWith(members));
    for (const Tag tag : {Tag::type, Tag::genre}) {
        EXPECT_TRUE(share(first.texts(tag), second.texts(tag)));
    }
    EXPECT_EQ(textsOf(other.texts(Tag::type)), std::vector<std::string>{"Verse"});
    EXPECT_EQ(textsOf(other.texts(Tag::vendor)), std::vector<std::string>{"Green"});
    EXPECT_EQ(textsOf(second.texts(Tag::genre)), (std::vector<std::string>{"Pop", "夏"}));
}

TEST(FormatTags, ClipsOfOneVendorShareIt)
{
    format::DocumentReader reader;
    const FilterTags first = read(reader, documentWith(""));
    const FilterTags second = read(reader, documentWith(""));
    EXPECT_TRUE(share(first.texts(Tag::vendor), second.texts(Tag::vendor)));
    EXPECT_EQ(textsOf(second.texts(Tag::vendor)), std::vector<std::string>{"Blue"});
    EXPECT_EQ(textsOf(read(reader, documentWith("", "")).texts(Tag::vendor)),
              std::vector<std::string>{""});
}

// Their texts follow each other without a gap.
TEST(FormatTags, ListsThatAreSplitInAnotherWayAreDifferent)
{
    format::DocumentReader reader;
    const auto genresOf = [&reader](const std::string& list) {
        return textsOf(read(reader, documentWith(R"("genres":)" + list)).texts(Tag::genre));
    };
    EXPECT_EQ(genresOf(R"(["ab","c"])"), (std::vector<std::string>{"ab", "c"}));
    EXPECT_EQ(genresOf(R"(["a","bc"])"), (std::vector<std::string>{"a", "bc"}));
    EXPECT_EQ(genresOf(R"(["abc"])"), std::vector<std::string>{"abc"});
    EXPECT_EQ(genresOf(R"(["","abc","abc"])"), std::vector<std::string>{"abc"});
    EXPECT_EQ(genresOf(R"([])"), std::vector<std::string>());
}

// What is kept for clips to come must not grow with a document.
TEST(FormatTags, OnlySmallListsAreShared)
{
    EXPECT_TRUE(areShared(genres(1, 1023)));
    EXPECT_FALSE(areShared(genres(1, 1024)));
    EXPECT_TRUE(areShared(genres(2, 511)));
    EXPECT_FALSE(areShared(genres(2, 512)));
}

TEST(FormatTags, ManyDifferentListsStayWhole)
{
    format::DocumentReader reader;
    for (int round = 0; round < 2; ++round) {
        for (int number = 0; number < 600; ++number) {
            const std::string text = std::to_string(number);
            const FilterTags tags = read(reader, documentWith(R"("genres":[")" + text + R"("])"));
            ASSERT_EQ(textsOf(tags.texts(Tag::genre)), std::vector<std::string>{text});
        }
    }
}

bool isSharedAfter(int others)
{
    format::DocumentReader reader;
    const auto genre = [&reader](const std::string& text) {
        return read(reader, documentWith(R"("genres":[")" + text + R"("])"));
    };
    const FilterTags first = genre("Pop");
    for (int number = 0; number < others; ++number) {
        genre(std::to_string(number));
    }
    return share(first.texts(Tag::genre), genre("Pop").texts(Tag::genre));
}

// For the same reason the reader forgets its lists when there are many.
TEST(FormatTags, ListsAreForgottenWhenThereAreMany)
{
    EXPECT_TRUE(isSharedAfter(255));
    EXPECT_FALSE(isSharedAfter(256));
}

TEST(FormatTags, OutliveTheirReader)
{
    FilterTags tags;
    {
        format::DocumentReader reader;
        tags = read(reader, documentWith(R"("genres":["Pop"])"));
    }
    EXPECT_EQ(textsOf(tags.texts(Tag::genre)), std::vector<std::string>{"Pop"});
}

} // namespace
