#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "model/positions.h"
#include "support/limits.h"
#include "support/random.h"

using support::largest;
using support::smallest;

namespace {

using namespace Korvel::CANTORIS::PLX;
using support::Random;

struct Mark {
    explicit Mark(std::int32_t pos) : position(pos) {}
    std::int32_t pos() const { return position; }

    std::int32_t position;
};

using Marks = BlockList<Mark>;
using Order = std::vector<const Mark*>;

Order orderOf(const Marks& list)
{
    Order order;
    for (std::size_t index = 0; index < list.size(); ++index) {
        order.push_back(list.at(index));
    }
    return order;
}

Marks& filled(Marks& list, std::vector<std::int32_t> positions)
{
    std::ranges::sort(positions);
    for (const std::int32_t pos : positions) {
        list.insert(list.size(), std::make_unique<Mark>(pos));
    }
    return list;
}

std::int32_t somePosition(Random& random)
{
    const std::int32_t ends[] = {smallest, largest};
    return random.oneIn(10) ? random.oneOf(ends) : random.between(-5, 5);
}

std::vector<std::int32_t> somePositions(Random& random)
{
    std::vector<std::int32_t> positions(1 + random.below(60));
    std::ranges::generate(positions, [&random] { return somePosition(random); });
    return positions;
}

TEST(ModelPositions, FirstNotBeforeIsTheFirstAtOrAfterAPosition)
{
    Marks list;
    EXPECT_EQ(firstNotBefore(list, 0), 0u);
    filled(list, {-5, 10, 10, 20});
    EXPECT_EQ(firstNotBefore(list, smallest), 0u);
    EXPECT_EQ(firstNotBefore(list, -5), 0u);
    EXPECT_EQ(firstNotBefore(list, -4), 1u);
    EXPECT_EQ(firstNotBefore(list, 10), 1u);
    EXPECT_EQ(firstNotBefore(list, 11), 3u);
    EXPECT_EQ(firstNotBefore(list, 20), 3u);
    EXPECT_EQ(firstNotBefore(list, largest), 4u);
}

TEST(ModelPositions, IndexAtFindsTheElementItselfAmongEquals)
{
    Marks list;
    filled(list, {1, 2, 2, 2, 3});
    for (std::size_t index = 0; index < list.size(); ++index) {
        EXPECT_EQ(indexAt(list, &list[index], list[index].pos()), index);
    }
    const Mark other(2);
    EXPECT_EQ(indexAt(list, &other, other.pos()), list.size());
}

TEST(ModelPositions, TheElementItselfIsRemovedAmongEquals)
{
    for (std::size_t index = 0; index < 5; ++index) {
        Marks list;
        Order expected = orderOf(filled(list, {1, 2, 2, 2, 3}));
        EXPECT_TRUE(removeOrdered(list, list[index]));
        expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(index));
        EXPECT_EQ(orderOf(list), expected);
        const Mark other(2);
        EXPECT_FALSE(removeOrdered(list, other));
        EXPECT_EQ(orderOf(list), expected);
    }
}

TEST(ModelPositions, APlaceAfterAMoveIsThatOfAStableSort)
{
    Random random(1);
    for (int round = 0; round < 5000; ++round) {
        Marks list;
        filled(list, somePositions(random));
        const std::size_t index = random.below(list.size());
        const std::int32_t pos = somePosition(random);

        const std::size_t place = placeAfterMove(list, index, pos);

        Mark& moved = list[index];
        moved.position = pos;
        Order expected = orderOf(list);
        std::ranges::stable_sort(expected, {}, &Mark::pos);
        list.shift(index, place);
        ASSERT_EQ(orderOf(list), expected) << "round " << round;
    }
}

TEST(ModelPositions, AUniqueMoveDestroysWhatStandsThere)
{
    Random random(2);
    for (int round = 0; round < 5000; ++round) {
        std::vector<std::int32_t> positions = somePositions(random);
        std::ranges::sort(positions);
        positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
        Marks list;
        filled(list, positions);
        Mark& moved = list[random.below(list.size())];
        const std::int32_t pos = somePosition(random);
        Order expected = orderOf(list);
        std::erase_if(expected,
                      [&](const Mark* mark) { return mark != &moved && mark->pos() == pos; });

        moveUnique(list, moved, pos, [&] { moved.position = pos; });

        std::ranges::stable_sort(expected, {}, &Mark::pos);
        ASSERT_EQ(orderOf(list), expected) << "round " << round;
        ASSERT_EQ(moved.pos(), pos);
    }
}

TEST(ModelPositions, AUniqueMoveOfAForeignElementChangesNothing)
{
    Marks list;
    filled(list, {1, 2, 3});
    Mark other(2);
    moveUnique(list, other, 3, [&] { other.position = 3; });
    EXPECT_EQ(other.pos(), 2);
    EXPECT_EQ(list.size(), 3u);
}

// --- Points of documents ----------------------------------------------------------------------------

using Points = std::vector<CurvePoint>;
using Pairs = std::vector<std::pair<std::int32_t, std::int32_t>>;

Pairs pairsOf(const Points& points)
{
    Pairs pairs;
    for (const CurvePoint& point : points) {
        pairs.emplace_back(point.pos, point.value);
    }
    return pairs;
}

Pairs ordered(Points points)
{
    orderCurve(points);
    return pairsOf(points);
}

TEST(ModelPositions, ACurveKeepsTheFirstPointOfAPosition)
{
    EXPECT_EQ(ordered({}), Pairs{});
    EXPECT_EQ(ordered({{1, 10}, {2, 20}, {2, 21}, {3, 30}}), (Pairs{{1, 10}, {2, 20}, {3, 30}}));
    EXPECT_EQ(ordered({{3, 30}, {1, 10}, {3, 31}, {smallest, 0}, {1, 11}}),
              (Pairs{{smallest, 0}, {1, 10}, {3, 30}}));
}

TEST(ModelPositions, ACurveIsThatOfPointsTakenOneByOne)
{
    Random random(3);
    for (int round = 0; round < 1000; ++round) {
        Points points;
        Points expected;
        for (std::size_t left = random.below(50); left > 0; --left) {
            const std::int32_t pos = somePosition(random);
            points.push_back({pos, random.between(0, 127)});
            if (std::ranges::find(expected, pos, &CurvePoint::pos) == expected.end()) {
                expected.push_back(points.back());
            }
        }
        std::ranges::stable_sort(expected, {}, &CurvePoint::pos);
        ASSERT_EQ(ordered(points), pairsOf(expected)) << "round " << round;
    }
}

} // namespace
