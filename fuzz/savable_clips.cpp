#include "savable_clips.h"

#include "harness.h"

namespace fuzz {

namespace {

const support::Text& word()
{
    static const support::Text text = support::text("a");
    return text;
}

const support::Text& voice()
{
    static const support::Text text = support::text("0123456789ABCDEF");
    return text;
}

KRT_PLX_ClipBase* createClip(KRT_PLX_Manager* manager)
{
    KRT_PLX_ClipBase* const clip = KRT_PLX_Manager_createMutableClip(manager);
    KRT_PLX_Filter* const filter = KRT_PLX_MutableClip_filter(clip);
    require(KRT_PLX_MutableFilter_addGenre(filter, word().c_str()) &&
                KRT_PLX_MutableFilter_addLanguage(filter, 1),
            "a filter takes tags");
    return clip;
}

void addParameters(KRT_PLX_EffectBase* effect)
{
    using Parameter = KRT_PLX_EffectParameterBase;
    Parameter* const text =
        KRT_PLX_MutableEffect_addParameter(effect, support::text("text").c_str());
    Parameter* const number =
        KRT_PLX_MutableEffect_addParameter(effect, support::text("number").c_str());
    Parameter* const bypass =
        KRT_PLX_MutableEffect_addParameter(effect, support::text("Bypass").c_str());
    require(KRT_PLX_MutableEffectParameter_setValueString(text, word().c_str()) &&
                KRT_PLX_MutableEffectParameter_setValueFloat(number, 0.5F) &&
                KRT_PLX_MutableEffectParameter_setValueInt32(bypass, 1),
            "parameters take values");
}

void addDvqm(KRT_PLX_DvqmBase* dvqm)
{
    require(KRT_PLX_MutableDvqm_setCompID(dvqm, voice().c_str()) &&
                KRT_PLX_MutableDvqm_addLevelName(dvqm, word().c_str()),
            "an attack and a release take a sample");
}

void addNote(KRT_PLX_PartBase* part)
{
    KRT_PLX_NoteBase* const note =
        KRT_PLX_MutableMidiPart_insertNote(part, 0, 480, word().c_str(), word().c_str(), 1);
    addDvqm(KRT_PLX_MutableNote_dvqm(note, true));
    addDvqm(KRT_PLX_MutableNote_dvqm(note, false));
    KRT_PLX_VibratoBase* const vibrato = KRT_PLX_MutableNote_vibrato(note);
    require(KRT_PLX_MutableVibrato_setDuration(vibrato, 240), "a vibrato takes a duration");
    for (const std::uint32_t curve : {0U, 1U}) {
        require(KRT_PLX_MutableVibrato_insertParameter(vibrato, curve, 0, 64) != nullptr,
                "a curve takes a point");
    }
}

void fill(KRT_PLX_PartBase* part)
{
    addNote(part);
    KRT_PLX_MidiControllerBase* const lane = KRT_PLX_MutableMidiPart_addMidiController(part, 0);
    require(KRT_PLX_MutableMidiController_insertEvent(lane, 0, 1) != nullptr,
            "a lane takes an event");
    addParameters(KRT_PLX_MutableMidiPart_insertAudioEffect(part, 0, word().c_str()));
    addParameters(KRT_PLX_MutableMidiPart_insertMidiEffect(part, 0, word().c_str()));
}

KRT_PLX_ClipBase* createMidiClip(KRT_PLX_Manager* manager)
{
    KRT_PLX_ClipBase* const clip = createClip(manager);
    KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createMidiPart(clip);
    require(KRT_PLX_MutableMidiPart_setVoiceBankID(part, voice().c_str()) &&
                KRT_PLX_MutableMidiPart_setLangID(part, 0),
            "a part takes a voice");
    fill(part);
    return clip;
}

KRT_PLX_ClipBase* createMidiAiClip(KRT_PLX_Manager* manager)
{
    KRT_PLX_ClipBase* const clip = createClip(manager);
    KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createMidiAiPart(clip);
    require(KRT_PLX_MutableMidiPart_setAiVoiceBankID(part, voice().c_str()) &&
                KRT_PLX_MutableMidiPart_addAiLangID(part, 0),
            "a part takes an AI voice");
    fill(part);
    return clip;
}

KRT_PLX_ClipBase* createAudioClip(KRT_PLX_Manager* manager, const support::Text& wavePath)
{
    KRT_PLX_ClipBase* const clip = createClip(manager);
    KRT_PLX_PartBase* const part = KRT_PLX_MutableClip_createAudioPart(clip);
    require(KRT_PLX_MutableAudioPart_setWavFilePath(part, wavePath.c_str()),
            "a part takes a wave file");
    addParameters(KRT_PLX_MutableAudioPart_insertAudioEffect(part, 0, word().c_str()));
    return clip;
}

} // namespace

std::array<KRT_PLX_ClipBase*, 3> createSavableClips(KRT_PLX_Manager* manager,
                                                    const support::Text& wavePath)
{
    return {createMidiClip(manager), createMidiAiClip(manager), createAudioClip(manager, wavePath)};
}

} // namespace fuzz
