#include "check/comparison.h"

#include <tuple>
#include <type_traits>

#include "fields.h"
#include "format/keys.h"

namespace plxclip::check {

namespace {

namespace face = korvel::plx;
namespace keys = own::format::keys;

// --- Values -------------------------------------------------------------------------------------------

// Numbers and texts compare as such, whichever types the two sides have for them.
template <class Value>
auto plain(const Value& value)
{
    if constexpr (std::is_convertible_v<Value, face::StringView>) {
        return face::StringView(value);
    } else if constexpr (requires { value.has_value(); }) {
        return plain(value.value_or(KRT_PLX_NO_LANGUAGE));
    } else {
        return static_cast<double>(value);
    }
}

std::string shown(face::StringView text)
{
    return '"' + face::toUtf8(text) + '"';
}

std::string shown(double number)
{
    return std::to_string(number);
}

template <class Value>
constexpr bool isPlain =
    std::is_arithmetic_v<Value> || std::is_convertible_v<Value, face::StringView>;

// A key without a field would not be compared.
template <class Of>
constexpr std::size_t rowCount = keys::rows<Of>.size();
static_assert(rowCount<keys::Expression> == std::tuple_size_v<decltype(expressionFields)>);
static_assert(rowCount<keys::AiExpressionTable> == std::tuple_size_v<decltype(aiExpressionFields)>);

// --- The comparison -----------------------------------------------------------------------------------

// Compares what a host sees with what the document says. Each `what` is the place, in words.
class Comparison {
public:
    template <class Host, class Document>
    requires isPlain<Document>
    void compare(const std::string& what, const Host& host, const Document& document)
    {
        constexpr std::size_t most = 20;
        const auto a = plain(host);
        const auto b = plain(document);
        if (a != b && lines.size() < most) {
            lines.push_back(what + " is " + shown(a) + " to a host, but " + shown(b) +
                            " by the document");
        }
    }

    // The elements, too, if there are as many; `at` gives those of the document.
    template <class Range, class At>
    void compareList(const std::string& what, const Range& host, std::uint64_t count, At at)
    {
        compare("the number of " + what, host.size(), count);
        for (std::uint64_t index = 0; host.size() == count && index < count; ++index) {
            const std::string place = what + ' ' + std::to_string(index);
            if constexpr (isPlain<decltype(at(index))>) {
                compare(place, host[index], at(index));
            } else {
                compare(place, host[index], *at(index));
            }
        }
    }

    void compare(const std::string& what, face::MidiPart host, own::MidiPart& part)
    {
        compare("type", host.type(), part.type());
        compare(what + ", duration", host.duration(), part.duration());
        compare(what + ", styleName", host.styleName(), part.styleName());
        compare(what + ", stylePresetID", host.stylePresetID(), part.stylePresetID());
        compare("voice, compID", host.voiceBankID(), part.voiceBankID());
        compare("voice, langID", host.langID(), part.langID());
        compare("aiVoice, compID", host.aiVoiceBankID(), part.aiVoiceBankID());
        compareList("langIDs", host.aiLangIDs(), part.aiLangIDSize(),
                    [&](auto i) { return part.aiLangIDByIndex(i); });
        compareList("audioEffects", host.audioEffects(), part.numAudioEffects(),
                    [&](auto i) { return part.audioEffect(i); });
        compareList("midiEffects", host.midiEffects(), part.numMidiEffects(),
                    [&](auto i) { return part.midiEffect(i); });
        compareList("notes", host.notes(), part.numNotes(), [&](auto i) { return part.note(i); });
        compareLanes(host, part);
    }

    std::vector<std::string> take() { return std::move(lines); }

private:
    // Of a lane or a vibrato.
    template <class Host, class Point>
    requires requires(const Point& point) { point.value(); }
    void compare(const std::string& what, Host host, const Point& point)
    {
        compare(what + ", pos", host.pos(), point.pos());
        compare(what + ", value", host.value(), point.value());
    }

    void compare(const std::string& what, face::Dvqm host, own::Dvqm& dvqm)
    {
        compare(what + ", compID", host.compID(), dvqm.compID());
        compare(what + ", isProtected", host.isProtected(), dvqm.isProtected());
        compare(what + ", speed", host.speed(), dvqm.speed());
        compare(what + ", topFactor", host.topFactor(), dvqm.topFactor());
        compareList(what + ", levelNames", host.levelNames(), dvqm.numLevelNames(),
                    [&](auto i) { return dvqm.levelName(i); });
    }

    void compare(const std::string& what, face::SingingSkill host, own::SingingSkill& skill)
    {
        compare(what + ", duration", host.duration(), skill.duration());
        compare(what + ", pre", host.preWeight(), skill.preWeight());
        compare(what + ", post", host.postWeight(), skill.postWeight());
    }

    void compare(const std::string& what, face::Vibrato host, own::Vibrato& vibrato)
    {
        compare(what + ", type", host.type(), vibrato.type());
        compare(what + ", duration", host.duration(), vibrato.duration());
        const auto compareCurve = [&](const char* name, const auto& points, std::uint32_t curve) {
            const auto count = static_cast<std::uint64_t>(vibrato.numParameters(curve));
            compareList(what + name, points, count,
                        [&](auto i) { return vibrato.parameter(curve, i); });
        };
        compareCurve(", rates", host.rates(), KRT_PLX_VIBRATO_RATE);
        compareCurve(", depths", host.depths(), KRT_PLX_VIBRATO_DEPTH);
    }

    void compare(const std::string& what, face::Note host, own::Note& note)
    {
        compare(what + ", pos", host.pos(), note.pos());
        compare(what + ", duration", host.duration(), note.duration());
        compare(what + ", lyric", host.lyric(), note.lyric());
        compare(what + ", phoneme", host.phoneme(), note.phoneme());
        compare(what + ", langID", host.langID(), note.langID());
        compare(what + ", isProtected", host.isProtected(), note.isProtected());
        compare(what + ", number", host.number(), note.number());
        compare(what + ", velocity", host.velocity(), note.velocity());
        const auto compareEach = [&](const auto&... field) {
            (compare(what + ", " + std::string(field.name), field.get(host), field.get(note)), ...);
        };
        std::apply(compareEach, std::tuple_cat(expressionFields, aiExpressionFields));
        compare(what + ", singingSkill", host.singingSkill(), *note.singingSkill());
        compare(what + ", attack", host.attack(), *note.dvqm(true));
        compare(what + ", release", host.release(), *note.dvqm(false));
        compare(what + ", vibrato", host.vibrato(), *note.vibrato());
    }

    void compare(const std::string& what, face::EffectParameter host, own::EffectParameter& other)
    {
        compare(what + ", name", host.name(), other.name());
        compare(what + ", type", host.type(), other.type());
        compare(what + ", integer", host.valueInt32().value_or(KRT_PLX_VALUE_UNSET_INT32),
                other.valueInt32());
        compare(what + ", float", host.valueFloat().value_or(KRT_PLX_VALUE_UNSET_FLOAT),
                other.valueFloat());
        compare(what + ", text", host.valueString().value_or(face::StringView()),
                other.valueString());
    }

    void compare(const std::string& what, face::Effect host, own::Effect& effect)
    {
        compare(what + ", id", host.id(), effect.id());
        compareList(what + ", parameters", host.parameters(), effect.numParameters(),
                    [&](auto i) { return effect.parameter(i); });
    }

    void compareLanes(face::MidiPart host, own::MidiPart& part)
    {
        for (const own::controller::Type& type : own::controller::types) {
            const std::string name(type.name);
            const auto lane = host.midiController(static_cast<face::ControllerType>(type.code));
            const own::MidiController* const other = part.midiController(type.code);
            compare("the lane " + name, static_cast<bool>(lane), other != nullptr);
            if (lane && other != nullptr) {
                compareList(name, lane.events(), other->numEvents(),
                            [&](auto i) { return other->event(i); });
            }
        }
    }

    std::vector<std::string> lines;
};

} // namespace

std::vector<std::string> differences(face::Clip clip, const own::ClipProperties& properties)
{
    Comparison all;
    all.compare("id", clip.id(), properties.id);
    all.compare("name", clip.name(), properties.name);
    all.compare("vendor", clip.vendorName(), properties.vendorName);
    all.compare("part, key", clip.partKey().value_or(0), properties.partKey);
    all.compare("part, tempo", clip.partTempo().value_or(0), properties.partTempo);
    const auto compareTags = [&all](const char* what, const auto& host, const auto& tags) {
        all.compareList(what, host, tags.size(), [&](auto i) { return tags[i]; });
    };
    const own::FilterTags& filter = properties.filter;
    compareTags("singerGroups", clip.filter().singerGroups(), filter.texts(own::Tag::singerGroup));
    compareTags("vendors", clip.filter().vendors(), filter.texts(own::Tag::vendor));
    compareTags("singerIDs", clip.filter().singerIDs(), filter.texts(own::Tag::singerID));
    compareTags("types", clip.filter().types(), filter.texts(own::Tag::type));
    compareTags("genres", clip.filter().genres(), filter.texts(own::Tag::genre));
    compareTags("languages", clip.filter().languages(), filter.languages());
    return all.take();
}

std::vector<std::string> differences(face::Clip clip, own::PartBase& part)
{
    Comparison all;
    if (own::MidiPart* const midi = part.asMidiPart(); midi != nullptr && clip.midiPart()) {
        all.compare("part", clip.midiPart(), *midi);
    } else if (own::AudioPart* const audio = part.asAudioPart(); audio && clip.audioPart()) {
        all.compare("wavFileName", own::fs::fileName(clip.audioPart().wavFilePath()),
                    keys::waveFileName(*audio));
        all.compareList("audioEffects", clip.audioPart().audioEffects(), audio->numAudioEffects(),
                        [&](auto i) { return audio->audioEffect(i); });
    } else {
        all.compare("whether it has notes", static_cast<bool>(clip.midiPart()), midi != nullptr);
    }
    return all.take();
}

} // namespace plxclip::check
