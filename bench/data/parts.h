// The parts of the benchmark: the same for the same arguments, everywhere.
#pragma once

#include <cstddef>
#include <cstdint>

#include "model/part.h"

namespace bench {

// What notes carry besides their vibrato. A document's reader takes one or the other; an editable
// note can have both.
enum class Ornament { singingSkill, dvqm, both };

struct PartShape {
    std::size_t notes = 0;
    bool hasLanes = true;
    bool hasEffects = true;
    Ornament ornament = Ornament::singingSkill;
};

Part makePart(const PartShape& shape, std::uint64_t seed);

} // namespace bench
