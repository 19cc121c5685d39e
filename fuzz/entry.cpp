// The entry point for libFuzzer of one harness, which the build names.
#include <cstddef>

#include "harness.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::KRT_PLX_FUZZ_HARNESS({data, size});
    return 0;
}
