#include <chrono>
#include <functional>

#include <gtest/gtest.h>

#include "fs/patience.h"

namespace {

using namespace Korvel::CANTORIS::PLX;
using namespace std::chrono_literals;

std::chrono::nanoseconds timeOf(const std::function<void()>& call)
{
    const auto before = std::chrono::steady_clock::now();
    call();
    return std::chrono::steady_clock::now() - before;
}

TEST(Patience, ComesToAnEnd)
{
    fs::Patience patience(50ms);
    int waits = 0;
    const auto time = timeOf([&] {
        while (patience.wait()) {
            ++waits;
        }
    });
    EXPECT_GE(time, 50ms);
    EXPECT_EQ(waits, 6); // 1, 2, 4, 8, 16 and the rest
    EXPECT_FALSE(patience.wait());
    patience.calm();
    EXPECT_FALSE(patience.wait());
}

TEST(Patience, NeverSleepsLong)
{
    fs::Patience patience(300ms);
    int waits = 0;
    while (patience.wait()) {
        ++waits;
    }
    EXPECT_EQ(waits, 6 + 8); // 63 ms in growing steps, the rest in steps of 32
}

TEST(Patience, BeginsAgainWithShortSleepsForTheNextFile)
{
    fs::Patience patience(64ms);
    int waits = 0;
    while (patience.wait()) {
        ++waits;
        patience.calm();
    }
    EXPECT_EQ(waits, 64);
}

TEST(Patience, ThereIsNoneToBeginWith)
{
    fs::Patience none(0ms);
    EXPECT_FALSE(none.wait());
}

// A call of a host must not seem to hang.
TEST(Patience, OfACallIsAFewSecondsAtMost)
{
    EXPECT_LE(fs::forOthers, 5s);
    EXPECT_GE(fs::forOthers, 500ms);
}

} // namespace
