// A document that is changed here and there, and keeps everything else as it is written.
#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document/document.h"

namespace {

using plxclip::document::Document;
using plxclip::document::Kind;
using plxclip::document::Node;
using plxclip::document::quote;
using plxclip::document::Token;
using plxclip::document::tokensOf;
using plxclip::document::unquote;
using testing::ElementsAre;
using testing::IsEmpty;

enum class White { counts, isLeftOut };

std::vector<std::string> wordsOf(const std::string& text, White white = White::isLeftOut)
{
    std::vector<std::string> words;
    for (const Token& token : tokensOf(text)) {
        if (white == White::counts || token.kind != Kind::white) {
            words.push_back(token.text);
        }
    }
    return words;
}

// A document of values of all kinds, with white space of all kinds.
class RandomText {
public:
    explicit RandomText(unsigned seed) : random(seed) {}

    std::string document() { return white() + object(4) + white(); }

    std::string bytes()
    {
        static const std::string letters = "{}[],:\"\\ \n0-1.5e+tru nul\xC3\xA4\xFF";
        std::string text;
        for (unsigned length = number(60); length > 0; --length) {
            text += letters[number(static_cast<unsigned>(letters.size()))];
        }
        return text;
    }

    unsigned number(unsigned below)
    {
        return below == 0 ? 0 : static_cast<unsigned>(random() % below);
    }

private:
    std::string oneOf(const std::vector<std::string>& texts)
    {
        return texts[number(static_cast<unsigned>(texts.size()))];
    }

    std::string white() { return oneOf({"", "", " ", "\n    ", "\t", "\r\n"}); }

    std::string value(int depth)
    {
        switch (depth > 0 ? number(4) : 0) {
        case 1:
            return object(depth - 1);
        case 2:
            return list(depth - 1);
        default:
            return oneOf({"1", "-0.50", "1e5", "true", "null", R"("")", R"("a\"}b")", R"("\u00e9")",
                          "\"\xC3\xA9\""});
        }
    }

    std::string list(int depth)
    {
        std::string text = "[" + white();
        for (unsigned left = number(4); left > 0; --left) {
            text += value(depth) + white() + (left > 1 ? "," : "") + white();
        }
        return text + "]";
    }

    std::string object(int depth)
    {
        std::string text = "{" + white();
        for (unsigned left = number(5); left > 0; --left) {
            text += oneOf({R"("a")", R"("b")", R"("x y")", R"("\u0061")"}) + white() + ":" +
                    white() + value(depth) + white() + (left > 1 ? "," : "") + white();
        }
        return text + "}";
    }

    std::mt19937 random;
};

void collect(Node& node, std::vector<Node*>& nodes)
{
    nodes.push_back(&node);
    for (Node& each : node.inner) {
        collect(each, nodes);
    }
}

std::vector<Node*> nodesOf(Document& document)
{
    std::vector<Node*> nodes;
    collect(*document.root(), nodes);
    return nodes;
}

// Of a token among those of the document.
std::size_t indexOf(const Document& document, std::list<Token>::const_iterator token,
                    White white = White::isLeftOut)
{
    std::size_t index = 0;
    for (auto at = document.tokens().begin(); at != token; ++at) {
        index += white == White::isLeftOut && at->kind == Kind::white ? 0 : 1;
    }
    return index;
}

constexpr unsigned rounds = 1000;

TEST(Document, AnyTextIsWrittenAsItWasRead)
{
    for (unsigned seed = 0; seed < rounds; ++seed) {
        RandomText random(seed);
        const std::string text = seed % 2 == 0 ? random.document() : random.bytes();
        EXPECT_EQ(Document(text).text(), text);
    }
}

TEST(Document, ARandomDocumentIsWhole)
{
    for (unsigned seed = 0; seed < rounds; ++seed) {
        const std::string text = RandomText(seed).document();
        EXPECT_NE(Document(text).root(), nullptr) << text;
    }
}

TEST(Document, AValueThatIsSetChangesNoOtherToken)
{
    for (unsigned seed = 0; seed < rounds; ++seed) {
        RandomText random(seed);
        Document document(random.document());
        auto words = wordsOf(document.text(), White::counts);
        const auto nodes = nodesOf(document);
        Node& node = *nodes[random.number(static_cast<unsigned>(nodes.size()))];
        const auto begin =
            static_cast<std::ptrdiff_t>(indexOf(document, node.first, White::counts));
        const auto end =
            static_cast<std::ptrdiff_t>(indexOf(document, node.last, White::counts)) + 1;
        words.erase(words.begin() + begin, words.begin() + end);
        words.insert(words.begin() + begin, "\"new\"");
        document.set(node, "\"new\"");
        EXPECT_EQ(wordsOf(document.text(), White::counts), words);
        EXPECT_EQ(Document(document.text()).text(), document.text());
    }
}

TEST(Document, AKeyThatIsRenamedChangesNoOtherToken)
{
    for (unsigned seed = 0; seed < rounds; ++seed) {
        RandomText random(seed);
        Document document(random.document());
        auto words = wordsOf(document.text(), White::counts);
        for (Node& member : document.root()->inner) {
            words[indexOf(document, member.key, White::counts)] = "\"new\"";
            document.rename(member, "new");
            EXPECT_EQ(wordsOf(document.text(), White::counts), words);
        }
    }
}

TEST(Document, WhatIsRemovedTakesOnlyItsCommaAlong)
{
    for (unsigned seed = 0; seed < rounds; ++seed) {
        RandomText random(seed);
        Document document(random.document());
        auto words = wordsOf(document.text());
        const auto nodes = nodesOf(document);
        if (nodes.size() == 1) {
            continue;
        }
        Node& node = *nodes[1 + random.number(static_cast<unsigned>(nodes.size() - 1))];
        auto begin = words.begin() + static_cast<std::ptrdiff_t>(indexOf(document, node.key));
        auto end = words.begin() + static_cast<std::ptrdiff_t>(indexOf(document, node.last)) + 1;
        if (*end == ",") {
            ++end;
        } else if (*(begin - 1) == ",") {
            --begin;
        }
        words.erase(begin, end);
        document.remove(node);
        EXPECT_EQ(wordsOf(document.text()), words);
        EXPECT_NE(Document(document.text()).root(), nullptr) << document.text();
    }
}

TEST(Document, WhatIsInsertedChangesNoOtherToken)
{
    for (unsigned seed = 0; seed < rounds; ++seed) {
        RandomText random(seed);
        Document document(random.document());
        auto words = wordsOf(document.text());
        Node& object = *document.root();
        Node* behind = nullptr;
        auto index = static_cast<std::ptrdiff_t>(indexOf(document, object.first)) + 1;
        const bool isFirst = random.number(2) == 0 || object.inner.empty();
        if (!isFirst) {
            behind = &object.inner.back();
            index = static_cast<std::ptrdiff_t>(indexOf(document, behind->last)) + 1;
        }
        std::vector<std::string> added = {"\"new\"", ":", "[", "1", "]"};
        if (!object.inner.empty()) {
            added.insert(isFirst ? added.end() : added.begin(), ",");
        }
        words.insert(words.begin() + index, added.begin(), added.end());
        Node& node = document.insert(object, "new", "[1]", behind);
        EXPECT_EQ(wordsOf(document.text()), words);
        EXPECT_EQ(Document::member(document.root(), "new"), &node);
        EXPECT_EQ(node.inner.size(), 1U);
    }
}

struct Layout {
    std::string before;
    std::string after;
};

void PrintTo(const Layout& layout, std::ostream* out)
{
    *out << layout.before;
}

class DocumentLayout : public testing::TestWithParam<Layout> {};

TEST_P(DocumentLayout, WhatIsInsertedLooksLikeItsNeighbours)
{
    Document document(GetParam().before);
    Node& object = *document.root();
    document.insert(object, "new", "1", object.inner.empty() ? nullptr : &object.inner.front());
    EXPECT_EQ(document.text(), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(
    Objects, DocumentLayout,
    testing::Values(
        Layout{"{}", R"({"new":1})"}, Layout{R"({"a":2})", R"({"a":2,"new":1})"},
        Layout{R"({ "a": 2 })", R"({ "a": 2, "new": 1 })"},
        Layout{R"({"a": 2})", R"({"a": 2, "new": 1})"},
        Layout{"{\n  \"a\": 2\n}\n", "{\n  \"a\": 2,\n  \"new\": 1\n}\n"},
        Layout{"{\n  \"a\": 2,\n  \"b\": 3\n}", "{\n  \"a\": 2,\n  \"new\": 1,\n  \"b\": 3\n}"},
        Layout{"{\n  \"a\": 2, \"b\": 3\n}", "{\n  \"a\": 2,\n  \"new\": 1, \"b\": 3\n}"}));

TEST(Document, AppendsToLists)
{
    Document document(R"({"a": [], "b": ["x"], "c": ["x","y"]})");
    for (Node& list : document.root()->inner) {
        document.append(list, "1");
    }
    EXPECT_EQ(document.text(), R"({"a": [1], "b": ["x", 1], "c": ["x","y",1]})");
}

TEST(Document, ANewMemberCanBeChangedToo)
{
    Document document("{}");
    Node& list = document.insert(*document.root(), "types", "[]", nullptr);
    document.append(list, "\"a\"");
    document.append(list, "\"b\"");
    document.remove(list.inner.front());
    EXPECT_EQ(document.text(), R"({"types":["b"]})");
}

TEST(Document, FindsMembersByTheirNamesNotTheirSpelling)
{
    Document document(R"({"\u0069d": 1, "id": 2})");
    Node* const found = Document::member(document.root(), "id");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->first->text, "1");
    EXPECT_EQ(Document::member(document.root(), "no"), nullptr);
    EXPECT_EQ(Document::member(found, "id"), nullptr);
    EXPECT_EQ(Document::member(nullptr, "id"), nullptr);
}

TEST(Document, FindsWhatBeginsAtAPlace)
{
    const std::string text = R"( {"a": [1, {"b": 2}]})";
    Document document(text);
    for (const std::string value : {"{\"a", "[1", "1", "{\"b", "2"}) {
        const std::size_t place = text.find(value);
        ASSERT_NE(document.at(place), nullptr) << value;
        EXPECT_EQ(document.at(place)->first->place, place);
    }
    EXPECT_EQ(document.at(text.find("\"b\""))->first->text, "2");
    EXPECT_EQ(document.at(text.find("]")), nullptr);
    document.remove(*document.at(text.find("1")));
    EXPECT_EQ(document.at(text.find("2"))->first->text, "2");
    EXPECT_EQ(document.at(text.find("1")), nullptr);
}

TEST(Document, PutsUpWithCommasBehindLastElementsAndRemovesThem)
{
    Document document("{\"a\": [1, 2 , ], \"b\": 3,\n}");
    ASSERT_NE(document.root(), nullptr);
    EXPECT_THAT(document.removeTrailingCommas(), ElementsAre(12, 23));
    EXPECT_EQ(document.text(), "{\"a\": [1, 2  ], \"b\": 3\n}");
    EXPECT_THAT(document.removeTrailingCommas(), IsEmpty());
}

TEST(Document, HasNoRootWhereTheGrammarIsBroken)
{
    for (const std::string text :
         {"",         " ",      "{",     "}",        "{]",
          "[}",       "{,}",    "[,]",   "[1,,2]",   "{\"a\"}",
          "{\"a\":}", "{1: 2}", "1 2",   "{} {}",    "[1 2]",
          "[01]",     "[1.]",   "[.5]",  "[+1]",     "[1e]",
          "[tru]",    "['a']",  "[\"a]", "/* */ {}", "{\"a\": 1 \"b\": 2}"}) {
        EXPECT_EQ(Document(text).root(), nullptr) << text;
    }
    EXPECT_EQ(Document(std::string(100000, '[')).root(), nullptr);
}

TEST(Document, QuotesAndUnquotes)
{
    for (const std::string text : {"", "a", "\"", "\\", "\n\x01", "\xC3\xA9"}) {
        EXPECT_EQ(unquote(quote(text)), text);
    }
    EXPECT_EQ(unquote(R"("\u00e9")"), "\xC3\xA9");
    EXPECT_EQ(unquote("1"), "");
    EXPECT_EQ(unquote(R"("\q")"), "");
}

} // namespace
