// A property editor that begins with what its clip has.
#include "kit_fixture.h"

namespace {

using kit::linked;
using support::text;
using support::utf8;

class KitProperties : public SaveTest {
protected:
    KRT_PLX_ClipBase* saved()
    {
        KRT_PLX_Filter* const filter = KRT_PLX_MutableClip_filter(clip);
        support::createMidiPart(clip);
        KRT_PLX_MutableClip_setPartKey(clip, 7);
        KRT_PLX_MutableClip_setPartTempo(clip, 9000);
        for (const char* const tag : {"B", "A"}) {
            KRT_PLX_MutableFilter_addType(filter, text(tag).c_str());
            KRT_PLX_MutableFilter_addGenre(filter, text(tag).c_str());
        }
        return support::save(clip, "Name").clip;
    }

    // The name, key, tempo, types and genres that the disk has.
    std::string reread(KRT_PLX_ClipBase* found)
    {
        const std::string id = utf8(KRT_PLX_Clip_id(found));
        const auto other = support::createManager({systemFolder(), userFolder(), {}, {}});
        KRT_PLX_Manager_readAllClipFiles(other.get());
        KRT_PLX_ClipBase* const read = support::findUserClip(other.get(), id);
        std::string result = utf8(KRT_PLX_Clip_name(read)) + " " +
                             std::to_string(KRT_PLX_ClipBase_partKey(read)) + " " +
                             std::to_string(KRT_PLX_ClipBase_partTempo(read));
        for (const support::TagList& list : support::tagLists) {
            KRT_PLX_Filter* const filter = KRT_PLX_Clip_filter(read);
            const std::string key = list.key;
            for (std::uint64_t i = 0; i < support::countOf(list.count, filter) && !key.empty();
                 ++i) {
                result += " " + key + ":" + utf8(list.at(filter, i));
            }
        }
        return result;
    }
};

TEST_F(KitProperties, KeepWhatIsNotNamed)
{
    KRT_PLX_ClipBase* const found = saved();
    KRT_PLX_PropertyEditor* const editor =
        KRT_PLX_Kit_editProperties(linked(), found, KRT_PLX_KIT_KEEP_ALL);
    ASSERT_TRUE(KRT_PLX_PropertyEditor_setClipName(editor, text("New").c_str()));
    ASSERT_TRUE(KRT_PLX_PropertyEditor_save(editor));
    EXPECT_EQ(reread(found), "New 7 9000 types:A types:B genres:A genres:B");
}

TEST_F(KitProperties, LeaveOutWhatIsNotToBeKept)
{
    struct Case {
        std::uint32_t dropped;
        const char* left;
    };
    const Case cases[] = {
        {KRT_PLX_KIT_KEEP_KEY, "N 0 9000 types:A types:B genres:A genres:B"},
        {KRT_PLX_KIT_KEEP_TEMPO, "N 7 0 types:A types:B genres:A genres:B"},
        {KRT_PLX_KIT_KEEP_TYPES, "N 7 9000 genres:A genres:B"},
        {KRT_PLX_KIT_KEEP_GENRES, "N 7 9000 types:A types:B"},
    };
    for (const Case& each : cases) {
        KRT_PLX_ClipBase* const found = saved();
        KRT_PLX_PropertyEditor* const editor =
            KRT_PLX_Kit_editProperties(linked(), found, KRT_PLX_KIT_KEEP_ALL & ~each.dropped);
        KRT_PLX_PropertyEditor_setClipName(editor, text("N").c_str());
        ASSERT_TRUE(KRT_PLX_PropertyEditor_save(editor));
        EXPECT_EQ(reread(found), each.left);
    }
}

TEST_F(KitProperties, WithoutANameDoNotSave)
{
    KRT_PLX_PropertyEditor* const editor = KRT_PLX_Kit_editProperties(
        linked(), saved(), KRT_PLX_KIT_KEEP_ALL & ~KRT_PLX_KIT_KEEP_NAME);
    EXPECT_FALSE(KRT_PLX_PropertyEditor_save(editor));
}

TEST_F(KitProperties, NeedAUserClip)
{
    EXPECT_EQ(KRT_PLX_Kit_editProperties(linked(), nullptr, KRT_PLX_KIT_KEEP_ALL), nullptr);
    EXPECT_EQ(KRT_PLX_Kit_editProperties(linked(), clip, KRT_PLX_KIT_KEEP_ALL), nullptr);
    EXPECT_EQ(KRT_PLX_Kit_editProperties(nullptr, saved(), KRT_PLX_KIT_KEEP_ALL), nullptr);
}

} // namespace
