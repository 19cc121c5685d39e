// How much work the processor did: unlike the clock on the wall it does not count the waiting for
// other programs.
#pragma once

#include <functional>

namespace support {

// The user time, in seconds, that this process spends in the call.
double cpuSeconds(const std::function<void()>& call);

// Expects the whole to cost at most that many times a part of it. Where the part costs less than the
// clock's steps and the machine's moods, it counts as if it cost that.
void expectAtMost(double times, double part, double whole);

// Ten times as much may cost ten times the work, and what sorting and a full cache add to it; work
// that grows with the square would be a hundred times.
void expectNearLinear(double tenth, double whole);

} // namespace support
