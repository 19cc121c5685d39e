// How much the tests try where every step takes several times as long: under Wine, with a sanitized
// library, and in an emulator. Elsewhere the same tests run in full.
#pragma once

#ifndef _WIN32
#    include <cstdlib>

#    include <dlfcn.h>
#endif

namespace support {

#ifdef _WIN32
inline bool isSanitized()
{
    return false;
}

inline bool isSlow()
{
    return true;
}
#else
// Whether a sanitizer's runtime is in this process: the library needs it, the tests may be without.
inline bool isSanitized()
{
    return dlsym(RTLD_DEFAULT, "__asan_init") != nullptr ||
           dlsym(RTLD_DEFAULT, "__tsan_init") != nullptr;
}

// scripts/portability says so.
inline bool isEmulated()
{
    return std::getenv("KRT_PLX_TEST_EMULATED") != nullptr;
}

inline bool isSlow()
{
    return isSanitized() || isEmulated();
}
#endif

// How many random clips or sequences.
inline unsigned seeds(unsigned number)
{
    return isSlow() ? (number + 2) / 3 : number;
}

} // namespace support
