#include "support/disk_waits.h"

#include <sys/syscall.h>
#include <unistd.h>

namespace {

bool waits = true;

} // namespace

// These stand before those of the C library.
#pragma GCC visibility push(default)

extern "C" {

int fsync(int file)
{
    return waits ? static_cast<int>(::syscall(SYS_fsync, file)) : 0;
}

int fdatasync(int file)
{
    return waits ? static_cast<int>(::syscall(SYS_fdatasync, file)) : 0;
}

} // extern "C"

#pragma GCC visibility pop

namespace bench {

WithoutDiskWaits::WithoutDiskWaits()
{
    waits = false;
}

WithoutDiskWaits::~WithoutDiskWaits()
{
    waits = true;
}

} // namespace bench
