#include "figures.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <map>

#include <gtest/gtest.h>

#include "support/effort.h"

namespace faults {

namespace {

std::map<std::string, long>& figures()
{
    static std::map<std::string, long> all;
    return all;
}

class Print : public testing::Environment {
public:
    void TearDown() override
    {
        for (const auto& [figure, number] : figures()) {
            std::cout << "figure: " << number << " " << figure << "\n";
        }
    }
};

#ifndef _WIN32
// Thousands of small folders are made and removed, so a disk in memory is used if there is one.
[[maybe_unused]] const bool usesMemory =
    std::filesystem::is_directory("/dev/shm") &&
    ::setenv("TMPDIR", "/dev/shm", 0) == 0; // NOLINT(concurrency-mt-unsafe)
#endif

testing::Environment* const print = testing::AddGlobalTestEnvironment(new Print);

} // namespace

bool isExhaustive()
{
    return std::getenv("KRT_PLX_TORTURE") != nullptr;
}

long every(long number)
{
    const long sample = support::isSlow() ? 4 * number + 1 : number;
    return isExhaustive() ? 1 : sample;
}

void count(const std::string& figure, long number)
{
    figures()[figure] += number;
}

} // namespace faults
