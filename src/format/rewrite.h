// Changing a document that is there already.
#pragma once

#include <string_view>

#include "fs/fs.h"

namespace Korvel::CANTORIS::PLX::format {

// Replaces the content of a property document, or makes the document where there is none. At every
// moment the file holds a whole document, the old or the new one, also if the program is killed, the
// disk is full or the power goes: within what fs::HeldFile::write can promise. False when the new one
// does not stand there, on the disk: then it is the old one, unless the disk failed even to take that
// back.
bool rewriteDocument(const fs::Path& path, std::string_view document);

} // namespace Korvel::CANTORIS::PLX::format
