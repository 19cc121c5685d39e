#include "part_view.h"

#include <stdio.h>
#include <stdlib.h>

#include "conventions.h"
#include "display.h"
#include "effect_view.h"
#include "expression_view.h"
#include "lane_view.h"
#include "library.h"
#include "text.h"

static void append_language(Text* text, uint32_t language)
{
    const char* name = language <= INT32_MAX ? language_name((int32_t)language) : NULL;
    if (name != NULL) {
        text_append_format(text, ", %s", name);
    } else {
        text_append_format(text, ", language %u", (unsigned)language);
    }
}

static void append_voice_bank(Text* text, KRT_PLX_PartBase* part)
{
    text_append(text, "voice bank ");
    text_append_printable(text, KRT_PLX_MidiPartBase_voiceBankID(part));
    append_language(text, KRT_PLX_MidiPartBase_langID(part));
}

static void append_ai_voice(Text* text, KRT_PLX_PartBase* part)
{
    uint64_t languages = KRT_PLX_MidiPartBase_aiLangIDSize(part);
    text_append(text, "AI voice ");
    text_append_printable(text, KRT_PLX_MidiPartBase_aiVoiceBankID(part));
    for (uint64_t i = 0; i < languages; ++i) {
        append_language(text, KRT_PLX_MidiPartBase_aiLangIDByIndex(part, i));
    }
}

static void append_style(Text* text, KRT_PLX_PartBase* part)
{
    const KRT_PLX_Char* style = KRT_PLX_MidiPartBase_styleName(part);
    if (*style != 0) {
        text_append(text, ", style ");
        text_append_printable(text, style);
    }
}

static void print_voice(KRT_PLX_PartBase* part, int width)
{
    Text text = {0};
    if (KRT_PLX_PartBase_type(part) == KRT_PLX_PART_MIDI) {
        append_voice_bank(&text, part);
    } else {
        append_ai_voice(&text, part);
    }
    append_style(&text, part);
    print_entry("Voice", text_bytes(&text), width);
    text_free(&text);
}

void print_midi_part(KRT_PLX_PartBase* part, int width)
{
    print_voice(part, width);
    print_expressions(part, width);
    print_lanes(part, width);
    print_effects("MIDI", part, KRT_PLX_MidiPartBase_numMidiEffects, KRT_PLX_MidiPart_midiEffect,
                  width);
    print_effects("Audio", part, KRT_PLX_MidiPartBase_numAudioEffects, KRT_PLX_MidiPart_audioEffect,
                  width);
}

void print_audio_part(KRT_PLX_PartBase* part, int width)
{
    char* path = system_path(KRT_PLX_AudioPartBase_wavFilePath(part));
    print_entry("Wave", path, width);
    free(path);
    print_effects("Audio", part, KRT_PLX_AudioPartBase_numAudioEffects,
                  KRT_PLX_AudioPart_audioEffect, width);
}
