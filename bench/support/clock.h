#pragma once

namespace bench {

// What a measurement counts: the time that this process had a processor, in its own code and in the
// system's for it, or the time on the wall. The first is blind to other programs on the machine, and
// the same as the second on an idle one as long as no disk is waited for.
enum class Clock { processor, wall };

double seconds(Clock clock);

} // namespace bench
