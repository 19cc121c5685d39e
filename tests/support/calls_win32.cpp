#ifdef _WIN32

#    include "support/calls_win32.h"

#    include <algorithm>
#    include <climits>
#    include <optional>
#    include <set>
#    include <stdexcept>

#    include <winternl.h>

namespace support {

namespace {

constexpr auto removalClass = static_cast<FILE_INFO_BY_HANDLE_CLASS>(21);

struct Plan {
    long firstFailing = LONG_MAX;
    long lastFailing = LONG_MAX;
    DWORD error = 0;
    std::string failingName;
    long failuresLeft = 0;
    long acting = LONG_MAX;
    std::function<void()> act;
    std::optional<DWORD> tag;
    DisturbedCalls::Shown shown = DisturbedCalls::Shown::byHandleAndName;
    DisturbedCalls::Numbers numbers;
};

Plan plan;
std::vector<std::string> names;
std::set<HANDLE> entries; // opened as themselves, not as what they lead to
DWORD lastRemovalFlags = 0;
bool isActing = false;

// --- The table of addresses --------------------------------------------------------------------------

std::byte* at(HMODULE module, DWORD offset)
{
    return reinterpret_cast<std::byte*>(module) + offset;
}

// The place where the module keeps the address of a function of another; null when it uses none.
void** placeOf(HMODULE module, const char* name)
{
    const auto* const dos = reinterpret_cast<IMAGE_DOS_HEADER*>(module);
    const auto* const headers =
        reinterpret_cast<IMAGE_NT_HEADERS*>(at(module, static_cast<DWORD>(dos->e_lfanew)));
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* library =
        reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(at(module, directory.VirtualAddress));
    for (; library->Name != 0; ++library) {
        const auto* wanted =
            reinterpret_cast<IMAGE_THUNK_DATA*>(at(module, library->OriginalFirstThunk));
        auto* address = reinterpret_cast<void**>(at(module, library->FirstThunk));
        for (; wanted->u1.AddressOfData != 0; ++wanted, ++address) {
            const auto* const entry = reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(
                at(module, static_cast<DWORD>(wanted->u1.AddressOfData)));
            const bool isNumber = IMAGE_SNAP_BY_ORDINAL(wanted->u1.Ordinal);
            if (!isNumber && std::string(reinterpret_cast<const char*>(entry->Name)) == name) {
                return address;
            }
        }
    }
    return nullptr;
}

void write(void** place, void* address)
{
    DWORD before = 0;
    if (!VirtualProtect(place, sizeof *place, PAGE_READWRITE, &before)) {
        throw std::runtime_error("the imports cannot be changed");
    }
    *place = address;
    VirtualProtect(place, sizeof *place, before, &before);
}

// --- The calls -----------------------------------------------------------------------------------------

bool mustFail(const char* name)
{
    if (isActing) {
        return false;
    }
    names.emplace_back(name);
    const auto number = static_cast<long>(names.size());
    if (number == plan.acting) {
        isActing = true;
        plan.act();
        isActing = false;
    }
    if (plan.failingName == name && plan.failuresLeft > 0) {
        --plan.failuresLeft;
        return true;
    }
    return number >= plan.firstFailing && number <= plan.lastFailing;
}

// Null for a call that goes on as it is.
template <class Result>
std::optional<Result> failing(const char* name, Result failure)
{
    if (!mustFail(name)) {
        return std::nullopt;
    }
    SetLastError(plan.error);
    return failure;
}

// What the system's own calls say for an error.
NTSTATUS statusOf(DWORD error)
{
    constexpr DWORD facilityOfErrors = 0xC0070000;
    switch (error) {
    case ERROR_SHARING_VIOLATION:
        return static_cast<NTSTATUS>(0xC0000043);
    case ERROR_ACCESS_DENIED:
        return static_cast<NTSTATUS>(0xC0000022);
    case ERROR_FILE_NOT_FOUND:
        return static_cast<NTSTATUS>(0xC0000034);
    case ERROR_DISK_FULL:
        return static_cast<NTSTATUS>(0xC000007F);
    case ERROR_IO_DEVICE:
        return static_cast<NTSTATUS>(0xC0000185);
    case ERROR_NOT_ENOUGH_MEMORY:
        return static_cast<NTSTATUS>(0xC0000017);
    case ERROR_INVALID_PARAMETER:
        return static_cast<NTSTATUS>(0xC000000D);
    case ERROR_DELETE_PENDING:
        return static_cast<NTSTATUS>(0xC0000056);
    default:
        return static_cast<NTSTATUS>(facilityOfErrors | error);
    }
}

bool marksNames()
{
    return plan.tag && plan.shown == DisturbedCalls::Shown::byHandleAndName;
}

DWORD shown(DWORD attributes)
{
    return marksNames() ? attributes | FILE_ATTRIBUTE_REPARSE_POINT : attributes;
}

bool isMarked(HANDLE handle)
{
    return plan.tag && entries.contains(handle);
}

// By its name: this program's own table of addresses may be the one that is changed.
template <class Function>
Function* real(const char* name)
{
    const auto find = [name](const wchar_t* library) {
        return GetProcAddress(GetModuleHandleW(library), name);
    };
    const auto inKernel = find(L"kernel32.dll");
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(inKernel != nullptr ? inKernel : find(L"ntdll.dll")));
}

// Only what is opened as itself shows a mark.
void remember(HANDLE handle, bool isItself)
{
    if (isItself) {
        entries.insert(handle);
    } else {
        entries.erase(handle);
    }
}

HANDLE WINAPI createFile(const wchar_t* path, DWORD access, DWORD sharing,
                         SECURITY_ATTRIBUTES* security, DWORD disposition, DWORD flags,
                         HANDLE model)
{
    if (const auto failure = failing("CreateFileW", INVALID_HANDLE_VALUE)) {
        return *failure;
    }
    const HANDLE handle = real<decltype(CreateFileW)>("CreateFileW")(
        path, access, sharing, security, disposition, flags, model);
    remember(handle, (flags & FILE_FLAG_OPEN_REPARSE_POINT) != 0);
    return handle;
}

HANDLE WINAPI reOpenFile(HANDLE file, DWORD access, DWORD sharing, DWORD flags)
{
    if (const auto failure = failing("ReOpenFile", INVALID_HANDLE_VALUE)) {
        return *failure;
    }
    const HANDLE handle = real<decltype(ReOpenFile)>("ReOpenFile")(file, access, sharing, flags);
    entries.erase(handle);
    return handle;
}

NTSTATUS NTAPI ntCreateFile(HANDLE* handle, ACCESS_MASK access, OBJECT_ATTRIBUTES* place,
                            IO_STATUS_BLOCK* result, LARGE_INTEGER* size, ULONG attributes,
                            ULONG sharing, ULONG disposition, ULONG options, void* more,
                            ULONG moreSize)
{
    if (mustFail("NtCreateFile")) {
        return statusOf(plan.error);
    }
    const NTSTATUS status = real<decltype(NtCreateFile)>("NtCreateFile")(
        handle, access, place, result, size, attributes, sharing, disposition, options, more,
        moreSize);
    if (status >= 0) {
        entries.insert(*handle);
    }
    return status;
}

DWORD WINAPI getFileAttributes(const wchar_t* path)
{
    if (const auto failure = failing<DWORD>("GetFileAttributesW", INVALID_FILE_ATTRIBUTES)) {
        return *failure;
    }
    const DWORD attributes = real<decltype(GetFileAttributesW)>("GetFileAttributesW")(path);
    return attributes == INVALID_FILE_ATTRIBUTES ? attributes : shown(attributes);
}

BOOL WINAPI getFileAttributesEx(const wchar_t* path, GET_FILEEX_INFO_LEVELS level, void* data)
{
    if (const auto failure = failing<BOOL>("GetFileAttributesExW", FALSE)) {
        return *failure;
    }
    const BOOL done =
        real<decltype(GetFileAttributesExW)>("GetFileAttributesExW")(path, level, data);
    if (done) {
        auto* const attributes = static_cast<WIN32_FILE_ATTRIBUTE_DATA*>(data);
        attributes->dwFileAttributes = shown(attributes->dwFileAttributes);
    }
    return done;
}

BOOL WINAPI getFileInformation(HANDLE handle, BY_HANDLE_FILE_INFORMATION* information)
{
    if (const auto failure = failing<BOOL>("GetFileInformationByHandle", FALSE)) {
        return *failure;
    }
    const BOOL done = real<decltype(GetFileInformationByHandle)>("GetFileInformationByHandle")(
        handle, information);
    if (done && !plan.numbers.areShort) {
        information->nFileIndexHigh = 0;
        information->nFileIndexLow = 0;
    }
    return done;
}

void markAll(void* block)
{
    auto* entry = static_cast<FILE_ID_BOTH_DIR_INFO*>(block);
    for (;;) {
        entry->FileAttributes = shown(entry->FileAttributes);
        if (entry->NextEntryOffset == 0) {
            return;
        }
        entry = reinterpret_cast<FILE_ID_BOTH_DIR_INFO*>(reinterpret_cast<std::byte*>(entry) +
                                                         entry->NextEntryOffset);
    }
}

void disturb(HANDLE handle, FILE_INFO_BY_HANDLE_CLASS kind, void* data)
{
    if (kind == FileBasicInfo && isMarked(handle)) {
        static_cast<FILE_BASIC_INFO*>(data)->FileAttributes |= FILE_ATTRIBUTE_REPARSE_POINT;
    } else if (kind == FileAttributeTagInfo && isMarked(handle)) {
        static_cast<FILE_ATTRIBUTE_TAG_INFO*>(data)->FileAttributes |= FILE_ATTRIBUTE_REPARSE_POINT;
        static_cast<FILE_ATTRIBUTE_TAG_INFO*>(data)->ReparseTag = *plan.tag;
    } else if (kind == FileIdInfo && plan.numbers.highestByte != 0) {
        static_cast<FILE_ID_INFO*>(data)->FileId.Identifier[15] = plan.numbers.highestByte;
    } else if (kind == FileIdBothDirectoryInfo || kind == FileIdBothDirectoryRestartInfo) {
        markAll(data);
    }
}

BOOL WINAPI getFileInformationEx(HANDLE handle, FILE_INFO_BY_HANDLE_CLASS kind, void* data,
                                 DWORD size)
{
    if (const auto failure = failing<BOOL>("GetFileInformationByHandleEx", FALSE)) {
        return *failure;
    }
    if (kind == FileIdInfo && !plan.numbers.areLong) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const BOOL done = real<decltype(GetFileInformationByHandleEx)>("GetFileInformationByHandleEx")(
        handle, kind, data, size);
    if (done) {
        disturb(handle, kind, data);
    }
    return done;
}

BOOL WINAPI setFileInformation(HANDLE handle, FILE_INFO_BY_HANDLE_CLASS kind, void* data,
                               DWORD size)
{
    if (kind == removalClass) {
        lastRemovalFlags = *static_cast<const DWORD*>(data);
    }
    if (const auto failure = failing<BOOL>("SetFileInformationByHandle", FALSE)) {
        return *failure;
    }
    return real<decltype(SetFileInformationByHandle)>("SetFileInformationByHandle")(handle, kind,
                                                                                    data, size);
}

DWORD WINAPI getFinalPathName(HANDLE handle, wchar_t* path, DWORD size, DWORD flags)
{
    if (const auto failure = failing<DWORD>("GetFinalPathNameByHandleW", 0)) {
        return *failure;
    }
    return plan.numbers.areNamed ? real<decltype(GetFinalPathNameByHandleW)>(
                                       "GetFinalPathNameByHandleW")(handle, path, size, flags)
                                 : 0;
}

HANDLE WINAPI findFirstFile(const wchar_t* path, FINDEX_INFO_LEVELS level, void* data,
                            FINDEX_SEARCH_OPS operation, void* filter, DWORD flags)
{
    if (const auto failure = failing("FindFirstFileExW", INVALID_HANDLE_VALUE)) {
        return *failure;
    }
    const HANDLE search = real<decltype(FindFirstFileExW)>("FindFirstFileExW")(
        path, level, data, operation, filter, flags);
    auto* const entry = static_cast<WIN32_FIND_DATAW*>(data);
    if (search != INVALID_HANDLE_VALUE && marksNames()) {
        entry->dwFileAttributes = shown(entry->dwFileAttributes);
        entry->dwReserved0 = *plan.tag;
    }
    return search;
}

BOOL WINAPI findNextFile(HANDLE search, WIN32_FIND_DATAW* entry)
{
    if (const auto failure = failing<BOOL>("FindNextFileW", FALSE)) {
        return *failure;
    }
    const BOOL done = real<decltype(FindNextFileW)>("FindNextFileW")(search, entry);
    if (done && marksNames()) {
        entry->dwFileAttributes = shown(entry->dwFileAttributes);
        entry->dwReserved0 = *plan.tag;
    }
    return done;
}

BOOL WINAPI readFile(HANDLE file, void* bytes, DWORD size, DWORD* count, OVERLAPPED* place)
{
    const auto failure = failing<BOOL>("ReadFile", FALSE);
    return failure ? *failure
                   : real<decltype(ReadFile)>("ReadFile")(file, bytes, size, count, place);
}

BOOL WINAPI writeFile(HANDLE file, const void* bytes, DWORD size, DWORD* count, OVERLAPPED* place)
{
    const auto failure = failing<BOOL>("WriteFile", FALSE);
    return failure ? *failure
                   : real<decltype(WriteFile)>("WriteFile")(file, bytes, size, count, place);
}

BOOL WINAPI flushFileBuffers(HANDLE file)
{
    const auto failure = failing<BOOL>("FlushFileBuffers", FALSE);
    return failure ? *failure : real<decltype(FlushFileBuffers)>("FlushFileBuffers")(file);
}

BOOL WINAPI lockFile(HANDLE file, DWORD flags, DWORD reserved, DWORD low, DWORD high,
                     OVERLAPPED* place)
{
    const auto failure = failing<BOOL>("LockFileEx", FALSE);
    return failure
               ? *failure
               : real<decltype(LockFileEx)>("LockFileEx")(file, flags, reserved, low, high, place);
}

BOOL WINAPI createDirectory(const wchar_t* path, SECURITY_ATTRIBUTES* security)
{
    const auto failure = failing<BOOL>("CreateDirectoryW", FALSE);
    return failure ? *failure
                   : real<decltype(CreateDirectoryW)>("CreateDirectoryW")(path, security);
}

DWORD WINAPI getFullPathName(const wchar_t* path, DWORD size, wchar_t* full, wchar_t** name)
{
    const auto failure = failing<DWORD>("GetFullPathNameW", 0);
    return failure ? *failure
                   : real<decltype(GetFullPathNameW)>("GetFullPathNameW")(path, size, full, name);
}

struct Replacement {
    const char* name;
    void* function;
};

template <class Function>
void* address(Function* function)
{
    return reinterpret_cast<void*>(function);
}

const Replacement replacements[] = {
    {"CreateFileW", address(createFile)},
    {"ReOpenFile", address(reOpenFile)},
    {"NtCreateFile", address(ntCreateFile)},
    {"GetFileAttributesW", address(getFileAttributes)},
    {"GetFileAttributesExW", address(getFileAttributesEx)},
    {"GetFileInformationByHandle", address(getFileInformation)},
    {"GetFileInformationByHandleEx", address(getFileInformationEx)},
    {"SetFileInformationByHandle", address(setFileInformation)},
    {"GetFinalPathNameByHandleW", address(getFinalPathName)},
    {"FindFirstFileExW", address(findFirstFile)},
    {"FindNextFileW", address(findNextFile)},
    {"ReadFile", address(readFile)},
    {"WriteFile", address(writeFile)},
    {"FlushFileBuffers", address(flushFileBuffers)},
    {"LockFileEx", address(lockFile)},
    {"CreateDirectoryW", address(createDirectory)},
    {"GetFullPathNameW", address(getFullPathName)},
};

struct Replaced {
    void** place;
    void* before;
};
std::vector<Replaced> replaced;

void begin(Plan next)
{
    plan = std::move(next);
    names.clear();
    lastRemovalFlags = 0;
}

} // namespace

DisturbedCalls::DisturbedCalls(HMODULE module)
{
    if (module == nullptr) {
        module = GetModuleHandleW(nullptr);
    }
    for (const Replacement& replacement : replacements) {
        if (void** const place = placeOf(module, replacement.name)) {
            replaced.push_back({place, *place});
            write(place, replacement.function);
        }
    }
    if (replaced.empty()) {
        throw std::runtime_error("the module has none of the imports");
    }
    begin({});
}

DisturbedCalls::~DisturbedCalls()
{
    stop();
    for (const Replaced& one : replaced) {
        write(one.place, one.before);
    }
    replaced.clear();
    entries.clear();
}

void DisturbedCalls::failCall(long number, DWORD error)
{
    Plan next;
    next.firstFailing = number;
    next.lastFailing = number;
    next.error = error;
    begin(std::move(next));
}

void DisturbedCalls::failFrom(long number, DWORD error)
{
    failCall(number, error);
    plan.lastFailing = LONG_MAX;
}

void DisturbedCalls::failNext(const char* name, long count, DWORD error)
{
    Plan next;
    next.failingName = name;
    next.failuresLeft = count;
    next.error = error;
    begin(std::move(next));
}

void DisturbedCalls::actBefore(long number, std::function<void()> act)
{
    Plan next;
    next.acting = number;
    next.act = std::move(act);
    begin(std::move(next));
}

void DisturbedCalls::markEntries(DWORD tag, Shown shown)
{
    Plan next;
    next.tag = tag;
    next.shown = shown;
    begin(std::move(next));
}

void DisturbedCalls::numberFiles(const Numbers& numbers)
{
    Plan next;
    next.numbers = numbers;
    begin(std::move(next));
}

long DisturbedCalls::stop()
{
    plan = {};
    return static_cast<long>(names.size());
}

const std::vector<std::string>& DisturbedCalls::calls() const
{
    return names;
}

DWORD DisturbedCalls::removalFlags() const
{
    return lastRemovalFlags;
}

int countInheritableHandles()
{
    constexpr std::uintptr_t step = 4;
    constexpr std::uintptr_t last = 0x4000;
    int count = 0;
    for (std::uintptr_t value = step; value <= last; value += step) {
        DWORD flags = 0;
        const bool isHandle = GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags) != 0;
        count += isHandle && (flags & HANDLE_FLAG_INHERIT) != 0 ? 1 : 0;
    }
    return count;
}

int countHandles()
{
    DWORD count = 0;
    GetProcessHandleCount(GetCurrentProcess(), &count);
    return static_cast<int>(count);
}

} // namespace support

#endif
