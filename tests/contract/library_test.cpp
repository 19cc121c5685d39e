// The library is looked for when the program starts: another one than that which is to be tested could
// be found.
#ifndef _WIN32

#    include <filesystem>

#    include <dlfcn.h>

#    include <gtest/gtest.h>

#    include <korvel/plx.h>

#    include "support/library_file.h"

namespace {

TEST(Library, IsThatWhichIsToBeTested)
{
    Dl_info found{};
    ASSERT_NE(dladdr(reinterpret_cast<void*>(&KRT_PLX_CreateManager), &found), 0);
    const std::filesystem::path library = support::libraryFile(KRT_PLX_TEST_LIBRARY_FILE);
    EXPECT_TRUE(std::filesystem::equivalent(found.dli_fname, library))
        << found.dli_fname << " instead of " << library;
}

} // namespace

#endif
