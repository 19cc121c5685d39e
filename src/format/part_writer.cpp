#include "format/part_writer.h"

#include "format/keys.h"
#include "format/row_writer.h"

namespace Korvel::CANTORIS::PLX::format {

namespace {

class PartWriter : public RowWriter<PartWriter> {
public:
    explicit PartWriter(Output& out) : RowWriter(out) {}

    bool document(PartBase& part)
    {
        out().openElement();
        rows<keys::DataDocument>(part);
        return out().close();
    }

private:
    friend RowWriter;

    template <class Of, class Source>
    void write(As<Of>, Source& source)
    {
        rows<Of>(source);
    }

    // --- Parts: of the rows of a data document, only the one for the part's type is written.

    void write(As<keys::FilterTable>, PartBase&) {}

    // If the path has no file name, nothing is written.
    void write(As<keys::AudioPartTable>, PartBase& part)
    {
        const MutableAudioPart* const audio = part.asMutableAudioPart();
        if (audio != nullptr && !keys::waveFileName(*audio).empty()) {
            rows<keys::AudioPartTable>(*audio);
        }
    }

    template <std::uint32_t type>
    void write(As<keys::MidiPartTable<type>>, PartBase& part)
    {
        const MutableMidiPart* const midi = part.asMutableMidiPart();
        if (midi != nullptr && midi->type() == type) {
            hasAiVoice_ = type == KRT_PLX_PART_MIDI_AI;
            rows<keys::MidiPartTable<type>>(*midi);
        }
    }

    void write(As<keys::Voice>, const MutableMidiPart& part)
    {
        if (!isNullOrEmpty(part.voiceBankID()) && part.langID() != KRT_PLX_NO_LANGUAGE) {
            rows<keys::Voice>(part);
        }
    }

    void elements(As<keys::AiLanguage> as, const MutableMidiPart& part)
    {
        for (std::uint64_t index = 0; index < part.aiLangIDSize(); ++index) {
            const std::uint32_t language = part.aiLangIDByIndex(index);
            object(as, language);
        }
    }

    // --- Effects

    template <class Part>
    void elements(As<keys::AudioEffectTable> as, const Part& part)
    {
        for (std::uint64_t index = 0; index < part.numAudioEffects(); ++index) {
            object(as, *part.audioEffect(index));
        }
    }

    void elements(As<keys::MidiEffectTable> as, const MutableMidiPart& part)
    {
        for (std::uint64_t index = 0; index < part.numMidiEffects(); ++index) {
            object(as, *part.midiEffect(index));
        }
    }

    // A parameter that was never given a value is not written.
    template <keys::Id effect>
    void elements(As<keys::Parameter<effect>> as, const MutableEffect& owner)
    {
        for (std::uint64_t index = 0; index < owner.numParameters(); ++index) {
            const EffectParameterBase& parameter = *owner.parameter(index);
            if (parameter.type() != KRT_PLX_VALUE_UNSET) {
                object(as, parameter);
            }
        }
    }

    static void value(Output& out, const EffectParameterBase& parameter)
    {
        switch (parameter.type()) {
        case KRT_PLX_VALUE_INT32:
            out.integer(parameter.valueInt32());
            break;
        case KRT_PLX_VALUE_FLOAT:
            out.number(parameter.valueFloat());
            break;
        default:
            out.text(parameter.valueString());
            break;
        }
    }

    // --- Controllers

    // A lane without events is not written.
    void elements(As<keys::ControllerTable> as, const MutableMidiPart& part)
    {
        for (std::uint32_t type = 0; type < KRT_PLX_CONTROLLER_NONE; ++type) {
            const MutableMidiController* const lane = part.midiController(type);
            if (lane != nullptr && lane->numEvents() > 0) {
                object(as, *lane);
            }
        }
    }

    void elements(As<keys::Event> as, const MutableMidiController& lane)
    {
        for (std::uint64_t index = 0; index < lane.numEvents(); ++index) {
            const MidiEventBase& event = *lane.event(index);
            const CurvePoint point{event.pos(), event.value()};
            object(as, point);
        }
    }

    // --- Notes

    void elements(As<keys::NoteTable> as, const MutableMidiPart& part)
    {
        for (std::uint64_t index = 0; index < part.numNotes(); ++index) {
            object(as, *part.note(index));
        }
    }

    // Only AI voices have these values; for a voice bank they are all written as neutral, whatever
    // the note contains.
    void write(As<keys::AiExpressionTable>, MutableNote& note)
    {
        if (hasAiVoice_) {
            rows<keys::AiExpressionTable>(note);
            return;
        }
        for (const keys::Row& row : keys::rows<keys::AiExpressionTable>) {
            out().member(row.key).number(static_cast<float>(row.range.initial));
        }
    }

    void write(As<keys::SingingSkillTable>, MutableNote& note)
    {
        rows<keys::SingingSkillTable>(*note.singingSkill());
    }

    // Only voice banks have these components.
    void write(As<keys::DvqmPair>, MutableNote& note)
    {
        if (!hasAiVoice_) {
            rows<keys::DvqmPair>(note);
        }
    }

    template <keys::Id end>
    void write(As<keys::DvqmTable<end>>, MutableNote& note)
    {
        const DvqmBase& dvqm = *note.dvqm(end == keys::Id::attack);
        if (!isNullOrEmpty(dvqm.compID()) && dvqm.numLevelNames() > 0) {
            rows<keys::DvqmTable<end>>(dvqm);
        }
    }

    void write(As<keys::VibratoTable>, MutableNote& note)
    {
        rows<keys::VibratoTable>(*note.vibrato());
    }

    void elements(As<keys::Rate> as, const MutableVibrato& vibrato)
    {
        points(as, vibrato, KRT_PLX_VIBRATO_RATE);
    }

    void elements(As<keys::Depth> as, const MutableVibrato& vibrato)
    {
        points(as, vibrato, KRT_PLX_VIBRATO_DEPTH);
    }

    template <class Of>
    void points(As<Of> as, const MutableVibrato& vibrato, std::uint32_t type)
    {
        const auto size = static_cast<std::uint64_t>(vibrato.numParameters(type));
        for (std::uint64_t index = 0; index < size; ++index) {
            const VibratoParameterBase& parameter = *vibrato.parameter(type, index);
            const CurvePoint point{parameter.pos(), static_cast<std::int32_t>(parameter.value())};
            object(as, point);
        }
    }

    bool hasAiVoice_ = false;
};

} // namespace

bool writePart(Output& out, PartBase& part)
{
    return PartWriter(out).document(part);
}

} // namespace Korvel::CANTORIS::PLX::format
