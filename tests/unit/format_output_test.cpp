#include <cstdint>
#include <limits>

#include <gtest/gtest.h>

#include "format/output.h"

namespace {

using Korvel::CANTORIS::PLX::format::Output;

// There is no memory behind the view: it must not be read.
std::string_view textOfLength(std::size_t bytes)
{
    return {"x", bytes};
}

TEST(Output, RefusesATextWhoseReservedSizeWouldOverflow)
{
    for (const std::uint64_t bytes :
         {715'827'883ull, 716'000'000ull, 0xFFFFFFFFull, 0x100000001ull}) {
        if (bytes > std::numeric_limits<std::size_t>::max()) {
            continue; // no text of this system is as long
        }
        for (const bool isFormatted : {false, true}) {
            Output output(isFormatted);
            output.ascii(textOfLength(static_cast<std::size_t>(bytes)));
            EXPECT_FALSE(output.finish()) << bytes;
        }
    }
}

} // namespace
