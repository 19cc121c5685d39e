/* What the sources of the kit share. */
#ifndef KIT_KIT_H
#define KIT_KIT_H

#include <korvel/plx_kit.h>
#include <korvel/plx_loader.h>

typedef const struct KRT_PLX_Api Api;

/* Whether the table has functions. */
bool kitIsReady(Api* plx);

/* Tells a notice to a report, which may be null. */
void kitTell(KRT_PLX_KitReport* report, const KRT_PLX_KitNotice* notice);

/* How many there are; 0 for a handle that is rejected. */
uint64_t kitCountNotes(Api* plx, KRT_PLX_PartBase* part);
uint64_t kitCountEvents(Api* plx, KRT_PLX_MidiControllerBase* lane);
uint64_t kitCountPoints(Api* plx, KRT_PLX_VibratoBase* vibrato, uint32_t kind);

/* Whether two texts have the same units; null is as good as empty. */
bool kitHasSameUnits(const KRT_PLX_Char* left, const KRT_PLX_Char* right);

/* The key of a vibrato's curve in documents. */
const char* kitCurveKey(uint32_t kind);

/* The lists of texts in a filter: all but the languages. */
typedef struct KitTexts {
    uint32_t list; /* KRT_PLX_KitTagList */
    const char* key;
    bool (*count)(KRT_PLX_Filter*, uint64_t*);
    const KRT_PLX_Char* (*at)(KRT_PLX_Filter*, uint64_t);
    bool (*add)(KRT_PLX_Filter*, const KRT_PLX_Char*);
    bool (*remove)(KRT_PLX_Filter*, const KRT_PLX_Char*);
} KitTexts;
enum { kitTextsCount = 5 };
void kitListTexts(Api* plx, KitTexts lists[kitTextsCount]);

/* The AI expression of a note. */
typedef struct KitFloat {
    const char* key;
    float (*get)(KRT_PLX_NoteBase*);
    bool (*set)(KRT_PLX_NoteBase*, float);
} KitFloat;
enum { kitFloatCount = 13 };
void kitListFloats(Api* plx, KitFloat floats[kitFloatCount]);

/* Where something stands in a clip, for a notice. */
typedef struct KitPlace {
    KRT_PLX_KitReport* report;
    uint32_t item;
    uint64_t index;
    int32_t pos;
} KitPlace;

/* A property of what stands there, or all of it for "". */
void kitTellOf(const KitPlace* place, const char* property, uint32_t reason);

/* The same of one of its points, events, parameters or tags. */
void kitTellInner(const KitPlace* place, const char* property, uint32_t reason, uint64_t inner,
                  int32_t pos);

#endif
