/**
 * @file clip.h
 * Clips: what every clip tells, catalogue clips, changing and removing user clips, building new
 * ones.
 *
 * Every clip is a `KRT_PLX_ClipBase*`. What it is decides which functions take it; the others
 * reject it and return what they return for a null handle.
 *
 * | functions                 | system clip | user clip | editable clip |
 * |---------------------------|-------------|-----------|---------------|
 * | `KRT_PLX_ClipBase_...`    | yes         | yes       | yes           |
 * | `KRT_PLX_Clip_...`        | yes         | yes       | no            |
 * | `KRT_PLX_UserClip_...`    | no          | yes       | no            |
 * | `KRT_PLX_MutableClip_...` | no          | no        | yes           |
 *
 * System and user clips come from the manager's lists and are read-only. Editable clips come from
 * KRT_PLX_Manager_createMutableClip() and stand in no list; saving one makes a new user clip.
 *
 * A clip has at most one part, MIDI or audio (part.h), and exactly one filter, its search tags
 * (filter.h).
 */
#ifndef KORVEL_PLX_CLIP_H
#define KORVEL_PLX_CLIP_H

#include "common.h"

/**
 * @defgroup korvel_plx_clip_base ClipBase
 *
 * What every clip tells, whether system, user or editable clip.
 * @{
 */

/**
 * Returns the manager that the clip belongs to.
 *
 * @param clip  any clip
 * @return the manager; NULL for a null handle
 */
KRT_PLX_API KRT_PLX_Manager* KRT_PLX_CALL KRT_PLX_ClipBase_parent(
    KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/**
 * Returns the vendor name.
 *
 * @param clip  any clip
 * @return text owned by the clip, empty when the clip has no vendor; valid as long as a catalogue
 *         clip lives, and for an editable clip until KRT_PLX_MutableClip_setVendorName(); NULL for
 *         a null handle
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_ClipBase_vendorName(
    KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/**
 * Tells the type of the clip's part.
 *
 * While a part is loaded, this is that part's type. A catalogue clip without a loaded part reports
 * the type that its catalogue properties name, so that a browser need not load parts to show it.
 *
 * @param clip  any clip
 * @return a value of #KRT_PLX_PartType; #KRT_PLX_PART_NONE for an editable clip without a part and
 *         for a null handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_ClipBase_partType(
    KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/**
 * Returns the key of the part.
 *
 * The library stores the number and gives it no meaning. 0 is also what a clip reports whose file
 * names no key; the file of an audio clip never does.
 *
 * @param clip  any clip
 * @return 0 to 30; #KRT_PLX_NO_KEY for a null handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_ClipBase_partKey(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/**
 * Returns the tempo of the part.
 *
 * The file of an audio clip names none: after reading, an audio clip reports 0.
 *
 * @param clip  any clip
 * @return the tempo in hundredths of a beat per minute, 2000 to 30000 (12050 is 120.5 beats per
 *         minute); 0 when the clip has no tempo; #KRT_PLX_NO_TEMPO for a null handle
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_ClipBase_partTempo(
    KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_clip Clip
 *
 * System and user clips, the clips of the catalogue. Get them from KRT_PLX_Manager_systemClip() and
 * KRT_PLX_Manager_userClip().
 *
 * A clip that was listed from its `property.json` has no part until KRT_PLX_Clip_readPart() loads
 * it. One that had to be listed from its clip file alone has its part already. Calling
 * KRT_PLX_Clip_readPart() before you walk a part is right in both cases.
 *
 * Texts belong to the clip and are valid as long as it lives, with one exception: a
 * KRT_PLX_PropertyEditor_save() on a user clip ends the validity of its name.
 * @{
 */

/**
 * Returns the clip ID, which is unique within its list.
 *
 * @param clip  a system or user clip
 * @return text owned by the clip, never empty, valid as long as the clip lives; NULL for a handle
 *         that is null or no `Clip`
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_Clip_id(
    KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/**
 * Returns the clip's name, for display.
 *
 * @param clip  a system or user clip
 * @return text owned by the clip, never empty, valid until the clip dies or a property editor of it
 *         is saved; NULL for a handle that is null or no `Clip`
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_Clip_name(
    KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/**
 * Tells whether the clip is a system or a user clip.
 *
 * @param clip  a clip
 * @return #KRT_PLX_CLIP_SYSTEM or #KRT_PLX_CLIP_USER; #KRT_PLX_CLIP_NO_KIND for a handle that is
 *         null or no `Clip`, such as an editable clip's
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_Clip_type(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/**
 * Returns the full path of the clip file.
 *
 * It starts with the directory as it was passed to KRT_PLX_CreateManager(); from there on the
 * separator is the backslash, on every system (see manager.h).
 *
 * @param clip  a system or user clip
 * @return text owned by the clip, valid as long as the clip lives; NULL for a handle that is null
 *         or no `Clip`
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_Clip_path(
    KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/**
 * Returns the clip's search tags.
 *
 * @param clip  a system or user clip
 * @return the filter, read-only, owned by the clip and valid as long as the clip lives; NULL for a
 *         handle that is null or no `Clip`
 */
KRT_PLX_API KRT_PLX_Filter* KRT_PLX_CALL KRT_PLX_Clip_filter(
    KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/**
 * Loads the clip's part from the clip file.
 *
 * Each call opens and reads the file anew. On success **the part that was loaded before is
 * destroyed**, and all handles into it are dead. On failure that part stays, with its handles.
 *
 * Only the part is read: name, vendor, key, tempo and tags stay as they are. The file's "audio"
 * part is taken, else its "midiAi" part, else its "midi" part; KRT_PLX_ClipBase_partType() reports
 * the type of the part that was taken.
 *
 * It fails when the file cannot be read, is no well-formed document, holds no part, or holds one
 * that lacks something a part must have: a MIDI part its duration or its voice, an audio part its
 * wave file (which must exist). Notes, events, effects and other elements that break a rule are
 * left out one by one and make nothing fail.
 *
 * @param clip  a system or user clip
 * @return true when a part was loaded; false on failure and for a handle that is null or no `Clip`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_Clip_readPart(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/**
 * Returns the loaded part if it is an audio part.
 *
 * @param clip  a system or user clip
 * @return a read-only audio part, owned by the clip and valid until the next successful
 *         KRT_PLX_Clip_readPart() or the clip's end; NULL when no part is loaded, when it is a MIDI
 *         part, and for a handle that is null or no `Clip`
 */
KRT_PLX_API KRT_PLX_PartBase* KRT_PLX_CALL KRT_PLX_Clip_audioPart(
    KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a handle is the clip's loaded audio part.
 *
 * Compares addresses only and does not look into `element`: a dead handle may be passed. A new
 * object may stand at the address of a dead one, which then counts as found.
 *
 * @param clip     a system or user clip
 * @param element  any part handle, alive or dead
 * @return true when it is that part; false otherwise, for a null `element`, and for a handle that
 *         is null or no `Clip`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_Clip_hasAudioPart(
    KRT_PLX_ClipBase* clip, KRT_PLX_PartBase* element) KRT_PLX_NOEXCEPT;

/**
 * Returns the loaded part if it is a MIDI part, of either MIDI type.
 *
 * @param clip  a system or user clip
 * @return a read-only MIDI part, owned by the clip and valid until the next successful
 *         KRT_PLX_Clip_readPart() or the clip's end; NULL when no part is loaded, when it is an
 *         audio part, and for a handle that is null or no `Clip`
 */
KRT_PLX_API KRT_PLX_PartBase* KRT_PLX_CALL KRT_PLX_Clip_midiPart(
    KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a handle is the clip's loaded MIDI part.
 *
 * Compares addresses only and does not look into `element`: a dead handle may be passed. A new
 * object may stand at the address of a dead one, which then counts as found.
 *
 * @param clip     a system or user clip
 * @param element  any part handle, alive or dead
 * @return true when it is that part; false otherwise, for a null `element`, and for a handle that
 *         is null or no `Clip`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_Clip_hasMidiPart(
    KRT_PLX_ClipBase* clip, KRT_PLX_PartBase* element) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_user_clip UserClip
 *
 * What can be done to a user clip: removing it, and editing its catalogue properties through a
 * property editor. System clips are rejected.
 * @{
 */

/**
 * Deletes a user clip from disk and from the catalogue.
 *
 * Deleted are, in this order: the clip file; the `property.json` beside it; the folder of the wave
 * file, with everything in it, if an audio part is **loaded** and that folder is the folder `audio`
 * beside the clip file or lies inside it; the clip's own folder, if it is empty by then. Then the
 * clip leaves the list and **its handle and all handles beneath it are dead**. Links are removed,
 * `audio` itself included, and never what they lead to; what lies behind a link on the way from the
 * clip's folder to that of the wave file stays.
 *
 * Three things to know:
 * - Call KRT_PLX_Clip_readPart() first when the clip is an audio clip. Without a loaded part its
 *   wave file stays on disk, and so does its folder. No later reading lists what is left.
 * - A clip folder that holds other files stays, with these files.
 * - The clip's own folder is the folder of its clip file, whichever that is. If the file lay
 *   directly in a user clip directory and nothing else does, that directory is removed.
 *
 * A clip file or `property.json` that is already gone counts as deleted. When the wave file's
 * folder or the clip's folder cannot be deleted, it stays and the result is true all the same.
 *
 * When the result is false, the clip stays listed and its handle stays alive. If it was the
 * `property.json` that could not be deleted, the clip file is gone already; the call can be
 * repeated, and completes what the first began. When the list is read again, a clip without its clip
 * file is not in it.
 *
 * While another program edits or removes the clip, the call waits for it, two seconds at most; then
 * it is false and nothing has changed.
 *
 * @param clip  a user clip
 * @return true when the clip was removed; false when its clip file or `property.json` could not be
 *         deleted, and for a handle that is null or no `UserClip`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_UserClip_remove(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/**
 * Creates a property editor for a user clip.
 *
 * A clip has at most one editor: **the one it had before is destroyed**, and its handle is dead.
 *
 * The editor starts empty. It does not take over the clip's values: see the group PropertyEditor.
 *
 * @param clip  a user clip
 * @return the editor, owned by the clip and valid until the next
 *         KRT_PLX_UserClip_createPropertyEditor() or KRT_PLX_UserClip_destroyPropertyEditor() on
 *         this clip, or the clip's end; NULL for a handle that is null or no `UserClip`
 */
KRT_PLX_API KRT_PLX_PropertyEditor* KRT_PLX_CALL KRT_PLX_UserClip_createPropertyEditor(
    KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/**
 * Destroys the property editor that the clip has.
 *
 * **The argument `editor` is not looked at.** Whichever editor the clip has is destroyed, and its
 * handle is dead, even when `editor` is null, dead or another clip's. A clip without an editor, and
 * a handle that is null or no `UserClip`, make this do nothing. Changes that were not saved are
 * lost.
 *
 * @param clip    a user clip
 * @param editor  ignored; pass the editor for the reader's sake
 */
KRT_PLX_API void KRT_PLX_CALL KRT_PLX_UserClip_destroyPropertyEditor(
    KRT_PLX_ClipBase* clip, KRT_PLX_PropertyEditor* editor) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_property_editor PropertyEditor
 *
 * Changing the catalogue properties of a user clip: name, types, genres, key and tempo. Get an
 * editor from KRT_PLX_UserClip_createPropertyEditor(), set **all five**, save, and destroy it.
 *
 * The editor does not start from the clip's values, and its own cannot be read back. What you do
 * not set is saved as it starts: no types, no genres, key 0, tempo 0. The name starts empty, and
 * without one saving fails. To keep a value, read it from the clip and set it. Types and genres can
 * be added and not taken back; to start over, create a new editor.
 *
 * Nothing changes in the clip or on disk before KRT_PLX_PropertyEditor_save().
 * @{
 */

/**
 * Sets the new name.
 *
 * @param editor  a property editor
 * @param text    the name, of any length
 * @return true; false, with the editor unchanged, when `text` is null or empty, and for a null
 *         handle
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_PropertyEditor_setClipName(
    KRT_PLX_PropertyEditor* editor, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/**
 * Adds a filter type.
 *
 * The editor keeps types in ascending order of their UTF-16 units, whatever the order of the calls.
 * Unlike KRT_PLX_MutableFilter_addType(), it answers **false** when the text was added before (and
 * keeps it once).
 *
 * @param editor  a property editor
 * @param text    the type, of any length
 * @return true when it was added; false when it was there already, when `text` is null or empty,
 *         and for a null handle
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_PropertyEditor_addFilterType(
    KRT_PLX_PropertyEditor* editor, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/**
 * Adds a filter genre.
 *
 * The editor keeps genres in ascending order of their UTF-16 units, whatever the order of the
 * calls. Unlike KRT_PLX_MutableFilter_addGenre(), it answers **false** when the text was added
 * before (and keeps it once).
 *
 * @param editor  a property editor
 * @param text    the genre, of any length
 * @return true when it was added; false when it was there already, when `text` is null or empty,
 *         and for a null handle
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_PropertyEditor_addFilterGenre(
    KRT_PLX_PropertyEditor* editor, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/**
 * Sets the new part key.
 *
 * @param editor  a property editor
 * @param value   the key, 0 to 30
 * @return true; false, with the editor unchanged, when `value` is above 30, and for a null handle
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_PropertyEditor_setPartKey(
    KRT_PLX_PropertyEditor* editor, uint32_t value) KRT_PLX_NOEXCEPT;

/**
 * Sets the new part tempo.
 *
 * @param editor  a property editor
 * @param value   0 for none, or 2000 to 30000 hundredths of a beat per minute
 * @return true; false, with the editor unchanged, for any other value and for a null handle
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_PropertyEditor_setPartTempo(
    KRT_PLX_PropertyEditor* editor, uint32_t value) KRT_PLX_NOEXCEPT;

/**
 * Writes the editor's values to the clip's `property.json` and takes them over into the clip.
 *
 * On success the clip reports the new name, key and tempo, and its filter the new types and genres,
 * at once. Languages, singer groups, singer IDs and vendors of the filter stay. The clip file is
 * not touched. The editor keeps its values and can be saved again.
 *
 * `property.json` is written anew, in compact form: what other programs added to it is lost. For an
 * audio clip it holds no key and no tempo; these two last until the clip is read again, and are
 * then 0. Vendor tags are not written either: they, too, last until the clip is read again, which
 * derives them anew (filter.h).
 *
 * On success the disk has the new document. On failure the clip keeps its values and the file the old
 * document: it fails when no name was set, when a text to be written holds a lone surrogate or the
 * document would be larger than #KRT_PLX_PROPERTY_DOCUMENT_LIMIT, when the file cannot be opened, is
 * a link or no plain file, when the disk is full, or when another program edits or removes the clip
 * for longer than the two seconds that the call waits. The file holds a whole document at every
 * moment, the old or the new one; the page on reliability has the limits of that.
 *
 * In either case the texts of the clip's name, types and genres that were returned before are no
 * longer valid.
 *
 * @param editor  a property editor
 * @return true when the file was written; false on failure and for a null handle
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_PropertyEditor_save(
    KRT_PLX_PropertyEditor* editor) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_mutable_clip MutableClip
 *
 * Building a clip and saving it as a new user clip. Create an editable clip with
 * KRT_PLX_Manager_createMutableClip(), give it a part, fill the part (part.h and what it leads to),
 * save, and destroy it:
 *
 * @code{.c}
 * uint32_t saveOneNote(KRT_PLX_Manager* manager, const KRT_PLX_Char* name,
 *                      const KRT_PLX_Char* voiceBankID,
 *                      const KRT_PLX_Char* lyric, const KRT_PLX_Char* phoneme)
 * {
 *     const uint32_t language = 1;
 *     uint32_t code = KRT_PLX_RESULT_NO_MANAGER;
 *     KRT_PLX_ClipBase* clip = KRT_PLX_Manager_createMutableClip(manager);
 *     KRT_PLX_PartBase* part = KRT_PLX_MutableClip_createMidiPart(clip);
 *     KRT_PLX_MutableMidiPart_setVoiceBankID(part, voiceBankID);
 *     KRT_PLX_MutableMidiPart_setLangID(part, language);
 *     KRT_PLX_MutableMidiPart_setDuration(part, 1920);
 *     KRT_PLX_NoteBase* note =
 *         KRT_PLX_MutableMidiPart_insertNote(part, 0, 480, lyric, phoneme, language);
 *     KRT_PLX_MutableNote_setNumber(note, 64);
 *     KRT_PLX_MutableNote_setVelocity(note, 100);
 *     KRT_PLX_MutableClip_setPartTempo(clip, 12000);
 *     KRT_PLX_MutableClip_save(clip, name, true, &code);
 *     KRT_PLX_MutableClip_destroy(clip);
 *     return code;
 * }
 * @endcode
 *
 * Key, tempo, vendor name and part type are read back with the `KRT_PLX_ClipBase_...` functions.
 *
 * A part once given can be replaced and not taken away.
 * @{
 */

/**
 * Returns the clip's part if it is an audio part.
 *
 * @param clip  an editable clip
 * @return an editable audio part, owned by the clip and valid until a part is created in its place
 *         or the clip is destroyed; NULL when the clip has no part or a MIDI part, and for a handle
 *         that is null or no `MutableClip`
 */
KRT_PLX_API KRT_PLX_PartBase* KRT_PLX_CALL KRT_PLX_MutableClip_audioPart(
    KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/**
 * Returns the clip's part if it is a MIDI part, of either MIDI type.
 *
 * @param clip  an editable clip
 * @return an editable MIDI part, owned by the clip and valid until a part is created in its place
 *         or the clip is destroyed; NULL when the clip has no part or an audio part, and for a
 *         handle that is null or no `MutableClip`
 */
KRT_PLX_API KRT_PLX_PartBase* KRT_PLX_CALL KRT_PLX_MutableClip_midiPart(
    KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a handle is what KRT_PLX_MutableClip_audioPart() returns.
 *
 * That includes NULL: **a null `element` gives true when the clip has no audio part.** (The
 * functions of the same name for catalogue clips and for parts answer false for null.) Compares
 * addresses only and does not look into `element`: a dead handle may be passed. A new object may
 * stand at the address of a dead one, which then counts as found.
 *
 * @param clip     an editable clip
 * @param element  any part handle, alive or dead, or null
 * @return true when it is the clip's audio part, or when it is null and the clip has none; false
 *         otherwise, and for a `clip` that is null or no `MutableClip`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableClip_hasAudioPart(
    KRT_PLX_ClipBase* clip, KRT_PLX_PartBase* element) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a handle is what KRT_PLX_MutableClip_midiPart() returns.
 *
 * That includes NULL: **a null `element` gives true when the clip has no MIDI part.** (The
 * functions of the same name for catalogue clips and for parts answer false for null.) Compares
 * addresses only and does not look into `element`: a dead handle may be passed. A new object may
 * stand at the address of a dead one, which then counts as found.
 *
 * @param clip     an editable clip
 * @param element  any part handle, alive or dead, or null
 * @return true when it is the clip's MIDI part, or when it is null and the clip has none; false
 *         otherwise, and for a `clip` that is null or no `MutableClip`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableClip_hasMidiPart(
    KRT_PLX_ClipBase* clip, KRT_PLX_PartBase* element) KRT_PLX_NOEXCEPT;

/**
 * Gives the clip a new, empty audio part.
 *
 * **The part that the clip had is destroyed**, of whatever kind it was, and all handles into it are
 * dead.
 *
 * @param clip  an editable clip
 * @return an editable part of type #KRT_PLX_PART_AUDIO, owned by the clip and valid until the next
 *         part is created or the clip is destroyed; NULL for a handle that is null or no
 *         `MutableClip`, or when memory ran out (the old part then stays)
 */
KRT_PLX_API KRT_PLX_PartBase* KRT_PLX_CALL KRT_PLX_MutableClip_createAudioPart(
    KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/**
 * Gives the clip a new, empty MIDI part that a voice bank sings.
 *
 * **The part that the clip had is destroyed**, of whatever kind it was, and all handles into it are
 * dead. Before saving, set the voice bank ID and the language of the part.
 *
 * @param clip  an editable clip
 * @return an editable part of type #KRT_PLX_PART_MIDI, owned by the clip and valid until the next
 *         part is created or the clip is destroyed; NULL for a handle that is null or no
 *         `MutableClip`, or when memory ran out (the old part then stays)
 */
KRT_PLX_API KRT_PLX_PartBase* KRT_PLX_CALL KRT_PLX_MutableClip_createMidiPart(
    KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/**
 * Gives the clip a new, empty MIDI part that an AI voice sings.
 *
 * **The part that the clip had is destroyed**, of whatever kind it was, and all handles into it are
 * dead. Before saving, set the AI voice bank ID of the part and add at least one AI language.
 *
 * @param clip  an editable clip
 * @return an editable part of type #KRT_PLX_PART_MIDI_AI, owned by the clip and valid until the
 *         next part is created or the clip is destroyed; NULL for a handle that is null or no
 *         `MutableClip`, or when memory ran out (the old part then stays)
 */
KRT_PLX_API KRT_PLX_PartBase* KRT_PLX_CALL KRT_PLX_MutableClip_createMidiAiPart(
    KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/**
 * Returns the clip's search tags, for reading and editing.
 *
 * @param clip  an editable clip
 * @return the filter, which the `KRT_PLX_Filter_...` and the `KRT_PLX_MutableFilter_...` functions
 *         take; owned by the clip and valid as long as the clip lives; NULL for a handle that is
 *         null or no `MutableClip`
 */
KRT_PLX_API KRT_PLX_Filter* KRT_PLX_CALL KRT_PLX_MutableClip_filter(
    KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/**
 * Sets the part key. It starts at 0, and is saved for MIDI parts only.
 *
 * @param clip   an editable clip
 * @param value  the key, 0 to 30
 * @return true; false, with the key unchanged, when `value` is above 30, and for a handle that is
 *         null or no `MutableClip`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableClip_setPartKey(
    KRT_PLX_ClipBase* clip, uint32_t value) KRT_PLX_NOEXCEPT;

/**
 * Sets the part tempo. It starts at 0, and is saved for MIDI parts only.
 *
 * @param clip   an editable clip
 * @param value  0 for none, or 2000 to 30000 hundredths of a beat per minute
 * @return true; false, with the tempo unchanged, for any other value and for a handle that is null
 *         or no `MutableClip`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableClip_setPartTempo(
    KRT_PLX_ClipBase* clip, uint32_t value) KRT_PLX_NOEXCEPT;

/**
 * Sets the vendor name. It starts empty. The vendor tags of the filter stay as they are.
 *
 * @param clip  an editable clip
 * @param text  the vendor name; null empties it
 * @return true; false for a handle that is null or no `MutableClip`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableClip_setVendorName(
    KRT_PLX_ClipBase* clip, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/**
 * Saves the clip as a new user clip.
 *
 * Makes a folder in the main user clip directory, named by a new ID (a UUID of 36 characters), and
 * in it the clip file `<ID>.kxclip`, the `property.json` and, for an audio part, a copy of the wave
 * file in the folder `audio`. Then reads the clip back and appends it to the manager's user clips.
 * The editable clip stays as it is: it can be edited on and saved again, each time as another user
 * clip with an ID of its own.
 *
 * The new clip has no part loaded; call KRT_PLX_Clip_readPart() for it.
 *
 * The checks, in this order; the first that fails decides:
 *
 * | code written                           | when                                               |
 * |----------------------------------------|----------------------------------------------------|
 * | #KRT_PLX_RESULT_NULL_ARGUMENT          | `name` is null                                     |
 * | #KRT_PLX_RESULT_UNKNOWN_CLIP           | the clip is none of its manager's                  |
 * | #KRT_PLX_RESULT_EMPTY_NAME             | `name` is empty                                    |
 * | #KRT_PLX_RESULT_NO_PART                | the clip has no part                               |
 * | #KRT_PLX_RESULT_NO_VOICE_BANK          | #KRT_PLX_PART_MIDI: no voice bank ID               |
 * | #KRT_PLX_RESULT_BAD_LANGUAGE           | #KRT_PLX_PART_MIDI: no language set                |
 * | #KRT_PLX_RESULT_NO_AI_VOICE_BANK       | #KRT_PLX_PART_MIDI_AI: no AI voice bank ID         |
 * | #KRT_PLX_RESULT_NO_AI_LANGUAGE         | #KRT_PLX_PART_MIDI_AI: no AI language              |
 * | #KRT_PLX_RESULT_BAD_AI_LANGUAGE        | #KRT_PLX_PART_MIDI_AI: a language above 127        |
 * | #KRT_PLX_RESULT_USER_DIRECTORY_MISSING | the main user directory is gone                    |
 * | #KRT_PLX_RESULT_DIRECTORY_NOT_CREATED  | a folder cannot be made                            |
 * | #KRT_PLX_RESULT_WAVE_FILE_MISSING      | audio: no wave file set, or it is no existing file |
 * | #KRT_PLX_RESULT_WAVE_FILE_NOT_COPIED   | audio: copying failed, or no backslash in the path |
 * | #KRT_PLX_RESULT_FILE_NOT_OPENED        | a document cannot be opened                        |
 * | #KRT_PLX_RESULT_FILE_NOT_WRITTEN       | a document cannot be written or read back          |
 * | #KRT_PLX_RESULT_OK                     | saved                                              |
 *
 * #KRT_PLX_RESULT_DIRECTORY_NOT_CREATED stands for the clip's folder and, after the wave file was
 * found, for the folder `audio`. The user directory is not created anew when it is gone. A document
 * cannot be written when the disk is full, when a text holds a lone surrogate, when a number to be
 * written is not finite, or when it would be larger than #KRT_PLX_PROPERTY_DOCUMENT_LIMIT or
 * #KRT_PLX_DATA_DOCUMENT_LIMIT, which is found before a folder is made. After a failure nothing of
 * the attempt is left on disk, and the catalogue is unchanged.
 *
 * On success the disk has everything: the call waits for it, which takes most of its time. Where a
 * file system cannot tell, it counts as done.
 *
 * A part may be saved without notes, and a MIDI part without a duration set (it is 1).
 *
 * Not everything that an editable clip holds comes back when the saved clip is read:
 * - The key and tempo of an audio clip are not written, nor are vendor tags.
 * - A #KRT_PLX_PART_MIDI part keeps voice bank ID and language, a #KRT_PLX_PART_MIDI_AI part AI
 *   voice bank ID and AI languages; what belongs to the other type is not written.
 * - In a #KRT_PLX_PART_MIDI part the thirteen AI expression values of every note are written as
 *   0.5.
 * - In a #KRT_PLX_PART_MIDI_AI part no attack and release (Dvqm) is written. In a
 *   #KRT_PLX_PART_MIDI part each is written when it has a component ID and a level name; one with
 *   **five** level names is written and ignored when it is read. A note that is written with an
 *   attack or a release gets its singing skill back at the defaults.
 * - If a note was shortened below its singing skill or vibrato, the singing skill's duration is
 *   read as 0, and the vibrato loses its duration and all points. Points beyond the vibrato's
 *   duration are lost.
 * - Lanes without events and effect parameters without a value are not written.
 * - An integer parameter of an audio effect is read as a float, unless it is named "Bypass".
 *
 * @param clip       an editable clip
 * @param name       the name of the new clip, not empty
 * @param formatted  true writes the documents indented, for people to read; false writes them
 *                   compact
 * @param errorCode  receives one of the codes above, or is null; it is left alone when `clip` is
 *                   rejected and when memory runs out
 * @return the new user clip, owned by the manager and valid until the user clips are read again,
 *         its KRT_PLX_UserClip_remove() or the manager's end; NULL on failure and for a handle that
 *         is null or no `MutableClip`
 */
KRT_PLX_API KRT_PLX_ClipBase* KRT_PLX_CALL KRT_PLX_MutableClip_save(KRT_PLX_ClipBase* clip,
    const KRT_PLX_Char* name,
    bool formatted,
    uint32_t* errorCode) KRT_PLX_NOEXCEPT;

/**
 * Destroys an editable clip with its filter and its part. **Its handle and all handles beneath it
 * are dead.** The user clips that were saved from it stay.
 *
 * @param clip  an editable clip
 * @return true; false for a handle that is null or no `MutableClip`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableClip_destroy(KRT_PLX_ClipBase* clip) KRT_PLX_NOEXCEPT;

/** @} */

#endif
