// What only Windows has: files that other programs keep open, special rules for paths, handles that child
// processes inherit.
#ifdef _WIN32

#    include <fstream>
#    include <thread>

#    include <windows.h>

#    include "support/keeper_win32.h"
#    include "support/saving.h"
#    include "support/temp_dir.h"

using support::Keeper;
using support::Path;
using support::text;
using support::Text;

namespace {

// --- Files that another program keeps open ----------------------------------------------------------------

class KeptFiles : public HostTest {
protected:
    KRT_PLX_ClipBase* readClip()
    {
        support::addAudioClip(folder, "ID");
        EXPECT_EQ(read(), KRT_PLX_RESULT_OK);
        KRT_PLX_ClipBase* const clip = userClip(0);
        EXPECT_TRUE(KRT_PLX_Clip_readPart(clip));
        return clip;
    }

    // A file that another program keeps open for longer than the library waits.
    void expectNothingHappens(const char* kept, DWORD sharing)
    {
        SCOPED_TRACE(kept);
        KRT_PLX_ClipBase* const clip = readClip();
        const support::Tree before = support::treeOf(userFolder());
        {
            const Keeper keeper((folder / kept).wstring(), sharing);
            EXPECT_FALSE(KRT_PLX_UserClip_remove(clip));
        }
        EXPECT_EQ(support::treeOf(userFolder()), before);
        EXPECT_TRUE(KRT_PLX_Manager_hasUserClip(manager(), clip));
        EXPECT_TRUE(KRT_PLX_UserClip_remove(clip));
        EXPECT_TRUE(std::filesystem::is_empty(userFolder()));
    }

    static bool edit(KRT_PLX_ClipBase* clip, const char* name)
    {
        KRT_PLX_PropertyEditor* const editor = KRT_PLX_UserClip_createPropertyEditor(clip);
        return KRT_PLX_PropertyEditor_setClipName(editor, text(name).c_str()) &&
               KRT_PLX_PropertyEditor_save(editor);
    }

    const Path folder = userFolder() / "one";
};

constexpr DWORD notForRemoval = FILE_SHARE_READ | FILE_SHARE_WRITE;
constexpr DWORD notForWriting = FILE_SHARE_READ | FILE_SHARE_DELETE;

TEST_F(KeptFiles, AreKnownBeforeAnythingIsRemoved)
{
    expectNothingHappens("property.json", notForRemoval);
    expectNothingHappens("clip.kxclip", notForRemoval);
}

// The documents make the clip; what else is in its folder may stay.
TEST_F(KeptFiles, LeaveAClipWithoutItsWaveFile)
{
    KRT_PLX_ClipBase* const clip = readClip();
    {
        const Keeper keeper((folder / "audio" / "take.wav").wstring(), notForRemoval);
        EXPECT_TRUE(KRT_PLX_UserClip_remove(clip));
    }
    EXPECT_EQ(support::treeOf(userFolder()).size(), 3u); // the wave file and its two folders
}

TEST_F(KeptFiles, AreNotEdited)
{
    KRT_PLX_ClipBase* const clip = readClip();
    const support::Tree before = support::treeOf(userFolder());
    {
        const Keeper keeper((folder / "property.json").wstring(), notForWriting);
        EXPECT_FALSE(edit(clip, "new"));
    }
    EXPECT_EQ(support::treeOf(userFolder()), before);
    EXPECT_TRUE(edit(clip, "new"));
}

// As virus scanners and indexers do.
TEST_F(KeptFiles, ForAMomentAreWaitedFor)
{
    KRT_PLX_ClipBase* const clip = readClip();
    const auto keepForAMoment = [this](const char* name) {
        auto keeper = std::make_unique<Keeper>((folder / name).wstring(), 0);
        return std::thread([keeper = std::move(keeper)]() mutable {
            Sleep(100);
            keeper.reset();
        });
    };
    std::thread moment = keepForAMoment("property.json");
    EXPECT_TRUE(edit(clip, "new"));
    moment.join();
    moment = keepForAMoment("property.json");
    EXPECT_EQ(read(), KRT_PLX_RESULT_OK);
    moment.join();
    ASSERT_EQ(support::userClipCount(manager()), 1u);
    EXPECT_EQ(support::utf8(KRT_PLX_Clip_name(userClip(0))), "new");
    ASSERT_TRUE(KRT_PLX_Clip_readPart(userClip(0)));
    moment = keepForAMoment("clip.kxclip");
    EXPECT_TRUE(KRT_PLX_UserClip_remove(userClip(0)));
    moment.join();
    EXPECT_TRUE(std::filesystem::is_empty(userFolder()));
}

// --- Paths ----------------------------------------------------------------------------------------------

// The user directory as a host may name it; the folder that it means.
class OddPaths : public SaveTest {
protected:
    static constexpr const wchar_t* prefix = LR"(\\?\)";

    void expectAllWorks(const Text& user, const Path& meant)
    {
        SCOPED_TRACE(support::utf8(user));
        const support::OwnedManager own(create(user));
        ASSERT_NE(own.get(), nullptr);
        EXPECT_EQ(support::utf8(KRT_PLX_Manager_userClipDirPath(own.get())), support::utf8(user));
        KRT_PLX_ClipBase* const built = KRT_PLX_Manager_createMutableClip(own.get());
        support::createAudioPart(built, addWaveFile());
        const auto saved = support::save(built);
        ASSERT_EQ(saved.code, KRT_PLX_RESULT_OK);
        expectIn(own.get(), user, meant);
        ASSERT_EQ(KRT_PLX_Manager_readAllClipFiles(own.get()), KRT_PLX_RESULT_OK);
        expectIn(own.get(), user, meant);
        EXPECT_TRUE(KRT_PLX_UserClip_remove(KRT_PLX_Manager_userClip(own.get(), 0)));
        EXPECT_EQ(countEntries(meant), 0);
    }

    // The standard library of this compiler still has the old limit of the path's length.
    static Text longForm(const Path& path)
    {
        return path.is_relative() || path.native().starts_with(prefix) ? path.native()
                                                                       : prefix + path.native();
    }

    static int countEntries(const Path& folder)
    {
        WIN32_FIND_DATAW entry;
        const HANDLE search = FindFirstFileW((longForm(folder) + L"\\*").c_str(), &entry);
        EXPECT_NE(search, INVALID_HANDLE_VALUE);
        int count = 0;
        do {
            const Text name = entry.cFileName;
            count += name != L"." && name != L".." ? 1 : 0;
        } while (FindNextFileW(search, &entry));
        FindClose(search);
        return count;
    }

    KRT_PLX_Manager* create(const Text& user)
    {
        return KRT_PLX_CreateManager(support::uniqueAppID().c_str(), systemFolder().c_str(),
                                     user.c_str(), nullptr, 0, nullptr, 0, nullptr);
    }

    // The one clip, which can be read and edited.
    static void expectIn(KRT_PLX_Manager* own, const Text& user, const Path& meant)
    {
        ASSERT_EQ(support::userClipCount(own), 1u);
        KRT_PLX_ClipBase* const clip = KRT_PLX_Manager_userClip(own, 0);
        EXPECT_TRUE(Text(KRT_PLX_Clip_path(clip)).starts_with(user + L"\\"));
        const Text document = longForm(meant / KRT_PLX_Clip_id(clip) / "property.json");
        EXPECT_NE(GetFileAttributesW(document.c_str()), INVALID_FILE_ATTRIBUTES);
        EXPECT_TRUE(KRT_PLX_Clip_readPart(clip));
        EXPECT_NE(KRT_PLX_Clip_audioPart(clip), nullptr);
        KRT_PLX_PropertyEditor* const editor = KRT_PLX_UserClip_createPropertyEditor(clip);
        EXPECT_TRUE(KRT_PLX_PropertyEditor_setClipName(editor, text("new").c_str()));
        EXPECT_TRUE(KRT_PLX_PropertyEditor_save(editor));
    }

    // For paths that depend on it.
    struct CurrentFolder {
        explicit CurrentFolder(const Path& folder) : before(std::filesystem::current_path())
        {
            std::filesystem::current_path(folder);
        }
        ~CurrentFolder() { std::filesystem::current_path(before); }

        Path before;
    };
};

TEST_F(OddPaths, WithBlanksDotsAndSeparatorsAtTheEnd)
{
    const Text user = (scratch() / "own").wstring();
    for (const wchar_t* end : {L"", L"\\", L"\\\\", L"/", L" ", L".", L". . ", L"\\."}) {
        expectAllWorks(user + end, user);
    }
}

TEST_F(OddPaths, WithThePrefixForLongPaths)
{
    const Text user = prefix + (scratch() / "own").wstring();
    expectAllWorks(user, user);
    expectAllWorks(user + L"\\", user);
}

// With the prefix a name may end in blanks and dots, and have a plain one beside it.
TEST_F(OddPaths, WithThePrefixAndBlanksAtTheEnd)
{
    const Text user = prefix + (scratch() / "own").wstring();
    CreateDirectoryW(user.c_str(), nullptr);
    const Text odd = user + L". ";
    const support::OwnedManager own(create(odd));
    ASSERT_NE(own.get(), nullptr);
    KRT_PLX_ClipBase* const built = KRT_PLX_Manager_createMutableClip(own.get());
    support::createMidiPart(built);
    EXPECT_EQ(support::save(built).code, KRT_PLX_RESULT_OK);
    EXPECT_EQ(KRT_PLX_Manager_readAllClipFiles(own.get()), KRT_PLX_RESULT_OK);
    ASSERT_EQ(support::userClipCount(own.get()), 1u);
    EXPECT_TRUE(std::filesystem::is_empty(user));
    EXPECT_TRUE(KRT_PLX_UserClip_remove(KRT_PLX_Manager_userClip(own.get(), 0)));
    EXPECT_TRUE(RemoveDirectoryW(odd.c_str()));
}

TEST_F(OddPaths, OfADriveAlone)
{
    const Path folder = scratch() / "current";
    std::filesystem::create_directory(folder);
    const CurrentFolder current(folder);
    expectAllWorks(folder.wstring().substr(0, 2), folder);
    expectAllWorks(folder.wstring().substr(0, 2) + L"inner", folder / "inner");
}

TEST_F(OddPaths, FromTheCurrentFolder)
{
    const CurrentFolder current(scratch());
    expectAllWorks(L"own", scratch() / "own");
    expectAllWorks(L".\\own\\", scratch() / "own");
    expectAllWorks(L"own/inner", scratch() / "own" / "inner");
}

TEST_F(OddPaths, BeyondTheOldLimit)
{
    Path user = scratch();
    while (user.native().size() < 400) {
        user /= std::wstring(50, L'x');
    }
    expectAllWorks(user.wstring(), user);
}

// Other systems make names that end in blanks and dots.
TEST_F(OddPaths, InTheFileSystem)
{
    const auto add = [&](const std::wstring& name, const char* id) {
        const Text folder = prefix + (userFolder() / name).wstring();
        ASSERT_TRUE(CreateDirectoryW(folder.c_str(), nullptr)) << id;
        support::writeFile(Path(folder + L"\\property.json"), support::propertyDocument(id));
        support::writeFile(Path(folder + L"\\clip.kxclip"), support::midiDocument());
    };
    std::filesystem::create_directories(userFolder());
    add(L"a", "plain");
    add(L"a.", "dot");
    add(L"a ", "blank");
    add(L"NUL", "device");
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::userClipIDs(manager()),
                testing::UnorderedElementsAre("plain", "dot", "blank", "device"));
    for (const char* id : {"dot", "blank", "device"}) {
        SCOPED_TRACE(id);
        KRT_PLX_ClipBase* const clip = support::findUserClip(manager(), id);
        EXPECT_TRUE(KRT_PLX_Clip_readPart(clip));
        KRT_PLX_PropertyEditor* const editor = KRT_PLX_UserClip_createPropertyEditor(clip);
        EXPECT_TRUE(KRT_PLX_PropertyEditor_setClipName(editor, text("new").c_str()));
        EXPECT_TRUE(KRT_PLX_PropertyEditor_save(editor));
        EXPECT_TRUE(KRT_PLX_UserClip_remove(clip));
    }
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::userClipIDs(manager()), testing::ElementsAre("plain"));
    EXPECT_EQ(support::utf8(KRT_PLX_Clip_name(userClip(0))), "Name of plain");
}

// A document may name any wave file.
TEST_F(OddPaths, OfWaveFilesInDocuments)
{
    support::writeFile(userFolder() / "one" / "beside.wav", "RIFF");
    support::addClip(userFolder() / "one", support::propertyDocument("ID", "audio"),
                     support::audioDocument(R"(..\\beside.wav)"));
    support::addClip(userFolder() / "two", support::propertyDocument("device", "audio"),
                     support::audioDocument("NUL"));
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_TRUE(KRT_PLX_Clip_readPart(support::findUserClip(manager(), "ID")));
    EXPECT_FALSE(KRT_PLX_Clip_readPart(support::findUserClip(manager(), "device")));
}

} // namespace

#endif
