// The table of keys: every object of both documents, with all its keys, in the order in which the
// writer writes them and the reader takes them, and what each key stands for in the model.
#pragma once

#include <algorithm>

#include "clip/clip_base.h"
#include "clip/clip_properties.h"
#include "clip/filter.h"
#include "format/rows.h"
#include "fs/fs.h"
#include "model/audio_part_impl.h"
#include "model/codes.h"
#include "model/midi_part_impl.h"

namespace Korvel::CANTORIS::PLX::format {

// The source of a property document.
struct WrittenProperties {
    const ClipBase& clip;
    const Filter& tags;
    StringView id;
    StringView name;
};

} // namespace Korvel::CANTORIS::PLX::format

namespace Korvel::CANTORIS::PLX::format::keys {

using Id = Shape::Id;
inline constexpr Need required = Need::required;

// A key of both documents that is for editors of text alone: it names the schema by which they complete
// keys. It has no row, so reader and writer ignore it; but no listener is told that it is unknown.
inline constexpr std::string_view schemaReference = "$schema";

// Stores a value in a data member, without checking it.
template <auto member>
struct Into {
    template <class Target, class Value>
    constexpr void operator()(Target& target, const Value& value) const
    {
        target.*member = value;
    }
};

// --- The property document ----------------------------------------------------------------------------

namespace header {

inline constexpr auto putType = [](ClipProperties& properties, std::string_view name) {
    properties.partType = part_type::fromName(name);
    return properties.partType != KRT_PLX_PART_NONE;
};
inline constexpr auto type = [](const ClipBase& clip) { return part_type::name(clip.partType()); };

// A tempo of 0 means none. It is read, but not written.
constexpr auto tempo(std::string_view key)
{
    auto entry =
        integer(key, field::partTempo, &ClipBase::partTempo, &ClipBaseProperties::assignPartTempo);
    entry.row.range.takesZero = true;
    entry.row.written = Written::unlessEmpty;
    return entry;
}

} // namespace header

// The header of an audio part has only the type.
struct AudioHeader {
    static constexpr std::tuple entries{
        word("type", TextRule::partType, header::type, header::putType),
    };
};

struct PartHeader {
    static constexpr Id id = Id::partHeader;
    static constexpr std::tuple entries{
        std::get<0>(AudioHeader::entries),
        integer("key", field::partKey, &ClipBase::partKey, &ClipBaseProperties::assignPartKey),
        header::tempo("tempo"),
    };
};

// A list of tags. There is no key for vendors: they come from the clip's vendor name when it is
// read.
template <class Count, class At>
constexpr Texts<Count, At, Tag> tags(std::string_view key, Tag tag, Count count, At at)
{
    return {{.key = key,
             .kind = Kind::texts,
             .written = Written::unlessEmpty,
             .rule = TextRule::notEmpty},
            count,
            at,
            tag};
}

template <class Count, class At>
constexpr Integers<Count, At> languages(std::string_view key, Count count, At at)
{
    return {{.key = key,
             .kind = Kind::integers,
             .written = Written::unlessEmpty,
             .range = {.minimum = 0}},
            count,
            at};
}

struct FilterTable {
    static constexpr Id id = Id::filter;
    static constexpr std::tuple entries{
        tags("singerGroups", Tag::singerGroup, &Filter::numSingerGroups, &Filter::singerGroup),
        languages("languages", &Filter::numLanguages, &Filter::language),
        tags("singerIDs", Tag::singerID, &Filter::numSingerIDs, &Filter::singerID),
        tags("types", Tag::type, &Filter::numTypes, &Filter::type),
        tags("genres", Tag::genre, &Filter::numGenres, &Filter::genre),
    };
};

inline constexpr auto vendorOf = [](const WrittenProperties& source) {
    return source.clip.vendorName();
};

struct PropertyDocument {
    static constexpr Id id = Id::propertyDocument;
    static constexpr std::tuple entries{
        requiredText("id", TextRule::notEmpty, &WrittenProperties::id, Into<&ClipProperties::id>()),
        requiredText("name", TextRule::notEmpty, &WrittenProperties::name,
                     Into<&ClipProperties::name>()),
        optionalText("vendor", vendorOf, Into<&ClipProperties::vendorName>()),
        object<FilterTable>("filter"),
        object<PartHeader>("part", required),
    };
};

// --- Effects ------------------------------------------------------------------------------------------

template <Id ofEffect>
struct Parameter {
    static constexpr Id id = ofEffect == Id::audioEffect ? Id::audioParameter : Id::midiParameter;
    static constexpr std::tuple entries{
        requiredText("name", TextRule::notEmpty, &EffectParameterBase::name,
                     &EffectParameterBaseImpl::assignName),
        parameterValue("value", required),
    };
};

// The only parameter whose integers stay integers in an audio effect.
inline constexpr std::string_view bypass = "Bypass";

template <Id ofKind>
struct EffectTable {
    static constexpr Id id = ofKind;
    static constexpr std::tuple entries{
        requiredText("id", TextRule::notEmpty, &EffectBase::id, &EffectBaseImpl::assignId),
        objects<Parameter<ofKind>>("parameters"),
    };
};
using AudioEffectTable = EffectTable<Id::audioEffect>;
using MidiEffectTable = EffectTable<Id::midiEffect>;

// --- Curves -------------------------------------------------------------------------------------------

// A point of a curve. Which positions and values are accepted depends on the curve.
inline constexpr Field<std::int32_t> anyPosition{
    .initial = 0, .minimum = std::numeric_limits<std::int32_t>::min(), .maximum = lastPosition};

template <Id ofCurve>
struct Point {
    static constexpr Id id = ofCurve;
    static constexpr auto entriesWithin(const auto& position, const auto& value)
    {
        return std::tuple{
            integer("pos", position, &CurvePoint::pos, Into<&CurvePoint::pos>(), required),
            integer("value", value, &CurvePoint::value, Into<&CurvePoint::value>(), required)};
    }
    static constexpr auto entries = ofCurve == Id::event
                                        ? entriesWithin(anyPosition, anyPosition)
                                        : entriesWithin(within(lastPosition), field::vibratoValue);
};
using Event = Point<Id::event>;
using Rate = Point<Id::rate>;
using Depth = Point<Id::depth>;

inline constexpr auto putLaneType = [](std::uint32_t& type, std::string_view name) {
    type = controller::fromName(name);
    return type != KRT_PLX_CONTROLLER_NONE;
};
inline constexpr auto laneType = [](const MidiControllerBase& lane) {
    return controller::type(lane.type()).name;
};

struct ControllerTable {
    static constexpr Id id = Id::controller;
    static constexpr std::tuple entries{
        word("name", TextRule::controllerName, laneType, putLaneType),
        objects<Event>("events", required),
    };
};

// --- Notes --------------------------------------------------------------------------------------------

struct Expression {
    static constexpr Id id = Id::expression;
    static constexpr std::tuple entries{
        integer("accent", field::accent, &NoteBase::accent, &NoteBaseImpl::assignAccent),
        integer("bendDepth", field::bendDepth, &NoteBase::bendDepth,
                &NoteBaseImpl::assignBendDepth),
        integer("bendLength", field::bendLength, &NoteBase::bendLength,
                &NoteBaseImpl::assignBendLength),
        integer("decay", field::decay, &NoteBase::decay, &NoteBaseImpl::assignDecay),
        flag("fallPort", &NoteBase::fallPort, &NoteBaseImpl::assignFallPort),
        flag("risePort", &NoteBase::risePort, &NoteBaseImpl::assignRisePort),
        integer("opening", field::opening, &NoteBase::opening, &NoteBaseImpl::assignOpening),
    };
};

struct PutAi {
    AiExpression which;

    bool operator()(NoteBaseImpl& note, float value) const { return note.assignAi(which, value); }
};

template <class Get>
constexpr auto ai(std::string_view key, AiExpression which, Get get)
{
    return real(key, field::aiExpression, get, PutAi{which});
}

struct AiExpressionTable {
    static constexpr Id id = Id::aiExpression;
    static constexpr std::tuple entries{
        ai("pitchFine", AiExpression::pitchFine, &NoteBase::pitchFine),
        ai("pitchDriftStart", AiExpression::pitchDriftStart, &NoteBase::pitchDriftStart),
        ai("pitchDriftEnd", AiExpression::pitchDriftEnd, &NoteBase::pitchDriftEnd),
        ai("pitchScalingCenter", AiExpression::pitchScalingCenter, &NoteBase::pitchScalingCenter),
        ai("pitchScalingOrigin", AiExpression::pitchScalingOrigin, &NoteBase::pitchScalingOrigin),
        ai("pitchTransitionStart", AiExpression::pitchTransitionStart,
           &NoteBase::pitchTransitionStart),
        ai("pitchTransitionEnd", AiExpression::pitchTransitionEnd, &NoteBase::pitchTransitionEnd),
        ai("amplitudeWhole", AiExpression::amplitudeWhole, &NoteBase::amplitudeWhole),
        ai("amplitudeStart", AiExpression::amplitudeStart, &NoteBase::amplitudeStart),
        ai("amplitudeEnd", AiExpression::amplitudeEnd, &NoteBase::amplitudeEnd),
        ai("formantWhole", AiExpression::formantWhole, &NoteBase::formantWhole),
        ai("formantStart", AiExpression::formantStart, &NoteBase::formantStart),
        ai("formantEnd", AiExpression::formantEnd, &NoteBase::formantEnd),
    };
};

struct Weight {
    static constexpr Id id = Id::weight;
    static constexpr std::tuple entries{
        integer("pre", field::singingSkillWeight, &SingingSkillBase::preWeight,
                &SingingSkillBaseImpl::assignPreWeight),
        integer("post", field::singingSkillWeight, &SingingSkillBase::postWeight,
                &SingingSkillBaseImpl::assignPostWeight),
    };
};

// Durations in a note are at most that of the note.
struct SingingSkillTable {
    static constexpr Id id = Id::singingSkill;
    static constexpr std::tuple entries{
        integer("duration", within(lastPosition), &SingingSkillBase::duration,
                &SingingSkillBaseImpl::assignDuration),
        object<Weight>("weight"),
    };
};

template <class Count, class At>
constexpr Texts<Count, At, std::tuple<>> levelNames(std::string_view key, Count count, At at)
{
    return {
        {.key = key, .kind = Kind::texts, .need = required, .fewest = 1, .most = maxReadLevelNames},
        count,
        at,
        {}};
}

template <Id ofEnd>
struct DvqmTable {
    static constexpr Id id = ofEnd;
    static constexpr std::tuple entries{
        requiredText("compID", TextRule::notEmpty, &DvqmBase::compID, &DvqmBaseImpl::assignCompID),
        levelNames("levelNames", &DvqmBase::numLevelNames, &DvqmBase::levelName),
        flag("isProtected", &DvqmBase::isProtected, &DvqmBaseImpl::assignProtected),
        integer("speed", field::dvqmSpeed, &DvqmBase::speed, &DvqmBaseImpl::assignSpeed),
        real("topFactor", field::dvqmTopFactor, &DvqmBase::topFactor,
             &DvqmBaseImpl::assignTopFactor),
    };
};
using Attack = DvqmTable<Id::attack>;
using Release = DvqmTable<Id::release>;

struct DvqmPair {
    static constexpr Id id = Id::dvqmPair;
    static constexpr std::tuple entries{object<Attack>("attack"), object<Release>("release")};
};

struct VibratoTable {
    static constexpr Id id = Id::vibrato;
    static constexpr std::tuple entries{
        integer("type", field::vibratoType, &VibratoBase::type, &VibratoBaseImpl::assignType),
        integer("duration", within(lastPosition), &VibratoBase::duration,
                &VibratoBaseImpl::assignDuration),
        objects<Rate>("rates"),
        objects<Depth>("depths"),
    };
};

struct NoteTable {
    static constexpr Id id = Id::note;
    static constexpr std::tuple entries{
        integer("pos", field::notePosition, &NoteBase::pos, &NoteBaseImpl::assignPos, required),
        integer("duration", field::noteDuration, &NoteBase::duration, &NoteBaseImpl::assignDuration,
                required),
        requiredText("lyric", TextRule::notEmpty, &NoteBase::lyric, &NoteBaseImpl::assignLyric),
        requiredText("phoneme", TextRule::notEmpty, &NoteBase::phoneme,
                     &NoteBaseImpl::assignPhoneme),
        integer("langID", field::language, &NoteBase::langID, &NoteBaseImpl::assignLangID),
        flag("isProtected", &NoteBase::isProtected, &NoteBaseImpl::assignProtected),
        integer("number", field::noteNumber, &NoteBase::number, &NoteBaseImpl::assignNumber,
                required),
        integer("velocity", field::velocity, &NoteBase::velocity, &NoteBaseImpl::assignVelocity,
                required),
        object<Expression>("exp"),
        object<AiExpressionTable>("aiExp"),
        object<SingingSkillTable>("singingSkill"),
        object<DvqmPair>("dvqm"),
        object<VibratoTable>("vibrato"),
    };
};

// --- Parts --------------------------------------------------------------------------------------------

struct Voice {
    static constexpr Id id = Id::voice;
    static constexpr std::tuple entries{
        requiredText("compID", TextRule::voiceBank, &MidiPartBase::voiceBankID,
                     &MidiPartBaseImpl::assignVoiceBankID),
        integer("langID", field::language, &MidiPartBase::langID, &MidiPartBaseImpl::assignLangID,
                required),
    };
};

inline constexpr auto itself = [](std::uint32_t value) { return value; };

struct AiLanguage {
    static constexpr Id id = Id::aiLanguage;
    static constexpr std::tuple entries{
        integer("langID", field::language, itself, &MidiPartBaseImpl::appendAiLangID, required)};
};

struct AiVoice {
    static constexpr Id id = Id::aiVoice;
    static constexpr std::tuple entries{
        requiredText("compID", TextRule::voiceBankOrEmpty, &MidiPartBase::aiVoiceBankID,
                     &MidiPartBaseImpl::assignAiVoiceBankID),
        objects<AiLanguage>("langIDs"),
    };
};

template <std::uint32_t ofType>
struct MidiPartTable {
    static constexpr Id id = ofType == KRT_PLX_PART_MIDI ? Id::midiPart : Id::midiAiPart;
    static constexpr std::uint32_t type = ofType;
    static constexpr auto voice = [] {
        if constexpr (ofType == KRT_PLX_PART_MIDI) {
            return object<Voice>("voice", required);
        } else {
            return object<AiVoice>("aiVoice", required);
        }
    };
    static constexpr std::tuple entries{
        integer("duration", field::partDuration, &MidiPartBase::duration,
                &MidiPartBaseImpl::assignDuration, required),
        optionalText("styleName", &MidiPartBase::styleName, &MidiPartBaseImpl::assignStyleName),
        optionalText("stylePresetID", &MidiPartBase::stylePresetID,
                     &MidiPartBaseImpl::assignStylePresetID),
        voice(),
        objects<AudioEffectTable>("audioEffects"),
        objects<MidiEffectTable>("midiEffects"),
        objects<NoteTable>("notes"),
        objects<ControllerTable>("controllers"),
    };
};
using MidiAiPartTable = MidiPartTable<KRT_PLX_PART_MIDI_AI>;
using MidiVoicePartTable = MidiPartTable<KRT_PLX_PART_MIDI>;

inline constexpr auto waveFileName = [](const AudioPartBase& part) {
    return fs::fileName(part.wavFilePath());
};
inline constexpr auto putFileName = [](String& name, StringView text) { name = text; };

struct AudioPartTable {
    static constexpr Id id = Id::audioPart;
    static constexpr std::uint32_t type = KRT_PLX_PART_AUDIO;
    static constexpr std::tuple entries{
        requiredText("wavFileName", TextRule::fileName, waveFileName, putFileName),
        objects<AudioEffectTable>("audioEffects"),
    };
};

// --- The data document --------------------------------------------------------------------------------

// The key of a part is the name of its type.
template <class Part>
constexpr Object<Part> part()
{
    return object<Part>(part_type::name(Part::type));
}

// Of several parts the first one in this order counts.
struct DataDocument {
    static constexpr Id id = Id::dataDocument;
    static constexpr std::tuple entries{
        requiredText("id", TextRule::notEmpty, NotWritten(), Into<&ClipProperties::id>()),
        requiredText("name", TextRule::notEmpty, NotWritten(), Into<&ClipProperties::name>()),
        optionalText("vendor", NotWritten(), Into<&ClipProperties::vendorName>()),
        part<AudioPartTable>(),
        part<MidiAiPartTable>(),
        part<MidiVoicePartTable>(),
        object<FilterTable>("filter"),
    };
};

// --- Bounds -------------------------------------------------------------------------------------------

inline constexpr std::size_t mostRows =
    std::max(widthOf(shape<PropertyDocument>), widthOf(shape<DataDocument>));
// The greatest depth of objects and lists of the table in each other.
inline constexpr std::size_t mostLevels =
    std::max(depthOf(shape<PropertyDocument>), depthOf(shape<DataDocument>));

} // namespace Korvel::CANTORIS::PLX::format::keys
