#include <algorithm>

#include "alternatives/simdjson.h"
#include "alternatives/simdjson_values.h"
#include "model/keys.h"

namespace bench::with_simdjson {

namespace {

void readExpression(const Value& expression, Note& note)
{
    read(expression["accent"], note.accent);
    read(expression["bendDepth"], note.bendDepth);
    read(expression["bendLength"], note.bendLength);
    read(expression["decay"], note.decay);
    read(expression["fallPort"], note.fallPort);
    read(expression["risePort"], note.risePort);
    read(expression["opening"], note.opening);
}

void readDvqm(const Value& object, Dvqm& dvqm)
{
    read(object["compID"], dvqm.compID);
    readAll(object["levelNames"], dvqm.levelNames);
    read(object["isProtected"], dvqm.isProtected);
    read(object["speed"], dvqm.speed);
    read(object["topFactor"], dvqm.topFactor);
}

void readOrnament(const Value& object, Note& note)
{
    if (const Value dvqm = object["dvqm"]; dvqm.error() == simdjson::SUCCESS) {
        readDvqm(dvqm["attack"], note.attack);
        readDvqm(dvqm["release"], note.release);
        return;
    }
    const Value skill = object["singingSkill"];
    read(skill["duration"], note.singingSkill.duration);
    read(skill["weight"]["pre"], note.singingSkill.preWeight);
    read(skill["weight"]["post"], note.singingSkill.postWeight);
}

template <class Point>
void readPoints(const Value& array, std::vector<Point>& points)
{
    forEach(array, [&](const Value& object) {
        Point& point = points.emplace_back();
        read(object["pos"], point.pos);
        read(object["value"], point.value);
    });
}

void readNote(const Value& object, Note& note)
{
    read(object["lyric"], note.lyric);
    read(object["phoneme"], note.phoneme);
    read(object["langID"], note.langID);
    read(object["isProtected"], note.isProtected);
    read(object["pos"], note.pos);
    read(object["duration"], note.duration);
    read(object["number"], note.number);
    read(object["velocity"], note.velocity);
    readExpression(object["exp"], note);
    const Value expression = object["aiExp"];
    for (std::size_t i = 0; i < aiValueCount; ++i) {
        read(expression[keys::aiValues[i]], note.aiValues[i]);
    }
    readOrnament(object, note);
    const Value vibrato = object["vibrato"];
    read(vibrato["type"], note.vibrato.type);
    read(vibrato["duration"], note.vibrato.duration);
    readPoints(vibrato["depths"], note.vibrato.depths);
    readPoints(vibrato["rates"], note.vibrato.rates);
}

void readParameter(const Value& object, bool isMidi, Parameter& parameter)
{
    read(object["name"], parameter.name);
    const Value value = object["value"];
    std::string text;
    std::int32_t whole = 0;
    float number = 0;
    if (value.is_string()) {
        read(value, text);
        parameter.value = std::move(text);
    } else if (value.is_int64() && (isMidi || parameter.name == "Bypass")) {
        read(value, whole);
        parameter.value = whole;
    } else {
        read(value, number);
        parameter.value = number;
    }
}

void readEffects(const Value& array, bool isMidi, std::vector<Effect>& effects)
{
    forEach(array, [&](const Value& object) {
        Effect& effect = effects.emplace_back();
        read(object["id"], effect.id);
        forEach(object["parameters"], [&](const Value& parameter) {
            readParameter(parameter, isMidi, effect.parameters.emplace_back());
        });
        std::stable_sort(effect.parameters.begin(), effect.parameters.end(),
                         [](const auto& a, const auto& b) { return a.name < b.name; });
    });
}

void readLanes(const Value& array, std::vector<Lane>& lanes)
{
    forEach(array, [&](const Value& object) {
        std::string_view name;
        read(object["name"], name);
        Lane& lane = lanes.emplace_back(Lane{keys::indexOf(keys::controllers, name), {}});
        readPoints(object["events"], lane.events);
    });
}

} // namespace

Part readPart(const Path& file)
{
    simdjson::dom::parser parser;
    const Value midi = parser.load(file.string())["midi"];
    Part part;
    read(midi["duration"], part.duration);
    read(midi["styleName"], part.styleName);
    read(midi["stylePresetID"], part.stylePresetID);
    read(midi["voice"]["compID"], part.voiceBankID);
    read(midi["voice"]["langID"], part.langID);
    readEffects(midi["audioEffects"], false, part.audioEffects);
    readEffects(midi["midiEffects"], true, part.midiEffects);
    forEach(midi["notes"],
            [&](const Value& object) { readNote(object, part.notes.emplace_back()); });
    std::stable_sort(part.notes.begin(), part.notes.end(),
                     [](const Note& a, const Note& b) { return a.pos < b.pos; });
    readLanes(midi["controllers"], part.lanes);
    return part;
}

} // namespace bench::with_simdjson
