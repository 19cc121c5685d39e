/**
 * @file filter.h
 * The search tags by which a clip browser finds a clip.
 *
 * Every clip has one filter, and a filter has six lists: genres, languages, singer groups, singer
 * IDs, types and vendors. Languages are numbers, the others are texts. The library gives no meaning
 * to any of them; matching them against what a user looks for is the host's work.
 *
 * A list keeps the order in which its elements were added, and holds no element twice. Texts are
 * equal when all their UTF-16 units are: case matters, blanks count.
 *
 * Get the filter of a catalogue clip from KRT_PLX_Clip_filter(), that of an editable clip from
 * KRT_PLX_MutableClip_filter(). A filter lives exactly as long as its clip.
 */
#ifndef KORVEL_PLX_FILTER_H
#define KORVEL_PLX_FILTER_H

#include "common.h"

/**
 * @defgroup korvel_plx_filter Filter
 *
 * Reading the tags of any clip, editable clips included.
 *
 * The filter of a catalogue clip is filled when the clip is read, and then changes only when
 * KRT_PLX_PropertyEditor_save() replaces the types and genres of a user clip.
 *
 * Vendors follow a rule of their own: no file stores them as tags. When a clip is read from a
 * document that has tags (a "filter" object), it gets exactly one vendor tag, its vendor name, even
 * when that is the empty text. A clip whose document has no tags gets none.
 *
 * A returned text belongs to the filter. It is valid until its list is next changed or the clip is
 * destroyed.
 * @{
 */

/**
 * Tells how many genres there are.
 *
 * @param filter  a filter
 * @param count   receives the number; left alone when the result is false
 * @return true; false when the handle or `count` is null
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_Filter_numGenres(
    KRT_PLX_Filter* filter, uint64_t* count) KRT_PLX_NOEXCEPT;

/**
 * Returns a genre by its place.
 *
 * @param filter  a filter
 * @param index   place, from 0
 * @return text owned by the filter, never empty, valid until the genres change or the clip dies;
 *         NULL when `index` is not below the count, and for a null handle
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_Filter_genre(
    KRT_PLX_Filter* filter, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Tells how many languages there are.
 *
 * @param filter  a filter
 * @param count   receives the number; left alone when the result is false
 * @return true; false when the handle or `count` is null
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_Filter_numLanguages(
    KRT_PLX_Filter* filter, uint64_t* count) KRT_PLX_NOEXCEPT;

/**
 * Returns a language by its place.
 *
 * @param filter  a filter
 * @param index   place, from 0
 * @return the language number, 0 to 2147483647; #KRT_PLX_NO_INT32 when `index` is not below the
 *         count, and for a null handle
 */
KRT_PLX_API int32_t KRT_PLX_CALL KRT_PLX_Filter_language(
    KRT_PLX_Filter* filter, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Tells how many singer groups there are.
 *
 * @param filter  a filter
 * @param count   receives the number; left alone when the result is false
 * @return true; false when the handle or `count` is null
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_Filter_numSingerGroups(
    KRT_PLX_Filter* filter, uint64_t* count) KRT_PLX_NOEXCEPT;

/**
 * Returns a singer group by its place.
 *
 * @param filter  a filter
 * @param index   place, from 0
 * @return text owned by the filter, never empty, valid until the singer groups change or the clip
 *         dies; NULL when `index` is not below the count, and for a null handle
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_Filter_singerGroup(
    KRT_PLX_Filter* filter, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Tells how many singer IDs there are.
 *
 * @param filter  a filter
 * @param count   receives the number; left alone when the result is false
 * @return true; false when the handle or `count` is null
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_Filter_numSingerIDs(
    KRT_PLX_Filter* filter, uint64_t* count) KRT_PLX_NOEXCEPT;

/**
 * Returns a singer ID by its place.
 *
 * @param filter  a filter
 * @param index   place, from 0
 * @return text owned by the filter, never empty, valid until the singer IDs change or the clip
 *         dies; NULL when `index` is not below the count, and for a null handle
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_Filter_singerID(
    KRT_PLX_Filter* filter, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Tells how many types there are.
 *
 * @param filter  a filter
 * @param count   receives the number; left alone when the result is false
 * @return true; false when the handle or `count` is null
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_Filter_numTypes(
    KRT_PLX_Filter* filter, uint64_t* count) KRT_PLX_NOEXCEPT;

/**
 * Returns a type by its place.
 *
 * A type tag is a word for the browser, such as a kind of phrase. It has nothing to do with the
 * part type or the clip kind.
 *
 * @param filter  a filter
 * @param index   place, from 0
 * @return text owned by the filter, never empty, valid until the types change or the clip dies;
 *         NULL when `index` is not below the count, and for a null handle
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_Filter_type(
    KRT_PLX_Filter* filter, uint64_t index) KRT_PLX_NOEXCEPT;

/**
 * Tells how many vendors there are.
 *
 * @param filter  a filter
 * @param count   receives the number; left alone when the result is false
 * @return true; false when the handle or `count` is null
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_Filter_numVendors(
    KRT_PLX_Filter* filter, uint64_t* count) KRT_PLX_NOEXCEPT;

/**
 * Returns a vendor by its place.
 *
 * @param filter  a filter
 * @param index   place, from 0
 * @return text owned by the filter, possibly empty (see the group's text), valid until the vendors
 *         change or the clip dies; NULL when `index` is not below the count, and for a null handle
 */
KRT_PLX_API const KRT_PLX_Char* KRT_PLX_CALL KRT_PLX_Filter_vendor(
    KRT_PLX_Filter* filter, uint64_t index) KRT_PLX_NOEXCEPT;

/** @} */

/**
 * @defgroup korvel_plx_mutable_filter MutableFilter
 *
 * Editing the tags of an editable clip.
 *
 * These functions take the handle that KRT_PLX_MutableClip_filter() returned, and so do the reading
 * functions above. The filter of a catalogue clip is rejected: nothing changes, and the result is
 * false. To change the types and genres of a user clip, use a property editor (clip.h).
 *
 * Adding appends at the end. Adding what is already there changes nothing and **returns true**: the
 * tag is in the list, which is what was asked for. (KRT_PLX_PropertyEditor_addFilterType() and
 * KRT_PLX_PropertyEditor_addFilterGenre() answer false in that case.) Removing moves the later
 * elements up by a place and keeps their order.
 *
 * Each change makes the texts of the changed list, returned before, invalid. A text that the same
 * filter returned may be passed in.
 *
 * Vendor tags are for the life of the editable clip only: they are not saved. What is saved is the
 * vendor name (KRT_PLX_MutableClip_setVendorName()); neither of the two changes the other.
 * @{
 */

/**
 * Adds a genre.
 *
 * @param filter  the filter of an editable clip
 * @param text    the genre, of any length
 * @return true when it was added or already there; false when `text` is null or empty, and for a
 *         handle that is null or no `MutableFilter`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableFilter_addGenre(
    KRT_PLX_Filter* filter, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/**
 * Adds a language.
 *
 * @param filter    the filter of an editable clip
 * @param language  the language number, 0 to 2147483647
 * @return true when it was added or already there; false when it is negative, and for a handle that
 *         is null or no `MutableFilter`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableFilter_addLanguage(
    KRT_PLX_Filter* filter, int32_t language) KRT_PLX_NOEXCEPT;

/**
 * Adds a singer group.
 *
 * @param filter  the filter of an editable clip
 * @param text    the singer group, of any length
 * @return true when it was added or already there; false when `text` is null or empty, and for a
 *         handle that is null or no `MutableFilter`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableFilter_addSingerGroup(
    KRT_PLX_Filter* filter, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/**
 * Adds a singer ID.
 *
 * @param filter  the filter of an editable clip
 * @param text    the singer ID, of any length
 * @return true when it was added or already there; false when `text` is null or empty, and for a
 *         handle that is null or no `MutableFilter`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableFilter_addSingerID(
    KRT_PLX_Filter* filter, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/**
 * Adds a type.
 *
 * @param filter  the filter of an editable clip
 * @param text    the type, of any length
 * @return true when it was added or already there; false when `text` is null or empty, and for a
 *         handle that is null or no `MutableFilter`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableFilter_addType(
    KRT_PLX_Filter* filter, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/**
 * Adds a vendor. Unlike the other lists, this one accepts the empty text (once).
 *
 * @param filter  the filter of an editable clip
 * @param text    the vendor, of any length, possibly empty
 * @return true when it was added or already there; false when `text` is null, and for a handle that
 *         is null or no `MutableFilter`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableFilter_addVendor(
    KRT_PLX_Filter* filter, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/**
 * Removes a genre.
 *
 * @param filter  the filter of an editable clip
 * @param text    the genre
 * @return true when it was found and removed; false when `text` is null or not in the list, and for
 *         a handle that is null or no `MutableFilter`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableFilter_removeGenre(
    KRT_PLX_Filter* filter, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/**
 * Removes a language.
 *
 * @param filter    the filter of an editable clip
 * @param language  the language number
 * @return true when it was found and removed; false when it is not in the list, and for a handle
 *         that is null or no `MutableFilter`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableFilter_removeLanguage(
    KRT_PLX_Filter* filter, int32_t language) KRT_PLX_NOEXCEPT;

/**
 * Removes a singer group.
 *
 * @param filter  the filter of an editable clip
 * @param text    the singer group
 * @return true when it was found and removed; false when `text` is null or not in the list, and for
 *         a handle that is null or no `MutableFilter`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableFilter_removeSingerGroup(
    KRT_PLX_Filter* filter, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/**
 * Removes a singer ID.
 *
 * @param filter  the filter of an editable clip
 * @param text    the singer ID
 * @return true when it was found and removed; false when `text` is null or not in the list, and for
 *         a handle that is null or no `MutableFilter`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableFilter_removeSingerID(
    KRT_PLX_Filter* filter, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/**
 * Removes a type.
 *
 * @param filter  the filter of an editable clip
 * @param text    the type
 * @return true when it was found and removed; false when `text` is null or not in the list, and for
 *         a handle that is null or no `MutableFilter`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableFilter_removeType(
    KRT_PLX_Filter* filter, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/**
 * Removes a vendor; the empty text removes an empty vendor.
 *
 * @param filter  the filter of an editable clip
 * @param text    the vendor
 * @return true when it was found and removed; false when `text` is null or not in the list, and for
 *         a handle that is null or no `MutableFilter`
 */
KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_MutableFilter_removeVendor(
    KRT_PLX_Filter* filter, const KRT_PLX_Char* text) KRT_PLX_NOEXCEPT;

/** @} */

#endif
