#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "model/assign.h"
#include "model/expression.h"

namespace Korvel::CANTORIS::PLX {

class DvqmBaseImpl : public virtual DvqmBase {
public:
    DvqmBaseImpl(NoteBase& note, bool isAttack) : note_(&note), isAttack_(isAttack) {}

    bool isAttack() const noexcept override { return isAttack_; }
    const Char* compID() const noexcept override;
    std::uint64_t numLevelNames() const noexcept override;
    const Char* levelName(std::uint64_t index) const noexcept override;
    bool isProtected() const noexcept override { return isProtected_; }
    std::uint32_t speed() const noexcept override { return speed_; }
    float topFactor() const noexcept override { return topFactor_; }

    void assignCompID(StringView text);
    void appendLevelName(StringView text);
    void assignProtected(bool value) { isProtected_ = value; }
    bool assignSpeed(std::uint32_t value) { return assign(speed_, field::dvqmSpeed, value); }
    bool assignTopFactor(float value) { return assign(topFactor_, field::dvqmTopFactor, value); }

protected:
    NoteBase* note() const { return note_; }

private:
    // Few notes name a component; the others pay for a pointer only.
    struct Component {
        String id;
        std::vector<String> levelNames;
    };

    Component& component();

    NoteBase* note_;
    std::unique_ptr<Component> component_;
    float topFactor_ = field::dvqmTopFactor.initial;
    std::uint8_t speed_ = field::dvqmSpeed.initial;
    bool isProtected_ = false;
    bool isAttack_;
};

class DvqmImpl final : public Dvqm, public DvqmBaseImpl {
public:
    using DvqmBaseImpl::DvqmBaseImpl;

    bool isMutable() const noexcept override { return false; }
    NoteBase* parent() const noexcept override { return note(); }
    Dvqm* asDvqm() noexcept override { return this; }
};

class MutableDvqmImpl final : public MutableDvqm, public DvqmBaseImpl {
public:
    using DvqmBaseImpl::DvqmBaseImpl;

    bool isMutable() const noexcept override { return true; }
    NoteBase* parent() const noexcept override { return note(); }
    void setCompID(const Char* text) override { assignCompID(viewOrEmpty(text)); }
    bool addLevelName(const Char* text) override;
    bool protect(bool value) noexcept override;
    bool setSpeed(std::uint32_t value) noexcept override { return assignSpeed(value); }
    bool setTopFactor(float value) noexcept override { return assignTopFactor(value); }
    MutableDvqm* asMutableDvqm() noexcept override { return this; }
};

} // namespace Korvel::CANTORIS::PLX
