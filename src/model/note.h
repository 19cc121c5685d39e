// The interfaces of a note: one sung syllable of a MIDI part.
#pragma once

#include <cstdint>

#include "model/interface.h"
#include "text.h"

namespace Korvel::CANTORIS::PLX {

class MidiPartBase;
class Dvqm;
class MutableDvqm;
class SingingSkill;
class MutableSingingSkill;
class Vibrato;
class MutableVibrato;
class Note;
class MutableNote;

class NoteBase : private Interface {
public:
    virtual bool isMutable() const noexcept = 0;
    virtual const Char* lyric() const noexcept = 0;
    virtual const Char* phoneme() const noexcept = 0;
    virtual std::uint32_t langID() const noexcept = 0;
    virtual bool isProtected() const noexcept = 0;
    virtual std::int32_t pos() const noexcept = 0;
    virtual std::int32_t duration() const noexcept = 0;
    virtual std::uint32_t number() const noexcept = 0;
    virtual std::uint32_t velocity() const noexcept = 0;
    virtual std::uint32_t accent() const noexcept = 0;
    virtual std::uint32_t bendDepth() const noexcept = 0;
    virtual std::uint32_t bendLength() const noexcept = 0;
    virtual std::uint32_t decay() const noexcept = 0;
    virtual bool fallPort() const noexcept = 0;
    virtual bool risePort() const noexcept = 0;
    virtual std::uint32_t opening() const noexcept = 0;
    virtual float pitchFine() const noexcept = 0;
    virtual float pitchDriftStart() const noexcept = 0;
    virtual float pitchDriftEnd() const noexcept = 0;
    virtual float pitchScalingCenter() const noexcept = 0;
    virtual float pitchScalingOrigin() const noexcept = 0;
    virtual float pitchTransitionStart() const noexcept = 0;
    virtual float pitchTransitionEnd() const noexcept = 0;
    virtual float amplitudeWhole() const noexcept = 0;
    virtual float amplitudeStart() const noexcept = 0;
    virtual float amplitudeEnd() const noexcept = 0;
    virtual float formantWhole() const noexcept = 0;
    virtual float formantStart() const noexcept = 0;
    virtual float formantEnd() const noexcept = 0;
    virtual ~NoteBase() = default;

    virtual Note* asNote() noexcept { return nullptr; }
    virtual MutableNote* asMutableNote() noexcept { return nullptr; }
};

class Note : public virtual NoteBase {
public:
    virtual MidiPartBase* parent() const noexcept = 0;
    virtual Vibrato* vibrato() noexcept = 0;
    virtual Dvqm* dvqm(bool isAttack) noexcept = 0;
    virtual SingingSkill* singingSkill() noexcept = 0;
};

class MutableNote : public virtual NoteBase {
public:
    virtual MidiPartBase* parent() const noexcept = 0;
    virtual bool remove() = 0;
    virtual bool setLyric(const Char* text) = 0;
    virtual bool setPhoneme(const Char* text) = 0;
    virtual bool setLangID(std::uint32_t value) noexcept = 0;
    virtual bool setProtected(bool value) noexcept = 0;
    virtual bool move(std::int32_t pos) = 0;
    virtual bool setDuration(std::int32_t value) noexcept = 0;
    virtual bool setNumber(std::uint32_t value) noexcept = 0;
    virtual bool setVelocity(std::uint32_t value) noexcept = 0;
    virtual bool setAccent(std::uint32_t value) noexcept = 0;
    virtual bool setBendDepth(std::uint32_t value) noexcept = 0;
    virtual bool setBendLength(std::uint32_t value) noexcept = 0;
    virtual bool setDecay(std::uint32_t value) noexcept = 0;
    virtual bool setOpening(std::uint32_t value) noexcept = 0;
    virtual bool setFallPort(bool value) noexcept = 0;
    virtual bool setRisePort(bool value) noexcept = 0;
    virtual bool setPitchFine(float value) noexcept = 0;
    virtual bool setPitchDriftStart(float value) noexcept = 0;
    virtual bool setPitchDriftEnd(float value) noexcept = 0;
    virtual bool setPitchScalingCenter(float value) noexcept = 0;
    virtual bool setPitchScalingOrigin(float value) noexcept = 0;
    virtual bool setPitchTransitionStart(float value) noexcept = 0;
    virtual bool setPitchTransitionEnd(float value) noexcept = 0;
    virtual bool setAmplitudeWhole(float value) noexcept = 0;
    virtual bool setAmplitudeStart(float value) noexcept = 0;
    virtual bool setAmplitudeEnd(float value) noexcept = 0;
    virtual bool setFormantWhole(float value) noexcept = 0;
    virtual bool setFormantStart(float value) noexcept = 0;
    virtual bool setFormantEnd(float value) noexcept = 0;
    virtual MutableVibrato* vibrato() noexcept = 0;
    virtual MutableDvqm* dvqm(bool isAttack) noexcept = 0;
    virtual MutableSingingSkill* singingSkill() noexcept = 0;
};

} // namespace Korvel::CANTORIS::PLX
