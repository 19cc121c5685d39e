#include "korvel/plx/part.h"

#include "manager/exports/guard.h"

using namespace Korvel::CANTORIS::PLX;
using namespace Korvel::CANTORIS::PLX::exports;

// PartBase

bool KRT_PLX_PartBase_isMutable(KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT
{
    return call<&PartBase::isMutable>(part, false);
}

uint32_t KRT_PLX_PartBase_type(KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT
{
    return call<&PartBase::type>(part, KRT_PLX_PART_NONE);
}

// MidiPartBase

uint32_t KRT_PLX_MidiPartBase_aiLangIDByIndex(KRT_PLX_PartBase* part,
                                              uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&MidiPartBase::aiLangIDByIndex>(part, KRT_PLX_NO_UINT32, index);
}

uint64_t KRT_PLX_MidiPartBase_aiLangIDSize(KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT
{
    return call<&MidiPartBase::aiLangIDSize>(part, 0);
}

const KRT_PLX_Char* KRT_PLX_MidiPartBase_aiVoiceBankID(KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT
{
    return call<&MidiPartBase::aiVoiceBankID>(part, nullptr);
}

int32_t KRT_PLX_MidiPartBase_duration(KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT
{
    return call<&MidiPartBase::duration>(part, KRT_PLX_NO_INT32);
}

uint32_t KRT_PLX_MidiPartBase_langID(KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT
{
    return call<&MidiPartBase::langID>(part, KRT_PLX_NO_UINT32);
}

bool KRT_PLX_MidiPartBase_numAudioEffects(KRT_PLX_PartBase* part, uint64_t* count) KRT_PLX_NOEXCEPT
{
    return countOf<&MidiPartBase::numAudioEffects>(part, count);
}

bool KRT_PLX_MidiPartBase_numMidiEffects(KRT_PLX_PartBase* part, uint64_t* count) KRT_PLX_NOEXCEPT
{
    return countOf<&MidiPartBase::numMidiEffects>(part, count);
}

bool KRT_PLX_MidiPartBase_numNotes(KRT_PLX_PartBase* part, uint64_t* count) KRT_PLX_NOEXCEPT
{
    return countOf<&MidiPartBase::numNotes>(part, count);
}

const KRT_PLX_Char* KRT_PLX_MidiPartBase_styleName(KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT
{
    return call<&MidiPartBase::styleName>(part, nullptr);
}

const KRT_PLX_Char* KRT_PLX_MidiPartBase_stylePresetID(KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT
{
    return call<&MidiPartBase::stylePresetID>(part, nullptr);
}

const KRT_PLX_Char* KRT_PLX_MidiPartBase_voiceBankID(KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT
{
    return call<&MidiPartBase::voiceBankID>(part, nullptr);
}

// MidiPart

KRT_PLX_ClipBase* KRT_PLX_MidiPart_parent(KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT
{
    return call<&MidiPart::parent>(part, nullptr);
}

KRT_PLX_NoteBase* KRT_PLX_MidiPart_note(KRT_PLX_PartBase* part, uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&MidiPart::note>(part, nullptr, index);
}

bool KRT_PLX_MidiPart_hasNote(KRT_PLX_PartBase* part, KRT_PLX_NoteBase* element) KRT_PLX_NOEXCEPT
{
    return call<&MidiPart::hasNote>(part, false, element);
}

KRT_PLX_MidiControllerBase* KRT_PLX_MidiPart_midiController(KRT_PLX_PartBase* part,
                                                            uint32_t type) KRT_PLX_NOEXCEPT
{
    return call<&MidiPart::midiController>(part, nullptr, type);
}

bool KRT_PLX_MidiPart_hasMidiController(KRT_PLX_PartBase* part,
                                        KRT_PLX_MidiControllerBase* element) KRT_PLX_NOEXCEPT
{
    return call<&MidiPart::hasMidiController>(part, false, element);
}

KRT_PLX_EffectBase* KRT_PLX_MidiPart_midiEffect(KRT_PLX_PartBase* part,
                                                uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&MidiPart::midiEffect>(part, nullptr, index);
}

bool KRT_PLX_MidiPart_hasMidiEffect(KRT_PLX_PartBase* part,
                                    KRT_PLX_EffectBase* element) KRT_PLX_NOEXCEPT
{
    return call<&MidiPart::hasMidiEffect>(part, false, element);
}

KRT_PLX_EffectBase* KRT_PLX_MidiPart_audioEffect(KRT_PLX_PartBase* part,
                                                 uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&MidiPart::audioEffect>(part, nullptr, index);
}

bool KRT_PLX_MidiPart_hasAudioEffect(KRT_PLX_PartBase* part,
                                     KRT_PLX_EffectBase* element) KRT_PLX_NOEXCEPT
{
    return call<&MidiPart::hasAudioEffect>(part, false, element);
}

// MutableMidiPart

KRT_PLX_ClipBase* KRT_PLX_MutableMidiPart_parent(KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiPart::parent>(part, nullptr);
}

KRT_PLX_NoteBase* KRT_PLX_MutableMidiPart_note(KRT_PLX_PartBase* part,
                                               uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiPart::note>(part, nullptr, index);
}

bool KRT_PLX_MutableMidiPart_hasNote(KRT_PLX_PartBase* part,
                                     KRT_PLX_NoteBase* element) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiPart::hasNote>(part, false, element);
}

KRT_PLX_NoteBase* KRT_PLX_MutableMidiPart_insertNote(KRT_PLX_PartBase* part, int32_t pos,
                                                     int32_t duration, const KRT_PLX_Char* lyric,
                                                     const KRT_PLX_Char* phoneme,
                                                     uint32_t langID) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiPart::insertNote>(part, nullptr, pos, duration, lyric, phoneme, langID);
}

KRT_PLX_MidiControllerBase* KRT_PLX_MutableMidiPart_midiController(KRT_PLX_PartBase* part,
                                                                   uint32_t type) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiPart::midiController>(part, nullptr, type);
}

bool KRT_PLX_MutableMidiPart_hasMidiController(KRT_PLX_PartBase* part,
                                               KRT_PLX_MidiControllerBase* element) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiPart::hasMidiController>(part, false, element);
}

KRT_PLX_MidiControllerBase* KRT_PLX_MutableMidiPart_addMidiController(
    KRT_PLX_PartBase* part, uint32_t type) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiPart::addMidiController>(part, nullptr, type);
}

KRT_PLX_EffectBase* KRT_PLX_MutableMidiPart_midiEffect(KRT_PLX_PartBase* part,
                                                       uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiPart::midiEffect>(part, nullptr, index);
}

bool KRT_PLX_MutableMidiPart_hasMidiEffect(KRT_PLX_PartBase* part,
                                           KRT_PLX_EffectBase* element) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiPart::hasMidiEffect>(part, false, element);
}

KRT_PLX_EffectBase* KRT_PLX_MutableMidiPart_insertMidiEffect(
    KRT_PLX_PartBase* part, uint64_t index, const KRT_PLX_Char* id) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiPart::insertMidiEffect>(part, nullptr, index, id);
}

KRT_PLX_EffectBase* KRT_PLX_MutableMidiPart_audioEffect(KRT_PLX_PartBase* part,
                                                        uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiPart::audioEffect>(part, nullptr, index);
}

bool KRT_PLX_MutableMidiPart_hasAudioEffect(KRT_PLX_PartBase* part,
                                            KRT_PLX_EffectBase* element) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiPart::hasAudioEffect>(part, false, element);
}

KRT_PLX_EffectBase* KRT_PLX_MutableMidiPart_insertAudioEffect(
    KRT_PLX_PartBase* part, uint64_t index, const KRT_PLX_Char* id) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiPart::insertAudioEffect>(part, nullptr, index, id);
}

bool KRT_PLX_MutableMidiPart_addAiLangID(KRT_PLX_PartBase* part, uint32_t langID) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiPart::addAiLangID>(part, false, langID);
}

bool KRT_PLX_MutableMidiPart_setAiVoiceBankID(KRT_PLX_PartBase* part,
                                              const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiPart::setAiVoiceBankID>(part, false, text);
}

bool KRT_PLX_MutableMidiPart_setDuration(KRT_PLX_PartBase* part, int32_t duration) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiPart::setDuration>(part, false, duration);
}

bool KRT_PLX_MutableMidiPart_setLangID(KRT_PLX_PartBase* part, uint32_t langID) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiPart::setLangID>(part, false, langID);
}

bool KRT_PLX_MutableMidiPart_setStyleName(KRT_PLX_PartBase* part,
                                          const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiPart::setStyleName>(part, false, text);
}

bool KRT_PLX_MutableMidiPart_setStylePresetID(KRT_PLX_PartBase* part,
                                              const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiPart::setStylePresetID>(part, false, text);
}

bool KRT_PLX_MutableMidiPart_setVoiceBankID(KRT_PLX_PartBase* part,
                                            const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&MutableMidiPart::setVoiceBankID>(part, false, text);
}

// AudioPartBase

int32_t KRT_PLX_AudioPartBase_begin(KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT
{
    return call<&AudioPartBase::begin>(part, KRT_PLX_NO_INT32);
}

int32_t KRT_PLX_AudioPartBase_end(KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT
{
    return call<&AudioPartBase::end>(part, KRT_PLX_NO_INT32);
}

bool KRT_PLX_AudioPartBase_numAudioEffects(KRT_PLX_PartBase* part, uint64_t* count) KRT_PLX_NOEXCEPT
{
    return countOf<&AudioPartBase::numAudioEffects>(part, count);
}

const KRT_PLX_Char* KRT_PLX_AudioPartBase_wavFilePath(KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT
{
    return call<&AudioPartBase::wavFilePath>(part, nullptr);
}

// AudioPart

KRT_PLX_ClipBase* KRT_PLX_AudioPart_parent(KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT
{
    return call<&AudioPart::parent>(part, nullptr);
}

KRT_PLX_EffectBase* KRT_PLX_AudioPart_audioEffect(KRT_PLX_PartBase* part,
                                                  uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&AudioPart::audioEffect>(part, nullptr, index);
}

bool KRT_PLX_AudioPart_hasAudioEffect(KRT_PLX_PartBase* part,
                                      KRT_PLX_EffectBase* element) KRT_PLX_NOEXCEPT
{
    return call<&AudioPart::hasAudioEffect>(part, false, element);
}

// MutableAudioPart

KRT_PLX_ClipBase* KRT_PLX_MutableAudioPart_parent(KRT_PLX_PartBase* part) KRT_PLX_NOEXCEPT
{
    return call<&MutableAudioPart::parent>(part, nullptr);
}

KRT_PLX_EffectBase* KRT_PLX_MutableAudioPart_audioEffect(KRT_PLX_PartBase* part,
                                                         uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&MutableAudioPart::audioEffect>(part, nullptr, index);
}

bool KRT_PLX_MutableAudioPart_hasAudioEffect(KRT_PLX_PartBase* part,
                                             KRT_PLX_EffectBase* element) KRT_PLX_NOEXCEPT
{
    return call<&MutableAudioPart::hasAudioEffect>(part, false, element);
}

KRT_PLX_EffectBase* KRT_PLX_MutableAudioPart_insertAudioEffect(
    KRT_PLX_PartBase* part, uint64_t index, const KRT_PLX_Char* id) KRT_PLX_NOEXCEPT
{
    return call<&MutableAudioPart::insertAudioEffect>(part, nullptr, index, id);
}

bool KRT_PLX_MutableAudioPart_setRegion(KRT_PLX_PartBase* part, int32_t begin,
                                        int32_t end) KRT_PLX_NOEXCEPT
{
    return call<&MutableAudioPart::setRegion>(part, false, begin, end);
}

bool KRT_PLX_MutableAudioPart_setWavFilePath(KRT_PLX_PartBase* part,
                                             const KRT_PLX_Char* path) KRT_PLX_NOEXCEPT
{
    return call<&MutableAudioPart::setWavFilePath>(part, false, path);
}
