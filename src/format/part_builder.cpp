#include "format/part_builder.h"

#include "clip/clip_files.h"

namespace Korvel::CANTORIS::PLX::format {

namespace {

using keys::ControllerTable;
using keys::place;

} // namespace

void PartBuilder::reset(ClipBase* clip)
{
    clip_ = clip;
    part_.reset();
}

bool PartBuilder::keepIf(bool isRight)
{
    if (!isRight) {
        part_.reset();
    }
    return isRight;
}

// --- Audio parts --------------------------------------------------------------------------------------

void PartBuilder::beginAudio()
{
    auto part = std::make_unique<AudioPartImpl>(clip_);
    part->setType(KRT_PLX_PART_AUDIO);
    audio_ = part.get();
    midi_ = nullptr;
    part_ = std::move(part);
}

bool PartBuilder::endAudio()
{
    const Members members = trail_.top().members();
    const Value* const name = members[place<keys::AudioPartTable>("wavFileName")];
    waveFileAt_ = name != nullptr ? name->at : nullptr;
    return keepIf(taker_.take<keys::AudioPartTable>(members, waveFileName_));
}

bool PartBuilder::findWaveFile(const fs::Path& clipDirectory)
{
    String path = wavePath(clipDirectory.text, waveFileName_);
    if (!fs::isPlainFile({path, clipDirectory.givenLength})) {
        trail_.lostWaveFile(waveFileAt_);
        return false;
    }
    audio_->assignWavFilePath(std::move(path));
    return true;
}

std::unique_ptr<PartBase> PartBuilder::release(std::uint32_t type, const fs::Path& clipDirectory)
{
    if (part_ == nullptr || part_->type() != type ||
        (type == KRT_PLX_PART_AUDIO && !findWaveFile(clipDirectory))) {
        return nullptr;
    }
    return std::move(part_);
}

// --- Parts with notes ---------------------------------------------------------------------------------

void PartBuilder::beginMidi(std::uint32_t type)
{
    auto part = std::make_unique<MidiPartImpl>(clip_);
    part->setType(type);
    audio_ = nullptr;
    midi_ = part.get();
    part_ = std::move(part);
}

template <class Of>
bool PartBuilder::endMidi()
{
    return keepIf(taker_.take<Of>(trail_.top().members(), *midi_));
}

template bool PartBuilder::endMidi<keys::MidiAiPartTable>();
template bool PartBuilder::endMidi<keys::MidiVoicePartTable>();

bool PartBuilder::endVoice()
{
    return taker_.take<keys::Voice>(trail_.top().members(), *midi_);
}

bool PartBuilder::endAiLanguage()
{
    return taker_.take<keys::AiLanguage>(trail_.top().members(), *midi_);
}

bool PartBuilder::endAiVoice()
{
    return taker_.take<keys::AiVoice>(trail_.top().members(), *midi_);
}

bool PartBuilder::endAudioEffect()
{
    return audioEffects_.end(audio_ != nullptr ? audio_->audioEffects() : midi_->audioEffects());
}

bool PartBuilder::endNote()
{
    auto note = notes_.end();
    if (note == nullptr) {
        return false;
    }
    trail_.took(*note);
    midi_->notes().append(std::move(note));
    return true;
}

void PartBuilder::endNotes()
{
    midi_->notes().stableSortBy([](const NoteImpl& note) { return note.pos(); });
}

// --- Controllers --------------------------------------------------------------------------------------

bool PartBuilder::isTaken(std::uint32_t lane) const
{
    return laneOfType(midi_->lanes(), lane) != nullptr;
}

// A lane whose name came before is not used, so its events need no memory.
bool PartBuilder::beginEvents()
{
    events_.clear();
    const Value* const name = trail_.top().members()[place<ControllerTable>("name")];
    if (name == nullptr) {
        return true;
    }
    const auto text = name->asWholeUtf8();
    const std::uint32_t type = text ? controller::fromName(*text) : KRT_PLX_CONTROLLER_NONE;
    return type != KRT_PLX_CONTROLLER_NONE && !isTaken(type);
}

bool PartBuilder::endController()
{
    const Members members = trail_.top().members();
    std::uint32_t type = KRT_PLX_CONTROLLER_NONE;
    if (!taker_.take<ControllerTable>(members, type)) {
        return false;
    }
    const auto tell = [&](LossReason reason, std::size_t of) {
        trail_.lost(reason, members, keys::rows<ControllerTable>[of], members[of]);
    };
    if (isTaken(type)) {
        tell(LossReason::duplicate, place<ControllerTable>("name"));
        return false;
    }
    const controller::Type& lane = controller::type(type);
    const PointRule rule{keys::shape<keys::Event>,
                         keys::anyPosition,
                         {.initial = 0, .minimum = lane.minimum, .maximum = lane.maximum}};
    auto& points = events_.keepAccepted(rule, trail_, "/events");
    if (points.empty()) {
        tell(LossReason::tooFew, place<ControllerTable>("events"));
        return false;
    }
    auto taken = std::make_unique<MidiControllerImpl>(*midi_, type);
    taken->buildEvents(points);
    insertLane(midi_->lanes(), std::move(taken));
    return true;
}

} // namespace Korvel::CANTORIS::PLX::format
