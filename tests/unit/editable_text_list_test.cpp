#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "clip/editable_text_list.h"
#include "support/random.h"

namespace {

using namespace Korvel::CANTORIS::PLX;

String someText(std::size_t number)
{
    String text(number % 3 == 0 ? 30 : 0,
                static_cast<Char>('x')); // some are too long for the string object itself
    for (const char digit : std::to_string(number)) {
        text += static_cast<Char>(digit);
    }
    return text;
}

// Long enough to switch between searching and an index several times.
class EditableTextListTest : public testing::Test {
protected:
    void add(const String& text)
    {
        list.add(text);
        if (std::find(expected.begin(), expected.end(), text) == expected.end()) {
            expected.push_back(text);
        }
    }

    void remove(const String& text)
    {
        const auto found = std::find(expected.begin(), expected.end(), text);
        EXPECT_EQ(list.remove(text), found != expected.end());
        if (found != expected.end()) {
            expected.erase(found);
        }
    }

    void check() const
    {
        ASSERT_EQ(list.size(), expected.size());
        for (std::size_t index = 0; index < expected.size(); ++index) {
            ASSERT_EQ(list[index], expected[index]) << index;
            ASSERT_EQ(list[index].data()[list[index].size()], Char{}) << index;
        }
    }

    String someText() { return ::someText(random.below(4000)); }

    EditableTextList list;
    std::vector<String> expected;
    support::Random random{6};
};

TEST_F(EditableTextListTest, HoldsEachTextOnceInTheOrderOfAdding)
{
    while (expected.size() < 1100) {
        add(someText());
        add(someText());
        remove(someText());
    }
    check();
    while (expected.size() > 900) {
        remove(someText());
    }
    check();
    while (expected.size() < 1100) {
        add(someText());
    }
    check();
    while (!expected.empty()) {
        remove(String(expected[random.below(expected.size())]));
    }
    check();
    add(someText());
    add(expected.front());
    check();
}

TEST_F(EditableTextListTest, KeepsTheAddressesOfItsTexts)
{
    add(::someText(0));
    add(::someText(1));
    const Char* const first = list[0].data();
    const Char* const second = list[1].data();
    for (std::size_t number = 2; number < 1200; ++number) {
        add(::someText(number));
    }
    EXPECT_EQ(list[0].data(), first);
    remove(::someText(0));
    EXPECT_EQ(list[0].data(), second);
    check();
}

// Removing the text also ends the view that is passed.
TEST_F(EditableTextListTest, RemovesATextThatIsPassedFromTheListItself)
{
    for (const std::size_t size : {3u, 1200u}) {
        for (std::size_t number = 0; number < size; ++number) {
            add(::someText(number));
        }
        while (!expected.empty()) {
            EXPECT_TRUE(list.remove(list[expected.size() - 1]));
            expected.pop_back();
        }
        check();
    }
}

} // namespace
