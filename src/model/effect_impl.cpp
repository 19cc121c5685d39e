#include "model/effect_impl.h"

namespace Korvel::CANTORIS::PLX {

void EffectParameterBaseImpl::assign(KRT_PLX_ValueType type, std::int32_t int32, float float32,
                                     String&& text)
{
    type_ = type;
    valueInt32_ = int32;
    valueFloat_ = float32;
    valueString_ = std::move(text);
}

void EffectParameterBaseImpl::assignInt32(std::int32_t value)
{
    assign(KRT_PLX_VALUE_INT32, value, KRT_PLX_VALUE_UNSET_FLOAT, {});
}

void EffectParameterBaseImpl::assignFloat(float value)
{
    assign(KRT_PLX_VALUE_FLOAT, KRT_PLX_VALUE_UNSET_INT32, value, {});
}

void EffectParameterBaseImpl::assignString(StringView text)
{
    assign(KRT_PLX_VALUE_STRING, KRT_PLX_VALUE_UNSET_INT32, KRT_PLX_VALUE_UNSET_FLOAT,
           String(text));
}

bool MutableEffectParameterImpl::remove()
{
    return siblings_.remove(this);
}

bool MutableEffectParameterImpl::setValueInt32(std::int32_t value) noexcept
{
    assignInt32(value);
    return true;
}

bool MutableEffectParameterImpl::setValueFloat(float value) noexcept
{
    assignFloat(value);
    return true;
}

bool MutableEffectParameterImpl::setValueString(const Char* text)
{
    assignString(viewOrEmpty(text));
    return true;
}

MutableEffectParameterImpl* addParameterTo(BlockList<MutableEffectParameterImpl>& parameters,
                                           EffectBase& effect, const Char* name)
{
    if (isNullOrEmpty(name)) {
        return nullptr;
    }
    const StringView wanted = name;
    const std::size_t index =
        parameters.firstWhere([wanted](const MutableEffectParameterImpl& parameter) {
            return StringView(parameter.nameText()) >= wanted;
        });
    MutableEffectParameterImpl* const standing = parameters.at(index);
    if (standing != nullptr && standing->nameText() == wanted) {
        return standing;
    }
    return parameters.insert(
        index, std::make_unique<MutableEffectParameterImpl>(effect, parameters, wanted));
}

} // namespace Korvel::CANTORIS::PLX
