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
    virtual bool isMutable() const = 0;
    virtual const Char* lyric() const = 0;
    virtual const Char* phoneme() const = 0;
    virtual std::uint32_t langID() const = 0;
    virtual bool isProtected() const = 0;
    virtual std::int32_t pos() const = 0;
    virtual std::int32_t duration() const = 0;
    virtual std::uint32_t number() const = 0;
    virtual std::uint32_t velocity() const = 0;
    virtual std::uint32_t accent() const = 0;
    virtual std::uint32_t bendDepth() const = 0;
    virtual std::uint32_t bendLength() const = 0;
    virtual std::uint32_t decay() const = 0;
    virtual bool fallPort() const = 0;
    virtual bool risePort() const = 0;
    virtual std::uint32_t opening() const = 0;
    virtual float pitchFine() const = 0;
    virtual float pitchDriftStart() const = 0;
    virtual float pitchDriftEnd() const = 0;
    virtual float pitchScalingCenter() const = 0;
    virtual float pitchScalingOrigin() const = 0;
    virtual float pitchTransitionStart() const = 0;
    virtual float pitchTransitionEnd() const = 0;
    virtual float amplitudeWhole() const = 0;
    virtual float amplitudeStart() const = 0;
    virtual float amplitudeEnd() const = 0;
    virtual float formantWhole() const = 0;
    virtual float formantStart() const = 0;
    virtual float formantEnd() const = 0;
    virtual ~NoteBase() = default;

    virtual Note* asNote() { return nullptr; }
    virtual MutableNote* asMutableNote() { return nullptr; }
};

class Note : public virtual NoteBase {
public:
    virtual MidiPartBase* parent() const = 0;
    virtual Vibrato* vibrato() = 0;
    virtual Dvqm* dvqm(bool isAttack) = 0;
    virtual SingingSkill* singingSkill() = 0;
};

class MutableNote : public virtual NoteBase {
public:
    virtual MidiPartBase* parent() const = 0;
    virtual bool remove() = 0;
    virtual bool setLyric(const Char* text) = 0;
    virtual bool setPhoneme(const Char* text) = 0;
    virtual bool setLangID(std::uint32_t value) = 0;
    virtual bool setProtected(bool value) = 0;
    virtual bool move(std::int32_t pos) = 0;
    virtual bool setDuration(std::int32_t value) = 0;
    virtual bool setNumber(std::uint32_t value) = 0;
    virtual bool setVelocity(std::uint32_t value) = 0;
    virtual bool setAccent(std::uint32_t value) = 0;
    virtual bool setBendDepth(std::uint32_t value) = 0;
    virtual bool setBendLength(std::uint32_t value) = 0;
    virtual bool setDecay(std::uint32_t value) = 0;
    virtual bool setOpening(std::uint32_t value) = 0;
    virtual bool setFallPort(bool value) = 0;
    virtual bool setRisePort(bool value) = 0;
    virtual bool setPitchFine(float value) = 0;
    virtual bool setPitchDriftStart(float value) = 0;
    virtual bool setPitchDriftEnd(float value) = 0;
    virtual bool setPitchScalingCenter(float value) = 0;
    virtual bool setPitchScalingOrigin(float value) = 0;
    virtual bool setPitchTransitionStart(float value) = 0;
    virtual bool setPitchTransitionEnd(float value) = 0;
    virtual bool setAmplitudeWhole(float value) = 0;
    virtual bool setAmplitudeStart(float value) = 0;
    virtual bool setAmplitudeEnd(float value) = 0;
    virtual bool setFormantWhole(float value) = 0;
    virtual bool setFormantStart(float value) = 0;
    virtual bool setFormantEnd(float value) = 0;
    virtual MutableVibrato* vibrato() = 0;
    virtual MutableDvqm* dvqm(bool isAttack) = 0;
    virtual MutableSingingSkill* singingSkill() = 0;
};

} // namespace Korvel::CANTORIS::PLX
