#include "fs/posix/random.h"

namespace Korvel::CANTORIS::PLX::fs {

bool fillRandomly(std::span<unsigned char> bytes)
{
    return readRandomDevice(bytes);
}

} // namespace Korvel::CANTORIS::PLX::fs
