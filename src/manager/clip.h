// The interfaces of the catalogue's clips.
#pragma once

#include <cstdint>

#include "clip/clip_base.h"

namespace Korvel::CANTORIS::PLX {

class AudioPart;
class Filter;
class MidiPart;
class PropertyEditor;

enum class ClipKind : std::uint32_t { system = 0, user = 1 };

class Clip : public virtual ClipBase {
public:
    virtual const Char* id() const noexcept = 0;
    virtual const Char* name() const noexcept = 0;
    virtual std::uint32_t type() const noexcept = 0;
    virtual const Char* path() const noexcept = 0;
    virtual Filter* filter() noexcept = 0;
    virtual bool readPart() = 0;
    virtual AudioPart* audioPart() const noexcept = 0;
    virtual bool hasAudioPart(const PartBase* element) const noexcept = 0;
    virtual MidiPart* midiPart() const noexcept = 0;
    virtual bool hasMidiPart(const PartBase* element) const noexcept = 0;
};

class SystemClip : public virtual Clip {};

class UserClip : public virtual Clip {
public:
    virtual bool remove() = 0;
    virtual PropertyEditor* createPropertyEditor() = 0;
    virtual void destroyPropertyEditor(PropertyEditor* editor) = 0;
};

} // namespace Korvel::CANTORIS::PLX
