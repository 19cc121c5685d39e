#include "reading.h"

/* What is changed in a part, and how far. */
typedef struct Change {
    Api* plx;
    KRT_PLX_PartBase* part;
    KRT_PLX_KitReport* report;
    int64_t offset;
} Change;

static bool isEditableMidiPart(Api* plx, KRT_PLX_PartBase* part)
{
    return kitIsReady(plx) && plx->KRT_PLX_MutableMidiPart_parent(part) != NULL;
}

static KitPlace placeOf(const Change* change, uint64_t index, KRT_PLX_NoteBase* note)
{
    return (KitPlace){change->report, KRT_PLX_KIT_NOTE, index,
                      change->plx->KRT_PLX_NoteBase_pos(note)};
}

static KitPlace placeOfLane(const Change* change, uint32_t type)
{
    return (KitPlace){change->report, KRT_PLX_KIT_LANE, type, 0};
}

static KRT_PLX_NoteBase* noteAt(const Change* change, uint64_t index)
{
    return change->plx->KRT_PLX_MutableMidiPart_note(change->part, index);
}

/* Tells of something that was not done, and returns whether it was. */
static bool tellUnless(bool isDone, const KitPlace* place, const char* property, uint32_t reason)
{
    if (!isDone) {
        kitTellOf(place, property, reason);
    }
    return isDone;
}

/* --- Transposing ------------------------------------------------------------------------------------ */

static bool canTranspose(const Change* change)
{
    enum { highest = 127 };
    const uint64_t count = kitCountNotes(change->plx, change->part);
    bool can = true;
    for (uint64_t i = 0; i < count; ++i) {
        KRT_PLX_NoteBase* note = noteAt(change, i);
        const KitPlace place = placeOf(change, i, note);
        const int64_t number = change->plx->KRT_PLX_NoteBase_number(note) + change->offset;
        can = tellUnless(number >= 0 && number <= highest, &place, "number",
                         KRT_PLX_KIT_OUT_OF_RANGE) &&
              can;
    }
    return can;
}

bool KRT_PLX_Kit_transpose(Api* plx, KRT_PLX_PartBase* part, int32_t semitones,
                           KRT_PLX_KitReport* report)
{
    const Change change = {plx, part, report, semitones};
    if (!isEditableMidiPart(plx, part) || !canTranspose(&change)) {
        return false;
    }
    const uint64_t count = kitCountNotes(plx, part);
    for (uint64_t i = 0; i < count; ++i) {
        KRT_PLX_NoteBase* note = noteAt(&change, i);
        plx->KRT_PLX_MutableNote_setNumber(
            note, (uint32_t)(plx->KRT_PLX_NoteBase_number(note) + change.offset));
    }
    return true;
}

/* --- Moving ----------------------------------------------------------------------------------------- */

static bool canMoveNotes(const Change* change)
{
    const uint64_t count = kitCountNotes(change->plx, change->part);
    bool can = true;
    for (uint64_t i = 0; i < count; ++i) {
        KRT_PLX_NoteBase* note = noteAt(change, i);
        const KitPlace place = placeOf(change, i, note);
        const int64_t pos = place.pos + change->offset;
        const int64_t end = pos + change->plx->KRT_PLX_NoteBase_duration(note);
        can = tellUnless(pos >= INT32_MIN && end <= INT32_MAX, &place, "pos",
                         KRT_PLX_KIT_OUT_OF_RANGE) &&
              can;
    }
    return can;
}

static bool canMoveEvents(const Change* change, uint32_t type)
{
    Api* plx = change->plx;
    KRT_PLX_MidiControllerBase* lane =
        plx->KRT_PLX_MutableMidiPart_midiController(change->part, type);
    const KitPlace place = placeOfLane(change, type);
    const uint64_t count = kitCountEvents(plx, lane);
    bool can = true;
    for (uint64_t i = 0; i < count; ++i) {
        const int32_t pos =
            plx->KRT_PLX_MidiEventBase_pos(plx->KRT_PLX_MutableMidiController_event(lane, i));
        const int64_t target = pos + change->offset;
        if (target < INT32_MIN || target > INT32_MAX) {
            kitTellInner(&place, "pos", KRT_PLX_KIT_OUT_OF_RANGE, i, pos);
            can = false;
        }
    }
    return can;
}

static bool canMove(const Change* change)
{
    bool can = canMoveNotes(change);
    for (uint32_t type = 0; type < KRT_PLX_CONTROLLER_NONE; ++type) {
        can = canMoveEvents(change, type) && can;
    }
    return can;
}

/* What is moved first must not land on what is still to be moved: an event there would die, and notes
   would change their order. */
static uint64_t nextInOrder(const Change* change, uint64_t count, uint64_t step)
{
    return change->offset > 0 ? count - 1 - step : step;
}

static void moveNotes(const Change* change)
{
    const uint64_t count = kitCountNotes(change->plx, change->part);
    for (uint64_t step = 0; step < count; ++step) {
        KRT_PLX_NoteBase* note = noteAt(change, nextInOrder(change, count, step));
        change->plx->KRT_PLX_MutableNote_move(
            note, (int32_t)(change->plx->KRT_PLX_NoteBase_pos(note) + change->offset));
    }
}

static void moveEvents(const Change* change, uint32_t type)
{
    Api* plx = change->plx;
    KRT_PLX_MidiControllerBase* lane =
        plx->KRT_PLX_MutableMidiPart_midiController(change->part, type);
    const uint64_t count = kitCountEvents(plx, lane);
    for (uint64_t step = 0; step < count; ++step) {
        KRT_PLX_MidiEventBase* event =
            plx->KRT_PLX_MutableMidiController_event(lane, nextInOrder(change, count, step));
        plx->KRT_PLX_MutableMidiEvent_move(
            event, (int32_t)(plx->KRT_PLX_MidiEventBase_pos(event) + change->offset));
    }
}

static void moveAll(const Change* change)
{
    if (change->offset == 0) {
        return;
    }
    moveNotes(change);
    for (uint32_t type = 0; type < KRT_PLX_CONTROLLER_NONE; ++type) {
        moveEvents(change, type);
    }
}

static void tellNotesOutside(const Change* change)
{
    const uint64_t count = kitCountNotes(change->plx, change->part);
    const int32_t duration = change->plx->KRT_PLX_MidiPartBase_duration(change->part);
    for (uint64_t i = 0; i < count; ++i) {
        KRT_PLX_NoteBase* note = noteAt(change, i);
        const KitPlace place = placeOf(change, i, note);
        const int64_t end = (int64_t)place.pos + change->plx->KRT_PLX_NoteBase_duration(note);
        tellUnless(place.pos >= 0 && end <= duration, &place, "pos", KRT_PLX_KIT_OUTSIDE_PART);
    }
}

bool KRT_PLX_Kit_move(Api* plx, KRT_PLX_PartBase* part, int32_t ticks, KRT_PLX_KitReport* report)
{
    const Change change = {plx, part, report, ticks};
    if (!isEditableMidiPart(plx, part) || !canMove(&change)) {
        return false;
    }
    moveAll(&change);
    tellNotesOutside(&change);
    return true;
}

/* --- Cutting ---------------------------------------------------------------------------------------- */

typedef struct Range {
    int32_t begin;
    int32_t end;
} Range;

static void cutPoints(const Change* change, const KitPlace* place, KRT_PLX_VibratoBase* vibrato,
                      uint32_t kind, int32_t duration)
{
    Api* plx = change->plx;
    for (uint64_t i = kitCountPoints(plx, vibrato, kind); i-- > 0;) {
        KRT_PLX_VibratoParameterBase* point =
            plx->KRT_PLX_MutableVibrato_parameter(vibrato, kind, i);
        const int32_t pos = plx->KRT_PLX_VibratoParameterBase_pos(point);
        if (pos > duration && plx->KRT_PLX_MutableVibratoParameter_remove(point)) {
            kitTellInner(place, kitCurveKey(kind), KRT_PLX_KIT_CUT_AWAY, i, pos);
        }
    }
}

static void shortenVibrato(const Change* change, KitPlace place, KRT_PLX_NoteBase* note,
                           int32_t duration)
{
    Api* plx = change->plx;
    KRT_PLX_VibratoBase* vibrato = plx->KRT_PLX_MutableNote_vibrato(note);
    if (plx->KRT_PLX_VibratoBase_duration(vibrato) <= duration) {
        return;
    }
    place.item = KRT_PLX_KIT_VIBRATO;
    kitTellOf(&place, "duration", KRT_PLX_KIT_SHORTENED);
    cutPoints(change, &place, vibrato, KRT_PLX_VIBRATO_DEPTH, duration);
    cutPoints(change, &place, vibrato, KRT_PLX_VIBRATO_RATE, duration);
    plx->KRT_PLX_MutableVibrato_setDuration(vibrato, duration);
}

static void shortenSkill(const Change* change, KitPlace place, KRT_PLX_NoteBase* note,
                         int32_t duration)
{
    Api* plx = change->plx;
    KRT_PLX_SingingSkillBase* skill = plx->KRT_PLX_MutableNote_singingSkill(note);
    if (plx->KRT_PLX_SingingSkillBase_duration(skill) > duration) {
        place.item = KRT_PLX_KIT_SINGING_SKILL;
        kitTellOf(&place, "duration", KRT_PLX_KIT_SHORTENED);
        plx->KRT_PLX_MutableSingingSkill_setDuration(skill, duration);
    }
}

static int32_t endOf(const Change* change, KRT_PLX_NoteBase* note)
{
    return change->plx->KRT_PLX_NoteBase_pos(note) + change->plx->KRT_PLX_NoteBase_duration(note);
}

static void shortenNote(const Change* change, const KitPlace* place, KRT_PLX_NoteBase* note,
                        Range range)
{
    const int32_t begin = place->pos > range.begin ? place->pos : range.begin;
    const int32_t noteEnd = endOf(change, note);
    const int32_t end = noteEnd < range.end ? noteEnd : range.end;
    if (begin == place->pos && end == noteEnd) {
        return;
    }
    kitTellOf(place, "duration", KRT_PLX_KIT_SHORTENED);
    shortenVibrato(change, *place, note, end - begin);
    shortenSkill(change, *place, note, end - begin);
    change->plx->KRT_PLX_MutableNote_setDuration(note, end - begin);
    change->plx->KRT_PLX_MutableNote_move(note, begin);
}

/* From the last one on, so that the places of the others stay. */
static void cutNotes(const Change* change, Range range)
{
    for (uint64_t i = kitCountNotes(change->plx, change->part); i-- > 0;) {
        KRT_PLX_NoteBase* note = noteAt(change, i);
        const KitPlace place = placeOf(change, i, note);
        if (place.pos < range.end && endOf(change, note) > range.begin) {
            shortenNote(change, &place, note, range);
        } else if (change->plx->KRT_PLX_MutableNote_remove(note)) {
            kitTellOf(&place, "", KRT_PLX_KIT_CUT_AWAY);
        }
    }
}

/* From the last one on. The last event before the range moves to its beginning, if none is there. */
static void cutEvents(const Change* change, uint32_t type, Range range)
{
    Api* plx = change->plx;
    KRT_PLX_MidiControllerBase* lane =
        plx->KRT_PLX_MutableMidiPart_midiController(change->part, type);
    const KitPlace place = placeOfLane(change, type);
    bool hasFirst = false;
    for (uint64_t i = kitCountEvents(plx, lane); i-- > 0;) {
        KRT_PLX_MidiEventBase* event = plx->KRT_PLX_MutableMidiController_event(lane, i);
        const int32_t pos = plx->KRT_PLX_MidiEventBase_pos(event);
        if (pos >= range.begin && pos < range.end) {
            hasFirst = hasFirst || pos == range.begin;
        } else if (pos < range.begin && !hasFirst) {
            hasFirst = plx->KRT_PLX_MutableMidiEvent_move(event, range.begin);
        } else if (plx->KRT_PLX_MutableMidiEvent_remove(event)) {
            kitTellInner(&place, "", KRT_PLX_KIT_CUT_AWAY, i, pos);
        }
    }
}

bool KRT_PLX_Kit_cut(Api* plx, KRT_PLX_PartBase* part, int32_t begin, int32_t end,
                     KRT_PLX_KitReport* report)
{
    const Change change = {plx, part, report, -(int64_t)begin};
    const Range range = {begin, end};
    const int64_t duration = (int64_t)end - begin;
    if (!isEditableMidiPart(plx, part) || duration < 1 || duration > INT32_MAX) {
        return false;
    }
    cutNotes(&change, range);
    for (uint32_t type = 0; type < KRT_PLX_CONTROLLER_NONE; ++type) {
        cutEvents(&change, type, range);
    }
    moveAll(&change);
    const KitPlace whole = {report, KRT_PLX_KIT_PART, 0, 0};
    return tellUnless(plx->KRT_PLX_MutableMidiPart_setDuration(part, (int32_t)duration), &whole,
                      "duration", KRT_PLX_KIT_REFUSED);
}
