// How many entries of each kind a document holds, and how many of them the library took.
#pragma once

#include <cstddef>
#include <ostream>

#include "schema.h"
#include "support/clip_model.h"

namespace schema {

struct Tally {
    std::size_t aiLanguages = 0;
    std::size_t effects = 0;
    std::size_t parameters = 0;
    std::size_t notes = 0;
    std::size_t voiceQualities = 0;
    std::size_t levelNames = 0;
    std::size_t points = 0;
    std::size_t lanes = 0;
    std::size_t events = 0;

    bool operator==(const Tally&) const = default;
};
std::ostream& operator<<(std::ostream& stream, const Tally& tally);

// Of the part that a data document holds.
Tally tallyOf(const Value& document);

// Of the part that the library read.
Tally tallyOf(const support::PartModel& part);

} // namespace schema
