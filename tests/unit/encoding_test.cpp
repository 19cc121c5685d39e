#include <optional>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "format/encoding.h"
#include "rewriting.h"
#include "support/text.h"

namespace {

using namespace Korvel::CANTORIS::PLX;

constexpr std::pair<support::Encoding, format::Encoding> sameEncodings[] = {
    {support::Encoding::utf8, format::Encoding::utf8},
    {support::Encoding::utf16LittleEndian, format::Encoding::utf16LittleEndian},
    {support::Encoding::utf16BigEndian, format::Encoding::utf16BigEndian},
    {support::Encoding::utf32LittleEndian, format::Encoding::utf32LittleEndian},
    {support::Encoding::utf32BigEndian, format::Encoding::utf32BigEndian},
};

TEST(FormatEncoding, ABlankIsOneUnit)
{
    for (const auto& [here, there] : sameEncodings) {
        EXPECT_EQ(format::blankIn(there), support::encode(" ", here));
        EXPECT_EQ(format::widthOf(there), support::encode(" ", here).size());
    }
}

// Reads it as the beginning of a longer document.
std::optional<char32_t> firstOf(std::string_view utf8, support::Encoding encoding,
                                support::ByteOrderMark mark)
{
    return format::firstUnit(support::encode(utf8, encoding, mark));
}

TEST(FormatEncoding, TheFirstUnitIsBehindTheMarkAndTheWhiteSpace)
{
    for (const support::Encoding encoding : rewriting::encodings) {
        for (const support::ByteOrderMark mark : rewriting::marks) {
            EXPECT_EQ(firstOf("{}  ", encoding, mark), U'{');
            EXPECT_EQ(firstOf(" \t\r\n {}", encoding, mark), U'{');
            EXPECT_EQ(firstOf("  [1]", encoding, mark), U'[');
            EXPECT_EQ(firstOf("\v{}    ", encoding, mark), U'\v');
        }
    }
}

TEST(FormatEncoding, WhiteSpaceAloneHasNoFirstUnit)
{
    EXPECT_EQ(format::firstUnit(""), std::nullopt);
    for (const support::Encoding encoding : rewriting::encodings) {
        for (const support::ByteOrderMark mark : rewriting::marks) {
            EXPECT_EQ(firstOf("    \t\r\n", encoding, mark), std::nullopt);
        }
    }
}

// A block may end in the middle of a unit.
TEST(FormatEncoding, AnIncompleteUnitDoesNotCount)
{
    for (const support::Encoding encoding : rewriting::encodings) {
        for (const support::ByteOrderMark mark : rewriting::marks) {
            const std::string bytes = support::encode("   \xC5\x8D{", encoding, mark);
            const std::size_t begin = support::encode("   ", encoding, mark).size();
            const std::size_t width = support::encode(" ", encoding).size();
            for (std::size_t size = begin; size < begin + width; ++size) {
                EXPECT_EQ(format::firstUnit(bytes.substr(0, size)), std::nullopt) << size;
            }
            EXPECT_NE(format::firstUnit(bytes.substr(0, begin + width)), std::nullopt);
        }
    }
}

TEST(FormatEncoding, ZerosAreUnitsButNotWhiteSpace)
{
    EXPECT_EQ(format::firstUnit(std::string(16, '\0')), U'\0');
}

} // namespace
