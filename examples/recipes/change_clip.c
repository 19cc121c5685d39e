#include "recipes.h"

/* [change] */
uint32_t save_reworded(KRT_PLX_ClipBase* clip, const KRT_PLX_Char* lyric,
                       const KRT_PLX_Char* phonemes, const KRT_PLX_Char* name)
{
    const struct KRT_PLX_Api* plx = KRT_PLX_Kit_linked();
    uint32_t code = KRT_PLX_RESULT_NO_PART;
    KRT_PLX_ClipBase* copy = KRT_PLX_Kit_edit(plx, clip, KRT_PLX_NO_LANGUAGE, NULL);
    KRT_PLX_NoteBase* note = KRT_PLX_MutableMidiPart_note(KRT_PLX_MutableClip_midiPart(copy), 0);
    KRT_PLX_MutableNote_setLyric(note, lyric);
    KRT_PLX_MutableNote_setPhoneme(note, phonemes);
    KRT_PLX_MutableClip_setPartTempo(copy, 9000); /* hundredths of a beat per minute */
    KRT_PLX_MutableClip_save(copy, name, true, &code);
    KRT_PLX_MutableClip_destroy(copy);
    return code;
}
/* [change] */
