#include "kit.h"

bool kitIsReady(Api* plx)
{
    return plx != NULL && plx->KRT_PLX_HasManager != NULL;
}

uint64_t kitCountNotes(Api* plx, KRT_PLX_PartBase* part)
{
    uint64_t count = 0;
    plx->KRT_PLX_MidiPartBase_numNotes(part, &count);
    return count;
}

uint64_t kitCountEvents(Api* plx, KRT_PLX_MidiControllerBase* lane)
{
    uint64_t count = 0;
    plx->KRT_PLX_MidiControllerBase_numEvents(lane, &count);
    return count;
}

uint64_t kitCountPoints(Api* plx, KRT_PLX_VibratoBase* vibrato, uint32_t kind)
{
    uint64_t count = 0;
    plx->KRT_PLX_VibratoBase_numParameters(vibrato, kind, &count);
    return count;
}

bool kitHasSameUnits(const KRT_PLX_Char* left, const KRT_PLX_Char* right)
{
    static const KRT_PLX_Char empty[] = {0};
    left = left != NULL ? left : empty;
    right = right != NULL ? right : empty;
    while (*left == *right && *left != 0) {
        ++left;
        ++right;
    }
    return *left == *right;
}

const char* kitCurveKey(uint32_t kind)
{
    return kind == KRT_PLX_VIBRATO_DEPTH ? "depths" : "rates";
}

void kitListTexts(Api* plx, KitTexts lists[kitTextsCount])
{
    const KitTexts all[kitTextsCount] = {
        {KRT_PLX_KIT_GENRES, "genres", plx->KRT_PLX_Filter_numGenres, plx->KRT_PLX_Filter_genre,
         plx->KRT_PLX_MutableFilter_addGenre, plx->KRT_PLX_MutableFilter_removeGenre},
        {KRT_PLX_KIT_SINGER_GROUPS, "singerGroups", plx->KRT_PLX_Filter_numSingerGroups,
         plx->KRT_PLX_Filter_singerGroup, plx->KRT_PLX_MutableFilter_addSingerGroup,
         plx->KRT_PLX_MutableFilter_removeSingerGroup},
        {KRT_PLX_KIT_SINGER_IDS, "singerIDs", plx->KRT_PLX_Filter_numSingerIDs,
         plx->KRT_PLX_Filter_singerID, plx->KRT_PLX_MutableFilter_addSingerID,
         plx->KRT_PLX_MutableFilter_removeSingerID},
        {KRT_PLX_KIT_TYPES, "types", plx->KRT_PLX_Filter_numTypes, plx->KRT_PLX_Filter_type,
         plx->KRT_PLX_MutableFilter_addType, plx->KRT_PLX_MutableFilter_removeType},
        {KRT_PLX_KIT_VENDORS, "vendors", plx->KRT_PLX_Filter_numVendors, plx->KRT_PLX_Filter_vendor,
         plx->KRT_PLX_MutableFilter_addVendor, plx->KRT_PLX_MutableFilter_removeVendor},
    };
    memcpy(lists, all, sizeof all);
}

void kitListFloats(Api* plx, KitFloat floats[kitFloatCount])
{
    const KitFloat all[kitFloatCount] = {
        {"pitchFine", plx->KRT_PLX_NoteBase_pitchFine, plx->KRT_PLX_MutableNote_setPitchFine},
        {"pitchDriftStart", plx->KRT_PLX_NoteBase_pitchDriftStart,
         plx->KRT_PLX_MutableNote_setPitchDriftStart},
        {"pitchDriftEnd", plx->KRT_PLX_NoteBase_pitchDriftEnd,
         plx->KRT_PLX_MutableNote_setPitchDriftEnd},
        {"pitchScalingCenter", plx->KRT_PLX_NoteBase_pitchScalingCenter,
         plx->KRT_PLX_MutableNote_setPitchScalingCenter},
        {"pitchScalingOrigin", plx->KRT_PLX_NoteBase_pitchScalingOrigin,
         plx->KRT_PLX_MutableNote_setPitchScalingOrigin},
        {"pitchTransitionStart", plx->KRT_PLX_NoteBase_pitchTransitionStart,
         plx->KRT_PLX_MutableNote_setPitchTransitionStart},
        {"pitchTransitionEnd", plx->KRT_PLX_NoteBase_pitchTransitionEnd,
         plx->KRT_PLX_MutableNote_setPitchTransitionEnd},
        {"amplitudeWhole", plx->KRT_PLX_NoteBase_amplitudeWhole,
         plx->KRT_PLX_MutableNote_setAmplitudeWhole},
        {"amplitudeStart", plx->KRT_PLX_NoteBase_amplitudeStart,
         plx->KRT_PLX_MutableNote_setAmplitudeStart},
        {"amplitudeEnd", plx->KRT_PLX_NoteBase_amplitudeEnd,
         plx->KRT_PLX_MutableNote_setAmplitudeEnd},
        {"formantWhole", plx->KRT_PLX_NoteBase_formantWhole,
         plx->KRT_PLX_MutableNote_setFormantWhole},
        {"formantStart", plx->KRT_PLX_NoteBase_formantStart,
         plx->KRT_PLX_MutableNote_setFormantStart},
        {"formantEnd", plx->KRT_PLX_NoteBase_formantEnd, plx->KRT_PLX_MutableNote_setFormantEnd},
    };
    memcpy(floats, all, sizeof all);
}
