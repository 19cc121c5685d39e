#include "korvel/plx/expression.h"

#include "manager/exports/guard.h"

using namespace Korvel::CANTORIS::PLX;
using namespace Korvel::CANTORIS::PLX::exports;

// DvqmBase

const KRT_PLX_Char* KRT_PLX_DvqmBase_compID(KRT_PLX_DvqmBase* dvqm) KRT_PLX_NOEXCEPT
{
    return call<&DvqmBase::compID>(dvqm, nullptr);
}

bool KRT_PLX_DvqmBase_isAttack(KRT_PLX_DvqmBase* dvqm) KRT_PLX_NOEXCEPT
{
    return call<&DvqmBase::isAttack>(dvqm, false);
}

bool KRT_PLX_DvqmBase_isMutable(KRT_PLX_DvqmBase* dvqm) KRT_PLX_NOEXCEPT
{
    return call<&DvqmBase::isMutable>(dvqm, false);
}

bool KRT_PLX_DvqmBase_isProtected(KRT_PLX_DvqmBase* dvqm) KRT_PLX_NOEXCEPT
{
    return call<&DvqmBase::isProtected>(dvqm, false);
}

const KRT_PLX_Char* KRT_PLX_DvqmBase_levelName(KRT_PLX_DvqmBase* dvqm,
                                               uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&DvqmBase::levelName>(dvqm, nullptr, index);
}

bool KRT_PLX_DvqmBase_numLevelNames(KRT_PLX_DvqmBase* dvqm, uint64_t* count) KRT_PLX_NOEXCEPT
{
    return countOf<&DvqmBase::numLevelNames>(dvqm, count);
}

uint32_t KRT_PLX_DvqmBase_speed(KRT_PLX_DvqmBase* dvqm) KRT_PLX_NOEXCEPT
{
    return call<&DvqmBase::speed>(dvqm, 0);
}

float KRT_PLX_DvqmBase_topFactor(KRT_PLX_DvqmBase* dvqm) KRT_PLX_NOEXCEPT
{
    return call<&DvqmBase::topFactor>(dvqm, 0.0F);
}

// Dvqm

KRT_PLX_NoteBase* KRT_PLX_Dvqm_parent(KRT_PLX_DvqmBase* dvqm) KRT_PLX_NOEXCEPT
{
    return call<&Dvqm::parent>(dvqm, nullptr);
}

// MutableDvqm

KRT_PLX_NoteBase* KRT_PLX_MutableDvqm_parent(KRT_PLX_DvqmBase* dvqm) KRT_PLX_NOEXCEPT
{
    return call<&MutableDvqm::parent>(dvqm, nullptr);
}

bool KRT_PLX_MutableDvqm_addLevelName(KRT_PLX_DvqmBase* dvqm,
                                      const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&MutableDvqm::addLevelName>(dvqm, false, text);
}

bool KRT_PLX_MutableDvqm_protect(KRT_PLX_DvqmBase* dvqm, bool value) KRT_PLX_NOEXCEPT
{
    return call<&MutableDvqm::protect>(dvqm, false, value);
}

bool KRT_PLX_MutableDvqm_setCompID(KRT_PLX_DvqmBase* dvqm,
                                   const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT
{
    return call<&MutableDvqm::setCompID>(dvqm, false, text);
}

bool KRT_PLX_MutableDvqm_setSpeed(KRT_PLX_DvqmBase* dvqm, uint32_t value) KRT_PLX_NOEXCEPT
{
    return call<&MutableDvqm::setSpeed>(dvqm, false, value);
}

bool KRT_PLX_MutableDvqm_setTopFactor(KRT_PLX_DvqmBase* dvqm, float value) KRT_PLX_NOEXCEPT
{
    return call<&MutableDvqm::setTopFactor>(dvqm, false, value);
}

// SingingSkillBase

int32_t KRT_PLX_SingingSkillBase_duration(KRT_PLX_SingingSkillBase* skill) KRT_PLX_NOEXCEPT
{
    return call<&SingingSkillBase::duration>(skill, 0);
}

bool KRT_PLX_SingingSkillBase_isMutable(KRT_PLX_SingingSkillBase* skill) KRT_PLX_NOEXCEPT
{
    return call<&SingingSkillBase::isMutable>(skill, false);
}

uint32_t KRT_PLX_SingingSkillBase_postWeight(KRT_PLX_SingingSkillBase* skill) KRT_PLX_NOEXCEPT
{
    return call<&SingingSkillBase::postWeight>(skill, 0);
}

uint32_t KRT_PLX_SingingSkillBase_preWeight(KRT_PLX_SingingSkillBase* skill) KRT_PLX_NOEXCEPT
{
    return call<&SingingSkillBase::preWeight>(skill, 0);
}

// SingingSkill

KRT_PLX_NoteBase* KRT_PLX_SingingSkill_parent(KRT_PLX_SingingSkillBase* skill) KRT_PLX_NOEXCEPT
{
    return call<&SingingSkill::parent>(skill, nullptr);
}

// MutableSingingSkill

KRT_PLX_NoteBase* KRT_PLX_MutableSingingSkill_parent(KRT_PLX_SingingSkillBase* skill)
    KRT_PLX_NOEXCEPT
{
    return call<&MutableSingingSkill::parent>(skill, nullptr);
}

bool KRT_PLX_MutableSingingSkill_setDuration(KRT_PLX_SingingSkillBase* skill,
                                             int32_t duration) KRT_PLX_NOEXCEPT
{
    return call<&MutableSingingSkill::setDuration>(skill, false, duration);
}

bool KRT_PLX_MutableSingingSkill_setPostWeight(KRT_PLX_SingingSkillBase* skill,
                                               uint32_t value) KRT_PLX_NOEXCEPT
{
    return call<&MutableSingingSkill::setPostWeight>(skill, false, value);
}

bool KRT_PLX_MutableSingingSkill_setPreWeight(KRT_PLX_SingingSkillBase* skill,
                                              uint32_t value) KRT_PLX_NOEXCEPT
{
    return call<&MutableSingingSkill::setPreWeight>(skill, false, value);
}

// VibratoBase

int32_t KRT_PLX_VibratoBase_duration(KRT_PLX_VibratoBase* vibrato) KRT_PLX_NOEXCEPT
{
    return call<&VibratoBase::duration>(vibrato, KRT_PLX_NO_INT32);
}

bool KRT_PLX_VibratoBase_isMutable(KRT_PLX_VibratoBase* vibrato) KRT_PLX_NOEXCEPT
{
    return call<&VibratoBase::isMutable>(vibrato, false);
}

bool KRT_PLX_VibratoBase_numParameters(KRT_PLX_VibratoBase* vibrato, uint32_t type,
                                       uint64_t* count) KRT_PLX_NOEXCEPT
{
    return countOf<&VibratoBase::numParameters>(vibrato, count, type);
}

uint32_t KRT_PLX_VibratoBase_type(KRT_PLX_VibratoBase* vibrato) KRT_PLX_NOEXCEPT
{
    return call<&VibratoBase::type>(vibrato, KRT_PLX_VIBRATO_TYPE_NONE);
}

// Vibrato

KRT_PLX_NoteBase* KRT_PLX_Vibrato_parent(KRT_PLX_VibratoBase* vibrato) KRT_PLX_NOEXCEPT
{
    return call<&Vibrato::parent>(vibrato, nullptr);
}

KRT_PLX_VibratoParameterBase* KRT_PLX_Vibrato_parameter(KRT_PLX_VibratoBase* vibrato, uint32_t type,
                                                        uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&Vibrato::parameter>(vibrato, nullptr, type, index);
}

bool KRT_PLX_Vibrato_hasParameter(KRT_PLX_VibratoBase* vibrato, uint32_t type,
                                  KRT_PLX_VibratoParameterBase* element) KRT_PLX_NOEXCEPT
{
    return call<&Vibrato::hasParameter>(vibrato, false, type, element);
}

// MutableVibrato

KRT_PLX_NoteBase* KRT_PLX_MutableVibrato_parent(KRT_PLX_VibratoBase* vibrato) KRT_PLX_NOEXCEPT
{
    return call<&MutableVibrato::parent>(vibrato, nullptr);
}

KRT_PLX_VibratoParameterBase* KRT_PLX_MutableVibrato_parameter(KRT_PLX_VibratoBase* vibrato,
                                                               uint32_t type,
                                                               uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&MutableVibrato::parameter>(vibrato, nullptr, type, index);
}

bool KRT_PLX_MutableVibrato_hasParameter(KRT_PLX_VibratoBase* vibrato, uint32_t type,
                                         KRT_PLX_VibratoParameterBase* element) KRT_PLX_NOEXCEPT
{
    return call<&MutableVibrato::hasParameter>(vibrato, false, type, element);
}

KRT_PLX_VibratoParameterBase* KRT_PLX_MutableVibrato_insertParameter(
    KRT_PLX_VibratoBase* vibrato, uint32_t type, int32_t pos, uint32_t value) KRT_PLX_NOEXCEPT
{
    return call<&MutableVibrato::insertParameter>(vibrato, nullptr, type, pos, value);
}

bool KRT_PLX_MutableVibrato_setDuration(KRT_PLX_VibratoBase* vibrato,
                                        int32_t duration) KRT_PLX_NOEXCEPT
{
    return call<&MutableVibrato::setDuration>(vibrato, false, duration);
}

bool KRT_PLX_MutableVibrato_setType(KRT_PLX_VibratoBase* vibrato, uint32_t type) KRT_PLX_NOEXCEPT
{
    return call<&MutableVibrato::setType>(vibrato, false, type);
}

// VibratoParameterBase

bool KRT_PLX_VibratoParameterBase_isMutable(KRT_PLX_VibratoParameterBase* point) KRT_PLX_NOEXCEPT
{
    return call<&VibratoParameterBase::isMutable>(point, false);
}

int32_t KRT_PLX_VibratoParameterBase_pos(KRT_PLX_VibratoParameterBase* point) KRT_PLX_NOEXCEPT
{
    return call<&VibratoParameterBase::pos>(point, KRT_PLX_NO_INT32);
}

uint32_t KRT_PLX_VibratoParameterBase_type(KRT_PLX_VibratoParameterBase* point) KRT_PLX_NOEXCEPT
{
    return call<&VibratoParameterBase::type>(point, KRT_PLX_VIBRATO_NONE);
}

uint32_t KRT_PLX_VibratoParameterBase_value(KRT_PLX_VibratoParameterBase* point) KRT_PLX_NOEXCEPT
{
    return call<&VibratoParameterBase::value>(point, KRT_PLX_NO_UINT32);
}

// VibratoParameter

KRT_PLX_VibratoBase* KRT_PLX_VibratoParameter_parent(KRT_PLX_VibratoParameterBase* point)
    KRT_PLX_NOEXCEPT
{
    return call<&VibratoParameter::parent>(point, nullptr);
}

// MutableVibratoParameter

KRT_PLX_VibratoBase* KRT_PLX_MutableVibratoParameter_parent(KRT_PLX_VibratoParameterBase* point)
    KRT_PLX_NOEXCEPT
{
    return call<&MutableVibratoParameter::parent>(point, nullptr);
}

bool KRT_PLX_MutableVibratoParameter_move(KRT_PLX_VibratoParameterBase* point,
                                          int32_t pos) KRT_PLX_NOEXCEPT
{
    return call<&MutableVibratoParameter::move>(point, false, pos);
}

bool KRT_PLX_MutableVibratoParameter_remove(KRT_PLX_VibratoParameterBase* point) KRT_PLX_NOEXCEPT
{
    return call<&MutableVibratoParameter::remove>(point, false);
}

bool KRT_PLX_MutableVibratoParameter_setValue(KRT_PLX_VibratoParameterBase* point,
                                              uint32_t value) KRT_PLX_NOEXCEPT
{
    return call<&MutableVibratoParameter::setValue>(point, false, value);
}
