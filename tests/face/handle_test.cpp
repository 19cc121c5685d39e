// Handles as values: null, equal, converted.
#include <type_traits>
#include <unordered_set>

#include "face/face_fixture.h"

namespace {

template <typename Type>
constexpr bool isPlain =
    std::is_trivially_copyable_v<Type>&& std::is_nothrow_default_constructible_v<Type> &&
    sizeof(Type) == sizeof(void*);

static_assert(isPlain<plx::Manager> && isPlain<plx::UserClip> && isPlain<plx::MutableClip>);
static_assert(isPlain<plx::MutableFilter> && isPlain<plx::PropertyEditor>);
static_assert(isPlain<plx::MidiPart> && isPlain<plx::MutableAudioPart> && isPlain<plx::Note>);
static_assert(isPlain<plx::Dvqm> && isPlain<plx::SingingSkill> && isPlain<plx::Vibrato>);
static_assert(isPlain<plx::VibratoParameter> && isPlain<plx::MidiController>);
static_assert(isPlain<plx::MidiEvent> && isPlain<plx::AudioEffect>);
static_assert(isPlain<plx::EffectParameter>);

template <typename From, typename To>
constexpr bool converts = std::is_convertible_v<From, To>;

static_assert(converts<plx::UserClip, plx::Clip> && converts<plx::Clip, plx::ClipBase>);
static_assert(!converts<plx::Clip, plx::UserClip> && !converts<plx::ClipBase, plx::Clip>);
static_assert(!converts<plx::MutableClip, plx::Clip> && !converts<plx::Clip, plx::MutableClip>);
static_assert(converts<plx::MutableMidiPart, plx::MidiPartBase>);
static_assert(!converts<plx::MidiPart, plx::AudioPart>);
static_assert(!converts<KRT_PLX_NoteBase*, plx::Note> && !converts<plx::Note, bool>);

TEST_F(FaceTest, NullHandlesDoWhatTheFunctionsDo)
{
    const plx::Clip clip;

    EXPECT_FALSE(clip);
    EXPECT_FALSE(clip.readPart());
    EXPECT_TRUE(clip.name().empty());
    EXPECT_EQ(clip.name().data(), nullptr);
    EXPECT_EQ(clip.type(), plx::ClipKind::none);
    EXPECT_EQ(clip.partType(), plx::PartType::none);
    EXPECT_EQ(clip.partKey(), std::nullopt);
    EXPECT_EQ(clip.partTempo(), std::nullopt);
    EXPECT_TRUE(clip.midiPart().notes().empty());
    EXPECT_TRUE(clip.midiPart().midiControllers().empty());
    EXPECT_TRUE(clip.filter().genres().empty());
    EXPECT_EQ(clip.filter().language(0), std::nullopt);
    EXPECT_EQ(clip.midiPart().note(0).vibrato().rates().size(), 0U);
    EXPECT_EQ(plx::EffectParameterBase().valueInt32(), std::nullopt);
    EXPECT_EQ(plx::EffectParameterBase().type(), plx::ValueType::none);
    EXPECT_EQ(plx::Manager().readAllClipFiles(), plx::Result::noManager);
}

TEST_F(FaceTest, HandlesAreEqualWhenTheyAreTheSameObject)
{
    const plx::UserClip clip = saveMidiClip();
    const plx::MidiPart part = clip.midiPart();
    const plx::NoteBase first = part.note(0);

    EXPECT_TRUE(first == part.notes()[0]);
    EXPECT_FALSE(first != part.notes()[0]);
    EXPECT_TRUE(first != part.note(1));
    EXPECT_TRUE(plx::Note() == part.note(2));
    EXPECT_EQ(manager.userClip(0), clip);
    const std::unordered_set<plx::Note, plx::HandleHash> notes(part.notes().begin(),
                                                               part.notes().end());
    EXPECT_EQ(notes.size(), 2U);
    EXPECT_EQ(notes.count(part.note(1)), 1U);
}

TEST_F(FaceTest, ClipsConvertToWhatTheyAre)
{
    const plx::ClipBase editable = makeMidiClip();
    const plx::ClipBase user = saveMidiClip();

    EXPECT_EQ(editable.asMutableClip(), editable);
    EXPECT_FALSE(editable.asClip());
    EXPECT_FALSE(editable.asUserClip());
    EXPECT_EQ(user.asClip(), user);
    EXPECT_EQ(user.asUserClip(), user);
    EXPECT_FALSE(user.asMutableClip());
    EXPECT_FALSE(plx::ClipBase().asMutableClip());
}

TEST_F(FaceTest, SystemClipsAreNoUserClips)
{
    saveMidiClip();
    const auto created = plx::createManager(folder / "other", folder / "user", folder / "empty");
    ASSERT_EQ(created.manager.readAllClipFiles(), plx::Result::ok);
    const plx::ClipBase clip = created.manager.systemClip(0);

    EXPECT_EQ(clip.asClip().type(), plx::ClipKind::system);
    EXPECT_FALSE(clip.asUserClip());
    EXPECT_FALSE(clip.asMutableClip());
    EXPECT_TRUE(created.manager.destroy());
}

TEST_F(FaceTest, PartsConvertToWhatTheyAre)
{
    const plx::PartBase read = saveMidiClip().midiPart();
    const plx::MutableClip clip = manager.createMutableClip();
    const plx::PartBase audio = clip.createAudioPart();

    EXPECT_EQ(read.asMidiPartBase(), read);
    EXPECT_EQ(read.asMidiPart(), read);
    EXPECT_FALSE(read.asMutableMidiPart());
    EXPECT_FALSE(read.asAudioPartBase());
    EXPECT_FALSE(read.asAudioPart());
    EXPECT_EQ(audio.asAudioPartBase(), audio);
    EXPECT_EQ(audio.asMutableAudioPart(), audio);
    EXPECT_FALSE(audio.asAudioPart());
    EXPECT_FALSE(audio.asMidiPartBase());
    const plx::PartBase midiAi = clip.createMidiAiPart();
    EXPECT_EQ(midiAi.asMutableMidiPart(), midiAi);
    EXPECT_FALSE(midiAi.asMidiPart());
    EXPECT_FALSE(plx::PartBase().asMidiPartBase());
}

TEST_F(FaceTest, ReadOnlyObjectsConvertToWhatTheyAre)
{
    const plx::MidiPart part = saveMidiClip().midiPart();
    const plx::Note note = part.note(0);
    const plx::MidiController lane = part.midiController(plx::ControllerType::pitchBend);

    EXPECT_EQ(plx::NoteBase(note).asNote(), note);
    EXPECT_FALSE(note.asMutableNote());
    EXPECT_EQ(note.attack().asDvqm(), note.dvqm(true));
    EXPECT_FALSE(note.attack().asMutableDvqm());
    EXPECT_EQ(note.singingSkill().asSingingSkill(), note.singingSkill());
    EXPECT_FALSE(note.singingSkill().asMutableSingingSkill());
    EXPECT_EQ(note.vibrato().asVibrato(), note.vibrato());
    EXPECT_FALSE(note.vibrato().asMutableVibrato());
    EXPECT_EQ(note.vibrato().depths()[0].asVibratoParameter(), note.vibrato().depths()[0]);
    EXPECT_FALSE(note.vibrato().depths()[0].asMutableVibratoParameter());
    EXPECT_EQ(lane.asMidiController(), lane);
    EXPECT_FALSE(lane.asMutableMidiController());
    EXPECT_EQ(lane.event(1).asMidiEvent(), lane.event(1));
    EXPECT_FALSE(lane.event(1).asMutableMidiEvent());
}

TEST_F(FaceTest, EditableObjectsConvertToWhatTheyAre)
{
    const plx::MutableMidiPart part = makeMidiClip().midiPart();
    const plx::MutableNote note = part.note(0);
    const plx::MutableMidiController lane = part.midiController(plx::ControllerType::pitchBend);

    EXPECT_EQ(note.asMutableNote(), note);
    EXPECT_FALSE(note.asNote());
    EXPECT_EQ(note.release().asMutableDvqm(), note.dvqm(false));
    EXPECT_FALSE(note.release().asDvqm());
    EXPECT_EQ(note.singingSkill().asMutableSingingSkill(), note.singingSkill());
    EXPECT_FALSE(note.singingSkill().asSingingSkill());
    EXPECT_EQ(note.vibrato().asMutableVibrato(), note.vibrato());
    EXPECT_FALSE(note.vibrato().asVibrato());
    EXPECT_EQ(note.vibrato().rates()[0].asMutableVibratoParameter(), note.vibrato().rates()[0]);
    EXPECT_FALSE(note.vibrato().rates()[0].asVibratoParameter());
    EXPECT_EQ(lane.asMutableMidiController(), lane);
    EXPECT_FALSE(lane.asMidiController());
    EXPECT_EQ(lane.event(1).asMutableMidiEvent(), lane.event(1));
    EXPECT_FALSE(lane.event(1).asMidiEvent());
}

TEST_F(FaceTest, EffectsConvertToWhatTheyAre)
{
    const plx::MidiPart part = saveMidiClip().midiPart();
    const plx::EffectBase audio = part.audioEffect(1);
    const plx::EffectBase midi = part.midiEffect(0);

    EXPECT_EQ(audio.asEffect(), audio);
    EXPECT_EQ(audio.asAudioEffect(), audio);
    EXPECT_FALSE(audio.asMidiEffect());
    EXPECT_FALSE(audio.asMutableEffect());
    EXPECT_EQ(midi.asEffect(), midi);
    EXPECT_EQ(midi.asMidiEffect(), midi);
    EXPECT_FALSE(midi.asAudioEffect());
    EXPECT_FALSE(midi.asMutableMidiEffect());
    const plx::EffectParameterBase parameter = midi.asEffect().parameter(0);
    EXPECT_EQ(parameter.asEffectParameter(), parameter);
    EXPECT_FALSE(parameter.asMutableEffectParameter());
}

TEST_F(FaceTest, EditableEffectsConvertToWhatTheyAre)
{
    const plx::MutableMidiPart part = makeMidiClip().midiPart();
    const plx::EffectBase audio = part.audioEffect(1);
    const plx::EffectBase midi = part.midiEffect(0);

    EXPECT_EQ(audio.asMutableEffect(), audio);
    EXPECT_EQ(audio.asMutableAudioEffect(), audio);
    EXPECT_FALSE(audio.asMutableMidiEffect());
    EXPECT_FALSE(audio.asEffect());
    EXPECT_EQ(midi.asMutableEffect(), midi);
    EXPECT_EQ(midi.asMutableMidiEffect(), midi);
    EXPECT_FALSE(midi.asMutableAudioEffect());
    EXPECT_FALSE(midi.asEffect());
    const plx::EffectParameterBase parameter = midi.asMutableEffect().parameter(0);
    EXPECT_EQ(parameter.asMutableEffectParameter(), parameter);
    EXPECT_FALSE(parameter.asEffectParameter());
    EXPECT_FALSE(plx::EffectBase().asMutableEffect());
}

} // namespace
