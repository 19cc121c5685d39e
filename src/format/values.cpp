#include "format/values.h"

namespace Korvel::CANTORIS::PLX::format {

std::optional<float> Value::asFloat() const
{
    if (kind != Kind::real || number.real < -largestFloat || largestFloat < number.real) {
        return std::nullopt;
    }
    return static_cast<float>(number.real);
}

std::optional<std::string_view> Value::asUtf8() const
{
    const auto whole = asWholeUtf8();
    return whole ? std::optional(whole->substr(0, whole->find('\0'))) : std::nullopt;
}

std::optional<std::string_view> Value::asWholeUtf8() const
{
    return kind == Kind::text ? std::optional(std::string_view(at + 1, number.length))
                              : std::nullopt;
}

} // namespace Korvel::CANTORIS::PLX::format
