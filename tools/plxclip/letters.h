// Letters, whether capital or small.
#pragma once

#include <algorithm>
#include <string>

namespace plxclip {

// In small letters, as far as they are ASCII.
inline std::string lowerCase(std::string text)
{
    std::ranges::transform(text, text.begin(), [](char letter) {
        return 'A' <= letter && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return text;
}

} // namespace plxclip
