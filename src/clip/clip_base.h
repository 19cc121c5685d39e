// The interface that all clips share, and that of the clip that a host builds.
#pragma once

#include <cstdint>

#include "model/interface.h"
#include "text.h"

namespace Korvel::CANTORIS::PLX {

class Manager;
class PartBase;
class MutableAudioPart;
class MutableMidiPart;
class MutableFilter;
class Clip;
class UserClip;
class MutableClip;

class ClipBase : private Interface {
public:
    virtual Manager* parent() const noexcept = 0;
    virtual const Char* vendorName() const noexcept = 0;
    virtual std::uint32_t partType() const noexcept = 0;
    virtual std::uint32_t partKey() const noexcept = 0;
    virtual std::uint32_t partTempo() const noexcept = 0;
    virtual ~ClipBase() = default;

    virtual Clip* asClip() noexcept { return nullptr; }
    virtual UserClip* asUserClip() noexcept { return nullptr; }
    virtual MutableClip* asMutableClip() noexcept { return nullptr; }
};

class MutableClip : public virtual ClipBase {
public:
    virtual void destroy() = 0;
    virtual void setVendorName(const Char* text) = 0;
    virtual bool setPartKey(std::uint32_t value) noexcept = 0;
    virtual bool setPartTempo(std::uint32_t value) noexcept = 0;
    virtual MutableFilter* filter() noexcept = 0;
    virtual MutableAudioPart* createAudioPart() = 0;
    virtual MutableAudioPart* audioPart() const noexcept = 0;
    virtual bool hasAudioPart(const PartBase* element) const noexcept = 0;
    virtual MutableMidiPart* createMidiAiPart() = 0;
    virtual MutableMidiPart* createMidiPart() = 0;
    virtual MutableMidiPart* midiPart() const noexcept = 0;
    virtual bool hasMidiPart(const PartBase* element) const noexcept = 0;
    // The new user clip, or null; the code is written only when the pointer is not null.
    virtual UserClip* save(const Char* name, bool formatted, std::uint32_t* errorCode) = 0;
};

} // namespace Korvel::CANTORIS::PLX
