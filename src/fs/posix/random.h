#pragma once

#include <span>

namespace Korvel::CANTORIS::PLX::fs {

// Random bytes from the system; false when it returns none.
bool fillRandomly(std::span<unsigned char> bytes);

// The same, from the device that every system has.
bool readRandomDevice(std::span<unsigned char> bytes);

} // namespace Korvel::CANTORIS::PLX::fs
