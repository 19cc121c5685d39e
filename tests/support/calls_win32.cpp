#ifdef _WIN32

#    include "support/calls_win32.h"
#    include "support/imports_win32.h"

#    include <algorithm>
#    include <climits>
#    include <map>
#    include <optional>
#    include <set>
#    include <stdexcept>

#    include <rpc.h>
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
    std::function<DWORD(const DisturbedCalls::Call&)> decide;
    DWORD longestTransfer = MAXDWORD;
};

Plan plan;
std::vector<std::string> names;
std::set<HANDLE> entries;                // opened as themselves, not as what they lead to
std::map<HANDLE, std::wstring> searches; // what they were begun with
DWORD lastRemovalFlags = 0;
bool isActing = false;

// --- The calls -----------------------------------------------------------------------------------------

// By its name: this program's own table of addresses may be the one that is changed.
template <class Function>
Function* real(const char* name)
{
    const auto find = [name](const wchar_t* library) {
        return GetProcAddress(GetModuleHandleW(library), name);
    };
    FARPROC found = nullptr;
    for (const wchar_t* library : {L"kernel32.dll", L"ntdll.dll", L"rpcrt4.dll"}) {
        found = found != nullptr ? found : find(library);
    }
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(found));
}

// What a call is about: a path, something open, or a name in an open folder.
struct About {
    std::wstring_view path = {};
    HANDLE handle = nullptr;
    std::wstring_view name = {};
    bool isDeleting = false;
};

std::wstring pathOf(HANDLE handle)
{
    std::wstring path(32768, L'\0');
    const DWORD length = real<decltype(GetFinalPathNameByHandleW)>("GetFinalPathNameByHandleW")(
        handle, path.data(), static_cast<DWORD>(path.size()), 0);
    path.resize(length < path.size() ? length : 0);
    return path;
}

std::wstring pathOf(const About& about)
{
    if (about.handle == nullptr) {
        return std::wstring(about.path);
    }
    std::wstring path = pathOf(about.handle);
    return about.name.empty() ? path : path + L"\\" + std::wstring(about.name);
}

bool isDecided(const char* name, const About& about)
{
    const DWORD before = GetLastError();
    isActing = true;
    plan.error = plan.decide({name, about.isDeleting, [&] { return pathOf(about); }});
    isActing = false;
    SetLastError(before);
    return plan.error != 0;
}

bool mustFail(const char* name, const About& about)
{
    if (isActing) {
        return false;
    }
    if (plan.decide) {
        return isDecided(name, about);
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
std::optional<Result> failing(const char* name, const About& about, Result failure)
{
    if (!mustFail(name, about)) {
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
    if (const auto failure = failing("CreateFileW", {path}, INVALID_HANDLE_VALUE)) {
        return *failure;
    }
    const HANDLE handle = real<decltype(CreateFileW)>("CreateFileW")(
        path, access, sharing, security, disposition, flags, model);
    remember(handle, (flags & FILE_FLAG_OPEN_REPARSE_POINT) != 0);
    return handle;
}

HANDLE WINAPI reOpenFile(HANDLE file, DWORD access, DWORD sharing, DWORD flags)
{
    if (const auto failure = failing("ReOpenFile", {{}, file}, INVALID_HANDLE_VALUE)) {
        return *failure;
    }
    const HANDLE handle = real<decltype(ReOpenFile)>("ReOpenFile")(file, access, sharing, flags);
    entries.erase(handle);
    return handle;
}

About about(const OBJECT_ATTRIBUTES* place)
{
    const UNICODE_STRING& name = *place->ObjectName;
    return {{}, place->RootDirectory, {name.Buffer, name.Length / sizeof(wchar_t)}};
}

NTSTATUS NTAPI ntCreateFile(HANDLE* handle, ACCESS_MASK access, OBJECT_ATTRIBUTES* place,
                            IO_STATUS_BLOCK* result, LARGE_INTEGER* size, ULONG attributes,
                            ULONG sharing, ULONG disposition, ULONG options, void* more,
                            ULONG moreSize)
{
    if (mustFail("NtCreateFile", about(place))) {
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
    if (const auto failure =
            failing<DWORD>("GetFileAttributesW", {path}, INVALID_FILE_ATTRIBUTES)) {
        return *failure;
    }
    const DWORD attributes = real<decltype(GetFileAttributesW)>("GetFileAttributesW")(path);
    return attributes == INVALID_FILE_ATTRIBUTES ? attributes : shown(attributes);
}

BOOL WINAPI getFileAttributesEx(const wchar_t* path, GET_FILEEX_INFO_LEVELS level, void* data)
{
    if (const auto failure = failing<BOOL>("GetFileAttributesExW", {path}, FALSE)) {
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
    if (const auto failure = failing<BOOL>("GetFileInformationByHandle", {{}, handle}, FALSE)) {
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
    if (const auto failure = failing<BOOL>("GetFileInformationByHandleEx", {{}, handle}, FALSE)) {
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
    if (const auto failure = failing<BOOL>(
            "SetFileInformationByHandle",
            {{}, handle, {}, kind == removalClass || kind == FileDispositionInfo}, FALSE)) {
        return *failure;
    }
    return real<decltype(SetFileInformationByHandle)>("SetFileInformationByHandle")(handle, kind,
                                                                                    data, size);
}

DWORD WINAPI getFinalPathName(HANDLE handle, wchar_t* path, DWORD size, DWORD flags)
{
    if (const auto failure = failing<DWORD>("GetFinalPathNameByHandleW", {{}, handle}, 0)) {
        return *failure;
    }
    return plan.numbers.areNamed ? real<decltype(GetFinalPathNameByHandleW)>(
                                       "GetFinalPathNameByHandleW")(handle, path, size, flags)
                                 : 0;
}

HANDLE WINAPI findFirstFile(const wchar_t* path, FINDEX_INFO_LEVELS level, void* data,
                            FINDEX_SEARCH_OPS operation, void* filter, DWORD flags)
{
    if (const auto failure = failing("FindFirstFileExW", {path}, INVALID_HANDLE_VALUE)) {
        return *failure;
    }
    const HANDLE search = real<decltype(FindFirstFileExW)>("FindFirstFileExW")(
        path, level, data, operation, filter, flags);
    searches[search] = path;
    auto* const entry = static_cast<WIN32_FIND_DATAW*>(data);
    if (search != INVALID_HANDLE_VALUE && marksNames()) {
        entry->dwFileAttributes = shown(entry->dwFileAttributes);
        entry->dwReserved0 = *plan.tag;
    }
    return search;
}

BOOL WINAPI findNextFile(HANDLE search, WIN32_FIND_DATAW* entry)
{
    if (const auto failure = failing<BOOL>("FindNextFileW", {searches[search]}, FALSE)) {
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
    const auto failure = failing<BOOL>("ReadFile", {{}, file}, FALSE);
    return failure ? *failure
                   : real<decltype(ReadFile)>("ReadFile")(
                         file, bytes, std::min(size, plan.longestTransfer), count, place);
}

BOOL WINAPI writeFile(HANDLE file, const void* bytes, DWORD size, DWORD* count, OVERLAPPED* place)
{
    const auto failure = failing<BOOL>("WriteFile", {{}, file}, FALSE);
    return failure ? *failure
                   : real<decltype(WriteFile)>("WriteFile")(
                         file, bytes, std::min(size, plan.longestTransfer), count, place);
}

BOOL WINAPI flushFileBuffers(HANDLE file)
{
    const auto failure = failing<BOOL>("FlushFileBuffers", {{}, file}, FALSE);
    return failure ? *failure : real<decltype(FlushFileBuffers)>("FlushFileBuffers")(file);
}

BOOL WINAPI lockFile(HANDLE file, DWORD flags, DWORD reserved, DWORD low, DWORD high,
                     OVERLAPPED* place)
{
    const auto failure = failing<BOOL>("LockFileEx", {{}, file}, FALSE);
    return failure
               ? *failure
               : real<decltype(LockFileEx)>("LockFileEx")(file, flags, reserved, low, high, place);
}

BOOL WINAPI createDirectory(const wchar_t* path, SECURITY_ATTRIBUTES* security)
{
    const auto failure = failing<BOOL>("CreateDirectoryW", {path}, FALSE);
    return failure ? *failure
                   : real<decltype(CreateDirectoryW)>("CreateDirectoryW")(path, security);
}

DWORD WINAPI getFullPathName(const wchar_t* path, DWORD size, wchar_t* full, wchar_t** name)
{
    const auto failure = failing<DWORD>("GetFullPathNameW", {path}, 0);
    return failure ? *failure
                   : real<decltype(GetFullPathNameW)>("GetFullPathNameW")(path, size, full, name);
}

DWORD WINAPI getFileType(HANDLE file)
{
    const auto failure = failing<DWORD>("GetFileType", {{}, file}, FILE_TYPE_UNKNOWN);
    return failure ? *failure : real<decltype(GetFileType)>("GetFileType")(file);
}

RPC_STATUS RPC_ENTRY uuidCreate(UUID* uuid)
{
    const auto failure = failing<RPC_STATUS>("UuidCreate", {}, RPC_S_UUID_NO_ADDRESS);
    return failure ? *failure : real<decltype(UuidCreate)>("UuidCreate")(uuid);
}

RPC_STATUS RPC_ENTRY uuidToString(UUID* uuid, RPC_WSTR* text)
{
    const auto failure = failing<RPC_STATUS>("UuidToStringW", {}, RPC_S_OUT_OF_MEMORY);
    return failure ? *failure : real<decltype(UuidToStringW)>("UuidToStringW")(uuid, text);
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
    {"GetFileType", address(getFileType)},
    {"UuidCreate", address(uuidCreate)},
    {"UuidToStringW", address(uuidToString)},
};

struct Replaced {
    HMODULE module;
    const char* name;
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
        if (placeOfImport(module, replacement.name) != nullptr) {
            void* const before = replaceImport(module, replacement.name, replacement.function);
            replaced.push_back({module, replacement.name, before});
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
        replaceImport(one.module, one.name, one.before);
    }
    replaced.clear();
    entries.clear();
    searches.clear();
}

std::vector<std::string> DisturbedCalls::disturbable()
{
    std::vector<std::string> all;
    for (const Replacement& replacement : replacements) {
        all.emplace_back(replacement.name);
    }
    return all;
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

void DisturbedCalls::decide(std::function<DWORD(const Call&)> decision)
{
    Plan next;
    next.decide = std::move(decision);
    begin(std::move(next));
}

void DisturbedCalls::limitTransfers(DWORD bytes)
{
    plan.longestTransfer = bytes;
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
