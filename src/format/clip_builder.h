#pragma once

#include <memory>

#include "clip/clip_properties.h"
#include "format/part_builder.h"
#include "format/tag_builder.h"

namespace Korvel::CANTORIS::PLX::format {

// What is wanted of a document.
struct Wanted {
    const keys::Shape& document;
    ClipBase* clip = nullptr;             // that the part will belong to
    ClipProperties* properties = nullptr; // fresh ones to be filled, or null
};

// Makes what is wanted of the objects that a walk goes through. The walk asks at each object and list
// that the table of keys knows whether to go into it, and says when it has ended.
class ClipBuilder {
public:
    explicit ClipBuilder(Trail& trail) : trail_(trail), taker_(trail), part_(trail, taker_) {}

    void begin(const Wanted& wanted);

    // Before the walk goes in: the innermost object or list is the one around it. What is refused here
    // is only checked for its grammar.
    bool beginObject(const keys::Shape& shape);
    bool beginList(const keys::Row& row);

    // When it has ended, and is the innermost one. False when it is not taken.
    bool endObject();
    void endList();

    // An element of the innermost list, which is a list of texts or of integers.
    void element(const Value& value);

    // Whether the document holds all properties that were wanted.
    bool hasProperties() const { return hasProperties_; }
    // Its part, if that is there and right.
    std::unique_ptr<PartBase> releasePart(const fs::Path& clipDirectory);

private:
    bool beginPart(std::uint32_t type);
    bool endInPart();
    bool endInNote();
    bool endPartHeader();
    bool endPropertyDocument();
    bool endDataDocument();
    void tellOfParts(const Members& document) const;
    void addVendorTag(bool hasFilter);
    bool addElement(const keys::Shape& owner, const Value& value);

    Trail& trail_;
    Taker taker_;
    TagBuilder tags_;
    PartBuilder part_;
    const Wanted* wanted_ = nullptr;
    bool hasProperties_ = false;
    std::uint32_t partType_ = part_type::none; // of the part that counts, right or wrong
};

} // namespace Korvel::CANTORIS::PLX::format
