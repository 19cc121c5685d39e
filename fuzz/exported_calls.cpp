// Any sequence of calls of any exported functions, with arguments from the input and handles of living
// objects. Beside it stands a simple model: a call that says no changes nothing, a setter that says
// yes has set what it was given, and says so for the values in its range and no others.
#include <cstddef>

#include "calls.h"

namespace fuzz {

void runExportedCalls(Bytes input)
{
    constexpr std::size_t mostCalls = 300;
    Input values(input);
    Session session;
    for (std::size_t count = 0; count < mostCalls && !values.atEnd(); ++count) {
        operations()[values.number<std::uint16_t>() % operations().size()](session, values);
    }
}

} // namespace fuzz
