// How texts are compared: neither accents nor the case of letters matter.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace plxclip {

// The text in small letters and without accents: "frere" for "Frère", and "fi" for one letter that
// looks so. The page of "gallery" searches by the same rule.
std::string plainText(std::string_view utf8);

bool isSameText(std::string_view one, std::string_view other);

// The rule of all filters: true if `wanted` is a part of the text, or, behind "=", all of it.
bool isWantedText(std::string_view text, std::string_view wanted);

// A letter that is not plain, and where the plain text stands in the pool. The table is made by
// plain_letters.py.
struct PlainLetter {
    char32_t letter;
    std::uint16_t begin;
    std::uint16_t length;
};

extern const std::span<const PlainLetter> plainLetters; // in ascending order
extern const std::span<const unsigned char> plainPool;

} // namespace plxclip
