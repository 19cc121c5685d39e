// Editing a clip whose property document is a link: what it leads to is neither written nor made. Where
// the system at hand makes no links, or does not tell them from files, the test says so and is skipped.
#include "support/saving.h"
#include "support/temp_dir.h"

using support::Path;
using support::pathText;
using support::readFile;
using support::text;
using support::utf8;
using support::writeFile;

namespace {

class PropertyEditorNames : public HostTest {
protected:
    void SetUp() override
    {
        writeFile(document(), support::propertyDocument("ID"));
        writeFile(userFolder() / "one" / "clip.kxclip", support::midiDocumentWithID("ID"));
        writeFile(precious(), support::propertyDocument("ID"));
        ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
        std::filesystem::remove(document());
    }

    [[nodiscard]] Path document() const { return userFolder() / "one" / "property.json"; }
    [[nodiscard]] Path precious() const { return scratch() / "precious"; }

    bool edit()
    {
        KRT_PLX_PropertyEditor* const editor = KRT_PLX_UserClip_createPropertyEditor(userClip(0));
        EXPECT_TRUE(KRT_PLX_PropertyEditor_setClipName(editor, text("new").c_str()));
        return KRT_PLX_PropertyEditor_save(editor);
    }
};

class PropertyEditorLinks : public PropertyEditorNames {
protected:
    void SetUp() override
    {
        PropertyEditorNames::SetUp();
        if (support::isEmulatedWindows()) {
            GTEST_SKIP() << "an emulated Windows does not tell links from files";
        }
        if (!support::makeLink(pathText(document()), pathText(precious()))) {
            GTEST_SKIP() << "no links here";
        }
    }

    void expectRefused()
    {
        const support::Tree before = support::treeOf(scratch());
        const std::string name = utf8(KRT_PLX_Clip_name(userClip(0)));
        EXPECT_FALSE(edit());
        EXPECT_EQ(support::treeOf(scratch()), before);
        EXPECT_EQ(utf8(KRT_PLX_Clip_name(userClip(0))), name);
    }
};

TEST_F(PropertyEditorLinks, ToADocument)
{
    expectRefused();
}

TEST_F(PropertyEditorLinks, ToADocumentFromWhichTheClipWasRead)
{
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    ASSERT_EQ(support::userClipCount(manager()), 1u); // for reading, links are followed
    expectRefused();
}

TEST_F(PropertyEditorLinks, ToAnEmptyFile)
{
    writeFile(precious(), "");
    expectRefused();
}

TEST_F(PropertyEditorLinks, ToNothing)
{
    std::filesystem::remove(precious());
    expectRefused();
    EXPECT_FALSE(std::filesystem::exists(precious()));
}

TEST_F(PropertyEditorLinks, ToItself)
{
    std::filesystem::remove(document());
    ASSERT_TRUE(support::makeLink(pathText(document()), pathText(document())));
    expectRefused();
}

TEST_F(PropertyEditorLinks, ToAFolder)
{
    std::filesystem::remove(precious());
    writeFile(precious() / "inner", "mine");
    expectRefused();
}

TEST_F(PropertyEditorLinks, ToTheClipFileBesideIt)
{
    std::filesystem::remove(document());
    ASSERT_TRUE(
        support::makeLink(pathText(document()), pathText(userFolder() / "one" / "clip.kxclip")));
    expectRefused();
}

// Another name of the same file is not a link that leads somewhere.
TEST_F(PropertyEditorNames, OfTheFileItselfAreWritten)
{
    std::filesystem::create_hard_link(precious(), document());
    EXPECT_TRUE(edit());
    EXPECT_THAT(readFile(precious()), testing::HasSubstr(R"("name":"new")"));
}

} // namespace
