// Several programs change the same clips at the same moment.

#include <algorithm>
#include <atomic>
#include <chrono>
#include <fstream>
#include <map>
#include <new>

#include <sched.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "figures.h"
#include "support/host.h"
#include "support/random.h"
#include "support/saving.h"

namespace {

using support::Random;
using support::text;
using support::utf8;

constexpr const char* clipNames[] = {"one", "two", "three", "four"};

std::int64_t now()
{
    return std::chrono::steady_clock::now().time_since_epoch().count();
}

// A name contains its editor and its own length, so that a part of it is not a valid name.
std::string nameOf(char editor, long number)
{
    constexpr long lengths[] = {0, 5, 700, 40, 1500, 6000};
    return editor + std::to_string(number) + ":" +
           std::string(static_cast<std::size_t>(lengths[number % std::ssize(lengths)]), editor);
}

bool isWhole(const std::string& name)
{
    return name == nameOf(name.front(), std::atol(name.c_str() + 1));
}

bool edit(KRT_PLX_ClipBase* clip, const std::string& name)
{
    KRT_PLX_PropertyEditor* const editor = KRT_PLX_UserClip_createPropertyEditor(clip);
    return KRT_PLX_PropertyEditor_setClipName(editor, text(name).c_str()) &&
           KRT_PLX_PropertyEditor_save(editor);
}

// A clip was renamed to this at some time between start and end.
struct Edit {
    std::int64_t start;
    std::int64_t end;
    bool success;
};
using Edits = std::map<std::string, Edit>; // of one clip, by name

class EditorsTest : public testing::Test {
protected:
    EditorsTest()
    {
        std::filesystem::create_directories(folders_.system);
        for (const std::string name : clipNames) {
            addClip(name);
        }
    }

    void addClip(const std::string& name) const
    {
        support::addClip(folders_.user / name, support::propertyDocument(name),
                         support::midiDocument());
    }

    [[nodiscard]] support::OwnedManager scan() const
    {
        support::OwnedManager manager = support::createManager(folders_);
        EXPECT_EQ(KRT_PLX_Manager_readAllClipFiles(manager.get()), KRT_PLX_RESULT_OK);
        return manager;
    }

    support::ScratchFolder scratch_;
    support::Folders folders_{scratch_.path() / "system", scratch_.path() / "user", {}, {}};
};

// --- Two editors and a reader -------------------------------------------------------------------------

class TwoEditorsTest : public EditorsTest {
protected:
    // Runs in a process of its own, which writes a list of what it has done.
    pid_t start(char letter, long rounds)
    {
        const pid_t process = ::fork();
        if (process == 0) {
            editAll(letter, rounds);
            ::_exit(HasFailure() ? 1 : 0);
        }
        return process;
    }

    void editAll(char letter, long rounds) const
    {
        const support::OwnedManager manager = scan();
        Random random(static_cast<std::uint32_t>(letter));
        std::ofstream list(listOf(letter));
        for (long number = 0; number < rounds; ++number) {
            const std::string id = random.oneOf(clipNames);
            const std::string name = nameOf(letter, number);
            const std::int64_t start = now();
            const bool success = edit(support::findUserClip(manager.get(), id), name);
            list << id << " " << name << " " << start << " " << now() << " " << success << "\n";
        }
    }

    [[nodiscard]] support::Path listOf(char letter) const
    {
        return scratch_.path() / std::string(1, letter);
    }

    // The reader finds each clip in each scan, under a complete name.
    void read()
    {
        const std::int64_t start = now();
        ASSERT_EQ(KRT_PLX_Manager_readUserClipFiles(reader_.get()), KRT_PLX_RESULT_OK);
        const std::int64_t end = now();
        for (const std::string id : clipNames) {
            KRT_PLX_ClipBase* const clip = support::findUserClip(reader_.get(), id);
            ASSERT_NE(clip, nullptr) << id << " was missed in scan " << scans_;
            const std::string name = utf8(KRT_PLX_Clip_name(clip));
            if (name != "Name of " + id) {
                ASSERT_TRUE(isWhole(name)) << name;
                seen_.push_back({id, name, start, end});
            }
        }
        ++scans_;
    }

    void takeList(char letter)
    {
        std::ifstream list(listOf(letter));
        std::string id;
        std::string name;
        Edit edit{};
        while (list >> id >> name >> edit.start >> edit.end >> edit.success) {
            edits_[id][name] = edit;
            (edit.success ? successes_ : failures_) += 1;
        }
    }

    // For each time at which a successful edit ended, the latest start of those that had ended by
    // then. An edit that ended before that start was overwritten, and must not be seen afterwards.
    [[nodiscard]] static std::map<std::int64_t, std::int64_t> latestStarts(const Edits& edits)
    {
        std::map<std::int64_t, std::int64_t> starts;
        for (const auto& [name, edit] : edits) {
            if (edit.success) {
                starts[edit.end] = edit.start;
            }
        }
        std::int64_t latest = 0;
        for (auto& [end, start] : starts) {
            latest = start = std::max(start, latest);
        }
        return starts;
    }

    // Checks that nothing was seen before it was written, and that no successful edit was lost.
    void expectNoSuccessLost(const std::string& id)
    {
        const Edits& edits = edits_[id];
        const auto starts = latestStarts(edits);
        for (const Sight& sight : seen_) {
            if (sight.id != id) {
                continue;
            }
            const auto edit = edits.find(sight.name);
            ASSERT_NE(edit, edits.end()) << sight.name;
            EXPECT_TRUE(edit->second.success) << sight.name;
            EXPECT_LT(edit->second.start, sight.end);
            const auto later = starts.lower_bound(sight.start);
            if (later != starts.begin()) {
                EXPECT_GE(edit->second.end, std::prev(later)->second) << sight.name;
            }
        }
    }

    struct Sight {
        std::string id;
        std::string name;
        std::int64_t start;
        std::int64_t end;
    };

    support::OwnedManager reader_ = support::createManager(folders_);
    std::vector<Sight> seen_;
    std::map<std::string, Edits> edits_;
    long scans_ = 0;
    long successes_ = 0;
    long failures_ = 0;
};

TEST_F(TwoEditorsTest, TearNothingAndLoseNoSuccess)
{
    const long rounds = faults::isExhaustive() ? 10000 : 400;
    const pid_t editors[] = {start('A', rounds), start('B', rounds)};
    std::size_t ended = 0;
    while (ended < std::size(editors) && !HasFatalFailure()) {
        read();
        int status = 0;
        if (::waitpid(editors[ended], &status, WNOHANG) == editors[ended]) {
            EXPECT_EQ(status, 0);
            ++ended;
        }
    }
    for (; ended < std::size(editors); ++ended) {
        ::waitpid(editors[ended], nullptr, 0);
    }
    read();
    takeList('A');
    takeList('B');
    EXPECT_EQ(successes_ + failures_, 2 * rounds);
    EXPECT_GT(successes_, failures_);
    for (const std::string id : clipNames) {
        expectNoSuccessLost(id);
    }
    faults::count("edits of two programs at once", successes_);
    faults::count("edits of two programs at once that said false", failures_);
    faults::count("scans while two programs edit", scans_);
}

// --- Two at one clip ------------------------------------------------------------------------------------

// In memory that both processes share.
struct Start {
    std::atomic<int> ready;
};

class TwoAtOnceTest : public EditorsTest {
protected:
    using Call = bool (*)(KRT_PLX_ClipBase* clip);

    TwoAtOnceTest()
        : start_(new (::mmap(nullptr, sizeof(Start), PROT_READ | PROT_WRITE,
                             MAP_SHARED | MAP_ANONYMOUS, -1, 0)) Start)
    {
    }
    ~TwoAtOnceTest() override { ::munmap(start_, sizeof(Start)); }

    // Runs both at nearly the same moment, each in a program of its own.
    struct Answers {
        bool first;
        bool second;
    };
    Answers run(Call first, Call second)
    {
        const support::OwnedManager managers[] = {scan(), scan()};
        start_->ready = 0;
        const pid_t processes[] = {start(managers[0], first, 0),
                                   start(managers[1], second, random_.below(latest))};
        return {isTrue(processes[0]), isTrue(processes[1])};
    }

    static long rounds() { return faults::isExhaustive() ? 1000 : 40; }

    // Whatever happens to "one", the others are unchanged.
    void expectOthers(const support::OwnedManager& manager) const
    {
        for (const std::string id : {"two", "three", "four"}) {
            KRT_PLX_ClipBase* const clip = support::findUserClip(manager.get(), id);
            ASSERT_NE(clip, nullptr) << id;
            EXPECT_EQ(utf8(KRT_PLX_Clip_name(clip)), "Name of " + id);
        }
    }

    void renew() const
    {
        std::filesystem::remove_all(folders_.user / "one");
        addClip("one");
    }

    static bool editShort(KRT_PLX_ClipBase* clip) { return edit(clip, nameOf('A', 1)); }
    static bool editLong(KRT_PLX_ClipBase* clip) { return edit(clip, nameOf('B', 2)); }
    static bool remove(KRT_PLX_ClipBase* clip) { return KRT_PLX_UserClip_remove(clip); }

private:
    // In nanoseconds, the greatest delay of the second program; by then the first has ended.
    static constexpr std::size_t latest = 3000000;

    pid_t start(const support::OwnedManager& manager, Call call, std::int64_t pause)
    {
        const pid_t process = ::fork();
        if (process == 0) {
            KRT_PLX_ClipBase* const clip = support::findUserClip(manager.get(), "one");
            start_->ready.fetch_add(1);
            while (start_->ready.load() < 2) {}
            for (const std::int64_t end = now() + pause; now() < end;) {}
            ::_exit(call(clip) ? 1 : 0);
        }
        return process;
    }

    static bool isTrue(pid_t process)
    {
        int status = 0;
        EXPECT_EQ(::waitpid(process, &status, 0), process);
        EXPECT_TRUE(WIFEXITED(status));
        return WEXITSTATUS(status) == 1;
    }

    Start* start_;
    Random random_{5};
};

TEST_F(TwoAtOnceTest, EditAndRemove)
{
    for (long round = 0; round < rounds() && !HasFailure(); ++round) {
        renew();
        const auto [edited, removed] = run(editLong, remove);
        const support::OwnedManager manager = scan();
        KRT_PLX_ClipBase* const clip = support::findUserClip(manager.get(), "one");
        EXPECT_EQ(clip == nullptr, removed);
        if (clip != nullptr) {
            EXPECT_EQ(utf8(KRT_PLX_Clip_name(clip)), edited ? nameOf('B', 2) : "Name of one");
            EXPECT_TRUE(KRT_PLX_Clip_readPart(clip));
        }
        expectOthers(manager);
        faults::count(std::string("edits against removals: ") + (edited ? "edited" : "not edited") +
                      ", " + (removed ? "removed" : "not removed"));
        faults::count("documents that an edit left to a removed clip",
                      removed && std::filesystem::exists(folders_.user / "one") ? 1 : 0);
    }
}

TEST_F(TwoAtOnceTest, RemoveTwice)
{
    for (long round = 0; round < rounds() && !HasFailure(); ++round) {
        renew();
        const auto [first, second] = run(remove, remove);
        EXPECT_TRUE(first && second);
        EXPECT_FALSE(std::filesystem::exists(folders_.user / "one"));
        expectOthers(scan());
        faults::count("removals of one clip by two programs");
    }
}

TEST_F(TwoAtOnceTest, EditAndMakeTheDocument)
{
    for (long round = 0; round < rounds() && !HasFailure(); ++round) {
        std::filesystem::remove_all(folders_.user / "one");
        support::addClip(folders_.user / "one", std::nullopt, support::midiDocumentWithID("one"));
        const auto [first, second] = run(editShort, editLong);
        const support::OwnedManager manager = scan();
        KRT_PLX_ClipBase* const clip = support::findUserClip(manager.get(), "one");
        ASSERT_NE(clip, nullptr);
        const std::string name = utf8(KRT_PLX_Clip_name(clip));
        EXPECT_TRUE((first && name == nameOf('A', 1)) || (second && name == nameOf('B', 2)))
            << name << " " << first << second;
        EXPECT_TRUE(first && second);
        expectOthers(manager);
        faults::count("missing documents made by two programs");
    }
}

} // namespace
