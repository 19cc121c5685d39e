#include "recipes.h"

/* [vibrato] */
bool add_vibrato(KRT_PLX_NoteBase* note)
{
    KRT_PLX_VibratoBase* vibrato = KRT_PLX_MutableNote_vibrato(note);
    const int32_t length = KRT_PLX_NoteBase_duration(note) / 2;
    /* The duration comes first, because no point may lie beyond it. */
    return KRT_PLX_MutableVibrato_setDuration(vibrato, length) &&
           KRT_PLX_MutableVibrato_insertParameter(vibrato, KRT_PLX_VIBRATO_DEPTH, 0, 0) != NULL &&
           KRT_PLX_MutableVibrato_insertParameter(vibrato, KRT_PLX_VIBRATO_DEPTH, length, 60) !=
               NULL &&
           KRT_PLX_MutableVibrato_insertParameter(vibrato, KRT_PLX_VIBRATO_RATE, 0, 64) != NULL;
}
/* [vibrato] */
