#include <algorithm>
#include <memory>
#include <numeric>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include "model/block_list.h"
#include "model/lists.h"
#include "support/random.h"

namespace {

using namespace Korvel::CANTORIS::PLX;

class Root {
public:
    virtual ~Root() = default;
};

int alive = 0;

// The root is at some offset inside the object, as in the object model.
class Item : public virtual Root {
public:
    explicit Item(int number) : number_(number) { ++alive; }
    // The constructor that FixedList uses; it throws for a negative number.
    Item(const int& factor, int number) : Item(factor * number)
    {
        if (number < 0) {
            throw std::runtime_error("cannot be made");
        }
    }
    Item(const Item&) = delete;
    Item& operator=(const Item&) = delete;
    ~Item() override { --alive; }

    int number() const { return number_; }

private:
    int number_;
};

using Numbers = std::vector<int>;

template <class List>
Numbers numbersOf(const List& list)
{
    Numbers numbers;
    for (std::size_t index = 0; index < list.size(); ++index) {
        numbers.push_back(list.at(index)->number());
    }
    EXPECT_EQ(list.at(list.size()), nullptr);
    return numbers;
}

template <class List>
List& filled(List& list, int size)
{
    for (int number = 0; number < size; ++number) {
        list.insert(list.size(), std::make_unique<Item>(number));
    }
    return list;
}

// --- OwnedList and BlockList --------------------------------------------------------------------------

template <class List>
class ModelLists : public testing::Test {
};
using Lists = testing::Types<OwnedList<Item>, BlockList<Item>>;
TYPED_TEST_SUITE(ModelLists, Lists);

TYPED_TEST(ModelLists, InsertsAtAnyPlace)
{
    TypeParam list;
    EXPECT_EQ(list.at(0), nullptr);
    list.insert(0, std::make_unique<Item>(1));
    list.insert(0, std::make_unique<Item>(0));
    Item* const two = list.insert(2, std::make_unique<Item>(2));
    EXPECT_EQ(list.at(2), two);
    EXPECT_EQ(&list[2], two);
    EXPECT_EQ(numbersOf(list), (Numbers{0, 1, 2}));
}

TYPED_TEST(ModelLists, DestroysWhatItHoldsWhenItGoes)
{
    {
        TypeParam list;
        filled(list, 5);
        EXPECT_EQ(alive, 5);
        list.clear();
        EXPECT_EQ(alive, 0);
        filled(list, 3);
    }
    EXPECT_EQ(alive, 0);
}

TYPED_TEST(ModelLists, HandsOutWhatIsTaken)
{
    TypeParam list;
    Item* const one = filled(list, 3).at(1);
    const std::unique_ptr<Item> taken = list.take(1);
    EXPECT_EQ(taken.get(), one);
    EXPECT_EQ(numbersOf(list), (Numbers{0, 2}));
    EXPECT_EQ(alive, 3);
}

TYPED_TEST(ModelLists, FindsTheVeryElement)
{
    TypeParam list;
    filled(list, 3);
    const Item other(1);
    EXPECT_EQ(list.find(list.at(1)), 1u);
    EXPECT_EQ(list.find(list.at(1), 1), 1u);
    EXPECT_EQ(list.find(list.at(1), 2), list.size());
    EXPECT_EQ(list.find(&other), list.size());
    EXPECT_EQ(list.find(nullptr), list.size());
}

TYPED_TEST(ModelLists, RemovesWhatIsItsOwn)
{
    TypeParam list;
    filled(list, 3);
    const Item other(1);
    EXPECT_FALSE(list.remove(&other));
    EXPECT_TRUE(list.remove(list.at(0)));
    EXPECT_EQ(numbersOf(list), (Numbers{1, 2}));
    EXPECT_EQ(alive, 3);
}

TYPED_TEST(ModelLists, HasByTheAddressOfTheRoot)
{
    TypeParam list;
    filled(list, 3);
    const Item other(1);
    EXPECT_TRUE(list.template has<Root>(list.at(2)));
    EXPECT_FALSE(list.template has<Root>(&other));
    EXPECT_FALSE(list.template has<Root>(nullptr));
    const Root* const dead = list.at(1);
    list.take(1);
    EXPECT_FALSE(list.template has<Root>(dead));
}

// --- OwnedList ----------------------------------------------------------------------------------------

TEST(ModelOwnedList, SortsStably)
{
    OwnedList<Item> list;
    filled(list, 40).stableSortBy([](const Item& item) { return item.number() % 3; });
    Numbers expected;
    for (int rest = 0; rest < 3; ++rest) {
        for (int number = rest; number < 40; number += 3) {
            expected.push_back(number);
        }
    }
    EXPECT_EQ(numbersOf(list), expected);
}

// --- BlockList ----------------------------------------------------------------------------------------

TEST(ModelBlockList, ShiftsFromAnyPlaceToAnyOther)
{
    constexpr int size = 6;
    for (std::size_t from = 0; from < size; ++from) {
        for (std::size_t to = 0; to < size; ++to) {
            BlockList<Item> list;
            filled(list, size).shift(from, to);
            Numbers expected(size);
            std::iota(expected.begin(), expected.end(), 0);
            expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(from));
            expected.insert(expected.begin() + static_cast<std::ptrdiff_t>(to),
                            static_cast<int>(from));
            EXPECT_EQ(numbersOf(list), expected) << from << " to " << to;
        }
    }
}

TEST(ModelBlockList, FindsWhereAConditionBeginsToHold)
{
    for (const int size : {0, 1, 512, 513, 3000}) {
        BlockList<Item> list;
        filled(list, size);
        for (const int from : {0, 1, 511, 512, 513, 1024, 2999, 3000}) {
            const std::size_t expected = static_cast<std::size_t>(std::min(from, size));
            EXPECT_EQ(list.firstWhere([from](const Item& item) { return item.number() >= from; }),
                      expected);
        }
    }
}

// Long enough for many blocks, some of which fill up, are split and become empty.
class ModelLongBlockList : public testing::Test {
protected:
    void insert(std::size_t index)
    {
        Item* const item = list.insert(index, std::make_unique<Item>(0));
        expected.insert(at(index), item);
    }

    void take(std::size_t index)
    {
        EXPECT_EQ(list.take(index).get(), expected[index]);
        expected.erase(at(index));
    }

    void shift(std::size_t from, std::size_t to)
    {
        const Item* const item = expected[from];
        list.shift(from, to);
        expected.erase(at(from));
        expected.insert(at(to), item);
    }

    void check() const
    {
        ASSERT_EQ(list.size(), expected.size());
        for (std::size_t index = 0; index < expected.size(); ++index) {
            ASSERT_EQ(list.at(index), expected[index]) << index;
        }
        EXPECT_EQ(list.at(list.size()), nullptr);
        EXPECT_EQ(alive, static_cast<int>(expected.size()));
    }

    std::size_t somePlace() { return random.below(expected.size()); }

    BlockList<Item> list;
    std::vector<const Item*> expected;
    support::Random random{5};

private:
    std::vector<const Item*>::iterator at(std::size_t index)
    {
        return expected.begin() + static_cast<std::ptrdiff_t>(index);
    }
};

TEST_F(ModelLongBlockList, GrowsAtTheEnd)
{
    while (expected.size() < 2000) {
        insert(expected.size());
    }
    check();
}

TEST_F(ModelLongBlockList, GrowsAtTheFront)
{
    while (expected.size() < 2000) {
        insert(0);
    }
    check();
}

TEST_F(ModelLongBlockList, GrowsMovesAndShrinksAnywhere)
{
    while (expected.size() < 4000) {
        insert(random.below(expected.size() + 1));
    }
    check();
    for (int round = 0; round < 300; ++round) {
        shift(somePlace(), somePlace());
    }
    check();
    for (int round = 0; round < 3000; ++round) {
        const std::size_t place = somePlace();
        EXPECT_EQ(list.find(expected[place]), place);
        EXPECT_EQ(list.find(expected[place], place / 2), place);
        EXPECT_EQ(list.find(expected[place], place + 1), list.size());
        take(place);
    }
    check();
    while (expected.size() < 3000) {
        insert(random.below(expected.size() + 1));
    }
    check();
    while (!expected.empty()) {
        take(somePlace());
    }
    check();
    insert(0);
    check();
}

// The remains of the blocks are merged, and the list grows again from there.
TEST_F(ModelLongBlockList, GrowsAgainWhereBlocksHaveMerged)
{
    while (expected.size() < 3000) {
        insert(expected.size());
    }
    for (std::size_t index = expected.size(); index-- > 0;) {
        if (index % 100 != 0) {
            take(index);
        }
    }
    check();
    for (int round = 0; round < 300; ++round) {
        shift(somePlace(), somePlace());
    }
    check();
    while (expected.size() < 3000) {
        insert(random.below(expected.size() + 1));
    }
    check();
}

// --- FixedList ----------------------------------------------------------------------------------------

const int factor = 10;

TEST(ModelFixedList, StartsEmpty)
{
    const FixedList<Item> list;
    EXPECT_EQ(list.size(), 0u);
    EXPECT_EQ(list.at(0), nullptr);
    EXPECT_FALSE(list.has<Root>(nullptr));
}

TEST(ModelFixedList, MakesAnElementOfEachItem)
{
    {
        FixedList<Item> list;
        list.build(factor, Numbers{1, 2, 3});
        EXPECT_EQ(numbersOf(list), (Numbers{10, 20, 30}));
        EXPECT_EQ(list.at(~std::uint64_t{0}), nullptr);
        EXPECT_EQ(alive, 3);
    }
    EXPECT_EQ(alive, 0);
}

TEST(ModelFixedList, ReplacesWhatItHeld)
{
    FixedList<Item> list;
    list.build(factor, Numbers{1, 2, 3});
    list.build(factor, Numbers{4, 5});
    EXPECT_EQ(numbersOf(list), (Numbers{40, 50}));
    EXPECT_EQ(alive, 2);
    list.build(factor, Numbers{});
    EXPECT_EQ(list.size(), 0u);
    EXPECT_EQ(alive, 0);
}

TEST(ModelFixedList, FindsElementsByTheAddressOfTheirRoot)
{
    FixedList<Item> list;
    list.build(factor, Numbers{1, 2});
    const Item other(10);
    EXPECT_TRUE(list.has<Root>(list.at(0)));
    EXPECT_TRUE(list.has<Root>(list.at(1)));
    EXPECT_FALSE(list.has<Root>(&other));
    EXPECT_FALSE(list.has<Root>(nullptr));
}

TEST(ModelFixedList, HoldsWhatWasMadeBeforeOneFailed)
{
    FixedList<Item> list;
    EXPECT_THROW(list.build(factor, Numbers{1, 2, -3, 4}), std::runtime_error);
    EXPECT_EQ(numbersOf(list), (Numbers{10, 20}));
    EXPECT_EQ(alive, 2);
    list.build(factor, Numbers{5});
    EXPECT_EQ(numbersOf(list), (Numbers{50}));
    EXPECT_EQ(alive, 1);
}

} // namespace
