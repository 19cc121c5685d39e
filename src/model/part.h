// The interfaces of a clip's part: sung MIDI, or audio.
#pragma once

#include <cstdint>

#include "model/interface.h"
#include "text.h"

namespace Korvel::CANTORIS::PLX {

class ClipBase;
class NoteBase;
class Note;
class MutableNote;
class MidiControllerBase;
class MidiController;
class MutableMidiController;
class EffectBase;
class AudioEffect;
class MidiEffect;
class MutableAudioEffect;
class MutableMidiEffect;

class MidiPartBase;
class MidiPart;
class MutableMidiPart;
class AudioPartBase;
class AudioPart;
class MutableAudioPart;

class PartBase : private Interface {
public:
    virtual std::uint32_t type() const noexcept = 0;
    virtual void setType(std::uint32_t code) = 0;
    virtual bool isMutable() const noexcept = 0;
    virtual ~PartBase() = default;

    virtual MidiPartBase* asMidiPartBase() noexcept { return nullptr; }
    virtual MidiPart* asMidiPart() noexcept { return nullptr; }
    virtual MutableMidiPart* asMutableMidiPart() noexcept { return nullptr; }
    virtual AudioPartBase* asAudioPartBase() noexcept { return nullptr; }
    virtual AudioPart* asAudioPart() noexcept { return nullptr; }
    virtual MutableAudioPart* asMutableAudioPart() noexcept { return nullptr; }
};

class MidiPartBase : public virtual PartBase {
public:
    virtual std::int32_t duration() const noexcept = 0;
    virtual const Char* styleName() const noexcept = 0;
    virtual const Char* stylePresetID() const noexcept = 0;
    virtual const Char* voiceBankID() const noexcept = 0;
    virtual const Char* aiVoiceBankID() const noexcept = 0;
    virtual std::uint32_t langID() const noexcept = 0;
    virtual std::uint64_t aiLangIDSize() const noexcept = 0;
    virtual std::uint32_t aiLangIDByIndex(std::uint64_t index) const noexcept = 0;
    virtual std::uint64_t numAudioEffects() const noexcept = 0;
    virtual std::uint64_t numMidiEffects() const noexcept = 0;
    virtual std::uint64_t numNotes() const noexcept = 0;
};

class MidiPart : public virtual MidiPartBase {
public:
    virtual ClipBase* parent() const noexcept = 0;
    virtual AudioEffect* audioEffect(std::uint64_t index) const noexcept = 0;
    virtual bool hasAudioEffect(const EffectBase* element) const noexcept = 0;
    virtual MidiEffect* midiEffect(std::uint64_t index) const noexcept = 0;
    virtual bool hasMidiEffect(const EffectBase* element) const noexcept = 0;
    virtual Note* note(std::uint64_t index) const noexcept = 0;
    virtual bool hasNote(const NoteBase* element) const noexcept = 0;
    virtual MidiController* midiController(std::uint32_t type) const noexcept = 0;
    virtual bool hasMidiController(const MidiControllerBase* element) const noexcept = 0;
};

class MutableMidiPart : public virtual MidiPartBase {
public:
    virtual ClipBase* parent() const noexcept = 0;
    virtual bool setDuration(std::int32_t value) noexcept = 0;
    virtual void setStyleName(const Char* text) = 0;
    virtual void setStylePresetID(const Char* text) = 0;
    virtual bool setVoiceBankID(const Char* text) = 0;
    virtual bool setLangID(std::uint32_t value) noexcept = 0;
    virtual bool setAiVoiceBankID(const Char* text) = 0;
    virtual bool addAiLangID(std::uint32_t value) = 0;
    virtual MutableAudioEffect* audioEffect(std::uint64_t index) const noexcept = 0;
    virtual bool hasAudioEffect(const EffectBase* element) const noexcept = 0;
    virtual MutableAudioEffect* insertAudioEffect(std::uint64_t index, const Char* id) = 0;
    virtual MutableMidiEffect* midiEffect(std::uint64_t index) const noexcept = 0;
    virtual bool hasMidiEffect(const EffectBase* element) const noexcept = 0;
    virtual MutableMidiEffect* insertMidiEffect(std::uint64_t index, const Char* id) = 0;
    virtual MutableNote* note(std::uint64_t index) const noexcept = 0;
    virtual bool hasNote(const NoteBase* element) const noexcept = 0;
    virtual MutableNote* insertNote(std::int32_t pos, std::int32_t duration, const Char* lyric,
                                    const Char* phoneme, std::uint32_t langID) = 0;
    virtual MutableMidiController* midiController(std::uint32_t type) const noexcept = 0;
    virtual bool hasMidiController(const MidiControllerBase* element) const noexcept = 0;
    virtual MutableMidiController* addMidiController(std::uint32_t type) = 0;
};

class AudioPartBase : public virtual PartBase {
public:
    virtual const Char* wavFilePath() const noexcept = 0;
    virtual std::int32_t begin() const noexcept = 0;
    virtual std::int32_t end() const noexcept = 0;
    virtual std::uint64_t numAudioEffects() const noexcept = 0;
};

class AudioPart : public virtual AudioPartBase {
public:
    virtual ClipBase* parent() const noexcept = 0;
    virtual AudioEffect* audioEffect(std::uint64_t index) const noexcept = 0;
    virtual bool hasAudioEffect(const EffectBase* element) const noexcept = 0;
};

class MutableAudioPart : public virtual AudioPartBase {
public:
    virtual ClipBase* parent() const noexcept = 0;
    virtual bool setWavFilePath(const Char* path) = 0;
    virtual bool setRegion(std::int32_t begin, std::int32_t end) noexcept = 0;
    virtual MutableAudioEffect* audioEffect(std::uint64_t index) const noexcept = 0;
    virtual bool hasAudioEffect(const EffectBase* element) const noexcept = 0;
    virtual MutableAudioEffect* insertAudioEffect(std::uint64_t index, const Char* id) = 0;
};

} // namespace Korvel::CANTORIS::PLX
