#include <algorithm>

#include "fs/win32/open.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

OVERLAPPED placeAt(std::uint64_t place)
{
    OVERLAPPED overlapped{};
    overlapped.Offset = static_cast<DWORD>(place);
    overlapped.OffsetHigh = static_cast<DWORD>(place >> 32);
    return overlapped;
}

DWORD atMost(std::size_t size)
{
    constexpr std::size_t most = std::size_t{1} << 30;
    return static_cast<DWORD>(std::min(size, most));
}

using Ticks = std::chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;

Ticks now()
{
    FILETIME time{};
    GetSystemTimeAsFileTime(&time);
    const std::uint64_t high = time.dwHighDateTime;
    return Ticks(static_cast<std::int64_t>((high << 32) | time.dwLowDateTime));
}

// Some file systems cannot synchronise, and for some folders a program that may write to them may
// not.
bool cannotTell(DWORD error)
{
    return error == ERROR_INVALID_FUNCTION || error == ERROR_ACCESS_DENIED ||
           error == ERROR_WRITE_PROTECT || error == ERROR_NOT_SUPPORTED ||
           error == ERROR_INVALID_PARAMETER || error == ERROR_CALL_NOT_IMPLEMENTED;
}

} // namespace

long long readSome(const Handle& file, char* bytes, std::size_t size, std::uint64_t place)
{
    OVERLAPPED overlapped = placeAt(place);
    DWORD count = 0;
    if (ReadFile(file.get(), bytes, atMost(size), &count, &overlapped)) {
        return count;
    }
    return GetLastError() == ERROR_HANDLE_EOF ? 0 : -1;
}

// The time of the last write may stay the same while the file is open for writing, so the time of
// the last change of any kind is read too.
std::optional<FileState> stateOf(const Handle& file)
{
    FILE_BASIC_INFO basic{};
    FILE_STANDARD_INFO standard{};
    if (!GetFileInformationByHandleEx(file.get(), FileBasicInfo, &basic, sizeof basic) ||
        !GetFileInformationByHandleEx(file.get(), FileStandardInfo, &standard, sizeof standard)) {
        return std::nullopt;
    }
    const bool isPlain = !standard.Directory && GetFileType(file.get()) == FILE_TYPE_DISK;
    const Ticks changed(std::max(basic.LastWriteTime.QuadPart, basic.ChangeTime.QuadPart));
    return FileState{isPlain, static_cast<std::uint64_t>(standard.EndOfFile.QuadPart),
                     now() - changed};
}

bool writeAll(const Handle& file, std::string_view content, std::uint64_t place)
{
    while (!content.empty()) {
        OVERLAPPED overlapped = placeAt(place);
        DWORD count = 0;
        if (!WriteFile(file.get(), content.data(), atMost(content.size()), &count, &overlapped) ||
            count == 0) {
            return false;
        }
        content.remove_prefix(count);
        place += count;
    }
    return true;
}

// Waits, because a program that displays or indexes files may have mapped this one for a moment.
bool cutTo(const Handle& file, std::uint64_t size)
{
    FILE_END_OF_FILE_INFO end{};
    end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
    Patience patience(aMoment);
    return patiently(patience, [&] {
        return SetFileInformationByHandle(file.get(), FileEndOfFileInfo, &end, sizeof end) != 0;
    });
}

bool syncFile(const Handle& file)
{
    return FlushFileBuffers(file.get()) || cannotTell(GetLastError());
}

// A handle for looking into a folder does not have the right to synchronise it.
bool syncFolder(const Handle& folder)
{
    const Handle own = reopen(folder, Access::flush);
    return own ? syncFile(own) : cannotTell(GetLastError());
}

} // namespace Korvel::CANTORIS::PLX::fs
