#include <vector>

#include "support/editing.h"
#include "support/limits.h"

using support::countOf;
using support::largestUnsigned;
using support::text;
using support::utf8;

namespace {

class MutableClipTest : public HostTest {
protected:
    bool isListed(KRT_PLX_ClipBase* element)
    {
        return KRT_PLX_Manager_hasMutableClip(manager(), element);
    }

    KRT_PLX_ClipBase* const clip = createMutableClip();
};

TEST_F(MutableClipTest, StartsEmpty)
{
    ASSERT_NE(clip, nullptr);
    EXPECT_EQ(KRT_PLX_ClipBase_parent(clip), manager());
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), KRT_PLX_PART_NONE);
    EXPECT_EQ(KRT_PLX_MutableClip_audioPart(clip), nullptr);
    EXPECT_EQ(KRT_PLX_MutableClip_midiPart(clip), nullptr);
}

TEST_F(MutableClipTest, StandsInNoListOfTheCatalogue)
{
    EXPECT_EQ(support::systemClipCount(manager()), 0u);
    EXPECT_EQ(support::userClipCount(manager()), 0u);
    EXPECT_FALSE(KRT_PLX_Manager_hasSystemClip(manager(), clip));
    EXPECT_FALSE(KRT_PLX_Manager_hasUserClip(manager(), clip));
}

TEST_F(MutableClipTest, IsNoCatalogueClip)
{
    KRT_PLX_MutableClip_createMidiPart(clip);
    EXPECT_EQ(KRT_PLX_Clip_id(clip), nullptr);
    EXPECT_EQ(KRT_PLX_Clip_name(clip), nullptr);
    EXPECT_EQ(KRT_PLX_Clip_path(clip), nullptr);
    EXPECT_EQ(KRT_PLX_Clip_type(clip), KRT_PLX_CLIP_NO_KIND);
    EXPECT_EQ(KRT_PLX_Clip_filter(clip), nullptr);
    EXPECT_FALSE(KRT_PLX_Clip_readPart(clip));
    EXPECT_EQ(KRT_PLX_Clip_midiPart(clip), nullptr);
    EXPECT_FALSE(KRT_PLX_UserClip_remove(clip));
    EXPECT_EQ(KRT_PLX_UserClip_createPropertyEditor(clip), nullptr);
    EXPECT_TRUE(isListed(clip));
}

TEST_F(MutableClipTest, SurvivesReadingTheCatalogue)
{
    KRT_PLX_MutableClip_setVendorName(clip, text("Studio").c_str());
    ASSERT_EQ(KRT_PLX_Manager_readAllClipFiles(manager()), KRT_PLX_RESULT_OK);
    ASSERT_EQ(KRT_PLX_Manager_readUserClipFiles(manager()), KRT_PLX_RESULT_OK);
    ASSERT_TRUE(isListed(clip));
    EXPECT_EQ(utf8(KRT_PLX_ClipBase_vendorName(clip)), "Studio");
}

TEST_F(MutableClipTest, ManyLiveAtOnceAndDieOneByOne)
{
    std::vector<KRT_PLX_ClipBase*> clips;
    for (std::uint32_t number = 0; number < 31; ++number) {
        clips.push_back(createMutableClip());
        KRT_PLX_MutableClip_setPartKey(clips.back(), number);
    }
    while (!clips.empty()) {
        const auto middle = clips.begin() + static_cast<std::ptrdiff_t>(clips.size() / 2);
        KRT_PLX_ClipBase* const dead = *middle;
        EXPECT_TRUE(KRT_PLX_MutableClip_destroy(dead));
        clips.erase(middle);
        EXPECT_FALSE(isListed(dead));
        for (KRT_PLX_ClipBase* const alive : clips) {
            EXPECT_TRUE(isListed(alive));
        }
    }
    EXPECT_TRUE(isListed(clip));
}

TEST_F(MutableClipTest, ClipsAreIndependent)
{
    KRT_PLX_ClipBase* const other = createMutableClip();
    ASSERT_NE(other, clip);
    KRT_PLX_MutableClip_setPartKey(clip, 3);
    KRT_PLX_MutableClip_setPartTempo(clip, 12000);
    KRT_PLX_MutableClip_setVendorName(clip, text("Studio").c_str());
    KRT_PLX_MutableClip_createAudioPart(clip);
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(other), 0u);
    EXPECT_EQ(KRT_PLX_ClipBase_partTempo(other), 0u);
    EXPECT_EQ(utf8(KRT_PLX_ClipBase_vendorName(other)), "");
    EXPECT_EQ(KRT_PLX_ClipBase_partType(other), KRT_PLX_PART_NONE);
}

TEST_F(MutableClipTest, IsKnownToItsManagerAlone)
{
    EXPECT_TRUE(isListed(clip));
    EXPECT_FALSE(isListed(nullptr));
    const support::OwnedManager other =
        support::createManager({systemFolder(), userFolder(), {}, {}});
    KRT_PLX_ClipBase* const foreign = KRT_PLX_Manager_createMutableClip(other.get());
    EXPECT_FALSE(isListed(foreign));
    EXPECT_TRUE(KRT_PLX_Manager_hasMutableClip(other.get(), foreign));
    EXPECT_FALSE(KRT_PLX_Manager_hasMutableClip(other.get(), clip));
}

TEST_F(MutableClipTest, ACatalogueClipIsNone)
{
    KRT_PLX_ClipBase* const user =
        readUserClip(support::propertyDocument("ID"), support::midiDocument());
    ASSERT_NE(user, nullptr);
    EXPECT_FALSE(isListed(user));
    EXPECT_FALSE(KRT_PLX_MutableClip_destroy(user));
    EXPECT_FALSE(KRT_PLX_MutableClip_setPartKey(user, 3));
    EXPECT_FALSE(KRT_PLX_MutableClip_setPartTempo(user, 3000));
    EXPECT_FALSE(KRT_PLX_MutableClip_setVendorName(user, text("Studio").c_str()));
    EXPECT_EQ(KRT_PLX_MutableClip_filter(user), nullptr);
    EXPECT_EQ(KRT_PLX_MutableClip_createAudioPart(user), nullptr);
    EXPECT_EQ(KRT_PLX_MutableClip_createMidiPart(user), nullptr);
    EXPECT_EQ(KRT_PLX_MutableClip_createMidiAiPart(user), nullptr);
    EXPECT_EQ(KRT_PLX_MutableClip_audioPart(user), nullptr);
    EXPECT_EQ(KRT_PLX_MutableClip_midiPart(user), nullptr);
    EXPECT_FALSE(KRT_PLX_MutableClip_hasAudioPart(user, nullptr));
    EXPECT_FALSE(KRT_PLX_MutableClip_hasMidiPart(user, nullptr));
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(user), 0u);
    EXPECT_EQ(utf8(KRT_PLX_ClipBase_vendorName(user)), "");
}

TEST_F(MutableClipTest, VendorNameAndVendorTagsAreSeparate)
{
    KRT_PLX_Filter* const filter = KRT_PLX_MutableClip_filter(clip);
    KRT_PLX_MutableClip_setVendorName(clip, text("Studio").c_str());
    EXPECT_EQ(countOf(KRT_PLX_Filter_numVendors, filter), 0u);
    KRT_PLX_MutableFilter_addVendor(filter, text("Other").c_str());
    EXPECT_EQ(utf8(KRT_PLX_ClipBase_vendorName(clip)), "Studio");
}

// --- The part ---------------------------------------------------------------------------------------

// One of the three ways to give a clip a part.
struct PartKind {
    const char* name;
    KRT_PLX_PartBase* (*create)(KRT_PLX_ClipBase*);
    std::uint32_t type;

    [[nodiscard]] bool isAudio() const { return type == KRT_PLX_PART_AUDIO; }
};

const PartKind partKinds[] = {
    {"audio", KRT_PLX_MutableClip_createAudioPart, KRT_PLX_PART_AUDIO},
    {"midiAi", KRT_PLX_MutableClip_createMidiAiPart, KRT_PLX_PART_MIDI_AI},
    {"midi", KRT_PLX_MutableClip_createMidiPart, KRT_PLX_PART_MIDI},
};

class MutableClipPart : public MutableClipTest, public testing::WithParamInterface<PartKind> {
protected:
    // What the clip says when it has that part and no other.
    void expectCurrent(const PartKind& wanted, KRT_PLX_PartBase* part)
    {
        EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), wanted.type);
        EXPECT_EQ(KRT_PLX_PartBase_type(part), wanted.type);
        EXPECT_EQ(KRT_PLX_MutableClip_audioPart(clip), wanted.isAudio() ? part : nullptr);
        EXPECT_EQ(KRT_PLX_MutableClip_midiPart(clip), wanted.isAudio() ? nullptr : part);
        EXPECT_EQ(KRT_PLX_MutableClip_hasAudioPart(clip, part), wanted.isAudio());
        EXPECT_EQ(KRT_PLX_MutableClip_hasMidiPart(clip, part), !wanted.isAudio());
    }

    const PartKind& kind = GetParam();
};

TEST_P(MutableClipPart, IsTheClips)
{
    KRT_PLX_PartBase* const part = kind.create(clip);
    ASSERT_NE(part, nullptr);
    expectCurrent(kind, part);
    EXPECT_TRUE(KRT_PLX_PartBase_isMutable(part));
    EXPECT_EQ(kind.isAudio() ? KRT_PLX_MutableAudioPart_parent(part)
                             : KRT_PLX_MutableMidiPart_parent(part),
              clip);
}

// The old part's address cannot come back: the new part is made before the old one goes.
TEST_P(MutableClipPart, TakesThePlaceOfAnyOther)
{
    for (const PartKind& other : partKinds) {
        SCOPED_TRACE(other.name);
        KRT_PLX_PartBase* const old = other.create(clip);
        KRT_PLX_PartBase* const part = kind.create(clip);
        EXPECT_NE(part, old);
        expectCurrent(kind, part);
        EXPECT_FALSE(KRT_PLX_MutableClip_hasAudioPart(clip, old));
        EXPECT_FALSE(KRT_PLX_MutableClip_hasMidiPart(clip, old));
    }
}

TEST_P(MutableClipPart, StartsEmptyEvenInPlaceOfItsOwnKind)
{
    for (int round = 0; round < 2; ++round) {
        KRT_PLX_PartBase* const part = kind.create(clip);
        if (kind.isAudio()) {
            EXPECT_EQ(countOf(KRT_PLX_AudioPartBase_numAudioEffects, part), 0u);
            KRT_PLX_MutableAudioPart_insertAudioEffect(part, 0, text("effect").c_str());
        } else {
            EXPECT_EQ(countOf(KRT_PLX_MidiPartBase_numNotes, part), 0u);
            support::insertNote(part, 0);
        }
    }
}

// Asked about null, a clip says yes for each kind of part that it does not have.
TEST_P(MutableClipPart, NullStandsForThePartThatIsNotThere)
{
    EXPECT_TRUE(KRT_PLX_MutableClip_hasAudioPart(clip, nullptr));
    EXPECT_TRUE(KRT_PLX_MutableClip_hasMidiPart(clip, nullptr));
    kind.create(clip);
    EXPECT_EQ(KRT_PLX_MutableClip_hasAudioPart(clip, nullptr), !kind.isAudio());
    EXPECT_EQ(KRT_PLX_MutableClip_hasMidiPart(clip, nullptr), kind.isAudio());
}

TEST_P(MutableClipPart, OfAnotherClipIsForeign)
{
    KRT_PLX_ClipBase* const other = createMutableClip();
    KRT_PLX_PartBase* const foreign = kind.create(other);
    EXPECT_FALSE(KRT_PLX_MutableClip_hasAudioPart(clip, foreign));
    EXPECT_FALSE(KRT_PLX_MutableClip_hasMidiPart(clip, foreign));
    kind.create(clip);
    EXPECT_FALSE(KRT_PLX_MutableClip_hasAudioPart(clip, foreign));
    EXPECT_FALSE(KRT_PLX_MutableClip_hasMidiPart(clip, foreign));
}

TEST_P(MutableClipPart, LeavesThePropertiesAlone)
{
    KRT_PLX_MutableClip_setPartKey(clip, 7);
    KRT_PLX_MutableClip_setPartTempo(clip, 9000);
    KRT_PLX_MutableFilter_addType(KRT_PLX_MutableClip_filter(clip), text("Pop").c_str());
    kind.create(clip);
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(clip), 7u);
    EXPECT_EQ(KRT_PLX_ClipBase_partTempo(clip), 9000u);
    EXPECT_EQ(utf8(KRT_PLX_Filter_type(KRT_PLX_MutableClip_filter(clip), 0)), "Pop");
}

TEST_P(MutableClipPart, DiesWithTheClip)
{
    kind.create(clip);
    EXPECT_TRUE(KRT_PLX_MutableClip_destroy(clip));
    EXPECT_FALSE(isListed(clip));
}

TEST_P(MutableClipPart, RejectsTheFunctionsOfTheOtherKind)
{
    KRT_PLX_PartBase* const part = kind.create(clip);
    std::uint64_t count = 77;
    if (kind.isAudio()) {
        EXPECT_FALSE(KRT_PLX_MutableMidiPart_setDuration(part, 5));
        EXPECT_EQ(KRT_PLX_MutableMidiPart_parent(part), nullptr);
        EXPECT_EQ(support::insertNote(part, 0), nullptr);
        EXPECT_FALSE(KRT_PLX_MidiPartBase_numNotes(part, &count));
    } else {
        EXPECT_TRUE(KRT_PLX_MutableMidiPart_setDuration(part, 5));
        EXPECT_FALSE(KRT_PLX_MutableAudioPart_setRegion(part, 0, 1));
        EXPECT_EQ(KRT_PLX_MutableAudioPart_parent(part), nullptr);
        EXPECT_FALSE(KRT_PLX_AudioPartBase_numAudioEffects(part, &count));
    }
    EXPECT_EQ(count, 77u);
}

INSTANTIATE_TEST_SUITE_P(Kinds, MutableClipPart, testing::ValuesIn(partKinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

} // namespace
