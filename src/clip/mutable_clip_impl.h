#pragma once

#include <memory>

#include "clip/clip_base_impl.h"
#include "clip/filter_impl.h"
#include "korvel/plx/common.h"
#include "model/mutable_part_impl.h"

namespace Korvel::CANTORIS::PLX {

class MutableClipImpl;

// What a mutable clip needs from the manager that made it.
class MutableClipOwner {
public:
    virtual Manager* manager() = 0;
    virtual bool owns(const MutableClipImpl& clip) const noexcept = 0;
    virtual void discard(const MutableClipImpl& clip) = 0;
    // Writes a checked clip as a new user clip.
    virtual UserClip* write(const MutableClipImpl& clip, StringView name, bool formatted,
                            KRT_PLX_Result& result) = 0;

protected:
    ~MutableClipOwner() = default;
};

class MutableClipImpl final : public MutableClip, public ClipBaseImpl {
public:
    explicit MutableClipImpl(MutableClipOwner& owner);

    const Filter& tags() const { return filter_; }
    PartBase* part() const { return part_.get(); }

    std::uint32_t partType() const noexcept override;
    void destroy() override;
    void setVendorName(const Char* text) override;
    bool setPartKey(std::uint32_t value) noexcept override { return base().assignPartKey(value); }
    bool setPartTempo(std::uint32_t value) noexcept override
    {
        return base().assignPartTempo(value);
    }
    MutableFilterImpl* filter() noexcept override { return &filter_; }
    MutableAudioPart* createAudioPart() override;
    MutableAudioPart* audioPart() const noexcept override;
    bool hasAudioPart(const PartBase* element) const noexcept override;
    MutableMidiPart* createMidiAiPart() override;
    MutableMidiPart* createMidiPart() override;
    MutableMidiPart* midiPart() const noexcept override;
    bool hasMidiPart(const PartBase* element) const noexcept override;
    UserClip* save(const Char* name, bool formatted, std::uint32_t* errorCode) override;
    MutableClip* asMutableClip() noexcept override { return this; }

private:
    MutableMidiPart* createMidi(std::uint32_t type);
    KRT_PLX_Result check(const Char* name) const;
    KRT_PLX_Result checkPart() const;

    MutableClipOwner& owner_;
    MutableFilterImpl filter_;
    std::unique_ptr<MutablePartImpl> part_;
};

} // namespace Korvel::CANTORIS::PLX
