#include "korvel/plx/clip.h"

#include "manager/exports/guard.h"

using namespace Korvel::CANTORIS::PLX;
using namespace Korvel::CANTORIS::PLX::exports;

// ClipBase

KRT_PLX_Manager* KRT_PLX_ClipBase_parent(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT
{
    return call<&ClipBase::parent>(clip, nullptr);
}

const KRT_PLX_Char* KRT_PLX_ClipBase_vendorName(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT
{
    return call<&ClipBase::vendorName>(clip, nullptr);
}

uint32_t KRT_PLX_ClipBase_partType(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT
{
    return call<&ClipBase::partType>(clip, KRT_PLX_PART_NONE);
}

uint32_t KRT_PLX_ClipBase_partKey(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT
{
    return call<&ClipBase::partKey>(clip, KRT_PLX_NO_KEY);
}

uint32_t KRT_PLX_ClipBase_partTempo(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT
{
    return call<&ClipBase::partTempo>(clip, KRT_PLX_NO_TEMPO);
}

// Clip

const KRT_PLX_Char* KRT_PLX_Clip_id(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT
{
    return call<&Clip::id>(clip, nullptr);
}

const KRT_PLX_Char* KRT_PLX_Clip_name(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT
{
    return call<&Clip::name>(clip, nullptr);
}

uint32_t KRT_PLX_Clip_type(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT
{
    return call<&Clip::type>(clip, KRT_PLX_CLIP_NO_KIND);
}

const KRT_PLX_Char* KRT_PLX_Clip_path(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT
{
    return call<&Clip::path>(clip, nullptr);
}

KRT_PLX_Filter* KRT_PLX_Clip_filter(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT
{
    return call<&Clip::filter>(clip, nullptr);
}

bool KRT_PLX_Clip_readPart(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT
{
    return call<&Clip::readPart>(clip, false);
}

KRT_PLX_PartBase* KRT_PLX_Clip_audioPart(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT
{
    return call<&Clip::audioPart>(clip, nullptr);
}

bool KRT_PLX_Clip_hasAudioPart(KRT_PLX_ClipBase* clip, KRT_PLX_PartBase* element) KRT_PLX_NOEXCEPT
{
    return call<&Clip::hasAudioPart>(clip, false, element);
}

KRT_PLX_PartBase* KRT_PLX_Clip_midiPart(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT
{
    return call<&Clip::midiPart>(clip, nullptr);
}

bool KRT_PLX_Clip_hasMidiPart(KRT_PLX_ClipBase* clip, KRT_PLX_PartBase* element) KRT_PLX_NOEXCEPT
{
    return call<&Clip::hasMidiPart>(clip, false, element);
}

// UserClip

bool KRT_PLX_UserClip_remove(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT
{
    return call<&UserClip::remove>(clip, false);
}

KRT_PLX_PropertyEditor* KRT_PLX_UserClip_createPropertyEditor(KRT_PLX_ClipBase* clip)
    KRT_PLX_NOEXCEPT
{
    return call<&UserClip::createPropertyEditor>(clip, nullptr);
}

void KRT_PLX_UserClip_destroyPropertyEditor(KRT_PLX_ClipBase* clip,
                                            KRT_PLX_PropertyEditor* editor) KRT_PLX_NOEXCEPT
{
    call<&UserClip::destroyPropertyEditor>(clip, false, editor);
}

// PropertyEditor

bool KRT_PLX_PropertyEditor_setClipName(KRT_PLX_PropertyEditor* editor,
                                        const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&PropertyEditor::setClipName>(editor, false, text);
}

bool KRT_PLX_PropertyEditor_addFilterType(KRT_PLX_PropertyEditor* editor,
                                          const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&PropertyEditor::addFilterType>(editor, false, text);
}

bool KRT_PLX_PropertyEditor_addFilterGenre(KRT_PLX_PropertyEditor* editor,
                                           const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&PropertyEditor::addFilterGenre>(editor, false, text);
}

bool KRT_PLX_PropertyEditor_setPartKey(KRT_PLX_PropertyEditor* editor,
                                       uint32_t value) KRT_PLX_NOEXCEPT
{
    return call<&PropertyEditor::setPartKey>(editor, false, value);
}

bool KRT_PLX_PropertyEditor_setPartTempo(KRT_PLX_PropertyEditor* editor,
                                         uint32_t value) KRT_PLX_NOEXCEPT
{
    return call<&PropertyEditor::setPartTempo>(editor, false, value);
}

bool KRT_PLX_PropertyEditor_save(KRT_PLX_PropertyEditor* editor) KRT_PLX_NOEXCEPT
{
    return call<&PropertyEditor::save>(editor, false);
}

// MutableClip

KRT_PLX_PartBase* KRT_PLX_MutableClip_audioPart(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT
{
    return call<&MutableClip::audioPart>(clip, nullptr);
}

KRT_PLX_PartBase* KRT_PLX_MutableClip_midiPart(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT
{
    return call<&MutableClip::midiPart>(clip, nullptr);
}

bool KRT_PLX_MutableClip_hasAudioPart(KRT_PLX_ClipBase* clip,
                                      KRT_PLX_PartBase* element) KRT_PLX_NOEXCEPT
{
    return call<&MutableClip::hasAudioPart>(clip, false, element);
}

bool KRT_PLX_MutableClip_hasMidiPart(KRT_PLX_ClipBase* clip,
                                     KRT_PLX_PartBase* element) KRT_PLX_NOEXCEPT
{
    return call<&MutableClip::hasMidiPart>(clip, false, element);
}

KRT_PLX_PartBase* KRT_PLX_MutableClip_createAudioPart(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT
{
    return call<&MutableClip::createAudioPart>(clip, nullptr);
}

KRT_PLX_PartBase* KRT_PLX_MutableClip_createMidiPart(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT
{
    return call<&MutableClip::createMidiPart>(clip, nullptr);
}

KRT_PLX_PartBase* KRT_PLX_MutableClip_createMidiAiPart(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT
{
    return call<&MutableClip::createMidiAiPart>(clip, nullptr);
}

KRT_PLX_Filter* KRT_PLX_MutableClip_filter(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT
{
    return call<&MutableClip::filter>(clip, nullptr);
}

bool KRT_PLX_MutableClip_setPartKey(KRT_PLX_ClipBase* clip, uint32_t value) KRT_PLX_NOEXCEPT
{
    return call<&MutableClip::setPartKey>(clip, false, value);
}

bool KRT_PLX_MutableClip_setPartTempo(KRT_PLX_ClipBase* clip, uint32_t value) KRT_PLX_NOEXCEPT
{
    return call<&MutableClip::setPartTempo>(clip, false, value);
}

bool KRT_PLX_MutableClip_setVendorName(KRT_PLX_ClipBase* clip,
                                       const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&MutableClip::setVendorName>(clip, false, text);
}

KRT_PLX_ClipBase* KRT_PLX_MutableClip_save(KRT_PLX_ClipBase* clip, const KRT_PLX_Char* name,
                                           bool formatted, uint32_t* errorCode) KRT_PLX_NOEXCEPT
{
    return call<&MutableClip::save>(clip, nullptr, name, formatted, errorCode);
}

bool KRT_PLX_MutableClip_destroy(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT
{
    return call<&MutableClip::destroy>(clip, false);
}
