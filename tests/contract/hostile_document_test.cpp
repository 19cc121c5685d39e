// Documents that somebody broke, by accident or on purpose: nested without end, cut off, changed in
// one bit, or no documents at all. Each gives what the rules say, and the host does not crash.

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "support/reading.h"

namespace {

using support::accepted;
using support::array;
using support::dataObject;
using support::everyHowMany;
using support::jsonString;
using support::midiPartObject;
using support::noteObject;
using support::Object;
using support::refused;
using support::universalObject;
using support::utf8;

constexpr std::size_t levels = 1000000;

std::string repeated(std::string_view text, std::size_t times)
{
    std::string result;
    result.reserve(text.size() * times);
    for (std::size_t i = 0; i < times; ++i) {
        result += text;
    }
    return result;
}

// A document with something of everything in it.
std::string richDocument()
{
    const Object note =
        noteObject()
            .with("exp", R"({"accent": 10, "fallPort": true})")
            .with("aiExp", R"({"pitchFine": 0.25})")
            .with("dvqm", R"({"attack": {"compID": "a", "levelNames": ["さ"], "speed": 5}})")
            .with("vibrato", R"({"type": 3, "duration": 9, "depths": [{"pos": 7, "value": 8}]})");
    const Object part =
        midiPartObject()
            .with("notes", array({note}))
            .with("controllers", R"([{"name": "air", "events": [{"pos": 0, "value": 1}]}])")
            .with("midiEffects",
                  R"([{"id": "E", "parameters": [{"name": "x", "value": -1.5e-3}]}])");
    return universalObject()
        .with("midi", part)
        .with("vendor", jsonString("\\ud834\\udd1e"))
        .with("filter", R"({"genres": ["Lied", "Pop"], "languages": [1, 2]})");
}

class HostileDocumentTest : public ReaderTest {
protected:
    // What is true of every part, whatever the document.
    static void expectSound(KRT_PLX_PartBase* part)
    {
        ASSERT_GE(KRT_PLX_MidiPartBase_duration(part), 1);
        ASSERT_EQ(utf8(KRT_PLX_MidiPartBase_voiceBankID(part)).size(), 16u);
        ASSERT_LE(KRT_PLX_MidiPartBase_langID(part), 127u);
        for (std::uint64_t i = 0; KRT_PLX_NoteBase* note = KRT_PLX_MidiPart_note(part, i); ++i) {
            expectSoundNote(note);
        }
        for (std::uint32_t type = 0; type < 12; ++type) {
            expectSoundLane(KRT_PLX_MidiPart_midiController(part, type));
        }
    }

private:
    static void expectSoundNote(KRT_PLX_NoteBase* note)
    {
        ASSERT_NE(utf8(KRT_PLX_NoteBase_lyric(note)), "");
        ASSERT_NE(utf8(KRT_PLX_NoteBase_phoneme(note)), "");
        ASSERT_LE(KRT_PLX_NoteBase_number(note), 127u);
        ASSERT_LE(KRT_PLX_NoteBase_velocity(note), 127u);
        ASSERT_GE(KRT_PLX_NoteBase_duration(note), 1);
        ASSERT_LE(std::int64_t{KRT_PLX_NoteBase_pos(note)} + KRT_PLX_NoteBase_duration(note),
                  INT32_MAX);
        ASSERT_LE(KRT_PLX_NoteBase_accent(note), 100u);
        ASSERT_TRUE(KRT_PLX_NoteBase_pitchFine(note) >= 0 && KRT_PLX_NoteBase_pitchFine(note) <= 1);
        KRT_PLX_VibratoBase* vibrato = KRT_PLX_Note_vibrato(note);
        ASSERT_LE(KRT_PLX_VibratoBase_type(vibrato), 16u);
        ASSERT_LE(KRT_PLX_VibratoBase_duration(vibrato), KRT_PLX_NoteBase_duration(note));
        if (KRT_PLX_VibratoParameterBase* point = KRT_PLX_Vibrato_parameter(vibrato, 0, 0)) {
            ASSERT_LE(KRT_PLX_VibratoParameterBase_pos(point),
                      KRT_PLX_VibratoBase_duration(vibrato));
            ASSERT_LE(KRT_PLX_VibratoParameterBase_value(point), 127u);
        }
    }
    static void expectSoundLane(KRT_PLX_MidiControllerBase* lane)
    {
        if (lane == nullptr) {
            return;
        }
        KRT_PLX_MidiEventBase* event = KRT_PLX_MidiController_event(lane, 0);
        ASSERT_NE(event, nullptr);
        ASSERT_GE(KRT_PLX_MidiEventBase_value(event), KRT_PLX_MidiEventBase_minValue(event));
        ASSERT_LE(KRT_PLX_MidiEventBase_value(event), KRT_PLX_MidiEventBase_maxValue(event));
    }
};

// --- Nesting ---

TEST_F(HostileDocumentTest, MayNestAMillionBracketsWhereNobodyAsks)
{
    const std::string brackets = std::string(levels, '[') + std::string(levels, ']');
    EXPECT_EQ(accepts(universalObject().with("unknown", brackets)), accepted);
    EXPECT_EQ(accepts(Object{{"unknown", brackets}}.with("id", "1")), refused);
}

TEST_F(HostileDocumentTest, MayNestAMillionBracesWhereNobodyAsks)
{
    const std::string braces = repeated("{\"a\":", levels) + "1" + std::string(levels, '}');
    EXPECT_EQ(accepts(universalObject().with("unknown", braces)), accepted);
}

TEST_F(HostileDocumentTest, TakesDeepNestingForAValueOfTheWrongKind)
{
    const std::string deep = std::string(levels, '[') + std::string(levels, ']');
    EXPECT_EQ(accepts(universalObject().with("id", deep).with("midi", deep)), refused);
    EXPECT_EQ(readNote(noteObject().with("lyric", deep)), nullptr);
    EXPECT_NE(readNote(noteObject().with("exp", deep).with("vibrato", deep)), nullptr);
    EXPECT_EQ(countNotes({deep, noteObject(), deep}), 1u);
}

TEST_F(HostileDocumentTest, RefusesAMillionBracketsAsTheRoot)
{
    const std::string open(levels, '[');
    const std::string close(levels, ']');
    for (const std::string& document :
         {open, open + close, close, open + universalObject().text() + close,
          repeated("{\"midi\":", levels), repeated("[{\"midi\":", levels)}) {
        EXPECT_EQ(accepts(document), refused) << document.substr(0, 10);
    }
}

TEST_F(HostileDocumentTest, RefusesNestingThatIsNotClosedAsItWasOpened)
{
    const std::string open(levels, '[');
    for (const std::string& value :
         {open, open + std::string(levels - 1, ']'), open + std::string(levels + 1, ']'),
          open + std::string(levels, '}'), repeated("[{", levels)}) {
        EXPECT_EQ(accepts(universalObject().with("unknown", value)), refused);
    }
}

// --- Cut off and changed ---

TEST_F(HostileDocumentTest, IsRefusedWhenItIsCutAnywhere)
{
    const std::string document = richDocument();
    for (std::size_t length = 0; length < document.size(); length += everyHowMany) {
        ASSERT_EQ(readPart(document.substr(0, length)), nullptr) << length;
    }
    expectSound(readPart(document));
}

TEST_F(HostileDocumentTest, IsRefusedInEveryWayOfReadingWhenItIsCutAnywhere)
{
    const std::string document = universalObject("桜");
    for (std::size_t length = 0; length < document.size(); length += everyHowMany) {
        ASSERT_EQ(accepts(document.substr(0, length)), refused) << length;
    }
    EXPECT_EQ(accepts(document), accepted);
}

TEST_F(HostileDocumentTest, IsRefusedWithoutItsBeginning)
{
    const std::string document = richDocument();
    for (std::size_t start = 1; start < document.size(); start += everyHowMany) {
        ASSERT_EQ(readPart(document.substr(start)), nullptr) << start;
    }
}

TEST_F(HostileDocumentTest, KeepsItsPromisesWhateverBitIsFlipped)
{
    const std::string document = richDocument();
    std::size_t read = 0;
    for (std::size_t bit = 0; bit < document.size(); bit += everyHowMany) {
        std::string flipped = document;
        flipped[bit] = static_cast<char>(flipped[bit] ^ 1 << bit % 8);
        if (KRT_PLX_PartBase* part = readPart(flipped)) {
            ++read;
            expectSound(part);
            ASSERT_FALSE(HasFatalFailure()) << flipped;
        }
    }
    EXPECT_GT(read, document.size() / everyHowMany / 10);
    EXPECT_LT(read, document.size() / everyHowMany);
}

TEST_F(HostileDocumentTest, KeepsItsPromisesWhateverByteIsLost)
{
    const std::string document = richDocument();
    std::size_t read = 0;
    for (std::size_t place = 0; place < document.size(); place += everyHowMany) {
        std::string shorter = document;
        shorter.erase(place, 1);
        if (KRT_PLX_PartBase* part = readPart(shorter)) {
            ++read;
            expectSound(part);
            ASSERT_FALSE(HasFatalFailure()) << shorter;
        }
    }
    EXPECT_GT(read, document.size() / everyHowMany / 10);
    EXPECT_LT(read, document.size() / everyHowMany);
}

// --- No documents ---

TEST_F(HostileDocumentTest, RefusesNoise)
{
    std::mt19937 random(20240501);
    for (std::size_t length = 1; length < 5000; length += 61) {
        std::string noise;
        for (std::size_t i = 0; i < length; ++i) {
            noise += static_cast<char>(random() & 0xFF);
        }
        EXPECT_EQ(accepts(noise), refused) << length;
        EXPECT_EQ(accepts("{\"id\": \"" + noise), refused) << length;
    }
}

TEST_F(HostileDocumentTest, RefusesZeroes)
{
    for (const std::size_t length : {1u, 2u, 3u, 4u, 5u, 8u, 256u, 100000u}) {
        EXPECT_EQ(accepts(std::string(length, '\0')), refused) << length;
        EXPECT_EQ(accepts(std::string(length, '\xFF')), refused) << length;
        EXPECT_EQ(accepts(std::string(length, ' ')), refused) << length;
    }
}

TEST_F(HostileDocumentTest, RefusesTextsWithoutEnd)
{
    const std::string text(1000000, 'x');
    EXPECT_EQ(accepts("{\"id\": \"" + text), refused);
    EXPECT_EQ(accepts("{\"" + text), refused);
    EXPECT_EQ(accepts("{\"unknown\": " + std::string(1000000, '1')), refused);
    EXPECT_EQ(accepts("{\"id\": \"" + repeated("\\u0041", 100000)), refused);
}

// --- Beside good clips ---

TEST_F(HostileDocumentTest, TakesNothingFromTheClipsBesideIt)
{
    support::addClip(systemFolder() / "a", support::propertyDocument("First"), std::nullopt);
    support::addClip(systemFolder() / "b", std::string(levels, '['), std::string(levels, '{'));
    support::addClip(systemFolder() / "c", "{\"id\": \"\\udc00\"}", "\xFF\xFE");
    support::addClip(systemFolder() / "d", std::nullopt, support::midiDocumentWithID("Last"));
    support::addClip(systemFolder() / "a", std::nullopt, "");
    ASSERT_EQ(read(), KRT_PLX_RESULT_OK);
    EXPECT_THAT(support::systemClipIDs(manager()), testing::UnorderedElementsAre("First", "Last"));
}

TEST_F(HostileDocumentTest, LeavesNothingBehindWhenItFailsLate)
{
    const std::string notes = array({noteObject(), noteObject(), noteObject()});
    const Object part = midiPartObject().with("notes", notes);
    const std::string good = dataObject("midi", part).with("filter", R"({"genres": ["A"]})");
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(readWhole(good.substr(0, good.size() - 1)), nullptr);
        EXPECT_EQ(readWhole(dataObject("midi", part.without("voice"))), nullptr);
        EXPECT_NE(readWhole(good), nullptr);
    }
    EXPECT_EQ(support::systemClipCount(manager()), 1u);
}

} // namespace
