// Included before every source that scripts/mutants compiles: each change is a switch in one build,
// and the environment says which one is on.
#pragma once

// CMake tests the compiler with sources of an older language.
#if __cplusplus >= 202002L

#    include <cstdlib>

namespace mutation {

inline int active()
{
    static const int id = [] {
        const char* const text = std::getenv("KRT_PLX_MUTANT");
        return text == nullptr ? -1 : std::atoi(text);
    }();
    return id;
}

constexpr bool isOn(int id)
{
    return active() == id;
}

template <class Value, class Changed>
constexpr Value chosen(int id, Value original, Changed changed)
{
    return active() == id ? static_cast<Value>(changed) : original;
}

// `a < b` becomes `a < On{7} < b`. With the same precedence it means the same, until switch 7 is
// on.
struct On {
    int id;
};

template <class Left>
struct Compared {
    const Left& left;
    bool isOn;
};

template <class Left>
constexpr Compared<Left> compared(const Left& left, On on)
{
    return {left, active() == on.id};
}

template <class Left>
constexpr Compared<Left> operator<(const Left& left, On on)
{
    return compared(left, on);
}

template <class Left>
constexpr Compared<Left> operator<=(const Left& left, On on)
{
    return compared(left, on);
}

template <class Left>
constexpr Compared<Left> operator>(const Left& left, On on)
{
    return compared(left, on);
}

template <class Left>
constexpr Compared<Left> operator>=(const Left& left, On on)
{
    return compared(left, on);
}

template <class Left>
constexpr Compared<Left> operator==(const Left& left, On on)
{
    return compared(left, on);
}

template <class Left>
constexpr Compared<Left> operator!=(const Left& left, On on)
{
    return compared(left, on);
}

template <class Left, class Right>
constexpr bool operator<(const Compared<Left>& pair, const Right& right)
{
    if constexpr (requires { pair.left <= right; }) {
        return pair.isOn ? pair.left <= right : pair.left < right;
    } else {
        return pair.isOn ? !(right < pair.left) : pair.left < right;
    }
}

template <class Left, class Right>
constexpr bool operator<=(const Compared<Left>& pair, const Right& right)
{
    return pair.isOn ? pair.left < right : pair.left <= right;
}

template <class Left, class Right>
constexpr bool operator>(const Compared<Left>& pair, const Right& right)
{
    return pair.isOn ? pair.left >= right : pair.left > right;
}

template <class Left, class Right>
constexpr bool operator>=(const Compared<Left>& pair, const Right& right)
{
    return pair.isOn ? pair.left > right : pair.left >= right;
}

template <class Left, class Right>
constexpr bool operator==(const Compared<Left>& pair, const Right& right)
{
    return (pair.left == right) != pair.isOn;
}

template <class Left, class Right>
constexpr bool operator!=(const Compared<Left>& pair, const Right& right)
{
    return (pair.left != right) != pair.isOn;
}

} // namespace mutation

#endif
