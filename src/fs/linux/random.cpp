#include "fs/posix/random.h"

#include <sys/random.h>

#include "fs/posix/system.h"

namespace Korvel::CANTORIS::PLX::fs {

// Kernels that are older than the system call, and sandboxes that forbid it, still have the device.
bool fillRandomly(std::span<unsigned char> bytes)
{
    const auto ask = [&] { return ::getrandom(bytes.data(), bytes.size(), 0); };
    return uninterrupted(ask) == std::ssize(bytes) || readRandomDevice(bytes);
}

} // namespace Korvel::CANTORIS::PLX::fs
