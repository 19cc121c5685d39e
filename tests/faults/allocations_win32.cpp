#ifdef _WIN32

#    include "allocations.h"

#    include <climits>
#    include <cstddef>
#    include <cstdlib>
#    include <stdexcept>
#    include <unordered_set>

#    include <windows.h>

#    include "library_call.h"
#    include "support/imports_win32.h"

namespace faults {

bool insideLibrary = false;

namespace {

std::unordered_set<void*> blocks;
long firstFailing = LONG_MAX;
long lastFailing = LONG_MAX;
AllocationCount allocations{};

bool fails()
{
    if (!insideLibrary || ++allocations.made < firstFailing || allocations.made > lastFailing) {
        return false;
    }
    ++allocations.failed;
    return true;
}

void* noted(void* block)
{
    if (insideLibrary && block != nullptr) {
        blocks.insert(block);
    }
    return block;
}

// The library and this program use the same C library, so the functions here are those that the
// library would have called.
void* allocate(std::size_t size)
{
    return fails() ? nullptr : noted(std::malloc(size));
}

void* allocateCleared(std::size_t count, std::size_t size)
{
    return fails() ? nullptr : noted(std::calloc(count, size));
}

void* reallocate(void* block, std::size_t size)
{
    if (fails()) {
        return nullptr;
    }
    const bool isKnown = blocks.erase(block) > 0;
    void* const moved = std::realloc(block, size);
    if (isKnown) {
        blocks.insert(moved != nullptr ? moved : block);
        return moved;
    }
    return noted(moved);
}

void release(void* block)
{
    blocks.erase(block);
    std::free(block);
}

// Replaces an entry in the table of imports through which the library calls the C library, before
// main() starts.
struct Replaced {
    Replaced()
    {
        const HMODULE library = GetModuleHandleW(L"krt_plx.dll");
        support::replaceImport(library, "malloc", reinterpret_cast<void*>(&allocate));
        support::replaceImport(library, "calloc", reinterpret_cast<void*>(&allocateCleared));
        support::replaceImport(library, "realloc", reinterpret_cast<void*>(&reallocate));
        support::replaceImport(library, "free", reinterpret_cast<void*>(&release));
    }
} const replaced;

} // namespace

void failAllocation(long number)
{
    failAllocationsFrom(number);
    lastFailing = number;
}

void failAllocationsFrom(long number)
{
    allocations = {};
    firstFailing = number;
    lastFailing = LONG_MAX;
}

AllocationCount stopFailingAllocations()
{
    firstFailing = LONG_MAX;
    return allocations;
}

long liveBlocks()
{
    return static_cast<long>(blocks.size());
}

} // namespace faults

#endif
