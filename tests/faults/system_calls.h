// Disturbs the system calls of the library. The program's own definitions stand before those of the
// C library, so that the shipped library needs no seam for it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace faults {

struct SystemCall {
    std::string name;
    std::string path; // what it is about; of an open file, the path by which the system knows it
};
using SystemCalls = std::vector<SystemCall>;

// What a call has done to the disk, or made the disk keep.
struct Change {
    enum class Kind { makeFile, makeFolder, write, cut, remove, sync };
    Kind kind;
    std::string path;
    std::uint64_t place = 0; // where the bytes are written, or where the file ends now
    std::string bytes = {};
};
using Changes = std::vector<Change>;

// Each of these counts the library's system calls from 1, from now on.

// Remembers the calls and disturbs none.
void recordCalls();

// Remembers what is changed as well, from now on.
void recordChanges();
const Changes& changesSoFar();

// The call of that number fails. EINTR is only given to calls that know it.
void failCall(long number, int error);

// The same, and each call reads or writes this many bytes at most: what it reads or writes breaks off.
void failCallAndShorten(long number, int error, std::size_t bytes);

// As failCall, and all calls after it that would delete something fail too.
void failCallAndDeleting(long number, int error);

// As failCall, and all calls after it fail too.
void failCallsFrom(long number, int error);

// From the call of that number on nothing can be opened; all else works.
void failOpeningFrom(long number, int error);

// Each call reads or writes this many bytes at most.
void limitTransfers(std::size_t bytes);

// Just before the call of that number something else happens.
void actBefore(long number, std::function<void()> act);

// The process is killed just before the call of that number; or, when that writes, half-way.
enum class Moment { before, halfWay };
void killAt(long number, Moment moment);

// Back to normal; the calls since. Paths are known of the recorded ones and of the one that failed.
SystemCalls stopDisturbing();

} // namespace faults
