#pragma once

#include "reference/tree.h"
#include "model/note_impl.h"

namespace Korvel::CANTORIS::PLX::reference {

// Adds the notes of an array, ordered by position, equal positions in the array's order; null, or a
// value that is no array, holds none.
void readNotes(const Value* array, MidiPartBase& part, OwnedList<NoteImpl>& notes);

// What hangs on a note: each reads one object of the schema into its part of the note.
void readExpression(const Value& object, NoteBaseImpl& note);
void readAiExpression(const Value& object, NoteBaseImpl& note);
void readDvqmPair(const Value& object, NoteImpl& note);
void readSingingSkill(const Value& object, SingingSkillBaseImpl& skill);
void readVibrato(const Value& object, VibratoImpl& vibrato);

} // namespace Korvel::CANTORIS::PLX::reference
