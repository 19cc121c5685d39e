#ifndef _WIN32

#    include "posix_faults.h"

#    include <algorithm>
#    include <array>
#    include <cerrno>
#    include <climits>
#    include <cstdarg>
#    include <cstdint>
#    include <cstdlib>
#    include <utility>

#    include <dirent.h>
#    include <dlfcn.h>
#    include <fcntl.h>
#    include <sys/file.h>
#    include <sys/random.h>
#    include <sys/stat.h>
#    include <unistd.h>

namespace Faults {

namespace {

long calls = 0;
long firstFailing = LONG_MAX;
long lastFailing = LONG_MAX;
int failure = 0;
std::size_t longest = SIZE_MAX;
long interferingBefore = LONG_MAX;
bool interferingAgain = false;
std::function<void()> interference;
bool hidingKinds = false;
long inheritable = 0;
long syncs = 0;
std::array<int, 2> errorsOfKinds{}; // the error for each kind; 0 for a kind that works

bool fails()
{
    if (++calls == interferingBefore) {
        interferingBefore = LONG_MAX; // not for the calls that it makes itself
        const long seen = calls;
        interference();
        calls = seen;
        interferingBefore = interferingAgain ? seen + 1 : LONG_MAX;
    }
    if (calls < firstFailing || calls > lastFailing) {
        return false;
    }
    errno = failure;
    return true;
}

bool fails(Kind kind)
{
    syncs += kind == Kind::sync ? 1 : 0;
    const bool failed = fails();
    const int error = errorsOfKinds[static_cast<std::size_t>(kind)];
    errno = error != 0 ? error : errno;
    return failed || error != 0;
}

// Where sizes and times have 32 bits by default, a call for wider ones has another name, and a
// definition here gets that name too.
template <typename Function>
Function next(const char* name, const char* wideName = nullptr)
{
    const bool isWide = wideName != nullptr && sizeof(off_t) > sizeof(long);
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, isWide ? wideName : name));
}

} // namespace

void failCall(long number, int error)
{
    failFrom(number, error);
    lastFailing = number;
}

void failFrom(long number, int error)
{
    calls = 0;
    firstFailing = number;
    lastFailing = LONG_MAX;
    failure = error;
}

void limitTransfers(std::size_t bytes)
{
    calls = 0;
    longest = bytes;
}

void interfere(long number, std::function<void()> happening)
{
    calls = 0;
    interferingBefore = number;
    interference = std::move(happening);
}

void interfereWithAll(std::function<void()> happening)
{
    interfere(1, std::move(happening));
    interferingAgain = true;
}

void hideKinds()
{
    calls = 0;
    hidingKinds = true;
}

void failEach(Kind kind, int error)
{
    errorsOfKinds[static_cast<std::size_t>(kind)] = error;
}

long countSyncs()
{
    return syncs;
}

long countInheritable()
{
    return std::exchange(inheritable, 0);
}

long stop()
{
    hidingKinds = false;
    errorsOfKinds = {};
    firstFailing = LONG_MAX;
    interferingBefore = LONG_MAX;
    interferingAgain = false;
    longest = SIZE_MAX;
    return calls;
}

} // namespace Faults

using Faults::fails;
using Faults::hidingKinds;
using Faults::inheritable;
using Faults::longest;
using Faults::next;

namespace {

mode_t modeOf(int flags, std::va_list& arguments)
{
    return (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
}

// No test can see what is on a disk, and thousands of tests would wait for it. Files that cannot be
// read or written cannot be synchronised either.
int pretendToSync(int file)
{
    const int flags = ::fcntl(file, F_GETFL);
    const bool canTell = flags >= 0 && (flags & O_PATH) == 0;
    errno = canTell ? errno : EBADF;
    return canTell ? 0 : -1;
}

} // namespace

extern "C" {

int open(const char* path, int flags, ...)
{
    static const auto call = next<int (*)(const char*, int, ...)>("open", "open64");
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    inheritable += (flags & O_CLOEXEC) == 0;
    return fails() ? -1 : call(path, flags, mode);
}

int openat(int folder, const char* path, int flags, ...)
{
    static const auto call = next<int (*)(int, const char*, int, ...)>("openat", "openat64");
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    inheritable += (flags & O_CLOEXEC) == 0;
    return fails() ? -1 : call(folder, path, flags, mode);
}

// The compiler turns an open() without a mode into this when it checks the arguments.
int __openat_2(int folder, const char* path, int flags)
{
    return ::openat(folder, path, flags);
}

int __openat64_2(int folder, const char* path, int flags)
{
    return ::openat(folder, path, flags);
}

// Even when it fails, the descriptor is closed.
int close(int file)
{
    static const auto call = next<decltype(&::close)>("close");
    const int result = call(file);
    return fails() ? -1 : result;
}

ssize_t read(int file, void* bytes, std::size_t size)
{
    static const auto call = next<decltype(&::read)>("read");
    return fails() ? -1 : call(file, bytes, std::min(size, longest));
}

ssize_t write(int file, const void* bytes, std::size_t size)
{
    static const auto call = next<decltype(&::write)>("write");
    return fails() ? -1 : call(file, bytes, std::min(size, longest));
}

ssize_t pread(int file, void* bytes, std::size_t size, off_t place)
{
    static const auto call = next<decltype(&::pread)>("pread", "pread64");
    return fails() ? -1 : call(file, bytes, std::min(size, longest), place);
}

ssize_t pwrite(int file, const void* bytes, std::size_t size, off_t place)
{
    static const auto call = next<decltype(&::pwrite)>("pwrite", "pwrite64");
    return fails() ? -1 : call(file, bytes, std::min(size, longest), place);
}

int ftruncate(int file, off_t size) noexcept
{
    static const auto call = next<decltype(&::ftruncate)>("ftruncate", "ftruncate64");
    return fails() ? -1 : call(file, size);
}

int fdatasync(int file)
{
    return fails(Faults::Kind::sync) ? -1 : pretendToSync(file);
}

int fsync(int file)
{
    return fails(Faults::Kind::sync) ? -1 : pretendToSync(file);
}

int flock(int file, int operation) noexcept
{
    static const auto call = next<decltype(&::flock)>("flock");
    return fails(Faults::Kind::lock) ? -1 : call(file, operation);
}

int stat(const char* path, struct stat* status) noexcept
{
    static const auto call = next<int (*)(const char*, struct stat*)>("stat", "__stat64_time64");
    return fails() ? -1 : call(path, status);
}

int fstat(int file, struct stat* status) noexcept
{
    static const auto call = next<int (*)(int, struct stat*)>("fstat", "__fstat64_time64");
    return fails() ? -1 : call(file, status);
}

int fstatat(int folder, const char* path, struct stat* status, int flags) noexcept
{
    static const auto call = next<decltype(&::fstatat)>("fstatat", "__fstatat64_time64");
    return fails() ? -1 : call(folder, path, status, flags);
}

int mkdirat(int folder, const char* path, mode_t mode) noexcept
{
    static const auto call = next<decltype(&::mkdirat)>("mkdirat");
    return fails() ? -1 : call(folder, path, mode);
}

int mkdir(const char* path, mode_t mode) noexcept
{
    static const auto call = next<decltype(&::mkdir)>("mkdir");
    return fails() ? -1 : call(path, mode);
}

int unlinkat(int folder, const char* path, int flags) noexcept
{
    static const auto call = next<decltype(&::unlinkat)>("unlinkat");
    return fails() ? -1 : call(folder, path, flags);
}

ssize_t getdents64(int folder, void* buffer, std::size_t size)
{
    static const auto call = next<decltype(&::getdents64)>("getdents64");
    const ssize_t filled = fails() ? -1 : call(folder, buffer, size);
    for (ssize_t place = 0; hidingKinds && place < filled;) {
        auto* const entry = reinterpret_cast<dirent64*>(static_cast<char*>(buffer) + place);
        entry->d_type = DT_UNKNOWN;
        place += entry->d_reclen;
    }
    return filled;
}

ssize_t getrandom(void* bytes, std::size_t size, unsigned flags)
{
    static const auto call = next<decltype(&::getrandom)>("getrandom");
    return fails() ? -1 : call(bytes, size, flags);
}

} // extern "C"

#endif
