#include "clip_view.h"

#include <inttypes.h>
#include <stdio.h>
#include <stdlib.h>

#include "catalogue.h"
#include "conventions.h"
#include "display.h"
#include "library.h"
#include "part_view.h"
#include "piano_roll.h"
#include "text.h"

static void print_clip_line(KRT_PLX_ClipBase* clip, int width)
{
    Text text = {0};
    const KRT_PLX_Char* vendor = KRT_PLX_ClipBase_vendorName(clip);
    const char* key = key_name(KRT_PLX_ClipBase_partKey(clip));
    uint32_t tempo = KRT_PLX_ClipBase_partTempo(clip);
    text_append(&text, part_type_name(KRT_PLX_ClipBase_partType(clip)));
    text_append(&text, *vendor != 0 ? " by " : "");
    text_append_printable(&text, vendor);
    if (key != NULL) {
        text_append_format(&text, ", %s", key);
    }
    if (tempo != 0) {
        text_append_format(&text, ", %g beats a minute", tempo / 100.0);
    }
    print_entry("Clip", text_bytes(&text), width);
    text_free(&text);
}

static void print_heading(KRT_PLX_ClipBase* clip, int width)
{
    char* name = printable_from_utf16(KRT_PLX_Clip_name(clip));
    char* id = printable_from_utf16(KRT_PLX_Clip_id(clip));
    char* tags = tags_text(KRT_PLX_Clip_filter(clip));
    printf("%s\n", name);
    print_entry("ID", id, width);
    print_clip_line(clip, width);
    print_entry("Tags", tags, width);
    free(name);
    free(id);
    free(tags);
}

/* A file can say that a part ends far beyond what anyone wants to see in a console. */
static int64_t last_bar_to_show(const ClipView* view, int64_t bars)
{
    enum { most_bars = 64 };
    int64_t most = view->last_bar > 0 ? view->last_bar : view->first_bar + most_bars - 1;
    return most < bars ? most : bars;
}

/* The bars up to the end of the part, or of its last note if that is later. */
static int64_t count_bars(const Melody* melody, int64_t duration, Meter meter)
{
    for (size_t i = 0; i < melody->count; ++i) {
        duration = melody->notes[i].end > duration ? melody->notes[i].end : duration;
    }
    return (duration + ticks_per_bar(meter) - 1) / ticks_per_bar(meter);
}

static void print_bars(const RollView* roll, int64_t bars, bool is_guess)
{
    Text text = {0};
    text_append_format(&text, "%" PRId64, bars);
    if (roll->first_bar > roll->last_bar) {
        text_append(&text, ", and none of those asked for");
    } else if (roll->last_bar - roll->first_bar + 1 < bars) {
        text_append_format(&text, ", of which %" PRId64 " to %" PRId64, roll->first_bar,
                           roll->last_bar);
    }
    text_append_format(&text, "; meter %d/%d", roll->meter.beats, roll->meter.unit);
    text_append(&text, is_guess ? " (a guess: clips hold no meter)" : "");
    print_entry("Bars", text_bytes(&text), roll->width);
    text_free(&text);
}

static void print_roll(KRT_PLX_ClipBase* clip, KRT_PLX_PartBase* part, const ClipView* view)
{
    Melody melody = read_melody(part);
    int64_t duration = KRT_PLX_MidiPartBase_duration(part);
    bool is_guess = view->meter.beats == 0;
    Meter meter = is_guess ? guess_meter(&melody, duration) : view->meter;
    int64_t bars = count_bars(&melody, duration, meter);
    RollView roll = {meter, view->first_bar, last_bar_to_show(view, bars),
                     KRT_PLX_ClipBase_partKey(clip), view->width};
    print_bars(&roll, bars, is_guess);
    printf("\n");
    print_piano_roll(&melody, &roll);
    free_melody(&melody);
}

bool print_clip(KRT_PLX_ClipBase* clip, const ClipView* view)
{
    print_heading(clip, view->width);
    if (!KRT_PLX_Clip_readPart(clip)) {
        char* path = system_path(KRT_PLX_Clip_path(clip));
        fprintf(stderr, "the part cannot be read: %s\n", path);
        free(path);
        return false;
    }
    KRT_PLX_PartBase* midi_part = KRT_PLX_Clip_midiPart(clip);
    if (midi_part != NULL) {
        print_roll(clip, midi_part, view);
        print_midi_part(midi_part, view->width);
    } else {
        print_audio_part(KRT_PLX_Clip_audioPart(clip), view->width);
    }
    return true;
}
