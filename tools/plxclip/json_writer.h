// Writes JSON: with an indent of two blanks for people, or without any blanks.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include <fmt/format.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace plxclip {

template <typename Writer>
class BasicJson {
public:
    BasicJson() : writer(buffer)
    {
        if constexpr (!std::is_same_v<Writer, rapidjson::Writer<rapidjson::StringBuffer>>) {
            writer.SetIndent(' ', 2);
        }
    }

    void key(std::string_view name) { writer.Key(name.data(), size(name)); }

    void value(std::string_view text) { writer.String(text.data(), size(text)); }
    void value(const std::string& text) { value(std::string_view(text)); }
    void value(bool flag) { writer.Bool(flag); }
    void value(std::int32_t number) { writer.Int(number); }
    void value(std::uint32_t number) { writer.Uint(number); }
    void value(std::size_t number) { writer.Uint64(number); }

    // Writes as few digits as identify the float, and never an integer.
    void value(float number)
    {
        std::string text = fmt::format("{}", number);
        if (text.find_first_not_of("-0123456789") == std::string::npos) {
            text += ".0";
        }
        writer.RawValue(text.data(), text.size(), rapidjson::kNumberType);
    }

    void null() { writer.Null(); }

    template <typename Value>
    void member(std::string_view name, const Value& content)
    {
        key(name);
        value(content);
    }

    template <typename Content>
    void object(Content content)
    {
        writer.StartObject();
        content();
        writer.EndObject();
    }

    template <typename Content>
    void object(std::string_view name, Content content)
    {
        key(name);
        object(content);
    }

    // An array of whatever `content` writes.
    template <typename Content>
    void sequence(Content content)
    {
        writer.StartArray();
        content();
        writer.EndArray();
    }

    template <typename Values, typename Each>
    void array(const Values& values, Each each)
    {
        sequence([&] {
            for (const auto& element : values) {
                each(element);
            }
        });
    }

    // An array of objects; `write` writes the members of one.
    template <typename Values, typename Write>
    void objects(std::string_view name, const Values& values, Write write)
    {
        key(name);
        array(values, [&](const auto& element) { object([&] { write(*this, element); }); });
    }

    template <typename Values>
    void list(std::string_view name, const Values& values)
    {
        key(name);
        array(values, [this](const auto& element) { this->value(element); });
    }

    std::string text() const { return std::string(buffer.GetString(), buffer.GetSize()) + "\n"; }

private:
    static rapidjson::SizeType size(std::string_view text)
    {
        return static_cast<rapidjson::SizeType>(text.size());
    }

    rapidjson::StringBuffer buffer;
    Writer writer;
};

using Json = BasicJson<rapidjson::PrettyWriter<rapidjson::StringBuffer>>;
using CompactJson = BasicJson<rapidjson::Writer<rapidjson::StringBuffer>>;

} // namespace plxclip
