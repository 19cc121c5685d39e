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
 *    the handle they were given. A new object may stand at the address of a dead one. Each function
 *    that destroys objects says which handles it kills.
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
 * 9. **`bool`** is one byte. Of what a host passes, 0 is false and every other byte is true; what it gets
 *    back is 0 or 1.
 * 10. **Threads.** The library starts none. One manager, and everything beneath it, is used from one
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

/** @cond */
#if defined(__has_attribute)
#    if __has_attribute(noplt)
#        define KRT_PLX_HAS_NOPLT 1
#    endif
#endif
#if !defined(KRT_PLX_HAS_NOPLT)
#    define KRT_PLX_HAS_NOPLT 0
#endif
/** @endcond */

/** @def KRT_PLX_VISIBLE
 *  Makes a function visible outside the library; part of #KRT_PLX_API. */
#if defined(_WIN32)
#    if defined(KRT_PLX_BUILDING_LIBRARY)
#        define KRT_PLX_VISIBLE __declspec(dllexport)
#    else
#        define KRT_PLX_VISIBLE __declspec(dllimport)
#    endif
#elif KRT_PLX_HAS_NOPLT && !defined(KRT_PLX_BUILDING_LIBRARY)
/* Most functions take a few nanoseconds: the detour through the linkage table would show. */
#    define KRT_PLX_VISIBLE __attribute__((visibility("default"), noplt))
#else
#    define KRT_PLX_VISIBLE __attribute__((visibility("default")))
#endif

/** @def KRT_PLX_CALL
 *  The calling convention of an exported function: that of C, whatever a host's compiler is told to use for
 *  other functions. Compilers have a choice only for 32-bit programs of Windows. */
#if defined(_WIN32)
#    define KRT_PLX_CALL __cdecl
#else
#    define KRT_PLX_CALL
#endif

/** @def KRT_PLX_API
 *  Marks the declaration of an exported function: C linkage, visible outside the library. */
/** @def KRT_PLX_NOEXCEPT
 *  Ends the declaration of an exported function: in C++ it says that the function never throws. */
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

/** What kind of part a clip holds, and what a part is: KRT_PLX_ClipBase_partType(),
 *  KRT_PLX_PartBase_type(). */
typedef enum KRT_PLX_PartType {
    /** An audio part: it names a wave file. */
    KRT_PLX_PART_AUDIO = 1,
    /** A MIDI part sung by an AI voice. */
    KRT_PLX_PART_MIDI_AI = 2,
    /** A MIDI part sung by a voice bank. */
    KRT_PLX_PART_MIDI = 3,
    /** No part: an editable clip that has none yet, or a null handle. */
    KRT_PLX_PART_NONE = 4
} KRT_PLX_PartType;

/** Where a catalogue clip comes from: KRT_PLX_Clip_type(). */
typedef enum KRT_PLX_ClipKind {
    /** A factory clip from a system clip directory; it cannot be changed or removed. */
    KRT_PLX_CLIP_SYSTEM = 0,
    /** A clip from a user clip directory. */
    KRT_PLX_CLIP_USER = 1,
    /** The handle is null or no catalogue clip. */
    KRT_PLX_CLIP_NO_KIND = 2
} KRT_PLX_ClipKind;

/**
 * Result codes of KRT_PLX_CreateManager(), KRT_PLX_Manager_readAllClipFiles(),
 * KRT_PLX_Manager_readUserClipFiles() and KRT_PLX_MutableClip_save().
 *
 * Compare them with the `uint32_t` that these functions hand out. Each function says which codes it
 * uses. Values that are missing here are not used by this version.
 */
typedef enum KRT_PLX_Result {
    /** Done. */
    KRT_PLX_RESULT_OK = 0,
    /** Creation: the application ID or a directory is null. Saving: the name is null. */
    KRT_PLX_RESULT_NULL_ARGUMENT = 2,
    /** Creation: the application ID is empty. */
    KRT_PLX_RESULT_EMPTY_APP_ID = 6,
    /** Creation: the system clip directory is no existing directory. Reading: the main directory of
     *  a list that is being read is no existing directory. */
    KRT_PLX_RESULT_DIRECTORY_MISSING = 7,
    /** Creation: the user clip directory could not be created. Saving: the new clip's folder or the
     *  "audio" folder in it could not be created. */
    KRT_PLX_RESULT_DIRECTORY_NOT_CREATED = 8,
    /** Saving: the user clip directory does not exist (any more). */
    KRT_PLX_RESULT_USER_DIRECTORY_MISSING = 9,
    /** Saving: the name is empty. */
    KRT_PLX_RESULT_EMPTY_NAME = 10,
    /** Saving: the clip is none of its manager's editable clips. No live handle leads to it. */
    KRT_PLX_RESULT_UNKNOWN_CLIP = 12,
    /** Saving: the clip has no part. */
    KRT_PLX_RESULT_NO_PART = 13,
    /** Saving an audio part: it names no wave file, or the file is gone or is a folder. */
    KRT_PLX_RESULT_WAVE_FILE_MISSING = 14,
    /** Saving an audio part: the wave file could not be copied, or its path holds no backslash. */
    KRT_PLX_RESULT_WAVE_FILE_NOT_COPIED = 15,
    /** Saving: a document could not be opened. */
    KRT_PLX_RESULT_FILE_NOT_OPENED = 16,
    /** Saving: a document could not be written (the disk is full, a text holds a lone surrogate, a
     *  number is not finite), or could not be read back. */
    KRT_PLX_RESULT_FILE_NOT_WRITTEN = 17,
    /** Saving a part of type #KRT_PLX_PART_MIDI: it has no voice bank ID. */
    KRT_PLX_RESULT_NO_VOICE_BANK = 18,
    /** Saving a part of type #KRT_PLX_PART_MIDI: its language was never set. */
    KRT_PLX_RESULT_BAD_LANGUAGE = 19,
    /** Saving a part of type #KRT_PLX_PART_MIDI_AI: it has no AI voice bank ID. */
    KRT_PLX_RESULT_NO_AI_VOICE_BANK = 20,
    /** Saving a part of type #KRT_PLX_PART_MIDI_AI: it has no AI language. */
    KRT_PLX_RESULT_NO_AI_LANGUAGE = 21,
    /** Saving a part of type #KRT_PLX_PART_MIDI_AI: an AI language is above 127. The setters let
     *  none in. */
    KRT_PLX_RESULT_BAD_AI_LANGUAGE = 22,
    /** Reading: the manager handle is null, or memory ran out. */
    KRT_PLX_RESULT_NO_MANAGER = 23
} KRT_PLX_Result;

/*
 * How large documents may be, in bytes. A larger one is refused: it is not read, and saving or editing
 * that would write one fails before anything is made or changed.
 */

/** The largest `property.json`: 16 MiB. */
#define KRT_PLX_PROPERTY_DOCUMENT_LIMIT 16777216

/** The largest clip file (`.kxclip`): 1 GiB. */
#define KRT_PLX_DATA_DOCUMENT_LIMIT 1073741824

/*
 * Marks for "there is no such value". Each function names the mark that it returns.
 */

/** No part key; a real one is 0 to 30. */
#define KRT_PLX_NO_KEY 31u

/** No handle to take a tempo from; a real tempo is 0 (none given) or 2000 to 30000, in hundredths
 *  of a beat per minute. */
#define KRT_PLX_NO_TEMPO 0xFFFFFFFFu

/** No language (a live object has none, or the index is past the end); a real one is 0 to 127. */
#define KRT_PLX_NO_LANGUAGE 0xFFFFFFFFu

/** What most functions with an `int32_t` result return for a null or rejected handle. */
#define KRT_PLX_NO_INT32 INT32_MIN

/** What most functions with a `uint32_t` result return for a null or rejected handle: the same 32
 *  bits as #KRT_PLX_NO_INT32. */
#define KRT_PLX_NO_UINT32 0x80000000u

#endif
