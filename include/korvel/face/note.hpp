/**
 * @file note.hpp
 * Notes; see plx/note.h.
 */
#ifndef KORVEL_FACE_NOTE_HPP
#define KORVEL_FACE_NOTE_HPP

#include <optional>

#include <korvel/face/expression.hpp>
#include <korvel/face/vibrato.hpp>
#include <korvel/plx/note.h>

namespace korvel::plx {

class MidiPart;
class MutableMidiPart;
class MutableNote;
class Note;

/** Any note. */
class NoteBase : public Handle<KRT_PLX_NoteBase> {
public:
    using Handle::Handle;

    [[nodiscard]] bool isMutable() const noexcept { return KRT_PLX_NoteBase_isMutable(raw()); }
    [[nodiscard]] StringView lyric() const noexcept
    {
        return detail::view(KRT_PLX_NoteBase_lyric(raw()));
    }
    [[nodiscard]] StringView phoneme() const noexcept
    {
        return detail::view(KRT_PLX_NoteBase_phoneme(raw()));
    }
    /** Empty for a note without language. */
    [[nodiscard]] std::optional<std::uint32_t> langID() const noexcept
    {
        return detail::language(KRT_PLX_NoteBase_langID(raw()));
    }
    [[nodiscard]] bool isProtected() const noexcept { return KRT_PLX_NoteBase_isProtected(raw()); }
    [[nodiscard]] std::int32_t pos() const noexcept { return KRT_PLX_NoteBase_pos(raw()); }
    [[nodiscard]] std::int32_t duration() const noexcept
    {
        return KRT_PLX_NoteBase_duration(raw());
    }
    [[nodiscard]] std::uint32_t number() const noexcept { return KRT_PLX_NoteBase_number(raw()); }
    [[nodiscard]] std::uint32_t velocity() const noexcept
    {
        return KRT_PLX_NoteBase_velocity(raw());
    }
    [[nodiscard]] std::uint32_t accent() const noexcept { return KRT_PLX_NoteBase_accent(raw()); }
    [[nodiscard]] std::uint32_t bendDepth() const noexcept
    {
        return KRT_PLX_NoteBase_bendDepth(raw());
    }
    [[nodiscard]] std::uint32_t bendLength() const noexcept
    {
        return KRT_PLX_NoteBase_bendLength(raw());
    }
    [[nodiscard]] std::uint32_t decay() const noexcept { return KRT_PLX_NoteBase_decay(raw()); }
    [[nodiscard]] std::uint32_t opening() const noexcept { return KRT_PLX_NoteBase_opening(raw()); }
    [[nodiscard]] bool fallPort() const noexcept { return KRT_PLX_NoteBase_fallPort(raw()); }
    [[nodiscard]] bool risePort() const noexcept { return KRT_PLX_NoteBase_risePort(raw()); }

    [[nodiscard]] float pitchFine() const noexcept { return KRT_PLX_NoteBase_pitchFine(raw()); }
    [[nodiscard]] float pitchDriftStart() const noexcept
    {
        return KRT_PLX_NoteBase_pitchDriftStart(raw());
    }
    [[nodiscard]] float pitchDriftEnd() const noexcept
    {
        return KRT_PLX_NoteBase_pitchDriftEnd(raw());
    }
    [[nodiscard]] float pitchScalingCenter() const noexcept
    {
        return KRT_PLX_NoteBase_pitchScalingCenter(raw());
    }
    [[nodiscard]] float pitchScalingOrigin() const noexcept
    {
        return KRT_PLX_NoteBase_pitchScalingOrigin(raw());
    }
    [[nodiscard]] float pitchTransitionStart() const noexcept
    {
        return KRT_PLX_NoteBase_pitchTransitionStart(raw());
    }
    [[nodiscard]] float pitchTransitionEnd() const noexcept
    {
        return KRT_PLX_NoteBase_pitchTransitionEnd(raw());
    }
    [[nodiscard]] float amplitudeWhole() const noexcept
    {
        return KRT_PLX_NoteBase_amplitudeWhole(raw());
    }
    [[nodiscard]] float amplitudeStart() const noexcept
    {
        return KRT_PLX_NoteBase_amplitudeStart(raw());
    }
    [[nodiscard]] float amplitudeEnd() const noexcept
    {
        return KRT_PLX_NoteBase_amplitudeEnd(raw());
    }
    [[nodiscard]] float formantWhole() const noexcept
    {
        return KRT_PLX_NoteBase_formantWhole(raw());
    }
    [[nodiscard]] float formantStart() const noexcept
    {
        return KRT_PLX_NoteBase_formantStart(raw());
    }
    [[nodiscard]] float formantEnd() const noexcept { return KRT_PLX_NoteBase_formantEnd(raw()); }

    [[nodiscard]] Note asNote() const noexcept;
    [[nodiscard]] MutableNote asMutableNote() const noexcept;
};

/** A read-only note. */
class Note : public NoteBase {
public:
    using NoteBase::NoteBase;

    [[nodiscard]] MidiPart parent() const noexcept;

    [[nodiscard]] Dvqm dvqm(bool isAttack) const noexcept
    {
        return Dvqm(KRT_PLX_Note_dvqm(raw(), isAttack));
    }
    /** The one at the start of the note. */
    [[nodiscard]] Dvqm attack() const noexcept { return dvqm(true); }
    /** The one at the end of the note. */
    [[nodiscard]] Dvqm release() const noexcept { return dvqm(false); }
    [[nodiscard]] SingingSkill singingSkill() const noexcept
    {
        return SingingSkill(KRT_PLX_Note_singingSkill(raw()));
    }
    [[nodiscard]] Vibrato vibrato() const noexcept { return Vibrato(KRT_PLX_Note_vibrato(raw())); }
};

/** An editable note. */
class MutableNote : public NoteBase {
public:
    using NoteBase::NoteBase;

    [[nodiscard]] MutableMidiPart parent() const noexcept;

    [[nodiscard]] MutableDvqm dvqm(bool isAttack) const noexcept
    {
        return MutableDvqm(KRT_PLX_MutableNote_dvqm(raw(), isAttack));
    }
    /** The one at the start of the note. */
    [[nodiscard]] MutableDvqm attack() const noexcept { return dvqm(true); }
    /** The one at the end of the note. */
    [[nodiscard]] MutableDvqm release() const noexcept { return dvqm(false); }
    [[nodiscard]] MutableSingingSkill singingSkill() const noexcept
    {
        return MutableSingingSkill(KRT_PLX_MutableNote_singingSkill(raw()));
    }
    [[nodiscard]] MutableVibrato vibrato() const noexcept
    {
        return MutableVibrato(KRT_PLX_MutableNote_vibrato(raw()));
    }

    /** Kills this handle and those of all that the note owns. */
    bool remove() const noexcept { return KRT_PLX_MutableNote_remove(raw()); }
    bool move(std::int32_t pos) const noexcept { return KRT_PLX_MutableNote_move(raw(), pos); }
    bool setDuration(std::int32_t duration) const noexcept
    {
        return KRT_PLX_MutableNote_setDuration(raw(), duration);
    }
    template <typename Text>
    bool setLyric(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_MutableNote_setLyric(raw(), detail::terminated(text).c_str());
    }
    template <typename Text>
    bool setPhoneme(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_MutableNote_setPhoneme(raw(), detail::terminated(text).c_str());
    }
    bool setLangID(std::uint32_t value) const noexcept
    {
        return KRT_PLX_MutableNote_setLangID(raw(), value);
    }
    bool setProtected(bool value) const noexcept
    {
        return KRT_PLX_MutableNote_setProtected(raw(), value);
    }
    bool setNumber(std::uint32_t value) const noexcept
    {
        return KRT_PLX_MutableNote_setNumber(raw(), value);
    }
    bool setVelocity(std::uint32_t value) const noexcept
    {
        return KRT_PLX_MutableNote_setVelocity(raw(), value);
    }
    bool setAccent(std::uint32_t value) const noexcept
    {
        return KRT_PLX_MutableNote_setAccent(raw(), value);
    }
    bool setBendDepth(std::uint32_t value) const noexcept
    {
        return KRT_PLX_MutableNote_setBendDepth(raw(), value);
    }
    bool setBendLength(std::uint32_t value) const noexcept
    {
        return KRT_PLX_MutableNote_setBendLength(raw(), value);
    }
    bool setDecay(std::uint32_t value) const noexcept
    {
        return KRT_PLX_MutableNote_setDecay(raw(), value);
    }
    bool setOpening(std::uint32_t value) const noexcept
    {
        return KRT_PLX_MutableNote_setOpening(raw(), value);
    }
    bool setFallPort(bool value) const noexcept
    {
        return KRT_PLX_MutableNote_setFallPort(raw(), value);
    }
    bool setRisePort(bool value) const noexcept
    {
        return KRT_PLX_MutableNote_setRisePort(raw(), value);
    }

    bool setPitchFine(float value) const noexcept
    {
        return KRT_PLX_MutableNote_setPitchFine(raw(), value);
    }
    bool setPitchDriftStart(float value) const noexcept
    {
        return KRT_PLX_MutableNote_setPitchDriftStart(raw(), value);
    }
    bool setPitchDriftEnd(float value) const noexcept
    {
        return KRT_PLX_MutableNote_setPitchDriftEnd(raw(), value);
    }
    bool setPitchScalingCenter(float value) const noexcept
    {
        return KRT_PLX_MutableNote_setPitchScalingCenter(raw(), value);
    }
    bool setPitchScalingOrigin(float value) const noexcept
    {
        return KRT_PLX_MutableNote_setPitchScalingOrigin(raw(), value);
    }
    bool setPitchTransitionStart(float value) const noexcept
    {
        return KRT_PLX_MutableNote_setPitchTransitionStart(raw(), value);
    }
    bool setPitchTransitionEnd(float value) const noexcept
    {
        return KRT_PLX_MutableNote_setPitchTransitionEnd(raw(), value);
    }
    bool setAmplitudeWhole(float value) const noexcept
    {
        return KRT_PLX_MutableNote_setAmplitudeWhole(raw(), value);
    }
    bool setAmplitudeStart(float value) const noexcept
    {
        return KRT_PLX_MutableNote_setAmplitudeStart(raw(), value);
    }
    bool setAmplitudeEnd(float value) const noexcept
    {
        return KRT_PLX_MutableNote_setAmplitudeEnd(raw(), value);
    }
    bool setFormantWhole(float value) const noexcept
    {
        return KRT_PLX_MutableNote_setFormantWhole(raw(), value);
    }
    bool setFormantStart(float value) const noexcept
    {
        return KRT_PLX_MutableNote_setFormantStart(raw(), value);
    }
    bool setFormantEnd(float value) const noexcept
    {
        return KRT_PLX_MutableNote_setFormantEnd(raw(), value);
    }
};

inline Note NoteBase::asNote() const noexcept
{
    return detail::castIf<Note>(!isMutable(), *this);
}

inline MutableNote NoteBase::asMutableNote() const noexcept
{
    return detail::castIf<MutableNote>(isMutable(), *this);
}

inline Note Dvqm::parent() const noexcept
{
    return Note(KRT_PLX_Dvqm_parent(raw()));
}

inline MutableNote MutableDvqm::parent() const noexcept
{
    return MutableNote(KRT_PLX_MutableDvqm_parent(raw()));
}

inline Note SingingSkill::parent() const noexcept
{
    return Note(KRT_PLX_SingingSkill_parent(raw()));
}

inline MutableNote MutableSingingSkill::parent() const noexcept
{
    return MutableNote(KRT_PLX_MutableSingingSkill_parent(raw()));
}

inline Note Vibrato::parent() const noexcept
{
    return Note(KRT_PLX_Vibrato_parent(raw()));
}

inline MutableNote MutableVibrato::parent() const noexcept
{
    return MutableNote(KRT_PLX_MutableVibrato_parent(raw()));
}

} // namespace korvel::plx

#endif
