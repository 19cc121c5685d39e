// Building, saving, editing and removing clips through the face.
#include "face/face_fixture.h"

namespace {

using plx::fromUtf8;
using plx::toUtf8;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(FaceTest, AClipIsSavedListedEditedAndRemoved)
{
    saveMidiClip();
    ASSERT_EQ(manager.readUserClipFiles(), plx::Result::ok);
    ASSERT_EQ(manager.numUserClips(), 1U);
    const plx::UserClip clip = manager.userClips().front();

    const plx::PropertyEditor editor = clip.createPropertyEditor();
    EXPECT_TRUE(editor.setClipName(fromUtf8("Evening")));
    EXPECT_TRUE(editor.addFilterType(plx::StringView(fromUtf8("refrain"))));
    EXPECT_FALSE(editor.addFilterType(fromUtf8("refrain")));
    EXPECT_TRUE(editor.addFilterGenre(fromUtf8("waltz")));
    EXPECT_TRUE(editor.setPartKey(7));
    EXPECT_TRUE(editor.setPartTempo(9000));
    EXPECT_FALSE(editor.setPartTempo(1));
    EXPECT_TRUE(editor.save());
    clip.destroyPropertyEditor(editor);

    ASSERT_EQ(manager.readAllClipFiles(), plx::Result::ok);
    const plx::UserClip edited = manager.userClip(0);
    EXPECT_EQ(toUtf8(edited.name()), "Evening");
    EXPECT_THAT(texts(edited.filter().types()), ElementsAre("refrain"));
    EXPECT_THAT(texts(edited.filter().genres()), ElementsAre("waltz"));
    EXPECT_EQ(edited.partKey(), 7U);
    EXPECT_EQ(edited.partTempo(), 9000U);
    EXPECT_TRUE(manager.hasUserClip(edited));
    EXPECT_FALSE(manager.hasSystemClip(edited));
    EXPECT_TRUE(edited.remove());
    EXPECT_TRUE(manager.userClips().empty());
}

TEST_F(FaceTest, SavingTellsWhyItFailed)
{
    const plx::MutableClip clip = manager.createMutableClip();
    const plx::SaveResult without = clip.save(fromUtf8("name"));
    const plx::SaveResult nameless = clip.save(plx::String());
    const plx::SaveResult none = plx::MutableClip().save(fromUtf8("name"), true);

    EXPECT_FALSE(without);
    EXPECT_EQ(without.code, plx::Result::noPart);
    EXPECT_EQ(nameless.code, plx::Result::emptyName);
    EXPECT_FALSE(none);
    EXPECT_EQ(none.code, plx::Result::noManager);
    EXPECT_FALSE(none.code.isGiven());
    const plx::SaveResult saved = makeMidiClip().save(fromUtf8("name"), true);
    EXPECT_TRUE(saved);
    EXPECT_EQ(saved.code, plx::Result::ok);
}

// Takes a code as hosts expect to use one.
plx::Result asResult(plx::Result result)
{
    switch (result) {
    case plx::Result::noPart:
        return result;
    default:
        return plx::Result::ok;
    }
}

TEST_F(FaceTest, ACodeIsAResultWhereverOneIsExpected)
{
    const plx::ResultCode code = manager.createMutableClip().save(fromUtf8("name")).code;
    const plx::Result result = code;

    EXPECT_EQ(result, plx::Result::noPart);
    EXPECT_EQ(asResult(code), plx::Result::noPart);
    EXPECT_TRUE(code == plx::Result::noPart && plx::Result::ok != code);
    EXPECT_EQ(static_cast<std::uint32_t>(code), KRT_PLX_RESULT_NO_PART);
    EXPECT_EQ(plx::SaveResult().code, plx::Result::noManager);
    switch (code) {
    case plx::Result::noPart:
        break;
    default:
        FAIL();
    }
}

TEST_F(FaceTest, AnEditableClipOwnsOnePart)
{
    const plx::MutableClip clip = makeMidiClip();

    EXPECT_TRUE(manager.hasMutableClip(clip));
    EXPECT_TRUE(clip.hasMidiPart(clip.midiPart()));
    EXPECT_TRUE(clip.hasAudioPart(plx::PartBase()));
    const plx::MutableAudioPart audio = clip.createAudioPart();
    EXPECT_EQ(clip.audioPart(), audio);
    EXPECT_FALSE(clip.midiPart());
    EXPECT_EQ(audio.parent(), clip);
    EXPECT_EQ(clip.createMidiAiPart().type(), plx::PartType::midiAi);
    EXPECT_EQ(clip.midiPart().parent(), clip);
    EXPECT_TRUE(clip.setPartTempo(0));
    EXPECT_EQ(clip.partTempo(), std::nullopt);
    EXPECT_TRUE(clip.destroy());
    EXPECT_FALSE(manager.hasMutableClip(clip));
}

TEST_F(FaceTest, AnAudioClipIsSavedWithItsWaveFile)
{
    support::writeBytes(folder / "take.wav", "a wave file");
    const plx::MutableClip clip = manager.createMutableClip();
    const plx::MutableAudioPart part = clip.createAudioPart();
    EXPECT_TRUE(part.setWavFilePath(folder / "take.wav"));
    EXPECT_TRUE(part.setRegion(3, 4)); // and changes nothing
    const plx::MutableAudioEffect reverb = part.insertAudioEffect(0, fromUtf8("reverb"));
    EXPECT_EQ(reverb.parent(), part);
    EXPECT_THAT(part.audioEffects(), ElementsAre(reverb));
    EXPECT_TRUE(part.hasAudioEffect(reverb));

    const plx::UserClip saved = clip.save(fromUtf8("Take")).clip;
    ASSERT_TRUE(saved.readPart());
    const plx::AudioPart read = saved.audioPart();
    EXPECT_EQ(support::readBytes(plx::String(read.wavFilePath())), "a wave file");
    EXPECT_EQ(read.begin(), 0);
    EXPECT_EQ(read.end(), 0);
    EXPECT_EQ(read.numAudioEffects(), 1U);
    EXPECT_EQ(toUtf8(read.audioEffects().front().id()), "reverb");
    EXPECT_TRUE(read.hasAudioEffect(read.audioEffect(0)));
    EXPECT_EQ(read.audioEffect(0).parent(), read);
    EXPECT_EQ(read.parent(), saved);
    EXPECT_TRUE(saved.remove());
}

TEST_F(FaceTest, TagsAreAddedAndRemoved)
{
    const plx::MutableFilter filter = manager.createMutableClip().filter();
    const plx::String text = fromUtf8("text");

    EXPECT_TRUE(filter.addGenre(text) && filter.addSingerGroup(text) && filter.addSingerID(text));
    EXPECT_TRUE(filter.addType(text) && filter.addVendor(text) && filter.addLanguage(3));
    EXPECT_FALSE(filter.addGenre(static_cast<const plx::Char*>(nullptr)));
    EXPECT_EQ(filter.genre(0), text);
    EXPECT_EQ(filter.singerGroup(0), text);
    EXPECT_EQ(filter.singerID(0), text);
    EXPECT_EQ(filter.type(0), text);
    EXPECT_EQ(filter.vendor(0), text);
    EXPECT_EQ(filter.language(0), 3);
    EXPECT_TRUE(filter.removeGenre(text) && filter.removeSingerGroup(text));
    EXPECT_TRUE(filter.removeSingerID(text) && filter.removeType(text));
    EXPECT_TRUE(filter.removeVendor(text) && filter.removeLanguage(3));
    EXPECT_FALSE(filter.removeLanguage(3));
    EXPECT_TRUE(filter.genres().empty() && filter.singerGroups().empty());
    EXPECT_TRUE(filter.singerIDs().empty() && filter.types().empty());
    EXPECT_TRUE(filter.vendors().empty() && filter.languages().empty());
}

TEST_F(FaceTest, AnAiPartHasLanguages)
{
    const plx::MutableMidiPart part = manager.createMutableClip().createMidiAiPart();

    EXPECT_EQ(part.langID(), std::nullopt);
    EXPECT_TRUE(part.addAiLangID(4));
    EXPECT_TRUE(part.addAiLangID(0));
    EXPECT_FALSE(part.addAiLangID(128));
    EXPECT_THAT(part.aiLangIDs(), ElementsAre(4U, 0U));
    EXPECT_EQ(part.aiLangIDByIndex(1), 0U);
    EXPECT_EQ(part.aiLangIDByIndex(2), std::nullopt);
    EXPECT_TRUE(part.setAiVoiceBankID(fromUtf8("0123456789abcdef")));
    EXPECT_EQ(toUtf8(part.aiVoiceBankID()), "0123456789abcdef");
}

TEST_F(FaceTest, NotesAreMovedAndRemoved)
{
    const plx::MutableMidiPart part = makeMidiClip().midiPart();
    const plx::MutableNote first = part.note(0);

    EXPECT_TRUE(first.move(2000));
    EXPECT_EQ(part.notes().back(), first);
    EXPECT_TRUE(first.remove());
    EXPECT_EQ(part.notes().size(), 1U);
    EXPECT_FALSE(part.hasNote(first));
    EXPECT_EQ(part.note(0).parent(), part);
    EXPECT_FALSE(part.insertNote(0, 0, fromUtf8("a"), fromUtf8("a"), 0));
}

TEST_F(FaceTest, ExpressionIsEdited)
{
    const plx::MutableNote note = makeMidiClip().midiPart().note(0);
    const plx::MutableDvqm release = note.release();

    EXPECT_TRUE(release.setSpeed(70) && release.setTopFactor(1.5F) && release.protect(true));
    EXPECT_EQ(release.speed(), 70U);
    EXPECT_EQ(release.topFactor(), 1.5F);
    EXPECT_TRUE(release.isProtected());
    EXPECT_FALSE(release.protect(false));
    EXPECT_FALSE(release.isProtected());
    EXPECT_FALSE(release.addLevelName(plx::String()));
    EXPECT_EQ(release.parent(), note);
    EXPECT_EQ(note.singingSkill().parent(), note);
    EXPECT_EQ(note.vibrato().parent(), note);
}

TEST_F(FaceTest, VibratoPointsAreEdited)
{
    const plx::MutableVibrato vibrato = makeMidiClip().midiPart().note(0).vibrato();
    const plx::MutableVibratoParameter point = vibrato.parameter(plx::VibratoPointKind::depth, 0);

    EXPECT_TRUE(vibrato.hasParameter(plx::VibratoPointKind::depth, point));
    EXPECT_EQ(point.parent(), vibrato);
    EXPECT_TRUE(point.setValue(33));
    EXPECT_TRUE(point.move(200));
    EXPECT_EQ(vibrato.depths().back(), point);
    EXPECT_EQ(point.value(), 33U);
    EXPECT_TRUE(point.remove());
    EXPECT_EQ(vibrato.depths().size(), 1U);
    EXPECT_EQ(vibrato.rates().size(), 1U);
    EXPECT_FALSE(vibrato.insertParameter(plx::VibratoPointKind::rate, 241, 0));
}

TEST_F(FaceTest, LanesAreEdited)
{
    const plx::MutableMidiPart part = makeMidiClip().midiPart();
    const plx::MutableMidiController lane = part.midiController(plx::ControllerType::pitchBend);
    const plx::MutableMidiEvent event = lane.event(0);

    EXPECT_EQ(lane.parent(), part);
    EXPECT_EQ(event.parent(), lane);
    EXPECT_TRUE(part.hasMidiController(lane) && lane.hasEvent(event));
    EXPECT_FALSE(part.addMidiController(plx::ControllerType::pitchBend));
    EXPECT_TRUE(event.setValue(5) && event.move(500));
    EXPECT_EQ(lane.events().back(), event);
    EXPECT_EQ(event.value(), 5);
    EXPECT_TRUE(event.remove());
    EXPECT_EQ(lane.numEvents(), 1U);
    EXPECT_TRUE(lane.remove());
    EXPECT_THAT(
        collect<plx::ControllerType>(part.midiControllers(),
                                     [](plx::MutableMidiController rest) { return rest.type(); }),
        ElementsAre(plx::ControllerType::dynamics));
}

TEST_F(FaceTest, EffectsAreEdited)
{
    const plx::MutableMidiPart part = makeMidiClip().midiPart();
    const plx::MutableMidiEffect arpeggio = part.midiEffect(0);
    const plx::MutableAudioEffect chorus = part.audioEffect(0);
    const plx::MutableEffectParameter steps = arpeggio.parameter(1);

    EXPECT_TRUE(part.hasMidiEffect(arpeggio) && part.hasAudioEffect(chorus));
    EXPECT_EQ(arpeggio.parent(), part);
    EXPECT_EQ(chorus.parent(), part);
    EXPECT_EQ(part.midiEffects().size(), 1U);
    EXPECT_TRUE(chorus.move(1));
    EXPECT_EQ(part.audioEffects().back(), chorus);
    EXPECT_TRUE(chorus.remove());
    EXPECT_EQ(part.numAudioEffects(), 1U);
    EXPECT_EQ(steps.parent(), arpeggio);
    EXPECT_TRUE(arpeggio.hasParameter(steps));
    EXPECT_EQ(arpeggio.addParameter(fromUtf8("steps")), steps);
    EXPECT_TRUE(steps.setValueFloat(2.5F));
    EXPECT_EQ(steps.valueFloat(), 2.5F);
    EXPECT_TRUE(steps.setValueString(plx::StringView(fromUtf8("text"))));
    EXPECT_EQ(steps.valueString(), fromUtf8("text"));
    EXPECT_TRUE(steps.setValueInt32(3));
    EXPECT_EQ(steps.valueInt32(), 3);
    EXPECT_TRUE(steps.remove());
    EXPECT_EQ(arpeggio.parameters().size(), 1U);
}

} // namespace
