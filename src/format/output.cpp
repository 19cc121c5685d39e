#include "format/output.h"

#include <cstddef>
#include <cstring>
#include <limits>

#include "unicode.h"

namespace Korvel::CANTORIS::PLX::format {

namespace json {

// Indents in one step, as RapidJSON does only for a buffer with its own allocator.
template <>
inline void PutN(Output::Sink& stream, char c, std::size_t n)
{
    std::memset(stream.Push(n), c, n);
}

} // namespace json

namespace {

constexpr char indentUnit = ' ';
constexpr unsigned indentWidth = 4;

// RapidJSON reserves six times the length, counted in 32 bits.
constexpr std::size_t longestText = (std::numeric_limits<json::SizeType>::max() - 2) / 6;

json::SizeType sizeOf(std::string_view text)
{
    return static_cast<json::SizeType>(text.size());
}

} // namespace

Output::Output(bool formatted) : compact_(sink_), indented_(sink_), formatted_(formatted)
{
    indented_.SetIndent(indentUnit, indentWidth);
}

// Calls whichever of the two writers is in use, and records whether it succeeded.
template <class Step>
void Output::write(Step step)
{
    const bool done = formatted_ ? step(indented_) : step(compact_);
    good_ = good_ && done;
}

void Output::beginObject()
{
    write([](auto& writer) { return writer.StartObject(); });
}

void Output::endObject()
{
    write([](auto& writer) { return writer.EndObject(); });
}

void Output::beginArray()
{
    write([](auto& writer) { return writer.StartArray(); });
}

void Output::endArray()
{
    write([](auto& writer) { return writer.EndArray(); });
}

void Output::key(std::string_view name)
{
    write([name](auto& writer) { return writer.Key(name.data(), sizeOf(name)); });
}

void Output::integer(std::int64_t value)
{
    write([value](auto& writer) { return writer.Int64(value); });
}

void Output::number(float value)
{
    write([value](auto& writer) { return writer.Double(static_cast<double>(value)); });
}

void Output::flag(bool value)
{
    write([value](auto& writer) { return writer.Bool(value); });
}

void Output::text(StringView value)
{
    utf8_.clear();
    good_ = appendUtf8(utf8_, value) && good_;
    ascii(utf8_);
}

void Output::ascii(std::string_view value)
{
    write([value](auto& writer) {
        return value.size() <= longestText && writer.String(value.data(), sizeOf(value));
    });
}

std::optional<std::string_view> Output::finish() const
{
    if (!good_) {
        return std::nullopt;
    }
    return std::string_view(sink_.GetString(), sink_.GetSize());
}

} // namespace Korvel::CANTORIS::PLX::format
