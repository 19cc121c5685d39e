// Creating a manager: the arguments, the result codes and their order.
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
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

// The arguments of a creation, all of them good until a test spoils one.
struct Creation {
    std::optional<Text> appID = support::uniqueAppID();
    std::optional<Text> system;
    std::optional<Text> user;
    std::uint32_t code = untouched;

    KRT_PLX_Manager* run();
};

const KRT_PLX_Char* pointer(const std::optional<Text>& text)
{
    return text ? text->c_str() : nullptr;
}

KRT_PLX_Manager* Creation::run()
{
    return KRT_PLX_CreateManager(pointer(appID), pointer(system), pointer(user), nullptr, 0,
                                 nullptr, 0, &code);
}

class ManagerCreation : public testing::Test {
protected:
    ManagerCreation()
    {
        std::filesystem::create_directory(folder("system"));
        support::writeFile(folder("file"), "");
        creation.system = pathText(folder("system"));
        creation.user = pathText(folder("user"));
    }

    Path folder(const char* name) { return scratch.path() / name; }

    void expectFailure(std::uint32_t code)
    {
        EXPECT_EQ(creation.run(), nullptr);
        EXPECT_EQ(creation.code, code);
        EXPECT_FALSE(std::filesystem::exists(folder("user")));
    }

    void expectSuccess()
    {
        const OwnedManager manager(creation.run());
        EXPECT_NE(manager.get(), nullptr);
        EXPECT_EQ(creation.code, KRT_PLX_RESULT_OK);
    }

    support::ScratchFolder scratch;
    Creation creation;
};

TEST_F(ManagerCreation, MakesAManagerAndReportsOk)
{
    const OwnedManager manager(creation.run());

    EXPECT_NE(manager.get(), nullptr);
    EXPECT_EQ(creation.code, 0U);
    EXPECT_TRUE(KRT_PLX_HasManager(manager.get()));
}

TEST_F(ManagerCreation, NeedsNoResultCode)
{
    const OwnedManager manager(
        KRT_PLX_CreateManager(pointer(creation.appID), pointer(creation.system),
                              pointer(creation.user), nullptr, 0, nullptr, 0, nullptr));
    EXPECT_NE(manager.get(), nullptr);
    EXPECT_EQ(KRT_PLX_CreateManager(nullptr, nullptr, nullptr, nullptr, 0, nullptr, 0, nullptr),
              nullptr);
}

TEST_F(ManagerCreation, KeepsItsTextsExactly)
{
    creation.appID = text("Éditeur 歌 𝄞 ");
    const OwnedManager manager(creation.run());

    EXPECT_EQ(utf8(KRT_PLX_Manager_appID(manager.get())), "Éditeur 歌 𝄞 ");
    EXPECT_EQ(utf8(KRT_PLX_Manager_systemClipDirPath(manager.get())), utf8(*creation.system));
    EXPECT_EQ(utf8(KRT_PLX_Manager_userClipDirPath(manager.get())), utf8(*creation.user));
}

TEST_F(ManagerCreation, CopiesItsTexts)
{
    const Text system = *creation.system;
    const Text user = *creation.user;
    const OwnedManager manager(creation.run());
    creation.system->assign(creation.system->size(), static_cast<KRT_PLX_Char>('x'));
    creation.user->assign(creation.user->size(), static_cast<KRT_PLX_Char>('x'));

    EXPECT_EQ(utf8(KRT_PLX_Manager_systemClipDirPath(manager.get())), utf8(system));
    EXPECT_EQ(utf8(KRT_PLX_Manager_userClipDirPath(manager.get())), utf8(user));
}

TEST_F(ManagerCreation, ReadsNoClip)
{
    support::addClip(folder("system") / "a", support::propertyDocument("a"), "{}");
    support::addClip(folder("user") / "b", support::propertyDocument("b"), "{}");
    const OwnedManager manager(creation.run());

    EXPECT_EQ(support::systemClipCount(manager.get()), 0U);
    EXPECT_EQ(support::userClipCount(manager.get()), 0U);
}

// --- Code 2 --------------------------------------------------------------------------------------

TEST_F(ManagerCreation, RefusesANullAppID)
{
    creation.appID.reset();
    expectFailure(2);
}

TEST_F(ManagerCreation, RefusesANullSystemDirectory)
{
    creation.system.reset();
    expectFailure(2);
}

TEST_F(ManagerCreation, RefusesANullUserDirectory)
{
    creation.user.reset();
    expectFailure(2);
}

TEST_F(ManagerCreation, TestsForNullBeforeItTestsForAnEmptyAppID)
{
    creation.appID = Text();
    creation.user.reset();
    expectFailure(2);
}

TEST_F(ManagerCreation, RefusesNullEvenForAnAppIDThatIsKnown)
{
    const OwnedManager first(creation.run());
    creation.system.reset();

    EXPECT_EQ(creation.run(), nullptr);
    EXPECT_EQ(creation.code, 2U);
}

// --- Code 6 --------------------------------------------------------------------------------------

TEST_F(ManagerCreation, RefusesAnEmptyAppID)
{
    creation.appID = Text();
    expectFailure(6);
}

TEST_F(ManagerCreation, TestsTheAppIDBeforeTheDirectories)
{
    creation.appID = Text();
    creation.system = pathText(folder("missing"));
    expectFailure(6);
}

// --- Code 7 --------------------------------------------------------------------------------------

TEST_F(ManagerCreation, RefusesAMissingSystemDirectory)
{
    creation.system = pathText(folder("missing"));
    expectFailure(7);
    EXPECT_FALSE(std::filesystem::exists(folder("missing")));
}

TEST_F(ManagerCreation, RefusesAFileAsSystemDirectory)
{
    creation.system = pathText(folder("file"));
    expectFailure(7);
}

TEST_F(ManagerCreation, RefusesAnEmptySystemDirectory)
{
    creation.system = Text();
    expectFailure(7);
}

TEST_F(ManagerCreation, RefusesASystemDirectoryThatIsNoText)
{
    creation.system = pathText(folder("system")) + Text(1, static_cast<KRT_PLX_Char>(0xDC00));
    expectFailure(7);
}

TEST_F(ManagerCreation, TestsTheSystemDirectoryBeforeTheUserDirectory)
{
    creation.system = pathText(folder("missing"));
    creation.user = pathText(folder("file") / "user");
    expectFailure(7);
}

// --- Code 8 and making the user directory ---------------------------------------------------------

TEST_F(ManagerCreation, RefusesAUserDirectoryBelowAFile)
{
    creation.user = pathText(folder("file") / "deep" / "user");
    expectFailure(8);
    EXPECT_TRUE(std::filesystem::is_regular_file(folder("file")));
}

TEST_F(ManagerCreation, RefusesAFileAsUserDirectory)
{
    creation.user = pathText(folder("file"));
    expectFailure(8);
    EXPECT_TRUE(std::filesystem::is_regular_file(folder("file")));
}

TEST_F(ManagerCreation, RefusesAnEmptyUserDirectory)
{
    creation.user = Text();
    expectFailure(8);
}

TEST_F(ManagerCreation, MakesTheUserDirectory)
{
    expectSuccess();
    EXPECT_TRUE(std::filesystem::is_directory(folder("user")));
}

TEST_F(ManagerCreation, MakesTheUserDirectoryWithAllItsAncestors)
{
    const Path deep = folder("one") / "two" / support::place("三 é 𝄞") / "four" / "user";
    creation.user = pathText(deep);
    expectSuccess();
    EXPECT_TRUE(std::filesystem::is_directory(deep));
}

TEST_F(ManagerCreation, LeavesAnExistingUserDirectoryAsItIs)
{
    support::writeFile(folder("user") / "note.txt", "mine");
    expectSuccess();
    EXPECT_EQ(support::readFile(folder("user") / "note.txt"), "mine");
}

#ifndef _WIN32
// A program of this system writes its paths with slashes.
TEST_F(ManagerCreation, MakesTheAncestorsOfAPathWithSlashes)
{
    const Path deep = folder("one") / "two" / "user";
    creation.system = text(folder("system").string());
    creation.user = text(deep.string());

    const OwnedManager manager(creation.run());

    ASSERT_EQ(creation.code, KRT_PLX_RESULT_OK);
    EXPECT_TRUE(std::filesystem::is_directory(deep));
    EXPECT_EQ(utf8(KRT_PLX_Manager_userClipDirPath(manager.get())), deep.string());
}
#endif

TEST_F(ManagerCreation, LeavesNothingRegisteredAfterAFailure)
{
    const Text system = *creation.system;
    creation.system = pathText(folder("missing"));
    EXPECT_EQ(creation.run(), nullptr);

    creation.system = system;
    creation.code = untouched;
    expectSuccess();
}

// --- Further directories --------------------------------------------------------------------------

class FurtherDirectories : public ManagerCreation {
protected:
    FurtherDirectories()
    {
        addClip("first", "1");
        addClip("second", "2");
        addClip("third", "3");
    }

    void addClip(const char* name, const char* id)
    {
        support::addClip(folder(name), support::propertyDocument(id), "{}");
        texts.push_back(pathText(folder(name)));
    }

    // A manager whose further directories of both kinds are these, read.
    OwnedManager read(const std::vector<const KRT_PLX_Char*>& system, std::int32_t systemCount,
                      const std::vector<const KRT_PLX_Char*>& user, std::int32_t userCount)
    {
        OwnedManager manager(KRT_PLX_CreateManager(
            pointer(creation.appID), pointer(creation.system), pointer(creation.user),
            system.data(), systemCount, user.data(), userCount, nullptr));
        EXPECT_EQ(KRT_PLX_Manager_readAllClipFiles(manager.get()), KRT_PLX_RESULT_OK);
        return manager;
    }

    std::vector<Text> texts;
};

TEST_F(FurtherDirectories, AreReadUpToTheirCount)
{
    const OwnedManager manager =
        read({texts[0].c_str(), texts[1].c_str()}, 1, {texts[2].c_str(), texts[0].c_str()}, 1);

    EXPECT_THAT(support::systemClipIDs(manager.get()), testing::ElementsAre("1"));
    EXPECT_THAT(support::userClipIDs(manager.get()), testing::ElementsAre("3"));
}

TEST_F(FurtherDirectories, AreIgnoredWhenTheCountIsZero)
{
    const OwnedManager manager = read({texts[0].c_str()}, 0, {texts[1].c_str()}, 0);

    EXPECT_EQ(support::systemClipCount(manager.get()), 0U);
    EXPECT_EQ(support::userClipCount(manager.get()), 0U);
}

TEST_F(FurtherDirectories, AreIgnoredWhenTheCountIsNegative)
{
    const OwnedManager manager =
        read({texts[0].c_str()}, -1, {texts[1].c_str()}, std::numeric_limits<std::int32_t>::min());

    EXPECT_EQ(support::systemClipCount(manager.get()), 0U);
    EXPECT_EQ(support::userClipCount(manager.get()), 0U);
}

TEST_F(FurtherDirectories, AreIgnoredWhenTheArrayIsNull)
{
    const OwnedManager manager = read({}, 3, {}, 3);

    EXPECT_EQ(support::systemClipCount(manager.get()), 0U);
    EXPECT_EQ(support::userClipCount(manager.get()), 0U);
}

TEST_F(FurtherDirectories, MayHoldNullAndEmptyEntries)
{
    const Text empty;
    const OwnedManager manager = read({nullptr, texts[0].c_str(), empty.c_str(), texts[1].c_str()},
                                      4, {empty.c_str(), nullptr, texts[2].c_str()}, 3);

    EXPECT_THAT(support::systemClipIDs(manager.get()), testing::ElementsAre("1", "2"));
    EXPECT_THAT(support::userClipIDs(manager.get()), testing::ElementsAre("3"));
}

TEST_F(FurtherDirectories, AreCopied)
{
    OwnedManager manager;
    {
        Text path = texts[0];
        std::vector<const KRT_PLX_Char*> array = {path.c_str()};
        manager = OwnedManager(KRT_PLX_CreateManager(
            pointer(creation.appID), pointer(creation.system), pointer(creation.user), array.data(),
            1, array.data(), 1, nullptr));
        path.assign(path.size(), static_cast<KRT_PLX_Char>('x'));
        array[0] = nullptr;
    }
    KRT_PLX_Manager_readAllClipFiles(manager.get());

    EXPECT_THAT(support::systemClipIDs(manager.get()), testing::ElementsAre("1"));
}

} // namespace
