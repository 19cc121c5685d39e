// The content of a clip, as plain values with texts in UTF-8: everything that listing, showing and
// drawing need, so that they do not depend on the library.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace plxclip {

enum class PartType : std::uint8_t { audio, midiAi, midi, none };

// The name of the type in the clip's documents.
std::string_view nameOf(PartType type);

struct Tags {
    std::vector<std::string> types;
    std::vector<std::string> genres;
    std::vector<std::int32_t> languages;
    std::vector<std::string> singerGroups;
    std::vector<std::string> singerIDs;
    std::vector<std::string> vendors;
};

// What a catalogue shows of a clip, without its part.
struct Properties {
    std::string id;
    std::string name;
    std::string vendor;
    std::string path; // with the separators of this system
    bool isUserClip = false;
    PartType partType = PartType::none;
    std::uint32_t key = 0;
    std::uint32_t tempo = 0; // hundredths of a beat a minute; 0 for none
    Tags tags;
};

// A point of a lane or of a vibrato's curve.
struct Point {
    std::int32_t pos = 0;
    std::int32_t value = 0;

    bool operator==(const Point&) const = default;
};

struct Dvqm {
    std::string component;
    std::vector<std::string> levelNames;
    bool isProtected = false;
    std::uint32_t speed = 0;
    float topFactor = 0;

    bool operator==(const Dvqm&) const = default;
};

struct SingingSkill {
    std::int32_t duration = 0;
    std::uint32_t preWeight = 0;
    std::uint32_t postWeight = 0;

    bool operator==(const SingingSkill&) const = default;
};

struct Vibrato {
    std::uint32_t type = 0;
    std::int32_t duration = 0;
    std::vector<Point> depths;
    std::vector<Point> rates;

    bool operator==(const Vibrato&) const = default;
};

// A value and its name in the clip's documents.
struct NamedValue {
    std::string_view name;
    std::variant<bool, std::uint32_t, float> value;

    bool operator==(const NamedValue&) const = default;
};

struct Note {
    std::int32_t pos = 0;
    std::int32_t duration = 0;
    std::string lyric;
    std::string phoneme;
    std::optional<std::uint32_t> language;
    bool isProtected = false;
    std::uint32_t number = 0;
    std::uint32_t velocity = 0;
    std::vector<NamedValue> expression;
    std::vector<NamedValue> aiExpression;
    Dvqm attack;
    Dvqm release;
    SingingSkill skill;
    Vibrato vibrato;
};

// Whether a note has what is optional.
bool hasAttack(const Note& note);
bool hasRelease(const Note& note);
bool hasSkill(const Note& note);
bool hasVibrato(const Note& note);

struct Lane {
    std::uint32_t type = 0;
    std::int32_t least = 0;
    std::int32_t most = 0;
    std::vector<Point> events;
};

// The name of a lane of this type in the clip's documents.
std::string_view laneName(std::uint32_t type);

struct Parameter {
    std::string name;
    std::variant<std::monostate, std::int32_t, float, std::string> value;
};

struct Effect {
    std::string id;
    std::vector<Parameter> parameters;
};

struct MidiPart {
    std::int32_t duration = 0;
    std::string voice; // the ID of the voice bank or of the AI voice
    std::vector<std::uint32_t> languages;
    std::string styleName;
    std::string stylePreset;
    std::vector<Note> notes;
    std::vector<Lane> lanes;
    std::vector<Effect> midiEffects;
    std::vector<Effect> audioEffects;
};

struct AudioPart {
    std::string wavePath; // with the separators of this system
    std::vector<Effect> audioEffects;
};

using Part = std::variant<std::monostate, MidiPart, AudioPart>;

} // namespace plxclip
