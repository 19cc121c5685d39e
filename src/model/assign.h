// Storing values that a field accepts, in the same way for every field.
#pragma once

#include "model/fields.h"

namespace Korvel::CANTORIS::PLX {

// Stores the value if the field accepts it. The slot may be narrower than the type in the
// interface, if the field's range fits into it.
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
