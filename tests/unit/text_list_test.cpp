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

TEST(TextList, SwapsAllItHolds)
{
    TextList list(Views{"Pop"_t, "Rock"_t});
    TextList other(Views{"J-Pop"_t});
    list.swap(other);
    EXPECT_EQ(list.views(), Views{"J-Pop"_t});
    EXPECT_EQ(other.views(), (Views{"Pop"_t, "Rock"_t}));
}

TEST(TextList, SharesItsTextsUntilTheLastListEnds)
{
    TextList first(Views{"Pop"_t, "Rock"_t});
    TextList second = first.share();
    EXPECT_EQ(second[0].data(), first[0].data());
    first = TextList();
    EXPECT_EQ(second.views(), (Views{"Pop"_t, "Rock"_t}));
    EXPECT_EQ(TextList().share().size(), 0u);
}

} // namespace
