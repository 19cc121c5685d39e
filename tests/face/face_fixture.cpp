#include "face/face_fixture.h"

using plx::fromUtf8;

namespace {

void addExpression(plx::MutableNote note)
{
    note.attack().setCompID(fromUtf8("growl"));
    note.attack().addLevelName(fromUtf8("low"));
    note.attack().addLevelName(fromUtf8("high"));
    note.release().setCompID(fromUtf8("fade"));
    note.release().addLevelName(fromUtf8("soft"));
    note.vibrato().setType(3);
    note.vibrato().setDuration(240);
    note.vibrato().insertParameter(plx::VibratoPointKind::depth, 0, 10);
    note.vibrato().insertParameter(plx::VibratoPointKind::depth, 120, 90);
    note.vibrato().insertParameter(plx::VibratoPointKind::rate, 60, 50);
}

void addNotes(plx::MutableMidiPart part)
{
    plx::MutableNote first = part.insertNote(0, 480, fromUtf8("sa"), fromUtf8("s a"), 1);
    first.setNumber(60);
    first.setVelocity(64);
    addExpression(first);
    plx::MutableNote second = part.insertNote(480, 960, fromUtf8("くら"), fromUtf8("k M 4 a"), 2);
    second.setNumber(67);
    second.setVelocity(100);
    second.singingSkill().setDuration(100);
    second.singingSkill().setPreWeight(20);
    second.singingSkill().setPostWeight(30);
}

void addLanes(plx::MutableMidiPart part)
{
    plx::MutableMidiController bend = part.addMidiController(plx::ControllerType::pitchBend);
    bend.insertEvent(0, -8192);
    bend.insertEvent(240, 8191);
    part.addMidiController(plx::ControllerType::dynamics).insertEvent(-10, 127);
}

void addEffects(plx::MutableMidiPart part)
{
    plx::MutableMidiEffect arpeggio = part.insertMidiEffect(0, fromUtf8("arpeggio"));
    arpeggio.addParameter(fromUtf8("steps")).setValueInt32(16);
    arpeggio.addParameter(fromUtf8("name")).setValueString(fromUtf8("up"));
    part.insertAudioEffect(0, fromUtf8("delay")).addParameter(fromUtf8("mix")).setValueFloat(0.5F);
    part.insertAudioEffect(0, fromUtf8("chorus"));
}

void addTags(plx::MutableFilter filter)
{
    filter.addGenre(fromUtf8("pop"));
    filter.addGenre(fromUtf8("folk"));
    filter.addLanguage(1);
    filter.addLanguage(4);
    filter.addSingerGroup(fromUtf8("choir"));
    filter.addSingerID(fromUtf8("ID of a singer"));
    filter.addType(fromUtf8("phrase"));
}

} // namespace

FaceTest::FaceTest()
{
    support::makeFolder(folder / "system");
    manager = plx::createManager(folder.path(), folder / "system", folder / "user").manager;
}

FaceTest::~FaceTest()
{
    manager.destroy();
}

plx::MutableClip FaceTest::makeMidiClip()
{
    plx::MutableClip clip = manager.createMutableClip();
    clip.setPartKey(5);
    clip.setPartTempo(12050);
    clip.setVendorName(fromUtf8("Studio"));
    addTags(clip.filter());
    plx::MutableMidiPart part = clip.createMidiPart();
    part.setVoiceBankID(fromUtf8("ABCDEFGHIJKLMNOP"));
    part.setLangID(1);
    part.setDuration(1920);
    part.setStyleName(fromUtf8("gentle"));
    part.setStylePresetID(fromUtf8("preset"));
    addNotes(part);
    addLanes(part);
    addEffects(part);
    return clip;
}

plx::UserClip FaceTest::saveMidiClip(std::string_view name)
{
    const plx::MutableClip editable = makeMidiClip();
    const plx::UserClip clip = editable.save(fromUtf8(name)).clip;
    editable.destroy();
    clip.readPart();
    return clip;
}
