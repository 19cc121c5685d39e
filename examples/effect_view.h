/*
 * A chain of effects with their parameters.
 */
#ifndef EXAMPLES_EFFECT_VIEW_H
#define EXAMPLES_EFFECT_VIEW_H

#include <korvel/plx.h>

/* The functions that count the effects of a chain and return the one at an index. */
typedef bool (*CountEffects)(KRT_PLX_PartBase* part, uint64_t* count);
typedef KRT_PLX_EffectBase* (*EffectAt)(KRT_PLX_PartBase* part, uint64_t index);

/* Prints a line for each effect of a chain. */
void print_effects(const char* kind, KRT_PLX_PartBase* part, CountEffects count_effects,
                   EffectAt effect_at, int width);

#endif
