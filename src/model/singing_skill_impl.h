#pragma once

#include <cstdint>

#include "model/assign.h"
#include "model/expression.h"

namespace Korvel::CANTORIS::PLX {

class SingingSkillBaseImpl : public virtual SingingSkillBase {
public:
    explicit SingingSkillBaseImpl(NoteBase& note) : note_(&note) {}

    std::int32_t duration() const noexcept override { return duration_; }
    std::uint32_t preWeight() const noexcept override { return preWeight_; }
    std::uint32_t postWeight() const noexcept override { return postWeight_; }

    // 0 up to the note's current duration.
    bool assignDuration(std::int32_t value);
    bool assignPreWeight(std::uint32_t value);
    bool assignPostWeight(std::uint32_t value);

protected:
    NoteBase* note() const { return note_; }

private:
    NoteBase* note_;
    std::int32_t duration_ = 0;
    std::uint8_t preWeight_ = field::singingSkillWeight.initial;
    std::uint8_t postWeight_ = field::singingSkillWeight.initial;
};

class SingingSkillImpl final : public SingingSkill, public SingingSkillBaseImpl {
public:
    using SingingSkillBaseImpl::SingingSkillBaseImpl;

    bool isMutable() const noexcept override { return false; }
    NoteBase* parent() const noexcept override { return note(); }
    SingingSkill* asSingingSkill() noexcept override { return this; }
};

class MutableSingingSkillImpl final : public MutableSingingSkill, public SingingSkillBaseImpl {
public:
    using SingingSkillBaseImpl::SingingSkillBaseImpl;

    bool isMutable() const noexcept override { return true; }
    NoteBase* parent() const noexcept override { return note(); }
    bool setDuration(std::int32_t value) noexcept override { return assignDuration(value); }
    bool setPreWeight(std::uint32_t value) noexcept override { return assignPreWeight(value); }
    bool setPostWeight(std::uint32_t value) noexcept override { return assignPostWeight(value); }
    MutableSingingSkill* asMutableSingingSkill() noexcept override { return this; }
};

} // namespace Korvel::CANTORIS::PLX
