// What a listener is told about everything that is lost when a document is read.
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "format/encoding.h"
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

    std::vector<format::Loss> losses;
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

TEST(FormatLosses, NameTheKeyThatAnObjectLacks)
{
    EXPECT_THAT(lossesOfPart(midi(R"(,"notes":[{"pos":0,"duration":1}])")),
                ElementsAre(Told{LossReason::missing, "/midi/notes/0", "{\"po"},
                            Told{LossReason::object, "/midi/notes/0", "{\"po"}));
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

TEST(FormatLosses, NameUnknownAndRepeatedKeys)
{
    EXPECT_THAT(lossesOfNote(R"(,"exp":{"acent":1,"decay":1,"de~/cay":{"a":[]},"decay":2})"),
                ElementsAre(Told{LossReason::unknownKey, "/midi/notes/0/exp/acent", "\"ace"},
                            Told{LossReason::unknownKey, "/midi/notes/0/exp/de~0~1cay", "\"de~"},
                            Told{LossReason::repeatedKey, "/midi/notes/0/exp/decay", "\"dec"}));
}

TEST(FormatLosses, OfWhatWaitsForItsNoteHaveTheirOwnPlaces)
{
    EXPECT_THAT(
        lossesOfNote(
            R"(,"singingSkill":{"duration":10,"weight":{"pre":128}})"
            R"(,"vibrato":{"duration":5,"rates":[{"pos":5,"value":0},{"pos":6,"value":0}]})"),
        ElementsAre(Told{LossReason::notAccepted, "/midi/notes/0/singingSkill/duration", "10,\""},
                    Told{LossReason::notAccepted, "/midi/notes/0/singingSkill/weight/pre", "128}"},
                    Told{LossReason::notAccepted, "/midi/notes/0/vibrato/rates/1", "{\"po"}));
}

TEST(FormatLosses, ReportASkillThatADvqmHides)
{
    EXPECT_THAT(lossesOfNote(R"(,"singingSkill":{},"dvqm":{})"),
                ElementsAre(Told{LossReason::notLookedAt, "/midi/notes/0/singingSkill", "{},\""}));
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

TEST(FormatLosses, OfALaneFollowFromItsNameWhereverThatStands)
{
    EXPECT_THAT(lossesOfPart(
                    midi(R"(,"controllers":[{"events":[{"pos":0,"value":25},{"pos":1,"value":24}],)"
                         R"("name":"pitchBendSens"},{"name":"pitchBendSens","events":[]}])")),
                ElementsAre(Told{LossReason::notAccepted, "/midi/controllers/0/events/0", "{\"po"},
                            Told{LossReason::duplicate, "/midi/controllers/1", "{\"na"},
                            Told{LossReason::object, "/midi/controllers/1", "{\"na"}));
}

TEST(FormatLosses, NameAnEffectThatIsThereAlready)
{
    EXPECT_THAT(lossesOfPart(midi(R"(,"audioEffects":[{"id":"x"},{"id":"x"}])")),
                ElementsAre(Told{LossReason::duplicate, "/midi/audioEffects/1", "{\"id"},
                            Told{LossReason::object, "/midi/audioEffects/1", "{\"id"}));
}

TEST(FormatLosses, NameThePartsThatAnotherOneComesBefore)
{
    EXPECT_THAT(lossesOfPart(R"({"midi":{"duration":0},"audio":1,"midiAi":{"duration":0}})"),
                ElementsAre(Told{LossReason::notAccepted, "/midi/duration", "0},\""},
                            Told{LossReason::object, "/midi", "{\"du"},
                            Told{LossReason::wrongKind, "/audio", "1,\"m"},
                            Told{LossReason::notLookedAt, "/midiAi", "{\"du"},
                            Told{LossReason::notLookedAt, "/midi", "{\"du"}));
}

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
