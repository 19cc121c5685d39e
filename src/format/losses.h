// What is lost when a document is read, for those who want to know.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "format/rows.h"

namespace Korvel::CANTORIS::PLX::format {

enum class LossReason : std::uint8_t {
    missing,     // a required key, in the object at the path
    wrongKind,   // of a value
    notAccepted, // a number out of its range, or a text that is not what it must be
    tooFew,      // elements of a list
    tooMany,
    repeatedKey, // the first one counts
    unknownKey,
    notLookedAt, // because of another key of the same object
    duplicate,   // what may be there only once is there already
    object,      // an object, because of what was lost in it
};

struct Loss {
    LossReason reason;
    std::string path;  // a JSON pointer
    std::size_t place; // in the document's text as UTF-8 without a mark; see placeInFile()
    const keys::Shape*
        shape;            // of the object that the value belongs to, or of the object that is lost
    const keys::Row* row; // of the value; null for an element of a list and for an unknown key
    std::string_view
        key; // that the loss is about, as the document has it; of `missing`, as the table has it
};

class Listener {
public:
    virtual void lost(const Loss& loss) = 0;

protected:
    ~Listener() = default;
};

} // namespace Korvel::CANTORIS::PLX::format
