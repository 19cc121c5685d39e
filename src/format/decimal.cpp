#include "format/decimal.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>

namespace Korvel::CANTORIS::PLX::format {

namespace {

// A natural number of up to 1024 bits. The numbers that are compared here need fewer than 900.
class Natural {
public:
    explicit Natural(std::uint64_t value) { multiplyAndAdd(1, value); }

    void multiplyAndAdd(std::uint32_t factor, std::uint64_t summand)
    {
        for (std::size_t place = 0; place < used_ || summand != 0; ++place) {
            summand += std::uint64_t{words_[place]} * factor;
            words_[place] = static_cast<std::uint32_t>(summand);
            summand >>= 32;
            used_ = std::max(used_, place + 1);
        }
    }

    void multiplyByPower(std::uint32_t base, std::int64_t exponent)
    {
        std::uint32_t factor = 1;
        for (; exponent > 0; --exponent) {
            factor *= base;
            if (factor >= 100'000'000) {
                multiplyAndAdd(factor, 0);
                factor = 1;
            }
        }
        multiplyAndAdd(factor, 0);
    }

    bool operator<(const Natural& other) const
    {
        return std::lexicographical_compare(words_.rbegin(), words_.rend(), other.words_.rbegin(),
                                            other.words_.rend());
    }

private:
    std::array<std::uint32_t, 32> words_{}; // the lowest first
    std::size_t used_ = 0;
};

// The digits as one number. It takes more digits than a border between floats has; of the digits
// beyond, it only matters whether they are all zero.
Natural digitsOf(const Decimal& decimal, std::int64_t& exponent)
{
    constexpr int most = 200;
    Natural number(0);
    int count = 0;
    bool hasMore = false;
    exponent = decimal.exponent;
    for (const char* at = decimal.begin; at != decimal.end; ++at) {
        if (*at == '.' || (count == 0 && *at == '0')) {
            continue;
        }
        if (count < most) {
            number.multiplyAndAdd(10, digitOf(*at));
            ++count;
        } else {
            hasMore = hasMore || *at != '0';
            ++exponent;
        }
    }
    if (hasMore) {
        number.multiplyAndAdd(10, 1);
        --exponent;
    }
    return number;
}

// Compares the decimal with number x 2^power: -1 below it, 1 above it, 0 if they are equal.
int compare(const Decimal& decimal, std::uint64_t number, int power)
{
    std::int64_t exponent = 0;
    Natural left = digitsOf(decimal, exponent);
    Natural right(number);
    (exponent < 0 ? right : left).multiplyByPower(10, std::abs(exponent));
    (power < 0 ? left : right).multiplyByPower(2, std::abs(power));
    return left < right ? -1 : static_cast<int>(right < left);
}

} // namespace

double besideBorder(const Decimal& decimal, double border)
{
    int power = 0;
    const auto middle = static_cast<std::uint64_t>(std::ldexp(std::frexp(border, &power), 54));
    power -= 54;
    if (compare(decimal, middle + 1, power) > 0) {
        return std::nextafter(border, std::numeric_limits<double>::infinity());
    }
    return compare(decimal, middle - 1, power) < 0 ? std::nextafter(border, 0.0) : border;
}

} // namespace Korvel::CANTORIS::PLX::format
