// A document that can be changed here and there: everything else in it stays as it is written, the
// order of the keys, their indentation, keys that nobody knows, and the digits of numbers.
#pragma once

#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "document/tokens.h"

namespace plxclip::document {

// A value of a document, and its key if it is the member of an object. Lives until it, or what it is
// in, is removed or set.
struct Node {
    bool isObject() const { return first->text == "{"; }
    bool isList() const { return first->text == "["; }

    Tokens::iterator key; // that of the value's first token if there is none
    Tokens::iterator first;
    Tokens::iterator last; // the first one for what is neither object nor list
    Node* outer = nullptr;
    std::list<Node> inner = {};
};

class Document {
public:
    explicit Document(std::string_view utf8);
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;
    Document(Document&&) = delete;
    Document& operator=(Document&&) = delete;
    ~Document() = default;

    std::string text() const;
    static std::string textOf(const Node& node); // without its key
    const Tokens& tokens() const { return all; }

    // Null unless the text is one value by JSON's grammar, not nested too deeply. Commas
    // behind a last element are put up with.
    Node* root() { return isWhole ? &top : nullptr; }

    // The first member of an object with this key; null when there is none, or no object.
    static Node* member(Node* object, std::string_view key);

    // The value that began at this place of the text that was read, or whose key did; null when there
    // is none.
    Node* at(std::size_t place);

    // The places of the commas behind last elements, which it removes.
    std::vector<std::size_t> removeTrailingCommas();

    // The value becomes this JSON.
    void set(Node& node, std::string_view json);

    void rename(Node& node, std::string_view key);

    // Of an object or a list, with its comma.
    void remove(Node& node);

    // Inserts a member behind another one, or in front of all when that is null. It looks like its
    // neighbours.
    Node& insert(Node& object, std::string_view key, std::string_view json, Node* behind);

    // Inserts a last element.
    Node& append(Node& list, std::string_view json);

private:
    class Parser;

    Node& addNode(Node& container, Tokens& value, Node* behind);
    Node& add(Node& container, Tokens&& name, std::string_view json, Node* behind);
    std::string separatorBehind(const Node& container, const Node* behind) const;
    std::string blankBehindColons() const;
    void listPlaces(Node& node);

    Tokens all;
    Node top;
    bool isWhole = false;
    std::vector<Tokens::iterator> trailingCommas;
    std::vector<std::pair<std::size_t, Node*>> places; // in their order
    bool knowsPlaces = false;
};

} // namespace plxclip::document
