// The thread functions that the C++ runtime in the library needs, made with functions of the
// system.
//
// The compiler's own thread library is made for programs. A library that is loaded and unloaded
// would leak with it: two handles for each thread that has used the library and is still alive, and
// one of the process's slots for thread data, of which there are about a thousand: after as many
// loads the library could not be loaded again. Also, the first exception of a thread needs memory;
// if there is none, the process ends.
//
// The runtime needs little: locks, one-time initialisation, and for each thread a place for the
// exceptions that are being handled.
#include <atomic>
#include <cstddef>

#include <pthread.h>
#include <windows.h>

namespace {

// --- Locks: the word of a pthread lock is used as the system's lock ----------------------------------------------

// The initial value that the compiler's headers give to a static lock.
constexpr pthread_mutex_t untouched = PTHREAD_MUTEX_INITIALIZER;

static_assert(sizeof(pthread_mutex_t) == sizeof(SRWLOCK));

SRWLOCK* lockOf(pthread_mutex_t* mutex)
{
    pthread_mutex_t expected = untouched;
    std::atomic_ref(*mutex).compare_exchange_strong(expected, 0);
    return reinterpret_cast<SRWLOCK*>(mutex);
}

// --- One-time initialisation ---------------------------------------------------------------------------

constexpr pthread_once_t notYet = PTHREAD_ONCE_INIT;
constexpr pthread_once_t now = notYet + 1;
constexpr pthread_once_t done = notYet + 2;

// --- Exceptions ----------------------------------------------------------------------------------------

// The layout on which the compilers agree.
struct Exceptions {
    void* caught = nullptr;
    unsigned int uncaught = 0;
};

// The system copies everything in sections of this name for each thread, when the library is loaded
// and when a thread starts: without memory for the copy, loading and starting fail. The compiler
// cannot address the copies. The linker sorts the sections by name, which puts this one between two
// marks of the runtime.
[[gnu::section(".tls$KRT")]] Exceptions original;

// The copies of this thread, one for each library that has such sections.
std::byte** copies()
{
    std::byte** place = nullptr;
#ifdef _WIN64
    asm("mov %%gs:0x58, %0" : "=r"(place));
#else
    asm("mov %%fs:0x2C, %0" : "=r"(place));
#endif
    return place;
}

} // namespace

extern "C" {

extern std::byte _tls_start;     // the first mark
extern unsigned long _tls_index; // which of the copies is this library's

Exceptions* __cxa_get_globals()
{
    const auto offset = reinterpret_cast<std::byte*>(&original) - &_tls_start;
    return reinterpret_cast<Exceptions*>(copies()[_tls_index] + offset);
}

Exceptions* __cxa_get_globals_fast()
{
    return __cxa_get_globals();
}

int pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t*)
{
    *mutex = 0;
    return 0;
}

int pthread_mutex_destroy(pthread_mutex_t*)
{
    return 0;
}

int pthread_mutex_lock(pthread_mutex_t* mutex)
{
    AcquireSRWLockExclusive(lockOf(mutex));
    return 0;
}

int pthread_mutex_unlock(pthread_mutex_t* mutex)
{
    ReleaseSRWLockExclusive(lockOf(mutex));
    return 0;
}

int pthread_once(pthread_once_t* once, void (*initialise)())
{
    const std::atomic_ref state(*once);
    pthread_once_t expected = notYet;
    if (state.compare_exchange_strong(expected, now)) {
        initialise();
        state = done;
    }
    while (state != done) {
        SwitchToThread();
    }
    return 0;
}

} // extern "C"
