#include "fs/win32/lock.h"

namespace Korvel::CANTORIS::PLX::fs {

// What is locked cannot be read or written by others here, so it is one byte that no document reaches.
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
