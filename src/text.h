// Text as the library keeps it: UTF-16, in the unit that hosts pass (see KRT_PLX_Char).
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace Korvel::CANTORIS::PLX {

#ifdef _WIN32
using Char = wchar_t;
#else
using Char = char16_t;
#endif
static_assert(sizeof(Char) == 2, "text is UTF-16");

using String = std::basic_string<Char>;
using StringView = std::basic_string_view<Char>;

// An ASCII literal, widened at compile time, so that one spelling works for L"" and u"" platforms.
// The constructor is implicit, because a literal operator needs that.
template <std::size_t N>
struct AsciiLiteral {
    Char units[N];

    consteval AsciiLiteral(const char (&text)[N]) // NOLINT(google-explicit-constructor)
    {
        std::transform(text, text + N, units, [](char c) { return static_cast<Char>(c); });
    }
};

inline namespace literals {

// "property.json"_t: a view of a static, NUL-terminated text.
template <AsciiLiteral Literal>
constexpr StringView operator""_t()
{
    return {Literal.units, std::size(Literal.units) - 1};
}

} // namespace literals

inline bool isNullOrEmpty(const Char* text)
{
    return text == nullptr || *text == Char{};
}

// Null counts as the empty text.
inline StringView viewOrEmpty(const Char* text)
{
    return text == nullptr ? StringView{} : StringView{text};
}

} // namespace Korvel::CANTORIS::PLX
