// What else a property editor writes, for clips of every kind, and what is left when it cannot.
#include <limits>

#include "support/editing.h"
#include "support/full_disk.h"
#include "support/saving.h"

using support::Path;
using support::Text;
using support::text;
using support::utf8;

namespace {

class PropertyEditorSave : public HostTest {
protected:
    [[nodiscard]] Path folder() const { return userFolder() / "one"; }
    [[nodiscard]] Path document() const { return folder() / "property.json"; }

    // Reads what stands in the folder, which is one clip, and opens an editor with a name.
    void openEditor()
    {
        ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
        clip = userClip(0);
        ASSERT_NE(clip, nullptr);
        createEditor();
    }

    void createEditor()
    {
        editor = KRT_PLX_UserClip_createPropertyEditor(clip);
        EXPECT_TRUE(KRT_PLX_PropertyEditor_setClipName(editor, text("new").c_str()));
    }

    bool save() { return KRT_PLX_PropertyEditor_save(editor); }

    KRT_PLX_ClipBase* clip = nullptr;
    KRT_PLX_PropertyEditor* editor = nullptr;
};

// --- Kinds of clips -----------------------------------------------------------------------------------

TEST_F(PropertyEditorSave, OfAnAudioClipKeepsKeyAndTempoInMemoryAlone)
{
    support::addAudioClip(folder(), "ID");
    openEditor();
    KRT_PLX_PropertyEditor_setPartKey(editor, 5);
    KRT_PLX_PropertyEditor_setPartTempo(editor, 9000);
    EXPECT_TRUE(save());
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(clip), 5u);
    EXPECT_EQ(KRT_PLX_ClipBase_partTempo(clip), 9000u);
    EXPECT_EQ(support::readFile(document()), R"({"id":"ID","name":"new","part":{"type":"audio"}})");
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(userClip(0)), 0u);
    EXPECT_EQ(KRT_PLX_ClipBase_partTempo(userClip(0)), 0u);
    EXPECT_TRUE(KRT_PLX_Clip_readPart(userClip(0)));
}

TEST_F(PropertyEditorSave, WritesTheTypeOfThePropertyDocument)
{
    support::addClip(folder(), support::propertyDocument("ID", "midiAi"), support::midiDocument());
    openEditor();
    EXPECT_TRUE(save());
    EXPECT_THAT(support::readFile(document()), testing::HasSubstr(R"("type":"midiAi")"));
}

TEST_F(PropertyEditorSave, WritesTheTypeOfTheLoadedPart)
{
    support::addClip(folder(), support::propertyDocument("ID", "midiAi"), support::midiDocument());
    openEditor();
    ASSERT_TRUE(KRT_PLX_Clip_readPart(clip));
    EXPECT_TRUE(save());
    EXPECT_THAT(support::readFile(document()), testing::HasSubstr(R"("type":"midi")"));
    EXPECT_NE(KRT_PLX_Clip_midiPart(clip), nullptr);
}

TEST_F(PropertyEditorSave, GivesAClipThatStoodAloneItsPropertyDocument)
{
    support::addClip(folder(), std::nullopt, support::midiDocumentWithID("ALONE"));
    openEditor();
    EXPECT_FALSE(std::filesystem::exists(document()));
    EXPECT_TRUE(save());
    EXPECT_EQ(support::readFile(document()),
              R"({"id":"ALONE","name":"new","part":{"type":"midi","key":0}})");
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(userClip(0))), "new");
}

TEST_F(PropertyEditorSave, EditsAClipThatWasJustSaved)
{
    KRT_PLX_ClipBase* const built = createMutableClip();
    support::createMidiPart(built);
    clip = support::save(built, "built", support::Form::indented).clip;
    createEditor();
    EXPECT_TRUE(save());
    const std::string id = utf8(KRT_PLX_Clip_id(clip));
    EXPECT_EQ(support::readFile(userFolder() / id / "property.json"),
              R"({"id":")" + id + R"(","name":"new","part":{"type":"midi","key":0}})");
}

// --- A reference to a schema --------------------------------------------------------------------------

// It is for editors of text; the library writes what it knows, and that alone.
TEST_F(PropertyEditorSave, DropsAReferenceToASchema)
{
    support::addClip(folder(), R"({"$schema":"s","id":"ID","name":"old","part":{"type":"midi"}})",
                     support::midiDocument());
    openEditor();
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(clip)), "old");
    EXPECT_TRUE(save());
    EXPECT_EQ(support::readFile(document()),
              R"({"id":"ID","name":"new","part":{"type":"midi","key":0}})");
}

// --- Vendor tags --------------------------------------------------------------------------------------

std::uint64_t countVendors(KRT_PLX_ClipBase* clip)
{
    return support::countOf(KRT_PLX_Filter_numVendors, KRT_PLX_Clip_filter(clip));
}

// They follow from the document when it is read; in memory they stay.
TEST_F(PropertyEditorSave, ChangesVendorTagsOnDiskAlone)
{
    support::addClip(folder(),
                     support::propertyDocument(
                         "ID", "midi", R"(, "vendor": "Studio", "filter": {"types": ["x"]})"),
                     support::midiDocument());
    openEditor();
    ASSERT_EQ(countVendors(clip), 1u);
    EXPECT_TRUE(save()); // without a tag, the document has no filter any more
    EXPECT_EQ(countVendors(clip), 1u);
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_EQ(countVendors(userClip(0)), 0u);
}

TEST_F(PropertyEditorSave, GivesVendorTagsWithTheFirstTag)
{
    support::addClip(folder(), support::propertyDocument("ID"), support::midiDocument());
    openEditor();
    KRT_PLX_PropertyEditor_addFilterGenre(editor, text("x").c_str());
    EXPECT_TRUE(save());
    EXPECT_EQ(countVendors(clip), 0u);
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    ASSERT_EQ(countVendors(userClip(0)), 1u);
    EXPECT_EQ(utf8(KRT_PLX_Filter_vendor(KRT_PLX_Clip_filter(userClip(0)), 0)), "");
}

// --- Failures -----------------------------------------------------------------------------------------

class PropertyEditorFailure : public PropertyEditorSave {
protected:
    PropertyEditorFailure()
    {
        support::addClip(
            folder(),
            support::propertyDocument("ID", "midi", R"(, "filter": {"types": ["old type"]})"),
            support::midiDocument());
        openEditor();
        KRT_PLX_PropertyEditor_addFilterType(editor, text("new type").c_str());
        KRT_PLX_PropertyEditor_addFilterGenre(editor, text("new genre").c_str());
        KRT_PLX_PropertyEditor_setPartKey(editor, 5);
        KRT_PLX_PropertyEditor_setPartTempo(editor, 9000);
    }

    void expectOldProperties()
    {
        KRT_PLX_Filter* const filter = KRT_PLX_Clip_filter(clip);
        EXPECT_EQ(utf8(KRT_PLX_Clip_name(clip)), "Name of ID");
        EXPECT_EQ(KRT_PLX_ClipBase_partKey(clip), 0u);
        EXPECT_EQ(KRT_PLX_ClipBase_partTempo(clip), 0u);
        EXPECT_EQ(support::countOf(KRT_PLX_Filter_numTypes, filter), 1u);
        EXPECT_EQ(utf8(KRT_PLX_Filter_type(filter, 0)), "old type");
        EXPECT_EQ(support::countOf(KRT_PLX_Filter_numGenres, filter), 0u);
    }

    void expectNothingChanged()
    {
        const support::Tree before = support::treeOf(scratch());
        EXPECT_FALSE(save());
        expectOldProperties();
        EXPECT_EQ(support::treeOf(scratch()), before);
    }
};

TEST_F(PropertyEditorFailure, LoneSurrogatesLeaveTheDocumentUntouched)
{
    const Text badTexts[] = {support::units({'x', 0xD800}), support::units({0xDC00, 'x'}),
                             support::units({0xDC00, 0xD800})};
    for (const Text& bad : badTexts) {
        KRT_PLX_PropertyEditor_setClipName(editor, bad.c_str());
        expectNothingChanged();
    }
    createEditor();
    EXPECT_TRUE(KRT_PLX_PropertyEditor_addFilterType(editor, badTexts[0].c_str()));
    expectNothingChanged();
    createEditor();
    EXPECT_TRUE(KRT_PLX_PropertyEditor_addFilterGenre(editor, badTexts[1].c_str()));
    expectNothingChanged();
    createEditor();
    EXPECT_TRUE(save());
}

TEST_F(PropertyEditorFailure, AFolderInPlaceOfTheDocument)
{
    std::filesystem::remove(document());
    std::filesystem::create_directory(document());
    expectNothingChanged();
    std::filesystem::remove(document());
    EXPECT_TRUE(save());
}

TEST_F(PropertyEditorFailure, TheClipFolderIsGone)
{
    std::filesystem::remove_all(folder());
    expectNothingChanged();
}

TEST_F(PropertyEditorFailure, AFileInPlaceOfTheClipFolder)
{
    std::filesystem::remove_all(folder());
    support::writeFile(folder(), "");
    expectNothingChanged();
}

// The document is then as the failed write left it.
TEST_F(PropertyEditorFailure, TheDiskIsFull)
{
    for (const std::uint64_t size : {0u, 20u}) {
        const support::FileSizeLimit limited(size);
        if (!limited) {
            GTEST_SKIP() << "this system limits no file sizes";
        }
        EXPECT_FALSE(save());
        expectOldProperties();
    }
    EXPECT_TRUE(save());
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(clip)), "new");
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(userClip(0))), "new");
}

} // namespace
