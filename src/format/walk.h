// The walk through a document: compares the parser's events with the table of keys.
#pragma once

#include <cstdint>

#include "format/clip_builder.h"
#include "format/number.h"
#include "format/rapidjson.h"

namespace Korvel::CANTORIS::PLX::format {

// Receives the parser's events, in the form that RapidJSON requires. It only keeps the values of
// the open objects; what is not in the table is ignored.
class Walk {
public:
    Walk(const keys::Shape& document, Trail& trail, ClipBuilder& builder, Text& text,
         const char* end)
        : document_(document), trail_(trail), builder_(builder), text_(text), end_(end)
    {
    }

    // The end of the text.
    const char* end() const { return end_; }

    // Skips a key that begins here, if it is the one that the table expects next. Most keys are,
    // and then their end need not be searched, nor their row.
    bool takeExpectedKey(const char* begin);

    bool Null();
    bool Bool(bool flag);
    bool String(const char* utf8, json::SizeType length, bool copy);
    bool Key(const char* utf8, json::SizeType length, bool copy);
    bool StartObject();
    bool EndObject(json::SizeType members);
    bool StartArray();
    bool EndArray(json::SizeType elements);
    bool number(const Number& number); // called instead of RapidJSON's event

private:
    bool isAskedFor() const
    {
        return passedOver_ == 0 && (trail_.top().list != nullptr || trail_.top().row != noRow);
    }

    static void expectValueOf(Level& level, std::size_t place);
    bool scalar(const Value& value);
    bool element(Level& level, const Value& value);
    void passOver();
    void elementEnded();

    const keys::Shape& document_;
    Trail& trail_;
    ClipBuilder& builder_;
    Text& text_;
    const char* end_;
    std::uint64_t passedOver_ = 0; // how many open objects and lists are ignored
};

// Parses a text that is valid UTF-8 and `size` bytes long, in place. False unless it is one JSON
// object, strictly by the grammar, with only white space around it.
bool parse(char* text, std::size_t size, const Wanted& wanted, Trail& trail, ClipBuilder& builder);

} // namespace Korvel::CANTORIS::PLX::format
