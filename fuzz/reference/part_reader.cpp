#include "reference/part_reader.h"

#include "clip/clip_files.h"
#include "reference/controller_reader.h"
#include "reference/effect_reader.h"
#include "reference/note_reader.h"
#include "model/audio_part_impl.h"
#include "model/midi_part_impl.h"

namespace Korvel::CANTORIS::PLX::reference {

namespace {

// No file has a NUL in its name.
std::optional<String> readFileName(const Value* value)
{
    const auto name = asWholeUtf8(value);
    const bool canBe = name && !name->empty() && name->find('\0') == std::string_view::npos;
    return canBe ? asText(value) : std::nullopt;
}

std::unique_ptr<PartBase> readAudioPart(const Value& object, const fs::Path& clipDirectory,
                                        ClipBase* clip)
{
    namespace keys = schema::audio_part;
    const Members members(object, keys::keys);
    const auto fileName = readFileName(members[keys::wavFileName]);
    if (!fileName) {
        return nullptr;
    }
    String path = wavePath(clipDirectory.text, *fileName);
    if (!fs::isPlainFile({path, clipDirectory.givenLength})) {
        return nullptr;
    }
    auto part = std::make_unique<AudioPartImpl>(clip);
    part->setType(KRT_PLX_PART_AUDIO);
    part->assignWavFilePath(std::move(path));
    readEffects(members[keys::audioEffects], *part, part->audioEffects());
    return part;
}

bool readVoice(const Value* value, MidiPartBaseImpl& part)
{
    if (asObject(value) == nullptr) {
        return false;
    }
    const Members members(*value, schema::voice::keys);
    const auto compID = asText(members[schema::voice::compID]);
    const auto language = asInteger(members[schema::voice::langID]);
    return compID && part.assignVoiceBankID(*compID) && language &&
           part.assignLangID(static_cast<std::uint32_t>(*language));
}

void readAiLanguages(const Value* array, MidiPartBaseImpl& part)
{
    if (asArray(array) == nullptr) {
        return;
    }
    for (const auto& element : array->GetArray()) {
        if (!element.IsObject()) {
            continue;
        }
        const Members members(element, schema::ai_voice::language);
        if (const auto language = asInteger(members[0])) {
            part.appendAiLangID(static_cast<std::uint32_t>(*language));
        }
    }
}

bool readAiVoice(const Value* value, MidiPartBaseImpl& part)
{
    if (asObject(value) == nullptr) {
        return false;
    }
    const Members members(*value, schema::ai_voice::keys);
    const auto compID = asText(members[schema::ai_voice::compID]);
    if (!compID || !part.assignAiVoiceBankID(*compID)) {
        return false;
    }
    readAiLanguages(members[schema::ai_voice::langIDs], part);
    return true;
}

std::unique_ptr<PartBase> readMidiPart(const Value& object, std::uint32_t type, ClipBase* clip)
{
    namespace keys = schema::midi_part;
    const Members members(object, keys::keys);
    auto part = std::make_unique<MidiPartImpl>(clip);
    part->setType(type);
    const auto duration = asInteger(members[keys::duration]);
    if (!duration || !part->assignDuration(*duration)) {
        return nullptr;
    }
    if (const auto name = asText(members[keys::styleName])) {
        part->assignStyleName(*name);
    }
    if (const auto id = asText(members[keys::stylePresetID])) {
        part->assignStylePresetID(*id);
    }
    const bool hasVoice = type == KRT_PLX_PART_MIDI ? readVoice(members[keys::voice], *part)
                                                  : readAiVoice(members[keys::aiVoice], *part);
    if (!hasVoice) {
        return nullptr;
    }
    readEffects(members[keys::audioEffects], *part, part->audioEffects());
    readEffects(members[keys::midiEffects], *part, part->midiEffects());
    readNotes(members[keys::notes], *part, part->notes());
    readControllers(members[keys::controllers], *part, part->lanes());
    return part;
}

} // namespace

std::unique_ptr<PartBase> readPart(const DataMembers& members, const fs::Path& clipDirectory,
                                   ClipBase* clip)
{
    for (const auto& part : schema::data::parts) {
        const Value* const value = members[part.key];
        if (value == nullptr) {
            continue;
        }
        if (!value->IsObject()) {
            return nullptr;
        }
        return part_type::isMidi(part.type) ? readMidiPart(*value, part.type, clip)
                                            : readAudioPart(*value, clipDirectory, clip);
    }
    return nullptr;
}

} // namespace Korvel::CANTORIS::PLX::reference
