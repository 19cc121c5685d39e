// Runs the test programs of some folders, one after the other, and writes a report.
//
//   write_report REPORT FOLDER...
//
// Ends with 0 if all programs ended with 0 and ran at least one test each.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include <windows.h>

namespace {

using Path = std::filesystem::path;

constexpr DWORD longestRun = 60 * 60 * 1000; // milliseconds

struct Run {
    Path program;
    DWORD status = 0;
    std::string output;
};

std::string utf8(const Path& path)
{
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

// --- What this computer is --------------------------------------------------------------------------

template <class Function>
Function* systemFunction(const char* name)
{
    const HMODULE library = GetModuleHandleW(L"ntdll.dll");
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

// GetVersionEx tells programs what they are made for, not what they run on.
std::string versionOfWindows()
{
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    systemFunction<LONG WINAPI(OSVERSIONINFOW*)>("RtlGetVersion")(&version);
    std::ostringstream text;
    text << "Windows " << version.dwMajorVersion << '.' << version.dwMinorVersion << ", build "
         << version.dwBuildNumber;
    if (auto* const wine = systemFunction<const char * CDECL()>("wine_get_version")) {
        text << ", as Wine " << wine() << " shows it";
    }
    return text.str();
}

std::string nameOfProcessor()
{
    SYSTEM_INFO information{};
    GetNativeSystemInfo(&information);
    switch (information.wProcessorArchitecture) {
    case PROCESSOR_ARCHITECTURE_AMD64:
        return "x86-64";
    case PROCESSOR_ARCHITECTURE_INTEL:
        return "x86, 32 bits";
    default:
        return "of the kind " + std::to_string(information.wProcessorArchitecture);
    }
}

bool allowsLongPaths()
{
    DWORD value = 0;
    DWORD size = sizeof value;
    const wchar_t* const key = LR"(SYSTEM\CurrentControlSet\Control\FileSystem)";
    return RegGetValueW(HKEY_LOCAL_MACHINE, key, L"LongPathsEnabled", RRF_RT_REG_DWORD, nullptr,
                        &value, &size) == ERROR_SUCCESS &&
           value == 1;
}

std::string today()
{
    SYSTEMTIME time{};
    GetSystemTime(&time);
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d UTC", time.wYear, time.wMonth,
                  time.wDay, time.wHour, time.wMinute);
    return text;
}

// --- Running ----------------------------------------------------------------------------------------

std::vector<Path> programsIn(const Path& folder)
{
    std::vector<Path> programs;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (utf8(entry.path().filename()).ends_with("_tests.exe")) {
            programs.push_back(entry.path());
        }
    }
    std::ranges::sort(programs);
    return programs;
}

HANDLE openOutput(const Path& file)
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                       CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
}

DWORD statusAtEnd(HANDLE process)
{
    DWORD status = 0;
    if (WaitForSingleObject(process, longestRun) == WAIT_TIMEOUT) {
        TerminateProcess(process, WAIT_TIMEOUT);
        WaitForSingleObject(process, INFINITE);
    }
    GetExitCodeProcess(process, &status);
    return status;
}

// The status is the system's error if the program could not be started.
DWORD run(const Path& program, HANDLE output)
{
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = startup.hStdError = output;
    std::wstring command = L"\"" + program.wstring() + L"\" --gtest_brief=1 --gtest_color=no";
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, TRUE, 0, nullptr,
                        nullptr, &startup, &started)) {
        return GetLastError();
    }
    const DWORD status = statusAtEnd(started.hProcess);
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    return status;
}

Run runWithOutput(const Path& program, const Path& outputFile)
{
    const HANDLE output = openOutput(outputFile);
    Run result{program, run(program, output), {}};
    CloseHandle(output);
    std::ifstream file(outputFile, std::ios::binary);
    result.output.assign(std::istreambuf_iterator<char>(file), {});
    file.close();
    std::filesystem::remove(outputFile);
    return result;
}

// --- Reporting --------------------------------------------------------------------------------------

// The number after such a mark in the summary of a test program.
long countOf(const std::string& mark, const std::string& output)
{
    std::smatch match;
    const std::regex line(R"((?:^|\n)\[ *)" + mark + R"( *\] (\d+) test)");
    return std::regex_search(output, match, line) ? std::stol(match[1]) : 0;
}

bool isGood(const Run& run)
{
    return run.status == 0 && countOf("PASSED", run.output) > 0;
}

// The folder is the processor for which the program was built.
std::string lineOf(const Run& run)
{
    std::ostringstream line;
    line << utf8(run.program.parent_path().filename()) << ' ' << utf8(run.program.stem()) << ": "
         << countOf("PASSED", run.output) << " passed, " << countOf("FAILED", run.output)
         << " failed, " << countOf("SKIPPED", run.output) << " skipped, ended with " << run.status;
    return line.str();
}

void describeComputer(std::ostream& report)
{
    report << today() << '\n'
           << versionOfWindows() << '\n'
           << "Processor: " << nameOfProcessor() << '\n'
           << "Long paths without a prefix: " << (allowsLongPaths() ? "allowed" : "not allowed")
           << "\n\n";
}

bool writeReport(const Path& file, const std::vector<Path>& programs)
{
    std::ofstream report(file, std::ios::binary);
    describeComputer(report);
    std::string details;
    bool areAllGood = !programs.empty();
    for (const Path& program : programs) {
        const Run result = runWithOutput(program, Path(file.native() + L".output"));
        const std::string line = lineOf(result);
        std::printf("%s\n", line.c_str());
        std::fflush(stdout);
        report << line << '\n' << std::flush;
        areAllGood = areAllGood && isGood(result);
        details += "\n=== " + line + '\n' + result.output;
    }
    report << (areAllGood ? "All is well.\n" : "Something is wrong.\n") << details;
    return areAllGood && report.good();
}

} // namespace

int wmain(int count, wchar_t** arguments)
{
    if (count < 3) {
        std::fputs("write_report REPORT FOLDER...\n", stderr);
        return 2;
    }
    std::vector<Path> programs;
    for (int i = 2; i < count; ++i) {
        std::ranges::copy(programsIn(arguments[i]), std::back_inserter(programs));
    }
    return writeReport(arguments[1], programs) ? 0 : 1;
}
