// What all exported functions have in common: for a null handle, and for every kind of handle that
// they do not take, they do nothing and return their default.
#include <algorithm>
#include <map>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <exported_functions.h>

#include "contract/export_table.h"
#include "contract/living_objects.h"

namespace contract {

void PrintTo(const Export& one, std::ostream* out)
{
    *out << one.name;
}

namespace {

constexpr std::string_view prefix = "KRT_PLX_";

// The classes whose functions reject some handles of their family. The functions of the other
// classes take every handle of theirs.
constexpr const char* derivedClasses[] = {"Clip",
                                          "UserClip",
                                          "MutableClip",
                                          "MutableFilter",
                                          "MidiPartBase",
                                          "MidiPart",
                                          "MutableMidiPart",
                                          "AudioPartBase",
                                          "AudioPart",
                                          "MutableAudioPart",
                                          "Note",
                                          "MutableNote",
                                          "Dvqm",
                                          "MutableDvqm",
                                          "SingingSkill",
                                          "MutableSingingSkill",
                                          "Vibrato",
                                          "MutableVibrato",
                                          "VibratoParameter",
                                          "MutableVibratoParameter",
                                          "MidiController",
                                          "MidiEvent",
                                          "MutableMidiEvent",
                                          "MutableMidiController",
                                          "Effect",
                                          "MutableEffect",
                                          "AudioEffect",
                                          "MidiEffect",
                                          "EffectParameter",
                                          "MutableAudioEffect",
                                          "MutableMidiEffect",
                                          "MutableEffectParameter"};

constexpr const char* rootClasses[] = {"Manager",
                                       "ClipBase",
                                       "PropertyEditor",
                                       "Filter",
                                       "PartBase",
                                       "NoteBase",
                                       "DvqmBase",
                                       "SingingSkillBase",
                                       "VibratoBase",
                                       "MidiEventBase",
                                       "EffectBase",
                                       "HasManager",
                                       "VibratoParameterBase",
                                       "MidiControllerBase",
                                       "CreateManager",
                                       "EffectParameterBase"};

std::vector<std::string> tableNames()
{
    std::vector<std::string> names;
    for (const Export& one : exportTable()) {
        names.push_back(std::string(prefix) + std::string(one.name));
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::string> headerNames()
{
    std::vector<std::string> names;
    for (const ExportedFunction& function : exportedFunctions) {
        names.emplace_back(function.name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

TEST(ExportTable, NamesEveryFunctionOfTheHeadersOnce)
{
    EXPECT_EQ(tableNames(), headerNames());
    EXPECT_GT(exportTable().size(), 200U);
}

TEST(ExportTable, CallsTheFunctionThatItNames)
{
    std::map<std::string_view, void (*)()> addresses;
    for (const Export& one : exportTable()) {
        addresses.emplace(one.name, one.address);
    }
    forEachExportedFunction([&](std::string_view name, auto function) {
        EXPECT_EQ(addresses[name.substr(prefix.size())], reinterpret_cast<void (*)()>(function))
            << name;
    });
}

TEST(ExportTable, NoClassIsForgotten)
{
    std::vector<std::string_view> known(std::begin(derivedClasses), std::end(derivedClasses));
    known.insert(known.end(), std::begin(rootClasses), std::end(rootClasses));
    for (const Export& one : exportTable()) {
        EXPECT_THAT(known, testing::Contains(one.className()));
    }
}

// Everything that the getters say about all living objects.
std::vector<Outcome> snapshot(const LivingObjects& objects)
{
    std::vector<Outcome> outcomes;
    for (const LivingObject& object : objects.all()) {
        for (const Export& one : exportTable()) {
            if (one.family == object.family && object.is(one.className()) && !one.changes()) {
                outcomes.push_back(one.call(object.handle, objects.elements()));
            }
        }
    }
    return outcomes;
}

void expectRefusal(const Export& one, void* handle, const LivingObjects& objects)
{
    const Outcome outcome = one.call(handle, objects.elements());

    EXPECT_EQ(outcome.bits, one.defaultBits);
    // Creation has no handle to refuse; its result code is the subject of tests of its own.
    EXPECT_EQ(outcome.wroteOutParameter, one.name == "CreateManager");
}

std::string exportName(const testing::TestParamInfo<Export>& tested)
{
    return std::string(tested.param.name);
}

class NullHandle : public testing::TestWithParam<Export> {
protected:
    LivingObjects objects;
};

TEST_P(NullHandle, GivesTheDefaultAndDoesNothing)
{
    const std::vector<Outcome> before = snapshot(objects);

    expectRefusal(GetParam(), nullptr, objects);

    EXPECT_TRUE(snapshot(objects) == before) << "an object was changed";
}

INSTANTIATE_TEST_SUITE_P(Exports, NullHandle, testing::ValuesIn(exportTable()), exportName);

std::string className(const testing::TestParamInfo<const char*>& tested)
{
    return tested.param;
}

class WrongKindOfHandle : public testing::TestWithParam<const char*> {
protected:
    LivingObjects objects;
};

TEST_P(WrongKindOfHandle, GivesTheDefaultAndDoesNothing)
{
    const std::vector<Outcome> before = snapshot(objects);
    int refusals = 0;

    for (const LivingObject& object : objects.all()) {
        for (const Export& one : exportTable()) {
            if (one.className() == GetParam() && one.family == object.family &&
                !object.is(one.className())) {
                SCOPED_TRACE(std::string(one.name) + " with " + std::string(object.kind));
                expectRefusal(one, object.handle, objects);
                ++refusals;
            }
        }
    }

    EXPECT_GT(refusals, 0);
    EXPECT_TRUE(snapshot(objects) == before) << "an object was changed";
}

INSTANTIATE_TEST_SUITE_P(Exports, WrongKindOfHandle, testing::ValuesIn(derivedClasses), className);

TEST(LivingObjects, AreTakenByTheFunctionsOfTheirClasses)
{
    const LivingObjects objects;
    for (const LivingObject& object : objects.all()) {
        ASSERT_NE(object.handle, nullptr) << object.kind;
        for (const Export& one : exportTable()) {
            if (object.is(one.className()) && one.defaultMeansRefusal()) {
                EXPECT_NE(one.call(object.handle, objects.elements()).bits, one.defaultBits)
                    << one.name << " with " << object.kind;
            }
        }
    }
}

TEST(LivingObjects, TellWhetherTheyCanBeEdited)
{
    const LivingObjects objects;
    int answers = 0;
    for (const LivingObject& object : objects.all()) {
        for (const Export& one : exportTable()) {
            if (object.is(one.className()) && one.operation() == "isMutable") {
                EXPECT_EQ(one.call(object.handle, objects.elements()).bits == 1, object.isMutable())
                    << one.name << " with " << object.kind;
                ++answers;
            }
        }
    }
    EXPECT_EQ(answers, 14); // two MIDI parts, two audio parts, and two each of five classes
}

} // namespace
} // namespace contract
