// A scan without enough memory, and what a scan must not read twice: one failure costs one clip, or
// one folder that could not be listed.

#include <algorithm>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "allocations.h"
#include "figures.h"
#include "library_call.h"
#include "support/host.h"
#include "system_calls.h"

namespace {

using faults::lib;
using support::Path;

using IDs = std::set<std::string>;

// Clips "a1", "a2" and so on in folders with these letters, each in a folder of its own.
class ScanTest : public testing::Test {
protected:
    ScanTest()
    {
        std::filesystem::create_directories(folders_.user);
        for (const char letter : letters) {
            const Path group = directoryOf(letter) / std::string(1, letter);
            for (int number = 1; number <= clipsEach; ++number) {
                const std::string id = letter + std::to_string(number);
                all_.insert(id);
                // Every third clip has its properties in its clip file.
                support::addClip(
                    group / id,
                    number % 3 == 0 ? std::nullopt : std::optional(support::propertyDocument(id)),
                    number % 3 == 0 ? support::midiDocumentWithID(id) : support::midiDocument());
            }
        }
        manager_ = support::createManager(folders_);
    }

    std::uint32_t scan() { return lib(KRT_PLX_Manager_readAllClipFiles, manager_.get()); }

    [[nodiscard]] IDs missing() const
    {
        IDs ids = all_;
        for (const auto& list :
             {support::systemClipIDs(manager_.get()), support::userClipIDs(manager_.get())}) {
            for (const std::string& id : list) {
                EXPECT_EQ(ids.erase(id), 1u) << id;
            }
        }
        return ids;
    }

    // Whether they are all in one folder: that of a letter, or a clip directory.
    [[nodiscard]] bool areOfOneFolder(const IDs& ids) const
    {
        const auto sameLetter = [&](const std::string& id) { return id[0] == (*ids.begin())[0]; };
        const auto sameDirectory = [&](const std::string& id) {
            return directoryOf(id[0]) == directoryOf((*ids.begin())[0]);
        };
        return std::all_of(ids.begin(), ids.end(), sameLetter) ||
               std::all_of(ids.begin(), ids.end(), sameDirectory);
    }

    [[nodiscard]] Path directoryOf(char letter) const
    {
        return letter < 'c'   ? folders_.system
               : letter < 'e' ? folders_.user
                              : folders_.furtherUser.front();
    }

    static constexpr char letters[] = {'a', 'b', 'c', 'd', 'e'};
    static constexpr int clipsEach = 6;

    support::ScratchFolder scratch_;
    support::Folders folders_{
        scratch_.path() / "system", scratch_.path() / "user", {}, {scratch_.path() / "further"}};
    IDs all_;
    support::OwnedManager manager_;
};

TEST_F(ScanTest, AFailedAllocationCostsOneClipOrOneFolder)
{
    EXPECT_EQ(scan(), KRT_PLX_RESULT_OK); // allocates what stays until the process ends
    long begun = 0;                       // the first allocation that belongs to a clip or a folder
    long clips = 0;
    long listings = 0;
    for (long number = 1;; ++number) {
        faults::failAllocation(number);
        const std::uint32_t code = scan();
        if (faults::stopFailingAllocations().failed == 0) {
            EXPECT_EQ(code, KRT_PLX_RESULT_OK);
            break;
        }
        const IDs lost = missing();
        SCOPED_TRACE("allocation " + std::to_string(number));
        if (begun == 0 && lost == all_) {
            EXPECT_EQ(code, KRT_PLX_RESULT_NO_MANAGER);
            continue;
        }
        begun = begun == 0 ? number : begun;
        EXPECT_TRUE(code == KRT_PLX_RESULT_NO_MANAGER ||
                    (code == KRT_PLX_RESULT_OK && lost.empty()))
            << code;
        EXPECT_TRUE(lost.size() <= 1 || areOfOneFolder(lost)) << testing::PrintToString(lost);
        clips += lost.size() == 1 ? 1 : 0;
        listings += lost.size() > 1 ? 1 : 0;
        ASSERT_FALSE(HasFailure());
    }
    EXPECT_LE(begun, 3) << "before it there was no scan";
    EXPECT_GT(clips, static_cast<long>(all_.size()));
    EXPECT_GT(clips, 5 * listings);
    EXPECT_TRUE(missing().empty());
    faults::count("scans out of memory that lost one clip", clips);
    faults::count("scans out of memory that lost one folder", listings);
}

TEST_F(ScanTest, AMissingDirectoryIsReportedBeforeAWantOfMemory)
{
    scan();
    std::filesystem::remove_all(folders_.user);
    long lacking = 0;
    for (long number = 1;; ++number) {
        faults::failAllocation(number);
        const std::uint32_t code = scan();
        if (faults::stopFailingAllocations().failed == 0) {
            EXPECT_EQ(code, KRT_PLX_RESULT_DIRECTORY_MISSING);
            break;
        }
        lacking += code == KRT_PLX_RESULT_NO_MANAGER ? 1 : 0;
        EXPECT_TRUE(code == KRT_PLX_RESULT_DIRECTORY_MISSING || lacking == number) << number;
    }
    EXPECT_LE(lacking, 2) << "these were before the scan";
}

// --- What is read how often -----------------------------------------------------------------------------

class ScanReadsTest : public testing::Test {
protected:
    ScanReadsTest() { std::filesystem::create_directories(folders_.system); }

    [[nodiscard]] Path folder() const { return folders_.user / "one"; }

    void addClipFiles(int number, std::string_view bytes)
    {
        for (int i = 0; i < number; ++i) {
            support::writeFile(folder() / (std::to_string(i) + ".kxclip"), bytes);
        }
    }

    // How often files of that name are opened in a scan.
    long openingsOf(std::string_view ending)
    {
        const support::OwnedManager manager = support::createManager(folders_);
        faults::recordCalls();
        EXPECT_EQ(lib(KRT_PLX_Manager_readAllClipFiles, manager.get()), KRT_PLX_RESULT_OK);
        const faults::SystemCalls calls = faults::stopDisturbing();
        listed_ = support::userClipIDs(manager.get());
        return std::count_if(calls.begin(), calls.end(), [&](const faults::SystemCall& call) {
            return call.name.starts_with("open") && call.path.ends_with(ending);
        });
    }

    support::ScratchFolder scratch_;
    support::Folders folders_{scratch_.path() / "system", scratch_.path() / "user", {}, {}};
    std::vector<std::string> listed_;
};

TEST_F(ScanReadsTest, ThePropertyDocumentOfAFolderIsOpenedOnce)
{
    for (const std::string& document : {support::propertyDocument("ID"), std::string("none")}) {
        support::writeFile(folder() / "property.json", document);
        addClipFiles(100, "");
        EXPECT_EQ(openingsOf("/property.json"), 1) << document;
    }
}

TEST_F(ScanReadsTest, ThePropertyDocumentsOfFoldersInEachOtherAreOpenedOnceEach)
{
    addClipFiles(20, "");
    support::writeFile(folder() / "property.json", "none");
    for (int i = 0; i < 20; ++i) {
        support::addClip(folder() / ("in" + std::to_string(i)),
                         support::propertyDocument(std::to_string(i)), "");
    }
    EXPECT_EQ(openingsOf("/property.json"), 21);
    EXPECT_EQ(listed_.size(), 20u);
}

TEST_F(ScanReadsTest, AClipFileBesideAGoodPropertyDocumentIsNotOpened)
{
    support::writeFile(folder() / "property.json", support::propertyDocument("ID"));
    addClipFiles(10, support::midiDocumentWithID("data"));
    EXPECT_EQ(openingsOf(".kxclip"), 0);
    EXPECT_EQ(listed_, std::vector<std::string>{"ID"});
}

TEST_F(ScanReadsTest, AClipFileThatStandsAloneIsOpenedOnce)
{
    addClipFiles(10, "");
    EXPECT_EQ(openingsOf(".kxclip"), 10);
    EXPECT_TRUE(listed_.empty());
}

} // namespace
