// How a checked value is stored: one form for every range rule.
#pragma once

#include "model/fields.h"

namespace Korvel::CANTORIS::PLX {

// Stores the value if the field accepts it. Slots may be narrower than the type at the boundary: the
// field's range fits them.
template <class Slot, class Value>
bool assign(Slot& slot, const Field<Value>& field, Value value)
{
    if (!field.accepts(value)) {
        return false;
    }
    slot = static_cast<Slot>(value);
    return true;
}

} // namespace Korvel::CANTORIS::PLX
