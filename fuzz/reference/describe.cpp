#include "reference/describe.h"

#include <bit>
#include <cstdint>

#include "clip/tag_lists.h"
#include "model/codes.h"
#include "model/controller.h"
#include "model/effect.h"
#include "model/expression.h"
#include "model/note.h"

namespace Korvel::CANTORIS::PLX::reference {

namespace {

class Description {
public:
    void number(std::int64_t value)
    {
        text_ += std::to_string(value);
        text_ += ' ';
    }

    // By its bits: a zero has a sign.
    void real(float value) { number(std::bit_cast<std::uint32_t>(value)); }

    void text(StringView value)
    {
        text_ += '"';
        for (const Char unit : value) {
            text_ += std::to_string(static_cast<unsigned>(unit));
            text_ += ',';
        }
        text_ += "\" ";
    }

    void part(PartBase& part)
    {
        name("part");
        number(part.type());
        if (AudioPart* const audio = part.asAudioPart()) {
            text(audio->wavFilePath());
            effects(audio->numAudioEffects(), [audio](auto index) { return audio->audioEffect(index); });
        }
        if (MidiPart* const midi = part.asMidiPart()) {
            midiPart(*midi);
        }
    }

    void properties(const ClipProperties& properties)
    {
        text(properties.id);
        text(properties.name);
        text(properties.vendorName);
        number(properties.partType);
        number(properties.partKey);
        number(properties.partTempo);
        for (std::size_t tag = 0; tag < textTagCount; ++tag) {
            name("tags");
            for (const StringView view : properties.filter.texts(static_cast<Tag>(tag)).views()) {
                text(view);
            }
        }
        name("languages");
        for (const std::int32_t language : properties.filter.languages()) {
            number(language);
        }
    }

    std::string take() { return std::move(text_); }

private:
    void name(const char* value)
    {
        text_ += '\n';
        text_ += value;
        text_ += ' ';
    }

    void midiPart(MidiPart& part)
    {
        number(part.duration());
        text(part.styleName());
        text(part.stylePresetID());
        text(part.voiceBankID());
        text(part.aiVoiceBankID());
        number(part.langID());
        for (std::uint64_t index = 0; index < part.aiLangIDSize(); ++index) {
            number(part.aiLangIDByIndex(index));
        }
        effects(part.numAudioEffects(), [&part](auto index) { return part.audioEffect(index); });
        effects(part.numMidiEffects(), [&part](auto index) { return part.midiEffect(index); });
        for (std::uint64_t index = 0; index < part.numNotes(); ++index) {
            note(*part.note(index));
        }
        for (std::uint32_t type = 0; type < KRT_PLX_CONTROLLER_NONE; ++type) {
            lane(part.midiController(type));
        }
    }

    template <class At>
    void effects(std::uint64_t count, At at)
    {
        name("effects");
        number(static_cast<std::int64_t>(count));
        for (std::uint64_t index = 0; index < count; ++index) {
            effect(*at(index));
        }
    }

    void effect(Effect& effect)
    {
        name("effect");
        number(effect.type());
        text(effect.id());
        for (std::uint64_t index = 0; index < effect.numParameters(); ++index) {
            EffectParameter& parameter = *effect.parameter(index);
            text(parameter.name());
            number(parameter.type());
            number(parameter.valueInt32());
            real(parameter.valueFloat());
            text(parameter.valueString());
        }
    }

    void lane(MidiController* lane)
    {
        if (lane == nullptr) {
            return;
        }
        name("lane");
        number(lane->type());
        for (std::uint64_t index = 0; index < lane->numEvents(); ++index) {
            number(lane->event(index)->pos());
            number(lane->event(index)->value());
        }
    }

    void note(Note& note)
    {
        name("note");
        text(note.lyric());
        text(note.phoneme());
        for (const std::int64_t value :
             {std::int64_t{note.langID()}, std::int64_t{note.isProtected()},
              std::int64_t{note.pos()}, std::int64_t{note.duration()}, std::int64_t{note.number()},
              std::int64_t{note.velocity()}, std::int64_t{note.accent()},
              std::int64_t{note.bendDepth()}, std::int64_t{note.bendLength()},
              std::int64_t{note.decay()}, std::int64_t{note.fallPort()},
              std::int64_t{note.risePort()}, std::int64_t{note.opening()}}) {
            number(value);
        }
        for (const float value :
             {note.pitchFine(), note.pitchDriftStart(), note.pitchDriftEnd(),
              note.pitchScalingCenter(), note.pitchScalingOrigin(), note.pitchTransitionStart(),
              note.pitchTransitionEnd(), note.amplitudeWhole(), note.amplitudeStart(),
              note.amplitudeEnd(), note.formantWhole(), note.formantStart(), note.formantEnd()}) {
            real(value);
        }
        dvqm(*note.dvqm(true));
        dvqm(*note.dvqm(false));
        number(note.singingSkill()->duration());
        number(note.singingSkill()->preWeight());
        number(note.singingSkill()->postWeight());
        vibrato(*note.vibrato());
    }

    void dvqm(Dvqm& dvqm)
    {
        name("dvqm");
        text(dvqm.compID());
        for (std::uint64_t index = 0; index < dvqm.numLevelNames(); ++index) {
            text(dvqm.levelName(index));
        }
        number(dvqm.isProtected() ? 1 : 0);
        number(dvqm.speed());
        real(dvqm.topFactor());
    }

    void vibrato(Vibrato& vibrato)
    {
        name("vibrato");
        number(vibrato.type());
        number(vibrato.duration());
        for (std::uint32_t type = 0; type < vibratoCurves; ++type) {
            name("curve");
            for (std::int64_t index = 0; index < vibrato.numParameters(type); ++index) {
                VibratoParameter& point =
                    *vibrato.parameter(type, static_cast<std::uint64_t>(index));
                number(point.type());
                number(point.pos());
                number(point.value());
            }
        }
    }

    std::string text_;
};

} // namespace

std::string describe(const ClipProperties& properties)
{
    Description description;
    description.properties(properties);
    return description.take();
}

std::string describe(PartBase* part)
{
    Description description;
    if (part != nullptr) {
        description.part(*part);
    }
    return description.take();
}

} // namespace Korvel::CANTORIS::PLX::reference
