// How long the sequences of random operations are.
#pragma once

namespace sequence {

inline constexpr int steps = 3000;

} // namespace sequence
