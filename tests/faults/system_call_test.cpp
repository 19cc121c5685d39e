// Each kind of work when a system call fails: every call that it makes, one at a time, with each of
// the usual errors. Also when calls are interrupted, or read and write less than asked.

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <set>

#include <gtest/gtest.h>

#include "allocations.h"
#include "figures.h"
#include "support/calls_win32.h"
#include "system_calls.h"
#include "works.h"

namespace {

using faults::Sight;
using faults::SystemCall;
using faults::Work;
using faults::World;

constexpr std::array errors = {ENOSPC, EACCES, EIO, EMFILE, ENAMETOOLONG, ENOMEM, EROFS};

long countOpenFiles()
{
#ifdef _WIN32
    return support::countHandles();
#else
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                         std::filesystem::directory_iterator());
#endif
}

std::set<std::string> keysOf(const std::map<std::string, std::string>& map)
{
    std::set<std::string> keys;
    for (const auto& [key, value] : map) {
        keys.insert(key);
    }
    return keys;
}

using Disturb = void (*)(long number, int error);

// Whether the work leaves the disk unchanged after one failure.
bool takesBack(const Work& work)
{
    return work.name.starts_with("save") || work.name.starts_with("edit");
}

class SystemCallTest : public testing::TestWithParam<std::size_t> {
protected:
    static const Work& work() { return faults::works()[GetParam()]; }

    // Runs the work undisturbed and returns how many calls it makes.
    long countCalls()
    {
        start();
        faults::recordCalls();
        EXPECT_TRUE(work().run(world_));
        const auto calls = static_cast<long>(faults::stopDisturbing().size());
        work().expectDone(world_);
        world_.destroyManager();
        EXPECT_EQ(calls > 0, work().usesDisk);
        return calls;
    }

    void start()
    {
        world_.reset();
        blocks_ = faults::liveBlocks();
        files_ = countOpenFiles();
        work().prepare(world_);
        before_ = world_.look();
        mayTouch_ = work().mayTouch(world_);
    }

    void finish()
    {
        EXPECT_TRUE(done_ || work().run(world_)) << "when it is done again";
        if (!done_ || !work().lists) {
            work().expectDone(world_);
        }
        world_.destroyManager();
        EXPECT_EQ(faults::liveBlocks(), blocks_);
        EXPECT_EQ(countOpenFiles(), files_);
    }

    void run(long number, int error, Disturb disturb)
    {
        error_ = error;
        disturb(number, error);
        done_ = work().run(world_);
        const faults::SystemCalls calls = faults::stopDisturbing();
        ASSERT_GE(std::ssize(calls), number);
        call_ = calls[static_cast<std::size_t>(number - 1)];
        faults::count("system calls failed: " + work().name);
    }

    void expectFailure(std::string_view mayTouch)
    {
        const Sight after = world_.look();
        EXPECT_EQ(after.editable, before_.editable);
        faults::expectSameDisk(before_.disk, after.disk, mayTouch);
        if (work().lists) {
            // Of what fails, only this allocates: another error loses the folder alone.
            const bool isOfMemory = call_.name == "fdopendir" && error_ == ENOMEM;
            EXPECT_EQ(world_.code,
                      isOfMemory ? KRT_PLX_RESULT_NO_MANAGER : KRT_PLX_RESULT_DIRECTORY_MISSING);
        } else {
            EXPECT_EQ(after.listed, before_.listed);
        }
    }

    // Checks that a scan has only lost clips that depend on the failing call.
    void expectOnlyConcernedAreLost()
    {
        const auto listed = faults::describeListed(world_.manager);
        const auto all = world_.whatAnotherHostSees(faults::Parts::unread);
        const bool isFolder = std::filesystem::is_directory(call_.path);
        const std::string concerned =
            isFolder ? call_.path : support::Path(call_.path).parent_path().string();
        for (const auto& [id, description] : all) {
            const auto found = listed.find(id);
            const bool isConcerned =
                support::replaced(description, "\\", "/").find(concerned + "/") !=
                std::string::npos;
            EXPECT_TRUE(found == listed.end() ? isConcerned : found->second == description)
                << call_.name << " " << call_.path << " lost " << description;
        }
        EXPECT_TRUE(isFolder || listed.size() + 1 >= all.size());
    }

    static long step() { return faults::every(5); }

    World world_;
    Sight before_;
    std::string mayTouch_;
    SystemCall call_;
    int error_ = 0;
    bool done_ = false;
    long blocks_ = 0;
    long files_ = 0;
};

TEST_P(SystemCallTest, AFailureIsReportedOrTheWorkIsDone)
{
    const long calls = countCalls();
    for (long number = 1; number <= calls && !HasFailure(); number += step()) {
        for (std::size_t i = 0; i < errors.size(); ++i) {
            if (!faults::isExhaustive() && i != static_cast<std::size_t>(number) % errors.size()) {
                continue;
            }
            start();
            run(number, errors[i], faults::failCall);
            SCOPED_TRACE(call_.name + " " + call_.path + ", error " + std::to_string(errors[i]));
            if (!done_) {
                expectFailure(takesBack(work()) ? "" : mayTouch_);
            } else if (work().lists) {
                expectOnlyConcernedAreLost();
            }
            finish();
        }
    }
}

// The clean-up after a failure fails as well: what is left must not be listed. First only deletions
// fail from then on, then every call.
TEST_P(SystemCallTest, AFailureThatCannotBeCleanedUpShowsNoClip)
{
    const long calls = countCalls();
    for (long number = 1; number <= calls && !HasFailure(); number += step()) {
        start();
        run(number, EROFS, faults::failCallAndDeleting);
        SCOPED_TRACE(call_.name + " " + call_.path);
        if (!done_) {
            expectFailure(mayTouch_);
            EXPECT_LE(keysOf(world_.whatAnotherHostSees()).size(), 7);
        }
        finish();
    }
}

TEST_P(SystemCallTest, WhenAllCallsFailTheResultIsTrue)
{
    const long calls = countCalls();
    for (long number = 1; number <= calls && !HasFailure(); number += step()) {
        start();
        run(number, EIO, faults::failCallsFrom);
        SCOPED_TRACE(call_.name + " " + call_.path);
        if (!done_) {
            expectFailure(mayTouch_);
        }
        finish();
    }
}

#ifndef _WIN32 // where no signal interrupts a call
TEST_P(SystemCallTest, InterruptedCallsChangeNothing)
{
    const long calls = countCalls();
    for (long number = 1; number <= calls && !HasFailure(); number += step()) {
        start();
        run(number, EINTR, faults::failCall);
        SCOPED_TRACE(call_.name + " " + call_.path);
        EXPECT_TRUE(done_);
        work().expectDone(world_);
        finish();
    }
}

#endif

TEST_P(SystemCallTest, ShortReadsAndWritesChangeNothing)
{
    for (const std::size_t bytes : {1, 7}) {
        start();
        faults::limitTransfers(bytes);
        done_ = work().run(world_);
        faults::count("works with short reads and writes");
        faults::stopDisturbing();
        EXPECT_TRUE(done_);
        work().expectDone(world_);
        finish();
    }
}

class WritingTest : public SystemCallTest {};

// A part of the new document has been written already.
TEST_P(WritingTest, AWriteThatBreaksOffIsTakenBack)
{
    constexpr std::size_t bytes = 100;
    start();
    faults::limitTransfers(bytes);
    EXPECT_TRUE(work().run(world_));
    const auto calls = static_cast<long>(faults::stopDisturbing().size());
    for (long number = 1; number <= calls && !HasFailure(); number += step()) {
        start();
        faults::failCallAndShorten(number, ENOSPC, bytes);
        done_ = work().run(world_);
        SCOPED_TRACE("call " + std::to_string(number));
        faults::stopDisturbing();
        faults::count("system calls failed after short ones: " + work().name);
        if (!done_) {
            expectFailure("");
        }
        finish();
    }
}

INSTANTIATE_TEST_SUITE_P(Works, SystemCallTest,
                         testing::Range<std::size_t>(0, faults::works().size()),
                         [](const auto& parameter) {
                             return faults::caseName(faults::works()[parameter.param].name);
                         });

std::vector<std::size_t> writingWorks()
{
    std::vector<std::size_t> all;
    for (std::size_t i = 0; i < faults::works().size(); ++i) {
        if (takesBack(faults::works()[i])) {
            all.push_back(i);
        }
    }
    return all;
}

INSTANTIATE_TEST_SUITE_P(Works, WritingTest, testing::ValuesIn(writingWorks()),
                         [](const auto& parameter) {
                             return faults::caseName(faults::works()[parameter.param].name);
                         });

} // namespace
