#include "fs/win32/open.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

// From a newer version of the system than the compiler's headers may know.
struct Removal {
    DWORD flags;
};
constexpr auto removalClass = static_cast<FILE_INFO_BY_HANDLE_CLASS>(21);
constexpr DWORD removeIt = 0x1;
constexpr DWORD atOnce = 0x2; // not only when the last program closes it
constexpr DWORD alsoReadOnly = 0x10;

bool removeAtOnce(const Handle& entry)
{
    Removal removal{removeIt | atOnce | alsoReadOnly};
    return SetFileInformationByHandle(entry.get(), removalClass, &removal, sizeof removal) != 0;
}

bool removeAtClosing(const Handle& entry)
{
    FILE_DISPOSITION_INFO removal{TRUE};
    return SetFileInformationByHandle(entry.get(), FileDispositionInfo, &removal, sizeof removal) !=
           0;
}

// Times of 0 mean: do not change.
bool setAttributes(const Handle& entry, DWORD attributes)
{
    FILE_BASIC_INFO information{};
    information.FileAttributes = attributes;
    return SetFileInformationByHandle(entry.get(), FileBasicInfo, &information,
                                      sizeof information) != 0;
}

// The mark is restored if the file stays.
bool removeReadOnly(const Handle& entry, DWORD attributes)
{
    const DWORD unmarked = attributes & ~DWORD{FILE_ATTRIBUTE_READONLY};
    const Handle marking = reopen(entry, Access::mark);
    if (!marking || !setAttributes(marking, unmarked == 0 ? FILE_ATTRIBUTE_NORMAL : unmarked)) {
        return false;
    }
    if (removeAtClosing(entry)) {
        return true;
    }
    const DWORD error = GetLastError();
    setAttributes(marking, attributes);
    SetLastError(error);
    return false;
}

// Older systems, and some file systems, do not know the better way.
bool isUnknownHere(DWORD error)
{
    return error == ERROR_INVALID_PARAMETER || error == ERROR_INVALID_FUNCTION ||
           error == ERROR_NOT_SUPPORTED || error == ERROR_CALL_NOT_IMPLEMENTED;
}

} // namespace

bool removeOpen(const Handle& entry, DWORD attributes)
{
    if (removeAtOnce(entry)) {
        return true;
    }
    if (!isUnknownHere(GetLastError())) {
        return false;
    }
    return (attributes & FILE_ATTRIBUTE_READONLY) != 0 ? removeReadOnly(entry, attributes)
                                                       : removeAtClosing(entry);
}

} // namespace Korvel::CANTORIS::PLX::fs
