#pragma once
#ifdef _WIN32

#    include <string>
#    include <vector>

#    include <windows.h>

namespace support {

// A program or a DLL reaches functions of others by a table of addresses, its imports. All that it uses.
std::vector<std::string> importsOf(HMODULE module);

// The place of one in that table; null when the module does not use it.
void** placeOfImport(HMODULE module, const char* name);

// Puts another function there, and returns the one that was there. Throws when there is no such place.
void* replaceImport(HMODULE module, const char* name, void* function);

} // namespace support

#endif
