#include "fs/win32/lock.h"

namespace Korvel::CANTORIS::PLX::fs {

// On Windows other programs cannot read or write locked bytes, so this locks one byte that is
// beyond the end of any document.
Locked tryLock(const Handle& file, Sharing sharing)
{
    OVERLAPPED farBeyondTheEnd{};
    farBeyondTheEnd.OffsetHigh = 0x40000000;
    const DWORD exclusively = sharing == Sharing::exclusive ? LOCKFILE_EXCLUSIVE_LOCK : 0;
    if (LockFileEx(file.get(), exclusively | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0,
                   &farBeyondTheEnd)) {
        return Locked::yes;
    }
    const DWORD error = GetLastError();
    return error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING ? Locked::busy
                                                                      : Locked::unknownHere;
}

} // namespace Korvel::CANTORIS::PLX::fs
