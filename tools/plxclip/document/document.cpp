#include "document/document.h"

#include <algorithm>
#include <iterator>

namespace plxclip::document {

// Finds the values among the tokens.
class Document::Parser {
public:
    Parser(Tokens& read, std::vector<Tokens::iterator>& trailing)
        : tokens(read), at(read.begin()), commas(trailing)
    {
    }

    bool document(Node& root)
    {
        skipWhite();
        return value(root, nullptr) && at == tokens.end();
    }

    // The tokens hold one value and nothing else.
    void only(Node& node)
    {
        Node* const outer = node.outer;
        value(node, outer);
    }

private:
    static constexpr int deepest = 500; // as many calls are open at once

    bool is(Kind kind) const { return at != tokens.end() && at->kind == kind; }

    void skipWhite()
    {
        while (is(Kind::white)) {
            ++at;
        }
    }

    void advance()
    {
        ++at;
        skipWhite();
    }

    bool value(Node& node, Node* outer)
    {
        node.first = node.last = node.key = at;
        node.outer = outer;
        if (is(Kind::text) || is(Kind::number) || is(Kind::word)) {
            advance();
            return true;
        }
        return is(Kind::open) && ++depth <= deepest && container(node);
    }

    bool container(Node& node)
    {
        const std::string_view close = node.isObject() ? "}" : "]";
        advance();
        while (!is(Kind::close)) {
            if (!element(node)) {
                return false;
            }
        }
        node.last = at;
        const bool isItsOwn = at->text == close;
        advance();
        --depth;
        return isItsOwn;
    }

    bool element(Node& outer)
    {
        Node& node = outer.inner.emplace_back();
        const Tokens::iterator key = at;
        if (outer.isObject() && !skipKey()) {
            return false;
        }
        if (!value(node, &outer)) {
            return false;
        }
        node.key = outer.isObject() ? key : node.first;
        return is(Kind::close) || comma();
    }

    bool skipKey()
    {
        if (!is(Kind::text)) {
            return false;
        }
        advance();
        if (!is(Kind::colon)) {
            return false;
        }
        advance();
        return true;
    }

    bool comma()
    {
        if (!is(Kind::comma)) {
            return false;
        }
        const Tokens::iterator found = at;
        advance();
        if (is(Kind::close)) {
            commas.push_back(found);
        }
        return true;
    }

    Tokens& tokens;
    Tokens::iterator at;
    std::vector<Tokens::iterator>& commas;
    int depth = 0;
};

namespace {

// The white space in front of a member or an element.
std::string_view whiteBefore(const Node& node)
{
    const auto before = std::prev(node.key);
    return before->kind == Kind::white ? std::string_view(before->text) : std::string_view();
}

bool breaksLine(std::string_view white)
{
    return white.find('\n') != std::string_view::npos;
}

bool isFirst(const Node& node)
{
    return &node.outer->inner.front() == &node;
}

bool isLast(const Node& node)
{
    return &node.outer->inner.back() == &node;
}

// Of a token, as far as white space follows or precedes it.
Tokens::iterator behindWhite(Tokens::iterator at)
{
    while (at->kind == Kind::white) {
        ++at;
    }
    return at;
}

Tokens::iterator beforeWhite(Tokens::iterator at)
{
    while (std::prev(at)->kind == Kind::white) {
        --at;
    }
    return at;
}

Token added(Kind kind, std::string_view text)
{
    return {kind, std::string(text)};
}

void addWhite(Tokens& tokens, std::string_view white)
{
    if (!white.empty()) {
        tokens.push_back(added(Kind::white, white));
    }
}

// White space and then the item.
void putInto(Tokens& tokens, Tokens::iterator before, std::string_view white, Tokens&& item)
{
    if (!white.empty()) {
        tokens.insert(before, added(Kind::white, white));
    }
    tokens.splice(before, item);
}

Tokens addedTokensOf(std::string_view json)
{
    Tokens tokens = tokensOf(json);
    for (Token& token : tokens) {
        token.place = Token::nowhere;
    }
    return tokens;
}

} // namespace

Document::Document(std::string_view utf8) : all(tokensOf(utf8))
{
    isWhole = Parser(all, trailingCommas).document(top);
}

std::string Document::text() const
{
    std::string text;
    for (const Token& token : all) {
        text += token.text;
    }
    return text;
}

std::string Document::textOf(const Node& node)
{
    std::string text;
    for (auto token = node.first; token != std::next(node.last); ++token) {
        text += token->text;
    }
    return text;
}

Node* Document::member(Node* object, std::string_view key)
{
    if (object == nullptr || !object->isObject()) {
        return nullptr;
    }
    const auto found = std::ranges::find_if(
        object->inner, [key](const Node& each) { return unquote(each.key->text) == key; });
    return found == object->inner.end() ? nullptr : &*found;
}

void Document::listPlaces(Node& node)
{
    for (const Tokens::iterator token : {node.key, node.first}) {
        if (token->place != Token::nowhere) {
            places.emplace_back(token->place, &node);
        }
    }
    for (Node& each : node.inner) {
        listPlaces(each);
    }
}

Node* Document::at(std::size_t place)
{
    if (!knowsPlaces && isWhole) {
        places.clear();
        listPlaces(top);
        knowsPlaces = true;
    }
    const auto found =
        std::ranges::lower_bound(places, place, {}, &std::pair<std::size_t, Node*>::first);
    return found == places.end() || found->first != place ? nullptr : found->second;
}

std::vector<std::size_t> Document::removeTrailingCommas()
{
    std::vector<std::size_t> removed;
    for (const Tokens::iterator comma : trailingCommas) {
        removed.push_back(comma->place);
        all.erase(comma);
    }
    trailingCommas.clear();
    return removed;
}

void Document::set(Node& node, std::string_view json)
{
    Tokens value = addedTokensOf(json);
    if (value.size() == 1 && node.first == node.last) {
        node.first->kind = value.front().kind;
        node.first->text = json;
        return;
    }
    const bool hasKey = node.key != node.first;
    const auto key = node.key;
    const auto behind = all.erase(node.first, std::next(node.last));
    node.inner.clear();
    std::vector<Tokens::iterator> none;
    Parser(value, none).only(node);
    node.key = hasKey ? key : node.first;
    all.splice(behind, value);
    knowsPlaces = false;
}

void Document::rename(Node& node, std::string_view key)
{
    node.key->text = quote(key);
}

void Document::remove(Node& node)
{
    std::list<Node>& siblings = node.outer->inner;
    if (siblings.size() == 1) {
        all.erase(std::next(node.outer->first), node.outer->last);
    } else if (isLast(node)) {
        const auto comma = std::prev(beforeWhite(node.key));
        all.erase(beforeWhite(comma), std::next(node.last));
    } else {
        const auto comma = behindWhite(std::next(node.last));
        const auto next = behindWhite(std::next(comma));
        // The white space of the first one stays, because it follows the bracket.
        isFirst(node) ? all.erase(node.key, next)
                      : all.erase(beforeWhite(node.key), std::next(comma));
    }
    siblings.remove_if([&node](const Node& each) { return &each == &node; });
    knowsPlaces = false;
}

std::string Document::blankBehindColons() const
{
    const auto colon = std::ranges::find(all, Kind::colon, &Token::kind);
    const bool isBlank = colon != all.end() && std::next(colon)->kind == Kind::white;
    return isBlank ? " " : "";
}

// The white space behind the comma that separates a new member or element from its neighbour.
std::string Document::separatorBehind(const Node& container, const Node* behind) const
{
    const auto first = container.inner.begin();
    if (behind != nullptr && behind != &*first) {
        return std::string(whiteBefore(*behind));
    }
    if (breaksLine(whiteBefore(*first))) {
        return std::string(whiteBefore(*first));
    }
    return container.inner.size() > 1 ? std::string(whiteBefore(*std::next(first)))
                                      : blankBehindColons();
}

Node& Document::insert(Node& object, std::string_view key, std::string_view json, Node* behind)
{
    Tokens name;
    name.push_back(added(Kind::text, quote(key)));
    name.push_back(added(Kind::colon, ":"));
    addWhite(name, blankBehindColons());
    return add(object, std::move(name), json, behind);
}

Node& Document::append(Node& list, std::string_view json)
{
    return add(list, {}, json, list.inner.empty() ? nullptr : &list.inner.back());
}

// Makes the node of a new member or element; its tokens are not in the document yet.
Node& Document::addNode(Node& container, Tokens& value, Node* behind)
{
    const auto isBehind = [behind](const Node& each) { return &each == behind; };
    const auto place = behind == nullptr
                           ? container.inner.begin()
                           : std::next(std::ranges::find_if(container.inner, isBehind));
    Node& node = *container.inner.emplace(place);
    node.outer = &container;
    std::vector<Tokens::iterator> none;
    Parser(value, none).only(node);
    knowsPlaces = false;
    return node;
}

// Puts a member or an element into a container, with comma and white space.
Node& Document::add(Node& container, Tokens&& name, std::string_view json, Node* behind)
{
    const bool isAlone = container.inner.empty();
    const std::string separator = isAlone ? "" : separatorBehind(container, behind);
    const auto front = isAlone ? container.last : container.inner.front().key;
    Tokens item = addedTokensOf(json);
    Node& node = addNode(container, item, behind);
    node.key = name.empty() ? node.first : name.begin();
    const bool hasKey = !name.empty();
    item.splice(item.begin(), name);
    if (isAlone) {
        const std::string blank = hasKey ? blankBehindColons() : "";
        all.erase(std::next(container.first), container.last);
        addWhite(item, blank);
        putInto(all, front, blank, std::move(item));
    } else if (behind == nullptr) {
        item.push_back(added(Kind::comma, ","));
        addWhite(item, separator);
        all.splice(front, item);
    } else {
        const auto next = std::next(behind->last);
        all.insert(next, added(Kind::comma, ","));
        putInto(all, next, separator, std::move(item));
    }
    return node;
}

} // namespace plxclip::document
