// A note's attack and release Dvqm, and the singing skill that gives way to them.

#include <cstdint>
#include <string>
#include <vector>

#include "support/reading.h"

namespace {

using support::array;
using support::count;
using support::jsonString;
using support::notArrays;
using support::noteObject;
using support::notObjects;
using support::notStrings;
using support::Object;
using support::utf8;

Object dvqmObject()
{
    return {{"compID", jsonString("grain")}, {"levelNames", R"(["soft", "hard"])"}};
}

std::vector<std::string> levelNames(KRT_PLX_DvqmBase* dvqm)
{
    std::vector<std::string> names;
    for (std::uint64_t i = 0; i < count(KRT_PLX_DvqmBase_numLevelNames, dvqm); ++i) {
        names.push_back(utf8(KRT_PLX_DvqmBase_levelName(dvqm, i)));
    }
    EXPECT_EQ(KRT_PLX_DvqmBase_levelName(dvqm, names.size()), nullptr);
    return names;
}

void expectUnset(KRT_PLX_DvqmBase* dvqm)
{
    ASSERT_NE(dvqm, nullptr);
    EXPECT_EQ(utf8(KRT_PLX_DvqmBase_compID(dvqm)), "");
    EXPECT_EQ(levelNames(dvqm), std::vector<std::string>{});
    EXPECT_FALSE(KRT_PLX_DvqmBase_isProtected(dvqm));
    EXPECT_EQ(KRT_PLX_DvqmBase_speed(dvqm), 50u);
    EXPECT_EQ(KRT_PLX_DvqmBase_topFactor(dvqm), 1.0F);
}

// --- "attack" and "release" ---

struct End {
    std::string key;
    bool isAttack;
};

class DvqmDocumentTest : public ReaderTest, public testing::WithParamInterface<End> {
protected:
    KRT_PLX_DvqmBase* readValue(const std::string& value)
    {
        const Object both = {{GetParam().key, value}};
        KRT_PLX_NoteBase* note = readNote(noteObject().with("dvqm", both));
        EXPECT_NE(note, nullptr) << value;
        expectUnset(KRT_PLX_Note_dvqm(note, !GetParam().isAttack));
        return KRT_PLX_Note_dvqm(note, GetParam().isAttack);
    }
    KRT_PLX_DvqmBase* readWith(std::string_view key, const std::optional<std::string>& value)
    {
        return readValue(dvqmObject().with(key, value));
    }
};

INSTANTIATE_TEST_SUITE_P(Ends, DvqmDocumentTest,
                         testing::Values(End{"attack", true}, End{"release", false}),
                         [](const auto& end) { return end.param.key; });

TEST_P(DvqmDocumentTest, FillsTheDvqm)
{
    const Object object =
        dvqmObject().with("isProtected", "true").with("speed", "70").with("topFactor", "1.5");
    for (const Object& ordered : {object, object.reversed()}) {
        KRT_PLX_DvqmBase* dvqm = readValue(ordered);
        EXPECT_EQ(utf8(KRT_PLX_DvqmBase_compID(dvqm)), "grain");
        EXPECT_EQ(levelNames(dvqm), (std::vector<std::string>{"soft", "hard"}));
        EXPECT_TRUE(KRT_PLX_DvqmBase_isProtected(dvqm));
        EXPECT_EQ(KRT_PLX_DvqmBase_speed(dvqm), 70u);
        EXPECT_EQ(KRT_PLX_DvqmBase_topFactor(dvqm), 1.5F);
        EXPECT_EQ(KRT_PLX_DvqmBase_isAttack(dvqm), GetParam().isAttack);
        EXPECT_FALSE(KRT_PLX_DvqmBase_isMutable(dvqm));
    }
}

TEST_P(DvqmDocumentTest, BelongsToItsNote)
{
    KRT_PLX_DvqmBase* dvqm = readValue(dvqmObject());
    EXPECT_EQ(KRT_PLX_Dvqm_parent(dvqm),
              KRT_PLX_MidiPart_note(KRT_PLX_Clip_midiPart(clipOfPart()), 0));
}

TEST_P(DvqmDocumentTest, IsIgnoredWhenItIsNoObject)
{
    for (const std::string& value : notObjects()) {
        expectUnset(readValue(value));
    }
}

TEST_P(DvqmDocumentTest, Needs1To4LevelNames)
{
    expectUnset(readWith("levelNames", std::nullopt));
    for (const std::string& value : notArrays()) {
        expectUnset(readWith("levelNames", value));
    }
    std::vector<std::string> texts;
    for (int names = 0; names <= 6; ++names) {
        KRT_PLX_DvqmBase* dvqm = readWith("levelNames", array(texts));
        if (names >= 1 && names <= 4) {
            EXPECT_EQ(levelNames(dvqm).size(), texts.size());
            EXPECT_EQ(utf8(KRT_PLX_DvqmBase_compID(dvqm)), "grain");
        } else {
            expectUnset(dvqm);
        }
        texts.push_back(jsonString("level " + std::to_string(names)));
    }
}

TEST_P(DvqmDocumentTest, CountsOnlyLevelNamesThatAreTexts)
{
    std::vector<std::string> mixed = notStrings();
    expectUnset(readWith("levelNames", array(mixed)));
    std::vector<std::string> names;
    for (const std::string_view name : {"a", "b", "c", "d"}) {
        names.emplace_back(name);
        mixed.insert(mixed.end() - 3, jsonString(name));
        EXPECT_EQ(levelNames(readWith("levelNames", array(mixed))), names);
    }
    mixed.push_back(jsonString("e"));
    expectUnset(readWith("levelNames", array(mixed)));
}

TEST_P(DvqmDocumentTest, TakesEmptyAndRepeatedLevelNamesAsTheyStand)
{
    EXPECT_EQ(levelNames(readWith("levelNames", R"(["", "a", "", "a"])")),
              (std::vector<std::string>{"", "a", "", "a"}));
    EXPECT_EQ(levelNames(readWith("levelNames", R"([""])")), std::vector<std::string>{""});
    expectUnset(readWith("levelNames", R"(["", "", "", "", ""])"));
}

TEST_P(DvqmDocumentTest, IsIgnoredWholeWhenItLacksWhatItNeeds)
{
    const Object object =
        dvqmObject().with("isProtected", "true").with("speed", "70").with("topFactor", "1.5");
    expectUnset(readValue(object.without("compID")));
    expectUnset(readValue(object.without("levelNames")));
    expectUnset(readValue(object.reversed().without("compID")));
    expectUnset(readValue(object.reversed().without("levelNames")));
}

class NoteEndsDocumentTest : public ReaderTest {};

TEST_F(NoteEndsDocumentTest, AreUnsetInANoteWithoutThem)
{
    KRT_PLX_NoteBase* note = readNote(noteObject());
    expectUnset(KRT_PLX_Note_dvqm(note, true));
    expectUnset(KRT_PLX_Note_dvqm(note, false));
}

TEST_F(NoteEndsDocumentTest, AreToldApart)
{
    const Object attack = dvqmObject().with("compID", jsonString("attack")).with("speed", "1");
    const Object release = dvqmObject().with("compID", jsonString("release")).with("speed", "2");
    const Object both = {{"release", release}, {"attack", attack}};
    for (const Object& ordered : {both, both.reversed()}) {
        KRT_PLX_NoteBase* note = readNote(noteObject().with("dvqm", ordered));
        KRT_PLX_DvqmBase* first = KRT_PLX_Note_dvqm(note, true);
        KRT_PLX_DvqmBase* second = KRT_PLX_Note_dvqm(note, false);
        EXPECT_NE(first, second);
        EXPECT_EQ(utf8(KRT_PLX_DvqmBase_compID(first)), "attack");
        EXPECT_EQ(utf8(KRT_PLX_DvqmBase_compID(second)), "release");
        EXPECT_EQ(KRT_PLX_DvqmBase_speed(first), 1u);
        EXPECT_EQ(KRT_PLX_DvqmBase_speed(second), 2u);
    }
}

TEST_F(NoteEndsDocumentTest, FailOneWithoutTheOther)
{
    const Object both = {{"attack", "{}"}, {"release", dvqmObject()}};
    KRT_PLX_NoteBase* note = readNote(noteObject().with("dvqm", both));
    expectUnset(KRT_PLX_Note_dvqm(note, true));
    EXPECT_EQ(utf8(KRT_PLX_DvqmBase_compID(KRT_PLX_Note_dvqm(note, false))), "grain");
}

TEST_F(NoteEndsDocumentTest, AreIgnoredWhenTheyAreInNoObject)
{
    for (const std::string& value : notObjects()) {
        KRT_PLX_NoteBase* note = readNote(noteObject().with("dvqm", value));
        ASSERT_NE(note, nullptr) << value;
        expectUnset(KRT_PLX_Note_dvqm(note, true));
        expectUnset(KRT_PLX_Note_dvqm(note, false));
    }
}

// --- "singingSkill" ---

class SingingSkillDocumentTest : public ReaderTest {
protected:
    KRT_PLX_SingingSkillBase* readSkill(const Object& note)
    {
        KRT_PLX_NoteBase* read = readNote(note);
        EXPECT_NE(read, nullptr) << note.text();
        return KRT_PLX_Note_singingSkill(read);
    }
    KRT_PLX_SingingSkillBase* readWith(const std::string& value)
    {
        return readSkill(noteObject().with("singingSkill", value));
    }
    static void expectUnsetSkill(KRT_PLX_SingingSkillBase* skill)
    {
        ASSERT_NE(skill, nullptr);
        EXPECT_EQ(KRT_PLX_SingingSkillBase_duration(skill), 0);
        EXPECT_EQ(KRT_PLX_SingingSkillBase_preWeight(skill), 64u);
        EXPECT_EQ(KRT_PLX_SingingSkillBase_postWeight(skill), 64u);
    }
};

const Object skillObject = {{"duration", "120"}, {"weight", R"({"pre": 10, "post": 20})"}};

TEST_F(SingingSkillDocumentTest, FillsTheSkill)
{
    for (const Object& note : {noteObject().with("singingSkill", skillObject),
                               noteObject().with("singingSkill", skillObject.reversed()),
                               noteObject().with("singingSkill", skillObject).reversed()}) {
        KRT_PLX_SingingSkillBase* skill = readSkill(note);
        EXPECT_EQ(KRT_PLX_SingingSkillBase_duration(skill), 120);
        EXPECT_EQ(KRT_PLX_SingingSkillBase_preWeight(skill), 10u);
        EXPECT_EQ(KRT_PLX_SingingSkillBase_postWeight(skill), 20u);
        EXPECT_FALSE(KRT_PLX_SingingSkillBase_isMutable(skill));
        EXPECT_EQ(KRT_PLX_SingingSkill_parent(skill),
                  KRT_PLX_MidiPart_note(KRT_PLX_Clip_midiPart(clipOfPart()), 0));
    }
}

TEST_F(SingingSkillDocumentTest, IsUnsetWhenItIsAbsentOrEmptyOrNoObject)
{
    expectUnsetSkill(readSkill(noteObject()));
    expectUnsetSkill(readWith("{}"));
    for (const std::string& value : notObjects()) {
        expectUnsetSkill(readWith(value));
    }
}

TEST_F(SingingSkillDocumentTest, IsNotLookedAtBesideADvqmOfAnyForm)
{
    std::vector<std::string> forms = notObjects();
    forms.emplace_back("{}");
    forms.push_back(Object{{"attack", dvqmObject()}});
    for (const std::string& form : forms) {
        const Object note = noteObject().with("singingSkill", skillObject).with("dvqm", form);
        expectUnsetSkill(readSkill(note));
        expectUnsetSkill(readSkill(note.reversed()));
    }
}

} // namespace
