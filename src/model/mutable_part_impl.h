#pragma once

#include <cstdint>

#include "model/effect_impl.h"
#include "model/part.h"

namespace Korvel::CANTORIS::PLX {

// The existing effect with that ID, which is not moved, or a new one before the effect at `index`;
// null for a null or empty ID.
template <class EffectImpl>
EffectImpl* insertEffect(EffectList<EffectImpl>& list, PartBase& part, std::uint64_t index,
                         const Char* id)
{
    if (isNullOrEmpty(id)) {
        return nullptr;
    }
    if (EffectImpl* const standing = list.withId(id)) {
        return standing;
    }
    return list.insert(index, std::make_unique<EffectImpl>(part, list, id));
}

// What both editable parts share.
class MutablePartImpl : public virtual PartBase {
public:
    bool isMutable() const noexcept override { return true; }

protected:
    const BlockList<MutableAudioEffectImpl>& audioEffects() const
    {
        return audioEffects_.effects();
    }
    MutableAudioEffect* insertAudioEffectAt(std::uint64_t index, const Char* id)
    {
        return insertEffect(audioEffects_, *this, index, id);
    }

private:
    EffectList<MutableAudioEffectImpl> audioEffects_;
};

} // namespace Korvel::CANTORIS::PLX
