#pragma once

#include <span>

namespace Korvel::CANTORIS::PLX::fs {

// Random bytes of the system's; false when it has none to give.
bool fillRandomly(std::span<unsigned char> bytes);

// The same, by the device that every system has.
bool readRandomDevice(std::span<unsigned char> bytes);

} // namespace Korvel::CANTORIS::PLX::fs
