#include "support/heap.h"

#include <algorithm>
#include <cerrno>
#include <limits>

#include <malloc.h>

// The allocator of the C library under the names by which it can still be reached.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}

namespace bench {

namespace {

// The benchmark has one thread.
bool isCounting = false;
HeapUse counted;

// The allocator keeps the size of a block in the word before it.
std::ptrdiff_t bytesOf(void* block)
{
    return static_cast<std::ptrdiff_t>(malloc_usable_size(block) + sizeof(std::size_t));
}

void* countedBlock(void* block)
{
    if (isCounting && block != nullptr) {
        counted.bytes += bytesOf(block);
        ++counted.blocks;
        counted.peak = std::max(counted.peak, counted.bytes);
    }
    return block;
}

void forget(void* block)
{
    if (isCounting && block != nullptr) {
        counted.bytes -= bytesOf(block);
        --counted.blocks;
    }
}

} // namespace

HeapMeter::HeapMeter()
{
    counted = {};
    isCounting = true;
}

HeapMeter::~HeapMeter()
{
    isCounting = false;
}

HeapUse HeapMeter::use()
{
    return counted;
}

void keepFreedMemory()
{
    constexpr int most =
        32 * 1024 * 1024; // what glibc accepts as the smallest size of an own mapping
    mallopt(M_MMAP_THRESHOLD, most);
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    mallopt(M_MXFAST, 0);
}

} // namespace bench

extern "C" {

void* malloc(std::size_t size)
{
    return bench::countedBlock(__libc_malloc(size));
}

void* calloc(std::size_t count, std::size_t size)
{
    return bench::countedBlock(__libc_calloc(count, size));
}

void* realloc(void* block, std::size_t size)
{
    bench::forget(block);
    return bench::countedBlock(__libc_realloc(block, size));
}

void* memalign(std::size_t alignment, std::size_t size)
{
    return bench::countedBlock(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size)
{
    return bench::countedBlock(__libc_memalign(alignment, size));
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size)
{
    *block = bench::countedBlock(__libc_memalign(alignment, size));
    return *block == nullptr ? ENOMEM : 0;
}

void free(void* block)
{
    bench::forget(block);
    __libc_free(block);
}

} // extern "C"
