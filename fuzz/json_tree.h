// JSON as a tree that can be changed piece by piece and need not be valid: a scalar is any text.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

struct JsonTree {
    enum class Kind { scalar, array, object };

    Kind kind = Kind::scalar;
    std::string scalar; // as it is written
    std::vector<JsonTree> children;
    std::vector<std::string> keys; // of an object's children, as they are written

    [[nodiscard]] std::string text() const;
    [[nodiscard]] std::size_t size() const; // in nodes

    // Nothing when the text nests too deep, or when anything follows the value. It takes more than JSON.
    static std::optional<JsonTree> parse(std::string_view text);
};

} // namespace fuzz
