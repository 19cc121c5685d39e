// The clips of the benchmark's libraries.
#pragma once

#include <cstddef>
#include <string>

#include "data/random.h"
#include "model/catalogue.h"

namespace bench {

// A text of the form of a UUID.
std::string makeID(Random& random);

// A clip without path, whose property document has about 550 bytes.
Clip makeClip(std::size_t index);

std::string vendorName(std::size_t vendor);

} // namespace bench
