// A note's vibrato: its type and duration, where reading it stops, and the points of its curves.

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "support/reading.h"

namespace {

using support::array;
using support::jsonString;
using support::notArrays;
using support::noteObject;
using support::notIntegers;
using support::notObjects;
using support::Object;

using Points = std::vector<std::pair<std::int32_t, std::uint32_t>>;

constexpr std::uint32_t depths = 0;
constexpr std::uint32_t rates = 1;

Points pointsOf(KRT_PLX_VibratoBase* vibrato, std::uint32_t type)
{
    Points points;
    while (KRT_PLX_VibratoParameterBase* point =
               KRT_PLX_Vibrato_parameter(vibrato, type, points.size())) {
        EXPECT_EQ(KRT_PLX_VibratoParameterBase_type(point), type);
        EXPECT_EQ(KRT_PLX_VibratoParameter_parent(point), vibrato);
        EXPECT_FALSE(KRT_PLX_VibratoParameterBase_isMutable(point));
        EXPECT_TRUE(KRT_PLX_Vibrato_hasParameter(vibrato, type, point));
        points.emplace_back(KRT_PLX_VibratoParameterBase_pos(point),
                            KRT_PLX_VibratoParameterBase_value(point));
    }
    std::uint64_t count = 0;
    EXPECT_TRUE(KRT_PLX_VibratoBase_numParameters(vibrato, type, &count));
    EXPECT_EQ(count, points.size());
    return points;
}

std::string point(std::int64_t pos, std::int64_t value)
{
    return Object{{"pos", std::to_string(pos)}, {"value", std::to_string(value)}};
}

const Object vibratoObject = {{"type", "3"},
                              {"duration", "120"},
                              {"depths", array({point(0, 10), point(60, 20)})},
                              {"rates", array({point(120, 30)})}};

// The note is 240 long.
class VibratoDocumentTest : public ReaderTest {
protected:
    KRT_PLX_VibratoBase* readVibrato(const std::string& value)
    {
        KRT_PLX_NoteBase* note = readNote(noteObject().with("vibrato", value));
        EXPECT_NE(note, nullptr) << value;
        return KRT_PLX_Note_vibrato(note);
    }
    KRT_PLX_VibratoBase* readWith(std::string_view key, const std::optional<std::string>& value)
    {
        return readVibrato(vibratoObject.with(key, value));
    }

    static void expectVibrato(KRT_PLX_VibratoBase* vibrato, std::uint32_t type,
                              std::int32_t duration, const Points& depthPoints,
                              const Points& ratePoints)
    {
        ASSERT_NE(vibrato, nullptr);
        EXPECT_EQ(KRT_PLX_VibratoBase_type(vibrato), type);
        EXPECT_EQ(KRT_PLX_VibratoBase_duration(vibrato), duration);
        EXPECT_EQ(pointsOf(vibrato, depths), depthPoints);
        EXPECT_EQ(pointsOf(vibrato, rates), ratePoints);
    }
};

const Points allDepths = {{0, 10}, {60, 20}};
const Points allRates = {{120, 30}};

TEST_F(VibratoDocumentTest, FillsTheVibratoWhateverTheOrderOfItsMembers)
{
    expectVibrato(readVibrato(vibratoObject), 3, 120, allDepths, allRates);
    expectVibrato(readVibrato(vibratoObject.reversed()), 3, 120, allDepths, allRates);
}

TEST_F(VibratoDocumentTest, BelongsToItsNote)
{
    KRT_PLX_VibratoBase* vibrato = readVibrato(vibratoObject);
    EXPECT_EQ(KRT_PLX_Vibrato_parent(vibrato),
              KRT_PLX_MidiPart_note(KRT_PLX_Clip_midiPart(clipOfPart()), 0));
    EXPECT_FALSE(KRT_PLX_VibratoBase_isMutable(vibrato));
}

TEST_F(VibratoDocumentTest, IsUnsetWhenItIsAbsentOrEmptyOrNoObject)
{
    expectVibrato(KRT_PLX_Note_vibrato(readNote(noteObject())), 0, 0, {}, {});
    expectVibrato(readVibrato("{}"), 0, 0, {}, {});
    for (const std::string& value : notObjects()) {
        expectVibrato(readVibrato(value), 0, 0, {}, {});
    }
}

TEST_F(VibratoDocumentTest, HasNoCurvesBesideDepthsAndRates)
{
    KRT_PLX_VibratoBase* vibrato = readVibrato(vibratoObject);
    for (const std::uint32_t type : {2u, 3u, 0xFFFFFFFFu}) {
        std::uint64_t count = 0;
        EXPECT_TRUE(KRT_PLX_VibratoBase_numParameters(vibrato, type, &count));
        EXPECT_EQ(count, UINT64_MAX) << type;
        EXPECT_EQ(KRT_PLX_Vibrato_parameter(vibrato, type, 0), nullptr) << type;
    }
}

// --- Where reading stops ---

TEST_F(VibratoDocumentTest, TakesATypeFrom0To16)
{
    for (const int type : {0, 1, 15, 16}) {
        expectVibrato(readWith("type", std::to_string(type)), static_cast<std::uint32_t>(type), 120,
                      allDepths, allRates);
    }
}

TEST_F(VibratoDocumentTest, StopsAtATypeOutOfRange)
{
    for (const std::string_view value : {"17", "18", "272", "2147483647", "-1", "-2147483648"}) {
        const Object object = vibratoObject.with("type", std::string(value));
        expectVibrato(readVibrato(object), 0, 0, {}, {});
        expectVibrato(readVibrato(object.reversed()), 0, 0, {}, {});
    }
}

TEST_F(VibratoDocumentTest, GoesOnAfterATypeThatIsNoInt)
{
    expectVibrato(readWith("type", std::nullopt), 0, 120, allDepths, allRates);
    for (const std::string& value : notIntegers()) {
        expectVibrato(readWith("type", value), 0, 120, allDepths, allRates);
    }
}

TEST_F(VibratoDocumentTest, TakesADurationUpToThatOfTheNote)
{
    expectVibrato(readWith("duration", "239"), 3, 239, allDepths, allRates);
    expectVibrato(readWith("duration", "240"), 3, 240, allDepths, allRates);
    expectVibrato(readWith("duration", "0"), 3, 0, {{0, 10}}, {});
    expectVibrato(readWith("duration", "1"), 3, 1, {{0, 10}}, {});
}

TEST_F(VibratoDocumentTest, StopsAtADurationOutOfRange)
{
    for (const std::string_view value : {"241", "496", "2147483647", "-1", "-2147483648"}) {
        const Object object = vibratoObject.with("duration", std::string(value));
        expectVibrato(readVibrato(object), 3, 0, {}, {});
        expectVibrato(readVibrato(object.reversed()), 3, 0, {}, {});
    }
}

TEST_F(VibratoDocumentTest, GoesOnWithoutADurationWhenItIsNoInt)
{
    expectVibrato(readWith("duration", std::nullopt), 3, 0, {{0, 10}}, {});
    for (const std::string& value : notIntegers()) {
        expectVibrato(readWith("duration", value), 3, 0, {{0, 10}}, {});
    }
}

// --- The points ---

class VibratoPointsDocumentTest : public VibratoDocumentTest,
                                  public testing::WithParamInterface<std::uint32_t> {
protected:
    // The points that the list gives in a vibrato of duration 120; the other list stays empty.
    Points readPoints(const std::string& list)
    {
        const std::string key = GetParam() == depths ? "depths" : "rates";
        const Object object = Object{{"duration", "120"}}.with(key, list);
        KRT_PLX_VibratoBase* vibrato = readVibrato(object);
        EXPECT_EQ(pointsOf(vibrato, 1 - GetParam()), Points{});
        return pointsOf(vibrato, GetParam());
    }
};

INSTANTIATE_TEST_SUITE_P(Curves, VibratoPointsDocumentTest, testing::Values(depths, rates),
                         [](const auto& type) {
                             return type.param == depths ? "depths" : "rates";
                         });

TEST_P(VibratoPointsDocumentTest, AreIgnoredWhenTheyAreInNoArray)
{
    for (const std::string& value : notArrays()) {
        EXPECT_EQ(readPoints(value), Points{}) << value;
    }
}

TEST_P(VibratoPointsDocumentTest, AreSkippedWhenTheyAreNoObjects)
{
    std::vector<std::string> elements = notObjects();
    elements.insert(elements.begin() + 2, point(7, 8));
    EXPECT_EQ(readPoints(array(elements)), (Points{{7, 8}}));
}

TEST_P(VibratoPointsDocumentTest, StandInTheOrderOfPositions)
{
    EXPECT_EQ(readPoints(array({point(90, 1), point(0, 2), point(120, 3), point(45, 4)})),
              (Points{{0, 2}, {45, 4}, {90, 1}, {120, 3}}));
}

TEST_P(VibratoPointsDocumentTest, KeepTheFirstOfTwoAtOnePosition)
{
    EXPECT_EQ(readPoints(array({point(9, 1), point(5, 2), point(9, 3), point(5, 4), point(9, 5)})),
              (Points{{5, 2}, {9, 1}}));
}

TEST_P(VibratoPointsDocumentTest, LoseNothingToOnesThatFail)
{
    EXPECT_EQ(readPoints(array({point(9, 128), point(9, 3), point(121, 4), "{}", point(5, -1),
                                point(5, 6), R"({"pos": 7})", R"({"value": 7})"})),
              (Points{{5, 6}, {9, 3}}));
}

TEST_P(VibratoPointsDocumentTest, MayBeginAndEndTheVibratoOnly)
{
    EXPECT_EQ(readPoints(array({point(120, 127), point(0, 0)})), (Points{{0, 0}, {120, 127}}));
}

TEST_F(VibratoDocumentTest, KeepsTheCurvesApart)
{
    const std::string same = array({point(10, 1), point(20, 2)});
    const Object object = Object{{"duration", "20"}}.with("depths", same).with("rates", same);
    expectVibrato(readVibrato(object), 0, 20, {{10, 1}, {20, 2}}, {{10, 1}, {20, 2}});
}

TEST_F(VibratoDocumentTest, TakesRatesBesideDepthsThatAreNone)
{
    expectVibrato(readWith("depths", "5"), 3, 120, {}, allRates);
    expectVibrato(readWith("rates", jsonString("none")), 3, 120, allDepths, {});
}

} // namespace
