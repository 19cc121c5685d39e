#include "loader/libraries.h"

#include <cstring>
#include <fstream>

#include "support/library_file.h"

namespace {

Path fromUtf8(const std::string& text)
{
    return std::filesystem::path(std::u8string(text.begin(), text.end()));
}

} // namespace

Path wholeLibrary()
{
    return fromUtf8(support::libraryFile(KRT_PLX_TEST_LIBRARY_FILE)).make_preferred();
}

Path partialLibrary()
{
    return fromUtf8(KRT_PLX_TEST_PARTIAL_LIBRARY_FILE).make_preferred();
}

#ifdef _WIN32

bool isMapped(const Path& library)
{
    return GetModuleHandleW(library.filename().c_str()) != nullptr;
}

void* findFunction(void* library, const char* name)
{
    const FARPROC function = GetProcAddress(static_cast<HMODULE>(library), name);
    void* address = nullptr;
    std::memcpy(&address, &function, sizeof address);
    return address;
}

#else

bool isMapped(const Path& library)
{
    std::ifstream maps("/proc/self/maps");
    const std::string name = "/" + library.filename().string();
    for (std::string line; std::getline(maps, line);) {
        if (line.find(name) != std::string::npos) {
            return true;
        }
    }
    return false;
}

void* findFunction(void* library, const char* name)
{
    return dlsym(library, name);
}

#endif
