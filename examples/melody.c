#include "melody.h"

#include <stdlib.h>

#include "conventions.h"
#include "text.h"

static MelodyNote read_note(KRT_PLX_NoteBase* note)
{
    MelodyNote result = {0};
    KRT_PLX_VibratoBase* vibrato = KRT_PLX_Note_vibrato(note);
    result.begin = KRT_PLX_NoteBase_pos(note);
    result.end = result.begin + KRT_PLX_NoteBase_duration(note);
    result.vibrato_begin = result.end - KRT_PLX_VibratoBase_duration(vibrato);
    result.number = KRT_PLX_NoteBase_number(note);
    result.lyric = printable_from_utf16(KRT_PLX_NoteBase_lyric(note));
    return result;
}

Melody read_melody(KRT_PLX_PartBase* part)
{
    uint64_t count = 0;
    KRT_PLX_MidiPartBase_numNotes(part, &count);
    Melody melody = {allocate((size_t)count, sizeof(MelodyNote)), (size_t)count};
    for (size_t i = 0; i < melody.count; ++i) {
        melody.notes[i] = read_note(KRT_PLX_MidiPart_note(part, i));
    }
    return melody;
}

void free_melody(Melody* melody)
{
    for (size_t i = 0; i < melody->count; ++i) {
        free(melody->notes[i].lyric);
    }
    free(melody->notes);
    *melody = (Melody){NULL, 0};
}

static int64_t ticks_per_unit(Meter meter)
{
    return 4 * ticks_per_quarter / meter.unit;
}

/* 6/8, 9/8 and 12/8 are counted by three eighths. */
int64_t ticks_per_beat(Meter meter)
{
    bool is_compound = meter.unit == 8 && meter.beats > 3 && meter.beats % 3 == 0;
    return is_compound ? 3 * ticks_per_unit(meter) : ticks_per_unit(meter);
}

int64_t ticks_per_bar(Meter meter)
{
    return meter.beats * ticks_per_unit(meter);
}

static size_t count_held_notes(const Melody* melody, int64_t bar)
{
    size_t held = 0;
    for (size_t i = 0; i < melody->count; ++i) {
        const MelodyNote* note = &melody->notes[i];
        held += note->begin / bar != (note->end - 1) / bar;
    }
    return held;
}

Meter guess_meter(const Melody* melody, int64_t part_duration)
{
    static const Meter candidates[] = {{4, 4}, {3, 4}, {2, 4}};
    Meter best = candidates[0];
    size_t fewest = SIZE_MAX;
    for (size_t i = 0; i < sizeof candidates / sizeof *candidates; ++i) {
        int64_t bar = ticks_per_bar(candidates[i]);
        size_t held = count_held_notes(melody, bar);
        if (part_duration % bar == 0 && held < fewest) {
            best = candidates[i];
            fewest = held;
        }
    }
    return best;
}
