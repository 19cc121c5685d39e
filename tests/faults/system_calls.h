// Disturbs the system calls of the library. The program defines these functions itself, which the
// loader prefers to those of the C library, so that the shipped library needs no hooks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace faults {

struct SystemCall {
    std::string name;
    std::string path; // the path concerned; for an open file, the path that the system reports
};
using SystemCalls = std::vector<SystemCall>;

// What a call has changed on the disk, or synchronised.
struct Change {
    enum class Kind { makeFile, makeFolder, write, cut, remove, sync };
    Kind kind;
    std::string path;
    std::uint64_t place = 0; // where the bytes were written, or the new end of the file
    std::string bytes = {};
};
using Changes = std::vector<Change>;

// Each of these counts the library's system calls from 1, from now on.

// Records the calls, without disturbing them.
void recordCalls();

// Records the changes as well, from now on.
void recordChanges();
const Changes& changesSoFar();

// The call with that number fails. EINTR is only returned by calls that can return it.
void failCall(long number, int error);

// The same, but each call reads or writes at most this many bytes, so that reading or writing is
// cut off.
void failCallAndShorten(long number, int error, std::size_t bytes);

// As failCall, but all later calls that would delete something fail too.
void failCallAndDeleting(long number, int error);

// As failCall, but all later calls fail too.
void failCallsFrom(long number, int error);

// From the call with that number on nothing can be opened; everything else works.
void failOpeningFrom(long number, int error);

// Each call reads or writes at most this many bytes.
void limitTransfers(std::size_t bytes);

// Calls `act` just before the call with that number.
void actBefore(long number, std::function<void()> act);

// The process is killed just before the call with that number, or half-way if that call writes.
enum class Moment { before, halfWay };
void killAt(long number, Moment moment);

// Stops this, and returns the calls since. Only recorded calls, and the one that failed, have
// paths.
SystemCalls stopDisturbing();

} // namespace faults
