// The interfaces of a part's effects and their parameters.
#pragma once

#include <cstdint>

#include "korvel/plx/effect.h"
#include "model/interface.h"
#include "text.h"

namespace Korvel::CANTORIS::PLX {

class PartBase;
class EffectBase;
class EffectParameter;
class MutableEffectParameter;

class EffectParameterBase : private Interface {
public:
    virtual const Char* name() const noexcept = 0;
    virtual std::uint32_t type() const noexcept = 0;
    virtual std::int32_t valueInt32() const noexcept = 0;
    virtual float valueFloat() const noexcept = 0;
    virtual const Char* valueString() const noexcept = 0;
    virtual ~EffectParameterBase() = default;

    virtual EffectParameter* asEffectParameter() noexcept { return nullptr; }
    virtual MutableEffectParameter* asMutableEffectParameter() noexcept { return nullptr; }
};

class EffectParameter : public virtual EffectParameterBase {
public:
    virtual EffectBase* parent() const noexcept = 0;
};

class MutableEffectParameter : public virtual EffectParameterBase {
public:
    virtual EffectBase* parent() const noexcept = 0;
    virtual bool remove() = 0;
    virtual bool setValueInt32(std::int32_t value) noexcept = 0;
    virtual bool setValueFloat(float value) noexcept = 0;
    virtual bool setValueString(const Char* text) = 0;
};

class Effect;
class AudioEffect;
class MidiEffect;
class MutableEffect;
class MutableAudioEffect;
class MutableMidiEffect;

class EffectBase : private Interface {
public:
    virtual const Char* id() const noexcept = 0;
    virtual std::uint32_t type() const noexcept = 0;
    virtual std::uint64_t numParameters() const noexcept = 0;
    virtual ~EffectBase() = default;

    virtual Effect* asEffect() noexcept { return nullptr; }
    virtual AudioEffect* asAudioEffect() noexcept { return nullptr; }
    virtual MidiEffect* asMidiEffect() noexcept { return nullptr; }
    virtual MutableEffect* asMutableEffect() noexcept { return nullptr; }
    virtual MutableAudioEffect* asMutableAudioEffect() noexcept { return nullptr; }
    virtual MutableMidiEffect* asMutableMidiEffect() noexcept { return nullptr; }
};

class Effect : public virtual EffectBase {
public:
    virtual EffectParameter* parameter(std::uint64_t index) const noexcept = 0;
    virtual bool hasParameter(const EffectParameterBase* element) const noexcept = 0;
};

class AudioEffect : public Effect {
public:
    virtual PartBase* parent() const noexcept = 0;
};

class MidiEffect : public Effect {
public:
    virtual PartBase* parent() const noexcept = 0;
};

class MutableEffect : public virtual EffectBase {
public:
    virtual MutableEffectParameter* parameter(std::uint64_t index) const noexcept = 0;
    virtual MutableEffectParameter* addParameter(const Char* name) = 0;
    virtual bool remove() = 0;
    virtual bool move(std::uint64_t index) = 0;
    virtual bool hasParameter(const EffectParameterBase* element) const noexcept = 0;
};

class MutableAudioEffect : public MutableEffect {
public:
    virtual PartBase* parent() const noexcept = 0;
};

class MutableMidiEffect : public MutableEffect {
public:
    virtual PartBase* parent() const noexcept = 0;
};

} // namespace Korvel::CANTORIS::PLX
