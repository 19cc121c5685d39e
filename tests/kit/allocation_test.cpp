// The kit and its C++ face when memory runs out, at each allocation that they or the library make: the
// result is the documented one, what a copy does not have is told, and no block is left behind.
#include <new>

#include <korvel/plx.hpp>

#include "comparison.h"
#include "faults/allocations.h"
#include "faults/library_call.h"
#include "support/clip_model.h"

namespace {

namespace plx = korvel::plx;
using kit::Items;
using kit::linked;
using kit::Notices;
using support::ClipModel;
using support::text;
using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSubsetOf;

using Fail = void (*)(long number);

constexpr long none = 1000000000;

class KitAllocation : public SaveTest, public testing::WithParamInterface<Fail> {
protected:
    KitAllocation() { kit::fillWithEverything(clip); }

    // Calls with that allocation failing; whether one failed. An exception is bad_alloc, and kept.
    template <class Call>
    bool failAt(long number, Call call)
    {
        hasThrown = false;
        GetParam()(number);
        try {
            const faults::Inside inside(true);
            call();
        } catch (const std::bad_alloc&) {
            hasThrown = true;
        }
        return faults::stopFailingAllocations().failed > 0;
    }

    // Tries something with each allocation failing in turn, until it needs no more. `attempt(number)`
    // is false then. What it keeps for good is allocated before.
    template <class Attempt>
    long failEach(Attempt attempt)
    {
        attempt(none);
        long number = 1;
        bool hasFailed = true;
        for (; hasFailed && !HasFailure(); ++number) {
            const long before = faults::liveBlocks();
            hasFailed = attempt(number);
            EXPECT_EQ(faults::liveBlocks(), before) << "at allocation " << number;
        }
        EXPECT_FALSE(HasFailure()) << "at allocation " << number - 1;
        return number - 2;
    }

    // A note that is missing lacks all that belongs to it.
    static Items withWhatBelongsToNotes(Items items, const Notices& told)
    {
        for (const KRT_PLX_KitNotice& notice : told.all()) {
            if (notice.item == KRT_PLX_KIT_NOTE && notice.property[0] == '\0') {
                const std::string number = " " + std::to_string(notice.index);
                items.insert({"attack" + number, "release" + number, "singingSkill" + number,
                              "vibrato" + number});
            }
        }
        return items;
    }

    // Whether the copy has all that the clip has, but for what is told.
    void expectTold(KRT_PLX_ClipBase* copy, const Notices& told)
    {
        EXPECT_THAT(kit::differences(model(), support::modelOfEditable(copy)),
                    IsSubsetOf(withWhatBelongsToNotes(itemsOf(told), told)));
    }

    [[nodiscard]] ClipModel model() const { return support::modelOfEditable(clip); }

    // A copy, made without any failure.
    KRT_PLX_ClipBase* copyOfClip()
    {
        return KRT_PLX_Kit_edit(linked(), clip, KRT_PLX_NO_LANGUAGE, nullptr);
    }

    // What the work makes of a copy, and what it makes of one when an allocation fails: it is done, or
    // it is not and nothing was changed.
    template <class Change>
    void expectDoneOrNot(Change change)
    {
        KRT_PLX_ClipBase* const whole = copyOfClip();
        ASSERT_TRUE(change(KRT_PLX_MutableClip_midiPart(whole), nullptr));
        failEach([&](long number) {
            KRT_PLX_ClipBase* const copy = copyOfClip();
            KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_midiPart(copy);
            Notices told;
            bool isDone = false;
            const bool hasFailed = failAt(number, [&] { isDone = change(part, told.report()); });
            EXPECT_EQ(describe(support::modelOfEditable(copy)),
                      describe(support::modelOfEditable(isDone ? whole : clip)));
            KRT_PLX_MutableClip_destroy(copy);
            return hasFailed;
        });
        KRT_PLX_MutableClip_destroy(whole);
    }

    bool hasThrown = false;
};

TEST_P(KitAllocation, ACopyIsCompleteOrToldOrNone)
{
    const long places = failEach([this](long number) {
        Notices told;
        KRT_PLX_ClipBase* copy = nullptr;
        const bool hasFailed = failAt(number, [&] {
            copy = KRT_PLX_Kit_edit(linked(), clip, KRT_PLX_NO_LANGUAGE, told.report());
        });
        if (copy != nullptr) {
            expectTold(copy, told);
        } else {
            EXPECT_THAT(told.lines(), AnyOf(IsEmpty(), ElementsAre(HasSubstr("part: not taken"))));
        }
        KRT_PLX_MutableClip_destroy(copy);
        return hasFailed;
    });
    EXPECT_GT(places, 20);
}

TEST_P(KitAllocation, ACopyOfAClipThatIsReadForItIsCompleteOrToldOrNone)
{
    const std::string id = support::utf8(KRT_PLX_Clip_id(support::save(clip).clip));
    failEach([&](long number) {
        const auto other = support::createManager({systemFolder(), userFolder(), {}, {}});
        KRT_PLX_Manager_readAllClipFiles(other.get());
        KRT_PLX_ClipBase* const source = support::findUserClip(other.get(), id);
        Notices told;
        KRT_PLX_ClipBase* copy = nullptr;
        const bool hasFailed = failAt(number, [&] {
            copy = KRT_PLX_Kit_edit(linked(), source, KRT_PLX_NO_LANGUAGE, told.report());
        });
        EXPECT_TRUE(copy != nullptr || !told.lines().empty() || hasFailed);
        if (copy != nullptr) {
            EXPECT_THAT(
                kit::differences(support::modelOfRead(source), support::modelOfEditable(copy)),
                IsSubsetOf(withWhatBelongsToNotes(itemsOf(told), told)));
        }
        return hasFailed;
    });
}

TEST_P(KitAllocation, AChangeIsDoneOrNot)
{
    expectDoneOrNot([](KRT_PLX_PartBase* part, KRT_PLX_KitReport* report) {
        return KRT_PLX_Kit_transpose(linked(), part, 2, report);
    });
    expectDoneOrNot([](KRT_PLX_PartBase* part, KRT_PLX_KitReport* report) {
        return KRT_PLX_Kit_move(linked(), part, 480, report);
    });
    expectDoneOrNot([](KRT_PLX_PartBase* part, KRT_PLX_KitReport* report) {
        return KRT_PLX_Kit_cut(linked(), part, 0, 8, report);
    });
}

TEST_P(KitAllocation, AnEditorHasAllOrIsNone)
{
    KRT_PLX_ClipBase* const saved = support::save(clip).clip;
    const long places = failEach([&](long number) {
        KRT_PLX_PropertyEditor* editor = nullptr;
        const bool hasFailed = failAt(number, [&] {
            editor = KRT_PLX_Kit_editProperties(linked(), saved, KRT_PLX_KIT_KEEP_ALL);
        });
        EXPECT_EQ(editor == nullptr, hasFailed);
        KRT_PLX_UserClip_destroyPropertyEditor(saved, editor);
        return hasFailed;
    });
    EXPECT_GT(places, 3);
}

TEST_P(KitAllocation, FindingClipsAllocatesNothing)
{
    support::save(clip);
    const support::Text name = text("nAmE");
    KRT_PLX_KitQuery query = KRT_PLX_Kit_anyClip();
    query.name = name.c_str();
    std::uint64_t place = 0;
    KRT_PLX_ClipBase* found = nullptr;
    EXPECT_FALSE(failAt(1, [&] { found = KRT_PLX_Kit_find(linked(), manager(), &query, &place); }));
    EXPECT_NE(found, nullptr);
}

// --- The C++ face -----------------------------------------------------------------------------------

TEST_P(KitAllocation, EditInCppThrowsOrTells)
{
    const plx::MutableClip source(clip);
    KRT_PLX_MutableMidiPart_addMidiController(KRT_PLX_MutableClip_midiPart(clip),
                                              KRT_PLX_CONTROLLER_AIR); // is told: saving drops it
    long thrown = 0;
    failEach([&](long number) {
        plx::EditResult result;
        const bool hasFailed = failAt(number, [&] { result = plx::edit(source); });
        thrown += hasThrown ? 1 : 0;
        EXPECT_FALSE(hasThrown && result);
        if (result) {
            EXPECT_EQ(describe(support::modelOfEditable(result.clip.raw())) != describe(model()),
                      std::ranges::any_of(result.notices, [](const plx::Notice& notice) {
                          return notice.reason == plx::Reason::refused;
                      }));
        }
        result.clip.destroy();
        return hasFailed;
    });
    EXPECT_GT(thrown, 0);
}

TEST_P(KitAllocation, TransposeInCppThrowsOrTellsAndChangesNothing)
{
    const plx::MutableMidiPart part(KRT_PLX_MutableClip_midiPart(clip));
    const std::string before = describe(model());
    long thrown = 0;
    failEach([&](long number) {
        plx::ChangeResult result;
        const bool hasFailed = failAt(number, [&] { result = plx::transpose(part, 127); });
        thrown += hasThrown ? 1 : 0;
        EXPECT_FALSE(result);
        EXPECT_EQ(result.notices.size(), hasThrown ? 0U : 1U);
        return hasFailed;
    });
    EXPECT_GT(thrown, 0);
    EXPECT_EQ(describe(model()), before);
}

TEST_P(KitAllocation, FindInCppThrowsOrFinds)
{
    const plx::UserClip saved(support::save(clip).clip);
    plx::Query query;
    query.genres = {text("A text that is longer than any small buffer")};
    long thrown = 0;
    failEach([&](long number) {
        std::vector<plx::Clip> found;
        const bool hasFailed =
            failAt(number, [&] { found = plx::find(plx::Manager(manager()), query); });
        thrown += hasThrown ? 1 : 0;
        EXPECT_EQ(found.size(), hasThrown ? 0U : 1U);
        return hasFailed;
    });
    EXPECT_GT(thrown, 0);
}

INSTANTIATE_TEST_SUITE_P(One, KitAllocation, testing::Values(faults::failAllocation));
INSTANTIATE_TEST_SUITE_P(AllFromThere, KitAllocation, testing::Values(faults::failAllocationsFrom));

} // namespace
