#include "support/machine.h"

#include <array>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include <gnu/libc-version.h>
#include <sys/utsname.h>
#include <unistd.h>

namespace bench {

namespace {

std::string processorName()
{
    std::ifstream in("/proc/cpuinfo");
    std::string line;
    while (std::getline(in, line)) {
        if (line.starts_with("model name")) {
            return line.substr(line.find(':') + 2);
        }
    }
    return "unknown processor";
}

std::string loadAverage()
{
    std::array<double, 1> load{};
    std::ostringstream out;
    if (getloadavg(load.data(), 1) == 1) {
        out << load.front();
    }
    return out.str();
}

} // namespace

std::string describeMachine()
{
    utsname system{};
    uname(&system);
    std::ostringstream out;
    out << processorName() << ", " << sysconf(_SC_NPROCESSORS_ONLN) << " processors, "
        << system.sysname << ' ' << system.release << ", glibc " << gnu_get_libc_version()
        << ", compiler " << __VERSION__ << ", load " << loadAverage();
    return out.str();
}

} // namespace bench
