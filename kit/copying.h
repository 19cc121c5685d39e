/* Copying the parts of a clip, each with its losses. */
#ifndef KIT_COPYING_H
#define KIT_COPYING_H

#include "reading.h"

/* What copies of single values go to; a value that is the same already is not set. */
typedef struct KitCopy {
    Api* plx;
    KitPlace place;
} KitCopy;

/* Tells of a property that was not taken. */
void kitTakes(const KitCopy* copy, const char* property, bool isTaken);

void kitCopyNote(const KitCopy* copy, KRT_PLX_NoteBase* source, KRT_PLX_NoteBase* target);
void kitCopyExpressions(const KitCopy* copy, KRT_PLX_NoteBase* source, KRT_PLX_NoteBase* target);
void kitCopyLanes(const KitCopy* copy, KRT_PLX_PartBase* source, KRT_PLX_PartBase* target);
void kitCopyEffects(const KitCopy* copy, KitChain source, KitChain target);

#endif
