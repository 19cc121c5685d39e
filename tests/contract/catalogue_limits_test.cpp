// Files that are larger than a document may be, or no documents at all: they cost little memory and time,
// and the other clips are still read.
#include <algorithm>
#include <functional>
#include <string>
#include <system_error>

#ifndef _WIN32
#    include <fstream>

#    include <sys/resource.h>
#endif

#include "support/cpu_time.h"
#include "support/host.h"

using support::addClip;
using support::midiDocument;
using support::midiDocumentWithID;
using support::Path;
using support::propertyDocument;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

namespace {

constexpr std::uintmax_t aMebibyte = std::uintmax_t{1} << 20U;
constexpr std::uintmax_t aTebibyte = std::uintmax_t{1} << 40U;

// The beginning, and then a hole of zeros up to that size. False where no such file can be made.
bool makeSparse(const Path& file, std::string_view beginning, std::uintmax_t size)
{
    support::writeFile(file, beginning);
    std::error_code error;
    std::filesystem::resize_file(file, size, error);
    return !error;
}

// By how many bytes the memory of this process grew during the call; 0 where the
// system does not tell.
std::uintmax_t peakOf(const std::function<void()>& call)
{
#ifdef _WIN32
    call();
    return 0;
#else
    const auto largest = [] {
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss;
    };
    std::ofstream("/proc/self/clear_refs") << "5"; // where that works, it counts from now on
    const long before = largest();
    call();
    return static_cast<std::uintmax_t>(largest() - before) * 1024;
#endif
}

class CatalogueLimits : public HostTest {
protected:
    CatalogueLimits()
    {
        for (const char* id : {"A", "Z"}) {
            addClip(userFolder() / id, propertyDocument(id), midiDocument());
        }
    }

    void expectTheOthers()
    {
        std::uint32_t code = 0;
        EXPECT_LT(peakOf([&] { code = read(); }), 64 * aMebibyte);
        EXPECT_EQ(code, KRT_PLX_RESULT_OK);
        EXPECT_THAT(support::userClipIDs(manager()), UnorderedElementsAre("A", "Z"));
    }
};

TEST_F(CatalogueLimits, AClipFileOfATebibyteCostsNoOther)
{
    if (!makeSparse(userFolder() / "M" / "m.kxclip", "{", aTebibyte)) {
        GTEST_SKIP() << "no such file can be made here";
    }
    expectTheOthers();
}

TEST_F(CatalogueLimits, APropertyDocumentOfATebibyteCostsNoOther)
{
    addClip(userFolder() / "M", std::nullopt, "{}");
    if (!makeSparse(userFolder() / "M" / "property.json", "{", aTebibyte)) {
        GTEST_SKIP() << "no such file can be made here";
    }
    expectTheOthers();
}

TEST_F(CatalogueLimits, ManyZerosCostNoMemory)
{
    addClip(userFolder() / "M", std::nullopt, "{}");
    const std::uintmax_t size = 600 * aMebibyte;
    if (!makeSparse(userFolder() / "M" / "property.json", "", size) ||
        !makeSparse(userFolder() / "N" / "n.kxclip", "", size)) {
        GTEST_SKIP() << "no such file can be made here";
    }
    expectTheOthers();
}

TEST_F(CatalogueLimits, ADataDocumentBeyondItsLimitGivesNoPart)
{
    const Path file = userFolder() / "A" / "clip.kxclip";
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    if (!makeSparse(file, midiDocument(), KRT_PLX_DATA_DOCUMENT_LIMIT + std::uintmax_t{1})) {
        GTEST_SKIP() << "no such file can be made here";
    }
    KRT_PLX_ClipBase* const clip = support::findUserClip(manager(), "A");
    bool isRead = true;
    EXPECT_LT(peakOf([&] { isRead = KRT_PLX_Clip_readPart(clip); }), 64 * aMebibyte);
    EXPECT_FALSE(isRead);
}

// White space behind a document belongs to it.
TEST_F(CatalogueLimits, APropertyDocumentMayBeAsLongAsItsLimit)
{
    const std::string document = propertyDocument("LONG");
    const std::string blanks(KRT_PLX_PROPERTY_DOCUMENT_LIMIT - document.size(), ' ');
    addClip(userFolder() / "M", document + blanks, "{}");
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_NE(support::findUserClip(manager(), "LONG"), nullptr);
    addClip(userFolder() / "M", document + blanks + " ", "{}");
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_EQ(support::findUserClip(manager(), "LONG"), nullptr);
}

TEST_F(CatalogueLimits, WithoutItsPropertyDocumentAClipFileStandsAlone)
{
    const std::string blanks(KRT_PLX_PROPERTY_DOCUMENT_LIMIT, ' ');
    addClip(userFolder() / "M", propertyDocument("LONG") + blanks, midiDocumentWithID("ALONE"));
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::userClipIDs(manager()), UnorderedElementsAre("A", "Z", "ALONE"));
}

// --- Many clip files beside one property document -------------------------------------------------------

class CatalogueSharedDocument : public HostTest {
protected:
    void addEmptyClipFiles(int number)
    {
        for (int i = 0; i < number; ++i) {
            support::writeFile(folder() / (std::to_string(i) + ".kxclip"), "");
        }
    }

    [[nodiscard]] Path folder() const { return userFolder() / "one"; }
};

TEST_F(CatalogueSharedDocument, IsReadOnce)
{
    std::string tags = R"("0")";
    for (int i = 1; i < 200000; ++i) {
        tags += ", \"" + std::to_string(i) + "\"";
    }
    // Without an ID, so that each file is looked at.
    support::writeFile(folder() / "property.json", R"({"filter": {"genres": [)" + tags + "]}}");
    addEmptyClipFiles(1);
    const double once = support::cpuSeconds([this] { EXPECT_EQ(read(), KRT_PLX_RESULT_OK); });
    addEmptyClipFiles(100);
    const double often = support::cpuSeconds([this] { EXPECT_EQ(read(), KRT_PLX_RESULT_OK); });
    EXPECT_LT(often, 10 * std::max(once, 0.02));
    EXPECT_EQ(support::userClipCount(manager()), 0u);
}

TEST_F(CatalogueSharedDocument, GivesOneClip)
{
    support::writeFile(folder() / "property.json", propertyDocument("ID"));
    addEmptyClipFiles(50);
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::userClipIDs(manager()), ElementsAre("ID"));
}

// The same document in another folder, or in a folder below, counts as another document.
TEST_F(CatalogueSharedDocument, IsThatOfItsOwnFolder)
{
    for (const Path& place : {folder(), folder() / "in", folder() / "in" / "deep",
                              userFolder() / "one more", userFolder()}) {
        const std::string id = place.filename().string();
        support::writeFile(place / "property.json", propertyDocument(id));
        support::writeFile(place / "a.kxclip", "");
        support::writeFile(place / "b.kxclip", "");
    }
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::userClipIDs(manager()),
                UnorderedElementsAre("one", "in", "deep", "one more", "user"));
}

TEST_F(CatalogueSharedDocument, ThatIsNoneLetsEachClipFileStandAlone)
{
    support::writeFile(folder() / "property.json", "no document");
    for (const char* id : {"A", "B", "C"}) {
        support::writeFile(folder() / (std::string(id) + ".kxclip"), midiDocumentWithID(id));
    }
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::userClipIDs(manager()), UnorderedElementsAre("A", "B", "C"));
}

// As it is when a system clip has it.
TEST_F(CatalogueSharedDocument, WhoseIDIsTakenGivesNoClipAndNoneOfItsFilesStandsAlone)
{
    addClip(systemFolder() / "a", propertyDocument("ID"), midiDocument());
    support::writeFile(folder() / "property.json", propertyDocument("ID"));
    for (const char* id : {"A", "B"}) {
        support::writeFile(folder() / (std::string(id) + ".kxclip"), midiDocumentWithID(id));
    }
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_EQ(support::userClipCount(manager()), 0u);
}

} // namespace
