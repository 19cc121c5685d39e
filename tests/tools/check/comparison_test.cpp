// What a host sees of a clip, held against documents that say something else: each field is named.
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <korvel/plx.hpp>

#include "check/comparison.h"
#include "format/read.h"
#include "support/temp_dir.h"

namespace {

namespace plx = korvel::plx;
namespace own = Korvel::CANTORIS::PLX;
using plxclip::check::differences;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

const std::string properties = R"({"id":"the ID","name":"the name","vendor":"the vendor",
"filter":{"singerGroups":["group"],"languages":[1],"singerIDs":["singer"],"types":["type"],
"genres":["genre"]},"part":{"type":"midi","key":7,"tempo":12000}})";

const std::string data = R"({"midi":{"duration":1920,"styleName":"style","stylePresetID":"preset",
"voice":{"compID":"0123456789ABCDEF","langID":1},
"audioEffects":[{"id":"reverb","parameters":[{"name":"mix","value":0.5}]}],
"midiEffects":[{"id":"arpeggio","parameters":[{"name":"steps","value":16},{"name":"way","value":"up"}]}],
"notes":[{"pos":1,"duration":480,"lyric":"sa","phoneme":"s a","langID":2,"isProtected":true,
"number":60,"velocity":61,
"exp":{"accent":31,"bendDepth":32,"bendLength":33,"decay":34,"fallPort":true,"risePort":true,
"opening":35},
"aiExp":{"pitchFine":0.11,"pitchDriftStart":0.12,"pitchDriftEnd":0.13,"pitchScalingCenter":0.14,
"pitchScalingOrigin":0.15,"pitchTransitionStart":0.16,"pitchTransitionEnd":0.17,
"amplitudeWhole":0.18,"amplitudeStart":0.19,"amplitudeEnd":0.20,"formantWhole":0.21,
"formantStart":0.22,"formantEnd":0.23},
"singingSkill":{"duration":41,"weight":{"pre":42,"post":43}},
"vibrato":{"type":3,"duration":240,"rates":[{"pos":51,"value":52}],"depths":[{"pos":53,"value":54}]}},
{"pos":500,"duration":2,"lyric":"ku","phoneme":"k","number":62,"velocity":63,
"dvqm":{"attack":{"compID":"growl","levelNames":["low"],"isProtected":true,"speed":71,
"topFactor":0.24},"release":{"compID":"fade","levelNames":["soft"]}}}],
"controllers":[{"name":"dynamics","events":[{"pos":81,"value":82}]}]}})";

struct Change {
    std::string from;
    std::string to;
    std::string named; // how the line of the difference begins
};

void PrintTo(const Change& change, std::ostream* out)
{
    *out << change.from << " -> " << change.to;
}

std::string changed(std::string text, const Change& change)
{
    const std::size_t place = text.find(change.from);
    EXPECT_NE(place, std::string::npos) << change.from;
    EXPECT_EQ(text.find(change.from, place + 1), std::string::npos) << change.from;
    return text.replace(place, change.from.size(), change.to);
}

class Comparison : public testing::Test {
protected:
    Comparison()
    {
        support::writeBytes(folder / "system\\clip\\property.json", properties);
        support::writeBytes(folder / "system\\clip\\clip.kxclip", data);
        manager = plx::createManager(folder.path(), folder / "system", folder / "user").manager;
        manager.readAllClipFiles();
    }
    Comparison(const Comparison&) = delete;
    Comparison& operator=(const Comparison&) = delete;
    ~Comparison() override { manager.destroy(); }

    plx::Clip clip() const { return *manager.systemClips().begin(); }

    std::vector<std::string> differencesOfPart(std::string document) const
    {
        const auto part = own::format::DocumentReader().readPart(document, folder.path(), nullptr);
        EXPECT_NE(part, nullptr);
        EXPECT_TRUE(clip().readPart());
        return part == nullptr ? std::vector<std::string>() : differences(clip(), *part);
    }

    std::vector<std::string> differencesOfProperties(std::string document) const
    {
        own::ClipProperties read;
        EXPECT_TRUE(own::format::DocumentReader().readProperties(document, read));
        return differences(clip(), read);
    }

    support::TempDir folder;
    plx::Manager manager;
};

TEST_F(Comparison, OfEqualDocumentsFindsNothing)
{
    EXPECT_THAT(differencesOfPart(data), IsEmpty());
    EXPECT_THAT(differencesOfProperties(properties), IsEmpty());
}

class PartComparison : public Comparison, public testing::WithParamInterface<Change> {};

TEST_P(PartComparison, NamesTheField)
{
    EXPECT_THAT(differencesOfPart(changed(data, GetParam())),
                ElementsAre(StartsWith(GetParam().named + " is ")));
}

INSTANTIATE_TEST_SUITE_P(
    Part, PartComparison,
    testing::Values(
        Change{"1920", "1921", "part, duration"}, Change{"style\"", "x\"", "part, styleName"},
        Change{"preset\"", "x\"", "part, stylePresetID"},
        Change{"EF\",\"langID\":1", "EF\",\"langID\":0", "voice, langID"},
        Change{"9ABC", "9abc", "voice, compID"}, Change{"reverb", "x", "audioEffects 0, id"},
        Change{"0.5}", "0.25}", "audioEffects 0, parameters 0, float"},
        Change{"mix", "x", "audioEffects 0, parameters 0, name"},
        Change{"16}", "17}", "midiEffects 0, parameters 0, integer"},
        Change{"\"up\"", "\"x\"", "midiEffects 0, parameters 1, text"},
        Change{",{\"name\":\"way\",\"value\":\"up\"}", "",
               "the number of midiEffects 0, parameters"},
        Change{"\"pos\":1,", "\"pos\":2,", "notes 0, pos"},
        Change{"480", "481", "notes 0, duration"}, Change{"\"sa\"", "\"x\"", "notes 0, lyric"},
        Change{"\"s a\"", "\"x\"", "notes 0, phoneme"},
        Change{"\"langID\":2", "\"langID\":3", "notes 0, langID"},
        Change{"\"isProtected\":true,\n\"n", "\"isProtected\":false,\n\"n", "notes 0, isProtected"},
        Change{":60", ":59", "notes 0, number"}, Change{":61", ":59", "notes 0, velocity"},
        Change{":31", ":30", "notes 0, accent"}, Change{":32", ":30", "notes 0, bendDepth"},
        Change{":33", ":30", "notes 0, bendLength"}, Change{":34", ":30", "notes 0, decay"},
        Change{"\"fallPort\":true", "\"fallPort\":false", "notes 0, fallPort"},
        Change{"\"risePort\":true", "\"risePort\":false", "notes 0, risePort"},
        Change{":35", ":30", "notes 0, opening"}, Change{"0.11", "0.5", "notes 0, pitchFine"},
        Change{"0.12", "0.5", "notes 0, pitchDriftStart"},
        Change{"0.13", "0.5", "notes 0, pitchDriftEnd"},
        Change{"0.14", "0.5", "notes 0, pitchScalingCenter"},
        Change{"0.15", "0.5", "notes 0, pitchScalingOrigin"},
        Change{"0.16", "0.5", "notes 0, pitchTransitionStart"},
        Change{"0.17", "0.5", "notes 0, pitchTransitionEnd"},
        Change{"0.18", "0.5", "notes 0, amplitudeWhole"},
        Change{"0.19", "0.5", "notes 0, amplitudeStart"},
        Change{"0.20", "0.5", "notes 0, amplitudeEnd"},
        Change{"0.21", "0.5", "notes 0, formantWhole"},
        Change{"0.22", "0.5", "notes 0, formantStart"},
        Change{"0.23", "0.5", "notes 0, formantEnd"},
        Change{":41", ":40", "notes 0, singingSkill, duration"},
        Change{":42", ":40", "notes 0, singingSkill, pre"},
        Change{":43", ":40", "notes 0, singingSkill, post"}));

INSTANTIATE_TEST_SUITE_P(
    Objects, PartComparison,
    testing::Values(Change{"\"type\":3", "\"type\":4", "notes 0, vibrato, type"},
                    Change{"240", "241", "notes 0, vibrato, duration"},
                    Change{":51", ":50", "notes 0, vibrato, rates 0, pos"},
                    Change{":52", ":50", "notes 0, vibrato, rates 0, value"},
                    Change{":53", ":50", "notes 0, vibrato, depths 0, pos"},
                    Change{":54", ":50", "notes 0, vibrato, depths 0, value"},
                    Change{"growl", "x", "notes 1, attack, compID"},
                    Change{"low\"", "x\"", "notes 1, attack, levelNames 0"},
                    Change{"\"isProtected\":true,\"s", "\"isProtected\":false,\"s",
                           "notes 1, attack, isProtected"},
                    Change{":71", ":70", "notes 1, attack, speed"},
                    Change{"0.24", "0.5", "notes 1, attack, topFactor"},
                    Change{"fade", "x", "notes 1, release, compID"},
                    Change{"[\"soft\"]", "[\"soft\",\"x\"]",
                           "the number of notes 1, release, levelNames"},
                    Change{":81", ":80", "dynamics 0, pos"},
                    Change{":82", ":80", "dynamics 0, value"}));

class PropertyComparison : public Comparison, public testing::WithParamInterface<Change> {};

TEST_P(PropertyComparison, NamesTheField)
{
    EXPECT_THAT(differencesOfProperties(changed(properties, GetParam())),
                ElementsAre(StartsWith(GetParam().named + " is ")));
}

INSTANTIATE_TEST_SUITE_P(Properties, PropertyComparison,
                         testing::Values(Change{"the ID", "x", "id"},
                                         Change{"the name", "x", "name"},
                                         Change{"\"group\"", "\"x\"", "singerGroups 0"},
                                         Change{"[1]", "[2]", "languages 0"},
                                         Change{"\"singer\"", "\"x\"", "singerIDs 0"},
                                         Change{"[\"type\"]", "[]", "the number of types"},
                                         Change{"\"genre\"", "\"x\"", "genres 0"},
                                         Change{":7", ":8", "part, key"},
                                         Change{"12000", "12001", "part, tempo"}));

TEST_F(Comparison, FindsAnotherVendorInTheTagsToo)
{
    EXPECT_THAT(differencesOfProperties(changed(properties, {"the vendor", "x", {}})),
                ElementsAre(StartsWith("vendor is "), StartsWith("vendors 0 is ")));
}

TEST_F(Comparison, FindsAnotherKindOfPart)
{
    EXPECT_THAT(differencesOfPart(R"({"midiAi":{"duration":1920,"aiVoice":{"compID":""}}})"),
                testing::Contains(StartsWith("type is ")));
}

TEST_F(Comparison, FindsALaneThatAHostLacks)
{
    EXPECT_THAT(differencesOfPart(changed(data, {"\"dynamics\"", "\"growl\"", {}})),
                ElementsAre(StartsWith("the lane dynamics is "), StartsWith("the lane growl is ")));
}

} // namespace
