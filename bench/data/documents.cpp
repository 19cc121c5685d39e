#include "data/documents.h"

#include "data/json_text.h"
#include "model/keys.h"

namespace bench {

namespace {

void writeTexts(JsonText& out, std::string_view key, const std::vector<std::string>& texts)
{
    out.key(key).beginArray();
    for (const std::string& text : texts) {
        out.string(text);
    }
    out.endArray();
}

void writeFilter(JsonText& out, const Filter& filter)
{
    out.beginObject();
    writeTexts(out, "singerGroups", filter.singerGroups);
    out.key("languages").beginArray();
    for (const std::int32_t language : filter.languages) {
        out.integer(language);
    }
    out.endArray();
    writeTexts(out, "singerIDs", filter.singerIDs);
    writeTexts(out, "types", filter.types);
    writeTexts(out, "genres", filter.genres);
    out.endObject();
}

template <class Point>
void writePoints(JsonText& out, std::string_view key, const std::vector<Point>& points)
{
    out.key(key).beginArray();
    for (const Point& point : points) {
        out.beginObject();
        out.key("pos").integer(point.pos);
        out.key("value").integer(point.value);
        out.endObject();
    }
    out.endArray();
}

void writeExpression(JsonText& out, const Note& note)
{
    out.key("exp").beginObject();
    out.key("accent").integer(note.accent);
    out.key("bendDepth").integer(note.bendDepth);
    out.key("bendLength").integer(note.bendLength);
    out.key("decay").integer(note.decay);
    out.key("fallPort").boolean(note.fallPort);
    out.key("risePort").boolean(note.risePort);
    out.key("opening").integer(note.opening);
    out.endObject();
    out.key("aiExp").beginObject();
    for (std::size_t i = 0; i < aiValueCount; ++i) {
        out.key(keys::aiValues[i]).real(note.aiValues[i]);
    }
    out.endObject();
}

void writeDvqm(JsonText& out, std::string_view key, const Dvqm& dvqm)
{
    out.key(key).beginObject();
    out.key("compID").string(dvqm.compID);
    writeTexts(out, "levelNames", dvqm.levelNames);
    out.key("isProtected").boolean(dvqm.isProtected);
    out.key("speed").integer(dvqm.speed);
    out.key("topFactor").real(dvqm.topFactor);
    out.endObject();
}

void writeOrnament(JsonText& out, const Note& note)
{
    if (!note.attack.compID.empty()) {
        out.key("dvqm").beginObject();
        writeDvqm(out, "attack", note.attack);
        writeDvqm(out, "release", note.release);
        out.endObject();
        return;
    }
    out.key("singingSkill").beginObject();
    out.key("duration").integer(note.singingSkill.duration);
    out.key("weight").beginObject();
    out.key("pre").integer(note.singingSkill.preWeight);
    out.key("post").integer(note.singingSkill.postWeight);
    out.endObject();
    out.endObject();
}

void writeVibrato(JsonText& out, const Vibrato& vibrato)
{
    out.key("vibrato").beginObject();
    out.key("type").integer(vibrato.type);
    out.key("duration").integer(vibrato.duration);
    writePoints(out, "rates", vibrato.rates);
    writePoints(out, "depths", vibrato.depths);
    out.endObject();
}

void writeNote(JsonText& out, const Note& note)
{
    out.beginObject();
    out.key("pos").integer(note.pos);
    out.key("duration").integer(note.duration);
    out.key("lyric").string(note.lyric);
    out.key("phoneme").string(note.phoneme);
    out.key("langID").integer(note.langID);
    out.key("isProtected").boolean(note.isProtected);
    out.key("number").integer(note.number);
    out.key("velocity").integer(note.velocity);
    writeExpression(out, note);
    writeOrnament(out, note);
    writeVibrato(out, note.vibrato);
    out.endObject();
}

struct WriteValue {
    JsonText& out;

    void operator()(std::int32_t value) const { out.integer(value); }
    void operator()(float value) const { out.real(value); }
    void operator()(const std::string& value) const { out.string(value); }
};

void writeEffects(JsonText& out, std::string_view key, const std::vector<Effect>& effects)
{
    out.key(key).beginArray();
    for (const Effect& effect : effects) {
        out.beginObject();
        out.key("id").string(effect.id);
        out.key("parameters").beginArray();
        for (const Parameter& parameter : effect.parameters) {
            out.beginObject();
            out.key("name").string(parameter.name);
            out.key("value");
            std::visit(WriteValue{out}, parameter.value);
            out.endObject();
        }
        out.endArray();
        out.endObject();
    }
    out.endArray();
}

void writeLanes(JsonText& out, const std::vector<Lane>& lanes)
{
    out.key("controllers").beginArray();
    for (const Lane& lane : lanes) {
        out.beginObject();
        out.key("name").string(keys::controllers[lane.type]);
        writePoints(out, "events", lane.events);
        out.endObject();
    }
    out.endArray();
}

void writePart(JsonText& out, const Part& part)
{
    out.key("midi").beginObject();
    out.key("duration").integer(part.duration);
    out.key("styleName").string(part.styleName);
    out.key("stylePresetID").string(part.stylePresetID);
    out.key("voice").beginObject();
    out.key("compID").string(part.voiceBankID);
    out.key("langID").integer(part.langID);
    out.endObject();
    writeEffects(out, "audioEffects", part.audioEffects);
    writeEffects(out, "midiEffects", part.midiEffects);
    out.key("notes").beginArray();
    for (const Note& note : part.notes) {
        writeNote(out, note);
    }
    out.endArray();
    writeLanes(out, part.lanes);
    out.endObject();
}

} // namespace

std::string propertyDocument(const Clip& clip)
{
    JsonText out;
    out.beginObject();
    out.key("id").string(clip.id);
    out.key("name").string(clip.name);
    out.key("vendor").string(clip.vendorName);
    out.key("filter");
    writeFilter(out, clip.filter);
    out.key("part").beginObject();
    out.key("type").string(keys::partTypes[clip.partType - 1]);
    out.key("key").integer(clip.partKey);
    out.key("tempo").integer(clip.partTempo);
    out.endObject();
    out.endObject();
    return out.text();
}

std::string dataDocument(std::string_view id, std::string_view name, const Part& part)
{
    JsonText out;
    out.beginObject();
    out.key("id").string(id);
    out.key("name").string(name);
    writePart(out, part);
    out.endObject();
    return out.text();
}

} // namespace bench
