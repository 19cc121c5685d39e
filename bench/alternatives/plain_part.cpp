#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_set>

#include "alternatives/plain.h"
#include "alternatives/plain_document.h"

namespace bench::plain {

namespace {

using Dvqm = BasicDvqm<std::u16string>;
using Effect = BasicEffect<std::u16string>;
using Parameter = BasicParameter<std::u16string>;

constexpr std::array<const char16_t*, aiValueCount> aiKeys{
    u"pitchFine",          u"pitchDriftStart",      u"pitchDriftEnd",      u"pitchScalingCenter",
    u"pitchScalingOrigin", u"pitchTransitionStart", u"pitchTransitionEnd", u"amplitudeWhole",
    u"amplitudeStart",     u"amplitudeEnd",         u"formantWhole",       u"formantStart",
    u"formantEnd"};

struct Controller {
    std::u16string_view name;
    std::int32_t least;
    std::int32_t most;
};

constexpr std::array<Controller, 12> controllers{{{u"dynamics", 0, 127},
                                                  {u"portamento", 0, 127},
                                                  {u"pitchBendSens", 0, 24},
                                                  {u"pitchBend", -8192, 8191},
                                                  {u"breathiness", 0, 127},
                                                  {u"brightness", 0, 127},
                                                  {u"clearness", 0, 127},
                                                  {u"voiceBlend", 0, 127},
                                                  {u"growl", 0, 127},
                                                  {u"exciter", -64, 63},
                                                  {u"air", 0, 127},
                                                  {u"character", -64, 63}}};

void readExpression(const Value* expression, Note& note)
{
    readNumber(find(expression, u"accent"), 100, note.accent);
    readNumber(find(expression, u"bendDepth"), 100, note.bendDepth);
    readNumber(find(expression, u"bendLength"), 100, note.bendLength);
    readNumber(find(expression, u"decay"), 100, note.decay);
    readSwitch(find(expression, u"fallPort"), note.fallPort);
    readSwitch(find(expression, u"risePort"), note.risePort);
    readNumber(find(expression, u"opening"), 127, note.opening);
}

void readAiExpression(const Value* expression, Note& note)
{
    note.aiValues.fill(0.5F);
    for (std::size_t i = 0; i < aiValueCount; ++i) {
        readFloat(find(expression, aiKeys[i]), 1.0, note.aiValues[i]);
    }
}

void readDvqm(const Value* object, Dvqm& dvqm)
{
    std::vector<std::u16string> names;
    forEach(find(object, u"levelNames"), [&](const Value* name) {
        if (!readText(name, names.emplace_back())) {
            names.pop_back();
        }
    });
    if (names.empty() || names.size() > 4 || !readText(find(object, u"compID"), dvqm.compID)) {
        return;
    }
    dvqm.levelNames = std::move(names);
    readSwitch(find(object, u"isProtected"), dvqm.isProtected);
    readNumber(find(object, u"speed"), 100, dvqm.speed);
    readFloat(find(object, u"topFactor"), 2.0, dvqm.topFactor);
}

void readOrnament(const Value* object, Note& note)
{
    if (const Value* const dvqm = find(object, u"dvqm")) {
        readDvqm(find(dvqm, u"attack"), note.attack);
        readDvqm(find(dvqm, u"release"), note.release);
        return;
    }
    const Value* const skill = find(object, u"singingSkill");
    readInteger(find(skill, u"duration"), 0, note.duration, note.singingSkill.duration);
    const Value* const weight = find(skill, u"weight");
    readNumber(find(weight, u"pre"), 127, note.singingSkill.preWeight);
    readNumber(find(weight, u"post"), 127, note.singingSkill.postWeight);
}

// Those of an equal position are dropped.
template <class Point>
void sortByPosition(std::vector<Point>& points)
{
    const auto isBefore = [](const Point& a, const Point& b) { return a.pos < b.pos; };
    std::stable_sort(points.begin(), points.end(), isBefore);
    const auto isEqual = [](const Point& a, const Point& b) { return a.pos == b.pos; };
    points.erase(std::unique(points.begin(), points.end(), isEqual), points.end());
}

void readPoints(const Value* array, std::int32_t duration, std::vector<Point>& points)
{
    forEach(array, [&](const Value* object) {
        Point point;
        if (readInteger(find(object, u"pos"), 0, duration, point.pos) &&
            readNumber(find(object, u"value"), 127, point.value)) {
            points.push_back(point);
        }
    });
    sortByPosition(points);
}

void readVibrato(const Value* object, std::int32_t noteDuration, Vibrato& vibrato)
{
    readNumber(find(object, u"type"), 16, vibrato.type);
    readInteger(find(object, u"duration"), 0, noteDuration, vibrato.duration);
    readPoints(find(object, u"depths"), vibrato.duration, vibrato.depths);
    readPoints(find(object, u"rates"), vibrato.duration, vibrato.rates);
}

bool readRequired(const Value* object, Note& note)
{
    return readText(find(object, u"lyric"), note.lyric) && !note.lyric.empty() &&
           readText(find(object, u"phoneme"), note.phoneme) && !note.phoneme.empty() &&
           readInteger(find(object, u"pos"), INT32_MIN, INT32_MAX - 1, note.pos) &&
           readInteger(find(object, u"duration"), 1, INT32_MAX, note.duration) &&
           readNumber(find(object, u"number"), 127, note.number) &&
           readNumber(find(object, u"velocity"), 127, note.velocity);
}

std::unique_ptr<Note> readNote(const Value* object)
{
    auto note = std::make_unique<Note>();
    if (!readRequired(object, *note)) {
        return nullptr;
    }
    readNumber(find(object, u"langID"), 127, note->langID);
    readSwitch(find(object, u"isProtected"), note->isProtected);
    readExpression(find(object, u"exp"), *note);
    readAiExpression(find(object, u"aiExp"), *note);
    readOrnament(object, *note);
    readVibrato(find(object, u"vibrato"), note->duration, note->vibrato);
    return note;
}

bool readParameter(const Value* object, bool isMidi, Parameter& parameter)
{
    const Value* const value = find(object, u"value");
    if (!readText(find(object, u"name"), parameter.name) || value == nullptr) {
        return false;
    }
    if (value->IsInt() && (isMidi || parameter.name == u"Bypass")) {
        parameter.value = value->GetInt();
    } else if (value->IsNumber()) {
        parameter.value = value->GetFloat();
    } else if (std::u16string text; readText(value, text)) {
        parameter.value = std::move(text);
    } else {
        return false;
    }
    return true;
}

void readEffects(const Value* array, bool isMidi, std::vector<Effect>& effects)
{
    std::unordered_set<std::u16string> ids;
    forEach(array, [&](const Value* object) {
        Effect effect;
        if (!readText(find(object, u"id"), effect.id) || !ids.insert(effect.id).second) {
            return;
        }
        forEach(find(object, u"parameters"), [&](const Value* element) {
            if (!readParameter(element, isMidi, effect.parameters.emplace_back())) {
                effect.parameters.pop_back();
            }
        });
        std::stable_sort(effect.parameters.begin(), effect.parameters.end(),
                         [](const auto& a, const auto& b) { return a.name < b.name; });
        effects.push_back(std::move(effect));
    });
}

void readLane(const Value* object, std::vector<Lane>& lanes)
{
    std::u16string name;
    readText(find(object, u"name"), name);
    const auto* const found = std::find_if(controllers.begin(), controllers.end(),
                                           [&](const auto& each) { return each.name == name; });
    if (found == controllers.end()) {
        return;
    }
    Lane lane{static_cast<std::uint32_t>(found - controllers.begin()), {}};
    forEach(find(object, u"events"), [&](const Value* element) {
        Event event;
        if (readInteger(find(element, u"pos"), INT32_MIN, INT32_MAX, event.pos) &&
            readInteger(find(element, u"value"), found->least, found->most, event.value)) {
            lane.events.push_back(event);
        }
    });
    sortByPosition(lane.events);
    lanes.push_back(std::move(lane));
}

void readNotes(const Value* array, Part& part)
{
    forEach(array, [&](const Value* object) {
        if (auto note = readNote(object)) {
            part.noteObjects.push_back(std::move(note));
        }
    });
    std::stable_sort(part.noteObjects.begin(), part.noteObjects.end(),
                     [](const auto& a, const auto& b) { return a->pos < b->pos; });
}

} // namespace

bool parse(const Path& file)
{
    Document document;
    return parseFile(file, document);
}

Part readPart(const Path& file)
{
    Document document;
    Part part;
    if (!parseFile(file, document)) {
        return part;
    }
    const Value* const midi = find(&document, u"midi");
    readInteger(find(midi, u"duration"), 1, INT32_MAX, part.duration);
    readText(find(midi, u"styleName"), part.styleName);
    readText(find(midi, u"stylePresetID"), part.stylePresetID);
    readText(find(find(midi, u"voice"), u"compID"), part.voiceBankID);
    readNumber(find(find(midi, u"voice"), u"langID"), 127, part.langID);
    readEffects(find(midi, u"audioEffects"), false, part.audioEffects);
    readEffects(find(midi, u"midiEffects"), true, part.midiEffects);
    readNotes(find(midi, u"notes"), part);
    forEach(find(midi, u"controllers"), [&](const Value* object) { readLane(object, part.lanes); });
    return part;
}

} // namespace bench::plain
