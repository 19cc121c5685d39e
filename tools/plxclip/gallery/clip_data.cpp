#include "gallery/clip_data.h"

#include <algorithm>

#include "json_pieces.h"
#include "naming.h"
#include "paths.h"
#include "roll/keys.h"
#include "wave.h"

namespace plxclip::gallery {

namespace {

using check::Finding;

// On Windows there is no way from one drive to another: then it is the whole path.
std::string linkTo(const std::string& path, const std::filesystem::path& folder)
{
    std::error_code error;
    const std::filesystem::path target = std::filesystem::weakly_canonical(pathOf(path), error);
    const std::filesystem::path way = target.lexically_relative(folder);
    return textOf(way.empty() ? target : way);
}

// --- The catalogue ----------------------------------------------------------------------------------

bool isNoted(const Finding& finding)
{
    return finding.effect == check::effect::noted;
}

// A syllable that goes on over further notes is written like this.
bool isHeld(std::string_view lyric)
{
    return lyric == "-" || lyric == "ー";
}

// What is sung, to be searched: syllables without anything between them, because no note says where a
// word ends.
std::string lyricsOf(const Part& part)
{
    std::string lyrics;
    if (const auto* const midi = std::get_if<MidiPart>(&part)) {
        for (const Note& note : midi->notes) {
            lyrics += isHeld(note.lyric) ? "" : note.lyric;
        }
    }
    return lyrics;
}

void writeEntry(CompactJson& json, const Entry& clip, const std::filesystem::path& folder)
{
    Properties properties = clip.properties;
    properties.path = linkTo(properties.path, folder);
    writeProperties(json, properties);
    json.member("lyrics", lyricsOf(clip.part));
    const auto noted = std::ranges::count_if(clip.findings, isNoted);
    json.member("reads", !std::holds_alternative<std::monostate>(clip.part));
    json.member("lost", clip.findings.size() - static_cast<std::size_t>(noted));
    json.member("noted", static_cast<std::size_t>(noted));
}

std::string placeOf(const Finding& finding, const std::string& clipFile)
{
    const std::string file =
        finding.document.empty() ? textOf(pathOf(clipFile).filename()) : finding.document;
    const auto [line, column] = finding.position;
    return line == 0 ? file : fmt::format("{}:{}:{}", file, line, column);
}

void writeFindings(CompactJson& json, const std::vector<Finding>& findings,
                   const std::string& clipFile)
{
    json.key("findings");
    json.array(findings, [&](const Finding& finding) {
        json.object([&] {
            json.member("effect", finding.effect);
            json.member("place", placeOf(finding, clipFile));
            json.member("pointer", finding.pointer);
            json.member("message", finding.message);
        });
    });
}

template <typename Name>
void writeNames(CompactJson& json, std::string_view key, Name nameOf)
{
    constexpr std::uint32_t enough = 128;
    json.object(key, [&] {
        for (std::uint32_t number = 0; number < enough; ++number) {
            if (const auto name = nameOf(number)) {
                json.member(std::to_string(number), *name);
            }
        }
    });
}

void writeView(CompactJson& json, const Contents& contents)
{
    json.member("title", contents.title);
    json.member("ticksPerQuarter", static_cast<std::size_t>(contents.view.ticksPerQuarter));
    if (contents.namesNumbers) {
        writeNames(json, "keyNames", keyName);
        writeNames(json, "languageNames", languageName);
    }
}

// --- Parts ------------------------------------------------------------------------------------------

// Position and value in turn.
void writeTurns(CompactJson& json, std::string_view name, const std::vector<Point>& points)
{
    json.key(name);
    json.array(points, [&](const Point& point) {
        json.value(point.pos);
        json.value(point.value);
    });
}

void writeVibrato(CompactJson& json, const Vibrato& vibrato)
{
    json.object("vibrato", [&] {
        json.member("type", vibrato.type);
        json.member("duration", vibrato.duration);
        writeTurns(json, "depths", vibrato.depths);
        writeTurns(json, "rates", vibrato.rates);
    });
}

// What the notes of a clip mostly share: only what differs from the usual note is written.
void writeDetails(CompactJson& json, const Note& note, const Note* usual)
{
    const auto differs = [&](auto member) {
        return usual == nullptr || note.*member != usual->*member;
    };
    if (differs(&Note::language)) {
        json.key("language");
        note.language ? json.value(*note.language) : json.null();
    }
    if (differs(&Note::isProtected)) {
        json.member("isProtected", note.isProtected);
    }
    if (differs(&Note::expression)) {
        json.object("expression", [&] { writeValues(json, note.expression); });
    }
    if (differs(&Note::aiExpression)) {
        json.object("ai", [&] { writeValues(json, note.aiExpression); });
    }
    if (differs(&Note::attack)) {
        writeDvqm(json, "attack", note.attack);
    }
    if (differs(&Note::release)) {
        writeDvqm(json, "release", note.release);
    }
    if (differs(&Note::skill)) {
        writeSkill(json, note.skill);
    }
    if (differs(&Note::vibrato)) {
        writeVibrato(json, note.vibrato);
    }
}

void writeNote(CompactJson& json, const Note& note, const Note& usual)
{
    json.sequence([&] {
        json.value(note.pos);
        json.value(note.duration);
        json.value(note.number);
        json.value(note.velocity);
        json.value(note.lyric);
        json.value(note.phoneme);
        json.object([&] { writeDetails(json, note, &usual); });
    });
}

void writeNotes(CompactJson& json, const std::vector<Note>& notes)
{
    if (!notes.empty()) {
        json.object("usual", [&] { writeDetails(json, notes.front(), nullptr); });
    }
    json.key("notes");
    json.array(notes, [&](const Note& note) { writeNote(json, note, notes.front()); });
}

void writeLanes(CompactJson& json, const std::vector<Lane>& lanes)
{
    json.key("lanes");
    json.array(lanes, [&](const Lane& lane) {
        json.object([&] {
            json.member("name", laneName(lane.type));
            json.member("least", lane.least);
            json.member("most", lane.most);
            writeTurns(json, "events", lane.events);
        });
    });
}

void writeWave(CompactJson& json, const std::string& path, const std::filesystem::path& folder)
{
    const Wave wave = readWave(path);
    json.object("wave", [&] {
        json.member("path", linkTo(path, folder));
        if (wave.problem.empty()) {
            json.member("seconds", wave.seconds);
            json.member("rate", wave.rate);
            json.member("channels", wave.channels);
            json.list("peaks", wave.peaks);
        } else {
            json.member("problem", wave.problem);
        }
    });
}

// What the picture is to be drawn with. Of each range of keys the lowest and the highest.
void writePicture(CompactJson& json, const MidiPart& part, const roll::View& wanted)
{
    const roll::View view = roll::withMeter(wanted, part);
    json.list("meter", std::vector<std::int32_t>{view.beats, view.beatUnit});
    json.member("meterText", roll::meterText(view));
    json.key("keys");
    json.array(roll::keyRanges(part.notes), [&](const roll::KeyRange& range) {
        json.value(range.lowest);
        json.value(range.highest);
    });
}

struct GalleryPartWriter {
    CompactJson& json;
    const Contents& contents;

    void operator()(std::monostate) const {}

    void operator()(const AudioPart& part) const
    {
        writeWave(json, part.wavePath, contents.folder);
        writeEffects(json, "audioEffects", part.audioEffects);
    }

    void operator()(const MidiPart& part) const
    {
        json.member("duration", part.duration);
        json.member("voice", part.voice);
        json.list("languages", part.languages);
        json.member("styleName", part.styleName);
        json.member("stylePreset", part.stylePreset);
        writePicture(json, part, contents.view);
        writeNotes(json, part.notes);
        writeLanes(json, part.lanes);
        writeEffects(json, "midiEffects", part.midiEffects);
        writeEffects(json, "audioEffects", part.audioEffects);
    }
};

} // namespace

std::string catalogueData(const Contents& contents)
{
    CompactJson json;
    json.object([&] {
        writeView(json, contents);
        json.key("clips");
        json.array(contents.clips, [&](const Entry& clip) {
            json.object([&] { writeEntry(json, clip, contents.folder); });
        });
        json.key("notListed");
        json.array(contents.notListed, [&](const check::ClipReport& report) {
            json.object([&] {
                json.member("path", linkTo(report.path, contents.folder));
                writeFindings(json, report.findings, report.path);
            });
        });
    });
    return json.text();
}

std::string partData(const Entry& clip, const Contents& contents)
{
    CompactJson json;
    json.object([&] {
        std::visit(GalleryPartWriter{json, contents}, clip.part);
        writeFindings(json, clip.findings, clip.properties.path);
    });
    return json.text();
}

} // namespace plxclip::gallery
