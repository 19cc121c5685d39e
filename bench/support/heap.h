// What is on the heap, counted call by call. The counting is part of the program that links
// heap.cpp and reaches every library in it.
#pragma once

#include <cstddef>

namespace bench {

struct HeapUse {
    std::ptrdiff_t bytes = 0; // what the blocks take, with the allocator's overhead
    std::ptrdiff_t blocks = 0;
    std::ptrdiff_t peak = 0; // the most bytes at one time
};

// Counts while it lives; only one at a time.
class HeapMeter {
public:
    HeapMeter();
    HeapMeter(const HeapMeter&) = delete;
    HeapMeter& operator=(const HeapMeter&) = delete;
    ~HeapMeter();

    // Since the meter was made.
    [[nodiscard]] static HeapUse use();
};

// From now on the allocator keeps what is freed, and joins it at once. Otherwise large works, and they
// alone, give their memory back to the system each time and pay for touching it anew, or join in one
// round what the round before has freed: growth would measure that.
void keepFreedMemory();

} // namespace bench
