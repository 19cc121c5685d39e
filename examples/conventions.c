#include "conventions.h"

#include <stdlib.h>
#include <string.h>

#include <korvel/plx.h>

static const char* const key_names[] = {
    NULL,       "Cb major", "Gb major", "Db major", "Ab major", "Eb major", "Bb major", "F major",
    "C major",  "G major",  "D major",  "A major",  "E major",  "B major",  "F# major", "C# major",
    "Ab minor", "Eb minor", "Bb minor", "F minor",  "C minor",  "G minor",  "D minor",  "A minor",
    "E minor",  "B minor",  "F# minor", "C# minor", "G# minor", "D# minor", "A# minor"};

static const char* const language_names[] = {"no words", "English", "French",
                                             "German",   "Italian", "Japanese"};

static const char* const lane_names[number_of_lane_types] = {
    "dynamics",  "portamento", "pitchBendSens", "pitchBend", "breathiness", "brightness",
    "clearness", "voiceBlend", "growl",         "exciter",   "air",         "character"};

static const char* const part_type_names[] = {NULL, "audio", "midiAi", "midi"};

enum {
    number_of_keys = sizeof key_names / sizeof *key_names,
    number_of_languages = sizeof language_names / sizeof *language_names,
    number_of_part_types = sizeof part_type_names / sizeof *part_type_names
};

const char* key_name(uint32_t key)
{
    return key < number_of_keys ? key_names[key] : NULL;
}

/* Seven keys with flats lead up to C major, and seven to A minor. */
static bool has_flats(uint32_t key)
{
    return (key >= 1 && key <= 7) || (key >= 16 && key <= 22);
}

const char* pitch_name(uint32_t note_number, uint32_t key)
{
    static const char* const sharps[] = {"C",  "C#", "D",  "D#", "E",  "F",
                                         "F#", "G",  "G#", "A",  "A#", "B"};
    static const char* const flats[] = {"C",  "Db", "D",  "Eb", "E",  "F",
                                        "Gb", "G",  "Ab", "A",  "Bb", "B"};
    return (has_flats(key) ? flats : sharps)[note_number % 12];
}

int octave_of(uint32_t note_number)
{
    return (int)(note_number / 12) - 1;
}

bool is_black_key(uint32_t note_number)
{
    return strchr(pitch_name(note_number, 0), '#') != NULL;
}

const char* language_name(int32_t language)
{
    return language >= 0 && language < number_of_languages ? language_names[language] : NULL;
}

/* Returns the index of a name, or -1. */
static int find_name(const char* const* names, int count, const char* name)
{
    for (int i = 0; i < count; ++i) {
        if (names[i] != NULL && strcmp(names[i], name) == 0) {
            return i;
        }
    }
    return -1;
}

bool find_language(const char* text, int32_t* language)
{
    char* end = NULL;
    long number = strtol(text, &end, 10);
    if (end == text || *end != '\0') {
        number = find_name(language_names, number_of_languages, text);
    }
    *language = (int32_t)number;
    return number >= 0 && number <= INT32_MAX;
}

const char* lane_name(uint32_t type)
{
    return type < number_of_lane_types ? lane_names[type] : NULL;
}

const char* part_type_name(uint32_t type)
{
    return type < number_of_part_types && part_type_names[type] != NULL ? part_type_names[type]
                                                                        : "none";
}

bool find_part_type(const char* name, uint32_t* type)
{
    int place = find_name(part_type_names, number_of_part_types, name);
    *type = (uint32_t)place;
    return place > 0;
}
