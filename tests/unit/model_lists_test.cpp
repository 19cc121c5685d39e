#include <memory>
#include <numeric>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include "model/lists.h"

namespace {

using namespace Korvel::CANTORIS::PLX;

class Root {
public:
    virtual ~Root() = default;
};

int alive = 0;

// The root lies somewhere inside, as in the object model.
class Item : public virtual Root {
public:
    explicit Item(int number) : number_(number) { ++alive; }
    // As a FixedList makes one; a negative number cannot be made.
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

OwnedList<Item>& filled(OwnedList<Item>& list, int size)
{
    for (int number = 0; number < size; ++number) {
        list.append(std::make_unique<Item>(number));
    }
    return list;
}

// --- OwnedList ----------------------------------------------------------------------------------------

TEST(ModelOwnedList, InsertsAtAnyPlace)
{
    OwnedList<Item> list;
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list.at(0), nullptr);
    list.insert(0, std::make_unique<Item>(1));
    list.insert(0, std::make_unique<Item>(0));
    Item* const two = list.insert(2, std::make_unique<Item>(2));
    EXPECT_EQ(list.at(2), two);
    EXPECT_EQ(&list[2], two);
    EXPECT_EQ(numbersOf(list), (Numbers{0, 1, 2}));
    EXPECT_FALSE(list.empty());
}

TEST(ModelOwnedList, DestroysWhatItHoldsWhenItGoes)
{
    {
        OwnedList<Item> list;
        filled(list, 5);
        EXPECT_EQ(alive, 5);
        list.clear();
        EXPECT_EQ(alive, 0);
        filled(list, 3);
    }
    EXPECT_EQ(alive, 0);
}

TEST(ModelOwnedList, HandsOutWhatIsTaken)
{
    OwnedList<Item> list;
    Item* const one = filled(list, 3).at(1);
    const std::unique_ptr<Item> taken = list.take(1);
    EXPECT_EQ(taken.get(), one);
    EXPECT_EQ(numbersOf(list), (Numbers{0, 2}));
    EXPECT_EQ(alive, 3);
}

TEST(ModelOwnedList, FindsTheVeryElement)
{
    OwnedList<Item> list;
    filled(list, 3);
    const Item other(1);
    EXPECT_EQ(list.find(list.at(1)), 1u);
    EXPECT_EQ(list.find(list.at(1), 1), 1u);
    EXPECT_EQ(list.find(list.at(1), 2), list.size());
    EXPECT_EQ(list.find(&other), list.size());
    EXPECT_EQ(list.find(nullptr), list.size());
}

TEST(ModelOwnedList, RemovesWhatIsItsOwn)
{
    OwnedList<Item> list;
    filled(list, 3);
    const Item other(1);
    EXPECT_FALSE(list.remove(&other));
    EXPECT_TRUE(list.remove(list.at(0)));
    EXPECT_EQ(numbersOf(list), (Numbers{1, 2}));
    EXPECT_EQ(alive, 3);
}

TEST(ModelOwnedList, HasByTheAddressOfTheRoot)
{
    OwnedList<Item> list;
    filled(list, 3);
    const Item other(1);
    EXPECT_TRUE(list.has<Root>(list.at(2)));
    EXPECT_FALSE(list.has<Root>(&other));
    EXPECT_FALSE(list.has<Root>(nullptr));
    const Root* const dead = list.at(1);
    list.take(1);
    EXPECT_FALSE(list.has<Root>(dead));
}

TEST(ModelOwnedList, ShiftsFromAnyPlaceToAnyOther)
{
    constexpr int size = 6;
    for (std::size_t from = 0; from < size; ++from) {
        for (std::size_t to = 0; to < size; ++to) {
            OwnedList<Item> list;
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

TEST(ModelOwnedList, SortsStably)
{
    OwnedList<Item> list;
    filled(list, 40).stableSort(
        [](const Item& a, const Item& b) { return a.number() % 3 < b.number() % 3; });
    Numbers expected;
    for (int rest = 0; rest < 3; ++rest) {
        for (int number = rest; number < 40; number += 3) {
            expected.push_back(number);
        }
    }
    EXPECT_EQ(numbersOf(list), expected);
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

TEST(ModelFixedList, HasByTheAddressOfTheRoot)
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
