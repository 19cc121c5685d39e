#include "manager/clip_impl.h"

#include <utility>

#include "format/load.h"

namespace Korvel::CANTORIS::PLX {

void ClipImpl::fill(ClipProperties&& properties, std::unique_ptr<PartBase> part)
{
    base() = std::move(static_cast<ClipBaseProperties&>(properties));
    id_ = std::move(properties.id);
    name_ = std::move(properties.name);
    filter_.tags() = std::move(properties.filter);
    partType_ = properties.partType;
    part_ = std::move(part);
}

void ClipImpl::exchange(EditableProperties& properties) noexcept
{
    name_.swap(properties.name);
    std::swap(base().partKey, properties.partKey);
    std::swap(base().partTempo, properties.partTempo);
    filter_.tags().exchange(Tag::type, properties.types);
    filter_.tags().exchange(Tag::genre, properties.genres);
}

std::uint32_t ClipImpl::partType() const noexcept
{
    return part_ == nullptr ? partType_ : part_->type();
}

// If the part cannot be read, the loaded one stays, and so do the host's handles to its objects.
bool ClipImpl::readPart()
{
    auto part = format::Loader().loadPart(filePath(), this);
    if (part == nullptr) {
        return false;
    }
    part_ = std::move(part);
    return true;
}

AudioPart* ClipImpl::audioPart() const noexcept
{
    return part_ == nullptr ? nullptr : part_->asAudioPart();
}

bool ClipImpl::hasAudioPart(const PartBase* element) const noexcept
{
    return element != nullptr && element == audioPart();
}

MidiPart* ClipImpl::midiPart() const noexcept
{
    return part_ == nullptr ? nullptr : part_->asMidiPart();
}

bool ClipImpl::hasMidiPart(const PartBase* element) const noexcept
{
    return element != nullptr && element == midiPart();
}

} // namespace Korvel::CANTORIS::PLX
