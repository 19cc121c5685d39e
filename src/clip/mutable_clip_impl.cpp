#include "clip/mutable_clip_impl.h"

#include "model/audio_part_impl.h"
#include "model/midi_part_impl.h"

namespace Korvel::CANTORIS::PLX {

namespace {

KRT_PLX_Result checkVoice(const MutableMidiPart& part)
{
    if (isNullOrEmpty(part.voiceBankID())) {
        return KRT_PLX_RESULT_NO_VOICE_BANK;
    }
    return field::language.accepts(part.langID()) ? KRT_PLX_RESULT_OK : KRT_PLX_RESULT_BAD_LANGUAGE;
}

KRT_PLX_Result checkAiVoice(const MutableMidiPart& part)
{
    if (isNullOrEmpty(part.aiVoiceBankID())) {
        return KRT_PLX_RESULT_NO_AI_VOICE_BANK;
    }
    if (part.aiLangIDSize() == 0) {
        return KRT_PLX_RESULT_NO_AI_LANGUAGE;
    }
    for (std::uint64_t index = 0; index < part.aiLangIDSize(); ++index) {
        if (!field::language.accepts(part.aiLangIDByIndex(index))) {
            return KRT_PLX_RESULT_BAD_AI_LANGUAGE;
        }
    }
    return KRT_PLX_RESULT_OK;
}

// Compares addresses. Null equals null: it is "the part" of a clip that has no part of that kind.
bool isSame(const PartBase* own, const PartBase* element)
{
    return own == element;
}

} // namespace

MutableClipImpl::MutableClipImpl(MutableClipOwner& owner)
    : ClipBaseImpl(owner.manager()), owner_(owner)
{
}

std::uint32_t MutableClipImpl::partType() const noexcept
{
    return part_ == nullptr ? std::uint32_t{KRT_PLX_PART_NONE} : part_->type();
}

void MutableClipImpl::destroy()
{
    owner_.discard(*this);
}

void MutableClipImpl::setVendorName(const Char* text)
{
    base().vendorName = String(viewOrEmpty(text)); // a copy first: the text may be our own
}

MutableAudioPart* MutableClipImpl::createAudioPart()
{
    auto part = std::make_unique<MutableAudioPartImpl>(this);
    part->setType(KRT_PLX_PART_AUDIO);
    MutableAudioPart* const created = part.get();
    part_ = std::move(part);
    return created;
}

MutableMidiPart* MutableClipImpl::createMidi(std::uint32_t type)
{
    auto part = std::make_unique<MutableMidiPartImpl>(this);
    part->setType(type);
    MutableMidiPart* const created = part.get();
    part_ = std::move(part);
    return created;
}

MutableMidiPart* MutableClipImpl::createMidiAiPart()
{
    return createMidi(KRT_PLX_PART_MIDI_AI);
}

MutableMidiPart* MutableClipImpl::createMidiPart()
{
    return createMidi(KRT_PLX_PART_MIDI);
}

MutableAudioPart* MutableClipImpl::audioPart() const noexcept
{
    return part_ == nullptr ? nullptr : part_->asMutableAudioPart();
}

MutableMidiPart* MutableClipImpl::midiPart() const noexcept
{
    return part_ == nullptr ? nullptr : part_->asMutableMidiPart();
}

bool MutableClipImpl::hasAudioPart(const PartBase* element) const noexcept
{
    return isSame(audioPart(), element);
}

bool MutableClipImpl::hasMidiPart(const PartBase* element) const noexcept
{
    return isSame(midiPart(), element);
}

UserClip* MutableClipImpl::save(const Char* name, bool formatted, std::uint32_t* errorCode)
{
    KRT_PLX_Result result = check(name);
    UserClip* saved = nullptr;
    if (result == KRT_PLX_RESULT_OK) {
        saved = owner_.write(*this, name, formatted, result);
    }
    if (errorCode != nullptr) {
        *errorCode = result;
    }
    return saved;
}

KRT_PLX_Result MutableClipImpl::check(const Char* name) const
{
    if (name == nullptr) {
        return KRT_PLX_RESULT_NULL_ARGUMENT;
    }
    if (!owner_.owns(*this)) {
        return KRT_PLX_RESULT_UNKNOWN_CLIP;
    }
    return *name == Char{} ? KRT_PLX_RESULT_EMPTY_NAME : checkPart();
}

KRT_PLX_Result MutableClipImpl::checkPart() const
{
    switch (partType()) {
    case KRT_PLX_PART_AUDIO:
        return KRT_PLX_RESULT_OK;
    case KRT_PLX_PART_MIDI:
        return midiPart() == nullptr ? KRT_PLX_RESULT_NO_PART : checkVoice(*midiPart());
    case KRT_PLX_PART_MIDI_AI:
        return midiPart() == nullptr ? KRT_PLX_RESULT_NO_PART : checkAiVoice(*midiPart());
    default:
        return KRT_PLX_RESULT_NO_PART;
    }
}

} // namespace Korvel::CANTORIS::PLX
