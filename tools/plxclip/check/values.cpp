#include "check/values.h"

#include <algorithm>

#include "check/decoding.h"

namespace plxclip::check {

namespace {

std::string_view describe(Type type)
{
    switch (type) {
    case Type::object:
        return "an object";
    case Type::array:
        return "an array";
    case Type::text:
        return "a string";
    case Type::integer:
        return "an integer";
    case Type::real:
        return "a float";
    case Type::flag:
        return "true or false";
    default:
        return "an integer, a float or a string";
    }
}

bool isOfType(Kind kind, Type type)
{
    switch (type) {
    case Type::object:
        return kind == Kind::object;
    case Type::array:
        return kind == Kind::array;
    case Type::text:
        return kind == Kind::text;
    case Type::integer:
        return kind == Kind::integer;
    case Type::real:
        return kind == Kind::real;
    case Type::flag:
        return kind == Kind::flag;
    default:
        return kind == Kind::integer || kind == Kind::real || kind == Kind::text;
    }
}

std::string rangeOf(const Key& key)
{
    const std::string range = std::to_string(key.minimum) + " to " + std::to_string(key.maximum);
    return key.zeroToo ? "0 or " + range : range;
}

Problem wrongType(const Node& value, const Key& key)
{
    if (value.kind == Kind::wideInteger && key.type != Type::real) {
        return {Reason::outOfRange, "does not fit into 32 bits"};
    }
    if (key.type == Type::integer && value.kind == Kind::real) {
        return {Reason::wrongType, "is written as a float, but must be an integer"};
    }
    if (key.type == Type::real && value.kind == Kind::integer) {
        return {Reason::wrongType, "is written as an integer, but must be a float, such as " +
                                       std::to_string(value.integer) + ".0"};
    }
    std::string text = "is ";
    text += describe(value.kind);
    text += ", but must be ";
    text += describe(key.type);
    return {Reason::wrongType, text};
}

std::optional<Problem> integerProblem(const Node& value, const Key& key)
{
    const bool accepted = (key.minimum <= value.integer && value.integer <= key.maximum) ||
                          (key.zeroToo && value.integer == 0);
    if (accepted) {
        return std::nullopt;
    }
    return Problem{Reason::outOfRange, "is not in " + rangeOf(key)};
}

std::optional<Problem> realProblem(const Node& value, const Key& key)
{
    const bool isFloat = -largestFloat <= value.real && value.real <= largestFloat;
    const float number = isFloat ? static_cast<float>(value.real) : 0;
    const bool accepted = isFloat && static_cast<float>(key.minimum) <= number &&
                          number <= static_cast<float>(key.maximum);
    if (accepted) {
        return std::nullopt;
    }
    return Problem{Reason::outOfRange, "is not in " + std::to_string(key.minimum) + ".0 to " +
                                           std::to_string(key.maximum) + ".0"};
}

std::optional<Problem> lengthProblem(std::string_view text)
{
    constexpr std::size_t wanted = 16;
    const std::size_t length = utf16Length(text);
    if (length == wanted) {
        return std::nullopt;
    }
    return Problem{Reason::wrongValue, "has " + std::to_string(length) + " characters instead of " +
                                           std::to_string(wanted)};
}

std::optional<Problem> partTypeProblem(std::string_view text)
{
    if (std::find(keys::parts.begin(), keys::parts.end(), text) != keys::parts.end()) {
        return std::nullopt;
    }
    return Problem{Reason::wrongValue, R"(is none of "audio", "midiAi" and "midi")"};
}

std::optional<Problem> textProblem(const Node& value, TextRule rule)
{
    const std::string_view text = value.text;
    switch (rule) {
    case TextRule::notEmpty:
        return text.empty() ? std::optional(Problem{Reason::wrongValue, "is empty"}) : std::nullopt;
    case TextRule::voiceBank:
        return lengthProblem(text);
    case TextRule::voiceBankOrEmpty:
        return text.empty() ? std::nullopt : lengthProblem(text);
    case TextRule::partType:
        return partTypeProblem(value.whole);
    case TextRule::controllerName:
        return controllerNamed(value.whole) != nullptr
                   ? std::nullopt
                   : std::optional(Problem{Reason::wrongValue, "names no controller"});
    default:
        return std::nullopt;
    }
}

} // namespace

std::string_view describe(Kind kind)
{
    switch (kind) {
    case Kind::null:
        return "null";
    case Kind::flag:
        return "true or false";
    case Kind::integer:
    case Kind::wideInteger:
        return "an integer";
    case Kind::real:
        return "a float";
    case Kind::text:
        return "a string";
    case Kind::array:
        return "an array";
    default:
        return "an object";
    }
}

std::optional<Problem> problemOf(const Node& value, const Key& key)
{
    if (!isOfType(value.kind, key.type)) {
        return wrongType(value, key);
    }
    switch (key.type) {
    case Type::integer:
        return integerProblem(value, key);
    case Type::real:
        return realProblem(value, key);
    case Type::text:
        return textProblem(value, key.rule);
    default:
        return std::nullopt;
    }
}

const keys::Controller* controllerNamed(std::string_view name)
{
    const auto* const place = std::find_if(
        keys::controllers.begin(), keys::controllers.end(),
        [name](const keys::Controller& controller) { return controller.name == name; });
    return place == keys::controllers.end() ? nullptr : place;
}

} // namespace plxclip::check
