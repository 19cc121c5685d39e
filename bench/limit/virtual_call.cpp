#include "limit/virtual_call.h"

namespace bench {

namespace {

// Reading and editing share the state through a virtual base.
class ThingState : public virtual Thing {
public:
    [[nodiscard]] unsigned value() const override { return value_; }

protected:
    unsigned value_ = 1;
};

class EditableThingState final : public EditableThing, public ThingState {
public:
    bool setValue(unsigned value) override
    {
        value_ = value;
        return true;
    }
};

} // namespace

std::unique_ptr<Thing> makeThing()
{
    return std::make_unique<EditableThingState>();
}

bool setValueOfThing(Thing* thing, unsigned value)
{
    auto* const editable = dynamic_cast<EditableThing*>(thing);
    return editable != nullptr && editable->setValue(value);
}

} // namespace bench
