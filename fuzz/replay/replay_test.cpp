// The inputs that the fuzzers have found worth keeping, one test each.
#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "../harness.h"
#include "support/files.h"

namespace {

using support::Path;

struct Replayed {
    const fuzz::Harness* harness;
    Path file;
};

void PrintTo(const Replayed& replayed, std::ostream* stream)
{
    *stream << replayed.harness->name << '/' << replayed.file.filename().string();
}

Path corpusOf(const fuzz::Harness& harness)
{
    return support::sourceFolder(KRT_PLX_TEST_SOURCE_FOLDER) / "fuzz" / "corpus" / harness.name;
}

std::vector<Replayed> allInputs()
{
    std::vector<Replayed> all;
    for (const fuzz::Harness& harness : fuzz::harnesses) {
        for (const auto& entry : std::filesystem::directory_iterator(corpusOf(harness))) {
            all.push_back({&harness, entry.path()});
        }
    }
    std::ranges::sort(all, {}, &Replayed::file);
    return all;
}

class Corpus : public testing::TestWithParam<Replayed> {};

TEST_P(Corpus, KeepsEveryPromise)
{
    const std::string bytes = support::readFile(GetParam().file);
    GetParam().harness->run({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
}

INSTANTIATE_TEST_SUITE_P(Inputs, Corpus, testing::ValuesIn(allInputs()));

// Nothing at all must be an input too.
TEST(Harness, TakesNoBytes)
{
    for (const fuzz::Harness& harness : fuzz::harnesses) {
        EXPECT_NO_THROW(harness.run({})) << harness.name;
    }
}

} // namespace
