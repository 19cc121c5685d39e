/**
 * @file common.h
 * Types, codes and conventions that every other header of the clip library builds on.
 *
 * ## The rules that hold for every function
 *
 * 1. **Handles.** An object of the library is seen as an opaque pointer, a handle. Each family of
 *    objects has one handle type (every clip is a `KRT_PLX_ClipBase*`, every note a
 *    `KRT_PLX_NoteBase*`). Two handles are the same object exactly when the pointers are equal.
 * 2. **Null and wrong-kind handles are safe.** A function whose name carries a narrower class
 *    (`KRT_PLX_MutableNote_...`) checks that the handle is of that class. For a null handle, and for
 *    one that fails the check, the function does nothing and returns its documented default.
 * 3. **Dead handles are not checked**, except where a function tests membership (`..._has...`,
 *    KRT_PLX_HasManager(), KRT_PLX_Manager_destroy()): those compare addresses and never look into
 *    the handle they were given. Each function that destroys objects says which handles it kills.
 * 4. **Nothing is freed by the host.** Objects and texts belong to their parents: a manager owns its
 *    clips, a clip its part, a part its notes, lanes and effects, and so on down.
 * 5. **Text** is UTF-16, ended by a NUL unit (#KRT_PLX_Char). Text passed in is copied. Text returned
 *    belongs to the object that returned it and stays valid until that object is changed or
 *    destroyed.
 * 6. **Counts** come through an out-parameter: `num...(handle, &count)` returns false, and leaves the
 *    count alone, when the handle or the count pointer is null.
 * 7. **Indexes** are unsigned 64-bit and start at 0; an index that is not below the count gives NULL
 *    (or the documented no-value mark).
 * 8. **Failures are results.** No function throws, prints, exits or aborts. If memory runs out inside
 *    a call, the call returns its documented default.
 * 9. **Threads.** The library starts none. One manager, and everything beneath it, is used from one
 *    thread at a time; different managers may be used from different threads at once. Managers may
 *    be created and destroyed from any thread.
 *
 * ## Time
 *
 * Positions and durations are signed 32-bit counts of ticks in the host's time unit. The library
 * stores them and never converts them.
 */
#ifndef KORVEL_PLX_COMMON_H
#define KORVEL_PLX_COMMON_H

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#if defined(_WIN32)
#    if defined(KRT_PLX_BUILDING_LIBRARY)
#        define KRT_PLX_VISIBLE __declspec(dllexport)
#    else
#        define KRT_PLX_VISIBLE __declspec(dllimport)
#    endif
#else
#    define KRT_PLX_VISIBLE __attribute__((visibility("default")))
#endif

/** Marks the declaration of an exported function: C linkage, visible outside the library. */
#if defined(__cplusplus)
#    define KRT_PLX_API extern "C" KRT_PLX_VISIBLE
#    define KRT_PLX_NOEXCEPT noexcept
#else
#    define KRT_PLX_API extern KRT_PLX_VISIBLE
#    define KRT_PLX_NOEXCEPT
#endif

/**
 * One UTF-16 code unit: `wchar_t` on Windows, where system calls take the same type; `char16_t`
 * elsewhere (in C the type it stands for there). Literals are written L"..." on Windows and u"..."
 * elsewhere.
 */
#if defined(_WIN32)
#    if !defined(__cplusplus)
#        include <wchar.h>
#    endif
typedef wchar_t KRT_PLX_Char;
#elif defined(__cplusplus)
typedef char16_t KRT_PLX_Char;
#else
typedef uint_least16_t KRT_PLX_Char;
#endif

/** The root of one clip catalogue; see manager.h. */
typedef struct KRT_PLX_Manager KRT_PLX_Manager;
/** A clip of any kind: system, user or mutable; see clip.h. */
typedef struct KRT_PLX_ClipBase KRT_PLX_ClipBase;
/** The editor of a user clip's catalogue properties; see clip.h. */
typedef struct KRT_PLX_PropertyEditor KRT_PLX_PropertyEditor;
/** The search tags of a clip; see filter.h. */
typedef struct KRT_PLX_Filter KRT_PLX_Filter;
/** A MIDI or audio part, read-only or editable; see part.h. */
typedef struct KRT_PLX_PartBase KRT_PLX_PartBase;
/** A note, read-only or editable; see note.h. */
typedef struct KRT_PLX_NoteBase KRT_PLX_NoteBase;
/** A voice-quality component at a note's start or end; see expression.h. */
typedef struct KRT_PLX_DvqmBase KRT_PLX_DvqmBase;
/** A note's weighted ornament; see expression.h. */
typedef struct KRT_PLX_SingingSkillBase KRT_PLX_SingingSkillBase;
/** A note's vibrato; see expression.h. */
typedef struct KRT_PLX_VibratoBase KRT_PLX_VibratoBase;
/** A point of a vibrato's depth or rate curve; see expression.h. */
typedef struct KRT_PLX_VibratoParameterBase KRT_PLX_VibratoParameterBase;
/** A controller lane of a MIDI part; see controller.h. */
typedef struct KRT_PLX_MidiControllerBase KRT_PLX_MidiControllerBase;
/** An event of a controller lane; see controller.h. */
typedef struct KRT_PLX_MidiEventBase KRT_PLX_MidiEventBase;
/** An audio or MIDI effect of a part; see effect.h. */
typedef struct KRT_PLX_EffectBase KRT_PLX_EffectBase;
/** A named value of an effect; see effect.h. */
typedef struct KRT_PLX_EffectParameterBase KRT_PLX_EffectParameterBase;

#endif
