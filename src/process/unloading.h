// How the library leaves a process. There are two ways, which are handled differently: the host
// unloads it and continues, or the process ends with the library still in it.
#pragma once

namespace Korvel::CANTORIS::PLX::process {

// Sets the function that is called when the host unloads the library, on the thread that does so;
// it must not throw. The last function that was set counts; several threads may call this at once.
//
// When the process ends instead, nothing is called: its threads may have been stopped anywhere, with
// locks held and lists half changed, or may still be running. The system frees everything.
void atUnload(void (*release)());

} // namespace Korvel::CANTORIS::PLX::process
