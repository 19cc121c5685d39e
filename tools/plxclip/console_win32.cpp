#ifdef _WIN32

#    include "console.h"

#    include <cstdio>

#    include <windows.h>

#    include <shellapi.h>

namespace plxclip {

namespace {

HANDLE handleOf(Stream stream)
{
    return GetStdHandle(stream == Stream::output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
}

void interpretEscapes(Stream stream)
{
    DWORD mode = 0;
    if (GetConsoleMode(handleOf(stream), &mode) != 0) {
        SetConsoleMode(handleOf(stream), mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
    }
}

std::string utf8(const wchar_t* text)
{
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(size > 0 ? size : 1), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, result.data(), size, nullptr, nullptr);
    result.pop_back(); // the zero at the end
    // The conversion replaces half a pair of surrogates. A byte that UTF-8 does not have says so.
    const bool isText = WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, text, -1, nullptr, 0,
                                            nullptr, nullptr) != 0;
    return isText ? result : result + '\xFF';
}

} // namespace

Console::Console() : formerCodePage(GetConsoleOutputCP())
{
    SetConsoleOutputCP(CP_UTF8);
    interpretEscapes(Stream::output);
    interpretEscapes(Stream::error);
    // A character that is written in two pieces would be shown as two wrong ones.
    std::setvbuf(stdout, nullptr, _IOFBF, 1U << 16U);
}

Console::~Console()
{
    std::fflush(stdout);
    SetConsoleOutputCP(formerCodePage);
}

// The C library's arguments are in the system's code page, which lacks most of Unicode.
std::vector<std::string> commandLine(int argc, char** argv)
{
    int count = 0;
    wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
    if (wide == nullptr) {
        return {argv, argv + argc};
    }
    std::vector<std::string> arguments;
    for (int i = 0; i < count; ++i) {
        arguments.push_back(utf8(wide[i]));
    }
    LocalFree(static_cast<void*>(wide));
    return arguments;
}

std::filesystem::path programFile()
{
    constexpr std::size_t longestPath = 32768;
    std::wstring path(longestPath, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

bool isTerminal(Stream stream)
{
    DWORD mode = 0;
    return GetConsoleMode(handleOf(stream), &mode) != 0;
}

bool isInputTerminal()
{
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &mode) != 0;
}

std::size_t terminalWidth()
{
    CONSOLE_SCREEN_BUFFER_INFO info = {};
    if (GetConsoleScreenBufferInfo(handleOf(Stream::output), &info) == 0) {
        return 100;
    }
    return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}

} // namespace plxclip

#endif
