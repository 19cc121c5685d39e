#include <limits>
#include <string>
#include <vector>

#include "support/editing.h"

using support::countOf;
using support::text;
using support::utf8;

namespace {

// --- Dvqm ---------------------------------------------------------------------------------------------

class MutableDvqm : public NoteTest, public testing::WithParamInterface<bool> {
protected:
    std::vector<std::string> levelNames()
    {
        std::vector<std::string> names;
        const std::uint64_t size = countOf(KRT_PLX_DvqmBase_numLevelNames, dvqm);
        for (std::uint64_t index = 0; index < size; ++index) {
            names.push_back(utf8(KRT_PLX_DvqmBase_levelName(dvqm, index)));
        }
        EXPECT_EQ(KRT_PLX_DvqmBase_levelName(dvqm, size), nullptr);
        return names;
    }

    bool addLevelName(std::string_view name)
    {
        return KRT_PLX_MutableDvqm_addLevelName(dvqm, text(name).c_str());
    }

    KRT_PLX_DvqmBase* const dvqm = KRT_PLX_MutableNote_dvqm(note, GetParam());
    KRT_PLX_DvqmBase* const other = KRT_PLX_MutableNote_dvqm(note, !GetParam());
};

INSTANTIATE_TEST_SUITE_P(Places, MutableDvqm, testing::Bool(), [](const auto& isAttack) {
    return isAttack.param ? "attack" : "release";
});

using Names = std::vector<std::string>;

TEST_P(MutableDvqm, BelongsToItsNoteAndHasNoLevelNames)
{
    EXPECT_EQ(KRT_PLX_MutableDvqm_parent(dvqm), note);
    EXPECT_TRUE(KRT_PLX_DvqmBase_isMutable(dvqm));
    EXPECT_EQ(KRT_PLX_Dvqm_parent(dvqm), nullptr);
    EXPECT_EQ(KRT_PLX_DvqmBase_isAttack(dvqm), GetParam());
    EXPECT_EQ(levelNames(), Names{});
    EXPECT_EQ(KRT_PLX_DvqmBase_levelName(dvqm, std::numeric_limits<std::uint64_t>::max()), nullptr);
}

TEST_P(MutableDvqm, TakesFiveLevelNames)
{
    const Names names = {"low", "high", "low", "さくら", std::string(300, 'x')};
    for (const std::string& name : names) {
        EXPECT_TRUE(addLevelName(name));
    }
    EXPECT_FALSE(addLevelName("sixth"));
    EXPECT_FALSE(addLevelName(""));
    EXPECT_EQ(levelNames(), names);
}

TEST_P(MutableDvqm, TakesNoEmptyLevelName)
{
    EXPECT_FALSE(addLevelName(""));
    EXPECT_FALSE(KRT_PLX_MutableDvqm_addLevelName(dvqm, nullptr));
    EXPECT_EQ(levelNames(), Names{});
}

TEST_P(MutableDvqm, TakesItsOwnLevelNames)
{
    addLevelName("low");
    for (std::uint64_t index = 0; index < 4; ++index) {
        EXPECT_TRUE(
            KRT_PLX_MutableDvqm_addLevelName(dvqm, KRT_PLX_DvqmBase_levelName(dvqm, index)));
    }
    EXPECT_EQ(levelNames(), Names(5, "low"));
}

TEST_P(MutableDvqm, ComponentAndLevelNamesAreSeparate)
{
    addLevelName("low");
    EXPECT_EQ(utf8(KRT_PLX_DvqmBase_compID(dvqm)), "");
    KRT_PLX_MutableDvqm_setCompID(dvqm, text("fall").c_str());
    KRT_PLX_MutableDvqm_setCompID(dvqm, nullptr);
    EXPECT_EQ(levelNames(), Names{"low"});
}

TEST_P(MutableDvqm, HasItsOwnLevelNames)
{
    addLevelName("low");
    EXPECT_EQ(countOf(KRT_PLX_DvqmBase_numLevelNames, other), 0u);
    EXPECT_FALSE(KRT_PLX_DvqmBase_numLevelNames(dvqm, nullptr));
}

// --- Singing skill ------------------------------------------------------------------------------------

class MutableSingingSkill : public NoteTest {};

TEST_F(MutableSingingSkill, BelongsToItsNote)
{
    KRT_PLX_SingingSkillBase* const skill = KRT_PLX_MutableNote_singingSkill(note);
    EXPECT_EQ(KRT_PLX_MutableSingingSkill_parent(skill), note);
    EXPECT_TRUE(KRT_PLX_SingingSkillBase_isMutable(skill));
    EXPECT_EQ(KRT_PLX_SingingSkill_parent(skill), nullptr);
}

// --- Durations within the note ------------------------------------------------------------------------

// What a singing skill and a vibrato have in common.
struct Span {
    const char* name;
    std::int32_t (*get)(KRT_PLX_NoteBase*);
    bool (*set)(KRT_PLX_NoteBase*, std::int32_t);
};

const Span spans[] = {
    {"singingSkill",
     [](KRT_PLX_NoteBase* note) {
         return KRT_PLX_SingingSkillBase_duration(KRT_PLX_MutableNote_singingSkill(note));
     },
     [](KRT_PLX_NoteBase* note, std::int32_t duration) {
         return KRT_PLX_MutableSingingSkill_setDuration(KRT_PLX_MutableNote_singingSkill(note),
                                                        duration);
     }},
    {"vibrato",
     [](KRT_PLX_NoteBase* note) {
         return KRT_PLX_VibratoBase_duration(KRT_PLX_MutableNote_vibrato(note));
     },
     [](KRT_PLX_NoteBase* note, std::int32_t duration) {
         return KRT_PLX_MutableVibrato_setDuration(KRT_PLX_MutableNote_vibrato(note), duration);
     }},
};

class SpanWithinNote : public NoteTest, public testing::WithParamInterface<Span> {
protected:
    std::int32_t get() { return span.get(note); }
    bool set(std::int32_t duration) { return span.set(note, duration); }

    const Span& span = GetParam();
};

INSTANTIATE_TEST_SUITE_P(Spans, SpanWithinNote, testing::ValuesIn(spans),
                         [](const auto& span) { return std::string(span.param.name); });

TEST_P(SpanWithinNote, FollowsTheNotesDurationAsItIsThen)
{
    KRT_PLX_MutableNote_setDuration(note, 1000);
    EXPECT_TRUE(set(1000));
    EXPECT_TRUE(KRT_PLX_MutableNote_setDuration(note, 10));
    EXPECT_EQ(get(), 1000);
    EXPECT_FALSE(set(1000));
    EXPECT_FALSE(set(11));
    EXPECT_EQ(get(), 1000);
    EXPECT_TRUE(set(10));
    EXPECT_EQ(get(), 10);
}

} // namespace
