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
    for (const std::size_t bytes : {std::size_t{715'827'883}, std::size_t{716'000'000},
                                    std::size_t{0xFFFFFFFF}, std::size_t{0x100000001}}) {
        for (const bool isFormatted : {false, true}) {
            Output output(isFormatted);
            output.ascii(textOfLength(bytes));
            EXPECT_FALSE(output.finish()) << bytes;
        }
    }
}

} // namespace
