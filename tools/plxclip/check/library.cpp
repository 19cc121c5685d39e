#include "check/library.h"

#include "check/files.h"

namespace plxclip::check {

namespace plx = korvel::plx;

namespace {

template <typename Part>
void countAudioEffects(Part part, Contents& contents)
{
    for (const plx::Effect effect : part.audioEffects()) {
        ++contents.audioEffects;
        contents.parameters += effect.numParameters();
    }
}

std::int64_t sumOf(plx::Dvqm dvqm)
{
    return inMillionths(dvqm.topFactor()) +
           millionths * (dvqm.speed() + (dvqm.isProtected() ? 1U : 0U));
}

std::int64_t sumOf(plx::SingingSkill skill)
{
    return millionths * (std::int64_t{skill.duration()} + skill.preWeight() + skill.postWeight());
}

std::int64_t sumOfAiValues(plx::Note note)
{
    std::int64_t sum = 0;
    for (const float value :
         {note.pitchFine(), note.pitchDriftStart(), note.pitchDriftEnd(), note.pitchScalingCenter(),
          note.pitchScalingOrigin(), note.pitchTransitionStart(), note.pitchTransitionEnd(),
          note.amplitudeWhole(), note.amplitudeStart(), note.amplitudeEnd(), note.formantWhole(),
          note.formantStart(), note.formantEnd()}) {
        sum += inMillionths(value);
    }
    return sum;
}

std::int64_t sumOfIntegers(plx::Note note)
{
    std::int64_t sum = std::int64_t{note.pos()} + note.duration() + note.number() + note.velocity();
    sum += note.langID() ? std::int64_t{*note.langID()} : -1;
    for (const std::uint32_t value :
         {note.accent(), note.bendDepth(), note.bendLength(), note.decay(), note.opening()}) {
        sum += value;
    }
    for (const bool flag : {note.isProtected(), note.fallPort(), note.risePort()}) {
        sum += flag ? 1 : 0;
    }
    return sum * millionths;
}

void countVibrato(plx::Vibrato vibrato, Contents& contents)
{
    contents.values += millionths * (std::int64_t{vibrato.type()} + vibrato.duration());
    for (const auto kind : {plx::VibratoPointKind::depth, plx::VibratoPointKind::rate}) {
        for (const plx::VibratoParameter point : vibrato.points(kind)) {
            ++contents.vibratoPoints;
            contents.values += millionths * (std::int64_t{point.pos()} + point.value());
        }
    }
}

void countNotes(plx::MidiPart part, Contents& contents)
{
    for (const plx::Note note : part.notes()) {
        ++contents.notes;
        contents.levelNames += note.attack().numLevelNames() + note.release().numLevelNames();
        contents.values += sumOfIntegers(note) + sumOfAiValues(note) + sumOf(note.attack()) +
                           sumOf(note.release()) + sumOf(note.singingSkill());
        countVibrato(note.vibrato(), contents);
    }
}

void countLanes(plx::MidiPart part, Contents& contents)
{
    for (const plx::MidiController lane : part.midiControllers()) {
        ++contents.lanes;
        for (const plx::MidiEvent event : lane.events()) {
            ++contents.events;
            contents.values += millionths * (std::int64_t{event.pos()} + event.value());
        }
    }
}

Contents contentsOf(plx::MidiPart part)
{
    Contents contents;
    contents.aiLanguages = part.aiLangIDSize();
    countAudioEffects(part, contents);
    for (const plx::Effect effect : part.midiEffects()) {
        ++contents.midiEffects;
        contents.parameters += effect.numParameters();
    }
    countNotes(part, contents);
    countLanes(part, contents);
    return contents;
}

std::optional<Contents> readPart(plx::Clip clip)
{
    if (!clip.readPart()) {
        return std::nullopt;
    }
    if (const plx::MidiPart part = clip.midiPart()) {
        return contentsOf(part);
    }
    Contents contents;
    countAudioEffects(clip.audioPart(), contents);
    return contents;
}

std::size_t countTags(plx::Filter filter)
{
    return filter.numGenres() + filter.numLanguages() + filter.numSingerGroups() +
           filter.numSingerIDs() + filter.numTypes() + filter.numVendors();
}

} // namespace

Library::Library(plx::Manager manager)
{
    for (const plx::Clip clip : manager.systemClips()) {
        add(clip, systemFiles);
    }
    for (const plx::Clip clip : manager.userClips()) {
        add(clip, userFiles);
    }
}

void Library::add(plx::Clip clip, std::unordered_map<std::string, std::string>& files)
{
    const std::string path = keyOf(plx::toUtf8(clip.path()));
    clips.emplace(path, clip);
    files.emplace(plx::toUtf8(clip.id()), path);
}

std::optional<LibraryClip> Library::find(std::string_view path) const
{
    const auto place = clips.find(keyOf(path));
    if (place == clips.end()) {
        return std::nullopt;
    }
    const plx::Clip clip = place->second;
    LibraryClip result{
        plx::toUtf8(clip.id()), plx::toUtf8(clip.name()), countTags(clip.filter()), {}};
    result.contents = readPart(clip);
    return result;
}

std::string Library::fileWithID(const std::string& id, bool isUserClip) const
{
    const auto system = systemFiles.find(id);
    if (system != systemFiles.end()) {
        return system->second;
    }
    const auto user = userFiles.find(id);
    return isUserClip && user != userFiles.end() ? user->second : std::string();
}

} // namespace plxclip::check
