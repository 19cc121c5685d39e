// JSON as tests write it: objects that are changed one member at a time, and values of every kind.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace support {

// An object; its values are JSON text, so that a test can write what no builder would.
class Object {
public:
    using Member = std::pair<std::string, std::string>;

    Object() = default;
    Object(std::initializer_list<Member> members) : members_(members) {}

    // With the member changed at its place, or appended; no value takes the member out.
    [[nodiscard]] Object with(std::string_view key, std::optional<std::string> value) const;
    [[nodiscard]] Object without(std::string_view key) const { return with(key, std::nullopt); }

    // With the member as the last one, whether or not there is one of that name already.
    [[nodiscard]] Object repeating(std::string_view key, std::string_view value) const;

    // With the members in the opposite order.
    [[nodiscard]] Object reversed() const;

    [[nodiscard]] std::string text() const;
    operator std::string() const { return text(); }

private:
    std::vector<Member> members_;
};

// The text as a JSON string; it must need no escapes.
std::string jsonString(std::string_view text);

std::string array(const std::vector<std::string>& values);

// Values that a key must not take for its own: every other kind, and the near misses. Where a number
// could slip in by truncation or conversion, it would come out as 5, as 0.25 or as true.
const std::vector<std::string>& notIntegers();
const std::vector<std::string>& notFloats();
const std::vector<std::string>& notBooleans();
const std::vector<std::string>& notStrings();
const std::vector<std::string>& notArrays();
const std::vector<std::string>& notObjects();

} // namespace support
