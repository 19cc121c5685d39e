// What the C++ runtime that is linked into the library asks of threads, by the system's own means.
//
// The thread library of the compiler is made for programs. In a library that comes and goes it leaves two
// handles behind for each thread that has used it and is still alive, and a slot of the process's threads,
// of which there are about a thousand: after as many loadings a process could load no more. And the first
// exception of a thread takes memory; where there is none, the process ends.
//
// The runtime asks for little: locks, one-time initialisation, and for each thread a place where the
// exceptions that are under way are noted.
#include <atomic>
#include <cstddef>

#include <pthread.h>
#include <windows.h>

namespace {

// --- Locks: the word that a lock has is the system's lock ------------------------------------------------

// The value by which the compiler's headers begin a lock that is known at compile time.
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

// What the compilers agree on that it holds.
struct Exceptions {
    void* caught = nullptr;
    unsigned int uncaught = 0;
};

// All that is in sections of this name, the system copies for each thread, when the library is loaded and
// when a thread begins: if there is no memory for it, neither happens. The compiler cannot address the
// copies. The sections are put between two marks of the runtime, in the order of their names.
[[gnu::section(".tls$KRT")]] Exceptions original;

// The copies of this thread, one for each library that has such sections.
std::byte** copies()
{
    std::byte** place = nullptr;
    asm("mov %%gs:0x58, %0" : "=r"(place));
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
