#pragma once

#include <cstdint>
#include <vector>

#include "model/assign.h"
#include "model/controller_impl.h"
#include "model/effect_impl.h"
#include "model/mutable_part_impl.h"
#include "model/note_impl.h"
#include "model/part.h"
#include "model/part_base_impl.h"

namespace Korvel::CANTORIS::PLX {

class MidiPartBaseImpl : public virtual MidiPartBase, public PartBaseImpl {
public:
    explicit MidiPartBaseImpl(ClipBase* clip) : clip_(clip) {}

    std::int32_t duration() const noexcept override { return duration_; }
    const Char* styleName() const noexcept override { return styleName_.c_str(); }
    const Char* stylePresetID() const noexcept override { return stylePresetID_.c_str(); }
    const Char* voiceBankID() const noexcept override { return voiceBankID_.c_str(); }
    const Char* aiVoiceBankID() const noexcept override { return aiVoiceBankID_.c_str(); }
    std::uint32_t langID() const noexcept override { return langID_; }
    std::uint64_t aiLangIDSize() const noexcept override { return aiLangIDs_.size(); }
    std::uint32_t aiLangIDByIndex(std::uint64_t index) const noexcept override;

    bool assignDuration(std::int32_t value)
    {
        return assign(duration_, field::partDuration, value);
    }
    void assignStyleName(StringView text) { styleName_ = String(text); }
    void assignStylePresetID(StringView text) { stylePresetID_ = String(text); }
    bool assignVoiceBankID(StringView text);
    bool assignAiVoiceBankID(StringView text); // may be empty
    bool assignLangID(std::uint32_t value) { return assign(langID_, field::language, value); }
    bool appendAiLangID(std::uint32_t value);

protected:
    ClipBase* clip() const { return clip_; }

private:
    ClipBase* clip_;
    std::int32_t duration_ = field::partDuration.initial;
    String styleName_;
    String stylePresetID_;
    String voiceBankID_;
    String aiVoiceBankID_;
    std::uint32_t langID_ = field::language.initial;
    std::vector<std::uint8_t> aiLangIDs_;
};

// The lane of that type, or null. A linear search: a part never has more than a dozen lanes.
template <class Lane>
Lane* laneOfType(const OwnedList<Lane>& lanes, std::uint32_t type)
{
    const auto found = std::find_if(lanes.begin(), lanes.end(),
                                    [type](const Lane* lane) { return lane->type() == type; });
    return found == lanes.end() ? nullptr : *found;
}

// Inserts a lane in the order of types.
template <class Lane>
Lane* insertLane(OwnedList<Lane>& lanes, std::unique_ptr<Lane> lane)
{
    const auto place = std::find_if(lanes.begin(), lanes.end(), [&lane](const Lane* other) {
        return other->type() > lane->type();
    });
    return lanes.insert(static_cast<std::size_t>(place - lanes.begin()), std::move(lane));
}

class MidiPartImpl final : public MidiPart, public MidiPartBaseImpl {
public:
    using MidiPartBaseImpl::MidiPartBaseImpl;

    // For the reader, which fills a part before a host sees it.
    EffectList<AudioEffectImpl>& audioEffects() { return audioEffects_; }
    EffectList<MidiEffectImpl>& midiEffects() { return midiEffects_; }
    OwnedList<NoteImpl>& notes() { return notes_; }
    OwnedList<MidiControllerImpl>& lanes() { return lanes_; }

    bool isMutable() const noexcept override { return false; }
    std::uint64_t numAudioEffects() const noexcept override
    {
        return audioEffects_.effects().size();
    }
    std::uint64_t numMidiEffects() const noexcept override { return midiEffects_.effects().size(); }
    std::uint64_t numNotes() const noexcept override { return notes_.size(); }
    ClipBase* parent() const noexcept override { return clip(); }
    AudioEffect* audioEffect(std::uint64_t index) const noexcept override
    {
        return audioEffects_.effects().at(index);
    }
    bool hasAudioEffect(const EffectBase* element) const noexcept override
    {
        return audioEffects_.effects().has(element);
    }
    MidiEffect* midiEffect(std::uint64_t index) const noexcept override
    {
        return midiEffects_.effects().at(index);
    }
    bool hasMidiEffect(const EffectBase* element) const noexcept override
    {
        return midiEffects_.effects().has(element);
    }
    Note* note(std::uint64_t index) const noexcept override { return notes_.at(index); }
    bool hasNote(const NoteBase* element) const noexcept override { return notes_.has(element); }
    MidiController* midiController(std::uint32_t type) const noexcept override
    {
        return laneOfType(lanes_, type);
    }
    bool hasMidiController(const MidiControllerBase* element) const noexcept override
    {
        return lanes_.has(element);
    }
    MidiPartBase* asMidiPartBase() noexcept override { return this; }
    MidiPart* asMidiPart() noexcept override { return this; }

private:
    EffectList<AudioEffectImpl> audioEffects_;
    EffectList<MidiEffectImpl> midiEffects_;
    OwnedList<NoteImpl> notes_;
    OwnedList<MidiControllerImpl> lanes_;
};

class MutableMidiPartImpl final : public MutableMidiPart,
                                  public MidiPartBaseImpl,
                                  public MutablePartImpl {
public:
    using MidiPartBaseImpl::MidiPartBaseImpl;

    std::uint64_t numAudioEffects() const noexcept override { return audioEffects().size(); }
    std::uint64_t numMidiEffects() const noexcept override { return midiEffects_.effects().size(); }
    std::uint64_t numNotes() const noexcept override { return notes_.size(); }
    ClipBase* parent() const noexcept override { return clip(); }
    bool setDuration(std::int32_t value) noexcept override { return assignDuration(value); }
    void setStyleName(const Char* text) override { assignStyleName(viewOrEmpty(text)); }
    void setStylePresetID(const Char* text) override { assignStylePresetID(viewOrEmpty(text)); }
    bool setVoiceBankID(const Char* text) override;
    bool setLangID(std::uint32_t value) noexcept override { return assignLangID(value); }
    bool setAiVoiceBankID(const Char* text) override;
    bool addAiLangID(std::uint32_t value) override { return appendAiLangID(value); }
    MutableAudioEffect* audioEffect(std::uint64_t index) const noexcept override
    {
        return audioEffects().at(index);
    }
    bool hasAudioEffect(const EffectBase* element) const noexcept override
    {
        return audioEffects().has(element);
    }
    MutableAudioEffect* insertAudioEffect(std::uint64_t index, const Char* id) override;
    MutableMidiEffect* midiEffect(std::uint64_t index) const noexcept override
    {
        return midiEffects_.effects().at(index);
    }
    bool hasMidiEffect(const EffectBase* element) const noexcept override
    {
        return midiEffects_.effects().has(element);
    }
    MutableMidiEffect* insertMidiEffect(std::uint64_t index, const Char* id) override;
    MutableNote* note(std::uint64_t index) const noexcept override { return notes_.at(index); }
    bool hasNote(const NoteBase* element) const noexcept override { return notes_.has(element); }
    MutableNote* insertNote(std::int32_t pos, std::int32_t duration, const Char* lyric,
                            const Char* phoneme, std::uint32_t langID) override;
    MutableMidiController* midiController(std::uint32_t type) const noexcept override
    {
        return laneOfType(lanes_, type);
    }
    bool hasMidiController(const MidiControllerBase* element) const noexcept override
    {
        return lanes_.has(element);
    }
    MutableMidiController* addMidiController(std::uint32_t type) override;
    MidiPartBase* asMidiPartBase() noexcept override { return this; }
    MutableMidiPart* asMutableMidiPart() noexcept override { return this; }

private:
    EffectList<MutableMidiEffectImpl> midiEffects_;
    BlockList<MutableNoteImpl> notes_;
    OwnedList<MutableMidiControllerImpl> lanes_;
};

} // namespace Korvel::CANTORIS::PLX
