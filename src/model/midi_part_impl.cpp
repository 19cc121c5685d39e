#include "model/midi_part_impl.h"

namespace Korvel::CANTORIS::PLX {

std::uint32_t MidiPartBaseImpl::aiLangIDByIndex(std::uint64_t index) const noexcept
{
    return index < aiLangIDs_.size() ? aiLangIDs_[static_cast<std::size_t>(index)]
                                     : KRT_PLX_NO_LANGUAGE;
}

bool MidiPartBaseImpl::assignVoiceBankID(StringView text)
{
    if (text.size() != voiceBankIdLength) {
        return false;
    }
    voiceBankID_ = String(text);
    return true;
}

bool MidiPartBaseImpl::assignAiVoiceBankID(StringView text)
{
    if (!text.empty() && text.size() != voiceBankIdLength) {
        return false;
    }
    aiVoiceBankID_ = String(text);
    return true;
}

bool MidiPartBaseImpl::appendAiLangID(std::uint32_t value)
{
    if (!field::language.accepts(value)) {
        return false;
    }
    aiLangIDs_.push_back(static_cast<std::uint8_t>(value));
    return true;
}

bool MutableMidiPartImpl::setVoiceBankID(const Char* text)
{
    return text != nullptr && assignVoiceBankID(text);
}

bool MutableMidiPartImpl::setAiVoiceBankID(const Char* text)
{
    return text != nullptr && assignAiVoiceBankID(text);
}

MutableAudioEffect* MutableMidiPartImpl::insertAudioEffect(std::uint64_t index, const Char* id)
{
    return insertAudioEffectAt(index, id);
}

MutableMidiEffect* MutableMidiPartImpl::insertMidiEffect(std::uint64_t index, const Char* id)
{
    return insertEffect(midiEffects_, *this, index, id);
}

MutableNote* MutableMidiPartImpl::insertNote(std::int32_t pos, std::int32_t duration,
                                             const Char* lyric, const Char* phoneme,
                                             std::uint32_t langID)
{
    auto note = std::make_unique<MutableNoteImpl>(*this, notes_);
    const bool accepted = note->assignPos(pos) && note->assignDuration(duration) &&
                          note->setLyric(lyric) && note->setPhoneme(phoneme) &&
                          note->assignLangID(langID);
    if (!accepted) {
        return nullptr;
    }
    // A new note has the lowest number, so it goes before all others at its position.
    return notes_.insert(firstNotBefore(notes_, pos), std::move(note));
}

MutableMidiController* MutableMidiPartImpl::addMidiController(std::uint32_t type)
{
    if (type >= KRT_PLX_CONTROLLER_NONE || laneOfType(lanes_, type) != nullptr) {
        return nullptr;
    }
    return insertLane(lanes_, std::make_unique<MutableMidiControllerImpl>(*this, lanes_, type));
}

} // namespace Korvel::CANTORIS::PLX
