/**
 * @file clip.hpp
 * Clips and the property editor; see plx/clip.h.
 */
#ifndef KORVEL_FACE_CLIP_HPP
#define KORVEL_FACE_CLIP_HPP

#include <korvel/face/filter.hpp>
#include <korvel/face/midi_part.hpp>
#include <korvel/plx/clip.h>

namespace korvel::plx {

class Clip;
class Manager;
class MutableClip;
class UserClip;
struct SaveResult;

/** Any clip. */
class ClipBase : public Handle<KRT_PLX_ClipBase> {
public:
    using Handle::Handle;

    [[nodiscard]] Manager parent() const noexcept;

    [[nodiscard]] StringView vendorName() const noexcept
    {
        return detail::view(KRT_PLX_ClipBase_vendorName(raw()));
    }
    [[nodiscard]] PartType partType() const noexcept
    {
        return static_cast<PartType>(KRT_PLX_ClipBase_partType(raw()));
    }
    /** Empty for a null handle. */
    [[nodiscard]] std::optional<std::uint32_t> partKey() const noexcept
    {
        const std::uint32_t key = KRT_PLX_ClipBase_partKey(raw());
        return key != KRT_PLX_NO_KEY ? std::optional<std::uint32_t>(key) : std::nullopt;
    }
    /** In hundredths of a beat per minute; empty where the C function has 0 for "no tempo", and for
     *  a null handle. */
    [[nodiscard]] std::optional<std::uint32_t> partTempo() const noexcept
    {
        const std::uint32_t tempo = KRT_PLX_ClipBase_partTempo(raw());
        return tempo != 0 && tempo != KRT_PLX_NO_TEMPO ? std::optional<std::uint32_t>(tempo)
                                                       : std::nullopt;
    }

    [[nodiscard]] Clip asClip() const noexcept;
    [[nodiscard]] UserClip asUserClip() const noexcept;
    [[nodiscard]] MutableClip asMutableClip() const noexcept;
};

/** A clip of the catalogue: a system clip or a user clip. */
class Clip : public ClipBase {
public:
    using ClipBase::ClipBase;

    [[nodiscard]] StringView id() const noexcept { return detail::view(KRT_PLX_Clip_id(raw())); }
    [[nodiscard]] StringView name() const noexcept
    {
        return detail::view(KRT_PLX_Clip_name(raw()));
    }
    [[nodiscard]] ClipKind type() const noexcept
    {
        return static_cast<ClipKind>(KRT_PLX_Clip_type(raw()));
    }
    [[nodiscard]] StringView path() const noexcept
    {
        return detail::view(KRT_PLX_Clip_path(raw()));
    }
    [[nodiscard]] Filter filter() const noexcept { return Filter(KRT_PLX_Clip_filter(raw())); }

    /** When it returns true, the part that was loaded before is dead, with all its handles. */
    bool readPart() const noexcept { return KRT_PLX_Clip_readPart(raw()); }
    /** Null unless an audio part is loaded. */
    [[nodiscard]] AudioPart audioPart() const noexcept
    {
        return AudioPart(KRT_PLX_Clip_audioPart(raw()));
    }
    [[nodiscard]] bool hasAudioPart(PartBase element) const noexcept
    {
        return KRT_PLX_Clip_hasAudioPart(raw(), element.raw());
    }
    /** Null unless a MIDI part is loaded. */
    [[nodiscard]] MidiPart midiPart() const noexcept
    {
        return MidiPart(KRT_PLX_Clip_midiPart(raw()));
    }
    [[nodiscard]] bool hasMidiPart(PartBase element) const noexcept
    {
        return KRT_PLX_Clip_hasMidiPart(raw(), element.raw());
    }
};

/** Changes name, types, genres, key and tempo of a user clip. What is not set is saved empty. */
class PropertyEditor : public Handle<KRT_PLX_PropertyEditor> {
public:
    using Handle::Handle;

    template <typename Text>
    bool setClipName(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_PropertyEditor_setClipName(raw(), detail::terminated(text).c_str());
    }
    template <typename Text>
    bool addFilterType(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_PropertyEditor_addFilterType(raw(), detail::terminated(text).c_str());
    }
    template <typename Text>
    bool addFilterGenre(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_PropertyEditor_addFilterGenre(raw(), detail::terminated(text).c_str());
    }
    bool setPartKey(std::uint32_t value) const noexcept
    {
        return KRT_PLX_PropertyEditor_setPartKey(raw(), value);
    }
    /** 0 for none. */
    bool setPartTempo(std::uint32_t value) const noexcept
    {
        return KRT_PLX_PropertyEditor_setPartTempo(raw(), value);
    }
    /** Sets what the clip has in a new editor, so that one changes what one names. Takes the kit: see
     *  kit.hpp. */
    bool fill(Clip clip) const noexcept;
    /** Ends the life of the clip's name, types and genres as texts that were returned before. */
    bool save() const noexcept { return KRT_PLX_PropertyEditor_save(raw()); }
};

/** A clip of the user. */
class UserClip : public Clip {
public:
    using Clip::Clip;

    /** Deletes the clip's files. When it returns true, this handle is dead. */
    bool remove() const noexcept { return KRT_PLX_UserClip_remove(raw()); }

    /** Kills the editor that the clip had. */
    [[nodiscard]] PropertyEditor createPropertyEditor() const noexcept
    {
        return PropertyEditor(KRT_PLX_UserClip_createPropertyEditor(raw()));
    }
    /** Kills the editor that the clip has, whichever is passed. */
    void destroyPropertyEditor(PropertyEditor editor) const noexcept
    {
        KRT_PLX_UserClip_destroyPropertyEditor(raw(), editor.raw());
    }
};

/** A clip in the making. */
class MutableClip : public ClipBase {
public:
    using ClipBase::ClipBase;

    [[nodiscard]] MutableAudioPart audioPart() const noexcept
    {
        return MutableAudioPart(KRT_PLX_MutableClip_audioPart(raw()));
    }
    [[nodiscard]] MutableMidiPart midiPart() const noexcept
    {
        return MutableMidiPart(KRT_PLX_MutableClip_midiPart(raw()));
    }
    /** True too for a null element when the clip has no audio part. */
    [[nodiscard]] bool hasAudioPart(PartBase element) const noexcept
    {
        return KRT_PLX_MutableClip_hasAudioPart(raw(), element.raw());
    }
    /** True too for a null element when the clip has no MIDI part. */
    [[nodiscard]] bool hasMidiPart(PartBase element) const noexcept
    {
        return KRT_PLX_MutableClip_hasMidiPart(raw(), element.raw());
    }

    /** Kills the part that the clip had. */
    MutableAudioPart createAudioPart() const noexcept
    {
        return MutableAudioPart(KRT_PLX_MutableClip_createAudioPart(raw()));
    }
    /** Kills the part that the clip had. */
    MutableMidiPart createMidiPart() const noexcept
    {
        return MutableMidiPart(KRT_PLX_MutableClip_createMidiPart(raw()));
    }
    /** Kills the part that the clip had. */
    MutableMidiPart createMidiAiPart() const noexcept
    {
        return MutableMidiPart(KRT_PLX_MutableClip_createMidiAiPart(raw()));
    }

    [[nodiscard]] MutableFilter filter() const noexcept
    {
        return MutableFilter(KRT_PLX_MutableClip_filter(raw()));
    }
    bool setPartKey(std::uint32_t value) const noexcept
    {
        return KRT_PLX_MutableClip_setPartKey(raw(), value);
    }
    /** 0 for none. */
    bool setPartTempo(std::uint32_t value) const noexcept
    {
        return KRT_PLX_MutableClip_setPartTempo(raw(), value);
    }
    template <typename Text>
    bool setVendorName(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_MutableClip_setVendorName(raw(), detail::terminated(text).c_str());
    }

    /** Saves a new user clip of this name; `formatted` writes documents for people to read. */
    template <typename Text>
    SaveResult save(const Text& name, bool formatted = false) const
        noexcept(detail::isBorrowed<Text>);

    /** Kills this handle and all handles beneath it. */
    bool destroy() const noexcept { return KRT_PLX_MutableClip_destroy(raw()); }
};

/** What saving gives: the new clip, or a null handle and why. */
struct SaveResult {
    /** Null when saving failed. */
    UserClip clip;
    /** Result::noManager when the clip was none that can be saved, or memory ran out. */
    ResultCode code;

    /** True when there is a clip. */
    explicit operator bool() const noexcept { return static_cast<bool>(clip); }
};

template <typename Text>
SaveResult MutableClip::save(const Text& name, bool formatted) const
    noexcept(detail::isBorrowed<Text>)
{
    std::uint32_t code = detail::noCode;
    const UserClip clip(
        KRT_PLX_MutableClip_save(raw(), detail::terminated(name).c_str(), formatted, &code));
    return {clip, ResultCode(code, static_cast<bool>(clip))};
}

inline Clip ClipBase::asClip() const noexcept
{
    const auto clip = Clip(raw());
    return detail::castIf<Clip>(clip.type() != ClipKind::none, clip);
}

inline UserClip ClipBase::asUserClip() const noexcept
{
    const auto clip = Clip(raw());
    return detail::castIf<UserClip>(clip.type() == ClipKind::user, clip);
}

inline MutableClip ClipBase::asMutableClip() const noexcept
{
    return detail::castIf<MutableClip>(Clip(raw()).type() == ClipKind::none, *this);
}

inline Clip MidiPart::parent() const noexcept
{
    return Clip(KRT_PLX_MidiPart_parent(raw()));
}

inline MutableClip MutableMidiPart::parent() const noexcept
{
    return MutableClip(KRT_PLX_MutableMidiPart_parent(raw()));
}

inline Clip AudioPart::parent() const noexcept
{
    return Clip(KRT_PLX_AudioPart_parent(raw()));
}

inline MutableClip MutableAudioPart::parent() const noexcept
{
    return MutableClip(KRT_PLX_MutableAudioPart_parent(raw()));
}

} // namespace korvel::plx

#endif
