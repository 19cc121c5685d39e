// Building and editing when memory runs out: every function that does either, at each of its
// allocations.

#include <fstream>
#include <regex>
#include <set>
#include <thread>

#include <gtest/gtest.h>

#include "allocations.h"
#include "figures.h"
#include "operations.h"
#include "support/clip_model.h"
#include "support/editing.h"
#include "support/host.h"

namespace {

using faults::Desk;
using faults::Operation;
using faults::Operations;

const std::vector<std::vector<const Operations*>>& sequences()
{
    using namespace faults;
    static const std::vector<std::vector<const Operations*>> all = {
        {&clipOperations(), &midiOperations(), &removals()},
        {&clipOperations(), &aiOperations()},
        {&clipOperations(), &audioOperations()},
        {&clipOperations(), &audioOperations(), &midiOperations(), &aiOperations()},
    };
    return all;
}

std::string describe(const Desk& desk)
{
    return desk.clip == nullptr ? "" : support::describe(support::modelOfEditable(desk.clip));
}

using Fail = void (*)(long number);

// Makes the operation fail at one allocation after another until it succeeds. It can be repeated on
// the same objects, because a failure leaves them as they were.
void failEverywhere(const Operation& operation, Desk& desk, Fail fail)
{
    for (long number = 1;; ++number) {
        const std::string before = describe(desk);
        fail(number);
        const bool done = operation.run(desk);
        const auto [made, failed] = faults::stopFailingAllocations();
        faults::count("allocations failed while building", failed);
        if (failed == 0) {
            EXPECT_TRUE(done);
            EXPECT_LT(made, number);
            return;
        }
        EXPECT_FALSE(done) << "at allocation " << number;
        EXPECT_EQ(describe(desk), before) << "at allocation " << number;
        if (done || testing::Test::HasFailure()) {
            return;
        }
    }
}

class BuildingTest : public testing::Test {
protected:
    void SetUp() override
    {
        std::filesystem::create_directories(folders.system);
        support::writeFile(wave, "RIFF");
        // Allocates what stays until the process ends, also for exceptions.
        support::createManager(folders).destroy();
        EXPECT_EQ(createWithoutMemory(), nullptr);
    }

    [[nodiscard]] KRT_PLX_Manager* createWithoutMemory() const
    {
        const support::Text id = support::uniqueAppID();
        const support::Text system = support::pathText(folders.system);
        const support::Text user = support::pathText(folders.user);
        faults::failAllocationsFrom(1);
        KRT_PLX_Manager* const manager =
            faults::lib(KRT_PLX_CreateManager, id.c_str(), system.c_str(), user.c_str(), nullptr, 0,
                        nullptr, 0, nullptr);
        EXPECT_GT(faults::stopFailingAllocations().failed, 0);
        return manager;
    }

    // An empty clip and its filter, with a manager that lives as long as the test.
    Desk deskWithFilter()
    {
        manager_ = support::createManager(folders);
        Desk desk(wave);
        desk.manager = manager_.get();
        desk.clip = faults::lib(KRT_PLX_Manager_createMutableClip, desk.manager);
        desk.filter = faults::lib(KRT_PLX_MutableClip_filter, desk.clip);
        return desk;
    }

    support::ScratchFolder scratch;
    support::Folders folders{scratch.path() / "system", scratch.path() / "user", {}, {}};
    support::Path wave = scratch.path() / "take.wav";

private:
    support::OwnedManager manager_;
};

class BuildTest : public BuildingTest, public testing::WithParamInterface<Fail> {
protected:
    // The objects live as long as the manager; after it no block of theirs is left.
    void failEverywhereIn(const std::vector<const Operations*>& sequence)
    {
        const long before = faults::liveBlocks();
        Desk desk(wave);
        const support::Text id = support::uniqueAppID();
        const support::Text system = support::pathText(folders.system);
        const support::Text user = support::pathText(folders.user);
        desk.manager = faults::lib(KRT_PLX_CreateManager, id.c_str(), system.c_str(), user.c_str(),
                                   nullptr, 0, nullptr, 0, nullptr);
        ASSERT_NE(desk.manager, nullptr);
        for (const Operations* operations : sequence) {
            for (const Operation& operation : *operations) {
                SCOPED_TRACE(operation.name);
                failEverywhere(operation, desk, GetParam());
            }
        }
        EXPECT_GT(faults::liveBlocks(), before);
        faults::lib(KRT_PLX_Manager_destroy, desk.manager);
        EXPECT_EQ(faults::liveBlocks(), before);
    }
};

// The runtime's data about a thread that throws must not need memory that has run out.
TEST_F(BuildingTest, TheFirstExceptionOfAThreadNeedsNoMemory)
{
    for (int i = 0; i < 3; ++i) {
        std::thread([&] { EXPECT_EQ(createWithoutMemory(), nullptr); }).join();
    }
}

TEST_P(BuildTest, AFailedOperationChangesNothingAndLeaksNothing)
{
    for (const auto& sequence : sequences()) {
        failEverywhereIn(sequence);
    }
}

std::uint64_t numTypes(const Desk& desk)
{
    return support::countOf(KRT_PLX_Filter_numTypes, desk.filter);
}

bool addType(const Desk& desk)
{
    const support::Text tag = support::text("tag " + std::to_string(numTypes(desk)));
    return faults::lib(KRT_PLX_MutableFilter_addType, desk.filter, tag.c_str());
}

// At some length a list of tags gets an index.
TEST_P(BuildTest, AFailedTagLeavesALongListAsItWas)
{
    const Desk desk = deskWithFilter();
    long failures = 0;
    for (std::uint64_t size = 0; size < 1030; ++size) {
        long failed = 1;
        for (long number = 1; failed != 0; ++number) {
            ASSERT_EQ(numTypes(desk), size);
            GetParam()(number);
            const bool done = addType(desk);
            failed = faults::stopFailingAllocations().failed;
            failures += failed;
            ASSERT_EQ(done, failed == 0);
        }
    }
    EXPECT_GT(failures, 2000); // for a text each time, and at last for the index
    for (std::uint64_t index = 0; index < numTypes(desk); ++index) {
        EXPECT_EQ(support::utf8(KRT_PLX_Filter_type(desk.filter, index)),
                  "tag " + std::to_string(index));
    }
}

class EditableListTest : public BuildingTest {
protected:
    static KRT_PLX_MidiControllerBase* laneOf(const Desk& desk)
    {
        KRT_PLX_PartBase* const part = faults::lib(KRT_PLX_MutableClip_createMidiPart, desk.clip);
        return faults::lib(KRT_PLX_MutableMidiPart_addMidiController, part, 0U);
    }

    static std::vector<KRT_PLX_MidiEventBase*> fill(KRT_PLX_MidiControllerBase* lane, int count)
    {
        std::vector<KRT_PLX_MidiEventBase*> events;
        for (int pos = 0; pos < count; ++pos) {
            events.push_back(faults::lib(KRT_PLX_MutableMidiController_insertEvent, lane, pos, 1));
        }
        return events;
    }
};

// Events are held in blocks of many events, which are freed when they are removed.
TEST_F(EditableListTest, GivesBackTheMemoryOfWhatWasRemoved)
{
    constexpr int sparse = 500;
    const Desk desk = deskWithFilter();
    KRT_PLX_MidiControllerBase* const lane = laneOf(desk);
    const long before = faults::liveBlocks();
    const auto events = fill(lane, 100 * sparse);
    std::vector<KRT_PLX_MidiEventBase*> kept;
    for (std::size_t index = 0; index < events.size(); ++index) {
        if (index % sparse == 0) {
            kept.push_back(events[index]);
        } else {
            EXPECT_TRUE(faults::lib(KRT_PLX_MutableMidiEvent_remove, events[index]));
        }
    }
    const auto keptCount = static_cast<long>(kept.size());
    EXPECT_LE(faults::liveBlocks() - before, keptCount + 3);
    EXPECT_EQ(support::countOf(KRT_PLX_MidiControllerBase_numEvents, lane), kept.size());
    for (std::size_t index = 0; index < kept.size(); ++index) {
        EXPECT_EQ(KRT_PLX_MutableMidiController_event(lane, index), kept[index]);
        EXPECT_EQ(KRT_PLX_MidiEventBase_pos(kept[index]), static_cast<int>(index) * sparse);
    }
}

INSTANTIATE_TEST_SUITE_P(Memory, BuildTest,
                         testing::Values(faults::failAllocation, faults::failAllocationsFrom),
                         [](const auto& parameter) {
                             return parameter.index == 0 ? "FailsOnce" : "IsExhausted";
                         });

// A function that is missing in the list would not be tested.
TEST(OperationsTest, HoldEveryFunctionThatBuildsOrEdits)
{
    std::set<std::string, std::less<>> tested;
    for (const auto& sequence : sequences()) {
        for (const Operations* operations : sequence) {
            for (const Operation& operation : *operations) {
                tested.emplace(operation.name);
            }
        }
    }
    std::ifstream exports(KRT_PLX_TEST_EXPORTS_FILE);
    const std::regex building(
        "KRT_PLX_(Mutable[A-Za-z]+_(add|create|insert|set|move|protect|remove).*)");
    int found = 0;
    for (std::string name; std::getline(exports, name);) {
        std::smatch match;
        if (std::regex_match(name, match, building)) {
            ++found;
            EXPECT_TRUE(tested.contains(match[1].str())) << match[1];
        }
    }
    EXPECT_GT(found, 80);
}

} // namespace
