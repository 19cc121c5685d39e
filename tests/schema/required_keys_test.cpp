// What the schemas ask for is what the reader asks for: without a member of a document the schema
// refuses the document exactly when the reader refuses the clip or the part, or leaves something out.
#include <set>

#include "schema.h"
#include "support/random_clip.h"
#include "support/reading.h"
#include "support/saving.h"
#include "tally.h"

using schema::Document;
using schema::Schema;
using schema::tallyOf;
using schema::textOf;
using schema::withNull;
using schema::without;

namespace {

// One of everything, and two of what is kept in lists.
constexpr const char* fullParts[] = {
    R"({"id": "ID", "name": "Name", "vendor": "Vendor", "filter": {"types": ["Verse"]},
        "midi": {"duration": 1920, "styleName": "Soft", "stylePresetID": "soft",
        "voice": {"compID": "ABCDEFGHIJKLMNOP", "langID": 0},
        "audioEffects": [{"id": "reverb", "parameters":
            [{"name": "Mix", "value": 0.5}, {"name": "Preset", "value": "Hall"}]}, {"id": "delay"}],
        "midiEffects": [{"id": "strum", "parameters": [{"name": "Steps", "value": 3}]}],
        "notes": [
            {"pos": 0, "duration": 480, "lyric": "la", "phoneme": "l a", "langID": 1,
             "isProtected": true, "number": 60, "velocity": 64,
             "exp": {"accent": 1, "bendDepth": 2, "bendLength": 3, "decay": 4, "fallPort": true,
                     "risePort": true, "opening": 5},
             "aiExp": {"pitchFine": 0.25, "formantEnd": 1.0},
             "dvqm": {"attack": {"compID": "growl", "levelNames": ["a", "b"], "isProtected": true,
                                 "speed": 7, "topFactor": 1.5},
                      "release": {"compID": "fry", "levelNames": ["c"]}},
             "vibrato": {"type": 1, "duration": 240,
                         "depths": [{"pos": 0, "value": 1}, {"pos": 240, "value": 2}],
                         "rates": [{"pos": 0, "value": 3}]}},
            {"pos": 480, "duration": 480, "lyric": "lo", "phoneme": "l o", "number": 62,
             "velocity": 65, "singingSkill": {"duration": 1, "weight": {"pre": 2, "post": 3}}}],
        "controllers": [
            {"name": "dynamics", "events": [{"pos": 0, "value": 127}, {"pos": 1, "value": 0}]},
            {"name": "pitchBend", "events": [{"pos": 0, "value": -8192}]}]}})",
    R"({"id": "ID", "name": "Name", "midiAi": {"duration": 1,
        "aiVoice": {"compID": "", "langIDs": [{"langID": 0}, {"langID": 127}]},
        "notes": [{"pos": -1, "duration": 1, "lyric": "la", "phoneme": "l a", "number": 0,
                   "velocity": 0}]}})",
    R"({"id": "ID", "name": "Name", "audio": {"wavFileName": "take.wav",
        "audioEffects": [{"id": "reverb", "parameters": [{"name": "Bypass", "value": 1}]}]},
        "midi": {}})"};

bool endsWith(const std::string& text, std::string_view end)
{
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

// Without its duration a vibrato is still taken, but its later points are not: a rule about values,
// of which no schema knows.
bool isVibratoDuration(const std::string& member)
{
    return endsWith(member, "/vibrato/duration");
}

class RequiredKeysTest : public ReaderTest {
protected:
    RequiredKeysTest() { addWaveFile(); }

    bool isTakenWhole(const Document& document)
    {
        return readPart(textOf(document)) != nullptr && nothingIsLeftOut(clipOfPart(), document);
    }

    bool isTakenWholeByItself(const Document& document)
    {
        KRT_PLX_ClipBase* const clip = readWhole(textOf(document));
        return clip != nullptr && nothingIsLeftOut(clip, document);
    }

    bool isTakenAsProperties(const Document& document)
    {
        return readProperties(textOf(document)) != nullptr;
    }

    const Schema propertySchema{"property"};
    const Schema dataSchema{"data"};
    const Schema standaloneSchema{"standalone"};

private:
    static bool nothingIsLeftOut(KRT_PLX_ClipBase* clip, const Document& document)
    {
        return tallyOf(support::modelOfRead(clip).part) == tallyOf(document);
    }
};

using IsTaken = std::function<bool(const Document&)>;

// Removes each member in turn; where that is refused, null in its place must be refused as well.
// Returns how many of the members are required.
std::size_t expectAgreement(const Schema& schema, const Document& document, const IsTaken& isTaken,
                            const std::vector<std::string>& members)
{
    std::size_t required = 0;
    for (const std::string& member : members) {
        const Document less = without(document, member);
        const std::string complaint = schema.complaint(less);
        EXPECT_EQ(complaint.empty(), isTaken(less)) << "without " << member << ": " << complaint;
        if (!complaint.empty()) {
            ++required;
            const Document wrong = withNull(document, member);
            EXPECT_FALSE(schema.accepts(wrong)) << "null at " << member;
            EXPECT_FALSE(isTaken(wrong)) << "null at " << member;
        }
    }
    return required;
}

std::vector<std::string> removableMembersOf(const Document& document)
{
    std::vector<std::string> members = schema::membersOf(document);
    std::erase_if(members, isVibratoDuration);
    return members;
}

using FullPartsTest = RequiredKeysTest;

TEST_F(FullPartsTest, BesideAPropertyDocument)
{
    const std::size_t required[] = {46, 12, 5};
    for (std::size_t i = 0; i < std::size(fullParts); ++i) {
        const Document document = schema::parse(fullParts[i]);
        ASSERT_EQ(dataSchema.complaint(document), "");
        ASSERT_TRUE(isTakenWhole(document));
        EXPECT_EQ(expectAgreement(
                      dataSchema, document, [this](auto& less) { return isTakenWhole(less); },
                      removableMembersOf(document)),
                  required[i]);
    }
}

TEST_F(FullPartsTest, Alone)
{
    const std::size_t required[] = {48, 14, 7};
    for (std::size_t i = 0; i < std::size(fullParts); ++i) {
        const Document document = schema::parse(fullParts[i]);
        ASSERT_EQ(standaloneSchema.complaint(document), "");
        ASSERT_TRUE(isTakenWholeByItself(document));
        EXPECT_EQ(expectAgreement(
                      standaloneSchema, document,
                      [this](auto& less) { return isTakenWholeByItself(less); },
                      removableMembersOf(document)),
                  required[i]);
    }
}

// Clips of any content, saved; what each loses in being read is another test's matter, so only those
// count that lose nothing.
class SavedClipsTest : public RequiredKeysTest {
protected:
    struct Documents {
        Document properties;
        Document data;
    };

    Documents saveRandomClip(support::Random& random)
    {
        KRT_PLX_ClipBase* const clip = createMutableClip();
        support::fillRandomly(clip, random, clipFolder() / "audio" / "take.wav");
        const std::string id = support::utf8(KRT_PLX_Clip_id(support::save(clip).clip));
        KRT_PLX_MutableClip_destroy(clip);
        const support::Path folder = userFolder() / id;
        return {schema::parse(support::readFile(folder / "property.json")),
                schema::parse(support::readFile(folder / (id + ".kxclip")))};
    }
};

TEST_F(SavedClipsTest, DataDocuments)
{
    support::Random random(61);
    std::size_t required = 0;
    for (int left = 45; left > 0;) {
        const Document document = saveRandomClip(random).data;
        if (!isTakenWhole(document)) {
            continue;
        }
        std::vector<std::string> members = removableMembersOf(document);
        std::erase_if(members, [&](const std::string&) { return !random.oneIn(4); });
        required += expectAgreement(
            dataSchema, document, [this](auto& less) { return isTakenWhole(less); }, members);
        --left;
    }
    EXPECT_GT(required, 300u);
}

TEST_F(SavedClipsTest, PropertyDocuments)
{
    constexpr std::size_t idNamePartAndType = 4;
    support::Random random(62);
    for (int i = 0; i < 10; ++i) {
        const Document document = saveRandomClip(random).properties;
        EXPECT_TRUE(isTakenAsProperties(document));
        EXPECT_EQ(expectAgreement(
                      propertySchema, document,
                      [this](auto& less) { return isTakenAsProperties(less); },
                      schema::membersOf(document)),
                  idNamePartAndType);
    }
}

} // namespace
