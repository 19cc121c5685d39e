#pragma once

#include <cstdint>

#include "model/effect_impl.h"
#include "model/mutable_part_impl.h"
#include "model/part.h"
#include "model/part_base_impl.h"

namespace Korvel::CANTORIS::PLX {

class AudioPartBaseImpl : public virtual AudioPartBase, public PartBaseImpl {
public:
    explicit AudioPartBaseImpl(ClipBase* clip) : clip_(clip) {}

    const Char* wavFilePath() const noexcept override { return wavFilePath_.c_str(); }
    // The documents do not store the region, and no operation changes it.
    std::int32_t begin() const noexcept override { return 0; }
    std::int32_t end() const noexcept override { return 0; }

    void assignWavFilePath(String&& path) { wavFilePath_ = std::move(path); }

protected:
    ClipBase* clip() const { return clip_; }

private:
    ClipBase* clip_;
    String wavFilePath_;
};

class AudioPartImpl final : public AudioPart, public AudioPartBaseImpl {
public:
    using AudioPartBaseImpl::AudioPartBaseImpl;

    // For the reader, which fills a part before a host sees it.
    EffectList<AudioEffectImpl>& audioEffects() { return audioEffects_; }

    bool isMutable() const noexcept override { return false; }
    std::uint64_t numAudioEffects() const noexcept override
    {
        return audioEffects_.effects().size();
    }
    ClipBase* parent() const noexcept override { return clip(); }
    AudioEffect* audioEffect(std::uint64_t index) const noexcept override
    {
        return audioEffects_.effects().at(index);
    }
    bool hasAudioEffect(const EffectBase* element) const noexcept override
    {
        return audioEffects_.effects().has(element);
    }
    AudioPartBase* asAudioPartBase() noexcept override { return this; }
    AudioPart* asAudioPart() noexcept override { return this; }

private:
    EffectList<AudioEffectImpl> audioEffects_;
};

class MutableAudioPartImpl final : public MutableAudioPart,
                                   public AudioPartBaseImpl,
                                   public MutablePartImpl {
public:
    using AudioPartBaseImpl::AudioPartBaseImpl;

    std::uint64_t numAudioEffects() const noexcept override { return audioEffects().size(); }
    ClipBase* parent() const noexcept override { return clip(); }
    bool setWavFilePath(const Char* path) override;
    // The region is fixed, but hosts expect success.
    bool setRegion(std::int32_t, std::int32_t) noexcept override { return true; }
    MutableAudioEffect* audioEffect(std::uint64_t index) const noexcept override
    {
        return audioEffects().at(index);
    }
    bool hasAudioEffect(const EffectBase* element) const noexcept override
    {
        return audioEffects().has(element);
    }
    MutableAudioEffect* insertAudioEffect(std::uint64_t index, const Char* id) override
    {
        return insertAudioEffectAt(index, id);
    }
    AudioPartBase* asAudioPartBase() noexcept override { return this; }
    MutableAudioPart* asMutableAudioPart() noexcept override { return this; }
};

} // namespace Korvel::CANTORIS::PLX
