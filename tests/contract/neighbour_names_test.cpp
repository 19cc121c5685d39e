// Names that differ only in case, names as long as the system allows, and folders so deep that no path
// reaches them.
#include <fstream>
#include <string>
#include <system_error>

#include "support/saving.h"
#include "support/temp_dir.h"

using support::addClip;
using support::midiDocument;
using support::midiDocumentWithID;
using support::Path;
using support::pathText;
using support::place;
using support::propertyDocument;
using support::text;
using support::writeFile;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

namespace {

class NeighbourNames : public HostTest {
protected:
    // Whether names that differ only in case are different names on this file system.
    [[nodiscard]] bool mindsCase() const
    {
        writeFile(scratch() / "probe", "");
        return !std::filesystem::exists(scratch() / "PROBE");
    }

    // Whether two names that were made are different files.
    static bool holdsTwo(const Path& folder)
    {
        return std::distance(std::filesystem::directory_iterator(folder),
                             std::filesystem::directory_iterator()) == 2;
    }
};

// --- Case ---------------------------------------------------------------------------------------------

TEST_F(NeighbourNames, OfFoldersThatDifferByCaseAreTwo)
{
    addClip(systemFolder() / "song", propertyDocument("small"), midiDocument());
    addClip(systemFolder() / "Song", propertyDocument("capital"), midiDocument());
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    if (holdsTwo(systemFolder())) {
        EXPECT_THAT(support::systemClipIDs(manager()), UnorderedElementsAre("small", "capital"));
    } else {
        EXPECT_THAT(support::systemClipIDs(manager()), ElementsAre("capital"));
    }
}

TEST_F(NeighbourNames, OfClipFilesThatDifferByCaseAreTwo)
{
    writeFile(systemFolder() / "song.kxclip", midiDocumentWithID("small"));
    writeFile(systemFolder() / "Song.kxclip", midiDocumentWithID("capital"));
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    if (holdsTwo(systemFolder())) {
        EXPECT_THAT(support::systemClipIDs(manager()), UnorderedElementsAre("small", "capital"));
    } else {
        EXPECT_THAT(support::systemClipIDs(manager()), ElementsAre("capital"));
    }
}

TEST_F(NeighbourNames, OfThePropertyDocumentAreComparedByTheSystem)
{
    addClip(systemFolder() / "a", std::nullopt, midiDocumentWithID("data"));
    writeFile(systemFolder() / "a" / "Property.JSON", propertyDocument("property"));
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::systemClipIDs(manager()), ElementsAre(mindsCase() ? "data" : "property"));
}

TEST_F(NeighbourNames, OfClipsThatDifferByCaseAreTwo)
{
    addClip(systemFolder() / "a", propertyDocument("Song"), midiDocument());
    addClip(systemFolder() / "b", propertyDocument("SONG"), midiDocument());
    addClip(userFolder() / "a", propertyDocument("song"), midiDocument());
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::systemClipIDs(manager()), UnorderedElementsAre("Song", "SONG"));
    EXPECT_THAT(support::userClipIDs(manager()), ElementsAre("song"));
}

// --- Length -------------------------------------------------------------------------------------------

TEST_F(NeighbourNames, MayBeAsLongAsTheSystemTakesThem)
{
    const std::string longest(248, 'x');
    std::string longestInJapanese;
    for (int i = 0; i < 82; ++i) {
        longestInJapanese += "歌";
    }
    int made = 0;
    for (const std::string& name : {longest, longestInJapanese}) {
        const Path file = userFolder() / place(name + ".kxclip");
        std::ofstream(file) << midiDocumentWithID(name);
        made += std::ifstream(file).is_open() ? 1 : 0;
    }
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_GT(made, 0);
    ASSERT_EQ(support::userClipCount(manager()), made);
    for (int i = 0; i < made; ++i) {
        EXPECT_TRUE(KRT_PLX_Clip_readPart(userClip(0)));
        EXPECT_TRUE(KRT_PLX_UserClip_remove(userClip(0)));
    }
}

// --- Depth --------------------------------------------------------------------------------------------

#ifdef _WIN32
constexpr std::size_t deepest =
    450; // well beyond the 259 units that its paths have without more ado
#else
constexpr std::size_t deepest = 5000;
#endif

// A clip in each folder of a chain, as far down as the system makes folders and files. Returns how many
// of them can be opened again.
std::uint64_t addChain(Path folder)
{
    std::uint64_t made = 0;
    std::error_code error;
    while (folder.native().size() < deepest && std::filesystem::create_directory(folder, error)) {
        const Path file = folder / "clip.kxclip";
        std::ofstream(file) << midiDocumentWithID(std::to_string(folder.native().size()));
        made += std::ifstream(file).is_open() ? 1 : 0;
        folder /= "a dozen words of a name in the middle of a deep tree of folders";
    }
    return made;
}

class NeighbourDepth : public NeighbourNames {
protected:
    // What the system lets the host open, the library lists, reads and removes.
    void expectAll(const Path& user, std::uint64_t count)
    {
        const auto own = support::createManager({systemFolder(), user, {}, {}});
        ASSERT_NE(own.get(), nullptr);
        ASSERT_EQ(KRT_PLX_Manager_readAllClipFiles(own.get()), KRT_PLX_RESULT_OK);
        ASSERT_EQ(support::userClipCount(own.get()), count);
        std::size_t longest = 0;
        for (std::uint64_t i = 0; i < count; ++i) {
            KRT_PLX_ClipBase* const clip = KRT_PLX_Manager_userClip(own.get(), i);
            longest = std::max(longest, support::Text(KRT_PLX_Clip_path(clip)).size());
            EXPECT_TRUE(KRT_PLX_Clip_readPart(clip));
        }
        RecordProperty("longest path", std::to_string(longest));
        while (support::userClipCount(own.get()) > 0) {
            const std::uint64_t last = support::userClipCount(own.get()) - 1;
            ASSERT_TRUE(KRT_PLX_UserClip_remove(KRT_PLX_Manager_userClip(own.get(), last)));
        }
    }
};

TEST_F(NeighbourDepth, EndsWhereThePathsOfTheSystemEnd)
{
    const std::uint64_t count = addChain(userFolder() / "chain");
    EXPECT_GE(count, 2u);
    expectAll(userFolder(), count);
}

#ifdef _WIN32
// With this prefix the system asks for no shorter paths.
TEST_F(NeighbourDepth, ReachesFurtherWithThePrefixForLongPaths)
{
    const Path user = Path(LR"(\\?\)") / userFolder();
    const std::uint64_t count = addChain(user / "chain");
    EXPECT_GE(count, 5u);
    expectAll(user, count);
}
#endif

} // namespace
