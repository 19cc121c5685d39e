#include "copying.h"

void kitTakes(const KitCopy* copy, const char* property, bool isTaken)
{
    if (!isTaken) {
        kitTellOf(&copy->place, property, KRT_PLX_KIT_REFUSED);
    }
}

static void copyNumbers(const KitCopy* copy, KRT_PLX_NoteBase* source, KRT_PLX_NoteBase* target)
{
    Api* plx = copy->plx;
    const struct {
        const char* key;
        uint32_t (*get)(KRT_PLX_NoteBase*);
        bool (*set)(KRT_PLX_NoteBase*, uint32_t);
    } rows[] = {
        {"number", plx->KRT_PLX_NoteBase_number, plx->KRT_PLX_MutableNote_setNumber},
        {"velocity", plx->KRT_PLX_NoteBase_velocity, plx->KRT_PLX_MutableNote_setVelocity},
        {"accent", plx->KRT_PLX_NoteBase_accent, plx->KRT_PLX_MutableNote_setAccent},
        {"bendDepth", plx->KRT_PLX_NoteBase_bendDepth, plx->KRT_PLX_MutableNote_setBendDepth},
        {"bendLength", plx->KRT_PLX_NoteBase_bendLength, plx->KRT_PLX_MutableNote_setBendLength},
        {"decay", plx->KRT_PLX_NoteBase_decay, plx->KRT_PLX_MutableNote_setDecay},
        {"opening", plx->KRT_PLX_NoteBase_opening, plx->KRT_PLX_MutableNote_setOpening},
    };
    for (size_t i = 0; i < sizeof rows / sizeof rows[0]; ++i) {
        const uint32_t value = rows[i].get(source);
        kitTakes(copy, rows[i].key, value == rows[i].get(target) || rows[i].set(target, value));
    }
}

static void copyMarks(const KitCopy* copy, KRT_PLX_NoteBase* source, KRT_PLX_NoteBase* target)
{
    Api* plx = copy->plx;
    const struct {
        const char* key;
        bool (*get)(KRT_PLX_NoteBase*);
        bool (*set)(KRT_PLX_NoteBase*, bool);
    } rows[] = {
        {"isProtected", plx->KRT_PLX_NoteBase_isProtected, plx->KRT_PLX_MutableNote_setProtected},
        {"fallPort", plx->KRT_PLX_NoteBase_fallPort, plx->KRT_PLX_MutableNote_setFallPort},
        {"risePort", plx->KRT_PLX_NoteBase_risePort, plx->KRT_PLX_MutableNote_setRisePort},
    };
    for (size_t i = 0; i < sizeof rows / sizeof rows[0]; ++i) {
        const bool value = rows[i].get(source);
        kitTakes(copy, rows[i].key, value == rows[i].get(target) || rows[i].set(target, value));
    }
}

static void copyAiExpression(const KitCopy* copy, KRT_PLX_NoteBase* source,
                             KRT_PLX_NoteBase* target)
{
    KitFloat rows[kitFloatCount];
    kitListFloats(copy->plx, rows);
    for (size_t i = 0; i < kitFloatCount; ++i) {
        kitTakes(copy, rows[i].key, rows[i].set(target, rows[i].get(source)));
    }
}

void kitCopyNote(const KitCopy* copy, KRT_PLX_NoteBase* source, KRT_PLX_NoteBase* target)
{
    copyNumbers(copy, source, target);
    copyMarks(copy, source, target);
    copyAiExpression(copy, source, target);
    kitCopyExpressions(copy, source, target);
}
