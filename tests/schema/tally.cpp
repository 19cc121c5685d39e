#include "tally.h"

#include <functional>

namespace schema {

namespace {

const Value* find(const Value& object, const char* key)
{
    if (!object.IsObject()) {
        return nullptr;
    }
    const auto member = object.FindMember(key);
    return member == object.MemberEnd() ? nullptr : &member->value;
}

using Visit = std::function<void(const Value&)>;

void forEach(const Value& object, const char* key, const Visit& visit)
{
    const Value* const list = find(object, key);
    if (list != nullptr && list->IsArray()) {
        for (const Value& element : list->GetArray()) {
            visit(element);
        }
    }
}

void ifThere(const Value& object, const char* key, const Visit& visit)
{
    const Value* const member = find(object, key);
    if (member != nullptr) {
        visit(*member);
    }
}

std::size_t sizeOf(const Value& object, const char* key)
{
    std::size_t size = 0;
    forEach(object, key, [&](const Value&) { ++size; });
    return size;
}

void addEffects(Tally& tally, const Value& part, const char* key)
{
    forEach(part, key, [&](const Value& effect) {
        ++tally.effects;
        tally.parameters += sizeOf(effect, "parameters");
    });
}

void addVoiceQualities(Tally& tally, const Value& dvqm)
{
    for (const char* const key : {"attack", "release"}) {
        ifThere(dvqm, key, [&](const Value& quality) {
            ++tally.voiceQualities;
            tally.levelNames += sizeOf(quality, "levelNames");
        });
    }
}

void addNote(Tally& tally, const Value& note)
{
    ++tally.notes;
    ifThere(note, "dvqm", [&](const Value& dvqm) { addVoiceQualities(tally, dvqm); });
    ifThere(note, "vibrato", [&](const Value& vibrato) {
        tally.points += sizeOf(vibrato, "depths") + sizeOf(vibrato, "rates");
    });
}

void addLane(Tally& tally, const Value& lane)
{
    ++tally.lanes;
    tally.events += sizeOf(lane, "events");
}

const Value* partOf(const Value& document)
{
    for (const char* const key : {"audio", "midiAi", "midi"}) {
        if (const Value* const part = find(document, key)) {
            return part;
        }
    }
    return nullptr;
}

void addEffects(Tally& tally, const std::vector<support::EffectModel>& effects)
{
    tally.effects += effects.size();
    for (const support::EffectModel& effect : effects) {
        tally.parameters += effect.parameters.size();
    }
}

void addVoiceQuality(Tally& tally, const support::DvqmModel& quality)
{
    tally.voiceQualities += quality.values[KRT_PLX_DvqmBase_compID].empty() ? 0 : 1;
    tally.levelNames += quality.levelNames.size();
}

} // namespace

std::ostream& operator<<(std::ostream& stream, const Tally& tally)
{
    return stream << tally.aiLanguages << " AI languages, " << tally.effects << " effects, "
                  << tally.parameters << " parameters, " << tally.notes << " notes, "
                  << tally.voiceQualities << " voice qualities, " << tally.levelNames
                  << " level names, " << tally.points << " points, " << tally.lanes << " lanes, "
                  << tally.events << " events";
}

Tally tallyOf(const Value& document)
{
    Tally tally;
    const Value* const part = partOf(document);
    if (part == nullptr) {
        return tally;
    }
    ifThere(*part, "aiVoice",
            [&](const Value& voice) { tally.aiLanguages = sizeOf(voice, "langIDs"); });
    addEffects(tally, *part, "audioEffects");
    addEffects(tally, *part, "midiEffects");
    forEach(*part, "notes", [&](const Value& note) { addNote(tally, note); });
    forEach(*part, "controllers", [&](const Value& lane) { addLane(tally, lane); });
    return tally;
}

Tally tallyOf(const support::PartModel& part)
{
    Tally tally;
    tally.aiLanguages = part.aiLangIDs.size();
    addEffects(tally, part.audioEffects);
    addEffects(tally, part.midiEffects);
    tally.notes = part.notes.size();
    for (const support::NoteModel& note : part.notes) {
        addVoiceQuality(tally, note.attack);
        addVoiceQuality(tally, note.release);
        tally.points += note.vibrato.depths.size() + note.vibrato.rates.size();
    }
    tally.lanes = part.lanes.size();
    for (const support::LaneModel& lane : part.lanes) {
        tally.events += lane.events.size();
    }
    return tally;
}

} // namespace schema
