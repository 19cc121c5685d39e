// Makes the system calls of this program fail on demand. The program defines these functions
// itself, which the linker prefers to those of the C library, so that the code under test needs no
// hooks.
#pragma once
#ifndef _WIN32

#    include <cstddef>
#    include <functional>

namespace Faults {

// Counts the calls from now on, from 1, and makes the one with that number fail. EINTR is only
// returned by calls that can return it.
void failCall(long number, int error);

// The same, but all later calls fail too.
void failFrom(long number, int error);

// Counts the calls from now on, and lets each one read or write at most this many bytes.
void limitTransfers(std::size_t bytes);

// Counts the calls from now on, from 1, and calls this just before the one with that number.
void interfere(long number, std::function<void()> happening);

// Calls this just before each call from now on.
void interfereWithAll(std::function<void()> happening);

// From now on folders are listed without the kinds of their entries, as on some file systems.
void hideKinds();

// From now on every call of that kind fails, as on file systems that do not have it.
enum class Kind { lock, sync };
void failEach(Kind kind, int error);

// How often the program has waited for the disk since it began.
long countSyncs();

// Stops this, and returns how many calls there were.
long stop();

// How many files and folders have been opened, since the last call of this, so that a program that
// is started would inherit them.
long countInheritable();

} // namespace Faults

#endif
