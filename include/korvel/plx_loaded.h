/**
 * @file plx_loaded.h
 * All functions of plx.h in a host that loads the library at run time, under their usual names. So a host
 * that loads can use korvel/plx.hpp, KRT_PLX_Kit_linked(), and code that was written for linked hosts.
 *
 * A host of this kind links the small static library `krt_plx_loaded` (CMake: `krt_plx::loaded`) **in
 * place of** `krt_plx`; with the kit it links `krt_plx_kit` before it. `krt_plx_loaded` has a function of
 * each name, which passes the call on to the library that KRT_PLX_loadForAll() has loaded.
 *
 * @code{.c}
 * #include <korvel/plx_loaded.h>
 *
 * bool useLibrary(const KRT_PLX_PathChar* path)
 * {
 *     if (!KRT_PLX_loadForAll(path, NULL, NULL)) return false;
 *     KRT_PLX_HasManager(NULL);
 *     return KRT_PLX_unloadForAll();
 * }
 * @endcode
 *
 * **While nothing is loaded** every function is safe to call. It does nothing, whatever it is passed,
 * returns what it returns for a null handle, and writes to no out-parameter.
 *
 * **Threads.** While KRT_PLX_loadForAll() or KRT_PLX_unloadForAll() runs, no other thread may be in one
 * of the two or in a function of plx.h. Load before the threads start that use the library, and unload
 * after they have ended.
 *
 * **Modules.** A program has one library loaded this way. The functions are not visible outside the
 * module that they are linked into: a shared library (a plug-in, for instance) that links
 * `krt_plx_loaded` as well has functions of its own and loads for itself.
 */
#ifndef KORVEL_PLX_LOADED_H
#define KORVEL_PLX_LOADED_H

#include <korvel/plx_loader.h>

#if defined(__cplusplus)
extern "C" {
#endif

/**
 * Loads a library, which from then on does the work of all functions of plx.h.
 *
 * It is found and checked as KRT_PLX_load() does it: a library that lacks a function is refused, and each
 * missing one is reported. If a library is loaded already, it stays in use and nothing is loaded; that is
 * reported as #KRT_PLX_LOAD_NOT_LOADED.
 *
 * @param path     where the library is, see #KRT_PLX_PathChar; not NULL; not used after the call
 * @param report   is called for each problem, before this function returns; must not throw; may be NULL
 * @param context  passed to `report`
 * @return true when this call has loaded the library; false otherwise, and for a null `path`
 */
bool KRT_PLX_loadForAll(
    const KRT_PLX_PathChar* path, KRT_PLX_LoadReport report, void* context) KRT_PLX_NOEXCEPT;

/**
 * Unloads the library that KRT_PLX_loadForAll() has loaded. Another one may be loaded afterwards.
 *
 * As with KRT_PLX_unload(), the system removes it from the process unless someone else has loaded it too.
 * Then its managers are destroyed, and every handle and every text that came from it becomes invalid. The
 * host must do this itself: the library is not unloaded before the process ends otherwise.
 *
 * @return true when the system has released the library; false when none was loaded, and when the system
 *         refuses. None is in use afterwards in any case.
 */
bool KRT_PLX_unloadForAll(void) KRT_PLX_NOEXCEPT;

#if defined(__cplusplus)
}
#endif

#endif
