#include "plain.h"

#include <algorithm>
#include <array>

#include "columns.h"
#include "letters.h"
#include "unicode.h"

namespace plxclip {

namespace {

void append(std::string& text, char32_t letter)
{
    std::array<char, 4> bytes = {};
    const std::size_t length = Korvel::CANTORIS::PLX::encodeUtf8(letter, bytes.data());
    text.append(bytes.data(), length);
}

// Syllables of Hangul are numbered by their two or three letters.
void appendSyllable(std::string& text, char32_t number)
{
    constexpr char32_t vowels = 21;
    constexpr char32_t ends = 28;
    append(text, 0x1100 + number / ends / vowels);
    append(text, 0x1161 + number / ends % vowels);
    if (number % ends != 0) {
        append(text, 0x11A7 + number % ends);
    }
}

void appendPlain(std::string& text, char32_t letter)
{
    constexpr char32_t firstSyllable = 0xAC00;
    constexpr char32_t lastSyllable = 0xD7A3;
    if (letter >= firstSyllable && letter <= lastSyllable) {
        appendSyllable(text, letter - firstSyllable);
        return;
    }
    const auto found = std::ranges::lower_bound(plainLetters, letter, {}, &PlainLetter::letter);
    if (found == plainLetters.end() || found->letter != letter) {
        append(text, letter);
        return;
    }
    const auto plain = plainPool.subspan(found->begin, found->length);
    text.append(plain.begin(), plain.end());
}

} // namespace

std::string plainText(std::string_view utf8)
{
    std::string text;
    while (!utf8.empty()) {
        appendPlain(text, takeCharacter(utf8));
    }
    return lowerCase(text);
}

bool isSameText(std::string_view one, std::string_view other)
{
    return plainText(one) == plainText(other);
}

bool isWantedText(std::string_view text, std::string_view wanted)
{
    return wanted.starts_with('=') ? isSameText(text, wanted.substr(1))
                                   : plainText(text).find(plainText(wanted)) != std::string::npos;
}

} // namespace plxclip
