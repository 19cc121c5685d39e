// Where a new key belongs in an object.
#pragma once

#include <string_view>

#include "document/document.h"
#include "format/rows.h"

namespace plxclip::document {

// The last member that the table of keys has before this key; null if there is none.
inline Node* neighbourOf(Node& object, const Korvel::CANTORIS::PLX::format::keys::Shape& shape,
                         std::string_view key)
{
    Node* last = nullptr;
    for (const auto& row : shape.rows) {
        if (row.key == key) {
            break;
        }
        Node* const found = Document::member(&object, row.key);
        last = found != nullptr ? found : last;
    }
    return last;
}

} // namespace plxclip::document
