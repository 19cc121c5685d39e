// The schema of both documents, for reader and writer alike: every key, in the order in which the
// writer emits it, and what it stands for in the model.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <tuple>

#include "clip/filter.h"
#include "clip/tag_lists.h"
#include "model/codes.h"
#include "model/dvqm_impl.h"
#include "model/note_impl.h"
#include "model/singing_skill_impl.h"
#include "model/vibrato_impl.h"

namespace Korvel::CANTORIS::PLX::reference::schema {

template <std::size_t Count>
using Keys = std::array<std::string_view, Count>;

// --- Fields: a key, how the writer gets the value, how the reader puts it --------------------------
//
// Put returns whether the model accepts the value. Where a required field is missing, of another type
// or not accepted, reading its object fails; an optional one then keeps the object's own value.

enum class Need : bool { optional, required };

template <class Target, class Source, class Number>
struct Integer {
    std::string_view key;
    Number (Source::*get)() const;
    bool (Target::*put)(Number);
    Need need = Need::optional;
};
template <class Target, class Source, class Number>
Integer(std::string_view, Number (Source::*)() const, bool (Target::*)(Number))
    -> Integer<Target, Source, Number>;
template <class Target, class Source, class Number>
Integer(std::string_view, Number (Source::*)() const, bool (Target::*)(Number), Need)
    -> Integer<Target, Source, Number>;

template <class Target, class Source>
struct Flag {
    std::string_view key;
    bool (Source::*get)() const;
    bool (Target::*put)(bool);
    Need need = Need::optional;
};
template <class Target, class Source>
Flag(std::string_view, bool (Source::*)() const, bool (Target::*)(bool)) -> Flag<Target, Source>;

template <class Target, class Source>
struct Text {
    std::string_view key;
    const Char* (Source::*get)() const;
    bool (Target::*put)(StringView);
    Need need = Need::optional;
};
template <class Target, class Source>
Text(std::string_view, const Char* (Source::*)() const, bool (Target::*)(StringView), Need)
    -> Text<Target, Source>;

template <class... Field>
constexpr Keys<sizeof...(Field)> keysOf(const std::tuple<Field...>& fields)
{
    return std::apply([](const auto&... field) { return Keys<sizeof...(Field)>{field.key...}; },
                      fields);
}

// --- The property document --------------------------------------------------------------------------

namespace property {
enum Key : std::size_t { id, name, vendor, filter, part };
inline constexpr Keys<5> keys = {"id", "name", "vendor", "filter", "part"};
} // namespace property

namespace part_header {
enum Key : std::size_t { type, key, tempo };
inline constexpr Keys<3> keys = {"type", "key", "tempo"};
} // namespace part_header

namespace filter {
enum Key : std::size_t { singerGroups, languages, singerIDs, types, genres };
inline constexpr Keys<5> keys = {"singerGroups", "languages", "singerIDs", "types", "genres"};

struct TextList {
    Key key;
    Tag tag;
    std::uint64_t (Filter::*count)() const;
    const Char* (Filter::*text)(std::uint64_t) const;
};
inline constexpr std::array<TextList, 4> textLists = {
    {{singerGroups, Tag::singerGroup, &Filter::numSingerGroups, &Filter::singerGroup},
     {singerIDs, Tag::singerID, &Filter::numSingerIDs, &Filter::singerID},
     {types, Tag::type, &Filter::numTypes, &Filter::type},
     {genres, Tag::genre, &Filter::numGenres, &Filter::genre}}};
} // namespace filter

// --- The data document --------------------------------------------------------------------------------

// A part stands under the name of its type. Of several the one with the lowest type code counts.
namespace data {
enum Key : std::size_t { id, name, vendor, audio, midiAi, midi, filter };
inline constexpr Keys<7> keys = {"id",
                                 "name",
                                 "vendor",
                                 part_type::name(KRT_PLX_PART_AUDIO),
                                 part_type::name(KRT_PLX_PART_MIDI_AI),
                                 part_type::name(KRT_PLX_PART_MIDI),
                                 "filter"};

struct PartKey {
    Key key;
    std::uint32_t type;
};
inline constexpr std::array<PartKey, 3> parts = {
    {{audio, KRT_PLX_PART_AUDIO}, {midiAi, KRT_PLX_PART_MIDI_AI}, {midi, KRT_PLX_PART_MIDI}}};
} // namespace data

namespace audio_part {
enum Key : std::size_t { wavFileName, audioEffects };
inline constexpr Keys<2> keys = {"wavFileName", "audioEffects"};
} // namespace audio_part

namespace midi_part {
enum Key : std::size_t {
    duration,
    styleName,
    stylePresetID,
    voice,
    aiVoice,
    audioEffects,
    midiEffects,
    notes,
    controllers
};
inline constexpr Keys<9> keys = {"duration",    "styleName", "stylePresetID",
                                 "voice",       "aiVoice",   "audioEffects",
                                 "midiEffects", "notes",     "controllers"};
} // namespace midi_part

namespace voice {
enum Key : std::size_t { compID, langID };
inline constexpr Keys<2> keys = {"compID", "langID"};
} // namespace voice

namespace ai_voice {
enum Key : std::size_t { compID, langIDs };
inline constexpr Keys<2> keys = {"compID", "langIDs"};
inline constexpr Keys<1> language = {"langID"};
} // namespace ai_voice

namespace effect {
enum Key : std::size_t { id, parameters };
inline constexpr Keys<2> keys = {"id", "parameters"};
// The one parameter whose integers stay integers in an audio effect.
inline constexpr std::string_view bypass = "Bypass";
} // namespace effect

namespace parameter {
enum Key : std::size_t { name, value };
inline constexpr Keys<2> keys = {"name", "value"};
} // namespace parameter

namespace controller {
enum Key : std::size_t { name, events };
inline constexpr Keys<2> keys = {"name", "events"};
} // namespace controller

// An event of a lane, or a point of a vibrato.
namespace point {
enum Key : std::size_t { pos, value };
inline constexpr Keys<2> keys = {"pos", "value"};
} // namespace point

// --- Notes ----------------------------------------------------------------------------------------------

namespace note {
inline constexpr std::tuple fields = {
    Integer{"pos", &NoteBase::pos, &NoteBaseImpl::assignPos, Need::required},
    Integer{"duration", &NoteBase::duration, &NoteBaseImpl::assignDuration, Need::required},
    Text{"lyric", &NoteBase::lyric, &NoteBaseImpl::assignLyric, Need::required},
    Text{"phoneme", &NoteBase::phoneme, &NoteBaseImpl::assignPhoneme, Need::required},
    Integer{"langID", &NoteBase::langID, &NoteBaseImpl::assignLangID},
    Flag{"isProtected", &NoteBase::isProtected, &NoteBaseImpl::assignProtected},
    Integer{"number", &NoteBase::number, &NoteBaseImpl::assignNumber, Need::required},
    Integer{"velocity", &NoteBase::velocity, &NoteBaseImpl::assignVelocity, Need::required},
};
inline constexpr auto fieldKeys = keysOf(fields);

// The objects that follow the fields.
enum Key : std::size_t { exp = fieldKeys.size(), aiExp, singingSkill, dvqm, vibrato, keyCount };
inline constexpr Keys<keyCount> keys = {fieldKeys[0], fieldKeys[1], fieldKeys[2],   fieldKeys[3],
                                        fieldKeys[4], fieldKeys[5], fieldKeys[6],   fieldKeys[7],
                                        "exp",        "aiExp",      "singingSkill", "dvqm",
                                        "vibrato"};
} // namespace note

namespace expression {
inline constexpr std::tuple fields = {
    Integer{"accent", &NoteBase::accent, &NoteBaseImpl::assignAccent},
    Integer{"bendDepth", &NoteBase::bendDepth, &NoteBaseImpl::assignBendDepth},
    Integer{"bendLength", &NoteBase::bendLength, &NoteBaseImpl::assignBendLength},
    Integer{"decay", &NoteBase::decay, &NoteBaseImpl::assignDecay},
    Flag{"fallPort", &NoteBase::fallPort, &NoteBaseImpl::assignFallPort},
    Flag{"risePort", &NoteBase::risePort, &NoteBaseImpl::assignRisePort},
    Integer{"opening", &NoteBase::opening, &NoteBaseImpl::assignOpening},
};
inline constexpr auto keys = keysOf(fields);
} // namespace expression

// Indexed by AiExpression.
namespace ai_expression {
inline constexpr Keys<aiExpressionCount> keys = {
    "pitchFine",          "pitchDriftStart",      "pitchDriftEnd",      "pitchScalingCenter",
    "pitchScalingOrigin", "pitchTransitionStart", "pitchTransitionEnd", "amplitudeWhole",
    "amplitudeStart",     "amplitudeEnd",         "formantWhole",       "formantStart",
    "formantEnd"};

inline constexpr std::array<float (NoteBase::*)() const, aiExpressionCount> getters = {
    &NoteBase::pitchFine,          &NoteBase::pitchDriftStart,    &NoteBase::pitchDriftEnd,
    &NoteBase::pitchScalingCenter, &NoteBase::pitchScalingOrigin, &NoteBase::pitchTransitionStart,
    &NoteBase::pitchTransitionEnd, &NoteBase::amplitudeWhole,     &NoteBase::amplitudeStart,
    &NoteBase::amplitudeEnd,       &NoteBase::formantWhole,       &NoteBase::formantStart,
    &NoteBase::formantEnd};
} // namespace ai_expression

namespace singing_skill {
enum Key : std::size_t { duration, weight };
inline constexpr Keys<2> keys = {"duration", "weight"};
inline constexpr std::tuple weightFields = {
    Integer{"pre", &SingingSkillBase::preWeight, &SingingSkillBaseImpl::assignPreWeight},
    Integer{"post", &SingingSkillBase::postWeight, &SingingSkillBaseImpl::assignPostWeight},
};
inline constexpr auto weightKeys = keysOf(weightFields);
} // namespace singing_skill

namespace dvqm_pair {
enum Key : std::size_t { attack, release };
inline constexpr Keys<2> keys = {"attack", "release"};
} // namespace dvqm_pair

namespace dvqm {
enum Key : std::size_t { compID, levelNames, isProtected, speed, topFactor };
inline constexpr Keys<5> keys = {"compID", "levelNames", "isProtected", "speed", "topFactor"};
} // namespace dvqm

namespace vibrato {
enum Key : std::size_t { type, duration, rates, depths };
inline constexpr Keys<4> keys = {"type", "duration", "rates", "depths"};

struct Curve {
    Key key;
    std::uint32_t type;
};
inline constexpr std::array<Curve, vibratoCurves> curves = {
    {{rates, KRT_PLX_VIBRATO_RATE}, {depths, KRT_PLX_VIBRATO_DEPTH}}};
} // namespace vibrato

} // namespace Korvel::CANTORIS::PLX::reference::schema
