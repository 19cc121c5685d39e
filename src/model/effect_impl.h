#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>

#include "model/block_list.h"
#include "model/effect.h"
#include "model/fields.h"
#include "model/lists.h"

namespace Korvel::CANTORIS::PLX {

class EffectParameterBaseImpl : public virtual EffectParameterBase {
public:
    EffectParameterBaseImpl(EffectBase& effect, StringView name) : effect_(&effect), name_(name) {}

    const Char* name() const noexcept override { return name_.c_str(); }
    std::uint32_t type() const noexcept override { return static_cast<std::uint32_t>(type_); }
    std::int32_t valueInt32() const noexcept override { return valueInt32_; }
    float valueFloat() const noexcept override { return valueFloat_; }
    const Char* valueString() const noexcept override { return valueString_.c_str(); }

    // Each sets the value of its type and marks the other values as unset.
    void assignInt32(std::int32_t value);
    void assignFloat(float value);
    void assignString(StringView text);

    const String& nameText() const { return name_; }

    // For the reader, before the parameter is in a list. False for the empty text.
    bool assignName(StringView text)
    {
        name_ = text;
        return !text.empty();
    }

protected:
    EffectBase* effect() const { return effect_; }

private:
    void assign(KRT_PLX_ValueType type, std::int32_t int32, float float32, String&& text);

    EffectBase* effect_;
    String name_;
    KRT_PLX_ValueType type_ = KRT_PLX_VALUE_UNSET;
    std::int32_t valueInt32_ = KRT_PLX_VALUE_UNSET_INT32;
    float valueFloat_ = KRT_PLX_VALUE_UNSET_FLOAT;
    String valueString_;
};

class EffectParameterImpl final : public EffectParameter, public EffectParameterBaseImpl {
public:
    using EffectParameterBaseImpl::EffectParameterBaseImpl;

    EffectBase* parent() const noexcept override { return effect(); }
    EffectParameter* asEffectParameter() noexcept override { return this; }
};

class MutableEffectParameterImpl final : public MutableEffectParameter,
                                         public EffectParameterBaseImpl {
public:
    using Siblings = BlockList<MutableEffectParameterImpl>;

    MutableEffectParameterImpl(EffectBase& effect, Siblings& siblings, StringView name)
        : EffectParameterBaseImpl(effect, name), siblings_(siblings)
    {
    }

    EffectBase* parent() const noexcept override { return effect(); }
    bool remove() override;
    bool setValueInt32(std::int32_t value) noexcept override;
    bool setValueFloat(float value) noexcept override;
    bool setValueString(const Char* text) override;
    MutableEffectParameter* asMutableEffectParameter() noexcept override { return this; }

private:
    Siblings& siblings_;
};

class EffectBaseImpl : public virtual EffectBase {
public:
    EffectBaseImpl(PartBase& part, StringView id) : part_(&part), id_(id) {}

    const Char* id() const noexcept override { return id_.c_str(); }

    const String& idText() const { return id_; }

    // For the reader, before the effect is in a list. False for the empty text.
    bool assignId(StringView text)
    {
        id_ = text;
        return !text.empty();
    }

protected:
    PartBase* part() const { return part_; }

private:
    PartBase* part_;
    String id_;
};

// What both read-only kinds share. The reader fills in the parameters, and then sorts them.
template <class Kind>
class ReadOnlyEffect : public Kind, public EffectBaseImpl {
public:
    using EffectBaseImpl::EffectBaseImpl;

    OwnedList<EffectParameterImpl>& parameters() { return parameters_; }

    std::uint64_t numParameters() const noexcept override { return parameters_.size(); }
    EffectParameter* parameter(std::uint64_t index) const noexcept override
    {
        return parameters_.at(index);
    }
    bool hasParameter(const EffectParameterBase* element) const noexcept override
    {
        return parameters_.has(element);
    }
    PartBase* parent() const noexcept override { return part(); }
    Effect* asEffect() noexcept override { return this; }

private:
    OwnedList<EffectParameterImpl> parameters_;
};

class AudioEffectImpl final : public ReadOnlyEffect<AudioEffect> {
public:
    using ReadOnlyEffect::ReadOnlyEffect;

    std::uint32_t type() const noexcept override { return KRT_PLX_EFFECT_AUDIO; }
    AudioEffect* asAudioEffect() noexcept override { return this; }
};

class MidiEffectImpl final : public ReadOnlyEffect<MidiEffect> {
public:
    using ReadOnlyEffect::ReadOnlyEffect;

    std::uint32_t type() const noexcept override { return KRT_PLX_EFFECT_MIDI; }
    MidiEffect* asMidiEffect() noexcept override { return this; }
};

// A part's effects of one kind: in the order in which they were placed, no ID twice. With the index
// by ID, adding an effect is cheap, however many there are and whatever IDs a document contains.
template <class EffectImpl>
class EffectList {
public:
    const BlockList<EffectImpl>& effects() const { return effects_; }

    EffectImpl* withId(StringView id) const
    {
        const auto found = byId_.find(id);
        return found == byId_.end() ? nullptr : found->second;
    }

    // The effect's ID must not be in the list yet.
    EffectImpl* insert(std::uint64_t index, std::unique_ptr<EffectImpl> effect)
    {
        const auto entry = byId_.emplace(effect->idText(), effect.get()).first;
        try {
            const auto place =
                static_cast<std::size_t>(std::min<std::uint64_t>(index, effects_.size()));
            return effects_.insert(place, std::move(effect));
        } catch (...) {
            byId_.erase(entry); // not by ID, which was destroyed with the effect
            throw;
        }
    }

    EffectImpl* append(std::unique_ptr<EffectImpl> effect)
    {
        return insert(effects_.size(), std::move(effect));
    }

    bool remove(const EffectImpl* effect)
    {
        byId_.erase(effect->idText());
        return effects_.remove(effect);
    }

    bool move(const EffectImpl* effect, std::uint64_t index)
    {
        const std::size_t from = effects_.find(effect);
        if (from == effects_.size()) {
            return false;
        }
        const std::size_t last = effects_.size() - 1;
        effects_.shift(from, static_cast<std::size_t>(std::min<std::uint64_t>(index, last)));
        return true;
    }

private:
    BlockList<EffectImpl> effects_;
    std::map<StringView, EffectImpl*> byId_;
};

// What both editable kinds share. `Self` is the finished class, whose list this effect is in.
template <class Kind, class Self>
class EditableEffect : public Kind, public EffectBaseImpl {
public:
    using Siblings = EffectList<Self>;

    EditableEffect(PartBase& part, Siblings& siblings, StringView id)
        : EffectBaseImpl(part, id), siblings_(siblings)
    {
    }

    std::uint64_t numParameters() const noexcept override { return parameters_.size(); }
    MutableEffectParameter* parameter(std::uint64_t index) const noexcept override
    {
        return parameters_.at(index);
    }
    MutableEffectParameter* addParameter(const Char* name) override;
    bool remove() override { return siblings_.remove(static_cast<Self*>(this)); }
    bool move(std::uint64_t index) override
    {
        return siblings_.move(static_cast<Self*>(this), index);
    }
    bool hasParameter(const EffectParameterBase* element) const noexcept override
    {
        return parameters_.has(element);
    }
    PartBase* parent() const noexcept override { return part(); }
    MutableEffect* asMutableEffect() noexcept override { return this; }

private:
    Siblings& siblings_;
    BlockList<MutableEffectParameterImpl> parameters_;
};

class MutableAudioEffectImpl final
    : public EditableEffect<MutableAudioEffect, MutableAudioEffectImpl> {
public:
    using EditableEffect::EditableEffect;

    std::uint32_t type() const noexcept override { return KRT_PLX_EFFECT_AUDIO; }
    MutableAudioEffect* asMutableAudioEffect() noexcept override { return this; }
};

class MutableMidiEffectImpl final
    : public EditableEffect<MutableMidiEffect, MutableMidiEffectImpl> {
public:
    using EditableEffect::EditableEffect;

    std::uint32_t type() const noexcept override { return KRT_PLX_EFFECT_MIDI; }
    MutableMidiEffect* asMutableMidiEffect() noexcept override { return this; }
};

// The existing parameter of that name, or a new one, inserted in the order of names; null for a
// null or empty name.
MutableEffectParameterImpl* addParameterTo(BlockList<MutableEffectParameterImpl>& parameters,
                                           EffectBase& effect, const Char* name);

template <class Kind, class Self>
MutableEffectParameter* EditableEffect<Kind, Self>::addParameter(const Char* name)
{
    return addParameterTo(parameters_, *this, name);
}

} // namespace Korvel::CANTORIS::PLX
