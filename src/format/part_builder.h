#pragma once

#include <memory>

#include "format/effect_builder.h"
#include "format/note_builder.h"
#include "format/point_list.h"
#include "fs/fs.h"
#include "model/audio_part_impl.h"
#include "model/midi_part_impl.h"

namespace Korvel::CANTORIS::PLX::format {

// Makes the part of a data document. Lists are filled while the walk goes through them. Whether the
// part lacks something is known at its end; then it is dropped.
class PartBuilder {
public:
    PartBuilder(const Trail& trail, Taker& taker)
        : trail_(trail), taker_(taker), notes_(trail, taker), audioEffects_(trail, taker),
          midiEffects_(trail, taker)
    {
    }

    // Starts a new document. The part will belong to the clip.
    void reset(ClipBase* clip);

    // Each replaces the part before it.
    void beginAudio();
    void beginMidi(std::uint32_t type);
    bool endAudio();
    template <class Of>
    bool endMidi();

    bool endVoice();
    bool endAiLanguage();
    bool endAiVoice();

    NoteBuilder& notes() { return notes_; }
    void beginNote() { notes_.begin(*midi_); }
    bool endNote();
    void endNotes();

    void beginAudioEffect() { audioEffects_.begin(*part_); }
    void beginMidiEffect() { midiEffects_.begin(*part_); }
    bool endAudioEffect();
    bool endMidiEffect() { return midiEffects_.end(midi_->midiEffects()); }
    bool endAudioParameter() { return audioEffects_.endParameter(); }
    bool endMidiParameter() { return midiEffects_.endParameter(); }

    // Whether the events of the innermost object can be used.
    bool beginEvents();
    bool endEvent() { return events_.append<keys::Event>(trail_, taker_); }
    bool endController();

    // The part, if it was the last one in the document and its wave file exists.
    std::unique_ptr<PartBase> release(std::uint32_t type, const fs::Path& clipDirectory);

private:
    bool keepIf(bool isRight);
    bool isTaken(std::uint32_t lane) const;
    bool findWaveFile(const fs::Path& clipDirectory);

    const Trail& trail_;
    Taker& taker_;
    NoteBuilder notes_;
    AudioEffectBuilder audioEffects_;
    MidiEffectBuilder midiEffects_;
    PointList events_;
    ClipBase* clip_ = nullptr;
    std::unique_ptr<PartBase> part_;
    AudioPartImpl* audio_ = nullptr; // the part, by its type
    MidiPartImpl* midi_ = nullptr;
    String waveFileName_;
    const char* waveFileAt_ = nullptr; // in the document
};

} // namespace Korvel::CANTORIS::PLX::format
