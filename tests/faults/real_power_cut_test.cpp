// The power of a real file system is cut while programs save, edit and remove. This only runs in
// scripts/torture, and only if it has the rights.

#include <algorithm>
#include <fcntl.h>
#include <optional>
#include <unistd.h>

#include <gtest/gtest.h>

#include "figures.h"
#include "loop_disk.h"
#include "programs.h"

namespace {

using faults::LoopDisk;
using faults::Program;
using faults::Seen;
using faults::Session;

// The second one turns off the special handling of ext4 for files that are cut off and written
// again.
constexpr const char* options[] = {"", ",noauto_da_alloc"};

// Programs that save make new IDs each time.
Seen withoutNewIDs(const Seen& seen, const Seen& first)
{
    Seen result;
    for (const auto& [id, description] : seen) {
        const std::string known = first.contains(id) ? id : "new";
        result[known] = support::replaced(description, id, known);
    }
    return result;
}

class RealDisk : public testing::Test {
protected:
    void SetUp() override
    {
        startDisk("");
        if (!disk_->missing().empty()) {
            GTEST_SKIP() << disk_->missing();
        }
    }

    void startDisk(const std::string& mountOptions)
    {
        world_.destroyManager();
        disk_.reset();
        world_.reset();
        disk_.emplace(world_.folder("user"), world_.wave().replace_filename("image"), mountOptions);
    }

    // The journal reaches the disk with names and lengths of other files, but without the content
    // that is still in memory. A real system writes it every few seconds.
    void writeJournal() const
    {
        const int file =
            ::open((world_.folder("user") / "other").c_str(), O_CREAT | O_WRONLY, 0600);
        EXPECT_EQ(::fsync(file), 0);
        ::close(file);
    }

    faults::World world_;
    std::optional<LoopDisk> disk_;
};

class RealDiskTest : public RealDisk, public testing::WithParamInterface<const char*> {};

class RealPowerCutTest : public RealDisk, public testing::WithParamInterface<Program> {
protected:
    Session run(std::function<void()> begin, bool looks)
    {
        Session session(world_, std::move(begin), looks);
        GetParam().run(session);
        faults::stopDisturbing();
        world_.destroyManager();
        return session;
    }

    // Checks that the clips are as after this number of successes of the undisturbed program, or as
    // after the next one.
    void expectLeft(const Session& session) const
    {
        const Seen first = reports_.front().seen;
        const std::size_t done = session.successes();
        const auto seenAfter = [&](std::size_t successes) {
            return withoutNewIDs(reports_[std::min(successes, reports_.size() - 1)].seen, first);
        };
        Seen removed;
        for (std::size_t i = 1; i <= done; ++i) {
            removed.merge(faults::removedBetween(seenAfter(i - 1), seenAfter(i)));
        }
        faults::expectBetween(seenAfter(done), seenAfter(done + 1), removed,
                              withoutNewIDs(session.see(), first));
    }

    std::vector<Session::Report> reports_; // of the undisturbed program
};

TEST_P(RealPowerCutTest, AfterwardsLeavesWhatWasReported)
{
    for (const std::string mountOptions : options) {
        for (const bool withJournal : {false, true}) {
            SCOPED_TRACE(mountOptions + (withJournal ? " with the journal" : ""));
            startDisk(mountOptions);
            const Session session = run([] {}, true);
            EXPECT_EQ(session.failures(), 0);
            if (withJournal) {
                writeJournal();
            }
            disk_->cutPower();
            disk_->restart();
            reports_ = session.reports();
            expectLeft(session);
            faults::count("power cuts of ext4 after a program");
        }
    }
}

TEST_P(RealPowerCutTest, AtEachCallLeavesTheOldOrTheNew)
{
    reports_ = run(faults::recordCalls, true).reports();
    for (const std::string mountOptions : options) {
        bool isCut = true;
        for (long number = 1; isCut && !HasFailure(); ++number) {
            SCOPED_TRACE(mountOptions + " at call " + std::to_string(number));
            startDisk(mountOptions);
            isCut = false;
            const auto cut = [&] {
                isCut = true;
                disk_->cutPower();
            };
            const Session session = run([&] { faults::actBefore(number, cut); }, false);
            disk_->restart();
            expectLeft(session);
            faults::count("power cuts of ext4 within a program");
        }
    }
}

// Without this, the other tests would show nothing.
TEST_P(RealDiskTest, LosesWhatIsNotWaitedFor)
{
    const support::Path file = world_.folder("user") / "file";
    support::writeFile(file, "content");
    disk_->cutPower();
    disk_->restart();
    EXPECT_FALSE(std::filesystem::exists(file));

    startDisk(GetParam());
    support::writeFile(file, "content");
    writeJournal();
    disk_->cutPower();
    disk_->restart();
    EXPECT_EQ(support::readFile(file), "");
}

// The test command runs none of these.
std::vector<Program> programsToCut()
{
    std::vector<Program> some =
        faults::isExhaustive() ? faults::programs() : std::vector<Program>();
    // The new clips of this program cannot be distinguished.
    std::erase_if(some, [](const Program& program) {
        return std::string_view(program.name) == "save_three_clips";
    });
    return some;
}

std::vector<const char*> optionsToShow()
{
    return faults::isExhaustive() ? std::vector<const char*>(std::begin(options), std::end(options))
                                  : std::vector<const char*>();
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(RealDiskTest);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(RealPowerCutTest);
INSTANTIATE_TEST_SUITE_P(Options, RealDiskTest, testing::ValuesIn(optionsToShow()));
INSTANTIATE_TEST_SUITE_P(Programs, RealPowerCutTest, testing::ValuesIn(programsToCut()),
                         [](const auto& program) { return std::string(program.param.name); });

} // namespace
