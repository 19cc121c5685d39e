// The special rules of Windows for paths.
#ifdef _WIN32

#    include "odd_paths.h"
#    include "support/temp_dir.h"

using support::Path;
using support::text;
using support::Text;

namespace {

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
