#include "hostile_shapes.h"

#include <cstdint>

namespace hostile {
namespace {

using support::count;
using support::jsonString;
using support::Object;
using support::utf8;

std::string vibratoPoints(std::size_t size, bool distinct)
{
    const std::string points =
        arrayOf(size, [=](std::size_t i) { return point(distinct ? size - 1 - i : 7, i % 128); });
    return noteWith("vibrato", Object{{"duration", "1000000"}, {"rates", points}});
}

std::string pointsReversed(std::size_t size)
{
    return vibratoPoints(size, true);
}

std::string pointsAtOnePosition(std::size_t size)
{
    return vibratoPoints(size, false);
}

std::string levelNames(std::size_t size)
{
    const std::string names = arrayOf(size, [](std::size_t i) { return jsonString(name(i)); });
    return noteWith("dvqm",
                    Object{{"attack", Object{{"compID", jsonString("c")}, {"levelNames", names}}}});
}

std::string longNumbers(std::size_t size)
{
    const Object expression = {{"pitchFine", "0.25" + std::string(size, '0')},
                               {"formantEnd", "7.5e-00" + std::string(size, '0') + "1"}};
    return noteWith("aiExp", expression);
}

void expectPointsReversed(KRT_PLX_PartBase* part, std::size_t size)
{
    KRT_PLX_VibratoBase* vibrato = KRT_PLX_Note_vibrato(KRT_PLX_MidiPart_note(part, 0));
    for (std::size_t i = 0; i < size; ++i) {
        KRT_PLX_VibratoParameterBase* point = KRT_PLX_Vibrato_parameter(vibrato, 1, i);
        ASSERT_EQ(KRT_PLX_VibratoParameterBase_pos(point), static_cast<std::int32_t>(i));
        ASSERT_EQ(KRT_PLX_VibratoParameterBase_value(point), (size - 1 - i) % 128);
    }
    ASSERT_EQ(KRT_PLX_Vibrato_parameter(vibrato, 1, size), nullptr);
}

void expectOnePoint(KRT_PLX_PartBase* part, std::size_t)
{
    KRT_PLX_VibratoBase* vibrato = KRT_PLX_Note_vibrato(KRT_PLX_MidiPart_note(part, 0));
    KRT_PLX_VibratoParameterBase* point = KRT_PLX_Vibrato_parameter(vibrato, 1, 0);
    EXPECT_EQ(KRT_PLX_VibratoParameterBase_value(point), 0u);
    EXPECT_EQ(KRT_PLX_Vibrato_parameter(vibrato, 1, 1), nullptr);
}

void expectNoDvqm(KRT_PLX_PartBase* part, std::size_t)
{
    KRT_PLX_DvqmBase* dvqm = KRT_PLX_Note_dvqm(KRT_PLX_MidiPart_note(part, 0), true);
    EXPECT_EQ(count(KRT_PLX_DvqmBase_numLevelNames, dvqm), 0u);
    EXPECT_EQ(utf8(KRT_PLX_DvqmBase_compID(dvqm)), "");
}

void expectLongNumbers(KRT_PLX_PartBase* part, std::size_t)
{
    KRT_PLX_NoteBase* note = KRT_PLX_MidiPart_note(part, 0);
    EXPECT_EQ(KRT_PLX_NoteBase_pitchFine(note), 0.25F);
    EXPECT_EQ(KRT_PLX_NoteBase_formantEnd(note), 0.75F);
}

} // namespace

std::vector<Shape> expressionShapes()
{
    return {{"PointsReversed", 100000, pointsReversed, expectPointsReversed},
            {"PointsAtOnePosition", 100000, pointsAtOnePosition, expectOnePoint},
            {"LevelNames", 100000, levelNames, expectNoDvqm},
            {"LongNumbers", 1000000, longNumbers, expectLongNumbers}};
}

} // namespace hostile
