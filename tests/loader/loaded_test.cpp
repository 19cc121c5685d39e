// The functions of plx.h in a program that loads the library: this program links krt_plx_loaded in its
// place.
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <korvel/plx_loaded.h>

#include <exported_functions.h>

#include "contract/export_table.h"
#include "contract/living_objects.h"
#include "loader/libraries.h"

namespace {

using contract::Export;
using contract::exportTable;
using testing::Each;
using testing::ElementsAre;
using testing::Pair;
using testing::SizeIs;

using Reports = std::vector<std::pair<KRT_PLX_LoadProblem, std::string>>;

void keep(void* context, KRT_PLX_LoadProblem problem, const char* text)
{
    static_cast<Reports*>(context)->emplace_back(problem, text);
}

// What each function returns for a handle, by name.
std::vector<std::pair<std::string_view, std::uint64_t>> results(void* handle)
{
    std::vector<std::pair<std::string_view, std::uint64_t>> all;
    for (const Export& one : exportTable()) {
        all.emplace_back(one.name, one.call(handle, {}).bits);
    }
    return all;
}

class LoadedFunctions : public testing::Test {
protected:
    void TearDown() override
    {
        EXPECT_FALSE(KRT_PLX_unloadForAll());
        EXPECT_FALSE(isMapped(wholeLibrary()));
        EXPECT_FALSE(isMapped(partialLibrary()));
    }

    bool load(const Path& path) { return KRT_PLX_loadForAll(path.c_str(), keep, &reports); }

    static void expectNothingLoaded()
    {
        // What looks into this handle is stopped by the system.
        void* const handle = reinterpret_cast<void*>(8);
        for (const Export& one : exportTable()) {
            const contract::Outcome outcome = one.call(handle, {});
            EXPECT_EQ(outcome.bits, one.defaultBits) << one.name;
            EXPECT_FALSE(outcome.wroteOutParameter) << one.name;
        }
    }

    Reports reports;
};

// Each has a place of its own in this program, which could not be linked if one were missing.
TEST_F(LoadedFunctions, AreAllThere)
{
    std::set<void (*)()> places;
    forEachExportedFunction([&places](const char*, auto* function) {
        places.insert(reinterpret_cast<void (*)()>(function));
    });
    EXPECT_THAT(places, SizeIs(KRT_PLX_FUNCTION_COUNT));
    EXPECT_THAT(exportTable(), SizeIs(KRT_PLX_FUNCTION_COUNT));
}

TEST_F(LoadedFunctions, DoNothingWhileNothingIsLoaded)
{
    expectNothingLoaded();
    ASSERT_TRUE(load(wholeLibrary()));
    ASSERT_TRUE(KRT_PLX_unloadForAll());
    expectNothingLoaded();
}

TEST_F(LoadedFunctions, ReturnForANullHandleWhatTheLibraryReturns)
{
    const auto before = results(nullptr);
    ASSERT_TRUE(load(wholeLibrary()));
    EXPECT_EQ(results(nullptr), before);
    ASSERT_TRUE(KRT_PLX_unloadForAll());
    EXPECT_EQ(results(nullptr), before);
}

TEST_F(LoadedFunctions, ReachTheObjectsOfTheLibrary)
{
    ASSERT_TRUE(load(wholeLibrary()));
    int reached = 0;
    {
        const contract::LivingObjects objects;
        for (const contract::LivingObject& object : objects.all()) {
            ASSERT_NE(object.handle, nullptr) << object.kind;
            for (const Export& one : exportTable()) {
                if (object.is(one.className()) && one.defaultMeansRefusal()) {
                    EXPECT_NE(one.call(object.handle, objects.elements()).bits, one.defaultBits)
                        << one.name << " with " << object.kind;
                    ++reached;
                }
            }
        }
    }
    EXPECT_GT(reached, 200);
    EXPECT_TRUE(KRT_PLX_unloadForAll());
}

TEST_F(LoadedFunctions, StayThoseOfTheFirstLibraryIfAnotherIsLoaded)
{
    ASSERT_TRUE(load(wholeLibrary()));
    EXPECT_FALSE(load(wholeLibrary()));
    EXPECT_FALSE(load(partialLibrary()));
    EXPECT_THAT(reports, SizeIs(2));
    EXPECT_THAT(reports, Each(Pair(KRT_PLX_LOAD_NOT_LOADED, "a library is loaded already")));
    EXPECT_FALSE(isMapped(partialLibrary()));
    EXPECT_EQ(KRT_PLX_Manager_readAllClipFiles(nullptr), KRT_PLX_RESULT_NO_MANAGER);
    EXPECT_TRUE(KRT_PLX_unloadForAll());
    EXPECT_FALSE(isMapped(wholeLibrary()));
}

TEST_F(LoadedFunctions, AreNotTakenFromALibraryThatLacksSome)
{
    EXPECT_FALSE(load(partialLibrary()));
    EXPECT_THAT(reports, SizeIs(KRT_PLX_FUNCTION_COUNT - 2));
    expectNothingLoaded();
}

TEST_F(LoadedFunctions, CanBeLoadedAgainAfterAFailure)
{
    EXPECT_FALSE(KRT_PLX_loadForAll(nullptr, keep, &reports));
    EXPECT_THAT(reports, ElementsAre(Pair(KRT_PLX_LOAD_NOT_LOADED, "no path")));
    EXPECT_FALSE(KRT_PLX_loadForAll(wholeLibrary().parent_path().c_str(), nullptr, nullptr));
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(load(wholeLibrary()));
        ASSERT_TRUE(isMapped(wholeLibrary()));
        ASSERT_TRUE(KRT_PLX_unloadForAll());
        ASSERT_FALSE(isMapped(wholeLibrary()));
    }
}

#ifndef _WIN32
// This program exports its symbols. If these were among them, the system could take them for those of
// another library.
TEST_F(LoadedFunctions, AreNotVisibleToOtherLibraries)
{
    void* const everywhere = nullptr;
    EXPECT_NE(findFunction(everywhere, "_start"), nullptr);
    forEachExportedFunction([everywhere](const char* name, auto*) {
        EXPECT_EQ(findFunction(everywhere, name), nullptr) << name;
    });
    EXPECT_EQ(findFunction(everywhere, "KRT_PLX_loadForAll"), nullptr);
}
#endif

} // namespace
