/*
 * Building the parts of new clips: a tune to be sung, and a sound.
 */
#ifndef EXAMPLES_TUNE_H
#define EXAMPLES_TUNE_H

#include <korvel/plx.h>

/* Gives an editable clip the tune "Oh, when the saints", with all that belongs to it. */
bool build_tune(KRT_PLX_ClipBase* clip);

/* Gives an editable clip an audio part that plays a wave file. */
bool build_sound(KRT_PLX_ClipBase* clip, const KRT_PLX_Char* wave_path);

#endif
