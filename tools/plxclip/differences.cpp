#include <functional>

#include <fmt/format.h>

#include "building.h"

namespace plxclip {

namespace {

class Report {
public:
    template <typename Value>
    void compare(std::string_view what, const Value& original, const Value& copy)
    {
        if (!(original == copy)) {
            lines.emplace_back(what);
        }
    }

    void add(std::string line) { lines.push_back(std::move(line)); }

    std::vector<std::string> take() { return std::move(lines); }

private:
    std::vector<std::string> lines;
};

struct NoteField {
    std::string_view name;
    std::function<bool(const Note&, const Note&)> isSame;
};

bool hasSameText(const Note& a, const Note& b)
{
    return a.lyric == b.lyric && a.phoneme == b.phoneme;
}

bool hasSameExpression(const Note& a, const Note& b)
{
    return a.velocity == b.velocity && a.accent == b.accent && a.bendDepth == b.bendDepth &&
           a.bendLength == b.bendLength && a.decay == b.decay && a.opening == b.opening &&
           a.fallPort == b.fallPort && a.risePort == b.risePort && a.isProtected == b.isProtected;
}

const std::vector<NoteField>& noteFields()
{
    static const std::vector<NoteField> fields = {
        {"lyric or phonemes", hasSameText},
        {"position, duration or pitch",
         [](const Note& a, const Note& b) {
             return a.pos == b.pos && a.duration == b.duration && a.number == b.number;
         }},
        {"language", [](const Note& a, const Note& b) { return a.language == b.language; }},
        {"expression", hasSameExpression},
        {"AI values", [](const Note& a, const Note& b) { return a.aiValues == b.aiValues; }},
        {"attack", [](const Note& a, const Note& b) { return a.attack == b.attack; }},
        {"release", [](const Note& a, const Note& b) { return a.release == b.release; }},
        {"singing skill", [](const Note& a, const Note& b) { return a.skill == b.skill; }},
        {"vibrato", [](const Note& a, const Note& b) { return a.vibrato == b.vibrato; }}};
    return fields;
}

// Reports the positions of the notes in which a field differs; only the first few of them.
void compareField(Report& report, const NoteField& field, const std::vector<Note>& originals,
                  const std::vector<Note>& copies)
{
    constexpr std::size_t shown = 6;
    std::vector<std::int32_t> places;
    for (std::size_t i = 0; i < originals.size(); ++i) {
        if (!field.isSame(originals[i], copies[i])) {
            places.push_back(originals[i].pos);
        }
    }
    if (places.empty()) {
        return;
    }
    const std::size_t number = places.size();
    places.resize(std::min(number, shown));
    report.add(fmt::format("the {} of {} {}, at {}{}", field.name, number,
                           number == 1 ? "note" : "notes", fmt::join(places, ", "),
                           number > shown ? " ..." : ""));
}

void compareNotes(Report& report, const std::vector<Note>& originals,
                  const std::vector<Note>& copies)
{
    if (originals.size() != copies.size()) {
        report.add(fmt::format("notes: {} of {}", copies.size(), originals.size()));
        return;
    }
    for (const NoteField& field : noteFields()) {
        compareField(report, field, originals, copies);
    }
}

struct PartComparison {
    Report& report;

    void operator()(const MidiPart& original, const MidiPart& copy) const
    {
        report.compare("the duration of the part", original.duration, copy.duration);
        report.compare("the voice", original.voice, copy.voice);
        report.compare("the languages of the voice", original.languages, copy.languages);
        report.compare("the style", original.styleName, copy.styleName);
        report.compare("the style preset", original.stylePreset, copy.stylePreset);
        compareNotes(report, original.notes, copy.notes);
        report.compare("controller lanes", original.lanes, copy.lanes);
        report.compare("MIDI effects", original.midiEffects, copy.midiEffects);
        report.compare("audio effects", original.audioEffects, copy.audioEffects);
    }

    void operator()(const AudioPart& original, const AudioPart& copy) const
    {
        report.compare("audio effects", original.audioEffects, copy.audioEffects);
    }

    template <typename Original, typename Copy>
    void operator()(const Original&, const Copy&) const
    {
        report.add("the part");
    }
};

} // namespace

std::vector<std::string> differences(const Properties& original, const Part& originalPart,
                                     const Properties& copy, const Part& copiedPart)
{
    Report report;
    report.compare("the vendor", original.vendor, copy.vendor);
    report.compare("the key", original.key, copy.key);
    report.compare("the tempo", original.tempo, copy.tempo);
    report.compare("the types", original.tags.types, copy.tags.types);
    report.compare("the genres", original.tags.genres, copy.tags.genres);
    report.compare("the languages", original.tags.languages, copy.tags.languages);
    report.compare("the singer groups", original.tags.singerGroups, copy.tags.singerGroups);
    report.compare("the singers", original.tags.singerIDs, copy.tags.singerIDs);
    report.compare("the vendor tags", original.tags.vendors, copy.tags.vendors);
    std::visit(PartComparison{report}, originalPart, copiedPart);
    return report.take();
}

} // namespace plxclip
