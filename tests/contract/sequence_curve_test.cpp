// Random edits of lanes' events and vibratos' points, beside plain lists that are edited by the same
// rules: append, sort all, destroy the element at the place that the moved one took.
#include <algorithm>
#include <vector>

#include "sequence.h"
#include "support/editing.h"
#include "support/effort.h"
#include "support/limits.h"
#include "support/random.h"

using sequence::steps;
using support::largest;
using support::Random;
using support::smallest;

namespace {

template <class Handle>
struct PointModel {
    Handle* handle;
    std::int32_t pos;
    std::int64_t value;

    friend bool operator==(const PointModel&, const PointModel&) = default;
};

// A curve by the rules that events and vibrato points share.
template <class Handle>
class CurveModel {
public:
    using Points = std::vector<PointModel<Handle>>;

    [[nodiscard]] const Points& points() const { return points_; }
    [[nodiscard]] bool empty() const { return points_.empty(); }
    [[nodiscard]] const std::vector<Handle*>& dead() const { return dead_; }

    PointModel<Handle>* at(std::int32_t pos)
    {
        const auto found = std::ranges::find(points_, pos, &PointModel<Handle>::pos);
        return found == points_.end() ? nullptr : &*found;
    }

    PointModel<Handle>& some(Random& random) { return random.oneOf(points_); }

    // A dead point's address may have come back with the new one.
    void append(Handle* handle, std::int32_t pos, std::int64_t value)
    {
        dead_.clear();
        points_.push_back({handle, pos, value});
        sort();
    }

    void move(PointModel<Handle>& point, std::int32_t pos)
    {
        Handle* const moved = point.handle;
        point.pos = pos;
        sort();
        eraseIf([=](const auto& other) { return other.pos == pos && other.handle != moved; });
    }

    void remove(Handle* handle)
    {
        eraseIf([=](const auto& point) { return point.handle == handle; });
    }

private:
    void sort() { std::ranges::stable_sort(points_, {}, &PointModel<Handle>::pos); }

    template <class Condition>
    void eraseIf(Condition condition)
    {
        for (const auto& point : points_) {
            if (condition(point)) {
                dead_.push_back(point.handle);
            }
        }
        std::erase_if(points_, condition);
    }

    Points points_;
    std::vector<Handle*> dead_;
};

// --- Events -------------------------------------------------------------------------------------------

class EventSequence : public MidiPartTest, public testing::WithParamInterface<std::uint32_t> {
protected:
    using Event = KRT_PLX_MidiEventBase;

    std::int32_t somePos()
    {
        const std::int32_t ends[] = {smallest, largest};
        return random.oneIn(20) ? random.oneOf(ends) : random.between(-12, 12);
    }

    // A little wider than the lane's range.
    std::int32_t someValue() { return random.between(-70, 70); }
    static bool isInRange(std::int32_t value) { return value >= -64 && value <= 63; }

    void insert()
    {
        const std::int32_t pos = somePos();
        const std::int32_t value = someValue();
        Event* const event = KRT_PLX_MutableMidiController_insertEvent(lane, pos, value);
        auto* const standing = model.at(pos);
        ASSERT_EQ(event != nullptr, isInRange(value));
        if (event != nullptr && standing != nullptr) {
            ASSERT_EQ(event, standing->handle);
            standing->value = value;
        } else if (event != nullptr) {
            model.append(event, pos, value);
        }
    }

    void move()
    {
        auto& event = model.some(random);
        const std::int32_t pos = somePos();
        ASSERT_TRUE(KRT_PLX_MutableMidiEvent_move(event.handle, pos));
        model.move(event, pos);
    }

    void setValue()
    {
        auto& event = model.some(random);
        const std::int32_t value = someValue();
        ASSERT_EQ(KRT_PLX_MutableMidiEvent_setValue(event.handle, value), isInRange(value));
        event.value = isInRange(value) ? value : event.value;
    }

    void remove()
    {
        Event* const event = model.some(random).handle;
        ASSERT_TRUE(KRT_PLX_MutableMidiEvent_remove(event));
        model.remove(event);
    }

    void step()
    {
        const std::uint32_t choice = random.below(10);
        if (model.empty() || choice < 5) {
            insert();
        } else if (choice < 8) {
            move();
        } else if (choice < 9) {
            setValue();
        } else {
            remove();
        }
    }

    void compare()
    {
        CurveModel<Event>::Points actual;
        for (Event* const event : support::eventsOf(lane)) {
            actual.push_back(
                {event, KRT_PLX_MidiEventBase_pos(event), KRT_PLX_MidiEventBase_value(event)});
            EXPECT_TRUE(KRT_PLX_MutableMidiController_hasEvent(lane, event));
        }
        ASSERT_TRUE(actual == model.points());
        for (Event* const event : model.dead()) {
            ASSERT_FALSE(KRT_PLX_MutableMidiController_hasEvent(lane, event));
        }
    }

    Random random{GetParam()};
    CurveModel<Event> model;
    KRT_PLX_MidiControllerBase* const lane =
        KRT_PLX_MutableMidiPart_addMidiController(part, KRT_PLX_CONTROLLER_EXCITER);
};

INSTANTIATE_TEST_SUITE_P(Seeds, EventSequence, testing::Range(1u, 1 + support::seeds(6)));

TEST_P(EventSequence, IsThatOfPlainLists)
{
    for (int number = 0; number < steps; ++number) {
        SCOPED_TRACE(number);
        step();
        compare();
        if (HasFatalFailure()) {
            return;
        }
    }
}

// --- Vibrato points -------------------------------------------------------------------------------------

class PointSequence : public NoteTest, public testing::WithParamInterface<std::uint32_t> {
protected:
    using Point = KRT_PLX_VibratoParameterBase;

    [[nodiscard]] bool isWithin(std::int32_t pos) const { return pos >= 0 && pos <= duration; }
    std::int32_t somePos() { return random.oneIn(30) ? largest : random.between(-2, duration + 2); }
    std::uint32_t someValue() { return random.oneIn(20) ? 0x80000000u : random.below(140); }

    void insert()
    {
        const std::int32_t pos = somePos();
        const std::uint32_t value = someValue();
        Point* const point = KRT_PLX_MutableVibrato_insertParameter(vibrato, kind, pos, value);
        auto* const standing = model().at(pos);
        const bool accepted = value <= 127 && (standing != nullptr || isWithin(pos));
        ASSERT_EQ(point != nullptr, accepted);
        if (accepted && standing != nullptr) {
            ASSERT_EQ(point, standing->handle);
            standing->value = value;
        } else if (accepted) {
            model().append(point, pos, value);
        }
    }

    void move()
    {
        auto& point = model().some(random);
        const std::int32_t pos = somePos();
        ASSERT_EQ(KRT_PLX_MutableVibratoParameter_move(point.handle, pos), isWithin(pos));
        if (isWithin(pos)) {
            model().move(point, pos);
        }
    }

    void setValue()
    {
        auto& point = model().some(random);
        const std::uint32_t value = someValue();
        ASSERT_EQ(KRT_PLX_MutableVibratoParameter_setValue(point.handle, value), value <= 127);
        point.value = value <= 127 ? value : point.value;
    }

    void remove()
    {
        Point* const point = model().some(random).handle;
        ASSERT_TRUE(KRT_PLX_MutableVibratoParameter_remove(point));
        model().remove(point);
    }

    // Points beyond a shortened vibrato stay.
    void setDuration()
    {
        duration = random.between(0, 30);
        ASSERT_TRUE(KRT_PLX_MutableVibrato_setDuration(vibrato, duration));
    }

    void step()
    {
        kind = random.below(2);
        const std::uint32_t choice = random.below(20);
        if (choice == 0) {
            setDuration();
        } else if (model().empty() || choice < 11) {
            insert();
        } else if (choice < 16) {
            move();
        } else if (choice < 18) {
            setValue();
        } else {
            remove();
        }
    }

    void compare()
    {
        for (kind = 0; kind < 2; ++kind) {
            CurveModel<Point>::Points actual;
            for (Point* const point : support::pointsOf(vibrato, kind)) {
                actual.push_back({point, KRT_PLX_VibratoParameterBase_pos(point),
                                  KRT_PLX_VibratoParameterBase_value(point)});
                EXPECT_EQ(KRT_PLX_VibratoParameterBase_type(point), kind);
                EXPECT_TRUE(KRT_PLX_MutableVibrato_hasParameter(vibrato, kind, point));
                EXPECT_FALSE(KRT_PLX_MutableVibrato_hasParameter(vibrato, 1 - kind, point));
            }
            ASSERT_TRUE(actual == model().points());
            for (Point* const point : model().dead()) {
                ASSERT_FALSE(KRT_PLX_MutableVibrato_hasParameter(vibrato, kind, point));
            }
        }
    }

    CurveModel<Point>& model() { return models[kind]; }

    Random random{GetParam()};
    CurveModel<Point> models[2];
    std::uint32_t kind = 0;
    std::int32_t duration = 0;
    KRT_PLX_VibratoBase* const vibrato = KRT_PLX_MutableNote_vibrato(note);
};

INSTANTIATE_TEST_SUITE_P(Seeds, PointSequence, testing::Range(1u, 1 + support::seeds(6)));

TEST_P(PointSequence, IsThatOfPlainLists)
{
    for (int number = 0; number < steps; ++number) {
        SCOPED_TRACE(number);
        step();
        compare();
        if (HasFatalFailure()) {
            return;
        }
    }
}

} // namespace
