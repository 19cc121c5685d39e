#include "support/clock.h"

#include <ctime>

namespace bench {

double seconds(Clock clock)
{
    timespec time{};
    clock_gettime(clock == Clock::wall ? CLOCK_MONOTONIC : CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

} // namespace bench
