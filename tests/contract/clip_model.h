// A clip as plain values, taken from an editable clip or from one that was saved and read, so that
// the two can be compared.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include <korvel/plx.h>

namespace contract {

struct PointModel {
    std::int32_t pos;
    std::uint32_t value;
};

// The initial values are those that an object has when nothing of it was written.
struct VibratoModel {
    std::uint32_t type = 0;
    std::int32_t duration = 0;
    std::vector<PointModel> depths;
    std::vector<PointModel> rates;
};

struct DvqmModel {
    std::string compID;
    std::vector<std::string> levelNames;
    bool isProtected = false;
    std::uint32_t speed = 50;
    float topFactor = 1.0f;
};

struct SingingSkillModel {
    std::int32_t duration = 0;
    std::uint32_t preWeight = 64;
    std::uint32_t postWeight = 64;
};

// The thirteen values of an AI expression, by their keys.
struct AiExpressionField {
    const char* key;
    float (*get)(KRT_PLX_NoteBase*);
    bool (*set)(KRT_PLX_NoteBase*, float);
};
extern const std::array<AiExpressionField, 13> aiExpressionFields;

struct NoteModel {
    std::string lyric;
    std::string phoneme;
    std::uint32_t langID;
    bool isProtected;
    std::int32_t pos;
    std::int32_t duration;
    std::uint32_t number;
    std::uint32_t velocity;
    std::uint32_t accent;
    std::uint32_t bendDepth;
    std::uint32_t bendLength;
    std::uint32_t decay;
    bool fallPort;
    bool risePort;
    std::uint32_t opening;
    std::array<float, aiExpressionFields.size()> aiExpression;
    DvqmModel attack;
    DvqmModel release;
    SingingSkillModel singingSkill;
    VibratoModel vibrato;
};

struct EventModel {
    std::int32_t pos;
    std::int32_t value;
};

struct LaneModel {
    std::uint32_t type;
    std::vector<EventModel> events;
};

struct ParameterModel {
    std::string name;
    std::uint32_t type;
    std::int32_t valueInt32;
    float valueFloat;
    std::string valueString;
};

struct EffectModel {
    std::string id;
    std::uint32_t type;
    std::vector<ParameterModel> parameters;
};

struct PartModel {
    std::uint32_t type = KRT_PLX_PART_NONE;
    std::string wavFilePath;
    std::int32_t begin = 0;
    std::int32_t end = 0;
    std::int32_t duration = 0;
    std::string styleName;
    std::string stylePresetID;
    std::string voiceBankID;
    std::uint32_t langID = 0;
    std::string aiVoiceBankID;
    std::vector<std::uint32_t> aiLangIDs;
    std::vector<EffectModel> audioEffects;
    std::vector<EffectModel> midiEffects;
    std::vector<NoteModel> notes;
    std::vector<LaneModel> lanes;
};

struct ClipModel {
    std::string vendorName;
    std::uint32_t partKey = 0;
    std::uint32_t partTempo = 0;
    std::vector<std::string> singerGroups;
    std::vector<std::string> vendors;
    std::vector<std::int32_t> languages;
    std::vector<std::string> singerIDs;
    std::vector<std::string> types;
    std::vector<std::string> genres;
    PartModel part;
};

ClipModel modelOfEditable(KRT_PLX_ClipBase* clip);

// Of a system or user clip whose part was read.
ClipModel modelOfRead(KRT_PLX_ClipBase* clip);

// Every value of the model, a line each. Models are equal when their descriptions are: floats are
// told apart by their bits, texts by their units.
std::string describe(const ClipModel& clip);

} // namespace contract
