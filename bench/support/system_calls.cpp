#include "support/system_calls.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdint>

#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

namespace bench {

namespace {

constexpr int systemCallStop = SIGTRAP | 0x80;

// The child stops itself before and after the work.
[[noreturn]] void runTraced(const std::function<void()>& work)
{
    if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0) {
        std::raise(SIGSTOP);
        work();
        std::raise(SIGSTOP);
    }
    _exit(0);
}

// The signal at which the child has stopped; 0 when it has ended.
int nextStop(pid_t child)
{
    int status = 0;
    if (waitpid(child, &status, 0) != child || !WIFSTOPPED(status)) {
        return 0;
    }
    return WSTOPSIG(status);
}

bool isMemoryCall(std::uint64_t number)
{
    constexpr std::array calls{SYS_brk, SYS_mmap, SYS_munmap, SYS_mremap, SYS_madvise};
    return std::find(calls.begin(), calls.end(), static_cast<long>(number)) != calls.end();
}

void countOne(pid_t child, SystemCalls& calls)
{
    __ptrace_syscall_info info{};
    ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof info, &info);
    if (info.op == PTRACE_SYSCALL_INFO_ENTRY) {
        ++(isMemoryCall(info.entry.nr) ? calls.memory : calls.others);
    }
}

// From one stop of the child's own to the other.
std::optional<SystemCalls> count(pid_t child)
{
    if (nextStop(child) != SIGSTOP ||
        ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD) != 0) {
        return std::nullopt;
    }
    SystemCalls calls;
    int stop = systemCallStop;
    while (stop == systemCallStop) {
        ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        stop = nextStop(child);
        if (stop == systemCallStop) {
            countOne(child, calls);
        }
    }
    return stop == SIGSTOP ? std::optional(calls) : std::nullopt;
}

} // namespace

std::optional<SystemCalls> countSystemCalls(const std::function<void()>& work)
{
    const pid_t child = fork();
    if (child == 0) {
        runTraced(work);
    }
    if (child < 0) {
        return std::nullopt;
    }
    const std::optional<SystemCalls> calls = count(child);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    return calls;
}

} // namespace bench
