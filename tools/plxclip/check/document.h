// A JSON document as a tree that knows where in the text everything stands.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plxclip::check {

enum class Kind : std::uint8_t {
    null,
    flag,
    integer,
    wideInteger, // beyond 32 bits
    real,
    text,
    array,
    object
};

// A value, and its place among the others. Elements and members are the same: children.
struct Node {
    Kind kind = Kind::null;
    bool flag = false;
    std::int32_t integer = 0;
    std::size_t index = 0; // in its parent
    double real = 0;
    std::size_t start = 0; // offsets in the text
    std::size_t end = 0;
    std::size_t keyStart = 0;
    std::string_view key;
    std::string_view text;  // up to its first NUL, as the library takes every text
    std::string_view whole; // what the library compares with its own words
    const Node* parent = nullptr;
    const Node* next = nullptr;
    const Node* first = nullptr;
};

// The elements of an array or the members of an object, in their order.
class Children {
public:
    class Iterator {
    public:
        explicit Iterator(const Node* node) : current(node) {}
        const Node& operator*() const { return *current; }
        Iterator& operator++()
        {
            current = current->next;
            return *this;
        }
        bool operator==(const Iterator&) const = default;

    private:
        const Node* current;
    };

    explicit Children(const Node& node) : parent(node) {}
    Iterator begin() const { return Iterator(parent.first); }
    static Iterator end() { return Iterator(nullptr); }

private:
    const Node& parent;
};

struct Position {
    std::size_t line = 0; // from 1; 0 when there is none
    std::size_t column = 0;

    bool operator==(const Position&) const = default;
};

class Document {
public:
    struct Error {
        std::string message;
        std::size_t offset;
    };

    // Takes the text as UTF-8 and parses it by the letter of the grammar.
    explicit Document(std::string utf8);
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    const std::optional<Error>& error() const { return defect; }
    const Node& root() const { return nodes.front(); } // only without an error

    // Lines and columns are counted in characters.
    Position positionOf(std::size_t offset) const;

    // The value as it is written, cut when it is long.
    std::string excerpt(const Node& node) const;

private:
    friend class TreeBuilder;

    std::string source;
    std::deque<Node> nodes; // stay where they are, and need no recursion to be destroyed
    std::deque<std::string> unescaped;
    std::optional<Error> defect;

    // A document in one line may have thousands of findings: each counts from the last milestone.
    static constexpr std::size_t milestoneDistance = 4096;
    void setMilestones() const;
    void advance(Position& position, std::size_t from, std::size_t to) const;
    mutable std::vector<Position> milestones;
};

// The JSON pointer of a node, and of a member that its object may not have.
std::string pointerTo(const Node& node);
std::string pointerTo(const Node& object, std::string_view key);

} // namespace plxclip::check
