// Checks that the library calls no system function that these tests cannot make fail.
#ifdef _WIN32

#    include <algorithm>
#    include <regex>

#    include <gmock/gmock.h>
#    include <gtest/gtest.h>

#    include "support/calls_win32.h"
#    include "support/imports_win32.h"

namespace {

// Functions that cannot fail, that close something, or that the C++ runtime calls for itself.
const std::regex harmless(
    "mem\\w+|str\\w+|wcslen|_nextafter|Sleep|SwitchToThread|(Acquire|Release)SRWLockExclusive|"
    "(Get|Set)LastError|RtlNtStatusToDosError|GetSystemTimeAsFileTime|CloseHandle|FindClose|"
    "RpcStringFreeW|Rtl\\w*(Context|Entry|UnwindEx|VirtualUnwind)|RaiseException|abort|"
    "\\w+CriticalSection|TlsGetValue|Virtual(Protect|Query)|GetModuleHandleW|LoadLibraryW|"
    "GetProcAddress|_amsg_exit|_initterm|_errno|_(un)?lock|__iob_func|f(put[cs]|write)|vfprintf|"
    "_read|_close|localeconv|___lc_codepage_func|___mb_cur_max_func|IsDBCSLeadByteEx|"
    "MultiByteToWideChar|WideCharToMultiByte|"
    "FormatMessageA|LocalFree|getenv"); // by the runtime of GCC 14: messages of errors, and its settings

TEST(Imports, AreMadeToFailOrHarmless)
{
    std::vector<std::string> disturbed = support::DisturbedCalls::disturbable();
    disturbed.insert(disturbed.end(), {"malloc", "calloc", "realloc", "free"});
    const auto used = support::importsOf(GetModuleHandleW(L"krt_plx.dll"));
    EXPECT_THAT(used, testing::IsSupersetOf(disturbed));
    for (const std::string& name : used) {
        EXPECT_TRUE(std::ranges::count(disturbed, name) > 0 || std::regex_match(name, harmless))
            << name;
    }
}

} // namespace

#endif
