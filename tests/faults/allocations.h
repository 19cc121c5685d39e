// Makes the allocations of the library fail on demand, and counts its blocks. The program's own
// definitions of the allocation functions stand before those of the C library, so that the shipped
// library needs no seam for it. What the C library allocates for itself, as opendir does, is no
// concern of the library: that the system call fails for want of memory is.
#pragma once

namespace faults {

// From now on the library's allocations are counted from 1, and the one of that number fails.
void failAllocation(long number);

// The same, and all after it fail too.
void failAllocationsFrom(long number);

struct AllocationCount {
    long made; // those that failed included
    long failed;
};

// Back to normal.
AllocationCount stopFailingAllocations();

// The blocks that the library has allocated since the program began, and not freed.
long liveBlocks();

} // namespace faults
