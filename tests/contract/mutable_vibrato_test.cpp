#include <string>
#include <utility>
#include <vector>

#include "support/editing.h"
#include "support/limits.h"
#include "support/properties.h"

using support::farAway;
using support::largest;
using support::pointsOf;
using support::smallest;

namespace {

using Point = KRT_PLX_VibratoParameterBase;
using Points = std::vector<Point*>;
using PointValues = std::vector<std::pair<std::int32_t, std::uint32_t>>;

class MutableVibrato : public NoteTest {
protected:
    KRT_PLX_VibratoBase* const vibrato = KRT_PLX_MutableNote_vibrato(note);
};

TEST_F(MutableVibrato, BelongsToItsNoteAndHasNoPoints)
{
    EXPECT_EQ(KRT_PLX_MutableVibrato_parent(vibrato), note);
    EXPECT_TRUE(KRT_PLX_VibratoBase_isMutable(vibrato));
    EXPECT_EQ(KRT_PLX_Vibrato_parent(vibrato), nullptr);
    EXPECT_EQ(pointsOf(vibrato, KRT_PLX_VIBRATO_DEPTH), Points{});
    EXPECT_EQ(pointsOf(vibrato, KRT_PLX_VIBRATO_RATE), Points{});
}

TEST_F(MutableVibrato, HasTwoKindsOfPoint)
{
    KRT_PLX_MutableVibrato_setDuration(vibrato, 480);
    for (const std::uint32_t kind : {2u, 3u, 256u, 0x80000000u, 0xFFFFFFFFu}) {
        EXPECT_EQ(KRT_PLX_MutableVibrato_insertParameter(vibrato, kind, 0, 64), nullptr) << kind;
        std::uint64_t count = 0;
        EXPECT_TRUE(KRT_PLX_VibratoBase_numParameters(vibrato, kind, &count));
        EXPECT_EQ(count, KRT_PLX_VIBRATO_NO_COUNT);
        EXPECT_EQ(KRT_PLX_MutableVibrato_parameter(vibrato, kind, 0), nullptr);
        EXPECT_EQ(KRT_PLX_MutableVibrato_parameter(vibrato, kind, farAway), nullptr);
        EXPECT_FALSE(KRT_PLX_MutableVibrato_hasParameter(vibrato, kind, nullptr));
    }
}

// --- Points -----------------------------------------------------------------------------------------------

class MutableVibratoPoint : public MutableVibrato,
                            public testing::WithParamInterface<KRT_PLX_VibratoPointKind> {
protected:
    MutableVibratoPoint() { KRT_PLX_MutableVibrato_setDuration(vibrato, 480); }

    Point* insert(std::int32_t pos, std::uint32_t value)
    {
        return KRT_PLX_MutableVibrato_insertParameter(vibrato, kind, pos, value);
    }

    PointValues values()
    {
        PointValues all;
        for (Point* const point : pointsOf(vibrato, kind)) {
            all.emplace_back(KRT_PLX_VibratoParameterBase_pos(point),
                             KRT_PLX_VibratoParameterBase_value(point));
        }
        return all;
    }

    bool has(Point* point) { return KRT_PLX_MutableVibrato_hasParameter(vibrato, kind, point); }

    const std::uint32_t kind = GetParam();
    const std::uint32_t otherKind = 1 - kind;
};

INSTANTIATE_TEST_SUITE_P(Kinds, MutableVibratoPoint,
                         testing::Values(KRT_PLX_VIBRATO_DEPTH, KRT_PLX_VIBRATO_RATE),
                         [](const auto& kind) {
                             return kind.param == KRT_PLX_VIBRATO_DEPTH ? "depth" : "rate";
                         });

TEST_P(MutableVibratoPoint, HasWhatItWasAskedFor)
{
    Point* const point = insert(10, 50);
    ASSERT_NE(point, nullptr);
    EXPECT_EQ(KRT_PLX_VibratoParameterBase_type(point), kind);
    EXPECT_EQ(KRT_PLX_VibratoParameterBase_pos(point), 10);
    EXPECT_EQ(KRT_PLX_VibratoParameterBase_value(point), 50u);
    EXPECT_TRUE(KRT_PLX_VibratoParameterBase_isMutable(point));
    EXPECT_EQ(KRT_PLX_MutableVibratoParameter_parent(point), vibrato);
    EXPECT_EQ(KRT_PLX_VibratoParameter_parent(point), nullptr);
    EXPECT_EQ(pointsOf(vibrato, kind), Points{point});
    EXPECT_EQ(pointsOf(vibrato, otherKind), Points{});
}

TEST_P(MutableVibratoPoint, StandsInTheOrderOfPositions)
{
    Point* const middle = insert(240, 1);
    Point* const last = insert(480, 2);
    Point* const first = insert(0, 3);
    Point* const second = insert(239, 4);
    EXPECT_EQ(pointsOf(vibrato, kind), (Points{first, second, middle, last}));
}

TEST_P(MutableVibratoPoint, StandsWithinTheVibrato)
{
    EXPECT_NE(insert(0, 64), nullptr);
    EXPECT_NE(insert(480, 64), nullptr);
    for (const std::int32_t pos : {481, largest, -1, smallest}) {
        EXPECT_EQ(insert(pos, 64), nullptr) << pos;
    }
    EXPECT_EQ(values(), (PointValues{{0, 64}, {480, 64}}));
}

TEST_P(MutableVibratoPoint, OfAVibratoWithoutLengthStandsAtItsStart)
{
    KRT_PLX_MutableVibrato_setDuration(vibrato, 0);
    EXPECT_NE(insert(0, 64), nullptr);
    EXPECT_EQ(insert(1, 64), nullptr);
    EXPECT_EQ(values(), (PointValues{{0, 64}}));
}

TEST_P(MutableVibratoPoint, IsInsertedWithAValueOfItsRangeOnly)
{
    const std::uint32_t largestValue =
        support::propertyOf(KRT_PLX_VibratoParameterBase_value).maximum;
    EXPECT_NE(insert(10, largestValue), nullptr);
    for (const std::uint32_t value : {largestValue + 1, 255u, 256u, 0x80000000u, 0xFFFFFFFFu}) {
        EXPECT_EQ(insert(20, value), nullptr) << "point.value = " << value;
    }
    EXPECT_EQ(values(), (PointValues{{10, largestValue}}));
}

TEST_P(MutableVibratoPoint, IsUpdatedWhenInsertedAgain)
{
    Point* const point = insert(10, 50);
    insert(20, 1);
    EXPECT_EQ(insert(10, 60), point);
    EXPECT_EQ(values(), (PointValues{{10, 60}, {20, 1}}));
    EXPECT_EQ(insert(10, 200), nullptr);
    EXPECT_EQ(values(), (PointValues{{10, 60}, {20, 1}}));
}

TEST_P(MutableVibratoPoint, OutlivesAShorteningOfTheVibrato)
{
    Point* const point = insert(400, 50);
    EXPECT_TRUE(KRT_PLX_MutableVibrato_setDuration(vibrato, 100));
    EXPECT_EQ(pointsOf(vibrato, kind), Points{point});
    EXPECT_EQ(insert(400, 60), point);
    EXPECT_EQ(insert(401, 60), nullptr);
    EXPECT_FALSE(KRT_PLX_MutableVibratoParameter_move(point, 400));
    EXPECT_EQ(values(), (PointValues{{400, 60}}));
    EXPECT_TRUE(KRT_PLX_MutableVibratoParameter_move(point, 100));
    EXPECT_EQ(values(), (PointValues{{100, 60}}));
}

TEST_P(MutableVibratoPoint, MovesWithinTheVibrato)
{
    Point* const a = insert(100, 1);
    Point* const b = insert(200, 2);
    Point* const c = insert(300, 3);
    EXPECT_TRUE(KRT_PLX_MutableVibratoParameter_move(a, 250));
    EXPECT_EQ(pointsOf(vibrato, kind), (Points{b, a, c}));
    EXPECT_TRUE(KRT_PLX_MutableVibratoParameter_move(c, 0));
    EXPECT_EQ(pointsOf(vibrato, kind), (Points{c, b, a}));
    EXPECT_TRUE(KRT_PLX_MutableVibratoParameter_move(b, 480));
    EXPECT_EQ(pointsOf(vibrato, kind), (Points{c, a, b}));
    EXPECT_TRUE(KRT_PLX_MutableVibratoParameter_move(a, 250));
    for (const std::int32_t pos : {481, -1, smallest, largest}) {
        EXPECT_FALSE(KRT_PLX_MutableVibratoParameter_move(a, pos)) << pos;
    }
    EXPECT_EQ(values(), (PointValues{{0, 3}, {250, 1}, {480, 2}}));
}

TEST_P(MutableVibratoPoint, DestroysTheOneItLandsOn)
{
    Point* const first = insert(0, 1);
    Point* const middle = insert(100, 2);
    Point* const last = insert(200, 3);
    EXPECT_TRUE(KRT_PLX_MutableVibratoParameter_move(last, 100));
    EXPECT_FALSE(has(middle));
    EXPECT_TRUE(has(last));
    EXPECT_EQ(values(), (PointValues{{0, 1}, {100, 3}}));
    EXPECT_TRUE(KRT_PLX_MutableVibratoParameter_move(first, 100));
    EXPECT_FALSE(has(last));
    EXPECT_EQ(pointsOf(vibrato, kind), Points{first});
    EXPECT_EQ(values(), (PointValues{{100, 1}}));
}

TEST_P(MutableVibratoPoint, IsRemoved)
{
    Point* const first = insert(0, 1);
    Point* const middle = insert(100, 2);
    Point* const last = insert(200, 3);
    EXPECT_TRUE(KRT_PLX_MutableVibratoParameter_remove(middle));
    EXPECT_FALSE(has(middle));
    EXPECT_EQ(pointsOf(vibrato, kind), (Points{first, last}));
    EXPECT_TRUE(KRT_PLX_MutableVibratoParameter_remove(first));
    EXPECT_TRUE(KRT_PLX_MutableVibratoParameter_remove(last));
    EXPECT_EQ(values(), PointValues{});
}

TEST_P(MutableVibratoPoint, BelongsToOneCurveOfOneVibrato)
{
    Point* const point = insert(10, 50);
    Point* const twin = KRT_PLX_MutableVibrato_insertParameter(vibrato, otherKind, 10, 60);
    EXPECT_NE(twin, point);
    EXPECT_TRUE(has(point));
    EXPECT_FALSE(has(twin));
    EXPECT_FALSE(has(nullptr));
    EXPECT_FALSE(KRT_PLX_MutableVibrato_hasParameter(vibrato, otherKind, point));
    EXPECT_FALSE(KRT_PLX_MutableVibrato_hasParameter(vibrato, 2, point));
    KRT_PLX_VibratoBase* const other = KRT_PLX_MutableNote_vibrato(support::insertNote(part, 1000));
    EXPECT_FALSE(KRT_PLX_MutableVibrato_hasParameter(other, kind, point));
    KRT_PLX_MutableVibratoParameter_move(twin, 20);
    EXPECT_EQ(values(), (PointValues{{10, 50}}));
}

TEST_P(MutableVibratoPoint, HasNoneBehindTheLast)
{
    insert(10, 50);
    EXPECT_EQ(KRT_PLX_MutableVibrato_parameter(vibrato, kind, 1), nullptr);
    EXPECT_EQ(KRT_PLX_MutableVibrato_parameter(vibrato, kind, farAway), nullptr);
    EXPECT_FALSE(KRT_PLX_VibratoBase_numParameters(vibrato, kind, nullptr));
}

} // namespace
