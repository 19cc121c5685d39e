#include "reference/note_reader.h"

#include "reference/values.h"

namespace Korvel::CANTORIS::PLX::reference {

namespace {

std::unique_ptr<NoteImpl> readNote(const Value& element, MidiPartBase& part)
{
    if (!element.IsObject()) {
        return nullptr;
    }
    const Members members(element, schema::note::keys);
    auto note = std::make_unique<NoteImpl>(part);
    if (!readFields(schema::note::fields, members, *note)) {
        return nullptr;
    }
    if (const Value* const object = asObject(members[schema::note::exp])) {
        readExpression(*object, *note);
    }
    if (const Value* const object = asObject(members[schema::note::aiExp])) {
        readAiExpression(*object, *note);
    }
    // A Dvqm key of any kind keeps the singing skill from being looked at.
    if (const Value* const value = members[schema::note::dvqm]) {
        if (asObject(value) != nullptr) {
            readDvqmPair(*value, *note);
        }
    } else if (const Value* const object = asObject(members[schema::note::singingSkill])) {
        readSingingSkill(*object, *note->singingSkill());
    }
    if (const Value* const object = asObject(members[schema::note::vibrato])) {
        readVibrato(*object, *note->vibrato());
    }
    return note;
}

} // namespace

void readNotes(const Value* array, MidiPartBase& part, OwnedList<NoteImpl>& notes)
{
    if (asArray(array) == nullptr) {
        return;
    }
    notes.reserve(array->Size());
    for (const auto& element : array->GetArray()) {
        if (auto note = readNote(element, part)) {
            notes.append(std::move(note));
        }
    }
    notes.stableSortBy([](const NoteImpl& note) { return note.pos(); });
}

} // namespace Korvel::CANTORIS::PLX::reference
