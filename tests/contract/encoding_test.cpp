// The encodings of documents: all five, marked or not, and bytes that do not decode.

#include <cstdint>
#include <string>
#include <vector>

#include "support/reading.h"

namespace {

using support::accepted;
using support::ByteOrderMark;
using support::encode;
using support::Encoding;
using support::everyHowMany;
using support::Object;
using support::refused;
using support::universalObject;
using support::utf8;

struct Form {
    std::string name;
    Encoding encoding;
    std::size_t width; // of a unit, in bytes
};

const std::vector<Form> forms = {{"Utf8", Encoding::utf8, 1},
                                 {"Utf16LittleEndian", Encoding::utf16LittleEndian, 2},
                                 {"Utf16BigEndian", Encoding::utf16BigEndian, 2},
                                 {"Utf32LittleEndian", Encoding::utf32LittleEndian, 4},
                                 {"Utf32BigEndian", Encoding::utf32BigEndian, 4}};

// From one byte to four in UTF-8, one unit and two in UTF-16.
const std::string everyWidth = "aé桜𝄞\u07FF\u0800\uFFFD\uFFFF𐀀\U0010FFFF";

// Replaced by a text that occurs nowhere else in the tests.
const std::string placeholder = "\uE000";

class EncodingTest : public ReaderTest, public testing::WithParamInterface<Form> {
protected:
    [[nodiscard]] static std::string encoded(std::string_view document,
                                             ByteOrderMark mark = ByteOrderMark::without)
    {
        return encode(document, GetParam().encoding, mark);
    }

    // A unit in the bytes of this encoding.
    [[nodiscard]] static std::string unit(std::uint32_t value)
    {
        const Encoding encoding = GetParam().encoding;
        const bool bigEndian =
            encoding == Encoding::utf16BigEndian || encoding == Encoding::utf32BigEndian;
        std::string bytes;
        for (std::size_t i = 0; i < GetParam().width; ++i) {
            const std::size_t place = bigEndian ? GetParam().width - 1 - i : i;
            bytes += static_cast<char>(value >> (8 * place) & 0xFF);
        }
        return bytes;
    }

    // The document in this encoding, with these bytes in the place of the placeholder.
    [[nodiscard]] static std::string withBytes(std::string_view document, std::string_view bytes)
    {
        std::string result = encoded(document);
        const std::string gap = encoded(placeholder);
        const std::size_t found = result.find(gap);
        EXPECT_NE(found, std::string::npos);
        return result.replace(found, gap.size(), bytes);
    }

    // Everywhere that a text may stand: taken nowhere, or taken everywhere.
    void expectInTexts(std::string_view bytes, const support::Acceptance& acceptance)
    {
        const std::string text = '"' + placeholder + '"';
        for (const Object& document :
             {universalObject("x" + placeholder + "x"), universalObject(placeholder),
              universalObject().with("unknown", text),
              universalObject().with("unknown", "[{\"a\": [" + text + "]}]"),
              universalObject().with(placeholder, "1")}) {
            EXPECT_EQ(accepts(withBytes(document.text(), bytes)), acceptance)
                << document.text() << testing::PrintToString(bytes);
        }
    }

    void expectName(std::string_view name, const std::string& document)
    {
        EXPECT_EQ(utf8(KRT_PLX_Clip_name(readProperties(document))), name);
        EXPECT_EQ(utf8(KRT_PLX_Clip_name(readWhole(document))), name);
        KRT_PLX_NoteBase* note = KRT_PLX_MidiPart_note(readPart(document), 0);
        EXPECT_EQ(utf8(KRT_PLX_NoteBase_lyric(note)), name);
    }
};

INSTANTIATE_TEST_SUITE_P(Encodings, EncodingTest, testing::ValuesIn(forms),
                         [](const auto& form) { return form.param.name; });

TEST_P(EncodingTest, IsReadWithAByteOrderMarkAndWithout)
{
    const std::string document = universalObject(everyWidth);
    expectName(everyWidth, encoded(document, ByteOrderMark::without));
    expectName(everyWidth, encoded(document, ByteOrderMark::with));
}

TEST_P(EncodingTest, IsRecognisedAfterAnyWhiteSpace)
{
    for (const std::string_view space : {" ", "\n", "\t", "\r\n", "  \n", "\n\n\n\n\n"}) {
        const std::string document = std::string(space) + universalObject("さくら").text() + "\n";
        expectName("さくら", encoded(document, ByteOrderMark::without));
        expectName("さくら", encoded(document, ByteOrderMark::with));
    }
}

TEST_P(EncodingTest, IsRecognisedInDocumentsOfOneCharacterAndNone)
{
    for (const std::string_view document : {"", "{", "}", "1", "[]", "{}", "\"\"", "null"}) {
        EXPECT_EQ(accepts(encoded(document, ByteOrderMark::without)), refused) << document;
        EXPECT_EQ(accepts(encoded(document, ByteOrderMark::with)), refused) << document;
    }
}

TEST_P(EncodingTest, TakesOneByteOrderMarkOnly)
{
    const std::string twice = "\uFEFF" + universalObject().text();
    EXPECT_EQ(accepts(encoded(twice, ByteOrderMark::with)), refused);
    EXPECT_EQ(accepts(encoded(" " + twice, ByteOrderMark::without)), refused);
    EXPECT_EQ(accepts(encoded(universalObject().text() + "\uFEFF")), refused);
}

// The parser takes a NUL as the end of the text, but a file ends where its bytes end.
TEST_P(EncodingTest, IsRefusedWithANulBehindTheRoot)
{
    const std::string object = universalObject().text();
    const std::string nul(1, '\0');
    for (const std::string& rest : {nul, nul + nul, nul + "junk", nul + object, " " + nul,
                                    nul + "\n", "\n" + nul + " ", nul + "}"}) {
        EXPECT_EQ(accepts(encoded(object + rest, ByteOrderMark::without)), refused);
        EXPECT_EQ(accepts(encoded(object + rest, ByteOrderMark::with)), refused);
    }
    EXPECT_EQ(accepts(encoded(object + " \n\t\r ")), accepted);
}

TEST_P(EncodingTest, IsRefusedWithANulAnywhereElse)
{
    const std::string object = universalObject().text();
    for (std::size_t place = 0; place < object.size(); place += everyHowMany) {
        std::string document = object;
        document.insert(place, 1, '\0');
        ASSERT_EQ(accepts(encoded(document, ByteOrderMark::with)), refused) << place;
    }
}

TEST_P(EncodingTest, TakesAByteOrderMarkInsideATextForACharacter)
{
    expectName("\uFEFFx\uFEFF", encoded(universalObject("\uFEFFx\uFEFF").text()));
}

TEST_P(EncodingTest, IsReadWholeWhateverItsLength)
{
    for (const std::size_t length : {200u, 4060u, 65500u}) {
        const std::string blank(length, ' ');
        for (std::size_t shift = 0; shift < 96; shift += GetParam().width == 1 ? 1 : 3) {
            const std::string document =
                "{" + blank + std::string(shift, ' ') + universalObject("aé桜𝄞").text().substr(1);
            const std::string bytes = encoded(document);
            ASSERT_NE(readPart(bytes), nullptr) << length + shift;
            KRT_PLX_NoteBase* note = KRT_PLX_MidiPart_note(KRT_PLX_Clip_midiPart(clipOfPart()), 0);
            ASSERT_EQ(utf8(KRT_PLX_NoteBase_lyric(note)), "aé桜𝄞") << length + shift;
        }
    }
}

TEST_P(EncodingTest, IsRefusedWhenItIsCutAnywhere)
{
    const std::string bytes = encoded(universalObject("桜𝄞").text());
    for (std::size_t length = 0; length < bytes.size(); length += everyHowMany) {
        ASSERT_EQ(readPart(bytes.substr(0, length)), nullptr) << length;
    }
    EXPECT_EQ(accepts(bytes), accepted);
}

TEST_P(EncodingTest, IsRefusedWithAPieceOfAUnitAtItsEnd)
{
    const std::string bytes = encoded(universalObject().text());
    for (std::size_t piece = 1; piece < GetParam().width; ++piece) {
        for (const char byte : {' ', 'x', '\xFF'}) {
            EXPECT_EQ(accepts(bytes + std::string(piece, byte)), refused) << piece;
        }
    }
}

TEST_P(EncodingTest, IsRefusedUnderTheMarkOfAnother)
{
    for (const Form& other : forms) {
        if (other.encoding != GetParam().encoding) {
            const std::string mark = encode("\uFEFF", other.encoding);
            EXPECT_EQ(accepts(mark + encoded(universalObject().text())), refused) << other.name;
        }
    }
}

TEST_P(EncodingTest, NeedNotBeTheSameForBothDocumentsOfAClip)
{
    for (const Form& other : forms) {
        KRT_PLX_ClipBase* clip =
            readSystemClip(encode(universalObject("桜").text(), other.encoding),
                           encoded(universalObject("梅").text()));
        ASSERT_NE(clip, nullptr) << other.name;
        ASSERT_TRUE(KRT_PLX_Clip_readPart(clip)) << other.name;
        EXPECT_EQ(utf8(KRT_PLX_Clip_name(clip)), "桜");
        KRT_PLX_NoteBase* note = KRT_PLX_MidiPart_note(KRT_PLX_Clip_midiPart(clip), 0);
        EXPECT_EQ(utf8(KRT_PLX_NoteBase_lyric(note)), "梅");
    }
}

// --- What does not decode ---

class Utf8Test : public EncodingTest {};
INSTANTIATE_TEST_SUITE_P(Only, Utf8Test, testing::Values(forms[0]));

TEST_P(Utf8Test, TakesTheFirstAndTheLastOfEachLength)
{
    using std::string_literals::operator""s;
    for (const std::string& bytes :
         {"\x20"s, "\x7F"s, "\xC2\x80"s, "\xDF\xBF"s, "\xE0\xA0\x80"s, "\xED\x9F\xBF"s,
          "\xEE\x80\x80"s, "\xEF\xBF\xBF"s, "\xF0\x90\x80\x80"s, "\xF4\x8F\xBF\xBF"s}) {
        expectInTexts(bytes, accepted);
    }
}

TEST_P(Utf8Test, RefusesBytesThatDoNotDecode)
{
    for (const std::string_view bytes : {
             "\x80",
             "\xBF",
             "\x80\x80", // what only follows
             "\xC0\x80",
             "\xC1\xBF",
             "\xE0\x80\x80", // longer than need be
             "\xE0\x9F\xBF",
             "\xF0\x80\x80\x80",
             "\xF0\x8F\xBF\xBF",
             "\xED\xA0\x80",
             "\xED\xAF\xBF",
             "\xED\xB0\x80", // surrogates
             "\xED\xBF\xBF",
             "\xED\xA0\xB4\xED\xB4\x9E",
             "\xF4\x90\x80\x80",
             "\xF5\x80\x80\x80", // beyond the last character
             "\xF8\x88\x80\x80\x80",
             "\xFC\x84\x80\x80\x80\x80",
             "\xFE",
             "\xFF",
             "\xFF\xFE", // in no text at all
             "\xC3",
             "\xE6\xA1",
             "\xF0\x9D\x84", // cut by what comes next
             "\xE6",
             "\xF0\x9D",
             "\xC3\xC3\xA9",
             "\xE9",
         }) {
        expectInTexts(bytes, refused);
    }
}

class Utf16Test : public EncodingTest {};
INSTANTIATE_TEST_SUITE_P(Both, Utf16Test, testing::Values(forms[1], forms[2]),
                         [](const auto& form) { return form.param.name; });

TEST_P(Utf16Test, TakesPairsOfSurrogates)
{
    for (const std::uint32_t high : {0xD800u, 0xD834u, 0xDBFFu}) {
        for (const std::uint32_t low : {0xDC00u, 0xDD1Eu, 0xDFFFu}) {
            expectInTexts(unit(high) + unit(low), accepted);
        }
    }
    expectInTexts(unit(0xD7FF) + unit(0xE000) + unit(0xFFFF), accepted);
}

TEST_P(Utf16Test, RefusesSurrogatesThatAreNoPairs)
{
    for (const std::uint32_t high : {0xD800u, 0xDBFFu}) {
        expectInTexts(unit(high), refused);
        expectInTexts(unit(high) + unit('x'), refused);
        expectInTexts(unit(high) + unit(high) + unit(0xDC00), refused);
    }
    for (const std::uint32_t low : {0xDC00u, 0xDFFFu}) {
        expectInTexts(unit(low), refused);
        expectInTexts(unit('x') + unit(low), refused);
        expectInTexts(unit(low) + unit(0xD800), refused);
        expectInTexts(unit(low) + unit(0xDC00), refused);
        expectInTexts(unit(0xD834) + unit(low) + unit(low), refused);
    }
}

class Utf32Test : public EncodingTest {};
INSTANTIATE_TEST_SUITE_P(Both, Utf32Test, testing::Values(forms[3], forms[4]),
                         [](const auto& form) { return form.param.name; });

TEST_P(Utf32Test, TakesEveryCharacter)
{
    for (const std::uint32_t character : {0x20u, 0xD7FFu, 0xE000u, 0xFFFFu, 0x10000u, 0x10FFFFu}) {
        expectInTexts(unit(character), accepted);
    }
}

TEST_P(Utf32Test, RefusesWhatIsNoCharacter)
{
    for (const std::uint32_t number :
         {0xD800u, 0xDBFFu, 0xDC00u, 0xDFFFu, 0x110000u, 0x7FFFFFFFu, 0x80000041u, 0xFFFFFFFFu}) {
        expectInTexts(unit(number), refused);
    }
    expectInTexts(unit(0xD834) + unit(0xDD1E), refused);
}

TEST_P(EncodingTest, IsRefusedWithCharactersThatAreNoWhiteSpaceBetweenTheTokens)
{
    for (const std::string_view character : {"\u00A0", "\u3000", "\u2028", "é", "𝄞"}) {
        const std::string document =
            "{" + std::string(character) + universalObject().text().substr(1);
        EXPECT_EQ(accepts(encoded(document)), refused) << character;
    }
}

} // namespace
