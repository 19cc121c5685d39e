#include "format/part_writer.h"

#include "format/fields_writer.h"
#include "format/note_writer.h"
#include "fs/fs.h"
#include "model/controller.h"
#include "model/effect.h"

namespace Korvel::CANTORIS::PLX::format {

namespace {

void writeValue(Output& out, const EffectParameterBase& parameter)
{
    switch (static_cast<ValueType>(parameter.type())) {
    case ValueType::int32:
        out.integer(parameter.valueInt32());
        break;
    case ValueType::float32:
        out.number(parameter.valueFloat());
        break;
    default:
        out.text(parameter.valueString());
        break;
    }
}

bool hasValue(const EffectParameterBase& parameter)
{
    return static_cast<ValueType>(parameter.type()) != ValueType::none;
}

void writeParameter(Output& out, const EffectParameterBase& parameter)
{
    namespace keys = schema::parameter;
    out.beginObject();
    out.key(keys::keys[keys::name]);
    out.text(parameter.name());
    out.key(keys::keys[keys::value]);
    writeValue(out, parameter);
    out.endObject();
}

// Opens the array at the first element that is written, so that an empty one never appears.
class OptionalArray {
public:
    OptionalArray(Output& out, std::string_view key) : out_(out), key_(key) {}

    void beforeElement()
    {
        if (!open_) {
            out_.key(key_);
            out_.beginArray();
            open_ = true;
        }
    }

    void end()
    {
        if (open_) {
            out_.endArray();
        }
    }

private:
    Output& out_;
    std::string_view key_;
    bool open_ = false;
};

// A parameter that was never given a value has nothing to write.
void writeEffect(Output& out, const MutableEffect& effect)
{
    namespace keys = schema::effect;
    out.beginObject();
    out.key(keys::keys[keys::id]);
    out.text(effect.id());
    OptionalArray parameters(out, keys::keys[keys::parameters]);
    for (std::uint64_t index = 0; index < effect.numParameters(); ++index) {
        const EffectParameterBase& parameter = *effect.parameter(index);
        if (hasValue(parameter)) {
            parameters.beforeElement();
            writeParameter(out, parameter);
        }
    }
    parameters.end();
    out.endObject();
}

// `at` gives the element of an index.
template <class At>
void writeEffects(Output& out, std::string_view key, std::uint64_t size, At at)
{
    OptionalArray effects(out, key);
    for (std::uint64_t index = 0; index < size; ++index) {
        effects.beforeElement();
        writeEffect(out, *at(index));
    }
    effects.end();
}

template <class Part>
void writeAudioEffects(Output& out, std::string_view key, const Part& part)
{
    writeEffects(out, key, part.numAudioEffects(),
                 [&part](std::uint64_t index) { return part.audioEffect(index); });
}

bool writeAudioPart(Output& out, const MutableAudioPart& part)
{
    namespace keys = schema::audio_part;
    const StringView fileName = fs::fileName(part.wavFilePath());
    out.beginObject();
    out.key(keys::keys[keys::wavFileName]);
    out.text(fileName);
    writeAudioEffects(out, keys::keys[keys::audioEffects], part);
    out.endObject();
    return !fileName.empty();
}

void writeOptionalText(Output& out, std::string_view key, const Char* text)
{
    if (!isNullOrEmpty(text)) {
        out.key(key);
        out.text(text);
    }
}

void writeVoice(Output& out, const MidiPartBase& part)
{
    namespace keys = schema::voice;
    if (isNullOrEmpty(part.voiceBankID()) || part.langID() == noLanguage) {
        return;
    }
    out.key(schema::midi_part::keys[schema::midi_part::voice]);
    out.beginObject();
    out.key(keys::keys[keys::compID]);
    out.text(part.voiceBankID());
    out.key(keys::keys[keys::langID]);
    out.integer(part.langID());
    out.endObject();
}

void writeAiVoice(Output& out, const MidiPartBase& part)
{
    namespace keys = schema::ai_voice;
    out.key(schema::midi_part::keys[schema::midi_part::aiVoice]);
    out.beginObject();
    out.key(keys::keys[keys::compID]);
    out.text(part.aiVoiceBankID());
    OptionalArray languages(out, keys::keys[keys::langIDs]);
    for (std::uint64_t index = 0; index < part.aiLangIDSize(); ++index) {
        languages.beforeElement();
        out.beginObject();
        out.key(keys::language[0]);
        out.integer(part.aiLangIDByIndex(index));
        out.endObject();
    }
    languages.end();
    out.endObject();
}

void writeNotes(Output& out, const MutableMidiPart& part)
{
    OptionalArray notes(out, schema::midi_part::keys[schema::midi_part::notes]);
    for (std::uint64_t index = 0; index < part.numNotes(); ++index) {
        notes.beforeElement();
        writeNote(out, *part.note(index), part.type());
    }
    notes.end();
}

void writeLane(Output& out, const MutableMidiController& lane)
{
    namespace keys = schema::controller;
    out.beginObject();
    out.key(keys::keys[keys::name]);
    out.ascii(PLX::controller::type(lane.type()).name);
    out.key(keys::keys[keys::events]);
    out.beginArray();
    for (std::uint64_t index = 0; index < lane.numEvents(); ++index) {
        const MidiEventBase& event = *lane.event(index);
        writePoint(out, event.pos(), event.value());
    }
    out.endArray();
    out.endObject();
}

// A lane without events has nothing to write.
void writeLanes(Output& out, const MutableMidiPart& part)
{
    OptionalArray lanes(out, schema::midi_part::keys[schema::midi_part::controllers]);
    for (std::uint32_t type = 0; type < PLX::controller::unknown; ++type) {
        const MutableMidiController* const lane = part.midiController(type);
        if (lane != nullptr && lane->numEvents() > 0) {
            lanes.beforeElement();
            writeLane(out, *lane);
        }
    }
    lanes.end();
}

void writeMidiPart(Output& out, const MutableMidiPart& part)
{
    namespace keys = schema::midi_part;
    out.beginObject();
    out.key(keys::keys[keys::duration]);
    out.integer(part.duration());
    writeOptionalText(out, keys::keys[keys::styleName], part.styleName());
    writeOptionalText(out, keys::keys[keys::stylePresetID], part.stylePresetID());
    if (part.type() == part_type::midi) {
        writeVoice(out, part);
    } else {
        writeAiVoice(out, part);
    }
    writeAudioEffects(out, keys::keys[keys::audioEffects], part);
    writeEffects(out, keys::keys[keys::midiEffects], part.numMidiEffects(),
                 [&part](std::uint64_t index) { return part.midiEffect(index); });
    writeNotes(out, part);
    writeLanes(out, part);
    out.endObject();
}

} // namespace

bool writePart(Output& out, PartBase& part)
{
    if (const MutableAudioPart* const audio = part.asMutableAudioPart()) {
        return writeAudioPart(out, *audio);
    }
    if (const MutableMidiPart* const midi = part.asMutableMidiPart()) {
        writeMidiPart(out, *midi);
        return true;
    }
    return false;
}

} // namespace Korvel::CANTORIS::PLX::format
