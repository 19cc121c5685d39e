/* What saving does not keep. KRT_PLX_MutableClip_save() has the same rules in words. */
#include <float.h>
#include <math.h>

#include "reading.h"

typedef struct Check {
    Api* plx;
    KitPlace place;
    bool isAi; /* the part, or that of the note */
} Check;

static void notSaved(const Check* check, const char* property, bool isLost)
{
    if (isLost) {
        kitTellOf(&check->place, property, KRT_PLX_KIT_NOT_SAVED);
    }
}

static void prevents(const Check* check, const char* property, bool isMissing)
{
    if (isMissing) {
        kitTellOf(&check->place, property, KRT_PLX_KIT_PREVENTS_SAVING);
    }
}

static bool isEmpty(const KRT_PLX_Char* text)
{
    return text == NULL || text[0] == 0;
}

static Check about(const Check* check, uint32_t item)
{
    Check inner = *check;
    inner.place.item = item;
    return inner;
}

/* --- Expressions ------------------------------------------------------------------------------------ */

static uint64_t countLevels(Api* plx, KRT_PLX_DvqmBase* dvqm)
{
    uint64_t count = 0;
    plx->KRT_PLX_DvqmBase_numLevelNames(dvqm, &count);
    return count;
}

static bool isWritten(const Check* check, KRT_PLX_DvqmBase* dvqm)
{
    return !check->isAi && !isEmpty(check->plx->KRT_PLX_DvqmBase_compID(dvqm)) &&
           countLevels(check->plx, dvqm) > 0;
}

/* Whether it is as in a new note. */
static bool isNewDvqm(Api* plx, KRT_PLX_DvqmBase* dvqm)
{
    const float topFactor = plx->KRT_PLX_DvqmBase_topFactor(dvqm);
    return isEmpty(plx->KRT_PLX_DvqmBase_compID(dvqm)) && countLevels(plx, dvqm) == 0 &&
           !plx->KRT_PLX_DvqmBase_isProtected(dvqm) && plx->KRT_PLX_DvqmBase_speed(dvqm) == 50 &&
           topFactor >= 1.0F && topFactor <= 1.0F;
}

static void checkDvqm(const Check* check, KRT_PLX_DvqmBase* dvqm)
{
    enum { mostLevels = 4 };
    if (!isWritten(check, dvqm)) {
        notSaved(check, "", !isNewDvqm(check->plx, dvqm));
        return;
    }
    /* It is written, but reading refuses all of it. */
    notSaved(check, "", countLevels(check->plx, dvqm) > mostLevels);
    prevents(check, "topFactor", !isfinite(check->plx->KRT_PLX_DvqmBase_topFactor(dvqm)));
}

static bool isNewSkill(Api* plx, KRT_PLX_SingingSkillBase* skill)
{
    return plx->KRT_PLX_SingingSkillBase_duration(skill) == 0 &&
           plx->KRT_PLX_SingingSkillBase_preWeight(skill) == 64 &&
           plx->KRT_PLX_SingingSkillBase_postWeight(skill) == 64;
}

static void checkSkill(const Check* check, KRT_PLX_NoteBase* note)
{
    Api* plx = check->plx;
    KRT_PLX_SingingSkillBase* skill = kitSkillOf(plx, note);
    if (isWritten(check, kitDvqmOf(plx, note, true)) ||
        isWritten(check, kitDvqmOf(plx, note, false))) {
        notSaved(check, "", !isNewSkill(plx, skill));
    } else {
        notSaved(check, "duration",
                 plx->KRT_PLX_SingingSkillBase_duration(skill) >
                     plx->KRT_PLX_NoteBase_duration(note));
    }
}

static void checkPoints(const Check* check, KRT_PLX_VibratoBase* vibrato, uint32_t kind)
{
    Api* plx = check->plx;
    const int32_t duration = plx->KRT_PLX_VibratoBase_duration(vibrato);
    const uint64_t count = kitCountPoints(plx, vibrato, kind);
    for (uint64_t i = 0; i < count; ++i) {
        const int32_t pos =
            plx->KRT_PLX_VibratoParameterBase_pos(kitPointAt(plx, vibrato, kind, i));
        if (pos > duration) {
            kitTellInner(&check->place, kitCurveKey(kind), KRT_PLX_KIT_NOT_SAVED, i, pos);
        }
    }
}

static void checkVibrato(const Check* check, KRT_PLX_NoteBase* note)
{
    Api* plx = check->plx;
    KRT_PLX_VibratoBase* vibrato = kitVibratoOf(plx, note);
    if (plx->KRT_PLX_VibratoBase_duration(vibrato) > plx->KRT_PLX_NoteBase_duration(note)) {
        notSaved(check, "duration", true);
        return;
    }
    checkPoints(check, vibrato, KRT_PLX_VIBRATO_DEPTH);
    checkPoints(check, vibrato, KRT_PLX_VIBRATO_RATE);
}

/* --- Notes ------------------------------------------------------------------------------------------ */

/* A note for a voice bank gets the middle of each range. */
static void checkFloats(const Check* check, KRT_PLX_NoteBase* note)
{
    KitFloat rows[kitFloatCount];
    kitListFloats(check->plx, rows);
    for (size_t i = 0; i < kitFloatCount; ++i) {
        const float value = rows[i].get(note);
        if (check->isAi) {
            prevents(check, rows[i].key, !isfinite(value));
        } else {
            notSaved(check, rows[i].key, !(value >= 0.5F && value <= 0.5F));
        }
    }
}

static void checkNote(const Check* check, KRT_PLX_NoteBase* note)
{
    Api* plx = check->plx;
    const Check attack = about(check, KRT_PLX_KIT_ATTACK);
    const Check release = about(check, KRT_PLX_KIT_RELEASE);
    const Check skill = about(check, KRT_PLX_KIT_SINGING_SKILL);
    const Check vibrato = about(check, KRT_PLX_KIT_VIBRATO);
    checkFloats(check, note);
    checkDvqm(&attack, kitDvqmOf(plx, note, true));
    checkDvqm(&release, kitDvqmOf(plx, note, false));
    checkSkill(&skill, note);
    checkVibrato(&vibrato, note);
}

static void checkNotes(const Check* check, KRT_PLX_PartBase* part)
{
    Api* plx = check->plx;
    const uint64_t count = kitCountNotes(plx, part);
    for (uint64_t i = 0; i < count; ++i) {
        KRT_PLX_NoteBase* note = kitNoteAt(plx, part, i);
        Check inner = about(check, KRT_PLX_KIT_NOTE);
        inner.place.index = i;
        inner.place.pos = plx->KRT_PLX_NoteBase_pos(note);
        checkNote(&inner, note);
    }
}

/* --- Lanes and effects ------------------------------------------------------------------------------ */

static void checkLanes(const Check* check, KRT_PLX_PartBase* part)
{
    for (uint32_t type = 0; type < KRT_PLX_CONTROLLER_NONE; ++type) {
        KRT_PLX_MidiControllerBase* lane = kitLaneOf(check->plx, part, type);
        Check inner = about(check, KRT_PLX_KIT_LANE);
        inner.place.index = type;
        notSaved(&inner, "", lane != NULL && kitCountEvents(check->plx, lane) == 0);
    }
}

/* The one parameter of an audio effect that is read as an integer. */
static bool isBypass(const KRT_PLX_Char* name)
{
    static const KRT_PLX_Char bypass[] = {'B', 'y', 'p', 'a', 's', 's', 0};
    return kitHasSameUnits(name, bypass);
}

static bool isLost(Api* plx, KRT_PLX_EffectParameterBase* parameter, uint32_t kind)
{
    switch (plx->KRT_PLX_EffectParameterBase_type(parameter)) {
    case KRT_PLX_VALUE_UNSET:
        return true;
    case KRT_PLX_VALUE_INT32:
        return kind == KRT_PLX_EFFECT_AUDIO &&
               !isBypass(plx->KRT_PLX_EffectParameterBase_name(parameter));
    case KRT_PLX_VALUE_FLOAT:
        /* The lowest float is read as another value. */
        return plx->KRT_PLX_EffectParameterBase_valueFloat(parameter) <= -FLT_MAX;
    default:
        return false;
    }
}

static void checkParameter(const Check* check, KRT_PLX_EffectParameterBase* parameter,
                           uint32_t kind, uint64_t index)
{
    Api* plx = check->plx;
    if (plx->KRT_PLX_EffectParameterBase_type(parameter) == KRT_PLX_VALUE_FLOAT &&
        !isfinite(plx->KRT_PLX_EffectParameterBase_valueFloat(parameter))) {
        kitTellInner(&check->place, "parameters", KRT_PLX_KIT_PREVENTS_SAVING, index, 0);
    } else if (isLost(plx, parameter, kind)) {
        kitTellInner(&check->place, "parameters", KRT_PLX_KIT_NOT_SAVED, index, 0);
    }
}

static void checkEffects(const Check* check, KitChain chain)
{
    const uint64_t count = kitCountEffects(check->plx, chain);
    for (uint64_t i = 0; i < count; ++i) {
        KRT_PLX_EffectBase* effect = kitEffectAt(check->plx, chain, i);
        const uint64_t parameters = kitCountParameters(check->plx, effect);
        Check inner = about(check, kitItemOfEffect(chain.kind));
        inner.place.index = i;
        for (uint64_t k = 0; k < parameters; ++k) {
            checkParameter(&inner, kitParameterAt(check->plx, effect, k), chain.kind, k);
        }
    }
}

/* --- Parts ------------------------------------------------------------------------------------------ */

static void checkVoice(const Check* check, KRT_PLX_PartBase* part)
{
    Api* plx = check->plx;
    const bool hasVoice = !isEmpty(plx->KRT_PLX_MidiPartBase_voiceBankID(part));
    const bool hasLanguage = plx->KRT_PLX_MidiPartBase_langID(part) != KRT_PLX_NO_LANGUAGE;
    const bool hasAiVoice = !isEmpty(plx->KRT_PLX_MidiPartBase_aiVoiceBankID(part));
    const bool hasAiLanguage = plx->KRT_PLX_MidiPartBase_aiLangIDSize(part) > 0;
    if (check->isAi) {
        prevents(check, "aiVoice.compID", !hasAiVoice);
        prevents(check, "aiVoice.langIDs", !hasAiLanguage);
        notSaved(check, "voice.compID", hasVoice);
        notSaved(check, "voice.langID", hasLanguage);
    } else {
        prevents(check, "voice.compID", !hasVoice);
        prevents(check, "voice.langID", !hasLanguage);
        notSaved(check, "aiVoice.compID", hasAiVoice);
        notSaved(check, "aiVoice.langIDs", hasAiLanguage);
    }
}

static void checkMidiPart(const Check* check, KRT_PLX_PartBase* part)
{
    checkVoice(check, part);
    checkNotes(check, part);
    checkLanes(check, part);
    checkEffects(check, (KitChain){part, KRT_PLX_EFFECT_MIDI});
}

/* Saving takes the file's name from behind the last backslash. */
static bool hasBackslash(const KRT_PLX_Char* path)
{
    while (path != NULL && *path != 0 && *path != '\\') {
        ++path;
    }
    return path != NULL && *path != 0;
}

static void checkAudioPart(const Check* check, KRT_PLX_ClipBase* clip, KRT_PLX_PartBase* part)
{
    Api* plx = check->plx;
    const Check whole = about(check, KRT_PLX_KIT_CLIP);
    notSaved(&whole, "key", plx->KRT_PLX_ClipBase_partKey(clip) != 0);
    notSaved(&whole, "tempo", plx->KRT_PLX_ClipBase_partTempo(clip) != 0);
    prevents(check, "wavFileName", !hasBackslash(plx->KRT_PLX_AudioPartBase_wavFilePath(part)));
}

static void checkPart(const Check* check, KRT_PLX_ClipBase* clip, KRT_PLX_PartBase* part)
{
    prevents(check, "", part == NULL);
    if (check->plx->KRT_PLX_PartBase_type(part) == KRT_PLX_PART_AUDIO) {
        checkAudioPart(check, clip, part);
    } else if (part != NULL) {
        checkMidiPart(check, part);
    }
    checkEffects(check, (KitChain){part, KRT_PLX_EFFECT_AUDIO});
}

/* --- Tags ------------------------------------------------------------------------------------------- */

static bool hasTagsInDocument(Api* plx, KRT_PLX_Filter* filter)
{
    KitTexts lists[kitTextsCount];
    uint64_t sum = 0;
    plx->KRT_PLX_Filter_numLanguages(filter, &sum);
    kitListTexts(plx, lists);
    for (size_t i = 0; i < kitTextsCount; ++i) {
        uint64_t count = 0;
        lists[i].count(filter, &count);
        sum += lists[i].list != KRT_PLX_KIT_VENDORS ? count : 0;
    }
    return sum > 0;
}

/* Whether reading gives the vendor tags that there are: the vendor, if there is any tag. */
static bool keepsVendors(Api* plx, KRT_PLX_ClipBase* clip, KRT_PLX_Filter* filter)
{
    uint64_t count = 0;
    plx->KRT_PLX_Filter_numVendors(filter, &count);
    if (!hasTagsInDocument(plx, filter)) {
        return count == 0;
    }
    return count == 1 && kitHasSameUnits(plx->KRT_PLX_Filter_vendor(filter, 0),
                                         plx->KRT_PLX_ClipBase_vendorName(clip));
}

bool KRT_PLX_Kit_checkSaving(Api* plx, KRT_PLX_ClipBase* clip, KRT_PLX_KitReport* report)
{
    KRT_PLX_Filter* filter = kitIsReady(plx) ? plx->KRT_PLX_MutableClip_filter(clip) : NULL;
    if (filter == NULL) {
        return false;
    }
    KRT_PLX_KitReport unheard = {NULL, NULL, 0};
    KRT_PLX_KitReport* all = report != NULL ? report : &unheard;
    const uint64_t before = all->count;
    KRT_PLX_PartBase* part = kitPartOf(plx, clip);
    const bool isAi = plx->KRT_PLX_PartBase_type(part) == KRT_PLX_PART_MIDI_AI;
    const Check check = {plx, {all, KRT_PLX_KIT_PART, 0, 0}, isAi};
    const Check tags = about(&check, KRT_PLX_KIT_TAGS);
    checkPart(&check, clip, part);
    notSaved(&tags, "vendors", !keepsVendors(plx, clip, filter));
    return all->count == before;
}
