#ifdef _WIN32

#    include "support/imports_win32.h"

#    include <cstddef>
#    include <stdexcept>

namespace support {

namespace {

std::byte* at(HMODULE module, DWORD offset)
{
    return reinterpret_cast<std::byte*>(module) + offset;
}

// Calls visit with each name and its place.
template <class Visit>
void forEachImport(HMODULE module, Visit visit)
{
    const auto* const dos = reinterpret_cast<IMAGE_DOS_HEADER*>(module);
    const auto* const headers =
        reinterpret_cast<IMAGE_NT_HEADERS*>(at(module, static_cast<DWORD>(dos->e_lfanew)));
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* library =
        reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(at(module, directory.VirtualAddress));
    for (; library->Name != 0; ++library) {
        const auto* wanted =
            reinterpret_cast<IMAGE_THUNK_DATA*>(at(module, library->OriginalFirstThunk));
        auto* address = reinterpret_cast<void**>(at(module, library->FirstThunk));
        for (; wanted->u1.AddressOfData != 0; ++wanted, ++address) {
            const auto* const entry = reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(
                at(module, static_cast<DWORD>(wanted->u1.AddressOfData)));
            if (!IMAGE_SNAP_BY_ORDINAL(wanted->u1.Ordinal)) {
                visit(std::string(reinterpret_cast<const char*>(entry->Name)), address);
            }
        }
    }
}

} // namespace

std::vector<std::string> importsOf(HMODULE module)
{
    std::vector<std::string> names;
    forEachImport(module, [&](const std::string& name, void**) { names.push_back(name); });
    return names;
}

void** placeOfImport(HMODULE module, const char* name)
{
    void** found = nullptr;
    forEachImport(module, [&](const std::string& each, void** place) {
        found = each == name ? place : found;
    });
    return found;
}

void* replaceImport(HMODULE module, const char* name, void* function)
{
    void** const place = placeOfImport(module, name);
    DWORD protection = 0;
    if (place == nullptr || !VirtualProtect(place, sizeof *place, PAGE_READWRITE, &protection)) {
        throw std::runtime_error(std::string("no such import: ") + name);
    }
    void* const before = *place;
    *place = function;
    VirtualProtect(place, sizeof *place, protection, &protection);
    return before;
}

} // namespace support

#endif
