#pragma once

#include "reference/tree.h"
#include "model/effect_impl.h"

namespace Korvel::CANTORIS::PLX::reference {

// Appends the effects of an array; null, or a value that is no array, holds none.
void readEffects(const Value* array, PartBase& part, EffectList<AudioEffectImpl>& effects);
void readEffects(const Value* array, PartBase& part, EffectList<MidiEffectImpl>& effects);

} // namespace Korvel::CANTORIS::PLX::reference
