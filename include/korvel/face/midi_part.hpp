/**
 * @file midi_part.hpp
 * MIDI parts; see plx/part.h.
 */
#ifndef KORVEL_FACE_MIDI_PART_HPP
#define KORVEL_FACE_MIDI_PART_HPP

#include <korvel/face/controller.hpp>
#include <korvel/face/note.hpp>
#include <korvel/face/part.hpp>

namespace korvel::plx {

/** Any MIDI part. */
class MidiPartBase : public PartBase {
public:
    using PartBase::PartBase;

    /** Empty for an index past the end. */
    [[nodiscard]] std::optional<std::uint32_t> aiLangIDByIndex(std::uint64_t index) const noexcept
    {
        return detail::language(aiLangIDAt(index));
    }
    [[nodiscard]] std::uint64_t aiLangIDSize() const noexcept
    {
        return KRT_PLX_MidiPartBase_aiLangIDSize(raw());
    }
    [[nodiscard]] auto aiLangIDs() const noexcept
    {
        return Range<MidiPartBase, &MidiPartBase::aiLangIDSize, &MidiPartBase::aiLangIDAt>(*this);
    }
    [[nodiscard]] StringView aiVoiceBankID() const noexcept
    {
        return detail::view(KRT_PLX_MidiPartBase_aiVoiceBankID(raw()));
    }
    [[nodiscard]] std::int32_t duration() const noexcept
    {
        return KRT_PLX_MidiPartBase_duration(raw());
    }
    /** Empty when none was set. */
    [[nodiscard]] std::optional<std::uint32_t> langID() const noexcept
    {
        return detail::language(KRT_PLX_MidiPartBase_langID(raw()));
    }
    [[nodiscard]] std::uint64_t numAudioEffects() const noexcept
    {
        return detail::count(KRT_PLX_MidiPartBase_numAudioEffects, raw());
    }
    [[nodiscard]] std::uint64_t numMidiEffects() const noexcept
    {
        return detail::count(KRT_PLX_MidiPartBase_numMidiEffects, raw());
    }
    [[nodiscard]] std::uint64_t numNotes() const noexcept
    {
        return detail::count(KRT_PLX_MidiPartBase_numNotes, raw());
    }
    [[nodiscard]] StringView styleName() const noexcept
    {
        return detail::view(KRT_PLX_MidiPartBase_styleName(raw()));
    }
    [[nodiscard]] StringView stylePresetID() const noexcept
    {
        return detail::view(KRT_PLX_MidiPartBase_stylePresetID(raw()));
    }
    [[nodiscard]] StringView voiceBankID() const noexcept
    {
        return detail::view(KRT_PLX_MidiPartBase_voiceBankID(raw()));
    }

private:
    [[nodiscard]] std::uint32_t aiLangIDAt(std::uint64_t index) const noexcept
    {
        return KRT_PLX_MidiPartBase_aiLangIDByIndex(raw(), index);
    }
};

/** A read-only MIDI part. */
class MidiPart : public MidiPartBase {
public:
    using MidiPartBase::MidiPartBase;

    [[nodiscard]] Clip parent() const noexcept;

    [[nodiscard]] Note note(std::uint64_t index) const noexcept
    {
        return Note(KRT_PLX_MidiPart_note(raw(), index));
    }
    [[nodiscard]] bool hasNote(NoteBase element) const noexcept
    {
        return KRT_PLX_MidiPart_hasNote(raw(), element.raw());
    }
    /** By position, ascending. */
    [[nodiscard]] Range<MidiPart, &MidiPartBase::numNotes, &MidiPart::note> notes() const noexcept
    {
        return Range<MidiPart, &MidiPartBase::numNotes, &MidiPart::note>(*this);
    }

    /** Null when the part has no lane of this type. */
    [[nodiscard]] MidiController midiController(ControllerType type) const noexcept
    {
        return MidiController(
            KRT_PLX_MidiPart_midiController(raw(), static_cast<std::uint32_t>(type)));
    }
    [[nodiscard]] bool hasMidiController(MidiControllerBase element) const noexcept
    {
        return KRT_PLX_MidiPart_hasMidiController(raw(), element.raw());
    }
    /** The lanes that there are, by type. */
    [[nodiscard]] auto midiControllers() const noexcept { return Lanes<MidiPart>(*this); }

    [[nodiscard]] MidiEffect midiEffect(std::uint64_t index) const noexcept
    {
        return MidiEffect(KRT_PLX_MidiPart_midiEffect(raw(), index));
    }
    [[nodiscard]] bool hasMidiEffect(EffectBase element) const noexcept
    {
        return KRT_PLX_MidiPart_hasMidiEffect(raw(), element.raw());
    }
    /** In the order of the chain. */
    [[nodiscard]] auto midiEffects() const noexcept
    {
        return Range<MidiPart, &MidiPartBase::numMidiEffects, &MidiPart::midiEffect>(*this);
    }

    [[nodiscard]] AudioEffect audioEffect(std::uint64_t index) const noexcept
    {
        return AudioEffect(KRT_PLX_MidiPart_audioEffect(raw(), index));
    }
    [[nodiscard]] bool hasAudioEffect(EffectBase element) const noexcept
    {
        return KRT_PLX_MidiPart_hasAudioEffect(raw(), element.raw());
    }
    /** In the order of the chain. */
    [[nodiscard]] auto audioEffects() const noexcept
    {
        return Range<MidiPart, &MidiPartBase::numAudioEffects, &MidiPart::audioEffect>(*this);
    }
};

/** An editable MIDI part. */
class MutableMidiPart : public MidiPartBase {
public:
    using MidiPartBase::MidiPartBase;

    [[nodiscard]] MutableClip parent() const noexcept;

    [[nodiscard]] MutableNote note(std::uint64_t index) const noexcept
    {
        return MutableNote(KRT_PLX_MutableMidiPart_note(raw(), index));
    }
    [[nodiscard]] bool hasNote(NoteBase element) const noexcept
    {
        return KRT_PLX_MutableMidiPart_hasNote(raw(), element.raw());
    }
    /** By position, ascending. */
    [[nodiscard]] auto notes() const noexcept
    {
        return Range<MutableMidiPart, &MidiPartBase::numNotes, &MutableMidiPart::note>(*this);
    }
    /** The new note has note number 0 and velocity 0: set both. */
    template <typename Lyric, typename Phoneme>
    MutableNote insertNote(std::int32_t pos,
        std::int32_t noteDuration,
        const Lyric& lyric,
        const Phoneme& phoneme,
        std::uint32_t language) const
        noexcept(detail::isBorrowed<Lyric>&& detail::isBorrowed<Phoneme>)
    {
        return MutableNote(KRT_PLX_MutableMidiPart_insertNote(raw(), pos, noteDuration,
            detail::terminated(lyric).c_str(), detail::terminated(phoneme).c_str(), language));
    }

    /** Null when the part has no lane of this type. */
    [[nodiscard]] MutableMidiController midiController(ControllerType type) const noexcept
    {
        return MutableMidiController(
            KRT_PLX_MutableMidiPart_midiController(raw(), static_cast<std::uint32_t>(type)));
    }
    [[nodiscard]] bool hasMidiController(MidiControllerBase element) const noexcept
    {
        return KRT_PLX_MutableMidiPart_hasMidiController(raw(), element.raw());
    }
    /** The lanes that there are, by type. */
    [[nodiscard]] auto midiControllers() const noexcept { return Lanes<MutableMidiPart>(*this); }
    /** Null when the part has a lane of this type already. */
    MutableMidiController addMidiController(ControllerType type) const noexcept
    {
        return MutableMidiController(
            KRT_PLX_MutableMidiPart_addMidiController(raw(), static_cast<std::uint32_t>(type)));
    }

    [[nodiscard]] MutableMidiEffect midiEffect(std::uint64_t index) const noexcept
    {
        return MutableMidiEffect(KRT_PLX_MutableMidiPart_midiEffect(raw(), index));
    }
    [[nodiscard]] bool hasMidiEffect(EffectBase element) const noexcept
    {
        return KRT_PLX_MutableMidiPart_hasMidiEffect(raw(), element.raw());
    }
    /** In the order of the chain. */
    [[nodiscard]] auto midiEffects() const noexcept
    {
        return Range<MutableMidiPart, &MidiPartBase::numMidiEffects, &MutableMidiPart::midiEffect>(
            *this);
    }
    /** Returns the effect that is there when the chain has one of this ID. */
    template <typename Text>
    MutableMidiEffect insertMidiEffect(std::uint64_t index, const Text& id) const
        noexcept(detail::isBorrowed<Text>)
    {
        return MutableMidiEffect(
            KRT_PLX_MutableMidiPart_insertMidiEffect(raw(), index, detail::terminated(id).c_str()));
    }

    [[nodiscard]] MutableAudioEffect audioEffect(std::uint64_t index) const noexcept
    {
        return MutableAudioEffect(KRT_PLX_MutableMidiPart_audioEffect(raw(), index));
    }
    [[nodiscard]] bool hasAudioEffect(EffectBase element) const noexcept
    {
        return KRT_PLX_MutableMidiPart_hasAudioEffect(raw(), element.raw());
    }
    /** In the order of the chain. */
    [[nodiscard]] auto audioEffects() const noexcept
    {
        return Range<MutableMidiPart, &MidiPartBase::numAudioEffects,
            &MutableMidiPart::audioEffect>(*this);
    }
    /** Returns the effect that is there when the chain has one of this ID. */
    template <typename Text>
    MutableAudioEffect insertAudioEffect(std::uint64_t index, const Text& id) const
        noexcept(detail::isBorrowed<Text>)
    {
        return MutableAudioEffect(KRT_PLX_MutableMidiPart_insertAudioEffect(
            raw(), index, detail::terminated(id).c_str()));
    }

    bool addAiLangID(std::uint32_t language) const noexcept
    {
        return KRT_PLX_MutableMidiPart_addAiLangID(raw(), language);
    }
    bool setDuration(std::int32_t ticks) const noexcept
    {
        return KRT_PLX_MutableMidiPart_setDuration(raw(), ticks);
    }
    bool setLangID(std::uint32_t language) const noexcept
    {
        return KRT_PLX_MutableMidiPart_setLangID(raw(), language);
    }
    template <typename Text>
    bool setAiVoiceBankID(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_MutableMidiPart_setAiVoiceBankID(raw(), detail::terminated(text).c_str());
    }
    template <typename Text>
    bool setStyleName(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_MutableMidiPart_setStyleName(raw(), detail::terminated(text).c_str());
    }
    template <typename Text>
    bool setStylePresetID(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_MutableMidiPart_setStylePresetID(raw(), detail::terminated(text).c_str());
    }
    template <typename Text>
    bool setVoiceBankID(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_MutableMidiPart_setVoiceBankID(raw(), detail::terminated(text).c_str());
    }
};

inline MidiPartBase PartBase::asMidiPartBase() const noexcept
{
    return detail::castIf<MidiPartBase>(isMidi(), *this);
}

inline MidiPart PartBase::asMidiPart() const noexcept
{
    return detail::castIf<MidiPart>(isMidi() && !isMutable(), *this);
}

inline MutableMidiPart PartBase::asMutableMidiPart() const noexcept
{
    return detail::castIf<MutableMidiPart>(isMidi() && isMutable(), *this);
}

inline MidiPart Note::parent() const noexcept
{
    return MidiPart(KRT_PLX_Note_parent(raw()));
}

inline MutableMidiPart MutableNote::parent() const noexcept
{
    return MutableMidiPart(KRT_PLX_MutableNote_parent(raw()));
}

inline MidiPart MidiController::parent() const noexcept
{
    return MidiPart(KRT_PLX_MidiController_parent(raw()));
}

inline MutableMidiPart MutableMidiController::parent() const noexcept
{
    return MutableMidiPart(KRT_PLX_MutableMidiController_parent(raw()));
}

inline MidiPart MidiEffect::parent() const noexcept
{
    return MidiPart(KRT_PLX_MidiEffect_parent(raw()));
}

inline MutableMidiPart MutableMidiEffect::parent() const noexcept
{
    return MutableMidiPart(KRT_PLX_MutableMidiEffect_parent(raw()));
}

} // namespace korvel::plx

#endif
