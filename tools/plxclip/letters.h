// Letters, whether capital or small, and words that are like others.
#pragma once

#include <algorithm>
#include <span>
#include <string>
#include <string_view>

namespace plxclip {

// In small letters, as far as they are ASCII.
inline std::string lowerCase(std::string text)
{
    std::ranges::transform(text, text.begin(), [](char letter) {
        return 'A' <= letter && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return text;
}

// The known word that was probably meant by another one; empty if there is none. Up to a third of
// the letters may differ, and capital letters do not matter.
std::string_view nearestWord(std::span<const std::string_view> known, std::string_view word);

} // namespace plxclip
