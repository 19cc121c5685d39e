#include "support/cpu_time.h"

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

} // namespace support
