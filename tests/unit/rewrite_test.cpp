#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>
#include <vector>

#include <gtest/gtest.h>

#include "format/limits.h"
#include "format/rewrite.h"
#include "fs/fs.h"
#include "rewriting.h"
#include "support/temp_dir.h"

namespace {

using namespace Korvel::CANTORIS::PLX;
using format::rewriteDocument;
using support::exists;
using support::hostPath;
using support::makeFolder;
using support::makeLink;
using support::readBytes;
using support::TempDir;
using support::text;
using support::writeBytes;

class RewriteDocument : public testing::Test {
protected:
    bool rewrite(std::string_view bytes) { return rewriteDocument(dir / "document", bytes); }

    TempDir dir;
};

TEST_F(RewriteDocument, LeavesTheNewDocumentAndNothingElse)
{
    for (const std::string& old : rewriting::oldDocuments()) {
        for (const std::string& next : rewriting::newDocuments(old)) {
            writeBytes(dir / "document", old);
            EXPECT_TRUE(rewrite(next));
            EXPECT_EQ(readBytes(dir / "document"), next) << "over " << old.size() << " bytes";
        }
    }
    EXPECT_TRUE(exists(dir / "document"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(hostPath(dir.path())),
                            std::filesystem::directory_iterator()),
              1);
}

TEST_F(RewriteDocument, TakesDocumentsOfManyBytes)
{
    writeBytes(dir / "document", std::string(3'000'000, 'o'));
    const std::string next(5'000'000, 'n');
    EXPECT_TRUE(rewrite(next));
    EXPECT_TRUE(readBytes(dir / "document") == next);
    EXPECT_TRUE(rewrite("{}"));
    EXPECT_EQ(readBytes(dir / "document"), "{}");
}

TEST_F(RewriteDocument, MakesADocumentWhereThereIsNone)
{
    EXPECT_TRUE(rewrite("{}"));
    EXPECT_EQ(readBytes(dir / "document"), "{}");
}

TEST_F(RewriteDocument, FailsWithoutItsFolder)
{
    writeBytes(dir / "file", "x");
    EXPECT_FALSE(rewriteDocument(dir / "missing\\document", "{}"));
    EXPECT_FALSE(rewriteDocument(dir / "file\\document", "{}"));
    EXPECT_FALSE(rewriteDocument(String{}, "{}"));
    EXPECT_FALSE(rewriteDocument(dir / "", "{}"));
    EXPECT_FALSE(rewriteDocument(dir / "a" + Char{}, "{}"));
    EXPECT_FALSE(exists(dir / "missing"));
    EXPECT_FALSE(exists(dir / "a"));
}

TEST_F(RewriteDocument, FailsWhereAFolderIs)
{
    makeFolder(dir / "document");
    EXPECT_FALSE(rewrite("{}"));
    EXPECT_TRUE(fs::isDirectory(dir / "document"));
}

TEST_F(RewriteDocument, GoesThroughLinksOnTheWay)
{
    writeBytes(dir / "folder\\document", "old");
    if (!makeLink(dir / "link", text("folder"))) {
        GTEST_SKIP() << "this system makes no links";
    }
    EXPECT_TRUE(rewriteDocument(dir / "link\\document", "{}"));
    EXPECT_EQ(readBytes(dir / "folder\\document"), "{}");
}

TEST_F(RewriteDocument, NeverWritesThroughALinkInItsPlace)
{
    writeBytes(dir / "precious", "mine");
    if (!makeLink(dir / "document", text("precious"))) {
        GTEST_SKIP() << "this system makes no links";
    }
    if (support::isEmulatedWindows()) {
        GTEST_SKIP() << "an emulated Windows does not tell links from files";
    }
    EXPECT_FALSE(rewrite("{}"));
    EXPECT_EQ(readBytes(dir / "precious"), "mine");
    std::filesystem::remove(hostPath(dir / "precious"));
    EXPECT_FALSE(rewrite("{}"));
    EXPECT_FALSE(exists(dir / "precious"));
    EXPECT_TRUE(std::filesystem::is_symlink(hostPath(dir / "document")));
}

TEST_F(RewriteDocument, FailsWhenAnotherHoldsItForTooLong)
{
    writeBytes(dir / "document", "old");
    const fs::Folder folder = fs::Folder::open(dir.path());
    fs::Patience patience;
    const fs::HeldFile other = folder.hold(text("document"), fs::Folder::Purpose::change, patience);
    const auto before = std::chrono::steady_clock::now();
    EXPECT_FALSE(rewrite("{}"));
    const auto time = std::chrono::steady_clock::now() - before;
    EXPECT_GE(time, fs::forOthers);
    EXPECT_LT(time, 5 * fs::forOthers);
    EXPECT_EQ(readBytes(dir / "document"), "old");
}

TEST_F(RewriteDocument, LeavesADocumentThatIsTooLong)
{
    const auto setSize = [this](std::uintmax_t size) {
        writeBytes(dir / "document", "{");
        std::error_code error;
        std::filesystem::resize_file(hostPath(dir / "document"), size, error);
        return !error;
    };
    ASSERT_TRUE(setSize(format::propertyDocumentLimit + 1));
    EXPECT_FALSE(rewrite("{}"));
    EXPECT_EQ(std::filesystem::file_size(hostPath(dir / "document")),
              format::propertyDocumentLimit + 1);
    EXPECT_EQ(std::ifstream(hostPath(dir / "document")).get(), '{');
    ASSERT_TRUE(setSize(format::propertyDocumentLimit));
    EXPECT_TRUE(rewrite("{}"));
    EXPECT_EQ(readBytes(dir / "document"), "{}");
}

} // namespace
