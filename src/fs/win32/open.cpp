#include "fs/win32/open.h"

#include <winternl.h>

namespace Korvel::CANTORIS::PLX::fs {

namespace {

constexpr ULONG fullSharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

constexpr NTSTATUS deletePending = static_cast<NTSTATUS>(0xC0000056);

Handle closedWith(DWORD error)
{
    SetLastError(error);
    return Handle();
}

// The system's translation would turn this status into "access denied".
DWORD errorOf(NTSTATUS status)
{
    return status == deletePending ? DWORD{ERROR_DELETE_PENDING} : RtlNtStatusToDosError(status);
}

bool isName(StringView name)
{
    constexpr StringView notInNames(L"\\/:\0", 4);
    constexpr std::size_t longest = 0x7FFE;
    return !name.empty() && name != L"." && name != L".." && name.size() <= longest &&
           name.find_first_of(notInNames) == StringView::npos;
}

// A name in an open folder, in the form that the system's native calls need.
class Place {
public:
    Place(const Handle& folder, StringView name)
    {
        name_.Buffer = const_cast<Char*>(name.data());
        name_.Length = static_cast<USHORT>(name.size() * sizeof(Char));
        name_.MaximumLength = name_.Length;
        InitializeObjectAttributes(&attributes_, &name_, OBJ_CASE_INSENSITIVE, folder.get(),
                                   nullptr);
    }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;

    OBJECT_ATTRIBUTES* get() { return &attributes_; }

private:
    UNICODE_STRING name_;
    OBJECT_ATTRIBUTES attributes_;
};

Handle openAt(const Handle& folder, StringView name, Access access, ULONG disposition,
              ULONG options)
{
    if (!isName(name)) {
        return closedWith(ERROR_INVALID_NAME);
    }
    Place place(folder, name);
    IO_STATUS_BLOCK result{};
    HANDLE handle = nullptr;
    const NTSTATUS status =
        NtCreateFile(&handle, static_cast<DWORD>(access) | SYNCHRONIZE, place.get(), &result,
                     nullptr, FILE_ATTRIBUTE_NORMAL, fullSharing, disposition,
                     options | FILE_OPEN_REPARSE_POINT | FILE_SYNCHRONOUS_IO_NONALERT, nullptr, 0);
    return status < 0 ? closedWith(errorOf(status)) : Handle(handle);
}

bool isMarked(DWORD attributes)
{
    return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

DWORD attributesOf(const Char* path)
{
    const DWORD attributes = GetFileAttributesW(path);
    return attributes == INVALID_FILE_ATTRIBUTES ? 0 : attributes;
}

DWORD attributesOf(const Handle& handle)
{
    FILE_BASIC_INFO information{};
    return GetFileInformationByHandleEx(handle.get(), FileBasicInfo, &information,
                                        sizeof information)
               ? information.FileAttributes
               : 0;
}

DWORD tagOf(const Handle& handle)
{
    FILE_ATTRIBUTE_TAG_INFO information{};
    GetFileInformationByHandleEx(handle.get(), FileAttributeTagInfo, &information,
                                 sizeof information);
    return information.ReparseTag;
}

// Emulated systems open what a link leads to, even if the link itself is wanted. The attributes of
// the name show this; then the handle is closed.
Handle asNamed(Handle handle, DWORD attributes)
{
    const bool isWhatALinkLeadsTo =
        handle && isMarked(attributes) && !isMarked(attributesOf(handle));
    return isWhatALinkLeadsTo ? closedWith(ERROR_CANT_ACCESS_FILE) : std::move(handle);
}

// Only the path of a folder may end with a separator.
std::optional<Sort> fitting(const SystemPath& path, Sort sort)
{
    if (path.namesFolder() && sort != Sort::folder) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return std::nullopt;
    }
    return sort;
}

} // namespace

Handle& Handle::operator=(Handle&& other) noexcept
{
    std::swap(handle_, other.handle_);
    return *this;
}

void Handle::close()
{
    if (*this) {
        CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE));
    }
}

Handle openPath(const SystemPath& path, Access access, Links links)
{
    if (path.isEmpty()) {
        return closedWith(path.error());
    }
    const DWORD itself = links == Links::dontFollow ? FILE_FLAG_OPEN_REPARSE_POINT : 0;
    Handle handle(CreateFileW(path.text(), static_cast<DWORD>(access), fullSharing, nullptr,
                              OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | itself, nullptr));
    return itself == 0 ? std::move(handle) : asNamed(std::move(handle), attributesOf(path.text()));
}

OpenFolder::OpenFolder(Handle itself, String itsPath)
    : handle(std::move(itself)), path(std::move(itsPath))
{
    constexpr std::size_t longestName = 255;
    path.reserve(path.size() + 1 + longestName);
}

Entry entryOf(OpenFolder& folder, StringView name)
{
    String& path = folder.path;
    const std::size_t length = path.size();
    path.reserve(length + 1 + name.size());
    if (!path.ends_with(separator)) {
        path += separator;
    }
    path += name;
    const DWORD attributes = attributesOf(path.c_str());
    path.resize(length);
    return {name, attributes};
}

Handle openEntry(const Handle& folder, const Entry& entry, Access access)
{
    return asNamed(openAt(folder, entry.name, access, FILE_OPEN, 0), entry.attributes);
}

Handle reopen(const Handle& handle, Access access)
{
    return Handle(ReOpenFile(handle.get(), static_cast<DWORD>(access) | SYNCHRONIZE, fullSharing,
                             FILE_FLAG_BACKUP_SEMANTICS));
}

Handle makeFile(const Handle& folder, StringView name, Access access)
{
    return openAt(folder, name, access, FILE_CREATE, FILE_NON_DIRECTORY_FILE);
}

Handle makeFolder(const Handle& folder, StringView name)
{
    return openAt(folder, name, Access::list, FILE_CREATE, FILE_DIRECTORY_FILE);
}

std::optional<Status> statusOf(const Handle& handle)
{
    FILE_BASIC_INFO information{};
    if (!handle || !GetFileInformationByHandleEx(handle.get(), FileBasicInfo, &information,
                                                 sizeof information)) {
        return std::nullopt;
    }
    const DWORD attributes = information.FileAttributes;
    const bool isOnDisk = GetFileType(handle.get()) == FILE_TYPE_DISK;
    const DWORD tag = isMarked(attributes) ? tagOf(handle) : 0;
    return Status{attributes, isOnDisk ? sortOf(attributes, tag) : Sort::special};
}

// Everything except the target of a link is known from the name; it is asked first, because opening
// a pipe of an emulated system can already have an effect.
std::optional<Sort> sortAt(const SystemPath& path)
{
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (path.isEmpty()) {
        SetLastError(path.error());
        return std::nullopt;
    }
    if (!GetFileAttributesExW(path.text(), GetFileExInfoStandard, &data)) {
        return std::nullopt;
    }
    if (isMarked(data.dwFileAttributes)) {
        const auto status = statusOf(openPath(path, Access::look, Links::follow));
        return status ? fitting(path, status->sort) : std::nullopt;
    }
    return fitting(path, sortOf(data.dwFileAttributes, 0));
}

// A file whose content is stored elsewhere or compressed shows its content when it is opened
// without asking for the mark.
Handle openSort(const Handle& folder, const Entry& entry, Access access, Sort sort)
{
    Handle handle = openEntry(folder, entry, access);
    const auto status = statusOf(handle);
    if (!status) {
        return Handle();
    }
    if (status->sort != sort) {
        return closedWith(ERROR_CANT_ACCESS_FILE);
    }
    return isMarked(status->attributes) ? reopen(handle, access) : std::move(handle);
}

bool saysMissing(DWORD error)
{
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

bool isInUse(DWORD error)
{
    return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
           error == ERROR_DELETE_PENDING || error == ERROR_USER_MAPPED_FILE;
}

} // namespace Korvel::CANTORIS::PLX::fs
