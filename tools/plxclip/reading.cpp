#include "reading.h"

#include "fields.h"
#include "paths.h"

namespace plxclip {

namespace plx = korvel::plx;

namespace {

PartType partTypeOf(plx::PartType type)
{
    switch (type) {
    case plx::PartType::audio:
        return PartType::audio;
    case plx::PartType::midiAi:
        return PartType::midiAi;
    case plx::PartType::midi:
        return PartType::midi;
    case plx::PartType::none:
        break;
    }
    return PartType::none;
}

template <typename Range>
std::vector<std::string> textsOf(const Range& range)
{
    std::vector<std::string> texts;
    for (const plx::StringView text : range) {
        texts.push_back(plx::toUtf8(text));
    }
    return texts;
}

template <typename Element, typename Range, typename Convert>
std::vector<Element> all(const Range& range, Convert convert)
{
    std::vector<Element> elements;
    for (const auto element : range) {
        elements.push_back(convert(element));
    }
    return elements;
}

Tags tagsOf(plx::Filter filter)
{
    return {textsOf(filter.types()),
            textsOf(filter.genres()),
            all<std::int32_t>(filter.languages(), [](std::int32_t number) { return number; }),
            textsOf(filter.singerGroups()),
            textsOf(filter.singerIDs()),
            textsOf(filter.vendors())};
}

template <typename Range>
std::vector<Point> pointsOf(const Range& range)
{
    return all<Point>(range, [](auto point) {
        return Point{point.pos(), static_cast<std::int32_t>(point.value())};
    });
}

Dvqm dvqmOf(plx::Dvqm dvqm)
{
    return {plx::toUtf8(dvqm.compID()), textsOf(dvqm.levelNames()), dvqm.isProtected(),
            dvqm.speed(), dvqm.topFactor()};
}

SingingSkill skillOf(plx::SingingSkill skill)
{
    return {skill.duration(), skill.preWeight(), skill.postWeight()};
}

Vibrato vibratoOf(plx::Vibrato vibrato)
{
    return {vibrato.type().value_or(0), vibrato.duration(), pointsOf(vibrato.depths()),
            pointsOf(vibrato.rates())};
}

template <typename Fields>
std::vector<NamedValue> valuesOf(plx::Note note, const Fields& fields)
{
    const auto read = [note](const auto&... field) {
        return std::vector<NamedValue>{{field.name, field.get(note)}...};
    };
    return std::apply(read, fields);
}

Note noteOf(plx::Note note)
{
    Note result;
    result.pos = note.pos();
    result.duration = note.duration();
    result.lyric = plx::toUtf8(note.lyric());
    result.phoneme = plx::toUtf8(note.phoneme());
    result.language = note.langID();
    result.isProtected = note.isProtected();
    result.number = note.number();
    result.velocity = note.velocity();
    result.expression = valuesOf(note, expressionFields);
    result.aiExpression = valuesOf(note, aiExpressionFields);
    result.attack = dvqmOf(note.dvqm(true));
    result.release = dvqmOf(note.dvqm(false));
    result.skill = skillOf(note.singingSkill());
    result.vibrato = vibratoOf(note.vibrato());
    return result;
}

Lane laneOf(plx::MidiController lane)
{
    return {static_cast<std::uint32_t>(lane.type()), lane.minEventValue(), lane.maxEventValue(),
            pointsOf(lane.events())};
}

Parameter parameterOf(plx::EffectParameter parameter)
{
    Parameter result{plx::toUtf8(parameter.name()), {}};
    if (const auto integer = parameter.valueInt32()) {
        result.value = *integer;
    } else if (const auto number = parameter.valueFloat()) {
        result.value = *number;
    } else if (const auto text = parameter.valueString()) {
        result.value = plx::toUtf8(*text);
    }
    return result;
}

Effect effectOf(plx::Effect effect)
{
    return {plx::toUtf8(effect.id()), all<Parameter>(effect.parameters(), parameterOf)};
}

std::vector<std::uint32_t> languagesOf(plx::MidiPart part)
{
    if (part.type() == plx::PartType::midiAi) {
        return all<std::uint32_t>(part.aiLangIDs(), [](std::uint32_t number) { return number; });
    }
    const auto language = part.langID();
    return language ? std::vector{*language} : std::vector<std::uint32_t>();
}

MidiPart midiPartOf(plx::MidiPart part)
{
    const bool isAi = part.type() == plx::PartType::midiAi;
    return {part.duration(),
            plx::toUtf8(isAi ? part.aiVoiceBankID() : part.voiceBankID()),
            languagesOf(part),
            plx::toUtf8(part.styleName()),
            plx::toUtf8(part.stylePresetID()),
            all<Note>(part.notes(), noteOf),
            all<Lane>(part.midiControllers(), laneOf),
            all<Effect>(part.midiEffects(), effectOf),
            all<Effect>(part.audioEffects(), effectOf)};
}

} // namespace

Properties propertiesOf(plx::Clip clip)
{
    Properties result;
    result.id = plx::toUtf8(clip.id());
    result.name = plx::toUtf8(clip.name());
    result.vendor = plx::toUtf8(clip.vendorName());
    result.path = pathText(clip.path());
    result.isUserClip = clip.type() == plx::ClipKind::user;
    result.partType = partTypeOf(clip.partType());
    result.key = clip.partKey().value_or(0);
    result.tempo = clip.partTempo().value_or(0);
    result.tags = tagsOf(clip.filter());
    return result;
}

Part partOf(plx::Clip clip)
{
    if (const auto part = clip.midiPart()) {
        return midiPartOf(part);
    }
    if (const auto part = clip.audioPart()) {
        return AudioPart{pathText(part.wavFilePath()), all<Effect>(part.audioEffects(), effectOf)};
    }
    return {};
}

} // namespace plxclip
