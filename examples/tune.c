#include "tune.h"

#include "conventions.h"
#include "text.h"

enum { english = 1, c_major = 8, tempo = 13200, quarter = ticks_per_quarter };

enum { number_of_bars = 8 };

typedef struct TuneNote {
    int beat; /* in quarters from the beginning */
    int beats;
    uint32_t number;
    const char* lyric;
    const char* phoneme; /* X-SAMPA */
} TuneNote;

static const TuneNote tune[] = {
    {1, 1, 60, "Oh", "@U"},    {2, 1, 64, "when", "w e n"},
    {3, 1, 65, "the", "D @"},  {4, 4, 67, "saints", "s eI n"},
    {9, 1, 60, "go", "g @U"},  {10, 1, 64, "march", "m A: tS"},
    {11, 1, 65, "ing", "I N"}, {12, 4, 67, "in", "I n"},
    {17, 1, 60, "Oh", "@U"},   {18, 1, 64, "when", "w e n"},
    {19, 1, 65, "the", "D @"}, {20, 2, 67, "saints", "s eI n"},
    {22, 2, 64, "go", "g @U"}, {24, 2, 60, "march", "m A: tS"},
    {26, 2, 64, "ing", "I N"}, {28, 4, 62, "in", "I n"},
};

/* A vibrato on the second half of a note, growing in depth. */
static bool add_vibrato(KRT_PLX_NoteBase* note)
{
    int32_t duration = KRT_PLX_NoteBase_duration(note) / 2;
    KRT_PLX_VibratoBase* vibrato = KRT_PLX_MutableNote_vibrato(note);
    return KRT_PLX_MutableVibrato_setType(vibrato, 1) &&
           KRT_PLX_MutableVibrato_setDuration(vibrato, duration) &&
           KRT_PLX_MutableVibrato_insertParameter(vibrato, KRT_PLX_VIBRATO_DEPTH, 0, 0) != NULL &&
           KRT_PLX_MutableVibrato_insertParameter(vibrato, KRT_PLX_VIBRATO_DEPTH, duration, 60) !=
               NULL &&
           KRT_PLX_MutableVibrato_insertParameter(vibrato, KRT_PLX_VIBRATO_RATE, 0, 55) != NULL;
}

static bool add_note(KRT_PLX_PartBase* part, const TuneNote* source, Texts* texts)
{
    KRT_PLX_NoteBase* note = KRT_PLX_MutableMidiPart_insertNote(
        part, source->beat * quarter, source->beats * quarter, for_library(texts, source->lyric),
        for_library(texts, source->phoneme), english);
    return KRT_PLX_MutableNote_setNumber(note, source->number) &&
           KRT_PLX_MutableNote_setVelocity(note, source->beat % 4 == 0 ? 100 : 84) &&
           (source->beats < 4 || add_vibrato(note));
}

static bool add_notes(KRT_PLX_PartBase* part, Texts* texts)
{
    for (size_t i = 0; i < sizeof tune / sizeof *tune; ++i) {
        if (!add_note(part, &tune[i], texts)) {
            return false;
        }
    }
    return true;
}

/* Swells over the first half of the tune and fades over the second. */
static bool add_dynamics(KRT_PLX_PartBase* part)
{
    enum { dynamics = 0 };
    KRT_PLX_MidiControllerBase* lane = KRT_PLX_MutableMidiPart_addMidiController(part, dynamics);
    for (int bar = 0; bar < number_of_bars; ++bar) {
        int32_t value = 64 + 10 * (bar < number_of_bars / 2 ? bar : number_of_bars - bar);
        if (KRT_PLX_MutableMidiController_insertEvent(lane, bar * 4 * quarter, value) == NULL) {
            return false;
        }
    }
    return true;
}

static bool set_reverb(KRT_PLX_EffectBase* effect, Texts* texts)
{
    return KRT_PLX_MutableEffectParameter_setValueInt32(
               KRT_PLX_MutableEffect_addParameter(effect, for_library(texts, "Bypass")), 0) &&
           KRT_PLX_MutableEffectParameter_setValueFloat(
               KRT_PLX_MutableEffect_addParameter(effect, for_library(texts, "Mix")), 0.25F) &&
           KRT_PLX_MutableEffectParameter_setValueString(
               KRT_PLX_MutableEffect_addParameter(effect, for_library(texts, "Preset")),
               for_library(texts, "Brass band hall"));
}

static bool fill_midi_part(KRT_PLX_PartBase* part, Texts* texts)
{
    return KRT_PLX_MutableMidiPart_setDuration(part, number_of_bars * 4 * quarter) &&
           KRT_PLX_MutableMidiPart_setVoiceBankID(part, for_library(texts, "brindoll-mezzo-1")) &&
           KRT_PLX_MutableMidiPart_setLangID(part, english) &&
           KRT_PLX_MutableMidiPart_setStyleName(part, for_library(texts, "Parade")) &&
           add_notes(part, texts) && add_dynamics(part) &&
           set_reverb(KRT_PLX_MutableMidiPart_insertAudioEffect(part, 0,
                                                                for_library(texts, "audio.reverb")),
                      texts);
}

/* What the catalogue shows of the clip. */
static bool describe(KRT_PLX_ClipBase* clip, const char* type, const char* genre, Texts* texts)
{
    KRT_PLX_Filter* filter = KRT_PLX_MutableClip_filter(clip);
    return KRT_PLX_MutableClip_setVendorName(clip, for_library(texts, "Example studio")) &&
           KRT_PLX_MutableFilter_addType(filter, for_library(texts, type)) &&
           KRT_PLX_MutableFilter_addGenre(filter, for_library(texts, genre));
}

bool build_tune(KRT_PLX_ClipBase* clip)
{
    Texts texts = {0};
    bool is_built = describe(clip, "Melody", "Spiritual", &texts) &&
                    KRT_PLX_MutableFilter_addLanguage(KRT_PLX_MutableClip_filter(clip), english) &&
                    KRT_PLX_MutableClip_setPartKey(clip, c_major) &&
                    KRT_PLX_MutableClip_setPartTempo(clip, tempo) &&
                    fill_midi_part(KRT_PLX_MutableClip_createMidiPart(clip), &texts);
    free_texts(&texts);
    return is_built;
}

bool build_sound(KRT_PLX_ClipBase* clip, const KRT_PLX_Char* wave_path)
{
    Texts texts = {0};
    KRT_PLX_PartBase* part = KRT_PLX_MutableClip_createAudioPart(clip);
    bool is_built = describe(clip, "One Shot", "Percussion", &texts) &&
                    KRT_PLX_MutableAudioPart_setWavFilePath(part, wave_path) &&
                    set_reverb(KRT_PLX_MutableAudioPart_insertAudioEffect(
                                   part, 0, for_library(&texts, "audio.reverb")),
                               &texts);
    free_texts(&texts);
    return is_built;
}
