#include "copying.h"

/* --- Tags ------------------------------------------------------------------------------------------- */

static void copyTexts(const KitCopy* copy, const KitTexts* list, KRT_PLX_Filter* source,
                      KRT_PLX_Filter* target)
{
    const KRT_PLX_Char* old = list->at(target, 0);
    while (old != NULL && list->remove(target, old)) {
        old = list->at(target, 0);
    }
    uint64_t count = 0;
    list->count(source, &count);
    for (uint64_t i = 0; i < count; ++i) {
        if (!list->add(target, list->at(source, i))) {
            kitTellInner(&copy->place, list->key, KRT_PLX_KIT_REFUSED, i, 0);
        }
    }
}

static void copyLanguages(const KitCopy* copy, KRT_PLX_Filter* source, KRT_PLX_Filter* target)
{
    Api* plx = copy->plx;
    while (plx->KRT_PLX_MutableFilter_removeLanguage(target,
                                                     plx->KRT_PLX_Filter_language(target, 0))) {}
    uint64_t count = 0;
    plx->KRT_PLX_Filter_numLanguages(source, &count);
    for (uint64_t i = 0; i < count; ++i) {
        if (!plx->KRT_PLX_MutableFilter_addLanguage(target,
                                                    plx->KRT_PLX_Filter_language(source, i))) {
            kitTellInner(&copy->place, "languages", KRT_PLX_KIT_REFUSED, i, 0);
        }
    }
}

static void copyTags(const KitCopy* copy, KRT_PLX_ClipBase* source, KRT_PLX_ClipBase* target)
{
    KRT_PLX_Filter* from = kitFilterOf(copy->plx, source);
    KRT_PLX_Filter* to = kitFilterOf(copy->plx, target);
    const KitCopy tags = {copy->plx, {copy->place.report, KRT_PLX_KIT_TAGS, 0, 0}};
    KitTexts lists[kitTextsCount];
    kitListTexts(copy->plx, lists);
    for (size_t i = 0; i < kitTextsCount; ++i) {
        copyTexts(&tags, &lists[i], from, to);
    }
    copyLanguages(&tags, from, to);
}

static void copyProperties(const KitCopy* copy, KRT_PLX_ClipBase* source, KRT_PLX_ClipBase* target)
{
    Api* plx = copy->plx;
    const KitCopy clip = {plx, {copy->place.report, KRT_PLX_KIT_CLIP, 0, 0}};
    kitTakes(
        &clip, "vendor",
        plx->KRT_PLX_MutableClip_setVendorName(target, plx->KRT_PLX_ClipBase_vendorName(source)));
    kitTakes(&clip, "key",
             plx->KRT_PLX_MutableClip_setPartKey(target, plx->KRT_PLX_ClipBase_partKey(source)));
    kitTakes(
        &clip, "tempo",
        plx->KRT_PLX_MutableClip_setPartTempo(target, plx->KRT_PLX_ClipBase_partTempo(source)));
}

/* --- Notes ------------------------------------------------------------------------------------------ */

static bool isLanguage(uint32_t language)
{
    return language <= 127;
}

/* For notes without one. */
static uint32_t findLanguage(Api* plx, KRT_PLX_PartBase* part, uint32_t wanted)
{
    uint32_t language = isLanguage(wanted) ? wanted : plx->KRT_PLX_MidiPartBase_langID(part);
    if (!isLanguage(language)) {
        language = plx->KRT_PLX_MidiPartBase_aiLangIDByIndex(part, 0);
    }
    const uint64_t count = kitCountNotes(plx, part);
    for (uint64_t i = 0; !isLanguage(language) && i < count; ++i) {
        language = plx->KRT_PLX_NoteBase_langID(kitNoteAt(plx, part, i));
    }
    return isLanguage(language) ? language : KRT_PLX_NO_LANGUAGE;
}

/* The note's own, or the one that it is given. */
static uint32_t languageOf(const KitCopy* copy, KRT_PLX_NoteBase* note, uint32_t language)
{
    const uint32_t own = copy->plx->KRT_PLX_NoteBase_langID(note);
    if (isLanguage(own)) {
        return own;
    }
    const bool isGiven = isLanguage(language);
    const KRT_PLX_KitNotice notice = {KRT_PLX_KIT_NOTE,
                                      isGiven ? KRT_PLX_KIT_LANGUAGE_GIVEN
                                              : KRT_PLX_KIT_NO_LANGUAGE,
                                      "langID",
                                      copy->place.index,
                                      0,
                                      copy->place.pos,
                                      isGiven ? language : 0};
    kitTell(copy->place.report, &notice);
    return language;
}

static void insertCopy(const KitCopy* copy, KRT_PLX_NoteBase* note, KRT_PLX_PartBase* target,
                       uint32_t language)
{
    Api* plx = copy->plx;
    const uint32_t own = languageOf(copy, note, language);
    if (!isLanguage(own)) {
        return;
    }
    KRT_PLX_NoteBase* added = plx->KRT_PLX_MutableMidiPart_insertNote(
        target, plx->KRT_PLX_NoteBase_pos(note), plx->KRT_PLX_NoteBase_duration(note),
        plx->KRT_PLX_NoteBase_lyric(note), plx->KRT_PLX_NoteBase_phoneme(note), own);
    if (added == NULL) {
        kitTellOf(&copy->place, "", KRT_PLX_KIT_REFUSED);
    } else {
        kitCopyNote(copy, note, added);
    }
}

/* The number of notes from this one on that stand at its position. */
static uint64_t countTogether(Api* plx, KRT_PLX_PartBase* part, uint64_t first)
{
    const int32_t pos = plx->KRT_PLX_NoteBase_pos(kitNoteAt(plx, part, first));
    const uint64_t count = kitCountNotes(plx, part);
    uint64_t next = first + 1;
    while (next < count && plx->KRT_PLX_NoteBase_pos(kitNoteAt(plx, part, next)) == pos) {
        ++next;
    }
    return next - first;
}

/* Of notes at one position, the last one that is inserted comes first; so they are taken backwards. */
static void copyNotes(const KitCopy* copy, KRT_PLX_PartBase* source, KRT_PLX_PartBase* target,
                      uint32_t wantedLanguage)
{
    Api* plx = copy->plx;
    const uint32_t language = findLanguage(plx, source, wantedLanguage);
    const uint64_t count = kitCountNotes(plx, source);
    for (uint64_t first = 0; first < count;) {
        const uint64_t together = countTogether(plx, source, first);
        for (uint64_t i = first + together; i-- > first;) {
            KRT_PLX_NoteBase* note = kitNoteAt(plx, source, i);
            const KitCopy inner = {
                plx, {copy->place.report, KRT_PLX_KIT_NOTE, i, plx->KRT_PLX_NoteBase_pos(note)}};
            insertCopy(&inner, note, target, language);
        }
        first += together;
    }
}

/* --- Parts ------------------------------------------------------------------------------------------ */

static void copyVoice(const KitCopy* copy, KRT_PLX_PartBase* source, KRT_PLX_PartBase* target)
{
    Api* plx = copy->plx;
    const struct {
        const char* key;
        const KRT_PLX_Char* (*get)(KRT_PLX_PartBase*);
        bool (*set)(KRT_PLX_PartBase*, const KRT_PLX_Char*);
    } rows[] = {
        {"voice.compID", plx->KRT_PLX_MidiPartBase_voiceBankID,
         plx->KRT_PLX_MutableMidiPart_setVoiceBankID},
        {"aiVoice.compID", plx->KRT_PLX_MidiPartBase_aiVoiceBankID,
         plx->KRT_PLX_MutableMidiPart_setAiVoiceBankID},
        {"styleName", plx->KRT_PLX_MidiPartBase_styleName,
         plx->KRT_PLX_MutableMidiPart_setStyleName},
        {"stylePresetID", plx->KRT_PLX_MidiPartBase_stylePresetID,
         plx->KRT_PLX_MutableMidiPart_setStylePresetID},
    };
    for (size_t i = 0; i < sizeof rows / sizeof rows[0]; ++i) {
        const KRT_PLX_Char* value = rows[i].get(source);
        kitTakes(copy, rows[i].key,
                 kitHasSameUnits(value, rows[i].get(target)) || rows[i].set(target, value));
    }
}

static void copyPartLanguages(const KitCopy* copy, KRT_PLX_PartBase* source,
                              KRT_PLX_PartBase* target)
{
    Api* plx = copy->plx;
    const uint32_t language = plx->KRT_PLX_MidiPartBase_langID(source);
    const uint64_t count = plx->KRT_PLX_MidiPartBase_aiLangIDSize(source);
    kitTakes(copy, "voice.langID",
             language == KRT_PLX_NO_LANGUAGE ||
                 plx->KRT_PLX_MutableMidiPart_setLangID(target, language));
    for (uint64_t i = 0; i < count; ++i) {
        if (!plx->KRT_PLX_MutableMidiPart_addAiLangID(
                target, plx->KRT_PLX_MidiPartBase_aiLangIDByIndex(source, i))) {
            kitTellInner(&copy->place, "aiVoice.langIDs", KRT_PLX_KIT_REFUSED, i, 0);
        }
    }
}

static void copyMidiPart(const KitCopy* copy, KRT_PLX_PartBase* source, KRT_PLX_PartBase* target,
                         uint32_t language)
{
    Api* plx = copy->plx;
    kitTakes(copy, "duration",
             plx->KRT_PLX_MutableMidiPart_setDuration(target,
                                                      plx->KRT_PLX_MidiPartBase_duration(source)));
    copyVoice(copy, source, target);
    copyPartLanguages(copy, source, target);
    copyNotes(copy, source, target, language);
    kitCopyLanes(copy, source, target);
    kitCopyEffects(copy, (KitChain){source, KRT_PLX_EFFECT_MIDI},
                   (KitChain){target, KRT_PLX_EFFECT_MIDI});
}

static void copyWaveFile(const KitCopy* copy, KRT_PLX_PartBase* source, KRT_PLX_PartBase* target)
{
    Api* plx = copy->plx;
    const KRT_PLX_Char* path = plx->KRT_PLX_AudioPartBase_wavFilePath(source);
    if (path != NULL && path[0] != 0 &&
        !plx->KRT_PLX_MutableAudioPart_setWavFilePath(target, path)) {
        kitTellOf(&copy->place, "wavFileName", KRT_PLX_KIT_NO_WAVE_FILE);
    }
}

static KRT_PLX_PartBase* createPart(Api* plx, KRT_PLX_ClipBase* clip, uint32_t type)
{
    switch (type) {
    case KRT_PLX_PART_AUDIO:
        return plx->KRT_PLX_MutableClip_createAudioPart(clip);
    case KRT_PLX_PART_MIDI_AI:
        return plx->KRT_PLX_MutableClip_createMidiAiPart(clip);
    case KRT_PLX_PART_MIDI:
        return plx->KRT_PLX_MutableClip_createMidiPart(clip);
    default:
        return NULL;
    }
}

static bool copyPart(const KitCopy* copy, KRT_PLX_PartBase* source, KRT_PLX_ClipBase* target,
                     uint32_t language)
{
    Api* plx = copy->plx;
    const uint32_t type = plx->KRT_PLX_PartBase_type(source);
    KRT_PLX_PartBase* part = createPart(plx, target, type);
    if (part == NULL) {
        kitTellOf(&copy->place, "", KRT_PLX_KIT_REFUSED);
        return false;
    }
    if (type == KRT_PLX_PART_AUDIO) {
        copyWaveFile(copy, source, part);
    } else {
        copyMidiPart(copy, source, part, language);
    }
    kitCopyEffects(copy, (KitChain){source, KRT_PLX_EFFECT_AUDIO},
                   (KitChain){part, KRT_PLX_EFFECT_AUDIO});
    return true;
}

/* --- Clips ------------------------------------------------------------------------------------------ */

static KRT_PLX_PartBase* readPart(const KitCopy* copy, KRT_PLX_ClipBase* source)
{
    Api* plx = copy->plx;
    if (kitPartOf(plx, source) == NULL && !plx->KRT_PLX_Clip_readPart(source)) {
        kitTellOf(&copy->place, "", KRT_PLX_KIT_UNREADABLE);
    }
    return kitPartOf(plx, source);
}

/* The target is not touched before the source's part is there. */
static bool fill(const KitCopy* copy, KRT_PLX_ClipBase* target, KRT_PLX_ClipBase* source,
                 uint32_t language)
{
    KRT_PLX_PartBase* part = readPart(copy, source);
    if (part == NULL || !copyPart(copy, part, target, language)) {
        return false;
    }
    copyProperties(copy, source, target);
    copyTags(copy, source, target);
    KRT_PLX_Kit_checkSaving(copy->plx, target, copy->place.report);
    return true;
}

bool KRT_PLX_Kit_fill(Api* plx, KRT_PLX_ClipBase* target, KRT_PLX_ClipBase* source,
                      uint32_t language, KRT_PLX_KitReport* report)
{
    const KitCopy copy = {plx, {report, KRT_PLX_KIT_PART, 0, 0}};
    return kitIsReady(plx) && target != source && source != NULL &&
           plx->KRT_PLX_MutableClip_filter(target) != NULL && fill(&copy, target, source, language);
}

KRT_PLX_ClipBase* KRT_PLX_Kit_edit(Api* plx, KRT_PLX_ClipBase* source, uint32_t language,
                                   KRT_PLX_KitReport* report)
{
    if (!kitIsReady(plx) || source == NULL) {
        return NULL;
    }
    KRT_PLX_Manager* manager = plx->KRT_PLX_ClipBase_parent(source);
    KRT_PLX_ClipBase* clip = plx->KRT_PLX_Manager_createMutableClip(manager);
    if (clip != NULL && !KRT_PLX_Kit_fill(plx, clip, source, language, report)) {
        plx->KRT_PLX_MutableClip_destroy(clip);
        clip = NULL;
    }
    return clip;
}
