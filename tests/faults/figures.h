// How far a test goes, and how far it went.
#pragma once

#include <string>

namespace faults {

// Whether every place is to be tried, as scripts/torture asks, or a sample of them.
bool isExhaustive();

// Adds to a figure of this run; scripts/torture shows them.
void count(const std::string& figure, long number = 1);

} // namespace faults
