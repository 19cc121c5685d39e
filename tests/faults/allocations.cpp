#include "allocations.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>

#include "library_call.h"

extern "C" {

#ifdef KRT_PLX_WITH_ADDRESS_SANITIZER
void* __interceptor_malloc(std::size_t size);
void* __interceptor_calloc(std::size_t count, std::size_t size);
void* __interceptor_realloc(void* block, std::size_t size);
void __interceptor_free(void* block);
#else
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void __libc_free(void* block);
#endif

} // extern "C"

namespace faults {

bool insideLibrary = false;

namespace {

#ifdef KRT_PLX_WITH_ADDRESS_SANITIZER
constexpr auto realMalloc = __interceptor_malloc;
constexpr auto realCalloc = __interceptor_calloc;
constexpr auto realRealloc = __interceptor_realloc;
constexpr auto realFree = __interceptor_free;
#else
constexpr auto realMalloc = __libc_malloc;
constexpr auto realCalloc = __libc_calloc;
constexpr auto realRealloc = __libc_realloc;
constexpr auto realFree = __libc_free;
#endif

// A set of addresses that itself allocates nothing: a hash table with linear probing.
class Blocks {
public:
    void add(void* block)
    {
        if (block != nullptr) {
            places_[placeOf(block)] = block;
            ++size_;
        }
    }

    bool remove(void* block)
    {
        std::size_t place = placeOf(block);
        if (size_ == 0 || block == nullptr || places_[place] != block) {
            return false;
        }
        places_[place] = nullptr;
        --size_;
        // Entries that were displaced by this one move back.
        for (place = next(place); places_[place] != nullptr; place = next(place)) {
            void* const other = places_[place];
            places_[place] = nullptr;
            places_[placeOf(other)] = other;
        }
        return true;
    }

    [[nodiscard]] long size() const { return size_; }

private:
    static constexpr std::size_t capacity = std::size_t{1} << 20U;

    static std::size_t next(std::size_t place) { return (place + 1) % capacity; }

    [[nodiscard]] std::size_t placeOf(const void* block) const
    {
        const auto address = reinterpret_cast<std::uintptr_t>(block) >> 4U;
        std::size_t place = (address * 0x9E3779B97F4A7C15U >> 20U) % capacity;
        while (places_[place] != nullptr && places_[place] != block) {
            place = next(place);
        }
        return place;
    }

    std::array<void*, capacity> places_{};
    long size_ = 0;
};

constinit Blocks blocks;
long firstFailing = LONG_MAX;
long lastFailing = LONG_MAX;
AllocationCount count{};

bool fails()
{
    if (!insideLibrary || ++count.made < firstFailing || count.made > lastFailing) {
        return false;
    }
    ++count.failed;
    errno = ENOMEM;
    return true;
}

void* noted(void* block)
{
    if (insideLibrary) {
        blocks.add(block);
    }
    return block;
}

// A block that keeps its address, or that could not be resized, is as it was.
void* reallocate(void* block, std::size_t size)
{
    const bool known = blocks.remove(block);
    void* const moved = realRealloc(block, size);
    if (known && moved == nullptr && size != 0) {
        blocks.add(block);
    }
    return known && moved != nullptr ? (blocks.add(moved), moved) : noted(moved);
}

} // namespace

void failAllocation(long number)
{
    failAllocationsFrom(number);
    lastFailing = number;
}

void failAllocationsFrom(long number)
{
    count = {};
    firstFailing = number;
    lastFailing = LONG_MAX;
}

AllocationCount stopFailingAllocations()
{
    firstFailing = LONG_MAX;
    return count;
}

long liveBlocks()
{
    return blocks.size();
}

} // namespace faults

// The library must see these.
#pragma GCC visibility push(default)

extern "C" {

void* malloc(std::size_t size) noexcept
{
    return faults::fails() ? nullptr : faults::noted(faults::realMalloc(size));
}

void* calloc(std::size_t number, std::size_t size) noexcept
{
    return faults::fails() ? nullptr : faults::noted(faults::realCalloc(number, size));
}

void* realloc(void* block, std::size_t size) noexcept
{
    return faults::fails() ? nullptr : faults::reallocate(block, size);
}

void free(void* block) noexcept
{
    faults::blocks.remove(block);
    faults::realFree(block);
}

} // extern "C"

#ifdef KRT_PLX_WITH_ADDRESS_SANITIZER

// The sanitizer's own operators do not call malloc.

void* operator new(std::size_t size)
{
    if (void* const block = std::malloc(size == 0 ? 1 : size)) {
        return block;
    }
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return std::malloc(size == 0 ? 1 : size);
}

void* operator new[](std::size_t size)
{
    return operator new(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return std::malloc(size == 0 ? 1 : size);
}

void operator delete(void* block) noexcept
{
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}

void operator delete[](void* block) noexcept
{
    std::free(block);
}

void operator delete[](void* block, std::size_t) noexcept
{
    std::free(block);
}

#endif

#pragma GCC visibility pop
