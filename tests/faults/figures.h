// How far a test goes, and how far it went.
#pragma once

#include <string>

namespace faults {

// Whether every place is to be tried, as scripts/torture asks, or a sample of them.
bool isExhaustive();

// How far apart the tried moments lie: 1 when all are tried, else about so many. Farther where each takes
// several times as long; the other runs show the same there.
long every(long number);

// Adds to a figure of this run; scripts/torture shows them.
void count(const std::string& figure, long number = 1);

} // namespace faults
