// Makes the allocations of the library fail on demand, and counts its blocks. The program defines
// the allocation functions itself, which the loader prefers to those of the C library, so that the
// shipped library needs no hooks. What the C library allocates for itself, as opendir does, does
// not count: for the library that is a system call that fails because memory ran out.
#pragma once

namespace faults {

// Counts the library's allocations from now on, from 1, and makes the one with that number fail.
void failAllocation(long number);

// The same, but all later ones fail too.
void failAllocationsFrom(long number);

struct AllocationCount {
    long made; // those that failed included
    long failed;
};

// Stops this.
AllocationCount stopFailingAllocations();

// The blocks that the library has allocated since the program began, and not freed.
long liveBlocks();

} // namespace faults
