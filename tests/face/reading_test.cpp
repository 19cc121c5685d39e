// Reading a saved clip through ranges and getters.
#include <algorithm>
#include <iterator>

#include "face/face_fixture.h"

namespace {

using plx::fromUtf8;
using plx::toUtf8;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(FaceTest, TheManagerTellsWhatItWasCreatedWith)
{
    EXPECT_EQ(manager.appID(), folder.path());
    EXPECT_EQ(manager.systemClipDirPath(), folder / "system");
    EXPECT_EQ(manager.userClipDirPath(), folder / "user");
    EXPECT_TRUE(plx::hasManager(manager));
    EXPECT_FALSE(plx::hasManager(plx::Manager()));
}

TEST_F(FaceTest, CreatingTellsWhetherTheManagerIsNew)
{
    const plx::String system = folder / "system";
    const auto again = plx::createManager(folder.path(), system, system);
    const auto refused = plx::createManager(fromUtf8("x"), folder / "none", system);
    const auto empty = plx::createManager(plx::String(), plx::StringView(system), system.c_str());

    EXPECT_EQ(again.manager, manager);
    EXPECT_EQ(again.code, plx::Result::ok);
    EXPECT_FALSE(again.code.isGiven());
    EXPECT_FALSE(refused);
    EXPECT_EQ(refused.code, plx::Result::directoryMissing);
    EXPECT_TRUE(refused.code.isGiven());
    EXPECT_EQ(empty.code, plx::Result::emptyAppID);
}

TEST_F(FaceTest, FurtherDirectoriesAreRead)
{
    const plx::UserClip clip = saveMidiClip();
    support::makeFolder(folder / "more");
    const plx::String user = folder / "user";
    const auto created = plx::createManager(fromUtf8("further"), folder / "more", folder / "new",
                                            {user.c_str()}, {user.c_str()});
    ASSERT_EQ(created.code, plx::Result::ok);
    ASSERT_EQ(created.manager.readAllClipFiles(), plx::Result::ok);

    EXPECT_EQ(created.manager.numSystemClips(), 1U);
    EXPECT_EQ(created.manager.systemClips()[0].id(), clip.id());
    EXPECT_EQ(created.manager.numUserClips(), 0U); // left out as a duplicate
    created.manager.destroy();
}

TEST_F(FaceTest, AClipTellsItsProperties)
{
    const plx::UserClip clip = saveMidiClip("あさ");

    EXPECT_EQ(toUtf8(clip.name()), "あさ");
    EXPECT_FALSE(clip.id().empty());
    EXPECT_EQ(clip.path().substr(0, folder.path().size()), folder.path());
    EXPECT_EQ(clip.type(), plx::ClipKind::user);
    EXPECT_EQ(clip.partType(), plx::PartType::midi);
    EXPECT_EQ(clip.partKey(), 5U);
    EXPECT_EQ(clip.partTempo(), 12050U);
    EXPECT_EQ(toUtf8(clip.vendorName()), "Studio");
    EXPECT_EQ(clip.parent(), manager);
    EXPECT_FALSE(clip.audioPart());
    EXPECT_TRUE(clip.hasMidiPart(clip.midiPart()));
    EXPECT_FALSE(clip.hasAudioPart(clip.midiPart()));
}

TEST_F(FaceTest, ATextOfTheLibraryEndsWithANul)
{
    const plx::StringView name = saveMidiClip().name();

    EXPECT_EQ(name.size(), 7U);
    EXPECT_EQ(name.data()[name.size()], plx::Char());
}

TEST_F(FaceTest, AFilterTellsItsTags)
{
    const plx::Filter filter = saveMidiClip().filter();

    EXPECT_THAT(texts(filter.genres()), ElementsAre("pop", "folk"));
    EXPECT_THAT(texts(filter.singerGroups()), ElementsAre("choir"));
    EXPECT_THAT(texts(filter.singerIDs()), ElementsAre("ID of a singer"));
    EXPECT_THAT(texts(filter.types()), ElementsAre("phrase"));
    EXPECT_THAT(filter.languages(), ElementsAre(1, 4));
    EXPECT_EQ(filter.language(1), 4);
    EXPECT_EQ(filter.language(2), std::nullopt);
    EXPECT_EQ(filter.genre(2).data(), nullptr);
    EXPECT_EQ(filter.numVendors(), filter.vendors().size());
}

TEST_F(FaceTest, APartTellsItsValues)
{
    const plx::UserClip clip = saveMidiClip();
    const plx::MidiPart part = clip.midiPart();

    EXPECT_EQ(part.type(), plx::PartType::midi);
    EXPECT_TRUE(part.isMidi());
    EXPECT_FALSE(part.isAudio());
    EXPECT_FALSE(part.isMutable());
    EXPECT_EQ(part.duration(), 1920);
    EXPECT_EQ(part.langID(), 1U);
    EXPECT_EQ(toUtf8(part.voiceBankID()), "ABCDEFGHIJKLMNOP");
    EXPECT_EQ(toUtf8(part.aiVoiceBankID()), "");
    EXPECT_EQ(toUtf8(part.styleName()), "gentle");
    EXPECT_EQ(toUtf8(part.stylePresetID()), "preset");
    EXPECT_THAT(part.aiLangIDs(), IsEmpty());
    EXPECT_EQ(part.aiLangIDByIndex(0), std::nullopt);
    EXPECT_EQ(part.parent(), clip);
}

TEST_F(FaceTest, APartHasARangeOfNotes)
{
    const plx::MidiPart part = saveMidiClip().midiPart();

    EXPECT_THAT(collect<std::string>(part.notes(),
                                     [](plx::Note note) {
                                         return toUtf8(note.lyric()) + '/' + toUtf8(note.phoneme());
                                     }),
                ElementsAre("sa/s a", "くら/k M 4 a"));
    EXPECT_EQ(part.note(1).pos(), 480);
    EXPECT_EQ(part.note(1).duration(), 960);
    EXPECT_EQ(part.note(1).number(), 67U);
    EXPECT_EQ(part.note(1).velocity(), 100U);
    EXPECT_EQ(part.note(1).langID(), 2U);
    EXPECT_EQ(plx::Note().langID(), std::nullopt);
    EXPECT_TRUE(part.hasNote(part.notes().back()));
    EXPECT_EQ(part.note(0).parent(), part);
}

TEST_F(FaceTest, ARangeIsRandomAccess)
{
    const plx::MidiPart part = saveMidiClip().midiPart();
    const auto notes = part.notes();
    const auto begin = notes.begin();

    EXPECT_EQ(notes.size(), 2U);
    EXPECT_FALSE(notes.empty());
    EXPECT_EQ(std::distance(begin, notes.end()), 2);
    EXPECT_EQ(begin->pos(), 0);
    EXPECT_EQ(begin[1], notes.back());
    EXPECT_EQ(*(begin + 1), notes[1]);
    EXPECT_EQ(*(1 + begin), notes[1]);
    EXPECT_EQ(*(notes.end() - 2), notes.front());
    EXPECT_EQ(*std::prev(notes.end()), notes[1]);
    EXPECT_TRUE(begin < notes.end() && begin <= begin && notes.end() > begin && begin >= begin);
    EXPECT_EQ((begin + 1).index(), 1U);
    auto walking = begin;
    EXPECT_EQ(walking++, begin);
    EXPECT_EQ(walking--, begin + 1);
    EXPECT_EQ(walking, begin);
    EXPECT_FALSE(notes[2]);
    const auto isBefore = [](plx::Note note, std::int32_t pos) { return note.pos() < pos; };
    EXPECT_EQ(std::lower_bound(begin, notes.end(), 1, isBefore).index(), 1U);
    EXPECT_EQ(std::lower_bound(begin, notes.end(), 481, isBefore), notes.end());
}

TEST_F(FaceTest, AnEmptyRangeHasNoElements)
{
    const plx::MutableMidiPart part = manager.createMutableClip().createMidiPart();

    EXPECT_TRUE(part.notes().empty());
    EXPECT_EQ(part.notes().begin(), part.notes().end());
    EXPECT_FALSE(part.notes().front());
    EXPECT_FALSE(part.notes().back());
    EXPECT_EQ(part.midiControllers().begin(), part.midiControllers().end());
}

TEST_F(FaceTest, ANoteHasExpression)
{
    const plx::Note note = saveMidiClip().midiPart().note(0);

    EXPECT_TRUE(note.attack().isAttack());
    EXPECT_FALSE(note.release().isAttack());
    EXPECT_EQ(toUtf8(note.attack().compID()), "growl");
    EXPECT_THAT(texts(note.attack().levelNames()), ElementsAre("low", "high"));
    EXPECT_THAT(texts(note.release().levelNames()), ElementsAre("soft"));
    EXPECT_EQ(note.attack().speed(), 50U);
    EXPECT_EQ(note.attack().topFactor(), 1.0F);
    EXPECT_EQ(note.attack().parent(), note);
    const plx::SingingSkill skill = note.parent().note(1).singingSkill();
    EXPECT_EQ(skill.duration(), 100);
    EXPECT_EQ(skill.preWeight(), 20U);
    EXPECT_EQ(skill.postWeight(), 30U);
    EXPECT_EQ(skill.parent(), note.parent().note(1));
}

TEST_F(FaceTest, AVibratoHasTwoRangesOfPoints)
{
    const plx::Vibrato vibrato = saveMidiClip().midiPart().note(0).vibrato();
    const auto value = [](plx::VibratoParameter point) { return point.value(); };

    EXPECT_EQ(vibrato.type(), 3U);
    EXPECT_EQ(plx::Vibrato().type(), std::nullopt);
    EXPECT_EQ(vibrato.duration(), 240);
    EXPECT_THAT(collect<unsigned>(vibrato.depths(), value), ElementsAre(10U, 90U));
    EXPECT_THAT(collect<unsigned>(vibrato.rates(), value), ElementsAre(50U));
    const plx::VibratoParameter point = vibrato.points(plx::VibratoPointKind::depth)[1];
    EXPECT_EQ(point.pos(), 120);
    EXPECT_EQ(point.type(), plx::VibratoPointKind::depth);
    EXPECT_EQ(point.parent(), vibrato);
    EXPECT_TRUE(vibrato.hasParameter(plx::VibratoPointKind::depth, point));
    EXPECT_FALSE(vibrato.hasParameter(plx::VibratoPointKind::rate, point));
    EXPECT_TRUE(vibrato.points(plx::VibratoPointKind::none).empty());
}

TEST_F(FaceTest, APartHasARangeOfItsLanes)
{
    const plx::MidiPart part = saveMidiClip().midiPart();

    EXPECT_THAT(collect<plx::ControllerType>(part.midiControllers(),
                                             [](plx::MidiController lane) { return lane.type(); }),
                ElementsAre(plx::ControllerType::dynamics, plx::ControllerType::pitchBend));
    EXPECT_FALSE(part.midiControllers().empty());
    EXPECT_FALSE(part.midiController(plx::ControllerType::growl));
    EXPECT_EQ(part.midiControllers().begin()->type(), plx::ControllerType::dynamics);
    const plx::MidiController bend = part.midiController(plx::ControllerType::pitchBend);
    EXPECT_EQ(bend.minEventValue(), -8192);
    EXPECT_EQ(bend.maxEventValue(), 8191);
    EXPECT_EQ(bend.parent(), part);
    EXPECT_TRUE(part.hasMidiController(bend));
}

TEST_F(FaceTest, ALaneHasARangeOfEvents)
{
    const plx::MidiPart part = saveMidiClip().midiPart();
    const plx::MidiController bend = part.midiController(plx::ControllerType::pitchBend);

    EXPECT_THAT(collect<int>(bend.events(), [](plx::MidiEvent event) { return event.value(); }),
                ElementsAre(-8192, 8191));
    const plx::MidiEvent event = bend.events().back();
    EXPECT_EQ(event.pos(), 240);
    EXPECT_EQ(event.type(), plx::ControllerType::pitchBend);
    EXPECT_EQ(event.minValue(), -8192);
    EXPECT_EQ(event.maxValue(), 8191);
    EXPECT_EQ(event.parent(), bend);
    EXPECT_TRUE(bend.hasEvent(event));
    EXPECT_FALSE(part.midiController(plx::ControllerType::dynamics).hasEvent(event));
}

TEST_F(FaceTest, APartHasRangesOfEffects)
{
    const plx::MidiPart part = saveMidiClip().midiPart();

    EXPECT_THAT(collect<std::string>(part.audioEffects(),
                                     [](plx::AudioEffect effect) { return toUtf8(effect.id()); }),
                ElementsAre("chorus", "delay"));
    EXPECT_THAT(collect<std::string>(part.midiEffects(),
                                     [](plx::MidiEffect effect) { return toUtf8(effect.id()); }),
                ElementsAre("arpeggio"));
    EXPECT_EQ(part.audioEffect(0).type(), plx::EffectKind::audio);
    EXPECT_EQ(part.midiEffect(0).type(), plx::EffectKind::midi);
    EXPECT_EQ(part.audioEffect(0).parent(), part);
    EXPECT_EQ(part.midiEffect(0).parent(), part);
    EXPECT_TRUE(part.hasAudioEffect(part.audioEffect(1)));
    EXPECT_FALSE(part.hasMidiEffect(part.audioEffect(1)));
}

TEST_F(FaceTest, AParameterHasTheValueOfItsType)
{
    const plx::MidiPart part = saveMidiClip().midiPart();
    const plx::MidiEffect effect = part.midiEffect(0);
    const plx::EffectParameter name = effect.parameters()[0];
    const plx::EffectParameter steps = effect.parameters()[1];
    const plx::EffectParameter mix = part.audioEffect(1).parameter(0);

    EXPECT_EQ(effect.numParameters(), 2U);
    EXPECT_EQ(toUtf8(name.name()), "name");
    EXPECT_EQ(name.type(), plx::ValueType::string);
    EXPECT_EQ(name.valueString(), fromUtf8("up"));
    EXPECT_EQ(name.valueInt32(), std::nullopt);
    EXPECT_EQ(steps.valueInt32(), 16);
    EXPECT_EQ(steps.valueFloat(), std::nullopt);
    EXPECT_EQ(steps.valueString(), std::nullopt);
    EXPECT_EQ(mix.type(), plx::ValueType::float32);
    EXPECT_EQ(mix.valueFloat(), 0.5F);
    EXPECT_EQ(mix.parent(), part.audioEffect(1));
    EXPECT_TRUE(effect.hasParameter(steps));
    EXPECT_FALSE(effect.hasParameter(mix));
}

} // namespace
