#pragma once

#include <windows.h>

namespace Korvel::CANTORIS::PLX::fs {

// What an entry of a folder is.
enum class Sort {
    file,
    folder,
    link,    // it stands for something elsewhere, and is removed without it
    special, // a device, a pipe or a socket
};

// Decided by what an entry is, not by whether the system attaches something to it: programs that keep
// folders in a cloud, the removal of duplicates and compression mark plain files and folders too.
// `tag` is the kind of mark of an entry that has one, or 0 where it is not known: such an entry counts as
// a link, since a link that is taken for a folder costs what is elsewhere.
Sort sortOf(DWORD attributes, DWORD tag);

} // namespace Korvel::CANTORIS::PLX::fs
