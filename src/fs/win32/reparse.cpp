#include "fs/win32/reparse.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

bool has(DWORD attributes, DWORD wanted)
{
    return (attributes & wanted) != 0;
}

// One bit of a tag says whether the marked entry stands for another name, as symbolic links,
// junctions and mount points do.
bool standsForAnotherName(DWORD tag)
{
    constexpr DWORD nameSurrogate = 0x20000000;
    return tag == 0 || has(tag, nameSurrogate);
}

// The special files of Linux programs on a Windows computer.
bool isSpecial(DWORD tag)
{
    constexpr DWORD socket = 0x80000023;
    constexpr DWORD pipe = 0x80000024;
    constexpr DWORD characterDevice = 0x80000025;
    constexpr DWORD blockDevice = 0x80000026;
    return tag == socket || tag == pipe || tag == characterDevice || tag == blockDevice;
}

} // namespace

Sort sortOf(DWORD attributes, DWORD tag)
{
    if (has(attributes, FILE_ATTRIBUTE_REPARSE_POINT)) {
        if (standsForAnotherName(tag)) {
            return Sort::link;
        }
        if (isSpecial(tag)) {
            return Sort::special;
        }
    }
    if (has(attributes, FILE_ATTRIBUTE_DEVICE)) {
        return Sort::special;
    }
    return has(attributes, FILE_ATTRIBUTE_DIRECTORY) ? Sort::folder : Sort::file;
}

} // namespace Korvel::CANTORIS::PLX::fs
