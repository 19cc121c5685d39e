// Writing fields of the schema from their object.
#pragma once

#include <tuple>

#include "format/output.h"
#include "format/schema.h"

namespace Korvel::CANTORIS::PLX::format {

template <class Target, class Source, class Number>
void writeField(Output& out, const schema::Integer<Target, Source, Number>& field,
                const std::type_identity_t<Source>& source)
{
    out.key(field.key);
    out.integer((source.*field.get)());
}

template <class Target, class Source>
void writeField(Output& out, const schema::Flag<Target, Source>& field,
                const std::type_identity_t<Source>& source)
{
    out.key(field.key);
    out.flag((source.*field.get)());
}

template <class Target, class Source>
void writeField(Output& out, const schema::Text<Target, Source>& field,
                const std::type_identity_t<Source>& source)
{
    out.key(field.key);
    out.text((source.*field.get)());
}

template <class... Field, class Source>
void writeFields(Output& out, const std::tuple<Field...>& fields, const Source& source)
{
    std::apply([&](const auto&... field) { (writeField(out, field, source), ...); }, fields);
}

} // namespace Korvel::CANTORIS::PLX::format
