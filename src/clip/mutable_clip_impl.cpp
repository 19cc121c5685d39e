#include "clip/mutable_clip_impl.h"

#include "model/audio_part_impl.h"
#include "model/midi_part_impl.h"

namespace Korvel::CANTORIS::PLX {

namespace {

Result checkVoice(const MutableMidiPart& part)
{
    if (isNullOrEmpty(part.voiceBankID())) {
        return Result::noVoiceBank;
    }
    return field::language.accepts(part.langID()) ? Result::success : Result::badLanguage;
}

Result checkAiVoice(const MutableMidiPart& part)
{
    if (isNullOrEmpty(part.aiVoiceBankID())) {
        return Result::noAiVoiceBank;
    }
    if (part.aiLangIDSize() == 0) {
        return Result::noAiLanguage;
    }
    for (std::uint64_t index = 0; index < part.aiLangIDSize(); ++index) {
        if (!field::language.accepts(part.aiLangIDByIndex(index))) {
            return Result::badAiLanguage;
        }
    }
    return Result::success;
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
    return part_ == nullptr ? part_type::none : part_->type();
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
    part->setType(part_type::audio);
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
    return createMidi(part_type::midiAi);
}

MutableMidiPart* MutableClipImpl::createMidiPart()
{
    return createMidi(part_type::midi);
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
    Result result = check(name);
    UserClip* saved = nullptr;
    if (result == Result::success) {
        saved = owner_.write(*this, name, formatted, result);
    }
    if (errorCode != nullptr) {
        *errorCode = code(result);
    }
    return saved;
}

Result MutableClipImpl::check(const Char* name) const
{
    if (name == nullptr) {
        return Result::nullArgument;
    }
    if (!owner_.owns(*this)) {
        return Result::unknownClip;
    }
    return *name == Char{} ? Result::emptyName : checkPart();
}

Result MutableClipImpl::checkPart() const
{
    switch (partType()) {
    case part_type::audio:
        return Result::success;
    case part_type::midi:
        return midiPart() == nullptr ? Result::noUsablePart : checkVoice(*midiPart());
    case part_type::midiAi:
        return midiPart() == nullptr ? Result::noUsablePart : checkAiVoice(*midiPart());
    default:
        return Result::noUsablePart;
    }
}

} // namespace Korvel::CANTORIS::PLX
