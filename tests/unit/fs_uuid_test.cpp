#include <set>

#include <gtest/gtest.h>

#include "fs/fs.h"

namespace {

using namespace Korvel::CANTORIS::PLX;

bool isLowerCaseHexadecimal(Char unit)
{
    return (unit >= '0' && unit <= '9') || (unit >= 'a' && unit <= 'f');
}

TEST(FsUuid, HasFiveGroupsOfLowerCaseDigits)
{
    for (int round = 0; round < 1000; ++round) {
        const String uuid = fs::newUuid();
        ASSERT_EQ(uuid.size(), 36u);
        for (std::size_t i = 0; i < uuid.size(); ++i) {
            const bool isHyphen = i == 8 || i == 13 || i == 18 || i == 23;
            EXPECT_EQ(uuid[i] == '-', isHyphen) << i;
            EXPECT_EQ(isLowerCaseHexadecimal(uuid[i]), !isHyphen) << i;
        }
    }
}

TEST(FsUuid, SaysThatItIsRandom)
{
    for (int round = 0; round < 1000; ++round) {
        const String uuid = fs::newUuid();
        EXPECT_EQ(uuid[14], '4');
        EXPECT_NE("89ab"_t.find(uuid[19]), StringView::npos);
    }
}

TEST(FsUuid, IsNeverTheSame)
{
    std::set<String> seen;
    for (int round = 0; round < 10000; ++round) {
        EXPECT_TRUE(seen.insert(fs::newUuid()).second);
    }
}

// It is practically impossible that a random digit is the same two hundred times.
TEST(FsUuid, VariesInEveryDigit)
{
    for (std::size_t i = 0; i < 36; ++i) {
        std::set<Char> digits;
        for (int round = 0; round < 200; ++round) {
            digits.insert(fs::newUuid()[i]);
        }
        const bool isFixed = i == 8 || i == 13 || i == 14 || i == 18 || i == 23;
        EXPECT_EQ(digits.size() == 1, isFixed) << i;
    }
}

} // namespace
