#include "harness.h"

#include <stdexcept>

namespace fuzz {

void require(bool condition, const char* promise)
{
    if (!condition) {
        throw std::logic_error(promise);
    }
}

} // namespace fuzz
