#include "json.h"

#include "json_writer.h"

namespace plxclip {

namespace {

void writeTags(Json& json, const Tags& tags)
{
    json.object("tags", [&] {
        json.list("types", tags.types);
        json.list("genres", tags.genres);
        json.list("languages", tags.languages);
        json.list("singerGroups", tags.singerGroups);
        json.list("singerIDs", tags.singerIDs);
        json.list("vendors", tags.vendors);
    });
}

void writeProperties(Json& json, const Properties& clip)
{
    json.member("id", clip.id);
    json.member("name", clip.name);
    json.member("vendor", clip.vendor);
    json.member("kind", std::string_view(clip.isUserClip ? "user" : "system"));
    json.member("path", clip.path);
    json.member("part", nameOf(clip.partType));
    json.member("key", clip.key);
    json.member("tempo", clip.tempo);
    writeTags(json, clip.tags);
}

void writePoints(Json& json, std::string_view name, const std::vector<Point>& points)
{
    json.objects(name, points, [](Json& inner, const Point& point) {
        inner.member("pos", point.pos);
        inner.member("value", point.value);
    });
}

void writeDvqm(Json& json, std::string_view name, const Dvqm& dvqm)
{
    json.object(name, [&] {
        json.member("component", dvqm.component);
        json.list("levelNames", dvqm.levelNames);
        json.member("isProtected", dvqm.isProtected);
        json.member("speed", dvqm.speed);
        json.member("topFactor", dvqm.topFactor);
    });
}

void writeValues(Json& json, const std::vector<NamedValue>& values)
{
    for (const NamedValue& each : values) {
        json.key(each.name);
        std::visit([&json](auto value) { json.value(value); }, each.value);
    }
}

void writeSkill(Json& json, const SingingSkill& skill)
{
    json.object("singingSkill", [&] {
        json.member("duration", skill.duration);
        json.member("pre", skill.preWeight);
        json.member("post", skill.postWeight);
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

struct ValueWriter {
    Json& json;
    void operator()(std::monostate) const { json.null(); }
    template <typename Value>
    void operator()(const Value& value) const
    {
        json.value(value);
    }
};

void writeParameter(Json& json, const Parameter& parameter)
{
    json.member("name", parameter.name);
    json.key("value");
    std::visit(ValueWriter{json}, parameter.value);
}

void writeEffect(Json& json, const Effect& effect)
{
    json.member("id", effect.id);
    json.objects("parameters", effect.parameters, writeParameter);
}

struct PartWriter {
    Json& json;

    void operator()(std::monostate) const {}

    void operator()(const AudioPart& part) const
    {
        json.object("audioPart", [&] {
            json.member("wavePath", part.wavePath);
            json.objects("audioEffects", part.audioEffects, writeEffect);
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
            json.objects("midiEffects", part.midiEffects, writeEffect);
            json.objects("audioEffects", part.audioEffects, writeEffect);
        });
    }
};

} // namespace

std::string listJson(const std::vector<Properties>& clips, std::size_t total)
{
    Json json;
    json.object([&] {
        json.member("total", total);
        json.objects("clips", clips, writeProperties);
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
