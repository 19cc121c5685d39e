// What a catalogue clip tells, and how it is found in its manager's lists.
#include <cstdint>
#include <limits>
#include <string>

#include "support/host.h"

using support::midiDocument;
using support::midiDocumentWithID;
using support::OwnedManager;
using support::Path;
using support::pathText;
using support::propertyDocument;
using support::text;
using support::utf8;

namespace {

constexpr const char* fullProperties = R"({
    "id": "8a6e0804-2bd0-4672-b79d-d97027f9071a", "name": "Sakura さくら", "vendor": "Studio É",
    "part": {"type": "midi", "key": 30, "tempo": 30000},
    "filter": {"genres": ["Folk"]}})";

class ClipObject : public HostTest {};

// --- Getters ------------------------------------------------------------------------------------------

TEST_F(ClipObject, OfTheSystemTellsItsProperties)
{
    KRT_PLX_ClipBase* clip = readSystemClip(fullProperties, midiDocument());

    EXPECT_EQ(KRT_PLX_ClipBase_parent(clip), manager());
    EXPECT_EQ(KRT_PLX_Clip_type(clip), 0U);
    EXPECT_EQ(utf8(KRT_PLX_Clip_id(clip)), "8a6e0804-2bd0-4672-b79d-d97027f9071a");
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(clip)), "Sakura さくら");
    EXPECT_EQ(utf8(KRT_PLX_ClipBase_vendorName(clip)), "Studio É");
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), 3U);
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(clip), 30U);
    EXPECT_EQ(KRT_PLX_ClipBase_partTempo(clip), 30000U);
    EXPECT_EQ(utf8(KRT_PLX_Clip_path(clip)),
              utf8(pathText(systemFolder() / "one" / "clip.kxclip")));
    EXPECT_EQ(utf8(KRT_PLX_Filter_genre(KRT_PLX_Clip_filter(clip), 0)), "Folk");
}

TEST_F(ClipObject, OfTheUserTellsItsProperties)
{
    KRT_PLX_ClipBase* clip = readUserClip(fullProperties, midiDocument());

    EXPECT_EQ(KRT_PLX_ClipBase_parent(clip), manager());
    EXPECT_EQ(KRT_PLX_Clip_type(clip), 1U);
    EXPECT_EQ(utf8(KRT_PLX_Clip_id(clip)), "8a6e0804-2bd0-4672-b79d-d97027f9071a");
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(clip)), "Sakura さくら");
    EXPECT_EQ(utf8(KRT_PLX_ClipBase_vendorName(clip)), "Studio É");
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), 3U);
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(clip), 30U);
    EXPECT_EQ(KRT_PLX_ClipBase_partTempo(clip), 30000U);
    EXPECT_EQ(utf8(KRT_PLX_Clip_path(clip)), utf8(pathText(userFolder() / "one" / "clip.kxclip")));
    EXPECT_EQ(utf8(KRT_PLX_Filter_genre(KRT_PLX_Clip_filter(clip), 0)), "Folk");
}

TEST_F(ClipObject, WithoutOptionalPropertiesTellsNoValues)
{
    KRT_PLX_ClipBase* clip = readSystemClip(propertyDocument("id"), midiDocument());

    EXPECT_EQ(utf8(KRT_PLX_ClipBase_vendorName(clip)), "");
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(clip), 0U);
    EXPECT_EQ(KRT_PLX_ClipBase_partTempo(clip), 0U);
    EXPECT_NE(KRT_PLX_Clip_filter(clip), nullptr);
}

TEST_F(ClipObject, ListedFromItsClipFileHasNoKeyAndTempoButItsPart)
{
    KRT_PLX_ClipBase* clip = readSystemClip(
        std::nullopt, R"({"id": "id", "name": "name", "vendor": "Studio", "key": 5, "tempo": 12000,
                          "part": {"type": "midi", "key": 5, "tempo": 12000},
                          "midiAi": {"duration": 480, "aiVoice": {"compID": ""}}})");

    EXPECT_EQ(utf8(KRT_PLX_Clip_name(clip)), "name");
    EXPECT_EQ(utf8(KRT_PLX_ClipBase_vendorName(clip)), "Studio");
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(clip), 0U);
    EXPECT_EQ(KRT_PLX_ClipBase_partTempo(clip), 0U);
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), 2U);
    EXPECT_EQ(utf8(KRT_PLX_Clip_path(clip)),
              utf8(pathText(systemFolder() / "one" / "clip.kxclip")));
    KRT_PLX_PartBase* part = KRT_PLX_Clip_midiPart(clip);
    EXPECT_TRUE(KRT_PLX_Clip_hasMidiPart(clip, part));
    EXPECT_EQ(KRT_PLX_MidiPartBase_duration(part), 480);
    EXPECT_EQ(KRT_PLX_MidiPart_parent(part), clip);
}

TEST_F(ClipObject, ReturnsTheSameHandlesAndTextsEachTime)
{
    KRT_PLX_ClipBase* clip = readSystemClip(fullProperties, midiDocument());
    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));

    EXPECT_EQ(systemClip(0), clip);
    EXPECT_EQ(KRT_PLX_Clip_filter(clip), KRT_PLX_Clip_filter(clip));
    EXPECT_EQ(KRT_PLX_Clip_midiPart(clip), KRT_PLX_Clip_midiPart(clip));
    EXPECT_EQ(KRT_PLX_Clip_id(clip), KRT_PLX_Clip_id(clip));
    EXPECT_EQ(KRT_PLX_Clip_name(clip), KRT_PLX_Clip_name(clip));
    EXPECT_EQ(utf8(KRT_PLX_Clip_path(clip)), utf8(KRT_PLX_Clip_path(clip)));
}

TEST_F(ClipObject, HasAFilterOfItsOwn)
{
    support::addClip(systemFolder() / "a", propertyDocument("a"), midiDocument());
    support::addClip(systemFolder() / "b", propertyDocument("b"), midiDocument());
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);

    EXPECT_NE(KRT_PLX_Clip_filter(systemClip(0)), KRT_PLX_Clip_filter(systemClip(1)));
}

TEST_F(ClipObject, KeepsItsTextsWhileTheManagerWorksOn)
{
    KRT_PLX_ClipBase* clip = readSystemClip(fullProperties, midiDocument());
    const KRT_PLX_Char* name = KRT_PLX_Clip_name(clip);
    const KRT_PLX_Char* path = KRT_PLX_Clip_path(clip);

    KRT_PLX_Manager_readUserClipFiles(manager());
    createMutableClip();
    KRT_PLX_Clip_readPart(clip);

    EXPECT_EQ(utf8(name), "Sakura さくら");
    EXPECT_EQ(utf8(path), utf8(pathText(systemFolder() / "one" / "clip.kxclip")));
}

// --- In the lists --------------------------------------------------------------------------------------

class ClipLists : public HostTest {
protected:
    ClipLists()
    {
        for (const char* id : {"a", "b", "c"}) {
            support::addClip(systemFolder() / id, propertyDocument(id), midiDocument());
            support::addClip(userFolder() / id, propertyDocument(std::string("user ") + id),
                             midiDocument());
        }
    }
};

TEST_F(ClipLists, GiveNullForAnIndexThatIsNotBelowTheCount)
{
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    ASSERT_EQ(support::systemClipCount(manager()), 3U);
    ASSERT_EQ(support::userClipCount(manager()), 3U);

    EXPECT_NE(systemClip(2), nullptr);
    EXPECT_NE(userClip(2), nullptr);
    constexpr std::uint64_t beyond32Bits = std::uint64_t{1} << 32;
    for (const std::uint64_t index : {std::uint64_t{3}, std::uint64_t{4}, beyond32Bits,
                                      std::numeric_limits<std::uint64_t>::max()}) {
        EXPECT_EQ(systemClip(index), nullptr) << index;
        EXPECT_EQ(userClip(index), nullptr) << index;
    }
}

TEST_F(ClipLists, GiveEachClipOnce)
{
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);

    EXPECT_NE(systemClip(0), systemClip(1));
    EXPECT_NE(systemClip(1), systemClip(2));
    EXPECT_NE(systemClip(0), systemClip(2));
}

TEST_F(ClipLists, NeedACountToWriteTo)
{
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);

    EXPECT_FALSE(KRT_PLX_Manager_numSystemClips(manager(), nullptr));
    EXPECT_FALSE(KRT_PLX_Manager_numUserClips(manager(), nullptr));
}

TEST_F(ClipLists, KnowTheirOwnClips)
{
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    for (std::uint64_t i = 0; i < 3; ++i) {
        EXPECT_TRUE(KRT_PLX_Manager_hasSystemClip(manager(), systemClip(i)));
        EXPECT_TRUE(KRT_PLX_Manager_hasUserClip(manager(), userClip(i)));
    }
}

TEST_F(ClipLists, DoNotKnowOtherClips)
{
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    const OwnedManager other = support::createManager({systemFolder(), userFolder(), {}, {}});
    ASSERT_EQ(KRT_PLX_Manager_readAllClipFiles(other.get()), KRT_PLX_RESULT_OK);
    KRT_PLX_ClipBase* editable = createMutableClip();

    EXPECT_FALSE(KRT_PLX_Manager_hasSystemClip(manager(), nullptr));
    EXPECT_FALSE(KRT_PLX_Manager_hasSystemClip(manager(), userClip(0)));
    EXPECT_FALSE(KRT_PLX_Manager_hasSystemClip(manager(), editable));
    EXPECT_FALSE(
        KRT_PLX_Manager_hasSystemClip(manager(), KRT_PLX_Manager_systemClip(other.get(), 0)));
    EXPECT_FALSE(KRT_PLX_Manager_hasUserClip(manager(), nullptr));
    EXPECT_FALSE(KRT_PLX_Manager_hasUserClip(manager(), systemClip(0)));
    EXPECT_FALSE(KRT_PLX_Manager_hasUserClip(manager(), editable));
    EXPECT_FALSE(KRT_PLX_Manager_hasUserClip(manager(), KRT_PLX_Manager_userClip(other.get(), 0)));
    EXPECT_FALSE(KRT_PLX_Manager_hasMutableClip(manager(), nullptr));
    EXPECT_FALSE(KRT_PLX_Manager_hasMutableClip(manager(), systemClip(0)));
    EXPECT_FALSE(KRT_PLX_Manager_hasMutableClip(other.get(), editable));
}

// The old list is gone and no new clip has been made, so no clip can stand at an old address.
TEST_F(ClipLists, DoNotKnowDeadClips)
{
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    KRT_PLX_ClipBase* oldSystemClip = systemClip(0);
    KRT_PLX_ClipBase* oldUserClip = userClip(0);
    std::filesystem::remove_all(systemFolder());

    ASSERT_EQ(read(), KRT_PLX_RESULT_DIRECTORY_MISSING);

    EXPECT_FALSE(KRT_PLX_Manager_hasSystemClip(manager(), oldSystemClip));
    EXPECT_FALSE(KRT_PLX_Manager_hasUserClip(manager(), oldUserClip));
}

// --- Functions for user clips ------------------------------------------------------------------------------

TEST_F(ClipLists, DeleteNothingOfASystemClip)
{
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    KRT_PLX_ClipBase* clip = support::findSystemClip(manager(), "b");

    EXPECT_FALSE(KRT_PLX_UserClip_remove(clip));

    EXPECT_TRUE(std::filesystem::exists(systemFolder() / "b" / "clip.kxclip"));
    EXPECT_TRUE(std::filesystem::exists(systemFolder() / "b" / "property.json"));
    EXPECT_TRUE(KRT_PLX_Manager_hasSystemClip(manager(), clip));
    EXPECT_EQ(support::systemClipCount(manager()), 3U);
    EXPECT_EQ(utf8(KRT_PLX_Clip_id(clip)), "b");
}

} // namespace
