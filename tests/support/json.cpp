#include "support/json.h"

#include <algorithm>

namespace support {

Object Object::with(std::string_view key, std::optional<std::string> value) const
{
    Object result = *this;
    const auto member = std::find_if(result.members_.begin(), result.members_.end(),
                                     [key](const Member& other) { return other.first == key; });
    if (member == result.members_.end()) {
        return value ? repeating(key, *value) : result;
    }
    if (value) {
        member->second = *std::move(value);
    } else {
        result.members_.erase(member);
    }
    return result;
}

Object Object::repeating(std::string_view key, std::string_view value) const
{
    Object result = *this;
    result.members_.emplace_back(key, value);
    return result;
}

Object Object::reversed() const
{
    Object result = *this;
    std::reverse(result.members_.begin(), result.members_.end());
    return result;
}

std::string Object::text() const
{
    std::string result = "{";
    for (const auto& [key, value] : members_) {
        result += result.size() > 1 ? ", " : "";
        result += jsonString(key) + ": " + value;
    }
    return result + "}";
}

std::string jsonString(std::string_view text)
{
    return '"' + std::string(text) + '"';
}

std::string array(const std::vector<std::string>& values)
{
    std::string result = "[";
    for (const std::string& value : values) {
        result += result.size() > 1 ? ", " : "";
        result += value;
    }
    return result + "]";
}

const std::vector<std::string>& notIntegers()
{
    static const std::vector<std::string> values = {"null",
                                                    "true",
                                                    "false",
                                                    R"("5")",
                                                    R"("")",
                                                    "[]",
                                                    "[5]",
                                                    "{}",
                                                    "5.0",
                                                    "5e0",
                                                    "0.5e1",
                                                    "50E-1",
                                                    "5.000001",
                                                    "-0.0",
                                                    "2147483648",
                                                    "4294967301",
                                                    "-2147483649",
                                                    "-4294967291",
                                                    "9223372036854775807"};
    return values;
}

const std::vector<std::string>& notFloats()
{
    static const std::vector<std::string> values = {
        "null", "true", "false", R"("0.25")",  "[]",         "[0.25]", "{}",    "0",     "1",
        "2",    "-0",   "-1",    "2147483647", "2147483648", "1e39",   "-1e39", "1e300", "-1e300"};
    return values;
}

const std::vector<std::string>& notBooleans()
{
    static const std::vector<std::string> values = {
        "null", "0", "1", "-1", "0.0", "1.0", R"("true")", R"("")", "[]", "[true]", "{}"};
    return values;
}

const std::vector<std::string>& notStrings()
{
    static const std::vector<std::string> values = {"null",        "true", "false",        "0",
                                                    "5",           "-5",   "0.25",         "[]",
                                                    R"(["text"])", "{}",   R"({"a": "b"})"};
    return values;
}

const std::vector<std::string>& notArrays()
{
    static const std::vector<std::string> values = {
        "null", "true", "false", "0", "5", "0.25", R"("text")", R"("")", "{}", R"({"a": []})"};
    return values;
}

const std::vector<std::string>& notObjects()
{
    static const std::vector<std::string> values = {"null", "true",      "false", "0",  "5",
                                                    "0.25", R"("text")", R"("")", "[]", "[{}]"};
    return values;
}

} // namespace support
