// Which library a test program uses: that of its own build, or another one that it is run with.
#pragma once

#include <cstdlib>
#include <string>

namespace support {

// In UTF-8. `own` is the file that the program was built with.
inline std::string libraryFile(const char* own)
{
    const char* const other = std::getenv("KRT_PLX_TEST_LIBRARY_FILE");
    return other == nullptr ? own : other;
}

} // namespace support
