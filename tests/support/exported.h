// The names of exported functions, for tests that have them from a list without names.
#pragma once

#include <string_view>

namespace support {

// Without "KRT_PLX_". The text lives as long as the program.
std::string_view nameOfFunction(void (*function)());

template <class Result, class... Parameter>
std::string_view nameOfFunction(Result (*function)(Parameter...) noexcept)
{
    return nameOfFunction(reinterpret_cast<void (*)()>(function));
}

} // namespace support
