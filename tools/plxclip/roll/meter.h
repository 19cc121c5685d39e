// The meter of a clip, which its documents do not hold.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "snapshot.h"

namespace plxclip::roll {

struct Meter {
    int beats = 4;
    int beatUnit = 4;

    bool operator==(const Meter&) const = default;
};

// The one among 4/4, 3/4, 6/8, 5/4 and 7/8 that fits much better than the others: notes begin with its
// bars and do not cross them. No value if none does, or if there are too few bars to tell.
std::optional<Meter> guessMeter(const std::vector<Note>& notes, std::int64_t ticksPerQuarter);

} // namespace plxclip::roll
