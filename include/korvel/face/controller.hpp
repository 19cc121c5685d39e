/**
 * @file controller.hpp
 * Controller lanes and their events; see plx/controller.h.
 */
#ifndef KORVEL_FACE_CONTROLLER_HPP
#define KORVEL_FACE_CONTROLLER_HPP

#include <korvel/face/codes.hpp>
#include <korvel/face/handle.hpp>
#include <korvel/face/range.hpp>
#include <korvel/plx/controller.h>

namespace korvel::plx {

class MidiController;
class MidiEvent;
class MidiPart;
class MutableMidiController;
class MutableMidiEvent;
class MutableMidiPart;

/** Any event of a lane. */
class MidiEventBase : public Handle<KRT_PLX_MidiEventBase> {
public:
    using Handle::Handle;

    [[nodiscard]] ControllerType type() const noexcept
    {
        return static_cast<ControllerType>(KRT_PLX_MidiEventBase_type(raw()));
    }
    [[nodiscard]] std::int32_t pos() const noexcept { return KRT_PLX_MidiEventBase_pos(raw()); }
    [[nodiscard]] std::int32_t value() const noexcept { return KRT_PLX_MidiEventBase_value(raw()); }
    [[nodiscard]] std::int32_t minValue() const noexcept
    {
        return KRT_PLX_MidiEventBase_minValue(raw());
    }
    [[nodiscard]] std::int32_t maxValue() const noexcept
    {
        return KRT_PLX_MidiEventBase_maxValue(raw());
    }

    [[nodiscard]] MidiEvent asMidiEvent() const noexcept;
    [[nodiscard]] MutableMidiEvent asMutableMidiEvent() const noexcept;
};

/** A read-only event. */
class MidiEvent : public MidiEventBase {
public:
    using MidiEventBase::MidiEventBase;

    [[nodiscard]] MidiController parent() const noexcept;
};

/** An editable event. */
class MutableMidiEvent : public MidiEventBase {
public:
    using MidiEventBase::MidiEventBase;

    [[nodiscard]] MutableMidiController parent() const noexcept;

    /** Kills the handle of an event that stands there already. */
    bool move(std::int32_t pos) const noexcept { return KRT_PLX_MutableMidiEvent_move(raw(), pos); }
    /** Kills this handle. */
    bool remove() const noexcept { return KRT_PLX_MutableMidiEvent_remove(raw()); }
    bool setValue(std::int32_t value) const noexcept
    {
        return KRT_PLX_MutableMidiEvent_setValue(raw(), value);
    }
};

/** Any lane. */
class MidiControllerBase : public Handle<KRT_PLX_MidiControllerBase> {
public:
    using Handle::Handle;

    [[nodiscard]] ControllerType type() const noexcept
    {
        return static_cast<ControllerType>(KRT_PLX_MidiControllerBase_type(raw()));
    }
    [[nodiscard]] std::int32_t minEventValue() const noexcept
    {
        return KRT_PLX_MidiControllerBase_minEventValue(raw());
    }
    [[nodiscard]] std::int32_t maxEventValue() const noexcept
    {
        return KRT_PLX_MidiControllerBase_maxEventValue(raw());
    }
    [[nodiscard]] std::uint64_t numEvents() const noexcept
    {
        return detail::count(KRT_PLX_MidiControllerBase_numEvents, raw());
    }

    [[nodiscard]] MidiController asMidiController() const noexcept;
    [[nodiscard]] MutableMidiController asMutableMidiController() const noexcept;
};

/** A read-only lane. */
class MidiController : public MidiControllerBase {
public:
    using MidiControllerBase::MidiControllerBase;

    [[nodiscard]] MidiPart parent() const noexcept;

    [[nodiscard]] MidiEvent event(std::uint64_t index) const noexcept
    {
        return MidiEvent(KRT_PLX_MidiController_event(raw(), index));
    }
    [[nodiscard]] bool hasEvent(MidiEventBase element) const noexcept
    {
        return KRT_PLX_MidiController_hasEvent(raw(), element.raw());
    }
    /** By position, ascending. */
    [[nodiscard]] Range<MidiController, &MidiControllerBase::numEvents, &MidiController::event>
    events() const noexcept
    {
        return Range<MidiController, &MidiControllerBase::numEvents, &MidiController::event>(*this);
    }
};

/** An editable lane. */
class MutableMidiController : public MidiControllerBase {
public:
    using MidiControllerBase::MidiControllerBase;

    [[nodiscard]] MutableMidiPart parent() const noexcept;

    [[nodiscard]] MutableMidiEvent event(std::uint64_t index) const noexcept
    {
        return MutableMidiEvent(KRT_PLX_MutableMidiController_event(raw(), index));
    }
    [[nodiscard]] bool hasEvent(MidiEventBase element) const noexcept
    {
        return KRT_PLX_MutableMidiController_hasEvent(raw(), element.raw());
    }
    /** By position, ascending. */
    [[nodiscard]] auto events() const noexcept
    {
        return Range<MutableMidiController, &MidiControllerBase::numEvents,
            &MutableMidiController::event>(*this);
    }

    MutableMidiEvent insertEvent(std::int32_t pos, std::int32_t value) const noexcept
    {
        return MutableMidiEvent(KRT_PLX_MutableMidiController_insertEvent(raw(), pos, value));
    }
    /** Kills this handle and those of the events. */
    bool remove() const noexcept { return KRT_PLX_MutableMidiController_remove(raw()); }
};

inline MidiEvent MidiEventBase::asMidiEvent() const noexcept
{
    return detail::castIf<MidiEvent>(KRT_PLX_MidiEvent_parent(raw()) != nullptr, *this);
}

inline MutableMidiEvent MidiEventBase::asMutableMidiEvent() const noexcept
{
    return detail::castIf<MutableMidiEvent>(
        KRT_PLX_MutableMidiEvent_parent(raw()) != nullptr, *this);
}

inline MidiController MidiEvent::parent() const noexcept
{
    return MidiController(KRT_PLX_MidiEvent_parent(raw()));
}

inline MutableMidiController MutableMidiEvent::parent() const noexcept
{
    return MutableMidiController(KRT_PLX_MutableMidiEvent_parent(raw()));
}

inline MidiController MidiControllerBase::asMidiController() const noexcept
{
    return detail::castIf<MidiController>(KRT_PLX_MidiController_parent(raw()) != nullptr, *this);
}

inline MutableMidiController MidiControllerBase::asMutableMidiController() const noexcept
{
    return detail::castIf<MutableMidiController>(
        KRT_PLX_MutableMidiController_parent(raw()) != nullptr, *this);
}

/** Walks the lanes that a part has, by type; see Lanes. */
template <typename Part>
class LaneIterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = decltype(std::declval<const Part&>().midiController(ControllerType()));
    using difference_type = std::ptrdiff_t;
    using reference = value_type;
    using pointer = const value_type*;

    LaneIterator() noexcept = default;
    LaneIterator(Part part, std::uint32_t type) noexcept : part_(part), type_(type) { skip(); }

    reference operator*() const noexcept { return lane_; }
    pointer operator->() const noexcept { return &lane_; }
    LaneIterator& operator++() noexcept
    {
        ++type_;
        skip();
        return *this;
    }
    LaneIterator operator++(int) noexcept
    {
        const LaneIterator old = *this;
        ++*this;
        return old;
    }

    friend bool operator==(const LaneIterator& left, const LaneIterator& right) noexcept
    {
        return left.type_ == right.type_;
    }
    friend bool operator!=(const LaneIterator& left, const LaneIterator& right) noexcept
    {
        return left.type_ != right.type_;
    }

private:
    void skip() noexcept
    {
        lane_ = value_type();
        while (type_ < KRT_PLX_CONTROLLER_NONE && !lane_) {
            lane_ = part_.midiController(static_cast<ControllerType>(type_));
            type_ += lane_ ? 0 : 1;
        }
    }

    Part part_;
    std::uint32_t type_ = KRT_PLX_CONTROLLER_NONE;
    value_type lane_;
};

/** The lanes that a part has, by type. The library has no count of them and no places. */
template <typename Part>
class Lanes {
public:
    /** Goes from lane to lane. */
    using iterator = LaneIterator<Part>;

    /** All lanes of a part. */
    explicit Lanes(Part part) noexcept : part_(part) {}

    /** At the first lane. */
    [[nodiscard]] iterator begin() const noexcept { return iterator(part_, 0); }
    /** Behind the last lane. */
    [[nodiscard]] iterator end() const noexcept { return iterator(part_, KRT_PLX_CONTROLLER_NONE); }
    /** Whether there are none. */
    [[nodiscard]] bool empty() const noexcept { return begin() == end(); }

private:
    Part part_;
};

} // namespace korvel::plx

#endif
