// The getters and setters of a note, field by field. The facts are those of the tests' list of
// properties.
#pragma once

#include <array>
#include <cstdint>

#include <korvel/plx.h>

#include "model/part.h"

namespace bench {

template <class Value>
struct NoteField {
    Value NoteValues::*member;
    Value (*get)(KRT_PLX_NoteBase*);
    bool (*set)(KRT_PLX_NoteBase*, Value);
};

extern const std::array<NoteField<std::uint32_t>, 7> noteNumbers;
extern const std::array<NoteField<bool>, 3> noteSwitches;

struct AiValue {
    float (*get)(KRT_PLX_NoteBase*);
    bool (*set)(KRT_PLX_NoteBase*, float);
};

// In the order of NoteValues::aiValues.
extern const std::array<AiValue, aiValueCount> aiValues;

// Throws when the benchmark's own model of a part says something else than the list: what the
// alternatives read and write is that model.
void requireListedFacts();

} // namespace bench
