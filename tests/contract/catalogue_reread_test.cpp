// Reading again: what is rebuilt, and which handles live on.
#include <string>

#include "support/host.h"

using support::midiDocument;
using support::propertyDocument;
using support::systemClipIDs;
using support::text;
using support::userClipIDs;
using support::utf8;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

class CatalogueReread : public HostTest {
protected:
    CatalogueReread()
    {
        addSystemClip("s");
        addUserClip("u");
    }

    void addSystemClip(const char* id)
    {
        support::addClip(systemFolder() / id, propertyDocument(id), midiDocument());
    }

    void addUserClip(const char* id)
    {
        support::addClip(userFolder() / id, propertyDocument(id), midiDocument());
    }

    std::uint32_t readUser() { return KRT_PLX_Manager_readUserClipFiles(manager()); }
};

TEST_F(CatalogueReread, IsNeededForTheFirstClips)
{
    EXPECT_THAT(systemClipIDs(manager()), IsEmpty());
    EXPECT_THAT(userClipIDs(manager()), IsEmpty());
    EXPECT_EQ(systemClip(0), nullptr);
    EXPECT_EQ(userClip(0), nullptr);
}

TEST_F(CatalogueReread, FindsWhatWasAddedAndMissesWhatIsGone)
{
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    addSystemClip("s2");
    addUserClip("u2");
    std::filesystem::remove_all(systemFolder() / "s");
    std::filesystem::remove_all(userFolder() / "u");

    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);

    EXPECT_THAT(systemClipIDs(manager()), ElementsAre("s2"));
    EXPECT_THAT(userClipIDs(manager()), ElementsAre("u2"));
}

TEST_F(CatalogueReread, SeesNoChangeBefore)
{
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    addUserClip("u2");
    std::filesystem::remove_all(systemFolder() / "s");

    EXPECT_THAT(systemClipIDs(manager()), ElementsAre("s"));
    EXPECT_THAT(userClipIDs(manager()), ElementsAre("u"));
}

TEST_F(CatalogueReread, TakesChangedProperties)
{
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    support::addClip(systemFolder() / "s", propertyDocument("changed"), midiDocument());

    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);

    EXPECT_EQ(utf8(KRT_PLX_Clip_name(systemClip(0))), "Name of changed");
}

TEST_F(CatalogueReread, GivesNewClipsWithoutAPart)
{
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    ASSERT_TRUE(KRT_PLX_Clip_readPart(systemClip(0)));

    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);

    EXPECT_EQ(KRT_PLX_Clip_midiPart(systemClip(0)), nullptr);
}

TEST_F(CatalogueReread, CountsTheSameAfterManyTimes)
{
    for (int i = 0; i < 20; ++i) {
        ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
        ASSERT_EQ(readUser(), KRT_PLX_RESULT_OK);
        ASSERT_THAT(systemClipIDs(manager()), ElementsAre("s"));
        ASSERT_THAT(userClipIDs(manager()), ElementsAre("u"));
    }
}

// --- User clips only ----------------------------------------------------------------------------------

TEST_F(CatalogueReread, OfUserClipsRebuildsTheirListOnly)
{
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    addSystemClip("s2");
    addUserClip("u2");

    EXPECT_EQ(readUser(), KRT_PLX_RESULT_OK);

    EXPECT_THAT(systemClipIDs(manager()), ElementsAre("s"));
    EXPECT_THAT(userClipIDs(manager()), UnorderedElementsAre("u", "u2"));
}

TEST_F(CatalogueReread, OfUserClipsLeavesTheHandlesOfSystemClipsAlive)
{
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    KRT_PLX_ClipBase* clip = systemClip(0);
    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));
    KRT_PLX_PartBase* part = KRT_PLX_Clip_midiPart(clip);
    const KRT_PLX_Char* name = KRT_PLX_Clip_name(clip);

    EXPECT_EQ(readUser(), KRT_PLX_RESULT_OK);

    EXPECT_TRUE(KRT_PLX_Manager_hasSystemClip(manager(), clip));
    EXPECT_EQ(systemClip(0), clip);
    EXPECT_EQ(KRT_PLX_Clip_midiPart(clip), part);
    EXPECT_EQ(KRT_PLX_MidiPartBase_duration(part), 1920);
    EXPECT_EQ(utf8(name), "Name of s");
}

TEST_F(CatalogueReread, OfUserClipsWorksBeforeAnyOtherReading)
{
    addSystemClip("u");

    EXPECT_EQ(readUser(), KRT_PLX_RESULT_OK);

    EXPECT_THAT(systemClipIDs(manager()), IsEmpty());
    EXPECT_THAT(userClipIDs(manager()), ElementsAre("u"));
}

TEST_F(CatalogueReread, OfUserClipsLeavesOutTheIDsOfTheListedSystemClips)
{
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    addUserClip("s");

    EXPECT_EQ(readUser(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(userClipIDs(manager()), ElementsAre("u"));
}

// --- Editable clips --------------------------------------------------------------------------------------

TEST_F(CatalogueReread, LeavesEditableClipsAlone)
{
    KRT_PLX_ClipBase* clip = createMutableClip();
    KRT_PLX_MutableClip_setVendorName(clip, text("Studio").c_str());
    KRT_PLX_PartBase* part = KRT_PLX_MutableClip_createMidiPart(clip);

    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    ASSERT_EQ(readUser(), KRT_PLX_RESULT_OK);

    EXPECT_TRUE(KRT_PLX_Manager_hasMutableClip(manager(), clip));
    EXPECT_EQ(utf8(KRT_PLX_ClipBase_vendorName(clip)), "Studio");
    EXPECT_EQ(KRT_PLX_MutableClip_midiPart(clip), part);
    EXPECT_TRUE(KRT_PLX_MutableMidiPart_setDuration(part, 480));
    EXPECT_THAT(systemClipIDs(manager()), ElementsAre("s"));
    EXPECT_THAT(userClipIDs(manager()), ElementsAre("u"));
}

// --- Other managers ------------------------------------------------------------------------------------------

TEST_F(CatalogueReread, LeavesTheClipsOfOtherManagersAlone)
{
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    const support::OwnedManager other =
        support::createManager({systemFolder(), userFolder(), {}, {}});
    ASSERT_EQ(KRT_PLX_Manager_readAllClipFiles(other.get()), KRT_PLX_RESULT_OK);
    KRT_PLX_ClipBase* clip = KRT_PLX_Manager_userClip(other.get(), 0);

    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);

    EXPECT_TRUE(KRT_PLX_Manager_hasUserClip(other.get(), clip));
    EXPECT_EQ(utf8(KRT_PLX_Clip_id(clip)), "u");
    EXPECT_NE(userClip(0), clip);
}

} // namespace
