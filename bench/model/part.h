// A MIDI part as plain values: what the generator writes, what the alternatives fill, and what a
// part of the library is compared with.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace bench {

struct Point {
    std::int32_t pos = 0;
    std::uint32_t value = 0;

    bool operator==(const Point&) const = default;
};

struct Vibrato {
    std::uint32_t type = 0;
    std::int32_t duration = 0;
    std::vector<Point> depths;
    std::vector<Point> rates;

    bool operator==(const Vibrato&) const = default;
};

struct SingingSkill {
    std::int32_t duration = 0;
    std::uint32_t preWeight = 64;
    std::uint32_t postWeight = 64;

    bool operator==(const SingingSkill&) const = default;
};

template <class String>
struct BasicDvqm {
    String compID;
    std::vector<String> levelNames;
    bool isProtected = false;
    std::uint32_t speed = 50;
    float topFactor = 1.0F;

    bool operator==(const BasicDvqm&) const = default;
};

constexpr std::size_t aiValueCount = 13;

// What a note holds besides its texts and what has texts.
struct NoteValues {
    std::uint32_t langID = 0;
    bool isProtected = false;
    std::int32_t pos = 0;
    std::int32_t duration = 1;
    std::uint32_t number = 0;
    std::uint32_t velocity = 0;
    std::uint32_t accent = 50;
    std::uint32_t bendDepth = 0;
    std::uint32_t bendLength = 0;
    std::uint32_t decay = 50;
    bool fallPort = false;
    bool risePort = false;
    std::uint32_t opening = 127;
    std::array<float, aiValueCount> aiValues{};
    SingingSkill singingSkill;
    Vibrato vibrato;

    bool operator==(const NoteValues&) const = default;
};

template <class String>
struct BasicNote : NoteValues {
    String lyric;
    String phoneme;
    BasicDvqm<String> attack;
    BasicDvqm<String> release;

    bool operator==(const BasicNote&) const = default;
};

struct Event {
    std::int32_t pos = 0;
    std::int32_t value = 0;

    bool operator==(const Event&) const = default;
};

struct Lane {
    std::uint32_t type = 0;
    std::vector<Event> events;

    bool operator==(const Lane&) const = default;
};

template <class String>
struct BasicParameter {
    String name;
    std::variant<std::int32_t, float, String> value;

    bool operator==(const BasicParameter&) const = default;
};

template <class String>
struct BasicEffect {
    String id;
    std::vector<BasicParameter<String>> parameters;

    bool operator==(const BasicEffect&) const = default;
};

// A part sung by a voice bank (type "midi").
template <class String>
struct BasicPart {
    std::int32_t duration = 1;
    String styleName;
    String stylePresetID;
    String voiceBankID;
    std::uint32_t langID = 0;
    std::vector<BasicEffect<String>> audioEffects;
    std::vector<BasicEffect<String>> midiEffects;
    std::vector<BasicNote<String>> notes;
    std::vector<Lane> lanes;

    bool operator==(const BasicPart&) const = default;
};

using Dvqm = BasicDvqm<std::string>;
using Note = BasicNote<std::string>;
using Parameter = BasicParameter<std::string>;
using Effect = BasicEffect<std::string>;
using Part = BasicPart<std::string>;

} // namespace bench
