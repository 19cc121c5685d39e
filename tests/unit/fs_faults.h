// Runs work of the file layer and disturbs each of its system calls.
#pragma once
#ifndef _WIN32

#    include <algorithm>
#    include <cerrno>
#    include <climits>
#    include <cstring>
#    include <filesystem>
#    include <functional>
#    include <iterator>
#    include <string>
#    include <utility>

#    include <gtest/gtest.h>

#    include "fs/fs.h"
#    include "open_descriptors.h"
#    include "posix_faults.h"
#    include "support/effort.h"
#    include "support/temp_dir.h"

namespace Faults {

// The errors that system calls may return.
constexpr int errors[] = {EIO,          EACCES, EPERM,   ENOSPC, EMFILE, ENOMEM,   EISDIR,
                          ENAMETOOLONG, EEXIST, ENOTDIR, ENOENT, EROFS,  ENOTEMPTY};

struct Work {
    std::function<void()> prepare;
    std::function<void()> run;
    std::function<void()> check; // checks what is allowed, whatever fails
};

class DisturbedTest : public testing::Test {
protected:
    long countCalls(const Work& work)
    {
        work.prepare();
        failCall(LONG_MAX, 0);
        work.run();
        const long calls = stop();
        work.check();
        return calls;
    }

    template <typename Disturb>
    void runWith(Disturb disturb, long number, int error, const Work& work)
    {
        SCOPED_TRACE(std::string(std::strerror(error)) + " at call " + std::to_string(number));
        work.prepare();
        const int descriptors = countOpenDescriptors();
        disturb(number, error);
        work.run();
        stop();
        EXPECT_EQ(countOpenDescriptors(), descriptors);
        work.check();
    }

    // Runs the work once for each of its calls, with that call failing, and once more with that
    // call and all later ones failing. Where that is slow, each call fails with some of the errors.
    template <typename Errors>
    void failEachCall(const Errors& errors, const Work& work)
    {
        const long calls = countCalls(work);
        ASSERT_GT(calls, 0);
        const long every = support::isSlow() ? std::max<long>(1, std::ssize(errors) / 3) : 1;
        long shift = 0;
        for (const int error : errors) {
            ++shift;
            for (long number = 1; number <= calls; ++number) {
                if ((number + shift) % every != 0) {
                    continue;
                }
                runWith(failCall, number, error, work);
                canCleanUp = false;
                runWith(failFrom, number, error, work);
                canCleanUp = true;
            }
        }
    }

    void interruptEachCall(const Work& work)
    {
        const long calls = countCalls(work);
        ASSERT_GT(calls, 0);
        for (long number = 1; number <= calls; ++number) {
            runWith(failCall, number, EINTR, work);
        }
    }

    // Runs the work once for each of its calls, and lets something happen before that call.
    void interfereWithEachCall(const Work& work, const std::function<void()>& happening)
    {
        const auto disturb = [&](long number, int) { interfere(number, happening); };
        const long calls = countCalls(work);
        ASSERT_GT(calls, 0);
        for (long number = 1; number <= calls; ++number) {
            runWith(disturb, number, 0, work);
        }
    }

    void removeAll(const char* path) { std::filesystem::remove_all(support::hostPath(dir / path)); }

    support::TempDir dir;
    Korvel::CANTORIS::PLX::fs::Folder folder = Korvel::CANTORIS::PLX::fs::Folder::open(dir.path());
    bool canCleanUp = true; // false while all calls from one on fail
};

// A tree with files, folders and links, some of which lead out of it or upwards in it.
class DisturbedTreeTest : public DisturbedTest {
protected:
    void makeTree()
    {
        for (const char* path : {"a", "one\\b", "one\\two\\c", "three\\d"}) {
            support::writeBytes(dir / ("tree\\" + std::string(path)), "x");
        }
        support::writeBytes(dir / "outside\\e", "x");
        for (const auto& [link, target] : {std::pair{"tree\\link", "..\\outside"},
                                           {"tree\\one\\up", ".."},
                                           {"tree\\f", "..\\outside\\e"}}) {
            ASSERT_TRUE(support::makeLink(dir / link, support::text(target)));
        }
    }

    Work removingTree()
    {
        const auto prepare = [this] {
            removeAll("tree");
            makeTree();
        };
        const auto check = [this] {
            EXPECT_NE(result, support::exists(dir / "tree"));
            EXPECT_TRUE(support::exists(dir / "outside\\e"));
            EXPECT_TRUE(folder.removeTree(support::text("tree")));
        };
        return {prepare, [this] { result = folder.removeTree(support::text("tree")); }, check};
    }

    bool result = false;
};

} // namespace Faults

#endif
