// Changing an existing document.
#pragma once

#include <string_view>

#include "fs/fs.h"

namespace Korvel::CANTORIS::PLX::format {

// Replaces the content of a property document, or makes the document if there is none. At every
// moment the file holds a whole document, the old or the new one, even if the program is killed,
// the disk is full or the power fails, as far as fs::HeldFile::write can promise it. False when the
// new document is not on the disk: then it is the old one, unless the disk did not even accept that
// again.
bool rewriteDocument(const fs::Path& path, std::string_view document);

} // namespace Korvel::CANTORIS::PLX::format
