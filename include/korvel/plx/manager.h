/**
 * @file manager.h
 * The entry to the library: creating a manager, reading its clip folders, walking its clips.
 *
 * A manager is one clip catalogue. It is known by its application ID, and there is one manager for
 * each ID in the process, whoever asks for it. It lists two kinds of clips, system clips (factory
 * clips, read only) and user clips (saved by the user), and it owns the editable clips from which
 * new user clips are made.
 *
 * ## The clip folders
 *
 * A manager reads a main system directory and a main user directory, and as many further ones of
 * each kind as the host names. New clips are saved into the main user directory only.
 *
 * A clip is a file whose extension is exactly `.kxclip` (lower case), at any depth below a clip
 * directory. Its catalogue properties stand beside it in a file named `property.json`; where that
 * is missing or unusable, they are taken from the clip file. A file that cannot be used is left out
 * without a word, and the reading goes on. A link to a file or to a folder counts as what it leads
 * to, with two exceptions. A link back to a folder that is being read is passed over. Of several
 * links below one directory that lead to one folder, only the first that is met is followed.
 *
 * ## Paths
 *
 * Inside the library the separator is the backslash, on every system. Directories are kept exactly
 * as the host passed them; everything that the library appends is joined with a backslash. On a
 * system whose own separator is the slash, backslashes become slashes just before a path is handed
 * to the system. So a host there may pass `/home/user/clips`, and gets back clip paths such as
 * `/home/user/clips\take\take.kxclip`, whose backslashes it has to replace before it opens such a
 * path itself.
 */
#ifndef KORVEL_PLX_MANAGER_H
#define KORVEL_PLX_MANAGER_H

#include "common.h"

/**
 * @defgroup korvel_plx_manager Manager
 *
 * The order of a host's calls: KRT_PLX_CreateManager(), KRT_PLX_Manager_readAllClipFiles(), then
 * the counts and clips, at the end KRT_PLX_Manager_destroy(). Creating reads no clip; until the
 * first reading both lists are empty.
 *
 * Clips stand in a list in the order in which they were found: directory by directory in the order
 * given, inside a directory in the order of the file system. Nothing is sorted. An ID occurs once
 * in a list; the first clip that was found with it stays, and later ones are left out.
 * @{
 */

/**
 * Returns the manager of an application ID, creating it when there is none.
 *
 * When a manager with this ID is alive, it is returned as it is: the directories of this call are
 * not looked at, and `resultCode` is left alone (it is not set to 0). Set it beforehand to a value
 * of your own if you need to tell the two cases apart. IDs are compared unit by unit; case matters.
 *
 * Otherwise the arguments are checked in this order, and a new manager is made:
 *
 * | code written                           | when                                                |
 * |----------------------------------------|-----------------------------------------------------|
 * | #KRT_PLX_RESULT_NULL_ARGUMENT          | `appID` or one of the two main directories is null  |
 * | #KRT_PLX_RESULT_EMPTY_APP_ID           | `appID` is empty                                    |
 * | #KRT_PLX_RESULT_DIRECTORY_MISSING      | the system directory is no existing directory       |
 * | #KRT_PLX_RESULT_DIRECTORY_NOT_CREATED  | the user directory is missing and cannot be created |
 * | #KRT_PLX_RESULT_OK                     | a new manager was made                              |
 *
 * The first two checks come before the look for an existing manager, the other two after it. If
 * memory runs out, the result is NULL and `resultCode` is left alone.
 *
 * Every text is copied. The further directories need not exist; one that is missing when the clips
 * are read is passed over, and so is a null entry.
 *
 * @param appID                application ID, not empty
 * @param systemClipDirPath    main system clip directory; it must exist
 * @param userClipDirPath      main user clip directory; it is created, with all missing parents,
 *                             when it does not exist
 * @param extraSystemDirs      further system clip directories; null for none
 * @param extraSystemDirCount  number of entries in `extraSystemDirs`; below 1 the array is not
 *                             looked at
 * @param extraUserDirs        further user clip directories; null for none
 * @param extraUserDirCount    number of entries in `extraUserDirs`; below 1 the array is not looked
 *                             at
 * @param resultCode           receives one of the codes above; may be null
 * @return the manager, owned by the library and valid until KRT_PLX_Manager_destroy() or until the
 *         library is unloaded; NULL on every failure
 */
KRT_PLX_API KRT_PLX_Manager* KRT_PLX_CALL KRT_PLX_CreateManager(const KRT_PLX_Char* appID,
    const KRT_PLX_Char* systemClipDirPath,
    const KRT_PLX_Char* userClipDirPath,
    const KRT_PLX_Char* const* extraSystemDirs,
    int32_t extraSystemDirCount,
    const KRT_PLX_Char* const* extraUserDirs,
    int32_t extraUserDirCount,
    uint32_t* resultCode) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a handle is a living manager.
 *
 * Compares addresses only, so a handle that has died may be passed. A manager that was created
 * later may stand at the address of a dead one; then the old handle counts as alive. Do not ask
 * while another thread creates or destroys a manager.
 *
 * @param manager  any manager handle, alive or dead
 * @return true when it is alive; false otherwise and for null
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_HasManager(KRT_PLX_Manager* manager) KRT_PLX_NOEXCEPT;

/** @name What the manager was created with
 * @{
 */

/**
 * Returns the application ID, exactly as it was passed at creation.
 *
 * @param manager  a manager
 * @return text owned by the manager, valid as long as it lives; NULL for a null handle
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_Manager_appID(
    KRT_PLX_Manager* manager) KRT_PLX_NOEXCEPT;

/**
 * Returns the main system clip directory, exactly as it was passed at creation.
 *
 * @param manager  a manager
 * @return text owned by the manager, valid as long as it lives; NULL for a null handle
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_Manager_systemClipDirPath(
    KRT_PLX_Manager* manager) KRT_PLX_NOEXCEPT;

/**
 * Returns the main user clip directory, exactly as it was passed at creation. New clips are saved
 * here.
 *
 * @param manager  a manager
 * @return text owned by the manager, valid as long as it lives; NULL for a null handle
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_Manager_userClipDirPath(
    KRT_PLX_Manager* manager) KRT_PLX_NOEXCEPT;

/** @} */

/** @name Reading the clip folders
 * @{
 */

/**
 * Reads all clip directories and builds both lists anew.
 *
 * First it **destroys every system clip and every user clip** of the manager: all clip handles, and
 * everything reached through them (parts, notes, filters, property editors), are dead from here on.
 * Editable clips stay as they are.
 *
 * Then it reads the main system directory, the main user directory, the further system directories
 * and the further user directories, in this order. A user clip with the ID of a system clip that is
 * already listed is left out. Because the further system directories come after the main user
 * directory, a user clip of the main directory stays beside a clip of a further system directory
 * with the same ID, until KRT_PLX_Manager_readUserClipFiles() leaves it out.
 *
 * A failure leaves the lists as far as they were built: without the main system directory both are
 * empty; without the main user directory the system list holds the clips of the main system
 * directory, the user list is empty, and no further directory is read. When memory runs out while a
 * clip is read, that clip alone is left out.
 *
 * A `property.json` larger than #KRT_PLX_PROPERTY_DOCUMENT_LIMIT counts as missing, a clip file larger
 * than #KRT_PLX_DATA_DOCUMENT_LIMIT as unreadable. Documents that another program is editing are
 * waited for, two seconds at most for the whole reading.
 *
 * @param manager  a manager
 * @return #KRT_PLX_RESULT_OK; #KRT_PLX_RESULT_DIRECTORY_MISSING when the main system or the main
 *         user directory is no existing directory; #KRT_PLX_RESULT_NO_MANAGER for a null handle or
 *         when memory ran out
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_Manager_readAllClipFiles(
    KRT_PLX_Manager* manager) KRT_PLX_NOEXCEPT;

/**
 * Reads the user clip directories and builds the list of user clips anew.
 *
 * First it **destroys every user clip** of the manager: their handles, and everything reached
 * through them, are dead from here on. System clips and editable clips, and their handles, stay as
 * they are.
 *
 * Then it reads the main user directory and the further user directories, in this order, leaving
 * out every clip whose ID a system clip has. Without the main user directory the list is empty and
 * the further ones are not read.
 *
 * @param manager  a manager
 * @return #KRT_PLX_RESULT_OK; #KRT_PLX_RESULT_DIRECTORY_MISSING when the main user directory is no
 *         existing directory; #KRT_PLX_RESULT_NO_MANAGER for a null handle or when memory ran out
 */
KRT_PLX_API uint32_t KRT_PLX_CALL KRT_PLX_Manager_readUserClipFiles(
    KRT_PLX_Manager* manager) KRT_PLX_NOEXCEPT;

/** @} */

/** @name System clips
 * @{
 */

/**
 * Tells how many system clips are listed.
 *
 * @param manager  a manager
 * @param count    receives the number; left alone when the result is false
 * @return true; false when the handle or `count` is null
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_Manager_numSystemClips(
    KRT_PLX_Manager* manager, uint64_t* count) KRT_PLX_NOEXCEPT;

/**
 * Returns a system clip by its place in the list.
 *
 * @param manager  a manager
 * @param index    place, from 0
 * @return a clip of kind #KRT_PLX_CLIP_SYSTEM, owned by the manager and valid until
 *         KRT_PLX_Manager_readAllClipFiles() or the manager's end; NULL when `index` is not below
 *         the count, and for a null handle
 */
KRT_PLX_API KRT_PLX_ClipBase* KRT_PLX_CALL KRT_PLX_Manager_systemClip(
    KRT_PLX_Manager* manager, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a handle is one of the manager's listed system clips.
 *
 * Compares addresses only, never IDs, and does not look into `element`: a dead handle may be
 * passed. A new object may stand at the address of a dead one, which then counts as found.
 *
 * @param manager  a manager
 * @param element  any clip handle, alive or dead
 * @return true when it is listed; false otherwise, for a null `element` and for a null handle
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_Manager_hasSystemClip(
    KRT_PLX_Manager* manager, KRT_PLX_ClipBase* element) KRT_PLX_NOEXCEPT;

/** @} */

/** @name User clips
 * @{
 */

/**
 * Tells how many user clips are listed.
 *
 * A clip that KRT_PLX_MutableClip_save() made counts at once, one that KRT_PLX_UserClip_remove()
 * removed counts no longer; neither needs a new reading.
 *
 * @param manager  a manager
 * @param count    receives the number; left alone when the result is false
 * @return true; false when the handle or `count` is null
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_Manager_numUserClips(
    KRT_PLX_Manager* manager, uint64_t* count) KRT_PLX_NOEXCEPT;

/**
 * Returns a user clip by its place in the list.
 *
 * A saved clip is appended at the end; removing one moves the later ones up by a place.
 *
 * @param manager  a manager
 * @param index    place, from 0
 * @return a clip of kind #KRT_PLX_CLIP_USER, owned by the manager and valid until
 *         KRT_PLX_Manager_readAllClipFiles(), KRT_PLX_Manager_readUserClipFiles(), its
 *         KRT_PLX_UserClip_remove() or the manager's end; NULL when `index` is not below the count,
 *         and for a null handle
 */
KRT_PLX_API KRT_PLX_ClipBase* KRT_PLX_CALL KRT_PLX_Manager_userClip(
    KRT_PLX_Manager* manager, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a handle is one of the manager's listed user clips.
 *
 * Compares addresses only, never IDs, and does not look into `element`: a dead handle may be
 * passed. A new object may stand at the address of a dead one, which then counts as found.
 *
 * @param manager  a manager
 * @param element  any clip handle, alive or dead
 * @return true when it is listed; false otherwise, for a null `element` and for a null handle
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_Manager_hasUserClip(
    KRT_PLX_Manager* manager, KRT_PLX_ClipBase* element) KRT_PLX_NOEXCEPT;

/** @} */

/** @name Editable clips
 * @{
 */

/**
 * Creates an empty editable clip, from which new user clips are saved.
 *
 * It starts without a part, vendor name and tags, with key 0 and tempo 0. Any number may exist at
 * once. Editable clips are never listed among the system and user clips. Edit it with the
 * `KRT_PLX_MutableClip_...` functions of clip.h.
 *
 * @param manager  a manager
 * @return the editable clip, owned by the manager and valid until its KRT_PLX_MutableClip_destroy()
 *         or the manager's end; NULL for a null handle or when memory ran out
 */
KRT_PLX_API KRT_PLX_ClipBase* KRT_PLX_CALL KRT_PLX_Manager_createMutableClip(
    KRT_PLX_Manager* manager) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a handle is one of the manager's living editable clips.
 *
 * Compares addresses only and does not look into `element`: a dead handle may be passed. A new
 * object may stand at the address of a dead one, which then counts as found.
 *
 * @param manager  a manager
 * @param element  any clip handle, alive or dead
 * @return true when it is one of them; false otherwise, for a null `element` and for a null handle
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_Manager_hasMutableClip(
    KRT_PLX_Manager* manager, KRT_PLX_ClipBase* element) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * Destroys a manager with everything that it owns.
 *
 * Every handle that came from it is dead afterwards. Files on disk stay. The application ID is free
 * again: creating a manager with it makes a new one. Managers that are still alive when the host
 * unloads the library are destroyed then; when the process ends, nothing is destroyed.
 *
 * The result does not tell whether anything was destroyed: a handle that is no living manager is
 * recognised by its address, nothing happens, and the result is true all the same. So destroying
 * twice is harmless as long as no new manager was created in between, which may stand at the old
 * address.
 *
 * @param manager  a manager, or the handle of one that is already destroyed
 * @return true for every handle that is not null; false for null
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_Manager_destroy(KRT_PLX_Manager* manager) KRT_PLX_NOEXCEPT;

/** @} */

#endif
