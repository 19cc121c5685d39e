/**
 * @file plx_kit.h
 * What hosts do with clips again and again, done once: texts as UTF-8, words for codes, copying a clip
 * to change it, transposing, moving and cutting a part, editing properties, and finding clips.
 *
 * The kit stands on the functions of plx.h alone. It is C99, for C and C++, and lies in a small static
 * library, `krt_plx_kit` (CMake: `krt_plx::kit`). It allocates nothing, keeps nothing, and prints
 * nothing.
 *
 * ## The table of functions
 *
 * Most functions here take a table of the library's functions first. A host that loads the library at
 * run time passes the table that KRT_PLX_load() has filled (plx_loader.h). A host that is linked to the
 * library passes KRT_PLX_Kit_linked(), and links `krt_plx_kit` before `krt_plx`; so does one that loads
 * it with plx_loaded.h, before `krt_plx_loaded`. A null or an empty table is safe: the function then does
 * nothing and returns what it returns for a null handle.
 *
 * ## Changing a clip that exists
 *
 * @code{.c}
 * #include <korvel/plx_kit.h>
 *
 * uint32_t saveHigher(KRT_PLX_ClipBase* clip, const KRT_PLX_Char* name)
 * {
 *     const struct KRT_PLX_Api* plx = KRT_PLX_Kit_linked();
 *     KRT_PLX_KitReport report = {NULL, NULL, 0};
 *     uint32_t code = KRT_PLX_RESULT_NO_PART;
 *     KRT_PLX_ClipBase* copy = KRT_PLX_Kit_edit(plx, clip, KRT_PLX_NO_LANGUAGE, &report);
 *     if (KRT_PLX_Kit_transpose(plx, KRT_PLX_MutableClip_midiPart(copy), 2, &report)) {
 *         KRT_PLX_MutableClip_save(copy, name, true, &code);
 *     }
 *     KRT_PLX_MutableClip_destroy(copy);
 *     return code;
 * }
 * @endcode
 *
 * `report.count` is then 0 if the copy has all that the clip has. A listener in the report hears of each
 * thing that it has not.
 */
#ifndef KORVEL_PLX_KIT_H
#define KORVEL_PLX_KIT_H

#include <korvel/plx.h>

#if defined(__cplusplus)
extern "C" {
#endif

/** The table of functions; plx_loader.h has its members. */
struct KRT_PLX_Api;

/**
 * Returns the table of the functions of plx.h that the host is linked to: those of the library, or those of
 * `krt_plx_loaded` in a host that loads the library with plx_loaded.h.
 *
 * A host that loads the library into a table of its own does not call this: it would have to be linked.
 *
 * @return the table, complete and constant
 */
const struct KRT_PLX_Api* KRT_PLX_Kit_linked(void) KRT_PLX_NOEXCEPT;

/**
 * @defgroup korvel_plx_kit_text Kit: texts
 *
 * UTF-8 to the library's text and back. Both directions work alike: what is written always ends with a
 * NUL and is never cut within a character, and the result says how much room a whole text takes. To
 * measure, pass a capacity of 0.
 * @{
 */

/** How a conversion ended. */
typedef enum KRT_PLX_KitTextCode {
    /** The whole text was written, and nothing was wrong with it. */
    KRT_PLX_KIT_TEXT_OK = 0,
    /** There is not enough room; the beginning was written. */
    KRT_PLX_KIT_TEXT_TOO_LONG = 1,
    /** The whole text was written, with U+FFFD for what is no text: wrong UTF-8, or half of a pair of
     *  surrogates. */
    KRT_PLX_KIT_TEXT_MENDED = 2,
    /** The text is null. An empty one was written. */
    KRT_PLX_KIT_TEXT_NULL = 3
} KRT_PLX_KitTextCode;

/** What is said of an offset when there is none. */
#define KRT_PLX_KIT_NOWHERE SIZE_MAX

/** What a conversion gives. */
typedef struct KRT_PLX_KitConversion {
    /** A #KRT_PLX_KitTextCode. */
    uint32_t code;
    /** The room that the whole text takes, with its NUL: bytes of UTF-8, or units of the library. */
    size_t size;
    /** Where in the source, in bytes or units, the first thing stands that is no text;
     *  #KRT_PLX_KIT_NOWHERE when all is text. */
    size_t error;
} KRT_PLX_KitConversion;

/**
 * Converts UTF-8 to a text of the library.
 *
 * @param utf8      text that ends with a NUL; may be null
 * @param text      receives the text; may be null when `capacity` is 0
 * @param capacity  the room there, in units
 * @return code, size and error
 */
KRT_PLX_KitConversion KRT_PLX_Kit_fromUtf8(
    const char* utf8, KRT_PLX_Char* text, size_t capacity) KRT_PLX_NOEXCEPT;

/**
 * Converts a text of the library to UTF-8.
 *
 * @param text      text that ends with a NUL; may be null
 * @param utf8      receives the text; may be null when `capacity` is 0
 * @param capacity  the room there, in bytes
 * @return code, size and error
 */
KRT_PLX_KitConversion KRT_PLX_Kit_toUtf8(
    const KRT_PLX_Char* text, char* utf8, size_t capacity) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_kit_codes Kit: words for codes
 * @{
 */

/** The enumerations that have words. */
typedef enum KRT_PLX_KitCodes {
    KRT_PLX_KIT_RESULTS = 0,             /**< #KRT_PLX_Result */
    KRT_PLX_KIT_PART_TYPES = 1,          /**< #KRT_PLX_PartType */
    KRT_PLX_KIT_CLIP_KINDS = 2,          /**< #KRT_PLX_ClipKind */
    KRT_PLX_KIT_CONTROLLER_TYPES = 3,    /**< #KRT_PLX_ControllerType */
    KRT_PLX_KIT_VIBRATO_POINT_KINDS = 4, /**< #KRT_PLX_VibratoPointKind */
    KRT_PLX_KIT_EFFECT_KINDS = 5,        /**< #KRT_PLX_EffectKind */
    KRT_PLX_KIT_VALUE_TYPES = 6,         /**< #KRT_PLX_ValueType */
    KRT_PLX_KIT_TEXT_CODES = 7,          /**< #KRT_PLX_KitTextCode */
    KRT_PLX_KIT_ITEMS = 8,               /**< #KRT_PLX_KitItem */
    KRT_PLX_KIT_REASONS = 9              /**< #KRT_PLX_KitReason */
} KRT_PLX_KitCodes;

/**
 * Returns the name of a code in C, such as "KRT_PLX_RESULT_NO_PART".
 *
 * @param codes  a #KRT_PLX_KitCodes
 * @param code   a value of that enumeration
 * @return constant ASCII text; empty for a value that the enumeration does not have
 */
const char* KRT_PLX_Kit_codeName(uint32_t codes, uint32_t code) KRT_PLX_NOEXCEPT;

/**
 * Returns what a code means, in English, such as "the clip has no part".
 *
 * @param codes  a #KRT_PLX_KitCodes
 * @param code   a value of that enumeration
 * @return constant ASCII text; empty for a value that the enumeration does not have
 */
const char* KRT_PLX_Kit_codeText(uint32_t codes, uint32_t code) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_kit_report Kit: reports
 *
 * Whatever a function of the kit could not do is told to a report, item by item.
 * @{
 */

/** What a notice is about. */
typedef enum KRT_PLX_KitItem {
    KRT_PLX_KIT_CLIP = 0,          /**< the clip: vendor, key, tempo */
    KRT_PLX_KIT_TAGS = 1,          /**< a tag of the filter */
    KRT_PLX_KIT_PART = 2,          /**< the part: voice, style, duration, wave file */
    KRT_PLX_KIT_NOTE = 3,          /**< a note */
    KRT_PLX_KIT_ATTACK = 4,        /**< the attack of a note */
    KRT_PLX_KIT_RELEASE = 5,       /**< the release of a note */
    KRT_PLX_KIT_SINGING_SKILL = 6, /**< the singing skill of a note */
    KRT_PLX_KIT_VIBRATO = 7,       /**< the vibrato of a note, or a point of it */
    KRT_PLX_KIT_LANE = 8,          /**< a controller lane, or an event of it */
    KRT_PLX_KIT_AUDIO_EFFECT = 9,  /**< an audio effect, or a parameter of it */
    KRT_PLX_KIT_MIDI_EFFECT = 10   /**< a MIDI effect, or a parameter of it */
} KRT_PLX_KitItem;

/** What became of it. */
typedef enum KRT_PLX_KitReason {
    /** The library did not take it: it is out of range, or memory ran out. */
    KRT_PLX_KIT_REFUSED = 0,
    /** The note has no language, and there is none to give it: it was left out. */
    KRT_PLX_KIT_NO_LANGUAGE = 1,
    /** The note has no language in the source; it was given the one in KRT_PLX_KitNotice::value. */
    KRT_PLX_KIT_LANGUAGE_GIVEN = 2,
    /** The part cannot be read. */
    KRT_PLX_KIT_UNREADABLE = 3,
    /** There is no such wave file. */
    KRT_PLX_KIT_NO_WAVE_FILE = 4,
    /** The editable clip has it, but a clip that is saved from it has not. */
    KRT_PLX_KIT_NOT_SAVED = 5,
    /** As long as this is so, the clip cannot be saved. */
    KRT_PLX_KIT_PREVENTS_SAVING = 6,
    /** It would leave the range of its values; so nothing was changed at all. */
    KRT_PLX_KIT_OUT_OF_RANGE = 7,
    /** It was moved, and lies before the part's beginning or ends after the part's end. */
    KRT_PLX_KIT_OUTSIDE_PART = 8,
    /** It lay outside the range that was kept, and was removed. */
    KRT_PLX_KIT_CUT_AWAY = 9,
    /** It lay across the edge of the range that was kept, and was shortened. */
    KRT_PLX_KIT_SHORTENED = 10,
    /** There is one of this name already, and an editable clip holds no two: it was left out. */
    KRT_PLX_KIT_REPEATED = 11
} KRT_PLX_KitReason;

/** One thing that is told. */
typedef struct KRT_PLX_KitNotice {
    /** A #KRT_PLX_KitItem. */
    uint32_t item;
    /** A #KRT_PLX_KitReason. */
    uint32_t reason;
    /** The property, by its key in documents, such as "langID"; empty when the whole item is meant.
     *  Never null. */
    const char* property;
    /** The item's place when it has one: that of the note or effect in its list, or the type of the
     *  lane. Otherwise 0. */
    uint64_t index;
    /** The place within the item: of a point, event, parameter or tag in its list. Otherwise 0. */
    uint64_t inner;
    /** Where the note, point or event stands, in ticks; of an attack, release, singing skill or
     *  vibrato, where its note stands. Otherwise 0. */
    int32_t pos;
    /** A language that was given; otherwise 0. */
    uint32_t value;
} KRT_PLX_KitNotice;

/**
 * A function of the host that is called for each notice. It must not change clips.
 *
 * @param context  what stands in the report
 * @param notice   valid only during the call
 */
typedef void (*KRT_PLX_KitListener)(void* context, const KRT_PLX_KitNotice* notice);

/** Where notices go. Begin with `{NULL, NULL, 0}` or with a listener; one report may serve several
 *  calls. */
typedef struct KRT_PLX_KitReport {
    /** Called for each notice; may be null. */
    KRT_PLX_KitListener listener;
    /** Passed to the listener. */
    void* context;
    /** One more for each notice. */
    uint64_t count;
} KRT_PLX_KitReport;

/**
 * Writes a notice as a line of English, such as "note 3 at 480: langID: ...".
 *
 * @param notice    a notice; null gives an empty text
 * @param text      receives ASCII text that ends with a NUL; may be null when `capacity` is 0
 * @param capacity  the room there, in bytes; what does not fit is cut off
 * @return the room that the whole text takes, with its NUL
 */
size_t KRT_PLX_Kit_describe(
    const KRT_PLX_KitNotice* notice, char* text, size_t capacity) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_kit_properties Kit: editing properties
 * @{
 */

/** What a property editor begins with; combine with `|`. */
typedef enum KRT_PLX_KitKeep {
    KRT_PLX_KIT_KEEP_NAME = 1,    /**< the name */
    KRT_PLX_KIT_KEEP_KEY = 2,     /**< the part key */
    KRT_PLX_KIT_KEEP_TEMPO = 4,   /**< the part tempo */
    KRT_PLX_KIT_KEEP_TYPES = 8,   /**< the types */
    KRT_PLX_KIT_KEEP_GENRES = 16, /**< the genres */
    KRT_PLX_KIT_KEEP_ALL = 31     /**< all of them */
} KRT_PLX_KitKeep;

/**
 * Sets in a new property editor what a clip has. KRT_PLX_Kit_editProperties() makes one, too.
 *
 * @param plx     the table of functions
 * @param editor  a property editor without types and genres of its own
 * @param clip    the clip to take the values from, the editor's own or another catalogue clip
 * @param keep    one or more #KRT_PLX_KitKeep
 * @return true; false, with some of it set, when memory ran out or the editor has a type or genre of
 *         the clip already; false for a handle that is null or no catalogue clip
 */
bool KRT_PLX_Kit_fillEditor(const struct KRT_PLX_Api* plx,
    KRT_PLX_PropertyEditor* editor,
    KRT_PLX_ClipBase* clip,
    uint32_t keep) KRT_PLX_NOEXCEPT;

/**
 * Creates a property editor that begins with what its clip has, so that one changes what one names.
 *
 * Types and genres can be added to an editor and not taken away. To replace them, begin without them:
 * `KRT_PLX_KIT_KEEP_ALL & ~KRT_PLX_KIT_KEEP_GENRES`.
 *
 * The editor that the clip had is destroyed, as by KRT_PLX_UserClip_createPropertyEditor(); the clip
 * owns the new one.
 *
 * @param plx   the table of functions
 * @param clip  a user clip
 * @param keep  one or more #KRT_PLX_KitKeep
 * @return the editor, which lives as KRT_PLX_UserClip_createPropertyEditor() says; NULL, and the clip
 *         has no editor, when memory ran out; NULL for a handle that is null or no user clip
 */
KRT_PLX_PropertyEditor* KRT_PLX_Kit_editProperties(
    const struct KRT_PLX_Api* plx, KRT_PLX_ClipBase* clip, uint32_t keep) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_kit_copy Kit: copying a clip
 * @{
 */

/**
 * Fills an editable clip with the part, key, tempo, vendor and tags of another clip.
 *
 * What the editable clip had of these is gone, and handles into its old part are dead. If the source is
 * a catalogue clip whose part was not read yet, it is read. The source does not change otherwise.
 *
 * A note may be read without a language but not be inserted without one. Such a note is given
 * `language`; if that is #KRT_PLX_NO_LANGUAGE, the language of its part, or else the part's first AI
 * language, or else that of the first note that has one. Each such note is reported, and so is one that
 * had to be left out because no language was found.
 *
 * What is reported, item by item: what could not be carried into the editable clip, and what saving
 * will not keep (KRT_PLX_Kit_checkSaving()). If the report counts nothing, a clip that is saved from
 * the target has in every respect what the source has, but for ID, name and paths.
 *
 * @param plx       the table of functions
 * @param target    an editable clip, of any manager
 * @param source    another clip of any kind and of any manager; one without a part gives none
 * @param language  0 to 127 for notes without a language, or #KRT_PLX_NO_LANGUAGE
 * @param report    receives the notices; may be null
 * @return true when the target has a part like the source's, perhaps with notices; false when the part
 *         cannot be read or made, when both clips are one, or when a handle is rejected
 */
bool KRT_PLX_Kit_fill(const struct KRT_PLX_Api* plx,
    KRT_PLX_ClipBase* target,
    KRT_PLX_ClipBase* source,
    uint32_t language,
    KRT_PLX_KitReport* report) KRT_PLX_NOEXCEPT;

/**
 * Makes an editable clip of the source's manager, and fills it as KRT_PLX_Kit_fill() does.
 *
 * @param plx       the table of functions
 * @param source    any clip
 * @param language  0 to 127 for notes without a language, or #KRT_PLX_NO_LANGUAGE
 * @param report    receives the notices; may be null
 * @return the editable clip, which lives until KRT_PLX_MutableClip_destroy() or its manager's end; NULL,
 *         with nothing made, where KRT_PLX_Kit_fill() returns false
 */
KRT_PLX_ClipBase* KRT_PLX_Kit_edit(const struct KRT_PLX_Api* plx,
    KRT_PLX_ClipBase* source,
    uint32_t language,
    KRT_PLX_KitReport* report) KRT_PLX_NOEXCEPT;

/**
 * Reports what an editable clip holds that saving will not keep, or that prevents saving.
 *
 * KRT_PLX_MutableClip_save() tells the rules. The disk and the name are not looked at, nor are texts
 * with half of a surrogate pair, which prevent saving too.
 *
 * @param plx     the table of functions
 * @param clip    an editable clip
 * @param report  receives the notices; may be null
 * @return true when there is nothing to report; false otherwise, and for a handle that is null or no
 *         editable clip
 */
bool KRT_PLX_Kit_checkSaving(const struct KRT_PLX_Api* plx,
    KRT_PLX_ClipBase* clip,
    KRT_PLX_KitReport* report) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_kit_change Kit: changing a part
 *
 * What these do to a part is done to all of it.
 * @{
 */

/**
 * Moves the pitch of all notes of an editable MIDI part.
 *
 * If a note would leave the range of 0 to 127, nothing is changed, and each such note is reported. The
 * clip's key stays: what the numbers of keys mean is the host's matter.
 *
 * @param plx        the table of functions
 * @param part       an editable MIDI part
 * @param semitones  how far, up or down
 * @param report     receives the notices; may be null
 * @return true when all notes were moved; false, with nothing changed, otherwise and for a handle that
 *         is null or no editable MIDI part
 */
bool KRT_PLX_Kit_transpose(const struct KRT_PLX_Api* plx,
    KRT_PLX_PartBase* part,
    int32_t semitones,
    KRT_PLX_KitReport* report) KRT_PLX_NOEXCEPT;

/**
 * Moves all notes and all controller events of an editable MIDI part in time. The order of the notes
 * stays, and so does the duration of the part.
 *
 * If a note or event would leave the range of positions, nothing is changed, and each such note and
 * event is reported. Notes that lie outside the part (before 0, or beyond its duration) after the move
 * are reported too.
 *
 * @param plx     the table of functions
 * @param part    an editable MIDI part
 * @param ticks   how far, later or earlier
 * @param report  receives the notices; may be null
 * @return true when all was moved; false, with nothing changed, otherwise and for a handle that is null
 *         or no editable MIDI part
 */
bool KRT_PLX_Kit_move(const struct KRT_PLX_Api* plx,
    KRT_PLX_PartBase* part,
    int32_t ticks,
    KRT_PLX_KitReport* report) KRT_PLX_NOEXCEPT;

/**
 * Keeps a range of an editable MIDI part and cuts away the rest. Positions count from the beginning of
 * the range afterwards, and the part is as long as the range.
 *
 * A note across the edge is shortened, and with it its singing skill and its vibrato; vibrato points
 * beyond that are removed. What a controller was set to before the range becomes an event at its
 * beginning, if there is none. Every note, event and point that is removed, and everything that is
 * shortened, is reported, with the positions and places that it had before.
 *
 * @param plx     the table of functions
 * @param part    an editable MIDI part
 * @param begin   the first tick to be kept
 * @param end     the tick after the last; above `begin`, and at most 2147483647 ticks after it
 * @param report  receives the notices; may be null
 * @return true when the part was cut; false, with nothing changed, for an empty range and for a handle
 *         that is null or no editable MIDI part; false with a notice, too, if memory ran out, and the
 *         part may then be cut partly
 */
bool KRT_PLX_Kit_cut(const struct KRT_PLX_Api* plx,
    KRT_PLX_PartBase* part,
    int32_t begin,
    int32_t end,
    KRT_PLX_KitReport* report) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_kit_search Kit: finding clips
 *
 * A query has conditions, and a clip matches when all hold. Begin with KRT_PLX_Kit_anyClip() and set
 * what you look for:
 *
 * @code{.c}
 * #include <korvel/plx_kit.h>
 *
 * uint64_t countSlowSongs(KRT_PLX_Manager* manager, const KRT_PLX_Char* words)
 * {
 *     const struct KRT_PLX_Api* plx = KRT_PLX_Kit_linked();
 *     KRT_PLX_KitQuery query = KRT_PLX_Kit_anyClip();
 *     uint64_t place = 0;
 *     uint64_t count = 0;
 *     query.name = words;
 *     query.lowestTempo = 2000;
 *     query.highestTempo = 8000;
 *     while (KRT_PLX_Kit_find(plx, manager, &query, &place) != NULL) {
 *         ++count;
 *     }
 *     return count;
 * }
 * @endcode
 *
 * Texts are compared without regard to case, by the full case folding of Unicode: "STRASSE" finds
 * "Straße". A letter with an accent is the same whether it is one character or two; with
 * KRT_PLX_KitQuery::ignoreAccents a letter is the same with and without. The marks that make another
 * letter of one, such as the voicing of Japanese kana, are never ignored. Several marks on one letter
 * are compared in the order in which they stand.
 * @{
 */

/** The lists of a filter. */
typedef enum KRT_PLX_KitTagList {
    KRT_PLX_KIT_GENRES = 0,        /**< genres */
    KRT_PLX_KIT_LANGUAGES = 1,     /**< languages */
    KRT_PLX_KIT_SINGER_GROUPS = 2, /**< singer groups */
    KRT_PLX_KIT_SINGER_IDS = 3,    /**< singer IDs */
    KRT_PLX_KIT_TYPES = 4,         /**< types */
    KRT_PLX_KIT_VENDORS = 5        /**< vendors */
} KRT_PLX_KitTagList;

/** A tag that is looked for. */
typedef struct KRT_PLX_KitTag {
    /** A #KRT_PLX_KitTagList. */
    uint32_t list;
    /** The whole tag; not looked at for a language. Null is no tag of any clip. */
    const KRT_PLX_Char* text;
    /** The language; not looked at for other lists. */
    int32_t language;
} KRT_PLX_KitTag;

/** What is looked for. */
typedef struct KRT_PLX_KitQuery {
    /** A text that is in the name; null or empty for any name. */
    const KRT_PLX_Char* name;
    /** Whether accents are ignored, in names and tags. */
    bool ignoreAccents;
    /** Tags, in any order: of those of one list a clip must have one, and so for each list that occurs.
     *  May be null when `tagCount` is 0. */
    const KRT_PLX_KitTag* tags;
    /** The number of tags. */
    size_t tagCount;
    /** The part key, or #KRT_PLX_NO_KEY for any. */
    uint32_t key;
    /** The lowest tempo, in hundredths of a beat per minute. Clips without a tempo have 0. */
    uint32_t lowestTempo;
    /** The highest tempo. */
    uint32_t highestTempo;
} KRT_PLX_KitQuery;

/**
 * Returns a query that every clip matches.
 *
 * @return the query
 */
KRT_PLX_KitQuery KRT_PLX_Kit_anyClip(void) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a clip matches a query. The part need not be read.
 *
 * @param plx    the table of functions
 * @param clip   a system or user clip
 * @param query  what is looked for
 * @return true when it matches; false otherwise, for a null `query`, and for a handle that is null or no
 *         catalogue clip
 */
bool KRT_PLX_Kit_matches(const struct KRT_PLX_Api* plx,
    KRT_PLX_ClipBase* clip,
    const KRT_PLX_KitQuery* query) KRT_PLX_NOEXCEPT;

/**
 * Returns the next clip that matches, of the system clips first and then of the user clips.
 *
 * @param plx      the table of functions
 * @param manager  a manager whose clips were read
 * @param query    what is looked for
 * @param place    0 at first; moves behind the clip that was found. Begin anew when the lists change
 * @return the clip, owned by the manager; NULL when there are no more, and for a null argument
 */
KRT_PLX_ClipBase* KRT_PLX_Kit_find(const struct KRT_PLX_Api* plx,
    KRT_PLX_Manager* manager,
    const KRT_PLX_KitQuery* query,
    uint64_t* place) KRT_PLX_NOEXCEPT;

/**
 * Tells whether a text occurs in another one, as names are compared in a query.
 *
 * @param text           where to look; null contains nothing
 * @param part           what to look for; the empty text is in every text, null in none
 * @param ignoreAccents  whether accents are ignored
 * @return true when it occurs
 */
bool KRT_PLX_Kit_contains(
    const KRT_PLX_Char* text, const KRT_PLX_Char* part, bool ignoreAccents) KRT_PLX_NOEXCEPT;

/**
 * Tells whether two texts are the same, as tags are compared in a query.
 *
 * @param left           a text; null is equal to none
 * @param right          another
 * @param ignoreAccents  whether accents are ignored
 * @return true when they are the same
 */
bool KRT_PLX_Kit_equals(
    const KRT_PLX_Char* left, const KRT_PLX_Char* right, bool ignoreAccents) KRT_PLX_NOEXCEPT;

/** @} */

#if defined(__cplusplus)
}
#endif

#endif
