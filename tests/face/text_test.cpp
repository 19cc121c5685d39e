// The way between UTF-8 and the texts of the library.
#include <string>

#include <gtest/gtest.h>

#include <korvel/plx.hpp>

namespace {

namespace plx = korvel::plx;

using plx::Char;
using plx::fromUtf8;
using plx::String;
using plx::toUtf8;

String units(std::initializer_list<unsigned> values)
{
    String text;
    for (const unsigned value : values) {
        text.push_back(static_cast<Char>(value));
    }
    return text;
}

TEST(FaceText, GoesToUtf8AndBack)
{
    const std::string utf8 = "a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"
                             "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF";
    const String utf16 = units(
        {'a', 0x7F, 0x80, 0x7FF, 0x800, 0xD7FF, 0xE000, 0xFFFF, 0xD800, 0xDC00, 0xDBFF, 0xDFFF});

    EXPECT_EQ(fromUtf8(utf8), utf16);
    EXPECT_EQ(toUtf8(utf16), utf8);
    EXPECT_EQ(toUtf8(plx::StringView()), "");
    EXPECT_EQ(fromUtf8(""), String());
}

TEST(FaceText, KeepsNulsOfAView)
{
    EXPECT_EQ(fromUtf8(std::string_view("a\0b", 3)), units({'a', 0, 'b'}));
    EXPECT_EQ(toUtf8(units({'a', 0, 'b'})), std::string("a\0b", 3));
}

TEST(FaceText, WritesCodePointsAsItReadsThem)
{
    for (char32_t point = 0; point <= 0x10FFFF; point += point < 0x10000 ? 1 : 0xFF) {
        String text;
        plx::detail::appendPoint(text, point);
        const bool isLone = point >= 0xD800 && point <= 0xDFFF;
        ASSERT_EQ(fromUtf8(toUtf8(text)), isLone ? units({0xFFFD}) : text)
            << std::hex << std::uint32_t(point);
    }
}

TEST(FaceText, ReplacesEachLoneSurrogate)
{
    const std::string replacement = "\xEF\xBF\xBD";

    EXPECT_EQ(toUtf8(units({0xD800})), replacement);
    EXPECT_EQ(toUtf8(units({0xDFFF, 'a'})), replacement + "a");
    EXPECT_EQ(toUtf8(units({0xDBFF, 'a'})), replacement + "a");
    EXPECT_EQ(toUtf8(units({0xD800, 0xD83C, 0xDFB5})), replacement + "\xF0\x9F\x8E\xB5");
    EXPECT_EQ(toUtf8(units({0xDC00, 0xD800})), replacement + replacement);
}

TEST(FaceText, ReplacesWhatIsNoUtf8)
{
    EXPECT_EQ(fromUtf8("a\x80z"), units({'a', 0xFFFD, 'z'})); // nothing to follow
    EXPECT_EQ(fromUtf8("\xC3"), units({0xFFFD}));             // cut at the end
    EXPECT_EQ(fromUtf8("\xE3\x81z"), units({0xFFFD, 'z'}));   // cut before a letter
    EXPECT_EQ(fromUtf8("\xF0\x9F\x8E"), units({0xFFFD}));     // cut at the end
    EXPECT_EQ(fromUtf8("\xC0\xAF"), units({0xFFFD, 0xFFFD})); // overlong
    EXPECT_EQ(fromUtf8("\xE0\x9F\xBF"), units({0xFFFD, 0xFFFD, 0xFFFD}));
    EXPECT_EQ(fromUtf8("\xF0\x8F\xBF\xBF"), units({0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD}));
    EXPECT_EQ(fromUtf8("\xED\xA0\x80"), units({0xFFFD, 0xFFFD, 0xFFFD})); // a surrogate
    EXPECT_EQ(fromUtf8("\xF4\x90\x80\x80"), units({0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD}));
    EXPECT_EQ(fromUtf8("\xFF\xFE"), units({0xFFFD, 0xFFFD}));
}

TEST(FaceText, CopiesOnlyViews)
{
    const plx::MutableNote note;
    const String text = fromUtf8("la");
    const plx::StringView view = text;

    static_assert(noexcept(note.setLyric(text)));
    static_assert(noexcept(note.setLyric(text.c_str())));
    static_assert(noexcept(note.setLyric(nullptr)));
    static_assert(!noexcept(note.setLyric(view)));
    EXPECT_EQ(plx::detail::terminated(text).c_str(), text.c_str());
    EXPECT_EQ(plx::detail::terminated(text.c_str()).c_str(), text.c_str());
    EXPECT_NE(plx::detail::terminated(view).c_str(), view.data());
}

} // namespace
