// A value in a document, before its expected kind is known.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "format/number.h"
#include "text.h"

namespace Korvel::CANTORIS::PLX::format {

struct Value {
    enum class Kind : std::uint8_t {
        null,
        flag,
        integer,
        wideInteger, // beyond 32 bits
        real,
        text,
        object,
        list,
        refused // an object that was read and refused
    };

    // No value for a value of another kind. A text is valid as long as the document; except for a
    // whole text, it ends at its first NUL, as every text of the model does.
    std::optional<std::int32_t> asInteger() const
    {
        return kind == Kind::integer ? std::optional(number.integer) : std::nullopt;
    }
    std::optional<float> asFloat() const;
    std::optional<bool> asFlag() const
    {
        return kind == Kind::flag ? std::optional(number.integer != 0) : std::nullopt;
    }
    std::optional<std::string_view> asUtf8() const;
    std::optional<std::string_view> asWholeUtf8() const;

    const char* at = nullptr; // where it begins
    union {
        std::int32_t integer; // also the value of a flag
        std::uint32_t length; // of a text, which begins after its quotation mark
        double real;
    } number = {};
    Kind kind = Kind::null;
};

} // namespace Korvel::CANTORIS::PLX::format
