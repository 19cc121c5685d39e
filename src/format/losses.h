// What is lost when a document is read, for callers that want to know.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "format/rows.h"

namespace Korvel::CANTORIS::PLX::format {

enum class LossReason : std::uint8_t {
    missing,     // a required key, in the object at the path
    wrongKind,   // a value of another kind than the key's
    notAccepted, // a number out of range, or a text that breaks its rule
    tooFew,      // a list with too few elements
    tooMany,
    repeatedKey, // the first one counts
    unknownKey,
    notLookedAt, // ignored because of another key of the same object
    duplicate,   // of something that may be there only once
    object,      // an object, because of something that was lost in it
};

struct Loss {
    LossReason reason;
    std::string path;  // a JSON pointer
    std::size_t place; // in the document's text as UTF-8 without a mark; see placeInFile()
    const keys::Shape*
        shape;            // of the object that the value belongs to, or of the object that is lost
    const keys::Row* row; // of the value; null for an element of a list and for an unknown key
    std::string_view key; // the key concerned, as in the document; for `missing`, as in the table
};

class Listener {
public:
    virtual void lost(const Loss& loss) = 0;

protected:
    ~Listener() = default;
};

} // namespace Korvel::CANTORIS::PLX::format
