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

// A (position, value) point of a lane. Its type and value range are its lane's.
class MidiEventBase : private Interface {
public:
    virtual std::uint32_t type() const = 0;
    virtual std::int32_t pos() const = 0;
    virtual std::int32_t value() const = 0;
    virtual std::int32_t minValue() const = 0;
    virtual std::int32_t maxValue() const = 0;
    virtual ~MidiEventBase() = default;

    virtual MidiEvent* asMidiEvent() { return nullptr; }
    virtual MutableMidiEvent* asMutableMidiEvent() { return nullptr; }
};

class MidiEvent : public virtual MidiEventBase {
public:
    virtual MidiControllerBase* parent() const = 0;
};

class MutableMidiEvent : public virtual MidiEventBase {
public:
    virtual MidiControllerBase* parent() const = 0;
    virtual bool remove() = 0;
    virtual bool move(std::int32_t pos) = 0;
    virtual bool setValue(std::int32_t value) = 0;
};

class MidiController;
class MutableMidiController;

// A lane: the course of one control over the part.
class MidiControllerBase : private Interface {
public:
    virtual std::uint32_t type() const = 0;
    virtual std::int32_t minEventValue() const = 0;
    virtual std::int32_t maxEventValue() const = 0;
    virtual std::uint64_t numEvents() const = 0;
    virtual ~MidiControllerBase() = default;

    virtual MidiController* asMidiController() { return nullptr; }
    virtual MutableMidiController* asMutableMidiController() { return nullptr; }
};

class MidiController : public virtual MidiControllerBase {
public:
    virtual MidiPartBase* parent() const = 0;
    virtual MidiEvent* event(std::uint64_t index) const = 0;
    virtual bool hasEvent(const MidiEventBase* element) const = 0;
};

class MutableMidiController : public virtual MidiControllerBase {
public:
    virtual MidiPartBase* parent() const = 0;
    virtual bool remove() = 0;
    virtual MutableMidiEvent* event(std::uint64_t index) const = 0;
    virtual bool hasEvent(const MidiEventBase* element) const = 0;
    virtual MutableMidiEvent* insertEvent(std::int32_t pos, std::int32_t value) = 0;
};

} // namespace Korvel::CANTORIS::PLX
