#include "fs/posix/random.h"
#include "fs/posix/system.h"

namespace Korvel::CANTORIS::PLX::fs {

bool readRandomDevice(std::span<unsigned char> bytes)
{
    const Descriptor device{
        uninterrupted([] { return ::open("/dev/urandom", O_RDONLY | O_CLOEXEC); })};
    const auto read = [&] { return ::read(device.number(), bytes.data(), bytes.size()); };
    return uninterrupted(read) == std::ssize(bytes);
}

} // namespace Korvel::CANTORIS::PLX::fs
