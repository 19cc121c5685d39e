#include "reference/values.h"

#include "unicode.h"

namespace Korvel::CANTORIS::PLX::reference {

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

std::optional<std::string_view> asUtf8(const Value* value)
{
    const auto whole = asWholeUtf8(value);
    return whole ? std::optional(whole->substr(0, whole->find('\0'))) : std::nullopt;
}

std::optional<std::string_view> asWholeUtf8(const Value* value)
{
    if (value == nullptr || !value->IsString()) {
        return std::nullopt;
    }
    return std::string_view(value->GetString(), value->GetStringLength());
}

std::optional<String> asText(const Value* value)
{
    const auto utf8 = asUtf8(value);
    if (!utf8) {
        return std::nullopt;
    }
    String text;
    appendUtf16(text, *utf8);
    return text;
}

const Value* asObject(const Value* value)
{
    return value != nullptr && value->IsObject() ? value : nullptr;
}

const Value* asArray(const Value* value)
{
    return value != nullptr && value->IsArray() ? value : nullptr;
}

} // namespace Korvel::CANTORIS::PLX::reference
