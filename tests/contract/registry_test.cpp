// All managers of the process: one for each application ID, until it is destroyed.
#include <algorithm>
#include <atomic>
#include <cstdint>
#include <string>
#include <thread>
#include <vector>

#include "support/host.h"

using support::OwnedManager;
using support::Path;
using support::pathText;
using support::Text;
using support::text;
using support::utf8;

namespace {

constexpr std::uint32_t untouched = 4711;

class Registry : public testing::Test {
protected:
    Registry()
    {
        std::filesystem::create_directory(scratch.path() / "system");
        std::filesystem::create_directory(scratch.path() / "user");
    }

    KRT_PLX_Manager* create(const Text& id, std::uint32_t* code = nullptr)
    {
        return KRT_PLX_CreateManager(id.c_str(), pathText(scratch.path() / "system").c_str(),
                                     pathText(scratch.path() / "user").c_str(), nullptr, 0, nullptr,
                                     0, code);
    }

    support::ScratchFolder scratch;
    Text appID = support::uniqueAppID();
};

// --- One manager for each application ID -----------------------------------------------------------

TEST_F(Registry, ReturnsTheManagerThatHasTheAppID)
{
    const OwnedManager first(create(appID));
    std::uint32_t code = untouched;

    EXPECT_EQ(create(appID, &code), first.get());
    EXPECT_EQ(code, untouched);
}

TEST_F(Registry, KeepsTheDirectoriesOfTheFirstCreation)
{
    const OwnedManager first(create(appID));
    const Path other = scratch.path() / "other";
    std::filesystem::create_directory(other);
    support::addClip(scratch.path() / "further", support::propertyDocument("further"), "{}");
    const Text further = pathText(scratch.path() / "further");
    const KRT_PLX_Char* array[] = {further.c_str()};

    EXPECT_EQ(KRT_PLX_CreateManager(appID.c_str(), pathText(other).c_str(),
                                    pathText(other / "user").c_str(), array, 1, array, 1, nullptr),
              first.get());

    EXPECT_EQ(utf8(KRT_PLX_Manager_systemClipDirPath(first.get())),
              utf8(pathText(scratch.path() / "system")));
    EXPECT_EQ(utf8(KRT_PLX_Manager_userClipDirPath(first.get())),
              utf8(pathText(scratch.path() / "user")));
    EXPECT_FALSE(std::filesystem::exists(other / "user"));
    EXPECT_EQ(KRT_PLX_Manager_readAllClipFiles(first.get()), KRT_PLX_RESULT_OK);
    EXPECT_EQ(support::systemClipCount(first.get()), 0U);
    EXPECT_EQ(support::userClipCount(first.get()), 0U);
}

TEST_F(Registry, LooksForTheAppIDBeforeItLooksAtTheDirectories)
{
    const OwnedManager first(create(appID));
    const Text missing = pathText(scratch.path() / "missing");
    std::uint32_t code = untouched;

    EXPECT_EQ(KRT_PLX_CreateManager(appID.c_str(), missing.c_str(), Text().c_str(), nullptr, 0,
                                    nullptr, 0, &code),
              first.get());
    EXPECT_EQ(code, untouched);
}

TEST_F(Registry, FindsTheManagerAmongSeveral)
{
    const OwnedManager first(create(text("among several 1")));
    const OwnedManager second(create(text("among several 2")));
    const OwnedManager third(create(text("among several 3")));

    EXPECT_EQ(create(text("among several 1")), first.get());
    EXPECT_EQ(create(text("among several 2")), second.get());
    EXPECT_EQ(create(text("among several 3")), third.get());
}

TEST_F(Registry, ComparesAppIDsUnitByUnit)
{
    const std::vector<std::string> appIDs = {"Éditeur", "éditeur",  "e\u0301diteur", "Éditeur ",
                                             "Éditeu",  "Éditeur𝄞", "Éditeur𝄢"};
    std::vector<OwnedManager> managers;
    for (const std::string& id : appIDs) {
        std::uint32_t code = untouched;
        managers.emplace_back(create(text(id), &code));
        EXPECT_EQ(code, KRT_PLX_RESULT_OK) << id;
    }
    for (std::size_t i = 0; i < appIDs.size(); ++i) {
        EXPECT_EQ(utf8(KRT_PLX_Manager_appID(managers[i].get())), appIDs[i]);
    }
}

TEST_F(Registry, AcceptsALongAppID)
{
    appID = Text(100000, static_cast<KRT_PLX_Char>('a'));
    const OwnedManager first(create(appID));
    appID.back() = static_cast<KRT_PLX_Char>('b');
    const OwnedManager second(create(appID));

    EXPECT_NE(first.get(), second.get());
    EXPECT_EQ(utf8(KRT_PLX_Manager_appID(second.get())), utf8(appID));
}

// --- Asking for a manager --------------------------------------------------------------------------

TEST_F(Registry, KnowsItsManagers)
{
    const OwnedManager first(create(support::uniqueAppID()));
    const OwnedManager second(create(support::uniqueAppID()));

    EXPECT_TRUE(KRT_PLX_HasManager(first.get()));
    EXPECT_TRUE(KRT_PLX_HasManager(second.get()));
}

TEST_F(Registry, DoesNotKnowADestroyedManager)
{
    KRT_PLX_Manager* manager = create(appID);
    ASSERT_TRUE(KRT_PLX_Manager_destroy(manager));

    EXPECT_FALSE(KRT_PLX_HasManager(manager));
}

TEST_F(Registry, DoesNotLookIntoAHandleThatItDoesNotKnow)
{
    auto* nowhere = reinterpret_cast<KRT_PLX_Manager*>(std::uintptr_t{8});

    EXPECT_FALSE(KRT_PLX_HasManager(nowhere));
    EXPECT_TRUE(KRT_PLX_Manager_destroy(nowhere));
}

// --- Destroying --------------------------------------------------------------------------------------

TEST_F(Registry, DestroysTwiceWithoutHarm)
{
    const OwnedManager other(create(support::uniqueAppID()));
    KRT_PLX_Manager* manager = create(appID);

    EXPECT_TRUE(KRT_PLX_Manager_destroy(manager));
    EXPECT_TRUE(KRT_PLX_Manager_destroy(manager));
    EXPECT_TRUE(KRT_PLX_HasManager(other.get()));
}

TEST_F(Registry, MakesANewManagerAfterTheOldOneIsDestroyed)
{
    KRT_PLX_Manager_destroy(create(appID));
    const Path elsewhere = scratch.path() / "elsewhere";
    std::uint32_t code = untouched;

    const OwnedManager manager(
        KRT_PLX_CreateManager(appID.c_str(), pathText(scratch.path()).c_str(),
                              pathText(elsewhere).c_str(), nullptr, 0, nullptr, 0, &code));

    EXPECT_EQ(code, KRT_PLX_RESULT_OK);
    EXPECT_EQ(utf8(KRT_PLX_Manager_userClipDirPath(manager.get())), utf8(pathText(elsewhere)));
}

TEST_F(Registry, KeepsTheOtherManagersWhenOneIsDestroyed)
{
    support::addClip(scratch.path() / "system", support::propertyDocument("kept"), "{}");
    const OwnedManager first(create(support::uniqueAppID()));
    OwnedManager second(create(support::uniqueAppID()));
    const OwnedManager third(create(support::uniqueAppID()));
    KRT_PLX_Manager_readAllClipFiles(third.get());

    second.destroy();

    EXPECT_TRUE(KRT_PLX_HasManager(first.get()));
    EXPECT_TRUE(KRT_PLX_HasManager(third.get()));
    EXPECT_THAT(support::systemClipIDs(third.get()), testing::ElementsAre("kept"));
}

TEST_F(Registry, LeavesTheFilesOfADestroyedManager)
{
    const Path file = support::addClip(scratch.path() / "user" / "clip",
                                       support::propertyDocument("stays"), "{}");
    OwnedManager manager(create(appID));
    KRT_PLX_Manager_readAllClipFiles(manager.get());
    ASSERT_EQ(support::userClipCount(manager.get()), 1U);

    manager.destroy();

    EXPECT_TRUE(std::filesystem::exists(file));
    EXPECT_TRUE(std::filesystem::exists(file.parent_path() / "property.json"));
}

// --- Threads -------------------------------------------------------------------------------------------

// Runs the work in several threads that start together.
template <typename Work>
void inThreads(int count, const Work& work)
{
    std::atomic<int> waiting = count;
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i) {
        threads.emplace_back([&, i] {
            --waiting;
            while (waiting > 0) {
                std::this_thread::yield();
            }
            work(i);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST_F(Registry, CreatesAndDestroysFromManyThreads)
{
    std::atomic<int> good = 0;
    inThreads(8, [&](int thread) {
        for (int round = 0; round < 50; ++round) {
            const Text id = text("thread " + std::to_string(thread) + "." + std::to_string(round));
            std::uint32_t code = untouched;
            KRT_PLX_Manager* manager = create(id, &code);
            const bool made = code == KRT_PLX_RESULT_OK && KRT_PLX_Manager_appID(manager) == id;
            const bool filled = KRT_PLX_Manager_createMutableClip(manager) != nullptr;
            const bool destroyed = KRT_PLX_Manager_destroy(manager);
            good += made && filled && destroyed ? 1 : 0;
        }
    });
    EXPECT_EQ(good, 400);
}

TEST_F(Registry, GivesAllThreadsTheSameManagerOfAnAppID)
{
    std::vector<KRT_PLX_Manager*> managers(8);
    std::vector<std::uint32_t> codes(8, untouched);
    inThreads(8, [&](int thread) {
        const auto i = static_cast<std::size_t>(thread);
        managers[i] = create(appID, &codes[i]);
    });
    const OwnedManager manager(managers[0]);

    ASSERT_NE(manager.get(), nullptr);
    EXPECT_THAT(managers, testing::Each(manager.get()));
    EXPECT_EQ(std::count(codes.begin(), codes.end(), 0U), 1);
    EXPECT_EQ(std::count(codes.begin(), codes.end(), untouched), 7);
}

TEST_F(Registry, DestroysOneManagerOnceThoughManyThreadsAsk)
{
    KRT_PLX_Manager* manager = create(appID);
    std::atomic<int> answers = 0;
    inThreads(8, [&](int) { answers += KRT_PLX_Manager_destroy(manager) ? 1 : 0; });

    EXPECT_EQ(answers, 8);
    EXPECT_FALSE(KRT_PLX_HasManager(manager));
}

TEST_F(Registry, LetsEachThreadReadAManagerOfItsOwn)
{
    for (int i = 0; i < 5; ++i) {
        support::addClip(scratch.path() / "system" / std::to_string(i),
                         support::propertyDocument(std::to_string(i)), support::midiDocument());
    }
    std::atomic<int> parts = 0;
    inThreads(4, [&](int) {
        const OwnedManager manager(create(support::uniqueAppID()));
        for (int round = 0; round < 5; ++round) {
            KRT_PLX_Manager_readAllClipFiles(manager.get());
            for (std::uint64_t i = 0; i < 5; ++i) {
                KRT_PLX_ClipBase* clip = KRT_PLX_Manager_systemClip(manager.get(), i);
                parts += KRT_PLX_Clip_readPart(clip) ? 1 : 0;
            }
        }
    });
    EXPECT_EQ(parts, 100);
}

} // namespace
