#pragma once

#include <memory>

#include "clip/clip_properties.h"
#include "format/part_builder.h"
#include "format/tag_builder.h"

namespace Korvel::CANTORIS::PLX::format {

// What the caller wants from a document.
struct Wanted {
    const keys::Shape& document;
    ClipBase* clip = nullptr;             // the clip to which the part will belong
    ClipProperties* properties = nullptr; // new ones to fill, or null
};

// Makes what is wanted from the objects that a walk goes through. The walk asks for each object and
// list of the table of keys whether to enter it, and reports when it has ended.
class ClipBuilder {
public:
    explicit ClipBuilder(Trail& trail) : trail_(trail), taker_(trail), part_(trail, taker_) {}

    void begin(const Wanted& wanted);

    // Called before the walk enters the object or list; the innermost one is still its parent. If
    // this refuses, only the syntax of its content is checked.
    bool beginObject(const keys::Shape& shape);
    bool beginList(const keys::Row& row);

    // Called when it has ended, and is still the innermost one. False when it is refused.
    bool endObject();
    void endList();

    // Called for an element of the innermost list, which is a list of texts or of integers.
    void element(const Value& value);

    // Whether the document has all properties that were wanted.
    bool hasProperties() const { return hasProperties_; }
    // Its part, if there is a valid one.
    std::unique_ptr<PartBase> releasePart(const fs::Path& clipDirectory);

private:
    bool beginPart(std::uint32_t type);
    bool endInPart();
    bool endInNote();
    bool endPartHeader();
    bool endPropertyDocument();
    bool endDataDocument();
    void tellOfParts(const Members& document) const;
    template <class Document>
    void tookId(const Members& document) const;
    void addVendorTag(bool hasFilter);
    bool addElement(const keys::Shape& owner, const Value& value);

    Trail& trail_;
    Taker taker_;
    TagBuilder tags_;
    PartBuilder part_;
    const Wanted* wanted_ = nullptr;
    bool hasProperties_ = false;
    std::uint32_t partType_ = KRT_PLX_PART_NONE; // of the part that counts, valid or not
};

} // namespace Korvel::CANTORIS::PLX::format
