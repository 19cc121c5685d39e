#include "unload/loaded_library.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

#ifdef _WIN32
#    include <windows.h>
#else
#    include <dlfcn.h>
#endif

#include "support/library_file.h"

namespace {

std::filesystem::path libraryFile()
{
    const std::string file = support::libraryFile(KRT_PLX_TEST_LIBRARY_FILE);
    return std::filesystem::path(std::u8string(file.begin(), file.end()));
}

} // namespace

#ifdef _WIN32

bool isMapped()
{
    return GetModuleHandleW(libraryFile().filename().c_str()) != nullptr;
}

LoadedLibrary::LoadedLibrary() : handle_(LoadLibraryW(libraryFile().c_str()))
{
    if (handle_ == nullptr) {
        throw std::runtime_error("LoadLibrary: error " + std::to_string(GetLastError()));
    }
}

LoadedLibrary::~LoadedLibrary()
{
    FreeLibrary(static_cast<HMODULE>(handle_));
}

void* LoadedLibrary::find(const char* name) const
{
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle_), name));
}

#else

bool isMapped()
{
    std::ifstream maps("/proc/self/maps");
    const std::string name = "/" + libraryFile().filename().string();
    for (std::string line; std::getline(maps, line);) {
        if (line.find(name) != std::string::npos) {
            return true;
        }
    }
    return false;
}

LoadedLibrary::LoadedLibrary() : handle_(dlopen(libraryFile().c_str(), RTLD_NOW | RTLD_LOCAL))
{
    if (handle_ == nullptr) {
        throw std::runtime_error(dlerror());
    }
}

LoadedLibrary::~LoadedLibrary()
{
    dlclose(handle_);
}

void* LoadedLibrary::find(const char* name) const
{
    return dlsym(handle_, name);
}

#endif
