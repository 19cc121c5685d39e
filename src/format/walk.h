// The walk through a document: the parser's events, held against the table of keys.
#pragma once

#include <cstdint>

#include "format/clip_builder.h"
#include "format/number.h"
#include "format/rapidjson.h"

namespace Korvel::CANTORIS::PLX::format {

// Takes the parser's events, in the form that RapidJSON asks for. Of the text it keeps nothing but the
// values of the objects that are open; what nobody asks for is passed over.
class Walk {
public:
    Walk(const keys::Shape& document, Trail& trail, ClipBuilder& builder, Text& text,
         const char* end)
        : document_(document), trail_(trail), builder_(builder), text_(text), end_(end)
    {
    }

    // Of the text.
    const char* end() const { return end_; }

    // Steps over a key that begins here, if it is the one that the table says comes next: most keys are,
    // and need neither be searched for their end nor looked up.
    bool takeExpectedKey(const char* begin);

    bool Null();
    bool Bool(bool flag);
    bool String(const char* utf8, json::SizeType length, bool copy);
    bool Key(const char* utf8, json::SizeType length, bool copy);
    bool StartObject();
    bool EndObject(json::SizeType members);
    bool StartArray();
    bool EndArray(json::SizeType elements);
    bool number(const Number& number); // instead of RapidJSON's own

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
    std::uint64_t passedOver_ = 0; // objects and lists that are open and that nobody asks for
};

// Parses a text that is valid UTF-8 and `size` bytes long, in place. False unless it is one JSON object
// by the letter of the grammar, with nothing but white space around it.
bool parse(char* text, std::size_t size, const Wanted& wanted, Trail& trail, ClipBuilder& builder);

} // namespace Korvel::CANTORIS::PLX::format
