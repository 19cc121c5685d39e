#include "copying.h"

static void copyLevelNames(const KitCopy* copy, KRT_PLX_DvqmBase* source, KRT_PLX_DvqmBase* target)
{
    Api* plx = copy->plx;
    uint64_t count = 0;
    plx->KRT_PLX_DvqmBase_numLevelNames(source, &count);
    for (uint64_t i = 0; i < count; ++i) {
        if (!plx->KRT_PLX_MutableDvqm_addLevelName(target,
                                                   plx->KRT_PLX_DvqmBase_levelName(source, i))) {
            kitTellInner(&copy->place, "levelNames", KRT_PLX_KIT_REFUSED, i, copy->place.pos);
        }
    }
}

static void copyDvqm(const KitCopy* copy, KRT_PLX_DvqmBase* source, KRT_PLX_DvqmBase* target)
{
    Api* plx = copy->plx;
    const KRT_PLX_Char* compID = plx->KRT_PLX_DvqmBase_compID(source);
    const bool isProtected = plx->KRT_PLX_DvqmBase_isProtected(source);
    kitTakes(copy, "compID",
             kitHasSameUnits(compID, plx->KRT_PLX_DvqmBase_compID(target)) ||
                 plx->KRT_PLX_MutableDvqm_setCompID(target, compID));
    copyLevelNames(copy, source, target);
    /* Its result is the mark. */
    kitTakes(copy, "isProtected",
             plx->KRT_PLX_MutableDvqm_protect(target, isProtected) == isProtected);
    kitTakes(copy, "speed",
             plx->KRT_PLX_MutableDvqm_setSpeed(target, plx->KRT_PLX_DvqmBase_speed(source)));
    kitTakes(
        copy, "topFactor",
        plx->KRT_PLX_MutableDvqm_setTopFactor(target, plx->KRT_PLX_DvqmBase_topFactor(source)));
}

static void copySkill(const KitCopy* copy, KRT_PLX_SingingSkillBase* source,
                      KRT_PLX_SingingSkillBase* target)
{
    Api* plx = copy->plx;
    kitTakes(copy, "duration",
             plx->KRT_PLX_MutableSingingSkill_setDuration(
                 target, plx->KRT_PLX_SingingSkillBase_duration(source)));
    kitTakes(copy, "weight.pre",
             plx->KRT_PLX_MutableSingingSkill_setPreWeight(
                 target, plx->KRT_PLX_SingingSkillBase_preWeight(source)));
    kitTakes(copy, "weight.post",
             plx->KRT_PLX_MutableSingingSkill_setPostWeight(
                 target, plx->KRT_PLX_SingingSkillBase_postWeight(source)));
}

static void copyPoints(const KitCopy* copy, KRT_PLX_VibratoBase* source,
                       KRT_PLX_VibratoBase* target, uint32_t kind)
{
    Api* plx = copy->plx;
    const uint64_t count = kitCountPoints(plx, source, kind);
    for (uint64_t i = 0; i < count; ++i) {
        KRT_PLX_VibratoParameterBase* point = kitPointAt(plx, source, kind, i);
        const int32_t pos = plx->KRT_PLX_VibratoParameterBase_pos(point);
        if (plx->KRT_PLX_MutableVibrato_insertParameter(
                target, kind, pos, plx->KRT_PLX_VibratoParameterBase_value(point)) == NULL) {
            kitTellInner(&copy->place, kitCurveKey(kind), KRT_PLX_KIT_REFUSED, i, pos);
        }
    }
}

static void copyVibrato(const KitCopy* copy, KRT_PLX_VibratoBase* source,
                        KRT_PLX_VibratoBase* target)
{
    Api* plx = copy->plx;
    kitTakes(copy, "type",
             plx->KRT_PLX_MutableVibrato_setType(target, plx->KRT_PLX_VibratoBase_type(source)));
    kitTakes(
        copy, "duration",
        plx->KRT_PLX_MutableVibrato_setDuration(target, plx->KRT_PLX_VibratoBase_duration(source)));
    copyPoints(copy, source, target, KRT_PLX_VIBRATO_DEPTH);
    copyPoints(copy, source, target, KRT_PLX_VIBRATO_RATE);
}

void kitCopyExpressions(const KitCopy* copy, KRT_PLX_NoteBase* source, KRT_PLX_NoteBase* target)
{
    Api* plx = copy->plx;
    KitCopy inner = *copy;
    inner.place.item = KRT_PLX_KIT_ATTACK;
    copyDvqm(&inner, kitDvqmOf(plx, source, true), kitDvqmOf(plx, target, true));
    inner.place.item = KRT_PLX_KIT_RELEASE;
    copyDvqm(&inner, kitDvqmOf(plx, source, false), kitDvqmOf(plx, target, false));
    inner.place.item = KRT_PLX_KIT_SINGING_SKILL;
    copySkill(&inner, kitSkillOf(plx, source), kitSkillOf(plx, target));
    inner.place.item = KRT_PLX_KIT_VIBRATO;
    copyVibrato(&inner, kitVibratoOf(plx, source), kitVibratoOf(plx, target));
}
