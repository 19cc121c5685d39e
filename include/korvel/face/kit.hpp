/**
 * @file kit.hpp
 * Editing clips that exist, and finding clips; see plx_kit.h. Who calls a function of this header links
 * the static library `krt_plx_kit` (CMake: `krt_plx::kit`) before `krt_plx`, or before `krt_plx_loaded`.
 *
 * A function that returns notices or clips throws std::bad_alloc when there is no memory for them. What
 * it did before stays done; a clip that edit() made is destroyed again.
 */
#ifndef KORVEL_FACE_KIT_HPP
#define KORVEL_FACE_KIT_HPP

#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <korvel/face/manager.hpp>
#include <korvel/plx_kit.h>

namespace korvel::plx {

/** See #KRT_PLX_KitItem. */
enum class Item : std::uint32_t {
    clip = KRT_PLX_KIT_CLIP,
    tags = KRT_PLX_KIT_TAGS,
    part = KRT_PLX_KIT_PART,
    note = KRT_PLX_KIT_NOTE,
    attack = KRT_PLX_KIT_ATTACK,
    release = KRT_PLX_KIT_RELEASE,
    singingSkill = KRT_PLX_KIT_SINGING_SKILL,
    vibrato = KRT_PLX_KIT_VIBRATO,
    lane = KRT_PLX_KIT_LANE,
    audioEffect = KRT_PLX_KIT_AUDIO_EFFECT,
    midiEffect = KRT_PLX_KIT_MIDI_EFFECT
};

/** See #KRT_PLX_KitReason. */
enum class Reason : std::uint32_t {
    refused = KRT_PLX_KIT_REFUSED,
    noLanguage = KRT_PLX_KIT_NO_LANGUAGE,
    languageGiven = KRT_PLX_KIT_LANGUAGE_GIVEN,
    unreadable = KRT_PLX_KIT_UNREADABLE,
    noWaveFile = KRT_PLX_KIT_NO_WAVE_FILE,
    notSaved = KRT_PLX_KIT_NOT_SAVED,
    preventsSaving = KRT_PLX_KIT_PREVENTS_SAVING,
    outOfRange = KRT_PLX_KIT_OUT_OF_RANGE,
    outsidePart = KRT_PLX_KIT_OUTSIDE_PART,
    cutAway = KRT_PLX_KIT_CUT_AWAY,
    shortened = KRT_PLX_KIT_SHORTENED,
    repeated = KRT_PLX_KIT_REPEATED
};

/** One thing that could not be done as it was asked for. */
struct Notice {
    /** What it is about. */
    Item item;
    /** What became of it. */
    Reason reason;
    /** By its key in documents; empty when the whole item is meant. */
    std::string property;
    /** The place of the note or effect, or the type of the lane. */
    std::uint64_t index;
    /** The place of a point, event, parameter or tag within the item. */
    std::uint64_t inner;
    /** In ticks. */
    std::int32_t pos;
    /** That the note was given. */
    std::optional<std::uint32_t> language;
    /** The notice as a line of English. */
    std::string text;
};

/** What a call could not do, in the order in which it came up. */
using Notices = std::vector<Notice>;

/** An editable clip that was filled from another one, or a null handle. */
struct EditResult {
    /** The host destroys it. */
    MutableClip clip;
    /** What the clip has not, and what saving will not keep. */
    Notices notices;

    /** True when there is a clip. */
    explicit operator bool() const noexcept { return static_cast<bool>(clip); }
};

/** Whether a part was changed, and what of it could not be. */
struct ChangeResult {
    /** Whether the part was changed. */
    bool isDone = false;
    /** What of it could not be changed. */
    Notices notices;

    /** As `isDone`. */
    explicit operator bool() const noexcept { return isDone; }
};

namespace detail {

inline Notice noticeOf(const KRT_PLX_KitNotice& notice)
{
    std::string text(KRT_PLX_Kit_describe(&notice, nullptr, 0), '\0');
    KRT_PLX_Kit_describe(&notice, text.data(), text.size());
    text.pop_back();
    const bool isGiven = notice.reason == KRT_PLX_KIT_LANGUAGE_GIVEN;
    return {static_cast<Item>(notice.item), static_cast<Reason>(notice.reason), notice.property,
        notice.index, notice.inner, notice.pos,
        isGiven ? std::optional<std::uint32_t>(notice.value) : std::nullopt, std::move(text)};
}

/** Keeps what a report is told. No exception goes through C: it waits for take(). */
class Listener {
public:
    Listener() = default;
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    KRT_PLX_KitReport* report() noexcept { return &report_; }

    Notices take()
    {
        if (failure_) {
            std::rethrow_exception(failure_);
        }
        return std::move(notices_);
    }

private:
    static void hear(void* context, const KRT_PLX_KitNotice* notice) noexcept
    {
        auto* const self = static_cast<Listener*>(context);
        try {
            self->notices_.push_back(noticeOf(*notice));
        } catch (...) {
            self->failure_ = std::current_exception();
        }
    }

    static void hearNotice(void* context, const KRT_PLX_KitNotice* notice)
    {
        hear(context, notice);
    }

    Notices notices_;
    std::exception_ptr failure_;
    KRT_PLX_KitReport report_ = {hearNotice, this, 0};
};

/** Destroys an editable clip unless it is handed on. */
class ClipGuard {
public:
    explicit ClipGuard(MutableClip clip) noexcept : clip_(clip) {}
    ClipGuard(const ClipGuard&) = delete;
    ClipGuard& operator=(const ClipGuard&) = delete;
    ~ClipGuard() { clip_.destroy(); }

    MutableClip release() noexcept { return std::exchange(clip_, MutableClip()); }

private:
    MutableClip clip_;
};

} // namespace detail

/** Makes an editable clip that has what another clip has. A note without a language is given this one,
 *  or one of its part. */
inline EditResult edit(ClipBase source, std::optional<std::uint32_t> language = std::nullopt)
{
    detail::Listener listener;
    detail::ClipGuard guard(MutableClip(KRT_PLX_Kit_edit(KRT_PLX_Kit_linked(), source.raw(),
        language.value_or(KRT_PLX_NO_LANGUAGE), listener.report())));
    Notices notices = listener.take();
    return {guard.release(), std::move(notices)};
}

/** Fills an editable clip, of this or another manager, with what another clip has. */
inline ChangeResult fill(
    MutableClip target, ClipBase source, std::optional<std::uint32_t> language = std::nullopt)
{
    detail::Listener listener;
    const bool isDone = KRT_PLX_Kit_fill(KRT_PLX_Kit_linked(), target.raw(), source.raw(),
        language.value_or(KRT_PLX_NO_LANGUAGE), listener.report());
    return {isDone, listener.take()};
}

/** Tells what saving will not keep, and what prevents it. */
[[nodiscard]] inline Notices checkSaving(MutableClip clip)
{
    detail::Listener listener;
    KRT_PLX_Kit_checkSaving(KRT_PLX_Kit_linked(), clip.raw(), listener.report());
    return listener.take();
}

/** Moves the pitch of all notes, or of none if one would be out of range. */
inline ChangeResult transpose(MutableMidiPart part, std::int32_t semitones)
{
    detail::Listener listener;
    const bool isDone =
        KRT_PLX_Kit_transpose(KRT_PLX_Kit_linked(), part.raw(), semitones, listener.report());
    return {isDone, listener.take()};
}

/** Moves all notes and events in time, or none if one would be out of range. */
inline ChangeResult moveInTime(MutableMidiPart part, std::int32_t ticks)
{
    detail::Listener listener;
    const bool isDone =
        KRT_PLX_Kit_move(KRT_PLX_Kit_linked(), part.raw(), ticks, listener.report());
    return {isDone, listener.take()};
}

/** Keeps a range of the part, which begins at 0 afterwards, and cuts away the rest. */
inline ChangeResult cut(MutableMidiPart part, std::int32_t begin, std::int32_t end)
{
    detail::Listener listener;
    const bool isDone =
        KRT_PLX_Kit_cut(KRT_PLX_Kit_linked(), part.raw(), begin, end, listener.report());
    return {isDone, listener.take()};
}

inline bool PropertyEditor::fill(Clip clip) const noexcept
{
    return KRT_PLX_Kit_fillEditor(KRT_PLX_Kit_linked(), raw(), clip.raw(), KRT_PLX_KIT_KEEP_ALL);
}

/** What a result means, in English. */
[[nodiscard]] inline std::string_view textOf(Result result) noexcept
{
    return KRT_PLX_Kit_codeText(KRT_PLX_KIT_RESULTS, static_cast<std::uint32_t>(result));
}

/** What is looked for; a new one matches every clip. See KRT_PLX_KitQuery. */
struct Query {
    /** A text that is in the name. */
    String name;
    /** Whether accents are ignored, in names and tags. */
    bool ignoreAccents = false;
    /** A clip has one of each list that is not empty. */
    std::vector<String> genres;
    /** As for genres. */
    std::vector<std::int32_t> languages;
    /** As for genres. */
    std::vector<String> singerGroups;
    /** As for genres. */
    std::vector<String> singerIDs;
    /** As for genres. */
    std::vector<String> types;
    /** As for genres. */
    std::vector<String> vendors;
    /** The part key; empty for any. */
    std::optional<std::uint32_t> key;
    /** In hundredths of a beat per minute. */
    std::uint32_t lowestTempo = 0;
    /** In hundredths of a beat per minute. */
    std::uint32_t highestTempo = UINT32_MAX;
};

namespace detail {

/** The tags point into the query. */
inline std::vector<KRT_PLX_KitTag> tagsOf(const Query& query)
{
    std::vector<KRT_PLX_KitTag> tags;
    const auto add = [&tags](KRT_PLX_KitTagList list, const std::vector<String>& texts) {
        for (const String& text : texts) {
            tags.push_back({static_cast<std::uint32_t>(list), text.c_str(), 0});
        }
    };
    add(KRT_PLX_KIT_GENRES, query.genres);
    add(KRT_PLX_KIT_SINGER_GROUPS, query.singerGroups);
    add(KRT_PLX_KIT_SINGER_IDS, query.singerIDs);
    add(KRT_PLX_KIT_TYPES, query.types);
    add(KRT_PLX_KIT_VENDORS, query.vendors);
    for (const std::int32_t language : query.languages) {
        tags.push_back({KRT_PLX_KIT_LANGUAGES, nullptr, language});
    }
    return tags;
}

} // namespace detail

/** The clips that match, system clips first. */
[[nodiscard]] inline std::vector<Clip> find(Manager manager, const Query& query)
{
    const std::vector<KRT_PLX_KitTag> tags = detail::tagsOf(query);
    const KRT_PLX_KitQuery raw = {query.name.c_str(), query.ignoreAccents, tags.data(), tags.size(),
        query.key.value_or(KRT_PLX_NO_KEY), query.lowestTempo, query.highestTempo};
    std::vector<Clip> clips;
    std::uint64_t place = 0;
    while (KRT_PLX_ClipBase* const clip =
               KRT_PLX_Kit_find(KRT_PLX_Kit_linked(), manager.raw(), &raw, &place)) {
        clips.push_back(Clip(clip));
    }
    return clips;
}

} // namespace korvel::plx

#endif
