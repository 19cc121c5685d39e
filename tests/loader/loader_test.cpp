// Loading the library through korvel/plx_loader.h: this program does not link it.
#include <algorithm>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <exported_functions.h>

#include "loader/libraries.h"
#include "support/files.h"
#include "support/text.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;

using Reports = std::vector<std::pair<KRT_PLX_LoadProblem, std::string>>;

void keep(void* context, KRT_PLX_LoadProblem problem, const char* text)
{
    static_cast<Reports*>(context)->emplace_back(problem, text);
}

// All pointers of a table, as an array; a table has no gaps.
std::vector<void*> pointers(const KRT_PLX_Api& api)
{
    std::vector<void*> all(sizeof api / sizeof(void*));
    static_assert(sizeof(void*) == sizeof(void (*)()));
    std::memcpy(all.data(), &api, sizeof api);
    return all;
}

bool isEmpty(const KRT_PLX_Api& api)
{
    const std::vector<void*> all = pointers(api);
    return std::all_of(all.begin(), all.end(), [](void* pointer) { return pointer == nullptr; });
}

class Loader : public testing::Test {
protected:
    // The old content of the table must not matter.
    Loader() { std::memset(&api, 0xAB, sizeof api); }

    void TearDown() override
    {
        EXPECT_FALSE(isMapped(wholeLibrary()));
        EXPECT_FALSE(isMapped(partialLibrary()));
    }

    bool load(const Path& path) { return KRT_PLX_load(&api, path.c_str(), keep, &reports); }

    void expectNothingLoaded()
    {
        EXPECT_TRUE(isEmpty(api));
        EXPECT_FALSE(KRT_PLX_unload(&api));
    }

    KRT_PLX_Api api;
    Reports reports;
    support::ScratchFolder scratch;
};

TEST_F(Loader, FillsEachMemberOfTheTableWithItsFunction)
{
    static_assert(KRT_PLX_FUNCTION_COUNT == exportedFunctions.size());
    ASSERT_TRUE(load(wholeLibrary()));

    const std::vector<void*> table = pointers(api);
    ASSERT_EQ(table.size(), 1 + exportedFunctions.size());
    for (std::size_t i = 0; i < exportedFunctions.size(); ++i) {
        const char* name = exportedFunctions[i].name;
        EXPECT_NE(table[1 + i], nullptr) << name;
        EXPECT_EQ(table[1 + i], findFunction(api.library, name)) << name;
    }
    EXPECT_THAT(reports, IsEmpty());
    EXPECT_TRUE(KRT_PLX_unload(&api));
}

TEST_F(Loader, HasTheTypesOfTheDeclarations)
{
    static_assert(
        std::is_same_v<decltype(api.KRT_PLX_CreateManager), decltype(&KRT_PLX_CreateManager)>);
    static_assert(std::is_same_v<decltype(api.KRT_PLX_MutableClip_save),
                                 decltype(&KRT_PLX_MutableClip_save)>);
    static_assert(std::is_same_v<decltype(api.KRT_PLX_UserClip_destroyPropertyEditor),
                                 decltype(&KRT_PLX_UserClip_destroyPropertyEditor)>);
    static_assert(std::is_same_v<decltype(api.KRT_PLX_NoteBase_pitchFine),
                                 decltype(&KRT_PLX_NoteBase_pitchFine)>);
}

TEST_F(Loader, GivesALibraryThatWorks)
{
    ASSERT_TRUE(load(wholeLibrary()));
    const support::Text folder = support::pathText(scratch.path());
    std::uint32_t code = 4711;

    KRT_PLX_Manager* manager = api.KRT_PLX_CreateManager(
        folder.c_str(), folder.c_str(), folder.c_str(), nullptr, 0, nullptr, 0, &code);
    EXPECT_EQ(code, KRT_PLX_RESULT_OK);
    EXPECT_TRUE(api.KRT_PLX_HasManager(manager));
    EXPECT_EQ(api.KRT_PLX_Manager_readAllClipFiles(manager), KRT_PLX_RESULT_OK);
    EXPECT_EQ(support::utf8(api.KRT_PLX_Manager_appID(manager)), support::utf8(folder));
    EXPECT_TRUE(KRT_PLX_unload(&api)); // with its manager
}

TEST_F(Loader, UnloadsTheLibraryAndEmptiesTheTable)
{
    ASSERT_TRUE(load(wholeLibrary()));
    EXPECT_TRUE(isMapped(wholeLibrary()));

    EXPECT_TRUE(KRT_PLX_unload(&api));

    EXPECT_FALSE(isMapped(wholeLibrary()));
    expectNothingLoaded();
}

TEST_F(Loader, KeepsTheLibraryUntilTheLastUserUnloadsIt)
{
    KRT_PLX_Api other;
    ASSERT_TRUE(load(wholeLibrary()));
    ASSERT_TRUE(KRT_PLX_load(&other, wholeLibrary().c_str(), nullptr, nullptr));

    EXPECT_TRUE(KRT_PLX_unload(&other));

    EXPECT_TRUE(isMapped(wholeLibrary()));
    EXPECT_FALSE(api.KRT_PLX_HasManager(nullptr));
    EXPECT_TRUE(KRT_PLX_unload(&api));
}

TEST_F(Loader, LoadsFromAFolderOfAnyName)
{
    const Path folder = scratch.path() / support::place("さくら mit Ümlaut");
    std::filesystem::create_directory(folder);
    const Path copy = folder / "a copy.library";
    std::filesystem::copy_file(wholeLibrary(), copy);

    EXPECT_TRUE(load(copy));
    EXPECT_TRUE(isMapped(copy));
    EXPECT_TRUE(KRT_PLX_unload(&api));
    EXPECT_FALSE(isMapped(copy));
}

TEST_F(Loader, ReportsEachMissingFunctionByItsName)
{
    ASSERT_FALSE(load(partialLibrary()));

    Reports expected;
    for (const ExportedFunction& function : exportedFunctions) {
        const std::string name = function.name;
        if (name != "KRT_PLX_HasManager" && name != "KRT_PLX_Manager_destroy") {
            expected.emplace_back(KRT_PLX_LOAD_FUNCTION_MISSING, name);
        }
    }
    EXPECT_EQ(reports, expected);
    EXPECT_EQ(reports.size(), KRT_PLX_FUNCTION_COUNT - 2U);
    expectNothingLoaded();
}

TEST_F(Loader, ReportsAFileThatIsMissing)
{
    EXPECT_FALSE(load(scratch.path() / "no such file"));

    EXPECT_THAT(reports, ElementsAre(Pair(KRT_PLX_LOAD_NOT_LOADED, Not(IsEmpty()))));
    expectNothingLoaded();
}

TEST_F(Loader, ReportsAFileThatIsNoLibrary)
{
    const Path file = scratch.path() / "text.library";
    support::writeFile(file, "This is no library, and longer than the header of one would have to "
                             "be: a loader looks at the first bytes and then gives up.");
    EXPECT_FALSE(load(file));

    EXPECT_THAT(reports, ElementsAre(Pair(KRT_PLX_LOAD_NOT_LOADED, Not(IsEmpty()))));
    expectNothingLoaded();
}

TEST_F(Loader, ReportsAFolder)
{
    EXPECT_FALSE(load(scratch.path()));

    EXPECT_THAT(reports, ElementsAre(Pair(KRT_PLX_LOAD_NOT_LOADED, Not(IsEmpty()))));
    expectNothingLoaded();
}

TEST_F(Loader, GivesDifferentTextsForDifferentFailures)
{
    support::writeFile(scratch.path() / "empty.library", "");
    EXPECT_FALSE(load(scratch.path() / "empty.library"));
    EXPECT_FALSE(load(scratch.path() / "none.library"));

    ASSERT_EQ(reports.size(), 2U);
    EXPECT_NE(reports[0].second, reports[1].second);
    EXPECT_THAT(reports, Not(Contains(Pair(KRT_PLX_LOAD_NOT_LOADED, "unknown error"))));
}

TEST_F(Loader, RefusesNullArguments)
{
    EXPECT_FALSE(KRT_PLX_load(nullptr, wholeLibrary().c_str(), keep, &reports));
    EXPECT_THAT(reports, IsEmpty());
    EXPECT_FALSE(KRT_PLX_load(&api, nullptr, keep, &reports));
    EXPECT_THAT(reports, ElementsAre(Pair(KRT_PLX_LOAD_NOT_LOADED, "no path")));
    expectNothingLoaded();
    EXPECT_FALSE(KRT_PLX_unload(nullptr));
}

TEST_F(Loader, WorksWithoutAReportFunction)
{
    EXPECT_FALSE(KRT_PLX_load(&api, partialLibrary().c_str(), nullptr, nullptr));
    expectNothingLoaded();
    EXPECT_FALSE(KRT_PLX_load(&api, (scratch.path() / "no such file").c_str(), nullptr, nullptr));
    expectNothingLoaded();
}

TEST_F(Loader, CanBeRepeated)
{
    for (int round = 0; round < 20; ++round) {
        ASSERT_FALSE(load(partialLibrary()));
        ASSERT_FALSE(isMapped(partialLibrary())) << round;
        ASSERT_TRUE(load(wholeLibrary()));
        ASSERT_TRUE(KRT_PLX_unload(&api));
        ASSERT_FALSE(isMapped(wholeLibrary())) << round;
    }
}

} // namespace
