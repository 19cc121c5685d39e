#include "model/note_impl.h"

#include "model/positions.h"

namespace Korvel::CANTORIS::PLX {

namespace {

bool endsInTime(std::int32_t pos, std::int32_t duration)
{
    return std::int64_t{pos} + duration <= lastPosition;
}

} // namespace

bool NoteBaseImpl::acceptsPos(std::int32_t pos) const
{
    return field::notePosition.accepts(pos) && endsInTime(pos, duration_);
}

bool NoteBaseImpl::assignPos(std::int32_t value)
{
    if (!acceptsPos(value)) {
        return false;
    }
    pos_ = value;
    return true;
}

bool NoteBaseImpl::assignDuration(std::int32_t value)
{
    return endsInTime(pos_, value) && assign(duration_, field::noteDuration, value);
}

bool NoteBaseImpl::assignText(String& slot, StringView text)
{
    if (text.empty()) {
        return false;
    }
    slot = String(text); // a copy first: the text may be the note's own
    return true;
}

bool NoteBaseImpl::assignFlag(bool& slot, bool value)
{
    slot = value;
    return true;
}

NoteImpl::NoteImpl(MidiPartBase& part)
    : NoteBaseImpl(part), vibrato_(*this), attack_(*this, true), release_(*this, false),
      singingSkill_(*this)
{
}

MutableNoteImpl::MutableNoteImpl(MidiPartBase& part, Siblings& siblings)
    : NoteBaseImpl(part), siblings_(siblings), vibrato_(*this), attack_(*this, true),
      release_(*this, false), singingSkill_(*this)
{
}

bool MutableNoteImpl::remove()
{
    return removeOrdered(siblings_, *this);
}

bool MutableNoteImpl::move(std::int32_t pos)
{
    if (!acceptsPos(pos)) {
        return false;
    }
    const std::size_t index = indexAt(siblings_, this, this->pos());
    siblings_.shift(index, placeAfterMove(siblings_, index, pos));
    return assignPos(pos);
}

} // namespace Korvel::CANTORIS::PLX
