// Rewriting a document while system calls fail, while the process may die, and while other programs
// change the same files: at every moment the file holds the whole old document or the whole new
// one.
#ifndef _WIN32

#    include <algorithm>
#    include <array>
#    include <cerrno>
#    include <chrono>
#    include <cstdio>
#    include <filesystem>
#    include <functional>
#    include <optional>
#    include <string>
#    include <thread>
#    include <utility>
#    include <vector>

#    include <fcntl.h>
#    include <gtest/gtest.h>

#    include "format/encoding.h"
#    include "format/rewrite.h"
#    include "fs/fs.h"
#    include "fs_faults.h"
#    include "posix_faults.h"
#    include "rewriting.h"
#    include "support/other_holder.h"
#    include "support/temp_dir.h"

namespace {

using namespace Korvel::CANTORIS::PLX;
using Faults::Work;
using support::exists;
using support::hostPath;
using support::makeLink;
using support::readBytes;
using support::text;
using support::writeBytes;

class RewriteFaults : public Faults::DisturbedTest {
protected:
    // Runs the test for old documents in every encoding and new ones of every length.
    void forEachPair(const std::function<void()>& test)
    {
        for (const std::string& old : rewriting::oldDocuments()) {
            for (const std::string& next : rewriting::newDocuments(old)) {
                SCOPED_TRACE(std::to_string(next.size()) + " bytes over " +
                             std::to_string(old.size()) + ", which begin with " +
                             testing::PrintToString(old.substr(0, 4)));
                before = old;
                after = next;
                test();
                ASSERT_FALSE(HasFailure());
            }
        }
    }

    [[nodiscard]] bool isOld(const std::string& now) const
    {
        const auto encoding = format::detectEncoding(before).encoding;
        return rewriting::isWhole(now, before, format::blankIn(encoding));
    }
    [[nodiscard]] bool isNew(const std::string& now) const
    {
        return rewriting::isWhole(now, after, " ");
    }

    std::string document() { return readBytes(dir / "document"); }

    void expectOneOfBoth()
    {
        const std::string now = document();
        EXPECT_TRUE(isOld(now) || isNew(now)) << testing::PrintToString(now);
    }

    Work rewriting()
    {
        const auto prepare = [this] {
            removeAll("document");
            writeBytes(dir / "document", before);
        };
        const auto check = [this] {
            const std::string now = document();
            EXPECT_TRUE(result ? isNew(now) : isOld(now) || isNew(now))
                << result << ": " << testing::PrintToString(now);
        };
        return {prepare, [this] { result = rewrite(); }, check};
    }

    Work making()
    {
        const auto check = [this] {
            EXPECT_EQ(result, exists(dir / "document") && document() == after);
        };
        return {[this] { removeAll("document"); }, [this] { result = rewrite(); }, check};
    }

    bool rewrite() { return format::rewriteDocument(dir / "document", after); }

    std::string before = R"({"old": "old"})";
    std::string after = R"({"new": "new and longer"})";
    bool result = false;
};

// --- Calls that fail ------------------------------------------------------------------------------------

TEST_F(RewriteFaults, AFailureLeavesTheOldDocumentOrHasTheNewOne)
{
    forEachPair([this] { failEachCall(std::array{EIO, ENOSPC}, rewriting()); });
}

TEST_F(RewriteFaults, EveryErrorIsSurvived)
{
    failEachCall(Faults::errors, rewriting());
}

TEST_F(RewriteFaults, AFailureThatCanBePutBackLeavesTheOldDocumentAsItWas)
{
    forEachPair([this] {
        const long calls = countCalls(rewriting());
        for (long number = 1; number <= calls; ++number) {
            runWith(Faults::failCall, number, EIO, rewriting());
            EXPECT_TRUE(result || document() == before || document() == after) << number;
        }
    });
}

TEST_F(RewriteFaults, OnlyWhatDoesNotMatterToTheDocumentMayFail)
{
    const Work work = rewriting();
    long successes = 0;
    const long calls = countCalls(work);
    for (long number = 1; number <= calls; ++number) {
        runWith(Faults::failCall, number, EIO, work);
        successes += result ? 1 : 0;
    }
    // Locking; the two calls that check where the path leads, because that is checked again;
    // cutting off the blanks; closing the file and the folder.
    EXPECT_EQ(successes, 6);
}

TEST_F(RewriteFaults, InterruptionsChangeNothing)
{
    forEachPair([this] {
        Work work = rewriting();
        work.check = [this] {
            EXPECT_TRUE(result);
            EXPECT_EQ(document(), after);
        };
        interruptEachCall(work);
    });
}

// A write stops half-way, and the next one fails.
TEST_F(RewriteFaults, WhatWasWrittenHalfWayIsPutBack)
{
    forEachPair([this] {
        const Work work = rewriting();
        work.prepare();
        Faults::limitTransfers(7);
        work.run();
        const long calls = Faults::stop();
        EXPECT_TRUE(result);
        EXPECT_EQ(document(), after);
        for (long number = 1; number <= calls; ++number) {
            const auto disturb = [](long place, int error) {
                Faults::limitTransfers(7);
                Faults::failCall(place, error);
            };
            runWith(disturb, number, ENOSPC, work);
        }
    });
}

// --- The death of the process ---------------------------------------------------------------------------

TEST_F(RewriteFaults, AtEveryMomentTheFileHoldsAWholeDocument)
{
    forEachPair([this] { interfereWithEachCall(rewriting(), [this] { expectOneOfBoth(); }); });
}

// --- The disk -------------------------------------------------------------------------------------------

TEST_F(RewriteFaults, WithoutTheDiskThereIsNoSuccess)
{
    for (const int error : {EIO, ENOSPC, EDQUOT}) {
        writeBytes(dir / "document", before);
        Faults::failEach(Faults::Kind::sync, error);
        EXPECT_FALSE(rewrite());
        Faults::stop();
        EXPECT_EQ(document(), before);
    }
    removeAll("document");
    Faults::failEach(Faults::Kind::sync, EIO);
    EXPECT_FALSE(rewrite());
    Faults::stop();
    EXPECT_FALSE(exists(dir / "document"));
}

TEST_F(RewriteFaults, AFileSystemThatCannotTellIsTakenAtItsWord)
{
    for (const int error : {EINVAL, ENOTSUP, ENOSYS}) {
        for (const bool isThere : {true, false}) {
            removeAll("document");
            if (isThere) {
                writeBytes(dir / "document", before);
            }
            Faults::failEach(Faults::Kind::sync, error);
            EXPECT_TRUE(rewrite());
            Faults::stop();
            EXPECT_EQ(document(), after);
        }
    }
}

// First the blanks, then the document: each is on the disk before the next step.
TEST_F(RewriteFaults, EachStepWaitsForTheDisk)
{
    const std::pair<std::string, long> waits[] = {
        {"{" + std::string(100, 'n') + "}", 2}, // longer
        {"{}", 1},                              // shorter
    };
    for (const auto& [next, expected] : waits) {
        after = next;
        writeBytes(dir / "document", before);
        const long atOnce = Faults::countSyncs();
        EXPECT_TRUE(rewrite());
        EXPECT_EQ(Faults::countSyncs() - atOnce, expected);
    }
}

// --- Making one -----------------------------------------------------------------------------------------

TEST_F(RewriteFaults, ADocumentIsMadeWholeOrNotAtAll)
{
    const Work work = making();
    const long calls = countCalls(work);
    for (const int error : Faults::errors) {
        for (long number = 1; number <= calls; ++number) {
            runWith(Faults::failCall, number, error, work);
            if (!result) {
                EXPECT_FALSE(exists(dir / "document")) << "what is left: " << document();
            }
        }
    }
    interruptEachCall(work);
}

TEST_F(RewriteFaults, WhenNothingCanBeDoneAnyMoreNothingIsTorn)
{
    Work work = making();
    work.check = [this] {
        const std::string now = exists(dir / "document") ? document() : "";
        EXPECT_TRUE(result ? now == after
                           : now.find_first_not_of(' ') == std::string::npos || isNew(now))
            << now;
    };
    const long calls = countCalls(work);
    for (long number = 1; number <= calls; ++number) {
        runWith(Faults::failFrom, number, EIO, work);
    }
}

// --- Others ---------------------------------------------------------------------------------------------

class RewriteInterference : public RewriteFaults {
protected:
    const std::string other = R"({"other": "somebody else's document, longer than both"})";
    bool wasPut = false;
};

TEST_F(RewriteInterference, ADocumentThatAnotherHasMadeMeanwhileIsReplaced)
{
    Work work = making();
    work.check = [this] {
        EXPECT_TRUE(result);
        EXPECT_EQ(document(), after);
    };
    interfereWithEachCall(work, [this] {
        if (!exists(dir / "document")) {
            writeBytes(dir / "document", other);
        }
    });
}

// Another editor locks the new file before this one can.
TEST_F(RewriteInterference, WhatAnotherHasWrittenIntoTheNewFileIsNotDeleted)
{
    Work work = making();
    work.check = [this] {
        const std::string now = document();
        EXPECT_TRUE(now == other || now == after) << now;
        EXPECT_TRUE(!result || now == after);
    };
    interfereWithEachCall(work, [this] {
        if (!exists(dir / "document") || document().empty()) {
            writeBytes(dir / "document", other);
        }
    });
}

TEST_F(RewriteInterference, WhatAnotherHasWrittenIntoTheNewFileIsNotDeletedWhenTheDiskFails)
{
    Work work = making();
    work.check = [this] {
        EXPECT_FALSE(result);
        EXPECT_EQ(exists(dir / "document") ? document() : "", wasPut ? other : "");
    };
    const auto put = [this] {
        const bool isNew = !exists(dir / "document");
        wasPut = isNew || (document().empty() && !OtherHolder::isHeld(dir / "document"));
        if (wasPut) {
            writeBytes(dir / "document", other);
        }
    };
    const auto disturb = [&](long number, int) {
        wasPut = false;
        Faults::interfere(number, put);
        Faults::failEach(Faults::Kind::sync, EIO);
    };
    const long calls = countCalls(making());
    for (long number = 1; number <= calls; ++number) {
        runWith(disturb, number, 0, work);
    }
}

TEST_F(RewriteInterference, AFileThatTakesItsPlaceIsWrittenOrTheResultIsFalse)
{
    Work work = rewriting();
    work.check = [this] {
        EXPECT_EQ(document(), result ? after : other);
        const std::string moved = readBytes(dir / "moved");
        EXPECT_TRUE(isOld(moved) || (result && isNew(moved))) << moved;
    };
    const auto prepare = work.prepare;
    work.prepare = [=, this] {
        removeAll("moved");
        prepare();
        writeBytes(dir / "moved", before);
    };
    const auto swap = [this] {
        std::filesystem::rename(hostPath(dir / "document"), hostPath(dir / "moved"));
        writeBytes(dir / "document", other);
    };
    const auto disturb = [&](long number, int) { Faults::interfere(number, swap); };
    // The path is checked for the last time before the last three calls, which ask for the identity
    // of the held file and close file and folder.
    const long calls = countCalls(work) - 3;
    for (long number = 1; number <= calls; ++number) {
        runWith(disturb, number, 0, work);
    }
}

TEST_F(RewriteInterference, ALinkThatTakesItsPlaceIsNotFollowed)
{
    Work work = rewriting();
    const auto prepare = work.prepare;
    work.prepare = [=, this] {
        prepare();
        writeBytes(dir / "precious", "mine");
    };
    work.check = [this] { EXPECT_EQ(readBytes(dir / "precious"), "mine"); };
    interfereWithEachCall(work, [this] {
        removeAll("document");
        makeLink(dir / "document", text("precious"));
    });
    work.prepare = [=, this] {
        writeBytes(dir / "precious", "mine");
        removeAll("document");
    };
    interfereWithEachCall(work, [this] {
        removeAll("document");
        makeLink(dir / "document", text("precious"));
    });
}

// Links on the way are followed, so the edit changes the document to which the path then leads.
TEST_F(RewriteInterference, AFolderThatTakesTheFoldersPlaceIsWrittenOrTheResultIsFalse)
{
    const auto path = dir / "folder\\document";
    const auto prepare = [this] {
        removeAll("folder");
        removeAll("moved");
        writeBytes(dir / "folder\\document", before);
        writeBytes(dir / "outside\\document", other);
    };
    const auto check = [this] {
        EXPECT_EQ(readBytes(dir / "outside\\document"), result ? after : other);
        const std::string moved = readBytes(dir / "moved\\document");
        EXPECT_TRUE(isOld(moved) || isNew(moved)) << moved;
    };
    Work work = {prepare, [&] { result = format::rewriteDocument(path, after); }, [] {}};
    const long calls = countCalls(work) - 3; // as above
    work.check = check;
    const auto swap = [this] {
        std::filesystem::rename(hostPath(dir / "folder"), hostPath(dir / "moved"));
        makeLink(dir / "folder", text("outside"));
    };
    for (long number = 1; number <= calls; ++number) {
        runWith([&](long place, int) { Faults::interfere(place, swap); }, number, 0, work);
    }
}

TEST_F(RewriteInterference, AnotherEditorIsWaitedFor)
{
    writeBytes(dir / "document", before);
    std::optional<OtherHolder> holder(dir / "document");
    std::thread editor([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        writeBytes(dir / "document", other);
        holder.reset();
    });
    EXPECT_TRUE(rewrite());
    editor.join();
    EXPECT_EQ(document(), after);
}

// Another program replaces the document whenever this one does anything.
TEST_F(RewriteInterference, ADocumentThatIsReplacedForEverIsGivenUp)
{
    writeBytes(dir / "document", before);
    writeBytes(dir / "other", before);
    const std::string document = hostPath(dir / "document");
    const std::string other = hostPath(dir / "other");
    Faults::interfereWithAll(
        [&] { ::renameat2(AT_FDCWD, document.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE); });
    EXPECT_FALSE(rewrite());
    EXPECT_GT(Faults::stop(), 100);
    EXPECT_EQ(readBytes(dir / "document"), before);
    EXPECT_EQ(readBytes(dir / "other"), before);
}

TEST_F(RewriteInterference, ManyEditorsNeverMixTheirDocuments)
{
    writeBytes(dir / "document", before);
    std::vector<std::string> documents;
    for (std::size_t i = 0; i < 4; ++i) {
        documents.push_back("{" + std::string(50 * i + 1, static_cast<char>('a' + i)) + "}");
    }
    std::vector<std::thread> editors;
    for (const std::string& own : documents) {
        editors.emplace_back([&] {
            for (int round = 0; round < 20; ++round) {
                EXPECT_TRUE(format::rewriteDocument(dir / "document", own));
            }
        });
    }
    for (std::thread& editor : editors) {
        editor.join();
    }
    EXPECT_NE(std::find(documents.begin(), documents.end(), document()), documents.end());
}

} // namespace

#endif
