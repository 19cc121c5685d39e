#include "building.h"

#include "paths.h"

namespace plxclip {

namespace plx = korvel::plx;

namespace {

void buildTags(plx::MutableFilter filter, const Tags& tags)
{
    for (const std::string& type : tags.types) {
        filter.addType(plx::fromUtf8(type));
    }
    for (const std::string& genre : tags.genres) {
        filter.addGenre(plx::fromUtf8(genre));
    }
    for (const std::int32_t language : tags.languages) {
        filter.addLanguage(language);
    }
    for (const std::string& group : tags.singerGroups) {
        filter.addSingerGroup(plx::fromUtf8(group));
    }
    for (const std::string& singer : tags.singerIDs) {
        filter.addSingerID(plx::fromUtf8(singer));
    }
}

void buildDvqm(plx::MutableDvqm target, const Dvqm& dvqm)
{
    target.setCompID(plx::fromUtf8(dvqm.component));
    for (const std::string& name : dvqm.levelNames) {
        target.addLevelName(plx::fromUtf8(name));
    }
    target.protect(dvqm.isProtected);
    target.setSpeed(dvqm.speed);
    target.setTopFactor(dvqm.topFactor);
}

void buildVibrato(plx::MutableVibrato target, const Vibrato& vibrato)
{
    target.setType(vibrato.type);
    target.setDuration(vibrato.duration);
    for (const Point& point : vibrato.depths) {
        target.insertParameter(plx::VibratoPointKind::depth, point.pos,
                               static_cast<std::uint32_t>(point.value));
    }
    for (const Point& point : vibrato.rates) {
        target.insertParameter(plx::VibratoPointKind::rate, point.pos,
                               static_cast<std::uint32_t>(point.value));
    }
}

void buildAiValues(plx::MutableNote target, const std::array<float, aiValueCount>& values)
{
    using Setter = bool (plx::MutableNote::*)(float) const noexcept;
    static constexpr std::array<Setter, aiValueCount> setters = {
        &plx::MutableNote::setPitchFine,          &plx::MutableNote::setPitchDriftStart,
        &plx::MutableNote::setPitchDriftEnd,      &plx::MutableNote::setPitchScalingCenter,
        &plx::MutableNote::setPitchScalingOrigin, &plx::MutableNote::setPitchTransitionStart,
        &plx::MutableNote::setPitchTransitionEnd, &plx::MutableNote::setAmplitudeWhole,
        &plx::MutableNote::setAmplitudeStart,     &plx::MutableNote::setAmplitudeEnd,
        &plx::MutableNote::setFormantWhole,       &plx::MutableNote::setFormantStart,
        &plx::MutableNote::setFormantEnd};
    for (std::size_t i = 0; i < aiValueCount; ++i) {
        (target.*setters[i])(values[i]);
    }
}

void buildExpression(plx::MutableNote target, const Note& note)
{
    target.setProtected(note.isProtected);
    target.setNumber(note.number);
    target.setVelocity(note.velocity);
    target.setAccent(note.accent);
    target.setBendDepth(note.bendDepth);
    target.setBendLength(note.bendLength);
    target.setDecay(note.decay);
    target.setOpening(note.opening);
    target.setFallPort(note.fallPort);
    target.setRisePort(note.risePort);
}

// An editable note must have a language: a note without one gets that of its part.
void buildNote(plx::MutableMidiPart part, const Note& note, std::uint32_t partLanguage)
{
    const plx::MutableNote target =
        part.insertNote(note.pos, note.duration, plx::fromUtf8(note.lyric),
                        plx::fromUtf8(note.phoneme), note.language.value_or(partLanguage));
    buildExpression(target, note);
    buildAiValues(target, note.aiValues);
    buildDvqm(target.dvqm(true), note.attack);
    buildDvqm(target.dvqm(false), note.release);
    target.singingSkill().setDuration(note.skill.duration);
    target.singingSkill().setPreWeight(note.skill.preWeight);
    target.singingSkill().setPostWeight(note.skill.postWeight);
    buildVibrato(target.vibrato(), note.vibrato);
}

struct ValueBuilder {
    plx::MutableEffectParameter target;

    void operator()(std::monostate) const {}
    void operator()(std::int32_t value) const { target.setValueInt32(value); }
    void operator()(float value) const { target.setValueFloat(value); }
    void operator()(const std::string& text) const { target.setValueString(plx::fromUtf8(text)); }
};

void buildParameters(plx::MutableEffect target, const Effect& effect)
{
    for (const Parameter& parameter : effect.parameters) {
        std::visit(ValueBuilder{target.addParameter(plx::fromUtf8(parameter.name))},
                   parameter.value);
    }
}

template <typename Part>
void buildAudioEffects(Part part, const std::vector<Effect>& effects)
{
    for (const Effect& effect : effects) {
        buildParameters(part.insertAudioEffect(part.numAudioEffects(), plx::fromUtf8(effect.id)),
                        effect);
    }
}

void buildLane(plx::MutableMidiPart part, const Lane& lane)
{
    const auto target = part.addMidiController(static_cast<plx::ControllerType>(lane.type));
    for (const Point& event : lane.events) {
        target.insertEvent(event.pos, event.value);
    }
}

void buildVoice(plx::MutableMidiPart target, const MidiPart& part)
{
    if (target.type() == plx::PartType::midiAi) {
        target.setAiVoiceBankID(plx::fromUtf8(part.voice));
        for (const std::uint32_t language : part.languages) {
            target.addAiLangID(language);
        }
        return;
    }
    target.setVoiceBankID(plx::fromUtf8(part.voice));
    for (const std::uint32_t language : part.languages) {
        target.setLangID(language);
    }
}

void buildMidiPart(plx::MutableMidiPart target, const MidiPart& part)
{
    buildVoice(target, part);
    target.setDuration(part.duration);
    target.setStyleName(plx::fromUtf8(part.styleName));
    target.setStylePresetID(plx::fromUtf8(part.stylePreset));
    const std::uint32_t language = part.languages.empty() ? 0 : part.languages.front();
    // An inserted note goes before those at the same position, so the last one is inserted first.
    for (auto note = part.notes.rbegin(); note != part.notes.rend(); ++note) {
        buildNote(target, *note, language);
    }
    for (const Lane& lane : part.lanes) {
        buildLane(target, lane);
    }
    for (const Effect& effect : part.midiEffects) {
        buildParameters(target.insertMidiEffect(target.numMidiEffects(), plx::fromUtf8(effect.id)),
                        effect);
    }
    buildAudioEffects(target, part.audioEffects);
}

struct PartBuilder {
    plx::MutableClip clip;
    PartType type;

    void operator()(std::monostate) const {}

    void operator()(const MidiPart& part) const
    {
        buildMidiPart(type == PartType::midiAi ? clip.createMidiAiPart() : clip.createMidiPart(),
                      part);
    }

    void operator()(const AudioPart& part) const
    {
        const plx::MutableAudioPart target = clip.createAudioPart();
        target.setWavFilePath(libraryPath(part.wavePath));
        buildAudioEffects(target, part.audioEffects);
    }
};

} // namespace

void build(plx::MutableClip clip, const Properties& properties, const Part& part)
{
    clip.setVendorName(plx::fromUtf8(properties.vendor));
    clip.setPartKey(properties.key);
    clip.setPartTempo(properties.tempo);
    buildTags(clip.filter(), properties.tags);
    std::visit(PartBuilder{clip, properties.partType}, part);
}

} // namespace plxclip
