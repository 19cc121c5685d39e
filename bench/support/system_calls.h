#pragma once

#include <cstddef>
#include <functional>
#include <optional>

namespace bench {

struct SystemCalls {
    std::size_t memory = 0; // for the allocator
    std::size_t others = 0;
};

// How many system calls the work makes, counted in a copy of this process. Nothing when this system
// does not let a process trace its child.
std::optional<SystemCalls> countSystemCalls(const std::function<void()>& work);

} // namespace bench
