/*
 * What a part holds besides its notes, in a few lines.
 */
#ifndef EXAMPLES_PART_VIEW_H
#define EXAMPLES_PART_VIEW_H

#include <korvel/plx.h>

/* Voice, expressions of the notes, controller lanes and effects. */
void print_midi_part(KRT_PLX_PartBase* part, int width);

/* Wave file and effects. */
void print_audio_part(KRT_PLX_PartBase* part, int width);

#endif
