// What a call costs that does nothing: virtual, and behind a dynamic_cast of the kind that a library
// of read-only and editable variants would use.
#pragma once

#include <memory>

namespace bench {

class Thing {
public:
    Thing() = default;
    Thing(const Thing&) = delete;
    Thing& operator=(const Thing&) = delete;
    virtual ~Thing() = default;

    [[nodiscard]] virtual unsigned value() const = 0;
};

class EditableThing : public virtual Thing {
public:
    virtual bool setValue(unsigned value) = 0;
};

std::unique_ptr<Thing> makeThing();

// The dynamic_cast and the call behind it, in a function of its own.
bool setValueOfThing(Thing* thing, unsigned value);

} // namespace bench
