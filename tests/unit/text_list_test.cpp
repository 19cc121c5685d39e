#include <gtest/gtest.h>

#include "clip/text_list.h"

namespace {

using namespace Korvel::CANTORIS::PLX;
using namespace Korvel::CANTORIS::PLX::literals;

using Views = std::vector<StringView>;

TEST(TextList, StartsEmpty)
{
    const TextList list;
    EXPECT_EQ(list.size(), 0u);
    EXPECT_EQ(list.find("a"_t), 0u);
    EXPECT_EQ(list.views(), Views());
    EXPECT_EQ(TextList(Views()).size(), 0u);
}

TEST(TextList, KeepsTextsInOrderEachWithItsNul)
{
    const TextList list(Views{"Pop"_t, ""_t, "J-Pop"_t});
    EXPECT_EQ(list.views(), (Views{"Pop"_t, ""_t, "J-Pop"_t}));
    for (std::size_t index = 0; index < list.size(); ++index) {
        EXPECT_EQ(StringView(list[index].data()), list[index]);
    }
}

TEST(TextList, FindsTheFirstEqualTextAndNoLongerOne)
{
    const TextList list(Views{"Pop"_t, "Po"_t, "P"_t, "Po"_t});
    EXPECT_EQ(list.find("Po"_t), 1u);
    EXPECT_EQ(list.find("P"_t), 2u);
    EXPECT_EQ(list.find("pop"_t), list.size());
}

TEST(TextList, AppendsAndErases)
{
    TextList list;
    list.append("a"_t);
    list.append("b"_t);
    list.append(list[0]); // its own text
    EXPECT_EQ(list.views(), (Views{"a"_t, "b"_t, "a"_t}));
    list.erase(0);
    EXPECT_EQ(list.views(), (Views{"b"_t, "a"_t}));
    list.erase(1);
    list.erase(0);
    EXPECT_EQ(list.size(), 0u);
}

} // namespace
