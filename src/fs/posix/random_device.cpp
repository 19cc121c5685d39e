#include "fs/posix/random.h"
#include "fs/posix/system.h"

namespace Korvel::CANTORIS::PLX::fs {

bool readRandomDevice(std::span<unsigned char> bytes)
{
    const Descriptor device{
        uninterrupted([] { return ::open("/dev/urandom", O_RDONLY | O_CLOEXEC); })};
    while (!bytes.empty()) {
        const ssize_t size =
            uninterrupted([&] { return ::read(device.number(), bytes.data(), bytes.size()); });
        if (size <= 0) {
            return false;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(size));
    }
    return true;
}

} // namespace Korvel::CANTORIS::PLX::fs
