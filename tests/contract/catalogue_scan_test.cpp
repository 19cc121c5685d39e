// Which files below a clip directory become clips, and from which document.
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "support/host.h"

using support::addClip;
using support::midiDocument;
using support::midiDocumentWithID;
using support::Path;
using support::pathText;
using support::place;
using support::propertyDocument;
using support::utf8;
using support::writeFile;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

class CatalogueScan : public HostTest {
protected:
    std::vector<std::string> systemIDs()
    {
        EXPECT_EQ(read(), KRT_PLX_RESULT_OK);
        return support::systemClipIDs(manager());
    }

    std::vector<std::string> userIDs()
    {
        EXPECT_EQ(read(), KRT_PLX_RESULT_OK);
        return support::userClipIDs(manager());
    }
};

TEST_F(CatalogueScan, OfEmptyDirectoriesListsNothing)
{
    EXPECT_THAT(systemIDs(), IsEmpty());
    EXPECT_THAT(userIDs(), IsEmpty());
}

TEST_F(CatalogueScan, ListsTheClipsOfBothKinds)
{
    addClip(systemFolder() / "a", propertyDocument("a"), midiDocument());
    addClip(userFolder() / "b", propertyDocument("b"), midiDocument());
    addClip(userFolder() / "c", propertyDocument("c"), midiDocument());

    EXPECT_THAT(systemIDs(), ElementsAre("a"));
    EXPECT_THAT(userIDs(), UnorderedElementsAre("b", "c"));
}

// --- The extension -----------------------------------------------------------------------------------

struct FileName {
    const char* name;
    bool isClip;
};

class FileNames : public CatalogueScan, public testing::WithParamInterface<FileName> {};

TEST_P(FileNames, AreClipFilesByTheirExtension)
{
    writeFile(systemFolder() / GetParam().name, midiDocumentWithID("id"));

    EXPECT_EQ(systemIDs().size(), GetParam().isClip ? 1U : 0U) << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(
    Names, FileNames,
    testing::Values(FileName{"clip.kxclip", true}, FileName{".kxclip", true},
                    FileName{"a.b.kxclip", true}, FileName{"a..kxclip", true},
                    FileName{"a b.kxclip", true}, FileName{"property.json.kxclip", true},
                    FileName{"clip.KXCLIP", false}, FileName{"clip.Kxclip", false},
                    FileName{"clip.kxclip.bak", false}, FileName{"clip.kxclips", false},
                    FileName{"clip.kxcli", false}, FileName{"clip.xkxclip", false},
                    FileName{"kxclip", false}, FileName{"clipkxclip", false},
                    FileName{"clip", false}, FileName{"clip.json", false}));

TEST_F(CatalogueScan, ListsACapitalExtensionOnceItIsWrittenSmall)
{
    writeFile(systemFolder() / "clip.KXCLIP", midiDocumentWithID("id"));
    EXPECT_THAT(systemIDs(), IsEmpty());

    std::filesystem::rename(systemFolder() / "clip.KXCLIP", systemFolder() / "other.kxclip");
    EXPECT_THAT(systemIDs(), ElementsAre("id"));
}

TEST_F(CatalogueScan, TakesNoExtensionFromAFolder)
{
    writeFile(systemFolder() / "set.kxclip" / "clip", midiDocumentWithID("a"));
    writeFile(systemFolder() / "set.kxclip" / "kxclip", midiDocumentWithID("b"));

    EXPECT_THAT(systemIDs(), IsEmpty());
}

TEST_F(CatalogueScan, DescendsIntoFoldersWithDots)
{
    addClip(systemFolder() / "v1.0", propertyDocument("a"), midiDocument());
    addClip(systemFolder() / "set.kxclip", propertyDocument("b"), midiDocument());
    addClip(systemFolder() / ".hidden", propertyDocument("c"), midiDocument());
    addClip(systemFolder() / "..up" / "..x", propertyDocument("d"), midiDocument());

    EXPECT_THAT(systemIDs(), UnorderedElementsAre("a", "b", "c", "d"));
}

TEST_F(CatalogueScan, ListsNoFolderAsAClip)
{
    std::filesystem::create_directories(systemFolder() / "empty.kxclip");
    addClip(systemFolder() / "folder.kxclip", propertyDocument("property"), std::nullopt);

    EXPECT_THAT(systemIDs(), IsEmpty());
}

// --- Depth and order -----------------------------------------------------------------------------------

TEST_F(CatalogueScan, FindsClipsAtAnyDepth)
{
    Path folder = systemFolder();
    writeFile(folder / "0.kxclip", midiDocumentWithID("0"));
    for (int depth = 1; depth <= 20; ++depth) {
        folder /= "d";
        const std::string id = std::to_string(depth);
        writeFile(folder / (id + ".kxclip"), midiDocumentWithID(id));
    }

    EXPECT_EQ(systemIDs().size(), 21U);
    EXPECT_NE(support::findSystemClip(manager(), "20"), nullptr);
}

TEST_F(CatalogueScan, ListsASubfolderInFullBeforeTheNextEntry)
{
    for (const char* folder : {"a", "b", "c"}) {
        for (const char* number : {"1", "2", "3"}) {
            const std::string id = std::string(folder) + number;
            writeFile(systemFolder() / folder / "deeper" / (id + ".kxclip"),
                      midiDocumentWithID(id));
            writeFile(systemFolder() / folder / (id + "x.kxclip"), midiDocumentWithID(id + "x"));
        }
    }

    std::string folders;
    for (const std::string& id : systemIDs()) {
        folders += id.front();
    }
    ASSERT_EQ(folders.size(), 18U);
    folders.erase(std::unique(folders.begin(), folders.end()), folders.end());
    EXPECT_EQ(folders.size(), 3U) << "the clips of a folder are not together: " << folders;
}

TEST_F(CatalogueScan, ListsManyClips)
{
    for (int i = 0; i < 500; ++i) {
        writeFile(systemFolder() / (std::to_string(i) + ".kxclip"),
                  midiDocumentWithID(std::to_string(i)));
    }

    std::vector<std::string> ids = systemIDs();
    std::sort(ids.begin(), ids.end());
    EXPECT_EQ(std::unique(ids.begin(), ids.end()) - ids.begin(), 500);
}

// --- Which document -----------------------------------------------------------------------------------

TEST_F(CatalogueScan, PrefersThePropertyDocument)
{
    addClip(systemFolder() / "a", propertyDocument("property"), midiDocumentWithID("data"));

    EXPECT_THAT(systemIDs(), ElementsAre("property"));
}

TEST_F(CatalogueScan, DoesNotLookAtTheClipFileWhenThereIsAPropertyDocument)
{
    addClip(systemFolder() / "a", propertyDocument("broken"), "{");
    addClip(systemFolder() / "b", propertyDocument("empty"), "");
    addClip(systemFolder() / "c", propertyDocument("no document"), "\xFF\xFE\xFD");

    EXPECT_THAT(systemIDs(), UnorderedElementsAre("broken", "empty", "no document"));
}

TEST_F(CatalogueScan, ListsNothingForAPropertyDocumentAlone)
{
    addClip(systemFolder() / "a", propertyDocument("a"), std::nullopt);

    EXPECT_THAT(systemIDs(), IsEmpty());
}

TEST_F(CatalogueScan, TakesThePropertyDocumentFromTheSameFolderOnly)
{
    writeFile(systemFolder() / "property.json", propertyDocument("above"));
    addClip(systemFolder() / "a", std::nullopt, midiDocumentWithID("own"));
    writeFile(systemFolder() / "a" / "below" / "property.json", propertyDocument("below"));

    EXPECT_THAT(systemIDs(), ElementsAre("own"));
}

TEST_F(CatalogueScan, FallsBackToTheClipFileWithoutAPropertyDocument)
{
    addClip(systemFolder() / "a", std::nullopt, midiDocumentWithID("data"));

    EXPECT_THAT(systemIDs(), ElementsAre("data"));
}

TEST_F(CatalogueScan, FallsBackToTheClipFileWhenThePropertyDocumentIsAFolder)
{
    addClip(systemFolder() / "a", std::nullopt, midiDocumentWithID("data"));
    std::filesystem::create_directory(systemFolder() / "a" / "property.json");

    EXPECT_THAT(systemIDs(), ElementsAre("data"));
}

class RefusedPropertyDocument : public CatalogueScan,
                                public testing::WithParamInterface<const char*> {};

TEST_P(RefusedPropertyDocument, LeavesTheClipToTheClipFile)
{
    addClip(systemFolder() / "with data", GetParam(), midiDocumentWithID("data"));
    addClip(systemFolder() / "without data", GetParam(), midiDocument());
    addClip(systemFolder() / "good", propertyDocument("good"), midiDocument());

    EXPECT_THAT(systemIDs(), UnorderedElementsAre("data", "good"));
}

INSTANTIATE_TEST_SUITE_P(Documents, RefusedPropertyDocument,
                         testing::Values("", "{", "null", "[]", "{}", R"({"id": "a"})",
                                         R"({"id": "a", "name": "a", "part": {}})",
                                         R"({"id": "a", "name": "a", "part": {"type": "song"}})",
                                         R"({"id": "", "name": "a", "part": {"type": "midi"}})",
                                         R"({"id": "a", "name": "", "part": {"type": "midi"}})",
                                         R"({"id": "a", "name": "a", "part": {"type": "midi"},})"));

TEST_F(CatalogueScan, LeavesOutAClipWithoutAUsableDocument)
{
    addClip(systemFolder() / "a", std::nullopt, "");
    addClip(systemFolder() / "b", std::nullopt, "{");
    addClip(systemFolder() / "c", std::nullopt, "[]");
    addClip(systemFolder() / "d", std::nullopt, midiDocument());
    addClip(systemFolder() / "e", std::nullopt, R"({"id": "e", "name": "e"})");
    addClip(systemFolder() / "f", std::nullopt,
            R"({"id": "f", "name": "f", "midi": {"voice": {"compID": "ABCDEFGHIJKLMNOP",
                "langID": 1}}})");
    addClip(systemFolder() / "good", propertyDocument("good"), midiDocument());

    EXPECT_THAT(systemIDs(), ElementsAre("good"));
}

TEST_F(CatalogueScan, TakesTheFallbackAlsoForUserClips)
{
    addClip(userFolder() / "a", std::nullopt, midiDocumentWithID("data"));

    EXPECT_THAT(userIDs(), ElementsAre("data"));
    EXPECT_EQ(KRT_PLX_Clip_type(userClip(0)), KRT_PLX_CLIP_USER);
}

// --- Files are closed after reading ---------------------------------------------------------------------

TEST_F(CatalogueScan, LeavesNoFileOpen)
{
    addClip(userFolder() / "a", propertyDocument("a"), midiDocument());
    addClip(userFolder() / "b", "{", midiDocumentWithID("b"));
    addClip(userFolder() / "c", "{", "{");
    ASSERT_THAT(userIDs(), UnorderedElementsAre("a", "b"));

    // Windows deletes no file that is open.
    std::error_code error;
    std::filesystem::remove_all(userFolder(), error);
    EXPECT_EQ(error, std::error_code());
    EXPECT_FALSE(std::filesystem::exists(userFolder()));
}

} // namespace
