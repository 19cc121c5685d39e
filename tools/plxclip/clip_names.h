// The names of a clip's files and folders, which the library has in its own encoding.
#pragma once

#include <algorithm>
#include <array>
#include <string_view>

#include "clip/clip_files.h"

namespace plxclip {

// A name that is ASCII, in UTF-8.
template <const Korvel::CANTORIS::PLX::StringView& name>
struct Narrow {
    static constexpr auto letters = [] {
        std::array<char, name.size()> narrow{};
        std::ranges::transform(name, narrow.begin(),
                               [](auto unit) { return static_cast<char>(unit); });
        return narrow;
    }();
    static constexpr std::string_view text{letters.data(), letters.size()};
};

inline constexpr std::string_view propertyName =
    Narrow<Korvel::CANTORIS::PLX::propertyFileName>::text;
inline constexpr std::string_view audioName = Narrow<Korvel::CANTORIS::PLX::audioFolderName>::text;
inline constexpr std::string_view clipExtension =
    Narrow<Korvel::CANTORIS::PLX::clipExtension>::text;

} // namespace plxclip
