// A promise about one property, which the message names.
#pragma once

#include <string>

#include "harness.h"
#include "support/properties.h"

namespace fuzz {

template <class Property>
void requireOf(const Property& property, bool condition, const char* promise)
{
    if (!condition) {
        require(false, (support::nameOf(property) + " " + promise).c_str());
    }
}

} // namespace fuzz
