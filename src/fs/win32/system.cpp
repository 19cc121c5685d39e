#include "fs/win32/system.h"
#include "fs/fs.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

std::uint64_t wide(DWORD high, DWORD low)
{
    return (std::uint64_t{high} << 32) | low;
}

std::optional<Status> statusOfTarget(const String& link)
{
    const auto target = Handle{link}.information();
    if (!target) {
        return std::nullopt;
    }
    return Status{target->dwFileAttributes, wide(target->nFileSizeHigh, target->nFileSizeLow)};
}

// "NUL" or "COM1" in any folder names a device, for which the system claims an empty file.
bool namesDevice(const String& path)
{
    String full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), Char{});
    full.resize(
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full.starts_with(LR"(\\.\)");
}

} // namespace

bool holdsNul(const String& path)
{
    return path.find(Char{}) != String::npos;
}

String entryPath(const String& path)
{
    const auto last = path.find_last_not_of(LR"(\/)");
    return last == String::npos || path[last] == L':' ? String{} : path.substr(0, last + 1);
}

std::optional<DWORD> attributesOf(const String& path)
{
    const DWORD attributes =
        holdsNul(path) ? INVALID_FILE_ATTRIBUTES : GetFileAttributesW(path.c_str());
    return attributes == INVALID_FILE_ATTRIBUTES ? std::nullopt : std::optional{attributes};
}

bool isMissing(const String& path)
{
    if (holdsNul(path)) {
        return true;
    }
    if (attributesOf(path)) {
        return false;
    }
    const DWORD error = GetLastError();
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

bool isFolder(DWORD attributes)
{
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool isLink(DWORD attributes)
{
    return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

bool removeEntry(const String& path, DWORD attributes)
{
    return (isFolder(attributes) ? RemoveDirectoryW(path.c_str()) : DeleteFileW(path.c_str())) != 0;
}

Handle::Handle(const String& path)
    : handle_(holdsNul(path)
                  ? INVALID_HANDLE_VALUE
                  : CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr))
{
}

Handle::~Handle()
{
    if (*this) {
        CloseHandle(handle_);
    }
}

std::optional<BY_HANDLE_FILE_INFORMATION> Handle::information() const
{
    BY_HANDLE_FILE_INFORMATION information{};
    if (!*this || !GetFileInformationByHandle(handle_, &information)) {
        return std::nullopt;
    }
    return information;
}

std::optional<Status> statusOf(const String& path)
{
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (holdsNul(path) || !GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data)) {
        return std::nullopt;
    }
    if (isLink(data.dwFileAttributes)) {
        return statusOfTarget(path);
    }
    return Status{data.dwFileAttributes, wide(data.nFileSizeHigh, data.nFileSizeLow)};
}

bool isPlain(const String& path, const Status& status)
{
    constexpr DWORD others = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE;
    return (status.attributes & others) == 0 && (status.size > 0 || !namesDevice(path));
}

} // namespace Korvel::CANTORIS::PLX::fs
