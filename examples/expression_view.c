#include "expression_view.h"

#include <stdio.h>

#include "display.h"
#include "text.h"

typedef struct Extent {
    uint32_t lowest;
    uint32_t highest;
} Extent;

typedef struct Summary {
    unsigned notes;
    unsigned vibratos;
    unsigned skills;
    unsigned dvqms[2];                 /* releases, attacks */
    const KRT_PLX_Char* components[2]; /* the first of each */
    Extent depth;
    Extent rate;
} Summary;

static const Extent no_extent = {UINT32_MAX, 0};

static void add_points(KRT_PLX_VibratoBase* vibrato, uint32_t kind, Extent* extent)
{
    uint64_t count = 0;
    KRT_PLX_VibratoBase_numParameters(vibrato, kind, &count);
    for (uint64_t i = 0; i < count; ++i) {
        KRT_PLX_VibratoParameterBase* point = KRT_PLX_Vibrato_parameter(vibrato, kind, i);
        uint32_t value = KRT_PLX_VibratoParameterBase_value(point);
        extent->lowest = value < extent->lowest ? value : extent->lowest;
        extent->highest = value > extent->highest ? value : extent->highest;
    }
}

static void add_vibrato(Summary* summary, KRT_PLX_VibratoBase* vibrato)
{
    if (KRT_PLX_VibratoBase_duration(vibrato) > 0) {
        ++summary->vibratos;
        add_points(vibrato, KRT_PLX_VIBRATO_DEPTH, &summary->depth);
        add_points(vibrato, KRT_PLX_VIBRATO_RATE, &summary->rate);
    }
}

static void add_dvqm(Summary* summary, KRT_PLX_DvqmBase* dvqm)
{
    const KRT_PLX_Char* component = KRT_PLX_DvqmBase_compID(dvqm);
    bool is_attack = KRT_PLX_DvqmBase_isAttack(dvqm);
    if (*component != 0 && summary->dvqms[is_attack]++ == 0) {
        summary->components[is_attack] = component;
    }
}

static void add_note(Summary* summary, KRT_PLX_NoteBase* note)
{
    ++summary->notes;
    add_vibrato(summary, KRT_PLX_Note_vibrato(note));
    add_dvqm(summary, KRT_PLX_Note_dvqm(note, true));
    add_dvqm(summary, KRT_PLX_Note_dvqm(note, false));
    if (KRT_PLX_SingingSkillBase_duration(KRT_PLX_Note_singingSkill(note)) > 0) {
        ++summary->skills;
    }
}

static void append_extent(Text* text, const char* name, Extent extent)
{
    if (extent.lowest <= extent.highest) {
        text_append_format(text, ", %s %u to %u", name, (unsigned)extent.lowest,
                           (unsigned)extent.highest);
    }
}

static void append_vibratos(Text* text, const Summary* summary)
{
    if (summary->vibratos > 0) {
        text_append_format(text, "; vibrato on %u", summary->vibratos);
        append_extent(text, "depth", summary->depth);
        append_extent(text, "rate", summary->rate);
    }
}

static void append_dvqm(Text* text, const char* name, const Summary* summary, bool is_attack)
{
    if (summary->dvqms[is_attack] > 0) {
        text_append_format(text, "; %s on %u (", name, summary->dvqms[is_attack]);
        text_append_printable(text, summary->components[is_attack]);
        text_append(text, ")");
    }
}

static void print_summary(const Summary* summary, int width)
{
    Text text = {0};
    text_append_format(&text, "%u", summary->notes);
    append_vibratos(&text, summary);
    append_dvqm(&text, "attack", summary, true);
    append_dvqm(&text, "release", summary, false);
    if (summary->skills > 0) {
        text_append_format(&text, "; singing skill on %u", summary->skills);
    }
    print_entry("Notes", text_bytes(&text), width);
    text_free(&text);
}

void print_expressions(KRT_PLX_PartBase* part, int width)
{
    Summary summary = {.depth = no_extent, .rate = no_extent};
    uint64_t count = 0;
    KRT_PLX_MidiPartBase_numNotes(part, &count);
    for (uint64_t i = 0; i < count; ++i) {
        add_note(&summary, KRT_PLX_MidiPart_note(part, i));
    }
    print_summary(&summary, width);
}
