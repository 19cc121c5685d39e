#include "json_tree.h"

#include <algorithm>

namespace fuzz {

namespace {

constexpr int deepest = 64;
constexpr std::string_view spaces = " \t\r\n";

class Parser {
public:
    explicit Parser(std::string_view text) : rest_(text) {}

    std::optional<JsonTree> parse()
    {
        auto tree = value(0);
        skipSpaces();
        return tree && rest_.empty() ? tree : std::nullopt;
    }

private:
    void skipSpaces()
    {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(spaces), rest_.size()));
    }

    bool take(char character)
    {
        skipSpaces();
        if (rest_.empty() || rest_.front() != character) {
            return false;
        }
        rest_.remove_prefix(1);
        return true;
    }

    std::string takeFirst(std::size_t length)
    {
        std::string text(rest_.substr(0, length));
        rest_.remove_prefix(text.size());
        return text;
    }

    std::string string()
    {
        std::size_t end = 1;
        while (end < rest_.size() && rest_[end] != '"') {
            end += rest_[end] == '\\' ? 2 : 1;
        }
        return takeFirst(end + 1);
    }

    std::string scalar()
    {
        skipSpaces();
        if (rest_.starts_with('"')) {
            return string();
        }
        return takeFirst(std::min(rest_.find_first_of(",:[]{}\" \t\r\n"), rest_.size()));
    }

    std::optional<JsonTree> value(int depth)
    {
        if (depth > deepest) {
            return std::nullopt;
        }
        if (take('{')) {
            return list(JsonTree::Kind::object, '}', depth);
        }
        if (take('[')) {
            return list(JsonTree::Kind::array, ']', depth);
        }
        JsonTree tree;
        tree.scalar = scalar();
        return tree.scalar.empty() ? std::nullopt : std::optional(std::move(tree));
    }

    std::optional<JsonTree> list(JsonTree::Kind kind, char end, int depth)
    {
        JsonTree tree;
        tree.kind = kind;
        if (take(end)) {
            return tree;
        }
        do {
            if (kind == JsonTree::Kind::object) {
                tree.keys.push_back(scalar());
                if (!take(':')) {
                    return std::nullopt;
                }
            }
            auto child = value(depth + 1);
            if (!child) {
                return std::nullopt;
            }
            tree.children.push_back(std::move(*child));
        } while (take(','));
        return take(end) ? std::optional(std::move(tree)) : std::nullopt;
    }

    std::string_view rest_;
};

} // namespace

std::string JsonTree::text() const
{
    if (kind == Kind::scalar) {
        return scalar;
    }
    std::string text(1, kind == Kind::array ? '[' : '{');
    for (std::size_t place = 0; place < children.size(); ++place) {
        text += place == 0 ? "" : ",";
        text += kind == Kind::array ? "" : keys[place] + ":";
        text += children[place].text();
    }
    return text + (kind == Kind::array ? ']' : '}');
}

std::size_t JsonTree::size() const
{
    std::size_t nodes = 1;
    for (const JsonTree& child : children) {
        nodes += child.size();
    }
    return nodes;
}

std::optional<JsonTree> JsonTree::parse(std::string_view text)
{
    return Parser(text).parse();
}

} // namespace fuzz
