#include "model/singing_skill_impl.h"

#include "model/note.h"

namespace Korvel::CANTORIS::PLX {

bool SingingSkillBaseImpl::assignDuration(std::int32_t value)
{
    return assign(duration_, within(note_->duration()), value);
}

bool SingingSkillBaseImpl::assignPreWeight(std::uint32_t value)
{
    return assign(preWeight_, field::singingSkillWeight, value);
}

bool SingingSkillBaseImpl::assignPostWeight(std::uint32_t value)
{
    return assign(postWeight_, field::singingSkillWeight, value);
}

} // namespace Korvel::CANTORIS::PLX
