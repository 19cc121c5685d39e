#include <algorithm>
#include <fstream>

#include <nlohmann/json.hpp>

#include "alternatives/nlohmann.h"
#include "model/keys.h"

namespace bench::with_nlohmann {

namespace {

using nlohmann::json;

template <class T>
void read(const json& object, const char* key, T& target)
{
    if (const auto member = object.find(key); member != object.end()) {
        member->get_to(target);
    }
}

// The array or object under the key; an empty one where there is none.
const json& at(const json& object, const char* key)
{
    static const json nothing = json::array();
    const auto member = object.find(key);
    return member == object.end() ? nothing : *member;
}

void readExpression(const json& expression, Note& note)
{
    read(expression, "accent", note.accent);
    read(expression, "bendDepth", note.bendDepth);
    read(expression, "bendLength", note.bendLength);
    read(expression, "decay", note.decay);
    read(expression, "fallPort", note.fallPort);
    read(expression, "risePort", note.risePort);
    read(expression, "opening", note.opening);
}

Dvqm dvqmOf(const json& object)
{
    Dvqm dvqm;
    read(object, "compID", dvqm.compID);
    read(object, "levelNames", dvqm.levelNames);
    read(object, "isProtected", dvqm.isProtected);
    read(object, "speed", dvqm.speed);
    read(object, "topFactor", dvqm.topFactor);
    return dvqm;
}

void readOrnament(const json& object, Note& note)
{
    if (const auto dvqm = object.find("dvqm"); dvqm != object.end()) {
        note.attack = dvqmOf(at(*dvqm, "attack"));
        note.release = dvqmOf(at(*dvqm, "release"));
        return;
    }
    const json& skill = at(object, "singingSkill");
    read(skill, "duration", note.singingSkill.duration);
    read(at(skill, "weight"), "pre", note.singingSkill.preWeight);
    read(at(skill, "weight"), "post", note.singingSkill.postWeight);
}

std::vector<Point> pointsOf(const json& array)
{
    std::vector<Point> points;
    for (const json& point : array) {
        points.push_back(
            {point.at("pos").get<std::int32_t>(), point.at("value").get<std::uint32_t>()});
    }
    return points;
}

void readVibrato(const json& object, Vibrato& vibrato)
{
    read(object, "type", vibrato.type);
    read(object, "duration", vibrato.duration);
    vibrato.depths = pointsOf(at(object, "depths"));
    vibrato.rates = pointsOf(at(object, "rates"));
}

Note noteOf(const json& object)
{
    Note note;
    object.at("lyric").get_to(note.lyric);
    object.at("phoneme").get_to(note.phoneme);
    read(object, "langID", note.langID);
    read(object, "isProtected", note.isProtected);
    object.at("pos").get_to(note.pos);
    object.at("duration").get_to(note.duration);
    object.at("number").get_to(note.number);
    object.at("velocity").get_to(note.velocity);
    readExpression(at(object, "exp"), note);
    const json& expression = at(object, "aiExp");
    for (std::size_t i = 0; i < aiValueCount; ++i) {
        read(expression, keys::aiValues[i], note.aiValues[i]);
    }
    readOrnament(object, note);
    readVibrato(at(object, "vibrato"), note.vibrato);
    return note;
}

Parameter parameterOf(const json& object, bool isMidi)
{
    Parameter parameter{object.at("name").get<std::string>(), {}};
    const json& value = object.at("value");
    if (value.is_string()) {
        parameter.value = value.get<std::string>();
    } else if (value.is_number_integer() && (isMidi || parameter.name == "Bypass")) {
        parameter.value = value.get<std::int32_t>();
    } else {
        parameter.value = value.get<float>();
    }
    return parameter;
}

std::vector<Effect> effectsOf(const json& array, bool isMidi)
{
    std::vector<Effect> effects;
    for (const json& object : array) {
        Effect& effect = effects.emplace_back();
        object.at("id").get_to(effect.id);
        for (const json& parameter : at(object, "parameters")) {
            effect.parameters.push_back(parameterOf(parameter, isMidi));
        }
        std::stable_sort(effect.parameters.begin(), effect.parameters.end(),
                         [](const auto& a, const auto& b) { return a.name < b.name; });
    }
    return effects;
}

std::vector<Lane> lanesOf(const json& array)
{
    std::vector<Lane> lanes;
    for (const json& object : array) {
        const auto& name = object.at("name").get_ref<const std::string&>();
        Lane& lane = lanes.emplace_back(Lane{keys::indexOf(keys::controllers, name), {}});
        for (const json& event : object.at("events")) {
            lane.events.push_back(
                {event.at("pos").get<std::int32_t>(), event.at("value").get<std::int32_t>()});
        }
    }
    return lanes;
}

} // namespace

Part readPart(const Path& file)
{
    std::ifstream in(file, std::ios::binary);
    const json document = json::parse(in);
    const json& midi = document.at("midi");
    Part part;
    midi.at("duration").get_to(part.duration);
    read(midi, "styleName", part.styleName);
    read(midi, "stylePresetID", part.stylePresetID);
    midi.at("voice").at("compID").get_to(part.voiceBankID);
    midi.at("voice").at("langID").get_to(part.langID);
    part.audioEffects = effectsOf(at(midi, "audioEffects"), false);
    part.midiEffects = effectsOf(at(midi, "midiEffects"), true);
    for (const json& object : at(midi, "notes")) {
        part.notes.push_back(noteOf(object));
    }
    std::stable_sort(part.notes.begin(), part.notes.end(),
                     [](const Note& a, const Note& b) { return a.pos < b.pos; });
    part.lanes = lanesOf(at(midi, "controllers"));
    return part;
}

} // namespace bench::with_nlohmann
