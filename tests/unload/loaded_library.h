// The shipped library, loaded and closed at run time.
#pragma once

#include <string>

#include <korvel/plx.h>

// Whether the library's file is mapped into this process.
bool isMapped();

class LoadedLibrary {
public:
    // Throws std::runtime_error when the library cannot be loaded.
    LoadedLibrary();
    ~LoadedLibrary();
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;

    // Null when the library has no such function.
    [[nodiscard]] void* find(const char* name) const;

    // The function with the type of its declaration: function<decltype(KRT_PLX_HasManager)>("...").
    template <typename Function>
    [[nodiscard]] Function* function(const char* name) const
    {
        return reinterpret_cast<Function*>(find(name));
    }

private:
    void* handle_ = nullptr;
};
