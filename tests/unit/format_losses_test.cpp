// What a listener is told about everything that is lost when a document is read.
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "format/encoding.h"
#include "format/keys.h"
#include "format/read.h"
#include "support/text.h"

namespace {

namespace format = Korvel::CANTORIS::PLX::format;
namespace plx = Korvel::CANTORIS::PLX;
using format::LossReason;
using testing::ElementsAre;
using testing::IsEmpty;

// A loss as a test writes it: the reason, the path, and the text at its place in the file.
struct Told {
    LossReason reason;
    std::string path;
    std::string text;

    bool operator==(const Told&) const = default;
};

void PrintTo(const Told& told, std::ostream* out)
{
    *out << static_cast<int>(told.reason) << ' ' << told.path << " at " << told.text;
}

class Notes final : public format::Listener {
public:
    void lost(const format::Loss& loss) override { losses.push_back(loss); }
    void refused(const format::Defect& defect) override { defects.push_back(defect); }
    void took(const format::Taken& taken) override { all.push_back(taken); }

    std::vector<format::Loss> losses;
    std::vector<format::Defect> defects;
    std::vector<format::Taken> all;
};

std::vector<Told> toldOf(const std::vector<format::Loss>& losses, const std::string& document)
{
    std::vector<Told> told;
    for (const format::Loss& loss : losses) {
        told.push_back({loss.reason, loss.path, document.substr(loss.place, 4)});
    }
    return told;
}

// A document whose part is of type 3 and has these members, too.
std::string midi(const std::string& members)
{
    return R"({"midi":{"duration":1,"voice":{"compID":"0123456789ABCDEF","langID":0})" + members +
           "}}";
}

std::vector<Told> lossesOfPart(const std::string& document)
{
    Notes notes;
    std::string bytes = document;
    format::DocumentReader().readPart(bytes, {plx::StringView(), 0}, nullptr, &notes);
    return toldOf(notes.losses, document);
}

std::string note(const std::string& members)
{
    return R"({"pos":0,"duration":9,"lyric":"a","phoneme":"a","number":1,"velocity":1)" + members +
           "}";
}

std::vector<Told> lossesOfNote(const std::string& members)
{
    return lossesOfPart(midi(R"(,"notes":[)" + note(members) + "]"));
}

TEST(FormatLosses, AreNoneInAValidDocument)
{
    EXPECT_THAT(lossesOfNote(R"(,"exp":{"accent":100})"), IsEmpty());
}

TEST(FormatLosses, NameAllKeysThatAnObjectLacks)
{
    EXPECT_THAT(lossesOfPart(midi(R"(,"notes":[{"pos":0,"duration":0,"lyric":"a","number":1}])")),
                ElementsAre(Told{LossReason::notAccepted, "/midi/notes/0/duration", "0,\"l"},
                            Told{LossReason::missing, "/midi/notes/0", "{\"po"},
                            Told{LossReason::missing, "/midi/notes/0", "{\"po"},
                            Told{LossReason::object, "/midi/notes/0", "{\"po"}));
}

TEST(FormatLosses, SayUnderWhichKeyAnObjectIsLost)
{
    Notes notes;
    std::string bytes = R"({"midi":{"duration":1,"voice":{"langID":0},"notes":[{}]}})";
    format::DocumentReader().readPart(bytes, {plx::StringView(), 0}, nullptr, &notes);
    std::vector<std::string> lost;
    for (const format::Loss& loss : notes.losses) {
        if (loss.reason == LossReason::object) {
            lost.push_back(std::string(loss.row->key) + (loss.isElement ? " element" : ""));
        }
    }
    EXPECT_THAT(lost, ElementsAre("voice", "notes element", "midi"));
}

TEST(FormatLosses, CountTheElementsOfAListFromZero)
{
    EXPECT_THAT(lossesOfPart(midi(R"(,"notes":[)" + note("") + ",7,[[1]]," + note("") + ",null]")),
                ElementsAre(Told{LossReason::wrongKind, "/midi/notes/1", "7,[["},
                            Told{LossReason::wrongKind, "/midi/notes/2", "[[1]"},
                            Told{LossReason::wrongKind, "/midi/notes/4", "null"}));
}

TEST(FormatLosses, DistinguishWrongKindsFromValuesOutOfRange)
{
    EXPECT_THAT(lossesOfNote(R"(,"exp":{"accent":101,"decay":1.5,"fallPort":true,"risePort":0})"),
                ElementsAre(Told{LossReason::notAccepted, "/midi/notes/0/exp/accent", "101,"},
                            Told{LossReason::wrongKind, "/midi/notes/0/exp/decay", "1.5,"},
                            Told{LossReason::wrongKind, "/midi/notes/0/exp/risePort", "0}}]"}));
}

TEST(FormatLosses, PointToTheFirstLetterOfAWord)
{
    EXPECT_THAT(lossesOfNote(R"(,"exp":{"accent":true,"decay":false,"bendDepth":null})"),
                ElementsAre(Told{LossReason::wrongKind, "/midi/notes/0/exp/accent", "true"},
                            Told{LossReason::wrongKind, "/midi/notes/0/exp/bendDepth", "null"},
                            Told{LossReason::wrongKind, "/midi/notes/0/exp/decay", "fals"}));
}

TEST(FormatLosses, NameUnknownAndRepeatedKeys)
{
    EXPECT_THAT(lossesOfNote(R"(,"exp":{"acent":1,"decay":1,"de~/cay":{"a":[]},"decay":2})"),
                ElementsAre(Told{LossReason::unknownKey, "/midi/notes/0/exp/acent", "\"ace"},
                            Told{LossReason::unknownKey, "/midi/notes/0/exp/de~0~1cay", "\"de~"},
                            Told{LossReason::repeatedKey, "/midi/notes/0/exp/decay", "\"dec"}));
}

std::vector<Told> lossesOfProperties(const std::string& document)
{
    Notes notes;
    std::string bytes = document;
    plx::ClipProperties properties;
    EXPECT_TRUE(format::DocumentReader().readProperties(bytes, properties, &notes));
    return toldOf(notes.losses, document);
}

// It is for editors of text, and no host misses it.
TEST(FormatLosses, LeaveOutTheReferenceToASchemaOfAWholeDocument)
{
    const std::string part = midi("").substr(1);
    for (const char* const value : {"\"a.json\"", "5", "null", "[{}]"}) {
        EXPECT_THAT(lossesOfPart(std::string(R"({"$schema":)") + value + "," + part), IsEmpty());
        EXPECT_THAT(lossesOfProperties(std::string(R"({"$schema":)") + value +
                                       R"(,"id":"a","name":"a","part":{"type":"midi"}})"),
                    IsEmpty());
    }
    EXPECT_THAT(lossesOfPart(R"({"schema":"a",)" + part),
                ElementsAre(Told{LossReason::unknownKey, "/schema", "\"sch"}));
    EXPECT_THAT(lossesOfPart(midi(R"(,"$schema":"a")")),
                ElementsAre(Told{LossReason::unknownKey, "/midi/$schema", "\"$sc"}));
    EXPECT_THAT(lossesOfProperties(R"({"id":"a","name":"a","part":{"type":"midi","$schema":"a"}})"),
                ElementsAre(Told{LossReason::unknownKey, "/part/$schema", "\"$sc"}));
}

TEST(FormatLosses, OfWhatWaitsForItsNoteHaveTheirOwnPlaces)
{
    EXPECT_THAT(
        lossesOfNote(
            R"(,"singingSkill":{"duration":10,"weight":{"pre":128}})"
            R"(,"vibrato":{"duration":5,"rates":[{"pos":5,"value":0},{"pos":6,"value":0}]})"),
        ElementsAre(Told{LossReason::notAccepted, "/midi/notes/0/singingSkill/duration", "10,\""},
                    Told{LossReason::notAccepted, "/midi/notes/0/singingSkill/weight/pre", "128}"},
                    Told{LossReason::notAccepted, "/midi/notes/0/vibrato/rates/1/pos", "6,\"v"}));
}

TEST(FormatLosses, OfAVibratoAreBelowIt)
{
    EXPECT_THAT(lossesOfNote(R"(,"vibrato":{"type":1.5,"duration":2.5})"),
                ElementsAre(Told{LossReason::wrongKind, "/midi/notes/0/vibrato/type", "1.5,"},
                            Told{LossReason::wrongKind, "/midi/notes/0/vibrato/duration", "2.5}"}));
}

TEST(FormatLosses, OfWhatWaitsForItsNoteNameTheObject)
{
    Notes notes;
    std::string bytes = midi(
        R"(,"notes":[)" + note(R"(,"singingSkill":{"duration":10},"vibrato":{"type":17})") + "]");
    format::DocumentReader().readPart(bytes, {plx::StringView(), 0}, nullptr, &notes);
    ASSERT_EQ(notes.losses.size(), 2U);
    EXPECT_EQ(notes.losses[0].shape->id, format::keys::Id::singingSkill);
    EXPECT_EQ(notes.losses[1].shape->id, format::keys::Id::vibrato);
}

TEST(FormatLosses, NamePointsWhosePlaceIsTaken)
{
    EXPECT_THAT(
        lossesOfNote(R"(,"vibrato":{"depths":[{"pos":0,"value":128},{"pos":0,"value":1},)"
                     R"({"value":2,"pos":0}]})"),
        ElementsAre(Told{LossReason::notAccepted, "/midi/notes/0/vibrato/depths/0/value", "128}"},
                    Told{LossReason::duplicate, "/midi/notes/0/vibrato/depths/2/pos", "0}]}"}));
}

TEST(FormatLosses, OfPointsTellTheirRange)
{
    Notes notes;
    std::string bytes =
        midi(R"(,"controllers":[{"name":"exciter","events":[{"pos":0,"value":64}]}])");
    format::DocumentReader().readPart(bytes, {plx::StringView(), 0}, nullptr, &notes);
    ASSERT_EQ(notes.losses.size(), 3U);
    EXPECT_EQ(notes.losses[0].range.minimum, -64);
    EXPECT_EQ(notes.losses[0].range.maximum, 63);
}

TEST(FormatLosses, ReportASkillThatADvqmHides)
{
    for (const char* const skill : {R"({"duration":1})", R"({"weight":{"pre":64,"post":65}})",
                                    R"({"duration":0.0,"weight":{}})"}) {
        EXPECT_THAT(lossesOfNote(std::string(R"(,"singingSkill":)") + skill + R"(,"dvqm":{})"),
                    ElementsAre(Told{LossReason::notLookedAt, "/midi/notes/0/singingSkill",
                                     (std::string(skill) + ",\"d").substr(0, 4)}));
    }
}

TEST(FormatLosses, TellOnceOfASkillOfAnotherKindThatADvqmHides)
{
    EXPECT_THAT(lossesOfNote(R"(,"singingSkill":7,"dvqm":{})"),
                ElementsAre(Told{LossReason::wrongKind, "/midi/notes/0/singingSkill", "7,\"d"}));
}

TEST(FormatLosses, AreNoneWhereTheSkillThatADvqmHidesSaysNothing)
{
    EXPECT_THAT(lossesOfNote(R"(,"singingSkill":{"duration":0,"weight":{"pre":64}},"dvqm":{})"),
                IsEmpty());
}

TEST(FormatLosses, CountLevelNames)
{
    EXPECT_THAT(
        lossesOfNote(R"(,"dvqm":{"attack":{"compID":"x","levelNames":["1","2","3","4","5"]},)"
                     R"("release":{"compID":"x","levelNames":[]}})"),
        ElementsAre(Told{LossReason::tooMany, "/midi/notes/0/dvqm/attack/levelNames", "[\"1\""},
                    Told{LossReason::object, "/midi/notes/0/dvqm/attack", "{\"co"},
                    Told{LossReason::tooFew, "/midi/notes/0/dvqm/release/levelNames", "[]}}"},
                    Told{LossReason::object, "/midi/notes/0/dvqm/release", "{\"co"}));
}

TEST(FormatLosses, DistinguishLevelNamesThatAreMissingFromThoseOfAnotherKind)
{
    EXPECT_THAT(
        lossesOfNote(
            R"(,"dvqm":{"attack":{"compID":"x"},"release":{"compID":"x","levelNames":7}})"),
        ElementsAre(Told{LossReason::missing, "/midi/notes/0/dvqm/attack", "{\"co"},
                    Told{LossReason::object, "/midi/notes/0/dvqm/attack", "{\"co"},
                    Told{LossReason::wrongKind, "/midi/notes/0/dvqm/release/levelNames", "7}}}"},
                    Told{LossReason::object, "/midi/notes/0/dvqm/release", "{\"co"}));
}

TEST(FormatLosses, OfALaneFollowFromItsNameWhereverThatStands)
{
    EXPECT_THAT(
        lossesOfPart(
            midi(R"(,"controllers":[{"events":[{"pos":0,"value":25},{"pos":1,"value":24}],)"
                 R"("name":"pitchBendSens"},{"name":"pitchBendSens","events":[]}])")),
        ElementsAre(Told{LossReason::notAccepted, "/midi/controllers/0/events/0/value", "25},"},
                    Told{LossReason::duplicate, "/midi/controllers/1/name", "\"pit"},
                    Told{LossReason::object, "/midi/controllers/1", "{\"na"}));
}

TEST(FormatLosses, NameAnEffectThatIsThereAlready)
{
    EXPECT_THAT(lossesOfPart(midi(R"(,"audioEffects":[{"id":"x"},{"id":"x"}])")),
                ElementsAre(Told{LossReason::duplicate, "/midi/audioEffects/1/id", "\"x\"}"},
                            Told{LossReason::object, "/midi/audioEffects/1", "{\"id"}));
}

TEST(FormatLosses, NameValuesOfParametersThatNoFloatHolds)
{
    EXPECT_THAT(
        lossesOfPart(midi(R"(,"midiEffects":[{"id":"x","parameters":)"
                          R"([{"name":"a","value":3.5e38},{"name":"b","value":3.4e38}]}])")),
        ElementsAre(Told{LossReason::clamped, "/midi/midiEffects/0/parameters/0/value", "3.5e"}));
}

TEST(FormatLosses, NameTheWaveFileThatIsNotThere)
{
    EXPECT_THAT(lossesOfPart(R"({"audio":{"wavFileName":"none.wav"}})"),
                ElementsAre(Told{LossReason::noWaveFile, "/audio/wavFileName", "\"non"}));
}

TEST(FormatLosses, NameThePartWhereThereIsNone)
{
    EXPECT_THAT(lossesOfPart(R"({"id":"x"})"), ElementsAre(Told{LossReason::missing, "", "{\"id"}));
}

TEST(FormatLosses, NameThePartsThatAnotherOneComesBefore)
{
    EXPECT_THAT(lossesOfPart(R"({"midi":{"duration":0},"audio":1,"midiAi":{"duration":0}})"),
                ElementsAre(Told{LossReason::notAccepted, "/midi/duration", "0},\""},
                            Told{LossReason::missing, "/midi", "{\"du"},
                            Told{LossReason::object, "/midi", "{\"du"},
                            Told{LossReason::wrongKind, "/audio", "1,\"m"},
                            Told{LossReason::notLookedAt, "/midiAi", "{\"du"},
                            Told{LossReason::notLookedAt, "/midi", "{\"du"}));
}

Notes notesOfClip(const std::string& document)
{
    Notes notes;
    std::string bytes = document;
    format::LoadedClip clip;
    format::DocumentReader().readClip(bytes, {plx::StringView(), 0}, nullptr, clip, &notes);
    return notes;
}

TEST(FormatLosses, OfAWholeDocumentNameEachPartOnce)
{
    const std::string document = R"({"midi":1,"audio":[],"name":""})";
    EXPECT_THAT(toldOf(notesOfClip(document).losses, document),
                ElementsAre(Told{LossReason::missing, "", "{\"mi"},
                            Told{LossReason::notAccepted, "/name", "\"\"}"},
                            Told{LossReason::wrongKind, "/audio", "[],\""},
                            Told{LossReason::notLookedAt, "/midi", "1,\"a"}));
}

TEST(FormatLosses, OfAGoodDocumentNameEachPartOnce)
{
    const std::string document = R"({"id":"x","name":"y","vendor":"","midi":1,"audio":[]})";
    EXPECT_THAT(toldOf(notesOfClip(document).losses, document),
                ElementsAre(Told{LossReason::wrongKind, "/audio", "[]}"},
                            Told{LossReason::notLookedAt, "/midi", "1,\"a"}));
}

TEST(FormatLosses, OfElementsNameTheObjectThatTheyAreOrAreIn)
{
    const auto losses =
        notesOfClip(R"({"id":"x","name":"y","filter":{"types":[7]},"midi":{"duration":1,)"
                    R"("voice":{"compID":"0123456789ABCDEF","langID":0},"notes":[7]}})")
            .losses;
    ASSERT_EQ(losses.size(), 2U);
    EXPECT_EQ(losses[0].shape->id, format::keys::Id::filter);
    EXPECT_EQ(losses[1].shape->id, format::keys::Id::note);
}

TEST(FormatLosses, OfAWholeDocumentNameTheWaveFileBesideOtherReasons)
{
    const std::string document = R"({"name":"n","audio":{"wavFileName":"none.wav"}})";
    EXPECT_THAT(toldOf(notesOfClip(document).losses, document),
                ElementsAre(Told{LossReason::missing, "", "{\"na"},
                            Told{LossReason::noWaveFile, "/audio/wavFileName", "\"non"}));
}

Notes notesOfProperties(const std::string& document)
{
    Notes notes;
    std::string bytes = document;
    plx::ClipProperties properties;
    format::DocumentReader().readProperties(bytes, properties, &notes);
    return notes;
}

std::string properties(const std::string& members)
{
    return R"({"id":"i","name":"n")" + members + "}";
}

TEST(FormatLosses, NameKeyAndTempoOfAnAudioClip)
{
    const std::string document = properties(R"(,"part":{"tempo":1,"type":"audio","key":3})");
    EXPECT_THAT(toldOf(notesOfProperties(document).losses, document),
                ElementsAre(Told{LossReason::notLookedAt, "/part/key", "3}}"},
                            Told{LossReason::notLookedAt, "/part/tempo", "1,\"t"}));
}

TEST(FormatLosses, NameTagsThatAreNoneAndTagsThatStandTwice)
{
    const std::string document =
        properties(R"(,"part":{"type":"midi"},"filter":{"types":["a","","b","a",1],)"
                   R"("genres":["a"],"languages":[1,-1,1,"x"]})");
    EXPECT_THAT(toldOf(notesOfProperties(document).losses, document),
                ElementsAre(Told{LossReason::notAccepted, "/filter/types/1", "\"\",\""},
                            Told{LossReason::duplicate, "/filter/types/3", "\"a\","},
                            Told{LossReason::wrongKind, "/filter/types/4", "1],\""},
                            Told{LossReason::notAccepted, "/filter/languages/1", "-1,1"},
                            Told{LossReason::duplicate, "/filter/languages/2", "1,\"x"},
                            Told{LossReason::wrongKind, "/filter/languages/3", "\"x\"]"}));
}

TEST(FormatLosses, ComeWithTheIdTheTypeAndTheNotesThatWereTaken)
{
    std::vector<std::string> paths;
    for (const format::Taken& taken :
         notesOfProperties(properties(R"(,"part":{"type":"midi"})")).all) {
        paths.push_back(taken.path);
    }
    EXPECT_THAT(paths, ElementsAre("/part/type", "/id"));
    const Notes ofPart = notesOfClip(properties(
        R"(,"midi":{"duration":1,"voice":{"compID":"0123456789ABCDEF","langID":0},"notes":[{},)" +
        note("") + "]}"));
    ASSERT_EQ(ofPart.all.size(), 2U);
    EXPECT_EQ(ofPart.all[0].path, "/midi/notes/1");
    EXPECT_NE(ofPart.all[0].note, nullptr);
    EXPECT_EQ(ofPart.all[1].path, "/id");
}

// --- Texts that are no documents ----------------------------------------------------------------------

struct Broken {
    format::Defect::Kind kind;
    std::string text;
    std::size_t place; // of the first character that is wrong
};

class FormatDefects : public testing::TestWithParam<Broken> {};

TEST_P(FormatDefects, AreToldWithTheirPlaces)
{
    const auto defects = notesOfProperties(GetParam().text).defects;
    ASSERT_EQ(defects.size(), 1U);
    EXPECT_EQ(defects[0].kind, GetParam().kind);
    EXPECT_EQ(defects[0].place, GetParam().place);
}

using DefectKind = format::Defect::Kind;
INSTANTIATE_TEST_SUITE_P(
    All, FormatDefects,
    testing::Values(Broken{DefectKind::grammar, R"({"id":"x",})", 10},
                    Broken{DefectKind::grammar, R"({"id":-x})", 7},
                    Broken{DefectKind::grammar, R"({"id":01})", 7},
                    Broken{DefectKind::grammar, R"({"id":1.e5})", 8},
                    Broken{DefectKind::grammar, R"({"id":1e+})", 9},
                    Broken{DefectKind::grammar, R"({"id":-1e400})", 6},
                    Broken{DefectKind::grammar, R"({"id":"x)", 8},
                    Broken{DefectKind::grammar, std::string("{} \0", 4), 3},
                    Broken{DefectKind::grammar, "{}{}", 2}, Broken{DefectKind::grammar, "", 0},
                    Broken{DefectKind::grammar, " [1]", 1},
                    Broken{DefectKind::halfSurrogate, R"({"id":"\udc00"})", 13},
                    Broken{DefectKind::encoding, "{\"\xC3\xA4\xFF\"}", 4},
                    Broken{DefectKind::encoding, std::string("{\0\"\0\x00\xDC\"\0", 8), 2},
                    Broken{DefectKind::encoding, std::string("{\0}\0 ", 5), 2}));

class FormatLossPlaces : public testing::TestWithParam<support::Encoding> {};

TEST_P(FormatLossPlaces, AreThoseInTheUntouchedFile)
{
    const std::string text =
        R"({"id":"ä\u00e4€\ud83d\ude00😀","name":"x","part":{"type":"midi","key":31}})";
    for (const auto mark : {support::ByteOrderMark::without, support::ByteOrderMark::with}) {
        const std::string file = support::encode(text, GetParam(), mark);
        std::string bytes = file;
        Notes notes;
        plx::ClipProperties properties;
        ASSERT_TRUE(format::DocumentReader().readProperties(bytes, properties, &notes));
        ASSERT_EQ(notes.losses.size(), 1U);
        EXPECT_EQ(notes.losses[0].path, "/part/key");
        const std::size_t place = format::placeInFile(file, notes.losses[0].place);
        EXPECT_EQ(file.substr(place), support::encode("31}}", GetParam()));
    }
}

INSTANTIATE_TEST_SUITE_P(Encodings, FormatLossPlaces,
                         testing::Values(support::Encoding::utf8,
                                         support::Encoding::utf16LittleEndian,
                                         support::Encoding::utf16BigEndian,
                                         support::Encoding::utf32LittleEndian,
                                         support::Encoding::utf32BigEndian));

} // namespace
