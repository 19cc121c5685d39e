// Numbers of documents, compared with the C library's conversion, which is slower, but exact.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "format/number.h"
#include "support/random.h"

namespace {

using Korvel::CANTORIS::PLX::format::largestFloat;
using Korvel::CANTORIS::PLX::format::Number;
using Korvel::CANTORIS::PLX::format::readNumber;
using support::Random;

// A real number must be the same 32-bit float as the nearest double, and on the same side of the
// bound for floats.
void expectReadAsByTheSystem(const std::string& text)
{
    SCOPED_TRACE(text);
    const double nearest = std::strtod(text.c_str(), nullptr);
    Number number{};
    const bool isRead = readNumber(text.c_str(), text.c_str() + text.size(), number);
    if (nearest - nearest != 0) { // infinite
        EXPECT_FALSE(isRead);
        EXPECT_EQ(number.end, text.c_str());
        return;
    }
    ASSERT_TRUE(isRead);
    EXPECT_EQ(number.end, text.c_str() + text.size());
    ASSERT_EQ(number.kind, Number::Kind::real);
    const double value = number.toDouble();
    EXPECT_EQ(value > largestFloat, nearest > largestFloat);
    EXPECT_EQ(value < -largestFloat, nearest < -largestFloat);
    if (-largestFloat <= nearest && nearest <= largestFloat) {
        EXPECT_EQ(static_cast<float>(value), static_cast<float>(nearest));
    }
}

// --- Decimals beside the borders between floats -------------------------------------------------------

// A natural number in decimal digits, the highest first.
class Digits {
public:
    explicit Digits(std::uint64_t number) : text_(std::to_string(number)) {}

    void multiply(unsigned factor)
    {
        unsigned carry = 0;
        for (auto at = text_.rbegin(); at != text_.rend(); ++at) {
            carry += static_cast<unsigned>(*at - '0') * factor;
            *at = static_cast<char>('0' + carry % 10);
            carry /= 10;
        }
        if (carry != 0) {
            text_.insert(0, std::to_string(carry));
        }
    }

    void subtractOne()
    {
        auto at = text_.rbegin();
        for (; *at == '0'; ++at) {
            *at = '9';
        }
        --*at;
    }

    const std::string& text() const { return text_; }

private:
    std::string text_;
};

// The digits and the power of ten of the last one.
struct ExactDecimal {
    Digits digits;
    int exponent;
};

// number x 2^power
ExactDecimal exactly(std::uint64_t number, int power)
{
    ExactDecimal decimal{Digits(number), std::min(power, 0)};
    for (int step = 0; step < std::abs(power); ++step) {
        decimal.digits.multiply(power < 0 ? 5 : 2);
    }
    return decimal;
}

// With a point between the digits, before them, or behind the last.
std::string written(const ExactDecimal& decimal, const std::string& further, Random& random)
{
    const std::string digits = decimal.digits.text() + further;
    const int exponent = decimal.exponent - static_cast<int>(further.size());
    const int behind = random.between(0, static_cast<int>(digits.size()) + 3);
    const int before = static_cast<int>(digits.size()) - behind;
    std::string text = random.oneIn(2) ? "-" : "";
    if (before <= 0) {
        text += "0." + std::string(static_cast<std::size_t>(-before), '0') + digits;
    } else if (behind == 0) {
        text += digits + (random.oneIn(2) ? ".0" : "");
    } else {
        text += digits.substr(0, static_cast<std::size_t>(before)) + "." +
                digits.substr(static_cast<std::size_t>(before));
    }
    const int rest = exponent + behind;
    const bool needsNone = rest == 0 && text.find('.') != std::string::npos;
    return needsNone ? text : text + (random.oneIn(2) ? "e" : "E") + std::to_string(rest);
}

// A number of 55 bits that is at most two half units of the last place of a double away from the
// border above a random float.
ExactDecimal besideARandomBorder(Random& random)
{
    constexpr int leastPower = -150; // of the border below the smallest float
    const int power = random.oneIn(8) ? leastPower : random.between(leastPower, 103);
    const std::uint64_t leading =
        power == leastPower ? random.below(1U << 23) : (1U << 23) + random.below(1U << 23);
    const std::uint64_t middle = 2 * leading + 1;
    return exactly((middle << 29) + static_cast<std::uint64_t>(random.between(-2, 2)), power - 29);
}

class NumberBesideABorder : public testing::TestWithParam<unsigned> {};
INSTANTIATE_TEST_SUITE_P(Seeds, NumberBesideABorder, testing::Range(0u, 4u));

TEST_P(NumberBesideABorder, IsReadAsTheNearest)
{
    Random random(GetParam());
    for (int round = 0; round < 600; ++round) {
        ExactDecimal decimal = besideARandomBorder(random);
        const std::size_t length = random.below(260);
        expectReadAsByTheSystem(written(decimal, "", random));
        expectReadAsByTheSystem(written(decimal, std::string(length, '0'), random));
        expectReadAsByTheSystem(written(decimal, std::string(length, '0') + "1", random));
        decimal.digits.subtractOne();
        expectReadAsByTheSystem(written(decimal, std::string(length + 1, '9'), random));
    }
}

TEST(NumberBesideTheLargestFloat, IsOnItsSide)
{
    Random random(1);
    int power = 0;
    const double scaled = std::ldexp(std::frexp(largestFloat, &power), 54);
    for (int step = -4; step <= 4; ++step) {
        const auto number = static_cast<std::uint64_t>(scaled + step);
        ExactDecimal decimal = exactly(number, power - 54);
        expectReadAsByTheSystem(written(decimal, "", random));
        expectReadAsByTheSystem(written(decimal, "01", random));
        decimal.digits.subtractOne();
        expectReadAsByTheSystem(written(decimal, "99", random));
    }
}

// --- Numbers of any size ------------------------------------------------------------------------------

std::string randomDigits(std::size_t number, Random& random)
{
    std::string digits;
    for (std::size_t index = 0; index < number; ++index) {
        digits += static_cast<char>('0' + random.below(10));
    }
    return digits;
}

std::string randomReal(Random& random)
{
    const std::size_t before = random.below(24);
    std::string text = random.oneIn(2) ? "-" : "";
    text += random.oneIn(3) || before == 0 ? "0" : "7" + randomDigits(before, random);
    const bool hasFraction = random.oneIn(2);
    if (hasFraction) {
        text += "." + std::string(random.oneIn(3) ? random.below(60) : 0, '0') +
                randomDigits(1 + random.below(24), random);
    }
    if (!hasFraction || random.oneIn(2)) {
        const char* const signs[] = {"", "+", "-"};
        const int most = random.oneIn(2) ? 340 : 48;
        text += (random.oneIn(2) ? "e" : "E") + std::string(random.oneOf(signs)) +
                std::string(random.below(3), '0') + std::to_string(random.between(0, most));
    }
    return text;
}

TEST(Number, IsReadAsTheNearestWhateverItsSize)
{
    Random random(7);
    for (int round = 0; round < 20'000; ++round) {
        expectReadAsByTheSystem(randomReal(random));
    }
}

// Digits are read eight at a time.
TEST(Number, EndsBeforeTheFirstLetterThatIsNoDigit)
{
    for (std::size_t place = 0; place < 16; ++place) {
        for (int letter = 1; letter < 256; ++letter) {
            std::string text = "0.1234567890123456,";
            if ((letter >= '0' && letter <= '9') || letter == 'e' || letter == 'E') {
                continue;
            }
            text[2 + place] = static_cast<char>(letter);
            Number number{};
            const bool isRead = readNumber(text.c_str(), text.c_str() + text.size(), number);
            EXPECT_EQ(isRead, place > 0) << text;
            EXPECT_EQ(number.end, text.c_str() + 2 + place) << text;
        }
    }
}

TEST(Number, IsRefusedBeyondTheLargestDouble)
{
    for (const char* const digits :
         {"17", "18", "179769313486231580", "179769313486231581", "1797693134862315807",
          "1797693134862315808", "17976931348623158070", "17976931348623158080"}) {
        const std::string text = digits;
        const std::string point = text.substr(0, 1) + "." + text.substr(1);
        for (int exponent = 306; exponent <= 310; ++exponent) {
            const int last = exponent + 1 - static_cast<int>(text.size());
            expectReadAsByTheSystem(text + "e" + std::to_string(last));
            expectReadAsByTheSystem(point + "e+" + std::to_string(exponent));
            expectReadAsByTheSystem(text + std::string(static_cast<std::size_t>(last), '0') + ".0");
        }
    }
}

} // namespace
