#include "system_calls.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include "library_call.h"

namespace faults {

namespace {

enum class Kind { other, deleting, opening };

struct Plan {
    long failing = LONG_MAX;
    int error = 0;
    bool andDeleting = false;
    bool andAll = false;
    long firstOpening = LONG_MAX;
    std::size_t longest = SIZE_MAX;
    long acting = LONG_MAX;
    std::function<void()> act = {};
    long killing = LONG_MAX;
    Moment moment = Moment::before;
    bool recording = false;
    bool recordingChanges = false;
};

Plan plan;
SystemCalls calls;
Changes changes;

template <typename Function>
Function next(const char* name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

std::string describe(const char* path)
{
    return path;
}

std::string describe(int file)
{
    std::array<char, PATH_MAX> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
    return {path.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0))};
}

std::string describe(std::pair<int, const char*> place)
{
    return place.first == AT_FDCWD ? place.second : describe(place.first) + "/" + place.second;
}

[[noreturn]] void killThisProcess()
{
    ::kill(::getpid(), SIGKILL);
    for (;;) {
        ::pause();
    }
}

bool mustFail(long number, Kind kind)
{
    return number == plan.failing || (number >= plan.firstOpening && kind == Kind::opening) ||
           (number > plan.failing && (plan.andAll || (plan.andDeleting && kind == Kind::deleting)));
}

template <class Place>
bool begin(const char* name, Place place, Kind kind)
{
    const long number = static_cast<long>(calls.size()) + 1;
    const bool failing = mustFail(number, kind);
    calls.push_back({name, failing || plan.recording ? describe(place) : std::string()});
    if (number == plan.acting) {
        plan.act();
    }
    if (number == plan.killing && plan.moment == Moment::before) {
        killThisProcess();
    }
    return failing;
}

// Makes the call of the library, or disturbs it.
template <class Place, class Result, class Call>
Result disturbed(const char* name, Place place, Result failure, Call call, Kind kind = Kind::other)
{
    const Inside outside(false);
    if (outside.before() && begin(name, place, kind)) {
        errno = plan.error;
        return failure;
    }
    return call();
}

// Records what a call has changed, and returns its result.
template <class Result, class Place>
Result noted(Result result, Change::Kind kind, Place what, off_t place = 0,
             std::string_view bytes = {})
{
    const Inside outside(false);
    if (outside.before() && plan.recordingChanges && result != -1) {
        changes.push_back(
            {kind, describe(what), static_cast<std::uint64_t>(place), std::string(bytes)});
    }
    return result;
}

int notedOpening(int file, int flags)
{
    if ((flags & O_CREAT) != 0) {
        noted(file, Change::Kind::makeFile, file);
    }
    if ((flags & O_TRUNC) != 0) {
        noted(file, Change::Kind::cut, file);
    }
    return file;
}

bool isKillingHalfWay()
{
    return plan.moment == Moment::halfWay && static_cast<long>(calls.size()) == plan.killing;
}

mode_t modeOf(int flags, std::va_list& arguments)
{
    return (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
}

void begin(const Plan& next)
{
    plan = next;
    calls.clear();
    changes.clear();
}

} // namespace

void recordCalls()
{
    begin({.recording = true});
}

void recordChanges()
{
    begin({.recordingChanges = true});
}

const Changes& changesSoFar()
{
    return changes;
}

void failCall(long number, int error)
{
    begin({.failing = number, .error = error});
}

void failCallAndShorten(long number, int error, std::size_t bytes)
{
    begin({.failing = number, .error = error, .longest = bytes});
}

void failCallAndDeleting(long number, int error)
{
    begin({.failing = number, .error = error, .andDeleting = true});
}

void failCallsFrom(long number, int error)
{
    begin({.failing = number, .error = error, .andAll = true});
}

void failOpeningFrom(long number, int error)
{
    begin({.error = error, .firstOpening = number});
}

void limitTransfers(std::size_t bytes)
{
    begin({.longest = bytes});
}

void actBefore(long number, std::function<void()> act)
{
    begin({.acting = number, .act = std::move(act)});
}

void killAt(long number, Moment moment)
{
    begin({.killing = number, .moment = moment});
}

SystemCalls stopDisturbing()
{
    plan = {};
    return std::exchange(calls, {});
}

} // namespace faults

using namespace faults;

// The library must see these.
#pragma GCC visibility push(default)

extern "C" {

int open(const char* path, int flags, ...)
{
    static const auto real = next<int (*)(const char*, int, ...)>("open");
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return notedOpening(
        disturbed(
            "open", path, -1, [=] { return real(path, flags, mode); }, Kind::opening),
        flags);
}

int openat(int folder, const char* path, int flags, ...)
{
    static const auto real = next<int (*)(int, const char*, int, ...)>("openat");
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return notedOpening(disturbed(
                            "openat", std::pair(folder, path), -1,
                            [=] { return real(folder, path, flags, mode); }, Kind::opening),
                        flags);
}

// The compiler turns an open() without a mode into this when it checks the arguments.
int __openat_2(int folder, const char* path, int flags)
{
    return ::openat(folder, path, flags);
}

// Even when it fails, the descriptor is closed.
int close(int file)
{
    static const auto real = next<decltype(&::close)>("close");
    const auto call = [=] { return real(file); };
    const int result = disturbed("close", file, INT_MIN, call);
    return result == INT_MIN ? (static_cast<void>(real(file)), errno = plan.error, -1) : result;
}

ssize_t read(int file, void* bytes, std::size_t size)
{
    static const auto real = next<decltype(&::read)>("read");
    return disturbed("read", file, ssize_t{-1},
                     [=] { return real(file, bytes, std::min(size, plan.longest)); });
}

ssize_t pread(int file, void* bytes, std::size_t size, off_t place)
{
    static const auto real = next<decltype(&::pread)>("pread");
    return disturbed("pread", file, ssize_t{-1},
                     [=] { return real(file, bytes, std::min(size, plan.longest), place); });
}

ssize_t pwrite(int file, const void* bytes, std::size_t size, off_t place)
{
    static const auto real = next<decltype(&::pwrite)>("pwrite");
    const ssize_t count = disturbed("pwrite", file, ssize_t{-1}, [=] {
        if (isKillingHalfWay()) {
            real(file, bytes, size / 2, place);
            killThisProcess();
        }
        return real(file, bytes, std::min(size, plan.longest), place);
    });
    const auto written = static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    return noted(count, Change::Kind::write, file, place,
                 {static_cast<const char*>(bytes), written});
}

int ftruncate(int file, off_t size) noexcept
{
    static const auto real = next<decltype(&::ftruncate)>("ftruncate");
    return noted(disturbed("ftruncate", file, -1, [=] { return real(file, size); }),
                 Change::Kind::cut, file, size);
}

int fdatasync(int file)
{
    static const auto real = next<decltype(&::fdatasync)>("fdatasync");
    return noted(disturbed("fdatasync", file, -1, [=] { return real(file); }), Change::Kind::sync,
                 file);
}

int fsync(int file)
{
    static const auto real = next<decltype(&::fsync)>("fsync");
    return noted(disturbed("fsync", file, -1, [=] { return real(file); }), Change::Kind::sync,
                 file);
}

int flock(int file, int operation) noexcept
{
    static const auto real = next<decltype(&::flock)>("flock");
    return disturbed("flock", file, -1, [=] { return real(file, operation); });
}

int stat(const char* path, struct stat* status) noexcept
{
    static const auto real = next<int (*)(const char*, struct stat*)>("stat");
    return disturbed("stat", path, -1, [=] { return real(path, status); });
}

int fstat(int file, struct stat* status) noexcept
{
    static const auto real = next<int (*)(int, struct stat*)>("fstat");
    return disturbed("fstat", file, -1, [=] { return real(file, status); });
}

int fstatat(int folder, const char* path, struct stat* status, int flags) noexcept
{
    static const auto real = next<decltype(&::fstatat)>("fstatat");
    return disturbed("fstatat", std::pair(folder, path), -1,
                     [=] { return real(folder, path, status, flags); });
}

int mkdirat(int folder, const char* path, mode_t mode) noexcept
{
    static const auto real = next<decltype(&::mkdirat)>("mkdirat");
    return noted(
        disturbed("mkdirat", std::pair(folder, path), -1, [=] { return real(folder, path, mode); }),
        Change::Kind::makeFolder, std::pair(folder, path));
}

int mkdir(const char* path, mode_t mode) noexcept
{
    static const auto real = next<decltype(&::mkdir)>("mkdir");
    return noted(disturbed("mkdir", path, -1, [=] { return real(path, mode); }),
                 Change::Kind::makeFolder, path);
}

int unlinkat(int folder, const char* path, int flags) noexcept
{
    static const auto real = next<decltype(&::unlinkat)>("unlinkat");
    return noted(disturbed(
                     "unlinkat", std::pair(folder, path), -1,
                     [=] { return real(folder, path, flags); }, Kind::deleting),
                 Change::Kind::remove, std::pair(folder, path));
}

DIR* fdopendir(int folder)
{
    static const auto real = next<decltype(&::fdopendir)>("fdopendir");
    return disturbed("fdopendir", folder, static_cast<DIR*>(nullptr), [=] { return real(folder); });
}

dirent* readdir(DIR* stream)
{
    static const auto real = next<decltype(&::readdir)>("readdir");
    return disturbed("readdir", ::dirfd(stream), static_cast<dirent*>(nullptr),
                     [=] { return real(stream); });
}

ssize_t getdents64(int folder, void* buffer, std::size_t size)
{
    static const auto real = next<decltype(&::getdents64)>("getdents64");
    return disturbed("getdents64", folder, ssize_t{-1}, [=] { return real(folder, buffer, size); });
}

ssize_t getrandom(void* bytes, std::size_t size, unsigned flags)
{
    static const auto real = next<decltype(&::getrandom)>("getrandom");
    return disturbed("getrandom", "", ssize_t{-1}, [=] { return real(bytes, size, flags); });
}

} // extern "C"

#pragma GCC visibility pop
