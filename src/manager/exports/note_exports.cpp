#include "korvel/plx/note.h"

#include "manager/exports/guard.h"
#include "model/fields.h"

using namespace Korvel::CANTORIS::PLX;
using namespace Korvel::CANTORIS::PLX::exports;

namespace {

// Of a note that is not there: what a new note has.
constexpr float noAiExpression = field::aiExpression.initial;

} // namespace

// NoteBase

uint32_t KRT_PLX_NoteBase_accent(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::accent>(note, KRT_PLX_NO_UINT32);
}

float KRT_PLX_NoteBase_amplitudeEnd(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::amplitudeEnd>(note, noAiExpression);
}

float KRT_PLX_NoteBase_amplitudeStart(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::amplitudeStart>(note, noAiExpression);
}

float KRT_PLX_NoteBase_amplitudeWhole(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::amplitudeWhole>(note, noAiExpression);
}

uint32_t KRT_PLX_NoteBase_bendDepth(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::bendDepth>(note, KRT_PLX_NO_UINT32);
}

uint32_t KRT_PLX_NoteBase_bendLength(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::bendLength>(note, KRT_PLX_NO_UINT32);
}

uint32_t KRT_PLX_NoteBase_decay(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::decay>(note, KRT_PLX_NO_UINT32);
}

int32_t KRT_PLX_NoteBase_duration(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::duration>(note, KRT_PLX_NO_INT32);
}

bool KRT_PLX_NoteBase_fallPort(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::fallPort>(note, false);
}

float KRT_PLX_NoteBase_formantEnd(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::formantEnd>(note, noAiExpression);
}

float KRT_PLX_NoteBase_formantStart(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::formantStart>(note, noAiExpression);
}

float KRT_PLX_NoteBase_formantWhole(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::formantWhole>(note, noAiExpression);
}

bool KRT_PLX_NoteBase_isMutable(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::isMutable>(note, false);
}

bool KRT_PLX_NoteBase_isProtected(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::isProtected>(note, false);
}

uint32_t KRT_PLX_NoteBase_langID(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::langID>(note, KRT_PLX_NO_UINT32);
}

const KRT_PLX_Char* KRT_PLX_NoteBase_lyric(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::lyric>(note, nullptr);
}

uint32_t KRT_PLX_NoteBase_number(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::number>(note, KRT_PLX_NO_UINT32);
}

uint32_t KRT_PLX_NoteBase_opening(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::opening>(note, KRT_PLX_NO_UINT32);
}

const KRT_PLX_Char* KRT_PLX_NoteBase_phoneme(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::phoneme>(note, nullptr);
}

float KRT_PLX_NoteBase_pitchDriftEnd(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::pitchDriftEnd>(note, noAiExpression);
}

float KRT_PLX_NoteBase_pitchDriftStart(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::pitchDriftStart>(note, noAiExpression);
}

float KRT_PLX_NoteBase_pitchFine(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::pitchFine>(note, noAiExpression);
}

float KRT_PLX_NoteBase_pitchScalingCenter(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::pitchScalingCenter>(note, noAiExpression);
}

float KRT_PLX_NoteBase_pitchScalingOrigin(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::pitchScalingOrigin>(note, noAiExpression);
}

float KRT_PLX_NoteBase_pitchTransitionEnd(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::pitchTransitionEnd>(note, noAiExpression);
}

float KRT_PLX_NoteBase_pitchTransitionStart(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::pitchTransitionStart>(note, noAiExpression);
}

int32_t KRT_PLX_NoteBase_pos(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::pos>(note, INT32_MAX);
}

bool KRT_PLX_NoteBase_risePort(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::risePort>(note, false);
}

uint32_t KRT_PLX_NoteBase_velocity(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&NoteBase::velocity>(note, KRT_PLX_NO_UINT32);
}

// Note

KRT_PLX_PartBase* KRT_PLX_Note_parent(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&Note::parent>(note, nullptr);
}

KRT_PLX_DvqmBase* KRT_PLX_Note_dvqm(KRT_PLX_NoteBase* note, bool isAttack) KRT_PLX_NOEXCEPT
{
    return call<&Note::dvqm>(note, nullptr, isAttack);
}

KRT_PLX_SingingSkillBase* KRT_PLX_Note_singingSkill(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&Note::singingSkill>(note, nullptr);
}

KRT_PLX_VibratoBase* KRT_PLX_Note_vibrato(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&Note::vibrato>(note, nullptr);
}

// MutableNote

KRT_PLX_PartBase* KRT_PLX_MutableNote_parent(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::parent>(note, nullptr);
}

KRT_PLX_DvqmBase* KRT_PLX_MutableNote_dvqm(KRT_PLX_NoteBase* note, bool isAttack) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::dvqm>(note, nullptr, isAttack);
}

KRT_PLX_SingingSkillBase* KRT_PLX_MutableNote_singingSkill(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::singingSkill>(note, nullptr);
}

KRT_PLX_VibratoBase* KRT_PLX_MutableNote_vibrato(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::vibrato>(note, nullptr);
}

bool KRT_PLX_MutableNote_move(KRT_PLX_NoteBase* note, int32_t pos) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::move>(note, false, pos);
}

bool KRT_PLX_MutableNote_remove(KRT_PLX_NoteBase* note) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::remove>(note, false);
}

bool KRT_PLX_MutableNote_setAccent(KRT_PLX_NoteBase* note, uint32_t value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setAccent>(note, false, value);
}

bool KRT_PLX_MutableNote_setAmplitudeEnd(KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setAmplitudeEnd>(note, false, value);
}

bool KRT_PLX_MutableNote_setAmplitudeStart(KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setAmplitudeStart>(note, false, value);
}

bool KRT_PLX_MutableNote_setAmplitudeWhole(KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setAmplitudeWhole>(note, false, value);
}

bool KRT_PLX_MutableNote_setBendDepth(KRT_PLX_NoteBase* note, uint32_t value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setBendDepth>(note, false, value);
}

bool KRT_PLX_MutableNote_setBendLength(KRT_PLX_NoteBase* note, uint32_t value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setBendLength>(note, false, value);
}

bool KRT_PLX_MutableNote_setDecay(KRT_PLX_NoteBase* note, uint32_t value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setDecay>(note, false, value);
}

bool KRT_PLX_MutableNote_setDuration(KRT_PLX_NoteBase* note, int32_t duration) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setDuration>(note, false, duration);
}

bool KRT_PLX_MutableNote_setFallPort(KRT_PLX_NoteBase* note, bool value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setFallPort>(note, false, value);
}

bool KRT_PLX_MutableNote_setFormantEnd(KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setFormantEnd>(note, false, value);
}

bool KRT_PLX_MutableNote_setFormantStart(KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setFormantStart>(note, false, value);
}

bool KRT_PLX_MutableNote_setFormantWhole(KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setFormantWhole>(note, false, value);
}

bool KRT_PLX_MutableNote_setLangID(KRT_PLX_NoteBase* note, uint32_t value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setLangID>(note, false, value);
}

bool KRT_PLX_MutableNote_setLyric(KRT_PLX_NoteBase* note, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setLyric>(note, false, text);
}

bool KRT_PLX_MutableNote_setNumber(KRT_PLX_NoteBase* note, uint32_t value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setNumber>(note, false, value);
}

bool KRT_PLX_MutableNote_setOpening(KRT_PLX_NoteBase* note, uint32_t value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setOpening>(note, false, value);
}

bool KRT_PLX_MutableNote_setPhoneme(KRT_PLX_NoteBase* note,
                                    const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setPhoneme>(note, false, text);
}

bool KRT_PLX_MutableNote_setPitchDriftEnd(KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setPitchDriftEnd>(note, false, value);
}

bool KRT_PLX_MutableNote_setPitchDriftStart(KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setPitchDriftStart>(note, false, value);
}

bool KRT_PLX_MutableNote_setPitchFine(KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setPitchFine>(note, false, value);
}

bool KRT_PLX_MutableNote_setPitchScalingCenter(KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setPitchScalingCenter>(note, false, value);
}

bool KRT_PLX_MutableNote_setPitchScalingOrigin(KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setPitchScalingOrigin>(note, false, value);
}

bool KRT_PLX_MutableNote_setPitchTransitionEnd(KRT_PLX_NoteBase* note, float value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setPitchTransitionEnd>(note, false, value);
}

bool KRT_PLX_MutableNote_setPitchTransitionStart(KRT_PLX_NoteBase* note,
                                                 float value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setPitchTransitionStart>(note, false, value);
}

bool KRT_PLX_MutableNote_setProtected(KRT_PLX_NoteBase* note, bool value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setProtected>(note, false, value);
}

bool KRT_PLX_MutableNote_setRisePort(KRT_PLX_NoteBase* note, bool value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setRisePort>(note, false, value);
}

bool KRT_PLX_MutableNote_setVelocity(KRT_PLX_NoteBase* note, uint32_t value) KRT_PLX_NOEXCEPT
{
    return call<&MutableNote::setVelocity>(note, false, value);
}
