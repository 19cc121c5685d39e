// Files and folders that may not be read or written: other clips are not affected, and these
// stay as they are.
#ifndef _WIN32

#    include <sys/stat.h>
#    include <unistd.h>

#    include "support/ordinary_user.h"
#    include "support/saving.h"

using support::Path;
using support::pathText;
using support::text;
using support::Tree;
using support::treeOf;
using testing::UnorderedElementsAre;

namespace {

void allow(const Path& path, mode_t mode)
{
    ASSERT_EQ(::chmod(path.c_str(), mode), 0) << path;
}

class NeighbourRights : public HostTest {
protected:
    NeighbourRights() : user_(pathText(scratch()))
    {
        std::filesystem::remove(systemFolder());
        std::filesystem::remove(userFolder());
        add(systemFolder() / "one", "system");
        add(userFolder() / "one", "ID");
        add(userFolder() / "two", "other");
    }

    // So that the scratch folder can be removed.
    ~NeighbourRights() override
    {
        for (const char* const folder : {"system", "user", "user/one"}) {
            ::chmod((scratch() / folder).c_str(), 0700);
        }
    }

    static void add(const Path& folder, std::string_view id)
    {
        support::addClip(folder, support::propertyDocument(id), support::midiDocument());
    }

    [[nodiscard]] Path folder() const { return userFolder() / "one"; }

    KRT_PLX_ClipBase* readClip()
    {
        EXPECT_EQ(read(), KRT_PLX_RESULT_OK);
        return support::findUserClip(manager(), "ID");
    }

    static bool edit(KRT_PLX_ClipBase* clip)
    {
        KRT_PLX_PropertyEditor* const editor = KRT_PLX_UserClip_createPropertyEditor(clip);
        EXPECT_TRUE(KRT_PLX_PropertyEditor_setClipName(editor, text("new").c_str()));
        return KRT_PLX_PropertyEditor_save(editor);
    }

private:
    OrdinaryUser user_;
};

TEST_F(NeighbourRights, ReadingNeedsNoMoreThanReading)
{
    for (const Path& place : {systemFolder(), userFolder()}) {
        allow(place / "one" / "property.json", 0444);
        allow(place / "one" / "clip.kxclip", 0444);
        allow(place / "one", 0555);
        allow(place, 0555);
    }
    KRT_PLX_ClipBase* const clip = readClip();
    ASSERT_NE(clip, nullptr);
    EXPECT_TRUE(KRT_PLX_Clip_readPart(clip));
    EXPECT_TRUE(KRT_PLX_Clip_readPart(systemClip(0)));
    allow(systemFolder() / "one", 0700);
}

TEST_F(NeighbourRights, AReadOnlyUserFolderTakesNoClip)
{
    KRT_PLX_ClipBase* const built = createMutableClip();
    support::createMidiPart(built);
    allow(userFolder(), 0555);
    const Tree before = treeOf(userFolder());
    EXPECT_EQ(support::save(built).code, KRT_PLX_RESULT_DIRECTORY_NOT_CREATED);
    EXPECT_EQ(treeOf(userFolder()), before);
    allow(userFolder(), 0755);
    EXPECT_EQ(support::save(built).code, KRT_PLX_RESULT_OK);
}

TEST_F(NeighbourRights, AReadOnlyPropertyDocumentIsNotEdited)
{
    KRT_PLX_ClipBase* const clip = readClip();
    allow(folder() / "property.json", 0444);
    const Tree before = treeOf(userFolder());
    EXPECT_FALSE(edit(clip));
    EXPECT_EQ(support::utf8(KRT_PLX_Clip_name(clip)), "Name of ID");
    EXPECT_EQ(treeOf(userFolder()), before);
    allow(folder() / "property.json", 0644);
    EXPECT_TRUE(edit(clip));
}

TEST_F(NeighbourRights, AClipInAReadOnlyFolderIsNotRemoved)
{
    KRT_PLX_ClipBase* const clip = readClip();
    allow(folder(), 0555);
    const Tree before = treeOf(userFolder());
    EXPECT_FALSE(KRT_PLX_UserClip_remove(clip));
    EXPECT_TRUE(KRT_PLX_Manager_hasUserClip(manager(), clip));
    EXPECT_EQ(treeOf(userFolder()), before);
    allow(folder(), 0755);
    EXPECT_TRUE(KRT_PLX_UserClip_remove(clip));
}

TEST_F(NeighbourRights, ReadOnlyFilesAreRemovedWhereTheFolderAllowsIt)
{
    KRT_PLX_ClipBase* const clip = readClip();
    allow(folder() / "property.json", 0444);
    allow(folder() / "clip.kxclip", 0444);
    EXPECT_TRUE(KRT_PLX_UserClip_remove(clip));
    EXPECT_FALSE(std::filesystem::exists(folder()));
}

TEST_F(NeighbourRights, WhatMayNotBeReadIsLeftOutAlone)
{
    allow(folder() / "property.json", 0);
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::userClipIDs(manager()), UnorderedElementsAre("other"));
    allow(folder() / "property.json", 0644);

    allow(folder(), 0);
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::userClipIDs(manager()), UnorderedElementsAre("other"));
    allow(folder(), 0755);

    ASSERT_NE(readClip(), nullptr);
    EXPECT_THAT(support::userClipIDs(manager()), UnorderedElementsAre("other", "ID"));
}

TEST_F(NeighbourRights, APartThatMayNotBeReadLeavesTheClip)
{
    KRT_PLX_ClipBase* const clip = readClip();
    allow(folder() / "clip.kxclip", 0);
    EXPECT_FALSE(KRT_PLX_Clip_readPart(clip));
    EXPECT_TRUE(KRT_PLX_Manager_hasUserClip(manager(), clip));
    allow(folder() / "clip.kxclip", 0644);
    EXPECT_TRUE(KRT_PLX_Clip_readPart(clip));
}

} // namespace

#else

#    include "support/saving.h"
#    include "support/temp_dir.h"

using support::text;

namespace {

// The mark keeps a file from being changed. Removing a clip changes none.
TEST_F(HostTest, AClipOfReadOnlyFilesIsReadAndRemoved)
{
    support::addAudioClip(userFolder() / "one", "ID");
    for (const char* name : {"clip.kxclip", "property.json", "audio/take.wav"}) {
        std::filesystem::permissions(userFolder() / "one" / name,
                                     std::filesystem::perms::owner_read);
    }
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    KRT_PLX_ClipBase* const clip = userClip(0);
    EXPECT_TRUE(KRT_PLX_Clip_readPart(clip));
    EXPECT_TRUE(KRT_PLX_UserClip_remove(clip));
    EXPECT_TRUE(std::filesystem::is_empty(userFolder()));
}

TEST_F(HostTest, AReadOnlyPropertyDocumentIsNotEdited)
{
    if (support::isEmulatedWindows()) {
        GTEST_SKIP() << "an emulated Windows lets its superuser write to every file";
    }
    support::addAudioClip(userFolder() / "one", "ID");
    std::filesystem::permissions(userFolder() / "one" / "property.json",
                                 std::filesystem::perms::owner_read);
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    const support::Tree before = support::treeOf(userFolder());
    KRT_PLX_PropertyEditor* const editor = KRT_PLX_UserClip_createPropertyEditor(userClip(0));
    EXPECT_TRUE(KRT_PLX_PropertyEditor_setClipName(editor, text("new").c_str()));
    EXPECT_FALSE(KRT_PLX_PropertyEditor_save(editor));
    EXPECT_EQ(support::treeOf(userFolder()), before);
}

} // namespace

#endif
