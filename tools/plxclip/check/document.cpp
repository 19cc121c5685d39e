#include "check/document.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>

namespace plxclip::check {

namespace {

struct LoneSurrogate {};

// UTF-8 that is known to be valid, except that an escape may still name a lone low surrogate.
struct CheckedUtf8 : rapidjson::UTF8<char> {
    template <class Output>
    static void Encode(Output& output, unsigned point)
    {
        if (point >= 0xD800 && point <= 0xDFFF) {
            throw LoneSurrogate();
        }
        rapidjson::UTF8<char>::Encode(output, point);
    }
};

// The parser copies RapidJSON's own streams while it reads a token, so that these do not tell where
// it is. This one it does not copy.
class Stream {
public:
    using Ch = char;

    explicit Stream(std::string_view text) : source(text) {}

    char Peek() const { return place < source.size() ? source[place] : '\0'; }
    char Take() { return place < source.size() ? source[place++] : '\0'; }
    std::size_t Tell() const { return place; }

    static char* PutBegin() { return nullptr; }
    static void Put(char) {}
    static void Flush() {}
    static std::size_t PutEnd(char*) { return 0; }

private:
    std::string_view source;
    std::size_t place = 0;
};

bool takeDigits(Stream& stream)
{
    const std::size_t start = stream.Tell();
    while ('0' <= stream.Peek() && stream.Peek() <= '9') {
        stream.Take();
    }
    return stream.Tell() > start;
}

bool takeOneOf(Stream& stream, std::string_view letters)
{
    const bool found = letters.find(stream.Peek()) != std::string_view::npos;
    if (found) {
        stream.Take();
    }
    return found;
}

// Steps behind a number, or to where it is none.
rapidjson::ParseErrorCode takeNumber(Stream& stream, bool& isReal)
{
    takeOneOf(stream, "-");
    if (!takeOneOf(stream, "0") && !takeDigits(stream)) {
        return rapidjson::kParseErrorValueInvalid;
    }
    if (takeOneOf(stream, ".")) {
        isReal = true;
        if (!takeDigits(stream)) {
            return rapidjson::kParseErrorNumberMissFraction;
        }
    }
    if (takeOneOf(stream, "eE")) {
        isReal = true;
        takeOneOf(stream, "+-");
        if (!takeDigits(stream)) {
            return rapidjson::kParseErrorNumberMissExponent;
        }
    }
    return rapidjson::kParseErrorNone;
}

bool isBetweenTokens(char letter)
{
    return std::string_view(" \t\r\n,:").find(letter) != std::string_view::npos;
}

// The last letter before the offset that is no white space; NUL when there is none.
char letterBefore(std::string_view text, std::size_t offset)
{
    const auto place = text.substr(0, offset).find_last_not_of(" \t\r\n");
    return place == std::string_view::npos ? '\0' : text[place];
}

// What RapidJSON says is right but not always what helps.
std::string describeError(std::string_view text, std::size_t offset, rapidjson::ParseErrorCode code)
{
    const std::string_view rest = text.substr(std::min(offset, text.size()));
    if (text.find_first_not_of(" \t\r\n") == std::string_view::npos) {
        return "the document is empty";
    }
    if (rest.empty()) {
        return "the document ends in the middle";
    }
    if (rest.front() == '/') {
        return "JSON has no comments";
    }
    if ((rest.front() == '}' || rest.front() == ']') && letterBefore(text, offset) == ',') {
        return std::string("a comma before the closing ") + rest.front();
    }
    return rapidjson::GetParseError_En(code);
}

} // namespace

// Takes the parser's events. Where a token begins is known from where the one before it ended.
class TreeBuilder {
public:
    TreeBuilder(Document& tree, const Stream& stream) : document(tree), input(stream) {}

    bool Null() { return addPlain(Kind::null); }

    bool Bool(bool value)
    {
        addScalar(Kind::flag).flag = value;
        return true;
    }

    void addInteger(std::size_t start)
    {
        const std::string_view text = textFrom(start);
        std::int32_t value = 0;
        const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
        addScalar(result.ec == std::errc() ? Kind::integer : Kind::wideInteger).integer = value;
    }

    // False when it is too large.
    bool addReal(std::size_t start)
    {
        const double value = std::strtod(std::string(textFrom(start)).c_str(), nullptr);
        addScalar(Kind::real).real = value;
        return std::isfinite(value);
    }

    bool String(const char* text, rapidjson::SizeType length, bool)
    {
        Node& node = addScalar(Kind::text);
        const std::string_view whole = keep({text, length}, node.start, node.end);
        node.text = whole.substr(0, whole.find('\0'));
        node.whole = whole;
        return true;
    }

    bool Key(const char* text, rapidjson::SizeType length, bool)
    {
        keyStart = nextToken();
        previousEnd = input.Tell();
        key = keep({text, length}, keyStart, previousEnd);
        return true;
    }

    bool StartObject() { return open(Kind::object); }
    bool StartArray() { return open(Kind::array); }
    bool EndObject(rapidjson::SizeType) { return close(); }
    bool EndArray(rapidjson::SizeType) { return close(); }

private:
    struct Level {
        Node* node;
        Node* last;
        std::size_t count;
    };

    std::string_view textFrom(std::size_t start) const
    {
        return std::string_view(document.source).substr(start, input.Tell() - start);
    }

    std::size_t nextToken() const
    {
        std::size_t place = previousEnd;
        while (place < document.source.size() && isBetweenTokens(document.source[place])) {
            ++place;
        }
        return place;
    }

    // A string without escapes is found in the text itself.
    std::string_view keep(std::string_view text, std::size_t start, std::size_t end)
    {
        if (text.size() + 2 == end - start) {
            return std::string_view(document.source).substr(start + 1, text.size());
        }
        return document.unescaped.emplace_back(text);
    }

    Node& add(Kind kind)
    {
        Node& node = document.nodes.emplace_back();
        node.kind = kind;
        node.start = nextToken();
        if (!levels.empty()) {
            attach(node);
        }
        return node;
    }

    void attach(Node& node)
    {
        Level& level = levels.back();
        node.parent = level.node;
        node.index = level.count++;
        if (level.node->kind == Kind::object) {
            node.key = key;
            node.keyStart = keyStart;
        }
        (level.last == nullptr ? level.node->first : level.last->next) = &node;
        level.last = &node;
    }

    Node& addScalar(Kind kind)
    {
        Node& node = add(kind);
        node.end = previousEnd = input.Tell();
        return node;
    }

    bool addPlain(Kind kind)
    {
        addScalar(kind);
        return true;
    }

    bool open(Kind kind)
    {
        Node& node = add(kind);
        previousEnd = node.start + 1;
        levels.push_back({&node, nullptr, 0});
        return true;
    }

    bool close()
    {
        previousEnd = nextToken() + 1;
        levels.back().node->end = previousEnd;
        levels.pop_back();
        return true;
    }

    Document& document;
    const Stream& input;
    std::size_t previousEnd = 0;
    std::string_view key;
    std::size_t keyStart = 0;
    std::vector<Level> levels;
};

} // namespace plxclip::check

namespace rapidjson {

using plxclip::check::CheckedUtf8;
using plxclip::check::Stream;
using plxclip::check::TreeBuilder;

// RapidJSON's own does not know long integers for what they are, and does not bear long exponents.
template <>
template <>
inline void GenericReader<CheckedUtf8, CheckedUtf8>::ParseNumber<kParseIterativeFlag>(
    Stream& stream, TreeBuilder& builder)
{
    const std::size_t start = stream.Tell();
    bool isReal = false;
    const ParseErrorCode defect = plxclip::check::takeNumber(stream, isReal);
    if (defect != kParseErrorNone) {
        SetParseError(defect, stream.Tell());
    } else if (!isReal) {
        builder.addInteger(start);
    } else if (!builder.addReal(start)) {
        SetParseError(kParseErrorNumberTooBig, start);
    }
}

} // namespace rapidjson

namespace plxclip::check {

Document::Document(std::string utf8) : source(std::move(utf8))
{
    Stream stream(source);
    TreeBuilder builder(*this, stream);
    rapidjson::GenericReader<CheckedUtf8, CheckedUtf8> reader;
    try {
        // Without recursion: a document may nest without end.
        auto result = reader.Parse<rapidjson::kParseIterativeFlag>(stream, builder);
        if (!result.IsError() && stream.Tell() < source.size()) {
            // A NUL, which the parser takes for the end.
            result.Set(rapidjson::kParseErrorDocumentRootNotSingular, stream.Tell());
        }
        if (result.IsError()) {
            defect = {describeError(source, result.Offset(), result.Code()), result.Offset()};
        }
    } catch (const LoneSurrogate&) {
        defect = {"half of a surrogate pair", stream.Tell()};
    }
}

Position Document::positionOf(std::size_t offset) const
{
    if (milestones.empty()) {
        setMilestones();
    }
    const std::size_t milestone = std::min(offset / milestoneDistance, milestones.size() - 1);
    Position position = milestones[milestone];
    advance(position, milestone * milestoneDistance, offset);
    return position;
}

void Document::setMilestones() const
{
    Position position{1, 1};
    milestones.push_back(position);
    for (std::size_t start = 0; start + milestoneDistance < source.size();
         start += milestoneDistance) {
        advance(position, start, start + milestoneDistance);
        milestones.push_back(position);
    }
}

void Document::advance(Position& position, std::size_t from, std::size_t to) const
{
    for (std::size_t place = from; place < std::min(to, source.size()); ++place) {
        if (source[place] == '\n') {
            ++position.line;
            position.column = 1;
        } else if ((static_cast<unsigned char>(source[place]) & 0xC0) != 0x80) {
            ++position.column;
        }
    }
}

std::string Document::excerpt(const Node& node) const
{
    constexpr std::size_t longest = 40;
    std::string text = source.substr(node.start, node.end - node.start);
    if (text.size() <= longest) {
        return text;
    }
    std::size_t length = longest;
    while ((static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) {
        --length;
    }
    return text.substr(0, length) + "...";
}

namespace {

std::string escaped(std::string_view key)
{
    std::string result;
    for (const char letter : key) {
        if (letter == '~') {
            result += "~0";
        } else if (letter == '/') {
            result += "~1";
        } else {
            result += letter;
        }
    }
    return result;
}

} // namespace

std::string pointerTo(const Node& node)
{
    if (node.parent == nullptr) {
        return {};
    }
    return node.parent->kind == Kind::object
               ? pointerTo(*node.parent, node.key)
               : pointerTo(*node.parent) + '/' + std::to_string(node.index);
}

std::string pointerTo(const Node& object, std::string_view key)
{
    return pointerTo(object) + '/' + escaped(key);
}

} // namespace plxclip::check
