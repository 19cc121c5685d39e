#ifdef _WIN32

#    include "support/child.h"

#    include <windows.h>

namespace support {

namespace {

// An exception ends a program with its own code, which has the highest bit set.
std::optional<int> codeOf(HANDLE program)
{
    DWORD code = 0;
    const bool isKnown = GetExitCodeProcess(program, &code) != 0;
    return isKnown && code <= 0x7fffffff ? std::optional{static_cast<int>(code)} : std::nullopt;
}

std::optional<int> waitFor(HANDLE program, std::chrono::seconds limit)
{
    const auto milliseconds = std::chrono::milliseconds(limit).count();
    if (WaitForSingleObject(program, static_cast<DWORD>(milliseconds)) == WAIT_OBJECT_0) {
        return codeOf(program);
    }
    TerminateProcess(program, 1);
    WaitForSingleObject(program, INFINITE);
    return std::nullopt;
}

} // namespace

std::optional<int> runProgram(const Path& program, const std::vector<Path>& arguments,
                              std::chrono::seconds limit)
{
    std::wstring command = L"\"" + program.wstring() + L"\"";
    for (const Path& argument : arguments) {
        command += L" \"" + argument.wstring() + L"\"";
    }
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                        &startup, &process)) {
        return std::nullopt;
    }
    CloseHandle(process.hThread);
    const auto code = waitFor(process.hProcess, limit);
    CloseHandle(process.hProcess);
    return code;
}

} // namespace support

#endif
