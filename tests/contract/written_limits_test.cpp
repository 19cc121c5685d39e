// Property documents that would be too long: nothing is written.
#include "support/saving.h"

using support::Text;
using support::text;
using support::utf8;

namespace {

constexpr std::size_t limit = KRT_PLX_PROPERTY_DOCUMENT_LIMIT;

Text tagOf(std::size_t length)
{
    return Text(length, static_cast<KRT_PLX_Char>('t'));
}

class WrittenLimits : public SaveTest {
protected:
    // Saves a clip whose property document has that many bytes.
    support::SaveResult saveDocumentOf(std::size_t size)
    {
        KRT_PLX_ClipBase* const made = createMutableClip();
        support::createMidiPart(made);
        KRT_PLX_Filter* const filter = KRT_PLX_MutableClip_filter(made);
        const std::size_t others = withoutTag();
        EXPECT_TRUE(KRT_PLX_MutableFilter_addGenre(filter, tagOf(size - others).c_str()));
        return support::save(made);
    }

    // How long such a document is without the tag.
    std::size_t withoutTag()
    {
        if (withoutTag_ == 0) {
            KRT_PLX_ClipBase* const made = createMutableClip();
            support::createMidiPart(made);
            KRT_PLX_MutableFilter_addGenre(KRT_PLX_MutableClip_filter(made), text("t").c_str());
            withoutTag_ = documentsOf(support::save(made).clip).properties.size() - 1;
            withoutTag_ += 36 - std::string("ID").size(); // that is how the ID is shown
        }
        return withoutTag_;
    }

    std::size_t withoutTag_ = 0;
};

TEST_F(WrittenLimits, ADocumentAsLongAsTheLimitIsSavedAndRead)
{
    const support::SaveResult saved = saveDocumentOf(limit);
    ASSERT_EQ(saved.code, KRT_PLX_RESULT_OK);
    const std::string id = utf8(KRT_PLX_Clip_id(saved.clip));
    EXPECT_EQ(std::filesystem::file_size(userFolder() / id / "property.json"), limit);
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_NE(support::findUserClip(manager(), id), nullptr);
}

TEST_F(WrittenLimits, ALongerDocumentIsNotSaved)
{
    withoutTag();
    const support::Tree before = support::treeOf(scratch());
    const support::SaveResult saved = saveDocumentOf(limit + 1);
    EXPECT_EQ(saved.clip, nullptr);
    EXPECT_EQ(saved.code, KRT_PLX_RESULT_FILE_NOT_WRITTEN);
    EXPECT_EQ(support::treeOf(scratch()), before);
    EXPECT_EQ(support::userClipCount(manager()), 1u);
}

// Whatever else is wrong: this is found first, before any file is opened.
TEST_F(WrittenLimits, ALongerDocumentComesBeforeAWaveFileThatIsMissing)
{
    const support::Path wave = addWaveFile();
    support::createAudioPart(clip, wave);
    std::filesystem::remove(wave);
    KRT_PLX_MutableFilter_addGenre(KRT_PLX_MutableClip_filter(clip), tagOf(limit).c_str());
    const support::SaveResult saved = support::save(clip);
    EXPECT_EQ(saved.code, KRT_PLX_RESULT_FILE_NOT_WRITTEN);
    EXPECT_TRUE(std::filesystem::is_empty(userFolder()));
}

TEST_F(WrittenLimits, ALongerDocumentIsNotWrittenByAnEdit)
{
    support::addClip(userFolder() / "one",
                     support::propertyDocument("ID", "midi", R"(, "filter": {"types": ["old"]})"),
                     support::midiDocument());
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    KRT_PLX_PropertyEditor* editor = KRT_PLX_UserClip_createPropertyEditor(userClip(0));
    ASSERT_TRUE(KRT_PLX_PropertyEditor_setClipName(editor, text("new").c_str()));
    ASSERT_TRUE(KRT_PLX_PropertyEditor_addFilterType(editor, tagOf(limit).c_str()));
    const support::Tree before = support::treeOf(scratch());
    EXPECT_FALSE(KRT_PLX_PropertyEditor_save(editor));
    EXPECT_EQ(support::treeOf(scratch()), before);
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(userClip(0))), "Name of ID");

    editor = KRT_PLX_UserClip_createPropertyEditor(userClip(0));
    ASSERT_TRUE(KRT_PLX_PropertyEditor_setClipName(editor, text("new").c_str()));
    EXPECT_TRUE(KRT_PLX_PropertyEditor_save(editor));
}

} // namespace
