// The files that the tests load, and whether they are in the process.
#pragma once

#include <filesystem>
#include <string>

#include <korvel/plx_loader.h>

using Path = std::filesystem::path;

Path wholeLibrary();
Path partialLibrary();

// Whether the file of this name is mapped into this process.
bool isMapped(const Path& library);

// Asks the system itself for a function of a loaded library.
void* findFunction(void* library, const char* name);
