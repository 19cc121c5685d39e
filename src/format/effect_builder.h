#pragma once

#include <memory>

#include "format/taking.h"
#include "model/effect_impl.h"

namespace Korvel::CANTORIS::PLX::format {

// Makes the effects of one list. The ID may come after the parameters, and a parameter's name after
// its value, so both are stored when their object ends.
template <class Of, class EffectImpl>
class EffectBuilder {
public:
    EffectBuilder(const Trail& trail, Taker& taker) : trail_(trail), taker_(taker) {}

    void begin(PartBase& part) { effect_ = std::make_unique<EffectImpl>(part, StringView()); }
    // Appends the effect unless it is invalid or the list has its ID already.
    bool end(EffectList<EffectImpl>& effects);

    bool endParameter();

private:
    const Trail& trail_;
    Taker& taker_;
    std::unique_ptr<EffectImpl> effect_;
};

using AudioEffectBuilder = EffectBuilder<keys::AudioEffectTable, AudioEffectImpl>;
using MidiEffectBuilder = EffectBuilder<keys::MidiEffectTable, MidiEffectImpl>;

} // namespace Korvel::CANTORIS::PLX::format
