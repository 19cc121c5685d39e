// How much work the processor did: unlike the clock on the wall it does not count the waiting for
// other programs.
#pragma once

#include <functional>

namespace support {

// The user time, in seconds, that this process spends in the call.
double cpuSeconds(const std::function<void()>& call);

} // namespace support
