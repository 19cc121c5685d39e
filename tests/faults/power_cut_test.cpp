// The power fails between any two changes that saving, editing and removing make to the disk. What
// was reported as saved is whole, an edited clip is the old or the new one, and all other clips are
// unchanged.

#include <algorithm>
#include <optional>

#include <gtest/gtest.h>

#include "figures.h"
#include "power_cut.h"
#include "programs.h"

namespace {

using faults::PowerCut;
using faults::Program;
using faults::Seen;
using faults::Session;

class PowerCutTest : public testing::TestWithParam<Program> {
protected:
    void record()
    {
        GetParam().run(session_);
        const faults::Changes changes = faults::changesSoFar();
        faults::stopDisturbing();
        world_.destroyManager();
        ASSERT_EQ(session_.failures(), 0);
        ASSERT_EQ(session_.reports().back().changes, changes.size())
            << "changes after the last call";
        ASSERT_FALSE(changes.empty());
        disk_.emplace(session_.root(), session_.before(), changes);
        writer_.emplace(session_.root());
    }

    // Tries every state that can be left between one report of the program and the next.
    void cutBetween(const Session::Report& from, const Session::Report& to)
    {
        disk_->forget();
        for (std::size_t count = from.changes; count < to.changes && !HasFailure(); ++count) {
            cutAfter(count, from.seen, to.seen);
        }
        removed_.merge(faults::removedBetween(from.seen, to.seen));
        disk_->forget();
        cutAfter(to.changes, to.seen, to.seen);
    }

    void cutAfter(std::size_t count, const Seen& old, const Seen& next)
    {
        const PowerCut::Sample sample =
            faults::isExhaustive() ? PowerCut::Sample{4096, true} : PowerCut::Sample{24, false};
        const std::size_t states =
            disk_->forEachState(count, sample, random_, [&](const PowerCut::State& state) {
                if (!HasFailure()) {
                    SCOPED_TRACE(state.description);
                    look(state, old, next);
                }
            });
        const std::string name = GetParam().name;
        faults::count("power cuts: " + name.substr(0, name.find('_')), static_cast<long>(states));
    }

    void look(const PowerCut::State& state, const Seen& old, const Seen& next)
    {
        writer_->write(state.tree);
        faults::expectBetween(old, next, removed_, session_.see(),
                              [&](const std::string& id) { return isTorn(state, id); });
    }

    [[nodiscard]] static bool isTorn(const PowerCut::State& state, const std::string& id)
    {
        const bool torn =
            std::any_of(state.torn.begin(), state.torn.end(), [&](const std::string& path) {
                return path.find("/" + id + "/") != std::string::npos;
            });
        faults::count("power cuts that tore a document above 4,096 bytes", torn ? 1 : 0);
        return torn;
    }

    faults::World world_;
    Session session_{world_, faults::recordChanges, true};
    Seen removed_;
    std::optional<PowerCut> disk_;
    std::optional<faults::DiskWriter> writer_;
    support::Random random_{11};
};

TEST_P(PowerCutTest, LeavesWhatWasReported)
{
    ASSERT_NO_FATAL_FAILURE(record());
    const std::vector<Session::Report>& reports = session_.reports();
    for (std::size_t i = 1; i < reports.size() && !HasFailure(); ++i) {
        cutBetween(reports[i - 1], reports[i]);
    }
}

INSTANTIATE_TEST_SUITE_P(Programs, PowerCutTest, testing::ValuesIn(faults::programs()),
                         [](const auto& program) { return std::string(program.param.name); });

} // namespace
