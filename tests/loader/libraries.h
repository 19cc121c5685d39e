// The files that the tests load, and what is mapped of them.
#pragma once

#include <filesystem>
#include <string>

#include <korvel/plx_loader.h>

using Path = std::filesystem::path;

Path wholeLibrary();
Path partialLibrary();

// Whether the file of this name is mapped into this process.
bool isMapped(const Path& library);

// The system's own answer for a library that is loaded.
void* findFunction(void* library, const char* name);
