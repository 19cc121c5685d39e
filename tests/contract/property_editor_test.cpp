// The property editor: what its setters take, what saving changes in the clip and on disk, and how long
// an editor lives.

#include "support/editing.h"
#include "support/limits.h"
#include "support/properties.h"
#include "support/saving.h"

using support::largestUnsigned;
using support::Path;
using support::text;
using support::utf8;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const auto& [singerGroupTags, singerIDTags, typeTags, genreTags, tagsOfVendors] = support::tagLists;

// A user clip with one of every property, "old" in its texts.
class PropertyEditorTest : public HostTest {
protected:
    static constexpr const char* oldDocument = R"({"id": "ID", "name": "old name",
        "vendor": "Studio", "future": {"key": [1, 2]},
        "filter": {"singerGroups": ["Choir"], "languages": [4, 0], "singerIDs": ["singer"],
                   "types": ["old type"], "genres": ["old genre"], "vendors": ["Nobody"]},
        "part": {"type": "midi", "key": 7, "tempo": 9000, "colour": "red"}})";

    [[nodiscard]] Path document() const { return userFolder() / "one" / "property.json"; }
    [[nodiscard]] std::string documentText() const { return support::readFile(document()); }

    // Every text of one of the clip's tag lists.
    static std::vector<std::string> tags(KRT_PLX_ClipBase* of, const support::TagList& list)
    {
        std::vector<std::string> texts;
        KRT_PLX_Filter* const filter = KRT_PLX_Clip_filter(of);
        for (const KRT_PLX_Char* tag : support::elementsOf(list.count, list.at, filter)) {
            texts.push_back(utf8(tag));
        }
        return texts;
    }
    static std::vector<std::string> types(KRT_PLX_ClipBase* of) { return tags(of, typeTags); }
    static std::vector<std::string> genres(KRT_PLX_ClipBase* of) { return tags(of, genreTags); }
    static std::vector<std::string> vendors(KRT_PLX_ClipBase* of)
    {
        return tags(of, tagsOfVendors);
    }

    void expectUntouchedCategories(KRT_PLX_ClipBase* of)
    {
        KRT_PLX_Filter* const filter = KRT_PLX_Clip_filter(of);
        EXPECT_THAT(tags(of, singerGroupTags), ElementsAre("Choir"));
        EXPECT_THAT(tags(of, singerIDTags), ElementsAre("singer"));
        EXPECT_EQ(KRT_PLX_Filter_language(filter, 0), 4);
        EXPECT_EQ(KRT_PLX_Filter_language(filter, 1), 0);
        EXPECT_EQ(support::countOf(KRT_PLX_Filter_numLanguages, filter), 2u);
        EXPECT_THAT(vendors(of), ElementsAre("Studio"));
    }

    void expectOldProperties()
    {
        EXPECT_EQ(utf8(KRT_PLX_Clip_name(clip)), "old name");
        EXPECT_EQ(KRT_PLX_ClipBase_partKey(clip), 7u);
        EXPECT_EQ(KRT_PLX_ClipBase_partTempo(clip), 9000u);
        EXPECT_THAT(types(clip), ElementsAre("old type"));
        EXPECT_THAT(genres(clip), ElementsAre("old genre"));
        expectUntouchedCategories(clip);
    }

    bool setName(const char* name)
    {
        return KRT_PLX_PropertyEditor_setClipName(editor, text(name).c_str());
    }
    bool addType(const char* type)
    {
        return KRT_PLX_PropertyEditor_addFilterType(editor, text(type).c_str());
    }
    bool addGenre(const char* genre)
    {
        return KRT_PLX_PropertyEditor_addFilterGenre(editor, text(genre).c_str());
    }
    bool save() { return KRT_PLX_PropertyEditor_save(editor); }

    // The clip as it is read anew. The old handle is dead then.
    KRT_PLX_ClipBase* reread()
    {
        EXPECT_EQ(KRT_PLX_Manager_readUserClipFiles(manager()), KRT_PLX_RESULT_OK);
        return userClip(0);
    }

    KRT_PLX_ClipBase* const clip = readUserClip(oldDocument, support::midiDocument());
    KRT_PLX_PropertyEditor* editor = KRT_PLX_UserClip_createPropertyEditor(clip);
};

// --- Setters ----------------------------------------------------------------------------------------

TEST_F(PropertyEditorTest, TakesAnyNameButAnEmptyOne)
{
    EXPECT_FALSE(KRT_PLX_PropertyEditor_setClipName(editor, nullptr));
    EXPECT_FALSE(setName(""));
    EXPECT_TRUE(setName("first"));
    EXPECT_FALSE(setName(""));
    EXPECT_FALSE(KRT_PLX_PropertyEditor_setClipName(editor, nullptr));
    EXPECT_TRUE(save());
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(clip)), "first");
}

TEST_F(PropertyEditorTest, TakesEachTypeAndGenreOnce)
{
    for (const auto add :
         {KRT_PLX_PropertyEditor_addFilterType, KRT_PLX_PropertyEditor_addFilterGenre}) {
        EXPECT_FALSE(add(editor, nullptr));
        EXPECT_FALSE(add(editor, text("").c_str()));
        EXPECT_TRUE(add(editor, text("Pop").c_str()));
        EXPECT_FALSE(add(editor, text("Pop").c_str()));
        EXPECT_TRUE(add(editor, text("pop").c_str()));
    }
    setName("new");
    EXPECT_TRUE(save());
    EXPECT_THAT(types(clip), ElementsAre("Pop", "pop"));
    EXPECT_THAT(genres(clip), ElementsAre("Pop", "pop"));
}

TEST_F(PropertyEditorTest, TakesKeysUpTo30)
{
    setName("new");
    EXPECT_TRUE(KRT_PLX_PropertyEditor_setPartKey(editor, 30));
    EXPECT_FALSE(KRT_PLX_PropertyEditor_setPartKey(editor, 31));
    EXPECT_FALSE(KRT_PLX_PropertyEditor_setPartKey(editor, largestUnsigned));
    EXPECT_TRUE(save());
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(clip), 30u);
    EXPECT_TRUE(KRT_PLX_PropertyEditor_setPartKey(editor, 0));
    EXPECT_TRUE(save());
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(clip), 0u);
}

TEST_F(PropertyEditorTest, TakesNoTempoAndTemposFrom2000To30000)
{
    setName("new");
    for (const std::uint32_t tempo : {2000u, 30000u, 0u}) {
        EXPECT_TRUE(KRT_PLX_PropertyEditor_setPartTempo(editor, tempo));
        for (const std::uint32_t refused : {1u, 1999u, 30001u, largestUnsigned}) {
            EXPECT_FALSE(KRT_PLX_PropertyEditor_setPartTempo(editor, refused));
        }
        EXPECT_TRUE(save());
        EXPECT_EQ(KRT_PLX_ClipBase_partTempo(clip), tempo);
    }
}

TEST_F(PropertyEditorTest, ChangesNothingBeforeItIsSaved)
{
    setName("new");
    addType("new type");
    addGenre("new genre");
    KRT_PLX_PropertyEditor_setPartKey(editor, 1);
    KRT_PLX_PropertyEditor_setPartTempo(editor, 2000);
    expectOldProperties();
    EXPECT_EQ(documentText(), oldDocument);
}

TEST_F(PropertyEditorTest, TakesTextsOfItsOwnClip)
{
    EXPECT_TRUE(KRT_PLX_PropertyEditor_setClipName(editor, KRT_PLX_Clip_name(clip)));
    EXPECT_TRUE(KRT_PLX_PropertyEditor_addFilterType(
        editor, KRT_PLX_Filter_type(KRT_PLX_Clip_filter(clip), 0)));
    EXPECT_TRUE(KRT_PLX_PropertyEditor_addFilterGenre(
        editor, KRT_PLX_Filter_genre(KRT_PLX_Clip_filter(clip), 0)));
    EXPECT_TRUE(KRT_PLX_PropertyEditor_setPartKey(editor, KRT_PLX_ClipBase_partKey(clip)));
    EXPECT_TRUE(KRT_PLX_PropertyEditor_setPartTempo(editor, KRT_PLX_ClipBase_partTempo(clip)));
    EXPECT_TRUE(save());
    expectOldProperties();
}

// --- Saving -----------------------------------------------------------------------------------------

TEST_F(PropertyEditorTest, WithoutANameIsNotSaved)
{
    addType("new type");
    KRT_PLX_PropertyEditor_setPartKey(editor, 1);
    EXPECT_FALSE(save());
    expectOldProperties();
    EXPECT_EQ(documentText(), oldDocument);
}

TEST_F(PropertyEditorTest, ChangesTheClipAtOnceWhenItIsSaved)
{
    setName("new name");
    addType("new type");
    addGenre("new genre");
    KRT_PLX_PropertyEditor_setPartKey(editor, 1);
    KRT_PLX_PropertyEditor_setPartTempo(editor, 2345);
    EXPECT_TRUE(save());
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(clip)), "new name");
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(clip), 1u);
    EXPECT_EQ(KRT_PLX_ClipBase_partTempo(clip), 2345u);
    EXPECT_THAT(types(clip), ElementsAre("new type"));
    EXPECT_THAT(genres(clip), ElementsAre("new genre"));
    expectUntouchedCategories(clip);
    EXPECT_EQ(utf8(KRT_PLX_Clip_id(clip)), "ID");
    EXPECT_EQ(KRT_PLX_ClipBase_partType(clip), KRT_PLX_PART_MIDI);
}

TEST_F(PropertyEditorTest, ChangesTheDocumentWhenItIsSaved)
{
    setName("new name");
    addType("new type");
    addGenre("new genre");
    KRT_PLX_PropertyEditor_setPartKey(editor, 1);
    KRT_PLX_PropertyEditor_setPartTempo(editor, 2345);
    const std::string data = support::readFile(userFolder() / "one" / "clip.kxclip");
    EXPECT_TRUE(save());
    EXPECT_EQ(documentText(),
              R"({"id":"ID","name":"new name","vendor":"Studio",)"
              R"("filter":{"singerGroups":["Choir"],"languages":[4,0],"singerIDs":["singer"],)"
              R"("types":["new type"],"genres":["new genre"]},)"
              R"("part":{"type":"midi","key":1,"tempo":2345}})");
    EXPECT_EQ(support::readFile(userFolder() / "one" / "clip.kxclip"), data);
}

TEST_F(PropertyEditorTest, GivesBackWhatItWrote)
{
    setName("ä \"𠮷\" \\ \n");
    addType("b");
    addType("a");
    KRT_PLX_PropertyEditor_setPartKey(editor, 30);
    EXPECT_TRUE(save());
    KRT_PLX_ClipBase* const found = reread();
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(found)), "ä \"𠮷\" \\ \n");
    EXPECT_THAT(types(found), ElementsAre("a", "b"));
    EXPECT_THAT(genres(found), IsEmpty());
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(found), 30u);
    EXPECT_EQ(KRT_PLX_ClipBase_partTempo(found), 0u);
    expectUntouchedCategories(found);
    EXPECT_TRUE(KRT_PLX_Clip_readPart(found));
}

TEST_F(PropertyEditorTest, WithANameAloneEmptiesTheRest)
{
    setName("new");
    EXPECT_TRUE(save());
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(clip), 0u);
    EXPECT_EQ(KRT_PLX_ClipBase_partTempo(clip), 0u);
    EXPECT_THAT(types(clip), IsEmpty());
    EXPECT_THAT(genres(clip), IsEmpty());
    EXPECT_EQ(documentText(),
              R"({"id":"ID","name":"new","vendor":"Studio",)"
              R"("filter":{"singerGroups":["Choir"],"languages":[4,0],"singerIDs":["singer"]},)"
              R"("part":{"type":"midi","key":0}})");
}

// By their UTF-16 units: capital letters first, and surrogate pairs before U+FFxx.
TEST_F(PropertyEditorTest, SortsTypesAndGenres)
{
    setName("new");
    for (const char* const tag : {"さ", "b", "\xEE\x80\x80", "ba", "B", "𠮷", "a"}) {
        EXPECT_TRUE(addType(tag));
        EXPECT_TRUE(addGenre(tag));
    }
    EXPECT_TRUE(save());
    const auto sorted = ElementsAre("B", "a", "b", "ba", "さ", "𠮷", "\xEE\x80\x80");
    EXPECT_THAT(types(clip), sorted);
    EXPECT_THAT(genres(clip), sorted);
    KRT_PLX_ClipBase* const found = reread();
    EXPECT_THAT(types(found), sorted);
    EXPECT_THAT(genres(found), sorted);
}

TEST_F(PropertyEditorTest, CanBeSavedAgainAndKeepsItsValues)
{
    setName("new");
    addType("b");
    KRT_PLX_PropertyEditor_setPartKey(editor, 3);
    EXPECT_TRUE(save());
    const std::string first = documentText();
    EXPECT_TRUE(save());
    EXPECT_EQ(documentText(), first);
    addType("a");
    EXPECT_TRUE(save());
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(clip)), "new");
    EXPECT_THAT(types(clip), ElementsAre("a", "b"));
    EXPECT_EQ(KRT_PLX_ClipBase_partKey(clip), 3u);
}

TEST_F(PropertyEditorTest, ShortensTheDocument)
{
    const std::string name(5000, 'x');
    setName(name.c_str());
    EXPECT_TRUE(save());
    setName("x");
    EXPECT_TRUE(save());
    EXPECT_LT(documentText().size(), 300u);
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(reread())), "x");
}

TEST_F(PropertyEditorTest, MakesTheDocumentThatIsMissing)
{
    std::filesystem::remove(document());
    setName("new");
    EXPECT_TRUE(save());
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(reread())), "new");
}

// --- An editor's life -------------------------------------------------------------------------------

TEST_F(PropertyEditorTest, StartsEmptyWheneverItIsCreated)
{
    setName("new");
    editor = KRT_PLX_UserClip_createPropertyEditor(clip);
    ASSERT_NE(editor, nullptr);
    EXPECT_FALSE(save());
    expectOldProperties();
}

TEST_F(PropertyEditorTest, CanBeDestroyedByAnyArgument)
{
    support::addClip(userFolder() / "two", support::propertyDocument("TWO"),
                     support::midiDocument());
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    KRT_PLX_ClipBase* const one = support::findUserClip(manager(), "ID");
    KRT_PLX_ClipBase* const two = support::findUserClip(manager(), "TWO");
    KRT_PLX_PropertyEditor* const foreign = KRT_PLX_UserClip_createPropertyEditor(two);
    for (KRT_PLX_PropertyEditor* const argument :
         {static_cast<KRT_PLX_PropertyEditor*>(nullptr), foreign}) {
        KRT_PLX_PropertyEditor* const own = KRT_PLX_UserClip_createPropertyEditor(one);
        ASSERT_NE(own, nullptr);
        KRT_PLX_UserClip_destroyPropertyEditor(one, argument);
        KRT_PLX_UserClip_destroyPropertyEditor(one, own); // it is gone already
    }
    EXPECT_TRUE(KRT_PLX_PropertyEditor_setClipName(foreign, text("second").c_str()));
    EXPECT_TRUE(KRT_PLX_PropertyEditor_save(foreign));
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(two)), "second");
    EXPECT_EQ(utf8(KRT_PLX_Clip_name(one)), "old name");
}

TEST_F(PropertyEditorTest, IsNotDestroyedThroughAnotherClip)
{
    setName("new");
    KRT_PLX_UserClip_destroyPropertyEditor(nullptr, editor);
    KRT_PLX_UserClip_destroyPropertyEditor(createMutableClip(), editor);
    EXPECT_TRUE(save());
}

TEST_F(PropertyEditorTest, OfSystemClipsThereIsNone)
{
    KRT_PLX_ClipBase* const system =
        readSystemClip(support::propertyDocument("SYSTEM"), support::midiDocument());
    EXPECT_EQ(KRT_PLX_UserClip_createPropertyEditor(system), nullptr);
    EXPECT_EQ(KRT_PLX_UserClip_createPropertyEditor(nullptr), nullptr);
    EXPECT_EQ(KRT_PLX_UserClip_createPropertyEditor(createMutableClip()), nullptr);
}

} // namespace
