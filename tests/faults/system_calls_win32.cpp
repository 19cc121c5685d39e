#ifdef _WIN32

#    include "system_calls.h"

#    include <algorithm>
#    include <cerrno>
#    include <climits>
#    include <map>
#    include <memory>
#    include <utility>

#    include <windows.h>

#    include "library_call.h"
#    include "support/calls_win32.h"
#    include "support/text.h"

namespace faults {

namespace {

struct Plan {
    long failing = LONG_MAX;
    DWORD error = 0;
    bool andDeleting = false;
    bool andAll = false;
    long acting = LONG_MAX;
    std::function<void()> act = {};
    bool recording = false;
    DWORD longest = MAXDWORD;
};

Plan plan;
SystemCalls calls;
std::unique_ptr<support::DisturbedCalls> disturbed;

// The errors that the tests name by numbers of the C library.
DWORD errorOf(int number)
{
    static const std::map<int, DWORD> errors = {{ENOSPC, ERROR_DISK_FULL},
                                                {EACCES, ERROR_ACCESS_DENIED},
                                                {EIO, ERROR_IO_DEVICE},
                                                {EMFILE, ERROR_TOO_MANY_OPEN_FILES},
                                                {ENOMEM, ERROR_NOT_ENOUGH_MEMORY},
                                                {ENAMETOOLONG, ERROR_FILENAME_EXCED_RANGE},
                                                {EROFS, ERROR_WRITE_PROTECT}};
    return errors.at(number);
}

// Without the prefix, and with slashes as the standard library gives them.
std::string describe(const support::DisturbedCalls::Call& call)
{
    std::wstring path = call.path();
    if (path.starts_with(LR"(\\?\)")) {
        path.erase(0, 4);
    }
    if (path.ends_with(L"\\*")) {
        path.resize(path.size() - 2); // "\*" after a folder that is listed
    }
    std::replace(path.begin(), path.end(), L'\\', L'/');
    return support::utf8(path);
}

bool mustFail(long number, bool isDeleting)
{
    return number == plan.failing ||
           (number > plan.failing && (plan.andAll || (plan.andDeleting && isDeleting)));
}

DWORD decide(const support::DisturbedCalls::Call& call)
{
    if (!insideLibrary) {
        return 0;
    }
    const Inside outside(false);
    const long number = static_cast<long>(calls.size()) + 1;
    const bool isFailing = mustFail(number, call.isDeleting);
    calls.push_back({call.name, isFailing || plan.recording ? describe(call) : std::string()});
    if (number == plan.acting) {
        plan.act();
    }
    return isFailing ? plan.error : 0;
}

void begin(const Plan& next)
{
    plan = next;
    calls.clear();
    disturbed = std::make_unique<support::DisturbedCalls>(GetModuleHandleW(L"krt_plx.dll"));
    disturbed->decide(decide);
    disturbed->limitTransfers(plan.longest);
}

} // namespace

void recordCalls()
{
    begin({.recording = true});
}

void failCall(long number, int error)
{
    begin({.failing = number, .error = errorOf(error)});
}

void failCallAndShorten(long number, int error, std::size_t bytes)
{
    begin({.failing = number, .error = errorOf(error), .longest = static_cast<DWORD>(bytes)});
}

void failCallAndDeleting(long number, int error)
{
    begin({.failing = number, .error = errorOf(error), .andDeleting = true});
}

void failCallsFrom(long number, int error)
{
    begin({.failing = number, .error = errorOf(error), .andAll = true});
}

void limitTransfers(std::size_t bytes)
{
    begin({.longest = static_cast<DWORD>(bytes)});
}

void actBefore(long number, std::function<void()> act)
{
    begin({.acting = number, .act = std::move(act)});
}

SystemCalls stopDisturbing()
{
    disturbed.reset();
    return std::exchange(calls, {});
}

} // namespace faults

#endif
