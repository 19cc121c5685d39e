#pragma once

#include <cstdint>
#include <vector>

#include "model/codes.h"
#include "model/controller.h"
#include "model/lists.h"
#include "model/positions.h"

namespace Korvel::CANTORIS::PLX {

class MidiEventBaseImpl : public virtual MidiEventBase {
public:
    MidiEventBaseImpl(MidiControllerBase& lane, CurvePoint point)
        : lane_(&lane), pos_(point.pos), value_(point.value)
    {
    }

    std::uint32_t type() const noexcept override { return lane_->type(); }
    std::int32_t pos() const noexcept override { return pos_; }
    std::int32_t value() const noexcept override { return value_; }
    std::int32_t minValue() const noexcept override { return lane_->minEventValue(); }
    std::int32_t maxValue() const noexcept override { return lane_->maxEventValue(); }

    bool assignValue(std::int32_t value);

protected:
    MidiControllerBase* lane() const { return lane_; }
    void assignPos(std::int32_t pos) { pos_ = pos; }

private:
    MidiControllerBase* lane_;
    std::int32_t pos_;
    std::int32_t value_;
};

class MidiEventImpl final : public MidiEvent, public MidiEventBaseImpl {
public:
    using MidiEventBaseImpl::MidiEventBaseImpl;

    MidiControllerBase* parent() const noexcept override { return lane(); }
    MidiEvent* asMidiEvent() noexcept override { return this; }
};

class MidiControllerBaseImpl : public virtual MidiControllerBase {
public:
    MidiControllerBaseImpl(MidiPartBase& part, std::uint32_t type) : part_(&part), type_(type) {}

    std::uint32_t type() const noexcept override { return type_; }
    std::int32_t minEventValue() const noexcept override { return controller::type(type_).minimum; }
    std::int32_t maxEventValue() const noexcept override { return controller::type(type_).maximum; }

protected:
    MidiPartBase* part() const { return part_; }

private:
    MidiPartBase* part_;
    std::uint32_t type_;
};

class MidiControllerImpl final : public MidiController, public MidiControllerBaseImpl {
public:
    using MidiControllerBaseImpl::MidiControllerBaseImpl;

    // Replaces the events. The values of the points must be accepted ones; their order does not
    // matter.
    void buildEvents(std::vector<CurvePoint>& points);

    std::uint64_t numEvents() const noexcept override { return events_.size(); }
    MidiPartBase* parent() const noexcept override { return part(); }
    MidiEvent* event(std::uint64_t index) const noexcept override { return events_.at(index); }
    bool hasEvent(const MidiEventBase* element) const noexcept override
    {
        return events_.has(element);
    }
    MidiController* asMidiController() noexcept override { return this; }

private:
    FixedList<MidiEventImpl> events_;
};

class MutableMidiControllerImpl;

class MutableMidiEventImpl final : public MutableMidiEvent, public MidiEventBaseImpl {
public:
    MutableMidiEventImpl(MutableMidiControllerImpl& lane, std::int32_t pos);

    MidiControllerBase* parent() const noexcept override { return lane(); }
    bool remove() override;
    bool move(std::int32_t pos) override;
    bool setValue(std::int32_t value) noexcept override { return assignValue(value); }
    MutableMidiEvent* asMutableMidiEvent() noexcept override { return this; }

private:
    MutableMidiControllerImpl& owner_;
};

class MutableMidiControllerImpl final : public MutableMidiController,
                                        public MidiControllerBaseImpl {
public:
    using Siblings = OwnedList<MutableMidiControllerImpl>;

    MutableMidiControllerImpl(MidiPartBase& part, Siblings& siblings, std::uint32_t type)
        : MidiControllerBaseImpl(part, type), siblings_(siblings)
    {
    }

    BlockList<MutableMidiEventImpl>& events() { return events_; }

    std::uint64_t numEvents() const noexcept override { return events_.size(); }
    MidiPartBase* parent() const noexcept override { return part(); }
    bool remove() override { return siblings_.remove(this); }
    MutableMidiEvent* event(std::uint64_t index) const noexcept override
    {
        return events_.at(index);
    }
    bool hasEvent(const MidiEventBase* element) const noexcept override
    {
        return events_.has(element);
    }
    MutableMidiEvent* insertEvent(std::int32_t pos, std::int32_t value) override;
    MutableMidiController* asMutableMidiController() noexcept override { return this; }

private:
    Siblings& siblings_;
    BlockList<MutableMidiEventImpl> events_;
};

} // namespace Korvel::CANTORIS::PLX
