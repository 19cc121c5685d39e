#include <korvel/plx_kit.h>

typedef struct Word {
    uint32_t codes;
    uint32_t code;
    const char* name;
    const char* text;
} Word;

/* The name is the one that the compiler knows. */
#define WORD(codes, code, text)  \
    {                            \
        codes, code, #code, text \
    }

static const Word words[] = {
    WORD(KRT_PLX_KIT_RESULTS, KRT_PLX_RESULT_OK, "done"),
    WORD(KRT_PLX_KIT_RESULTS, KRT_PLX_RESULT_NULL_ARGUMENT, "a name or folder is missing"),
    WORD(KRT_PLX_KIT_RESULTS, KRT_PLX_RESULT_EMPTY_APP_ID, "the application ID is empty"),
    WORD(KRT_PLX_KIT_RESULTS, KRT_PLX_RESULT_DIRECTORY_MISSING, "the clip folder does not exist"),
    WORD(KRT_PLX_KIT_RESULTS, KRT_PLX_RESULT_DIRECTORY_NOT_CREATED, "a folder cannot be made"),
    WORD(KRT_PLX_KIT_RESULTS, KRT_PLX_RESULT_USER_DIRECTORY_MISSING,
         "the folder of user clips does not exist"),
    WORD(KRT_PLX_KIT_RESULTS, KRT_PLX_RESULT_EMPTY_NAME, "the name is empty"),
    WORD(KRT_PLX_KIT_RESULTS, KRT_PLX_RESULT_UNKNOWN_CLIP, "the clip does not exist any more"),
    WORD(KRT_PLX_KIT_RESULTS, KRT_PLX_RESULT_NO_PART, "the clip has no part"),
    WORD(KRT_PLX_KIT_RESULTS, KRT_PLX_RESULT_WAVE_FILE_MISSING, "the wave file does not exist"),
    WORD(KRT_PLX_KIT_RESULTS, KRT_PLX_RESULT_WAVE_FILE_NOT_COPIED,
         "the wave file cannot be copied"),
    WORD(KRT_PLX_KIT_RESULTS, KRT_PLX_RESULT_FILE_NOT_OPENED, "a file cannot be opened"),
    WORD(KRT_PLX_KIT_RESULTS, KRT_PLX_RESULT_FILE_NOT_WRITTEN, "a file cannot be written"),
    WORD(KRT_PLX_KIT_RESULTS, KRT_PLX_RESULT_NO_VOICE_BANK, "the part has no voice bank"),
    WORD(KRT_PLX_KIT_RESULTS, KRT_PLX_RESULT_BAD_LANGUAGE, "the part has no language"),
    WORD(KRT_PLX_KIT_RESULTS, KRT_PLX_RESULT_NO_AI_VOICE_BANK, "the part has no AI voice bank"),
    WORD(KRT_PLX_KIT_RESULTS, KRT_PLX_RESULT_NO_AI_LANGUAGE, "the part has no AI language"),
    WORD(KRT_PLX_KIT_RESULTS, KRT_PLX_RESULT_BAD_AI_LANGUAGE,
         "an AI language of the part is out of range"),
    WORD(KRT_PLX_KIT_RESULTS, KRT_PLX_RESULT_NO_MANAGER, "no manager, or out of memory"),

    WORD(KRT_PLX_KIT_PART_TYPES, KRT_PLX_PART_AUDIO, "audio"),
    WORD(KRT_PLX_KIT_PART_TYPES, KRT_PLX_PART_MIDI_AI, "MIDI for an AI voice"),
    WORD(KRT_PLX_KIT_PART_TYPES, KRT_PLX_PART_MIDI, "MIDI for a voice bank"),
    WORD(KRT_PLX_KIT_PART_TYPES, KRT_PLX_PART_NONE, "no part"),

    WORD(KRT_PLX_KIT_CLIP_KINDS, KRT_PLX_CLIP_SYSTEM, "system clip"),
    WORD(KRT_PLX_KIT_CLIP_KINDS, KRT_PLX_CLIP_USER, "user clip"),
    WORD(KRT_PLX_KIT_CLIP_KINDS, KRT_PLX_CLIP_NO_KIND, "not in the catalogue"),

    WORD(KRT_PLX_KIT_CONTROLLER_TYPES, KRT_PLX_CONTROLLER_DYNAMICS, "dynamics"),
    WORD(KRT_PLX_KIT_CONTROLLER_TYPES, KRT_PLX_CONTROLLER_PORTAMENTO, "portamento"),
    WORD(KRT_PLX_KIT_CONTROLLER_TYPES, KRT_PLX_CONTROLLER_PITCH_BEND_SENS,
         "pitch bend sensitivity"),
    WORD(KRT_PLX_KIT_CONTROLLER_TYPES, KRT_PLX_CONTROLLER_PITCH_BEND, "pitch bend"),
    WORD(KRT_PLX_KIT_CONTROLLER_TYPES, KRT_PLX_CONTROLLER_BREATHINESS, "breathiness"),
    WORD(KRT_PLX_KIT_CONTROLLER_TYPES, KRT_PLX_CONTROLLER_BRIGHTNESS, "brightness"),
    WORD(KRT_PLX_KIT_CONTROLLER_TYPES, KRT_PLX_CONTROLLER_CLEARNESS, "clearness"),
    WORD(KRT_PLX_KIT_CONTROLLER_TYPES, KRT_PLX_CONTROLLER_VOICE_BLEND, "voice blend"),
    WORD(KRT_PLX_KIT_CONTROLLER_TYPES, KRT_PLX_CONTROLLER_GROWL, "growl"),
    WORD(KRT_PLX_KIT_CONTROLLER_TYPES, KRT_PLX_CONTROLLER_EXCITER, "exciter"),
    WORD(KRT_PLX_KIT_CONTROLLER_TYPES, KRT_PLX_CONTROLLER_AIR, "air"),
    WORD(KRT_PLX_KIT_CONTROLLER_TYPES, KRT_PLX_CONTROLLER_CHARACTER, "character"),
    WORD(KRT_PLX_KIT_CONTROLLER_TYPES, KRT_PLX_CONTROLLER_NONE, "no controller"),

    WORD(KRT_PLX_KIT_VIBRATO_POINT_KINDS, KRT_PLX_VIBRATO_DEPTH, "vibrato depth"),
    WORD(KRT_PLX_KIT_VIBRATO_POINT_KINDS, KRT_PLX_VIBRATO_RATE, "vibrato rate"),
    WORD(KRT_PLX_KIT_VIBRATO_POINT_KINDS, KRT_PLX_VIBRATO_NONE, "no vibrato point"),

    WORD(KRT_PLX_KIT_EFFECT_KINDS, KRT_PLX_EFFECT_AUDIO, "audio effect"),
    WORD(KRT_PLX_KIT_EFFECT_KINDS, KRT_PLX_EFFECT_MIDI, "MIDI effect"),
    WORD(KRT_PLX_KIT_EFFECT_KINDS, KRT_PLX_EFFECT_NONE, "no effect"),

    WORD(KRT_PLX_KIT_VALUE_TYPES, KRT_PLX_VALUE_UNSET, "no value yet"),
    WORD(KRT_PLX_KIT_VALUE_TYPES, KRT_PLX_VALUE_INT32, "integer"),
    WORD(KRT_PLX_KIT_VALUE_TYPES, KRT_PLX_VALUE_FLOAT, "float"),
    WORD(KRT_PLX_KIT_VALUE_TYPES, KRT_PLX_VALUE_STRING, "text"),
    WORD(KRT_PLX_KIT_VALUE_TYPES, KRT_PLX_VALUE_NONE, "no parameter"),

    WORD(KRT_PLX_KIT_TEXT_CODES, KRT_PLX_KIT_TEXT_OK, "done"),
    WORD(KRT_PLX_KIT_TEXT_CODES, KRT_PLX_KIT_TEXT_TOO_LONG, "the text is too long"),
    WORD(KRT_PLX_KIT_TEXT_CODES, KRT_PLX_KIT_TEXT_MENDED,
         "characters that are no text were replaced"),
    WORD(KRT_PLX_KIT_TEXT_CODES, KRT_PLX_KIT_TEXT_NULL, "there is no text"),

    WORD(KRT_PLX_KIT_ITEMS, KRT_PLX_KIT_CLIP, "clip"),
    WORD(KRT_PLX_KIT_ITEMS, KRT_PLX_KIT_TAGS, "tags"),
    WORD(KRT_PLX_KIT_ITEMS, KRT_PLX_KIT_PART, "part"),
    WORD(KRT_PLX_KIT_ITEMS, KRT_PLX_KIT_NOTE, "note"),
    WORD(KRT_PLX_KIT_ITEMS, KRT_PLX_KIT_ATTACK, "attack of note"),
    WORD(KRT_PLX_KIT_ITEMS, KRT_PLX_KIT_RELEASE, "release of note"),
    WORD(KRT_PLX_KIT_ITEMS, KRT_PLX_KIT_SINGING_SKILL, "singing skill of note"),
    WORD(KRT_PLX_KIT_ITEMS, KRT_PLX_KIT_VIBRATO, "vibrato of note"),
    WORD(KRT_PLX_KIT_ITEMS, KRT_PLX_KIT_LANE, "controller"),
    WORD(KRT_PLX_KIT_ITEMS, KRT_PLX_KIT_AUDIO_EFFECT, "audio effect"),
    WORD(KRT_PLX_KIT_ITEMS, KRT_PLX_KIT_MIDI_EFFECT, "MIDI effect"),

    WORD(KRT_PLX_KIT_REASONS, KRT_PLX_KIT_REFUSED,
         "not taken; it is out of range, or memory ran out"),
    WORD(KRT_PLX_KIT_REASONS, KRT_PLX_KIT_NO_LANGUAGE, "left out; it has no language"),
    WORD(KRT_PLX_KIT_REASONS, KRT_PLX_KIT_LANGUAGE_GIVEN, "had no language and was given one"),
    WORD(KRT_PLX_KIT_REASONS, KRT_PLX_KIT_UNREADABLE, "cannot be read"),
    WORD(KRT_PLX_KIT_REASONS, KRT_PLX_KIT_NO_WAVE_FILE, "the wave file does not exist"),
    WORD(KRT_PLX_KIT_REASONS, KRT_PLX_KIT_NOT_SAVED, "is not kept by saving"),
    WORD(KRT_PLX_KIT_REASONS, KRT_PLX_KIT_PREVENTS_SAVING, "prevents saving"),
    WORD(KRT_PLX_KIT_REASONS, KRT_PLX_KIT_OUT_OF_RANGE, "would be out of range"),
    WORD(KRT_PLX_KIT_REASONS, KRT_PLX_KIT_OUTSIDE_PART, "lies outside the part"),
    WORD(KRT_PLX_KIT_REASONS, KRT_PLX_KIT_CUT_AWAY, "cut away"),
    WORD(KRT_PLX_KIT_REASONS, KRT_PLX_KIT_SHORTENED, "shortened"),
    WORD(KRT_PLX_KIT_REASONS, KRT_PLX_KIT_REPEATED, "left out; there is one of this name already"),
};

static const Word* find(uint32_t codes, uint32_t code)
{
    static const Word unknown = {0, 0, "", ""};
    for (size_t i = 0; i < sizeof words / sizeof words[0]; ++i) {
        if (words[i].codes == codes && words[i].code == code) {
            return &words[i];
        }
    }
    return &unknown;
}

const char* KRT_PLX_Kit_codeName(uint32_t codes, uint32_t code)
{
    return find(codes, code)->name;
}

const char* KRT_PLX_Kit_codeText(uint32_t codes, uint32_t code)
{
    return find(codes, code)->text;
}
