/**
 * @file plx.h
 * The clip library: everything that a host needs, in one include.
 *
 * A clip is a short, reusable phrase for a singing-voice editor: notes to be sung, or a wave file,
 * with a name and search tags. The library reads clips from folders into a catalogue, lets the host
 * look at everything in them, and saves, edits and removes the clips of the user. It has no user
 * interface, writes no messages, starts no threads, and reads no settings: what it does depends on
 * its arguments and on the clip folders alone.
 *
 * Read common.h first: it holds the rules that every function follows (handles, texts, counts,
 * results, threads). The other headers are one family of objects each and can be included alone.
 *
 * ## What there is, and who owns whom
 *
 * Each object is owned by the one it hangs from and is destroyed with it. The host frees nothing.
 *
 * @code{.unparsed}
 * Manager                               one for each application ID        manager.h
 * |
 * +-- system clips          0..n        factory clips, read-only           clip.h
 * +-- user clips            0..n        clips of the user, read-only
 * |   +-- PropertyEditor    0..1        changes name, types, genres, key, tempo
 * +-- editable clips        0..n        new clips in the making
 *
 * every clip
 * |
 * +-- Filter                1           search tags                        filter.h
 * +-- part                  0..1        a MIDI part or an audio part       part.h
 *
 * MIDI part
 * |
 * +-- notes                 0..n        by position                        note.h
 * |   +-- attack            1           voice quality at the start (Dvqm)  expression.h
 * |   +-- release           1           voice quality at the end (Dvqm)
 * |   +-- singing skill     1           a weighted ornament
 * |   +-- vibrato           1
 * |       +-- depth points  0..n        by position
 * |       +-- rate points   0..n        by position
 * +-- controller lanes      0..12       one for each type, by type         controller.h
 * |   +-- events            0..n        by position
 * +-- MIDI effects          0..n        a chain                            effect.h
 * |   +-- parameters        0..n        by name
 * +-- audio effects         0..n        a chain
 *     +-- parameters        0..n        by name
 *
 * audio part                            names a wave file
 * |
 * +-- audio effects         0..n        a chain
 *     +-- parameters        0..n        by name
 * @endcode
 *
 * The parts of system and user clips, and all that hangs from them, are read-only; those of
 * editable clips are editable. Both variants of a family have one handle type and share the reading
 * functions named `KRT_PLX_<Family>Base_...`. Functions for the read-only variant alone are named
 * `KRT_PLX_<Family>_...`, those for the editable variant `KRT_PLX_Mutable<Family>_...`; each
 * rejects the other variant. `..._parent` leads up from an object to its owner.
 *
 * ## A first host
 *
 * This lists the system clips with the number of notes in each:
 *
 * @code{.c}
 * #include <korvel/plx.h>
 * #include <stdio.h>
 *
 * uint32_t listClips(const KRT_PLX_Char* systemFolder, const KRT_PLX_Char* userFolder)
 * {
 *     static const KRT_PLX_Char appID[] = {'d', 'e', 'm', 'o', 0};
 *     uint64_t clips = 0;
 *     uint32_t code = KRT_PLX_RESULT_OK;
 *     KRT_PLX_Manager* manager =
 *         KRT_PLX_CreateManager(appID, systemFolder, userFolder, NULL, 0, NULL, 0, &code);
 *     if (manager == NULL) return code;
 *     code = KRT_PLX_Manager_readAllClipFiles(manager);
 *     KRT_PLX_Manager_numSystemClips(manager, &clips);
 *     for (uint64_t i = 0; i < clips; ++i) {
 *         uint64_t notes = 0;
 *         KRT_PLX_ClipBase* clip = KRT_PLX_Manager_systemClip(manager, i);
 *         KRT_PLX_Clip_readPart(clip);
 *         KRT_PLX_MidiPartBase_numNotes(KRT_PLX_Clip_midiPart(clip), &notes);
 *         printf("clip %d: %d notes\n", (int)i, (int)notes);
 *     }
 *     KRT_PLX_Manager_destroy(manager);
 *     return code;
 * }
 * @endcode
 *
 * It needs no further checks: for an audio clip, or one that cannot be read,
 * KRT_PLX_Clip_midiPart() returns NULL, and for that handle KRT_PLX_MidiPartBase_numNotes() returns
 * false and leaves the count at 0. Such chains work everywhere in the library. How a clip is built
 * and saved is shown in clip.h, under MutableClip.
 *
 * ## What ends the life of a handle
 *
 * A handle is dead when its object is destroyed, and so are the handles of all that the object
 * owned. Using a dead handle is an error that the library does not detect, except in the functions
 * that say so.
 *
 * | call                                           | destroys                                |
 * |------------------------------------------------|-----------------------------------------|
 * | KRT_PLX_Manager_destroy()                      | the manager                             |
 * | unloading the library                          | all managers                            |
 * | KRT_PLX_Manager_readAllClipFiles()             | all system clips and all user clips     |
 * | KRT_PLX_Manager_readUserClipFiles()            | all user clips                          |
 * | KRT_PLX_UserClip_remove() that returns true    | the clip                                |
 * | KRT_PLX_Clip_readPart() that returns true      | the part that was loaded before         |
 * | KRT_PLX_UserClip_createPropertyEditor()        | the editor that the clip had            |
 * | KRT_PLX_UserClip_destroyPropertyEditor()       | the editor that the clip has            |
 * | `KRT_PLX_MutableClip_create...Part`            | the part that the clip had              |
 * | KRT_PLX_MutableClip_destroy()                  | the clip                                |
 * | `KRT_PLX_Mutable..._remove`                    | the object                              |
 * | KRT_PLX_MutableMidiEvent_move()                | the event that stood at the position    |
 * | KRT_PLX_MutableVibratoParameter_move()         | the point that stood at the position    |
 *
 * Inserting, adding and moving leave all other handles alive.
 */
#ifndef KORVEL_PLX_H
#define KORVEL_PLX_H

#include "plx/common.h"

#include "plx/clip.h"
#include "plx/controller.h"
#include "plx/effect.h"
#include "plx/expression.h"
#include "plx/filter.h"
#include "plx/manager.h"
#include "plx/note.h"
#include "plx/part.h"
#include "plx/version.h"

#endif
