#pragma once

#include <memory>

#include "reference/tree.h"
#include "reference/values.h"
#include "fs/fs.h"
#include "model/part.h"

namespace Korvel::CANTORIS::PLX::reference {

using DataMembers = Members<schema::data::keys.size()>;

// The part of a data document: the first of the part keys that is there decides, and it alone is
// looked at. Null when it fails and when there is none.
std::unique_ptr<PartBase> readPart(const DataMembers& members, const fs::Path& clipDirectory,
                                   ClipBase* clip);

} // namespace Korvel::CANTORIS::PLX::reference
