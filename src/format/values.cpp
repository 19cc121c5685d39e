#include "format/values.h"

#include "format/unicode.h"

namespace Korvel::CANTORIS::PLX::format {

std::optional<std::int32_t> asInteger(const Value* value)
{
    return value != nullptr && value->IsInt() ? std::optional(value->GetInt()) : std::nullopt;
}

std::optional<float> asFloat(const Value* value)
{
    if (value == nullptr || !value->IsDouble()) {
        return std::nullopt;
    }
    const double number = value->GetDouble();
    if (number < -largestFloat || largestFloat < number) {
        return std::nullopt;
    }
    return static_cast<float>(number);
}

std::optional<bool> asFlag(const Value* value)
{
    return value != nullptr && value->IsBool() ? std::optional(value->GetBool()) : std::nullopt;
}

std::optional<String> asText(const Value* value)
{
    if (value == nullptr || !value->IsString()) {
        return std::nullopt;
    }
    return toUtf16({value->GetString(), value->GetStringLength()});
}

const Value* asObject(const Value* value)
{
    return value != nullptr && value->IsObject() ? value : nullptr;
}

const Value* asArray(const Value* value)
{
    return value != nullptr && value->IsArray() ? value : nullptr;
}

} // namespace Korvel::CANTORIS::PLX::format
