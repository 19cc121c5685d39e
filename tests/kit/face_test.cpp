// The kit by its C++ face, in C++17.
#include <gmock/gmock.h>

#include <korvel/plx.hpp>

#include "support/saving.h"

namespace {

namespace plx = korvel::plx;
using support::text;
using testing::ElementsAre;
using testing::IsEmpty;

class KitFace : public SaveTest {
protected:
    // A clip of two notes, saved.
    plx::Clip song()
    {
        KRT_PLX_PartBase* const part = support::createMidiPart(clip);
        const plx::MutableClip own(clip);
        own.setPartTempo(9000);
        own.filter().addGenre(text("Folk"));
        plx::MutableMidiPart(part).insertNote(0, 480, text("la"), text("l a"), 1).setNumber(60);
        plx::MutableMidiPart(part).insertNote(480, 480, text("la"), text("l a"), 1).setNumber(125);
        return own.save(text("Song")).clip;
    }
};

TEST_F(KitFace, ChangesAClipThatExists)
{
    const plx::EditResult copy = plx::edit(song());
    ASSERT_TRUE(copy);
    EXPECT_TRUE(plx::transpose(copy.clip.midiPart(), 2));
    EXPECT_TRUE(plx::moveInTime(copy.clip.midiPart(), -480));
    EXPECT_TRUE(plx::cut(copy.clip.midiPart(), 0, 240));
    const plx::SaveResult saved = copy.clip.save(text("Higher"));
    copy.clip.destroy();
    ASSERT_TRUE(saved);
    saved.clip.readPart();
    EXPECT_EQ(saved.clip.partTempo(), 9000u);
    ASSERT_EQ(saved.clip.midiPart().numNotes(), 1u);
    EXPECT_EQ(saved.clip.midiPart().note(0).number(), 127u);
    EXPECT_EQ(saved.clip.midiPart().note(0).duration(), 240);
}

TEST_F(KitFace, TellsWhatCannotBeDone)
{
    const plx::EditResult copy = plx::edit(song());
    EXPECT_THAT(copy.notices, IsEmpty());
    const plx::ChangeResult result = plx::transpose(copy.clip.midiPart(), 3);
    EXPECT_FALSE(result);
    ASSERT_EQ(result.notices.size(), 1u);
    EXPECT_EQ(result.notices[0].item, plx::Item::note);
    EXPECT_EQ(result.notices[0].reason, plx::Reason::outOfRange);
    EXPECT_EQ(result.notices[0].property, "number");
    EXPECT_EQ(result.notices[0].index, 1u);
    EXPECT_EQ(result.notices[0].text, "note 2 at 480: number: would be out of range");
    copy.clip.createMidiPart();
    EXPECT_EQ(plx::checkSaving(copy.clip).size(), 2u);
    EXPECT_FALSE(plx::edit(plx::Clip()));
}

TEST_F(KitFace, FillsAnEditableClipAndAnEditor)
{
    const plx::UserClip found = song().asUserClip();
    const plx::MutableClip target(createMutableClip());
    EXPECT_TRUE(plx::fill(target, found));
    EXPECT_EQ(target.midiPart().numNotes(), 2u);
    const plx::PropertyEditor editor = found.createPropertyEditor();
    EXPECT_TRUE(editor.fill(found));
    EXPECT_TRUE(editor.setClipName(text("New")));
    EXPECT_TRUE(editor.save());
    EXPECT_EQ(found.partTempo(), 9000u);
    EXPECT_EQ(found.filter().numGenres(), 1u);
    EXPECT_FALSE(editor.fill(found)); // it has the genre already
    EXPECT_FALSE(editor.fill(plx::Clip()));
    EXPECT_FALSE(plx::PropertyEditor().fill(found));
}

TEST_F(KitFace, FindsClips)
{
    const plx::Clip found = song();
    const plx::Manager all(manager());
    plx::Query query;
    EXPECT_THAT(plx::find(all, query), ElementsAre(found));
    query.name = text("sOn");
    query.genres = {text("pop"), text("FOLK")};
    query.lowestTempo = 9000;
    EXPECT_THAT(plx::find(all, query), ElementsAre(found));
    query.languages = {1};
    EXPECT_THAT(plx::find(all, query), IsEmpty());
    query.languages.clear();
    query.key = 1;
    EXPECT_THAT(plx::find(all, query), IsEmpty());
}

TEST_F(KitFace, GivesTheTextOfAResult)
{
    EXPECT_EQ(plx::textOf(plx::Result::noPart), "the clip has no part");
    EXPECT_EQ(plx::textOf(plx::MutableClip(clip).save(text("x")).code), "the clip has no part");
}

} // namespace
