// What only Windows has: files that other programs keep open.
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

namespace {

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

} // namespace

#endif
