// Each kind of work when memory runs out, at each of its allocations. The work either reports the
// failure and changes nothing, or manages without the memory and is complete.

#include <gtest/gtest.h>

#include "allocations.h"
#include "figures.h"
#include "works.h"

namespace {

using faults::Sight;
using faults::Work;
using faults::World;

using Fail = void (*)(long number);

class AllocationTest : public testing::TestWithParam<std::tuple<std::size_t, Fail>> {
protected:
    static const Work& work() { return faults::works()[std::get<0>(GetParam())]; }

    // False when the work needed fewer allocations than that.
    bool failAt(long number)
    {
        world_.reset();
        const long before = faults::liveBlocks();
        work().prepare(world_);
        const Sight sight = world_.look();
        std::get<1>(GetParam())(number);
        const bool done = work().run(world_);
        const long failed = faults::stopFailingAllocations().failed;
        if (failed > 0 && !done) {
            expectFailure(sight);
        }
        faults::count("allocations that the library did without", failed > 0 && done ? 1 : 0);
        EXPECT_TRUE(done || work().run(world_)) << "when it is done again";
        work().expectDone(world_);
        world_.destroyManager();
        EXPECT_EQ(faults::liveBlocks(), before);
        faults::count("allocations failed: " + work().name, failed);
        return failed > 0;
    }

private:
    void expectFailure(const Sight& before)
    {
        const Sight after = world_.look();
        EXPECT_EQ(after.editable, before.editable);
        faults::expectSameDisk(before.disk, after.disk, work().mayMake);
        if (!work().lists) {
            EXPECT_EQ(after.listed, before.listed);
            EXPECT_TRUE(world_.code == 0 || world_.code == 4711) << world_.code;
            return;
        }
        EXPECT_EQ(world_.code, KRT_PLX_RESULT_NO_MANAGER);
        const auto all = world_.whatAnotherHostSees(faults::Parts::unread);
        for (const auto& [id, description] : after.listed) {
            EXPECT_EQ(description, all.at(id));
        }
    }

    World world_;
};

TEST_P(AllocationTest, AFailureChangesNothingAndTheNextRunSucceeds)
{
    failAt(1000000000); // allocates what stays until the process ends
    const long step = faults::every(7);
    long number = 1;
    while (failAt(number) && !HasFailure()) {
        number += step;
    }
    EXPECT_FALSE(HasFailure()) << "at allocation " << number << " of " << work().name;
}

INSTANTIATE_TEST_SUITE_P(
    Works, AllocationTest,
    testing::Combine(testing::Range<std::size_t>(0, faults::works().size()),
                     testing::Values(faults::failAllocation, faults::failAllocationsFrom)),
    [](const auto& parameter) {
        return faults::caseName(faults::works()[std::get<0>(parameter.param)].name) +
               (std::get<1>(parameter.param) == faults::failAllocation ? "" : "_to_the_end");
    });

} // namespace
