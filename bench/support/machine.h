#pragma once

#include <string>

namespace bench {

// The machine, the system and the compiler, in one line.
std::string describeMachine();

} // namespace bench
