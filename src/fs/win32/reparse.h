#pragma once

#include <windows.h>

namespace Korvel::CANTORIS::PLX::fs {

// The kinds of entries of a folder.
enum class Sort {
    file,
    folder,
    link,    // it stands for something elsewhere, which stays when the link is removed
    special, // a device, a pipe or a socket
};

// Decides by what an entry is, not by whether it is marked: programs that keep folders in a cloud,
// deduplication and compression mark plain files and folders too. `tag` is the kind of mark of a
// marked entry, or 0 if it is not known: such an entry counts as a link, because a link that is
// mistaken for a folder could cost data elsewhere.
Sort sortOf(DWORD attributes, DWORD tag);

} // namespace Korvel::CANTORIS::PLX::fs
