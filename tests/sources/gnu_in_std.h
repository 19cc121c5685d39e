// What GCC's C++ headers themselves call beyond POSIX. Declared in their own namespace, so that the
// sources that include them do not see it.
#pragma once

#include <ctime>

#include <pthread.h>
#include <sys/syscall.h>

namespace std {

long syscall(long number, ...);
int pthread_cond_clockwait(pthread_cond_t*, pthread_mutex_t*, clockid_t, const timespec*);
int pthread_mutex_clocklock(pthread_mutex_t*, clockid_t, const timespec*);

} // namespace std
