#include "clip_text.h"

#include <algorithm>

#include <fmt/format.h>

#include "columns.h"
#include "console.h"
#include "naming.h"

namespace plxclip {

namespace {

std::string joined(const std::vector<std::string>& texts, std::string_view separator)
{
    return fmt::format("{}", fmt::join(texts, separator));
}

template <typename Number>
std::string languagesText(const std::vector<Number>& languages, Numbers numbers)
{
    std::vector<std::string> texts;
    for (const Number language : languages) {
        texts.push_back(languageText(language, numbers));
    }
    return joined(texts, ", ");
}

std::string field(std::string_view name, std::string_view value)
{
    return value.empty() ? std::string() : fmt::format("{:<11}{}\n", name, printable(value));
}

std::string heading(std::string_view text)
{
    return "\n" + styled(Style::heading, text) + "\n";
}

struct ValueText {
    std::string operator()(std::monostate) const { return "-"; }
    std::string operator()(const std::string& text) const { return fmt::format("\"{}\"", text); }
    template <typename Number>
    std::string operator()(Number number) const
    {
        return fmt::format("{}", number);
    }
};

std::string effectText(const Effect& effect)
{
    std::vector<std::string> parameters;
    for (const Parameter& parameter : effect.parameters) {
        parameters.push_back(parameter.name + " " + std::visit(ValueText(), parameter.value));
    }
    return parameters.empty() ? effect.id
                              : fmt::format("{}: {}", effect.id, joined(parameters, ", "));
}

std::string effectsText(std::string_view title, const std::vector<Effect>& effects)
{
    std::string text = effects.empty() ? "" : heading(title);
    for (const Effect& effect : effects) {
        text += printable(effectText(effect)) + "\n";
    }
    return text;
}

std::string notesText(const std::vector<Note>& notes, std::size_t width)
{
    Table table({"Pos", "Length", "Pitch", "Vel", "Lyric", "Phonemes", "Also"});
    table.alignRight(0);
    table.alignRight(1);
    table.alignRight(3);
    for (const Note& note : notes) {
        table.add({std::to_string(note.pos), std::to_string(note.duration), pitchName(note.number),
                   std::to_string(note.velocity), note.lyric, note.phoneme, remarksText(note)});
    }
    return table.text(width);
}

std::string lanesText(const std::vector<Lane>& lanes, std::size_t width)
{
    Table table({"Lane", "Events", "Lowest", "Highest", "Range"});
    for (const std::size_t column : {1U, 2U, 3U}) {
        table.alignRight(column);
    }
    for (const Lane& lane : lanes) {
        const auto [lowest, highest] =
            std::minmax_element(lane.events.begin(), lane.events.end(),
                                [](const Point& a, const Point& b) { return a.value < b.value; });
        const bool isEmpty = lane.events.empty();
        table.add({std::string(laneName(lane.type)), std::to_string(lane.events.size()),
                   isEmpty ? "-" : std::to_string(lowest->value),
                   isEmpty ? "-" : std::to_string(highest->value),
                   fmt::format("{} to {}", lane.least, lane.most)});
    }
    return table.text(width);
}

struct PartText {
    Numbers numbers;
    std::size_t width;

    std::string operator()(std::monostate) const { return {}; }

    std::string operator()(const AudioPart& part) const
    {
        return field("Wave file", part.wavePath) + effectsText("Audio effects", part.audioEffects);
    }

    std::string operator()(const MidiPart& part) const
    {
        std::string text = field("Voice", part.voice);
        text += field("Sung in", languagesText(part.languages, numbers));
        text += field("Style", part.styleName);
        text += field("Preset", part.stylePreset);
        text += field("Duration", fmt::format("{} ticks", part.duration));
        text += heading(fmt::format("Notes: {}", part.notes.size()));
        text += part.notes.empty() ? "" : notesText(part.notes, width);
        text +=
            part.lanes.empty() ? "" : heading("Controller lanes") + lanesText(part.lanes, width);
        text += effectsText("MIDI effects", part.midiEffects);
        return text + effectsText("Audio effects", part.audioEffects);
    }
};

} // namespace

std::string keyText(const Properties& clip, Numbers numbers)
{
    if (clip.partType == PartType::audio) {
        return "-";
    }
    if (numbers == Numbers::plain) {
        return std::to_string(clip.key);
    }
    return std::string(keyName(clip.key).value_or("-"));
}

std::string languageText(std::int64_t language, Numbers numbers)
{
    const auto name = numbers == Numbers::named ? languageName(language) : std::nullopt;
    return name ? std::string(*name) : std::to_string(language);
}

std::string tagsText(const Tags& tags, Numbers numbers)
{
    std::vector<std::string> groups;
    for (const auto& texts :
         {joined(tags.genres, ", "), joined(tags.types, ", "), joined(tags.singerGroups, ", "),
          languagesText(tags.languages, numbers)}) {
        if (!texts.empty()) {
            groups.push_back(texts);
        }
    }
    return joined(groups, "; ");
}

std::string remarksText(const Note& note)
{
    std::vector<std::string> remarks;
    if (hasVibrato(note)) {
        remarks.push_back(fmt::format("vibrato {}", note.vibrato.duration));
    }
    if (hasAttack(note)) {
        remarks.push_back("attack " + joined(note.attack.levelNames, "/"));
    }
    if (hasRelease(note)) {
        remarks.push_back("release " + joined(note.release.levelNames, "/"));
    }
    if (hasSkill(note)) {
        remarks.push_back(fmt::format("skill {}", note.skill.duration));
    }
    if (note.isProtected) {
        remarks.emplace_back("protected");
    }
    return joined(remarks, ", ");
}

std::string describe(const Properties& clip, Numbers numbers)
{
    std::string text = styled(Style::heading, printable(clip.name)) + "\n";
    text += field("ID", clip.id);
    text += field("Vendor", clip.vendor);
    text += field("Kind", clip.isUserClip ? "user clip" : "system clip");
    text += field("Part", nameOf(clip.partType));
    text += field("Key", keyText(clip, numbers));
    text += field("Tempo", tempoText(clip.tempo));
    text += field("Types", joined(clip.tags.types, ", "));
    text += field("Genres", joined(clip.tags.genres, ", "));
    text += field("Languages", languagesText(clip.tags.languages, numbers));
    text += field("Groups", joined(clip.tags.singerGroups, ", "));
    text += field("Singers", joined(clip.tags.singerIDs, ", "));
    return text + field("File", clip.path);
}

std::string describe(const Part& part, Numbers numbers, std::size_t width)
{
    return std::visit(PartText{numbers, width}, part);
}

} // namespace plxclip
