#ifdef _WIN32

#    include <atomic>
#    include <stdexcept>

#    include <windows.h>

#    include "support/temp_dir_system.h"

namespace support {

namespace {

// An emulated Windows shows links and pipes but cannot make them; its host's own programs can.
std::wstring nameOnHost(const std::wstring& path)
{
    using Translate = char*(CDECL*)(const wchar_t*);
    const auto translate = reinterpret_cast<Translate>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
    char* name = translate == nullptr ? nullptr : translate(path.c_str());
    if (name == nullptr) {
        return {};
    }
    const Text converted = text(name);
    HeapFree(GetProcessHeap(), 0, name);
    return converted;
}

bool isPresent(const std::wstring& path)
{
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool isListed(const std::wstring& path)
{
    WIN32_FIND_DATAW entry;
    const HANDLE search = FindFirstFileW(path.c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) {
        return false;
    }
    FindClose(search);
    return true;
}

template <typename Condition>
bool waitUntil(Condition condition)
{
    for (int i = 0; i < 500 && !condition(); ++i) {
        Sleep(10);
    }
    return condition();
}

// What the emulator says about such a process is void: there are no handles to close either.
bool startOnHost(const std::wstring& program, const std::wstring& arguments)
{
    const std::wstring path = LR"(\\?\unix)" + program;
    std::wstring command = program + L" " + arguments;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION unused{};
    return CreateProcessW(path.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                          nullptr, &startup, &unused) != 0;
}

std::wstring quoted(const std::wstring& argument)
{
    return L"\"" + argument + L"\"";
}

std::wstring withSlashes(std::wstring path)
{
    for (wchar_t& unit : path) {
        unit = unit == L'\\' ? L'/' : unit;
    }
    return path;
}

std::wstring folderOf(const std::wstring& path)
{
    return path.substr(0, path.rfind(L'\\'));
}

std::wstring nameOf(const std::wstring& path)
{
    return path.substr(path.rfind(L'\\') + 1);
}

std::wstring newNameOnHost(const std::wstring& path)
{
    const std::wstring folder = nameOnHost(folderOf(path));
    return folder.empty() ? folder : folder + L"/" + nameOf(path);
}

bool isWholePath(const std::wstring& path)
{
    return path.size() > 1 && path[1] == L':';
}

std::atomic<bool> hostMadeLinks{false};

bool makeLinkOnHost(const std::wstring& link, const std::wstring& target)
{
    const std::wstring name = newNameOnHost(link);
    const std::wstring goal = isWholePath(target) ? nameOnHost(target) : withSlashes(target);
    if (name.empty() || !startOnHost(L"/bin/ln", L"-s " + quoted(goal) + L" " + quoted(name))) {
        return false;
    }
    hostMadeLinks = true;
    return waitUntil([&] { return isPresent(link); });
}

} // namespace

bool isEmulatedWindows()
{
    static const bool isEmulated =
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
    return isEmulated;
}

std::filesystem::path hostPath(TextView path)
{
    return path;
}

Text makeFreshFolder()
{
    static std::atomic<unsigned> counter{0};
    const auto root = std::filesystem::temp_directory_path();
    for (int attempt = 0; attempt < 100; ++attempt) {
        const auto path =
            root / (L"krt-plx-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                    std::to_wstring(GetTickCount64()) + L"-" + std::to_wstring(++counter));
        if (std::filesystem::create_directories(path)) {
            return path.wstring();
        }
    }
    throw std::runtime_error("cannot make a temporary folder");
}

// The standard library of this compiler would go through the links.
void removeAll(const Text& folder) noexcept
{
    if (hostMadeLinks) {
        startOnHost(L"/bin/rm", L"-rf " + quoted(nameOnHost(folder)));
    } else {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }
}

bool makeLink(const Text& link, const Text& target)
{
    const auto goal = isWholePath(target) ? target : folderOf(link) + L"\\" + target;
    const DWORD attributes = GetFileAttributesW(goal.c_str());
    const bool isFolder =
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    CreateSymbolicLinkW(link.c_str(), target.c_str(), isFolder ? SYMBOLIC_LINK_FLAG_DIRECTORY : 0);
    return isPresent(link) || makeLinkOnHost(link, target);
}

bool makePipe(const Text& path)
{
    const std::wstring name = newNameOnHost(path);
    return !name.empty() && startOnHost(L"/usr/bin/mkfifo", quoted(name)) &&
           waitUntil([&] { return isListed(path); });
}

} // namespace support

#endif
