/**
 * @file part.hpp
 * What all parts tell, and audio parts; see plx/part.h.
 */
#ifndef KORVEL_FACE_PART_HPP
#define KORVEL_FACE_PART_HPP

#include <korvel/face/effect.hpp>
#include <korvel/plx/part.h>

namespace korvel::plx {

class AudioPart;
class AudioPartBase;
class Clip;
class MidiPart;
class MidiPartBase;
class MutableAudioPart;
class MutableClip;
class MutableMidiPart;

/** Any part. */
class PartBase : public Handle<KRT_PLX_PartBase> {
public:
    using Handle::Handle;

    [[nodiscard]] bool isMutable() const noexcept { return KRT_PLX_PartBase_isMutable(raw()); }
    [[nodiscard]] PartType type() const noexcept
    {
        return static_cast<PartType>(KRT_PLX_PartBase_type(raw()));
    }
    /** True for an audio part. */
    [[nodiscard]] bool isAudio() const noexcept { return type() == PartType::audio; }
    /** True for both types of MIDI part. */
    [[nodiscard]] bool isMidi() const noexcept
    {
        return type() == PartType::midi || type() == PartType::midiAi;
    }

    [[nodiscard]] MidiPartBase asMidiPartBase() const noexcept;
    [[nodiscard]] MidiPart asMidiPart() const noexcept;
    [[nodiscard]] MutableMidiPart asMutableMidiPart() const noexcept;
    [[nodiscard]] AudioPartBase asAudioPartBase() const noexcept;
    [[nodiscard]] AudioPart asAudioPart() const noexcept;
    [[nodiscard]] MutableAudioPart asMutableAudioPart() const noexcept;
};

/** Any audio part. */
class AudioPartBase : public PartBase {
public:
    using PartBase::PartBase;

    /** Where the played region of the wave file begins; no iterator. */
    [[nodiscard]] std::int32_t begin() const noexcept { return KRT_PLX_AudioPartBase_begin(raw()); }
    /** Where the played region of the wave file ends; no iterator. */
    [[nodiscard]] std::int32_t end() const noexcept { return KRT_PLX_AudioPartBase_end(raw()); }
    [[nodiscard]] std::uint64_t numAudioEffects() const noexcept
    {
        return detail::count(KRT_PLX_AudioPartBase_numAudioEffects, raw());
    }
    [[nodiscard]] StringView wavFilePath() const noexcept
    {
        return detail::view(KRT_PLX_AudioPartBase_wavFilePath(raw()));
    }
};

/** A read-only audio part. */
class AudioPart : public AudioPartBase {
public:
    using AudioPartBase::AudioPartBase;

    [[nodiscard]] Clip parent() const noexcept;

    [[nodiscard]] AudioEffect audioEffect(std::uint64_t index) const noexcept
    {
        return AudioEffect(KRT_PLX_AudioPart_audioEffect(raw(), index));
    }
    [[nodiscard]] bool hasAudioEffect(EffectBase element) const noexcept
    {
        return KRT_PLX_AudioPart_hasAudioEffect(raw(), element.raw());
    }
    /** In the order of the chain. */
    [[nodiscard]] Range<AudioPart, &AudioPartBase::numAudioEffects, &AudioPart::audioEffect>
    audioEffects() const noexcept
    {
        return Range<AudioPart, &AudioPartBase::numAudioEffects, &AudioPart::audioEffect>(*this);
    }
};

/** An editable audio part. */
class MutableAudioPart : public AudioPartBase {
public:
    using AudioPartBase::AudioPartBase;

    [[nodiscard]] MutableClip parent() const noexcept;

    [[nodiscard]] MutableAudioEffect audioEffect(std::uint64_t index) const noexcept
    {
        return MutableAudioEffect(KRT_PLX_MutableAudioPart_audioEffect(raw(), index));
    }
    [[nodiscard]] bool hasAudioEffect(EffectBase element) const noexcept
    {
        return KRT_PLX_MutableAudioPart_hasAudioEffect(raw(), element.raw());
    }
    /** In the order of the chain. */
    [[nodiscard]] auto audioEffects() const noexcept
    {
        return Range<MutableAudioPart, &AudioPartBase::numAudioEffects,
            &MutableAudioPart::audioEffect>(*this);
    }
    /** Returns the effect that is there when the chain has one of this ID. */
    template <typename Text>
    MutableAudioEffect insertAudioEffect(std::uint64_t index, const Text& id) const
        noexcept(detail::isBorrowed<Text>)
    {
        return MutableAudioEffect(KRT_PLX_MutableAudioPart_insertAudioEffect(
            raw(), index, detail::terminated(id).c_str()));
    }

    /** Changes nothing. */
    bool setRegion(std::int32_t regionBegin, std::int32_t regionEnd) const noexcept
    {
        return KRT_PLX_MutableAudioPart_setRegion(raw(), regionBegin, regionEnd);
    }
    template <typename Text>
    bool setWavFilePath(const Text& path) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_MutableAudioPart_setWavFilePath(raw(), detail::terminated(path).c_str());
    }
};

inline AudioPartBase PartBase::asAudioPartBase() const noexcept
{
    return detail::castIf<AudioPartBase>(isAudio(), *this);
}

inline AudioPart PartBase::asAudioPart() const noexcept
{
    return detail::castIf<AudioPart>(isAudio() && !isMutable(), *this);
}

inline MutableAudioPart PartBase::asMutableAudioPart() const noexcept
{
    return detail::castIf<MutableAudioPart>(isAudio() && isMutable(), *this);
}

inline PartBase AudioEffect::parent() const noexcept
{
    return PartBase(KRT_PLX_AudioEffect_parent(raw()));
}

inline PartBase MutableAudioEffect::parent() const noexcept
{
    return PartBase(KRT_PLX_MutableAudioEffect_parent(raw()));
}

} // namespace korvel::plx

#endif
