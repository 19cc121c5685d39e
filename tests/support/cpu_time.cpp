#include "support/cpu_time.h"

#include <algorithm>

#include <gtest/gtest.h>

#ifdef _WIN32
#    include <windows.h>
#else
#    include <sys/resource.h>
#endif

namespace support {
namespace {

#ifdef _WIN32

double userSeconds()
{
    FILETIME created{};
    FILETIME ended{};
    FILETIME kernel{};
    FILETIME user{};
    GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
    const ULARGE_INTEGER ticks = {{user.dwLowDateTime, user.dwHighDateTime}};
    return static_cast<double>(ticks.QuadPart) / 1e7;
}

#else

double userSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_utime.tv_sec) +
           static_cast<double>(usage.ru_utime.tv_usec) / 1e6;
}

#endif

} // namespace

double cpuSeconds(const std::function<void()>& call)
{
    const double before = userSeconds();
    call();
    return userSeconds() - before;
}

void expectAtMost(double times, double part, double whole)
{
    constexpr double leastSeconds = 0.02;
    EXPECT_LE(whole, times * std::max(part, leastSeconds)) << part << " s for a part of it";
}

void expectNearLinear(double tenth, double whole)
{
    expectAtMost(40, tenth, whole);
}

} // namespace support
