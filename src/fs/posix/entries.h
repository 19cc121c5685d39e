// The entries of a folder, as the system lists them.
#pragma once

#include "fs/posix/system.h"

namespace Korvel::CANTORIS::PLX::fs {

struct Entry {
    enum class Kind : unsigned char { file, folder, other, unknown }; // a link is unknown

    int folder; // open only during the visit
    const char* name;
    Kind kind;
};

// Visits each entry in the order of the file system, except for the folder itself and its parent.
// Stops where the folder cannot be read further. False when memory ran out before the first of them.
bool visitEntries(Descriptor folder, void* visitor, void (*visit)(void* visitor, const Entry&));

template <class Visit>
bool forEachEntry(Descriptor folder, Visit visit)
{
    return visitEntries(std::move(folder), &visit, [](void* visitor, const Entry& entry) {
        (*static_cast<Visit*>(visitor))(entry);
    });
}

inline bool isSelfOrParent(const char* name)
{
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

} // namespace Korvel::CANTORIS::PLX::fs
