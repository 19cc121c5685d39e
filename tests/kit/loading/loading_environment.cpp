// Loads the library before the first test and unloads it after the last, so that tests that were written
// for a linked program run in one that loads.
#include <gtest/gtest.h>

#include <korvel/plx_loaded.h>

#include "support/files.h"
#include "support/library_file.h"

namespace {

class LoadingEnvironment : public testing::Environment {
public:
    void SetUp() override
    {
        const support::Path library =
            support::place(support::libraryFile(KRT_PLX_TEST_LIBRARY_FILE));
        ASSERT_TRUE(KRT_PLX_loadForAll(library.c_str(), nullptr, nullptr));
    }
    void TearDown() override { EXPECT_TRUE(KRT_PLX_unloadForAll()); }
};

testing::Environment* const environment = testing::AddGlobalTestEnvironment(new LoadingEnvironment);

} // namespace
