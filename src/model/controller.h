// The interfaces of a MIDI part's controller lanes and their events.
#pragma once

#include <cstdint>

#include "model/interface.h"
#include "text.h"

namespace Korvel::CANTORIS::PLX {

class MidiPartBase;
class MidiControllerBase;
class MidiEvent;
class MutableMidiEvent;

// A (position, value) point of a lane. It has the type and the value range of its lane.
class MidiEventBase : private Interface {
public:
    virtual std::uint32_t type() const noexcept = 0;
    virtual std::int32_t pos() const noexcept = 0;
    virtual std::int32_t value() const noexcept = 0;
    virtual std::int32_t minValue() const noexcept = 0;
    virtual std::int32_t maxValue() const noexcept = 0;
    virtual ~MidiEventBase() = default;

    virtual MidiEvent* asMidiEvent() noexcept { return nullptr; }
    virtual MutableMidiEvent* asMutableMidiEvent() noexcept { return nullptr; }
};

class MidiEvent : public virtual MidiEventBase {
public:
    virtual MidiControllerBase* parent() const noexcept = 0;
};

class MutableMidiEvent : public virtual MidiEventBase {
public:
    virtual MidiControllerBase* parent() const noexcept = 0;
    virtual bool remove() = 0;
    virtual bool move(std::int32_t pos) = 0;
    virtual bool setValue(std::int32_t value) noexcept = 0;
};

class MidiController;
class MutableMidiController;

// A lane: the values of one controller over the part.
class MidiControllerBase : private Interface {
public:
    virtual std::uint32_t type() const noexcept = 0;
    virtual std::int32_t minEventValue() const noexcept = 0;
    virtual std::int32_t maxEventValue() const noexcept = 0;
    virtual std::uint64_t numEvents() const noexcept = 0;
    virtual ~MidiControllerBase() = default;

    virtual MidiController* asMidiController() noexcept { return nullptr; }
    virtual MutableMidiController* asMutableMidiController() noexcept { return nullptr; }
};

class MidiController : public virtual MidiControllerBase {
public:
    virtual MidiPartBase* parent() const noexcept = 0;
    virtual MidiEvent* event(std::uint64_t index) const noexcept = 0;
    virtual bool hasEvent(const MidiEventBase* element) const noexcept = 0;
};

class MutableMidiController : public virtual MidiControllerBase {
public:
    virtual MidiPartBase* parent() const noexcept = 0;
    virtual bool remove() = 0;
    virtual MutableMidiEvent* event(std::uint64_t index) const noexcept = 0;
    virtual bool hasEvent(const MidiEventBase* element) const noexcept = 0;
    virtual MutableMidiEvent* insertEvent(std::int32_t pos, std::int32_t value) = 0;
};

} // namespace Korvel::CANTORIS::PLX
