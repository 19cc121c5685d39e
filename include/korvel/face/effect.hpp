/**
 * @file effect.hpp
 * Effects and their parameters; see plx/effect.h.
 */
#ifndef KORVEL_FACE_EFFECT_HPP
#define KORVEL_FACE_EFFECT_HPP

#include <optional>

#include <korvel/face/codes.hpp>
#include <korvel/face/handle.hpp>
#include <korvel/face/range.hpp>
#include <korvel/face/text.hpp>
#include <korvel/plx/effect.h>

namespace korvel::plx {

class AudioEffect;
class Effect;
class EffectParameter;
class MidiEffect;
class MidiPart;
class MutableAudioEffect;
class MutableEffect;
class MutableEffectParameter;
class MutableMidiEffect;
class MutableMidiPart;
class PartBase;

/** A named value of any effect. */
class EffectParameterBase : public Handle<KRT_PLX_EffectParameterBase> {
public:
    using Handle::Handle;

    [[nodiscard]] StringView name() const noexcept
    {
        return detail::view(KRT_PLX_EffectParameterBase_name(raw()));
    }
    [[nodiscard]] ValueType type() const noexcept
    {
        return static_cast<ValueType>(KRT_PLX_EffectParameterBase_type(raw()));
    }

    /** Empty unless type() is ValueType::int32. */
    [[nodiscard]] std::optional<std::int32_t> valueInt32() const noexcept
    {
        return ifType(ValueType::int32, KRT_PLX_EffectParameterBase_valueInt32(raw()));
    }
    /** Empty unless type() is ValueType::float32. */
    [[nodiscard]] std::optional<float> valueFloat() const noexcept
    {
        return ifType(ValueType::float32, KRT_PLX_EffectParameterBase_valueFloat(raw()));
    }
    /** Empty unless type() is ValueType::string. */
    [[nodiscard]] std::optional<StringView> valueString() const noexcept
    {
        return ifType(
            ValueType::string, detail::view(KRT_PLX_EffectParameterBase_valueString(raw())));
    }

    [[nodiscard]] EffectParameter asEffectParameter() const noexcept;
    [[nodiscard]] MutableEffectParameter asMutableEffectParameter() const noexcept;

private:
    // The marks of the C functions are possible values too: only the type tells.
    template <typename Value>
    [[nodiscard]] std::optional<Value> ifType(ValueType wanted, Value value) const noexcept
    {
        return type() == wanted ? std::optional<Value>(value) : std::nullopt;
    }
};

/** A parameter of a read-only effect. */
class EffectParameter : public EffectParameterBase {
public:
    using EffectParameterBase::EffectParameterBase;

    [[nodiscard]] Effect parent() const noexcept;
};

/** A parameter of an editable effect. */
class MutableEffectParameter : public EffectParameterBase {
public:
    using EffectParameterBase::EffectParameterBase;

    [[nodiscard]] MutableEffect parent() const noexcept;

    /** Kills this handle. */
    bool remove() const noexcept { return KRT_PLX_MutableEffectParameter_remove(raw()); }

    bool setValueInt32(std::int32_t value) const noexcept
    {
        return KRT_PLX_MutableEffectParameter_setValueInt32(raw(), value);
    }
    bool setValueFloat(float value) const noexcept
    {
        return KRT_PLX_MutableEffectParameter_setValueFloat(raw(), value);
    }
    template <typename Text>
    bool setValueString(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_MutableEffectParameter_setValueString(
            raw(), detail::terminated(text).c_str());
    }
};

/** Any effect. */
class EffectBase : public Handle<KRT_PLX_EffectBase> {
public:
    using Handle::Handle;

    [[nodiscard]] StringView id() const noexcept
    {
        return detail::view(KRT_PLX_EffectBase_id(raw()));
    }
    [[nodiscard]] EffectKind type() const noexcept
    {
        return static_cast<EffectKind>(KRT_PLX_EffectBase_type(raw()));
    }
    [[nodiscard]] std::uint64_t numParameters() const noexcept
    {
        return detail::count(KRT_PLX_EffectBase_numParameters, raw());
    }

    [[nodiscard]] Effect asEffect() const noexcept;
    [[nodiscard]] AudioEffect asAudioEffect() const noexcept;
    [[nodiscard]] MidiEffect asMidiEffect() const noexcept;
    [[nodiscard]] MutableEffect asMutableEffect() const noexcept;
    [[nodiscard]] MutableAudioEffect asMutableAudioEffect() const noexcept;
    [[nodiscard]] MutableMidiEffect asMutableMidiEffect() const noexcept;
};

/** A read-only effect. */
class Effect : public EffectBase {
public:
    using EffectBase::EffectBase;

    [[nodiscard]] EffectParameter parameter(std::uint64_t index) const noexcept
    {
        return EffectParameter(KRT_PLX_Effect_parameter(raw(), index));
    }
    [[nodiscard]] bool hasParameter(EffectParameterBase element) const noexcept
    {
        return KRT_PLX_Effect_hasParameter(raw(), element.raw());
    }
    /** By name, ascending. */
    [[nodiscard]] Range<Effect, &EffectBase::numParameters, &Effect::parameter> parameters()
        const noexcept
    {
        return Range<Effect, &EffectBase::numParameters, &Effect::parameter>(*this);
    }
};

/** A read-only audio effect. */
class AudioEffect : public Effect {
public:
    using Effect::Effect;

    /** A MIDI or an audio part. */
    [[nodiscard]] PartBase parent() const noexcept;
};

/** A read-only MIDI effect. */
class MidiEffect : public Effect {
public:
    using Effect::Effect;

    [[nodiscard]] MidiPart parent() const noexcept;
};

/** An editable effect. */
class MutableEffect : public EffectBase {
public:
    using EffectBase::EffectBase;

    [[nodiscard]] MutableEffectParameter parameter(std::uint64_t index) const noexcept
    {
        return MutableEffectParameter(KRT_PLX_MutableEffect_parameter(raw(), index));
    }
    [[nodiscard]] bool hasParameter(EffectParameterBase element) const noexcept
    {
        return KRT_PLX_MutableEffect_hasParameter(raw(), element.raw());
    }
    /** By name, ascending. */
    [[nodiscard]] Range<MutableEffect, &EffectBase::numParameters, &MutableEffect::parameter>
    parameters() const noexcept
    {
        return Range<MutableEffect, &EffectBase::numParameters, &MutableEffect::parameter>(*this);
    }

    template <typename Text>
    MutableEffectParameter addParameter(const Text& name) const noexcept(detail::isBorrowed<Text>)
    {
        return MutableEffectParameter(
            KRT_PLX_MutableEffect_addParameter(raw(), detail::terminated(name).c_str()));
    }
    bool move(std::uint64_t index) const noexcept
    {
        return KRT_PLX_MutableEffect_move(raw(), index);
    }
    /** Kills this handle and those of the parameters. */
    bool remove() const noexcept { return KRT_PLX_MutableEffect_remove(raw()); }
};

/** An editable audio effect. */
class MutableAudioEffect : public MutableEffect {
public:
    using MutableEffect::MutableEffect;

    /** An editable MIDI or audio part. */
    [[nodiscard]] PartBase parent() const noexcept;
};

/** An editable MIDI effect. */
class MutableMidiEffect : public MutableEffect {
public:
    using MutableEffect::MutableEffect;

    [[nodiscard]] MutableMidiPart parent() const noexcept;
};

inline EffectParameter EffectParameterBase::asEffectParameter() const noexcept
{
    return detail::castIf<EffectParameter>(KRT_PLX_EffectParameter_parent(raw()) != nullptr, *this);
}

inline MutableEffectParameter EffectParameterBase::asMutableEffectParameter() const noexcept
{
    return detail::castIf<MutableEffectParameter>(
        KRT_PLX_MutableEffectParameter_parent(raw()) != nullptr, *this);
}

inline Effect EffectParameter::parent() const noexcept
{
    return Effect(KRT_PLX_EffectParameter_parent(raw()));
}

inline MutableEffect MutableEffectParameter::parent() const noexcept
{
    return MutableEffect(KRT_PLX_MutableEffectParameter_parent(raw()));
}

inline AudioEffect EffectBase::asAudioEffect() const noexcept
{
    return detail::castIf<AudioEffect>(KRT_PLX_AudioEffect_parent(raw()) != nullptr, *this);
}

inline MidiEffect EffectBase::asMidiEffect() const noexcept
{
    return detail::castIf<MidiEffect>(KRT_PLX_MidiEffect_parent(raw()) != nullptr, *this);
}

inline Effect EffectBase::asEffect() const noexcept
{
    return asAudioEffect() ? Effect(asAudioEffect()) : Effect(asMidiEffect());
}

inline MutableAudioEffect EffectBase::asMutableAudioEffect() const noexcept
{
    return detail::castIf<MutableAudioEffect>(
        KRT_PLX_MutableAudioEffect_parent(raw()) != nullptr, *this);
}

inline MutableMidiEffect EffectBase::asMutableMidiEffect() const noexcept
{
    return detail::castIf<MutableMidiEffect>(
        KRT_PLX_MutableMidiEffect_parent(raw()) != nullptr, *this);
}

inline MutableEffect EffectBase::asMutableEffect() const noexcept
{
    return asMutableAudioEffect() ? MutableEffect(asMutableAudioEffect())
                                  : MutableEffect(asMutableMidiEffect());
}

} // namespace korvel::plx

#endif
