// UTF-8 and the library's text, and the words for codes.
#include <cstring>

#include "kit_fixture.h"

namespace {

using support::Text;
using support::text;
using support::units;
using support::utf8;

// The text with what is said of it: measured first, then written.
struct FromUtf8 {
    KRT_PLX_KitConversion measured;
    KRT_PLX_KitConversion written;
    Text text;
};

FromUtf8 fromUtf8(const char* utf8)
{
    FromUtf8 result;
    result.measured = KRT_PLX_Kit_fromUtf8(utf8, nullptr, 0);
    std::vector<KRT_PLX_Char> room(result.measured.size, 0x7B);
    result.written = KRT_PLX_Kit_fromUtf8(utf8, room.data(), room.size());
    EXPECT_EQ(result.written.size, result.measured.size);
    EXPECT_EQ(room.back(), 0);
    result.text.assign(room.begin(), room.end() - 1);
    return result;
}

struct ToUtf8 {
    KRT_PLX_KitConversion written;
    std::string utf8;
};

ToUtf8 toUtf8(const Text& source)
{
    ToUtf8 result;
    const std::size_t size = KRT_PLX_Kit_toUtf8(source.c_str(), nullptr, 0).size;
    result.utf8.assign(size, '?');
    result.written = KRT_PLX_Kit_toUtf8(source.c_str(), result.utf8.data(), size);
    EXPECT_EQ(result.written.size, size);
    EXPECT_EQ(result.utf8.back(), '\0');
    result.utf8.pop_back();
    return result;
}

TEST(KitText, EveryLengthOfUtf8GoesThereAndBack)
{
    for (const char* const each :
         {"", "a", "\x7F", "\xC2\x80", "ß", "\xDF\xBF", "\xE0\xA0\x80", "さくら", "\xED\x9F\xBF",
          "\xEE\x80\x80", "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "a𠮷b", "\xF4\x8F\xBF\xBF"}) {
        const FromUtf8 there = fromUtf8(each);
        EXPECT_EQ(there.measured.code, KRT_PLX_KIT_TEXT_TOO_LONG);
        EXPECT_EQ(there.written.code, KRT_PLX_KIT_TEXT_OK) << each;
        EXPECT_EQ(there.written.error, KRT_PLX_KIT_NOWHERE) << each;
        EXPECT_EQ(there.text, text(each));
        const ToUtf8 back = toUtf8(there.text);
        EXPECT_EQ(back.written.code, KRT_PLX_KIT_TEXT_OK);
        EXPECT_EQ(back.written.error, KRT_PLX_KIT_NOWHERE);
        EXPECT_EQ(back.utf8, each);
    }
}

TEST(KitText, WhatIsNoUtf8IsReplacedAndItsPlaceTold)
{
    struct Case {
        const char* utf8;
        const char* mended;
        std::size_t error;
    };
    const Case cases[] = {
        {"a\x80", "a�", 1},         {"\xFF", "�", 0},           {"ok\xC0\xAF", "ok��", 2},
        {"\xE0\x80\x80", "���", 0}, {"\xED\xA0\x80", "���", 0}, {"\xF4\x90\x80\x80", "����", 0},
        {"é\xE3\x81", "é�", 2},     {"\xF0\x9F\x98x", "�x", 0}, {"\xC3", "�", 0},
        {"\xF5z\xC3", "�z�", 0},
    };
    for (const Case& each : cases) {
        const FromUtf8 found = fromUtf8(each.utf8);
        EXPECT_EQ(utf8(found.text), each.mended);
        EXPECT_EQ(found.written.code, KRT_PLX_KIT_TEXT_MENDED) << each.mended;
        EXPECT_EQ(found.written.error, each.error) << each.mended;
    }
}

TEST(KitText, HalfAPairIsReplacedAndItsPlaceTold)
{
    const ToUtf8 high = toUtf8(units({'a', 0xD800}));
    EXPECT_EQ(high.utf8, "a�");
    EXPECT_EQ(high.written.code, KRT_PLX_KIT_TEXT_MENDED);
    EXPECT_EQ(high.written.error, 1u);
    EXPECT_EQ(toUtf8(units({0xDC00, 'b'})).utf8, "�b");
    EXPECT_EQ(toUtf8(units({0xD800, 0xD83D, 0xDE00})).utf8, "�😀");
}

TEST(KitText, WhatDoesNotFitIsCutBetweenCharacters)
{
    // Room for the first letter only; and a short one behind a long one is not taken instead.
    KRT_PLX_Char units[4] = {1, 1, 1, 1};
    const KRT_PLX_KitConversion there = KRT_PLX_Kit_fromUtf8("a😀b", units, 3);
    EXPECT_EQ(there.code, KRT_PLX_KIT_TEXT_TOO_LONG);
    EXPECT_EQ(there.size, 5u);
    EXPECT_EQ(utf8(units), "a");
    EXPECT_EQ(units[2], 1);
    char bytes[6] = "?????";
    const KRT_PLX_KitConversion back = KRT_PLX_Kit_toUtf8(text("aさb").c_str(), bytes, 4);
    EXPECT_EQ(back.code, KRT_PLX_KIT_TEXT_TOO_LONG);
    EXPECT_EQ(back.size, 6u);
    EXPECT_STREQ(bytes, "a");
    EXPECT_EQ(bytes[2], '?');
}

TEST(KitText, NoTextIsToldAndEmpty)
{
    KRT_PLX_Char unit = 1;
    char byte = 1;
    EXPECT_EQ(KRT_PLX_Kit_fromUtf8(nullptr, &unit, 1).code, KRT_PLX_KIT_TEXT_NULL);
    EXPECT_EQ(KRT_PLX_Kit_toUtf8(nullptr, &byte, 1).code, KRT_PLX_KIT_TEXT_NULL);
    EXPECT_EQ(unit, 0);
    EXPECT_EQ(byte, 0);
    EXPECT_EQ(KRT_PLX_Kit_fromUtf8(nullptr, nullptr, 9).size, 1u);
    EXPECT_EQ(KRT_PLX_Kit_fromUtf8("x", nullptr, 9).code, KRT_PLX_KIT_TEXT_TOO_LONG);
}

TEST(KitCodes, HaveANameAndAText)
{
    EXPECT_STREQ(KRT_PLX_Kit_codeName(KRT_PLX_KIT_RESULTS, KRT_PLX_RESULT_NO_PART),
                 "KRT_PLX_RESULT_NO_PART");
    EXPECT_STREQ(KRT_PLX_Kit_codeText(KRT_PLX_KIT_RESULTS, KRT_PLX_RESULT_NO_PART),
                 "the clip has no part");
    EXPECT_STREQ(KRT_PLX_Kit_codeText(KRT_PLX_KIT_CONTROLLER_TYPES, KRT_PLX_CONTROLLER_AIR), "air");
}

TEST(KitCodes, OfAnUnknownValueAreEmpty)
{
    EXPECT_STREQ(KRT_PLX_Kit_codeName(KRT_PLX_KIT_RESULTS, 1), "");
    EXPECT_STREQ(KRT_PLX_Kit_codeText(KRT_PLX_KIT_RESULTS, 1), "");
    EXPECT_STREQ(KRT_PLX_Kit_codeText(99, 0), "");
}

TEST(KitReport, DescribesANotice)
{
    const KRT_PLX_KitNotice notice = {
        KRT_PLX_KIT_NOTE, KRT_PLX_KIT_NO_LANGUAGE, "langID", 2, 0, -480, 0};
    const char* const line = "note 3 at -480: langID: left out; it has no language";
    char text[80] = "";
    EXPECT_EQ(KRT_PLX_Kit_describe(&notice, text, sizeof text), std::strlen(line) + 1);
    EXPECT_STREQ(text, line);
    EXPECT_EQ(KRT_PLX_Kit_describe(&notice, text, 7), std::strlen(line) + 1);
    EXPECT_STREQ(text, "note 3");
    EXPECT_EQ(KRT_PLX_Kit_describe(nullptr, text, 7), 1u);
    EXPECT_STREQ(text, "");
}

} // namespace
