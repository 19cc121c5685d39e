// How the library leaves a process. There are two ways, and they have nothing in common: the host
// unloads it and goes on, or the process ends with the library still in it.
#pragma once

namespace Korvel::CANTORIS::PLX::process {

// Has `release` called when the host unloads the library, on the thread that does so; it must not
// throw. The last one given counts; calls from several threads at once are no harm.
//
// When the process ends instead, nothing is called: its threads may have been stopped anywhere, with
// locks held and lists half changed, or may still be running. The system takes everything back.
void atUnload(void (*release)());

} // namespace Korvel::CANTORIS::PLX::process
