// The directories of a manager: their order, their result codes, and clips that occur twice.
#include <string>
#include <vector>

#include "support/host.h"

using support::Folders;
using support::midiDocument;
using support::midiDocumentWithID;
using support::OwnedManager;
using support::Path;
using support::pathText;
using support::propertyDocument;
using support::systemClipIDs;
using support::userClipIDs;
using support::utf8;
using support::writeFile;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

class CatalogueDirectories : public testing::Test {
protected:
    CatalogueDirectories()
    {
        for (const char* name : {"system", "user", "system2", "system3", "user2", "user3"}) {
            std::filesystem::create_directory(folder(name));
        }
        folders = {folder("system"),
                   folder("user"),
                   {folder("system2"), folder("system3")},
                   {folder("user2"), folder("user3")}};
    }

    Path folder(const char* name) { return scratch.path() / name; }

    void addClip(const char* folderName, const std::string& id)
    {
        support::addClip(folder(folderName) / id, propertyDocument(id), midiDocument());
    }

    void addAClipToEachDirectory()
    {
        for (const char* name : {"system", "user", "system2", "system3", "user2", "user3"}) {
            addClip(name, std::string("in ") + name);
        }
    }

    std::uint32_t readAll()
    {
        if (manager.get() == nullptr) {
            manager = support::createManager(folders);
        }
        return KRT_PLX_Manager_readAllClipFiles(manager.get());
    }

    std::uint32_t readUser() { return KRT_PLX_Manager_readUserClipFiles(manager.get()); }

    std::vector<std::string> systemIDs() { return systemClipIDs(manager.get()); }
    std::vector<std::string> userIDs() { return userClipIDs(manager.get()); }

    // The folder, from the scratch folder on, of the clip with that ID.
    std::string folderOf(KRT_PLX_ClipBase* clip)
    {
        const std::size_t root = pathText(scratch.path()).size() + 1;
        const std::string path = utf8(KRT_PLX_Clip_path(clip) + root);
        return path.substr(0, path.find('\\'));
    }

    support::ScratchFolder scratch;
    Folders folders;
    OwnedManager manager;
};

// --- Order -----------------------------------------------------------------------------------------------

TEST_F(CatalogueDirectories, AreListedInTheHostsOrder)
{
    addAClipToEachDirectory();

    EXPECT_EQ(readAll(), KRT_PLX_RESULT_OK);

    EXPECT_THAT(systemIDs(), ElementsAre("in system", "in system2", "in system3"));
    EXPECT_THAT(userIDs(), ElementsAre("in user", "in user2", "in user3"));
}

TEST_F(CatalogueDirectories, AreListedInTheHostsOrderTheOtherWayRound)
{
    addAClipToEachDirectory();
    folders.furtherSystem = {folder("system3"), folder("system2")};
    folders.furtherUser = {folder("user3"), folder("user2")};

    EXPECT_EQ(readAll(), KRT_PLX_RESULT_OK);

    EXPECT_THAT(systemIDs(), ElementsAre("in system", "in system3", "in system2"));
    EXPECT_THAT(userIDs(), ElementsAre("in user", "in user3", "in user2"));
}

// --- Missing directories ------------------------------------------------------------------------------------

TEST_F(CatalogueDirectories, MayMissAFurtherOne)
{
    addAClipToEachDirectory();
    folders.furtherSystem = {folder("missing"), folder("system3")};
    folders.furtherUser = {folder("missing"), folder("user3")};

    EXPECT_EQ(readAll(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(systemIDs(), ElementsAre("in system", "in system3"));
    EXPECT_THAT(userIDs(), ElementsAre("in user", "in user3"));
    EXPECT_FALSE(std::filesystem::exists(folder("missing")));
}

TEST_F(CatalogueDirectories, MayHaveAFileInPlaceOfAFurtherOne)
{
    addAClipToEachDirectory();
    writeFile(folder("file.kxclip"), midiDocumentWithID("file"));
    folders.furtherSystem = {folder("file.kxclip"), folder("system2")};

    EXPECT_EQ(readAll(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(systemIDs(), ElementsAre("in system", "in system2"));
}

TEST_F(CatalogueDirectories, GiveNothingWithoutTheMainSystemDirectory)
{
    addAClipToEachDirectory();
    ASSERT_EQ(readAll(), KRT_PLX_RESULT_OK);
    std::filesystem::remove_all(folder("system"));

    EXPECT_EQ(readAll(), 7U);

    EXPECT_THAT(systemIDs(), IsEmpty());
    EXPECT_THAT(userIDs(), IsEmpty());
}

TEST_F(CatalogueDirectories, GiveNothingWithAFileAsMainSystemDirectory)
{
    addAClipToEachDirectory();
    ASSERT_EQ(readAll(), KRT_PLX_RESULT_OK);
    std::filesystem::remove_all(folder("system"));
    writeFile(folder("system"), "");

    EXPECT_EQ(readAll(), 7U);

    EXPECT_THAT(systemIDs(), IsEmpty());
    EXPECT_THAT(userIDs(), IsEmpty());
}

TEST_F(CatalogueDirectories, GiveTheMainSystemClipsWithoutTheMainUserDirectory)
{
    addAClipToEachDirectory();
    ASSERT_EQ(readAll(), KRT_PLX_RESULT_OK);
    std::filesystem::remove_all(folder("user"));

    EXPECT_EQ(readAll(), 7U);

    EXPECT_THAT(systemIDs(), ElementsAre("in system"));
    EXPECT_THAT(userIDs(), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(folder("user")));
}

TEST_F(CatalogueDirectories, KeepTheSystemClipsWhenTheUserClipsCannotBeRead)
{
    addAClipToEachDirectory();
    ASSERT_EQ(readAll(), KRT_PLX_RESULT_OK);
    KRT_PLX_ClipBase* systemClip = KRT_PLX_Manager_systemClip(manager.get(), 2);
    std::filesystem::remove_all(folder("user"));

    EXPECT_EQ(readUser(), 7U);

    EXPECT_THAT(systemIDs(), ElementsAre("in system", "in system2", "in system3"));
    EXPECT_EQ(KRT_PLX_Manager_systemClip(manager.get(), 2), systemClip);
    EXPECT_THAT(userIDs(), IsEmpty());
}

TEST_F(CatalogueDirectories, DoNotMatterForTheUserClipsWhenTheSystemDirectoryIsGone)
{
    addAClipToEachDirectory();
    ASSERT_EQ(readAll(), KRT_PLX_RESULT_OK);
    std::filesystem::remove_all(folder("system"));

    EXPECT_EQ(readUser(), KRT_PLX_RESULT_OK);

    EXPECT_THAT(systemIDs(), ElementsAre("in system", "in system2", "in system3"));
    EXPECT_THAT(userIDs(), ElementsAre("in user", "in user2", "in user3"));
}

TEST_F(CatalogueDirectories, AreReadAgainWhenTheyComeBack)
{
    addAClipToEachDirectory();
    std::filesystem::rename(folder("user"), folder("aside"));
    manager = support::createManager(folders);
    std::filesystem::remove(folder("user"));
    ASSERT_EQ(readAll(), 7U);

    std::filesystem::rename(folder("aside"), folder("user"));

    EXPECT_EQ(readAll(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(systemIDs(), ElementsAre("in system", "in system2", "in system3"));
    EXPECT_THAT(userIDs(), ElementsAre("in user", "in user2", "in user3"));
}

// --- The same ID twice --------------------------------------------------------------------------------------

TEST_F(CatalogueDirectories, ListAnIDOnceWithinADirectory)
{
    support::addClip(folder("system") / "x", propertyDocument("same"), midiDocument());
    support::addClip(folder("system") / "y", propertyDocument("same"), midiDocument());
    support::addClip(folder("user") / "x", propertyDocument("user"), midiDocument());
    support::addClip(folder("user") / "y", propertyDocument("user"), midiDocument());

    EXPECT_EQ(readAll(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(systemIDs(), ElementsAre("same"));
    EXPECT_THAT(userIDs(), ElementsAre("user"));
}

TEST_F(CatalogueDirectories, ListOneOfTwoClipFilesThatShareAPropertyDocument)
{
    const Path one = support::addClip(folder("user") / "x", propertyDocument("a"), midiDocument());
    const Path other = folder("user") / "x" / "other.kxclip";
    writeFile(other, midiDocumentWithID("b"));

    EXPECT_EQ(readAll(), KRT_PLX_RESULT_OK);

    ASSERT_THAT(userIDs(), ElementsAre("a"));
    EXPECT_THAT(utf8(KRT_PLX_Clip_path(KRT_PLX_Manager_userClip(manager.get(), 0))),
                testing::AnyOf(utf8(pathText(one)), utf8(pathText(other))));
}

TEST_F(CatalogueDirectories, ListIDsThatAreEqualOnlyToTheEye)
{
    const std::vector<std::string> ids = {"é", "e\u0301", "É", "e", "é "};
    for (std::size_t i = 0; i < ids.size(); ++i) {
        support::addClip(folder("system") / std::to_string(i), propertyDocument(ids[i]), "{}");
    }

    EXPECT_EQ(readAll(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(systemIDs(), testing::UnorderedElementsAreArray(ids));
}

TEST_F(CatalogueDirectories, KeepTheFirstOfTwoSystemClips)
{
    addClip("system", "same");
    addClip("system2", "same");
    addClip("system2", "other");
    addClip("system3", "other");

    EXPECT_EQ(readAll(), KRT_PLX_RESULT_OK);

    EXPECT_THAT(systemIDs(), ElementsAre("same", "other"));
    EXPECT_EQ(folderOf(support::findSystemClip(manager.get(), "same")), "system");
    EXPECT_EQ(folderOf(support::findSystemClip(manager.get(), "other")), "system2");
}

TEST_F(CatalogueDirectories, KeepTheFirstOfTwoUserClips)
{
    addClip("user", "same");
    addClip("user2", "same");
    addClip("user2", "other");
    addClip("user3", "other");

    EXPECT_EQ(readAll(), KRT_PLX_RESULT_OK);

    EXPECT_THAT(userIDs(), ElementsAre("same", "other"));
    EXPECT_EQ(folderOf(support::findUserClip(manager.get(), "same")), "user");
    EXPECT_EQ(folderOf(support::findUserClip(manager.get(), "other")), "user2");
}

TEST_F(CatalogueDirectories, LeaveOutAUserClipWithTheIDOfASystemClip)
{
    addClip("system", "main");
    addClip("system2", "further");
    addClip("user", "main");
    addClip("user2", "further");
    addClip("user2", "own");

    EXPECT_EQ(readAll(), KRT_PLX_RESULT_OK);

    EXPECT_THAT(systemIDs(), ElementsAre("main", "further"));
    EXPECT_THAT(userIDs(), ElementsAre("own"));
}

TEST_F(CatalogueDirectories, ListASystemClipWithTheIDOfAUserClip)
{
    addClip("user", "same");
    addClip("system2", "same");

    EXPECT_EQ(readAll(), KRT_PLX_RESULT_OK);

    EXPECT_THAT(systemIDs(), ElementsAre("same"));
}

// The further system directories come after the main user directory.
TEST_F(CatalogueDirectories,
       KeepAMainUserClipWithTheIDOfAFurtherSystemClipUntilUserClipsAreReadAgain)
{
    addClip("user", "same");
    addClip("system2", "same");

    EXPECT_EQ(readAll(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(systemIDs(), ElementsAre("same"));
    EXPECT_THAT(userIDs(), ElementsAre("same"));

    EXPECT_EQ(readUser(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(systemIDs(), ElementsAre("same"));
    EXPECT_THAT(userIDs(), IsEmpty());
}

TEST_F(CatalogueDirectories, LeaveOutDuplicatesAlsoInTheFallback)
{
    support::addClip(folder("system") / "x", std::nullopt, midiDocumentWithID("same"));
    support::addClip(folder("system") / "y", propertyDocument("same"), midiDocument());
    support::addClip(folder("user") / "z", std::nullopt, midiDocumentWithID("same"));

    EXPECT_EQ(readAll(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(systemIDs(), ElementsAre("same"));
    EXPECT_THAT(userIDs(), IsEmpty());
}

// --- Directories that overlap ---------------------------------------------------------------------------------

TEST_F(CatalogueDirectories, MayBeGivenTwice)
{
    addAClipToEachDirectory();
    folders.furtherSystem = {folder("system"), folder("system2"), folder("system2")};
    folders.furtherUser = {folder("user"), folder("system")};

    EXPECT_EQ(readAll(), KRT_PLX_RESULT_OK);

    EXPECT_THAT(systemIDs(), ElementsAre("in system", "in system2"));
    EXPECT_THAT(userIDs(), ElementsAre("in user"));
}

TEST_F(CatalogueDirectories, MayBeTheSameForSystemAndUser)
{
    addAClipToEachDirectory();
    folders = {folder("system"), folder("system"), {}, {}};

    EXPECT_EQ(readAll(), KRT_PLX_RESULT_OK);

    EXPECT_THAT(systemIDs(), ElementsAre("in system"));
    EXPECT_THAT(userIDs(), IsEmpty());
}

TEST_F(CatalogueDirectories, MayLieInsideEachOther)
{
    addClip("system", "outer");
    support::addClip(folder("system") / "user" / "x", propertyDocument("inner"), "{}");
    folders = {folder("system"), folder("system") / "user", {folder("system") / "user"}, {}};

    EXPECT_EQ(readAll(), KRT_PLX_RESULT_OK);

    EXPECT_THAT(systemIDs(), UnorderedElementsAre("outer", "inner"));
    EXPECT_THAT(userIDs(), IsEmpty());
}

} // namespace
