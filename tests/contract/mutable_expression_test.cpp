#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "support/editing.h"
#include "support/limits.h"

using support::countOf;
using support::largest;
using support::smallest;
using support::text;
using support::utf8;

namespace {

constexpr std::uint32_t beyondByte[] = {128, 255, 256, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};

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

TEST_P(MutableDvqm, HasItsInitialValues)
{
    EXPECT_EQ(KRT_PLX_MutableDvqm_parent(dvqm), note);
    EXPECT_TRUE(KRT_PLX_DvqmBase_isMutable(dvqm));
    EXPECT_EQ(KRT_PLX_Dvqm_parent(dvqm), nullptr);
    EXPECT_EQ(KRT_PLX_DvqmBase_isAttack(dvqm), GetParam());
    EXPECT_EQ(utf8(KRT_PLX_DvqmBase_compID(dvqm)), "");
    EXPECT_EQ(levelNames(), Names{});
    EXPECT_EQ(KRT_PLX_DvqmBase_levelName(dvqm, std::numeric_limits<std::uint64_t>::max()), nullptr);
    EXPECT_FALSE(KRT_PLX_DvqmBase_isProtected(dvqm));
    EXPECT_EQ(KRT_PLX_DvqmBase_speed(dvqm), 50u);
    EXPECT_EQ(KRT_PLX_DvqmBase_topFactor(dvqm), 1.0F);
}

TEST_P(MutableDvqm, TakesAnyComponentID)
{
    for (const std::string& id : {std::string("x"), std::string("ABCDEFGHIJKLMNOP"),
                                  std::string(500, 'x'), std::string()}) {
        EXPECT_TRUE(KRT_PLX_MutableDvqm_setCompID(dvqm, text(id).c_str()));
        EXPECT_EQ(utf8(KRT_PLX_DvqmBase_compID(dvqm)), id);
    }
    EXPECT_TRUE(KRT_PLX_MutableDvqm_setCompID(dvqm, text("x").c_str()));
    EXPECT_TRUE(KRT_PLX_MutableDvqm_setCompID(dvqm, nullptr));
    EXPECT_EQ(utf8(KRT_PLX_DvqmBase_compID(dvqm)), "");
}

TEST_P(MutableDvqm, TakesItsOwnComponentID)
{
    EXPECT_TRUE(KRT_PLX_MutableDvqm_setCompID(dvqm, KRT_PLX_DvqmBase_compID(dvqm)));
    for (const std::string& id : {std::string("fall"), std::string(300, 'x')}) {
        KRT_PLX_MutableDvqm_setCompID(dvqm, text(id).c_str());
        EXPECT_TRUE(KRT_PLX_MutableDvqm_setCompID(dvqm, KRT_PLX_DvqmBase_compID(dvqm)));
        EXPECT_EQ(utf8(KRT_PLX_DvqmBase_compID(dvqm)), id);
        KRT_PLX_MutableDvqm_setCompID(dvqm, KRT_PLX_DvqmBase_compID(dvqm) + 1);
        EXPECT_EQ(utf8(KRT_PLX_DvqmBase_compID(dvqm)), id.substr(1));
    }
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

// The result is the flag, not success.
TEST_P(MutableDvqm, ProtectReportsTheFlag)
{
    EXPECT_TRUE(KRT_PLX_MutableDvqm_protect(dvqm, true));
    EXPECT_TRUE(KRT_PLX_DvqmBase_isProtected(dvqm));
    EXPECT_FALSE(KRT_PLX_MutableDvqm_protect(dvqm, false));
    EXPECT_FALSE(KRT_PLX_DvqmBase_isProtected(dvqm));
}

TEST_P(MutableDvqm, TakesSpeedsUpTo100)
{
    for (std::uint32_t speed = 0; speed <= 100; ++speed) {
        EXPECT_TRUE(KRT_PLX_MutableDvqm_setSpeed(dvqm, speed));
        EXPECT_EQ(KRT_PLX_DvqmBase_speed(dvqm), speed);
    }
    EXPECT_FALSE(KRT_PLX_MutableDvqm_setSpeed(dvqm, 101));
    for (const std::uint32_t speed : beyondByte) {
        EXPECT_FALSE(KRT_PLX_MutableDvqm_setSpeed(dvqm, speed)) << speed;
    }
    EXPECT_EQ(KRT_PLX_DvqmBase_speed(dvqm), 100u);
}

TEST_P(MutableDvqm, TakesTopFactorsUpTo2)
{
    for (const float factor : {0.0F, 2.0F, std::nextafter(2.0F, 0.0F), 1.25F}) {
        EXPECT_TRUE(KRT_PLX_MutableDvqm_setTopFactor(dvqm, factor));
        EXPECT_EQ(KRT_PLX_DvqmBase_topFactor(dvqm), factor);
    }
    const float infinity = std::numeric_limits<float>::infinity();
    for (const float factor : {2.01F, std::nextafter(2.0F, 3.0F), -0.001F,
                               -std::numeric_limits<float>::denorm_min(), infinity, -infinity}) {
        EXPECT_FALSE(KRT_PLX_MutableDvqm_setTopFactor(dvqm, factor)) << factor;
        EXPECT_EQ(KRT_PLX_DvqmBase_topFactor(dvqm), 1.25F);
    }
    EXPECT_TRUE(KRT_PLX_MutableDvqm_setTopFactor(dvqm, std::numeric_limits<float>::quiet_NaN()));
    EXPECT_TRUE(std::isnan(KRT_PLX_DvqmBase_topFactor(dvqm)));
}

TEST_P(MutableDvqm, IsSetAlone)
{
    KRT_PLX_MutableDvqm_setCompID(dvqm, text("fall").c_str());
    addLevelName("low");
    KRT_PLX_MutableDvqm_protect(dvqm, true);
    KRT_PLX_MutableDvqm_setSpeed(dvqm, 7);
    KRT_PLX_MutableDvqm_setTopFactor(dvqm, 0.5F);
    EXPECT_EQ(utf8(KRT_PLX_DvqmBase_compID(other)), "");
    EXPECT_EQ(countOf(KRT_PLX_DvqmBase_numLevelNames, other), 0u);
    EXPECT_FALSE(KRT_PLX_DvqmBase_isProtected(other));
    EXPECT_EQ(KRT_PLX_DvqmBase_speed(other), 50u);
    EXPECT_EQ(KRT_PLX_DvqmBase_topFactor(other), 1.0F);
    EXPECT_FALSE(KRT_PLX_DvqmBase_numLevelNames(dvqm, nullptr));
}

// --- Singing skill ------------------------------------------------------------------------------------

class MutableSingingSkill : public NoteTest {
protected:
    KRT_PLX_SingingSkillBase* const skill = KRT_PLX_MutableNote_singingSkill(note);
};

TEST_F(MutableSingingSkill, HasItsInitialValues)
{
    EXPECT_EQ(KRT_PLX_MutableSingingSkill_parent(skill), note);
    EXPECT_TRUE(KRT_PLX_SingingSkillBase_isMutable(skill));
    EXPECT_EQ(KRT_PLX_SingingSkill_parent(skill), nullptr);
    EXPECT_EQ(KRT_PLX_SingingSkillBase_duration(skill), 0);
    EXPECT_EQ(KRT_PLX_SingingSkillBase_preWeight(skill), 64u);
    EXPECT_EQ(KRT_PLX_SingingSkillBase_postWeight(skill), 64u);
}

struct Weight {
    std::uint32_t (*get)(KRT_PLX_SingingSkillBase*);
    bool (*set)(KRT_PLX_SingingSkillBase*, std::uint32_t);
};

TEST_F(MutableSingingSkill, TakesWeightsUpTo127)
{
    const Weight weights[] = {
        {KRT_PLX_SingingSkillBase_preWeight, KRT_PLX_MutableSingingSkill_setPreWeight},
        {KRT_PLX_SingingSkillBase_postWeight, KRT_PLX_MutableSingingSkill_setPostWeight},
    };
    for (const Weight& weight : weights) {
        for (std::uint32_t value = 0; value <= 127; ++value) {
            EXPECT_TRUE(weight.set(skill, value));
            EXPECT_EQ(weight.get(skill), value);
        }
        for (const std::uint32_t value : beyondByte) {
            EXPECT_FALSE(weight.set(skill, value)) << value;
            EXPECT_EQ(weight.get(skill), 127u);
        }
        weight.set(skill, 1);
        EXPECT_EQ(KRT_PLX_SingingSkillBase_preWeight(skill), 1u);
    }
    EXPECT_EQ(KRT_PLX_SingingSkillBase_postWeight(skill), 1u);
}

// --- Durations within the note ------------------------------------------------------------------------

// What a singing skill and a vibrato have alike.
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

TEST_P(SpanWithinNote, TakesUpToTheNotesDuration)
{
    EXPECT_EQ(get(), 0);
    for (const std::int32_t duration : {480, 0, 1, 479}) {
        EXPECT_TRUE(set(duration));
        EXPECT_EQ(get(), duration);
    }
    for (const std::int32_t duration : {481, largest, -1, smallest}) {
        EXPECT_FALSE(set(duration)) << duration;
        EXPECT_EQ(get(), 479);
    }
}

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

TEST_P(SpanWithinNote, IsSetAlone)
{
    set(100);
    for (const Span& other : spans) {
        EXPECT_EQ(other.get(note), other.get == span.get ? 100 : 0) << other.name;
    }
}

} // namespace
