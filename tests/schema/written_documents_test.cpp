// Every document that the library writes is valid.
#include "schema.h"
#include "support/random_clip.h"
#include "support/saving.h"

using schema::parse;
using schema::Schema;
using support::Form;

namespace {

class WrittenDocumentsTest : public SaveTest {
protected:
    void expectValid(const Documents& documents)
    {
        EXPECT_EQ(properties_.complaint(parse(documents.properties)), "") << documents.properties;
        EXPECT_EQ(data_.complaint(parse(documents.data)), "") << documents.data;
    }

    const Schema properties_{"property"};
    const Schema data_{"data"};
};

TEST_F(WrittenDocumentsTest, OfRandomClips)
{
    const support::Path wave = addWaveFile();
    support::Random random(606);
    for (int i = 0; i < 150; ++i) {
        support::fillRandomly(clip, random, wave);
        expectValid(save(random.oneIn(2) ? Form::compact : Form::indented));
        if (HasFailure()) {
            break;
        }
    }
}

TEST_F(WrittenDocumentsTest, OfClipsWithTheLeast)
{
    support::createMidiPart(clip);
    expectValid(save());
    support::createMidiAiPart(clip);
    expectValid(save());
    support::createAudioPart(clip, addWaveFile());
    expectValid(save());
}

TEST_F(WrittenDocumentsTest, OfAnEditedClip)
{
    support::createMidiPart(clip);
    KRT_PLX_ClipBase* const saved = support::save(clip).clip;
    KRT_PLX_PropertyEditor* const editor = KRT_PLX_UserClip_createPropertyEditor(saved);
    EXPECT_TRUE(KRT_PLX_PropertyEditor_setClipName(editor, support::text("Another").c_str()));
    EXPECT_TRUE(KRT_PLX_PropertyEditor_addFilterType(editor, support::text("Verse").c_str()));
    EXPECT_TRUE(KRT_PLX_PropertyEditor_setPartKey(editor, 30));
    EXPECT_TRUE(KRT_PLX_PropertyEditor_setPartTempo(editor, 2000));
    ASSERT_TRUE(KRT_PLX_PropertyEditor_save(editor));
    expectValid(documentsOf(saved));
}

} // namespace
