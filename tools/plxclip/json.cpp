#include "json.h"

#include "json_pieces.h"

namespace plxclip {

namespace {

void writePoints(Json& json, std::string_view name, const std::vector<Point>& points)
{
    json.objects(name, points, [](Json& inner, const Point& point) {
        inner.member("pos", point.pos);
        inner.member("value", point.value);
    });
}

void writeVibrato(Json& json, const Vibrato& vibrato)
{
    json.object("vibrato", [&] {
        json.member("type", vibrato.type);
        json.member("duration", vibrato.duration);
        writePoints(json, "depths", vibrato.depths);
        writePoints(json, "rates", vibrato.rates);
    });
}

void writeNote(Json& json, const Note& note)
{
    json.member("pos", note.pos);
    json.member("duration", note.duration);
    json.member("number", note.number);
    json.member("velocity", note.velocity);
    json.member("lyric", note.lyric);
    json.member("phoneme", note.phoneme);
    json.key("language");
    note.language ? json.value(*note.language) : json.null();
    json.member("isProtected", note.isProtected);
    writeValues(json, note.expression);
    json.object("ai", [&] { writeValues(json, note.aiExpression); });
    writeDvqm(json, "attack", note.attack);
    writeDvqm(json, "release", note.release);
    writeSkill(json, note.skill);
    writeVibrato(json, note.vibrato);
}

void writeLane(Json& json, const Lane& lane)
{
    json.member("name", laneName(lane.type));
    json.member("type", lane.type);
    json.member("least", lane.least);
    json.member("most", lane.most);
    writePoints(json, "events", lane.events);
}

struct PartWriter {
    Json& json;

    void operator()(std::monostate) const {}

    void operator()(const AudioPart& part) const
    {
        json.object("audioPart", [&] {
            json.member("wavePath", part.wavePath);
            writeEffects(json, "audioEffects", part.audioEffects);
        });
    }

    void operator()(const MidiPart& part) const
    {
        json.object("midiPart", [&] {
            json.member("duration", part.duration);
            json.member("voice", part.voice);
            json.list("languages", part.languages);
            json.member("styleName", part.styleName);
            json.member("stylePreset", part.stylePreset);
            json.objects("notes", part.notes, writeNote);
            json.objects("lanes", part.lanes, writeLane);
            writeEffects(json, "midiEffects", part.midiEffects);
            writeEffects(json, "audioEffects", part.audioEffects);
        });
    }
};

} // namespace

std::string listJson(const std::vector<Properties>& clips, std::size_t total)
{
    Json json;
    json.object([&] {
        json.member("total", total);
        json.objects("clips", clips, writeProperties<Json>);
    });
    return json.text();
}

std::string countsJson(std::string_view tag, const std::vector<TagCount>& counts)
{
    Json json;
    json.object([&] {
        json.member("tag", tag);
        json.object("counts", [&] {
            for (const TagCount& count : counts) {
                json.member(count.tag, count.clips);
            }
        });
    });
    return json.text();
}

std::string clipJson(const Properties& clip, const Part& part)
{
    Json json;
    json.object([&] {
        writeProperties(json, clip);
        std::visit(PartWriter{json}, part);
    });
    return json.text();
}

} // namespace plxclip
