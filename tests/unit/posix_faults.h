// Makes the system calls of this program fail on demand. The program's own definitions stand before
// those of the C library, so that the code under test needs no seam for it.
#pragma once
#ifndef _WIN32

#    include <cstddef>
#    include <functional>

namespace Faults {

// From now on the calls are counted from 1, and the one of that number fails. EINTR is only given to
// calls that know it.
void failCall(long number, int error);

// The same, and all calls after it fail too.
void failFrom(long number, int error);

// From now on the calls are counted, and each one reads or writes this many bytes at most.
void limitTransfers(std::size_t bytes);

// From now on the calls are counted from 1, and this happens just before the one of that number.
void interfere(long number, std::function<void()> happening);

// From now on folders are listed without the kinds of their entries, as some file systems do.
void hideKinds();

// From now on every call of that kind fails, as on file systems that do not have it.
enum class Kind { lock, sync };
void failEach(Kind kind, int error);

// How often the disk has been waited for, since the program began.
long countSyncs();

// Back to normal; tells how many calls there were.
long stop();

// How many files and folders have been opened, since the last question, in a way that a program
// started meanwhile would inherit them.
long countInheritable();

} // namespace Faults

#endif
