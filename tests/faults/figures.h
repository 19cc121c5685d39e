// How much a test tries, and how much it has tried.
#pragma once

#include <string>

namespace faults {

// Whether every place is to be tried, as scripts/torture asks, or only a sample.
bool isExhaustive();

// The distance between the moments that are tried: 1 when all are, otherwise about this number. It
// is larger where each takes several times as long; the other runs show the same there.
long every(long number);

// Adds to a figure of this run; scripts/torture prints them.
void count(const std::string& figure, long number = 1);

} // namespace faults
