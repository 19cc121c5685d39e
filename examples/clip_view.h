/*
 * One clip in full.
 */
#ifndef EXAMPLES_CLIP_VIEW_H
#define EXAMPLES_CLIP_VIEW_H

#include "melody.h"

/* How to show a clip. Bars count from 1. */
typedef struct ClipView {
    Meter meter;       /* no beats: guess it */
    int64_t first_bar; /* of the piano roll */
    int64_t last_bar;  /* 0: to the end of the part */
    int width;         /* of the console, in columns */
} ClipView;

/* Reads the clip's part and shows it. False when the part cannot be read. */
bool print_clip(KRT_PLX_ClipBase* clip, const ClipView* view);

#endif
