// A parsed JSON document.
#pragma once

#include <string>

#include "reference/tree.h"

namespace Korvel::CANTORIS::PLX::reference {

// Parses one document after the other, each in place of the last, and keeps its memory from one to
// the next: a scan reads tens of thousands of small ones.
class Document {
public:
    Document();

    // Takes the bytes of a document in any Unicode encoding and parses them in place: they must stay
    // as this call leaves them for as long as the root is used. Null unless the text is one JSON value
    // by the letter of the grammar and that value is an object.
    const Value* parse(std::string& bytes);

private:
    ThrowingAllocator memory_;
    std::string poolBuffer_;
    Pool pool_;
    Tree tree_;
};

} // namespace Korvel::CANTORIS::PLX::reference
