// The text of a JSON document that is being written.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "format/rapidjson.h"
#include "text.h"

namespace Korvel::CANTORIS::PLX::format {

// Compact, or indented by four blanks a level. Text becomes UTF-8. Something that a document cannot
// contain makes it invalid: a number that is not finite, a lone surrogate, a text of more than
// 715,827,882 bytes.
class Output {
public:
    explicit Output(bool formatted);

    void beginObject();
    void endObject();
    void beginArray();
    void endArray();
    void key(std::string_view name);
    void integer(std::int64_t value);
    void number(float value);
    void flag(bool value);
    void text(StringView value);
    void ascii(std::string_view value);

    // The whole document, valid as long as this object; no value if it is invalid.
    std::optional<std::string_view> finish() const;

    using Sink = json::GenericStringBuffer<json::UTF8<char>, ThrowingAllocator>;

private:
    using Compact = json::Writer<Sink, json::UTF8<char>, json::UTF8<char>, ThrowingAllocator>;
    using Indented =
        json::PrettyWriter<Sink, json::UTF8<char>, json::UTF8<char>, ThrowingAllocator>;

    template <class Step>
    void write(Step step);

    Sink sink_;
    Compact compact_;
    Indented indented_;
    std::string utf8_;
    bool formatted_;
    bool good_ = true;
};

} // namespace Korvel::CANTORIS::PLX::format
