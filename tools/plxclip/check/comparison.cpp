#include "check/comparison.h"

#include <functional>
#include <tuple>
#include <type_traits>
#include <utility>

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

class Differences {
public:
    template <class Host, class Document>
    void compare(const std::string& what, const Host& host, const Document& document)
    {
        const auto a = plain(host);
        const auto b = plain(document);
        if (a != b && lines.size() < most) {
            lines.push_back(what + " is " + shown(a) + " to a host, but " + shown(b) +
                            " by the document");
        }
    }

    // Compares the elements, too, where there are as many.
    template <class Range, class At, class Compare>
    void compareLists(const std::string& what, const Range& host, std::uint64_t count, At at,
                      Compare compareElement)
    {
        compare("the number of " + what, host.size(), count);
        if (host.size() != count) {
            return;
        }
        std::uint64_t index = 0;
        for (const auto element : host) {
            compareElement(what + ' ' + std::to_string(index), element, at(index));
            ++index;
        }
    }

    template <class Range, class At>
    void compareValues(const std::string& what, const Range& host, std::uint64_t count, At at)
    {
        compareLists(what, host, count, at,
                     [this](const auto& place, auto a, auto b) { compare(place, a, b); });
    }

    std::vector<std::string> take() { return std::move(lines); }

private:
    static constexpr std::size_t most = 20;

    std::vector<std::string> lines;
};

// --- Fields, by the table of keys --------------------------------------------------------------------------

// Of objects and lists, which are compared apart.
struct Apart {};

template <class Of, std::size_t place, class Host, class Document, class Get>
void compareField(Differences& all, const std::string& what, const Host& host,
                  const Document& document, const Get& get)
{
    if constexpr (!std::is_same_v<Get, Apart>) {
        constexpr const auto& entry = std::get<place>(Of::entries);
        all.compare(what + ", " + std::string(entry.row.key), std::invoke(get, host),
                    std::invoke(entry.get, document));
    }
}

// `gets` asks the host for each key of the table, in its order.
template <class Of, class Host, class Document, class... Get>
void compareFields(Differences& all, const std::string& what, const Host& host,
                   const Document& document, const std::tuple<Get...>& gets)
{
    static_assert(sizeof...(Get) == std::tuple_size_v<decltype(Of::entries)>);
    [&]<std::size_t... places>(std::index_sequence<places...>)
    {
        (compareField<Of, places>(all, what, host, document, std::get<places>(gets)), ...);
    }
    (std::index_sequence_for<Get...>());
}

constexpr std::tuple hostNote{&face::Note::pos,
                              &face::Note::duration,
                              &face::Note::lyric,
                              &face::Note::phoneme,
                              &face::Note::langID,
                              &face::Note::isProtected,
                              &face::Note::number,
                              &face::Note::velocity,
                              Apart(),
                              Apart(),
                              Apart(),
                              Apart(),
                              Apart()};
constexpr std::tuple hostExpression{
    &face::Note::accent,   &face::Note::bendDepth, &face::Note::bendLength, &face::Note::decay,
    &face::Note::fallPort, &face::Note::risePort,  &face::Note::opening};
constexpr std::tuple hostAiExpression{
    &face::Note::pitchFine,          &face::Note::pitchDriftStart,
    &face::Note::pitchDriftEnd,      &face::Note::pitchScalingCenter,
    &face::Note::pitchScalingOrigin, &face::Note::pitchTransitionStart,
    &face::Note::pitchTransitionEnd, &face::Note::amplitudeWhole,
    &face::Note::amplitudeStart,     &face::Note::amplitudeEnd,
    &face::Note::formantWhole,       &face::Note::formantStart,
    &face::Note::formantEnd};
constexpr std::tuple hostSkill{&face::SingingSkill::duration, Apart()};
constexpr std::tuple hostWeight{&face::SingingSkill::preWeight, &face::SingingSkill::postWeight};
constexpr std::tuple hostDvqm{&face::Dvqm::compID, Apart(), &face::Dvqm::isProtected,
                              &face::Dvqm::speed, &face::Dvqm::topFactor};
constexpr std::tuple hostVibrato{&face::Vibrato::type, &face::Vibrato::duration, Apart(), Apart()};
constexpr std::tuple hostVoice{&face::MidiPart::voiceBankID, &face::MidiPart::langID};
constexpr std::tuple hostAiVoice{&face::MidiPart::aiVoiceBankID, Apart()};
constexpr std::tuple hostMidiPart{&face::MidiPart::duration,
                                  &face::MidiPart::styleName,
                                  &face::MidiPart::stylePresetID,
                                  Apart(),
                                  Apart(),
                                  Apart(),
                                  Apart(),
                                  Apart()};

// --- Objects ------------------------------------------------------------------------------------------

template <class Host, class Document>
void comparePoint(Differences& all, const std::string& what, Host host, const Document& point)
{
    all.compare(what + ", pos", host.pos(), point.pos());
    all.compare(what + ", value", host.value(), point.value());
}

void compareDvqm(Differences& all, const std::string& what, face::Dvqm host, own::Dvqm& dvqm)
{
    compareFields<keys::Attack>(all, what, host, dvqm, hostDvqm);
    all.compareValues(what + ", levelNames", host.levelNames(), dvqm.numLevelNames(),
                      [&](std::uint64_t index) { return dvqm.levelName(index); });
}

void compareVibrato(Differences& all, const std::string& what, face::Vibrato host,
                    own::Vibrato& vibrato)
{
    compareFields<keys::VibratoTable>(all, what, host, vibrato, hostVibrato);
    const auto compareCurve = [&](const char* name, const auto& points, std::uint32_t curve) {
        all.compareLists(
            what + ", " + name, points, static_cast<std::uint64_t>(vibrato.numParameters(curve)),
            [&](std::uint64_t index) { return vibrato.parameter(curve, index); },
            [&](const auto& place, auto a, auto* b) { comparePoint(all, place, a, *b); });
    };
    compareCurve("rates", host.rates(), KRT_PLX_VIBRATO_RATE);
    compareCurve("depths", host.depths(), KRT_PLX_VIBRATO_DEPTH);
}

void compareNote(Differences& all, const std::string& what, face::Note host, own::Note& note)
{
    compareFields<keys::NoteTable>(all, what, host, note, hostNote);
    compareFields<keys::Expression>(all, what, host, note, hostExpression);
    compareFields<keys::AiExpressionTable>(all, what, host, note, hostAiExpression);
    const face::SingingSkill skill = host.singingSkill();
    compareFields<keys::SingingSkillTable>(all, what + ", singingSkill", skill,
                                           *note.singingSkill(), hostSkill);
    compareFields<keys::Weight>(all, what + ", singingSkill", skill, *note.singingSkill(),
                                hostWeight);
    compareDvqm(all, what + ", attack", host.attack(), *note.dvqm(true));
    compareDvqm(all, what + ", release", host.release(), *note.dvqm(false));
    compareVibrato(all, what + ", vibrato", host.vibrato(), *note.vibrato());
}

void compareParameter(Differences& all, const std::string& what, face::EffectParameter host,
                      own::EffectParameter& parameter)
{
    all.compare(what + ", name", host.name(), parameter.name());
    all.compare(what + ", type", host.type(), parameter.type());
    all.compare(what + ", integer", host.valueInt32().value_or(KRT_PLX_VALUE_UNSET_INT32),
                parameter.valueInt32());
    all.compare(what + ", float", host.valueFloat().value_or(KRT_PLX_VALUE_UNSET_FLOAT),
                parameter.valueFloat());
    all.compare(what + ", text", host.valueString().value_or(face::StringView()),
                parameter.valueString());
}

template <class Range, class At>
void compareEffects(Differences& all, const std::string& what, const Range& host,
                    std::uint64_t count, At at)
{
    all.compareLists(what, host, count, at, [&](const auto& place, auto a, own::Effect* b) {
        all.compare(place + ", id", a.id(), b->id());
        all.compareLists(
            place + ", parameters", a.parameters(), b->numParameters(),
            [&](std::uint64_t index) { return b->parameter(index); },
            [&](const auto& inner, auto c, auto* d) { compareParameter(all, inner, c, *d); });
    });
}

void compareLanes(Differences& all, face::MidiPart host, own::MidiPart& part)
{
    for (const own::controller::Type& row : own::controller::types) {
        const std::uint32_t type = row.code;
        const std::string what(row.name);
        const face::MidiController lane =
            host.midiController(static_cast<face::ControllerType>(type));
        own::MidiController* const other = part.midiController(type);
        all.compare("the lane " + what, static_cast<bool>(lane), other != nullptr);
        if (lane && other != nullptr) {
            all.compareLists(
                what, lane.events(), other->numEvents(),
                [&](std::uint64_t index) { return other->event(index); },
                [&](const auto& place, auto a, auto* b) { comparePoint(all, place, a, *b); });
        }
    }
}

void compareMidi(Differences& all, face::MidiPart host, own::MidiPart& part)
{
    compareFields<keys::MidiVoicePartTable>(all, "part", host, part, hostMidiPart);
    compareFields<keys::Voice>(all, "voice", host, part, hostVoice);
    compareFields<keys::AiVoice>(all, "aiVoice", host, part, hostAiVoice);
    all.compareValues("langIDs", host.aiLangIDs(), part.aiLangIDSize(),
                      [&](std::uint64_t index) { return part.aiLangIDByIndex(index); });
    compareEffects(all, "audioEffects", host.audioEffects(), part.numAudioEffects(),
                   [&](std::uint64_t index) { return part.audioEffect(index); });
    compareEffects(all, "midiEffects", host.midiEffects(), part.numMidiEffects(),
                   [&](std::uint64_t index) { return part.midiEffect(index); });
    all.compareLists(
        "notes", host.notes(), part.numNotes(),
        [&](std::uint64_t index) { return part.note(index); },
        [&](const auto& place, auto a, auto* b) { compareNote(all, place, a, *b); });
    compareLanes(all, host, part);
}

void compareAudio(Differences& all, face::AudioPart host, own::AudioPart& part)
{
    all.compare("wavFileName", own::fs::fileName(host.wavFilePath()), keys::waveFileName(part));
    compareEffects(all, "audioEffects", host.audioEffects(), part.numAudioEffects(),
                   [&](std::uint64_t index) { return part.audioEffect(index); });
}

} // namespace

std::vector<std::string> differences(face::Clip clip, const own::ClipProperties& properties)
{
    Differences all;
    all.compare("id", clip.id(), properties.id);
    all.compare("name", clip.name(), properties.name);
    all.compare("vendor", clip.vendorName(), properties.vendorName);
    all.compare("part, key", clip.partKey().value_or(0), properties.partKey);
    all.compare("part, tempo", clip.partTempo().value_or(0), properties.partTempo);
    const face::Filter host = clip.filter();
    const auto compareTags = [&](const char* what, const auto& range, own::Tag tag) {
        const auto& texts = properties.filter.texts(tag);
        all.compareValues(what, range, texts.size(),
                          [&](std::uint64_t index) { return texts[index]; });
    };
    compareTags("singerGroups", host.singerGroups(), own::Tag::singerGroup);
    compareTags("vendors", host.vendors(), own::Tag::vendor);
    compareTags("singerIDs", host.singerIDs(), own::Tag::singerID);
    compareTags("types", host.types(), own::Tag::type);
    compareTags("genres", host.genres(), own::Tag::genre);
    const auto& languages = properties.filter.languages();
    all.compareValues("languages", host.languages(), languages.size(),
                      [&](std::uint64_t index) { return languages[index]; });
    return all.take();
}

std::vector<std::string> differences(face::Clip clip, own::PartBase& part)
{
    Differences all;
    if (own::MidiPart* const midi = part.asMidiPart(); midi != nullptr && clip.midiPart()) {
        all.compare("type", clip.midiPart().type(), part.type());
        compareMidi(all, clip.midiPart(), *midi);
    } else if (own::AudioPart* const audio = part.asAudioPart(); audio && clip.audioPart()) {
        compareAudio(all, clip.audioPart(), *audio);
    } else {
        all.compare("whether it has notes", static_cast<bool>(clip.midiPart()), midi != nullptr);
    }
    return all.take();
}

} // namespace plxclip::check
