// What is lost when a document is read, for callers that want to know.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "format/rows.h"

namespace Korvel::CANTORIS::PLX {
class NoteBase;
} // namespace Korvel::CANTORIS::PLX

namespace Korvel::CANTORIS::PLX::format {

enum class LossReason : std::uint8_t {
    missing,     // a required key, in the object at the path
    wrongKind,   // a value of another kind than the key's
    notAccepted, // a number out of range, or a text that breaks its rule
    tooFew,      // a list with too few elements
    tooMany,
    repeatedKey, // the first one counts
    unknownKey,
    notLookedAt, // because of another key of the same object
    duplicate,   // what may be there only once is there already
    clamped,     // a number that no float holds; what comes nearest is taken
    noWaveFile,  // of that name
    object,      // an object, because of what was lost in it
};

// What is lost in an object is told when it is met. If the object itself is lost, that is told later.
struct Loss {
    LossReason reason;
    std::string path;         // a JSON pointer
    std::size_t place;        // in the document's text as UTF-8 without a mark; see placeInFile()
    const keys::Shape* shape; // of the object that the value belongs to, or of the object that is
                              // or should be here
    const keys::Row* row;     // of the value or of the list that it is in; null for an unknown key
    bool isElement;           // of a list
    keys::Range range;        // of a number, as far as it is known
    std::string_view
        key; // that the loss is about, as the document has it; of `missing`, as the table has it
};

// Why a text is no document at all.
struct Defect {
    enum class Kind : std::uint8_t { encoding, grammar, halfSurrogate };

    Kind kind;
    std::size_t place; // as that of a loss; what stands before it is right
    int code; // of the grammar: RapidJSON's ParseErrorCode; the root is no object where it is
              // kParseErrorTermination
};

// What was taken and may be worth a second look: an ID, the type in a part's header, a note.
struct Taken {
    std::string path;
    std::size_t place;
    const NoteBase* note; // as long as its part; null for what is none
};

class Listener {
public:
    virtual void lost(const Loss& loss) = 0;
    virtual void refused(const Defect&) {}
    virtual void took(const Taken&) {}

protected:
    ~Listener() = default;
};

} // namespace Korvel::CANTORIS::PLX::format
