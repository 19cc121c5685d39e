#pragma once

#include <array>
#include <cstdint>

#include "model/assign.h"
#include "model/dvqm_impl.h"
#include "model/lists.h"
#include "model/note.h"
#include "model/singing_skill_impl.h"
#include "model/vibrato_impl.h"

namespace Korvel::CANTORIS::PLX {

// The thirteen values by which an AI voice shapes a note. They share one range and one default.
enum class AiExpression : std::uint8_t {
    pitchFine,
    pitchDriftStart,
    pitchDriftEnd,
    pitchScalingCenter,
    pitchScalingOrigin,
    pitchTransitionStart,
    pitchTransitionEnd,
    amplitudeWhole,
    amplitudeStart,
    amplitudeEnd,
    formantWhole,
    formantStart,
    formantEnd,
};
inline constexpr std::size_t aiExpressionCount = 13;

class NoteBaseImpl : public virtual NoteBase {
public:
    explicit NoteBaseImpl(MidiPartBase& part) : part_(&part)
    {
        aiExpression_.fill(field::aiExpression.initial);
    }

    const Char* lyric() const noexcept override { return lyric_.c_str(); }
    const Char* phoneme() const noexcept override { return phoneme_.c_str(); }
    std::uint32_t langID() const noexcept override { return langID_; }
    bool isProtected() const noexcept override { return isProtected_; }
    std::int32_t pos() const noexcept override { return pos_; }
    std::int32_t duration() const noexcept override { return duration_; }
    std::uint32_t number() const noexcept override { return number_; }
    std::uint32_t velocity() const noexcept override { return velocity_; }
    std::uint32_t accent() const noexcept override { return accent_; }
    std::uint32_t bendDepth() const noexcept override { return bendDepth_; }
    std::uint32_t bendLength() const noexcept override { return bendLength_; }
    std::uint32_t decay() const noexcept override { return decay_; }
    bool fallPort() const noexcept override { return fallPort_; }
    bool risePort() const noexcept override { return risePort_; }
    std::uint32_t opening() const noexcept override { return opening_; }
    float pitchFine() const noexcept override { return ai(AiExpression::pitchFine); }
    float pitchDriftStart() const noexcept override { return ai(AiExpression::pitchDriftStart); }
    float pitchDriftEnd() const noexcept override { return ai(AiExpression::pitchDriftEnd); }
    float pitchScalingCenter() const noexcept override
    {
        return ai(AiExpression::pitchScalingCenter);
    }
    float pitchScalingOrigin() const noexcept override
    {
        return ai(AiExpression::pitchScalingOrigin);
    }
    float pitchTransitionStart() const noexcept override
    {
        return ai(AiExpression::pitchTransitionStart);
    }
    float pitchTransitionEnd() const noexcept override
    {
        return ai(AiExpression::pitchTransitionEnd);
    }
    float amplitudeWhole() const noexcept override { return ai(AiExpression::amplitudeWhole); }
    float amplitudeStart() const noexcept override { return ai(AiExpression::amplitudeStart); }
    float amplitudeEnd() const noexcept override { return ai(AiExpression::amplitudeEnd); }
    float formantWhole() const noexcept override { return ai(AiExpression::formantWhole); }
    float formantStart() const noexcept override { return ai(AiExpression::formantStart); }
    float formantEnd() const noexcept override { return ai(AiExpression::formantEnd); }

    // The range rules of a note. Each stores the value if it is accepted, and otherwise changes
    // nothing.
    bool assignLyric(StringView text) { return assignText(lyric_, text); }
    bool assignPhoneme(StringView text) { return assignText(phoneme_, text); }
    bool assignLangID(std::uint32_t value) { return assign(langID_, field::language, value); }
    bool assignPos(std::int32_t value);
    bool assignDuration(std::int32_t value);
    bool assignNumber(std::uint32_t value) { return assign(number_, field::noteNumber, value); }
    bool assignVelocity(std::uint32_t value) { return assign(velocity_, field::velocity, value); }
    bool assignAccent(std::uint32_t value) { return assign(accent_, field::accent, value); }
    bool assignBendDepth(std::uint32_t value)
    {
        return assign(bendDepth_, field::bendDepth, value);
    }
    bool assignBendLength(std::uint32_t value)
    {
        return assign(bendLength_, field::bendLength, value);
    }
    bool assignDecay(std::uint32_t value) { return assign(decay_, field::decay, value); }
    bool assignOpening(std::uint32_t value) { return assign(opening_, field::opening, value); }
    bool assignProtected(bool value) { return assignFlag(isProtected_, value); }
    bool assignFallPort(bool value) { return assignFlag(fallPort_, value); }
    bool assignRisePort(bool value) { return assignFlag(risePort_, value); }
    bool assignAi(AiExpression which, float value)
    {
        return assign(aiExpression_[static_cast<std::size_t>(which)], field::aiExpression, value);
    }

    // Whether a note with the current duration may begin at `pos`.
    bool acceptsPos(std::int32_t pos) const;

protected:
    MidiPartBase* part() const { return part_; }

private:
    static bool assignText(String& slot, StringView text);
    static bool assignFlag(bool& slot, bool value);

    float ai(AiExpression which) const { return aiExpression_[static_cast<std::size_t>(which)]; }

    MidiPartBase* part_;
    String lyric_;
    String phoneme_;
    std::uint32_t langID_ = field::language.initial;
    std::int32_t pos_ = field::notePosition.initial;
    std::int32_t duration_ = field::noteDuration.initial;
    std::array<float, aiExpressionCount> aiExpression_;
    std::uint8_t number_ = field::noteNumber.initial;
    std::uint8_t velocity_ = field::velocity.initial;
    std::uint8_t accent_ = field::accent.initial;
    std::uint8_t bendDepth_ = field::bendDepth.initial;
    std::uint8_t bendLength_ = field::bendLength.initial;
    std::uint8_t decay_ = field::decay.initial;
    std::uint8_t opening_ = field::opening.initial;
    bool isProtected_ = false;
    bool fallPort_ = false;
    bool risePort_ = false;
};

class NoteImpl final : public Note, public NoteBaseImpl {
public:
    explicit NoteImpl(MidiPartBase& part);

    bool isMutable() const noexcept override { return false; }
    MidiPartBase* parent() const noexcept override { return part(); }
    VibratoImpl* vibrato() noexcept override { return &vibrato_; }
    DvqmImpl* dvqm(bool isAttack) noexcept override { return isAttack ? &attack_ : &release_; }
    SingingSkillImpl* singingSkill() noexcept override { return &singingSkill_; }
    Note* asNote() noexcept override { return this; }

private:
    VibratoImpl vibrato_;
    DvqmImpl attack_;
    DvqmImpl release_;
    SingingSkillImpl singingSkill_;
};

class MutableNoteImpl final : public MutableNote, public NoteBaseImpl {
public:
    using Siblings = BlockList<MutableNoteImpl>;

    MutableNoteImpl(MidiPartBase& part, Siblings& siblings);

    bool isMutable() const noexcept override { return true; }
    MidiPartBase* parent() const noexcept override { return part(); }
    bool remove() override;
    bool setLyric(const Char* text) override { return assignLyric(viewOrEmpty(text)); }
    bool setPhoneme(const Char* text) override { return assignPhoneme(viewOrEmpty(text)); }
    bool setLangID(std::uint32_t value) noexcept override { return assignLangID(value); }
    bool setProtected(bool value) noexcept override { return assignProtected(value); }
    bool move(std::int32_t pos) override;
    bool setDuration(std::int32_t value) noexcept override { return assignDuration(value); }
    bool setNumber(std::uint32_t value) noexcept override { return assignNumber(value); }
    bool setVelocity(std::uint32_t value) noexcept override { return assignVelocity(value); }
    bool setAccent(std::uint32_t value) noexcept override { return assignAccent(value); }
    bool setBendDepth(std::uint32_t value) noexcept override { return assignBendDepth(value); }
    bool setBendLength(std::uint32_t value) noexcept override { return assignBendLength(value); }
    bool setDecay(std::uint32_t value) noexcept override { return assignDecay(value); }
    bool setOpening(std::uint32_t value) noexcept override { return assignOpening(value); }
    bool setFallPort(bool value) noexcept override { return assignFallPort(value); }
    bool setRisePort(bool value) noexcept override { return assignRisePort(value); }
    bool setPitchFine(float value) noexcept override
    {
        return assignAi(AiExpression::pitchFine, value);
    }
    bool setPitchDriftStart(float value) noexcept override
    {
        return assignAi(AiExpression::pitchDriftStart, value);
    }
    bool setPitchDriftEnd(float value) noexcept override
    {
        return assignAi(AiExpression::pitchDriftEnd, value);
    }
    bool setPitchScalingCenter(float value) noexcept override
    {
        return assignAi(AiExpression::pitchScalingCenter, value);
    }
    bool setPitchScalingOrigin(float value) noexcept override
    {
        return assignAi(AiExpression::pitchScalingOrigin, value);
    }
    bool setPitchTransitionStart(float value) noexcept override
    {
        return assignAi(AiExpression::pitchTransitionStart, value);
    }
    bool setPitchTransitionEnd(float value) noexcept override
    {
        return assignAi(AiExpression::pitchTransitionEnd, value);
    }
    bool setAmplitudeWhole(float value) noexcept override
    {
        return assignAi(AiExpression::amplitudeWhole, value);
    }
    bool setAmplitudeStart(float value) noexcept override
    {
        return assignAi(AiExpression::amplitudeStart, value);
    }
    bool setAmplitudeEnd(float value) noexcept override
    {
        return assignAi(AiExpression::amplitudeEnd, value);
    }
    bool setFormantWhole(float value) noexcept override
    {
        return assignAi(AiExpression::formantWhole, value);
    }
    bool setFormantStart(float value) noexcept override
    {
        return assignAi(AiExpression::formantStart, value);
    }
    bool setFormantEnd(float value) noexcept override
    {
        return assignAi(AiExpression::formantEnd, value);
    }
    MutableVibratoImpl* vibrato() noexcept override { return &vibrato_; }
    MutableDvqmImpl* dvqm(bool isAttack) noexcept override
    {
        return isAttack ? &attack_ : &release_;
    }
    MutableSingingSkillImpl* singingSkill() noexcept override { return &singingSkill_; }
    MutableNote* asMutableNote() noexcept override { return this; }

private:
    Siblings& siblings_;
    MutableVibratoImpl vibrato_;
    MutableDvqmImpl attack_;
    MutableDvqmImpl release_;
    MutableSingingSkillImpl singingSkill_;
};

} // namespace Korvel::CANTORIS::PLX
